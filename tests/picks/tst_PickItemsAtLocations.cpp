// The picks of an item at a location and of a location of an item.
#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/StockDialogs.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "picks/stock/uPickItemLocation.h"
#include "support/NumberedTexts.h"

using namespace picks;
using namespace support;
using ads::TFieldType;
using toolkit::TAlignment;
using uPickItemAndLocation::CallPickItemAndLocation;
using uPickItemAndLocation::TfrmPickItemAndLocation;
using uPickItemLocation::CallPickLocation;
using uPickItemLocation::TfrmPickItemLocation;

namespace {

constexpr TAlignment Left = TAlignment::taLeftJustify;
constexpr TAlignment Right = TAlignment::taRightJustify;

// A parent with three children at three locations, one quantity of each kind; an item without a parent.
struct TCompanyWithStock : TTestCompany {
  TCompanyWithStock() : TTestCompany(TRows::None) {
    Execute(
        "INSERT INTO Item (Item, \"Desc\", Type, ParentItem, SupplyLot, LocalRefNo) VALUES "
        "('GLASS', 'Glass', 0, NULL, NULL, NULL), ('Glass-4mm', 'Clear 4mm', 0, 'GLASS', 'Lot 9', 'Ref b'), "
        "('GLASS-6MM', 'clear 6mm', 0, 'GLASS', 'Lot 10', 'Ref A'), ('MM-GLASS', 'Bronze', 0, 'GLASS', NULL, NULL), "
        "('LOOSE', 'No parent', 0, '', NULL, NULL), (' O''N', 'Quoted %s 100%', 0, NULL, NULL, NULL)");
    Execute(
        "INSERT INTO ItemLocations (ID, ShortName, FullName) VALUES "
        "(1, 'MAIN', 'Main Store'), (2, 'VAN', 'van'), (3, 'CAFE', 'Café')");
    Execute(
        "INSERT INTO ItemDet (Item, ItemLoc, OnHand, BinLocation) VALUES "
        "('Glass-4mm', 1, 4.5, 'B-2'), ('Glass-4mm', 2, 0, 'a-1'), ('GLASS-6MM', 1, -3, NULL), "
        "('GLASS-6MM', 3, 1234.567, 'A-9'), ('MM-GLASS', 2, NULL, 'C-1'), ('LOOSE', 1, 5, NULL), "
        "(' O''N', 1, 2, 'X')");
  }
};

const QString ItemColumns =
    "SELECT I.Item, D.OnHand, L.FullName, I.\"desc\", I.SupplyLot, I.LocalRefNo, D.BinLocation, D.ItemLoc, ";
const QStringList ItemSelects{
    ItemColumns + "UPPER(I.Item) SORTFLD",       ItemColumns + "UPPER(L.FullName) SORTFLD",
    ItemColumns + "UPPER(I.\"Desc\") SORTFLD",   ItemColumns + "UPPER(I.SupplyLot) SORTFLD",
    ItemColumns + "UPPER(I.LocalRefNo) SORTFLD", ItemColumns + "UPPER(D.BinLocation) SORTFLD"};
const QStringList LocationSelects{
    "SELECT D.OnHand, L.FullName, D.BinLocation, D.ItemLoc, UPPER(L.FullName) SORTFLD",
    "SELECT D.OnHand, L.FullName, D.BinLocation, D.ItemLoc, UPPER(D.BinLocation) SORTFLD"};

}  // namespace

