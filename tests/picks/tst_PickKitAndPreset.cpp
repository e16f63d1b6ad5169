// The picks of an option of a kit and of a preset's line, and the pictures of the item types.
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <limits>

#include "ads/EDatabaseError.h"
#include "picks/StockDialogs.h"
#include "picks/stock/ItemTypeIcons.h"
#include "picks/stock/uPickItemPresetDetail.h"
#include "picks/stock/uPickKitDetail.h"
#include "support/NumberedTexts.h"
#include "support/Pictures.h"

using namespace picks;
using namespace support;
using ads::TFieldType;
using toolkit::TAlignment;
using uOptionPickBase::TOptionPickBase;
using uPickItemPresetDetail::CallPickPresetDetail;
using uPickItemPresetDetail::TfrmPickItemPresetDetail;
using uPickKitDetail::CallPickKitDetail;
using uPickKitDetail::TfrmPickKitDetail;

namespace {

constexpr int IconColumn = 1;
constexpr int Side = 15;

// The item types by their numbers, as their kept pictures are named.
constexpr const char* TypeNames[] = {"item-stock", "item-non-stock", "item-service", "item-labour",
                                     "item-kit",   "item-preset",    "item-comment"};

// Options whose items are of each type, of types that there are not, without a type, and one whose item is gone. The
// same ones for a kit and for a preset's line.
struct TCompanyWithOptions : TTestCompany {
  TCompanyWithOptions() : TTestCompany(TRows::None) {
    Execute(
        "INSERT INTO Item (Item, \"Desc\", Type) VALUES ('T0', 'a stock', 0), ('T1', 'b non-stock', 1), "
        "('T2', 'c service', 2), ('T3', 'd labour', 3), ('T4', 'e kit', 4), ('T5', 'f preset', 5), "
        "('T6', 'g comment', 6), ('T7', 'h unknown', 7), ('T-1', 'i below', -1), ('TN', 'j none', NULL), "
        "('lower-x', 'K Lower', 0), ('TW', 'l wide', 65536), ('O''N', NULL, 0)");
    Execute(
        "INSERT INTO Kits (ID, Item, Descript) VALUES (1, 'T4', 'All %s types'), (2, 'T4', NULL), (3, 'T4', 'None')");
    Execute(
        "INSERT INTO PresetDetails (LineID, PresetID, Descript) VALUES (1, 9, 'All %s types'), (2, 9, NULL), "
        "(3, 9, 'None')");
    for (const char* Table : {"KitDetails (KitID, Item, \"Default\")", "PresetOptions (LineID, Item, \"Default\")"}) {
      Execute(QStringLiteral("INSERT INTO ") + Table +
              " SELECT 1, Item, CASE Item WHEN 'T2' THEN 1 WHEN 'T5' THEN 1 WHEN 'T0' THEN NULL ELSE 0 END FROM Item");
      Execute(QStringLiteral("INSERT INTO ") + Table + " VALUES (1, 'gone', 0), (2, 'T1', 0), (2, 'T2', 0)");
    }
  }

  std::unique_ptr<TOptionPickBase> Dialog(bool Kit, std::int32_t ID) {
    if (Kit) return TfrmPickKitDetail::Create(Connection(), ID);
    return TfrmPickItemPresetDetail::Create(Connection(), ID);
  }
  bool Pick(bool Kit, std::int32_t ID, std::string& Item) {
    return Kit ? CallPickKitDetail(Connection(), ID, Item) : CallPickPresetDetail(Connection(), ID, Item);
  }
};

QImage Painted(int Picture, const QColor& Behind, qreal Scale = 1) {
  QImage Image((QSizeF(Side, Side) * Scale).toSize(), QImage::Format_RGB32);
  Image.setDevicePixelRatio(Scale);
  Image.fill(Behind);
  QPainter Painter(&Image);
  stock::ItemTypeIcons().Draw(Painter, 0, 0, Picture);
  return Image;
}

// What the cell of a row shows where the picture belongs.
QImage IconShown(TDocPickBase& Dialog, int Row) {
  const QRect Cell = Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(Row, IconColumn));
  const QImage Grid = Dialog.dbgAvail->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  return Grid.copy(Cell.left(), Cell.top() + 2, Side, Side);
}

