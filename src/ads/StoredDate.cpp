#include "ads/StoredDate.h"

#include <algorithm>
#include <optional>

#include "zulcommon/Text.h"

namespace ads {

namespace {

bool Take(std::string_view& Text, char Character) {
  if (!Text.starts_with(Character)) return false;
  Text.remove_prefix(1);
  return true;
}

// Exactly so many digits off the front of Text, as a number.
std::optional<int> TakeNumber(std::string_view& Text, std::size_t Count) {
  if (Text.size() < Count) return std::nullopt;
  int Value = 0;
  for (const char Digit : Text.substr(0, Count)) {
    if (Digit < '0' || Digit > '9') return std::nullopt;
    Value = 10 * Value + (Digit - '0');
  }
  Text.remove_prefix(Count);
  return Value;
}

// Two digits, not more than Most.
bool TakePart(std::string_view& Text, int Most) {
  const std::optional<int> Value = TakeNumber(Text, 2);
  return Value && *Value <= Most;
}

bool TakeFraction(std::string_view& Text) {
  const std::size_t Digits = std::min(Text.find_first_not_of("0123456789"), Text.size());
  Text.remove_prefix(Digits);
  return Digits > 0;
}

// HH:MM[:SS[.fraction]]; a day may end at 24:00 and a minute with a leap second.
bool TakeTime(std::string_view& Text) {
  if (!TakePart(Text, 24) || !Take(Text, ':') || !TakePart(Text, 59)) return false;
  if (!Take(Text, ':')) return true;
  return TakePart(Text, 60) && (!Take(Text, '.') || TakeFraction(Text));
}

// Nothing, Z, or +HH, +HHMM, +HH:MM, +HH:MM:SS and the same with a minus.
bool IsZone(std::string_view Text) {
  if (Text.empty() || Text == "Z") return true;
  if (!Take(Text, '+') && !Take(Text, '-')) return false;
  if (!TakePart(Text, 24)) return false;
  for (int Parts = 0; Parts < 2 && !Text.empty(); ++Parts) {
    Take(Text, ':');
    if (!TakePart(Text, 59)) return false;
  }
  return Text.empty();
}

}  // namespace

QDate ReadStoredDate(std::string_view Text) {
  Text = zulcommon::Trim(Text);
  const std::optional<int> Year = TakeNumber(Text, 4);
  if (!Year || !Take(Text, '-')) return {};
  const std::optional<int> Month = TakeNumber(Text, 2);
  if (!Month || !Take(Text, '-')) return {};
  const std::optional<int> Day = TakeNumber(Text, 2);
  if (!Day) return {};
  if (!Text.empty()) {
    if (!Take(Text, ' ') && !Take(Text, 'T')) return {};
    if (!TakeTime(Text)) return {};
    if (Text.starts_with(' ')) Text = zulcommon::Trim(Text);
    if (!IsZone(Text)) return {};
  }
  return QDate(*Year, *Month, *Day);
}

}  // namespace ads