class tst_PickItemsAtLocations : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForItems_data();
  void shouldAskForItems();
  void shouldAskForTheLocationsOfAnItem_data();
  void shouldAskForTheLocationsOfAnItem();
  void shouldBuildEveryLineAgainWhenTheSearchFails();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldAddNoFindLineForAFindByThatThereIsNot();
  void shouldShowTheItemsColumns();
  void shouldShowTheLocationsColumns();
  void shouldTakeTheTextsByNumber();
  void shouldAlwaysShowTwoDecimals();
  void shouldPutTheZeroBoxUnderTheDescendingOne();
  void shouldListWhatIsOnHandOnly();
  void shouldListTheRestWhenTheBoxIsTicked();
  void shouldFindTheEndOfTheValue();
  void shouldFindTheEndOfALocation();
  void shouldSortByEachColumn();
  void shouldReturnItemAndLocation();
  void shouldLeaveTheLocationOnCancel();
  void shouldEmptyTheItemWhenTheDatabaseFails();
  void shouldTakeOneVariableForBothItems();
  void shouldListTheItemsWithoutAParent();
  void shouldNameTheItemInTheCaption_data();
  void shouldNameTheItemInTheCaption();
  void shouldShowAnEmptyListForAnUnknownItem();
  void shouldNotDoubleTheQuotesInACode();
  void shouldStartWithTheBoxTickedWhenAsked();
  void shouldReturnTheLocationOfAnItem();
};

void tst_PickItemsAtLocations::shouldAskForItems_data() {
  QTest::addColumn<QString>("Parent");
  QTest::addColumn<bool>("Zero");
  for (const char* Parent : {"GLASS", "", "no such item"}) {
    for (const bool Zero : {false, true}) {
      QTest::addRow("%s %s", Parent, Zero ? "with zero" : "without") << QString(Parent) << Zero;
    }
  }
}

void tst_PickItemsAtLocations::shouldAskForItems() {
  QFETCH(QString, Parent);
  QFETCH(bool, Zero);
  TCompanyWithStock Company;
  const auto Dialog = TfrmPickItemAndLocation::Create(Parent.toStdString(), Company.Connection());
  Dialog->ckbZero->setChecked(Zero);
  CompareSql(*Dialog, {ItemSelects,
                       "FROM Item I, ItemLocations L, ItemDet D | WHERE I.Item = D.Item AND D.ItemLoc = L.ID | "
                       "AND I.ParentItem = '" +
                           Parent + "'" + (Zero ? "" : " | AND D.OnHand > 0"),
                       " it's é ",
                       {"AND UPPER(I.Item) LIKE '%IT''S É'", "AND UPPER(L.FullName) LIKE '%IT''S É'",
                        "AND UPPER(I.\"Desc\") LIKE '%IT''S É'", "AND UPPER(I.SupplyLot) LIKE '%IT''S É'",
                        "AND UPPER(I.LocalRefNo) LIKE '%IT''S É'", "AND UPPER(D.BinLocation) LIKE '%IT''S É'"}});
}

void tst_PickItemsAtLocations::shouldAskForTheLocationsOfAnItem_data() {
  shouldAskForItems_data();
}

void tst_PickItemsAtLocations::shouldAskForTheLocationsOfAnItem() {
  QFETCH(QString, Parent);
  QFETCH(bool, Zero);
  TCompanyWithStock Company;
  const auto Dialog = TfrmPickItemLocation::Create(Parent.toStdString(), Company.Connection(), Zero);
  CompareSql(*Dialog, {LocationSelects,
                       "FROM ItemLocations L, ItemDet D | WHERE D.ItemLoc = L.ID | AND D.Item = '" + Parent + "'" +
                           (Zero ? "" : " | AND D.OnHand > 0"),
                       " it's é ",
                       {"AND UPPER(L.FullName) LIKE '%IT''S É'", "AND UPPER(D.BinLocation) LIKE '%IT''S É'"}});
}

// The lines stay lines: nothing is kept as one entry.
void tst_PickItemsAtLocations::shouldBuildEveryLineAgainWhenTheSearchFails() {
  TCompanyWithStock Company;
  const auto Items = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  CompareRebuilt(*Items, Company, ItemSelects, 6, " | ",
                 "FROM Item I, ItemLocations L, ItemDet D | WHERE I.Item = D.Item AND D.ItemLoc = L.ID | "
                 "AND I.ParentItem = 'GLASS' | AND D.OnHand > 0");
  const auto Locations = TfrmPickItemLocation::Create("Glass-4mm", Company.Connection(), true);
  CompareRebuilt(*Locations, Company, LocationSelects, 2, " | ",
                 "FROM ItemLocations L, ItemDet D | WHERE D.ItemLoc = L.ID | AND D.Item = 'Glass-4mm'");
}

