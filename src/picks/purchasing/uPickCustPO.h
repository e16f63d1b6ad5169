#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "picks/purchasing/POStates.h"

namespace uPickCustPO {

using uPickListTypes::TPOStates;

/// Lists the purchase orders that were raised for a customer.
class ZULPICKLISTS_EXPORT TfrmPickCustPO : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// A customer code that is not blank limits the list to that customer; a document number and type, both not blank, to
  /// that document. What is fixed so has no columns and no choices, for a document also when only its number is given.
  /// The keys go into the query as they are.
  static std::unique_ptr<TfrmPickCustPO> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                TPOStates ExcludedStates, const std::string& CustID,
                                                const std::string& PONumber, const std::string& POType) {
    return Construct<TfrmPickCustPO>(Connection, RequiredStates, ExcludedStates, CustID, PONumber, POType);
  }
  std::string GetPurchaseOrder() const;
  void SetUpColumns() override;
  void SetSQL() override;
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;

  ads::TField* qryList_Number;
  ads::TField* qryList_Date;
  ads::TField* qryList_VendCompany;
  ads::TField* qryList_PONumber;
  ads::TField* qryList_POType;
  ads::TField* qryList_CustCompany;
  ads::TField* qryList_RMA;

 protected:
  void AfterCreate() override;

 private:
  friend class TDocPickBase;
  TfrmPickCustPO(TPOStates RequiredStates, TPOStates ExcludedStates, std::string CustID, std::string PONumber,
                 std::string POType);
  uDocPickBase::TPickChoices Offered() const;

  purchasing::TPOStateFilter States_;
  std::string CustID_;
  std::string PONumber_;
  std::string POType_;
};

}  // namespace uPickCustPO
