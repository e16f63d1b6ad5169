// The dialog in which rows are ticked.
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <random>

#include "ads/EDatabaseError.h"
#include "pickbase/uDocPickMultiBase.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"
#include "toolkit/EListError.h"

using support::Column;
using support::DrivePick;
using support::TErrorBoxes;
using support::TTestCompany;
using toolkit::TAlignment;
using uDocPickBase::TDocPickBase;
using uDocPickMultiBase::TDocPickMultiBase;
using uDocPickMultiBase::TTickedRows;

namespace {

using TLines = std::vector<std::string>;

// Ticks suburbs.
class TSuburbsDialog : public TDocPickMultiBase {
 public:
  static std::unique_ptr<TSuburbsDialog> Create(ads::TAdsConnection* Connection) {
    return Construct<TSuburbsDialog>(Connection);
  }
  TSuburbsDialog() { Column(qryList_Suburb = TextField("Suburb", 30)).SetWidth(150); }
  void SetUpColumns() override {
    TDocPickMultiBase::SetUpColumns();
    SetPickCaption("Suburbs");
    SetAvailableCaption("Suburbs");
    SetChoices({{qryList_Suburb, "UPPER(Suburb) SortFld", uDocPickBase::Contains("WHERE UPPER(Suburb)")}}, 0);
  }
  void SetSQL() override {
    OpenGuarded([](uDocPickBase::TListQuery& Query) {
      Query.Select("SELECT Suburb, ");
      Query.Add("FROM Suburb");
      Query.Keep();
      Query.Find();
      Query.OrderBy();
    });
  }
  TLines GetSuburbs() {
    TLines Result;
    WalkTicked([&] { Result.push_back(qryList_Suburb->AsString()); });
    return Result;
  }
  using TDocPickMultiBase::PutTickedLast;

  ads::TField* qryList_Suburb;
};

std::vector<int> Ticked(const TDocPickMultiBase& Dialog) {
  return {Dialog.TickedRows.begin(), Dialog.TickedRows.end()};
}

QRect Cell(const TDocPickBase& Dialog, int Row, int Column) {
  return Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(Row, Column));
}

// How much of a cell is painted in the colour of a tick.
int BlackPixels(const TDocPickBase& Dialog, int Row, int Column) {
  const QImage Image = Dialog.dbgAvail->viewport()->grab(Cell(Dialog, Row, Column)).toImage();
  int Count = 0;
  for (int Y = 0; Y < Image.height(); ++Y) {
    for (int X = 0; X < Image.width(); ++X) Count += Image.pixel(X, Y) == qRgb(0, 0, 0) ? 1 : 0;
  }
  return Count;
}

void PressMenuKey(QWidget* Widget) {
  const QPoint At(5, 30);
  QContextMenuEvent Event(QContextMenuEvent::Keyboard, At, Widget->mapToGlobal(At));
  QApplication::sendEvent(Widget, &Event);
}

void RightClick(QWidget* Widget, const QPoint& At) {
  QContextMenuEvent Event(QContextMenuEvent::Mouse, At, Widget->mapToGlobal(At));
  QApplication::sendEvent(Widget, &Event);
}

}  // namespace

