#include "toolkit/DBGridModel.h"

#include <exception>

#include "ads/DataSet.h"
#include "toolkit/CellText.h"
#include "toolkit/DBGrid.h"

namespace toolkit {

TDBGridModel::TDBGridModel(TDBGrid& Grid) : QAbstractTableModel(&Grid), Grid_(Grid) {}

int TDBGridModel::rowCount(const QModelIndex& Parent) const {
  return Parent.isValid() ? 0 : RowCount_;
}

int TDBGridModel::columnCount(const QModelIndex& Parent) const {
  return Parent.isValid() ? 0 : ColumnCount_;
}

void TDBGridModel::Reset() {
  beginResetModel();
  RowCount_ = Grid_.DataSet() != nullptr ? Grid_.DataSet()->KnownRows() : 0;
  ColumnCount_ = Grid_.Columns().Count();
  endResetModel();
}

void TDBGridModel::Grow() {
  const int Known = Grid_.DataSet()->KnownRows();
  if (Known <= RowCount_) return;
  beginInsertRows({}, RowCount_, Known - 1);
  RowCount_ = Known;
  endInsertRows();
}

void TDBGridModel::ValuesChanged() {
  if (RowCount_ > 0 && ColumnCount_ > 0) Q_EMIT dataChanged(index(0, 0), index(RowCount_ - 1, ColumnCount_ - 1));
}

void TDBGridModel::TitlesChanged() {
  if (ColumnCount_ > 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount_ - 1);
}

QString TDBGridModel::CellText(const QModelIndex& Index) const {
  const ads::TField* Field = Grid_.Columns()[Index.column()]->Field();
  ads::TDataSet* DataSet = Grid_.DataSet();
  if (Field == nullptr || DataSet == nullptr || Index.row() >= DataSet->KnownRows()) return {};
  const ads::TRowScope Scope(*DataSet, Index.row());
  try {
    return QString::fromStdString(Field->DisplayText());
  } catch (const std::exception&) {
    return {};  // the grid reports it when it paints the cell
  }
}

QVariant TDBGridModel::data(const QModelIndex& Index, int Role) const {
  if (!Index.isValid() || Index.column() >= Grid_.Columns().Count()) return {};
  if (Role == Qt::DisplayRole) return CellText(Index);
  if (Role == Qt::ToolTipRole) return Grid_.CellToolTip(Index);
  if (Role == Qt::TextAlignmentRole) return static_cast<int>(QtAlignment(Grid_.Columns()[Index.column()]->Alignment()));
  return {};
}

QVariant TDBGridModel::headerData(int Section, Qt::Orientation Orientation, int Role) const {
  if (Orientation != Qt::Horizontal || Section < 0 || Section >= Grid_.Columns().Count()) {
    return QAbstractTableModel::headerData(Section, Orientation, Role);
  }
  const TColumn& Column = *Grid_.Columns()[Section];
  if (Role == Qt::DisplayRole) return QString::fromStdString(Column.Title());
  if (Role == Qt::ToolTipRole) return Grid_.TitleToolTip(Section);
  if (Role == Qt::TextAlignmentRole) return static_cast<int>(QtAlignment(Column.TitleAlignment()));
  return {};
}

}  // namespace toolkit
