#pragma once

#include <string>
#include <vector>

#include "catalog/Catalog.h"
#include "catalog/ChosenRows.h"

namespace command {

/// The chosen keys, one on a line.
std::string KeyLines(const catalog::TResult& Result);

/// {"keys": ["C00907"], "rows": [{"CustID": "C00907", ...}]}: the keys as `KeyLines` prints them, and of each chosen
/// row the columns that the list shows, by the names of their fields. Dates are YYYY-MM-DD, numbers are numbers.
std::string JsonText(const catalog::TResult& Result, const std::vector<catalog::TShownRow>& Rows);

}  // namespace command
