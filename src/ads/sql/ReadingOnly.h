#pragma once

#include <span>
#include <string>
#include <string_view>

#include "ads/zulads_export.h"

namespace ads::sql {

/// Throws `EDatabaseError` unless `Sql` is one single SELECT statement that only reads, whatever was typed or passed
/// in. The one gate through which every query goes before a server sees it.
///
/// It knows what is allowed, not what is forbidden: the clauses and operators of the dialogs' queries and the functions
/// `COALESCE`, `COUNT`, `IIF`, `SUBSTRING`, `SUM`, `TRIM` and `UPPER`, called by their bare names. Everything else is
/// refused with its place, among it
///
/// - what `Tokenize` refuses, parentheses that do not pair up and a text that does not start with SELECT;
/// - a semicolon; WITH, whose recursion can run without end; every word of another statement or clause, unless it is
///   quoted or stands behind a point, where every name is free;
/// - every other function, in whatever notation: `f(x)`, `"f"(x)`, `s.f(x)`, `(x).f`, `f 'x'`, `CURRENT_USER`;
/// - the tables of the servers' own (`pg_…`, `sqlite_…`, `pragma_…`, `information_schema`, …), bare, quoted or given as
///   a text.
///
/// `AllowedFunctions` names more functions, for queries that a host's own dialogs make; a name in any case, without a
/// schema. What those do is the host's to know.
///
/// Two things cannot be known here: what a view or a function of an allowed name does that the database's owner made,
/// and whether `T.Name` is a column: PostgreSQL takes it for a function of the whole row where there is no such column.
/// On PostgreSQL the server is asked to refuse what they would write.
ZULADS_EXPORT void RequireReadingOnly(std::string_view Sql, std::span<const std::string> AllowedFunctions = {});

/// Throws `EDatabaseError` with the place unless `Sql` has the shape of `Pattern`: the same tokens one by one, whatever
/// stands in their texts and numbers (a number may have a sign), and comments where that one has comments. For a query
/// into which something typed or passed was put, `Pattern` being the same query with harmless values: what was put in
/// cannot have added as much as a comma then.
ZULADS_EXPORT void RequireShape(std::string_view Sql, std::string_view Pattern);

}  // namespace ads::sql
