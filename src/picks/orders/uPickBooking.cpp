#include "picks/orders/uPickBooking.h"

#include <QDate>
#include <cstdint>

#include "pickbase/PickCall.h"
#include "toolkit/Formats.h"
#include "zulcommon/StringTable.h"

namespace uPickBooking {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoices;
using zulcommon::LoadZULResString;

struct TfrmPickBooking::TPart {
  const char* Columns;
  const char* Tables;      // and the condition that begins them; the lines of a part are joined by carriage returns
  std::string_view Party;  // the column of the customer's or prospect's code
  std::string_view JobNo;
};

constexpr TfrmPickBooking::TPart TfrmPickBooking::CustomerPart = {
    "SELECT b.ID, b.VendID, v.Company VendCompany, b.CustID CustID, c.Company CustCompany, b.BegDate, b.EndDate, "
    "b.StartTime, b.FinishTime, b.OEInv, b.OEDT, o.JobNo, o.ShipTo2, ",
    "FROM Booking b INNER JOIN Vend v ON b.VendID = v.ID INNER JOIN Cust c ON b.CustID = c.ID\r"
    "LEFT OUTER JOIN OE o ON (b.OEDT = o.Type AND b.OEInv = o.Number)\r"
    "WHERE b.ProspectID IS NULL",
    "b.CustID", "o.JobNo"};

// A prospect has no documents: neither job nor ship-to, and a search by job never finds one.
constexpr TfrmPickBooking::TPart TfrmPickBooking::ProspectPart = {
    "SELECT b.ID, b.VendID, v.Company VendCompany, b.ProspectID CustID, c.Company CustCompany, b.BegDate, b.EndDate, "
    "b.StartTime, b.FinishTime, b.OEInv, b.OEDT, '' JobNo, '' ShipTo2, ",
    "FROM Booking b INNER JOIN Vend v ON b.VendID = v.ID INNER JOIN Prospect c ON b.ProspectID = c.ID\r"
    "WHERE b.CustID IS NULL",
    "b.ProspectID", "''"};

TfrmPickBooking::TfrmPickBooking(TBookingPickOps Options, const std::string& VendorID)
    : Options_(Options), VendorID_(VendorID) {
  CreateFields();
  Column(qryList_VendID).SetWidth(50).Align(TAlignment::taRightJustify);
  Column(qryList_VendCompany).SetWidth(120);
  Column(qryList_CustID).SetWidth(50).Align(TAlignment::taRightJustify);
  Column(qryList_CustCompany).SetWidth(120);
  Column(qryList_BegDate).Align(TAlignment::taCenter);
  Column(qryList_EndDate).Align(TAlignment::taCenter);
  Column(qryList_Length).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_OEInv);
  Column(qryList_OEDT);
  Column(qryList_JobNo).Align(TAlignment::taRightJustify);
  Column(qryList_ShipTo2).SetWidth(120);
  qryList_->OnCalcFields = [this](ads::TDataSet&) { qryList_CalcFields(); };
  qryList_StartTime->OnGetText = qryList_FinishTime->OnGetText = qryList_StartTimeGetText;
}

void TfrmPickBooking::CreateFields() {
  qryList_ID = TextField("ID", 6);
  qryList_VendID = TextField("VendID", 6);
  qryList_VendCompany = TextField("VendCompany", 35);
  qryList_CustID = TextField("CustID", 6);
  qryList_CustCompany = TextField("CustCompany", 35);
  qryList_BegDate = DateField("BegDate");
  qryList_EndDate = DateField("EndDate");
  qryList_StartTime = SmallintField("StartTime");
  qryList_FinishTime = SmallintField("FinishTime");
  qryList_OEInv = TextField("OEInv", 8);
  qryList_OEDT = TextField("OEDT", 1);
  qryList_JobNo = TextField("JobNo", 6);
  qryList_ShipTo2 = TextField("ShipTo2", 35);
  qryList_Length = CalculatedField("Length", ads::TFieldType::ftFloat);
}

