#include "toolkit/DBGridAccessible.h"

#include <QHeaderView>
#include <QPointer>

#include "toolkit/DBGrid.h"

namespace toolkit {

namespace {

constexpr int TitlesRow = -1;

// Places in a row: the columns and, in front of them, the title of the row.
int RowLength(const TDBGrid& Grid) {
  return Grid.model()->columnCount() + 1;
}

class TCellAccessible : public QAccessibleInterface,
                        public QAccessibleTableCellInterface,
                        public QAccessibleActionInterface {
 public:
  TCellAccessible(TDBGrid* Grid, int Row, int Column) : Grid_(Grid), Row_(Row), Column_(Column) {}

  void* interface_cast(QAccessible::InterfaceType Type) override {
    if (IsTitle()) return nullptr;
    if (Type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (Type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  bool isValid() const override {
    return Grid_ != nullptr && Row_ < Grid_->model()->rowCount() && Column_ < Grid_->model()->columnCount();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return Grid_ != nullptr ? Grid_->window()->windowHandle() : nullptr; }

  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(Grid_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QAccessible::Role role() const override { return IsTitle() ? QAccessible::ColumnHeader : QAccessible::Cell; }

  QRect rect() const override {
    if (!isValid()) return {};
    if (!IsTitle()) return OnScreen(*Grid_->viewport(), Grid_->visualRect(Index()));
    const QHeaderView& Titles = *Grid_->horizontalHeader();
    const QRect Place(Titles.sectionViewportPosition(Column_), 0, Titles.sectionSize(Column_), Titles.height());
    return OnScreen(*Titles.viewport(), Place);
  }

  QString text(QAccessible::Text Kind) const override {
    if (!isValid() || Kind != QAccessible::Name) return {};
    if (IsTitle()) return Grid_->AccessibleTitle(Column_);
    return IsCurrent() ? Grid_->AccessibleRow(Row_) : Grid_->AccessibleCell(Index());
  }
  void setText(QAccessible::Text, const QString&) override {}

  QAccessible::State state() const override {
    QAccessible::State Result;
    Result.invalid = !isValid();
    if (!isValid() || IsTitle()) return Result;
    Result.selectable = true;
    Result.focusable = true;
    Result.selected = Row_ == Grid_->currentIndex().row();
    Result.focused = IsCurrent() && Grid_->hasFocus();
    const QModelIndex Tick = TickIndex();
    Result.checkable = Tick.isValid() && Grid_->Columns()[Tick.column()]->Checkable();
    Result.checked = Tick.isValid() && Grid_->AccessibleChecked(Tick);
    const QRect Place = Grid_->visualRect(Index());
    Result.offscreen = !Grid_->viewport()->rect().intersects(Place);
    return Result;
  }

  bool isSelected() const override { return isValid() && Row_ == Grid_->currentIndex().row(); }
  QList<QAccessibleInterface*> columnHeaderCells() const override {
    const auto* Table = static_cast<const TGridAccessible*>(parent());
    return {Table->Cell(TitlesRow, Column_)};
  }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return Column_; }
  int rowIndex() const override { return Row_; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

  QStringList actionNames() const override { return {toggleAction()}; }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  // What can be ticked is ticked; any other cell makes its row the current one.
  void doAction(const QString& Action) override {
    if (Action != toggleAction() || !isValid()) return;
    Grid_->setCurrentIndex(Index());
    if (Grid_ != nullptr && Grid_->Columns()[Column_]->Checkable()) Grid_->Toggle(Column_);
  }

 private:
  bool IsTitle() const { return Row_ == TitlesRow; }
  bool IsCurrent() const { return Index() == Grid_->currentIndex(); }
  QModelIndex Index() const { return Grid_->model()->index(Row_, Column_); }

  // The cell whose tick this one tells: its own, or that of the row for which it speaks.
  QModelIndex TickIndex() const {
    if (Grid_->IsTick(Column_)) return Index();
    if (!IsCurrent()) return {};
    for (const TColumn* Other : Grid_->Columns()) {
      if (Other->Checkable()) return Grid_->model()->index(Row_, Other->Index());
    }
    return {};
  }

  static QRect OnScreen(const QWidget& Of, const QRect& Place) {
    return {Of.mapToGlobal(Place.topLeft()), Place.size()};
  }

  QPointer<TDBGrid> Grid_;
  int Row_;
  int Column_;
};

QAccessibleInterface* CreateAccessible(const QString& Class, QObject* Object) {
  if (Class != QLatin1String("toolkit::TDBGrid")) return nullptr;
  return new TGridAccessible(static_cast<TDBGrid*>(Object));
}

// The library may be unloaded before the application ends.
struct TInstalled {
  TInstalled() { QAccessible::installFactory(CreateAccessible); }
  ~TInstalled() { QAccessible::removeFactory(CreateAccessible); }
};

}  // namespace

void InstallGridAccessibility() {
  static const TInstalled Installed;
}

TGridAccessible::TGridAccessible(TDBGrid* Grid) : QAccessibleWidget(Grid, QAccessible::Table) {}

TGridAccessible::~TGridAccessible() {
  Forget();
}

TDBGrid* TGridAccessible::Grid() const {
  return static_cast<TDBGrid*>(object());
}

void TGridAccessible::Forget() {
  for (const QAccessible::Id Id : std::as_const(Cells_)) QAccessible::deleteAccessibleInterface(Id);
  Cells_.clear();
}

void* TGridAccessible::interface_cast(QAccessible::InterfaceType Type) {
  if (Type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(Type);
}

int TGridAccessible::ChildIndex(const TDBGrid& Grid, int Row, int Column) {
  return (Row + 1) * RowLength(Grid) + Column + 1;
}

int TGridAccessible::rowCount() const {
  return Grid()->model()->rowCount();
}
int TGridAccessible::columnCount() const {
  return Grid()->model()->columnCount();
}

int TGridAccessible::childCount() const {
  return (rowCount() + 1) * RowLength(*Grid());
}

QAccessibleInterface* TGridAccessible::child(int Index) const {
  if (Index < 0 || Index >= childCount()) return nullptr;
  return Cell(Index / RowLength(*Grid()) - 1, Index % RowLength(*Grid()) - 1);
}

QAccessibleInterface* TGridAccessible::Cell(int Row, int Column) const {
  if (Row < TitlesRow || Row >= rowCount() || Column < 0 || Column >= columnCount()) return nullptr;
  const int Index = ChildIndex(*Grid(), Row, Column);
  const auto Known = Cells_.constFind(Index);
  if (Known != Cells_.constEnd()) return QAccessible::accessibleInterface(*Known);
  auto* Fresh = new TCellAccessible(Grid(), Row, Column);
  Cells_.insert(Index, QAccessible::registerAccessibleInterface(Fresh));
  return Fresh;
}

QAccessibleInterface* TGridAccessible::cellAt(int Row, int Column) const {
  return Row < 0 ? nullptr : Cell(Row, Column);
}

int TGridAccessible::indexOfChild(const QAccessibleInterface* Child) const {
  const auto* Cell = dynamic_cast<const TCellAccessible*>(Child);
  return Cell != nullptr && Cell->isValid() ? ChildIndex(*Grid(), Cell->rowIndex(), Cell->columnIndex()) : -1;
}

QAccessibleInterface* TGridAccessible::childAt(int X, int Y) const {
  const QPoint At(X, Y);
  const QModelIndex Index = Grid()->indexAt(Grid()->viewport()->mapFromGlobal(At));
  if (Index.isValid() && Grid()->viewport()->rect().contains(Grid()->viewport()->mapFromGlobal(At))) {
    return Cell(Index.row(), Index.column());
  }
  const QHeaderView& Titles = *Grid()->horizontalHeader();
  const QPoint InTitles = Titles.viewport()->mapFromGlobal(At);
  if (Titles.viewport()->rect().contains(InTitles)) return Cell(TitlesRow, Titles.logicalIndexAt(InTitles));
  return nullptr;
}

QAccessibleInterface* TGridAccessible::focusChild() const {
  const QModelIndex Current = Grid()->currentIndex();
  return Grid()->hasFocus() && Current.isValid() ? Cell(Current.row(), Current.column()) : nullptr;
}

int TGridAccessible::selectedRowCount() const {
  return Grid()->currentIndex().isValid() ? 1 : 0;
}
QList<int> TGridAccessible::selectedRows() const {
  const QModelIndex Current = Grid()->currentIndex();
  return Current.isValid() ? QList<int>{Current.row()} : QList<int>();
}
bool TGridAccessible::isRowSelected(int Row) const {
  return Grid()->currentIndex().isValid() && Grid()->currentIndex().row() == Row;
}

int TGridAccessible::selectedCellCount() const {
  return selectedRowCount() * columnCount();
}
QList<QAccessibleInterface*> TGridAccessible::selectedCells() const {
  QList<QAccessibleInterface*> Result;
  for (int Column = 0; Column < selectedCellCount(); ++Column) {
    Result.append(Cell(Grid()->currentIndex().row(), Column));
  }
  return Result;
}

bool TGridAccessible::selectRow(int Row) {
  if (Row < 0 || Row >= rowCount()) return false;
  Grid()->selectRow(Row);
  return true;
}

QString TGridAccessible::columnDescription(int Column) const {
  return Column >= 0 && Column < columnCount() ? Grid()->AccessibleTitle(Column) : QString();
}

// Rows that come in behind the others change nothing for these.
void TGridAccessible::modelChange(QAccessibleTableModelChangeEvent* Event) {
  const bool Behind =
      Event->modelChangeType() == QAccessibleTableModelChangeEvent::RowsInserted && Event->lastRow() == rowCount() - 1;
  const bool SamePlaces = Event->modelChangeType() == QAccessibleTableModelChangeEvent::DataChanged;
  if (!Behind && !SamePlaces) Forget();
}

}  // namespace toolkit
