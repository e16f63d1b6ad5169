// Where stock is, how much of it, and what it cost.
#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Items.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

struct TPlace {
  std::string_view ShortName;
  std::string_view FullName;
};
constexpr auto Locations = std::to_array<TPlace>({
    {"MAIN", "Main Warehouse"},
    {"SYD", "Sydney Branch"},
    {"MEL", "Melbourne Branch"},
    {"PER", "Perth – O'Hara St"},
    {"VAN1", "Fitter's Van 1"},
    {"CAFÉ", "Café Showroom"},
    {"RET_1", "Returns_1 (50% quarantine)"},
    {"NEW", "New Branch, not open yet"},
});
/// The last location has no stock yet.
constexpr std::int64_t StockedLocations = std::ssize(Locations) - 1;

/// The number of locations that hold an item: the first item is at two, the second nowhere.
std::int64_t LocationCount(TRandom& Random, std::int64_t Number) {
  return Number == 1 ? 2 : Number == 2 ? 0 : Random.Between(1, 5);
}

double AnyOnHand(TRandom& Random) {
  const std::int64_t Share = Random.Below(100);
  if (Share < 20) {
    return 0.0;
  }
  if (Share < 27) {
    return -static_cast<double>(Random.Between(1, 40));
  }
  const std::int64_t Hundredths = Random.Between(100, 90'000);
  return Share < 80 ? static_cast<double>(Hundredths / 100) : static_cast<double>(Hundredths) / 100;
}

std::optional<std::string> AnyBin(TRandom& Random) {
  if (Random.Percent(12)) {
    return std::nullopt;
  }
  if (Random.Percent(5)) {
    return "";
  }
  const std::string Aisle(1, static_cast<char>('A' + Random.Below(12)));
  return Concat({Aisle, "-", Padded(Random.Between(1, 40), 2), "-", std::to_string(Random.Between(1, 6))});
}

void AddStock(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("ItemDet", Number);
  const std::int64_t Count = LocationCount(Random, Number);
  const std::int64_t First = Random.Below(StockedLocations);
  const std::string Code = ItemCode(Plan, Number);
  for (std::int64_t Index = 0; Index < Count; ++Index) {
    Rows.Add({Code, (First + Index) % StockedLocations + 1, AnyOnHand(Random), AnyBin(Random)});
  }
}

void AddCosts(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("ItemCost", Number);
  const std::string Code = ItemCode(Plan, Number);
  const std::int64_t Count = Number == 1 ? 6 : Random.Below(5);
  for (std::int64_t Index = 0; Index < Count; ++Index) {
    std::optional<std::int64_t> Location;
    if (Index > 0 && !Random.Percent(10)) {
      Location = Random.Between(1, StockedLocations);
    }
    const TDate Day = BaseDate - std::chrono::days{Random.Below(900)};
    const double Quantity = Number == 1 && Index == 2 ? 0.0 : static_cast<double>(Random.Between(-500, 20'000)) / 100;
    const double UnitCost =
        Number == 1 && Index == 1 ? 12.5 : static_cast<double>(Random.Between(50, 5'000'000)) / 10'000;
    const std::optional<double> Buffer =
        Random.Percent(5) ? std::nullopt : std::optional(static_cast<double>(Random.Below(20'000)) / 10'000);
    Rows.Add({Code, Location, Day, Quantity, UnitCost, Buffer});
  }
}

}  // namespace

void WriteStock(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("ItemLocations", {"ShortName", "FullName"}, [](TRows& Rows) {
    for (const TPlace& Place : Locations) {
      Rows.Add({Place.ShortName, Place.FullName});
    }
  });
  Filler.Fill("ItemDet", {"Item", "ItemLoc", "OnHand", "BinLocation"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Items; ++Number) {
      AddStock(Rows, Plan, Number);
    }
  });
  Filler.Fill("ItemCost", {"Item", "ItemLoc", "Date", "Qty", "UnitCost", "UnitBuff"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Items; ++Number) {
      AddCosts(Rows, Plan, Number);
    }
  });
}

}  // namespace sample
