#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "picks/purchasing/POStates.h"

namespace uOEDocWithPO {

using uPickListTypes::TOEDoc;
using uPickListTypes::TPOStates;

/// Lists the invoices and orders for which customer purchase orders of the given states were raised. A purchase order
/// belongs to every document of its document number, whatever the type.
class ZULPICKLISTS_EXPORT TfrmPickOEDocWithPO : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// A customer code that is not blank takes the customer's columns and choices away; it does not limit the list.
  static std::unique_ptr<TfrmPickOEDocWithPO> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                     TPOStates ExcludedStates, const std::string& CustID) {
    return Construct<TfrmPickOEDocWithPO>(Connection, RequiredStates, ExcludedStates, CustID);
  }
  TOEDoc GetOEDoc() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_Company;
  ads::TField* qryList_Number;
  ads::TField* qryList_Type;
  ads::TField* qryList_SalesMan;
  ads::TField* qryList_Date;

 private:
  friend class TDocPickBase;
  TfrmPickOEDocWithPO(TPOStates RequiredStates, TPOStates ExcludedStates, std::string CustID);

  purchasing::TPOStateFilter States_;
  std::string CustID_;
};

}  // namespace uOEDocWithPO
