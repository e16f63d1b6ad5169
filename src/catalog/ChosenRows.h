#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "catalog/zulcatalog_export.h"

namespace uDocPickBase {
class TDocPickBase;
}

namespace catalog {

/// A value as a program takes it, not as it is shown: a date is a text YYYY-MM-DD, and what is empty is nothing.
using TShownValue = std::variant<std::monostate, bool, std::int32_t, double, std::string>;

/// The columns that a list shows, in their order, with the values of one row; a column has the name of its field.
using TShownRow = std::vector<std::pair<std::string, TShownValue>>;

/// The rows that the user has chosen in a dialog, in the list's order: those that are ticked where rows can be ticked,
/// else the one on which the list stands. For `pickbase::TPickWatch::OnChosen`.
ZULCATALOG_EXPORT std::vector<TShownRow> ChosenRows(uDocPickBase::TDocPickBase& Dialog);

}  // namespace catalog
