// The pick of one of an item's costs, with several locations and with one.
#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/StockDialogs.h"
#include "picks/stock/uPickItemCost.h"
#include "support/NumberedTexts.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

using namespace picks;
using namespace support;
using ads::TFieldType;
using toolkit::TAlignment;
using uPickItemCost::CallPickItemCost;
using uPickItemCost::TfrmPickItemCost;

namespace {

constexpr TAlignment Left = TAlignment::taLeftJustify;
constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;

const char* const WrongDate = "The find text is not a valid date. Please type it as DD/MM/YYYY.";

struct TCompanyWithCosts : TTestCompany {
  explicit TCompanyWithCosts(bool MultiLoc) : TTestCompany(TRows::None) {
    if (MultiLoc) Execute("UPDATE Sys SET MultiLoc = 1");
    Execute("INSERT INTO ItemLocations (ID, ShortName, FullName) VALUES (1, 'MAIN', 'Main'), (2, 'main2', 'Second')");
    Execute("INSERT INTO ItemDet (Item, ItemLoc, OnHand) VALUES ('A', 1, 5)");
    Execute(
        "INSERT INTO ItemCost (\"Key\", Item, ItemLoc, \"Date\", Qty, UnitCost, UnitBuff) VALUES "
        "(1, 'A', 2, '2025-08-01', 10, 12.5, 0.25), (2, 'A', 1, '2025-07-31', 2.5, 9, NULL), "
        "(3, 'A', NULL, '2025-08-01', -1, 1234.5678, 0), (4, 'B', 1, NULL, 4, 1, 1), "
        "(5, 'A', 99, NULL, NULL, NULL, 3)");
  }
};

const QString Columns = "SELECT I.[Key], I.[Date], I.Qty, I.UnitCost, I.UnitBuff, l.ShortName, ";
const QStringList OneLocation{Columns + "I.[Date] SortFld", Columns + "I.Qty SortFld", Columns + "I.UnitCost SortFld",
                              Columns + "I.UnitBuff SortFld"};
const QStringList SeveralLocations = QStringList{Columns + "UPPER(l.ShortName) SortFld"} + OneLocation;

const QString From = "FROM ItemCost I |   LEFT OUTER JOIN ItemLocations l ON i.ItemLoc=l.ID | WHERE Item = 'A'";

QString Keys(TDocPickBase& Dialog) {
  return Rows(Dialog, "Key");
}

}  // namespace

class tst_PickItemCost : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase() { toolkit::SetShortDateFormat("dd/mm/yyyy"); }
  void shouldAskForDatesWhereThereAreSeveralLocations();
  void shouldAskForNumbersWhereThereAreSeveralLocations();
  void shouldAskForDatesWhereThereIsOneLocation();
  void shouldAskForNumbersWhereThereIsOneLocation();
  void shouldKeepTheTextWhenTheSearchFails();
  void shouldOfferTheLocationWhereThereAreSeveral();
  void shouldLeaveTheLocationOutWhereThereIsOne();
  void shouldTakeTheTextsByNumber();
  void shouldShowTheSystemsDecimals();
  void shouldSortByEachColumn();
  void shouldFindTheWholeLocation();
  void shouldFindDatesAndNumbers();
  void shouldKeepTheListWhenTheTextIsWrong_data();
  void shouldKeepTheListWhenTheTextIsWrong();
  void shouldTakeTheNumberAsTyped_data();
  void shouldTakeTheNumberAsTyped();
  void shouldOnlyReadWhateverIsTyped_data();
  void shouldOnlyReadWhateverIsTyped();
  void shouldReturnTheKey();
  void shouldLeaveTheKeyOnCancel();
  void shouldShowAnEmptyListForAnUnknownItem();
  void shouldNotDoubleTheQuotesInAnItem();
};

void tst_PickItemCost::shouldAskForDatesWhereThereAreSeveralLocations() {
  TCompanyWithCosts Company(true);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  CompareSql(
      *Dialog,
      {SeveralLocations, From, " 1/8/25 ", {"AND UPPER(l.ShortName) LIKE '1/8/25'", "AND I.[Date] = '2025-08-01'"}});
}

void tst_PickItemCost::shouldAskForNumbersWhereThereAreSeveralLocations() {
  TCompanyWithCosts Company(true);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  for (int OrderBy = 0; OrderBy < 5; ++OrderBy) {
    for (const bool Descending : {false, true}) {
      const QString End = Descending ? " | ORDER BY SortFld DESC" : " | ORDER BY SortFld";
      const QStringList Names{"I.Qty", "I.UnitCost", "I.UnitBuff"};
      for (int FindBy = 2; FindBy < 5; ++FindBy) {
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, FindBy, " 12.5  "),
                 SeveralLocations[OrderBy] + " | " + From + " | AND " + Names[FindBy - 2] + " =  12.5  " + End);
      }
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, 0, " o'é "),
               SeveralLocations[OrderBy] + " | " + From + " | AND UPPER(l.ShortName) LIKE 'O''É'" + End);
    }
  }
}

