#pragma once

#include <cstdint>

namespace sample {

/// Of every twenty items one is a kit; the kit of a number from 1 is this item.
inline std::int64_t KitItem(std::int64_t Kit) {
  return 20 * Kit - 9;
}
inline bool IsKitItem(std::int64_t Item) {
  return Item % 20 == 11;
}

}  // namespace sample
