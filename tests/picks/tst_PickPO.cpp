// The pick of a purchase order, and the states, icons and overlays that all picks of purchase orders share.
#include <QGroupBox>
#include <QTest>
#include <algorithm>

#include "ads/EDatabaseError.h"
#include "picks/PurchaseOrders.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "support/NumberedTexts.h"
#include "support/Pictures.h"
#include "support/Screens.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

using namespace purchasing;
using ads::TFieldType;
using picks::Joined;
using picks::SqlFor;
using support::TNumberedTexts;
using support::TTestCompany;
using toolkit::TAlignment;
using uPickAnyPO::CallPickPO;
using uPickAnyPO::TfrmPickPO;

namespace {

constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;
constexpr ads::TFieldKind Calculated = ads::TFieldKind::fkCalculated;

const QString Select = QStringLiteral(
    "SELECT I.Number, I.[Date], V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.Type, I.Posted, "
    "I.Closed, I.POReceipt, I.Canceled, I.APDocket, I.Cost, I.FedTax, O.JobNo, ");
const TLines From{
    "FROM (IP I INNER JOIN Vend V ON (I.ID = V.ID)) LEFT OUTER JOIN Cust C ON C.ID = I.CustID LEFT OUTER JOIN OE O ON "
    "I.PONumber = O.Number AND I.POType = O.Type",
    "WHERE 0=0"};

TLines FromVendor(const std::string& Line) {
  TLines Lines = From;
  if (!Line.empty()) Lines.push_back(Line);
  return Lines;
}

picks::TSqlParts SqlParts(const QString& FromText) {
  return {{Select + "UPPER(I.Number) SortFld", Select + "I.[Date] SortFld", Select + "UPPER(V.Company) SortFld",
           Select + "UPPER(I.PONumber) SortFld", Select + "UPPER(I.POType) SortFld", Select + "UPPER(O.JobNo) SortFld",
           Select + "UPPER(C.Company) SortFld"},
          FromText,
          TypedDate,
          {"AND UPPER(I.Number) LIKE '%12/03/2024%'", "AND I.[Date] = '2024-03-12'",
           "AND UPPER(V.Company) LIKE '%12/03/2024%'", "AND UPPER(I.PONumber) LIKE '%12/03/2024%'",
           "AND UPPER(I.POType) LIKE '%12/03/2024%'", "AND UPPER(O.JobNo) LIKE '%12/03/2024%'",
           "AND UPPER(C.Company) LIKE '%12/03/2024%'"}};
}

bool InState(const TfrmPickPO& Dialog, TPOState State) {
  switch (State) {
    case TPOState::poUnposted:
      return !Dialog.qryList_Posted->AsBoolean();
    case TPOState::poPosted:
      return Dialog.qryList_Posted->AsBoolean();
    case TPOState::poReceipted:
      return Dialog.qryList_POReceipt->AsBoolean();
    case TPOState::poClosed:
      return Dialog.qryList_Closed->AsBoolean();
    case TPOState::poPaid:
      return Dialog.qryList_APDocket->AsBoolean();
    case TPOState::poCancelled:
      return Dialog.qryList_Canceled->AsBoolean();
  }
  return false;
}

// The numbers of the listed orders that are in all states of the one set and in none of the other.
TLines NumbersIn(TfrmPickPO& Dialog, const TStatePair& States) {
  TLines Numbers;
  for (int Row = 0; Row < Dialog.qryList_->RecordCount(); ++Row) {
    const ads::TRowScope Scope(*Dialog.qryList_, Row);
    const bool Fits = std::all_of(AllStates.begin(), AllStates.end(), [&](TPOState State) {
      const bool In = InState(Dialog, State);
      return (In || !States.Required.Contains(State)) && (!In || !States.Excluded.Contains(State));
    });
    if (Fits) Numbers.push_back(Dialog.qryList_Number->AsString());
  }
  return Numbers;
}

// The number of the picture for an order, by the rules in their order.
int ExpectedState(unsigned Flags) {
  const bool Posted = Flags & 1U, Closed = Flags & 2U, Receipted = Flags & 4U, Cancelled = Flags & 8U,
             Paid = Flags & 16U;
  if (Cancelled) return 4;
  if (Paid) return 3;
  if (Receipted && !Closed) return 5;
  if (Receipted && Closed) return 2;
  if (Posted) return 1;
  return 0;
}

std::unique_ptr<TfrmPickPO> AllOrders(TTestCompany& Company) {
  return TfrmPickPO::Create(Company.Connection(), {}, {}, "");
}

// How the icon cell looks with these pictures.
QImage ExpectedIcon(const TfrmPickPO& Dialog, const std::vector<int>& Pictures, QPalette::ColorRole Behind) {
  QImage Image(16, 17, QImage::Format_RGB32);
  Image.fill(Dialog.dbgAvail->palette().color(Behind));
  QPainter Painter(&Image);
  Painter.setClipRect(0, 2, 15, 15);
  for (const int Picture : Pictures) Dialog.imIcons.Draw(Painter, 0, 2, Picture);
  return Image;
}

}  // namespace

