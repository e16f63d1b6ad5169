#pragma once

#include <cstdint>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "toolkit/ImageList.h"

namespace uOptionPickBase {

/// Where options come from.
struct TOptionTable {
  std::string Name;    ///< such as "KitDetails"
  std::string Alias;   ///< what the query calls it
  std::string Parent;  ///< the column that says whose options they are
};

/// What the picks of an item from a list of options have in common: code, item type, description and whether it is the
/// default one. The default option is the current row when the dialog opens. A descendant sets the captions and says
/// where the options come from.
class ZULPICKLISTS_EXPORT TOptionPickBase : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  ~TOptionPickBase() override;

  std::string GetSelectedItem() const;
  void SetUpColumns() override;
  void SetSQL() override;
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;
  void qryList_CalcFields();

  ads::TField* qryList_Item;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Default;
  ads::TField* qryList_Type;
  /// The number of the item type's picture; null for an item that there is not any more, or of an unknown type.
  ads::TField* qryList_TypeIndex;
  toolkit::TImageList imImages;

 protected:
  TOptionPickBase(TOptionTable Options, std::int32_t ParentID);
  void AfterCreate() override;

 private:
  TOptionTable Options_;
  std::int32_t ParentID_;
};

}  // namespace uOptionPickBase
