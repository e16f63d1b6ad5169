#include "sample/words/Firms.h"

#include <array>

#include "sample/words/People.h"
#include "sample/words/Places.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

constexpr auto Trades = std::to_array<std::string_view>({
    "Air & Heat",    "Bathrooms",     "Blinds",      "Brickwork",   "Building",      "Cabinets",    "Carpentry",
    "Concrete",      "Constructions", "Decking",     "Demolition",  "Drainage",      "Electrical",  "Fencing",
    "Flooring",      "Garage Doors",  "Glazing",     "Homes",       "Insulation",    "Interiors",   "Joinery",
    "Kitchens",      "Landscapes",    "Maintenance", "Painting",    "Plastering",    "Plumbing",    "Pools & Spas",
    "Refrigeration", "Renovations",   "Roofing",     "Scaffolding", "Security",      "Shopfitting", "Signs",
    "Solar",         "Steelworks",    "Stone",       "Tiling",      "Waterproofing",
});
constexpr auto Qualities = std::to_array<std::string_view>({
    "Able",    "Allied",  "Apex",     "Bayside", "Blue Gum", "Capital", "Coastal",  "Crown",    "Eastern",
    "Express", "Federal", "Golden",   "Harbour", "Honest",   "Inland",  "Metro",    "Modern",   "National",
    "Outback", "Pacific", "Precise",  "Prime",   "Quality",  "Rapid",   "Reliable", "Southern", "Sterling",
    "Summit",  "Sunrise", "Tropical", "United",  "Valley",   "Western",
});
constexpr auto Forms = std::to_array<std::string_view>({"Pty Ltd", "& Co", "& Sons", "Group", "Bros", "Services"});
constexpr auto Wares = std::to_array<std::string_view>({
    "Adhesives",   "Aluminium", "Bearings", "Ceramics", "Chemicals",  "Couriers",  "Electrics", "Fasteners", "Fittings",
    "Freight",     "Glass",     "Hardware", "Hire",     "Hydraulics", "Laminates", "Lighting",  "Packaging", "Paints",
    "Pipe & Tube", "Plastics",  "Safety",   "Sanitary", "Sealants",   "Steel",     "Tapware",   "Timber",    "Tools",
});
constexpr auto SupplierForms = std::to_array<std::string_view>({
    "Pty Ltd",
    "Supplies",
    "Imports",
    "Distributors",
    "Australia",
    "Wholesale",
    "Trading Co",
    "Industries",
});

std::string Joined(std::string_view A, std::string_view B, std::string_view C) {
  return Fitted(Concat({A, " ", B, " ", C}), 35);
}

}  // namespace

std::string AnyTradeFirm(TRandom& Random) {
  const std::int64_t Kind = Random.Below(100);
  const std::string_view Trade = Random.Pick(Trades);
  if (Kind < 40) {
    const std::string_view Owner = Random.Pick(Surnames());
    return Joined(Owner, Trade, Random.Pick(Forms));
  }
  if (Kind < 55) {
    const std::string Owner(Random.Pick(Surnames()));
    return Joined(Concat({Owner, " &"}), Random.Pick(Surnames()), Trade);
  }
  if (Kind < 80) {
    const std::string Town = AnyTown(Random);
    return Joined(Town, Trade, Random.Pick(Forms));
  }
  const std::string_view Quality = Random.Pick(Qualities);
  return Joined(Quality, Trade, Random.Pick(Forms));
}

std::string AnySupplier(TRandom& Random) {
  const bool Named = Random.Percent(35);
  const std::string_view First = Random.Pick(Named ? Surnames() : std::span<const std::string_view>(Qualities));
  const std::string_view Ware = Random.Pick(Wares);
  return Joined(First, Ware, Random.Pick(SupplierForms));
}

std::string EmailAt(std::string_view Person, std::string_view Firm) {
  const std::string Domain = AddressPart(Firm, 18);
  return Concat({AddressPart(Person, 12), "@", Domain.empty() ? "mail" : Domain, ".example"});
}

}  // namespace sample
