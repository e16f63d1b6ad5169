#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <type_traits>

namespace zulcommon {

/// A set of the values of a plain scoped enumeration whose ordinals are 0 to 31, such as `TPOStates`.
///
/// A value type of four bytes; bit n stands for ordinal n. A value with an ordinal above 31 cannot be held and is
/// ignored.
template <typename TEnum>
requires std::is_enum_v<TEnum>
class TSet {
 public:
  constexpr TSet() = default;
  constexpr TSet(std::initializer_list<TEnum> Values) {
    for (TEnum Value : Values) Include(Value);
  }

  constexpr bool Contains(TEnum Value) const { return (Bits_ & Bit(Value)) != 0; }
  constexpr void Include(TEnum Value) { Bits_ |= Bit(Value); }
  constexpr void Exclude(TEnum Value) { Bits_ &= ~Bit(Value); }
  constexpr bool IsEmpty() const { return Bits_ == 0; }

  /// Bit n is set when the value with ordinal n is held.
  constexpr std::uint32_t Bits() const { return Bits_; }

  friend constexpr bool operator==(const TSet&, const TSet&) = default;

 private:
  static constexpr std::uint32_t Bit(TEnum Value) {
    const auto Ordinal = static_cast<std::uint64_t>(static_cast<std::underlying_type_t<TEnum>>(Value));
    return Ordinal < 32 ? std::uint32_t{1} << Ordinal : 0;
  }

  std::uint32_t Bits_ = 0;
};

}  // namespace zulcommon
