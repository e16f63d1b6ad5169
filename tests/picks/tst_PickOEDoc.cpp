// The pick of one order-entry document.
#include "picks/orders/uPickOEDoc.h"

#include <QTest>
#include <algorithm>

#include "OEDocQueries.h"
#include "zulcommon/Text.h"

using namespace orders;
using support::DrivePick;
using uPickOEDoc::CallPickOEDoc;
using uPickOEDoc::TfrmPickOEDoc;
using uPickOEDoc::TOEDocOption;
using uPickOEDoc::TOEDocOptions;
using zulcommon::TDocType;
using zulcommon::TDocTypes;

namespace {

const TDocTypes Orders = {TDocType::dtOrder};
constexpr auto Options = std::to_array<TOEDocOption>(
    {TOEDocOption::ooWastagePosted, TOEDocOption::ooInternal, TOEDocOption::ooStockTrans, TOEDocOption::ooPosted});

std::unique_ptr<TfrmPickOEDoc> Create(TTestCompany& Company, const std::string& Customer = {},
                                      const TDocTypes& Types = Orders, TOEDocOptions Required = {},
                                      TOEDocOptions Excluded = {}) {
  return TfrmPickOEDoc::Create(Company.Connection(), Customer, Types, Required, Excluded);
}

TOEDocOptions FromBits(unsigned Bits) {
  TOEDocOptions Result;
  for (const TOEDocOption Option : Options) {
    if ((Bits >> static_cast<unsigned>(Option) & 1U) != 0) Result.Include(Option);
  }
  return Result;
}

// The lines of the options that a set of bits holds.
QString OptionLines(unsigned Bits, const QString& Wanted) {
  static const QStringList Columns = {"O.StockReturned", "O.Internal", "O.StockTrans", "o.Posted"};
  QString Lines;
  for (int Bit = 0; Bit < 4; ++Bit) {
    if ((Bits >> Bit & 1U) != 0) Lines += " | AND " + Columns[Bit] + " = " + Wanted;
  }
  return Lines;
}

}  // namespace

