#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ads/DataSet.h"
#include "ads/Field.h"
#include "toolkit/Set.h"
#include "toolkit/zultoolkit_export.h"

namespace toolkit {

using ads::TAlignment;

class TDBGrid;
class TDBGridModel;

enum class TGridDrawStateFlag : std::uint8_t { gdSelected, gdFocused, gdFixed };
/// How a cell that is being painted stands: in the selected row, having the keyboard focus, being a title.
using TGridDrawState = TSet<TGridDrawStateFlag>;

/// One column of a data grid. Owned by the grid; changes show at once.
class ZULTOOLKIT_EXPORT TColumn {
 public:
  TColumn(const TColumn&) = delete;
  TColumn& operator=(const TColumn&) = delete;

  /// Null when the field's dataset is gone: the column is then empty.
  ads::TField* Field() const { return Field_; }
  /// Shows another field: the title follows, an alignment that was never set follows too, a width that was never set is
  /// that of the new field.
  TColumn& SetField(ads::TField* Field);

  /// Pixels of the cells, without the line between columns. Until it is set: wide enough for the field's display width
  /// in digits (a code of up to 12 characters: in capital letters), and for the title.
  int Width() const;
  TColumn& SetWidth(int Width);

  /// Of the cells; the field's own until it is set.
  TAlignment Alignment() const;
  TColumn& SetAlignment(TAlignment Alignment);

  /// Left until it is set.
  TAlignment TitleAlignment() const { return TitleAlignment_; }
  TColumn& SetTitleAlignment(TAlignment Alignment);

  /// Cell and title alike.
  TColumn& Align(TAlignment Both) { return SetAlignment(Both).SetTitleAlignment(Both); }

  /// The field's display label.
  std::string Title() const;

  /// What assistive programs call the column, for a title of a letter or none; the title until it is set.
  std::string AccessibleTitle() const { return AccessibleTitle_.empty() ? Title() : AccessibleTitle_; }
  TColumn& SetAccessibleTitle(std::string AccessibleTitle);

  /// Whether the user can tick its cells, by a click or as assistive programs do (`TDBGrid::OnToggle`).
  bool Checkable() const { return Checkable_; }
  TColumn& SetCheckable(bool Checkable);

  TDBGrid* Grid() const { return Grid_; }
  /// The position in the grid, from 0.
  int Index() const;

 private:
  friend class TDBGrid;
  TColumn(TDBGrid* Grid, ads::TField* Field);
  ~TColumn();
  void Show(ads::TField* Field);
  void Changed();

  TDBGrid* Grid_;
  QPointer<ads::TField> Field_;
  QMetaObject::Connection FieldChanged_;
  std::optional<int> Width_;
  std::optional<TAlignment> Alignment_;
  TAlignment TitleAlignment_ = TAlignment::taLeftJustify;
  std::string AccessibleTitle_;
  bool Checkable_ = false;
};

/// The columns of a grid, in display order.
class ZULTOOLKIT_EXPORT TDBGridColumns {
 public:
  int Count() const { return static_cast<int>(Columns_.size()); }
  TColumn* operator[](int Index) const;  ///< throws EListError
  auto begin() const { return Columns_.begin(); }
  auto end() const { return Columns_.end(); }

 private:
  friend class TDBGrid;
  std::vector<TColumn*> Columns_;  // owned by the grid
};

/// Shows the rows of a dataset and moves its cursor: whole rows are selected, cells are never edited, column widths are
/// the program's.
///
/// The rows are read as they are painted, so a million of them cost no more than the visible ones. While rows of the
/// dataset are still to come, the grid shows those that are there; the End key and dragging to the end wait for the
/// last. The current row is the dataset's, both ways. The vertical scroll bar always has its place, so that the columns
/// stay fully visible however many rows there are.
///
/// The arrow keys, Page Up and Page Down move by rows and pages, Home and End to the first and the last row; Left and
/// Right scroll columns that do not fit. Ctrl+C copies the values of the row as they are shown, separated by tabs. What
/// is cut off is to be read in a tool tip.
class ZULTOOLKIT_EXPORT TDBGrid : public QTableView {
  Q_OBJECT
 public:
  explicit TDBGrid(QWidget* Parent = nullptr);
  ~TDBGrid() override;

  void SetDataSet(ads::TDataSet* DataSet);  ///< borrowed; null shows nothing
  /// Null also when the dataset was destroyed.
  ads::TDataSet* DataSet() const { return DataSet_; }

  const TDBGridColumns& Columns() const { return Columns_; }
  /// Appends a column for the field, or puts it at a position; a position that there is not throws EListError.
  TColumn& AddColumn(ads::TField* Field);
  TColumn& InsertColumn(int Index, ads::TField* Field);
  void RemoveColumn(int Index);  ///< throws EListError

  /// The sum of the column widths, with the line behind each.
  int ColumnsWidth() const;
  /// Makes the grid so wide that its inside, without frame and scroll bar, has `Width` pixels.
  void SetClientWidth(int Width);

