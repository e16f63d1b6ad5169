#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ads/zulads_export.h"

namespace ads::sql {

/// A column as a query names it, and the tables to whose rows it may belong: one, unless the name stands alone in a
/// query of several.
struct TColumnReference {
  std::string Name;
  std::vector<std::string> Tables;
};

/// The tables and columns that a query names, each as it is written there first, in any case.
struct TReferences {
  std::vector<std::string> Tables;
  std::vector<TColumnReference> Columns;
};

/// Reads them from a text in the language of the dialogs (see `RequireReadingOnly`). The columns of queries that stand
/// in the place of a table, and names that a SELECT gives to its results, are none; a name that stands alone may be one
/// of these all the same. Throws what the gate would throw for a text that cannot be taken apart.
ZULADS_EXPORT TReferences ReferencesOf(std::string_view Sql);

}  // namespace ads::sql
