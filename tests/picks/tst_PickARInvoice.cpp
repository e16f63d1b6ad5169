// The pick of a receivable invoice.
#include "picks/orders/uPickARInvoice.h"

#include <QTest>
#include <algorithm>

#include "OrderDialogs.h"

using namespace orders;
using support::DrivePick;
using uPickARInvoice::CallARInvoicePick;
using uPickARInvoice::TARInvoiceOp;
using uPickARInvoice::TARInvoiceOps;
using uPickARInvoice::TfrmPickARInvoice;

namespace {

constexpr TARInvoiceOps Everything = {TARInvoiceOp::aoIncZeroBal, TARInvoiceOp::aoIncCredits};

const QString InvoiceColumns = "SELECT InvNo, [Date], [Desc], Bal, Amt, OEDt, Due, Batch, Entity, ";

struct TInvoice {
  QVariant InvNo;
  QVariant Bal = 100.0;
  QVariant Amt = 100.0;
  QVariant Batch = "B1";
  QVariant Date = "2024-03-05";
  QVariant Desc = "Timber";
  QVariant Entity = "MAIN";
  QVariant ID = "C1";
  QVariant Type = "IN";
  QVariant OEDt = "I";
};

class TInvoices : public TTestCompany {
 public:
  explicit TInvoices(bool MultiAcct = false) : TTestCompany(TRows::None) {
    if (MultiAcct) Execute("UPDATE Sys SET MultiAcct = 1");
  }

  void Add(const TInvoice& Invoice) {
    Execute(
        "INSERT INTO AR (InvNo, Bal, Amt, Batch, Date, Due, Desc, Entity, ID, Type, OEDt) VALUES (?, ?, ?, ?, ?, "
        "'2024-04-30', ?, ?, ?, ?, ?)",
        {Invoice.InvNo, Invoice.Bal, Invoice.Amt, Invoice.Batch, Invoice.Date, Invoice.Desc, Invoice.Entity, Invoice.ID,
         Invoice.Type, Invoice.OEDt});
  }
};

std::unique_ptr<TfrmPickARInvoice> Create(TTestCompany& Company, TARInvoiceOps Options = {},
                                          const std::string& Customer = "C1", const std::string& Entity = {}) {
  return TfrmPickARInvoice::Create(Company.Connection(), Options, Customer, Entity);
}

}  // namespace

