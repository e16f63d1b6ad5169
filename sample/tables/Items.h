#pragma once

#include <optional>
#include <string>

#include "sample/tables/Plan.h"

namespace sample {

/// An item by its number from 1. Every tenth item from the first on is a parent, the four after it its children.
struct TItem {
  std::string Code;
  std::optional<std::string> Description;
  std::optional<int> Type;
  std::optional<std::string> Parent;
};
TItem ItemAt(const TPlan& Plan, std::int64_t Number);

/// The code of an item alone; cheaper than the whole item.
std::string ItemCode(const TPlan& Plan, std::int64_t Number);

/// A code that no item has any longer.
std::string VanishedItem(TRandom& Random);

}  // namespace sample
