#include "sample/tables/Items.h"

#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Kits.h"
#include "sample/words/Goods.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

using TText = std::optional<std::string>;

constexpr std::int64_t FamilySize = 10;
constexpr std::int64_t Children = 4;

/// Descriptions that make a search think, of the items from the third on.
std::optional<TText> OddDescription(std::int64_t Number) {
  static const auto Descriptions = std::to_array<TText>({
      "100% Wool Underlay",
      "Box_of_10 Screws",
      "Path\\Edge Trim",
      "3/4\" Ball Valve",
      "O'Neil's Patent Latch",
      "Crème Basin – Déco",
      "Fußleiste weiß 2400",
      std::nullopt,
      "",
      "piñata lamp, lower case",
  });
  if (Number < 3 || Number >= 3 + std::ssize(Descriptions)) {
    return std::nullopt;
  }
  return Descriptions[static_cast<std::size_t>(Number - 3)];
}

/// Mostly stock; every other type regularly; now and then a code that means nothing.
std::optional<int> TypeOf(std::int64_t Number) {
  if (Number % 100 == 17) {
    constexpr std::array<int, 3> Unknown = {7, 99, -1};
    return Unknown[static_cast<std::size_t>(Number / 100 % 3)];
  }
  if (Number % 250 == 19) {
    return std::nullopt;
  }
  if (IsKitItem(Number)) {
    return 4;
  }
  switch (Number % 20) {
    case 3:
      return 1;
    case 6:
      return 2;
    case 9:
      return 3;
    case 13:
      return 5;
    case 16:
      return 6;
    default:
      return 0;
  }
}

/// A few codes were typed in small letters once.
bool IsLowerCase(std::int64_t Number) {
  return Number % 17 == 5;
}

std::string CodeOf(std::string_view Category, std::int64_t Number) {
  std::string Code = Concat({Category, "-", Padded(Number, 6)});
  if (IsLowerCase(Number)) {
    for (char& C : Code) {
      C = C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C;
    }
  }
  return Code;
}

void AddItem(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  const TItem Item = ItemAt(Plan, Number);
  TRandom Random = Plan.Chance("Item details", Number);
  TText Lot;
  if (Random.Percent(60)) {
    Lot = Concat({"LOT ", std::to_string(Random.Between(2021, 2026)), "/", Padded(Random.Below(10'000), 4)});
  }
  TText Reference = "";
  if (Random.Percent(50)) {
    Reference = Concat({"R", Padded(Random.Below(1'000'000), 6)});
  } else if (Random.Percent(50)) {
    Reference.reset();
  }
  Rows.Add({Item.Code, Item.Description, Item.Type, Item.Parent, Lot, Reference});
}

}  // namespace

TItem ItemAt(const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("Item", Number);
  const TGoods Goods = AnyGoods(Random);
  TItem Item;
  Item.Code = CodeOf(Goods.Category, Number);
  Item.Type = TypeOf(Number);
  const auto Odd = OddDescription(Number);
  Item.Description = Odd ? *Odd : TText(Goods.Description);
  const std::int64_t Place = (Number - 1) % FamilySize;
  if (Place >= 1 && Place <= Children) {
    Item.Parent = ItemCode(Plan, Number - Place);
  } else if (Place == FamilySize - 1) {
    Item.Parent = "";
  }
  return Item;
}

std::string ItemCode(const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("Item", Number);
  return CodeOf(AnyGoods(Random).Category, Number);
}

std::string VanishedItem(TRandom& Random) {
  return Concat({"OLD-", Padded(Random.Below(1000), 6)});
}

void WriteItems(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Item", {"Item", "Desc", "Type", "ParentItem", "SupplyLot", "LocalRefNo"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Items; ++Number) {
      AddItem(Rows, Plan, Number);
    }
  });
}

}  // namespace sample
