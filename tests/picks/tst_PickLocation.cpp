// The pick of a stock location, and what may be typed where it looks for a number.
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "ads/EDatabaseError.h"
#include "picks/StockDialogs.h"
#include "picks/stock/uPickLocation.h"
#include "support/NumberedTexts.h"
#include "toolkit/Formats.h"
#include "zulcommon/Text.h"

using namespace picks;
using namespace support;
using ads::TFieldType;
using toolkit::TAlignment;
using uPickLocation::CallPickLocation;
using uPickLocation::TfrmPickLocation;

namespace {

constexpr TAlignment Left = TAlignment::taLeftJustify;
constexpr TAlignment Right = TAlignment::taRightJustify;

struct TCompanyWithLocations : TTestCompany {
  TCompanyWithLocations() : TTestCompany(TRows::None) {
    Execute(
        "INSERT INTO ItemLocations (ID, ShortName, FullName) VALUES (1, 'MAIN', 'Main Store'), "
        "(7, 'van', 'Van 17'), (10, 'Café', 'Café Yard'), (17, NULL, NULL)");
    Execute("INSERT INTO ItemDet (Item, ItemLoc, OnHand) VALUES ('A', 1, 5), ('A', 10, 0), ('O''N', 7, 2)");
    Execute("INSERT INTO ItemCost (Item, ItemLoc, UnitCost) VALUES ('A', 1, 12.5)");
  }
};

const QStringList Selects{"SELECT l.ID, l.ShortName, l.FullName, l.ID SortFld",
                          "SELECT l.ID, l.ShortName, l.FullName, UPPER(l.ShortName) SortFld",
                          "SELECT l.ID, l.ShortName, l.FullName, UPPER(l.FullName) SortFld"};

const QString WholeList = "17 | 10 | 1 | 7";

}  // namespace

class tst_PickLocation : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForLocations();
  void shouldAskForTheLocationsOfAnItem();
  void shouldKeepTheTextWhenTheSearchFails();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldShowTheColumns();
  void shouldTakeTheTextsByNumber();
  void shouldListAllLocationsByName();
  void shouldSortTheNumbersAsNumbers();
  void shouldListTheLocationsOfAnItem();
  void shouldListALocationOnceForEachOfItsRows();
  void shouldFindByNumber();
  void shouldFindCodesAndNames();
  void shouldTellOfAWrongNumberOnceAndShowTheWholeList_data();
  void shouldTellOfAWrongNumberOnceAndShowTheWholeList();
  void shouldNotTellWhenAnotherChoiceIsLookedFor();
  void shouldTellOfAWrongNumberAgainWhenTheOrderChanges();
  void shouldNotSearchWithATextThatIsAnExpression();
  void shouldOnlyReadWhateverIsTyped();
  void shouldReturnTheLocation();
  void shouldLeaveTheLocationOnCancel();
  void shouldNotDoubleTheQuotesInAnItem();
  void shouldShowAnEmptyListForAnUnknownItem();
};

void tst_PickLocation::shouldAskForLocations() {
  TCompanyWithLocations Company;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "");
  CompareSql(*Dialog, {Selects,
                       "FROM ItemLocations l | WHERE 0=0",
                       " 7  ",
                       {"AND l.ID =  7  ", "AND UPPER(l.ShortName) LIKE '%7%'", "AND UPPER(l.FullName) LIKE '%7%'"}});
  QCOMPARE(SqlFor(*Dialog, 2, false, 1, " it's é"),
           Selects[2] +
               " | FROM ItemLocations l | WHERE 0=0 | AND UPPER(l.ShortName) LIKE '%IT''S É%' | "
               "ORDER BY SortFld");
  QCOMPARE(SqlFor(*Dialog, 2, false, -1, "x"), Selects[2] + " | FROM ItemLocations l | WHERE 0=0 | ORDER BY SortFld");
}

void tst_PickLocation::shouldAskForTheLocationsOfAnItem() {
  TCompanyWithLocations Company;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), " A");
  CompareSql(*Dialog, {Selects,
                       "FROM ItemLocations l |  INNER JOIN ItemDet d ON l.ID = d.ItemLoc | WHERE d.Item = ' A'",
                       "+1",
                       {"AND l.ID = +1", "AND UPPER(l.ShortName) LIKE '%+1%'", "AND UPPER(l.FullName) LIKE '%+1%'"}});
}

