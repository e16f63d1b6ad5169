// The picks of purchase orders of one kind, and of customers and documents that have some, through the functions that
// return their keys.
#include <QGroupBox>
#include <QTest>
#include <set>

#include "ads/EDatabaseError.h"
#include "picks/PurchaseOrders.h"
#include "picks/purchasing/uCustWithPO.h"
#include "picks/purchasing/uOEDocWithPO.h"
#include "picks/purchasing/uPickCustPO.h"
#include "picks/purchasing/uPickMultiPO.h"
#include "picks/purchasing/uPickPurchaseOrders.h"
#include "picks/purchasing/uPickStockPO.h"
#include "support/NumberedTexts.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

using namespace purchasing;
using namespace uPickPurchaseOrders;
using ads::TFieldType;
using picks::Joined;
using picks::SqlFor;
using support::TNumberedTexts;
using support::TTestCompany;
using toolkit::TAlignment;
using uCustWithPO::TfrmPickCustWithPO;
using uDocPickBase::TDocPickBase;
using uOEDocWithPO::TfrmPickOEDocWithPO;
using uPickCustPO::TfrmPickCustPO;
using uPickMultiPO::TfrmPickMultiPO;
using uPickStockPO::TfrmPickStockPO;

namespace {

constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;

// Ends of find lines for the typed date.
const QString Like = QStringLiteral(" LIKE '%12/03/2024%'");
const QString IsDate = QStringLiteral(" = '2024-03-12'");

struct TCustKeys {
  std::string CustID;
  std::string PONumber;
  std::string POType;
};

std::unique_ptr<TfrmPickCustPO> CustPO(TTestCompany& Company, const TCustKeys& Keys, const TStatePair& States = {}) {
  return TfrmPickCustPO::Create(Company.Connection(), States.Required, States.Excluded, Keys.CustID, Keys.PONumber,
                                Keys.POType);
}

std::unique_ptr<TfrmPickOEDocWithPO> OEDoc(TTestCompany& Company, const std::string& CustID,
                                           const TStatePair& States = {}) {
  return TfrmPickOEDocWithPO::Create(Company.Connection(), States.Required, States.Excluded, CustID);
}

// The SQL of the customer purchase-order pick with its first `Count` choices.
picks::TSqlParts CustSql(int Count, const QString& From) {
  const QString Select =
      R"(SELECT I.Number, I."Date", V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.RMA, )";
  const QStringList Sorts{"UPPER(I.Number) SortFld",   R"(I."Date" SortFld)",     "UPPER(V.Company) SortFld",
                          "UPPER(I.PONumber) SortFld", "UPPER(I.POType) SortFld", "UPPER(C.Company) SortFld"};
  const QStringList Finds{"AND UPPER(I.Number)" + Like,   R"(AND I."Date")" + IsDate,   "AND UPPER(V.Company)" + Like,
                          "AND UPPER(I.PONumber)" + Like, "AND UPPER(I.POType)" + Like, "AND UPPER(C.Company)" + Like};
  picks::TSqlParts Parts{{}, From, TypedDate, Finds.mid(0, Count)};
  for (int Index = 0; Index < Count; ++Index) Parts.Selects.append(Select + Sorts[Index]);
  return Parts;
}

// The SQL of the document pick, from its choice `First` on.
picks::TSqlParts DocSql(int First, const QString& From) {
  const QString Select = R"(SELECT DISTINCT O.ID, C.Company, O.Number, O.Type, O.SalesMan, O."Date", )";
  const QStringList Columns{"UPPER(O.ID)",   "UPPER(C.Company)",  "UPPER(O.Number)",
                            "UPPER(O.Type)", "UPPER(O.SalesMan)", R"(O."Date")"};
  picks::TSqlParts Parts{{}, From, TypedDate, {}};
  for (int Index = First; Index < 6; ++Index) {
    Parts.Selects.append(Select + Columns[Index] + " SortFld");
    Parts.Finds.append("AND " + Columns[Index] + (Index == 5 ? IsDate : Like));
  }
  return Parts;
}

picks::TSqlParts KindSql(const QString& From) {
  const QString Select = R"(SELECT I.Number, I."Date", V.Company, )";
  return {{Select + "UPPER(I.Number) SortFld", Select + R"(I."Date" SortFld)", Select + "UPPER(V.Company) SortFld"},
          From,
          TypedDate,
          {"AND UPPER(I.Number)" + Like, R"(AND I."Date")" + IsDate, "AND UPPER(V.Company)" + Like}};
}

const TLines CustFrom{"FROM (IP I INNER JOIN Vend V ON (I.ID = V.ID)) INNER JOIN Cust C ON C.ID = I.CustID",
                      "WHERE (I.Type = 'P')"};
const TLines DocFrom{"FROM OE O INNER JOIN IP I ON O.Number = I.PONumber INNER JOIN Cust C ON O.ID = C.ID",
                     "WHERE O.Type IN ('I', 'O')", "AND I.Type = 'P'"};

const QString CustColumns = QStringLiteral("Number | RMA | Date | VendCompany | PONumber | POType | CustCompany");

QString Choices(const TDocPickBase& Dialog) {
  const QString Items = Joined(support::Items(*Dialog.rgFindBy));
  return Items == Joined(support::Items(*Dialog.rgOrderBy)) ? Items : QStringLiteral("they differ");
}

void CompareDefault(const TDocPickBase& Dialog, int Index) {
  QCOMPARE(Dialog.rgFindBy->ItemIndex(), Index);
  QCOMPARE(Dialog.rgOrderBy->ItemIndex(), Index);
  QVERIFY(!Dialog.ckbDesc->isChecked());
}

void CompareCaptions(const TDocPickBase& Dialog, const std::string& Caption, const QString& Available) {
  QCOMPARE(Dialog.Caption(), Caption);
  QCOMPARE(Dialog.gbList->title(), Available);
  QCOMPARE(Dialog.dbgAvail->accessibleName(), Available);
}

// Orders of all kinds, with and without vendor, customer and document.
void AddOrders(TTestCompany& Company) {
  AddParties(Company);
  Company.Execute(
      "INSERT INTO OE (Type, Number, ID, SalesMan, \"Date\") VALUES ('I', '100', 'C1', 'Ann', '2024-01-01'), "
      "('O', '100', 'C2', 'bob', '2024-01-02'), ('Q', '100', 'C1', 'Cy', '2024-01-03'), "
      "('O', '200', 'C2', 'Dee', '2024-01-04'), ('I', '300', 'C9', 'Eve', '2024-01-05'), "
      "('I', '400', 'C1', 'Flo', '2024-01-06')");
  const auto Add = [&](const char* Number, const QVariant& Type, const QVariant& CustID, const QVariant& Document,
                       const QVariant& DocType, bool Posted) {
    AddOrder(Company, {{"Number", Number},
                       {"Type", Type},
                       {"CustID", CustID},
                       {"PONumber", Document},
                       {"POType", DocType},
                       {"Posted", Posted},
                       {"RMA", Posted},
                       {"Date", QStringLiteral("2024-02-0%1").arg(Number)}});
  };
  Add("1", "P", "C1", "100", "I", true);
  Add("2", "P", "C2", "100", "O", false);
  Add("3", "P", "C2", "200", "O", true);
  Add("4", "P", QVariant(), "200", "O", true);
  Add("5", "M", QVariant(), QVariant(), QVariant(), true);
  Add("6", QVariant(), QVariant(), QVariant(), QVariant(), false);
  Add("7", QVariant(), "C1", "400", "I", true);
  Add("8", "", QVariant(), QVariant(), QVariant(), true);
  Company.Execute("UPDATE IP SET ID = 'V2' WHERE Number = '7'");
  AddOrder(Company, {{"Number", "9"}, {"Type", "P"}, {"CustID", "C1"}, {"ID", "V9"}, {"PONumber", "300"}});
}

TLines Numbers(const std::unique_ptr<TfrmPickCustPO>& Dialog) {
  SqlFor(*Dialog, 0, false);
  return support::Column(*Dialog, "Number");
}

}  // namespace

