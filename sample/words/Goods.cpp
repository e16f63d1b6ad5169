#include "sample/words/Goods.h"

#include <array>

#include "sample/words/Text.h"

namespace sample {

namespace {

struct TWare {
  std::string_view Category;
  std::string_view Name;
};
constexpr auto Wares = std::to_array<TWare>({
    {"FIT", "Elbow"},        {"FIT", "Tee Piece"},  {"FIT", "Reducer"},      {"FIT", "Ball Valve"},
    {"PIP", "Pipe 3m"},      {"PIP", "Tube 6m"},    {"TAP", "Mixer Tap"},    {"TAP", "Shower Rose"},
    {"TAP", "Basin Spout"},  {"FAS", "Wood Screw"}, {"FAS", "Hex Bolt"},     {"FAS", "Rivet"},
    {"FAS", "Wall Anchor"},  {"TIM", "Batten"},     {"TIM", "Panel"},        {"TIM", "Architrave"},
    {"BRD", "Benchtop"},     {"BRD", "Door Blank"}, {"BRD", "Drawer Front"}, {"HDW", "Hinge"},
    {"HDW", "Drawer Slide"}, {"HDW", "Handle"},     {"HDW", "Shelf Pin"},    {"ELE", "Power Outlet"},
    {"ELE", "Downlight"},    {"ELE", "Cable Tray"}, {"CHM", "Sealant"},      {"CHM", "Adhesive"},
    {"TIL", "Floor Tile"},   {"TIL", "Wall Tile"},  {"GLS", "Splashback"},   {"GLS", "Mirror"},
});
constexpr auto Materials = std::to_array<std::string_view>({
    "Brass",
    "Copper",
    "Chrome",
    "Stainless",
    "Galv.",
    "PVC",
    "Oak",
    "Pine",
    "White",
    "Matt Black",
    "Crème",
    "Grey",
});
constexpr auto Measures = std::to_array<std::string_view>({
    "6mm",
    "8mm",
    "10mm",
    "12mm",
    "15mm",
    "20mm",
    "25mm",
    "32mm",
    "40mm",
    "50mm",
    "65mm",
    "100mm",
    "150mm",
    "300mm",
    "450mm",
    "600mm",
    "900mm",
    "1200mm",
});
constexpr auto Works = std::to_array<std::string_view>({
    "Bathroom refit", "Kitchen refit", "Deck",      "Shopfront",    "New roof",  "Extension", "Fit-out",
    "Granny flat",    "Pool house",    "Re-wiring", "Office lobby", "Garage",    "Stairs",    "Café counter",
    "Laundry",        "Fence",         "Warehouse", "Clinic",       "Classroom", "Wardrobes", "Repairs",
});

}  // namespace

TGoods AnyGoods(TRandom& Random) {
  const TWare& Ware = Wares[static_cast<std::size_t>(Random.Below(std::ssize(Wares)))];
  const std::string Description = Concat({Random.Pick(Materials), " ", Ware.Name, " ", Random.Pick(Measures)});
  return {Ware.Category, Fitted(Description, 35)};
}

std::string_view AnyWork(TRandom& Random) {
  return Random.Pick(Works);
}

}  // namespace sample
