#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "picks/purchasing/POStates.h"
#include "toolkit/ImageList.h"

namespace uPickAnyPO {

using uPickListTypes::TPOStates;

/// Lists the purchase orders with their state, the document and the customer that they are for, and their cost with or
/// without GST.
class ZULPICKLISTS_EXPORT TfrmPickPO : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// Lists the orders that are in all of the required states and in none of the excluded ones; those of one vendor
  /// unless its code is blank. The code goes into the query as it is.
  static std::unique_ptr<TfrmPickPO> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                            TPOStates ExcludedStates, const std::string& VendorID) {
    return Construct<TfrmPickPO>(Connection, RequiredStates, ExcludedStates, VendorID);
  }
  std::string GetPurchaseOrder() const;
  void SetUpColumns() override;
  void SetSQL() override;
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;
  void qryList_CalcFields();
  /// Shows the cost with GST while the box is ticked, without it otherwise.
  void ckbIncGSTClick();

  ads::TField* qryList_Number;
  ads::TField* qryList_Date;
  ads::TField* qryList_VendCompany;
  ads::TField* qryList_PONumber;
  ads::TField* qryList_POType;
  ads::TField* qryList_CustCompany;
  ads::TField* qryList_Type;
  ads::TField* qryList_IMIndex;
  ads::TField* qryList_IMOverlay;
  ads::TField* qryList_Posted;
  ads::TField* qryList_Closed;
  ads::TField* qryList_POReceipt;
  ads::TField* qryList_Canceled;
  ads::TField* qryList_APDocket;
  ads::TField* qryList_Cost;
  ads::TField* qryList_FedTax;
  ads::TField* qryList_CostInc;
  ads::TField* qryList_JobNo;
  QCheckBox* ckbIncGST;
  toolkit::TImageList imIcons;

 private:
  friend class TDocPickBase;
  TfrmPickPO(TPOStates RequiredStates, TPOStates ExcludedStates, std::string VendorID);
  void AddColumns();

  purchasing::TPOStateFilter States_;
  std::string VendorID_;
};

/// Lets the user pick a purchase order of the given states and, unless `VendorID` is blank, of that vendor; its number
/// goes to `Number`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickPO(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates,
                                    std::string& Number, const std::string& VendorID);

}  // namespace uPickAnyPO
