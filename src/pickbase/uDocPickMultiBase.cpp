#include "pickbase/uDocPickMultiBase.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>
#include <algorithm>

#include "frame/uZULPickListsUtils.h"
#include "toolkit/EventGuard.h"
#include "zulcommon/StringTable.h"

namespace uDocPickMultiBase {

using toolkit::Guarded;

namespace {

constexpr int HowToTickText = 65539;

// The menu is the same in all dialogs, which have no names yet when it is made.
QString MenuText(const std::string& Name, const std::string& Default) {
  return QString::fromStdString(zulcommon::Translated(Name + ".Caption", Default));
}

// Holds back the grid while the cursor walks.
class TControlsDisabled {
 public:
  explicit TControlsDisabled(ads::TDataSet& DataSet) : DataSet_(DataSet) { DataSet_.DisableControls(); }
  ~TControlsDisabled() { DataSet_.EnableControls(); }
  TControlsDisabled(const TControlsDisabled&) = delete;
  TControlsDisabled& operator=(const TControlsDisabled&) = delete;

 private:
  ads::TDataSet& DataSet_;
};

}  // namespace

TTickedRows::~TTickedRows() = default;

void TTickedRows::Listed(std::int32_t RecNo) {
  if (RecNo < 0) return;
  const auto Row = static_cast<std::size_t>(RecNo);
  if (Row >= Times_.size()) Times_.resize(std::max(Row + 1, Times_.size() * 2));
  ++Times_[Row];
}

void TTickedRows::Unlisted(std::int32_t RecNo) {
  if (Contains(RecNo)) --Times_[static_cast<std::size_t>(RecNo)];
}

int TTickedRows::Add(std::int32_t RecNo) {
  Listed(RecNo);
  return TIntegerList::Add(RecNo);
}

void TTickedRows::Insert(int Index, std::int32_t RecNo) {
  TIntegerList::Insert(Index, RecNo);
  Listed(RecNo);
}

void TTickedRows::Put(int Index, std::int32_t RecNo) {
  Unlisted(Get(Index));
  TIntegerList::Put(Index, RecNo);
  Listed(RecNo);
}

void TTickedRows::Delete(int Index) {
  Unlisted(Get(Index));
  TIntegerList::Delete(Index);
}

void TTickedRows::Clear() {
  Times_.clear();
  TIntegerList::Clear();
}

bool TTickedRows::Contains(std::int32_t RecNo) const {
  return RecNo >= 0 && static_cast<std::size_t>(RecNo) < Times_.size() && Times_[static_cast<std::size_t>(RecNo)] != 0;
}

int TTickedRows::IndexOf(const std::int32_t& RecNo) const {
  return Contains(RecNo) ? TIntegerList::IndexOf(RecNo) : -1;
}

TDocPickMultiBase::TDocPickMultiBase() {
  qryList_Ticked = CalculatedField("Ticked", ads::TFieldType::ftBoolean);
  qryList_Ticked->SetDisplayLabel("T");
  NarrowColumn(qryList_Ticked).SetCheckable(true);
  dbgAvail->OnToggle = [this](toolkit::TColumn*) { TDocPickMultiBase::dbgAvailDblClick(); };
  qryList_->AfterClose = [this](ads::TDataSet&) { qryList_AfterClose(); };
  qryList_->OnCalcFields = [this](ads::TDataSet&) { qryList_CalcFields(); };
  dbgAvail->OnKeyPress = [this](const QString& Text) {
    return Text == QLatin1String(" ") ? dbgAvailKeyPress(' ') : TypeIntoFind(Text);
  };

  connect(qryList_, &ads::TDataSet::Replaced, this, &TDocPickMultiBase::FollowTicked);

  popAllNone = new QMenu(this);
  popAllNone->setObjectName(QStringLiteral("popAllNone"));
  mniAll = popAllNone->addAction(MenuText("mniAll", "All"), this, [this] { Guarded(this, [this] { mniAllClick(); }); });
  mniAll->setObjectName(QStringLiteral("mniAll"));
  mniNone =
      popAllNone->addAction(MenuText("mniNone", "None"), this, [this] { Guarded(this, [this] { mniNoneClick(); }); });
  mniNone->setObjectName(QStringLiteral("mniNone"));
  SetListHint(zulcommon::LoadZULResString(HowToTickText));
  // In the list only: the find box has a use for Ctrl+A.
  mniAll->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_A));
  mniNone->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
  for (QAction* Action : {mniAll, mniNone}) {
    Action->setShortcutContext(Qt::WidgetShortcut);
    dbgAvail->addAction(Action);
  }
  auto* Menu = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), dbgAvail);
  Menu->setContext(Qt::WidgetShortcut);
  connect(Menu, &QShortcut::activated, this, [this] {
    const QRect Row = dbgAvail->visualRect(dbgAvail->currentIndex());
    popAllNone->popup(dbgAvail->viewport()->mapToGlobal(Row.bottomLeft()));
  });
  dbgAvail->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(dbgAvail, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& At) { popAllNone->popup(dbgAvail->viewport()->mapToGlobal(At)); });
}