QRgb ShownAt(TDocPickBase& Dialog, int Row, int Column, QPoint At) {
  const QRect Cell = Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(Row, Column));
  return Dialog.dbgAvail->viewport()->grab().toImage().pixel(Cell.topLeft() + At);
}

int DifferentPixels(const QImage& A, const QImage& B) {
  int Count = 0;
  for (int Y = 0; Y < A.height(); ++Y) {
    for (int X = 0; X < A.width(); ++X) {
      if (std::abs(qGray(A.pixel(X, Y)) - qGray(B.pixel(X, Y))) > 40) ++Count;
    }
  }
  return Count;
}

int RowOf(TDocPickBase& Dialog, const std::string& Item) {
  const auto Items = Column(Dialog, "Item");
  return static_cast<int>(std::find(Items.begin(), Items.end(), Item) - Items.begin());
}

QPalette Palette(const TDocPickBase& Dialog) {
  return Dialog.dbgAvail->palette();
}

}  // namespace

class tst_PickKitAndPreset : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForTheOptionsOfAKit_data() { AddNumbers(); }
  void shouldAskForTheOptionsOfAKit();
  void shouldAskForTheOptionsOfAPresetsLine_data() { AddNumbers(); }
  void shouldAskForTheOptionsOfAPresetsLine();
  void shouldKeepTheTextWhenTheSearchFails();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldShowTheColumns_data() { AddBoth(); }
  void shouldShowTheColumns();
  void shouldTakeTheTextsByNumber_data() { AddBoth(); }
  void shouldTakeTheTextsByNumber();
  void shouldNameTheKitInTheCaption();
  void shouldNameThePresetsLineInTheCaption();
  void shouldNumberThePicturesByType_data() { AddBoth(); }
  void shouldNumberThePicturesByType();
  void shouldShowThePictureOfEachType_data() { AddBoth(); }
  void shouldShowThePictureOfEachType();
  void shouldShowNoPictureForAnItemThatIsGone_data() { AddBoth(); }
  void shouldShowNoPictureForAnItemThatIsGone();
  void shouldShowNoPictureForABlankItem_data() { AddBoth(); }
  void shouldShowNoPictureForABlankItem();
  void shouldHighlightThePictureWhileTheGridHasTheFocus();
  void shouldTickTheDefaultOption();
  void shouldStandOnTheDefaultOption_data() { AddBoth(); }
  void shouldStandOnTheDefaultOption();
  void shouldShowADefaultOptionFarDown();
  void shouldStandOnTheFirstRowWithoutADefault_data() { AddBoth(); }
  void shouldStandOnTheFirstRowWithoutADefault();
  void shouldNotComeBackToTheDefaultAfterASearch();
  void shouldFindCodesAsTheyAreStored_data() { AddBoth(); }
  void shouldFindCodesAsTheyAreStored();
  void shouldFindDescriptionsInAnyCase_data() { AddBoth(); }
  void shouldFindDescriptionsInAnyCase();
  void shouldSortByCodeAndDescription_data() { AddBoth(); }
  void shouldSortByCodeAndDescription();
  void shouldReturnTheItem_data() { AddBoth(); }
  void shouldReturnTheItem();
  void shouldKeepTheItemOfAKitOnCancel();
  void shouldEmptyTheItemOfAPresetOnCancel();
  void shouldShowAnEmptyListForAnUnknownNumber_data() { AddBoth(); }
  void shouldShowAnEmptyListForAnUnknownNumber();
  void shouldDrawSevenPicturesThatDiffer_data();
  void shouldDrawSevenPicturesThatDiffer();
  void shouldKeepThePicturesWithinTheirSize();
  void shouldDrawWhatTheTypeMeans();

 private:
  static void AddNumbers();
  static void AddBoth();
};