class tst_PickPOVariants : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase() { toolkit::SetShortDateFormat(DatePattern); }

  // The customer purchase order.
  void shouldCaptionTheCustomerPurchaseOrders();
  void shouldDeclareTheFieldsOfCustomerOrders();
  void shouldLayOutCustomerOrdersWithoutKeys();
  void shouldLayOutCustomerOrdersByTheirKeys_data();
  void shouldLayOutCustomerOrdersByTheirKeys();
  void shouldBuildTheSqlOfCustomerOrdersLetterByLetter();
  void shouldAddNoLineForAChoiceThatCustomerOrdersDoNotOffer_data();
  void shouldAddNoLineForAChoiceThatCustomerOrdersDoNotOffer();
  void shouldPutTheKeysInAsTheyAre();
  void shouldListTheCustomerOrdersOfTheKeys();
  void shouldPaintTheReturnsAsTicks();

  // The customer with purchase orders.
  void shouldShowTheCustomersWithOrders();
  void shouldBuildTheSqlOfCustomersLetterByLetter();
  void shouldListACustomerWithSeveralOrdersOnce();
  void shouldAcceptAnyTextAmongTheCustomers();

  // The document with purchase orders.
  void shouldShowTheDocumentsWithOrders();
  void shouldHideTheCustomerThatTheHostKnows();
  void shouldBuildTheSqlOfDocumentsLetterByLetter();
  void shouldListTheDocumentsOfAllCustomers();
  void shouldMatchDocumentsByNumberAlone();

  // Orders for stock and for several documents.
  void shouldShowTheOrdersOfOneKind();
  void shouldBuildTheSqlOfOneKindLetterByLetter();
  void shouldListOnlyTheKind();

  // All of them.
  void shouldReturnTheKeyThatWasChosen();
  void shouldReturnEmptyKeysWhenNothingIsChosen();
  void shouldKeepTheListWhenTheDateIsWrong();
  void shouldShowTheServersErrorOverTheUnchangedList();
  void shouldRaiseTheServersErrorToTheCaller();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
};

