#pragma once

#include <QItemSelectionModel>

namespace toolkit {

/// The selection of a list in which one whole row is current and selected, always the same one. Whoever selects another
/// row (a key, a click, code, an assistive program, which knows nothing of current rows) makes it the current one, and
/// nobody takes the selection away while there are rows.
class TRowSelection : public QItemSelectionModel {
  Q_OBJECT
 public:
  TRowSelection(QAbstractItemModel* Model, QObject* Parent);

  using QItemSelectionModel::select;
  void select(const QItemSelection& Selection, SelectionFlags Command) override;
  void setCurrentIndex(const QModelIndex& Index, SelectionFlags Command) override;
  void clear() override;
  void reset() override;
  void clearCurrentIndex() override;

 private:
  bool Moving_ = false;  // the row is being moved by this class itself
};

}  // namespace toolkit
