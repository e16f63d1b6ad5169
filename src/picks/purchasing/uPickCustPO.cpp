#include "picks/purchasing/uPickCustPO.h"

#include "frame/uZULPickListsUtils.h"
#include "zulcommon/Text.h"

namespace uPickCustPO {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoices;
using zulcommon::Trim;

TfrmPickCustPO::TfrmPickCustPO(TPOStates RequiredStates, TPOStates ExcludedStates, std::string CustID,
                               std::string PONumber, std::string POType)
    : States_(RequiredStates, ExcludedStates),
      CustID_(std::move(CustID)),
      PONumber_(std::move(PONumber)),
      POType_(std::move(POType)) {
  qryList_Number = TextField("Number", 10);
  qryList_Date = DateField("Date");
  qryList_VendCompany = TextField("VendCompany", 35);
  qryList_PONumber = TextField("PONumber", 8);
  qryList_POType = TextField("POType", 1);
  qryList_CustCompany = TextField("CustCompany", 35);
  qryList_RMA = BooleanField("RMA");
  Column(qryList_Number).SetWidth(55).Align(TAlignment::taRightJustify);
  NarrowColumn(qryList_RMA);
  Column(qryList_Date).Align(TAlignment::taCenter);
  Column(qryList_VendCompany).SetWidth(150);
  Column(qryList_PONumber).SetWidth(55).Align(TAlignment::taRightJustify);
  Column(qryList_POType).SetWidth(18).Align(TAlignment::taCenter);
  Column(qryList_CustCompany).SetWidth(150);
  SetCaption("Select Customer Purchase Order");
  SetAvailableCaption("Customer Purchase Orders");
}

void TfrmPickCustPO::AfterCreate() {
  SetPickCaption("Customer Purchase Order");
}

void TfrmPickCustPO::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Number, 3035},
             {qryList_Date, 3002},
             {qryList_VendCompany, 3069},
             {qryList_PONumber, 3021},
             {qryList_POType, 3147},
             {qryList_CustCompany, 3027}});
  qryList_RMA->SetDisplayLabel("R");
  const bool ForDocument = !Trim(PONumber_).empty();
  const bool ForCustomer = !Trim(CustID_).empty();
  if (ForDocument || ForCustomer) RemoveColumn(qryList_CustCompany, false);
  if (ForDocument) {
    RemoveColumn(qryList_POType, false);
    RemoveColumn(qryList_PONumber, false);
  }
  SetChoices(Offered(), ForDocument ? 2 : ForCustomer ? 3 : 5);
}

// What the dialog's keys leave to be chosen.
TPickChoices TfrmPickCustPO::Offered() const {
  TPickChoices Choices{{qryList_Number, "UPPER(I.Number) SortFld", Contains("AND UPPER(I.Number)")},
                       {qryList_Date, R"(I."Date" SortFld)", OnDate(R"(AND I."Date")")},
                       {qryList_VendCompany, "UPPER(V.Company) SortFld", Contains("AND UPPER(V.Company)")}};
  if (!Trim(PONumber_).empty()) return Choices;
  Choices.emplace_back(qryList_PONumber, "UPPER(I.PONumber) SortFld", Contains("AND UPPER(I.PONumber)"));
  Choices.emplace_back(qryList_POType, "UPPER(I.POType) SortFld", Contains("AND UPPER(I.POType)"));
  if (!Trim(CustID_).empty()) return Choices;
  Choices.emplace_back(qryList_CustCompany, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)"));
  return Choices;
}

void TfrmPickCustPO::SetSQL() {
  OpenPlainly([this](TListQuery& Query) {
    Query.Select(
        R"(SELECT I.Number, I."Date", V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.RMA, )");
    Query.Add("FROM (IP I INNER JOIN Vend V ON (I.ID = V.ID)) INNER JOIN Cust C ON C.ID = I.CustID");
    Query.Add("WHERE (I.Type = 'P')");
    States_.AddTo(Query);
    if (!Trim(CustID_).empty()) Query.Add("AND I.CustID = '" + Query.Passed(CustID_) + "'");
    if (!Trim(PONumber_).empty() && !Trim(POType_).empty()) {
      Query.Add("AND I.PONumber = '" + Query.Passed(PONumber_) + "'");
      Query.Add("AND I.POType = '" + Query.Passed(POType_) + "'");
    }
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickCustPO::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                            toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  TDocPickBase::dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  if (Sender != nullptr) uZULPickListsUtils::GridPaint(Sender, Rect, DataCol, Column, State);
}

std::string TfrmPickCustPO::GetPurchaseOrder() const {
  return qryList_Number->AsString();
}

}  // namespace uPickCustPO