class tst_PickOEDoc : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { UseAustralianFormats(); }

  void shouldHaveTheFieldsAndColumnsOfADocument() {
    const support::TNumberedTexts Texts;
    TSmallCompany Company;
    const auto Dialog = Create(Company);
    QCOMPARE(Fields(*Dialog), DocumentFields);
    QCOMPARE(Columns(*Dialog), DocumentGrid);
    QCOMPARE(WidthOf(*Dialog, Dialog->qryList_Posted), 16);
    QCOMPARE(Dialog->PickCaption, "T575");
    QCOMPARE(Dialog->AvailableCaption, "T94");
    QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QString("T3027 | T3147 | T3000 | T3001 | T3021 | T3002"));
    QCOMPARE(Joined(support::Items(*Dialog->rgOrderBy)), QString("T3027 | T3147 | T3000 | T3001 | T3021 | T3002"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 4);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 4);
  }

  void shouldOfferFiveChoicesForACustomer() {
    const support::TNumberedTexts Texts;
    TSmallCompany Company;
    const auto Dialog = Create(Company, "C1");
    QCOMPARE(Columns(*Dialog), DocumentGridOfCustomer);
    QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QString("T3147 | T3000 | T3001 | T3021 | T3002"));
    QCOMPARE(Joined(support::Items(*Dialog->rgOrderBy)), QString("T3147 | T3000 | T3001 | T3021 | T3002"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 3);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 3);
    QCOMPARE(
        SqlFor(*Dialog, 3, false, 4, "1/2/2024"),
        DocumentColumns + "UPPER(O.Number) SortFld | " + DocumentTables +
            " | WHERE 0=0 | AND O.Type IN ('O') | AND o.ID = 'C1' | AND O.[Date] = '2024-02-01' | ORDER BY SortFld");
  }

  void shouldAskLetterByLetter_data() {
    QTest::addColumn<QString>("Customer");
    QTest::addColumn<QString>("Filter");
    QTest::addColumn<bool>("WithCompany");
    QTest::newRow("all customers") << ""
                                   << " | AND O.Type IN ('O')" << true;
    QTest::newRow("one customer") << "C1"
                                  << " | AND O.Type IN ('O') | AND o.ID = 'C1'" << false;
    QTest::newRow("untrimmed") << " C1 "
                               << " | AND O.Type IN ('O') | AND o.ID = ' C1 '" << false;
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

  void shouldAddOneLineForEachOption() {
    TSmallCompany Company;
    for (unsigned Required = 0; Required < 16; ++Required) {
      for (unsigned Excluded = 0; Excluded < 16; ++Excluded) {
        const auto Dialog = Create(Company, {}, Orders, FromBits(Required), FromBits(Excluded));
        QCOMPARE(Sql(*Dialog), DocumentColumns + "UPPER(O.Number) SortFld | " + DocumentTables +
                                   " | WHERE 0=0 | AND O.Type IN ('O')" + OptionLines(Required, "TRUE") +
                                   OptionLines(Excluded, "FALSE") + " | ORDER BY SortFld");
      }
    }
  }

  void shouldKeepTheOrderOfTheOptionLines() {
    TSmallCompany Company;
    const auto Dialog =
        Create(Company, "C1", Orders, {TOEDocOption::ooPosted}, {TOEDocOption::ooStockTrans, TOEDocOption::ooInternal});
    QVERIFY(
        Sql(*Dialog).contains("AND o.ID = 'C1' | AND o.Posted = TRUE | AND O.Internal = FALSE | "
                              "AND O.StockTrans = FALSE | ORDER BY"));
  }

  void shouldListOnlyWhatTheOptionsAllow() {
    TSmallCompany Company;
    for (unsigned Bits = 0; Bits < 16; ++Bits) {
      TDocument Document{"O", QString::number(100 + Bits)};
      Document.StockReturned = (Bits & 1U) != 0;
      Document.Internal = (Bits & 2U) != 0;
      Document.StockTrans = (Bits & 4U) != 0;
      Document.Posted = (Bits & 8U) != 0;
      Add(Company, Document);
    }
    for (unsigned Required = 0; Required < 16; ++Required) {
      for (unsigned Excluded = 0; Excluded < 16; ++Excluded) {
        QStringList Expected;
        for (unsigned Bits = 0; Bits < 16; ++Bits) {
          if ((Bits & Required) == Required && (Bits & Excluded) == 0) Expected.append(QString::number(100 + Bits));
        }
        const auto Dialog = Create(Company, {}, Orders, FromBits(Required), FromBits(Excluded));
        QCOMPARE(Column(*Dialog, "Number"), Expected.join(" | "));
      }
    }
  }

  void shouldNameTheTypesInTheirOrder() {
    TSmallCompany Company;
    const auto Dialog = Create(Company, {}, {TDocType::dtGroupMember, TDocType::dtInvoice, TDocType::dtQuote});
    QVERIFY(Sql(*Dialog).contains(" | AND O.Type IN ('Q', 'I', 'M') | "));
  }

  void shouldListNothingWithoutTypes() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    const auto Dialog = Create(Company, {}, {});
    QVERIFY(Sql(*Dialog).contains(" | AND O.Type IN (NULL) | "));
    QVERIFY(Dialog->qryList_->IsEmpty());
    QVERIFY(!Dialog->actOK->isEnabled());
  }

  void shouldTakeBlanksForNoCustomerYetRemoveTheColumns() {
    const support::TNumberedTexts Texts;
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", "C2"});
    const auto Dialog = Create(Company, "   ");
    QCOMPARE(Column(*Dialog, "Number"), QString("1 | 2"));
    QVERIFY(!Sql(*Dialog).contains("o.ID ="));
    QCOMPARE(Dialog->rgFindBy->Items()[0], "T3027");
    QCOMPARE(Dialog->rgFindBy->Items().Count(), 6);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 4);
    QCOMPARE(Columns(*Dialog), DocumentGridOfCustomer);
  }

  void shouldListTheDocumentsOfOneCustomerOnly() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", "C2"});
    QCOMPARE(Column(*Create(Company, "C2"), "Number"), QString("2"));
    // The code is compared as it is.
    QVERIFY(Create(Company, " C2")->qryList_->IsEmpty());
  }

  void shouldLeaveOutDocumentsWithoutJobOrCustomer() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", Null()});
    Add(Company, {"O", "3", "C9"});
    Add(Company, {"O", "4", "C1", Null()});
    Add(Company, {"O", "5", "C1", ""});
    Add(Company, {"O", "6", "C1", "J9"});
    Add(Company, {"I", "7"});
    QCOMPARE(Column(*Create(Company), "Number"), QString("1"));
  }

  void shouldOpenInTheOrderOfTheNumber() {
    TSmallCompany Company;
    for (const char* Number : {"b2", "A3", "a1", "10", "9"}) Add(Company, {"O", Number});
    const auto Dialog = Create(Company);
    QCOMPARE(Column(*Dialog, "Number"), QString("10 | 9 | a1 | A3 | b2"));
    Dialog->ckbDesc->setChecked(true);
    QCOMPARE(Column(*Dialog, "Number"), QString("b2 | A3 | a1 | 9 | 10"));
  }

  void shouldOrderByTheDateItself() {
    TSmallCompany Company;
    Add(Company, {"O", "1", "C1", "J1", "2024-02-10"});
    Add(Company, {"O", "2", "C1", "J1", "2023-11-30"});
    Add(Company, {"O", "3", "C1", "J1", Null()});
    Add(Company, {"O", "4", "C1", "J1", "2024-10-02"});
    const auto Dialog = Create(Company);
    SqlFor(*Dialog, 5, true);
    QCOMPARE(Shown(*Dialog, "Date"), QString("02/10/2024 | 10/02/2024 | 30/11/2023 | "));
    SqlFor(*Dialog, 5, false);
    QCOMPARE(Column(*Dialog, "Number"), QString("3 | 2 | 1 | 4"));
  }

  void shouldOrderByTheUpperCasedTexts() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", "C2", "J2"});
    const auto Dialog = Create(Company);
    SqlFor(*Dialog, 0, false);
    QCOMPARE(Column(*Dialog, "Company"), QString("adams | Brown & Sons"));
    SqlFor(*Dialog, 3, true);
    QCOMPARE(Column(*Dialog, "Desc"), QString("Kitchen | bathroom"));
  }

  void shouldFindByEachChoice() {
    TSmallCompany Company;
    Add(Company, {"O", "O-77"});
    Add(Company, {"I", "I-88", "C2", "J2", "2024-02-01"});
    const auto Dialog = Create(Company, {}, {TDocType::dtOrder, TDocType::dtInvoice});
    const auto Found = [&](int FindBy, const QString& Text) {
      SqlFor(*Dialog, 4, false, FindBy, Text);
      return Column(*Dialog, "Number");
    };
    QCOMPARE(Found(0, "BROWN"), QString("O-77"));
    QCOMPARE(Found(0, "Adam"), QString("I-88"));
    QCOMPARE(Found(1, "i"), QString("I-88"));
    QCOMPARE(Found(2, "j1"), QString("O-77"));
    QCOMPARE(Found(3, " bath "), QString("I-88"));
    QCOMPARE(Found(4, "o-7"), QString("O-77"));
    QCOMPARE(Found(5, "1/2/24"), QString("I-88"));
    QCOMPARE(Found(5, "2/2/2024"), QString());
    QCOMPARE(Found(4, "zzz"), QString());
  }

  void shouldDoubleQuotesOfTheFindTextOnly() {
    TSmallCompany Company;
    const auto Dialog = Create(Company);
    QVERIFY(SqlFor(*Dialog, 0, false, 0, "o'neil").contains("AND UPPER(C.Company) LIKE '%O''NEIL%'"));
  }

  void shouldReportAQuoteInTheCustomerCode() {
    TSmallCompany Company;
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Create(Company, "O'N"));
    std::string DocNo = "before";
    TDocType DocType = TDocType::dtService;
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                             CallPickOEDoc(Company.Connection(), "O'N", Orders, {}, {}, DocNo, DocType));
    QCOMPARE(DocNo, "");
    QCOMPARE(DocType, TDocType::dtService);
  }

  void shouldShowTotalsInThePriceFormat_data() {
    QTest::addColumn<int>("Decimals");
    QTest::addColumn<QString>("Totals");
    QTest::newRow("two") << 2 << "1,358.02 | -11.00 |  | ";
    QTest::newRow("three") << 3 << "1,358.023 | -11.000 |  | ";
    QTest::newRow("none") << 0 << "1,358 | -11 |  | ";
  }
  void shouldShowTotalsInThePriceFormat() {
    QFETCH(int, Decimals);
    QFETCH(QString, Totals);
    TSmallCompany Company;
    Company.Execute("UPDATE Sys SET PrcDec = ?", {Decimals});
    Add(Company, {"O", "1", "C1", "J1", Null(), 1234.567, 123.456});
    Add(Company, {"O", "2", "C1", "J1", Null(), -10, -1});
    Add(Company, {"O", "3", "C1", "J1", Null(), Null(), 5});
    Add(Company, {"O", "4", "C1", "J1", Null(), 5, Null()});
    QCOMPARE(Shown(*Create(Company), "Total"), Totals);
  }

  void shouldShowTheWholeListWhenTheSearchFails() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", "C2"});
    const auto Dialog = Create(Company, "C1");
    const picks::TShortStatements Short(Company.Database(), ShortStatement);
    QCOMPARE(SqlFor(*Dialog, 1, true, 2, TooLong()),
             DocumentColumns + "UPPER(O.JobNo) SortFld\n" + DocumentTables +
                 "\nWHERE 0=0\nAND O.Type IN ('O')\nAND o.ID = 'C1' | ORDER BY SortFld DESC");
    QCOMPARE(Column(*Dialog, "Number"), QString("1"));
    QCOMPARE(Dialog->edFind->text(), TooLong());
  }

  void shouldReportWhatFailsWithoutAFindText() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    const auto Dialog = Create(Company);
    Company.Execute("DROP TABLE Jobs");
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
    QCOMPARE(Column(*Dialog, "Number"), QString("1"));
  }

  void shouldKeepTheListWhenTheDateIsWrong() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2"});
    const support::TErrorBoxes Boxes;
    std::string DocNo;
    TDocType DocType{};
    const bool Chosen = DrivePick([&] { return CallPickOEDoc(Company.Connection(), Orders, {}, {}, DocNo, DocType); },
                                  [&](TDocPickBase& Dialog) {
                                    support::ChooseFindBy(Dialog, 5);
                                    const QString Before = Sql(Dialog);
                                    support::TypeFind(Dialog, "31/2/2024");
                                    QCOMPARE(Sql(Dialog), Before);
                                    QCOMPARE(Column(Dialog, "Number"), QString("1 | 2"));
                                    QCOMPARE(Dialog.edFind->text(), QString("31/2/2024"));
                                    support::ClickOK(Dialog);
                                  });
    QCOMPARE(Joined(Boxes.Messages()), NoDate);
    QVERIFY(Chosen);
    QCOMPARE(DocNo, "1");
  }

  void shouldNotCheckTheDateUnderOtherChoices() {
    TSmallCompany Company;
    const auto Dialog = Create(Company);
    QVERIFY(SqlFor(*Dialog, 4, false, 4, "31/2/2024").contains("AND UPPER(O.Number) LIKE '%31/2/2024%'"));
    QCOMPARE(Failure<zulcommon::EZULException>([&] { SqlFor(*Dialog, 4, false, 5, "31/2/2024"); }), NoDate);
  }

  void shouldReturnTheNumberAndTheType() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"I", "2"});
    std::string DocNo = "before";
    TDocType DocType = TDocType::dtQuote;
    QVERIFY(DrivePick(
        [&] {
          return CallPickOEDoc(Company.Connection(), "C1", {TDocType::dtOrder, TDocType::dtInvoice}, {}, {}, DocNo,
                               DocType);
        },
        [](TDocPickBase& Dialog) { support::DoubleClickRow(Dialog, 1); }));
    QCOMPARE(DocNo, "2");
    QCOMPARE(DocType, TDocType::dtInvoice);
  }

  void shouldEmptyOnlyTheNumberWhenCancelled() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    std::string DocNo = "before";
    TDocType DocType = TDocType::dtService;
    QVERIFY(!DrivePick([&] { return CallPickOEDoc(Company.Connection(), "C1", Orders, {}, {}, DocNo, DocType); },
                       [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
    QCOMPARE(DocNo, "");
    QCOMPARE(DocType, TDocType::dtService);
    DocNo = "before";
    QVERIFY(!DrivePick([&] { return CallPickOEDoc(Company.Connection(), Orders, {}, {}, DocNo, DocType); },
                       [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
    QCOMPARE(DocNo, "");
  }

  void shouldTakeOneVariableForCustomerAndNumber() {
    TSmallCompany Company;
    Add(Company, {"O", "1"});
    Add(Company, {"O", "2", "C2"});
    std::string Both = "C2";
    TDocType DocType{};
    QVERIFY(DrivePick([&] { return CallPickOEDoc(Company.Connection(), Both, Orders, {}, {}, Both, DocType); },
                      [](TDocPickBase& Dialog) { support::ClickOK(Dialog); }));
    QCOMPARE(Both, "2");
  }

  void shouldAskForNoCustomerWithTheShorterCall() {
    TSmallCompany Company;
    std::string DocNo;
    TDocType DocType{};
    DrivePick(
        [&] {
          return CallPickOEDoc(Company.Connection(), Orders, {TOEDocOption::ooPosted}, {TOEDocOption::ooInternal},
                               DocNo, DocType);
        },
        [](TDocPickBase& Dialog) {
          QCOMPARE(Sql(Dialog), DocumentColumns + "UPPER(O.Number) SortFld | " + DocumentTables +
                                    " | WHERE 0=0 | AND O.Type IN ('O') | AND o.Posted = TRUE | "
                                    "AND O.Internal = FALSE | ORDER BY SortFld");
          QCOMPARE(Dialog.rgFindBy->Items().Count(), 6);
        });
  }

  void shouldPaintNothingWithoutAGrid() {
    TSmallCompany Company;
    Create(Company)->dbgAvailDrawColumnCell(nullptr, {}, 0, nullptr, {});
  }

  void shouldListWhatTheSampleCompanyHolds() {
    TTestCompany Company;
    const auto Dialog = Create(Company, {}, {TDocType::dtOrder, TDocType::dtInvoice}, {TOEDocOption::ooPosted},
                               {TOEDocOption::ooInternal, TOEDocOption::ooStockTrans});
    std::vector<std::string> Expected = Company.Texts(
        "SELECT o.Number FROM OE o JOIN Cust c ON c.ID = o.ID JOIN Jobs j ON j.JobNo = o.JobNo WHERE o.Type IN ('O', "
        "'I') AND o.Posted = 1 AND o.Internal = 0 AND o.StockTrans = 0");
    std::sort(Expected.begin(), Expected.end());
    QVERIFY(Expected.size() > 50);
    QCOMPARE(Joined(support::Column(*Dialog, "Number")), Joined(Expected));
  }
};

QTEST_MAIN(tst_PickOEDoc)
#include "tst_PickOEDoc.moc"
