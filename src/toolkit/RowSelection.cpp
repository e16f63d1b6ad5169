#include "toolkit/RowSelection.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace toolkit {

TRowSelection::TRowSelection(QAbstractItemModel* Model, QObject* Parent) : QItemSelectionModel(Model, Parent) {}

// Of several rows the first that is not the current one already.
void TRowSelection::select(const QItemSelection& Selection, SelectionFlags Command) {
  if (Moving_) return QItemSelectionModel::select(Selection, Command);
  if (!(Command & (Select | Toggle))) return;
  const int Column = std::max(currentIndex().column(), 0);
  for (const QItemSelectionRange& Range : Selection) {
    const int Row = Range.top() == currentIndex().row() ? Range.top() + 1 : Range.top();
    if (Row <= Range.bottom()) return setCurrentIndex(model()->index(Row, Column), ClearAndSelect);
  }
}

void TRowSelection::setCurrentIndex(const QModelIndex& Index, SelectionFlags) {
  if (!Index.isValid()) return;
  {
    const QScopedValueRollback Guard(Moving_, true);
    QItemSelectionModel::select(Index, ClearAndSelect | Rows);
  }
  QItemSelectionModel::setCurrentIndex(Index, NoUpdate);
}

void TRowSelection::clear() {
  if (Moving_) QItemSelectionModel::clear();
}

void TRowSelection::clearCurrentIndex() {
  if (Moving_) QItemSelectionModel::clearCurrentIndex();
}

void TRowSelection::reset() {
  const QScopedValueRollback Guard(Moving_, true);
  QItemSelectionModel::reset();
}

}  // namespace toolkit
