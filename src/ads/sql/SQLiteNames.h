#pragma once

#include "ads/sql/Rewriter.h"

namespace ads::sql {

/// Writes names so that every SQLite takes them for names: brackets instead of double quotes, and brackets around its
/// reserved words where they stand as a column after a point or as an alias.
void RewriteSQLiteNames(TRewriter& Rewriter);

}  // namespace ads::sql
