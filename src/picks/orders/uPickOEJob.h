#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickOEJob {

/// Lists jobs with the order-entry documents raised on them: one row for each document, one for a job without any.
class ZULPICKLISTS_EXPORT TfrmPickOEJob : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickOEJob> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickOEJob>(Connection);
  }
  std::string GetJobNo() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_JobNo;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Type;
  ads::TField* qryList_Number;

 private:
  friend class TDocPickBase;
  TfrmPickOEJob();
};

/// Lets the user pick a job by its documents; its number goes to `JobNo`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickOEJob(ads::TAdsConnection* Connection, std::string& JobNo);

}  // namespace uPickOEJob
