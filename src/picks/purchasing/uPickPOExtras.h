#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickMultiBase.h"

namespace uPickPOExtras {

/// Lists what a vendor can charge on top of a purchase order's lines, to tick any number: the vendor's own extras and
/// those of every vendor. It is not shown when there are none.
class ZULPICKLISTS_EXPORT TfrmPickPOExtras : public uDocPickMultiBase::TDocPickMultiBase {
  Q_OBJECT
 public:
  /// The code goes into the query as it is.
  static std::unique_ptr<TfrmPickPOExtras> Create(ads::TAdsConnection* Connection, const std::string& VendID) {
    return Construct<TfrmPickPOExtras>(Connection, VendID);
  }
  /// Replaces the list's values by the ticked extras' keys, in the order of the rows. A null list is left alone.
  void GetIDs(uZULPickLists::TIntegerList* List);
  void SetUpColumns() override;
  void SetSQL() override;
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;

  ads::TField* qryList_ID;
  ads::TField* qryList_Descript;
  ads::TField* qryList_Cost;
  ads::TAdsTable* tblVend_;
  ads::TField* tblVend_ID;
  ads::TField* tblVend_Company;

 protected:
  void AfterCreate() override;

 private:
  friend class TDocPickBase;
  explicit TfrmPickPOExtras(std::string VendID);
  void NameVendor();

  std::string VendID_;
};

/// Lets the user tick extras of purchase orders for a vendor and replaces the values of `List` (borrowed, may be null)
/// by their keys; the list stays as it is when the user cancels. False at once, without a dialog, when there are no
/// extras.
ZULPICKLISTS_EXPORT bool CallPickPOExtras(ads::TAdsConnection* Connection, const std::string& VendID,
                                          uZULPickLists::TIntegerList* List);

}  // namespace uPickPOExtras