class tst_DocPickMultiBase : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void init() {
    Company_ = std::make_unique<TTestCompany>();
    Dialog_ = TSuburbsDialog::Create(Company_->Connection());
  }
  void cleanup() {
    Dialog_.reset();
    Company_.reset();
  }

  void shouldHaveANarrowTickColumnFirst();
  void shouldPutTheTickColumnLastWhenAskedTo();
  void shouldTickByDoubleClick();
  void shouldTakeATickAwayByASecondDoubleClick();
  void shouldTickBySpace();
  void shouldTickByEnterInTheGrid();
  void shouldTickByTheActionOfAnAssistiveProgram();
  void shouldTickByAClickOnTheTick();
  void shouldTickAllAndNoneByShortcuts();
  void shouldOpenTheMenuByShiftF10();
  void shouldConfirmByCtrlEnterFromEverywhere();
  void shouldTellHowToTick();
  void shouldLeaveOtherKeysAlone();
  void shouldKeepTheOrderOfTheTicks();
  void shouldAllowOKOnlyWithATick();
  void shouldReturnTheTickedRows();
  void shouldDoNothingOnAnEmptyList();
  void shouldTickAllByTheMenu();
  void shouldTickNoneByTheMenu();
  void shouldTickAllAndNoneByTheKeyboardAlone();
  void shouldCloseTheMenuOnlyByEscape();
  void shouldKeepTheCurrentRow();
  void shouldTickEveryRowOnceWhenSomeAreTicked();
  void shouldDropTheTicksOnEveryNewQuery_data();
  void shouldDropTheTicksOnEveryNewQuery();
  void shouldDropTheTicksWhenTheListIsClosed();
  void shouldKeepTheTicksWhenTheQueryFails();
  void shouldPaintATickInTickedRowsOnly();
  void shouldTellWhetherARowThatIsBeingPaintedIsTicked();
  void shouldWalkFromTheFirstRowToTheEnd();
  void shouldTickHundredsOfThousandsOfRows();

  void shouldKeepRecordNumbersAsAPlainListDoes();
  void shouldKnowARowThatWasAddedTwice();
  void shouldRaiseForABadIndexAndStayAsItWas();
  void shouldBearNumbersThatAreNoRecordNumbers();

 private:
  void Show(const std::function<void()>& Drive) {
    DrivePick([&] { return Dialog_->ShowPick(); }, [&](TDocPickBase&) { Drive(); });
  }
  void Choose(QAction* Item) {
    QVERIFY(Dialog_->popAllNone->isVisible());
    QTest::mouseClick(Dialog_->popAllNone, Qt::LeftButton, {}, Dialog_->popAllNone->actionGeometry(Item).center());
  }

  std::unique_ptr<TTestCompany> Company_;
  std::unique_ptr<TSuburbsDialog> Dialog_;
};

void tst_DocPickMultiBase::shouldHaveANarrowTickColumnFirst() {
  const ads::TField* Field = Dialog_->qryList_Ticked;
  QCOMPARE(Field->FieldName(), std::string("Ticked"));
  QCOMPARE(Field->objectName(), QStringLiteral("qryList_Ticked"));
  QCOMPARE(Field->DisplayLabel(), std::string("T"));
  QCOMPARE(Field->DataType(), ads::TFieldType::ftBoolean);
  QCOMPARE(Field->Kind(), ads::TFieldKind::fkCalculated);
  const toolkit::TColumn* Column = Dialog_->dbgAvail->Columns()[0];
  QCOMPARE(Column->Field(), Field);
  QCOMPARE(Column->Width(), 16);
  QCOMPARE(Column->Alignment(), TAlignment::taCenter);
  QCOMPARE(Column->TitleAlignment(), TAlignment::taCenter);
  QCOMPARE(Dialog_->mniAll->text(), QStringLiteral("All"));
  QCOMPARE(Dialog_->mniNone->text(), QStringLiteral("None"));
  QCOMPARE(Dialog_->popAllNone->actions(), (QList<QAction*>{Dialog_->mniAll, Dialog_->mniNone}));
  for (const char* Name : {"popAllNone", "mniAll", "mniNone"}) {
    QVERIFY2(Dialog_->findChild<QObject*>(QLatin1String(Name)) != nullptr, Name);
  }
}

void tst_DocPickMultiBase::shouldPutTheTickColumnLastWhenAskedTo() {
  const int Width = Dialog_->ClientWidth();
  Dialog_->PutTickedLast();
  Dialog_->AdjustWidths();
  QCOMPARE(support::ColumnNames(*Dialog_), (TLines{"Suburb", "Ticked"}));
  QCOMPARE(Dialog_->dbgAvail->Columns()[1]->Width(), 16);
  QCOMPARE(Dialog_->dbgAvail->Columns()[1]->TitleAlignment(), TAlignment::taCenter);
  QCOMPARE(Dialog_->ClientWidth(), Width);
}

void tst_DocPickMultiBase::shouldTickByDoubleClick() {
  Show([&] {
    support::DoubleClickRow(*Dialog_, 3);
    QVERIFY(Dialog_->isVisible());
    QCOMPARE(Dialog_->qryList_->RecNo(), 4);
    QVERIFY(Dialog_->qryList_Ticked->AsBoolean());
    support::DoubleClickRow(*Dialog_, 1);
  });
  QCOMPARE(Ticked(*Dialog_), (std::vector{4, 2}));
}