void tst_PickItemCost::shouldAskForDatesWhereThereIsOneLocation() {
  TCompanyWithCosts Company(false);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  CompareSql(*Dialog, {OneLocation, From, "01/08/2025", {"AND I.[Date] = '2025-08-01'"}});
}

void tst_PickItemCost::shouldAskForNumbersWhereThereIsOneLocation() {
  TCompanyWithCosts Company(false);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  const QStringList Names{"I.Qty", "I.UnitCost", "I.UnitBuff"};
  for (int OrderBy = 0; OrderBy < 4; ++OrderBy) {
    for (int FindBy = 1; FindBy < 4; ++FindBy) {
      QCOMPARE(SqlFor(*Dialog, OrderBy, false, FindBy, "12.5"),
               OneLocation[OrderBy] + " | " + From + " | AND " + Names[FindBy - 1] + " = 12.5 | ORDER BY SortFld");
    }
  }
  // There is nothing beyond the last one.
  QCOMPARE(SqlFor(*Dialog, 0, false, -1, "x"), OneLocation[0] + " | " + From + " | ORDER BY SortFld");
  Ask(*Dialog, -1, false, 0, "");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString(From).replace(" | ", "\n") + " | ORDER BY SortFld");
}

void tst_PickItemCost::shouldKeepTheTextWhenTheSearchFails() {
  TCompanyWithCosts Company(true);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  CompareRebuilt(*Dialog, Company, SeveralLocations, 1, "\n", QString(From).replace(" | ", "\n"));
}

void tst_PickItemCost::shouldOfferTheLocationWhereThereAreSeveral() {
  TCompanyWithCosts Company(true);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  CompareColumns(*Dialog, {{"ShortName", "Loc.", 0, Left, Left},
                           {"Date", "Date", 0, Centre, Centre},
                           {"Qty", "Quantity", 0, Right, Right},
                           {"UnitCost", "Unit Cost", 0, Right, Right},
                           {"UnitBuff", "Unit Buffer", 0, Right, Right}});
  CompareFields(*Dialog, {{"Key", TFieldType::ftAutoInc, 0},
                          {"Date", TFieldType::ftDate, 0},
                          {"Qty", TFieldType::ftFloat, 0},
                          {"UnitCost", TFieldType::ftFloat, 0},
                          {"UnitBuff", TFieldType::ftFloat, 0},
                          {"ShortName", TFieldType::ftString, 5}});
  CompareChoices(*Dialog, "Loc. | Date | Quantity | Unit Cost | Unit Buffer", 0);
  QCOMPARE(Dialog->windowTitle(), QString("Select Item Cost"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Item Costs"));
  QCOMPARE(Rows(*Dialog, "ShortName"), QString(" |  | MAIN | main2"));
}

void tst_PickItemCost::shouldLeaveTheLocationOutWhereThereIsOne() {
  TCompanyWithCosts Several(true);
  TCompanyWithCosts One(false);
  const auto Wide = TfrmPickItemCost::Create(Several.Connection(), "A");
  const auto Dialog = TfrmPickItemCost::Create(One.Connection(), "A");
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("Date | Qty | UnitCost | UnitBuff"));
  CompareChoices(*Dialog, "Date | Quantity | Unit Cost | Unit Buffer", 0);
  QCOMPARE(Wide->width() - Dialog->width(), Wide->dbgAvail->Columns()[0]->Width() + 1);
  QCOMPARE(Rows(*Dialog, "Date"), QString(" | 2025-07-31 | 2025-08-01 | 2025-08-01"));
}

void tst_PickItemCost::shouldTakeTheTextsByNumber() {
  TCompanyWithCosts Company(true);
  const TNumberedTexts Texts;
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  CompareChoices(*Dialog, "T3131 | T3002 | T3087 | T3234 | T3233", 0);
  QCOMPARE(Dialog->PickCaption, std::string("Item Cost"));
  QCOMPARE(Dialog->AvailableCaption, std::string("Item Costs"));
}

void tst_PickItemCost::shouldShowTheSystemsDecimals() {
  TCompanyWithCosts Company(false);
  Company.Execute("UPDATE Sys SET QtyDec = 0, PrcDec = 3");
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  QCOMPARE(SqlFor(*Dialog, 2, false), OneLocation[2] + " | " + From + " | ORDER BY SortFld");
  QCOMPARE(ShownRows(*Dialog, "Qty"), QString(" | 3 | 10 | -1"));
  QCOMPARE(ShownRows(*Dialog, "UnitCost"), QString(" | 9.000 | 12.500 | 1,234.568"));
  QCOMPARE(ShownRows(*Dialog, "UnitBuff"), QString("3.000 |  | 0.250 | 0.000"));
  QCOMPARE(ShownRows(*Dialog, "Date"), QString(" | 31/07/2025 | 01/08/2025 | 01/08/2025"));
}

void tst_PickItemCost::shouldSortByEachColumn() {
  TCompanyWithCosts Company(true);
  std::int32_t Key = 0;
  DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); },
            [](TDocPickBase& Dialog) {
              ChooseOrderBy(Dialog, 2);
              QCOMPARE(Rows(Dialog, "Qty"), QString(" | -1 | 2.5 | 10"));
              ChooseOrderBy(Dialog, 3);
              QCOMPARE(Rows(Dialog, "UnitCost"), QString(" | 9 | 12.5 | 1234.5678"));
              ChooseOrderBy(Dialog, 4);
              QCOMPARE(Rows(Dialog, "UnitBuff"), QString(" | 0 | 0.25 | 3"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Rows(Dialog, "UnitBuff"), QString("3 | 0.25 | 0 | "));
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Rows(Dialog, "ShortName"), QString("main2 | MAIN |  | "));
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Rows(Dialog, "Date"), QString("2025-08-01 | 2025-08-01 | 2025-07-31 | "));
            });
}

