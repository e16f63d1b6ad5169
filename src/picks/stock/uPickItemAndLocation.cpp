#include "picks/stock/uPickItemAndLocation.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickItemAndLocation {

using toolkit::TAlignment;
using uDocPickBase::EndsWith;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickItemAndLocation::TfrmPickItemAndLocation(std::string ParentItem) : ParentItem_(std::move(ParentItem)) {
  qryList_Item = TextField("Item", 15);
  qryList_OnHand = FloatField("OnHand");
  qryList_FullName = TextField("FullName", 50);
  qryList_desc = TextField("desc", 35);
  qryList_SupplyLot = TextField("SupplyLot", 25);
  qryList_LocalRefNo = TextField("LocalRefNo", 20);
  qryList_BinLocation = TextField("BinLocation", 15);
  qryList_ItemLoc = IntegerField("ItemLoc");
  Column(qryList_Item).SetWidth(90).Align(TAlignment::taRightJustify);
  Column(qryList_OnHand).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_desc).SetWidth(130);
  Column(qryList_FullName).SetWidth(120);
  Column(qryList_SupplyLot).SetWidth(75);
  Column(qryList_LocalRefNo).SetWidth(75);
  Column(qryList_BinLocation).SetWidth(75);
  ckbZero = AddFilterBox("ckbZero", "Zero Onhand");
  ckbZero->resize(87, ckbZero->height());  // up to the buttons, for the caption
}

void TfrmPickItemAndLocation::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Item, 3008},
             {qryList_OnHand, 3087},
             {qryList_FullName, 3247},
             {qryList_desc, 3007},
             {qryList_SupplyLot, 3089},
             {qryList_LocalRefNo, 3114},
             {qryList_BinLocation, 3115}});
  qryList_OnHand->SetDisplayFormat(",0.00");
  SetChoices({{qryList_Item, "UPPER(I.Item) SORTFLD", EndsWith("AND UPPER(I.Item)")},
              {qryList_FullName, "UPPER(L.FullName) SORTFLD", EndsWith("AND UPPER(L.FullName)")},
              {qryList_desc, "UPPER(I.\"Desc\") SORTFLD", EndsWith("AND UPPER(I.\"Desc\")")},
              {qryList_SupplyLot, "UPPER(I.SupplyLot) SORTFLD", EndsWith("AND UPPER(I.SupplyLot)")},
              {qryList_LocalRefNo, "UPPER(I.LocalRefNo) SORTFLD", EndsWith("AND UPPER(I.LocalRefNo)")},
              {qryList_BinLocation, "UPPER(D.BinLocation) SORTFLD", EndsWith("AND UPPER(D.BinLocation)")}},
             2);
  SetPickCaption("Item at Location");
  SetAvailableCaption("Items");
}

void TfrmPickItemAndLocation::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select(
        "SELECT I.Item, D.OnHand, L.FullName, I.\"desc\", I.SupplyLot, I.LocalRefNo, D.BinLocation, D.ItemLoc, ");
    Query.Add("FROM Item I, ItemLocations L, ItemDet D");
    Query.Add("WHERE I.Item = D.Item AND D.ItemLoc = L.ID");
    Query.Add("AND I.ParentItem = '" + Query.Passed(ParentItem_) + "'");
    if (!ckbZero->isChecked()) Query.Add("AND D.OnHand > 0");
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickItemAndLocation::GetItemNo() const {
  return qryList_Item->AsString();
}

std::int32_t TfrmPickItemAndLocation::GetLocation() const {
  return qryList_ItemLoc->AsInteger();
}

bool CallPickItemAndLocation(const std::string& ParentItem, ads::TAdsConnection* Connection, std::string& ItemNo,
                             std::int32_t& Location) {
  const std::string Parent = ParentItem;  // the caller may pass the same variable for both items
  ItemNo.clear();
  return pickbase::Pick<TfrmPickItemAndLocation>(
      [&](const TfrmPickItemAndLocation& Dialog) {
        ItemNo = Dialog.GetItemNo();
        Location = Dialog.GetLocation();
      },
      Parent, Connection);
}

}  // namespace uPickItemAndLocation