void tst_DocPickMultiBase::shouldTakeATickAwayByASecondDoubleClick() {
  Show([&] {
    support::DoubleClickRow(*Dialog_, 3);
    support::DoubleClickRow(*Dialog_, 1);
    support::DoubleClickRow(*Dialog_, 3);
    QVERIFY(!Dialog_->qryList_Ticked->AsBoolean());
  });
  QCOMPARE(Ticked(*Dialog_), (std::vector{2}));
}

void tst_DocPickMultiBase::shouldTickBySpace() {
  Show([&] {
    Dialog_->dbgAvail->setFocus();
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Space);
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Down);
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Down);
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Space);
    QCOMPARE(Ticked(*Dialog_), (std::vector{1, 3}));
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Space);
  });
  QCOMPARE(Ticked(*Dialog_), (std::vector{1}));
  QCOMPARE(Dialog_->qryList_->RecNo(), 3);
}

void tst_DocPickMultiBase::shouldTickByEnterInTheGrid() {
  bool Open = false;
  Show([&] {
    Dialog_->dbgAvail->setFocus();
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Return);
    Open = Dialog_->isVisible();
  });
  QVERIFY(Open);
  QCOMPARE(Ticked(*Dialog_), (std::vector{1}));
}

void tst_DocPickMultiBase::shouldTickByTheActionOfAnAssistiveProgram() {
  TTestCompany Company;
  const auto Dialog = TSuburbsDialog::Create(Company.Connection());
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              QAccessibleTableInterface* Table =
                  QAccessible::queryAccessibleInterface(Dialog->dbgAvail)->tableInterface();
              QAccessibleInterface* Tick = Table->cellAt(3, 0);
              QCOMPARE(Tick->text(QAccessible::Name), QStringLiteral("Ticked: no"));
              QVERIFY(Tick->state().checkable);
              QVERIFY(!Tick->state().checked);
              Tick->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
              QVERIFY(Tick->state().checked);
              QCOMPARE(Dialog->TickedRows.Count(), 1);
              QVERIFY(Dialog->TickedRows.Contains(4));
              QCOMPARE(Dialog->qryList_->RecNo(), 4);
              QVERIFY(Tick->text(QAccessible::Name).startsWith("Ticked: yes, Suburb: "));
              QVERIFY(Dialog->bbnOK->isEnabled());
              Tick->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
              QCOMPARE(Dialog->TickedRows.Count(), 0);
            });
}

void tst_DocPickMultiBase::shouldTickByAClickOnTheTick() {
  TTestCompany Company;
  const auto Dialog = TSuburbsDialog::Create(Company.Connection());
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              const auto Cell = [&](int Row, int Column) {
                return Dialog->dbgAvail->visualRect(Dialog->dbgAvail->model()->index(Row, Column)).center();
              };
              QWidget* List = Dialog->dbgAvail->viewport();
              QTest::mouseClick(List, Qt::LeftButton, {}, Cell(2, 0));
              QVERIFY(Dialog->TickedRows.Contains(3));
              QCOMPARE(Dialog->qryList_->RecNo(), 3);
              QTest::mouseClick(List, Qt::LeftButton, {}, Cell(4, 1));
              QTest::mouseClick(List, Qt::RightButton, {}, Cell(4, 0));
              QCOMPARE(Dialog->TickedRows.Count(), 1);
              // Pressed on one tick and let go on another.
              QTest::mousePress(List, Qt::LeftButton, {}, Cell(5, 0));
              QTest::mouseRelease(List, Qt::LeftButton, {}, Cell(6, 0));
              QCOMPARE(Dialog->TickedRows.Count(), 1);
              // A double click, as it comes: down, up, double, up.
              for (const int Column : {0, 1}) {
                const int Before = Dialog->TickedRows.Count();
                QTest::mouseClick(List, Qt::LeftButton, {}, Cell(7, Column));
                QTest::mouseDClick(List, Qt::LeftButton, {}, Cell(7, Column));
                QTest::mouseRelease(List, Qt::LeftButton, {}, Cell(7, Column));
                QCOMPARE(std::abs(Dialog->TickedRows.Count() - Before), 1);
              }
            });
}

