#include "picks/purchasing/uPickAnyPO.h"

#include <QCheckBox>

#include "frame/uZULPickListsUtils.h"
#include "pickbase/IconCell.h"
#include "pickbase/PickCall.h"
#include "picks/purchasing/POIcons.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

namespace uPickAnyPO {

using ads::TFieldType;
using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickPO::TfrmPickPO(TPOStates RequiredStates, TPOStates ExcludedStates, std::string VendorID)
    : imIcons(purchasing::OrderIcons()), States_(RequiredStates, ExcludedStates), VendorID_(std::move(VendorID)) {
  qryList_Number = TextField("Number", 10);
  qryList_Date = DateField("Date");
  qryList_VendCompany = TextField("VendCompany", 35);
  qryList_PONumber = TextField("PONumber", 8);
  qryList_POType = TextField("POType", 1);
  qryList_CustCompany = TextField("CustCompany", 35);
  qryList_Type = TextField("Type", 1);
  qryList_IMIndex = CalculatedField("IMIndex", TFieldType::ftSmallint);
  qryList_IMOverlay = CalculatedField("IMOverlay", TFieldType::ftSmallint);
  qryList_Posted = BooleanField("Posted");
  qryList_Closed = BooleanField("Closed");
  qryList_POReceipt = BooleanField("POReceipt");
  qryList_Canceled = BooleanField("Canceled");
  qryList_APDocket = BooleanField("APDocket");
  qryList_Cost = FloatField("Cost");
  qryList_FedTax = FloatField("FedTax");
  qryList_CostInc = CalculatedField("CostInc", TFieldType::ftFloat);
  qryList_JobNo = TextField("JobNo", 6);
  qryList_IMIndex->SetDisplayLabel(" ");
  qryList_->OnCalcFields = [this](ads::TDataSet&) { qryList_CalcFields(); };
  AddColumns();
  ckbIncGST = AddCheckBox("ckbIncGST", "GST Inc.", [this] { ckbIncGSTClick(); });
}

void TfrmPickPO::AddColumns() {
  Column(qryList_Number).Align(TAlignment::taRightJustify);
  NarrowColumn(qryList_IMIndex);
  Column(qryList_Date).Align(TAlignment::taCenter);
  Column(qryList_VendCompany).SetWidth(120);
  Column(qryList_PONumber).Align(TAlignment::taRightJustify);
  Column(qryList_POType).Align(TAlignment::taCenter);
  Column(qryList_JobNo).Align(TAlignment::taRightJustify);
  Column(qryList_CustCompany).SetWidth(120);
  Column(qryList_Cost).SetTitleAlignment(TAlignment::taRightJustify);
}

void TfrmPickPO::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Number, 3035},
             {qryList_Date, 3002},
             {qryList_VendCompany, 3069},
             {qryList_PONumber, 3021},
             {qryList_POType, 3147},
             {qryList_CustCompany, 3027},
             {qryList_Cost, 3011},
             {qryList_CostInc, 3024},
             {qryList_JobNo, 3000}});
  qryList_Cost->SetDisplayFormat(",0.00");
  qryList_CostInc->SetDisplayFormat(",0.00");
  SetChoices({{qryList_Number, "UPPER(I.Number) SortFld", Contains("AND UPPER(I.Number)")},
              {qryList_Date, "I.[Date] SortFld", OnDate("AND I.[Date]")},
              {qryList_VendCompany, "UPPER(V.Company) SortFld", Contains("AND UPPER(V.Company)")},
              {qryList_PONumber, "UPPER(I.PONumber) SortFld", Contains("AND UPPER(I.PONumber)")},
              {qryList_POType, "UPPER(I.POType) SortFld", Contains("AND UPPER(I.POType)")},
              {qryList_JobNo, "UPPER(O.JobNo) SortFld", Contains("AND UPPER(O.JobNo)")},
              {qryList_CustCompany, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")}},
             0);
  SetPickCaption(LoadZULResString(136));
  SetAvailableCaption(LoadZULResString(520));
}

void TfrmPickPO::SetSQL() {
  OpenPlainly([this](TListQuery& Query) {
    Query.Select(
        "SELECT I.Number, I.[Date], V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.Type, "
        "I.Posted, I.Closed, I.POReceipt, I.Canceled, I.APDocket, I.Cost, I.FedTax, O.JobNo, ");
    Query.Add(
        "FROM (IP I INNER JOIN Vend V ON (I.ID = V.ID)) LEFT OUTER JOIN Cust C ON C.ID = I.CustID "
        "LEFT OUTER JOIN OE O ON I.PONumber = O.Number AND I.POType = O.Type");
    Query.Add("WHERE 0=0");
    if (!zulcommon::Trim(VendorID_).empty()) Query.Add("AND I.ID = '" + Query.Passed(VendorID_) + "'");
    States_.AddTo(Query);
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickPO::qryList_CalcFields() {
  qryList_IMOverlay->SetInteger(purchasing::FirstOverlay + purchasing::TypePicture(qryList_Type->AsString()));
  qryList_IMIndex->SetInteger(purchasing::StatePicture({.Posted = qryList_Posted->AsBoolean(),
                                                        .Closed = qryList_Closed->AsBoolean(),
                                                        .Receipted = qryList_POReceipt->AsBoolean(),
                                                        .Cancelled = qryList_Canceled->AsBoolean(),
                                                        .Paid = qryList_APDocket->AsBoolean()}));
  qryList_CostInc->SetSum(*qryList_Cost, *qryList_FedTax);
}

void TfrmPickPO::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                        toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  TDocPickBase::dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  if (Sender == nullptr || Column->Field() != qryList_IMIndex) return;
  std::vector<int> Pictures;
  if (!zulcommon::Trim(qryList_Number->AsString()).empty()) {
    Pictures = {qryList_IMIndex->AsInteger(), qryList_IMOverlay->AsInteger()};
  }
  pickbase::PaintIconCell(*Sender, Rect, State, pickbase::TIconHighlight::Selection, imIcons, Pictures);
}

void TfrmPickPO::ckbIncGSTClick() {
  const bool WithGST = ckbIncGST->isChecked();
  toolkit::TColumn* Cost = uZULPickListsUtils::GridCol(dbgAvail, WithGST ? qryList_Cost : qryList_CostInc);
  if (Cost == nullptr) return;
  const int Before = dbgAvail->ColumnsWidth();
  Cost->SetField(WithGST ? qryList_CostInc : qryList_Cost);
  // In another language the one title may need more room than the other.
  if (dbgAvail->ColumnsWidth() != Before) AdjustWidths();
}

std::string TfrmPickPO::GetPurchaseOrder() const {
  return qryList_Number->AsString();
}

bool CallPickPO(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates,
                std::string& Number, const std::string& VendorID) {
  return pickbase::PickText(Number, &TfrmPickPO::GetPurchaseOrder, Connection, RequiredStates, ExcludedStates,
                            VendorID);
}

}  // namespace uPickAnyPO
