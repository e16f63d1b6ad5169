#include "toolkit/DBGrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QStyledItemDelegate>
#include <exception>
#include <utility>

#include "toolkit/CellText.h"
#include "toolkit/DBGridAccessible.h"
#include "toolkit/DBGridModel.h"
#include "toolkit/DBGridTitles.h"
#include "toolkit/EListError.h"
#include "toolkit/EventGuard.h"
#include "toolkit/Form.h"
#include "toolkit/RowSelection.h"

namespace toolkit {

namespace {

constexpr int CellHeight = 17;
constexpr int LineWidth = 1;

bool IsEnter(const QKeyEvent& Event) {
  return Event.key() == Qt::Key_Return || Event.key() == Qt::Key_Enter;
}

// Whether the key types a character, rather than being a command. Ctrl and Alt together are AltGr, which types.
bool IsCharacter(const QKeyEvent& Event) {
  const Qt::KeyboardModifiers Commands = Event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (Commands && Commands != (Qt::ControlModifier | Qt::AltModifier)) return false;
  const QString Text = Event.text();
  return !Text.isEmpty() && Text[0] >= u' ' && Text[0] != QChar(0x7F);
}

}  // namespace

class TDBGrid::TCellDelegate : public QStyledItemDelegate {
 public:
  explicit TCellDelegate(TDBGrid& Grid) : QStyledItemDelegate(&Grid), Grid_(Grid) {}

  void paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    Grid_.PaintCell(Painter, Option.rect, Index);
  }

 private:
  TDBGrid& Grid_;
};

TDBGrid::TDBGrid(QWidget* Parent) : QTableView(Parent), Model_(new TDBGridModel(*this)) {
  InstallGridAccessibility();
  SetUpLook();
  SetUpBehaviour();
  setModel(Model_);
  delete selectionModel();
  setSelectionModel(new TRowSelection(Model_, this));
}

TDBGrid::~TDBGrid() {
  for (const TColumn* Column : Columns_) delete Column;
}

void TDBGrid::SetUpLook() {
  setFont(TForm::FormFont());
  setHorizontalHeader(new TDBGridTitles(*this));
  // One height for all rows, told once and before there are any.
  verticalHeader()->setMinimumSectionSize(CellHeight + LineWidth);
  verticalHeader()->setDefaultSectionSize(CellHeight + LineWidth);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  setCornerButtonEnabled(false);
  setShowGrid(true);
  setWordWrap(false);
  setItemDelegate(new TCellDelegate(*this));
}

void TDBGrid::SetUpBehaviour() {
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TDBGrid::WantEnd);
  // The table itself would select a column.
  horizontalHeader()->disconnect(this);
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int Index) {
    if (OnTitleClick) Guarded(this, [Handler = OnTitleClick, Column = Columns_[Index]] { Handler(Column); });
  });
}

void TDBGrid::SetDataSet(ads::TDataSet* DataSet) {
  if (DataSet_ != nullptr) DataSet_->disconnect(this);
  DataSet_ = DataSet;
  if (DataSet != nullptr) {
    connect(DataSet, &ads::TDataSet::Opened, this, &TDBGrid::ResetRows);
    connect(DataSet, &ads::TDataSet::Closed, this, &TDBGrid::ResetRows);
    connect(DataSet, &ads::TDataSet::Grown, Model_, &TDBGridModel::Grow);
    connect(DataSet, &ads::TDataSet::Replaced, this, &TDBGrid::FollowRows);
    connect(DataSet, &ads::TDataSet::Scrolled, this, &TDBGrid::ShowCurrentRow);
    connect(DataSet, &ads::TDataSet::Refreshed, Model_, &TDBGridModel::ValuesChanged);
    connect(DataSet, &QObject::destroyed, this, &TDBGrid::ResetRows);
  }
  ResetRows();
}

void TDBGrid::ResetRows() {
  PaintErrorReported_ = false;
  {
    const QScopedValueRollback Guard(Following_, true);
    Model_->Reset();
  }
  ShowCurrentRow();
}

// The rows that are seen stay where they are, whatever has come before them.
void TDBGrid::FollowRows(const std::vector<int>& NewPlaces) {
  const int Top = verticalScrollBar()->value();
  ResetRows();
  int Seen = Top;
  while (Seen < static_cast<int>(NewPlaces.size()) && NewPlaces[static_cast<std::size_t>(Seen)] < 0) ++Seen;
  if (Seen < static_cast<int>(NewPlaces.size())) {
    verticalScrollBar()->setValue(NewPlaces[static_cast<std::size_t>(Seen)] - (Seen - Top));
  }
}

