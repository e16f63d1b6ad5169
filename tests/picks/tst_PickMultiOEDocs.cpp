// The pick of several order-entry documents.
#include "picks/orders/uPickMultiOEDocs.h"

#include <QTest>
#include <algorithm>
#include <type_traits>

#include "OEDocQueries.h"
#include "picks/orders/uPickOEDoc.h"

using namespace orders;
using support::DrivePickAs;
using toolkit::TStringList;
using uPickMultiOEDocs::CallPickMultiOEDocs;
using uPickMultiOEDocs::TfrmPickMultiOEDocs;
using uPickMultiOEDocs::TOEDocOption;
using zulcommon::TDocType;

// The two units have an option type each.
static_assert(!std::is_same_v<TOEDocOption, uPickOEDoc::TOEDocOption>);
static_assert(static_cast<int>(TOEDocOption::ooWastagePosted) == 0 && static_cast<int>(TOEDocOption::ooInternal) == 1 &&
              static_cast<int>(TOEDocOption::ooStockTrans) == 2 && static_cast<int>(TOEDocOption::ooPosted) == 3);

namespace {

std::unique_ptr<TfrmPickMultiOEDocs> Create(TTestCompany& Company, const std::string& Customer = {},
                                            TDocType Type = TDocType::dtOrder) {
  return TfrmPickMultiOEDocs::Create(Company.Connection(), Customer, Type, {}, {});
}

// Orders 1 to 5.
class TFiveOrders : public TSmallCompany {
 public:
  TFiveOrders() {
    for (const char* Number : {"3", "1", "5", "2", "4"}) Add(*this, {"O", Number});
  }
};

void Tick(TDocPickBase& Dialog, std::initializer_list<int> Rows) {
  for (const int Row : Rows) support::DoubleClickRow(Dialog, Row);
}

QString Lines(const TStringList& List) {
  return Joined({List.begin(), List.end()});
}

}  // namespace