  /// Paints a cell, its background included; what it paints outside of `Rect` is cut off. The dataset's fields read the
  /// cell's row meanwhile. Without it `DefaultDrawColumnCell` does. May throw: the cell then stays as painted so far,
  /// and the message is shown once the painting is over, once for each opening of the dataset.
  std::function<void(TDBGrid* Sender, const QRect& Rect, int DataCol, TColumn* Column, TGridDrawState State)>
      OnDrawColumnCell;
  /// Called for Enter and for a double click on a row, but not on a checkable cell, which its first click has turned
  /// over; guarded.
  std::function<void()> OnDblClick;
  /// Gets every character key typed into the grid before the grid does; true keeps it from the grid. Guarded.
  std::function<bool(const QString& Text)> OnKeyPress;

  /// Called for a click on a title; guarded.
  std::function<void(TColumn* Column)> OnTitleClick;

  /// Called to turn over the current row's cell of a column that is checkable; guarded.
  std::function<void(TColumn* Column)> OnToggle;
  void Toggle(int Column);

  // What assistive programs say, by index: a column's title; a cell's value, with its meaning when it is a tick; a
  // whole row with its titles.
  QString AccessibleTitle(int Column) const;
  QString AccessibleCell(const QModelIndex& Index) const;
  QString AccessibleRow(int Row) const;
  /// Whether the column shows ticks, and whether a cell of it has one.
  bool IsTick(int Column) const;
  bool AccessibleChecked(const QModelIndex& Index) const;
  /// Says that the current row was ticked, or its tick taken away.
  void TellToggled();

  /// Shows by an arrow over its title the column by which the rows are ordered; null for none.
  void ShowOrder(const TColumn* Column, bool Descending);
  const TColumn* OrderColumn() const { return OrderColumn_; }
  bool OrderDescending() const { return OrderDescending_; }

  /// The cell as text: filled with the canvas's brush, the field's display text in the canvas's pen, aligned as the
  /// column, 2 pixels from the sides, cut off with an ellipsis (a right-aligned one at its start). Only while a cell is
  /// being painted.
  void DefaultDrawColumnCell(const QRect& Rect, int DataCol, TColumn* Column, TGridDrawState State);

  /// What stands in the middle of the grid while its open dataset has no rows; nothing until it is set.
  void SetEmptyText(const std::string& Text);
  const std::string& EmptyText() const { return EmptyText_; }

  /// The cell's part of the style's focus frame, which stands around the current row while the grid has the keyboard:
  /// for a handler that paints the cell itself. `DefaultDrawColumnCell` draws it, too.
  void DrawFocusFrame(const QRect& Rect, TGridDrawState State);

  /// The painter of the cell that is being painted, its brush the cell's background and its pen the text colour; null
  /// otherwise.
  QPainter* Canvas() const { return Canvas_; }

  /// The selected row is shown also while the grid has no focus.
  bool AlwaysShowSelection() const { return true; }

  /// Up and down only: what is seen sideways is the user's to choose.
  void scrollTo(const QModelIndex& Index, ScrollHint Hint = EnsureVisible) override;

  /// Does nothing: a search for what was typed would read every row.
  void keyboardSearch(const QString& Search) override;

 protected:
  void keyPressEvent(QKeyEvent* Event) override;
  void mousePressEvent(QMouseEvent* Event) override;
  void mouseReleaseEvent(QMouseEvent* Event) override;
  void mouseDoubleClickEvent(QMouseEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;
  void focusInEvent(QFocusEvent* Event) override;
  void focusOutEvent(QFocusEvent* Event) override;
  void currentChanged(const QModelIndex& Current, const QModelIndex& Previous) override;
  QModelIndex moveCursor(CursorAction Action, Qt::KeyboardModifiers Modifiers) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& Index, const QEvent* Event) const override;

 private:
  friend class TColumn;
  friend class TDBGridModel;
  class TCellDelegate;

  QString AccessibleValue(const QModelIndex& Index) const;
  void TellCurrentRow();
  QString CellToolTip(const QModelIndex& Index) const;
  QString TitleToolTip(int Column) const;
  void CopyRow() const;
  void SetUpLook();
  void SetUpBehaviour();
  TGridDrawState StateOf(const QModelIndex& Index) const;
  void PaintCell(QPainter* Painter, const QRect& Rect, const QModelIndex& Index);
  void PaintEmptyText() const;
  void DrawCell(const QRect& Rect, const QModelIndex& Index, TGridDrawState State);
  void ColumnsChanged();
  void ResetRows();
  void FollowRows(const std::vector<int>& NewPlaces);
  void WantEnd(int Value);
  void ShowEnd();
  bool ReadToEnd();
  void ShowCurrentRow();
  void ReportPaintError(const std::string& Message);
  bool HandleCharacter(const QKeyEvent& Event);
  void CallDblClick();

  QPointer<ads::TDataSet> DataSet_;
  TDBGridModel* Model_;
  TDBGridColumns Columns_;
  QPainter* Canvas_ = nullptr;
  QPersistentModelIndex Pressed_;  // the checkable cell on which the mouse went down
  std::string EmptyText_;
  const TColumn* OrderColumn_ = nullptr;
  bool OrderDescending_ = false;
  bool Following_ = false;           // the grid is being brought to the dataset's row, or the other way round
  bool WantsEnd_ = false;            // the end of the list is going to be shown
  bool PaintErrorReported_ = false;  // for this opening of the dataset
};

}  // namespace toolkit