class tst_PickPO : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase() { toolkit::SetShortDateFormat(DatePattern); }

  void shouldJoinEveryPairOfSetsOfStatesInOrder();
  void shouldTakeTheCaptionsAndLabelsByNumber();
  void shouldDeclareTheFieldsInOrder();
  void shouldShowTheColumnsInOrder();
  void shouldOfferTheSameChoicesInBothGroups();
  void shouldPlaceTheTaxBoxUnderTheDescendingOne();
  void shouldBuildTheSqlLetterByLetter();
  void shouldPutTheVendorsCodeInAsItIs();
  void shouldMakeTheFindTextFitForTheQuery();
  void shouldAddNothingForChoicesThatThereAreNot();
  void shouldListTheOrdersInTheStates();
  void shouldCountFlagsWithoutAValueAsFalseInTheIcon();
  void shouldCompareTheVendorsCodeWithItsBlanks();
  void shouldListOrdersWithoutCustomerOrDocument();
  void shouldOrderByEveryColumn();
  void shouldChooseTheIconByTheFirstRuleThatFits();
  void shouldChooseTheOverlayByTheType();
  void shouldAddTheTaxToTheTenThousandth();
  void shouldAddNoTaxWronglyWhenTheSumDoesNotFit();
  void shouldFormatTheCostWithTwoDecimals();
  void shouldSwitchTheCostColumnWithoutAQuery();
  void shouldKeepTheTaxThroughANewSearch();
  void shouldMakeRoomForALongerTitle();
  void shouldPaintTheIconOverThePlainCell();
  void shouldShowWhatHasBecomeOfAnOrderAndWhatItIsFor();
  void shouldPaintNoIconWithoutANumber();
  void shouldKeepTheListWhenTheDateIsWrong();
  void shouldNotCheckABlankDate();
  void shouldShowTheServersErrorOverTheUnchangedList();
  void shouldRaiseTheServersErrorToTheCaller();
  void shouldGiveTheChosenNumber();
  void shouldEmptyTheNumberWhenNothingIsChosen();
  void shouldTakeTheSameVariableForVendorAndNumber();
};

void tst_PickPO::shouldJoinEveryPairOfSetsOfStatesInOrder() {
  for (unsigned Required = 0; Required < 64; ++Required) {
    for (unsigned Excluded = 0; Excluded < 64; ++Excluded) {
      ads::TSQLLines Sql;
      uDocPickBase::TListQuery Query(Sql, {}, {}, true);
      TPOStateFilter(StatesOf(Required), StatesOf(Excluded)).AddTo(Query);
      QCOMPARE(TLines(Sql.begin(), Sql.end()), StateLines(StatesOf(Required), StatesOf(Excluded)));
    }
  }
}

void tst_PickPO::shouldTakeTheCaptionsAndLabelsByNumber() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  const auto Dialog = AllOrders(Company);
  QCOMPARE(Dialog->Caption(), std::string("Select T136"));
  QCOMPARE(Dialog->PickCaption, std::string("T136"));
  QCOMPARE(Dialog->gbList->title(), QStringLiteral("Available T520"));
  QCOMPARE(Dialog->AvailableCaption, std::string("T520"));
  QCOMPARE(Dialog->qryList_CostInc->DisplayLabel(), std::string("T3024"));
  QCOMPARE(Dialog->ckbIncGST->text(), QStringLiteral("GST Inc."));
  QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)),
           QStringLiteral("T3035 | T3002 | T3069 | T3021 | T3147 | T3000 | T3027"));
}