void tst_PickItemsAtLocations::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TCompanyWithStock Company;
  const auto Items = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  Ask(*Items, -1, true, 0, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Items->SetSQL());
  QCOMPARE(Joined(SqlLines(*Items)),
           QString("FROM Item I, ItemLocations L, ItemDet D | WHERE I.Item = D.Item AND D.ItemLoc = L.ID | "
                   "AND I.ParentItem = 'GLASS' | AND D.OnHand > 0 | ORDER BY SortFld DESC"));
}

void tst_PickItemsAtLocations::shouldAddNoFindLineForAFindByThatThereIsNot() {
  TCompanyWithStock Company;
  const auto Locations = TfrmPickItemLocation::Create("Glass-4mm", Company.Connection(), true);
  QCOMPARE(SqlFor(*Locations, 0, false, -1, "x"), LocationSelects[0] +
                                                      " | FROM ItemLocations L, ItemDet D | WHERE D.ItemLoc = L.ID | "
                                                      "AND D.Item = 'Glass-4mm' | ORDER BY SortFld");
}

void tst_PickItemsAtLocations::shouldShowTheItemsColumns() {
  TCompanyWithStock Company;
  const auto Dialog = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  CompareColumns(*Dialog, {{"Item", "Item", 90, Right, Right},
                           {"OnHand", "Quantity", 0, Right, Right},
                           {"desc", "Description", 130, Left, Left},
                           {"FullName", "Location", 120, Left, Left},
                           {"SupplyLot", "Supply Lot", 75, Left, Left},
                           {"LocalRefNo", "Local Ref.", 75, Left, Left},
                           {"BinLocation", "Bin", 75, Left, Left}});
  CompareFields(*Dialog, {{"Item", TFieldType::ftString, 15},
                          {"OnHand", TFieldType::ftFloat, 0},
                          {"FullName", TFieldType::ftString, 50},
                          {"desc", TFieldType::ftString, 35},
                          {"SupplyLot", TFieldType::ftString, 25},
                          {"LocalRefNo", TFieldType::ftString, 20},
                          {"BinLocation", TFieldType::ftString, 15},
                          {"ItemLoc", TFieldType::ftInteger, 0}});
  CompareChoices(*Dialog, "Item | Location | Description | Supply Lot | Local Ref. | Bin", 2);
  QCOMPARE(Dialog->windowTitle(), QString("Select Item at Location"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Items"));
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QVERIFY(!Dialog->ckbZero->isChecked());
  // Seven columns with a line behind each, in the frame of the group, the choices and the buttons beside them.
  QCOMPARE(Dialog->gbList->width(), Dialog->dbgAvail->width() + 8);
  QVERIFY(Dialog->dbgAvail->maximumViewportSize().width() >= 90 + 130 + 120 + 3 * 75 + 7);
  QCOMPARE(Dialog->gbFind->x(), Dialog->gbList->x() + Dialog->gbList->width() + 4);
}

void tst_PickItemsAtLocations::shouldShowTheLocationsColumns() {
  TCompanyWithStock Company;
  const auto Dialog = TfrmPickItemLocation::Create("LOOSE", Company.Connection(), false);
  CompareColumns(*Dialog, {{"OnHand", "Quantity", 0, Right, Right},
                           {"FullName", "Location", 120, Left, Left},
                           {"BinLocation", "Bin", 80, Left, Left}});
  CompareFields(*Dialog, {{"OnHand", TFieldType::ftFloat, 0},
                          {"FullName", TFieldType::ftString, 50},
                          {"BinLocation", TFieldType::ftString, 15},
                          {"ItemLoc", TFieldType::ftInteger, 0}});
  CompareChoices(*Dialog, "Location | Bin", 0);
  QCOMPARE(Dialog->gbList->title(), QString("Available Locations"));
  QVERIFY(!Dialog->ckbZero->isChecked());
}

void tst_PickItemsAtLocations::shouldTakeTheTextsByNumber() {
  TCompanyWithStock Company;
  const TNumberedTexts Texts;
  const auto Items = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  CompareChoices(*Items, "T3008 | T3247 | T3007 | T3089 | T3114 | T3115", 2);
  QCOMPARE(Items->qryList_OnHand->DisplayLabel(), std::string("T3087"));
  QCOMPARE(Items->PickCaption, std::string("Item at Location"));
  QCOMPARE(Items->AvailableCaption, std::string("Items"));
  const auto Locations = TfrmPickItemLocation::Create("GLASS-6MM", Company.Connection(), false);
  CompareChoices(*Locations, "T3247 | T3115", 0);
  QCOMPARE(Locations->qryList_OnHand->DisplayLabel(), std::string("T3087"));
  QCOMPARE(Locations->PickCaption, std::string("T516 for GLASS-6MM - clear 6mm"));
  QCOMPARE(Locations->AvailableCaption, std::string("T517"));
}

void tst_PickItemsAtLocations::shouldAlwaysShowTwoDecimals() {
  TCompanyWithStock Company;
  Company.Execute("UPDATE Sys SET QtyDec = 0, PrcDec = 4");
  const auto Items = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  QCOMPARE(ShownRows(*Items, "OnHand"), QString("4.50 | 1,234.57"));
  const auto Locations = TfrmPickItemLocation::Create("GLASS-6MM", Company.Connection(), true);
  QCOMPARE(ShownRows(*Locations, "OnHand"), QString("1,234.57 | -3.00"));
}

void tst_PickItemsAtLocations::shouldPutTheZeroBoxUnderTheDescendingOne() {
  TCompanyWithStock Company;
  const auto Items = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  const auto Locations = TfrmPickItemLocation::Create("LOOSE", Company.Connection(), true);
  const std::vector<std::pair<const TDocPickBase*, const QCheckBox*>> Both{{Items.get(), Items->ckbZero},
                                                                           {Locations.get(), Locations->ckbZero}};
  for (const auto& [Dialog, Box] : Both) {
    QCOMPARE(Box->objectName(), QString("ckbZero"));
    QCOMPARE(Box->text(), QString("Zero Onhand"));
    QCOMPARE(Box->pos(), Dialog->ckbDesc->pos() + QPoint(0, Dialog->ckbDesc->height()));
    // Its caption is as wide as it is, and all of it is in the dialog.
    QVERIFY(Box->width() >= Box->fontMetrics().horizontalAdvance(Box->text()) + 18);
    QVERIFY(Box->geometry().right() < Dialog->pnlForm->width());
    QVERIFY(Box->geometry().bottom() < Dialog->ClientHeight());
  }
}

void tst_PickItemsAtLocations::shouldListWhatIsOnHandOnly() {
  TCompanyWithStock Company;
  const auto Items = TfrmPickItemAndLocation::Create("GLASS", Company.Connection());
  QCOMPARE(Rows(*Items, "Item"), QString("Glass-4mm | GLASS-6MM"));
  QCOMPARE(Rows(*Items, "FullName"), QString("Main Store | Café"));
  const auto Locations = TfrmPickItemLocation::Create("Glass-4mm", Company.Connection(), false);
  QCOMPARE(Rows(*Locations, "ItemLoc"), QString("1"));
}

void tst_PickItemsAtLocations::shouldListTheRestWhenTheBoxIsTicked() {
  TCompanyWithStock Company;
  std::string Item;
  std::int32_t Location = 0;
  DrivePickAs<TfrmPickItemAndLocation>(
      [&] { return CallPickItemAndLocation("GLASS", Company.Connection(), Item, Location); },
      [](TfrmPickItemAndLocation& Dialog) {
        ClickBox(Dialog.ckbZero);
        QVERIFY(Dialog.ckbZero->isChecked());
        QCOMPARE(Rows(Dialog, "Item").split(" | ").size(), 5);
        ChooseOrderBy(Dialog, 0);
        // Without a quantity: an empty cell.
        QCOMPARE(ShownRows(Dialog, "OnHand").section(" | ", -1), QString());
        QCOMPARE(Rows(Dialog, "Item").section(" | ", -1), QString("MM-GLASS"));
        ClickBox(Dialog.ckbZero);
        QCOMPARE(Rows(Dialog, "Item"), QString("Glass-4mm | GLASS-6MM"));
      });
  DrivePickAs<TfrmPickItemLocation>([&] { return CallPickLocation("MM-GLASS", Company.Connection(), Location, false); },
                                    [](TfrmPickItemLocation& Dialog) {
                                      QVERIFY(Dialog.qryList_->IsEmpty());
                                      QVERIFY(!Dialog.bbnOK->isEnabled());
                                      ClickBox(Dialog.ckbZero);
                                      QCOMPARE(ShownRows(Dialog, "OnHand"), QString());
                                      QCOMPARE(Rows(Dialog, "ItemLoc"), QString("2"));
                                      QVERIFY(Dialog.bbnOK->isEnabled());
                                    });
}

void tst_PickItemsAtLocations::shouldFindTheEndOfTheValue() {
  TCompanyWithStock Company;
  std::string Item;
  std::int32_t Location = 0;
  DrivePickAs<TfrmPickItemAndLocation>(
      [&] { return CallPickItemAndLocation("GLASS", Company.Connection(), Item, Location); },
      [](TfrmPickItemAndLocation& Dialog) {
        ClickBox(Dialog.ckbZero);
        const auto Found = [&Dialog](int FindBy, const char* Typed, const std::string& Field) {
          ChooseFindBy(Dialog, FindBy);
          TypeFind(Dialog, QString::fromUtf8(Typed));
          QStringList Values = Rows(Dialog, Field).split(" | ");
          Values.removeDuplicates();
          Values.sort();
          return Values.join(" | ");
        };
        // Two end with it, a third one starts with it.
        QCOMPARE(Found(0, "mm", "Item"), QString("GLASS-6MM | Glass-4mm"));
        QCOMPARE(Found(0, "MM-", "Item"), QString());
        QCOMPARE(Found(0, "glass", "Item"), QString("MM-GLASS"));
        QCOMPARE(Found(1, "é", "FullName"), QString("Café"));
        QCOMPARE(Found(1, "Store", "FullName"), QString("Main Store"));
        QCOMPARE(Found(1, "Main", "FullName"), QString());
        QCOMPARE(Found(2, " 4MM ", "desc"), QString("Clear 4mm"));
        QCOMPARE(Found(2, "clear", "desc"), QString());
        // A wildcard may be typed.
        QCOMPARE(Found(2, "clear%", "desc"), QString("Clear 4mm | clear 6mm"));
        QCOMPARE(Found(3, "10", "SupplyLot"), QString("Lot 10"));
        QCOMPARE(Found(4, "a", "LocalRefNo"), QString("Ref A"));
        QCOMPARE(Found(5, "-1", "BinLocation"), QString("C-1 | a-1"));
      });
}

void tst_PickItemsAtLocations::shouldFindTheEndOfALocation() {
  TCompanyWithStock Company;
  std::int32_t Location = 0;
  DrivePick([&] { return CallPickLocation("Glass-4mm", Company.Connection(), Location, true); },
            [](TDocPickBase& Dialog) {
              QCOMPARE(Rows(Dialog, "FullName"), QString("Main Store | van"));
              TypeFind(Dialog, "STORE");
              QCOMPARE(Rows(Dialog, "FullName"), QString("Main Store"));
              TypeFind(Dialog, "Main");
              QCOMPARE(Rows(Dialog, "FullName"), QString());
              ChooseFindBy(Dialog, 1);
              TypeFind(Dialog, "1");
              QCOMPARE(Rows(Dialog, "BinLocation"), QString("a-1"));
            });
}

void tst_PickItemsAtLocations::shouldSortByEachColumn() {
  TCompanyWithStock Company;
  std::string Item;
  std::int32_t Location = 0;
  DrivePickAs<TfrmPickItemAndLocation>(
      [&] { return CallPickItemAndLocation("GLASS", Company.Connection(), Item, Location); },
      [](TfrmPickItemAndLocation& Dialog) {
        ClickBox(Dialog.ckbZero);
        const auto Sorted = [&Dialog](int OrderBy, const std::string& Field) {
          ChooseOrderBy(Dialog, OrderBy);
          return Rows(Dialog, Field);
        };
        QCOMPARE(Sorted(0, "Item"), QString("Glass-4mm | Glass-4mm | GLASS-6MM | GLASS-6MM | MM-GLASS"));
        QCOMPARE(Sorted(1, "FullName"), QString("Café | Main Store | Main Store | van | van"));
        QCOMPARE(Sorted(2, "desc"), QString("Bronze | Clear 4mm | Clear 4mm | clear 6mm | clear 6mm"));
        QCOMPARE(Sorted(3, "SupplyLot"), QString(" | Lot 10 | Lot 10 | Lot 9 | Lot 9"));
        QCOMPARE(Sorted(4, "LocalRefNo"), QString(" | Ref A | Ref A | Ref b | Ref b"));
        QCOMPARE(Sorted(5, "BinLocation"), QString(" | a-1 | A-9 | B-2 | C-1"));
        ClickBox(Dialog.ckbDesc);
        QCOMPARE(Rows(Dialog, "BinLocation"), QString("C-1 | B-2 | A-9 | a-1 | "));
      });
}

void tst_PickItemsAtLocations::shouldReturnItemAndLocation() {
  TCompanyWithStock Company;
  std::string Item = "old";
  std::int32_t Location = 77;
  QVERIFY(DrivePick([&] { return CallPickItemAndLocation("GLASS", Company.Connection(), Item, Location); },
                    [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 1); }));
  QCOMPARE(Item, std::string("GLASS-6MM"));
  QCOMPARE(Location, 3);
}

void tst_PickItemsAtLocations::shouldLeaveTheLocationOnCancel() {
  TCompanyWithStock Company;
  std::string Item = "old";
  std::int32_t Location = 77;
  QVERIFY(!DrivePick([&] { return CallPickItemAndLocation("GLASS", Company.Connection(), Item, Location); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Item, std::string());
                       Dialog.qryList_->Last();
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Item, std::string());
  QCOMPARE(Location, 77);
  QVERIFY(!DrivePick([&] { return CallPickLocation("LOOSE", Company.Connection(), Location, false); }, ClickCancel));
  QCOMPARE(Location, 77);
}

void tst_PickItemsAtLocations::shouldEmptyTheItemWhenTheDatabaseFails() {
  TCompanyWithStock Company;
  std::string Item = "old";
  std::int32_t Location = 77;
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickItemAndLocation("it's", Company.Connection(), Item, Location));
  QCOMPARE(Item, std::string());
  QCOMPARE(Location, 77);
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickLocation("it's", Company.Connection(), Location, true));
  QCOMPARE(Location, 77);
}

