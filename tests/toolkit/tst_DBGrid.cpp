#include <QTest>
#include <QtWidgets>
#include <map>
#include <set>
#include <stdexcept>

#include "toolkit/Cities.h"
#include "toolkit/DBGrid.h"
#include "toolkit/EListError.h"
#include "toolkit/ErrorBoxAnswer.h"
#include "toolkit/Form.h"

using toolkit::EListError;
using toolkit::TAlignment;
using toolkit::TColumn;
using toolkit::TDBGrid;
using toolkit::TForm;
using toolkit::TGridDrawState;
using toolkit::TGridDrawStateFlag;

namespace {

constexpr int RowHeight = 18;  // with the line

// A form with a grid over places, ten of which are seen at once, and an edit behind it.
struct TSample : TForm {
  explicit TSample(int Rows) : Cities(Rows) {
    Grid->SetDataSet(Cities.Query.get());
    Grid->AddColumn(Cities.Zip);
    Grid->AddColumn(Cities.City).SetWidth(120);
    Grid->AddColumn(Cities.People);
    Grid->resize(100, 2 * Grid->frameWidth() + 18 + 10 * RowHeight);
    Grid->SetClientWidth(Grid->ColumnsWidth());
    Edit->move(0, Grid->height() + 4);
    SetClientSize(Grid->width(), Grid->height() + 40);
  }

  TSample& Open() {
    Cities.Query->Open();
    return *this;
  }

  bool Show() {
    show();
    Grid->setFocus();
    return QTest::qWaitForWindowActive(this);
  }

  void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) const { QTest::keyClick(Grid, Key, Modifiers); }

  // The middle of a cell, in the viewport.
  QPoint Cell(int Row, int Column) const { return Grid->visualRect(Grid->model()->index(Row, Column)).center(); }

  QModelIndex Index(int Row, int Column) const { return Grid->model()->index(Row, Column); }

  int RecNo() const { return Cities.Query->RecNo(); }
  int ShownRow() const { return Grid->currentIndex().row() + 1; }
  int TopRow() const { return Grid->rowAt(0) + 1; }
  int BottomRow() const { return Grid->rowAt(Grid->viewport()->height() - 1) + 1; }

  TCities Cities;
  TDBGrid* Grid = new TDBGrid(this);
  QLineEdit* Edit = new QLineEdit(this);
};

using TMove = std::function<void(TSample& Form)>;

