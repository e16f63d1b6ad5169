#pragma once

#include <functional>
#include <vector>

#include "frame/uZULPickLists.h"
#include "pickbase/uDocPickBase.h"

class QMenu;

namespace uDocPickMultiBase {

/// The record numbers of the ticked rows, in the order in which they were ticked. Whether a row is among them is known
/// without a search, so a million rows can be ticked and read.
class ZULPICKLISTS_EXPORT TTickedRows : public uZULPickLists::TIntegerList {
 public:
  ~TTickedRows() override;
  int Add(std::int32_t RecNo) override;
  void Insert(int Index, std::int32_t RecNo) override;
  void Put(int Index, std::int32_t RecNo) override;
  void Delete(int Index) override;
  void Clear() override;
  int IndexOf(const std::int32_t& RecNo) const override;

  bool Contains(std::int32_t RecNo) const;

 private:
  void Listed(std::int32_t RecNo);
  void Unlisted(std::int32_t RecNo);

  // How often each record number stands in the list, by record number; a number beyond its end not at all.
  std::vector<std::uint32_t> Times_;
};

/// The dialog in which any number of rows can be ticked: by a click on the tick, a double click, the space bar, or the
/// All and None menu, whose keys are Ctrl+A and Ctrl+Shift+A.
///
/// A tick belongs to a row of the open list; every new search, order or direction drops all of them. A dialog adds an
/// accessor that collects the keys of the ticked rows.
class ZULPICKLISTS_EXPORT TDocPickMultiBase : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  ~TDocPickMultiBase() override;

  void actOKUpdate() override;
  /// Ticks the current row, or takes its tick away.
  void dbgAvailDblClick() override;
  /// A space does the same. Whether the key was one.
  bool dbgAvailKeyPress(char Key);
  void dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                              toolkit::TGridDrawState State) override;
  void mniAllClick();
  void mniNoneClick();
  void qryList_AfterClose();
  /// A dialog with calculated fields of its own calls this first.
  virtual void qryList_CalcFields();

  ads::TField* qryList_Ticked;
  QMenu* popAllNone;
  QAction* mniAll;
  QAction* mniNone;

  TTickedRows TickedRows;

 protected:
  TDocPickMultiBase();

  /// Makes the tick column the last one, for a dialog that has it there.
  void PutTickedLast();

  /// Walks the list from its first row to its end and calls `Take` on each ticked row. The list is left at its end.
  void WalkTicked(const std::function<void()>& Take);

 private:
  void TicksChanged();
  void FollowTicked(const std::vector<int>& NewPlaces);
};

}  // namespace uDocPickMultiBase
