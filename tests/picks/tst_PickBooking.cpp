// The pick of a booking.
#include "picks/orders/uPickBooking.h"

#include <QTest>
#include <algorithm>
#include <limits>

#include "OrderDialogs.h"

using namespace orders;
using support::DrivePick;
using uPickBooking::CallPickBooking;
using uPickBooking::TBookingPickOp;
using uPickBooking::TBookingPickOps;
using uPickBooking::TfrmPickBooking;

namespace {

const QString CustomerColumns =
    "SELECT b.ID, b.VendID, v.Company VendCompany, b.CustID CustID, c.Company CustCompany, b.BegDate, b.EndDate, "
    "b.StartTime, b.FinishTime, b.OEInv, b.OEDT, o.JobNo, o.ShipTo2, ";
const QString ProspectColumns =
    "SELECT b.ID, b.VendID, v.Company VendCompany, b.ProspectID CustID, c.Company CustCompany, b.BegDate, b.EndDate, "
    "b.StartTime, b.FinishTime, b.OEInv, b.OEDT, '' JobNo, '' ShipTo2, ";
const QString CustomerTables =
    "\rFROM Booking b INNER JOIN Vend v ON b.VendID = v.ID INNER JOIN Cust c ON b.CustID = c.ID"
    "\rLEFT OUTER JOIN OE o ON (b.OEDT = o.Type AND b.OEInv = o.Number)"
    "\rWHERE b.ProspectID IS NULL";
const QString ProspectTables =
    "\rFROM Booking b INNER JOIN Vend v ON b.VendID = v.ID INNER JOIN Prospect c ON b.ProspectID = c.ID"
    "\rWHERE b.CustID IS NULL";

// What the two halves are ordered and searched by; the first two only where no vendor is given.
struct TChoice {
  QString CustomerSort;
  QString ProspectSort;
  QString CustomerFind;
  QString ProspectFind;
};
const std::vector<TChoice> Choices = {
    {"UPPER(b.VendID) SortFld", "UPPER(b.VendID) SortFld", "AND UPPER(b.VendID) LIKE '%1/2/2024%'",
     "AND UPPER(b.VendID) LIKE '%1/2/2024%'"},
    {"UPPER(v.Company) SortFld", "UPPER(v.Company) SortFld", "AND UPPER(v.Company) LIKE '%1/2/2024%'",
     "AND UPPER(v.Company) LIKE '%1/2/2024%'"},
    {"UPPER(b.CustID) SortFld", "UPPER(b.ProspectID) SortFld", "AND UPPER(b.CustID) LIKE '%1/2/2024%'",
     "AND UPPER(b.ProspectID) LIKE '%1/2/2024%'"},
    {"UPPER(c.Company) SortFld", "UPPER(c.Company) SortFld", "AND UPPER(c.Company) LIKE '%1/2/2024%'",
     "AND UPPER(c.Company) LIKE '%1/2/2024%'"},
    {"b.BegDate SortFld", "b.BegDate SortFld", "AND b.BegDate = '2024-02-01'", "AND b.BegDate = '2024-02-01'"},
    {"b.EndDate SortFld", "b.EndDate SortFld", "AND b.EndDate = '2024-02-01'", "AND b.EndDate = '2024-02-01'"},
    {"UPPER(b.OEInv) SortFld", "UPPER(b.OEInv) SortFld", "AND UPPER(b.OEInv) LIKE '%1/2/2024%'",
     "AND UPPER(b.OEInv) LIKE '%1/2/2024%'"},
    {"UPPER(o.JobNo) SortFld", "UPPER('') SortFld", "AND UPPER(o.JobNo) LIKE '%1/2/2024%'",
     "AND UPPER('') LIKE '%1/2/2024%'"}};

struct TBooking {
  QVariant ID;
  QVariant CustID = "C1";
  QVariant ProspectID = Null();
  QVariant BegDate = "2024-03-04";
  QVariant EndDate = "2024-03-06";
  QVariant StartTime = 480;
  QVariant FinishTime = 1020;
  QVariant VendID = "V1";
  QVariant OEInv = Null();
  QVariant OEDT = Null();
  bool PaidFor = false;
};

// Vendors V1 and V2, prospect P1 and an order and an invoice of one number.
class TBookings : public TSmallCompany {
 public:
  TBookings() {
    Execute("INSERT INTO Vend (ID, Company) VALUES ('V1', 'zebra Tiling'), ('V2', 'Able Plumbing')");
    Execute("INSERT INTO Prospect (ID, Company) VALUES ('P1', 'Maybe Homes')");
    Execute(
        "INSERT INTO OE (Type, Number, JobNo, ShipTo2) VALUES ('O', '500', 'J1', 'Lot 4'), ('I', '500', 'J2', 'x')");
  }