void tst_DocPickMultiBase::shouldTickAllAndNoneByShortcuts() {
  TTestCompany Company;
  const auto Dialog = TSuburbsDialog::Create(Company.Connection());
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              Dialog->dbgAvail->setFocus();
              QTest::keyClick(Dialog->dbgAvail, Qt::Key_A, Qt::ControlModifier);
              QCOMPARE(Dialog->TickedRows.Count(), Dialog->qryList_->RecordCount());
              QTest::keyClick(Dialog->dbgAvail, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
              QCOMPARE(Dialog->TickedRows.Count(), 0);
              support::TypeFind(*Dialog, "a");
              QTest::keyClicks(Dialog->edFind, "bc");
              QTest::keyClick(Dialog->edFind, Qt::Key_A, Qt::ControlModifier);
              QCOMPARE(Dialog->TickedRows.Count(), 0);
              QCOMPARE(Dialog->edFind->selectedText(), QStringLiteral("bc"));
            });
}

void tst_DocPickMultiBase::shouldOpenTheMenuByShiftF10() {
  TTestCompany Company;
  const auto Dialog = TSuburbsDialog::Create(Company.Connection());
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              Dialog->dbgAvail->setFocus();
              QTest::keyClick(Dialog->dbgAvail, Qt::Key_F10, Qt::ShiftModifier);
              QVERIFY(Dialog->popAllNone->isVisible());
              Dialog->popAllNone->hide();
            });
}

void tst_DocPickMultiBase::shouldConfirmByCtrlEnterFromEverywhere() {
  for (const char* From : {"edFind", "dbgAvail", "ckbDesc", "bbnCancel"}) {
    TTestCompany Company;
    const auto Dialog = TSuburbsDialog::Create(Company.Connection());
    const bool Chosen = DrivePick([&] { return Dialog->ShowPick(); },
                                  [&](TDocPickBase&) {
                                    auto* Widget = Dialog->findChild<QWidget*>(From);
                                    Widget->setFocus();
                                    QTest::keyClick(Widget, Qt::Key_Return, Qt::ControlModifier);
                                    QVERIFY(Dialog->isVisible());  // nothing is ticked
                                    support::DoubleClickRow(*Dialog, 1);
                                    Widget->setFocus();
                                    QTest::keyClick(Widget, Qt::Key_Return, Qt::ControlModifier);
                                  });
    QVERIFY2(Chosen, From);
  }
}

void tst_DocPickMultiBase::shouldTellHowToTick() {
  TTestCompany Company;
  const auto Dialog = TSuburbsDialog::Create(Company.Connection());
  const QStringList Lines = Dialog->dbgAvail->toolTip().split('\n');
  QCOMPARE(Lines.size(), 2);
  QVERIFY(Lines[0].endsWith(" rows"));
  QVERIFY(Lines[1].contains("space bar"));
}

void tst_DocPickMultiBase::shouldLeaveOtherKeysAlone() {
  QVERIFY(!Dialog_->dbgAvailKeyPress('x'));
  QVERIFY(!Dialog_->dbgAvailKeyPress('\r'));
  Show([&] { QTest::keyClicks(Dialog_->dbgAvail, "ab"); });
  QVERIFY(Ticked(*Dialog_).empty());
}

void tst_DocPickMultiBase::shouldKeepTheOrderOfTheTicks() {
  for (const int RecNo : {7, 2, 5}) {
    Dialog_->qryList_->SetRecNo(RecNo);
    Dialog_->dbgAvailDblClick();
  }
  QCOMPARE(Ticked(*Dialog_), (std::vector{7, 2, 5}));
}

void tst_DocPickMultiBase::shouldAllowOKOnlyWithATick() {
  QVERIFY(!Dialog_->actOK->isEnabled());
  QVERIFY(!Dialog_->bbnOK->isEnabled());
  Dialog_->dbgAvailDblClick();
  QVERIFY(Dialog_->bbnOK->isEnabled());
  Dialog_->dbgAvailDblClick();
  QVERIFY(!Dialog_->bbnOK->isEnabled());
  Dialog_->mniAllClick();
  QVERIFY(Dialog_->bbnOK->isEnabled());
  Dialog_->mniNoneClick();
  QVERIFY(!Dialog_->bbnOK->isEnabled());
  Dialog_->mniAllClick();
  Dialog_->qryList_->Close();
  QVERIFY(!Dialog_->bbnOK->isEnabled());
}

void tst_DocPickMultiBase::shouldReturnTheTickedRows() {
  TLines Expected;
  QVERIFY(DrivePick([&] { return Dialog_->ShowPick(); },
                    [&](TDocPickBase&) {
                      const TLines All = Column(*Dialog_, "Suburb");
                      Expected = {All[1], All[4]};
                      support::DoubleClickRow(*Dialog_, 4);
                      support::DoubleClickRow(*Dialog_, 1);
                      support::ClickOK(*Dialog_);
                    }));
  QCOMPARE(Dialog_->GetSuburbs(), Expected);
}

