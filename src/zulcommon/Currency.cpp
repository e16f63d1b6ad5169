#include "zulcommon/Currency.h"

#include <cmath>
#include <limits>

namespace zulcommon {

namespace {

// Bits of a double's significand.
constexpr int SignificandBits = 53;

// The first double above the range: 2^63 ten-thousandths and a bit.
constexpr double BeyondRange = 922337203685477.625;

// Value / 2^Bits, rounded to the nearest whole number, halves to even.
std::uint64_t ShiftRounded(std::uint64_t Value, int Bits) {
  if (Bits >= 64) return 0;
  const std::uint64_t Rest = Value & ((std::uint64_t{1} << Bits) - 1);
  const std::uint64_t Half = std::uint64_t{1} << (Bits - 1);
  const std::uint64_t Whole = Value >> Bits;
  const bool Up = Rest > Half || (Rest == Half && (Whole & 1) != 0);
  return Whole + (Up ? 1 : 0);
}

}  // namespace

TCurrency TCurrency::FromDouble(double Value) {
  if (std::isnan(Value)) return {};
  if (Value >= BeyondRange) return FromScaled(std::numeric_limits<std::int64_t>::max());
  if (Value <= -BeyondRange) return FromScaled(std::numeric_limits<std::int64_t>::min());

  // Value = Significand * 2^(Exponent - 53), and 10000 = 625 * 2^4. 53 bits times 625 fit in 63 bits, so the product is
  // exact where one of doubles would round a first time.
  int Exponent = 0;
  const double Fraction = std::frexp(std::fabs(Value), &Exponent);
  const auto Significand = static_cast<std::uint64_t>(std::ldexp(Fraction, SignificandBits));
  const std::uint64_t Product = Significand * 625;
  const int Shift = SignificandBits - 4 - Exponent;
  const std::uint64_t Scaled = Shift > 0 ? ShiftRounded(Product, Shift) : Product << -Shift;
  return FromScaled(std::signbit(Value) ? -static_cast<std::int64_t>(Scaled) : static_cast<std::int64_t>(Scaled));
}

std::optional<TCurrency> TCurrency::Fitting(double Value) {
  // Not-a-number is not less than anything.
  if (!(std::fabs(Value) < BeyondRange)) return std::nullopt;
  return FromDouble(Value);
}

std::optional<TCurrency> TCurrency::Sum(TCurrency A, TCurrency B) {
  // What wraps around ends on the wrong side of the first.
  const TCurrency Result = A + B;
  if ((Result < A) != (B < TCurrency())) return std::nullopt;
  return Result;
}

std::optional<TCurrency> TCurrency::Difference(TCurrency A, TCurrency B) {
  const TCurrency Result = A - B;
  if ((Result > A) != (B < TCurrency())) return std::nullopt;
  return Result;
}

double TCurrency::ToDouble() const {
  return static_cast<double>(Scaled_) / 10000.0;
}

}  // namespace zulcommon