void tst_PickKitAndPreset::AddNumbers() {
  QTest::addColumn<int>("ID");
  for (const int ID : {0, 1, -5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    QTest::addRow("%d", ID) << ID;
  }
}

void tst_PickKitAndPreset::AddBoth() {
  QTest::addColumn<bool>("Kit");
  QTest::newRow("kit") << true;
  QTest::newRow("preset") << false;
}

void tst_PickKitAndPreset::shouldAskForTheOptionsOfAKit() {
  QFETCH(int, ID);
  TCompanyWithOptions Company;
  const auto Dialog = TfrmPickKitDetail::Create(Company.Connection(), ID);
  CompareSql(*Dialog,
             {{"SELECT D.Item, I.[Desc], D.[Default], I.Type, UPPER(D.Item) SortFld",
               "SELECT D.Item, I.[Desc], D.[Default], I.Type, UPPER(I.[Desc]) SortFld"},
              "FROM KitDetails D LEFT OUTER JOIN Item I ON D.Item = I.Item | WHERE D.KitID = " + QString::number(ID),
              " it's é ",
              {"AND D.Item LIKE '%IT''S É%'", "AND UPPER(I.[Desc]) LIKE '%IT''S É%'"}});
}

void tst_PickKitAndPreset::shouldAskForTheOptionsOfAPresetsLine() {
  QFETCH(int, ID);
  TCompanyWithOptions Company;
  const auto Dialog = TfrmPickItemPresetDetail::Create(Company.Connection(), ID);
  CompareSql(*Dialog, {{"SELECT O.Item, I.[Desc], O.[Default], I.Type, UPPER(O.Item) SortFld",
                        "SELECT O.Item, I.[Desc], O.[Default], I.Type, UPPER(I.[Desc]) SortFld"},
                       "FROM PresetOptions O LEFT OUTER JOIN Item I ON O.Item = I.Item | WHERE O.LineID = " +
                           QString::number(ID),
                       " it's é ",
                       {"AND O.Item LIKE '%IT''S É%'", "AND UPPER(I.[Desc]) LIKE '%IT''S É%'"}});
}

void tst_PickKitAndPreset::shouldKeepTheTextWhenTheSearchFails() {
  TCompanyWithOptions Company;
  const auto Kit = TfrmPickKitDetail::Create(Company.Connection(), 1);
  CompareRebuilt(*Kit, Company,
                 {"SELECT D.Item, I.[Desc], D.[Default], I.Type, UPPER(D.Item) SortFld",
                  "SELECT D.Item, I.[Desc], D.[Default], I.Type, UPPER(I.[Desc]) SortFld"},
                 2, "\n", "FROM KitDetails D LEFT OUTER JOIN Item I ON D.Item = I.Item\nWHERE D.KitID = 1");
  const auto Preset = TfrmPickItemPresetDetail::Create(Company.Connection(), 2);
  CompareRebuilt(*Preset, Company,
                 {"SELECT O.Item, I.[Desc], O.[Default], I.Type, UPPER(O.Item) SortFld",
                  "SELECT O.Item, I.[Desc], O.[Default], I.Type, UPPER(I.[Desc]) SortFld"},
                 2, "\n", "FROM PresetOptions O LEFT OUTER JOIN Item I ON O.Item = I.Item\nWHERE O.LineID = 2");
}

void tst_PickKitAndPreset::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TCompanyWithOptions Company;
  const auto Dialog = Company.Dialog(true, 1);
  Ask(*Dialog, -1, false, -1, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString("FROM KitDetails D LEFT OUTER JOIN Item I ON D.Item = I.Item\n"
                                              "WHERE D.KitID = 1 | ORDER BY SortFld"));
}