// Who drags to the end of the rows that are there wants to see the end of the list.
void TDBGrid::WantEnd(int Value) {
  if (DataSet_ == nullptr || DataSet_->IsComplete() || Value < verticalScrollBar()->maximum() || WantsEnd_) return;
  WantsEnd_ = true;
  QMetaObject::invokeMethod(this, &TDBGrid::ShowEnd, Qt::QueuedConnection);
}

void TDBGrid::ShowEnd() {
  WantsEnd_ = false;
  if (ReadToEnd()) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

bool TDBGrid::ReadToEnd() {
  if (DataSet_ == nullptr) return false;
  const QPointer<TDBGrid> StillThere(this);
  bool IsThere = false;
  Guarded(this, [DataSet = DataSet_, &IsThere] { IsThere = DataSet->ReadToEnd(); });
  return IsThere && StillThere != nullptr;
}

void TDBGrid::ShowCurrentRow() {
  if (Following_ || DataSet_ == nullptr) return;
  const int Row = DataSet_->RecNo() - 1;
  if (Row < 0 || Row >= Model_->rowCount() || Model_->columnCount() == 0) return;
  const QScopedValueRollback Guard(Following_, true);
  const QModelIndex Shown = Model_->index(Row, std::max(currentIndex().column(), 0));
  setCurrentIndex(Shown);
  if (isVisible()) scrollTo(Shown);
}

// Also called for the moves that follow the dataset; only the user's own go to it.
void TDBGrid::currentChanged(const QModelIndex& Current, const QModelIndex& Previous) {
  // The table would tell assistive programs that the focus went to the row, also while another control has it.
  QAbstractItemView::currentChanged(Current, Previous);
  if (hasFocus()) TellCurrentRow();
  viewport()->update();
  if (Following_ || !Current.isValid() || DataSet_ == nullptr || DataSet_->RecNo() == Current.row() + 1) return;
  {
    const QScopedValueRollback Guard(Following_, true);
    DataSet_->SetRecNo(Current.row() + 1);
  }
  if (DataSet_ != nullptr && DataSet_->RecNo() != Current.row() + 1) ShowCurrentRow();
}

TColumn& TDBGrid::AddColumn(ads::TField* Field) {
  return InsertColumn(Columns_.Count(), Field);
}

TColumn& TDBGrid::InsertColumn(int Index, ads::TField* Field) {
  if (Index < 0 || Index > Columns_.Count()) throw EListError(Index);
  auto* Column = new TColumn(this, Field);
  Columns_.Columns_.insert(Columns_.begin() + Index, Column);
  ResetRows();
  ColumnsChanged();
  return *Column;
}

void TDBGrid::RemoveColumn(int Index) {
  const TColumn* Column = Columns_[Index];
  Columns_.Columns_.erase(Columns_.begin() + Index);
  if (Column == OrderColumn_) OrderColumn_ = nullptr;
  delete Column;
  ResetRows();
  ColumnsChanged();
}

void TDBGrid::ColumnsChanged() {
  for (const TColumn* Column : Columns_)
    horizontalHeader()->resizeSection(Column->Index(), Column->Width() + LineWidth);
  Model_->TitlesChanged();
  Model_->ValuesChanged();
}

void TDBGrid::ShowOrder(const TColumn* Column, bool Descending) {
  OrderColumn_ = Column;
  OrderDescending_ = Descending;
  horizontalHeader()->viewport()->update();
}

int TDBGrid::ColumnsWidth() const {
  int Result = 0;
  for (const TColumn* Column : Columns_) Result += Column->Width() + LineWidth;
  return Result;
}

void TDBGrid::SetClientWidth(int Width) {
  resize(Width + width() - maximumViewportSize().width(), height());
  if (!testAttribute(Qt::WA_PendingResizeEvent)) return;
  // A hidden widget is told of its size only when it is shown, but its inside is asked for before.
  QResizeEvent Now(size(), size());
  QApplication::sendEvent(this, &Now);
}

TGridDrawState TDBGrid::StateOf(const QModelIndex& Index) const {
  TGridDrawState DrawState;
  if (Index.row() != currentIndex().row()) return DrawState;
  DrawState.Include(TGridDrawStateFlag::gdSelected);
  if (hasFocus()) DrawState.Include(TGridDrawStateFlag::gdFocused);
  return DrawState;
}

void TDBGrid::PaintCell(QPainter* Painter, const QRect& Rect, const QModelIndex& Index) {
  const TGridDrawState DrawState = StateOf(Index);
  const bool Selected = DrawState.Contains(TGridDrawStateFlag::gdSelected);
  Painter->save();
  Painter->setClipRect(Rect, Qt::IntersectClip);
  Painter->setFont(font());
  Painter->setBrush(palette().brush(Selected ? QPalette::Highlight : QPalette::Base));
  Painter->setPen(palette().color(Selected ? QPalette::HighlightedText : QPalette::Text));
  Canvas_ = Painter;
  try {
    DrawCell(Rect, Index, DrawState);
  } catch (const std::exception& Error) {
    ReportPaintError(Error.what());
  } catch (...) {
    ReportPaintError({});
  }
  Canvas_ = nullptr;
  Painter->restore();
}

void TDBGrid::paintEvent(QPaintEvent* Event) {
  QTableView::paintEvent(Event);
  const bool IsEmpty = DataSet_ != nullptr && DataSet_->Active() && DataSet_->IsEmpty();
  if (IsEmpty && !EmptyText_.empty()) PaintEmptyText();
}

// Of the frame only the line counts: some styles fill it. It stands on the colour of the selection, on which the frames
// of some styles cannot be seen (a shade of that very colour, or its inverse where that is as grey), so dots in the
// colour of what is written there go along it.
void TDBGrid::DrawFocusFrame(const QRect& Rect, TGridDrawState DrawState) {
  if (Canvas_ == nullptr || !DrawState.Contains(TGridDrawStateFlag::gdFocused)) return;
  const int Left = isRightToLeft() ? viewport()->width() + horizontalOffset() - horizontalHeader()->length() + LineWidth
                                   : -horizontalOffset();
  QStyleOptionFocusRect Option;
  Option.initFrom(this);
  Option.state |= QStyle::State_KeyboardFocusChange | QStyle::State_HasFocus | QStyle::State_Selected;
  Option.rect = QRect(Left, Rect.top(), horizontalHeader()->length() - LineWidth, Rect.height());
  Option.backgroundColor = palette().color(QPalette::Highlight);
  Canvas_->save();
  Canvas_->setClipRegion(QRegion(Option.rect) - Option.rect.adjusted(1, 1, -1, -1), Qt::IntersectClip);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &Option, Canvas_, this);
  QPen Dots(palette().color(QPalette::HighlightedText), 1, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
  Dots.setDashPattern({1, 1});
  Canvas_->setPen(Dots);
  Canvas_->setBrush(Qt::NoBrush);
  Canvas_->drawRect(QRectF(Option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
  Canvas_->restore();
}

void TDBGrid::DrawCell(const QRect& Rect, const QModelIndex& Index, TGridDrawState DrawState) {
  if (DataSet_ == nullptr || Index.row() >= DataSet_->KnownRows()) {
    Canvas_->fillRect(Rect, Canvas_->brush());
    return;
  }
  TColumn* Column = Columns_[Index.column()];
  const ads::TRowScope Scope(*DataSet_, Index.row());
  if (OnDrawColumnCell) {
    OnDrawColumnCell(this, Rect, Index.column(), Column, DrawState);
  } else {
    DefaultDrawColumnCell(Rect, Index.column(), Column, DrawState);
  }
}

void TDBGrid::DefaultDrawColumnCell(const QRect& Rect, int, TColumn* Column, TGridDrawState DrawState) {
  if (Canvas_ == nullptr) return;
  Canvas_->fillRect(Rect, Canvas_->brush());
  DrawFocusFrame(Rect, DrawState);
  if (Column->Field() == nullptr) return;
  // Codes and numbers stand right: of a code that does not fit, its end tells it from the others.
  const bool IsRight = Column->Alignment() == TAlignment::taRightJustify;
  DrawCellText(*Canvas_, Rect, Column->Field()->DisplayText(), Column->Alignment(), layoutDirection(),
               IsRight ? Qt::ElideLeft : Qt::ElideRight);
}

// Every repaint would raise it again, the one after the box is closed included: one box tells what is wrong.
void TDBGrid::ReportPaintError(const std::string& Message) {
  if (PaintErrorReported_) return;
  PaintErrorReported_ = true;
  QMetaObject::invokeMethod(
      this, [this, Message] { ShowError(this, Message); }, Qt::QueuedConnection);
}

void TDBGrid::SetEmptyText(const std::string& Text) {
  if (Text == EmptyText_) return;
  EmptyText_ = Text;
  viewport()->update();
}

// Instead of rows.
void TDBGrid::PaintEmptyText() const {
  QPainter Painter(viewport());
  Painter.setFont(font());
  Painter.setPen(palette().color(QPalette::PlaceholderText));
  Painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, QString::fromStdString(EmptyText_));
}

void TDBGrid::keyboardSearch(const QString&) {}

void TDBGrid::keyPressEvent(QKeyEvent* Event) {
  if (IsEnter(*Event)) {
    if (!Event->isAutoRepeat()) CallDblClick();
    return;
  }
  if (Event->matches(QKeySequence::Copy)) return CopyRow();
  if (HandleCharacter(*Event)) return;
  QTableView::keyPressEvent(Event);
}

// Whether the key is done with. One whose handler failed is.
bool TDBGrid::HandleCharacter(const QKeyEvent& Event) {
  if (!OnKeyPress || !IsCharacter(Event)) return false;
  bool Kept = false;
  const bool Ran = Guarded(this, [Handler = OnKeyPress, Text = Event.text(), &Kept] { Kept = Handler(Text); });
  return Kept || !Ran;
}

void TDBGrid::Toggle(int Column) {
  if (OnToggle && Columns_[Column]->Checkable() && DataSet_ != nullptr && !DataSet_->IsEmpty()) {
    Guarded(this, [Handler = OnToggle, Shown = Columns_[Column]] { Handler(Shown); });
  }
}

void TDBGrid::CallDblClick() {
  if (OnDblClick && DataSet_ != nullptr && !DataSet_->IsEmpty()) Guarded(this, std::function(OnDblClick));
}

void TDBGrid::mousePressEvent(QMouseEvent* Event) {
  QTableView::mousePressEvent(Event);
  const QModelIndex At = indexAt(Event->position().toPoint());
  const bool Ticks = Event->button() == Qt::LeftButton && At.isValid() && Columns_[At.column()]->Checkable();
  Pressed_ = Ticks ? At : QModelIndex();
}

void TDBGrid::mouseReleaseEvent(QMouseEvent* Event) {
  QTableView::mouseReleaseEvent(Event);
  const QModelIndex At = std::exchange(Pressed_, QModelIndex());
  if (At.isValid() && At == indexAt(Event->position().toPoint())) Toggle(At.column());
}

void TDBGrid::mouseDoubleClickEvent(QMouseEvent* Event) {
  QTableView::mouseDoubleClickEvent(Event);
  Pressed_ = QModelIndex();
  const QModelIndex At = indexAt(Event->position().toPoint());
  if (Event->button() != Qt::LeftButton || !At.isValid() || Columns_[At.column()]->Checkable()) return;
  CallDblClick();
}

void TDBGrid::focusInEvent(QFocusEvent* Event) {
  QTableView::focusInEvent(Event);
  // After the grid itself was told to have the focus, so that the row is what is heard last.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (hasFocus()) TellCurrentRow();
      },
      Qt::QueuedConnection);
  viewport()->update();
}

