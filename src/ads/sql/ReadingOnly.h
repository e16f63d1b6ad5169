#pragma once

#include <string_view>

#include "ads/zulads_export.h"

namespace ads::sql {

/// Throws `EDatabaseError` unless `Sql` is one single SELECT statement that only reads, whatever was typed or passed
/// in. The one gate through which every query goes before a server sees it. It refuses
///
/// - what `Tokenize` refuses, parentheses that do not pair up and a text that does not start with SELECT;
/// - a semicolon;
/// - a bare word of a statement that changes something (INSERT, UPDATE, DELETE, MERGE, DROP, INTO, FOR, …), unless it
///   is part of a qualified name such as `T.Update`; between brackets or quotes every name is free;
/// - WITH, whose recursion can run without end;
/// - a call of a function that writes, locks, runs another statement or reaches outside of the database although it
///   stands in a SELECT (`nextval`, `load_extension`, `lo_import`, …), its name bare or quoted;
/// - a table of SQLite's pragmas (`pragma_optimize`, …), its name bare, quoted or given as a text.
///
/// A function that the database's owner wrote cannot be known here.
ZULADS_EXPORT void RequireReadingOnly(std::string_view Sql);

}  // namespace ads::sql