void tst_PickItemCost::shouldFindTheWholeLocation() {
  TCompanyWithCosts Company(true);
  std::int32_t Key = 0;
  DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, " main ");
              QCOMPARE(Keys(Dialog), QString("2"));
              TypeFind(Dialog, "MAIN2");
              QCOMPARE(Keys(Dialog), QString("1"));
              for (const char* Part : {"mai", "ain", "ain2"}) {
                TypeFind(Dialog, Part);
                QVERIFY(Dialog.qryList_->IsEmpty());
              }
              TypeFind(Dialog, "mai%");
              QCOMPARE(Keys(Dialog), QString("2 | 1"));
              TypeFind(Dialog, "mai_");
              QCOMPARE(Keys(Dialog), QString("2"));
            });
}

void tst_PickItemCost::shouldFindDatesAndNumbers() {
  TCompanyWithCosts Company(false);
  std::int32_t Key = 0;
  DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "1/8/2025");
              QCOMPARE(Keys(Dialog), QString("1 | 3"));
              ChooseFindBy(Dialog, 1);
              TypeFind(Dialog, " 2.50");
              QCOMPARE(Keys(Dialog), QString("2"));
              ChooseFindBy(Dialog, 2);
              TypeFind(Dialog, "12.5");
              QCOMPARE(Keys(Dialog), QString("1"));
              TypeFind(Dialog, "1.25e1");
              QCOMPARE(Keys(Dialog), QString("1"));
              ChooseFindBy(Dialog, 3);
              TypeFind(Dialog, "0");
              QCOMPARE(Keys(Dialog), QString("3"));
            });
}

void tst_PickItemCost::shouldKeepTheListWhenTheTextIsWrong_data() {
  QTest::addColumn<bool>("MultiLoc");
  QTest::addColumn<int>("FindBy");
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QString>("Message");
  QTest::newRow("date") << true << 1 << "31/02/2025" << WrongDate;
  QTest::newRow("date, one location") << false << 0 << "12.5" << WrongDate;
  QTest::newRow("quantity") << true << 2 << "ten" << WrongNumber;
  QTest::newRow("quantity, one location") << false << 1 << "1/8/2025" << WrongNumber;
  QTest::newRow("cost") << true << 3 << "1 OR 1=1" << WrongNumber;
  QTest::newRow("cost, one location") << false << 2 << "12,5" << WrongNumber;
  QTest::newRow("buffer") << true << 4 << "$5" << WrongNumber;
  QTest::newRow("buffer, one location") << false << 3 << "0x10" << WrongNumber;
}