void tst_PickItemsAtLocations::shouldTakeOneVariableForBothItems() {
  TCompanyWithStock Company;
  std::string Item = "GLASS";
  std::int32_t Location = 0;
  QVERIFY(DrivePick([&] { return CallPickItemAndLocation(Item, Company.Connection(), Item, Location); }, ClickOK));
  QCOMPARE(Item, std::string("Glass-4mm"));
  QCOMPARE(Location, 1);
}

void tst_PickItemsAtLocations::shouldListTheItemsWithoutAParent() {
  TCompanyWithStock Company;
  const auto Dialog = TfrmPickItemAndLocation::Create("", Company.Connection());
  QCOMPARE(Rows(*Dialog, "Item"), QString("LOOSE"));
}

void tst_PickItemsAtLocations::shouldNameTheItemInTheCaption_data() {
  QTest::addColumn<QString>("Item");
  QTest::addColumn<QString>("Caption");
  QTest::newRow("known") << "Glass-4mm"
                         << "Select Location for Glass-4mm - Clear 4mm";
  QTest::newRow("without stock") << "GLASS"
                                 << "Select Location for GLASS - Glass";
  QTest::newRow("unknown") << "NONE"
                           << "Select Location";
  QTest::newRow("in another case") << "loose"
                                   << "Select Location";
  QTest::newRow("empty") << ""
                         << "Select Location";
}