void tst_PickPOVariants::shouldCaptionTheCustomerPurchaseOrders() {
  TTestCompany Company;
  const auto Dialog = CustPO(Company, {});
  CompareCaptions(*Dialog, "Select Customer Purchase Order", "Available Customer Purchase Orders");
  QCOMPARE(Dialog->PickCaption, std::string("Customer Purchase Order"));
}

void tst_PickPOVariants::shouldDeclareTheFieldsOfCustomerOrders() {
  TTestCompany Company;
  CompareFields(*CustPO(Company, {}), {{"Number", TFieldType::ftString, 10},
                                       {"Date", TFieldType::ftDate},
                                       {"VendCompany", TFieldType::ftString, 35},
                                       {"PONumber", TFieldType::ftString, 8},
                                       {"POType", TFieldType::ftString, 1},
                                       {"CustCompany", TFieldType::ftString, 35},
                                       {"RMA", TFieldType::ftBoolean}});
}

void tst_PickPOVariants::shouldLayOutCustomerOrdersWithoutKeys() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  CompareColumns(*CustPO(Company, {}), {{"Number", "T3035", 55, Right, Right},
                                        {"RMA", "R", 16, Centre, Centre},
                                        {"Date", "T3002", 0, Centre, Centre},
                                        {"VendCompany", "T3069", 150},
                                        {"PONumber", "T3021", 55, Right, Right},
                                        {"POType", "T3147", 18, Centre, Centre},
                                        {"CustCompany", "T3027", 150}});
}

void tst_PickPOVariants::shouldLayOutCustomerOrdersByTheirKeys_data() {
  QTest::addColumn<QString>("CustID");
  QTest::addColumn<QString>("PONumber");
  QTest::addColumn<QString>("POType");
  QTest::addColumn<QString>("Columns");
  QTest::addColumn<QString>("Offered");
  QTest::addColumn<int>("Default");
  const QString NoCustomer = QStringLiteral("Number | RMA | Date | VendCompany | PONumber | POType");
  const QString NoDocument = QStringLiteral("Number | RMA | Date | VendCompany");
  const QString First = QStringLiteral("T3035 | T3002 | T3069");
  QTest::newRow("neither") << ""
                           << ""
                           << "" << CustColumns << First + " | T3021 | T3147 | T3027" << 5;
  QTest::newRow("blanks") << "  "
                          << "\t"
                          << " " << CustColumns << First + " | T3021 | T3147 | T3027" << 5;
  QTest::newRow("type alone") << ""
                              << ""
                              << "I" << CustColumns << First + " | T3021 | T3147 | T3027" << 5;
  QTest::newRow("customer") << "C1"
                            << ""
                            << "" << NoCustomer << First + " | T3021 | T3147" << 3;
  QTest::newRow("customer and type") << " C1"
                                     << " "
                                     << "I" << NoCustomer << First + " | T3021 | T3147" << 3;
  QTest::newRow("document") << ""
                            << "100"
                            << "I" << NoDocument << First << 2;
  QTest::newRow("document without type") << ""
                                         << "100"
                                         << " " << NoDocument << First << 2;
  QTest::newRow("customer and document") << "C1"
                                         << "100"
                                         << "I" << NoDocument << First << 2;
}

void tst_PickPOVariants::shouldLayOutCustomerOrdersByTheirKeys() {
  QFETCH(QString, CustID);
  QFETCH(QString, PONumber);
  QFETCH(QString, POType);
  TTestCompany Company;
  const TNumberedTexts Texts;
  const auto Dialog = CustPO(Company, {CustID.toStdString(), PONumber.toStdString(), POType.toStdString()});
  QTEST(Joined(support::ColumnNames(*Dialog)), "Columns");
  QTEST(Choices(*Dialog), "Offered");
  QTEST(Dialog->rgFindBy->ItemIndex(), "Default");
  QTEST(Dialog->rgOrderBy->ItemIndex(), "Default");
  QCOMPARE(Dialog->dbgAvail->maximumViewportSize().width(), Dialog->dbgAvail->ColumnsWidth());
}

