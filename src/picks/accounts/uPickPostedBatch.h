#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickPostedBatch {

/// Lists all posted ledger batches, at first the highest code first.
class ZULPICKLISTS_EXPORT TfrmPickPostedBatch : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickPostedBatch> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickPostedBatch>(Connection);
  }
  std::string GetBatch() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Batch;
  ads::TField* qryList_Period;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Source;
  ads::TField* qryList_Total;

 private:
  friend class TDocPickBase;
  TfrmPickPostedBatch();
};

/// Lets the user pick a posted ledger batch; its code goes to `Batch`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickPostedBatch(ads::TAdsConnection* Connection, std::string& Batch);

}  // namespace uPickPostedBatch
