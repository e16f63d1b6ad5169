#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zulcommon {

/// One of the three numbers of a date pattern and what separates it from the next.
struct TDatePart {
  char Letter = ' ';  // 'd', 'm' or 'y'
  int Width = 0;      // how often the letter stands in the pattern
  std::string Behind;
};

/// Day, month and year in the order of a pattern.
using TDateParts = std::array<TDatePart, 3>;

/// The parts of a pattern that dates can be typed in: each of d or dd, m or mm, yy or yyyy once, blanks and ASCII
/// punctuation between them and, if it must be, behind the last. Any other pattern gives nothing. The case of the
/// letters is ignored; those of the result are lower case.
std::optional<TDateParts> ReadDatePattern(std::string_view Pattern);

}  // namespace zulcommon