void tst_PickPO::shouldDeclareTheFieldsInOrder() {
  TTestCompany Company;
  CompareFields(*AllOrders(Company), {{"Number", TFieldType::ftString, 10},
                                      {"Date", TFieldType::ftDate},
                                      {"VendCompany", TFieldType::ftString, 35},
                                      {"PONumber", TFieldType::ftString, 8},
                                      {"POType", TFieldType::ftString, 1},
                                      {"CustCompany", TFieldType::ftString, 35},
                                      {"Type", TFieldType::ftString, 1},
                                      {"IMIndex", TFieldType::ftSmallint, 0, Calculated},
                                      {"IMOverlay", TFieldType::ftSmallint, 0, Calculated},
                                      {"Posted", TFieldType::ftBoolean},
                                      {"Closed", TFieldType::ftBoolean},
                                      {"POReceipt", TFieldType::ftBoolean},
                                      {"Canceled", TFieldType::ftBoolean},
                                      {"APDocket", TFieldType::ftBoolean},
                                      {"Cost", TFieldType::ftFloat},
                                      {"FedTax", TFieldType::ftFloat},
                                      {"CostInc", TFieldType::ftFloat, 0, Calculated},
                                      {"JobNo", TFieldType::ftString, 6}});
}

void tst_PickPO::shouldShowTheColumnsInOrder() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  CompareColumns(*AllOrders(Company), {{"Number", "T3035", 0, Right, Right},
                                       {"IMIndex", " ", 16, Centre, Centre},
                                       {"Date", "T3002", 0, Centre, Centre},
                                       {"VendCompany", "T3069", 120},
                                       {"PONumber", "T3021", 0, Right, Right},
                                       {"POType", "T3147", 0, Centre, Centre},
                                       {"JobNo", "T3000", 0, Right, Right},
                                       {"CustCompany", "T3027", 120},
                                       {"Cost", "T3011", 0, Right, Right}});
}

void tst_PickPO::shouldOfferTheSameChoicesInBothGroups() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  QCOMPARE(Dialog->rgFindBy->Items().Count(), 7);
  QCOMPARE(support::Items(*Dialog->rgOrderBy), support::Items(*Dialog->rgFindBy));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 0);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 0);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QCOMPARE(Joined(support::SqlLines(*Dialog)),
           Select + "UPPER(I.Number) SortFld | " + Joined(From) + " | ORDER BY SortFld");
}

void tst_PickPO::shouldPlaceTheTaxBoxUnderTheDescendingOne() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  QVERIFY(!Dialog->ckbIncGST->isChecked());
  QCOMPARE(Dialog->ckbIncGST->pos(), QPoint(Dialog->ckbDesc->x(), Dialog->ckbDesc->y() + Dialog->ckbDesc->height()));
  QCOMPARE(Dialog->ckbIncGST->size(), QSize(75, 14));
  QVERIFY(Dialog->ckbIncGST->geometry().bottom() < Dialog->ClientHeight());
}

void tst_PickPO::shouldBuildTheSqlLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  for (const char* Vendor : {"", "V1"}) {
    const TLines Lines = FromVendor(*Vendor == 0 ? "" : "AND I.ID = 'V1'");
    CompareSqlInStates(
        [&](const TStatePair& States) {
          return TfrmPickPO::Create(Company.Connection(), States.Required, States.Excluded, Vendor);
        },
        [&](const TStatePair& States) { return SqlParts(FromLines(Lines, States)); });
  }
}

void tst_PickPO::shouldPutTheVendorsCodeInAsItIs() {
  TTestCompany Company(TTestCompany::TRows::None);
  for (const char* Blank : {"", " ", "   ", "\t", " \n "}) {
    const auto Dialog = TfrmPickPO::Create(Company.Connection(), {}, {}, Blank);
    QCOMPARE(SqlFor(*Dialog, 0, false), Select + "UPPER(I.Number) SortFld | " + Joined(From) + " | ORDER BY SortFld");
  }
  for (const char* Code : {"V1", " V1", "V1  ", " V 1 ", "v1", "a''b", "100%", "\"x\"", "[x]", "ü"}) {
    const auto Dialog = TfrmPickPO::Create(Company.Connection(), {}, {}, Code);
    QCOMPARE(support::SqlLines(*Dialog)[3], "AND I.ID = '" + std::string(Code) + "'");
  }
}

void tst_PickPO::shouldMakeTheFindTextFitForTheQuery() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  SqlFor(*Dialog, 0, false, 2, "  o'neil_50% ");
  QCOMPARE(support::SqlLines(*Dialog)[3], std::string("AND UPPER(V.Company) LIKE '%O''NEIL_50%%'"));
  SqlFor(*Dialog, 0, false, 6, QStringLiteral("straße"));
  QCOMPARE(support::SqlLines(*Dialog)[3], std::string("AND UPPER(C.Company) LIKE '%STRASSE%'"));
  // With blanks, and with a year of two digits.
  SqlFor(*Dialog, 0, false, 1, " 1/2/24 ");
  QCOMPARE(support::SqlLines(*Dialog)[3], std::string("AND I.[Date] = '2024-02-01'"));
}