TDocPickMultiBase::~TDocPickMultiBase() = default;

void TDocPickMultiBase::PutTickedLast() {
  dbgAvail->RemoveColumn(uZULPickListsUtils::GridColIndex(dbgAvail, qryList_Ticked));
  NarrowColumn(qryList_Ticked).SetCheckable(true);
}

void TDocPickMultiBase::qryList_CalcFields() {
  qryList_Ticked->SetBoolean(TickedRows.Contains(qryList_->RecNo()));
}

void TDocPickMultiBase::qryList_AfterClose() {
  TickedRows.Clear();
}

void TDocPickMultiBase::actOKUpdate() {
  TDocPickBase::actOKUpdate();
  if (TickedRows.Count() == 0) actOK->setEnabled(false);
}

void TDocPickMultiBase::TicksChanged() {
  qryList_->Refresh();
  dbgAvail->TellToggled();
  actOKUpdate();
}

void TDocPickMultiBase::dbgAvailDblClick() {
  if (qryList_->IsEmpty()) return;
  const int RecNo = qryList_->RecNo();
  if (qryList_Ticked->AsBoolean()) {
    TickedRows.Delete(TickedRows.IndexOf(RecNo));
  } else {
    TickedRows.Add(RecNo);
  }
  TicksChanged();
}

bool TDocPickMultiBase::dbgAvailKeyPress(char Key) {
  if (Key != ' ') return false;
  TDocPickMultiBase::dbgAvailDblClick();
  return true;
}

void TDocPickMultiBase::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                               toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  TDocPickBase::dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  if (Sender != nullptr) uZULPickListsUtils::GridPaint(Sender, Rect, DataCol, Column, State);
}

// A tick belongs to a record; one whose record is gone goes with it.
void TDocPickMultiBase::FollowTicked(const std::vector<int>& NewPlaces) {
  const std::vector<std::int32_t> Before(TickedRows.begin(), TickedRows.end());
  TickedRows.Clear();
  for (const std::int32_t RecNo : Before) {
    const int Place = NewPlaces[static_cast<std::size_t>(RecNo - 1)];
    if (Place >= 0) TickedRows.Add(Place + 1);
  }
  TicksChanged();
}

void TDocPickMultiBase::mniAllClick() {
  if (!qryList_->ReadToEnd()) return;
  const ads::TDataSet::TBookmark Bookmark = qryList_->GetBookmark();
  {
    const TControlsDisabled Disabled(*qryList_);
    TickedRows.Clear();
    for (qryList_->First(); !qryList_->Eof(); qryList_->Next()) TickedRows.Add(qryList_->RecNo());
    qryList_->GotoBookmark(Bookmark);
  }
  TicksChanged();
}

void TDocPickMultiBase::mniNoneClick() {
  TickedRows.Clear();
  TicksChanged();
}

void TDocPickMultiBase::WalkTicked(const std::function<void()>& Take) {
  const TControlsDisabled Disabled(*qryList_);
  for (qryList_->First(); !qryList_->Eof(); qryList_->Next()) {
    if (qryList_Ticked->AsBoolean()) Take();
  }
}

}  // namespace uDocPickMultiBase