void tst_PickLocation::shouldKeepTheTextWhenTheSearchFails() {
  TCompanyWithLocations Company;
  const TErrorBoxes Boxes;
  const auto All = TfrmPickLocation::Create(Company.Connection(), "");
  CompareRebuilt(*All, Company, Selects, 3, "\n", "FROM ItemLocations l\nWHERE 0=0");
  const auto OfItem = TfrmPickLocation::Create(Company.Connection(), "A");
  CompareRebuilt(*OfItem, Company, Selects, 3, "\n",
                 "FROM ItemLocations l\n INNER JOIN ItemDet d ON l.ID = d.ItemLoc\nWHERE d.Item = 'A'");
  // One for each search by number.
  QCOMPARE(Boxes.Messages(), std::vector<std::string>(6, WrongNumber));
}

void tst_PickLocation::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TCompanyWithLocations Company;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "");
  Ask(*Dialog, -1, false, 1, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString("FROM ItemLocations l\nWHERE 0=0 | ORDER BY SortFld"));
}

void tst_PickLocation::shouldShowTheColumns() {
  TCompanyWithLocations Company;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "");
  CompareColumns(*Dialog, {{"ID", "ID", 0, Right, Right},
                           {"ShortName", "Loc.", 50, Left, Left},
                           {"FullName", "Location", 120, Left, Left}});
  CompareFields(*Dialog, {{"ID", TFieldType::ftAutoInc, 0},
                          {"ShortName", TFieldType::ftString, 5},
                          {"FullName", TFieldType::ftString, 50}});
  CompareChoices(*Dialog, "ID | Loc. | Location", 2);
  QCOMPARE(Dialog->windowTitle(), QString("Select Location"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Locations"));
}

void tst_PickLocation::shouldTakeTheTextsByNumber() {
  TCompanyWithLocations Company;
  const TNumberedTexts Texts;
  const TErrorBoxes Boxes;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "");
  CompareChoices(*Dialog, "T3119 | T3131 | T3247", 2);
  QCOMPARE(Dialog->PickCaption, std::string("T516"));
  QCOMPARE(Dialog->AvailableCaption, std::string("T517"));
  Ask(*Dialog, 0, false, 0, "x");
  Dialog->SetSQL();
  QCOMPARE(Boxes.Messages(), std::vector<std::string>{"T6097"});
}

void tst_PickLocation::shouldListAllLocationsByName() {
  TCompanyWithLocations Company;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "");
  QCOMPARE(Rows(*Dialog, "ID"), WholeList);
  QCOMPARE(Rows(*Dialog, "FullName"), QString(" | Café Yard | Main Store | Van 17"));
}

void tst_PickLocation::shouldSortTheNumbersAsNumbers() {
  TCompanyWithLocations Company;
  std::int32_t Location = 0;
  DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
            [](TDocPickBase& Dialog) {
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Rows(Dialog, "ID"), QString("1 | 7 | 10 | 17"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Rows(Dialog, "ID"), QString("17 | 10 | 7 | 1"));
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Rows(Dialog, "ShortName"), QString("van | MAIN | Café | "));
            });
}

void tst_PickLocation::shouldListTheLocationsOfAnItem() {
  TCompanyWithLocations Company;
  std::int32_t Location = 0;
  DrivePick([&] { return CallPickLocation(Company.Connection(), Location, "A"); },
            [](TDocPickBase& Dialog) {
              QCOMPARE(Rows(Dialog, "ID"), QString("10 | 1"));
              ChooseFindBy(Dialog, 0);
              TypeFind(Dialog, "7");
              QVERIFY(Dialog.qryList_->IsEmpty());
              TypeFind(Dialog, "10");
              QCOMPARE(Rows(Dialog, "ID"), QString("10"));
            });
}

void tst_PickLocation::shouldListALocationOnceForEachOfItsRows() {
  TCompanyWithLocations Company;
  Company.Execute("DROP INDEX FK_ITEM_ItemDet");
  Company.Execute("INSERT INTO ItemDet (Item, ItemLoc, OnHand) VALUES ('A', 1, 3)");
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "A");
  QCOMPARE(Rows(*Dialog, "ID"), QString("10 | 1 | 1"));
}