void tst_PickPO::shouldAddNothingForChoicesThatThereAreNot() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  QCOMPARE(SqlFor(*Dialog, 0, false, -1, "PO"),
           Select + "UPPER(I.Number) SortFld | " + Joined(From) + " | ORDER BY SortFld");
  const TLines Before = support::Column(*Dialog, "Number");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, SqlFor(*Dialog, -1, true));
  QCOMPARE(Joined(support::SqlLines(*Dialog)), Joined(From) + " | ORDER BY SortFld DESC");
  QCOMPARE(support::Column(*Dialog, "Number"), Before);
}

void tst_PickPO::shouldListTheOrdersInTheStates() {
  TTestCompany Company;
  const auto All = AllOrders(Company);
  std::vector<TStatePair> Pairs = StatePairs();
  for (unsigned Bits = 0; Bits < 64; ++Bits) Pairs.push_back({StatesOf(Bits), StatesOf((Bits * 37 + 11) & 63U)});
  int Listed = 0;
  for (const TStatePair& States : Pairs) {
    const auto Dialog = TfrmPickPO::Create(Company.Connection(), States.Required, States.Excluded, "");
    const TLines Numbers = support::Column(*Dialog, "Number");
    QCOMPARE(Numbers, NumbersIn(*All, States));
    if (!Numbers.empty()) ++Listed;
  }
  QVERIFY(Listed > 20);
  const auto Contradiction =
      TfrmPickPO::Create(Company.Connection(), {TPOState::poUnposted, TPOState::poPosted}, {}, "");
  QVERIFY(Contradiction->qryList_->IsEmpty());
  const auto Both = TfrmPickPO::Create(Company.Connection(), {TPOState::poPaid}, {TPOState::poPaid}, "");
  QVERIFY(Both->qryList_->IsEmpty());
}

void tst_PickPO::shouldCountFlagsWithoutAValueAsFalseInTheIcon() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  AddOrder(Company, {{"Number", "1"}});
  AddOrder(Company, {{"Number", "2"}, {"POReceipt", true}});
  AddOrder(Company, {{"Number", "3"}, {"Posted", true}, {"Closed", true}});
  const auto Dialog = AllOrders(Company);
  QCOMPARE(support::Column(*Dialog, "IMIndex"), (TLines{"0", "5", "1"}));
  QCOMPARE(support::Column(*Dialog, "CostInc"), (TLines{"0", "0", "0"}));
}

void tst_PickPO::shouldCompareTheVendorsCodeWithItsBlanks() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  Company.Execute("INSERT INTO Vend (ID, Company) VALUES (' V1', 'Blank')");
  AddOrder(Company, {{"Number", "1"}});
  AddOrder(Company, {{"Number", "2"}, {"ID", " V1"}});
  AddOrder(Company, {{"Number", "3"}, {"ID", "V2"}});
  const auto Numbers = [&](const char* Vendor) {
    return support::Column(*TfrmPickPO::Create(Company.Connection(), {}, {}, Vendor), "Number");
  };
  QCOMPARE(Numbers("V1"), TLines{"1"});
  QCOMPARE(Numbers(" V1"), TLines{"2"});
  QCOMPARE(Numbers("  V1"), TLines{});
  QCOMPARE(Numbers("V9"), TLines{});
  QCOMPARE(Numbers("  "), (TLines{"1", "2", "3"}));
}

void tst_PickPO::shouldListOrdersWithoutCustomerOrDocument() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  Company.Execute("INSERT INTO OE (Type, Number, JobNo) VALUES ('I', '100', 'J7'), ('O', '100', 'J8')");
  AddOrder(Company, {{"Number", "1"}, {"CustID", "C2"}, {"PONumber", "100"}, {"POType", "O"}});
  AddOrder(Company, {{"Number", "2"}});
  AddOrder(Company, {{"Number", "3"}, {"CustID", "C9"}, {"PONumber", "999"}, {"POType", "I"}});
  AddOrder(Company, {{"Number", "4"}, {"ID", "V9"}, {"CustID", "C1"}});
  AddOrder(Company, {{"Number", "5"}, {"ID", QVariant()}});
  const auto Dialog = AllOrders(Company);
  QCOMPARE(support::Column(*Dialog, "Number"), (TLines{"1", "2", "3"}));
  QCOMPARE(support::Column(*Dialog, "CustCompany"), (TLines{"O'Neil", "", ""}));
  QCOMPARE(support::Column(*Dialog, "JobNo"), (TLines{"J8", "", ""}));
  QCOMPARE(support::Column(*Dialog, "VendCompany"), (TLines{"Zenith", "Zenith", "Zenith"}));
}