void tst_PickItemsAtLocations::shouldNameTheItemInTheCaption() {
  QFETCH(QString, Item);
  QFETCH(QString, Caption);
  TCompanyWithStock Company;
  const auto Dialog = TfrmPickItemLocation::Create(Item.toStdString(), Company.Connection(), false);
  QCOMPARE(Dialog->windowTitle(), Caption);
  QCOMPARE(Dialog->gbList->title(), QString("Available Locations"));
  QCOMPARE(Dialog->tblItem_->TableName(), std::string("Item"));
  QCOMPARE(Dialog->tblItem_->IndexName(), std::string("PK_ITEM"));
}

void tst_PickItemsAtLocations::shouldShowAnEmptyListForAnUnknownItem() {
  TCompanyWithStock Company;
  std::string Item;
  std::int32_t Location = 77;
  const auto SeeNothing = [](TDocPickBase& Dialog) {
    QVERIFY(Dialog.qryList_->IsEmpty());
    QVERIFY(!Dialog.bbnOK->isEnabled());
    ClickOK(Dialog);
    QVERIFY(Dialog.isVisible());
  };
  QVERIFY(!DrivePick([&] { return CallPickLocation("NONE", Company.Connection(), Location, true); }, SeeNothing));
  QVERIFY(
      !DrivePick([&] { return CallPickItemAndLocation("NONE", Company.Connection(), Item, Location); }, SeeNothing));
  QCOMPARE(Location, 77);
}

