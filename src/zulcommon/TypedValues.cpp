#include "zulcommon/TypedValues.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <vector>

#include "zulcommon/DatePattern.h"
#include "zulcommon/DisplayFormats.h"
#include "zulcommon/LocaleSigns.h"

namespace zulcommon {

namespace {

constexpr std::string_view Digits = "0123456789";
constexpr std::string_view Blanks = " \t";

bool StartsWithDigit(std::string_view Text) {
  return !Text.empty() && Digits.find(Text[0]) != std::string_view::npos;
}

std::string_view WithoutBlanks(std::string_view Text) {
  const std::size_t First = Text.find_first_not_of(Blanks);
  if (First == std::string_view::npos) return {};
  return Text.substr(First, Text.find_last_not_of(Blanks) - First + 1);
}

// Takes the run of digits off the front of Text.
std::string_view TakeDigits(std::string_view& Text) {
  const std::string_view Run = Text.substr(0, Text.find_first_not_of(Digits));
  Text.remove_prefix(Run.size());
  return Run;
}

bool TakeChar(std::string_view& Text, std::string_view OneOf) {
  if (Text.empty() || OneOf.find(Text[0]) == std::string_view::npos) return false;
  Text.remove_prefix(1);
  return true;
}

// A blank beside a point or the like ("d. m. yyyy") need not be typed.
bool TakeSeparator(std::string_view& Text, std::string_view Separator) {
  const bool BlanksOnly = Separator.find_first_not_of(' ') == std::string_view::npos;
  return std::all_of(Separator.begin(), Separator.end(),
                     [&](char C) { return TakeChar(Text, std::string_view(&C, 1)) || (C == ' ' && !BlanksOnly); });
}

int ToInt(std::string_view Number) {
  int Value = 0;
  std::from_chars(Number.data(), Number.data() + Number.size(), Value);
  return Value;
}

// The year of a century that lies from 49 years before this one to 50 after it.
int FullYear(int TwoDigits, int ThisYear) {
  const int Oldest = ThisYear - 49;
  return Oldest + ((TwoDigits - Oldest) % 100 + 100) % 100;
}

// Day, month and year as far as they are typed; a year of -1 is left out.
struct TTypedDate {
  int Day = 0;
  int Month = 0;
  int Year = -1;
};

bool TakePart(std::string_view& Text, char Letter, int ThisYear, TTypedDate& Typed) {
  const std::string_view Number = TakeDigits(Text);
  if (Letter == 'y') {
    Typed.Year = Number.size() == 2 ? FullYear(ToInt(Number), ThisYear) : ToInt(Number);
    return Number.size() == 2 || Number.size() == 4;
  }
  (Letter == 'd' ? Typed.Day : Typed.Month) = ToInt(Number);
  return Number.size() == 1 || Number.size() == 2;
}

std::optional<QDate> ReadParts(std::string_view Text, const std::vector<TDatePart>& Parts, int ThisYear) {
  TTypedDate Typed;
  for (const TDatePart& Part : Parts) {
    if (!TakePart(Text, Part.Letter, ThisYear, Typed)) return std::nullopt;
    const bool Done = Text.empty() && &Part == &Parts.back();
    if (!Done && !TakeSeparator(Text, Part.Behind)) return std::nullopt;
  }
  if (!Text.empty()) return std::nullopt;
  const QDate Date(Typed.Year < 0 ? ThisYear : Typed.Year, Typed.Month, Typed.Day);
  return Date.isValid() ? std::optional(Date) : std::nullopt;
}

// The year goes with the separator that parts it from the day and the month.
std::vector<TDatePart> WithoutYear(const TDateParts& Parts) {
  std::vector<TDatePart> Result;
  for (const TDatePart& Part : Parts) {
    if (Part.Letter != 'y') Result.push_back(Part);
  }
  if (Parts.back().Letter == 'y') Result.back().Behind = Parts.back().Behind;
  return Result;
}

// The place of the first digit that is not zero, counted in tens before the point: 3 for "0123.4", -1 for ".005".
// Tells a number that is too large from one that is too small.
std::ptrdiff_t Magnitude(std::string_view Whole, std::string_view Fraction) {
  const std::size_t InWhole = Whole.find_first_not_of('0');
  if (InWhole != std::string_view::npos) return static_cast<std::ptrdiff_t>(Whole.size() - InWhole);
  return -static_cast<std::ptrdiff_t>(std::min(Fraction.find_first_not_of('0'), Fraction.size()));
}

// Takes what stands behind an e. More digits than an int holds count as a very large exponent.
std::optional<int> TakeExponent(std::string_view& Text) {
  const bool Negative = TakeChar(Text, "-");
  if (!Negative) TakeChar(Text, "+");
  const std::string_view Power = TakeDigits(Text);
  if (Power.empty()) return std::nullopt;

  int Value = 0;
  const auto Read = std::from_chars(Power.data(), Power.data() + Power.size(), Value);
  if (Read.ec != std::errc{}) Value = 1'000'000'000;
  return Negative ? -Value : Value;
}

}  // namespace

std::optional<QDate> ReadDate(std::string_view Typed) {
  return ReadDate(Typed, QDate::currentDate());
}

std::optional<QDate> ReadDate(std::string_view Typed, QDate Today) {
  const std::optional<TDateParts> Pattern = ReadDatePattern(ShortDateFormat());
  if (!Pattern) return std::nullopt;
  const std::string Plain = WithPlainDigits(Typed);
  const std::string_view Text = WithoutBlanks(Plain);
  const std::vector<TDatePart> Parts(Pattern->begin(), Pattern->end());
  if (const auto Date = ReadParts(Text, Parts, Today.year())) return Date;
  return ReadParts(Text, WithoutYear(*Pattern), Today.year());
}

std::optional<std::int32_t> ReadInteger(std::string_view Typed) {
  std::string_view Text = WithoutBlanks(Typed);
  std::string_view Number = Text;
  if (!TakeChar(Text, "-") && TakeChar(Text, "+")) Number = Text;
  if (!StartsWithDigit(Text)) return std::nullopt;

  std::int32_t Value = 0;
  const char* const End = Number.data() + Number.size();
  const auto [Stop, Error] = std::from_chars(Number.data(), End, Value);
  if (Error != std::errc{} || Stop != End) return std::nullopt;
  return Value;
}

std::optional<double> ReadNumber(std::string_view Typed) {
  std::string_view Text = WithoutBlanks(Typed);
  const bool Negative = TakeChar(Text, "-");
  if (!Negative) TakeChar(Text, "+");
  const std::string_view Number = Text;

  const std::string_view Whole = TakeDigits(Text);
  std::string_view Fraction;
  if (TakeChar(Text, ".")) Fraction = TakeDigits(Text);
  if (Whole.empty() && Fraction.empty()) return std::nullopt;

  const std::optional<int> Exponent = TakeChar(Text, "eE") ? TakeExponent(Text) : 0;
  if (!Exponent || !Text.empty()) return std::nullopt;

  double Value = 0;
  const auto Read = std::from_chars(Number.data(), Number.data() + Number.size(), Value);
  if (Read.ec != std::errc{}) {
    if (Magnitude(Whole, Fraction) + *Exponent > 0) return std::nullopt;
    Value = 0;
  }
  return Negative ? -Value : Value;
}

}  // namespace zulcommon