void tst_PickPO::shouldOrderByEveryColumn() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  Company.Execute("INSERT INTO OE (Type, Number, JobNo) VALUES ('I', 'a2', 'j1'), ('O', 'B1', 'K0')");
  AddOrder(Company, {{"Number", "a"}, {"Date", "2024-03-02"}, {"PONumber", "B1"}, {"POType", "O"}, {"CustID", "C1"}});
  AddOrder(
      Company,
      {{"Number", "B"}, {"Date", "2023-12-31"}, {"ID", "V2"}, {"PONumber", "a2"}, {"POType", "I"}, {"CustID", "C2"}});
  const auto Dialog = AllOrders(Company);
  const TLines Expected{"a,B", "B,a", "B,a", "B,a", "B,a", "B,a", "a,B"};
  for (int OrderBy = 0; OrderBy < 7; ++OrderBy) {
    for (const bool Descending : {false, true}) {
      SqlFor(*Dialog, OrderBy, Descending);
      const TLines Numbers = support::Column(*Dialog, "Number");
      const std::string First = Expected[static_cast<std::size_t>(OrderBy)].substr(0, 1);
      QCOMPARE(Numbers[Descending ? 1 : 0], First);
    }
  }
}

void tst_PickPO::shouldChooseTheIconByTheFirstRuleThatFits() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  TLines Expected;
  for (unsigned Flags = 0; Flags < 32; ++Flags) {
    AddOrder(Company, {{"Number", QString::number(100 + Flags)},
                       {"Posted", (Flags & 1U) != 0},
                       {"Closed", (Flags & 2U) != 0},
                       {"POReceipt", (Flags & 4U) != 0},
                       {"Canceled", (Flags & 8U) != 0},
                       {"APDocket", (Flags & 16U) != 0}});
    Expected.push_back(std::to_string(ExpectedState(Flags)));
  }
  QCOMPARE(support::Column(*AllOrders(Company), "IMIndex"), Expected);
  QCOMPARE(std::count(Expected.begin(), Expected.end(), "0"), 2);
}

void tst_PickPO::shouldChooseTheOverlayByTheType() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  int Number = 100;
  for (const QVariant& Type : {QVariant("P"), QVariant("M"), QVariant(), QVariant(""), QVariant(" "), QVariant("S"),
                               QVariant("p"), QVariant("m")}) {
    AddOrder(Company, {{"Number", QString::number(++Number)}, {"Type", Type}, {"Canceled", true}});
  }
  const auto Dialog = AllOrders(Company);
  QCOMPARE(support::Column(*Dialog, "IMOverlay"), (TLines{"7", "8", "6", "6", "6", "6", "6", "6"}));
}

void tst_PickPO::shouldAddTheTaxToTheTenThousandth() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  const auto Add = [&](const char* Number, const QVariant& Cost, const QVariant& Tax) {
    AddOrder(Company, {{"Number", Number}, {"Cost", Cost}, {"FedTax", Tax}});
  };
  Add("1", 0.1, 0.2);
  Add("2", 99999999.9999, 0.0001);
  Add("3", 1234.5, QVariant());
  Add("4", -10.01, 3.3367);
  Add("5", 1.00004, 1.00004);
  const auto Dialog = AllOrders(Company);
  const std::vector<std::int64_t> Expected{3000, 1'000'000'000'000, 12'345'000, -66'733, 20'000};
  for (std::size_t Row = 0; Row < Expected.size(); ++Row) {
    const ads::TRowScope Scope(*Dialog->qryList_, static_cast<int>(Row));
    QCOMPARE(Dialog->qryList_CostInc->AsCurrency().Scaled(), Expected[Row]);
  }
}