void tst_PickPOVariants::shouldBuildTheSqlOfCustomerOrdersLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  const TLines Customer{"AND I.CustID = 'C1'"};
  const TLines Document{"AND I.PONumber = '100'", "AND I.POType = 'I'"};
  const TLines Both{Customer[0], Document[0], Document[1]};
  const auto Compare = [&](const TCustKeys& Keys, int Count, const TLines& Lines) {
    CompareSqlInStates([&](const TStatePair& States) { return CustPO(Company, Keys, States); },
                       [&](const TStatePair& States) { return CustSql(Count, FromLines(CustFrom, States, Lines)); });
  };
  Compare({}, 6, {});
  Compare({" ", "", "I"}, 6, {});
  Compare({"C1", " ", "I"}, 5, Customer);
  Compare({"", "100", "I"}, 3, Document);
  Compare({"", "100", " "}, 3, {});
  Compare({"C1", "100", ""}, 3, Customer);
  Compare({"C1", "100", "I"}, 3, Both);
}

void tst_PickPOVariants::shouldAddNoLineForAChoiceThatCustomerOrdersDoNotOffer_data() {
  QTest::addColumn<QString>("CustID");
  QTest::addColumn<QString>("PONumber");
  QTest::addColumn<int>("Offered");
  QTest::newRow("no keys") << ""
                           << "" << 6;
  QTest::newRow("a customer") << "C1"
                              << "" << 5;
  QTest::newRow("a document") << ""
                              << "100" << 3;
}

// What the keys take away from the choices cannot be asked for by its position either.
void tst_PickPOVariants::shouldAddNoLineForAChoiceThatCustomerOrdersDoNotOffer() {
  QFETCH(QString, CustID);
  QFETCH(QString, PONumber);
  QFETCH(int, Offered);
  TTestCompany Company(TTestCompany::TRows::None);
  const auto Dialog = CustPO(Company, {CustID.toStdString(), PONumber.toStdString(), ""});
  QCOMPARE(Dialog->rgOrderBy->Items().Count(), Offered);
  for (toolkit::TRadioGroup* Group : {Dialog->rgFindBy, Dialog->rgOrderBy}) {
    while (Group->Items().Count() < 8) Group->Items().Add("More");
  }
  const QString Plain = SqlFor(*Dialog, 0, false);
  const QString WithoutSelect = Plain.mid(Plain.indexOf("FROM "));
  for (int Index = Offered; Index < 8; ++Index) {
    QCOMPARE(SqlFor(*Dialog, 0, false, Index, "x"), Plain);
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, SqlFor(*Dialog, Index, false));
    QCOMPARE(picks::Joined(support::SqlLines(*Dialog)), WithoutSelect);
  }
}

void tst_PickPOVariants::shouldPutTheKeysInAsTheyAre() {
  TTestCompany Company(TTestCompany::TRows::None);
  const auto Dialog = CustPO(Company, {" C'' 1", "100 ", " i"});
  QCOMPARE(support::SqlLines(*Dialog)[3], std::string("AND I.CustID = ' C'' 1'"));
  QCOMPARE(support::SqlLines(*Dialog)[4], std::string("AND I.PONumber = '100 '"));
  QCOMPARE(support::SqlLines(*Dialog)[5], std::string("AND I.POType = ' i'"));
  SqlFor(*Dialog, 0, false, 2, " o'n ");
  QCOMPARE(support::SqlLines(*Dialog)[6], std::string("AND UPPER(V.Company) LIKE '%O''N%'"));
}

void tst_PickPOVariants::shouldListTheCustomerOrdersOfTheKeys() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddOrders(Company);
  QCOMPARE(Numbers(CustPO(Company, {})), (TLines{"1", "2", "3"}));
  QCOMPARE(Numbers(CustPO(Company, {"C2", "", ""})), (TLines{"2", "3"}));
  QCOMPARE(Numbers(CustPO(Company, {"", "100", "O"})), (TLines{"2"}));
  QCOMPARE(Numbers(CustPO(Company, {"", "100", ""})), (TLines{"1", "2", "3"}));
  QCOMPARE(Numbers(CustPO(Company, {"C1", "100", "O"})), TLines{});
  QCOMPARE(Numbers(CustPO(Company, {"C1", "100", "I"})), TLines{"1"});
  QCOMPARE(Numbers(CustPO(Company, {" C1", "", ""})), TLines{});
  QCOMPARE(Numbers(CustPO(Company, {}, {{TPOState::poPosted}, {}})), (TLines{"1", "3"}));
  QCOMPARE(Numbers(CustPO(Company, {}, {{}, {TPOState::poPosted}})), TLines{"2"});
}