void tst_PickKitAndPreset::shouldShowTheColumns() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  const auto Dialog = Company.Dialog(Kit, 1);
  CompareColumns(*Dialog, {{"Item", "Item", 63, TAlignment::taRightJustify, TAlignment::taRightJustify},
                           {"TypeIndex", " ", 16, TAlignment::taCenter, TAlignment::taCenter},
                           {"Desc", "Description", 200, TAlignment::taLeftJustify, TAlignment::taLeftJustify},
                           {"Default", "D", 16, TAlignment::taCenter, TAlignment::taCenter}});
  CompareFields(*Dialog, {{"Item", TFieldType::ftString, 15},
                          {"Desc", TFieldType::ftString, 35},
                          {"Default", TFieldType::ftBoolean, 0},
                          {"Type", TFieldType::ftSmallint, 0},
                          {"TypeIndex", TFieldType::ftSmallint, 0}});
  QCOMPARE(Dialog->qryList_TypeIndex->Kind(), ads::TFieldKind::fkCalculated);
  CompareChoices(*Dialog, "Item | Description", 1);
  QCOMPARE(Dialog->gbList->title(), QString(Kit ? "Available Kit Options" : "Available Preset Options"));
  QCOMPARE(Dialog->imImages.Size(), QSize(Side, Side));
  QCOMPARE(Dialog->imImages.Count(), 7);
}

void tst_PickKitAndPreset::shouldTakeTheTextsByNumber() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  const TNumberedTexts Texts;
  const auto Dialog = Company.Dialog(Kit, 7);
  CompareChoices(*Dialog, "T3008 | T3007", 1);
  QCOMPARE(Dialog->qryList_Default->DisplayLabel(), std::string("D"));
  QCOMPARE(Dialog->qryList_TypeIndex->DisplayLabel(), std::string(" "));
}

void tst_PickKitAndPreset::shouldNameTheKitInTheCaption() {
  TCompanyWithOptions Company;
  const std::vector<std::pair<int, const char*>> Captions{{1, "Select Kit Option for : All %s types"},
                                                          {2, "Select Kit Option for : "},
                                                          {4, "Select Kit Option"},
                                                          {-1, "Select Kit Option"}};
  for (const auto& [ID, Caption] : Captions) {
    QCOMPARE(TfrmPickKitDetail::Create(Company.Connection(), ID)->Caption(), std::string(Caption));
  }
  const auto Dialog = TfrmPickKitDetail::Create(Company.Connection(), 1);
  QCOMPARE(Dialog->tblKits_->IndexName(), std::string("PK_ID"));
  QCOMPARE(Dialog->tblKits_Item->AsString(), std::string("T4"));
  QCOMPARE(Dialog->tblKits_ID->AsInteger(), 1);
}

void tst_PickKitAndPreset::shouldNameThePresetsLineInTheCaption() {
  TCompanyWithOptions Company;
  const std::vector<std::pair<int, const char*>> Captions{{1, "Select Preset Options for : All %s types"},
                                                          {2, "Select Preset Options for : "},
                                                          {4, "Select Preset Option"},
                                                          {-1, "Select Preset Option"}};
  for (const auto& [ID, Caption] : Captions) {
    QCOMPARE(TfrmPickItemPresetDetail::Create(Company.Connection(), ID)->Caption(), std::string(Caption));
  }
  const auto Dialog = TfrmPickItemPresetDetail::Create(Company.Connection(), 1);
  QCOMPARE(Dialog->tblDetails_->IndexName(), std::string("PK_LINEID"));
  QCOMPARE(Dialog->tblDetails_LineID->AsInteger(), 1);
}