void tst_DocPickMultiBase::shouldDoNothingOnAnEmptyList() {
  Company_->Execute("DELETE FROM Suburb");
  Dialog_ = TSuburbsDialog::Create(Company_->Connection());
  Show([&] {
    Dialog_->dbgAvailDblClick();
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Space);
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Return);
    Dialog_->mniAllClick();
    Dialog_->mniNoneClick();
    QVERIFY(Dialog_->isVisible());
  });
  QVERIFY(Ticked(*Dialog_).empty());
  QVERIFY(!Dialog_->bbnOK->isEnabled());
  QVERIFY(Dialog_->GetSuburbs().empty());
}

void tst_DocPickMultiBase::shouldTickAllByTheMenu() {
  Show([&] {
    RightClick(Dialog_->dbgAvail->viewport(), Cell(*Dialog_, 2, 1).center());
    Choose(Dialog_->mniAll);
    QVERIFY(!Dialog_->popAllNone->isVisible());
  });
  QCOMPARE(Dialog_->TickedRows.Count(), 150);
  QCOMPARE(Dialog_->TickedRows[0], 1);
  QCOMPARE(Dialog_->TickedRows[149], 150);
}

void tst_DocPickMultiBase::shouldTickNoneByTheMenu() {
  Show([&] {
    support::DoubleClickRow(*Dialog_, 3);
    RightClick(Dialog_->dbgAvail->viewport(), Cell(*Dialog_, 2, 1).center());
    Choose(Dialog_->mniNone);
  });
  QCOMPARE(Dialog_->TickedRows.Count(), 0);
}

void tst_DocPickMultiBase::shouldTickAllAndNoneByTheKeyboardAlone() {
  Show([&] {
    Dialog_->dbgAvail->setFocus();
    PressMenuKey(Dialog_->dbgAvail);
    QVERIFY(Dialog_->popAllNone->isVisible());
    QTest::keyClick(Dialog_->popAllNone, Qt::Key_Down);
    QTest::keyClick(Dialog_->popAllNone, Qt::Key_Return);
    QCOMPARE(Dialog_->TickedRows.Count(), 150);
    PressMenuKey(Dialog_->dbgAvail);
    QTest::keyClick(Dialog_->popAllNone, Qt::Key_Down);
    QTest::keyClick(Dialog_->popAllNone, Qt::Key_Down);
    QTest::keyClick(Dialog_->popAllNone, Qt::Key_Return);
    QCOMPARE(Dialog_->TickedRows.Count(), 0);
    QVERIFY(Dialog_->isVisible());
  });
}

void tst_DocPickMultiBase::shouldCloseTheMenuOnlyByEscape() {
  Show([&] {
    PressMenuKey(Dialog_->dbgAvail);
    QTest::keyClick(Dialog_->popAllNone, Qt::Key_Escape);
    QVERIFY(!Dialog_->popAllNone->isVisible());
    QVERIFY(Dialog_->isVisible());
  });
}

void tst_DocPickMultiBase::shouldKeepTheCurrentRow() {
  Dialog_->qryList_->SetRecNo(37);
  Dialog_->mniAllClick();
  QCOMPARE(Dialog_->qryList_->RecNo(), 37);
  QVERIFY(Dialog_->qryList_Ticked->AsBoolean());
  Dialog_->mniNoneClick();
  QCOMPARE(Dialog_->qryList_->RecNo(), 37);
  QVERIFY(!Dialog_->qryList_Ticked->AsBoolean());
  QCOMPARE(Dialog_->dbgAvail->currentIndex().row(), 36);
}

void tst_DocPickMultiBase::shouldTickEveryRowOnceWhenSomeAreTicked() {
  Dialog_->qryList_->SetRecNo(5);
  Dialog_->dbgAvailDblClick();
  Dialog_->mniAllClick();
  Dialog_->mniAllClick();
  QCOMPARE(Dialog_->TickedRows.Count(), 150);
  QCOMPARE(Dialog_->GetSuburbs().size(), std::size_t{150});
}

