#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace toolkit {

class TDBGrid;

/// Makes assistive programs see every grid that is created from now on as `TGridAccessible` does. Needs to be called
/// before one is; again does nothing.
void InstallGridAccessibility();

/// A grid as assistive programs see it: a table of titles and cells. The current cell, on which the focus is, speaks
/// for its whole row; a cell that shows a tick says of what, and is a check box.
///
/// Children are numbered as the table view numbers them in the events that it sends: the titles first, in front of each
/// row a place for a row title, which there is not.
class TGridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit TGridAccessible(TDBGrid* Grid);
  ~TGridAccessible() override;

  void* interface_cast(QAccessible::InterfaceType Type) override;
  int childCount() const override;
  QAccessibleInterface* child(int Index) const override;
  int indexOfChild(const QAccessibleInterface* Child) const override;
  QAccessibleInterface* childAt(int X, int Y) const override;
  QAccessibleInterface* focusChild() const override;

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int Row, int Column) const override;
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int Column) const override;
  QString rowDescription(int) const override { return {}; }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override;
  int columnCount() const override;
  int rowCount() const override;
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override;
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int Row) const override;
  bool selectRow(int Row) override;
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* Event) override;

  /// The titles' row is -1. Null for a place that there is not.
  QAccessibleInterface* Cell(int Row, int Column) const;
  /// The number of a child.
  static int ChildIndex(const TDBGrid& Grid, int Row, int Column);

 private:
  TDBGrid* Grid() const;
  void Forget();

  mutable QHash<int, QAccessible::Id> Cells_;  // by their numbers
};

}  // namespace toolkit
