#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickUsedPeriodYear {

/// Lists the calendar years in which there are periods. There is nothing to search or to sort by.
class ZULPICKLISTS_EXPORT TfrmPickUsedPeriod : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickUsedPeriod> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickUsedPeriod>(Connection);
  }
  std::string GetYear() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Year;

 private:
  friend class TDocPickBase;
  TfrmPickUsedPeriod();
};

/// Lets the user pick a year; its four digits go to `Year`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickUsedPeriodYear(ads::TAdsConnection* Connection, std::string& Year);

}  // namespace uPickUsedPeriodYear