void tst_DocPickMultiBase::shouldDropTheTicksOnEveryNewQuery_data() {
  QTest::addColumn<QString>("Change");
  for (const char* Change : {"search", "direction", "deleted text", "find-by"}) QTest::newRow(Change) << Change;
}

void tst_DocPickMultiBase::shouldDropTheTicksOnEveryNewQuery() {
  QFETCH(QString, Change);
  Show([&] {
    if (Change != "search" && Change != "direction") support::TypeFind(*Dialog_, "a");
    support::DoubleClickRow(*Dialog_, 2);
    QCOMPARE(Dialog_->TickedRows.Count(), 1);
    if (Change == "search") support::TypeFind(*Dialog_, "b");
    if (Change == "direction") support::ClickBox(Dialog_->ckbDesc);
    if (Change == "deleted text") support::TypeFind(*Dialog_, "");
    if (Change == "find-by") Dialog_->rgFindByClick();
    QCOMPARE(Dialog_->TickedRows.Count(), 0);
    QVERIFY(!Dialog_->bbnOK->isEnabled());
    QVERIFY(!Dialog_->qryList_->IsEmpty());
  });
}

void tst_DocPickMultiBase::shouldDropTheTicksWhenTheListIsClosed() {
  Dialog_->mniAllClick();
  Dialog_->qryList_->Close();
  QCOMPARE(Dialog_->TickedRows.Count(), 0);
}

void tst_DocPickMultiBase::shouldKeepTheTicksWhenTheQueryFails() {
  TErrorBoxes Boxes;
  Show([&] {
    support::DoubleClickRow(*Dialog_, 2);
    Company_->Execute("DROP TABLE Suburb");
    support::ClickBox(Dialog_->ckbDesc);
    QCOMPARE(Ticked(*Dialog_), (std::vector{3}));
    QVERIFY(Dialog_->bbnOK->isEnabled());
  });
  QCOMPARE(Boxes.Messages(), TLines{"no such table: Suburb"});
}

void tst_DocPickMultiBase::shouldPaintATickInTickedRowsOnly() {
  Show([&] {
    support::DoubleClickRow(*Dialog_, 2);
    support::DoubleClickRow(*Dialog_, 5);
    QTest::mouseClick(Dialog_->dbgAvail->viewport(), Qt::LeftButton, {}, Cell(*Dialog_, 0, 1).center());
    QVERIFY(BlackPixels(*Dialog_, 2, 0) > 5);
    QVERIFY(BlackPixels(*Dialog_, 5, 0) > 5);
    QCOMPARE(BlackPixels(*Dialog_, 3, 0), 0);
    Dialog_->mniNoneClick();
    QCOMPARE(BlackPixels(*Dialog_, 2, 0), 0);
  });
}

void tst_DocPickMultiBase::shouldTellWhetherARowThatIsBeingPaintedIsTicked() {
  Dialog_->qryList_->SetRecNo(3);
  Dialog_->dbgAvailDblClick();
  Dialog_->qryList_->SetRecNo(1);
  for (int Row = 0; Row < 6; ++Row) {
    const ads::TRowScope Scope(*Dialog_->qryList_, Row);
    QCOMPARE(Dialog_->qryList_Ticked->AsBoolean(), Row == 2);
  }
  QVERIFY(!Dialog_->qryList_Ticked->AsBoolean());
}

void tst_DocPickMultiBase::shouldWalkFromTheFirstRowToTheEnd() {
  const TLines All = Column(*Dialog_, "Suburb");
  for (const int RecNo : {150, 1, 80}) {
    Dialog_->qryList_->SetRecNo(RecNo);
    Dialog_->dbgAvailDblClick();
  }
  QCOMPARE(Dialog_->GetSuburbs(), (TLines{All[0], All[79], All[149]}));
  QVERIFY(Dialog_->qryList_->Eof());
}