void tst_PickItemCost::shouldKeepTheListWhenTheTextIsWrong() {
  QFETCH(bool, MultiLoc);
  QFETCH(int, FindBy);
  QFETCH(QString, Typed);
  QFETCH(QString, Message);
  TCompanyWithCosts Company(MultiLoc);
  std::int32_t Key = 0;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); },
            [&](TDocPickBase& Dialog) {
              ChooseFindBy(Dialog, FindBy);
              const auto Sql = SqlLines(Dialog);
              const QString Before = Keys(Dialog);
              Dialog.qryList_->Last();
              TypeFind(Dialog, Typed);
              QCOMPARE(Boxes.Messages(), std::vector<std::string>{Message.toStdString()});
              QCOMPARE(SqlLines(Dialog), Sql);
              QCOMPARE(Keys(Dialog), Before);
              QCOMPARE(Dialog.qryList_->RecNo(), 4);
              QCOMPARE(Dialog.edFind->text(), Typed);
              QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, Dialog.SetSQL());
            });
}

void tst_PickItemCost::shouldTakeTheNumberAsTyped_data() {
  QTest::addColumn<QString>("Typed");
  for (const char* Typed : {"12.5", " 12.5", "12.5\t", "+12.5", "0012.50", "1.25e1", "12.5e+0", ".5", "5.", "-0"}) {
    QTest::newRow(Typed) << QString(Typed);
  }
}

void tst_PickItemCost::shouldTakeTheNumberAsTyped() {
  QFETCH(QString, Typed);
  TCompanyWithCosts Company(true);
  const auto Dialog = TfrmPickItemCost::Create(Company.Connection(), "A");
  QCOMPARE(SqlFor(*Dialog, 0, false, 3, Typed),
           SeveralLocations[0] + " | " + From + " | AND I.UnitCost = " + Typed + " | ORDER BY SortFld");
}

void tst_PickItemCost::shouldOnlyReadWhateverIsTyped_data() {
  QTest::addColumn<bool>("MultiLoc");
  QTest::newRow("several locations") << true;
  QTest::newRow("one location") << false;
}

void tst_PickItemCost::shouldOnlyReadWhateverIsTyped() {
  QFETCH(bool, MultiLoc);
  TCompanyWithCosts Company(MultiLoc);
  const QString Before = StockContent(Company);
  std::int32_t Key = 0;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); },
            [&](TDocPickBase& Dialog) {
              for (int FindBy = 0; FindBy < Dialog.rgFindBy->Items().Count(); ++FindBy) {
                ChooseFindBy(Dialog, FindBy);
                for (const QString& Typed : NastyTexts()) {
                  const std::size_t Told = Boxes.Messages().size();
                  Dialog.edFind->setText(Typed);
                  QTest::keyClick(Dialog.edFind, Qt::Key_Return);
                  QVERIFY(Boxes.Messages().size() <= Told + 1);
                  QVERIFY(Dialog.qryList_->Active());
                  QVERIFY(Dialog.isVisible());
                  QCOMPARE(StockContent(Company), Before);
                }
              }
              TypeFind(Dialog, "");
              QCOMPARE(Dialog.qryList_->RecordCount(), 4);
            });
}

void tst_PickItemCost::shouldReturnTheKey() {
  TCompanyWithCosts Company(true);
  std::int32_t Key = 77;
  QVERIFY(DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); },
                    [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 2); }));
  QCOMPARE(Key, 2);
}

void tst_PickItemCost::shouldLeaveTheKeyOnCancel() {
  TCompanyWithCosts Company(false);
  std::int32_t Key = 77;
  QVERIFY(!DrivePick([&] { return CallPickItemCost(Company.Connection(), "A", Key); }, ClickCancel));
  QCOMPARE(Key, 77);
  Company.Execute("DROP TABLE ItemCost");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickItemCost(Company.Connection(), "A", Key));
  QCOMPARE(Key, 77);
}

void tst_PickItemCost::shouldShowAnEmptyListForAnUnknownItem() {
  TCompanyWithCosts Company(false);
  std::int32_t Key = 77;
  for (const char* Item : {"NONE", ""}) {
    QVERIFY(!DrivePick([&] { return CallPickItemCost(Company.Connection(), Item, Key); },
                       [](TDocPickBase& Dialog) {
                         QVERIFY(Dialog.qryList_->IsEmpty());
                         QVERIFY(!Dialog.bbnOK->isEnabled());
                       }));
  }
  QCOMPARE(Key, 77);
}

void tst_PickItemCost::shouldNotDoubleTheQuotesInAnItem() {
  TCompanyWithCosts Company(false);
  Company.Execute("UPDATE ItemCost SET Item = 'O''N' WHERE \"Key\" = 4");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, TfrmPickItemCost::Create(Company.Connection(), "O'N"));
  QCOMPARE(Keys(*TfrmPickItemCost::Create(Company.Connection(), "O''N")), QString("4"));
}

QTEST_MAIN(tst_PickItemCost)
#include "tst_PickItemCost.moc"