void tst_PickLocation::shouldFindByNumber() {
  TCompanyWithLocations Company;
  const TErrorBoxes Boxes;
  std::int32_t Location = 0;
  QVERIFY(DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
                    [](TDocPickBase& Dialog) {
                      ChooseFindBy(Dialog, 0);
                      for (const char* Typed : {"7", " 7 ", "+7", "007"}) {
                        TypeFind(Dialog, Typed);
                        QCOMPARE(Rows(Dialog, "ID"), QString("7"));
                      }
                      TypeFind(Dialog, "-7");
                      QVERIFY(Dialog.qryList_->IsEmpty());
                      TypeFind(Dialog, "");
                      QCOMPARE(Rows(Dialog, "ID"), WholeList);
                      TypeFind(Dialog, "17");
                      ClickOK(Dialog);
                    }));
  QCOMPARE(Location, 17);
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickLocation::shouldFindCodesAndNames() {
  TCompanyWithLocations Company;
  std::int32_t Location = 0;
  DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "17");
              QCOMPARE(Rows(Dialog, "ID"), QString("7"));
              TypeFind(Dialog, QString::fromUtf8(" fÉ y "));
              QCOMPARE(Rows(Dialog, "ID"), QString("10"));
              ChooseFindBy(Dialog, 1);
              TypeFind(Dialog, "A");
              QCOMPARE(Rows(Dialog, "ID"), QString("10 | 1 | 7"));
            });
}

void tst_PickLocation::shouldTellOfAWrongNumberOnceAndShowTheWholeList_data() {
  QTest::addColumn<QString>("Typed");
  for (const char* Typed : {"abc", "7x", "seven", "7,5", "'7'7", "--", "é", "7;", "99999999999 x"}) {
    QTest::newRow(Typed) << QString::fromUtf8(Typed);
  }
}

void tst_PickLocation::shouldTellOfAWrongNumberOnceAndShowTheWholeList() {
  QFETCH(QString, Typed);
  TCompanyWithLocations Company;
  std::int32_t Location = 77;
  const TErrorBoxes Boxes;
  QVERIFY(DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
                    [&](TDocPickBase& Dialog) {
                      ChooseFindBy(Dialog, 0);
                      TypeFind(Dialog, "7");
                      QCOMPARE(Rows(Dialog, "ID"), QString("7"));
                      // The button has taken the focus; the box gives it back to the text.
                      Dialog.edFind->setText(Typed);
                      QTest::mouseClick(Dialog.bbnFInd, Qt::LeftButton);
                      QCOMPARE(Boxes.Messages(), std::vector<std::string>{WrongNumber});
                      QCOMPARE(Rows(Dialog, "ID"), WholeList);
                      QCOMPARE(Joined(SqlLines(Dialog)),
                               Selects[2] + "\nFROM ItemLocations l\nWHERE 0=0 | ORDER BY SortFld");
                      QCOMPARE(Dialog.edFind->selectedText(), Typed);
                      QCOMPARE(Dialog.focusWidget(), Dialog.edFind);
                      QVERIFY(Dialog.bbnOK->isEnabled());
                      DoubleClickRow(Dialog, 2);
                    }));
  QCOMPARE(Boxes.Messages().size(), std::size_t(1));
  QCOMPARE(Location, 1);
}

void tst_PickLocation::shouldNotTellWhenAnotherChoiceIsLookedFor() {
  TCompanyWithLocations Company;
  std::int32_t Location = 0;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
            [](TDocPickBase& Dialog) {
              for (const int FindBy : {1, 2}) {
                ChooseFindBy(Dialog, FindBy);
                TypeFind(Dialog, "abc");
                QVERIFY(Dialog.qryList_->IsEmpty());
              }
              ChooseFindBy(Dialog, 0);
              TypeFind(Dialog, "   ");
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Dialog.qryList_->RecordCount(), 4);
            });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickLocation::shouldTellOfAWrongNumberAgainWhenTheOrderChanges() {
  TCompanyWithLocations Company;
  std::int32_t Location = 0;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
            [&](TDocPickBase& Dialog) {
              ChooseFindBy(Dialog, 0);
              TypeFind(Dialog, "abc");
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Boxes.Messages().size(), std::size_t(2));
              QCOMPARE(Rows(Dialog, "ID"), QString("7 | 1 | 10 | 17"));
            });
}

