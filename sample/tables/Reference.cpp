// The system settings and the codes that every company has a handful of.
#include <array>

#include "sample/tables/Company.h"
#include "sample/tables/Entities.h"

namespace sample {

namespace {

struct TCode {
  std::string_view Code;
  std::optional<std::string_view> Description;
  std::optional<bool> Default = false;
};

constexpr auto Terms = std::to_array<TCode>({
    {"Cash on Delivery", {}},
    {"7 Days", {}},
    {"14 Days", {}},
    {"30 Days", {}, true},
    {"30 Days End of Month", {}},
    {"45 Days – Builder's Account", {}},
    {"60 Days", {}, std::nullopt},
    {"2% 10 Days, Net 30", {}},
    {"50% Deposit, Balance on Delivery", {}},
    {"Prepaid", {}},
});

constexpr auto CostCentres = std::to_array<TCode>({
    {"ADMIN", "Administration", true},
    {"ACCT", "Accounts & Payroll"},
    {"CAFE", "Café and Canteen"},
    {"COUNTER", "Trade Counter – cash sales"},
    {"CUT-SAW", "Cutting: panel saw and edge bander"},
    {"DEL-METRO", "Deliveries within the metropolitan area"},
    {"DEL-RURAL", "Deliveries beyond 50 km"},
    {"FABRIC", "Fabrication"},
    {"IT", "Computers & telephones"},
    {"JOINERY", "Joinery workshop"},
    {"MKT_WEB", "Marketing_Web (100% on-line)"},
    {"OH", "Overheads", std::nullopt},
    {"R&D", "Research \\ Development"},
    {"RENT", "Rent, rates and water"},
    {"SHOW-N", "Showroom North – O'Hara St"},
    {"SHOW-S", "Showroom South"},
    {"STAFF", ""},
    {"VEHICLES", "Motor vehicles and fork lifts"},
    {"WARRANTY", "Warranty and repairs"},
    {"XMAS", std::nullopt},
});

struct TRate {
  std::string_view Code;
  std::string_view Description;
  double Rate;
};
constexpr auto TaxRates = std::to_array<TRate>({
    {"GST", "GST on sales", 10.0},
    {"CAP", "Capital goods", 10.0},
    {"FRE", "GST free", 0.0},
    {"EXP", "Exports – nil", 0.0},
    {"INP", "Input taxed", 0.0},
    {"MIX", "Mixed supply", 7.25},
    {"N-T", "Not taxable", 0.0},
    {"WET", "Wine equal'n", 29.0},
});

constexpr auto ItemCategories = std::to_array<TCode>({
    {"FIT", "Fittings & Valves"},
    {"PIP", "Pipe and Tube"},
    {"TAP", "Tapware"},
    {"FAS", "Fasteners (screws, bolts, rivets)"},
    {"TIM", "Timber and Mouldings"},
    {"BRD", "Boards, Benchtops, Doors"},
    {"HDW", "Cabinet Hardware"},
    {"ELE", "Electrical"},
    {"CHM", "Sealants_Adhesives"},
    {"TIL", "Tiles – Floor & Wall"},
    {"GLS", "Glass"},
    {"KIT", "Kits"},
    {"SRV", "Services, 100% labour"},
    {"OLD", "Painter's lines, no longer stocked"},
    {"ZZZ", std::nullopt},
});

constexpr auto ItemClasses = std::to_array<TCode>({
    {"A", "Fast moving"},
    {"B", "Steady"},
    {"C", "Slow moving"},
    {"D", "Discontinued"},
    {"IMP", "Imported"},
    {"LOC", "Locally made"},
    {"ORD", "To order only"},
    {"PRO", "Promotion 50% off"},
    {"SET", "Set of \"parts\""},
    {"X", ""},
});

struct TFinanceRate {
  double Key;
  std::string_view Name;
  double Percent;
};
constexpr auto FinanceRates = std::to_array<TFinanceRate>({
    {1, "12 Months Interest Free", 0.0},
    {2, "24 Months", 9.9},
    {3, "36 Months", 10.75},
    {4, "48 Months", 11.25},
    {5, "60 Months", 11.5},
    {6, "O'Neil Finance – 36 Months", 12.125},
    {7, "Bürger Leasing (chattel mortgage)", 8.4},
    {8, "Staff Loan", 5.0},
    {9, "Overdue Accounts", 18.0},
});

constexpr auto FactorPresets = std::to_array<std::string_view>({
    "Cut to length, 5% waste",
    "Cut to length, 10% waste",
    "Roll, by the metre",
    "Sheet, by the square metre",
    "Tin, by the litre",
    "Pallet = 40 bags",
    "Painter's cover",
    "Straßenmaß (running metre)",
});

constexpr auto CuttingLocations = std::to_array<std::string_view>({
    "Bench 1",
    "Bench 2",
    "CNC Router",
    "Crosscut Saw",
    "D'Arcy's Guillotine",
    "Edge Bander",
    "Glass Table",
    "Mitre_Saw",
    "Panel Saw",
    "Pipe Threader",
    "Site – cut by fitter",
    "Wärmekammer",
});

constexpr auto Departments = std::to_array<std::string_view>({
    "ACCOUNTS",
    "ADMIN",
    "CAFÉ",
    "FITTERS'",
    "PURCHASING",
    "R&D",
    "SALES",
    "SERVICE",
    "WAREHOUSE",
});

constexpr auto States = std::to_array<std::string_view>({"ACT", "NSW", "NT", "QLD", "SA", "TAS", "VIC", "WA", "O/S"});

void FillList(TFiller& Filler, std::string_view Table, std::string_view Column,
              std::span<const std::string_view> Words) {
  Filler.Fill(Table, {Column}, [&](TRows& Rows) {
    for (const std::string_view Word : Words) {
      Rows.Add({Word});
    }
  });
}

void FillCodes(TFiller& Filler, std::string_view Table, std::string_view CodeColumn, std::string_view TextColumn,
               std::span<const TCode> Codes) {
  Filler.Fill(Table, {CodeColumn, TextColumn}, [&](TRows& Rows) {
    for (const TCode& Code : Codes) {
      Rows.Add({Code.Code, Code.Description});
    }
  });
}

}  // namespace

void WriteSystem(TFiller& Filler) {
  Filler.Fill("Sys", {"QtyDec", "PrcDec", "MultiAcct", "MultiLoc"}, [](TRows& Rows) { Rows.Add({2, 2, true, true}); });
  Filler.Fill("Entity", {"Entity", "Desc", "OEDefault"}, [](TRows& Rows) {
    for (const TEntity& Entity : Entities) {
      Rows.Add({Entity.Code, Entity.Name, Entity.Code == Entities.front().Code});
    }
  });
}

void WriteCodes(TFiller& Filler) {
  Filler.Fill("Terms", {"Desc", "Default"}, [](TRows& Rows) {
    for (const TCode& Term : Terms) {
      Rows.Add({Term.Code, Term.Default});
    }
  });
  Filler.Fill("CstCtr", {"CstCtr", "Desc", "Default"}, [](TRows& Rows) {
    for (const TCode& Centre : CostCentres) {
      Rows.Add({Centre.Code, Centre.Description, Centre.Default});
    }
  });
  Filler.Fill("GSTRates", {"ID", "TaxDesc", "Rate"}, [](TRows& Rows) {
    for (const TRate& Rate : TaxRates) {
      Rows.Add({Rate.Code, Rate.Description, Rate.Rate});
    }
  });
  Filler.Fill("FinanceRates", {"Key", "Name", "Percent"}, [](TRows& Rows) {
    for (const TFinanceRate& Rate : FinanceRates) {
      Rows.Add({Rate.Key, Rate.Name, Rate.Percent});
    }
  });
  FillCodes(Filler, "ItemCat", "CatID", "Descript", ItemCategories);
  FillCodes(Filler, "ItemClass", "Class", "ClassDesc", ItemClasses);
  FillList(Filler, "ItemFactorPresets", "Description", FactorPresets);
  FillList(Filler, "Location", "Desc", CuttingLocations);
  FillList(Filler, "Dept", "Department", Departments);
  FillList(Filler, "State", "State", States);
}

}  // namespace sample
