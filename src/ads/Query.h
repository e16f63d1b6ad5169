#pragma once

#include <string>
#include <vector>

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

  /// Lets this query call more functions than the pick lists' own queries do, by their bare names (`{"LENGTH",
  /// "CAST"}`), in any case. For queries that a host writes itself: what these functions do is the host's to know, and
  /// a text that was typed or passed must not choose them.
  void AllowFunctions(std::vector<std::string> Names) { AllowedFunctions_ = std::move(Names); }

 protected:
  TListStatements Statements(int PageRows) const override;

 private:
  TSQLLines SQL_;
  std::vector<std::string> AllowedFunctions_;
};

}  // namespace ads