void Wheel(QWidget* Over, int Notches) {
  const QPointF At(Over->rect().center());
  QWheelEvent Event(At, Over->mapToGlobal(At), {}, QPoint(0, 120 * Notches), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(Over, &Event);
}

// The columns of an image, from and to, that hold a pixel darker than half.
std::pair<int, int> DarkColumns(const QImage& Image) {
  std::pair Result(-1, -1);
  for (int X = 0; X < Image.width(); ++X) {
    for (int Y = 0; Y < Image.height(); ++Y) {
      if (qGray(Image.pixel(X, Y)) >= 128) continue;
      if (Result.first < 0) Result.first = X;
      Result.second = X;
    }
  }
  return Result;
}

// The tool tip that comes up over a place; empty when none does.
QString ToolTipAt(QWidget* Over, const QPoint& At) {
  QToolTip::hideText();
  QTest::qWait(400);  // it fades
  QHelpEvent Event(QEvent::ToolTip, At, Over->mapToGlobal(At));
  QApplication::sendEvent(Over, &Event);
  const QString Text = QToolTip::isVisible() ? QToolTip::text() : QString();
  QToolTip::hideText();
  return Text;
}

// What assistive programs select with.
QAccessibleTableInterface& Table(const TSample& Form) {
  return *QAccessible::queryAccessibleInterface(Form.Grid)->tableInterface();
}

void Toggle(const TSample& Form, int Row) {
  Table(Form).cellAt(Row, 1)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

QImage CellImage(const TSample& Form, int Row, int Column) {
  const QRect Cell = Form.Grid->visualRect(Form.Grid->model()->index(Row, Column));
  return Form.Grid->viewport()->grab(Cell).toImage();
}

}  // namespace

Q_DECLARE_METATYPE(TMove)

class tst_DBGrid : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void init() { QApplication::setStyle(QStringLiteral("Fusion")); }

  // Rows and texts.

  void shouldShowTheRowsOfTheDataSet() {
    TSample Form(3);
    const QAbstractItemModel* Model = Form.Grid->model();
    QCOMPARE(Model->rowCount(), 0);
    Form.Open();
    QCOMPARE(Model->rowCount(), 3);
    QCOMPARE(Model->columnCount(), 3);
    QCOMPARE(Model->index(2, 1).data().toString(), QStringLiteral("City 3"));
    QCOMPARE(Model->index(1, 2).data().toString(), QStringLiteral("20"));
    QCOMPARE(Form.RecNo(), 1);
    Form.Cities.Query->Close();
    QCOMPARE(Model->rowCount(), 0);
  }

  void shouldShowTheNewRowsWhenTheDataSetIsOpenedAgain() {
    TSample Form(50);
    QVERIFY(Form.Open().Show());
    Form.Press(Qt::Key_End);
    Form.Cities.Execute(QStringLiteral("DELETE FROM Area WHERE People > 300"));
    Form.Cities.Query->Open();
    QCOMPARE(Form.Grid->model()->rowCount(), 30);
    QCOMPARE(Form.ShownRow(), 1);
    QCOMPARE(Form.TopRow(), 1);
  }

  void shouldBeEmptyWithoutADataSet() {
    TSample Form(3);
    Form.Open();
    Form.Grid->SetDataSet(nullptr);
    QCOMPARE(Form.Grid->model()->rowCount(), 0);
    QVERIFY(Form.Show());
    Form.Press(Qt::Key_Down);
    Form.Press(Qt::Key_Return);
    Form.Grid->grab();
    QCOMPARE(Form.RecNo(), 1);
  }

  void shouldBeEmptyWhenTheDataSetIsGone() {
    TSample Form(3);
    QVERIFY(Form.Open().Show());
    Form.Cities.Query.reset();
    QVERIFY(Form.Grid->DataSet() == nullptr);
    QCOMPARE(Form.Grid->model()->rowCount(), 0);
    QVERIFY(Form.Grid->Columns()[0]->Field() == nullptr);
    Form.Grid->grab();
    Form.Press(Qt::Key_Down);
    QVERIFY(Form.Grid->Columns()[0]->Title().empty());
  }

  void shouldReadOnlyTheRowsThatAreSeen() {
    TSample Form(1000000);
    std::set<std::string> Read;
    Form.Cities.City->OnGetText = [&Read](const ads::TField& Sender, std::string& Text) {
      Text = Sender.AsString();
      Read.insert(Text);
    };
    QVERIFY(Form.Open().Show());
    Form.Grid->grab();
    QCOMPARE(Read.size(), std::size_t{10});
    Form.Press(Qt::Key_End);
    Form.Grid->grab();
    Form.Press(Qt::Key_PageUp);
    Form.Grid->grab();
    QCOMPARE(*Read.rbegin(), std::string("City 999999"));
    QVERIFY2(Read.size() <= 40, std::to_string(Read.size()).c_str());
    QVERIFY(Read.count("City 1000000") == 1);
  }

  // The cursor.

  void shouldFollowTheCursorOfTheDataSet() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    QCOMPARE(Form.ShownRow(), 1);
    Form.Cities.Query->SetRecNo(60);
    QCOMPARE(Form.ShownRow(), 60);
    QVERIFY(Form.TopRow() <= 60 && 60 <= Form.BottomRow());
    QVERIFY(Form.Cities.Query->Locate("City", "City 7"));
    QCOMPARE(Form.ShownRow(), 7);
    Form.Cities.Query->Last();
    QCOMPARE(Form.ShownRow(), 100);
  }

  void shouldShowTheCurrentRowWhenItIsShownLater() {
    TSample Form(100);
    Form.Open();
    Form.Cities.Query->SetRecNo(80);
    QVERIFY(Form.Show());
    QCOMPARE(Form.ShownRow(), 80);
    QVERIFY(Form.TopRow() <= 80 && 80 <= Form.BottomRow());
  }

  void shouldNotFollowWhileControlsAreDisabled() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    Form.Cities.Query->DisableControls();
    Form.Cities.Query->Last();
    QCOMPARE(Form.ShownRow(), 1);
    Form.Cities.Query->EnableControls();
    QCOMPARE(Form.ShownRow(), 100);
  }

  void shouldMoveTheCursorByKeys() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    const auto RowAfter = [&Form](Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
      Form.Press(Key, Modifiers);
      return Form.ShownRow() == Form.RecNo() ? Form.RecNo() : -1;
    };
    QCOMPARE(RowAfter(Qt::Key_Down), 2);
    QCOMPARE(RowAfter(Qt::Key_Down, Qt::ControlModifier), 3);
    QCOMPARE(RowAfter(Qt::Key_Down, Qt::ShiftModifier), 4);
    QCOMPARE(RowAfter(Qt::Key_Up), 3);
    QCOMPARE(RowAfter(Qt::Key_PageDown), 13);
    QCOMPARE(RowAfter(Qt::Key_PageUp), 3);
    QCOMPARE(RowAfter(Qt::Key_End), 100);
    QCOMPARE(RowAfter(Qt::Key_Down), 100);
    QCOMPARE(RowAfter(Qt::Key_Home), 1);
    QCOMPARE(RowAfter(Qt::Key_Up), 1);
    QCOMPARE(RowAfter(Qt::Key_PageUp), 1);
    QCOMPARE(RowAfter(Qt::Key_End, Qt::ControlModifier), 100);
    QCOMPARE(RowAfter(Qt::Key_PageDown), 100);
    QCOMPARE(RowAfter(Qt::Key_Home, Qt::ControlModifier), 1);
    QCOMPARE(RowAfter(Qt::Key_Right), 1);
    QCOMPARE(RowAfter(Qt::Key_Left), 1);
  }

  void shouldMoveTheCursorByAClick() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    QTest::mouseClick(Form.Grid->viewport(), Qt::LeftButton, {}, Form.Cell(4, 1));
    QCOMPARE(Form.RecNo(), 5);
    QCOMPARE(Form.Grid->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(Form.Grid->selectionModel()->selectedRows()[0].row(), 4);
  }

  void shouldAlwaysKeepItsRowSelected() {
    TSample Form(3);
    QVERIFY(Form.Open().Show());
    QTest::mouseClick(Form.Grid->viewport(), Qt::LeftButton, Qt::ControlModifier, Form.Cell(1, 0));
    QTest::mouseClick(Form.Grid->viewport(), Qt::LeftButton, Qt::ControlModifier, Form.Cell(1, 0));
    QVERIFY(Form.Grid->selectionModel()->isRowSelected(1));
    QTest::mouseClick(Form.Grid->viewport(), Qt::LeftButton, {}, Form.Cell(2, 0) + QPoint(0, 3 * RowHeight));
    Form.Press(Qt::Key_Space, Qt::ControlModifier);
    QVERIFY(Form.Grid->selectionModel()->isRowSelected(1));
    QCOMPARE(Form.RecNo(), 2);
  }

  void shouldNotMoveTheCursorByTheWheel() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    Wheel(Form.Grid->viewport(), -5);
    QVERIFY(Form.TopRow() > 1);
    QCOMPARE(Form.RecNo(), 1);
  }

  void shouldNotTellTheDataSetOfAMoveThatItMadeItself() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    int Scrolled = 0;
    connect(Form.Cities.Query.get(), &ads::TDataSet::Scrolled, this, [&Scrolled] { ++Scrolled; });
    Form.Cities.Query->Last();
    QCOMPARE(Scrolled, 1);
    QVERIFY(Form.Cities.Query->Eof());
    Form.Press(Qt::Key_Home);
    QCOMPARE(Scrolled, 2);
  }

  void shouldGoWhereAnotherListenerSendsTheCursor() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    connect(Form.Cities.Query.get(), &ads::TDataSet::Scrolled, this, [&Form] {
      if (Form.RecNo() == 2) Form.Cities.Query->SetRecNo(50);
    });
    Form.Press(Qt::Key_Down);
    QCOMPARE(Form.RecNo(), 50);
    QCOMPARE(Form.ShownRow(), 50);
  }

  // Keys and clicks that are handed on.

  void shouldCallOnDblClickForADoubleClickAndEnter() {
    TSample Form(20);
    QVERIFY(Form.Open().Show());
    std::vector<int> Rows;
    Form.Grid->OnDblClick = [&] { Rows.push_back(Form.RecNo()); };
    QTest::mouseDClick(Form.Grid->viewport(), Qt::LeftButton, {}, Form.Cell(3, 1));
    Form.Press(Qt::Key_Return);
    QTest::keyClick(Form.Grid, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(Rows, std::vector<int>({4, 4, 4}));
    QVERIFY(Form.isVisible());
  }

  void shouldNotCallOnDblClickBesideTheRows() {
    TSample Form(2);
    QVERIFY(Form.Open().Show());
    int Calls = 0;
    Form.Grid->OnDblClick = [&Calls] { ++Calls; };
    QTest::mouseDClick(Form.Grid->viewport(), Qt::LeftButton, {}, Form.Cell(1, 1) + QPoint(0, 2 * RowHeight));
    QTest::mouseDClick(Form.Grid->viewport(), Qt::RightButton, {}, Form.Cell(1, 1));
    QTest::mouseDClick(Form.Grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    QCOMPARE(Calls, 0);
  }

  void shouldNotCallOnDblClickWithoutRows() {
    TSample Form(0);
    QVERIFY(Form.Open().Show());
    int Calls = 0;
    Form.Grid->OnDblClick = [&Calls] { ++Calls; };
    QTest::mouseDClick(Form.Grid->viewport(), Qt::LeftButton);
    Form.Press(Qt::Key_Return);
    QCOMPARE(Calls, 0);
    Form.Cities.Query->Close();
    Form.Press(Qt::Key_Return);
    QCOMPARE(Calls, 0);
  }

  void shouldShowWhatOnDblClickThrows() {
    TSample Form(2);
    QVERIFY(Form.Open().Show());
    const TErrorBoxAnswer Answer;
    Form.Grid->OnDblClick = [] { throw std::runtime_error("locked"); };
    Form.Press(Qt::Key_Return);
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("locked")));
  }

  void shouldGiveCharactersToOnKeyPress() {
    TSample Form(20);
    QVERIFY(Form.Open().Show());
    QStringList Typed;
    Form.Grid->OnKeyPress = [&Typed](const QString& Text) {
      Typed << Text;
      return true;
    };
    Form.Press(Qt::Key_Space);
    QTest::keyClick(Form.Grid, 'x');
    QTest::sendKeyEvent(QTest::Click, Form.Grid, Qt::Key_unknown, QStringLiteral("é"), Qt::NoModifier);
    for (const Qt::Key Key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F2})
      Form.Press(Key);
    Form.Press(Qt::Key_C, Qt::ControlModifier);
    Form.Press(Qt::Key_C, Qt::AltModifier);
    QCOMPARE(Typed, QStringList({" ", "x", QStringLiteral("é")}));
  }

  void shouldShowWhatOnKeyPressThrows() {
    TSample Form(2);
    QVERIFY(Form.Open().Show());
    const TErrorBoxAnswer Answer;
    Form.Grid->OnKeyPress = [](const QString&) -> bool { throw std::runtime_error("no"); };
    Form.Press(Qt::Key_Space);
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("no")));
  }

  void shouldNotSearchForWhatIsTyped() {
    TSample Form(200);
    int Read = 0;
    Form.Cities.Zip->OnGetText = [&Read](const ads::TField&, std::string& Text) {
      ++Read;
      Text = "Z";
    };
    QVERIFY(Form.Open().Show());
    Form.Press(Qt::Key_Down);
    Form.Grid->grab();
    Read = 0;
    QTest::keyClicks(Form.Grid, QStringLiteral("zy"));
    QCOMPARE(Read, 0);
    QCOMPARE(Form.RecNo(), 2);
  }

  void shouldLeaveTheGridByTab() {
    TSample Form(20);
    QVERIFY(Form.Open().Show());
    Form.Press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Form.Edit);
    QTest::keyClick(Form.Edit, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), Form.Grid);
    QCOMPARE(Form.RecNo(), 1);
  }

  void shouldNeverEditACell() {
    TSample Form(20);
    QVERIFY(Form.Open().Show());
    Form.Press(Qt::Key_F2);
    QTest::keyClick(Form.Grid, 'a');
    QTest::mouseDClick(Form.Grid->viewport(), Qt::LeftButton, {}, Form.Cell(1, 1));
    QVERIFY(Form.Grid->viewport()->findChildren<QWidget*>().isEmpty());
  }

  // Columns.

  void shouldTakeTitleWidthAndAlignmentFromTheField() {
    TSample Form(1);
    const TColumn& Zip = *Form.Grid->Columns()[0];
    const QFontMetricsF Metrics(TForm::FormFont());
    QCOMPARE(Zip.Title(), std::string("Zip"));
    QCOMPARE(Zip.Width(), qCeil(10 * Metrics.horizontalAdvance(u'D')) + 4);  // a short text is a code, of capitals
    QCOMPARE(Form.Grid->AddColumn(Form.Cities.City).Width(), qCeil(30 * Metrics.horizontalAdvance(u'0')) + 4);
    QCOMPARE(Zip.Alignment(), TAlignment::taLeftJustify);
    QCOMPARE(Form.Grid->Columns()[2]->Alignment(), TAlignment::taRightJustify);
    QCOMPARE(Form.Grid->Columns()[2]->TitleAlignment(), TAlignment::taLeftJustify);
    const std::string Label = "A label that is wider than the digits";
    Form.Cities.Zip->SetDisplayLabel(Label);
    QCOMPARE(Zip.Title(), Label);
    const double LabelWidth = QFontMetricsF(TForm::TitleFont()).horizontalAdvance(QString::fromStdString(Label));
    QCOMPARE(Zip.Width(), qCeil(LabelWidth) + 4);
    QCOMPARE(Form.Grid->columnWidth(0), Zip.Width() + 1);
    QCOMPARE(Form.Grid->model()->headerData(0, Qt::Horizontal).toString(), QString::fromStdString(Label));
  }

  void shouldKeepWhatWasSet() {
    TSample Form(1);
    TColumn& Zip = *Form.Grid->Columns()[0];
    Zip.SetWidth(16).Align(TAlignment::taCenter);
    Form.Cities.Zip->SetDisplayLabel("A long label");
    QCOMPARE(Zip.Width(), 16);
    QCOMPARE(Form.Grid->columnWidth(0), 17);
    Zip.SetField(Form.Cities.People);
    QCOMPARE(Zip.Alignment(), TAlignment::taCenter);
    QCOMPARE(Zip.TitleAlignment(), TAlignment::taCenter);
    QCOMPARE(Zip.Width(), 16);
  }

  void shouldShowTheNewFieldOfAColumn() {
    TSample Form(3);
    QVERIFY(Form.Open().Show());
    TColumn& Column = *Form.Grid->Columns()[0];
    Column.SetField(Form.Cities.People);
    QCOMPARE(Column.Title(), std::string("People"));
    QCOMPARE(Column.Alignment(), TAlignment::taRightJustify);
    QCOMPARE(Form.Grid->model()->index(2, 0).data().toString(), QStringLiteral("30"));
    Form.Cities.Zip->SetDisplayLabel("Not shown any more");
    QCOMPARE(Column.Title(), std::string("People"));
  }

  void shouldInsertAndRemoveColumns() {
    TSample Form(30);
    QVERIFY(Form.Open().Show());
    Form.Cities.Query->SetRecNo(20);
    TColumn& Capital = Form.Grid->InsertColumn(0, Form.Cities.Capital).SetWidth(16);
    QCOMPARE(Capital.Index(), 0);
    QCOMPARE(Form.Grid->Columns()[1]->Field(), Form.Cities.Zip);
    QCOMPARE(Form.Grid->columnWidth(0), 17);
    QCOMPARE(Form.Grid->columnWidth(2), 121);
    Form.Grid->RemoveColumn(1);
    QCOMPARE(Form.Grid->Columns().Count(), 3);
    QCOMPARE(Form.Grid->columnWidth(1), 121);
    QCOMPARE(Form.Grid->model()->index(0, 1).data().toString(), QStringLiteral("City 1"));
    QCOMPARE(Form.ShownRow(), 20);
    QCOMPARE(Form.RecNo(), 20);
  }

  void shouldRefuseColumnsThatThereAreNot() {
    TSample Form(1);
    for (const int Index : {-1, 3}) {
      QVERIFY_THROWS_EXCEPTION(EListError, Form.Grid->Columns()[Index]);
      QVERIFY_THROWS_EXCEPTION(EListError, Form.Grid->RemoveColumn(Index));
    }
    QVERIFY_THROWS_EXCEPTION(EListError, Form.Grid->InsertColumn(4, Form.Cities.Zip));
    QCOMPARE(Form.Grid->Columns().Count(), 3);
  }

  void shouldHaveTheClientWidthAskedFor_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("rows");
    for (const char* Style : {"Fusion", "Windows"}) {
      QTest::addRow("%s, few rows", Style) << QString::fromLatin1(Style) << 2;
      QTest::addRow("%s, many rows", Style) << QString::fromLatin1(Style) << 2000;
    }
  }

  void shouldHaveTheClientWidthAskedFor() {
    QFETCH(QString, style);
    QFETCH(int, rows);
    QApplication::setStyle(style);
    TSample Form(rows);
    Form.Open();
    const int Width = Form.Grid->ColumnsWidth();
    QCOMPARE(Form.Grid->viewport()->width(), Width);
    QVERIFY(Form.Show());
    QCOMPARE(Form.Grid->viewport()->width(), Width);
    QVERIFY(Form.Grid->verticalScrollBar()->isVisible());
    QVERIFY(!Form.Grid->horizontalScrollBar()->isVisible());
    Form.Grid->RemoveColumn(0);
    Form.Grid->SetClientWidth(Form.Grid->ColumnsWidth());
    QCOMPARE(Form.Grid->viewport()->width(), 121 + Form.Grid->Columns()[1]->Width() + 1);
    QVERIFY(!Form.Grid->horizontalScrollBar()->isVisible());
  }

  void shouldHaveRowsForATickAndFixedTitles() {
    TSample Form(5);
    QVERIFY(Form.Open().Show());
    QCOMPARE(Form.Grid->rowHeight(3), RowHeight);
    QCOMPARE(Form.Grid->visualRect(Form.Grid->model()->index(0, 0)).height(), 17);
    QHeaderView* Titles = Form.Grid->horizontalHeader();
    QCOMPARE(Titles->height(), 18);
    const int Edge = Form.Grid->columnWidth(0);
    QTest::mousePress(Titles->viewport(), Qt::LeftButton, {}, QPoint(Edge, 5));
    QTest::mouseMove(Titles->viewport(), QPoint(Edge + 30, 5));
    QTest::mouseRelease(Titles->viewport(), Qt::LeftButton, {}, QPoint(Edge + 30, 5));
    QCOMPARE(Form.Grid->columnWidth(0), Edge);
  }

  // Painting.

  void shouldPaintEachCellByTheHandler() {
    TSample Form(5);
    Form.Open();
    struct TPainted {
      QRect Rect;
      std::string Text;
      TGridDrawState State;
      QBrush Brush;
      QColor Pen;
    };
    std::map<std::pair<int, int>, TPainted> Painted;
    Form.Grid->OnDrawColumnCell = [&](TDBGrid* Sender, const QRect& Rect, int DataCol, TColumn* Column,
                                      TGridDrawState State) {
      QCOMPARE(Sender, Form.Grid);
      QCOMPARE(Column, Form.Grid->Columns()[DataCol]);
      Painted[{Form.RecNo(), DataCol}] = {Rect, Column->Field()->DisplayText(), State, Sender->Canvas()->brush(),
                                          Sender->Canvas()->pen().color()};
      Sender->DefaultDrawColumnCell(Rect, DataCol, Column, State);
    };
    QVERIFY(Form.Show());
    Form.Cities.Query->SetRecNo(2);
    Painted.clear();
    Form.Grid->grab();
    QCOMPARE(Painted.size(), std::size_t{15});
    const TPainted& Selected = Painted[{2, 1}];
    const TPainted& Other = Painted[{3, 1}];
    QCOMPARE(Selected.Text, std::string("City 2"));
    QCOMPARE(Other.Text, std::string("City 3"));
    QCOMPARE(Selected.Rect.size(), QSize(120, 17));
    QCOMPARE(Other.Rect.topLeft(), Selected.Rect.topLeft() + QPoint(0, RowHeight));
    QVERIFY(Selected.State.Contains(TGridDrawStateFlag::gdSelected));
    QVERIFY(Selected.State.Contains(TGridDrawStateFlag::gdFocused));
    QVERIFY(Other.State.IsEmpty());
    QCOMPARE(Selected.Brush.color(), Form.Grid->palette().color(QPalette::Highlight));
    QCOMPARE(Selected.Pen, Form.Grid->palette().color(QPalette::HighlightedText));
    QCOMPARE(Other.Brush.color(), Form.Grid->palette().color(QPalette::Base));
    QCOMPARE(Other.Pen, Form.Grid->palette().color(QPalette::Text));
    QVERIFY(Form.Grid->Canvas() == nullptr);
    QCOMPARE(Form.RecNo(), 2);
  }

  void shouldShowTheSelectionWithoutTheFocus() {
    TSample Form(5);
    QVERIFY(Form.Open().Show());
    TGridDrawState Seen;
    Form.Grid->OnDrawColumnCell = [&](TDBGrid*, const QRect&, int, TColumn*, TGridDrawState State) {
      if (Form.RecNo() == 1) Seen = State;
    };
    Form.Edit->setFocus();
    Form.Grid->grab();
    QCOMPARE(Seen, TGridDrawState({TGridDrawStateFlag::gdSelected}));
  }

  void shouldRepaintWhenTheFocusComesAndGoes() {
    TSample Form(5);
    QVERIFY(Form.Open().Show());
    int Painted = 0;
    Form.Grid->OnDrawColumnCell = [&](TDBGrid*, const QRect&, int, TColumn*, TGridDrawState) { ++Painted; };
    Form.Edit->setFocus();
    QTRY_VERIFY(Painted > 0);
    QTest::qWait(50);
    Painted = 0;
    Form.Grid->setFocus();
    QTRY_VERIFY(Painted > 0);
  }

  void shouldRepaintOnRefresh() {
    TSample Form(5);
    QVERIFY(Form.Open().Show());
    QTest::qWait(50);
    int Painted = 0;
    Form.Grid->OnDrawColumnCell = [&](TDBGrid*, const QRect&, int, TColumn*, TGridDrawState) { ++Painted; };
    Form.Cities.Query->Refresh();
    QTRY_COMPARE(Painted, 15);
  }

  void shouldPaintTheSelectedRowInTheHighlightColour() {
    TSample Form(3);
    QVERIFY(Form.Open().Show());
    QCOMPARE(CellImage(Form, 0, 1).pixelColor(60, 2), Form.Grid->palette().color(QPalette::Highlight));
    QCOMPARE(CellImage(Form, 1, 1).pixelColor(60, 2), Form.Grid->palette().color(QPalette::Base));
  }

  void shouldFrameItsRowWhileItHasTheKeyboard_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<QPalette>("palette");
    const auto Palette = [](QColor Window, QColor Highlight, QColor Highlighted) {
      QPalette Result(Window);
      Result.setColor(QPalette::Highlight, Highlight);
      Result.setColor(QPalette::HighlightedText, Highlighted);
      return Result;
    };
    for (const char* Style : {"Fusion", "Windows"}) {
      QTest::addRow("%s", Style) << QString(Style) << QApplication::palette();
      QTest::addRow("%s, dark", Style) << QString(Style)
                                       << Palette(QColor(40, 40, 45), QColor(42, 130, 218), Qt::black);
      QTest::addRow("%s, black", Style) << QString(Style) << Palette(Qt::black, Qt::yellow, Qt::black);
      QTest::addRow("%s, white", Style) << QString(Style) << Palette(Qt::white, Qt::black, Qt::white);
      QTest::addRow("%s, pale", Style) << QString(Style) << Palette(Qt::white, QColor(205, 225, 250), Qt::black);
    }
  }

  void shouldFrameItsRowWhileItHasTheKeyboard() {
    QFETCH(QString, style);
    QFETCH(QPalette, palette);
    QApplication::setStyle(style);
    TSample Form(5);
    Form.setPalette(palette);
    QVERIFY(Form.Open().Show());
    const QImage With = Form.Grid->viewport()->grab().toImage();
    Form.Edit->setFocus();
    const QImage Without = Form.Grid->viewport()->grab().toImage();
    const QRect Row(0, 0, Form.Grid->viewport()->width(), RowHeight - 1);
    const QRect Inside = Row.adjusted(2, 2, -2, -2);
    int Framed = 0;
    for (int Y = 0; Y < With.height(); ++Y) {
      for (int X = 0; X < With.width(); ++X) {
        if (With.pixel(X, Y) == Without.pixel(X, Y)) continue;
        QVERIFY2(Row.contains(X, Y) && !Inside.contains(X, Y), qPrintable(QStringLiteral("%1, %2").arg(X).arg(Y)));
        if (std::abs(qGray(With.pixel(X, Y)) - qGray(Without.pixel(X, Y))) >= 50) ++Framed;
      }
    }
    // Dotted or drawn through, on all four sides.
    QVERIFY2(Framed >= Row.width() - 10, std::to_string(Framed).c_str());
  }

  void shouldFrameItsRowWhereItStands() {
    TSample Form(30);
    QVERIFY(Form.Open().Show());
    const auto Differences = [&Form](int Row) {
      Form.Grid->setFocus();
      const QImage With = CellImage(Form, Row, 1);
      Form.Edit->setFocus();
      return With != CellImage(Form, Row, 1);
    };
    Form.Cities.Query->SetRecNo(3);
    QVERIFY(Differences(2));
    QVERIFY(!Differences(0));
    Form.Cities.Query->SetRecNo(30);
    QVERIFY(Differences(29));
    Form.Cities.Query->Close();
    Form.Grid->setFocus();
    Form.Grid->grab();
  }

  void shouldNotPaintOutsideTheCell() {
    TSample Form(3);
    QVERIFY(Form.Open().Show());
    Form.Grid->OnDrawColumnCell = [&](TDBGrid* Sender, const QRect& Rect, int DataCol, TColumn*, TGridDrawState) {
      const bool Wild = Form.RecNo() == 2 && DataCol == 1;
      Sender->Canvas()->fillRect(Wild ? Rect.adjusted(-50, -50, 50, 50) : Rect, Wild ? Qt::red : Qt::white);
    };
    const QImage Image = Form.Grid->viewport()->grab().toImage();
    const QRect Cell = Form.Grid->visualRect(Form.Grid->model()->index(1, 1));
    for (int Y = 0; Y < 3 * RowHeight; ++Y) {
      for (int X = 0; X < Image.width(); ++X) {
        QCOMPARE(Image.pixelColor(X, Y) == QColor(Qt::red), Cell.contains(X, Y));
      }
    }
  }

  void shouldAlignTheTexts_data() {
    QTest::addColumn<TAlignment>("alignment");
    QTest::newRow("left") << TAlignment::taLeftJustify;
    QTest::newRow("right") << TAlignment::taRightJustify;
    QTest::newRow("centre") << TAlignment::taCenter;
  }

  void shouldAlignTheTexts() {
    QFETCH(TAlignment, alignment);
    TSample Form(3);
    Form.Grid->Columns()[1]->Align(alignment);
    Form.Cities.City->SetDisplayLabel("HHH");
    Form.Cities.City->OnGetText = [](const ads::TField&, std::string& Text) { Text = "HHH"; };
    QVERIFY(Form.Open().Show());
    const QRect Title(Form.Grid->columnViewportPosition(1), 2, 119, 14);
    for (const QImage& Image :
         {CellImage(Form, 1, 1), Form.Grid->horizontalHeader()->viewport()->grab(Title).toImage()}) {
      const auto [First, Last] = DarkColumns(Image);
      QVERIFY(First >= 0);
      const int Right = Image.width() - 1 - Last;
      if (alignment == TAlignment::taLeftJustify) QVERIFY2(First >= 2 && First <= 4, std::to_string(First).c_str());
      if (alignment == TAlignment::taRightJustify) QVERIFY2(Right >= 2 && Right <= 4, std::to_string(Right).c_str());
      if (alignment == TAlignment::taCenter)
        QVERIFY2(std::abs(First - Right) <= 3, std::to_string(First - Right).c_str());
    }
  }

  void shouldCutOffLongTexts() {
    TSample Form(3);
    Form.Cities.City->OnGetText = [](const ads::TField&, std::string& Text) { Text.assign(100000, 'H'); };
    QVERIFY(Form.Open().Show());
    const auto [First, Last] = DarkColumns(CellImage(Form, 1, 1));
    QVERIFY(First >= 2 && First <= 4);
    QVERIFY(Last > 100 && Last < 118);
  }

  void shouldReportAPaintingErrorOnce() {
    TSample Form(5);
    Form.Open();
    const TErrorBoxAnswer Answer;
    Form.Grid->OnDrawColumnCell = [](TDBGrid*, const QRect&, int, TColumn*, TGridDrawState) {
      throw std::runtime_error("no picture");
    };
    QVERIFY(Form.Show());
    QTRY_COMPARE(Answer.Texts().size(), 1);
    Form.Grid->viewport()->update();
    QTest::qWait(100);
    QCOMPARE(Answer.Texts(), QStringList(QStringLiteral("no picture")));
    QVERIFY(Form.Grid->Canvas() == nullptr);
    Form.Cities.Query->Open();
    QTRY_COMPARE(Answer.Texts().size(), 2);
  }

  void shouldReportATextThatCannotBeRead() {
    TSample Form(5);
    Form.Cities.City->OnGetText = [](const ads::TField&, std::string&) { throw std::runtime_error("lookup failed"); };
    const TErrorBoxAnswer Answer;
    QVERIFY(Form.Open().Show());
    QTRY_COMPARE(Answer.Texts(), QStringList(QStringLiteral("lookup failed")));
    QCOMPARE(Form.Grid->model()->index(0, 1).data().toString(), QString());
    QCOMPARE(Form.Grid->model()->index(0, 0).data().toString(), QStringLiteral("0001"));
  }

  void shouldDrawNothingOutsideOfPainting() {
    TSample Form(1);
    Form.Open();
    Form.Grid->DefaultDrawColumnCell(QRect(0, 0, 10, 10), 0, Form.Grid->Columns()[0], {});
    QVERIFY(Form.Grid->Canvas() == nullptr);
  }

  void shouldTellAssistiveProgramsItsCells() {
    TSample Form(5);
    QVERIFY(Form.Open().Show());
    QAccessibleInterface* Table = QAccessible::queryAccessibleInterface(Form.Grid);
    QVERIFY(Table != nullptr && Table->tableInterface() != nullptr);
    QCOMPARE(Table->tableInterface()->rowCount(), 5);
    QCOMPARE(Table->tableInterface()->cellAt(2, 1)->text(QAccessible::Name), QStringLiteral("City 3"));
    QCOMPARE(Table->tableInterface()->columnDescription(1), QStringLiteral("City"));
  }

  // Reading.

  void shouldExplainWhatIsCutOff() {
    TSample Form(3);
    Form.Cities.City->OnGetText = [](const ads::TField& Sender, std::string& Text) {
      Text = Sender.AsString() == "City 2" ? std::string("Llanfair<pwll>gwyngyllgogerychwyrndrobwll") : "Ayr";
    };
    Form.Cities.Zip->SetDisplayLabel("The postcode of the place");
    Form.Grid->Columns()[0]->SetWidth(40);
    QVERIFY(Form.Open().Show());
    QCOMPARE(ToolTipAt(Form.Grid->viewport(), Form.Cell(1, 1)),
             QStringLiteral("<qt>Llanfair&lt;pwll&gt;gwyngyllgogerychwyrndrobwll</qt>"));
    QCOMPARE(ToolTipAt(Form.Grid->viewport(), Form.Cell(0, 1)), QString());
    QCOMPARE(ToolTipAt(Form.Grid->horizontalHeader()->viewport(), QPoint(10, 5)),
             QStringLiteral("<qt>The postcode of the place</qt>"));
    QCOMPARE(ToolTipAt(Form.Grid->horizontalHeader()->viewport(), QPoint(60, 5)), QString());
  }

  void shouldExplainNoTick() {
    TSample Form(5);
    Form.Grid->AddColumn(Form.Cities.Capital).SetWidth(16);
    QVERIFY(Form.Open().Show());
    QCOMPARE(Form.Grid->model()->index(4, 3).data(Qt::ToolTipRole).toString(), QString());
  }

  void shouldCopyTheRowThatIsShown() {
    TSample Form(3);
    Form.Cities.City->OnGetText = [](const ads::TField& Sender, std::string& Text) {
      Text = Sender.AsString() + ",\tOld\nTown";
    };
    QVERIFY(Form.Open().Show());
    Form.Press(Qt::Key_Down);
    Form.Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("0002\tCity 2, Old Town\t20"));
    QApplication::clipboard()->setText(QStringLiteral("before"));
    Form.Cities.Query->Close();
    Form.Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
  }

  // What assistive programs are told.

  void shouldTellTheCurrentRowWithItsTitles() {
    TSample Form(5);
    Form.Grid->AddColumn(Form.Cities.Capital).SetWidth(16).SetAccessibleTitle("Is the capital");
    QVERIFY(Form.Open().Show());
    QAccessibleInterface* Accessible = QAccessible::queryAccessibleInterface(Form.Grid);
    Form.Press(Qt::Key_Down);
    QCOMPARE(Accessible->focusChild()->text(QAccessible::Name),
             QStringLiteral("Zip: 0002, City: City 2, People: 20, Is the capital: no"));
    Form.Press(Qt::Key_End);
    QCOMPARE(Accessible->focusChild()->text(QAccessible::Name),
             QStringLiteral("Zip: 0005, City: City 5, People: 50, Is the capital: yes"));
    QVERIFY(Accessible->focusChild()->state().focused);
    QCOMPARE(Accessible->indexOfChild(Accessible->focusChild()), 5 * 5 + 1);
    QCOMPARE(Accessible->child(5 * 5 + 1), Accessible->focusChild());
    Form.Edit->setFocus();
    QVERIFY(Accessible->focusChild() == nullptr);
  }

  void shouldTellWhatATickMeans() {
    TSample Form(5);
    Form.Grid->AddColumn(Form.Cities.Capital).SetWidth(16).SetAccessibleTitle("Is the capital");
    QVERIFY(Form.Open().Show());
    QCOMPARE(Table(Form).columnDescription(3), QStringLiteral("Is the capital"));
    QCOMPARE(Table(Form).cellAt(4, 3)->text(QAccessible::Name), QStringLiteral("Is the capital: yes"));
    QVERIFY(Table(Form).cellAt(4, 3)->state().checked);
    QVERIFY(!Table(Form).cellAt(4, 3)->state().checkable);
    QVERIFY(!Table(Form).cellAt(3, 3)->state().checked);
  }

  void shouldTickByTheCellsAction() {
    TSample Form(5);
    Form.Grid->AddColumn(Form.Cities.Capital).SetCheckable(true);
    QVERIFY(Form.Open().Show());
    std::vector<int> Ticked;
    Form.Grid->OnToggle = [&](const TColumn* Column) { Ticked.push_back(Form.RecNo() * 10 + Column->Index()); };
    Table(Form).cellAt(2, 3)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(Ticked, std::vector<int>{33});
    QVERIFY(Table(Form).cellAt(2, 3)->state().checkable);
    Toggle(Form, 4);  // another column's only selects
    QCOMPARE(Ticked.size(), std::size_t{1});
    QCOMPARE(Form.RecNo(), 5);
  }

  void shouldNumberTheCellsForAssistivePrograms() {
    TSample Form(3);
    QVERIFY(Form.Open().Show());
    QAccessibleInterface* Accessible = QAccessible::queryAccessibleInterface(Form.Grid);
    QCOMPARE(Accessible->role(), QAccessible::Table);
    QCOMPARE(Accessible->childCount(), 4 * 4);
    QCOMPARE(Accessible->child(2)->role(), QAccessible::ColumnHeader);
    QCOMPARE(Accessible->child(2)->text(QAccessible::Name), QStringLiteral("City"));
    QAccessibleInterface* Cell = Accessible->child(2 * 4 + 2);
    QCOMPARE(Cell->text(QAccessible::Name), QStringLiteral("City 2"));
    QCOMPARE(Cell->tableCellInterface()->columnHeaderCells().first(), Accessible->child(2));
    QCOMPARE(Accessible->indexOfChild(Cell), 10);
    QCOMPARE(Accessible->childAt(Cell->rect().center().x(), Cell->rect().center().y()), Cell);
    QVERIFY(Accessible->child(0) == nullptr && Accessible->child(16) == nullptr && Accessible->child(-1) == nullptr);
    Form.Cities.Query->Close();
    QCOMPARE(Accessible->childCount(), 4);
    QVERIFY(Table(Form).cellAt(0, 0) == nullptr);
  }

  // However a row is selected.

  void shouldHaveOneRowWhoeverSelectsIt_data() {
    QTest::addColumn<TMove>("move");
    QTest::addColumn<int>("row");  // from 1
    QTest::newRow("selectRow") << TMove([](TSample& Form) { Table(Form).selectRow(3); }) << 4;
    QTest::newRow("unselectRow") << TMove([](TSample& Form) { Table(Form).unselectRow(1); }) << 2;
    QTest::newRow("selectColumn") << TMove([](TSample& Form) { Table(Form).selectColumn(1); }) << 2;
    QTest::newRow("toggle") << TMove([](TSample& Form) { Toggle(Form, 4); }) << 5;
    QTest::newRow("toggle the current one") << TMove([](TSample& Form) { Toggle(Form, 1); }) << 2;
    QTest::newRow("QTableView::selectRow") << TMove([](TSample& Form) { Form.Grid->selectRow(2); }) << 3;
    QTest::newRow("clearSelection") << TMove([](TSample& Form) { Form.Grid->clearSelection(); }) << 2;
    QTest::newRow("selectAll") << TMove([](TSample& Form) { Form.Grid->selectAll(); }) << 2;
    QTest::newRow("setCurrentIndex") << TMove([](TSample& Form) { Form.Grid->setCurrentIndex(Form.Index(5, 1)); }) << 6;
    QTest::newRow("no current index") << TMove([](TSample& Form) { Form.Grid->setCurrentIndex({}); }) << 2;
    QTest::newRow("the model's select") << TMove([](TSample& Form) {
      Form.Grid->selectionModel()->select(Form.Index(6, 2), QItemSelectionModel::Select);
    }) << 7;
    QTest::newRow("the model's deselect") << TMove([](TSample& Form) {
      Form.Grid->selectionModel()->select(Form.Index(1, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }) << 2;
    QTest::newRow("a current index alone") << TMove([](TSample& Form) {
      Form.Grid->selectionModel()->setCurrentIndex(Form.Index(7, 0), QItemSelectionModel::NoUpdate);
    }) << 8;
    QTest::newRow("several rows") << TMove([](TSample& Form) {
      const QItemSelection Rows(Form.Index(3, 0), Form.Index(5, 2));
      Form.Grid->selectionModel()->select(Rows, QItemSelectionModel::ClearAndSelect);
    }) << 4;
    QTest::newRow("the model's clear") << TMove([](TSample& Form) { Form.Grid->selectionModel()->clear(); }) << 2;
    QTest::newRow("the dataset") << TMove([](TSample& Form) { Form.Cities.Query->SetRecNo(9); }) << 9;
  }

  void shouldHaveOneRowWhoeverSelectsIt() {
    QFETCH(TMove, move);
    QFETCH(int, row);
    TSample Form(20);
    QVERIFY(Form.Open().Show());
    Form.Cities.Query->SetRecNo(2);
    move(Form);
    QCOMPARE(Form.RecNo(), row);
    QCOMPARE(Form.ShownRow(), row);
    QList<int> Selected;
    for (const QModelIndex& Index : Form.Grid->selectionModel()->selectedRows()) Selected.append(Index.row() + 1);
    QCOMPARE(Selected, QList<int>{row});
    QCOMPARE(Form.Grid->selectionModel()->selectedIndexes().size(), 3);
  }

  void shouldKeepItsRowWhenTheDataSetIsMovedOnWhileARowIsSelected() {
    TSample Form(100);
    QVERIFY(Form.Open().Show());
    connect(Form.Cities.Query.get(), &ads::TDataSet::Scrolled, this, [&Form] {
      if (Form.RecNo() == 2) Form.Cities.Query->SetRecNo(50);
    });
    Table(Form).selectRow(1);
    QCOMPARE(Form.RecNo(), 50);
    QCOMPARE(Form.ShownRow(), 50);
    QVERIFY(Form.Grid->selectionModel()->isRowSelected(49));
    QCOMPARE(Form.Grid->selectionModel()->selectedRows().size(), 1);
  }
};

QTEST_MAIN(tst_DBGrid)
#include "tst_DBGrid.moc"