// What is no whole number is told of and never reaches the server, even where the server could answer it.
void tst_PickLocation::shouldNotSearchWithATextThatIsAnExpression() {
  TCompanyWithLocations Company;
  const auto Dialog = TfrmPickLocation::Create(Company.Connection(), "");
  const TErrorBoxes Boxes;
  const std::vector<const char*> Expressions{
      "7.0", "3+4", "7.5", "7 OR l.ID = 10", "l.ID", "0 UNION SELECT 1, 2, 3, 4"};
  for (const char* Typed : Expressions) {
    QCOMPARE(SqlFor(*Dialog, 2, false, 0, Typed), Selects[2] + "\nFROM ItemLocations l\nWHERE 0=0 | ORDER BY SortFld");
    QCOMPARE(Rows(*Dialog, "ID"), WholeList);
    QVERIFY(Dialog->lblRows->text().startsWith(QStringLiteral("The search could not be done.")));
  }
  QCOMPARE(Boxes.Messages().size(), Expressions.size());
}

void tst_PickLocation::shouldOnlyReadWhateverIsTyped() {
  TCompanyWithLocations Company;
  const QString Before = StockContent(Company);
  std::int32_t Location = 0;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
            [&](TDocPickBase& Dialog) {
              for (int FindBy = 0; FindBy < 3; ++FindBy) {
                ChooseFindBy(Dialog, FindBy);
                for (const QString& Typed : NastyTexts()) {
                  const std::size_t Told = Boxes.Messages().size();
                  Dialog.edFind->setText(Typed);
                  QTest::keyClick(Dialog.edFind, Qt::Key_Return);
                  const std::string Text = Dialog.edFind->text().toStdString();
                  const bool Wrong =
                      FindBy == 0 && !zulcommon::Trim(Text).empty() && !toolkit::ReadInteger(Text).has_value();
                  QCOMPARE(Boxes.Messages().size(), Told + (Wrong ? 1 : 0));
                  QVERIFY(Dialog.qryList_->Active());
                  QVERIFY(Dialog.isVisible());
                  // A search that was given up shows the whole list.
                  if (Dialog.qryList_->SQL()->Count() == 2) QCOMPARE(Rows(Dialog, "ID"), WholeList);
                  QCOMPARE(StockContent(Company), Before);
                }
              }
              TypeFind(Dialog, "");
              QCOMPARE(Rows(Dialog, "ID"), WholeList);
            });
}

void tst_PickLocation::shouldReturnTheLocation() {
  TCompanyWithLocations Company;
  std::int32_t Location = 77;
  QVERIFY(DrivePick([&] { return CallPickLocation(Company.Connection(), Location, ""); },
                    [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 3); }));
  QCOMPARE(Location, 7);
}

void tst_PickLocation::shouldLeaveTheLocationOnCancel() {
  TCompanyWithLocations Company;
  std::int32_t Location = 77;
  QVERIFY(!DrivePick([&] { return CallPickLocation(Company.Connection(), Location, "A"); }, ClickCancel));
  QCOMPARE(Location, 77);
  Company.Execute("DROP TABLE ItemDet");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickLocation(Company.Connection(), Location, "A"));
  QCOMPARE(Location, 77);
}

void tst_PickLocation::shouldNotDoubleTheQuotesInAnItem() {
  TCompanyWithLocations Company;
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, TfrmPickLocation::Create(Company.Connection(), "O'N"));
  QCOMPARE(Rows(*TfrmPickLocation::Create(Company.Connection(), "O''N"), "ID"), QString("7"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, TfrmPickLocation::Create(Company.Connection(), "' OR l.ID = '10"));
}

void tst_PickLocation::shouldShowAnEmptyListForAnUnknownItem() {
  TCompanyWithLocations Company;
  std::int32_t Location = 77;
  for (const char* Item : {"NONE", " "}) {
    QVERIFY(!DrivePick([&] { return CallPickLocation(Company.Connection(), Location, Item); },
                       [](TDocPickBase& Dialog) {
                         QVERIFY(Dialog.qryList_->IsEmpty());
                         QVERIFY(!Dialog.bbnOK->isEnabled());
                       }));
  }
  QCOMPARE(Location, 77);
}

QTEST_MAIN(tst_PickLocation)
#include "tst_PickLocation.moc"
