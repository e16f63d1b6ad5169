#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickJob {

/// Lists the jobs.
class ZULPICKLISTS_EXPORT TfrmPickJob : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickJob> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickJob>(Connection);
  }
  std::string GetJobNo() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_JobNo;
  ads::TField* qryList_Desc;

 private:
  friend class TDocPickBase;
  TfrmPickJob();
};

/// Lets the user pick a job; its number goes to `JobNo`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickJobNo(ads::TAdsConnection* Connection, std::string& JobNo);

}  // namespace uPickJob
