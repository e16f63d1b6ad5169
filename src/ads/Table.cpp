#include "ads/Table.h"

#include "ads/Connection.h"
#include "ads/EDatabaseError.h"

namespace ads {

namespace {

std::string TextLiteral(const std::string& Text) {
  std::string Result = "'";
  for (const char Character : Text) {
    if (Character == '\'') Result += '\'';
    Result += Character;
  }
  return Result + "'";
}

}  // namespace

TAdsTable::TAdsTable(QObject* Owner) : TDataSet(Owner) {}
TAdsTable::~TAdsTable() = default;

void TAdsTable::SetIndex(const std::string& Name, const std::string& KeyColumn) {
  IndexName_ = Name;
  KeyColumn_ = KeyColumn;
}

std::string TAdsTable::SelectText() const {
  std::string Columns;
  for (const TField* Field : Fields()) {
    if (Field->Kind() != TFieldKind::fkData) continue;
    Columns += (Columns.empty() ? "[" : ", [") + Field->FieldName() + "]";
  }
  return "SELECT " + Columns + " FROM [" + TableName_ + "]";
}

TListStatements TAdsTable::First(const std::string& Select) const {
  const TAdsConnection& Connection = RequireConnection();
  return Connection.Statements(Connection.Dialect().FirstRowOnly(Select), {}, 0);
}

TListStatements TAdsTable::Statements(int) const {
  return First(SelectText());
}

bool TAdsTable::FindKey(const std::string& Key) {
  return FindLiteral(TextLiteral(Key));
}
bool TAdsTable::FindKey(std::int32_t Key) {
  return FindLiteral(std::to_string(Key));
}

bool TAdsTable::FindLiteral(const std::string& Literal) {
  if (!Active()) throw EDatabaseError("Table " + TableName_ + " is not open.");
  if (KeyColumn_.empty()) throw EDatabaseError("Table " + TableName_ + " has no index to find a key with.");
  Load(First(SelectText() + " WHERE [" + KeyColumn_ + "] = " + Literal));
  return !IsEmpty();
}

}  // namespace ads
