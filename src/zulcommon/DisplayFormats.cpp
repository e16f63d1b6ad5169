#include "zulcommon/DisplayFormats.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "zulcommon/Ascii.h"
#include "zulcommon/DatePattern.h"
#include "zulcommon/EZULException.h"
#include "zulcommon/LocaleSigns.h"

namespace zulcommon {

namespace {

constexpr std::ptrdiff_t MostWholeDigits = 300;  // fewer than a double can have
constexpr std::string_view FallbackDateFormat = "yyyy-mm-dd";

struct TNumberFormat {
  std::ptrdiff_t WholeDigits = 0;  // shown at least
  std::ptrdiff_t Decimals = 0;     // shown exactly
  bool Grouped = false;
};

// A number in decimal: 0.Digits times ten to the power of Point. Digits has no leading zero, so zero has no digits.
struct TDecimal {
  bool Negative = false;
  std::string Digits;
  std::ptrdiff_t Point = 0;

  char DigitAt(std::ptrdiff_t Index) const {
    const bool Held = Index >= 0 && Index < std::ssize(Digits);
    return Held ? Digits[static_cast<std::size_t>(Index)] : '0';
  }
};

TNumberFormat ReadNumberFormat(std::string_view Format) {
  const std::string_view Whole = Format.substr(0, Format.find('.'));
  const std::string_view Fraction = Format.substr(Whole.size());
  TNumberFormat Result;
  Result.WholeDigits = std::min(std::count(Whole.begin(), Whole.end(), '0'), MostWholeDigits);
  Result.Decimals = std::count(Fraction.begin(), Fraction.end(), '0');
  Result.Grouped = Whole.find(',') != std::string_view::npos;
  return Result;
}

std::string_view ShortestScientific(double Value, std::array<char, 32>& Buffer) {
  const std::to_chars_result End =
      std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value, std::chars_format::scientific);
  return {Buffer.data(), static_cast<std::size_t>(End.ptr - Buffer.data())};
}

// The shortest decimal that reads back as Value: 1.005 for the double next to 1.005, which is a little below it.
TDecimal ToDecimal(double Value) {
  TDecimal Result;
  Result.Negative = std::signbit(Value);
  if (Value == 0) return Result;

  std::array<char, 32> Buffer{};
  const std::string_view Text = ShortestScientific(std::fabs(Value), Buffer);  // d.ddde-dd
  const std::size_t ExponentSign = Text.find('e') + 1;
  Result.Digits = Text[0];
  if (Text[1] == '.') Result.Digits += Text.substr(2, ExponentSign - 3);
  int Exponent = 0;
  const char* const First = Text.data() + ExponentSign + (Text[ExponentSign] == '+' ? 1 : 0);
  std::from_chars(First, Text.data() + Text.size(), Exponent);
  Result.Point = Exponent + 1;
  return Result;
}

TDecimal ToDecimal(TCurrency Value) {
  constexpr std::ptrdiff_t ScaledDecimals = 4;
  TDecimal Result;
  Result.Negative = Value.Scaled() < 0;
  if (Value.Scaled() == 0) return Result;

  const auto Scaled = static_cast<std::uint64_t>(Value.Scaled());
  Result.Digits = std::to_string(Result.Negative ? 0 - Scaled : Scaled);
  Result.Point = std::ssize(Result.Digits) - ScaledDecimals;
  return Result;
}

// Halves away from zero. The digits are those that a user reads, so looking at the first that goes is enough.
void Round(TDecimal& Number, std::ptrdiff_t Decimals) {
  const std::ptrdiff_t Kept = Number.Point + Decimals;
  if (Kept >= std::ssize(Number.Digits)) return;
  const bool Up = Kept >= 0 && Number.DigitAt(Kept) >= '5';
  Number.Digits.resize(static_cast<std::size_t>(std::max<std::ptrdiff_t>(Kept, 0)));
  if (!Up) return;

  while (!Number.Digits.empty() && Number.Digits.back() == '9') Number.Digits.pop_back();
  if (Number.Digits.empty()) {
    Number.Digits.assign(1, '1');
    ++Number.Point;
  } else {
    ++Number.Digits.back();
  }
}

// A number of the same shape as the one to be shown, as the user's locale writes it: with its signs, its groups and its
// digits, whatever these are. 1.5 times a power of ten has the wanted number of whole digits also where the power
// itself is not exact.
QString Shape(bool Negative, std::ptrdiff_t Whole, const TNumberFormat& Format) {
  QLocale Locale;
  if (!Format.Grouped) Locale.setNumberOptions(QLocale::OmitGroupSeparator);
  const double Size = 1.5 * std::pow(10.0, static_cast<double>(Whole - 1));
  return Locale.toString(Negative ? -Size : Size, 'f', static_cast<int>(Format.Decimals));
}

// The number by a format with at most its own decimals cut off, so it must have been rounded: its digits in the places
// of those of the shape.
std::string Print(const TDecimal& Number, const TNumberFormat& Format) {
  const std::ptrdiff_t Whole = std::max({Number.Point, Format.WholeDigits, std::ptrdiff_t{0}});
  const std::ptrdiff_t ShapeWhole = std::max(Whole, std::ptrdiff_t{1});
  std::ptrdiff_t Index = Number.Point - ShapeWhole;
  const std::ptrdiff_t First = Number.Point - Whole;
  std::u32string Text;
  for (const char32_t Letter : Shape(Number.Negative && !Number.Digits.empty(), ShapeWhole, Format).toStdU32String()) {
    const int Digit = QChar::digitValue(Letter);
    if (Digit < 0) {
      Text += Letter;
      continue;
    }
    const auto Zero = Letter - static_cast<char32_t>(Digit);
    if (Index >= First) Text += Zero + static_cast<char32_t>(Number.DigitAt(Index) - '0');
    ++Index;
  }
  return QString::fromStdU32String(Text).toStdString();
}

std::string PrintRounded(std::string_view Format, TDecimal Number) {
  const TNumberFormat NumberFormat = ReadNumberFormat(Format);
  Round(Number, NumberFormat.Decimals);
  return Print(Number, NumberFormat);
}

// Every digit that the number has, and no more.
std::string PrintWhole(TDecimal Number) {
  while (!Number.Digits.empty() && Number.Digits.back() == '0') Number.Digits.pop_back();
  TNumberFormat Format;
  Format.WholeDigits = 1;
  Format.Decimals = std::max<std::ptrdiff_t>(std::ssize(Number.Digits) - Number.Point, 0);
  return Print(Number, Format);
}

std::string PrintScientific(double Value) {
  std::array<char, 32> Buffer{};
  return WithLocaleSigns(ShortestScientific(Value, Buffer));
}

// Decimal, with zeros in front up to a width.
void AppendPadded(std::string& Out, std::int64_t Value, std::size_t Width) {
  const std::string Digits = std::to_string(Value);
  if (Digits.size() < Width) Out.append(Width - Digits.size(), '0');
  Out += Digits;
}

void AppendDatePart(std::string& Out, char Letter, std::size_t Width, QDate Date) {
  switch (Letter) {
    case 'd':
      return AppendPadded(Out, Date.day(), std::min<std::size_t>(Width, 2));
    case 'm':
      return AppendPadded(Out, Date.month(), std::min<std::size_t>(Width, 2));
    default:
      if (Date.year() < 0 && Width > 2) Out += '-';
      return AppendPadded(Out, Width > 2 ? std::abs(Date.year()) : std::abs(Date.year()) % 100, Width > 2 ? 4 : 2);
  }
}

// What SetShortDateFormat has set; empty for the locale's.
std::string& OwnShortDateFormat() {
  static std::string Pattern;
  return Pattern;
}

std::string LowerCase(std::string_view Text) {
  std::string Result(Text);
  std::transform(Result.begin(), Result.end(), Result.begin(), LowerAscii);
  return Result;
}

}  // namespace

