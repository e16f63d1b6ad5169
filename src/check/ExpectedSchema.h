#pragma once

#include <string>
#include <vector>

#include "ads/ServerFacts.h"

namespace check {

struct TExpectedColumn {
  std::string Name;
  ads::TColumnKind Kind;
};

struct TExpectedIndex {
  std::string Name;
  std::vector<std::string> Columns;
};

struct TExpectedTable {
  std::string Name;
  std::vector<TExpectedColumn> Columns;
  std::vector<TExpectedIndex> Indexes;
  std::string Sql;  ///< by which SQLite makes it

  /// In any case; null when there is none.
  const TExpectedColumn* Find(const std::string& ColumnName) const;
};

/// The schema that the dialogs are made for.
const std::vector<TExpectedTable>& ExpectedTables();

/// A table of the schema that the dialogs are made for, in any case; null for one that a host's own picks read.
const TExpectedTable* ExpectedTable(const std::string& Name);

}  // namespace check