void tst_PickPOVariants::shouldPaintTheReturnsAsTicks() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddOrders(Company);
  std::string Number;
  support::DrivePickAs<TfrmPickCustPO>(
      [&] {
        Number = CallPickCustPO(Company.Connection(), {}, {}, "C2", "", "");
        return !Number.empty();
      },
      [](TfrmPickCustPO& Dialog) {
        support::ChooseOrderBy(Dialog, 0);
        Dialog.qryList_->Last();
        const QRgb Background = Dialog.dbgAvail->palette().color(QPalette::Base).rgb();
        QImage Plain(16, 17, QImage::Format_RGB32);
        Plain.fill(Background);
        // The first is none, the second is one.
        QCOMPARE(CellImage(Dialog, 0, Dialog.qryList_RMA), Plain);
        QVERIFY(CellImage(Dialog, 1, Dialog.qryList_RMA) != Plain);
        Dialog.qryList_->First();
        QVERIFY(CellImage(Dialog, 1, Dialog.qryList_RMA) != Plain);
      });
}

void tst_PickPOVariants::shouldShowTheCustomersWithOrders() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  const auto Dialog = TfrmPickCustWithPO::Create(Company.Connection(), {}, {});
  CompareCaptions(*Dialog, "Select Customer", "Available Customers");
  QCOMPARE(Dialog->PickCaption, std::string());
  CompareFields(*Dialog, {{"CustID", TFieldType::ftString, 6},
                          {"Company", TFieldType::ftString, 35},
                          {"Addr1", TFieldType::ftString, 35},
                          {"Phone", TFieldType::ftString, 15}});
  CompareColumns(*Dialog, {{"CustID", "T3026", 45, Right, Right},
                           {"Company", "T3027", 130},
                           {"Addr1", "T3043", 130},
                           {"Phone", "T3045", 91}});
  QCOMPARE(Choices(*Dialog), QStringLiteral("T3026 | T3027 | T3043 | T3045"));
  CompareDefault(*Dialog, 1);
}

void tst_PickPOVariants::shouldBuildTheSqlOfCustomersLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  const QString Select = QStringLiteral("SELECT DISTINCT I.CustID, C.Company, C.Addr1, C.Phone, ");
  const TLines From{"FROM IP I INNER JOIN Cust C ON (I.CustID = C.ID)", "WHERE I.Type = 'P'"};
  CompareSqlInStates(
      [&](const TStatePair& States) {
        return TfrmPickCustWithPO::Create(Company.Connection(), States.Required, States.Excluded);
      },
      [&](const TStatePair& States) -> picks::TSqlParts {
        return {{Select + "UPPER(I.CustID) SortFld", Select + "UPPER(C.Company) SortFld",
                 Select + "UPPER(C.Addr1) SortFld", Select + "UPPER(C.Phone) SortFld"},
                FromLines(From, States),
                TypedDate,
                {"AND UPPER(I.CustID)" + Like, "AND UPPER(C.Company)" + Like, "AND UPPER(C.Addr1)" + Like,
                 "AND UPPER(C.Phone)" + Like}};
      });
}

void tst_PickPOVariants::shouldListACustomerWithSeveralOrdersOnce() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddOrders(Company);
  const auto IDs = [&](TPOStates Required, TPOStates Excluded) {
    return support::Column(*TfrmPickCustWithPO::Create(Company.Connection(), Required, Excluded), "CustID");
  };
  QCOMPARE(IDs({}, {}), (TLines{"C1", "C2"}));
  QCOMPARE(IDs({TPOState::poUnposted}, {}), TLines{"C2"});
  QCOMPARE(IDs({TPOState::poPosted, TPOState::poUnposted}, {}), TLines{});
}

void tst_PickPOVariants::shouldAcceptAnyTextAmongTheCustomers() {
  TTestCompany Company;
  const auto Dialog = TfrmPickCustWithPO::Create(Company.Connection(), {}, {});
  for (int FindBy = 0; FindBy < 4; ++FindBy) {
    SqlFor(*Dialog, 0, false, FindBy, "no date at all");
    QVERIFY(Dialog->qryList_->IsEmpty());
  }
}

