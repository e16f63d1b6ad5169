#include "zulcommon/DatePattern.h"

#include <algorithm>
#include <cstddef>

#include "zulcommon/Ascii.h"

namespace zulcommon {

namespace {

// Quotation marks are left out: in a pattern they enclose words.
constexpr std::string_view SeparatorChars = " !#$%&()*+,-./:;<=>?@[\\]^_`{|}~";

bool IsWidthOf(char Letter, std::size_t Width) {
  if (Letter == 'y') return Width == 2 || Width == 4;
  return (Letter == 'd' || Letter == 'm') && (Width == 1 || Width == 2);
}

// Takes the next part off the front of Pattern. A letter that is none of the three, or is not there, gives a part
// that IsWidthOf refuses.
TDatePart TakePart(std::string_view& Pattern) {
  TDatePart Part;
  if (!Pattern.empty()) Part.Letter = LowerAscii(Pattern.front());
  std::size_t Width = 0;
  while (Width < Pattern.size() && LowerAscii(Pattern[Width]) == Part.Letter) ++Width;
  Part.Width = static_cast<int>(Width);
  Pattern.remove_prefix(Width);

  const std::size_t Next = std::min(Pattern.find_first_not_of(SeparatorChars), Pattern.size());
  Part.Behind = std::string(Pattern.substr(0, Next));
  Pattern.remove_prefix(Next);
  return Part;
}

}  // namespace

std::optional<TDateParts> ReadDatePattern(std::string_view Pattern) {
  TDateParts Parts;
  std::string_view Rest = Pattern;
  std::string Seen;
  for (TDatePart& Part : Parts) {
    Part = TakePart(Rest);
    if (!IsWidthOf(Part.Letter, static_cast<std::size_t>(Part.Width))) return std::nullopt;
    if (Seen.find(Part.Letter) != std::string::npos) return std::nullopt;
    Seen += Part.Letter;
    const bool Last = Seen.size() == Parts.size();
    if (Last != Rest.empty() || (!Last && Part.Behind.empty())) return std::nullopt;
  }
  return Parts;
}

}  // namespace zulcommon
