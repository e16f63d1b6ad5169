#include "sample/tables/Staff.h"

#include <array>

#include "sample/tables/Company.h"

namespace sample {

namespace {

using TText = std::optional<std::string_view>;

struct TUser {
  std::string_view UserName;
  TText DisplayName;
  TText Entity;
  std::optional<bool> Inactive = false;
};
constexpr auto Users = std::to_array<TUser>({
    {"ADMIN", "Administrator", "MAIN"},      {"ABARRETT", "Adele Barrett", "MAIN"},
    {"AIBRAHIM", "Amir Ibrahim", "NRTH"},    {"BERIKSEN", "Björn Eriksen", "MAIN"},
    {"BGUNN", "Bruce Gunn", "WEST", true},   {"CMUNOZ", "Carlos Muñoz", "MAIN"},
    {"CLEBLANC", "Chloé Le Blanc", "CAFÉ"},  {"CREID", "Craig Reid", "NRTH", true},
    {"DODOYLE", "Dale O'Doyle", "MAIN"},     {"DPAPADAKIS", "Dimitri Papadakis", "WEST"},
    {"EGARCIA", "Elena García", "NRTH"},     {"FKHAN", "Fatima Khan", "MAIN"},
    {"FDARCY", "Fiona D'Arcy", "MAIN"},      {"GROSSMANN", "Frank Großmann", "WEST"},
    {"GUEST", std::nullopt, std::nullopt},   {"HNAKAMURA", "Hiroshi Nakamura", "MAIN"},
    {"HFRASER", "Hamish Fraser", "NRTH"},    {"IRAMIREZ", "Inés Ramírez", "CAFÉ"},
    {"JNGUYEN", "Julie Nguyen", "MAIN"},     {"JONEIL", "Joanne O'Neil", "MAIN"},
    {"KKELLY", "Keith Kelly", "MAIN", true}, {"kiosk", "kiosk (show_room)", "CAFÉ"},
    {"LTRAN", "Linh Tran", "NRTH"},          {"LROSSI", "Luca Rossi", "MAIN"},
    {"MMCINTYRE", "Maree McIntyre", "WEST"}, {"MCHAN", "Mei Chan", "MAIN"},
    {"NVELLA", "Nadia Vella", "MAIN"},       {"NIGHTLY", "Nightly run 100%", "MAIN", std::nullopt},
    {"PKAUR", "Priya Kaur", "NRTH"},         {"RSMITH", "Renée Smith", "MAIN"},
    {"SORENJ", "Søren Jørgensen", "MAIN"},   {"SSIMEK", "Stefan Šimek", "WEST"},
    {"TWALSH", "Trent Walsh", "NRTH", true}, {"VWONG", "Vanessa Wong", "MAIN"},
    {"WYOUNG", "Wayne Young", "WEST"},       {"ZMULLER", "Zoë Müller", "MAIN"},
});

struct TSalesman {
  std::string_view Name;
  TText Department;
  TText Title;
  TText Entity;
  bool Discontinued = false;
};
constexpr auto Salesmen = std::to_array<TSalesman>({
    {"Adele Barrett", "SALES", "Sales Manager", "MAIN"},
    {"Amir Ibrahim", "SALES", "Branch Manager", "NRTH"},
    {"Björn Eriksen", "SALES", "Key Accounts – Builders", "MAIN"},
    {"Bruce Gunn", "SALES", "Representative", "WEST", true},
    {"Carlos Muñoz", "SALES", "Representative", "MAIN"},
    {"Chloé Le Blanc", "CAFÉ", "Showroom Consultant", "CAFÉ"},
    {"Craig Reid", "WAREHOUSE", "Trade Counter", "NRTH", true},
    {"Dimitri Papadakis", "SALES", "Representative", "WEST"},
    {"Elena García", "SERVICE", "Fit-out Estimator", "NRTH"},
    {"Fiona D'Arcy", "SALES", "Interior Designer", "MAIN"},
    {"Frank Großmann", "SALES", "Branch Manager", "WEST"},
    {"Hamish Fraser", "WAREHOUSE", "Trade Counter", "NRTH"},
    {"House Account", std::nullopt, std::nullopt, std::nullopt},
    {"Inés Ramírez", "CAFÉ", "Showroom Consultant", "CAFÉ"},
    {"Joanne O'Neil", "SALES", "Representative", "MAIN"},
    {"Luca Rossi", "SERVICE", "Estimator", "MAIN"},
    {"Mei Chan", "SALES", "Internal Sales", "MAIN"},
    {"Priya Kaur", "SALES", "Internal Sales", "NRTH"},
    {"Renée Smith", "SALES", "", "MAIN"},
    {"Søren Jørgensen", "PURCHASING", "Buyer, 50% sales", "MAIN"},
    {"Stefan Šimek", "SALES", "Representative", "WEST"},
    {"Trent Walsh", "SALES", "Representative", "NRTH", true},
    {"Web_Shop", "SALES", "Orders from the web_shop", "MAIN"},
    {"Zoë Müller", "SALES", "Representative", "MAIN"},
});

}  // namespace

std::int64_t SalesmanCount() {
  return std::ssize(Salesmen);
}

std::string_view SalesmanName(std::int64_t Number) {
  return Salesmen[static_cast<std::size_t>(Number)].Name;
}

void WriteStaff(TFiller& Filler) {
  Filler.Fill("Names", {"UserName", "DisplayNm", "Entity", "Inactive"}, [](TRows& Rows) {
    for (const TUser& User : Users) {
      Rows.Add({User.UserName, User.DisplayName, User.Entity, User.Inactive});
    }
  });
  Filler.Fill("SalesMen", {"SalesMan", "Department", "Title", "Entity", "DiscontD"}, [](TRows& Rows) {
    for (const TSalesman& Salesman : Salesmen) {
      Rows.Add({Salesman.Name, Salesman.Department, Salesman.Title, Salesman.Entity, Salesman.Discontinued});
    }
  });
}

}  // namespace sample
