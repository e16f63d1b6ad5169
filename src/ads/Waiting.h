#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>

namespace ads {

/// For poll: how long until a time; without an end, or rounded up, so that nobody asks again and again within the last
/// millisecond.
inline int MillisecondsUntil(std::chrono::steady_clock::time_point Until) {
  if (Until == std::chrono::steady_clock::time_point::max()) return -1;
  const auto Left = std::chrono::ceil<std::chrono::milliseconds>(Until - std::chrono::steady_clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(Left, 0, std::numeric_limits<int>::max()));
}

}  // namespace ads