void tst_PickPOVariants::shouldShowTheDocumentsWithOrders() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  const auto Dialog = OEDoc(Company, " ");
  CompareCaptions(*Dialog, "Select Order Entry Document", "Available Order Entry Documents");
  CompareFields(*Dialog, {{"ID", TFieldType::ftString, 6},
                          {"Company", TFieldType::ftString, 35},
                          {"Number", TFieldType::ftString, 8},
                          {"Type", TFieldType::ftString, 1},
                          {"SalesMan", TFieldType::ftString, 30},
                          {"Date", TFieldType::ftDate}});
  CompareColumns(*Dialog, {{"ID", "T3026", 45, Right, Right},
                           {"Company", "T3027", 150},
                           {"Number", "T3021", 60, Right, Right},
                           {"Type", "T3147", 18, Centre, Centre},
                           {"SalesMan", "T3082", 150},
                           {"Date", "T3002", 0, Centre, Centre}});
  QCOMPARE(Choices(*Dialog), QStringLiteral("T3026 | T3027 | T3021 | T3022 | T3025 | T3002"));
  CompareDefault(*Dialog, 1);
}

void tst_PickPOVariants::shouldHideTheCustomerThatTheHostKnows() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  const auto Dialog = OEDoc(Company, "C1");
  QCOMPARE(Joined(support::ColumnNames(*Dialog)), QStringLiteral("Number | Type | SalesMan | Date"));
  QCOMPARE(Choices(*Dialog), QStringLiteral("T3021 | T3022 | T3025 | T3002"));
  CompareDefault(*Dialog, 0);
  QCOMPARE(Dialog->dbgAvail->maximumViewportSize().width(), Dialog->dbgAvail->ColumnsWidth());
}

void tst_PickPOVariants::shouldBuildTheSqlOfDocumentsLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  const auto Compare = [&](const char* CustID, int First) {
    CompareSqlInStates([&](const TStatePair& States) { return OEDoc(Company, CustID, States); },
                       [&](const TStatePair& States) { return DocSql(First, FromLines(DocFrom, States)); });
  };
  Compare("", 0);
  Compare(" \t", 0);
  Compare("C1", 2);
  // The code is in no query, so it can break none.
  Compare("O'N", 2);
}

void tst_PickPOVariants::shouldListTheDocumentsOfAllCustomers() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddOrders(Company);
  for (const char* CustID : {"", "C1", "C2", "C9"}) {
    const auto Dialog = OEDoc(Company, CustID);
    const bool Given = *CustID != 0;
    SqlFor(*Dialog, Given ? 2 : 4, false);
    QCOMPARE(support::Column(*Dialog, "SalesMan"), (TLines{"Ann", "bob", "Dee"}));
    QCOMPARE(support::Column(*Dialog, "ID"), (TLines{"C1", "C2", "C2"}));
  }
}

// Two orders have document 100, one for the invoice and one for the order: each document is there once, whatever the
// order's own type of document says. Quotes are not.
void tst_PickPOVariants::shouldMatchDocumentsByNumberAlone() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddOrders(Company);
  Company.Execute("DELETE FROM IP WHERE Number IN ('2', '3', '4')");
  const auto Dialog = OEDoc(Company, "");
  QCOMPARE(support::Column(*Dialog, "Type"), (TLines{"I", "O"}));
  QCOMPARE(support::Column(*Dialog, "Number"), (TLines{"100", "100"}));
  QVERIFY(OEDoc(Company, "", {{TPOState::poUnposted}, {}})->qryList_->IsEmpty());
  Dialog->qryList_->Last();
  QCOMPARE(Dialog->GetOEDoc().DocType, std::string("O"));
  QCOMPARE(Dialog->GetOEDoc().DocNumber, std::string("100"));
}

void tst_PickPOVariants::shouldShowTheOrdersOfOneKind() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  const auto Stock = TfrmPickStockPO::Create(Company.Connection(), {}, {});
  const auto Multi = TfrmPickMultiPO::Create(Company.Connection(), {}, {});
  CompareCaptions(*Stock, "Select Stock Purchase Order", "Available Stock Purchase Orders");
  CompareCaptions(*Multi, "Select Multi. Order Purchase Order", "Available Multi. Order Purchase Orders");
  for (const TDocPickBase* Dialog :
       {static_cast<TDocPickBase*>(Stock.get()), static_cast<TDocPickBase*>(Multi.get())}) {
    CompareFields(
        *Dialog,
        {{"Number", TFieldType::ftString, 10}, {"Date", TFieldType::ftDate}, {"Company", TFieldType::ftString, 35}});
    CompareColumns(
        *Dialog,
        {{"Number", "T3035", 55, Right, Right}, {"Date", "T3002", 0, Centre, Centre}, {"Company", "T3016", 150}});
    QCOMPARE(Choices(*Dialog), QStringLiteral("T3035 | T3002 | T3016"));
    CompareDefault(*Dialog, 2);
    QCOMPARE(Dialog->PickCaption, std::string());
  }
}

