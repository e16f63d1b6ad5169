// Kits with the options of each, and presets with their lines and the options of each line.
#include "sample/tables/Kits.h"

#include <array>

#include "sample/tables/Company.h"
#include "sample/tables/Items.h"
#include "sample/words/Goods.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

/// The options of a kit or a line: five to eight items, of which one in ten does not exist any longer. The first
/// has its second option as the default and, in third place, an item that is gone; the second has no default.
void AddOptions(TRows& Rows, const TPlan& Plan, std::string_view Subject, std::int64_t Number) {
  TRandom Random = Plan.Chance(Subject, Number);
  const std::int64_t Count = Random.Between(5, 8);
  const std::int64_t Default = Number == 1 ? 1 : Number == 2 ? -1 : Random.Between(-1, Count - 1);
  for (std::int64_t Index = 0; Index < Count; ++Index) {
    // Different items: each option looks into a part of the list of its own.
    const std::int64_t Part = Plan.Items / Count;
    const std::int64_t Item = Index * Part + Random.Between(1, Part);
    const bool Vanished = Number == 1 && Index < 3 ? Index == 2 : Random.Percent(10);
    const std::string Code = Vanished ? VanishedItem(Random) : ItemCode(Plan, Item);
    Rows.Add({Number, Code, Index == Default});
  }
}

struct TPreset {
  std::string_view Name;
  std::array<std::optional<std::string_view>, 3> Lines;
};
constexpr auto Presets = std::to_array<TPreset>({
    {"Standard kitchen", {"Benchtop", "Doors", "Handles"}},
    {"Kitchen – \"Deluxe\"", {"Stone benchtop", "Doors", "Soft-close slides"}},
    {"Laundry", {"Trough", "Tap", "Splashback"}},
    {"Bathroom", {"Basin", "Mixer", "Mirror 50% larger"}},
    {"Ensuite", {"Basin", "Mixer", "Shower rose"}},
    {"Builder's range", {"Doors", "Hinges", "Handles"}},
    {"Café counter", {"Counter top", "Kickboard", "Shelf_pins"}},
    {"Deck 3 x 4 m", {"Boards", "Joists", "Screws"}},
    {"Wardrobe", {"Doors", "Tracks", "Shelves"}},
    {"Office", {"Desk top", "Legs", std::nullopt}},
    {"Garage", {"Shelving", "Hooks", ""}},
    {"Shop \\ display", {"Glass", "Lights", "Locks"}},
});

}  // namespace

void WriteKits(TFiller& Filler, const TPlan& Plan) {
  const std::int64_t Kits = Plan.Items / 20;
  Filler.Fill("Kits", {"Item", "Descript"}, [&](TRows& Rows) {
    for (std::int64_t Kit = 1; Kit <= Kits; ++Kit) {
      TRandom Random = Plan.Chance("Kits", Kit);
      const std::string Description = Kit == 1 ? "O'Shea's Crème Kitchen" : Concat({AnyWork(Random), " kit"});
      Rows.Add({ItemCode(Plan, KitItem(Kit)), Fitted(Description, 35)});
    }
  });
  Filler.Fill("KitDetails", {"KitID", "Item", "Default"}, [&](TRows& Rows) {
    for (std::int64_t Kit = 1; Kit <= Kits; ++Kit) {
      AddOptions(Rows, Plan, "KitDetails", Kit);
    }
  });
}

void WritePresets(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Presets", {"Descript"}, [](TRows& Rows) {
    for (const TPreset& Preset : Presets) {
      Rows.Add({Preset.Name});
    }
  });
  Filler.Fill("PresetDetails", {"PresetID", "Descript"}, [](TRows& Rows) {
    std::int64_t PresetID = 0;
    for (const TPreset& Preset : Presets) {
      ++PresetID;
      for (const auto& Line : Preset.Lines) {
        Rows.Add({PresetID, Line});
      }
    }
  });
  Filler.Fill("PresetOptions", {"LineID", "Item", "Default"}, [&](TRows& Rows) {
    // The last line has no options yet.
    for (std::int64_t LineID = 1; LineID < 3 * std::ssize(Presets); ++LineID) {
      AddOptions(Rows, Plan, "PresetOptions", LineID);
    }
  });
}

}  // namespace sample