class tst_PickARInvoice : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { UseAustralianFormats(); }

  void shouldHaveTheFieldsAndColumnsOfAnInvoice() {
    const support::TNumberedTexts Texts;
    TInvoices Company(true);
    const auto Dialog = Create(Company);
    QCOMPARE(Fields(*Dialog), QString("InvNo string 8 | Date date | Desc string 40 | Bal float | Amt float | OEDt "
                                      "string 1 | Due date | Batch string 8 | Entity string 4"));
    QCOMPARE(Columns(*Dialog),
             QString("InvNo T3036 right/right | Batch T3079 right/right | Date T3002 centre/centre | Due T3078 "
                     "centre/centre | Desc T3007 left/left | Entity T3006 left/left | Bal T3076 right/right | Amt "
                     "T3003 right/right"));
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_Desc), 150);
    QCOMPARE(Dialog->PickCaption, "T7");
    QCOMPARE(Dialog->AvailableCaption, "T246");
    QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QString("T3036 | T3079 | T3002 | T3007 | T3003"));
    QCOMPARE(Joined(support::Items(*Dialog->rgOrderBy)), QString("T3036 | T3079 | T3002 | T3007 | T3003"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 0);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 0);
  }

  void shouldShowTheEntityOnlyWhereItTells() {
    TInvoices Single;
    TInvoices Multi(true);
    const auto Shows = [](TTestCompany& Company, const std::string& Entity) {
      const auto Dialog = Create(Company, {}, "C1", Entity);
      return WidthOf(*Dialog, Dialog->qryList_Entity) >= 0;
    };
    QVERIFY(Shows(Multi, ""));
    QVERIFY(!Shows(Multi, "MAIN"));
    QVERIFY(!Shows(Multi, " "));
    QVERIFY(!Shows(Single, ""));
    QVERIFY(!Shows(Single, "MAIN"));
  }

  void shouldAskLetterByLetter_data() {
    QTest::addColumn<bool>("MultiAcct");
    QTest::addColumn<int>("Options");
    QTest::addColumn<QString>("Customer");
    QTest::addColumn<QString>("Entity");
    QTest::addColumn<QString>("Filter");
    QTest::newRow("owed") << false << 0 << "C1"
                          << ""
                          << "AND ID = 'C1' | AND Bal <> 0 | AND Amt > 0";
    QTest::newRow("without balance") << false << 1 << "C1"
                                     << ""
                                     << "AND ID = 'C1' | AND Amt > 0";
    QTest::newRow("credits") << false << 2 << "C1"
                             << ""
                             << "AND ID = 'C1' | AND Bal <> 0";
    QTest::newRow("everything") << false << 3 << "C1"
                                << ""
                                << "AND ID = 'C1'";
    QTest::newRow("entity of one") << false << 3 << "C1"
                                   << "MAIN"
                                   << "AND ID = 'C1'";
    QTest::newRow("entity of several") << true << 0 << "C1"
                                       << "MAIN"
                                       << "AND ID = 'C1' | AND Bal <> 0 | AND Amt > 0 | AND Entity = 'MAIN'";
    QTest::newRow("blank entity") << true << 3 << "C1"
                                  << " "
                                  << "AND ID = 'C1' | AND Entity = ' '";
    QTest::newRow("no entity") << true << 3 << "C1"
                               << ""
                               << "AND ID = 'C1'";
    QTest::newRow("no customer") << false << 3 << ""
                                 << ""
                                 << "AND ID = ''";
    QTest::newRow("untrimmed") << false << 3 << " C1 "
                               << ""
                               << "AND ID = ' C1 '";
  }
  void shouldAskLetterByLetter() {
    QFETCH(bool, MultiAcct);
    QFETCH(int, Options);
    QFETCH(QString, Customer);
    QFETCH(QString, Entity);
    QFETCH(QString, Filter);
    TInvoices Company(MultiAcct);
    TARInvoiceOps Ops;
    if ((Options & 1) != 0) Ops.Include(TARInvoiceOp::aoIncZeroBal);
    if ((Options & 2) != 0) Ops.Include(TARInvoiceOp::aoIncCredits);
    const auto Dialog = Create(Company, Ops, Customer.toStdString(), Entity.toStdString());
    const QStringList Sorts = {"UPPER(InvNo) SortFld", "UPPER(Batch) SortFld", "[Date] SortFld",
                               "UPPER([Desc]) SortFld", "Amt SortFld"};
    // Each find-by with a text of its own, because what is a date is no number.
    const QStringList Typed = {" o'neil ", "b%1", " 1/2/2024 ", "Café", " -1.50e2 "};
    const QStringList Finds = {"AND UPPER(InvNo) LIKE '%O''NEIL%'", "AND UPPER(Batch) LIKE '%B%1%'",
                               "AND [Date] = '2024-02-01'", "AND UPPER([Desc]) LIKE '%CAFÉ%'", "AND Amt = -1.50e2"};
    for (int OrderBy = 0; OrderBy < 5; ++OrderBy) {
      for (const bool Descending : {false, true}) {
        const QString Start = InvoiceColumns + Sorts[OrderBy] + " | FROM AR | WHERE Type = 'IN' | " + Filter;
        const QString End = Descending ? " | ORDER BY SortFld DESC" : " | ORDER BY SortFld";
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending), Start + End);
        for (int FindBy = 0; FindBy < 5; ++FindBy) {
          QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, FindBy, "  "), Start + End);
          QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, FindBy, Typed[FindBy]), Start + " | " + Finds[FindBy] + End);
        }
      }
    }
  }

  void shouldListWhatTheOptionsAsk() {
    TInvoices Company;
    Company.Add({"1", 50});
    Company.Add({"2", 0});
    Company.Add({"3", -20, -20});
    Company.Add({"4", 0, -20});
    Company.Add({"5", 10, 0});
    Company.Add({"6", Null()});
    Company.Add({"7", 10, Null()});
    TInvoice Payment{"8"};
    Payment.Type = "PA";
    Company.Add(Payment);
    TInvoice Others{"9"};
    Others.ID = "C2";
    Company.Add(Others);
    QCOMPARE(Column(*Create(Company), "InvNo"), QString("1"));
    QCOMPARE(Column(*Create(Company, {TARInvoiceOp::aoIncZeroBal}), "InvNo"), QString("1 | 2 | 6"));
    QCOMPARE(Column(*Create(Company, {TARInvoiceOp::aoIncCredits}), "InvNo"), QString("1 | 3 | 5 | 7"));
    QCOMPARE(Column(*Create(Company, Everything), "InvNo"), QString("1 | 2 | 3 | 4 | 5 | 6 | 7"));
    QVERIFY(Create(Company, Everything, "")->qryList_->IsEmpty());
  }

  void shouldListOneEntityWhereThereAreSeveral() {
    for (const bool MultiAcct : {true, false}) {
      TInvoices Company(MultiAcct);
      Company.Add({"1"});
      TInvoice North{"2"};
      North.Entity = "NRTH";
      Company.Add(North);
      QCOMPARE(Column(*Create(Company, {}, "C1", "NRTH"), "InvNo"), QString(MultiAcct ? "2" : "1 | 2"));
      QCOMPARE(Column(*Create(Company), "InvNo"), QString("1 | 2"));
    }
  }

  void shouldOrderByDatesAndAmountsThemselves() {
    TInvoices Company;
    Company.Add({"1", 1, 100, "b", "2024-02-10", "b"});
    Company.Add({"2", 1, 20, "A", "2023-11-30", "A"});
    Company.Add({"3", 1, 3, "C", Null(), "c"});
    const auto Dialog = Create(Company);
    const auto Order = [&](int OrderBy, bool Descending) {
      SqlFor(*Dialog, OrderBy, Descending);
      return Column(*Dialog, "InvNo");
    };
    QCOMPARE(Order(1, false), QString("2 | 1 | 3"));
    QCOMPARE(Order(2, true), QString("1 | 2 | 3"));
    QCOMPARE(Order(2, false), QString("3 | 2 | 1"));
    QCOMPARE(Order(3, true), QString("3 | 1 | 2"));
    QCOMPARE(Order(4, false), QString("3 | 2 | 1"));
  }

  void shouldFindAnAmount() {
    TInvoices Company;
    Company.Add({"1", 1, 100});
    Company.Add({"2", 1, 100.5});
    Company.Add({"3", 1, 1000});
    const auto Dialog = Create(Company);
    for (const auto& [Typed, Found] : {std::pair("100", "1"), std::pair(" 100.50 ", "2"), std::pair("1e3", "3"),
                                       std::pair("+100", "1"), std::pair("7", "")}) {
      SqlFor(*Dialog, 0, false, 4, Typed);
      QCOMPARE(Column(*Dialog, "InvNo"), QString(Found));
    }
    QVERIFY(SqlFor(*Dialog, 0, false, 4, " 100 ").endsWith(" | AND Amt = 100 | ORDER BY SortFld"));
  }

  void shouldKeepTheListWhenDateOrAmountIsWrong_data() {
    QTest::addColumn<int>("FindBy");
    QTest::addColumn<QString>("Typed");
    QTest::addColumn<QString>("Message");
    QTest::newRow("no date") << 2 << "100" << NoDate;
    QTest::newRow("no day") << 2 << "30/2/2024" << NoDate;
    QTest::newRow("no amount") << 4 << "ten" << NoNumber;
    QTest::newRow("separators") << 4 << "1,000" << NoNumber;
    QTest::newRow("a condition") << 4 << "1 OR 1=1" << NoNumber;
  }
  void shouldKeepTheListWhenDateOrAmountIsWrong() {
    QFETCH(int, FindBy);
    QFETCH(QString, Typed);
    QFETCH(QString, Message);
    TInvoices Company;
    Company.Add({"1"});
    Company.Add({"2"});
    const support::TErrorBoxes Boxes;
    std::string InvNo;
    std::string DocType;
    QVERIFY(DrivePick([&] { return CallARInvoicePick(Company.Connection(), {}, "C1", "", InvNo, DocType); },
                      [&](TDocPickBase& Dialog) {
                        support::ChooseFindBy(Dialog, FindBy);
                        const QString Before = Sql(Dialog);
                        support::TypeFind(Dialog, Typed);
                        QCOMPARE(Sql(Dialog), Before);
                        QCOMPARE(Column(Dialog, "InvNo"), QString("1 | 2"));
                        QCOMPARE(Dialog.edFind->text(), Typed);
                        support::ClickOK(Dialog);
                      }));
    QCOMPARE(Joined(Boxes.Messages()), Message);
    QCOMPARE(InvNo, "1");
  }

  void shouldFormatAmountsAndDates() {
    TInvoices Company;
    Company.Execute("UPDATE Sys SET PrcDec = 3");
    Company.Add({"1", 1234.5, 2000});
    const auto Dialog = Create(Company);
    QCOMPARE(Shown(*Dialog, "Bal"), QString("1,234.500"));
    QCOMPARE(Shown(*Dialog, "Amt"), QString("2,000.000"));
    QCOMPARE(Shown(*Dialog, "Date"), QString("05/03/2024"));
    QCOMPARE(Shown(*Dialog, "Due"), QString("30/04/2024"));
  }

  void shouldReturnNumberAndDocumentType() {
    TInvoices Company;
    Company.Add({"1"});
    TInvoice Credit{"2"};
    Credit.OEDt = "C";
    Company.Add(Credit);
    TInvoice Old{"3"};
    Old.OEDt = Null();
    Company.Add(Old);
    std::string InvNo = "before";
    std::string DocType = "before";
    const auto Call = [&] { return CallARInvoicePick(Company.Connection(), {}, "C1", "", InvNo, DocType); };
    QVERIFY(DrivePick(Call, [](TDocPickBase& Dialog) { support::DoubleClickRow(Dialog, 1); }));
    QCOMPARE(InvNo, "2");
    QCOMPARE(DocType, "C");
    QVERIFY(DrivePick(Call, [](TDocPickBase& Dialog) { support::DoubleClickRow(Dialog, 2); }));
    QCOMPARE(InvNo, "3");
    QCOMPARE(DocType, "");
  }

  void shouldEmptyBothWhenCancelled() {
    TInvoices Company;
    Company.Add({"1"});
    std::string InvNo = "before";
    std::string DocType = "before";
    QVERIFY(!DrivePick([&] { return CallARInvoicePick(Company.Connection(), {}, "C1", "", InvNo, DocType); },
                       [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
    QCOMPARE(InvNo, "");
    QCOMPARE(DocType, "");
  }

  void shouldTakeOneVariableForCodeAndKey() {
    TInvoices Company(true);
    Company.Add({"1"});
    std::string CustomerThenNumber = "C1";
    std::string EntityThenType = "MAIN";
    QVERIFY(DrivePick(
        [&] {
          return CallARInvoicePick(Company.Connection(), {}, CustomerThenNumber, EntityThenType, CustomerThenNumber,
                                   EntityThenType);
        },
        [](TDocPickBase& Dialog) { support::ClickOK(Dialog); }));
    QCOMPARE(CustomerThenNumber, "1");
    QCOMPARE(EntityThenType, "I");
  }

  void shouldReportQuotesInTheCodes() {
    TInvoices Company(true);
    std::string InvNo = "before";
    std::string DocType = "before";
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                             CallARInvoicePick(Company.Connection(), {}, "O'N", "", InvNo, DocType));
    QCOMPARE(InvNo, "");
    QCOMPARE(DocType, "");
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                             CallARInvoicePick(Company.Connection(), {}, "C1", "M'N", InvNo, DocType));
  }

  void shouldShowTheWholeListWhenTheSearchFails() {
    TInvoices Company(true);
    Company.Add({"1"});
    Company.Add({"2"});
    const auto Dialog = Create(Company, {}, "C1", "MAIN");
    const picks::TShortStatements Short(Company.Database(), ShortStatement);
    QCOMPARE(SqlFor(*Dialog, 4, true, 3, TooLong()),
             InvoiceColumns +
                 "Amt SortFld\nFROM AR\nWHERE Type = 'IN'\nAND ID = 'C1'\nAND Bal <> 0\nAND Amt > 0\nAND "
                 "Entity = 'MAIN' | ORDER BY SortFld DESC");
    QCOMPARE(Dialog->qryList_->RecordCount(), 2);
  }

  void shouldListTheInvoicesOfASampleCustomer() {
    TTestCompany Company;
    const std::string Customer =
        Company.Text("SELECT ID FROM AR WHERE Type = 'IN' GROUP BY ID ORDER BY COUNT(*) DESC LIMIT 1");
    const QString Where = " FROM AR WHERE Type = 'IN' AND ID = '" + Text(Customer) + "'";
    std::vector<std::string> Expected = Company.Texts("SELECT InvNo" + Where + " AND Bal <> 0 AND Amt > 0");
    std::sort(Expected.begin(), Expected.end());
    QVERIFY(!Expected.empty());
    QCOMPARE(Column(*Create(Company, {}, Customer), "InvNo"), Joined(Expected));
    QCOMPARE(Create(Company, Everything, Customer)->qryList_->RecordCount(),
             std::stoi(Company.Text("SELECT COUNT(*)" + Where)));
  }
};

QTEST_MAIN(tst_PickARInvoice)
#include "tst_PickARInvoice.moc"
