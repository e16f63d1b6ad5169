#include "sample/words/People.h"

#include <array>

namespace sample {

namespace {

constexpr auto GivenNames = std::to_array<std::string_view>({
    "Adele",   "Alan",   "Amir",   "Ana",    "Andrew",  "Anh",    "Beatriz",  "Ben",     "Björn",   "Brenda",  "Bruce",
    "Caitlin", "Carlos", "Chloé",  "Claire", "Craig",   "Dale",   "Darren",   "Dimitri", "Elena",   "Emma",    "Eoin",
    "Fatima",  "Fiona",  "Frank",  "Gavin",  "Georgia", "Grace",  "Hamish",   "Helen",   "Hiroshi", "Ian",     "Inés",
    "Ivan",    "Jack",   "Jarrah", "Joanne", "José",    "Julie",  "Karen",    "Keith",   "Kylie",   "Lachlan", "Leanne",
    "Liam",    "Linh",   "Luca",   "Maree",  "Matthew", "Mei",    "Mitchell", "Nadia",   "Narelle", "Noah",    "Olivia",
    "Owen",    "Paolo",  "Petra",  "Priya",  "Renée",   "Rhonda", "Robyn",    "Ruby",    "Sanjay",  "Scott",   "Shane",
    "Siân",    "Søren",  "Stacey", "Stefan", "Tamsin",  "Tanya",  "Thuy",     "Trent",   "Vanessa", "Wayne",   "Zoë",
});

constexpr auto FamilyNames = std::to_array<std::string_view>({
    "Abbott",    "Ahmed",      "Anderson",  "Ångström",  "Baker",    "Barrett", "Bianchi",  "Blackwood", "Boyle",
    "Brennan",   "Brooks",     "Caruana",   "Chan",      "Chaudhry", "Clarke",  "Cooper",   "Coyle",     "D'Angelo",
    "D'Arcy",    "Dawson",     "De Souza",  "Dimitriou", "Doyle",    "Dunn",    "Eriksen",  "Fairfax",   "Ferguson",
    "Fischer",   "Fraser",     "Gallagher", "García",    "Gibson",   "Gordon",  "Greco",    "Großmann",  "Gunn",
    "Harding",   "Haydon",     "Hoang",     "Horvat",    "Hughes",   "Ibrahim", "Irwin",    "Jansen",    "Jørgensen",
    "Kaur",      "Kelly",      "Khan",      "Kowalski",  "Kruse",    "Lambert", "Le Blanc", "Lim",       "Lindgren",
    "Lloyd",     "Macpherson", "Marsh",     "McIntyre",  "Mendes",   "Meyer",   "Moretti",  "Müller",    "Muñoz",
    "Murphy",    "Nakamura",   "Nguyen",    "Novak",     "O'Brien",  "O'Neil",  "O'Shea",   "Okafor",    "Östlund",
    "Papadakis", "Patel",      "Pearce",    "Pham",      "Quinn",    "Ramírez", "Reid",     "Rossi",     "Rowlands",
    "Santos",    "Schäfer",    "Sharma",    "Shepherd",  "Šimek",    "Silva",   "Singh",    "Sinclair",  "Smith",
    "St. John",  "Tanaka",     "Taylor",    "Thompson",  "Tran",     "Ueda",    "Vella",    "Wagner",    "Walsh",
    "Watanabe",  "White",      "Williams",  "Wong",      "Xavier",   "Yates",   "Young",    "Zammit",    "Zhang",
});

}  // namespace

std::span<const std::string_view> FirstNames() {
  return GivenNames;
}
std::span<const std::string_view> Surnames() {
  return FamilyNames;
}

TPerson AnyPerson(TRandom& Random) {
  const std::string_view FirstName = Random.Pick(GivenNames);
  return {FirstName, Random.Pick(FamilyNames)};
}

}  // namespace sample