std::string FormatNumber(std::string_view Format, double Value) {
  if (std::isnan(Value)) return {};
  if (std::isinf(Value)) return Value < 0 ? "-inf" : "inf";
  if (!Format.empty()) return PrintRounded(Format, ToDecimal(Value));
  const double Size = std::fabs(Value);
  const bool Plain = Size == 0 || (Size >= 1e-5 && Size < 1e15);
  return Plain ? PrintWhole(ToDecimal(Value)) : PrintScientific(Value);
}

std::string FormatNumber(std::string_view Format, TCurrency Value) {
  return Format.empty() ? PrintWhole(ToDecimal(Value)) : PrintRounded(Format, ToDecimal(Value));
}

std::string FormatShortDate(QDate Date) {
  return FormatShownDate(ShortDateFormat(), Date);
}

std::string FormatShownDate(std::string_view Pattern, QDate Date) {
  return WithLocaleDigits(FormatDate(Pattern, Date));
}

std::string FormatDate(std::string_view Pattern, QDate Date) {
  std::string Text;
  if (!Date.isValid()) return Text;
  while (!Pattern.empty()) {
    const char Letter = LowerAscii(Pattern.front());
    std::size_t Width = 1;
    while (Width < Pattern.size() && LowerAscii(Pattern[Width]) == Letter) ++Width;
    if (Letter == 'd' || Letter == 'm' || Letter == 'y') {
      AppendDatePart(Text, Letter, Width, Date);
    } else {
      Text += Pattern.substr(0, Width);
    }
    Pattern.remove_prefix(Width);
  }
  return Text;
}

std::string FormatMinutes(int MinutesAfterMidnight) {
  const std::int64_t Minutes = std::abs(std::int64_t{MinutesAfterMidnight});
  std::string Text = MinutesAfterMidnight < 0 ? "-" : "";
  AppendPadded(Text, Minutes / 60, 2);
  Text += ':';
  AppendPadded(Text, Minutes % 60, 2);
  return Text;
}

std::string ShortDateFormat() {
  if (!OwnShortDateFormat().empty()) return OwnShortDateFormat();
  std::string Pattern = LowerCase(QLocale().dateFormat(QLocale::ShortFormat).toStdString());
  return ReadDatePattern(Pattern) ? Pattern : std::string(FallbackDateFormat);
}

void SetShortDateFormat(std::string_view Pattern) {
  if (!Pattern.empty() && !ReadDatePattern(Pattern)) {
    throw EZULException("\"%s\" is not a date pattern such as dd/mm/yyyy.",
                        std::vector<std::string>{std::string(Pattern)});
  }
  OwnShortDateFormat() = LowerCase(Pattern);
}

}  // namespace zulcommon