void tst_PickPO::shouldAddNoTaxWronglyWhenTheSumDoesNotFit() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  const auto Add = [&](const char* Number, double Cost, double Tax) {
    AddOrder(Company, {{"Number", Number}, {"Cost", Cost}, {"FedTax", Tax}});
  };
  Add("1", 900000000000000, 900000000000000);
  Add("2", -900000000000000, -900000000000000);
  Add("3", 1e15, 1);
  Add("4", 1, 1e15);
  Add("5", 1e308, 1e308);
  const auto Dialog = AllOrders(Company);
  QCOMPARE(support::ShownColumn(*Dialog, "CostInc"),
           (TLines{"1,800,000,000,000,000.00", "-1,800,000,000,000,000.00", "1,000,000,000,000,001.00",
                   "1,000,000,000,000,001.00", ""}));
}

void tst_PickPO::shouldFormatTheCostWithTwoDecimals() {
  TTestCompany Company(TTestCompany::TRows::None);
  Company.Execute("UPDATE Sys SET PrcDec = 4");
  AddParties(Company);
  AddOrder(Company, {{"Number", "1"}, {"Date", "2024-03-09"}, {"Cost", 1234567.125}, {"FedTax", 0.38}});
  const auto Dialog = AllOrders(Company);
  QCOMPARE(support::ShownColumn(*Dialog, "Cost"), TLines{"1,234,567.13"});
  QCOMPARE(support::ShownColumn(*Dialog, "CostInc"), TLines{"1,234,567.51"});
  QCOMPARE(support::ShownColumn(*Dialog, "Date"), TLines{"09/03/2024"});
}

void tst_PickPO::shouldSwitchTheCostColumnWithoutAQuery() {
  TTestCompany Company;
  const TNumberedTexts Texts;
  std::string Number;
  support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
                                   [](TfrmPickPO& Dialog) {
                                     int Opened = 0;
                                     QObject::connect(Dialog.qryList_, &ads::TDataSet::Opened, &Dialog,
                                                      [&] { ++Opened; });
                                     Dialog.qryList_->SetRecNo(3);
                                     const toolkit::TColumn* Cost = Dialog.dbgAvail->Columns()[8];
                                     support::ClickBox(Dialog.ckbIncGST);
                                     QCOMPARE(Cost->Field(), Dialog.qryList_CostInc);
                                     QCOMPARE(Cost->Title(), std::string("T3024"));
                                     QCOMPARE(Cost->TitleAlignment(), Right);
                                     SaveShot(Dialog, "po-gst");
                                     support::ClickBox(Dialog.ckbIncGST);
                                     QCOMPARE(Cost->Field(), Dialog.qryList_Cost);
                                     QCOMPARE(Cost->Title(), std::string("T3011"));
                                     QCOMPARE(Opened, 0);
                                     QCOMPARE(Dialog.qryList_->RecNo(), 3);
                                   });
}

void tst_PickPO::shouldKeepTheTaxThroughANewSearch() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  Dialog->ckbIncGST->setChecked(true);
  Dialog->ckbDesc->setChecked(true);
  Dialog->rgOrderBy->SetItemIndex(2);
  QCOMPARE(Dialog->dbgAvail->Columns()[8]->Field(), Dialog->qryList_CostInc);
  QVERIFY(Dialog->ckbIncGST->isChecked());
  QCOMPARE(SqlFor(*Dialog, 0, false), Select + "UPPER(I.Number) SortFld | " + Joined(From) + " | ORDER BY SortFld");
  // A host that shows no cost at all has nothing to be switched.
  Dialog->RemoveColumn(Dialog->qryList_CostInc, true);
  Dialog->ckbIncGST->setChecked(false);
  QCOMPARE(Dialog->dbgAvail->Columns().Count(), 8);
}

void tst_PickPO::shouldMakeRoomForALongerTitle() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  const int Before = Dialog->ClientWidth();
  Dialog->qryList_CostInc->SetDisplayLabel("Coste con impuestos incluidos");
  Dialog->ckbIncGST->setChecked(true);
  QVERIFY(Dialog->ClientWidth() > Before);
  QCOMPARE(Dialog->dbgAvail->maximumViewportSize().width(), Dialog->dbgAvail->ColumnsWidth());
  Dialog->ckbIncGST->setChecked(false);
  QCOMPARE(Dialog->ClientWidth(), Before);
}