void tst_PickPOVariants::shouldBuildTheSqlOfOneKindLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  const std::string From = "FROM IP I INNER JOIN Vend V ON (I.ID = V.ID)";
  CompareSqlInStates(
      [&](const TStatePair& States) {
        return TfrmPickStockPO::Create(Company.Connection(), States.Required, States.Excluded);
      },
      [&](const TStatePair& States) {
        return KindSql(FromLines({From, "WHERE (I.Type IS NULL)"}, States));
      });
  CompareSqlInStates(
      [&](const TStatePair& States) {
        return TfrmPickMultiPO::Create(Company.Connection(), States.Required, States.Excluded);
      },
      [&](const TStatePair& States) {
        return KindSql(FromLines({From, "WHERE (I.Type = 'M')"}, States));
      });
}

void tst_PickPOVariants::shouldListOnlyTheKind() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddOrders(Company);
  const auto Stock = TfrmPickStockPO::Create(Company.Connection(), {}, {});
  // By vendor: "acme" before "Zenith".
  QCOMPARE(support::Column(*Stock, "Number"), (TLines{"7", "6"}));
  QCOMPARE(support::Column(*Stock, "Company"), (TLines{"acme", "Zenith"}));
  const auto Multi = TfrmPickMultiPO::Create(Company.Connection(), {}, {});
  QCOMPARE(support::Column(*Multi, "Number"), TLines{"5"});
  const auto Posted = TfrmPickStockPO::Create(Company.Connection(), {TPOState::poPosted}, {});
  QCOMPARE(support::Column(*Posted, "Number"), TLines{"7"});
  SqlFor(*Stock, 0, false, 1, "6/2/2024");
  QCOMPARE(support::Column(*Stock, "Number"), TLines{"6"});
}

void tst_PickPOVariants::shouldReturnTheKeyThatWasChosen() {
  TTestCompany Company;
  std::string Key;
  std::string Expected;
  const auto Pick = [&](const char* Shot, const std::function<std::string()>& Call,
                        const std::function<std::string(TDocPickBase&)>& Read) {
    return support::DrivePick(
        [&] {
          Key = Call();
          return !Key.empty();
        },
        [&](TDocPickBase& Dialog) {
          SaveShot(Dialog, Shot);
          Dialog.dbgAvail->setFocus();
          QTest::keyClick(Dialog.dbgAvail, Qt::Key_Down);
          Expected = Read(Dialog);
          support::ClickOK(Dialog);
        });
  };
  const auto Second = [](const char* Field) {
    return [Field](TDocPickBase& Dialog) { return support::Column(Dialog, Field)[1]; };
  };
  ads::TAdsConnection* Connection = Company.Connection();
  QVERIFY(Pick(
      "customer-po", [&] { return CallPickCustPO(Connection, {}, {}, "", "", ""); }, Second("Number")));
  QCOMPARE(Key, Expected);
  QVERIFY(Pick(
      "stock-po", [&] { return CallPickStockPO(Connection, {}, {}); }, Second("Number")));
  QCOMPARE(Key, Expected);
  QVERIFY(Pick(
      "po-customer", [&] { return CallPickCust(Connection, {}, {}); }, Second("CustID")));
  QCOMPARE(Key, Expected);
  QVERIFY(Pick(
      "multi-po", [&] { return CallPickMultiPO(Connection, {}, {}); }, Second("Number")));
  QCOMPARE(Key, Expected);
  uPickListTypes::TOEDoc Doc;
  const auto PickDoc = [&](const char* CustID) {
    Doc = CallOEDocWithPOPick(Connection, {}, {}, CustID);
    return Doc.DocNumber;
  };
  for (const char* CustID : {"", "C00001"}) {
    std::string Type;
    QVERIFY(Pick(
        *CustID == 0 ? "po-document" : "po-document-customer", [&] { return PickDoc(CustID); },
        [&](TDocPickBase& Dialog) {
          Type = support::Column(Dialog, "Type")[1];
          return support::Column(Dialog, "Number")[1];
        }));
    QCOMPARE(Doc.DocNumber, Expected);
    QCOMPARE(Doc.DocType, Type);
    QVERIFY(Type == "I" || Type == "O");
  }
}

void tst_PickPOVariants::shouldReturnEmptyKeysWhenNothingIsChosen() {
  TTestCompany Company;
  ads::TAdsConnection* Connection = Company.Connection();
  const std::vector<std::function<std::string()>> Calls{
      [&] { return CallPickCustPO(Connection, {}, {}, "", "1", "I"); },
      [&] { return CallPickStockPO(Connection, {}, {}); },
      [&] { return CallPickCust(Connection, {}, {}); },
      [&] { return CallPickMultiPO(Connection, {}, {}); },
      [&] {
        const uPickListTypes::TOEDoc Doc = CallOEDocWithPOPick(Connection, {}, {}, "");
        return Doc.DocType + Doc.DocNumber;
      },
  };
  for (const auto& Call : Calls) {
    QVERIFY(!support::DrivePick([&] { return !Call().empty(); },
                                [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); }));
  }
}

