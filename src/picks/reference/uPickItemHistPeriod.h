#pragma once

#include <memory>
#include <string>

#include "picks/reference/uPeriodPickBase.h"

namespace uPickItemHistPeriod {

/// Lists the periods of the item history, also those that are no accounting period any more.
///
/// The order by the start date asks for a column that no table has, so the list cannot be opened in it; a search for a
/// date asks for dates of the history, which has none, and so shows the whole list.
class ZULPICKLISTS_EXPORT TfrmPickItemHistPeriod : public uPeriodPickBase::TPeriodPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickItemHistPeriod> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickItemHistPeriod>(Connection);
  }
  void SetUpColumns() override;
  void SetSQL() override;

 private:
  friend class TDocPickBase;
  TfrmPickItemHistPeriod();
};

/// Lets the user pick a period of the item history; its code goes to `Period`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickItemHistPeriod(ads::TAdsConnection* Connection, std::string& Period);

}  // namespace uPickItemHistPeriod