void tst_PickPO::shouldPaintTheIconOverThePlainCell() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  AddOrder(Company, {{"Number", "1"}, {"Type", "P"}, {"Posted", true}});
  AddOrder(Company, {{"Number", "2"}, {"Type", "M"}, {"Canceled", true}});
  AddOrder(Company, {{"Number", "3"}, {"POReceipt", true}});
  std::string Number;
  support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
                                   [](TfrmPickPO& Dialog) {
                                     const auto Icon = [&](int Row) {
                                       return CellImage(Dialog, Row, Dialog.qryList_IMIndex);
                                     };
                                     // The selected row shows so with and without the keyboard's focus.
                                     QCOMPARE(Icon(0), ExpectedIcon(Dialog, {1, 7}, QPalette::Highlight));
                                     QCOMPARE(Icon(1), ExpectedIcon(Dialog, {4, 8}, QPalette::Base));
                                     QCOMPARE(Icon(2), ExpectedIcon(Dialog, {5, 6}, QPalette::Base));
                                     Dialog.dbgAvail->setFocus();
                                     QTest::keyClick(Dialog.dbgAvail, Qt::Key_Down);
                                     QCOMPARE(Icon(0), ExpectedIcon(Dialog, {1, 7}, QPalette::Base));
                                     QCOMPARE(Icon(1), ExpectedIcon(Dialog, {4, 8}, QPalette::Highlight));
                                   });
}

void tst_PickPO::shouldShowWhatHasBecomeOfAnOrderAndWhatItIsFor() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  AddOrder(Company, {{"Number", "100"}});  // selected
  const QMap<QString, QString> Flags{{"order-posted", "Posted"},
                                     {"order-receipted", "POReceipt"},
                                     {"order-paid", "APDocket"},
                                     {"order-cancelled", "Canceled"}};
  const QMap<QString, QString> Types{
      {"over-order-stock", "S"}, {"over-order-customer", "P"}, {"over-order-several-documents", "M"}};
  QList<QStringList> Expected;
  for (const QString State :
       {"order-unposted", "order-posted", "order-receipted", "order-closed", "order-paid", "order-cancelled"}) {
    for (const QString& Type : Types.keys()) {
      Expected.append({State, Type});
      QVariantMap Order{{"Number", QString::number(100 + Expected.size())}, {"Type", Types[Type]}};
      if (Flags.contains(State)) Order[Flags[State]] = true;
      if (State == "order-closed") Order.insert({{"POReceipt", true}, {"Closed", true}});
      AddOrder(Company, Order);
    }
  }
  std::string Number;
  support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
                                   [&](TfrmPickPO& Dialog) {
                                     const QColor Behind = Dialog.dbgAvail->palette().color(QPalette::Base);
                                     for (int Row = 0; Row < Expected.size(); ++Row) {
                                       const QModelIndex Cell = Dialog.dbgAvail->model()->index(Row + 1, 1);
                                       Dialog.dbgAvail->scrollTo(Cell);
                                       const QImage Icon =
                                           CellImage(Dialog, Row + 1, Dialog.qryList_IMIndex).copy(0, 2, 15, 15);
                                       QVERIFY2(support::LooksLike(Icon, support::KeptPictures(Expected[Row], Behind)),
                                                qPrintable(Expected[Row].join(", ")));
                                     }
                                   });
}

void tst_PickPO::shouldPaintNoIconWithoutANumber() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  AddOrder(Company, {{"Number", "  "}, {"Type", "P"}, {"Posted", true}});
  AddOrder(Company, {{"Number", ""}, {"Type", "M"}});
  std::string Number;
  support::DrivePickAs<TfrmPickPO>(
      [&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
      [](TfrmPickPO& Dialog) {
        QCOMPARE(CellImage(Dialog, 0, Dialog.qryList_IMIndex), ExpectedIcon(Dialog, {}, QPalette::Highlight));
        QCOMPARE(CellImage(Dialog, 1, Dialog.qryList_IMIndex), ExpectedIcon(Dialog, {}, QPalette::Base));
      });
}

void tst_PickPO::shouldKeepTheListWhenTheDateIsWrong() {
  TTestCompany Company;
  const support::TErrorBoxes Boxes;
  std::string Number;
  support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
                                   [](TfrmPickPO& Dialog) {
                                     const TLines Sql = support::SqlLines(Dialog);
                                     const TLines Numbers = support::Column(Dialog, "Number");
                                     support::ChooseFindBy(Dialog, 1);
                                     support::TypeFind(Dialog, "31/02/2024");
                                     QCOMPARE(support::SqlLines(Dialog), Sql);
                                     QCOMPARE(support::Column(Dialog, "Number"), Numbers);
                                     QCOMPARE(Dialog.edFind->text(), QStringLiteral("31/02/2024"));
                                     QVERIFY(Dialog.isVisible());
                                   });
  QCOMPARE(Boxes.Messages(), TLines{"The find text is not a valid date. Please type it as DD/MM/YYYY."});
}