void tst_PickPOVariants::shouldKeepTheListWhenTheDateIsWrong() {
  TTestCompany Company;
  ads::TAdsConnection* Connection = Company.Connection();
  const auto Check = [](TDocPickBase& Dialog, int DateIndex) {
    const TLines Sql = support::SqlLines(Dialog);
    const int Rows = Dialog.qryList_->RecordCount();
    QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, SqlFor(Dialog, 0, false, DateIndex, "32/01/2024"));
    QCOMPARE(support::SqlLines(Dialog), Sql);
    QCOMPARE(Dialog.qryList_->RecordCount(), Rows);
    SqlFor(Dialog, 0, false, DateIndex, "  ");
    QCOMPARE(Dialog.qryList_->RecordCount(), Rows);
  };
  Check(*CustPO(Company, {}), 1);
  Check(*CustPO(Company, {"", "100", "I"}), 1);
  Check(*TfrmPickStockPO::Create(Connection, {}, {}), 1);
  Check(*TfrmPickMultiPO::Create(Connection, {}, {}), 1);
  Check(*OEDoc(Company, ""), 5);
  Check(*OEDoc(Company, "C1"), 3);

  const support::TErrorBoxes Boxes;
  support::DrivePick([&] { return !CallPickStockPO(Connection, {}, {}).empty(); },
                     [](TDocPickBase& Dialog) {
                       const TLines Rows = support::Column(Dialog, "Number");
                       support::ChooseFindBy(Dialog, 1);
                       support::TypeFind(Dialog, "2024-01-01");
                       QCOMPARE(support::Column(Dialog, "Number"), Rows);
                       QCOMPARE(Dialog.edFind->text(), QStringLiteral("2024-01-01"));
                     });
  QCOMPARE(Boxes.Messages(), TLines{"The find text is not a valid date. Please type it as DD/MM/YYYY."});
}

void tst_PickPOVariants::shouldShowTheServersErrorOverTheUnchangedList() {
  ads::TAdsConnection* Connection = nullptr;
  const std::vector<std::function<std::string()>> Calls{
      [&] { return CallPickCustPO(Connection, {}, {}, "", "", ""); },
      [&] { return CallPickStockPO(Connection, {}, {}); },
      [&] { return CallPickCust(Connection, {}, {}); },
      [&] { return CallPickMultiPO(Connection, {}, {}); },
      [&] { return CallOEDocWithPOPick(Connection, {}, {}, "").DocNumber; },
  };
  for (const auto& Call : Calls) {
    TTestCompany Company;
    Connection = Company.Connection();
    const support::TErrorBoxes Boxes;
    support::DrivePick([&] { return !Call().empty(); },
                       [&](TDocPickBase& Dialog) {
                         const int Rows = Dialog.qryList_->RecordCount();
                         QVERIFY(Rows > 0);
                         Company.Execute("DROP TABLE IP");
                         support::ClickBox(Dialog.ckbDesc);
                         QCOMPARE(Dialog.qryList_->RecordCount(), Rows);
                         QVERIFY(Dialog.isVisible());
                       });
    QCOMPARE(Boxes.Messages().size(), std::size_t{1});
    QVERIFY(Boxes.Messages()[0].find("IP") != std::string::npos);
  }
}

void tst_PickPOVariants::shouldRaiseTheServersErrorToTheCaller() {
  TTestCompany Company;
  ads::TAdsConnection* Connection = Company.Connection();
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickCustPO(Connection, {}, {}, "O'N", "", ""));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickCustPO(Connection, {}, {}, "", "1'", "I"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickCustPO(Connection, {}, {}, "", "1", "'"));
  try {
    CallPickCustPO(Connection, {}, {}, "'", "", "");
  } catch (const ads::EDatabaseError& Error) {
    QVERIFY(!std::string(Error.what()).empty());
  }
  Company.Execute("DROP TABLE IP");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickStockPO(Connection, {}, {}));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickCust(Connection, {}, {}));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickMultiPO(Connection, {}, {}));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallOEDocWithPOPick(Connection, {}, {}, ""));
}

void tst_PickPOVariants::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TTestCompany Company;
  const auto Stock = TfrmPickStockPO::Create(Company.Connection(), {}, {});
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, SqlFor(*Stock, -1, true, -1, "x"));
  QCOMPARE(support::SqlLines(*Stock),
           (TLines{"FROM IP I INNER JOIN Vend V ON (I.ID = V.ID)", "WHERE (I.Type IS NULL)", "ORDER BY SortFld DESC"}));
}

QTEST_MAIN(tst_PickPOVariants)
#include "tst_PickPOVariants.moc"