  void Add(const TBooking& Booking) {
    Execute(
        "INSERT INTO Booking (ID, VendID, CustID, ProspectID, BegDate, EndDate, StartTime, FinishTime, OEInv, OEDT, "
        "PaidFor) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        {Booking.ID, Booking.VendID, Booking.CustID, Booking.ProspectID, Booking.BegDate, Booking.EndDate,
         Booking.StartTime, Booking.FinishTime, Booking.OEInv, Booking.OEDT, Booking.PaidFor});
  }
  void AddForProspect(const QString& ID, const QString& VendID = "V1") {
    TBooking Booking{ID, Null(), "P1"};
    Booking.VendID = VendID;
    Add(Booking);
  }
  void AddForDocument(const QString& ID, const QString& Type, const QString& Number) {
    TBooking Booking{ID};
    Booking.OEDT = Type;
    Booking.OEInv = Number;
    Add(Booking);
  }
};

std::unique_ptr<TfrmPickBooking> Create(TTestCompany& Company, TBookingPickOps Options = {},
                                        const std::string& Vendor = {}) {
  return TfrmPickBooking::Create(Company.Connection(), Options, Vendor);
}

// The ids, whatever the order of the list.
QString Sorted(TDocPickBase& Dialog) {
  std::vector<std::string> IDs = support::Column(Dialog, "ID");
  std::sort(IDs.begin(), IDs.end());
  return Joined(IDs);
}

}  // namespace

