#pragma once

#include <QAbstractTableModel>

namespace toolkit {

class TDBGrid;

/// A grid's dataset as Qt's views see it. Holds no values: each is read from the dataset when it is wanted.
class TDBGridModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit TDBGridModel(TDBGrid& Grid);

  /// As many rows and columns as at the last `Reset`, so that a view never sees them change unannounced.
  int rowCount(const QModelIndex& Parent = {}) const override;
  int columnCount(const QModelIndex& Parent = {}) const override;
  QVariant data(const QModelIndex& Index, int Role) const override;
  QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;

  /// Takes over the dataset's rows and the grid's columns as they are now.
  void Reset();
  /// Takes over rows that have come behind those that were there.
  void Grow();
  /// Tells the views that values have changed.
  void ValuesChanged();
  void TitlesChanged();

 private:
  QString CellText(const QModelIndex& Index) const;

  TDBGrid& Grid_;
  int RowCount_ = 0;
  int ColumnCount_ = 0;
};

}  // namespace toolkit
