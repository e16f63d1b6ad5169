#pragma once

#include "ads/DataSet.h"
#include "ads/SQLLines.h"

namespace ads {

/// A dataset over one SELECT statement, which its lines spell in the dialogs' SQL.
///
/// Changing the lines does not touch the rows: they stay until the next `Open` succeeds, or `Close`.
class ZULADS_EXPORT TAdsQuery : public TDataSet {
  Q_OBJECT
 public:
  explicit TAdsQuery(QObject* Owner);
  ~TAdsQuery() override;

  TSQLLines* SQL() { return &SQL_; }
  const TSQLLines* SQL() const { return &SQL_; }

 protected:
  std::unique_ptr<TCursor> OpenCursor() override;

 private:
  TSQLLines SQL_;
};

}  // namespace ads
