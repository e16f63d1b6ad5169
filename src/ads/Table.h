#pragma once

#include <cstdint>
#include <string>

#include "ads/DataSet.h"

namespace ads {

/// A dataset over one table, of which it holds one row at a time: the first after `Open`, the found one after
/// `FindKey`.
class ZULADS_EXPORT TAdsTable : public TDataSet {
  Q_OBJECT
 public:
  explicit TAdsTable(QObject* Owner);
  ~TAdsTable() override;

  void SetTableName(const std::string& Name) { TableName_ = Name; }
  const std::string& TableName() const { return TableName_; }

  /// The index through which rows are found, by its name and its key column, such as "PK_ID" on "ID". SQL servers
  /// choose the index by the column; the name says which one is meant.
  void SetIndex(const std::string& Name, const std::string& KeyColumn);
  const std::string& IndexName() const { return IndexName_; }

  /// Goes to the row with a key, a keyed lookup in the server; false, the table then being without a row, when there is
  /// none. Throws `EDatabaseError` while the table is closed or has no index.
  bool FindKey(const std::string& Key);
  bool FindKey(std::int32_t Key);

 protected:
  TListStatements Statements(int PageRows) const override;
  int MaxRows() const override { return 1; }

 private:
  std::string SelectText() const;
  TListStatements First(const std::string& Select) const;
  bool FindLiteral(const std::string& Literal);

  std::string TableName_;
  std::string IndexName_;
  std::string KeyColumn_;
};

}  // namespace ads
