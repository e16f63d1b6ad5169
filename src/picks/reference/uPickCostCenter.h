#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickCostCenter {

/// Lists the cost centres.
class ZULPICKLISTS_EXPORT TfrmPickCostCenter : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickCostCenter> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickCostCenter>(Connection);
  }
  std::string GetCostCenter() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_CstCtr;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Default;

 private:
  friend class TDocPickBase;
  TfrmPickCostCenter();
};

/// Lets the user pick a cost centre; its code goes to `CostCenter`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickCostCenter(ads::TAdsConnection* Connection, std::string& CostCenter);

}  // namespace uPickCostCenter