void tst_PickPO::shouldNotCheckABlankDate() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  const QString Plain = Select + "UPPER(I.Number) SortFld | " + Joined(From) + " | ORDER BY SortFld";
  for (const char* Blank : {"", "   "}) QCOMPARE(SqlFor(*Dialog, 0, false, 1, Blank), Plain);
  QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, SqlFor(*Dialog, 0, false, 1, "yesterday"));
  QCOMPARE(Joined(support::SqlLines(*Dialog)), Plain);
}

void tst_PickPO::shouldShowTheServersErrorOverTheUnchangedList() {
  TTestCompany Company;
  const support::TErrorBoxes Boxes;
  std::string Number;
  support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
                                   [&](TfrmPickPO& Dialog) {
                                     const TLines Numbers = support::Column(Dialog, "Number");
                                     Company.Execute("DROP TABLE IP");
                                     support::TypeFind(Dialog, "PO1");
                                     QCOMPARE(support::Column(Dialog, "Number"), Numbers);
                                     QCOMPARE(Dialog.edFind->text(), QStringLiteral("PO1"));
                                     // Not tried again without the find line.
                                     QCOMPARE(support::SqlLines(Dialog)[3], "AND UPPER(I.Number) LIKE '%PO1%'");
                                     QVERIFY(Dialog.isVisible() && Dialog.bbnOK->isEnabled());
                                   });
  QCOMPARE(Boxes.Messages().size(), std::size_t{1});
  QVERIFY(Boxes.Messages()[0].find("IP") != std::string::npos);
}

void tst_PickPO::shouldRaiseTheServersErrorToTheCaller() {
  TTestCompany Company;
  for (const char* Code : {"V'1", "'", "a''b'"}) {
    std::string Number = "left over";
    try {
      CallPickPO(Company.Connection(), {}, {}, Number, Code);
      QFAIL("a code with a quote breaks the statement");
    } catch (const ads::EDatabaseError& Error) {
      QVERIFY(!std::string(Error.what()).empty());
    }
    QVERIFY(Number.empty());
  }
  // The connection goes on working.
  QVERIFY(!AllOrders(Company)->qryList_->IsEmpty());
}

void tst_PickPO::shouldGiveTheChosenNumber() {
  TTestCompany Company;
  std::string Number;
  std::string Second;
  QVERIFY(support::DrivePickAs<TfrmPickPO>(
      [&] { return CallPickPO(Company.Connection(), {TPOState::poPosted}, {TPOState::poPaid}, Number, ""); },
      [&](TfrmPickPO& Dialog) {
        SaveShot(Dialog, "po");
        Second = support::Column(Dialog, "Number")[1];
        Dialog.dbgAvail->setFocus();
        QTest::keyClick(Dialog.dbgAvail, Qt::Key_Down);
        QCOMPARE(Dialog.GetPurchaseOrder(), Second);
        support::ClickOK(Dialog);
      }));
  QCOMPARE(Number, Second);
  QVERIFY(!Number.empty());
}

void tst_PickPO::shouldEmptyTheNumberWhenNothingIsChosen() {
  TTestCompany Company;
  std::string Number = "left over";
  QVERIFY(!support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, ""); },
                                            [](TfrmPickPO& Dialog) { support::ClickCancel(Dialog); }));
  QVERIFY(Number.empty());
  // An empty list is shown, without anything to confirm.
  Number = "left over";
  QVERIFY(!support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Number, "V'' X"); },
                                            [](TfrmPickPO& Dialog) { QVERIFY(!Dialog.bbnOK->isEnabled()); }));
  QVERIFY(Number.empty());
}

void tst_PickPO::shouldTakeTheSameVariableForVendorAndNumber() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  AddOrder(Company, {{"Number", "7"}, {"ID", "V1"}});
  AddOrder(Company, {{"Number", "8"}, {"ID", "V2"}});
  std::string Code = "V2";
  QVERIFY(support::DrivePickAs<TfrmPickPO>([&] { return CallPickPO(Company.Connection(), {}, {}, Code, Code); },
                                           [](TfrmPickPO& Dialog) { support::DoubleClickRow(Dialog, 0); }));
  QCOMPARE(Code, std::string("8"));
}

// The dialog is wider than 800 pixels.
ZUL_TEST_MAIN(tst_PickPO, QRect(0, 0, 1280, 1024))
#include "tst_PickPO.moc"