void tst_PickKitAndPreset::shouldNumberThePicturesByType() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  const auto Dialog = Company.Dialog(Kit, 1);
  QMap<QString, QString> Numbers;
  for (int Row = 0; Row < Dialog->qryList_->RecordCount(); ++Row) {
    const ads::TRowScope Scope(*Dialog->qryList_, Row);
    const ads::TField* Number = Dialog->qryList_TypeIndex;
    Numbers[Text(Dialog->qryList_Item->AsString())] = Number->IsNull() ? "none" : Text(Number->AsString());
  }
  const QMap<QString, QString> Expected{{"T0", "0"},      {"T1", "1"},    {"T2", "2"},    {"T3", "3"},
                                        {"T4", "4"},      {"T5", "5"},    {"T6", "6"},    {"T7", "none"},
                                        {"T-1", "none"},  {"TN", "none"}, {"TW", "none"}, {"gone", "none"},
                                        {"lower-x", "0"}, {"O'N", "0"}};
  QCOMPARE(Numbers, Expected);
}

void tst_PickKitAndPreset::shouldShowThePictureOfEachType() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick([&] { return Company.Pick(Kit, 1, Item); },
            [](TDocPickBase& Dialog) {
              Dialog.qryList_->Locate("Item", "TN");
              for (int Type = 0; Type < 7; ++Type) {
                const int Row = RowOf(Dialog, "T" + std::to_string(Type));
                const QColor Behind = Palette(Dialog).color(QPalette::Base);
                QVERIFY2(LooksLike(IconShown(Dialog, Row), KeptPictures({TypeNames[Type]}, Behind)), TypeNames[Type]);
              }
            });
}

void tst_PickKitAndPreset::shouldShowNoPictureForAnItemThatIsGone() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  std::string Code;
  DrivePick([&] { return Company.Pick(Kit, 1, Code); },
            [](TDocPickBase& Dialog) {
              QImage Nothing(Side, Side, QImage::Format_RGB32);
              Nothing.fill(Palette(Dialog).color(QPalette::Base));
              for (const char* Item : {"gone", "T7", "T-1", "TN", "TW"}) {
                QCOMPARE(IconShown(Dialog, RowOf(Dialog, Item)), Nothing);
              }
              // The row is listed all the same, and may be picked.
              QVERIFY(Dialog.qryList_->Locate("Item", "gone"));
              QVERIFY(Dialog.qryList_->FieldByName("Desc")->IsNull());
              ClickOK(Dialog);
            });
  QCOMPARE(Code, std::string("gone"));
}

// Even when there is an item of that code, with a type.
void tst_PickKitAndPreset::shouldShowNoPictureForABlankItem() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  Company.Execute("INSERT INTO Item (Item, \"Desc\", Type) VALUES ('', 'x empty', 3), ('  ', 'y blank', 3)");
  Company.Execute("INSERT INTO KitDetails (KitID, Item, \"Default\") VALUES (2, '', 0), (2, '  ', 0)");
  Company.Execute("INSERT INTO PresetOptions (LineID, Item, \"Default\") VALUES (2, '', 0), (2, '  ', 0)");
  std::string Code;
  DrivePick([&] { return Company.Pick(Kit, 2, Code); },
            [](TDocPickBase& Dialog) {
              const int Empty = RowOf(Dialog, "");
              const int Blank = RowOf(Dialog, "  ");
              QCOMPARE(Dialog.qryList_->RecordCount(), 4);
              const auto Types = Column(Dialog, "Type");
              QCOMPARE(Types[static_cast<std::size_t>(Empty)], std::string("3"));
              QCOMPARE(Types[static_cast<std::size_t>(Blank)], std::string("3"));
              QCOMPARE(Column(Dialog, "TypeIndex")[static_cast<std::size_t>(Empty)], std::string());
              QImage Nothing(Side, Side, QImage::Format_RGB32);
              Nothing.fill(Palette(Dialog).color(QPalette::Base));
              QCOMPARE(IconShown(Dialog, Empty), Nothing);
              QCOMPARE(IconShown(Dialog, Blank), Nothing);
            });
}

