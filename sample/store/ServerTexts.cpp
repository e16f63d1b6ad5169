#include "sample/store/ServerTexts.h"

#include <stdexcept>

namespace sample {

std::string TServerTexts::Lower(std::string_view Name) {
  std::string Result;
  for (const char Letter : Name) {
    Result += Letter >= 'A' && Letter <= 'Z' ? static_cast<char>(Letter - 'A' + 'a') : Letter;
  }
  return Result;
}

std::string TServerTexts::Quoted(std::string_view Name) const {
  return Words_.Quote + Lower(Name) + Words_.Quote;
}

std::string TServerTexts::QuotedList(const std::vector<std::string>& Names) const {
  std::string Result;
  for (const std::string& Name : Names) {
    Result += (Result.empty() ? "" : ", ") + Quoted(Name);
  }
  return Result;
}

std::string TServerTexts::Columns(const TTable& Table) const {
  std::string Result;
  for (const TColumn& Column : Table.Columns) {
    const bool SaysSo = Column.Required && Column.Type != TColumnType::AutoNumber;
    Result += (Result.empty() ? "" : ", ") + Quoted(Column.Name) + ' ' + TypeOf(Column) + (SaysSo ? " NOT NULL" : "");
  }
  return Result;
}

std::string TServerTexts::CreateIndex(const TIndex& Index, std::string_view QuotedTable) const {
  return std::string(Index.Unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + Quoted(Index.Name) + " ON " +
         std::string(QuotedTable) + " (" + QuotedList(Index.Columns) + ")";
}

std::string TServerTexts::TypeOf(const TColumn& Column) const {
  switch (Column.Type) {
    case TColumnType::Boolean:
      return "BOOLEAN";
    case TColumnType::Date:
      return "DATE";
    case TColumnType::Text:
      return "VARCHAR(" + std::to_string(Column.Size) + ")";
    case TColumnType::Double:
      return std::string(Words_.Double);
    case TColumnType::SmallInt:
      return "SMALLINT";
    case TColumnType::Integer:
      return "INTEGER";
    case TColumnType::AutoNumber:
      return "INTEGER " + std::string(Words_.AutoNumber) + " PRIMARY KEY";
  }
  throw std::runtime_error("A column without a type: " + Column.Name);
}

}  // namespace sample