// A caller that doubles them itself finds the item; its name for the caption is looked up as it was passed.
void tst_PickItemsAtLocations::shouldNotDoubleTheQuotesInACode() {
  TCompanyWithStock Company;
  const auto Doubled = TfrmPickItemLocation::Create(" O''N", Company.Connection(), false);
  QCOMPARE(Rows(*Doubled, "BinLocation"), QString("X"));
  QCOMPARE(Doubled->windowTitle(), QString("Select Location"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, TfrmPickItemLocation::Create(" O'N", Company.Connection(), false));
  // A condition that is torn apart is another query.
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                           TfrmPickItemLocation::Create("' OR D.Item = ' O''N", Company.Connection(), false));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                           TfrmPickItemLocation::Create("'; DROP TABLE Item; --", Company.Connection(), false));
  Company.Execute("UPDATE Item SET Item = ' ON ' WHERE Item = ' O''N'");
  QCOMPARE(TfrmPickItemLocation::Create(" ON ", Company.Connection(), false)->windowTitle(),
           QString("Select Location for ON - Quoted %s 100%"));
}

void tst_PickItemsAtLocations::shouldStartWithTheBoxTickedWhenAsked() {
  TCompanyWithStock Company;
  std::int32_t Location = 0;
  DrivePickAs<TfrmPickItemLocation>([&] { return CallPickLocation("Glass-4mm", Company.Connection(), Location, true); },
                                    [](TfrmPickItemLocation& Dialog) {
                                      QVERIFY(Dialog.ckbZero->isChecked());
                                      QCOMPARE(Rows(Dialog, "ItemLoc"), QString("1 | 2"));
                                      ClickBox(Dialog.ckbZero);
                                      QCOMPARE(Rows(Dialog, "ItemLoc"), QString("1"));
                                    });
}

void tst_PickItemsAtLocations::shouldReturnTheLocationOfAnItem() {
  TCompanyWithStock Company;
  std::int32_t Location = 77;
  QVERIFY(DrivePick([&] { return CallPickLocation("Glass-4mm", Company.Connection(), Location, true); },
                    [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 1); }));
  QCOMPARE(Location, 2);
}

QTEST_MAIN(tst_PickItemsAtLocations)
#include "tst_PickItemsAtLocations.moc"