// The row's own colour is shown as long as the grid has the focus; else the picture keeps the grid's behind it.
void tst_PickKitAndPreset::shouldHighlightThePictureWhileTheGridHasTheFocus() {
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick(
      [&] { return Company.Pick(true, 1, Item); },
      [](TDocPickBase& Dialog) {
        const int Row = RowOf(Dialog, "T2");
        QCOMPARE(Dialog.qryList_->RecNo(), Row + 1);
        const QColor Highlight = Palette(Dialog).color(QPalette::Highlight);
        Dialog.edFind->setFocus();
        QVERIFY(LooksLike(IconShown(Dialog, Row), Painted(2, Palette(Dialog).color(QPalette::Base))));
        QCOMPARE(ShownAt(Dialog, Row, IconColumn, {8, 1}), Highlight.rgb());
        Dialog.dbgAvail->setFocus();
        QVERIFY(Dialog.dbgAvail->hasFocus());
        QVERIFY(LooksLike(IconShown(Dialog, Row), Painted(2, Highlight)));
        QVERIFY(LooksLike(IconShown(Dialog, RowOf(Dialog, "T3")), Painted(3, Palette(Dialog).color(QPalette::Base))));
      });
}

void tst_PickKitAndPreset::shouldTickTheDefaultOption() {
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick([&] { return Company.Pick(true, 1, Item); },
            [](TDocPickBase& Dialog) {
              const QImage Grid = Dialog.dbgAvail->viewport()->grab().toImage();
              const auto IsEmpty = [&](const std::string& Code) {
                const QRect Cell = Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(RowOf(Dialog, Code), 3));
                const QImage Shown = Grid.copy(Cell.adjusted(0, 0, -1, -1));
                for (int Y = 0; Y < Shown.height(); ++Y) {
                  for (int X = 0; X < Shown.width(); ++X) {
                    if (Shown.pixel(X, Y) != Shown.pixel(0, 0)) return false;
                  }
                }
                return true;
              };
              QVERIFY(!IsEmpty("T2"));
              QVERIFY(!IsEmpty("T5"));
              QVERIFY(IsEmpty("T0"));
              QVERIFY(IsEmpty("T1"));
            });
}

void tst_PickKitAndPreset::shouldStandOnTheDefaultOption() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  const auto Dialog = Company.Dialog(Kit, 1);
  QCOMPARE(Dialog->GetSelectedItem(), std::string("T2"));
  std::string Item;
  QVERIFY(DrivePick([&] { return Company.Pick(Kit, 1, Item); },
                    [](TDocPickBase& Shown) {
                      QCOMPARE(Shown.dbgAvail->currentIndex().row(), RowOf(Shown, "T2"));
                      ClickOK(Shown);
                    }));
  QCOMPARE(Item, std::string("T2"));
}

void tst_PickKitAndPreset::shouldShowADefaultOptionFarDown() {
  TCompanyWithOptions Company;
  for (int Number = 100; Number < 300; ++Number) {
    Company.Execute("INSERT INTO Item (Item, \"Desc\", Type) VALUES (?, ?, 0)", {Number, Number});
    Company.Execute("INSERT INTO KitDetails (KitID, Item, \"Default\") VALUES (3, ?, ?)", {Number, Number == 250});
  }
  std::string Item;
  QVERIFY(DrivePick([&] { return Company.Pick(true, 3, Item); },
                    [](TDocPickBase& Dialog) {
                      QCOMPARE(Dialog.qryList_->RecNo(), 151);
                      const QRect Row = Dialog.dbgAvail->visualRect(Dialog.dbgAvail->currentIndex());
                      QVERIFY(!Row.isEmpty());
                      QVERIFY(Dialog.dbgAvail->viewport()->rect().contains(Row));
                      DoubleClickRow(Dialog, 150);
                    }));
  QCOMPARE(Item, std::string("250"));
}

