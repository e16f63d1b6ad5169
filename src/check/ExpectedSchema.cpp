#include "check/ExpectedSchema.h"

#include <algorithm>

#include "sample/SchemaSql.h"
#include "sample/store/Schema.h"
#include "zulcommon/Text.h"

namespace check {

namespace {

using ads::TColumnKind;
using sample::TColumnType;

TColumnKind KindOf(TColumnType Type) {
  switch (Type) {
    case TColumnType::Boolean:
      return TColumnKind::Boolean;
    case TColumnType::Date:
      return TColumnKind::Date;
    case TColumnType::Text:
      return TColumnKind::Text;
    default:
      return TColumnKind::Number;
  }
}

std::vector<TExpectedTable> ReadTables() {
  const sample::TSchema Schema = sample::ReadSchema(sample::SchemaText);
  std::vector<TExpectedTable> Tables;
  for (const sample::TTable& Table : Schema.Tables) {
    TExpectedTable& Fresh = Tables.emplace_back();
    Fresh.Name = Table.Name;
    Fresh.Sql = Table.Sql;
    for (const sample::TColumn& Column : Table.Columns) {
      Fresh.Columns.push_back({Column.Name, KindOf(Column.Type)});
      if (Column.Type == TColumnType::AutoNumber) {
        Fresh.Indexes.push_back({"PK_" + Column.Name + "_" + Table.Name, {Column.Name}});
      }
    }
    for (const sample::TIndex& Index : Schema.Indexes) {
      if (Index.Table == Table.Name) Fresh.Indexes.push_back({Index.Name, Index.Columns});
    }
  }
  return Tables;
}

}  // namespace

const TExpectedColumn* TExpectedTable::Find(const std::string& ColumnName) const {
  const auto Found = std::find_if(Columns.begin(), Columns.end(), [&](const TExpectedColumn& Column) {
    return zulcommon::SameText(Column.Name, ColumnName);
  });
  return Found == Columns.end() ? nullptr : &*Found;
}

const std::vector<TExpectedTable>& ExpectedTables() {
  static const std::vector<TExpectedTable> Tables = ReadTables();
  return Tables;
}

const TExpectedTable* ExpectedTable(const std::string& Name) {
  const std::vector<TExpectedTable>& Tables = ExpectedTables();
  const auto Found = std::find_if(Tables.begin(), Tables.end(),
                                  [&](const TExpectedTable& Table) { return zulcommon::SameText(Table.Name, Name); });
  return Found == Tables.end() ? nullptr : &*Found;
}

}  // namespace check
