#pragma once

#include <compare>
#include <cstdint>
#include <optional>

#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// An amount of money: fixed point with four decimals, held as a signed 64-bit count of ten-thousandths, so that
/// sums and differences are exact.
class ZULCOMMON_EXPORT TCurrency {
 public:
  constexpr TCurrency() = default;

  /// `Value` rounded to the nearest ten-thousandth, halves to even. Out of range and not-a-number give the nearest
  /// end of the range and zero.
  static TCurrency FromDouble(double Value);
  /// The same; nothing for what is out of range and for not-a-number.
  static std::optional<TCurrency> Fitting(double Value);
  static constexpr TCurrency FromScaled(std::int64_t TenThousandths) {
    TCurrency Result;
    Result.Scaled_ = TenThousandths;
    return Result;
  }

  constexpr std::int64_t Scaled() const { return Scaled_; }
  double ToDouble() const;

  /// The arithmetic wraps around at the ends of the range, as the stored integers do.
  friend constexpr TCurrency operator+(TCurrency A, TCurrency B) {
    return FromScaled(
        static_cast<std::int64_t>(static_cast<std::uint64_t>(A.Scaled_) + static_cast<std::uint64_t>(B.Scaled_)));
  }
  friend constexpr TCurrency operator-(TCurrency A, TCurrency B) {
    return FromScaled(
        static_cast<std::int64_t>(static_cast<std::uint64_t>(A.Scaled_) - static_cast<std::uint64_t>(B.Scaled_)));
  }
  /// The sum and the difference; nothing where they do not fit.
  static std::optional<TCurrency> Sum(TCurrency A, TCurrency B);
  static std::optional<TCurrency> Difference(TCurrency A, TCurrency B);
  friend constexpr auto operator<=>(const TCurrency&, const TCurrency&) = default;

 private:
  std::int64_t Scaled_ = 0;
};

}  // namespace zulcommon