// A step that takes time in proportion to the ticks, for every row, would not come to an end here.
void tst_DocPickMultiBase::shouldTickHundredsOfThousandsOfRows() {
  constexpr int Rows = 200000;
  Company_->Execute("DELETE FROM Suburb");
  Company_->Execute(
      "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 200000) "
      "INSERT INTO Suburb SELECT printf('S%06d', I) FROM N");
  Dialog_ = TSuburbsDialog::Create(Company_->Connection());
  QCOMPARE(Dialog_->qryList_->RecordCount(), Rows);
  Dialog_->mniAllClick();
  QCOMPARE(Dialog_->TickedRows.Count(), Rows);
  TLines Suburbs = Dialog_->GetSuburbs();
  QCOMPARE(static_cast<int>(Suburbs.size()), Rows);
  QCOMPARE(Suburbs.front(), std::string("S000001"));
  QCOMPARE(Suburbs.back(), std::string("S200000"));
  Dialog_->qryList_->SetRecNo(Rows);
  Dialog_->dbgAvailDblClick();
  Dialog_->qryList_->SetRecNo(1);
  Dialog_->dbgAvailDblClick();
  Suburbs = Dialog_->GetSuburbs();
  QCOMPARE(static_cast<int>(Suburbs.size()), Rows - 2);
  QCOMPARE(Suburbs.front(), std::string("S000002"));
  Dialog_->mniNoneClick();
  QVERIFY(Dialog_->GetSuburbs().empty());
}

void tst_DocPickMultiBase::shouldKeepRecordNumbersAsAPlainListDoes() {
  std::mt19937 Random(54);
  const auto Below = [&](int End) { return static_cast<int>(Random() % static_cast<unsigned>(End)); };
  TTickedRows Rows;
  uZULPickLists::TIntegerList Plain;
  for (int Step = 0; Step < 20000; ++Step) {
    const int Value = 1 + Below(40);
    switch (Below(Plain.Count() > 60 ? 9 : 7)) {
      case 0:
      case 1:
        QCOMPARE(Rows.Add(Value), Plain.Add(Value));
        break;
      case 2: {
        const int Index = Below(Plain.Count() + 1);
        Rows.Insert(Index, Value);
        Plain.Insert(Index, Value);
        break;
      }
      case 3:
        if (Plain.Count() > 0) {
          const int Index = Below(Plain.Count());
          Rows.Put(Index, Value);
          Plain.Put(Index, Value);
        }
        break;
      case 4:
        QCOMPARE(Rows.Remove(Value), Plain.Remove(Value));
        break;
      case 5:
        QCOMPARE(Rows.Extract(Value), Plain.Extract(Value));
        break;
      case 6:
        if (Below(500) == 0) {
          Rows.Clear();
          Plain.Clear();
        }
        break;
      default:
        Rows.Delete(0);
        Plain.Delete(0);
    }
    QCOMPARE(Rows.IndexOf(Value), Plain.IndexOf(Value));
    QCOMPARE(Rows.Contains(Value), Plain.IndexOf(Value) >= 0);
    QVERIFY(std::equal(Rows.begin(), Rows.end(), Plain.begin(), Plain.end()));
  }
}

void tst_DocPickMultiBase::shouldKnowARowThatWasAddedTwice() {
  TTickedRows Rows;
  Rows.Add(3);
  Rows.Add(3);
  Rows.Delete(0);
  QVERIFY(Rows.Contains(3));
  Rows.Delete(0);
  QVERIFY(!Rows.Contains(3));
  QCOMPARE(Rows.IndexOf(3), -1);
}

void tst_DocPickMultiBase::shouldRaiseForABadIndexAndStayAsItWas() {
  TTickedRows Rows;
  Rows.Add(3);
  QVERIFY_THROWS_EXCEPTION(toolkit::EListError, Rows.Delete(1));
  QVERIFY_THROWS_EXCEPTION(toolkit::EListError, Rows.Put(1, 4));
  QVERIFY_THROWS_EXCEPTION(toolkit::EListError, Rows.Insert(2, 4));
  QVERIFY_THROWS_EXCEPTION(toolkit::EListError, Rows.Insert(-1, 4));
  QVERIFY(Rows.Contains(3));
  QVERIFY(!Rows.Contains(4));
  QCOMPARE(Rows.Count(), 1);
}

void tst_DocPickMultiBase::shouldBearNumbersThatAreNoRecordNumbers() {
  TTickedRows Rows;
  Rows.Add(-5);
  Rows.Add(0);
  QVERIFY(!Rows.Contains(-5));
  QVERIFY(Rows.Contains(0));
  QVERIFY(!Rows.Contains(std::numeric_limits<std::int32_t>::max()));
  Rows.Delete(0);
  Rows.Delete(0);
  QCOMPARE(Rows.Count(), 0);
  QVERIFY(!Rows.Contains(0));
}

QTEST_MAIN(tst_DocPickMultiBase)
#include "tst_DocPickMultiBase.moc"