class tst_PickMultiOEDocs : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { UseAustralianFormats(); }

  void shouldHaveTheTicksBehindTheColumnsOfADocument() {
    const support::TNumberedTexts Texts;
    TSmallCompany Company;
    const auto Dialog = Create(Company);
    QCOMPARE(Fields(*Dialog), "Ticked boolean calculated | " + DocumentFields);
    QCOMPARE(Columns(*Dialog), DocumentGrid + " | Ticked T centre/centre");
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_Posted), 16);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_Ticked), 16);
    QCOMPARE(Dialog->PickCaption, "T575");
    QCOMPARE(Dialog->AvailableCaption, "T94");
    QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QString("T3027 | T3147 | T3000 | T3001 | T3021 | T3002"));
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 4);
    QCOMPARE(Columns(*Create(Company, "C1")), DocumentGridOfCustomer + " | Ticked T centre/centre");
    QCOMPARE(Columns(*Create(Company, " ")), DocumentGridOfCustomer + " | Ticked T centre/centre");
    QCOMPARE(Create(Company, "C1")->rgFindBy->ItemIndex(), 3);
    QCOMPARE(Create(Company, " ")->rgFindBy->Items().Count(), 6);
  }

  void shouldAskLetterByLetter_data() {
    QTest::addColumn<QString>("Customer");
    QTest::addColumn<QString>("Filter");
    QTest::addColumn<bool>("WithCompany");
    QTest::newRow("all customers") << ""
                                   << " | AND O.Type IN ('O')" << true;
    QTest::newRow("one customer") << "C1"
                                  << " | AND O.Type IN ('O') | AND o.ID = 'C1'" << false;
    QTest::newRow("blanks") << "  "
                            << " | AND O.Type IN ('O')" << true;
  }
  void shouldAskLetterByLetter() {
    QFETCH(QString, Customer);
    QFETCH(QString, Filter);
    QFETCH(bool, WithCompany);
    TSmallCompany Company;
    const auto Dialog = Create(Company, Customer.toStdString());
    picks::CompareSql(*Dialog, DocumentSql(Filter, WithCompany));
  }

  void shouldAskForItsOneType_data() {
    QTest::addColumn<int>("Type");
    QTest::addColumn<QString>("Letter");
    const QString Letters = "QOICRSTGM";
    for (int Type = 0; Type < Letters.size(); ++Type)
      QTest::newRow(qPrintable(Letters.mid(Type, 1))) << Type << Letters.mid(Type, 1);
  }
  void shouldAskForItsOneType() {
    QFETCH(int, Type);
    QFETCH(QString, Letter);
    TSmallCompany Company;
    const auto Dialog = Create(Company, {}, static_cast<TDocType>(Type));
    QVERIFY(Sql(*Dialog).contains(" | WHERE 0=0 | AND O.Type IN ('" + Letter + "') | ORDER BY SortFld"));
  }

  void shouldAddTheOptionLines() {
    TSmallCompany Company;
    const auto Dialog = TfrmPickMultiOEDocs::Create(Company.Connection(), "C1", TDocType::dtInvoice,
                                                    {TOEDocOption::ooPosted, TOEDocOption::ooWastagePosted},
                                                    {TOEDocOption::ooStockTrans, TOEDocOption::ooInternal});
    QCOMPARE(Sql(*Dialog), DocumentColumns + "UPPER(O.Number) SortFld | " + DocumentTables +
                               " | WHERE 0=0 | AND O.Type IN ('I') | AND o.ID = 'C1' | AND O.StockReturned = TRUE | "
                               "AND o.Posted = TRUE | AND O.Internal = FALSE | AND O.StockTrans = FALSE | "
                               "ORDER BY SortFld");
  }

  void shouldReturnTheTickedNumbersInTheOrderOfTheList() {
    TFiveOrders Company;
    TStringList List;
    QVERIFY(DrivePickAs<TfrmPickMultiOEDocs>(
        [&] { return CallPickMultiOEDocs(Company.Connection(), "C1", TDocType::dtOrder, {}, {}, &List); },
        [](TfrmPickMultiOEDocs& Dialog) {
          support::ClickBox(Dialog.ckbDesc);
          Tick(Dialog, {3, 0, 2});
          support::ClickOK(Dialog);
        }));
    QCOMPARE(Lines(List), QString("5 | 3 | 2"));
  }

  void shouldNotAddToAListThatHoldsALine() {
    TFiveOrders Company;
    TStringList List;
    List.Add("");
    QVERIFY(DrivePickAs<TfrmPickMultiOEDocs>(
        [&] { return CallPickMultiOEDocs(Company.Connection(), TDocType::dtOrder, {}, {}, &List); },
        [](TfrmPickMultiOEDocs& Dialog) {
          Tick(Dialog, {0, 1});
          support::ClickOK(Dialog);
        }));
    QCOMPARE(List.Count(), 1);
    QCOMPARE(List[0], "");
  }

  void shouldTakeANullList() {
    TFiveOrders Company;
    QVERIFY(DrivePickAs<TfrmPickMultiOEDocs>(
        [&] { return CallPickMultiOEDocs(Company.Connection(), TDocType::dtOrder, {}, {}, nullptr); },
        [](TfrmPickMultiOEDocs& Dialog) {
          Tick(Dialog, {0});
          support::ClickOK(Dialog);
        }));
  }

  void shouldLeaveTheListAloneWhenCancelled() {
    TFiveOrders Company;
    for (const bool Filled : {false, true}) {
      TStringList List;
      if (Filled) List.Add("mine");
      QVERIFY(!DrivePickAs<TfrmPickMultiOEDocs>(
          [&] { return CallPickMultiOEDocs(Company.Connection(), TDocType::dtOrder, {}, {}, &List); },
          [](TfrmPickMultiOEDocs& Dialog) {
            Tick(Dialog, {0, 1});
            support::ClickCancel(Dialog);
          }));
      QCOMPARE(List.Count(), Filled ? 1 : 0);
    }
  }

  void shouldWalkTheListToItsEnd() {
    TFiveOrders Company;
    const auto Dialog = Create(Company);
    Dialog->qryList_->SetRecNo(2);
    Dialog->dbgAvailDblClick();
    TStringList List;
    List.Add("full");
    Dialog->DocNumbers(&List);
    Dialog->DocNumbers(nullptr);
    QCOMPARE(Dialog->qryList_->RecNo(), 2);
    QVERIFY(!Dialog->qryList_->Eof());
    TStringList Empty;
    Dialog->DocNumbers(&Empty);
    QCOMPARE(Lines(Empty), QString("2"));
    QVERIFY(Dialog->qryList_->Eof());
    QCOMPARE(Dialog->qryList_->RecNo(), 5);
    // Full by now, so a second walk adds nothing.
    Dialog->DocNumbers(&Empty);
    QCOMPARE(Lines(Empty), QString("2"));
  }

  void shouldReturnNothingWithoutTicks() {
    TFiveOrders Company;
    const auto Dialog = Create(Company);
    QVERIFY(!Dialog->actOK->isEnabled());
    TStringList List;
    Dialog->DocNumbers(&List);
    QCOMPARE(List.Count(), 0);
  }

  void shouldDropTheTicksWithEveryQuery() {
    TFiveOrders Company;
    const auto Dialog = Create(Company);
    Dialog->mniAllClick();
    QCOMPARE(Dialog->TickedRows.Count(), 5);
    Dialog->rgOrderBy->SetItemIndex(1);
    QCOMPARE(Dialog->TickedRows.Count(), 0);
    QVERIFY(!Dialog->actOK->isEnabled());
  }

  void shouldCollectAllOfManyDocumentsInOrder() {
    TSmallCompany Company;
    Company.Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000) INSERT INTO OE (Type, Number, "
        "ID, JobNo) SELECT 'O', printf('%08d', i * 7919 % 50021), 'C1', 'J1' FROM n");
    const std::vector<std::string> Expected = Company.Texts("SELECT Number FROM OE ORDER BY Number DESC");
    TStringList List;
    QVERIFY(DrivePickAs<TfrmPickMultiOEDocs>(
        [&] { return CallPickMultiOEDocs(Company.Connection(), TDocType::dtOrder, {}, {}, &List); },
        [](TfrmPickMultiOEDocs& Dialog) {
          support::ClickBox(Dialog.ckbDesc);
          Dialog.mniAll->trigger();
          support::ClickOK(Dialog);
        }));
    QCOMPARE(Expected.size(), std::size_t{50000});
    QVERIFY(std::equal(List.begin(), List.end(), Expected.begin(), Expected.end()));
  }

  void shouldLeaveOutDocumentsWithoutJobOrCustomer() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", "C9"});
    Add(Company, {"O", "3", "C1", Null()});
    Add(Company, {"I", "4"});
    QCOMPARE(Column(*Create(Company), "Number"), QString("1"));
  }

  void shouldShowTheWholeListWhenTheSearchFails() {
    TFiveOrders Company;
    const auto Dialog = Create(Company);
    const picks::TShortStatements Short(Company.Database(), ShortStatement);
    QCOMPARE(SqlFor(*Dialog, 0, false, 3, TooLong()), DocumentColumns + "UPPER(C.Company) SortFld\n" + DocumentTables +
                                                          "\nWHERE 0=0\nAND O.Type IN ('O') | ORDER BY SortFld");
    QCOMPARE(Dialog->qryList_->RecordCount(), 5);
  }

  void shouldKeepListAndTicksWhenTheDateIsWrong() {
    TFiveOrders Company;
    const support::TErrorBoxes Boxes;
    TStringList List;
    QVERIFY(DrivePickAs<TfrmPickMultiOEDocs>(
        [&] { return CallPickMultiOEDocs(Company.Connection(), TDocType::dtOrder, {}, {}, &List); },
        [](TfrmPickMultiOEDocs& Dialog) {
          Tick(Dialog, {1});
          support::ChooseFindBy(Dialog, 5);
          support::TypeFind(Dialog, "yesterday");
          QCOMPARE(Dialog.qryList_->RecordCount(), 5);
          support::ClickOK(Dialog);
        }));
    QCOMPARE(Joined(Boxes.Messages()), NoDate);
    QCOMPARE(Lines(List), QString("2"));
  }

  void shouldReportAQuoteInTheCustomerCode() {
    TSmallCompany Company;
    TStringList List;
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                             CallPickMultiOEDocs(Company.Connection(), "O'N", TDocType::dtOrder, {}, {}, &List));
    QCOMPARE(List.Count(), 0);
  }
};

QTEST_MAIN(tst_PickMultiOEDocs)
#include "tst_PickMultiOEDocs.moc"
