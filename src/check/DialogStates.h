#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalog/Catalog.h"
#include "pickbase/uDocPickBase.h"

namespace check {

struct TCall {
  catalog::TArgs Args;
  int Changed;       ///< so many arguments are not at their default
  bool IsOneOfMany;  ///< the pick has too many combinations for all of them to be tried
};

/// Values for the arguments of a pick by which its dialog becomes every dialog that it can be: all combinations where
/// these are few, else each value by itself and each two together. The first has every argument at its default.
std::vector<TCall> CallsOf(const catalog::TPick& Pick);

/// Puts a dialog that is not shown into every state that the user can put it into - orders, directions, boxes, and each
/// find-by with a text that it takes - and has it send its query in each. `Enter` is told of the state before;
/// `Failed` of what is thrown in it, but for a lost connection and an ended query, which are thrown on.
struct TStateWalk {
  std::function<void(const std::string& State)> Enter;
  std::function<void(const std::string& Message)> Failed;

  void Through(uDocPickBase::TDocPickBase& Dialog) const;
};

}  // namespace check
