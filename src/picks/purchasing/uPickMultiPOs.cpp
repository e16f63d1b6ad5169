#include "picks/purchasing/uPickMultiPOs.h"

#include "pickbase/IconCell.h"
#include "pickbase/PickCall.h"
#include "picks/purchasing/POIcons.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

namespace uPickMultiPOs {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickMultiPOs::TfrmPickMultiPOs(TPOStates RequiredStates, TPOStates ExcludedStates)
    : imIcons(purchasing::TypeIcons()), States_(RequiredStates, ExcludedStates) {
  qryList_Number = TextField("Number", 10);
  qryList_Date = DateField("Date");
  qryList_VendCompany = TextField("VendCompany", 35);
  qryList_PONumber = TextField("PONumber", 8);
  qryList_POType = TextField("POType", 1);
  qryList_CustCompany = TextField("CustCompany", 35);
  qryList_IMIndex = CalculatedField("IMIndex", ads::TFieldType::ftSmallint);
  qryList_Type = TextField("Type", 1);
  qryList_IMIndex->SetDisplayLabel(" ");
  Column(qryList_Number).Align(TAlignment::taRightJustify);
  NarrowColumn(qryList_IMIndex);
  Column(qryList_Date).Align(TAlignment::taCenter);
  Column(qryList_VendCompany).SetWidth(120);
  Column(qryList_PONumber).Align(TAlignment::taRightJustify);
  Column(qryList_POType).Align(TAlignment::taCenter);
  Column(qryList_CustCompany).SetWidth(120);
  PutTickedLast();
}

void TfrmPickMultiPOs::SetUpColumns() {
  TDocPickMultiBase::SetUpColumns();
  SetLabels({{qryList_Number, 3035},
             {qryList_Date, 3002},
             {qryList_VendCompany, 3069},
             {qryList_PONumber, 3021},
             {qryList_POType, 3147},
             {qryList_CustCompany, 3027}});
  SetChoices({{qryList_Number, "UPPER(I.Number) SortFld", Contains("AND UPPER(I.Number)")},
              {qryList_Date, "I.[Date] SortFld", OnDate("AND I.[Date]")},
              {qryList_VendCompany, "UPPER(V.Company) SortFld", Contains("AND UPPER(V.Company)")},
              {qryList_PONumber, "UPPER(I.PONumber) SortFld", Contains("AND UPPER(I.PONumber)")},
              {qryList_POType, "UPPER(I.POType) SortFld", Contains("AND UPPER(I.POType)")},
              {qryList_CustCompany, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")}},
             0);
  SetPickCaption(LoadZULResString(520));
  SetAvailableCaption(LoadZULResString(520));
}

void TfrmPickMultiPOs::SetSQL() {
  OpenPlainly([this](TListQuery& Query) {
    Query.Select(
        "SELECT I.Number, I.[Date], V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.Type, ");
    Query.Add("FROM (IP I INNER JOIN Vend V ON (I.ID = V.ID)) LEFT OUTER JOIN Cust C ON C.ID = I.CustID");
    Query.Add("WHERE 0=0");
    States_.AddTo(Query);
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickMultiPOs::qryList_CalcFields() {
  TDocPickMultiBase::qryList_CalcFields();
  qryList_IMIndex->SetInteger(purchasing::TypePicture(qryList_Type->AsString()));
}

void TfrmPickMultiPOs::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                              toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  TDocPickMultiBase::dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  if (Sender == nullptr || Column->Field() != qryList_IMIndex) return;
  std::vector<int> Pictures;
  if (!zulcommon::Trim(qryList_Number->AsString()).empty()) Pictures = {qryList_IMIndex->AsInteger()};
  pickbase::PaintIconCell(*Sender, Rect, State, pickbase::TIconHighlight::Selection, imIcons, Pictures);
}

void TfrmPickMultiPOs::GetSelected(toolkit::TStringList* List) {
  if (List == nullptr) return;
  List->Clear();
  const ads::TDataSet::TBookmark Bookmark = qryList_->GetBookmark();
  WalkTicked([&] { List->Add(qryList_Number->AsString()); });
  qryList_->GotoBookmark(Bookmark);
}

bool CallPickMutliPO(ads::TAdsConnection* Connection, TPOStates RequiredStates, TPOStates ExcludedStates,
                     toolkit::TStringList*& List) {
  return pickbase::Pick<TfrmPickMultiPOs>([&](TfrmPickMultiPOs& Dialog) { Dialog.GetSelected(List); }, Connection,
                                          RequiredStates, ExcludedStates);
}

}  // namespace uPickMultiPOs
