#include "picks/stock/uOptionPickBase.h"

#include <limits>

#include "frame/uZULPickListsUtils.h"
#include "pickbase/IconCell.h"
#include "picks/stock/ItemTypeIcons.h"
#include "zulcommon/DocTypes.h"
#include "zulcommon/Text.h"

namespace uOptionPickBase {

using ads::TFieldType;
using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;

TOptionPickBase::TOptionPickBase(TOptionTable Options, std::int32_t ParentID)
    : imImages(stock::ItemTypeIcons()), Options_(std::move(Options)), ParentID_(ParentID) {
  qryList_Item = TextField("Item", 15);
  qryList_Desc = TextField("Desc", 35);
  qryList_Default = BooleanField("Default");
  qryList_Type = SmallintField("Type");
  qryList_TypeIndex = CalculatedField("TypeIndex", TFieldType::ftSmallint);
  qryList_Default->SetDisplayLabel("D");
  qryList_TypeIndex->SetDisplayLabel(" ");
  qryList_->OnCalcFields = [this](ads::TDataSet&) { qryList_CalcFields(); };
  Column(qryList_Item).SetWidth(63).Align(TAlignment::taRightJustify);
  NarrowColumn(qryList_TypeIndex);
  Column(qryList_Desc).SetWidth(200);
  NarrowColumn(qryList_Default);
}

TOptionPickBase::~TOptionPickBase() = default;

void TOptionPickBase::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Item, 3008}, {qryList_Desc, 3007}});
  // Codes are compared as they are stored, with a text in upper case.
  SetChoices({{qryList_Item, "UPPER(" + Options_.Alias + ".Item) SortFld", Contains("AND " + Options_.Alias + ".Item")},
              {qryList_Desc, "UPPER(I.[Desc]) SortFld", Contains("AND UPPER(I.[Desc])")}},
             1);
}

void TOptionPickBase::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    const std::string& O = Options_.Alias;
    Query.Select("SELECT " + O + ".Item, I.[Desc], " + O + ".[Default], I.Type, ");
    Query.Add("FROM " + Options_.Name + " " + O + " LEFT OUTER JOIN Item I ON " + O + ".Item = I.Item");
    Query.Add("WHERE " + O + "." + Options_.Parent + " = " + std::to_string(ParentID_));
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

void TOptionPickBase::AfterCreate() {
  qryList_->Locate("Default", true);
}

void TOptionPickBase::qryList_CalcFields() {
  // An option whose item is gone has no type, which must not be taken for type 0.
  if (qryList_Item->AsString().empty() || qryList_Type->IsNull()) return;
  const std::int32_t Code = qryList_Type->AsInteger();
  if (Code < std::numeric_limits<std::int16_t>::min() || Code > std::numeric_limits<std::int16_t>::max()) return;
  const zulcommon::TItemType Type = zulcommon::GetItemType(static_cast<std::int16_t>(Code));
  if (Type < zulcommon::TItemType::itUnknown) qryList_TypeIndex->SetInteger(static_cast<std::int32_t>(Type));
}

// The colours of the row are set when the grid calls.
void TOptionPickBase::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                             toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  if (Sender == nullptr) return;
  if (Column->Field() != qryList_TypeIndex) {
    uZULPickListsUtils::GridPaint(Sender, Rect, DataCol, Column, State);
    return;
  }
  std::vector<int> Pictures;
  if (!zulcommon::Trim(qryList_Item->AsString()).empty() && !qryList_TypeIndex->IsNull()) {
    Pictures.push_back(qryList_TypeIndex->AsInteger());
  }
  pickbase::PaintIconCell(*Sender, Rect, State, pickbase::TIconHighlight::Focus, imImages, Pictures);
}

std::string TOptionPickBase::GetSelectedItem() const {
  return qryList_Item->AsString();
}

}  // namespace uOptionPickBase
