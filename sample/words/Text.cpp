#include "sample/words/Text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace sample {

namespace {

// The accented letters that the company's names have, with what they become in an address.
constexpr auto PlainLetters = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"á", "a"},  {"ä", "ae"}, {"å", "a"}, {"ç", "c"},  {"é", "e"}, {"è", "e"}, {"ë", "e"},  {"É", "e"}, {"í", "i"},
    {"ï", "i"},  {"ñ", "n"},  {"ó", "o"}, {"ö", "oe"}, {"ø", "o"}, {"ú", "u"}, {"ü", "ue"}, {"Å", "a"}, {"Ø", "o"},
    {"Ö", "oe"}, {"ß", "s"},  {"š", "s"}, {"Š", "s"},  {"â", "a"}, {"ô", "o"}, {"Ç", "c"},
});

std::size_t CharacterLength(char Lead) {
  const auto Byte = static_cast<unsigned char>(Lead);
  return Byte < 0x80U ? 1 : Byte < 0xE0U ? 2 : Byte < 0xF0U ? 3 : 4;
}

}  // namespace

std::string Concat(std::initializer_list<std::string_view> Parts) {
  std::string Result;
  for (const std::string_view Part : Parts) {
    Result += Part;
  }
  return Result;
}

std::string Fitted(std::string_view Text, std::size_t Size) {
  std::size_t End = 0;
  for (std::size_t Count = 0; Count < Size && End < Text.size(); ++Count) {
    End += CharacterLength(Text[End]);
  }
  End = std::min(End, Text.size());
  while (End < Text.size() && End > 0 && Text[End - 1] == ' ') {
    --End;
  }
  return std::string(Text.substr(0, End));
}

std::string AddressPart(std::string_view Text, std::size_t Size) {
  std::string Result;
  for (std::size_t At = 0; At < Text.size();) {
    const std::string_view Character = Text.substr(At, CharacterLength(Text[At]));
    At += Character.size();
    if (Character.size() == 1) {
      if (std::isalnum(static_cast<unsigned char>(Character.front())) != 0) {
        Result += static_cast<char>(std::tolower(static_cast<unsigned char>(Character.front())));
      }
      continue;
    }
    const auto Plain =
        std::find_if(PlainLetters.begin(), PlainLetters.end(), [&](const auto& P) { return P.first == Character; });
    if (Plain != PlainLetters.end()) {
      Result += Plain->second;
    }
  }
  return Result.substr(0, Size);
}

}  // namespace sample