void TDBGrid::focusOutEvent(QFocusEvent* Event) {
  QTableView::focusOutEvent(Event);
  viewport()->update();
}

void TDBGrid::scrollTo(const QModelIndex& Index, ScrollHint Hint) {
  const int Sideways = horizontalScrollBar()->value();
  QTableView::scrollTo(Index, Hint);
  horizontalScrollBar()->setValue(Sideways);
}

// Rows only: a whole row is selected, so a move between its cells would be invisible.
QModelIndex TDBGrid::moveCursor(CursorAction Action, Qt::KeyboardModifiers Modifiers) {
  const int Column = std::max(currentIndex().column(), 0);
  switch (Action) {
    case MoveLeft:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
      return currentIndex();
    case MoveRight:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      return currentIndex();
    case MoveHome:
      return Model_->index(0, Column);
    case MoveEnd:
      if (!ReadToEnd()) return currentIndex();
      return Model_->index(Model_->rowCount() - 1, Column);
    default:
      return QTableView::moveCursor(Action, Modifiers);
  }
}

// The selected row is the dataset's: no key or click may leave the grid without one.
QItemSelectionModel::SelectionFlags TDBGrid::selectionCommand(const QModelIndex& Index, const QEvent*) const {
  if (!Index.isValid()) return QItemSelectionModel::NoUpdate;
  return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

}  // namespace toolkit
