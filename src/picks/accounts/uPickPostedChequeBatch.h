#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickPostedChequeBatch {

/// Lists the posted batches of payables payments, one row a batch and day.
class ZULPICKLISTS_EXPORT TfrmPickPostedChequeBatch : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickPostedChequeBatch> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickPostedChequeBatch>(Connection);
  }
  std::string GetBatch() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Batch;
  ads::TField* qryList_Date;
  ads::TField* qryList_Period;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Total;

 private:
  friend class TDocPickBase;
  TfrmPickPostedChequeBatch();
};

/// Lets the user pick a batch of payables payments; its code goes to `Batch`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickPostedChequeBatch(ads::TAdsConnection* Connection, std::string& Batch);

}  // namespace uPickPostedChequeBatch
