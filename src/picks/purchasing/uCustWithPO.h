#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "picks/purchasing/POStates.h"

namespace uCustWithPO {

using uPickListTypes::TPOStates;

/// Lists the customers for whom purchase orders of the given states were raised, each once.
class ZULPICKLISTS_EXPORT TfrmPickCustWithPO : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickCustWithPO> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                    TPOStates ExcludedStates) {
    return Construct<TfrmPickCustWithPO>(Connection, RequiredStates, ExcludedStates);
  }
  std::string GetCustomerNo() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_CustID;
  ads::TField* qryList_Company;
  ads::TField* qryList_Addr1;
  ads::TField* qryList_Phone;

 private:
  friend class TDocPickBase;
  TfrmPickCustWithPO(TPOStates RequiredStates, TPOStates ExcludedStates);

  purchasing::TPOStateFilter States_;
};

}  // namespace uCustWithPO
