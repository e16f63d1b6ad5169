#pragma once

#include <memory>

#include "pickbase/uDocPickMultiBase.h"
#include "picks/purchasing/POStates.h"
#include "toolkit/ImageList.h"

namespace uPickMultiPOs {

using uPickListTypes::TPOStates;

/// Lists the purchase orders with their type, to tick any number of them.
class ZULPICKLISTS_EXPORT TfrmPickMultiPOs : public uDocPickMultiBase::TDocPickMultiBase {
  Q_OBJECT
 public:
  /// Lists the orders that are in all of the required states and in none of the excluded ones.
  static std::unique_ptr<TfrmPickMultiPOs> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                  TPOStates ExcludedStates) {
    return Construct<TfrmPickMultiPOs>(Connection, RequiredStates, ExcludedStates);
  }
  /// Replaces the list's lines by the ticked orders' numbers, in the order of the rows; the current row stays. A null
  /// list is left alone.
  void GetSelected(toolkit::TStringList* List);
  void SetUpColumns() override;
  void SetSQL() override;
  void qryList_CalcFields() override;
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;

  ads::TField* qryList_Number;
  ads::TField* qryList_Date;
  ads::TField* qryList_VendCompany;
  ads::TField* qryList_PONumber;
  ads::TField* qryList_POType;
  ads::TField* qryList_CustCompany;
  ads::TField* qryList_IMIndex;
  ads::TField* qryList_Type;
  toolkit::TImageList imIcons;

 private:
  friend class TDocPickBase;
  TfrmPickMultiPOs(TPOStates RequiredStates, TPOStates ExcludedStates);

  purchasing::TPOStateFilter States_;
};

/// Lets the user tick purchase orders of the given states and replaces the lines of `List` (borrowed, may be null) by
/// their numbers; the list stays as it is when the user cancels. Hosts call it by this name, letters transposed.
ZULPICKLISTS_EXPORT bool CallPickMutliPO(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                         TPOStates ExcludedStates, toolkit::TStringList*& List);

}  // namespace uPickMultiPOs
