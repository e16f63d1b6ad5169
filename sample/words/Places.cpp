#include "sample/words/Places.h"

#include <array>
#include <numeric>

#include "sample/tables/Codes.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

constexpr auto OddSuburbs = std::to_array<std::string_view>({
    "D'Alton Flat",
    "O'Hara's Landing",
    "Peñasco Hills",
    "Point Étoile",
    "Großheide",
    "100% Corner",
    "St. Šimon",
});
constexpr auto Stems = std::to_array<std::string_view>({
    "Acacia", "Alder", "Ash",    "Banks",  "Barra", "Bell",   "Birch",  "Black", "Bora",  "Brook",  "Burra", "Cedar",
    "Coola",  "Coral", "Currum", "Dale",   "Dunda", "Eagle",  "Fern",   "Garra", "Gilla", "Grass",  "Hazel", "Heron",
    "Illa",   "Jindi", "Kanga",  "Karra",  "Kelp",  "Kurra",  "Lark",   "Lily",  "Maple", "Marra",  "Mulga", "Myall",
    "Narra",  "Oak",   "Parra",  "Pine",   "Quail", "Red",    "River",  "Rose",  "Sandy", "Silver", "Stone", "Swan",
    "Tarra",  "Tea",   "Thorn",  "Wallum", "Warra", "Wattle", "Willow", "Yarra",
});
constexpr auto Endings = std::to_array<std::string_view>({
    "bank", "bong",  "bridge", "brook", "bury", "creek", "dale",  "field", "ford", "gate", "glen",  "grove",
    "ham",  "hurst", "lea",    "mead",  "mere", "mont",  "ridge", "stead", "ton",  "vale", "ville", "wood",
});
constexpr auto Leads = std::to_array<std::string_view>({
    "",
    "East ",
    "Great ",
    "Isle ",
    "Lake ",
    "Low ",
    "Lower ",
    "Mount ",
    "New ",
    "North ",
    "Old ",
    "Outer ",
    "Port ",
    "South ",
    "Upper ",
    "West ",
});
constexpr auto Features = std::to_array<std::string_view>({
    "",         " Bay",    " Beach",   " Central", " Cove",   " Downs",    " East",   " Estate",
    " Gardens", " Grange", " Heights", " Hills",   " Island", " Junction", " Lakes",  " North",
    " Park",    " Plains", " Point",   " Sands",   " South",  " Springs",  " Waters", " West",
});

struct TPostcodeRange {
  int First;
  int Last;
  std::string_view AreaCode;
};
constexpr auto PostcodeRanges = std::to_array<TPostcodeRange>({
    {800, 899, "08"},    // Northern Territory
    {2000, 2999, "02"},  // New South Wales, Australian Capital Territory
    {3000, 3996, "03"},  // Victoria
    {4000, 4899, "07"},  // Queensland
    {5000, 5799, "08"},  // South Australia
    {6000, 6799, "08"},  // Western Australia
    {7000, 7499, "03"},  // Tasmania
});

constexpr auto StreetNames = std::to_array<std::string_view>({
    "Acacia",    "Anzac",  "Banksia",   "Beach",   "Bridge",  "Canning", "Church", "Coachhouse",
    "D'Arcy",    "Depot",  "Elm",       "Ferry",   "Forge",   "George",  "High",   "Industrial",
    "Jacaranda", "King",   "Kurrajong", "Lawson",  "Mill",    "Museum",  "Nolan",  "O'Hara",
    "Paterson",  "Quarry", "Railway",   "Saddler", "Station", "Tannery", "Wattle", "Wharf",
});
constexpr auto StreetTypes = std::to_array<std::string_view>({
    "St",
    "Rd",
    "Ave",
    "Ct",
    "Pde",
    "Dr",
    "Ln",
    "Hwy",
    "Cres",
    "Tce",
});

}  // namespace

std::string SuburbName(std::int64_t Number) {
  if (Number < std::ssize(OddSuburbs)) {
    return std::string(OddSuburbs[static_cast<std::size_t>(Number)]);
  }
  constexpr std::int64_t Simple = std::ssize(Stems) * std::ssize(Endings);
  constexpr std::int64_t Stride = 611;
  static_assert(std::gcd(Simple, Stride) == 1, "the stride visits every simple name");
  const auto Index = static_cast<std::size_t>(Number - std::ssize(OddSuburbs));
  const std::size_t Name = Index * Stride % Simple;
  const std::size_t Variant = Index / Simple;
  std::string Result(Leads[Variant / Features.size() % Leads.size()]);
  Result += Stems[Name / Endings.size()];
  Result += Endings[Name % Endings.size()];
  Result += Features[Variant % Features.size()];
  return Result;
}

std::string AnyTown(TRandom& Random) {
  std::string Result(Random.Pick(Stems));
  Result += Random.Pick(Endings);
  return Result;
}

std::int64_t PostcodeCount() {
  return std::accumulate(PostcodeRanges.begin(), PostcodeRanges.end(), std::int64_t{0},
                         [](std::int64_t Sum, const TPostcodeRange& R) { return Sum + R.Last - R.First + 1; });
}

std::string Postcode(std::int64_t Number) {
  for (const TPostcodeRange& Range : PostcodeRanges) {
    const std::int64_t Room = Range.Last - Range.First + 1;
    if (Number < Room) {
      return Padded(Range.First + Number, 4);
    }
    Number -= Room;
  }
  return "9999";
}

std::string AnyStreetAddress(TRandom& Random) {
  std::string Unit;
  if (Random.Percent(15)) {
    Unit = Concat({"Unit ", std::to_string(Random.Between(1, 24)), "/"});
  }
  const std::string House = std::to_string(Random.Between(1, 380));
  return Concat({Unit, House, " ", Random.Pick(StreetNames), " ", Random.Pick(StreetTypes)});
}

std::string AnyPhone(TRandom& Random, std::string_view Zip) {
  if (Random.Percent(30)) {
    const std::string Digits = Padded(Random.Below(10'000), 4);
    return Concat({"0491 57", Digits.substr(0, 1), " ", Digits.substr(1)});
  }
  std::string_view AreaCode = "02";
  for (const TPostcodeRange& Range : PostcodeRanges) {
    if (!Zip.empty() && Zip >= Padded(Range.First, 4) && Zip <= Padded(Range.Last, 4)) {
      AreaCode = Range.AreaCode;
    }
  }
  const std::string_view Exchange = Random.Percent(50) ? ") 5550 " : ") 7010 ";
  return Concat({"(", AreaCode, Exchange, Padded(Random.Below(10'000), 4)});
}

}  // namespace sample