class tst_PickBooking : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { UseAustralianFormats(); }

  void shouldHaveTheFieldsAndColumnsOfABooking() {
    const support::TNumberedTexts Texts;
    TBookings Company;
    const auto Dialog = Create(Company);
    QCOMPARE(
        Fields(*Dialog),
        QString("ID string 6 | VendID string 6 | VendCompany string 35 | CustID string 6 | CustCompany string 35 | "
                "BegDate date | EndDate date | StartTime smallint | FinishTime smallint | OEInv string 8 | OEDT "
                "string 1 | JobNo string 6 | ShipTo2 string 35 | Length float calculated"));
    const QString Vendor = "VendID T3015 right/right | VendCompany T3152 left/left | ";
    const QString Others =
        "CustID T3026 right/right | CustCompany T3027 left/left | BegDate T32 centre/centre | EndDate T33 "
        "centre/centre | Length Hours right/right | OEInv T3021 left/left | OEDT T3147 left/left | JobNo T3000 "
        "right/right | ShipTo2 T3083 left/left";
    QCOMPARE(Columns(*Dialog), Vendor + Others);
    QCOMPARE(Columns(*Create(Company, {}, "V1")), Others);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_VendID), 50);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_VendCompany), 120);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_CustID), 50);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_CustCompany), 120);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_ShipTo2), 120);
    QCOMPARE(Dialog->PickCaption, "T337");
    QCOMPARE(Dialog->AvailableCaption, "T491");
  }

  void shouldOfferTheVendorOnlyWhenNoneIsGiven() {
    const support::TNumberedTexts Texts;
    TBookings Company;
    const QString Others = "T3026 | T3027 | T32 | T33 | T3021 | T3000";
    for (const char* Vendor : {"", "V1", " "}) {
      const auto Dialog = Create(Company, {}, Vendor);
      const QString Expected = *Vendor == 0 ? "T3015 | T3152 | " + Others : Others;
      QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), Expected);
      QCOMPARE(Joined(support::Items(*Dialog->rgOrderBy)), Expected);
      QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
      QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
    }
  }

  void shouldHaveRoomForAllChoices() {
    TBookings Company;
    const auto Dialog = Create(Company);
    QVERIFY(Dialog->ckbDesc->geometry().bottom() < Dialog->pnlForm->height());
    QVERIFY(Dialog->rgOrderBy->geometry().bottom() < Dialog->ckbDesc->y() + 1);
  }

  void shouldAskLetterByLetter_data() {
    QTest::addColumn<int>("Options");
    QTest::addColumn<QString>("Vendor");
    QTest::addColumn<QString>("Filter");
    const QString Paid = "\rAND b.PaidFor = FALSE";
    const QString InBatch = "\rAND (NOT b.ID IN (SELECT BookingID FROM APBtchDT WHERE NOT BookingID IS NULL)) ";
    QTest::newRow("all") << 0 << ""
                         << "";
    QTest::newRow("not paid") << 1 << "" << Paid;
    QTest::newRow("not in a batch") << 2 << "" << InBatch;
    QTest::newRow("vendor") << 0 << "V1"
                            << "\rAND b.VendID = 'V1'";
    QTest::newRow("vendor, both") << 3 << " v1"
                                  << "\rAND b.VendID = ' v1'" + Paid + InBatch;
    QTest::newRow("blank vendor") << 0 << " "
                                  << "\rAND b.VendID = ' '";
  }
  void shouldAskLetterByLetter() {
    QFETCH(int, Options);
    QFETCH(QString, Vendor);
    QFETCH(QString, Filter);
    TBookings Company;
    TBookingPickOps Ops;
    if ((Options & 1) != 0) Ops.Include(TBookingPickOp::boHidePaid);
    if ((Options & 2) != 0) Ops.Include(TBookingPickOp::boNotInAPBatch);
    const auto Dialog = Create(Company, Ops, Vendor.toStdString());
    const int Shift = Vendor.isEmpty() ? 0 : 2;
    const int Count = 8 - Shift;
    for (int OrderBy = 0; OrderBy < Count; ++OrderBy) {
      const TChoice& Order = Choices[static_cast<std::size_t>(OrderBy + Shift)];
      const QString Customers = CustomerColumns + Order.CustomerSort + CustomerTables + Filter;
      const QString Prospects = ProspectColumns + Order.ProspectSort + ProspectTables + Filter;
      for (const bool Descending : {false, true}) {
        const QString End = Descending ? " | ORDER BY SortFld DESC" : " | ORDER BY SortFld";
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending), Customers + " | UNION ALL | " + Prospects + End);
        for (int FindBy = 0; FindBy < Count; ++FindBy) {
          const TChoice& Find = Choices[static_cast<std::size_t>(FindBy + Shift)];
          QCOMPARE(
              SqlFor(*Dialog, OrderBy, Descending, FindBy, " 1/2/2024 "),
              Customers + " | " + Find.CustomerFind + " | UNION ALL | " + Prospects + " | " + Find.ProspectFind + End);
        }
      }
    }
  }

  void shouldJoinTheLinesOfAPartByCarriageReturnsAlone() {
    TBookings Company;
    const auto Dialog = Create(Company, {}, "V1");
    picks::Ask(*Dialog, 0, false, 0, "C1");
    Dialog->CallSetSQL();
    const std::vector<std::string> Lines = support::SqlLines(*Dialog);
    QCOMPARE(Lines.size(), std::size_t{6});
    QCOMPARE(std::count(Lines[0].begin(), Lines[0].end(), '\r'), 4);
    QCOMPARE(std::count(Lines[3].begin(), Lines[3].end(), '\r'), 3);
    for (const std::string& Line : Lines) QVERIFY(Line.find('\n') == std::string::npos);
    for (const std::size_t Part : {std::size_t{0}, std::size_t{3}}) QVERIFY(Lines[Part].back() != '\r');
    QCOMPARE(Lines[1], "AND UPPER(b.CustID) LIKE '%C1%'");
    QCOMPARE(Lines[2], "UNION ALL");
    QCOMPARE(Lines[4], "AND UPPER(b.ProspectID) LIKE '%C1%'");
    QCOMPARE(Lines[5], "ORDER BY SortFld");
  }

  void shouldCountTheHoursOfAllDays_data() {
    QTest::addColumn<QVariant>("BegDate");
    QTest::addColumn<QVariant>("EndDate");
    QTest::addColumn<QVariant>("StartTime");
    QTest::addColumn<QVariant>("FinishTime");
    QTest::addColumn<QString>("Hours");
    const QVariant First = "2024-02-28";
    const QVariant Last = "2024-03-01";
    QTest::newRow("three days") << First << Last << QVariant(480) << QVariant(1020) << "27.00";
    QTest::newRow("no time") << First << First << QVariant(600) << QVariant(600) << "0.00";
    QTest::newRow("a minute") << First << First << QVariant(0) << QVariant(1) << "0.02";
    QTest::newRow("finish before start") << First << First << QVariant(1020) << QVariant(480) << "-9.00";
    QTest::newRow("end the day before") << Last << QVariant("2024-02-29") << QVariant(480) << QVariant(1020) << "0.00";
    QTest::newRow("end long before") << Last << First << QVariant(480) << QVariant(540) << "-1.00";
    const QVariant Least = std::numeric_limits<std::int32_t>::min();
    const QVariant Most = std::numeric_limits<std::int32_t>::max();
    QTest::newRow("the longest day") << First << First << Least << Most << "71582788.25";
    QTest::newRow("the longest day backwards") << First << First << Most << Least << "-71582788.25";
    QTest::newRow("all days there are") << QVariant("0001-01-01") << QVariant("9999-12-31") << Least << Most
                                        << "261424566073506.75";
    QTest::newRow("all days backwards") << QVariant("0001-01-01") << QVariant("9999-12-31") << Most << Least
                                        << "-261424566073506.75";
    // What a floating product would miss by a hundredth.
    QTest::newRow("all days but a minute")
        << QVariant("0001-01-01") << QVariant("9999-12-31") << Least << QVariant(2147483646) << "261424566012639.10";
    QTest::newRow("a minute more than there is") << First << First << QVariant(0) << QVariant(2147483648LL) << "";
    QTest::newRow("no first day") << Null() << Last << QVariant(480) << QVariant(1020) << "";
    QTest::newRow("no last day") << First << Null() << QVariant(480) << QVariant(1020) << "";
    QTest::newRow("no start") << First << Last << Null() << QVariant(1020) << "";
    QTest::newRow("no finish") << First << Last << QVariant(480) << Null() << "";
    QTest::newRow("nothing") << Null() << Null() << Null() << Null() << "";
    QTest::newRow("no date at all") << QVariant("soon") << Last << QVariant(480) << QVariant(1020) << "";
  }
  void shouldCountTheHoursOfAllDays() {
    QFETCH(QVariant, BegDate);
    QFETCH(QVariant, EndDate);
    QFETCH(QVariant, StartTime);
    QFETCH(QVariant, FinishTime);
    QFETCH(QString, Hours);
    TBookings Company;
    Company.Add({"B1", "C1", Null(), BegDate, EndDate, StartTime, FinishTime});
    const auto Dialog = Create(Company);
    QCOMPARE(Shown(*Dialog, "Length"), Hours);
    QCOMPARE(Dialog->qryList_Length->IsNull(), Hours.isEmpty());
  }

  void shouldRoundTheHoursToTenThousandths() {
    TBookings Company;
    // 7 days of 10 minutes are 1.1666..., 2 days of 20 minutes 0.6666..., 1 day of 20 minutes 0.3333...
    Company.Add({"B1", "C1", Null(), "2024-01-01", "2024-01-07", 0, 10});
    Company.Add({"B2", "C1", Null(), "2024-01-01", "2024-01-02", 0, 20});
    Company.Add({"B3", "C1", Null(), "2024-01-01", "2024-01-01", 0, 20});
    Company.Add({"B4", "C1", Null(), "2024-01-01", "2024-01-02", 20, 0});
    const auto Dialog = Create(Company);
    std::vector<std::int64_t> TenThousandths;
    std::vector<std::string> Exact;
    for (Dialog->qryList_->First(); !Dialog->qryList_->Eof(); Dialog->qryList_->Next()) {
      TenThousandths.push_back(Dialog->qryList_Length->AsCurrency().Scaled());
      Exact.push_back(Dialog->qryList_Length->AsString());
    }
    QCOMPARE(TenThousandths, (std::vector<std::int64_t>{11667, 6667, 3333, -6667}));
    QCOMPARE(Joined(Exact), QString("1.1667 | 0.6667 | 0.3333 | -0.6667"));
  }

  void shouldShowTheTimesAsTimes() {
    TBookings Company;
    Company.Add({"B1", "C1", Null(), Null(), Null(), 605, 0});
    Company.Add({"B2", "C1", Null(), Null(), Null(), 1439, 1440});
    Company.Add({"B3", "C1", Null(), Null(), Null(), 5, Null()});
    const auto Dialog = Create(Company);
    QCOMPARE(Shown(*Dialog, "StartTime"), QString("10:05 | 23:59 | 00:05"));
    QCOMPARE(Shown(*Dialog, "FinishTime"), QString("00:00 | 24:00 | "));
    QCOMPARE(Column(*Dialog, "StartTime"), QString("605 | 1439 | 5"));
  }

  void shouldShowTheDatesInTheShortFormat() {
    TBookings Company;
    Company.Add({"B1"});
    const auto Dialog = Create(Company);
    QCOMPARE(Shown(*Dialog, "BegDate"), QString("04/03/2024"));
    QCOMPARE(Shown(*Dialog, "EndDate"), QString("06/03/2024"));
  }

  void shouldListProspectsInTheCustomersColumns() {
    TBookings Company;
    Company.AddForDocument("B1", "O", "500");
    Company.AddForProspect("B2");
    const auto Dialog = Create(Company);
    SqlFor(*Dialog, 2, false);
    QCOMPARE(Column(*Dialog, "ID"), QString("B1 | B2"));
    QCOMPARE(Column(*Dialog, "CustID"), QString("C1 | P1"));
    QCOMPARE(Column(*Dialog, "CustCompany"), QString("Brown & Sons | Maybe Homes"));
    QCOMPARE(Column(*Dialog, "VendCompany"), QString("zebra Tiling | zebra Tiling"));
    QCOMPARE(Column(*Dialog, "JobNo"), QString("J1 | "));
    QCOMPARE(Column(*Dialog, "ShipTo2"), QString("Lot 4 | "));
    SqlFor(*Dialog, 3, true);
    QCOMPARE(Column(*Dialog, "ID"), QString("B2 | B1"));
  }

  void shouldNeverFindAProspectByItsJob() {
    TBookings Company;
    Company.AddForDocument("B1", "O", "500");
    Company.AddForDocument("B2", "I", "500");
    Company.AddForProspect("B3");
    Company.Add({"B4"});
    const auto Dialog = Create(Company);
    SqlFor(*Dialog, 0, false, 7, "j");
    QCOMPARE(Sorted(*Dialog), QString("B1 | B2"));
    SqlFor(*Dialog, 0, false, 7, "J2");
    QCOMPARE(Sorted(*Dialog), QString("B2"));
    SqlFor(*Dialog, 0, false, 7, "%");
    QCOMPARE(Sorted(*Dialog), QString("B1 | B2 | B3"));
    SqlFor(*Dialog, 7, true);
    QCOMPARE(Dialog->qryList_->RecordCount(), 4);
  }

  void shouldFindInBothHalves() {
    TBookings Company;
    Company.Add({"B1", "C1"});
    Company.Add({"B2", "C2", Null(), "2024-02-01", "2024-02-09"});
    Company.AddForProspect("B3", "V2");
    Company.AddForDocument("B4", "O", "500");
    const auto Dialog = Create(Company);
    const auto Found = [&](int FindBy, const QString& Text) {
      SqlFor(*Dialog, 0, false, FindBy, Text);
      return Sorted(*Dialog);
    };
    QCOMPARE(Found(0, "v2"), QString("B3"));
    QCOMPARE(Found(1, "zebra"), QString("B1 | B2 | B4"));
    QCOMPARE(Found(2, "p"), QString("B3"));
    QCOMPARE(Found(2, "1"), QString("B1 | B3 | B4"));
    QCOMPARE(Found(3, "HOMES"), QString("B3"));
    QCOMPARE(Found(4, "1/2/2024"), QString("B2"));
    QCOMPARE(Found(4, "4/3/2024"), QString("B1 | B3 | B4"));
    QCOMPARE(Found(5, "9/2/2024"), QString("B2"));
    QCOMPARE(Found(6, "50"), QString("B4"));
  }

  void shouldLeaveOutWhatHasNoPartner() {
    TBookings Company;
    Company.Add({"B1"});
    Company.Add({"B2", "C9"});
    Company.Add({"B3", "C1", "P1"});
    Company.Add({"B4", Null(), Null()});
    Company.Add({"B5", Null(), "P9"});
    TBooking NoVendor{"B6"};
    NoVendor.VendID = "V9";
    Company.Add(NoVendor);
    // A document that there is not takes no booking away.
    Company.AddForDocument("B7", "Q", "500");
    QCOMPARE(Sorted(*Create(Company)), QString("B1 | B7"));
  }

  void shouldHidePaidBookingsAndThoseInABatch() {
    TBookings Company;
    Company.Add({"B1"});
    TBooking Paid{"B2"};
    Paid.PaidFor = true;
    Company.Add(Paid);
    Company.AddForProspect("B3");
    Company.AddForProspect("B4");
    Company.Execute("INSERT INTO APBtchDT VALUES ('1', 'B1'), ('1', NULL), ('2', 'B3'), ('2', 'B3')");
    QCOMPARE(Sorted(*Create(Company)), QString("B1 | B2 | B3 | B4"));
    QCOMPARE(Sorted(*Create(Company, {TBookingPickOp::boHidePaid})), QString("B1 | B3 | B4"));
    QCOMPARE(Sorted(*Create(Company, {TBookingPickOp::boNotInAPBatch})), QString("B2 | B4"));
    QCOMPARE(Sorted(*Create(Company, {TBookingPickOp::boHidePaid, TBookingPickOp::boNotInAPBatch})), QString("B4"));
  }

  void shouldListOneVendorsBookings() {
    TBookings Company;
    Company.Add({"B1"});
    Company.AddForProspect("B2", "V2");
    QCOMPARE(Sorted(*Create(Company, {}, "V2")), QString("B2"));
    QVERIFY(Create(Company, {}, " ")->qryList_->IsEmpty());
    QCOMPARE(Column(*Create(Company), "VendCompany"), QString("Able Plumbing | zebra Tiling"));
  }

  void shouldReportAQuoteInTheVendorCode() {
    TBookings Company;
    std::string BookingID = "before";
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickBooking(Company.Connection(), {}, "O'N", BookingID));
    QCOMPARE(BookingID, "");
  }

  void shouldKeepTheListWhenTheDateIsWrong_data() {
    QTest::addColumn<QString>("Vendor");
    QTest::addColumn<int>("FindBy");
    QTest::newRow("first day") << "" << 4;
    QTest::newRow("last day") << "" << 5;
    QTest::newRow("first day of a vendor") << "V1" << 2;
    QTest::newRow("last day of a vendor") << "V1" << 3;
  }
  void shouldKeepTheListWhenTheDateIsWrong() {
    QFETCH(QString, Vendor);
    QFETCH(int, FindBy);
    TBookings Company;
    Company.Add({"B1"});
    Company.AddForProspect("B2");
    const support::TErrorBoxes Boxes;
    std::string BookingID;
    QVERIFY(DrivePick([&] { return CallPickBooking(Company.Connection(), {}, Vendor.toStdString(), BookingID); },
                      [&](TDocPickBase& Dialog) {
                        support::ChooseFindBy(Dialog, FindBy);
                        const QString Before = Sql(Dialog);
                        support::TypeFind(Dialog, "2024");
                        QCOMPARE(Sql(Dialog), Before);
                        QCOMPARE(Sorted(Dialog), QString("B1 | B2"));
                        QCOMPARE(Dialog.edFind->text(), QString("2024"));
                        support::ClickOK(Dialog);
                      }));
    QCOMPARE(Joined(Boxes.Messages()), NoDate);
  }

  void shouldShowTheWholeListWhenTheSearchFails() {
    TBookings Company;
    Company.Add({"B1"});
    Company.AddForProspect("B2");
    const auto Dialog = Create(Company);
    const picks::TShortStatements Short(Company.Database(), ShortStatement);
    QCOMPARE(SqlFor(*Dialog, 4, true, 3, TooLong()), CustomerColumns + "b.BegDate SortFld" + CustomerTables +
                                                         " | UNION ALL | " + ProspectColumns + "b.BegDate SortFld" +
                                                         ProspectTables + " | ORDER BY SortFld DESC");
    QCOMPARE(Dialog->qryList_->RecordCount(), 2);
  }

  void shouldReturnTheBookingsId() {
    TBookings Company;
    Company.Add({"B1"});
    Company.AddForProspect("B2", "V2");
    std::string BookingID = "before";
    QVERIFY(DrivePick([&] { return CallPickBooking(Company.Connection(), {}, "", BookingID); },
                      [](TDocPickBase& Dialog) { support::DoubleClickRow(Dialog, 0); }));
    QCOMPARE(BookingID, "B2");
    QVERIFY(!DrivePick([&] { return CallPickBooking(Company.Connection(), {}, "", BookingID); },
                       [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
    QCOMPARE(BookingID, "");
  }

  void shouldListTheBookingsOfTheSampleCompany() {
    TTestCompany Company;
    const auto Dialog = Create(Company, {TBookingPickOp::boHidePaid, TBookingPickOp::boNotInAPBatch});
    const std::vector<std::string> Expected = Company.Texts(
        "SELECT b.ID FROM Booking b JOIN Vend v ON v.ID = b.VendID LEFT JOIN Cust c ON c.ID = b.CustID LEFT JOIN "
        "Prospect p ON p.ID = b.ProspectID WHERE (b.CustID IS NULL) + (b.ProspectID IS NULL) = 1 AND (c.ID IS NOT NULL "
        "OR p.ID IS NOT NULL) AND b.PaidFor = 0 AND NOT EXISTS (SELECT 1 FROM APBtchDT d WHERE d.BookingID = b.ID) "
        "ORDER BY b.ID");
    QVERIFY(Expected.size() > 20);
    QCOMPARE(Sorted(*Dialog), Joined(Expected));
    // The sample's odd times, the unknown ones among them.
    const auto All = Create(Company);
    QVERIFY(All->qryList_->Locate("ID", "B00001"));
    QCOMPARE(All->qryList_Length->DisplayText(), "27.00");
  }
};

QTEST_MAIN(tst_PickBooking)
#include "tst_PickBooking.moc"
