#include "picks/orders/uPickARInvoice.h"

#include "pickbase/PickCall.h"
#include "toolkit/Formats.h"
#include "zulcommon/StringTable.h"

namespace uPickARInvoice {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::OnNumber;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickARInvoice::TfrmPickARInvoice(TARInvoiceOps Options, const std::string& CustomerID, const std::string& Entity)
    : Options_(Options), CustomerID_(CustomerID), Entity_(Entity) {
  qryList_InvNo = TextField("InvNo", 8);
  qryList_Date = DateField("Date");
  qryList_Desc = TextField("Desc", 40);
  qryList_Bal = FloatField("Bal");
  qryList_Amt = FloatField("Amt");
  qryList_OEDt = TextField("OEDt", 1);
  qryList_Due = DateField("Due");
  qryList_Batch = TextField("Batch", 8);
  qryList_Entity = TextField("Entity", 4);
  Column(qryList_InvNo).Align(TAlignment::taRightJustify);
  Column(qryList_Batch).Align(TAlignment::taRightJustify);
  Column(qryList_Date).Align(TAlignment::taCenter);
  Column(qryList_Due).Align(TAlignment::taCenter);
  Column(qryList_Desc).SetWidth(150);
  Column(qryList_Entity);
  Column(qryList_Bal).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_Amt).SetTitleAlignment(TAlignment::taRightJustify);
}

void TfrmPickARInvoice::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetAvailableCaption(LoadZULResString(246));
  SetPickCaption(LoadZULResString(7));
  SetLabels({{qryList_InvNo, 3036},
             {qryList_Date, 3002},
             {qryList_Desc, 3007},
             {qryList_Bal, 3076},
             {qryList_Amt, 3003},
             {qryList_Due, 3078},
             {qryList_Batch, 3079},
             {qryList_Entity, 3006}});
  for (ads::TField* Amount : {qryList_Bal, qryList_Amt}) Amount->SetDisplayFormat(PriceFormat);
  for (ads::TField* Date : {qryList_Date, qryList_Due}) Date->SetDisplayFormat(toolkit::ShortDateFormat());
  if (!MultiAcct || !Entity_.empty()) RemoveColumn(qryList_Entity, true);
  SetChoices({{qryList_InvNo, "UPPER(InvNo) SortFld", Contains("AND UPPER(InvNo)")},
              {qryList_Batch, "UPPER(Batch) SortFld", Contains("AND UPPER(Batch)")},
              {qryList_Date, "[Date] SortFld", OnDate("AND [Date]")},
              {qryList_Desc, "UPPER([Desc]) SortFld", Contains("AND UPPER([Desc])")},
              {qryList_Amt, "Amt SortFld", OnNumber("AND Amt")}},
             0);
}

void TfrmPickARInvoice::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT InvNo, [Date], [Desc], Bal, Amt, OEDt, Due, Batch, Entity, ");
    Query.Add("FROM AR");
    Query.Add("WHERE Type = 'IN'");
    Query.Add("AND ID = '" + Query.Passed(CustomerID_) + "'");
    if (!Options_.Contains(TARInvoiceOp::aoIncZeroBal)) Query.Add("AND Bal <> 0");
    if (!Options_.Contains(TARInvoiceOp::aoIncCredits)) Query.Add("AND Amt > 0");
    if (!Entity_.empty() && MultiAcct) Query.Add("AND Entity = '" + Query.Passed(Entity_) + "'");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickARInvoice::GetInvNo() const {
  return qryList_InvNo->AsString();
}
std::string TfrmPickARInvoice::GetDocType() const {
  return qryList_OEDt->AsString();
}

bool CallARInvoicePick(ads::TAdsConnection* Connection, const TARInvoiceOps& Options, const std::string& CustomerID,
                       const std::string& Entity, std::string& InvNo, std::string& DocType) {
  return pickbase::PickTexts<TfrmPickARInvoice>(
      {&InvNo, &DocType},
      [&](const TfrmPickARInvoice& Dialog) {
        InvNo = Dialog.GetInvNo();
        DocType = Dialog.GetDocType();
      },
      Connection, Options, CustomerID, Entity);
}

}  // namespace uPickARInvoice
