#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickEftBatch {

/// Lists the batches of electronic payments with the total of each; those that were processed when their box is ticked.
class ZULPICKLISTS_EXPORT TfrmPickEFTBatch : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickEFTBatch> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickEFTBatch>(Connection);
  }
  std::string GetBatchNo() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Batch;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Posted;
  ads::TField* qryList_Total;
  ads::TField* qryList_Processed;
  QCheckBox* ckbProcessed;

 private:
  friend class TDocPickBase;
  TfrmPickEFTBatch();
};

/// Lets the user pick a batch of electronic payments; its code goes to `BatchNo`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallEFTBatchPick(ads::TAdsConnection* Connection, std::string& BatchNo);

}  // namespace uPickEftBatch