void tst_PickKitAndPreset::shouldStandOnTheFirstRowWithoutADefault() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  const auto Dialog = Company.Dialog(Kit, 2);
  QCOMPARE(Dialog->qryList_->RecNo(), 1);
  QCOMPARE(Dialog->GetSelectedItem(), std::string("T1"));
}

void tst_PickKitAndPreset::shouldNotComeBackToTheDefaultAfterASearch() {
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick([&] { return Company.Pick(true, 1, Item); },
            [](TDocPickBase& Dialog) {
              QVERIFY(Dialog.qryList_->RecNo() > 1);
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Dialog.qryList_->RecNo(), 1);
            });
}

// Only the typed text is in upper case.
void tst_PickKitAndPreset::shouldFindCodesAsTheyAreStored() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick([&] { return Company.Pick(Kit, 1, Item); },
            [](TDocPickBase& Dialog) {
              ChooseFindBy(Dialog, 0);
              const auto Found = [&Dialog](const char* Typed) {
                TypeFind(Dialog, Typed);
                return Rows(Dialog, "Item");
              };
              QCOMPARE(Found("t4"), QString("T4"));
              QCOMPARE(Found("o'n"), QString("O'N"));
              QCOMPARE(Found("lower"), QString());
              QCOMPARE(Found("gone"), QString());
              QCOMPARE(Found("-"), QString("T-1 | lower-x"));
              QCOMPARE(Found("wer-%"), QString());
            });
}

void tst_PickKitAndPreset::shouldFindDescriptionsInAnyCase() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick([&] { return Company.Pick(Kit, 1, Item); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "k lOwEr");
              QCOMPARE(Rows(Dialog, "Item"), QString("lower-x"));
              TypeFind(Dialog, "stock");
              QCOMPARE(Rows(Dialog, "Item"), QString("T0 | T1"));
              TypeFind(Dialog, "nothing");
              QVERIFY(Dialog.qryList_->IsEmpty());
              QVERIFY(!Dialog.bbnOK->isEnabled());
            });
}

void tst_PickKitAndPreset::shouldSortByCodeAndDescription() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  std::string Item;
  DrivePick([&] { return Company.Pick(Kit, 1, Item); },
            [](TDocPickBase& Dialog) {
              QCOMPARE(Rows(Dialog, "Desc"),
                       QString(" |  | a stock | b non-stock | c service | d labour | e kit | f preset | g comment | "
                               "h unknown | i below | j none | K Lower | l wide"));
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Rows(Dialog, "Item"),
                       QString("gone | lower-x | O'N | T-1 | T0 | T1 | T2 | T3 | T4 | T5 | T6 | T7 | TN | TW"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Rows(Dialog, "Item").section(" | ", -2), QString("lower-x | gone"));
            });
}

void tst_PickKitAndPreset::shouldReturnTheItem() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  std::string Item = "old";
  QVERIFY(
      DrivePick([&] { return Company.Pick(Kit, 2, Item); }, [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 1); }));
  QCOMPARE(Item, std::string("T2"));
}

void tst_PickKitAndPreset::shouldKeepTheItemOfAKitOnCancel() {
  TCompanyWithOptions Company;
  std::string Item = "old";
  QVERIFY(!DrivePick([&] { return CallPickKitDetail(Company.Connection(), 1, Item); }, ClickCancel));
  QCOMPARE(Item, std::string("old"));
  Company.Execute("DROP TABLE KitDetails");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickKitDetail(Company.Connection(), 1, Item));
  QCOMPARE(Item, std::string("old"));
}

void tst_PickKitAndPreset::shouldEmptyTheItemOfAPresetOnCancel() {
  TCompanyWithOptions Company;
  std::string Item = "old";
  QVERIFY(!DrivePick([&] { return CallPickPresetDetail(Company.Connection(), 1, Item); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Item, std::string());
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Item, std::string());
  Item = "old";
  Company.Execute("DROP TABLE PresetDetails");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickPresetDetail(Company.Connection(), 1, Item));
  QCOMPARE(Item, std::string());
}

