#include "picks/purchasing/uPickPOExtras.h"

#include "frame/uZULPickListsUtils.h"
#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickPOExtras {

using ads::TFieldType;
using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnTypedInteger;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickPOExtras::TfrmPickPOExtras(std::string VendID) : VendID_(std::move(VendID)) {
  Column(qryList_ID = AutoIncField("ID")).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_Descript = TextField("Descript", 32)).SetWidth(150);
  Column(qryList_Cost = FloatField("Cost")).SetTitleAlignment(TAlignment::taRightJustify);
  PutTickedLast();
  tblVend_ = new ads::TAdsTable(this);
  tblVend_->setObjectName(QStringLiteral("tblVend_"));
  tblVend_->SetTableName("Vend");
  tblVend_->SetIndex("PK_ID", "ID");
  tblVend_ID = tblVend_->AddField("ID", TFieldType::ftString, 6);
  tblVend_Company = tblVend_->AddField("Company", TFieldType::ftString, 35);
}

void TfrmPickPOExtras::AfterCreate() {
  SetShowIfEmpty(false);
}

void TfrmPickPOExtras::SetUpColumns() {
  TDocPickMultiBase::SetUpColumns();
  SetPickCaption(LoadZULResString(578));
  SetAvailableCaption(LoadZULResString(579));
  NameVendor();
  SetLabels({{qryList_ID, 3119}, {qryList_Descript, 3007}, {qryList_Cost, 3039}});
  qryList_Cost->SetDisplayFormat(PriceFormat);
  SetChoices({{qryList_ID, "ID SortFld", OnTypedInteger("AND ID")},
              {qryList_Descript, "UPPER(Descript) SortFld", Contains("AND UPPER(Descript)")}},
             1);
}

// The caption says whose extras they are, where the vendor is known.
void TfrmPickPOExtras::NameVendor() {
  tblVend_->Open();
  if (tblVend_->FindKey(VendID_)) SetPickCaption(PickCaption + " - " + tblVend_Company->AsString());
  tblVend_->Close();
}

void TfrmPickPOExtras::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT ID, Descript, Cost, ");
    Query.Add("FROM IPDetExtraMaster");
    Query.Add("WHERE ((VendID IS NULL) OR (VendID = '" + Query.Passed(VendID_) + "'))");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickPOExtras::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                              toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  TDocPickMultiBase::dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  if (Sender != nullptr) uZULPickListsUtils::GridPaint(Sender, Rect, DataCol, Column, State);
}

void TfrmPickPOExtras::GetIDs(uZULPickLists::TIntegerList* List) {
  if (List == nullptr) return;
  List->Clear();
  WalkTicked([&] { List->Add(qryList_ID->AsInteger()); });
}

bool CallPickPOExtras(ads::TAdsConnection* Connection, const std::string& VendID, uZULPickLists::TIntegerList* List) {
  return pickbase::Pick<TfrmPickPOExtras>([&](TfrmPickPOExtras& Dialog) { Dialog.GetIDs(List); }, Connection, VendID);
}

}  // namespace uPickPOExtras