void TfrmPickBooking::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetAvailableCaption(LoadZULResString(491));
  SetPickCaption(LoadZULResString(337));
  SetLabels({{qryList_VendID, 3015},
             {qryList_VendCompany, 3152},
             {qryList_CustID, 3026},
             {qryList_CustCompany, 3027},
             {qryList_BegDate, 32},
             {qryList_EndDate, 33},
             {qryList_OEInv, 3021},
             {qryList_OEDT, 3147},
             {qryList_JobNo, 3000},
             {qryList_ShipTo2, 3083}});
  for (ads::TField* Date : {qryList_BegDate, qryList_EndDate}) Date->SetDisplayFormat(toolkit::ShortDateFormat());
  qryList_Length->SetDisplayLabel("Hours");
  qryList_Length->SetDisplayFormat("0.00");
  // The second one: the vendor's name, or the customer's where the vendor is given.
  SetChoices(ChoicesOf(CustomerPart), 1);
  if (VendorID_.empty()) return;
  RemoveColumn(qryList_VendID, false);
  RemoveColumn(qryList_VendCompany, false);
}

TPickChoices TfrmPickBooking::ChoicesOf(const TPart& Part) const {
  const auto Upper = [](std::string_view Text) { return "UPPER(" + std::string(Text) + ")"; };
  TPickChoices Result;
  if (VendorID_.empty()) {
    Result = {{qryList_VendID, "UPPER(b.VendID) SortFld", Contains("AND UPPER(b.VendID)")},
              {qryList_VendCompany, "UPPER(v.Company) SortFld", Contains("AND UPPER(v.Company)")}};
  }
  Result.insert(Result.end(), {{qryList_CustID, Upper(Part.Party) + " SortFld", Contains("AND " + Upper(Part.Party))},
                               {qryList_CustCompany, "UPPER(c.Company) SortFld", Contains("AND UPPER(c.Company)")},
                               {qryList_BegDate, "b.BegDate SortFld", OnDate("AND b.BegDate")},
                               {qryList_EndDate, "b.EndDate SortFld", OnDate("AND b.EndDate")},
                               {qryList_OEInv, "UPPER(b.OEInv) SortFld", Contains("AND UPPER(b.OEInv)")},
                               {qryList_JobNo, Upper(Part.JobNo) + " SortFld", Contains("AND " + Upper(Part.JobNo))}});
  return Result;
}

void TfrmPickBooking::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Add(PartText(Query, CustomerPart));
    Query.Find(ChoicesOf(CustomerPart));
    Query.Add("UNION ALL");
    Query.Add(PartText(Query, ProspectPart));
    Query.Find(ChoicesOf(ProspectPart));
    Query.OrderBy();
  });
}

// The lines of one half, without its find line, as one entry.
std::string TfrmPickBooking::PartText(const TListQuery& Query, const TPart& Part) const {
  std::string Text = Query.SelectText(Part.Columns, ChoicesOf(Part)) + "\r" + Part.Tables;
  if (!VendorID_.empty()) Text += "\rAND b.VendID = '" + Query.Passed(VendorID_) + "'";
  if (Options_.Contains(TBookingPickOp::boHidePaid)) Text += "\rAND b.PaidFor = FALSE";
  if (Options_.Contains(TBookingPickOp::boNotInAPBatch)) {
    Text += "\rAND (NOT b.ID IN (SELECT BookingID FROM APBtchDT WHERE NOT BookingID IS NULL)) ";
  }
  return Text;
}

void TfrmPickBooking::qryList_CalcFields() {
  for (const ads::TField* Known : {qryList_BegDate, qryList_EndDate, qryList_StartTime, qryList_FinishTime}) {
    if (Known->IsNull()) return;
  }
  // A minute has 500/3 ten-thousandths of an hour. The years of dates have four digits and minutes 32 bits, so that the
  // thirds stay below 2^63; and thirds never lie in the middle between two whole numbers.
  const std::int64_t Days = qryList_BegDate->AsDate().daysTo(qryList_EndDate->AsDate()) + 1;
  const std::int64_t Minutes = std::int64_t{qryList_FinishTime->AsInteger()} - qryList_StartTime->AsInteger();
  const std::int64_t Thirds = Days * Minutes * 500;
  qryList_Length->SetCurrency(zulcommon::TCurrency::FromScaled((Thirds + (Thirds < 0 ? -1 : 1)) / 3));
}

void TfrmPickBooking::qryList_StartTimeGetText(const ads::TField& Sender, std::string& Text) {
  if (!Sender.IsNull()) Text = toolkit::FormatMinutes(Sender.AsInteger());
}

std::string TfrmPickBooking::GetBookingID() const {
  return qryList_ID->AsString();
}

bool CallPickBooking(ads::TAdsConnection* Connection, const TBookingPickOps& Options, const std::string& VendorID,
                     std::string& BookingID) {
  return pickbase::PickText(BookingID, &TfrmPickBooking::GetBookingID, Connection, Options, VendorID);
}

}  // namespace uPickBooking
