#include "picks/stock/uPickItemLocation.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

namespace uPickItemLocation {

using ads::TFieldType;
using toolkit::TAlignment;
using uDocPickBase::EndsWith;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickItemLocation::TfrmPickItemLocation(std::string Item, bool IncludeZero)
    : Item_(std::move(Item)), IncludeZero_(IncludeZero) {
  Column(qryList_OnHand = FloatField("OnHand")).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_FullName = TextField("FullName", 50)).SetWidth(120);
  Column(qryList_BinLocation = TextField("BinLocation", 15)).SetWidth(80);
  qryList_ItemLoc = IntegerField("ItemLoc");
  ckbZero = AddFilterBox("ckbZero", "Zero Onhand");
  ckbZero->resize(87, ckbZero->height());  // up to the buttons, for the caption

  tblItem_ = new ads::TAdsTable(this);
  tblItem_->setObjectName(QStringLiteral("tblItem_"));
  tblItem_->SetTableName("Item");
  tblItem_->SetIndex("PK_ITEM", "Item");
  tblItem_Item = tblItem_->AddField("Item", TFieldType::ftString, 15);
  tblItem_Desc = tblItem_->AddField("Desc", TFieldType::ftString, 35);
}

void TfrmPickItemLocation::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_OnHand, 3087}, {qryList_FullName, 3247}, {qryList_BinLocation, 3115}});
  qryList_OnHand->SetDisplayFormat(",0.00");
  SetChoices({{qryList_FullName, "UPPER(L.FullName) SORTFLD", EndsWith("AND UPPER(L.FullName)")},
              {qryList_BinLocation, "UPPER(D.BinLocation) SORTFLD", EndsWith("AND UPPER(D.BinLocation)")}},
             0);
  ckbZero->setChecked(IncludeZero_);
  SetPickCaption(LoadZULResString(516));
  SetAvailableCaption(LoadZULResString(517));
  tblItem_->Open();
  if (!tblItem_->FindKey(Item_)) return;
  const std::string Code(zulcommon::Trim(tblItem_Item->AsString()));
  SetPickCaption(zulcommon::FormatText(OwnText("PickCaptionFor", "%s for %s - %s"),
                                       {PickCaption, Code, tblItem_Desc->AsString()}));
}

void TfrmPickItemLocation::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT D.OnHand, L.FullName, D.BinLocation, D.ItemLoc, ");
    Query.Add("FROM ItemLocations L, ItemDet D");
    Query.Add("WHERE D.ItemLoc = L.ID");
    Query.Add("AND D.Item = '" + Query.Passed(Item_) + "'");
    if (!ckbZero->isChecked()) Query.Add("AND D.OnHand > 0");
    Query.Find();
    Query.OrderBy();
  });
}

std::int32_t TfrmPickItemLocation::GetLocation() const {
  return qryList_ItemLoc->AsInteger();
}

bool CallPickLocation(const std::string& Item, ads::TAdsConnection* Connection, std::int32_t& Location,
                      bool IncludeZero) {
  return pickbase::PickInteger(Location, &TfrmPickItemLocation::GetLocation, Item, Connection, IncludeZero);
}

}  // namespace uPickItemLocation