void tst_PickKitAndPreset::shouldShowAnEmptyListForAnUnknownNumber() {
  QFETCH(bool, Kit);
  TCompanyWithOptions Company;
  for (const std::int32_t ID : {4, 0, -1}) {
    std::string Item = "old";
    QVERIFY(!DrivePick([&] { return Company.Pick(Kit, ID, Item); },
                       [&](TDocPickBase& Dialog) {
                         QVERIFY(Dialog.qryList_->IsEmpty());
                         QVERIFY(!Dialog.bbnOK->isEnabled());
                         QCOMPARE(Dialog.windowTitle(), QString(Kit ? "Select Kit Option" : "Select Preset Option"));
                         DoubleClickRow(Dialog, 0);
                         QVERIFY(Dialog.isVisible());
                       }));
    QCOMPARE(Item, std::string(Kit ? "old" : ""));
  }
}

void tst_PickKitAndPreset::shouldDrawSevenPicturesThatDiffer_data() {
  QTest::addColumn<QColor>("Behind");
  QTest::addColumn<double>("Scale");
  QTest::newRow("white") << QColor(Qt::white) << 1.0;
  QTest::newRow("selection") << QColor(48, 140, 198) << 1.0;
  QTest::newRow("dark") << QColor(40, 40, 40) << 1.0;
  QTest::newRow("white, twice as fine") << QColor(Qt::white) << 2.0;
}

void tst_PickKitAndPreset::shouldDrawSevenPicturesThatDiffer() {
  QFETCH(QColor, Behind);
  QFETCH(double, Scale);
  const QImage Nothing = Painted(-1, Behind, Scale);
  for (int A = 0; A < 7; ++A) {
    QVERIFY(DifferentPixels(Painted(A, Behind, Scale), Nothing) > 30 * Scale * Scale);
    for (int B = A + 1; B < 7; ++B) {
      QVERIFY2(DifferentPixels(Painted(A, Behind, Scale), Painted(B, Behind, Scale)) > 30 * Scale * Scale,
               qPrintable(QStringLiteral("%1 and %2").arg(A).arg(B)));
    }
  }
  QCOMPARE(Painted(7, Behind, Scale), Nothing);
}

void tst_PickKitAndPreset::shouldKeepThePicturesWithinTheirSize() {
  for (int Picture = 0; Picture < 7; ++Picture) {
    QImage Image(Side + 10, Side + 10, QImage::Format_ARGB32_Premultiplied);
    Image.fill(Qt::transparent);
    {
      QPainter Painter(&Image);
      stock::ItemTypeIcons().Draw(Painter, 5, 5, Picture);
    }
    QPainter Painter(&Image);
    Painter.setCompositionMode(QPainter::CompositionMode_Clear);
    Painter.fillRect(5, 5, Side, Side, Qt::transparent);
    Painter.end();
    for (int Y = 0; Y < Image.height(); ++Y) {
      for (int X = 0; X < Image.width(); ++X) QVERIFY(qAlpha(Image.pixel(X, Y)) < 40);
    }
  }
}

void tst_PickKitAndPreset::shouldDrawWhatTheTypeMeans() {
  for (int Type = 0; Type < 7; ++Type) {
    QImage Painted(Side, Side, QImage::Format_ARGB32_Premultiplied);
    Painted.fill(Qt::transparent);
    QPainter Painter(&Painted);
    stock::ItemTypeIcons().Draw(Painter, 0, 0, Type);
    Painter.end();
    QVERIFY2(LooksLikeKept(Painted, TypeNames[Type]), TypeNames[Type]);
  }
}

QTEST_MAIN(tst_PickKitAndPreset)
#include "tst_PickKitAndPreset.moc"
