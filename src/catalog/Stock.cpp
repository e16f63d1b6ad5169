#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "picks/stock/uPickItemCost.h"
#include "picks/stock/uPickItemLocation.h"
#include "picks/stock/uPickItemPresetDetail.h"
#include "picks/stock/uPickKitDetail.h"
#include "picks/stock/uPickLocation.h"

namespace catalog {

namespace {

TPick ItemAtLocationPick() {
  return {
      "item-at-location",
      "uPickItemAndLocation::CallPickItemAndLocation",
      "A child item of a parent item at a location; gives the item and the location's number",
      {Such(TextArg("parent", "The parent item whose child items are listed, exactly as it is stored"), "FIT-000231")},
      [](ads::TAdsConnection* Connection, const TArgs& Args) {
        std::int32_t Location = 0;
        TResult Result = TextResult([&](std::string& ItemNo) {
          return uPickItemAndLocation::CallPickItemAndLocation(Args.Text("parent"), Connection, ItemNo, Location);
        });
        Result.Keys.push_back(std::to_string(Location));
        return Result;
      },
      {}};
}

TPick ItemLocationPick() {
  return {"item-location",
          "uPickItemLocation::CallPickLocation",
          "A location that holds an item",
          {Such(TextArg("item", "The item, exactly as it is stored"), "BRD-000054"),
           BooleanArg("include-zero", "List locations with nothing on hand from the start, too")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return IntegerResult([&](std::int32_t& Location) {
              return uPickItemLocation::CallPickLocation(Args.Text("item"), Connection, Location,
                                                         Args.Boolean("include-zero"));
            });
          },
          {}};
}

TPick LocationPick() {
  return {"location",
          "uPickLocation::CallPickLocation",
          "A stock location",
          {TextArg("item", "Only locations that hold this item, exactly as it is stored; all when it is empty")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return IntegerResult([&](std::int32_t& Location) {
              return uPickLocation::CallPickLocation(Connection, Location, Args.Text("item"));
            });
          },
          {}};
}

TPick ItemCostPick() {
  return {"item-cost",
          "uPickItemCost::CallPickItemCost",
          "One of the costs of an item",
          {Such(TextArg("item", "The item whose costs are listed, exactly as it is stored"), "PIP-000001")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return IntegerResult(
                [&](std::int32_t& Key) { return uPickItemCost::CallPickItemCost(Connection, Args.Text("item"), Key); });
          },
          {}};
}

TPick KitOptionPick() {
  return {"kit-option",
          "uPickKitDetail::CallPickKitDetail",
          "One of the options of a kit",
          {Such(IntegerArg("kit", "The number of the kit"), "3"),
           InOutArg("item", "The item so far, which stays when none is chosen")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return InOutResult(Args.Text("item"), [&](std::string& Item) {
              return uPickKitDetail::CallPickKitDetail(Connection, Args.Integer("kit"), Item);
            });
          },
          {}};
}

TPick PresetOptionPick() {
  return {"preset-option",
          "uPickItemPresetDetail::CallPickPresetDetail",
          "One of the options of a line of an item preset",
          {Such(IntegerArg("line", "The number of the preset's line"), "1")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return TextResult([&](std::string& Item) {
              return uPickItemPresetDetail::CallPickPresetDetail(Connection, Args.Integer("line"), Item);
            });
          },
          {}};
}

}  // namespace

void AddStock(TCatalog& Catalog) {
  Catalog.StartGroup("Items and stock");
  Catalog.Add(ItemAtLocationPick());
  Catalog.Add(ItemLocationPick());
  Catalog.Add(LocationPick());
  Catalog.Add(ItemCostPick());
  Catalog.Add(KitOptionPick());
  Catalog.Add(PresetOptionPick());
}

}  // namespace catalog
