#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sample {

/// The types of a column, apart from how any one database spells them.
enum class TColumnType {
  Boolean,
  Date,
  Text,  // of at most `TColumn::Size` characters
  Double,
  SmallInt,
  Integer,
  AutoNumber,  // an integer key that numbers its rows by itself
};

struct TColumn {
  std::string Name;
  TColumnType Type = TColumnType::Text;
  std::size_t Size = 0;   // characters, of a text
  bool Required = false;  // never null
};

struct TTable {
  std::string Name;
  std::vector<TColumn> Columns;
  std::string Sql;  // as schema.sql states it, for SQLite

  /// Null when the table has no such column. Exact case.
  const TColumn* Find(std::string_view ColumnName) const;
};

struct TIndex {
  std::string Name;
  std::string Table;
  std::vector<std::string> Columns;
  bool Unique = false;
  std::string Sql;  // as schema.sql states it, for SQLite
};

struct TSchema {
  std::vector<TTable> Tables;
  std::vector<TIndex> Indexes;

  /// Throws `std::runtime_error` when there is no such table. Exact case.
  const TTable& Table(std::string_view Name) const;
};

/// Reads a schema in the one form that schema.sql keeps to. Anything else throws `std::runtime_error` that shows
/// where.
TSchema ReadSchema(std::string_view Sql);

}  // namespace sample
