#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace sample {

/// The chance behind one row: the same picks for the same seed, subject and row number, on every machine. Each row
/// has a sequence of its own, so a row can be made again wherever another table refers to it, in any order, and
/// nothing has to be kept.
class TRandom {
 public:
  TRandom(std::uint64_t Seed, std::string_view Subject, std::int64_t Row)
      : State_(Mix(Mix(Seed + Hash(Subject)) + static_cast<std::uint64_t>(Row) * Step)) {}

  /// 0 to `Bound` - 1, for a `Bound` from 1 to 2^32.
  std::int64_t Below(std::int64_t Bound) {
    State_ += Step;
    return static_cast<std::int64_t>(((Mix(State_) >> 32U) * static_cast<std::uint64_t>(Bound)) >> 32U);
  }
  std::int64_t Between(std::int64_t Low, std::int64_t High) { return Low + Below(High - Low + 1); }
  bool Percent(std::int64_t Share) { return Below(100) < Share; }

  std::string_view Pick(std::span<const std::string_view> Words) {
    return Words[static_cast<std::size_t>(Below(static_cast<std::int64_t>(Words.size())))];
  }

 private:
  static constexpr std::uint64_t Step = 0x9E3779B97F4A7C15ULL;

  // The finalizer of a 64-bit hash: every bit of the result depends on every bit of the argument.
  static constexpr std::uint64_t Mix(std::uint64_t Z) {
    Z = (Z ^ (Z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    Z = (Z ^ (Z >> 27U)) * 0x94D049BB133111EBULL;
    return Z ^ (Z >> 31U);
  }
  static constexpr std::uint64_t Hash(std::string_view Text) {
    std::uint64_t Result = 0xCBF29CE484222325ULL;
    for (const char C : Text) {
      Result = (Result ^ static_cast<unsigned char>(C)) * 0x100000001B3ULL;
    }
    return Result;
  }

  std::uint64_t State_;
};

}  // namespace sample
