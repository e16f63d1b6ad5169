#include "pickbase/uDocPickBase.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "ads/EDatabaseError.h"
#include "ads/sql/ReadingOnly.h"
#include "frame/uZULPickListsUtils.h"
#include "frame/uZULPickPlsWait.h"
#include "pickbase/PickCall.h"
#include "pickbase/PickIcon.h"
#include "pickbase/PickLog.h"
#include "pickbase/TitleMeanings.h"
#include "pickbase/UserInterface.h"
#include "toolkit/ActionButton.h"
#include "toolkit/CheckBox.h"
#include "toolkit/EConvertError.h"
#include "toolkit/EventGuard.h"
#include "toolkit/Formats.h"
#include "toolkit/GroupBox.h"
#include "toolkit/Label.h"
#include "toolkit/Mnemonic.h"
#include "toolkit/QuietLoop.h"
#include "toolkit/WholeText.h"
#include "zulcommon/EZULException.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

namespace uDocPickBase {

using ads::TField;
using ads::TFieldType;
using toolkit::Guarded;
using TLayoutScope = toolkit::TMirroredLayout::TScope;
using zulcommon::LoadZULResString;

std::string SQL_DATE_FMT = "YYYY-MM-DD";

void StartUnit() {
  SQL_DATE_FMT = "YYYY-MM-DD";
}
void EndUnit() {
  std::string().swap(SQL_DATE_FMT);
}

namespace {

constexpr int SelectCaptionText = 65521;     // "Select %s"
constexpr int AvailableCaptionText = 65522;  // "Available %s"
constexpr int NoDateText = 6023;
constexpr int NoNumberText = 6097;
constexpr int RetrievingText = 5000;

constexpr int Gap = 4;
constexpr int ListHeight = 328;
constexpr int ListPadding = 16;
constexpr int NarrowestList = 100;
constexpr int ChoicesWidth = 83;
constexpr int BoxHeight = 14;
// As long a text as anybody may want to paste; the line edit's own limit would cut it silently.
constexpr int LongestFindText = 1 << 20;

QString Shown(const std::string& Text) {
  return QString::fromStdString(Text);
}

template <typename TWidget>
TWidget* Named(TWidget* Widget, const char* Name) {
  Widget->setObjectName(QLatin1String(Name));
  return Widget;
}

// More decimals than a floating number can tell apart are noise, and as many as the setting holds would be gigabytes.
constexpr int MostDecimals = 12;

std::string DecimalsFormat(int Decimals) {
  const auto Zeros = static_cast<std::size_t>(std::clamp(Decimals, 0, MostDecimals));
  return Zeros > 0 ? ",0." + std::string(Zeros, '0') : ",0";
}

// The pixels that a line edit has for its text.
int PlaceholderRoom(const QLineEdit& Edit) {
  constexpr int Margin = 2;  // the line edit's own, at each side
  QStyleOptionFrame Option;
  Option.initFrom(&Edit);
  Option.lineWidth = Edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &Option, &Edit);
  return Edit.style()->subElementRect(QStyle::SE_LineEditContents, &Option, &Edit).width() - 2 * Margin;
}

int ChoicesHeight(const toolkit::TRadioGroup& Group) {
  return Group.Items().Count() * BoxHeight + 20;
}

}  // namespace

TDocPickBase::TDocPickBase() : pnlForm(Named(new QWidget(this), "pnlForm")) {
  CreateList();
  CreateFind();
  CreateButtons();
  CreateSys();
  ConnectEvents();
  SetClientSize(726, 519);
  if (QApplication::windowIcon().isNull()) setWindowIcon(pickbase::PickIcon());
  PlacePanels();
}

TDocPickBase::~TDocPickBase() {
  dbgAvail->SetDataSet(nullptr);
}

void TDocPickBase::CreateList() {
  qryList_ = Named(new ads::TAdsQuery(this), "qryList_");
  gbList = Named(new toolkit::TGroupBox(pnlForm), "gbList");
  gbList->setGeometry(Gap, Gap, 201, ListHeight);
  dbgAvail = Named(new toolkit::TDBGrid(gbList), "dbgAvail");
  dbgAvail->setGeometry(Gap, ListPadding, 193, ListHeight - ListPadding - Gap);
  dbgAvail->SetDataSet(qryList_);
  qryList_->SetFirstRowsFirst(true);
  qryList_->HoldOthers = [] { return std::make_shared<toolkit::TOthersHeld>(); };
  qryList_->OnRestFailed = [this](const std::string& Message) { toolkit::ShowError(this, Message); };
}

void TDocPickBase::CreateFind() {
  gbFind = Named(new toolkit::TGroupBox(pnlForm), "gbFind");
  gbFind->setGeometry(209, 4, ChoicesWidth, 69);
  edFind = Named(new QLineEdit(gbFind), "edFind");
  edFind->setGeometry(Gap, 16, 75, 22);
  edFind->setMaxLength(LongestFindText);
  bbnFInd = Named(new toolkit::TActionButton(gbFind), "bbnFInd");
  bbnFInd->setGeometry(Gap, 40, 75, 25);
  rgFindBy = Named(new toolkit::TRadioGroup(pnlForm), "rgFindBy");
  rgFindBy->setGeometry(209, 73, ChoicesWidth, 62);
  rgOrderBy = Named(new toolkit::TRadioGroup(pnlForm), "rgOrderBy");
  rgOrderBy->setGeometry(209, 135, ChoicesWidth, 64);
  ckbDesc = Named(new toolkit::TCheckBox(pnlForm), "ckbDesc");
  ckbDesc->setGeometry(209, 199, ChoicesWidth, BoxHeight);
}

void TDocPickBase::CreateButtons() {
  pnlButtons = Named(new QWidget(this), "pnlButtons");
  bbnOK = Named(new toolkit::TActionButton(pnlButtons), "bbnOK");
  bbnOK->setGeometry(4, 4, 75, 25);
  bbnCancel = Named(new toolkit::TActionButton(pnlButtons), "bbnCancel");
  bbnCancel->setGeometry(4, 30, 75, 25);
  lblRows = Named(new toolkit::TLabel(pnlButtons), "lblRows");
  lblRows->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  lblRows->setWordWrap(true);
  actOK = Named(new QAction(this), "actOK");
  actFind = Named(new QAction(this), "actFind");
  actCancel = Named(new QAction(this), "actCancel");
  toolkit::BindAction(bbnOK, actOK);
  toolkit::BindAction(bbnFInd, actFind);
  toolkit::BindAction(bbnCancel, actCancel);
}

void TDocPickBase::CreateSys() {
  tblSys_ = Named(new ads::TAdsTable(this), "tblSys_");
  tblSys_->SetTableName("Sys");
  tblSys_->SetReadInTrials(true);  // what it says decides which queries there are
  tblSys_QtyDec = tblSys_->AddField("QtyDec", TFieldType::ftSmallint);
  tblSys_PrcDec = tblSys_->AddField("PrcDec", TFieldType::ftSmallint);
  tblSys_MultiAcct = tblSys_->AddField("MultiAcct", TFieldType::ftBoolean);
  tblSys_MultiLoc = tblSys_->AddField("MultiLoc", TFieldType::ftBoolean);
}

void TDocPickBase::ConnectEvents() {
  connect(actOK, &QAction::triggered, this, [this] { Guarded(this, [this] { actOKExecute(); }); });
  connect(actFind, &QAction::triggered, this, [this] { Guarded(this, [this] { actFindExecute(); }); });
  connect(actCancel, &QAction::triggered, this, [this] { Guarded(this, [this] { actCancelExecute(); }); });
  connect(edFind, &QLineEdit::returnPressed, this, [this] { Guarded(this, [this] { edFindKeyPress('\r'); }); });
  connect(edFind, &QLineEdit::textChanged, this, [this] {
    actFindUpdate();
    Guarded(this, [this] { edFindChange(); });
  });
  rgFindBy->OnClick = [this] {
    TellFindBy();
    rgFindByClick();
  };
  rgOrderBy->OnClick = [this] { OrderClick(); };
  connect(ckbDesc, &QCheckBox::toggled, this, [this] { Guarded(this, [this] { OrderClick(); }); });
  dbgAvail->OnKeyPress = [this](const QString& Text) { return TypeIntoFind(Text); };
  for (const int Enter : {Qt::Key_Return, Qt::Key_Enter}) {
    connect(new QShortcut(QKeySequence(Qt::CTRL | Enter), this), &QShortcut::activated, actOK, &QAction::trigger);
  }
  dbgAvail->OnTitleClick = [this](const toolkit::TColumn* Title) { dbgAvailTitleClick(Title); };
  connect(qryList_, &ads::TDataSet::Opened, this, &TDocPickBase::ShowOrder);
  dbgAvail->OnDblClick = [this] { dbgAvailDblClick(); };
  dbgAvail->OnDrawColumnCell = [this](toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                      toolkit::TColumn* Column, toolkit::TGridDrawState State) {
    dbgAvailDrawColumnCell(Sender, Rect, DataCol, Column, State);
  };
  for (const auto Changed : {&ads::TDataSet::Opened, &ads::TDataSet::Closed}) {
    connect(qryList_, Changed, this, [this] {
      actOKUpdate();
      TellRows();
    });
  }
  connect(qryList_, &ads::TDataSet::Grown, this, &TDocPickBase::TellRows);
  connect(qryList_, &ads::TDataSet::Replaced, this, [this] {
    actOKUpdate();
    TellRows();
  });
}

void TDocPickBase::RequireUserInterface() {
  pickbase::RequireUserInterface();
}

void TDocPickBase::NameAfterClass() {
  const QString Class = QString::fromLatin1(metaObject()->className());
  setObjectName(Class.mid(Class.lastIndexOf(u':') + 2));
}

// The construction steps, on the complete object.
void TDocPickBase::Build(ads::TAdsConnection* Connection) {
  if (Connection == nullptr) throw ads::EDatabaseError("A pick needs a database connection.");
  pickbase::LogOpening(*this, *Connection);
  for (ads::TDataSet* DataSet : findChildren<ads::TDataSet*>()) {
    DataSet->SetConnection(Connection);
    DataSet->OnProgress = toolkit::ServeEvents;
    DataSet->HoldOthers = qryList_->HoldOthers;
  }
  if (pickbase::TPickCall* Call = pickbase::TPickCall::Current()) Call->OnGiveUp = [this] { StopQuery(); };
  LoadCaptions();
  LoadOwnCaptions();
  ReadSys();
  SetShowIfEmpty(true);
  InSetup = true;
  SetUpColumns();
  InSetup = false;
  LoadOwnLabels();
  pickbase::NameLetterColumns(*dbgAvail);
  const bool HasFindBy = rgFindBy->Items().Count() > 0;
  rgFindBy->setVisible(HasFindBy);
  gbFind->setVisible(HasFindBy);
  const bool HasOrderBy = rgOrderBy->Items().Count() > 0;
  rgOrderBy->setVisible(HasOrderBy);
  ckbDesc->setVisible(HasOrderBy);
  FitList();
  CallSetSQL();
  AdjustWidths();
  UpdateFind();
  actOKUpdate();
  actFindUpdate();
  TellFindBy();
  if (HasFindBox()) edFind->setFocus();
}

// From here on tables are read while the list is painted, when no events may be served.
void TDocPickBase::EndBuild() {
  IsBuilt_ = true;
  for (ads::TDataSet* DataSet : findChildren<ads::TDataSet*>()) {
    if (DataSet == qryList_) continue;
    DataSet->OnProgress = nullptr;
    DataSet->HoldOthers = nullptr;
  }
}

void TDocPickBase::LoadCaptions() {
  actOK->setText(Shown(LoadZULResString(2000)));
  actFind->setText(Shown(LoadZULResString(2007)));
  actCancel->setText(Shown(LoadZULResString(2001)));
  gbFind->setTitle(Shown(LoadZULResString(5033)));
  rgFindBy->setTitle(Shown(LoadZULResString(5034)));
  rgOrderBy->setTitle(Shown(LoadZULResString(5035)));
  ckbDesc->setText(Shown(LoadZULResString(5036)));
  edFind->setAccessibleName(toolkit::WithoutMnemonic(gbFind->title()));
}

// What the constructor has set, before it could know the dialog's name.
void TDocPickBase::LoadOwnCaptions() {
  SetCaption(OwnText("Caption", Caption()));
  if (!AvailableCaption.empty()) SetAvailableCaption(AvailableCaption);
  for (QCheckBox* Box : Boxes_) {
    Box->setText(Shown(OwnText(Box->objectName().toStdString() + ".Caption", Box->text().toStdString())));
  }
}

void TDocPickBase::LoadOwnLabels() {
  for (const toolkit::TColumn* Column : dbgAvail->Columns()) {
    if (TField* Field = Column->Field()) Field->SetDisplayLabel(OwnLabel(*Field, Field->DisplayLabel()));
  }
}

std::string TDocPickBase::OwnLabel(const TField& Field, const std::string& Label) const {
  return OwnText(Field.objectName().toStdString() + ".DisplayLabel", Label);
}

std::string TDocPickBase::OwnText(const std::string& Name, const std::string& Default) const {
  return zulcommon::Translated(objectName().toStdString() + '.' + Name, Default);
}

void TDocPickBase::ReadSys() {
  tblSys_->Open();
  QtyFormat = DecimalsFormat(tblSys_QtyDec->AsInteger());
  PriceFormat = DecimalsFormat(tblSys_PrcDec->AsInteger());
  MultiLoc = tblSys_MultiLoc->AsBoolean();
  MultiAcct = tblSys_MultiAcct->AsBoolean();
  tblSys_->Close();
}

// Makes the list as high as the choices beside it when there are so many of them that they would not fit otherwise, by
// whole rows.
void TDocPickBase::FitList() {
  const int Bottom = rgFindBy->y() + ChoicesHeight(*rgFindBy) + ChoicesHeight(*rgOrderBy) +
                     BoxHeight * (1 + static_cast<int>(Boxes_.size()));
  const int Row = dbgAvail->verticalHeader()->defaultSectionSize();
  const int Rows = std::max(Bottom - gbList->y() - ListHeight + Row - 1, 0) / Row;
  gbList->resize(gbList->width(), ListHeight + Rows * Row);
  dbgAvail->resize(dbgAvail->width(), gbList->height() - ListPadding - Gap);
}

void TDocPickBase::SetUpColumns() {}

void TDocPickBase::CallSetSQL() {
  if (Querying_) {
    QueryAgain_ = true;
    return;
  }
  if (qryList_->IsWaiting()) {
    // The rest of the old list is of no more interest. Who waits for it gives back first.
    qryList_->Stop();
    QMetaObject::invokeMethod(
        this, [this] { Guarded(this, [this] { CallSetSQL(); }); }, Qt::QueuedConnection);
    return;
  }
  Querying_ = true;
  actOKUpdate();
  const QPointer<TDocPickBase> StillThere(this);
  const auto Done = qScopeGuard([StillThere] {
    if (StillThere == nullptr) return;
    StillThere->Querying_ = false;
    StillThere->actOKUpdate();
  });
  RunQueries();
}

// One query, and one more for as long as something else is wanted meanwhile. A failure is of no interest to who wants
// something else by now. A dialog that was closed while its query ran has nobody left to query again for.
void TDocPickBase::RunQueries() {
  const QPointer<TDocPickBase> StillThere(this);
  const bool WasVisible = isVisible();
  do {
    QueryAgain_ = false;
    try {
      RunQuery();
    } catch (...) {
      if (StillThere == nullptr || !QueryAgain_ || isVisible() != WasVisible) throw;
    }
  } while (StillThere != nullptr && QueryAgain_ && isVisible() == WasVisible);
}

// One query behind the please-wait window. The window runs the event loop in a dialog that is shown already, so the
// user may close the dialog there: nothing is left to be queried then.
void TDocPickBase::RunQuery() {
  using uZULPickPlsWait::TZULPickPlsWait;
  IsStopped_ = IsGivenUp_;
  const bool WasVisible = isVisible();
  const QPointer<TZULPickPlsWait> Wait(new TZULPickPlsWait(this, LoadZULResString(RetrievingText), false));
  const auto Done = qScopeGuard([Wait] { delete Wait; });  // it may have gone with the dialog
  Wait->OnEscape = [this] { StopQuery(); };
  Wait->ShowSoon();
  if (WasVisible) {
    const QPointer<TDocPickBase> StillThere(this);
    toolkit::ServeEvents();
    if (StillThere == nullptr || !isVisible()) return;
  }
  if (IsStopped_) return;
  pickbase::LogRows(*this);
  const QPointer<TDocPickBase> StillThere(this);
  try {
    SetSQL();
  } catch (const ads::EDatabaseError& Error) {
    if (StillThere != nullptr) pickbase::LogPick(*this, "the query failed", Error.what());
    throw;
  }
}

// Before the dialog is built there is nobody who could pick from what is there.
void TDocPickBase::StopQuery() {
  pickbase::LogPick(*this, "stopped by the user");
  IsStopped_ = true;
  IsGivenUp_ = !IsBuilt_;
  QueryAgain_ = false;
  for (ads::TDataSet* DataSet : findChildren<ads::TDataSet*>()) DataSet->Stop();
}

TDocPickBase::TConstruction::TConstruction() {
  if (pickbase::TPickCall::Current() == nullptr) Own_ = std::make_unique<pickbase::TPickCall>();
  pickbase::TPickCall::Current()->HoldInput();
}

TDocPickBase::TConstruction::~TConstruction() {
  if (pickbase::TPickCall* Call = pickbase::TPickCall::Current()) Call->OnGiveUp = nullptr;
}

void TDocPickBase::TConstruction::Run(TDocPickBase& Dialog, ads::TAdsConnection* Connection) const {
  try {
    Dialog.NameAfterClass();
    Dialog.Build(Connection);
    if (!Dialog.IsGivenUp_) Dialog.AfterCreate();
  } catch (...) {
    if (!Dialog.IsGivenUp_) throw;
  }
  Dialog.EndBuild();
  if (Own_ == nullptr) {
    Dialog.Call_ = pickbase::TPickCall::Current();
  } else {
    Dialog.qryList_->LetGo(ads::TDataSet::TRest::InEventLoop);
  }
}

bool TDocPickBase::ShowPick() {
  const QPointer<TDocPickBase> StillThere(this);
  if (!IsGivenUp_ && !ShowIfEmpty && qryList_->Bof() && qryList_->Eof()) {
    pickbase::LogPick(*this, "not shown, there is nothing to choose from");
    return false;
  }
  if (IsGivenUp_ || !TakeLastKeys()) {
    if (StillThere != nullptr) pickbase::LogPick(*this, "given up before it was shown");
    return false;
  }
  AwaitActivation();
  const bool IsPicked = ShowModal();
  if (StillThere == nullptr) return false;
  pickbase::LogPick(*this, IsPicked ? "chosen" : "cancelled");
  // Nothing is read for a list that nobody looks at. The one that was picked from was the whole list.
  if (IsPicked) {
    qryList_->GiveUpRest();
  } else {
    qryList_->LetGo(ads::TDataSet::TRest::WhenWanted);
  }
  return IsPicked;
}

// Keys that were typed so far are on their way to other windows, which take none any more once a modal one is shown.
// Whether the pick goes on.
bool TDocPickBase::TakeLastKeys() {
  if (!pickbase::TPickCall::IsUnderWay(Call_)) return true;
  Call_->OnGiveUp = [this] { IsGivenUp_ = true; };
  toolkit::ServeEvents();
  Call_->OnGiveUp = nullptr;
  return !IsGivenUp_;
}

// The keyboard comes to the dialog when the window system makes it the active window, which some never tell.
void TDocPickBase::AwaitActivation() {
  constexpr int Patience = 500;  // milliseconds
  auto* Timer = new QTimer(this);
  Timer->setSingleShot(true);
  connect(Timer, &QTimer::timeout, this, &TDocPickBase::BeUp);
  connect(Timer, &QTimer::timeout, Timer, &QObject::deleteLater);
  Timer->start(Patience);
}

void TDocPickBase::BeUp() {
  if (pickbase::TPickCall::IsUnderWay(Call_) && isVisible()) Call_->DialogIsUp(HasFindBox() ? edFind : nullptr);
}

bool TDocPickBase::event(QEvent* Event) {
  // Keys that were typed before are still on their way.
  if (Event->type() == QEvent::WindowActivate && Call_ != nullptr) {
    QMetaObject::invokeMethod(this, &TDocPickBase::BeUp, Qt::QueuedConnection);
  }
  return TForm::event(Event);
}

void TDocPickBase::closeEvent(QCloseEvent* Event) {
  IsClosing_ = true;
  const QPointer<TDocPickBase> StillThere(this);
  TForm::closeEvent(Event);
  if (StillThere != nullptr) IsClosing_ = false;
}

void TDocPickBase::reject() {
  const bool IsWaiting = Querying_ || qryList_->IsWaiting();
  if (IsWaiting) StopQuery();
  if (!IsWaiting || IsClosing_) TForm::reject();
}

void TDocPickBase::changeEvent(QEvent* Event) {
  TForm::changeEvent(Event);
  if (Event->type() == QEvent::LayoutDirectionChange) const TLayoutScope Scope(Layout_);
}

// The keys that the find box has no use for.
void TDocPickBase::keyPressEvent(QKeyEvent* Event) {
  const bool IntoList = Event->key() == Qt::Key_Down || Event->key() == Qt::Key_PageDown;
  if (IntoList && edFind->hasFocus()) return dbgAvail->setFocus(Qt::OtherFocusReason);
  TForm::keyPressEvent(Event);
}

bool TDocPickBase::TypeIntoFind(const QString& Text) {
  if (!edFind->isVisible()) return false;
  edFind->setFocus(Qt::OtherFocusReason);
  if (edFind->text() == Searched_) edFind->selectAll();  // a box that loses the focus loses its selection
  edFind->insert(Text);
  return true;
}

void TDocPickBase::AdjustWidths() {
  const TLayoutScope Scope(Layout_);
  dbgAvail->resize(dbgAvail->width(), gbList->height() - ListPadding - Gap);
  dbgAvail->SetClientWidth(dbgAvail->ColumnsWidth());
  int Width = PlaceBesideList();
  // On a screen that is too narrow for it the list gives way and is scrolled sideways: OK, Cancel and the find box are
  // to be reached.
  const QScreen* Screen = CallersScreen(this);
  if (Screen != nullptr && Width > Screen->availableGeometry().width()) {
    const int Missing = Width - Screen->availableGeometry().width();
    dbgAvail->resize(std::max(dbgAvail->width() - Missing, NarrowestList), WholeRowsHeight());
    Width = PlaceBesideList();
  }
  SetClientSize(Width, gbList->y() + gbList->height() + Gap);
  PlacePanels();
  uZULPickListsUtils::CenterFormOnScreen(this);
}

// The height of a list that is scrolled sideways: what the scroll bar leaves of it, without a row that is cut off.
int TDocPickBase::WholeRowsHeight() const {
  const QScrollBar& Bar = *dbgAvail->horizontalScrollBar();
  const int Room = dbgAvail->maximumViewportSize().height() - Bar.sizeHint().height();
  return dbgAvail->height() - Room % dbgAvail->verticalHeader()->defaultSectionSize();
}

// What stands beside the list, as wide as that is now. Returns the width that the form needs.
int TDocPickBase::PlaceBesideList() {
  gbList->resize(dbgAvail->width() + 2 * Gap, gbList->height());
  const int Left = gbList->x() + gbList->width() + Gap;
  for (QWidget* Beside : {static_cast<QWidget*>(gbFind), static_cast<QWidget*>(rgFindBy),
                          static_cast<QWidget*>(rgOrderBy), static_cast<QWidget*>(ckbDesc)}) {
    Beside->move(Left, Beside->y());
  }
  for (QCheckBox* Box : Boxes_) Box->move(Left, Box->y());
  const QWidget* Rightmost = !gbFind->isHidden()      ? gbFind
                             : !rgOrderBy->isHidden() ? static_cast<QWidget*>(rgOrderBy)
                                                      : gbList;
  return Rightmost->x() + Rightmost->width() + Gap + pnlButtons->width();
}

void TDocPickBase::PlacePanels() {
  pnlButtons->setGeometry(ClientWidth() - ChoicesWidth, 0, ChoicesWidth, ClientHeight());
  pnlForm->setGeometry(0, 0, ClientWidth() - ChoicesWidth, ClientHeight());
  const int Below = bbnCancel->y() + bbnCancel->height() + Gap;
  lblRows->setGeometry(Gap, Below, bbnCancel->width(), ClientHeight() - Gap - Below);
}

void TDocPickBase::UpdateFind() {
  const TLayoutScope Scope(Layout_);
  rgFindBy->resize(rgFindBy->width(), ChoicesHeight(*rgFindBy));
  // The list group is what is asked for on purpose: it is always there, so the order-by group stands under the find-by
  // group even where that one is hidden.
  const int Top = gbList->isHidden() ? gbFind->y() : rgFindBy->y() + rgFindBy->height();
  rgOrderBy->setGeometry(rgOrderBy->x(), Top, rgOrderBy->width(), ChoicesHeight(*rgOrderBy));
  ckbDesc->move(ckbDesc->x(), rgOrderBy->y() + rgOrderBy->height());
  const QCheckBox* Above = ckbDesc;
  for (QCheckBox* Box : Boxes_) {
    Box->move(Above->x(), Above->y() + Above->height());
    Above = Box;
  }
}

void TDocPickBase::RemoveColumn(const TField* Field, bool Adjust) {
  const int Index = uZULPickListsUtils::GridColIndex(dbgAvail, Field);
  if (Index < 0) return;
  dbgAvail->RemoveColumn(Index);
  if (Adjust) AdjustWidths();
}

void TDocPickBase::SetPickCaption(const std::string& Subject) {
  PickCaption = IsBuilt_ ? Subject : OwnText("PickCaption", Subject);
  SetCaption(zulcommon::FormatText(LoadZULResString(SelectCaptionText), {PickCaption}));
}

void TDocPickBase::SetAvailableCaption(const std::string& Subject) {
  AvailableCaption = IsBuilt_ ? Subject : OwnText("AvailableCaption", Subject);
  const QString Caption = Shown(zulcommon::FormatText(LoadZULResString(AvailableCaptionText), {AvailableCaption}));
  gbList->setTitle(Caption);
  dbgAvail->setAccessibleName(Caption);
}

std::string TDocPickBase::TypedText() const {
  return edFind->text().toStdString();
}

bool TDocPickBase::HasFindBox() const {
  return !edFind->isHidden() && !gbFind->isHidden();
}

bool TDocPickBase::HasFindText() const {
  return !zulcommon::Trim(TypedText()).empty();
}

std::string TDocPickBase::FindText() const {
  return uZULPickListsUtils::AddQuotes(zulcommon::UpperCase(zulcommon::Trim(TypedText())));
}

std::string TDocPickBase::FindDate() const {
  const std::optional<QDate> Date = toolkit::ReadDate(TypedText());
  if (!Date) {
    const std::string Format = OwnText("edFind.NoDate", "'%s' is not a valid date.");
    throw toolkit::EConvertError(zulcommon::FormatText(Format, {TypedText()}));
  }
  return toolkit::FormatDate(SQL_DATE_FMT, *Date);
}

void TDocPickBase::CheckDate(const std::string& S) const {
  if (toolkit::ReadDate(S)) return;
  throw zulcommon::EZULException(LoadZULResString(NoDateText), {zulcommon::UpperCase(toolkit::ShortDateFormat())});
}

void TDocPickBase::CheckInt(const std::string& S) const {
  if (!toolkit::ReadInteger(toolkit::PlainNumber(S))) throw zulcommon::EZULException(LoadZULResString(NoNumberText));
}

void TDocPickBase::CheckNumber(const std::string& S) const {
  if (!toolkit::ReadNumber(toolkit::PlainNumber(S))) throw zulcommon::EZULException(LoadZULResString(NoNumberText));
}

// What the user has set, once the find text was found fit for the chosen find-by.
TQueryState TDocPickBase::QueryState() const {
  TQueryState State;
  State.OrderBy = rgOrderBy->ItemIndex();
  State.FindBy = rgFindBy->ItemIndex();
  State.Descending = ckbDesc->isChecked();
  State.WithFind = HasFindText();
  State.FindText = FindText();
  State.Typed = TypedText();
  return State;
}

TQueryState TDocPickBase::CheckedState(const TPickChoices& Choices) const {
  TQueryState State = QueryState();
  if (!State.WithFind || State.FindBy < 0 || State.FindBy >= static_cast<int>(Choices.size())) return State;
  switch (Choices[static_cast<std::size_t>(State.FindBy)].Find.Kind) {
    case TFindKind::Date:
      CheckDate(State.Typed);
      State.FindDate = FindDate();
      break;
    case TFindKind::Number:
    case TFindKind::TypedNumber:
      CheckNumber(State.Typed);
      State.Typed = toolkit::PlainNumber(State.Typed);
      break;
    case TFindKind::TypedInteger:
      CheckInt(State.Typed);
      State.Typed = toolkit::PlainNumber(State.Typed);
      break;
    default:
      break;
  }
  return State;
}

// The recipe runs twice, once with what was typed and passed and once with harmless values: a query of another shape
// than the harmless one is not sent.
void TDocPickBase::OpenBuilt(const TQueryState& State, const TPickChoices& Choices, const TRecipe& Recipe,
                             bool FindLines) {
  TListQuery Query(*qryList_->SQL(), State, Choices, FindLines);
  Recipe(Query);
  ads::TSQLLines Pattern;
  TListQuery Harmless(Pattern, State, Choices, FindLines, TListQuery::TValues::Harmless);
  Recipe(Harmless);
  ads::sql::RequireShape(qryList_->SQL()->Text(), Pattern.Text());
  if (IsStopped_ || !qryList_->Open()) return;
  SearchFailed_ = false;
  HasSearched_ = State.WithFind && FindLines;
  TellRows();
}

void TDocPickBase::OpenPlainly(const TPickChoices& Choices, const TRecipe& Recipe) {
  OpenBuilt(CheckedState(Choices), Choices, Recipe, true);
}

void TDocPickBase::OpenGuarded(const TPickChoices& Choices, const TRecipe& Recipe) {
  const TQueryState State = CheckedState(Choices);
  std::string Why;
  try {
    return OpenBuilt(State, Choices, Recipe, true);
  } catch (const ads::EConnectionLost&) {
    throw;
  } catch (const ads::EQueryEnded&) {
    throw;
  } catch (const std::exception& Error) {
    Why = Error.what();
  }
  OpenWithoutFind(State, Choices, Recipe, Why);
}

void TDocPickBase::OpenWithoutFind(const TRecipe& Recipe, const std::string& Why) {
  OpenWithoutFind(QueryState(), Choices_, Recipe, Why);
}

void TDocPickBase::OpenWithoutFind(const TQueryState& State, const TPickChoices& Choices, const TRecipe& Recipe,
                                   const std::string& Why) {
  const QPointer<TDocPickBase> StillThere(this);
  OpenBuilt(State, Choices, Recipe, false);
  if (StillThere == nullptr || IsStopped_ || !State.WithFind) return;
  pickbase::LogPick(*this, "the search could not be done, the whole list is shown", Why);
  SearchFailed_ = true;
  TellRows();
}

QString TDocPickBase::RowsText() const {
  const bool IsKnown = qryList_->Active() && qryList_->IsComplete();
  const int Count = IsKnown ? qryList_->KnownRows() : 0;
  if (!IsKnown) {
    return SearchFailed_ ? Shown(OwnText("lblRows.SearchFailed", "The search could not be done. All rows")) : QString();
  }
  if (Count == 1) {
    return Shown(SearchFailed_ ? OwnText("lblRows.SearchFailedOneRow", "The search could not be done. All 1 row")
                               : OwnText("lblRows.OneRow", "1 row"));
  }
  const std::string Format = SearchFailed_
                                 ? OwnText("lblRows.SearchFailedRows", "The search could not be done. All %s rows")
                                 : OwnText("lblRows.Rows", "%s rows");
  return Shown(zulcommon::FormatText(Format, {QLocale().toString(Count).toStdString()}));
}

// How many rows there are, for the eye and for assistive programs, once it is known. The whole list must not pass for
// what was found, nor an empty one for a list that could not be read.
void TDocPickBase::TellRows() {
  const QString Text = RowsText();
  const bool IsNothing = HasSearched_ && qryList_->Active() && qryList_->IsEmpty();
  const std::string NothingFound = OwnText("dbgAvail.EmptyText", "Nothing found");
  dbgAvail->SetEmptyText(IsNothing ? NothingFound : "");
  lblRows->setAccessibleName(IsNothing ? Shown(NothingFound) : Text);
  if (IsNothing) {
    QAccessibleEvent Announced(lblRows, QAccessible::Alert);
    QAccessible::updateAccessibility(&Announced);
  }
  if (Text == lblRows->text()) return;
  lblRows->setText(Text);
  dbgAvail->setAccessibleDescription(Text);
  dbgAvail->setToolTip(ListHint_.empty() ? Text : Text + '\n' + Shown(ListHint_));
}

// In the empty find box, and to assistive programs.
void TDocPickBase::TellFindBy() {
  const int Index = rgFindBy->ItemIndex();
  const QString Column = Index >= 0 ? Shown(rgFindBy->Items()[Index]) : QString();
  edFind->setPlaceholderText(Column);
  const bool IsCutOff = rgFindBy->ItemIndex() >= 0 && toolkit::TextWidth(Column) > PlaceholderRoom(*edFind);
  edFind->setToolTip(IsCutOff ? toolkit::AsToolTip(Column) : QString());
  const QString FindBy = toolkit::WithoutMnemonic(rgFindBy->title());
  edFind->setAccessibleDescription(Column.isEmpty() ? QString() : FindBy + ": " + Column);
}

void TDocPickBase::actOKUpdate() {
  actOK->setEnabled(!Querying_ && qryList_->Active() && !qryList_->IsEmpty());
}

void TDocPickBase::actOKExecute() {
  accept();
}

void TDocPickBase::actCancelExecute() {
  reject();
}

void TDocPickBase::actFindUpdate() {
  actFind->setEnabled(HasFindText());
}

void TDocPickBase::actFindExecute() {
  if (!actFind->isEnabled()) return;
  CallSetSQL();
  Searched_ = edFind->text();
  edFind->selectAll();  // the next text replaces it
}

void TDocPickBase::edFindKeyPress(char Key) {
  if (actFind->isEnabled() && Key == '\r') actFindExecute();
}

void TDocPickBase::edFindChange() {
  if (edFind->text().isEmpty()) CallSetSQL();
}

void TDocPickBase::rgFindByClick() {
  edFind->clear();
}

void TDocPickBase::OrderClick() {
  if (!InSetup) CallSetSQL();
}

// Through the radio button or the box, as if the user had clicked these.
void TDocPickBase::dbgAvailTitleClick(const toolkit::TColumn* Title) {
  for (std::size_t Index = 0; Index < Choices_.size(); ++Index) {
    if (Choices_[Index].Field == nullptr || Choices_[Index].Field != Title->Field()) continue;
    if (rgOrderBy->ItemIndex() == static_cast<int>(Index)) return ckbDesc->toggle();
    return rgOrderBy->SetItemIndex(static_cast<int>(Index));
  }
}

void TDocPickBase::ShowOrder() {
  const int Index = rgOrderBy->ItemIndex();
  const bool Known = Index >= 0 && Index < static_cast<int>(Choices_.size());
  const ads::TField* Field = Known ? Choices_[static_cast<std::size_t>(Index)].Field : nullptr;
  const toolkit::TColumn* Column = Field != nullptr ? uZULPickListsUtils::GridCol(dbgAvail, Field) : nullptr;
  dbgAvail->ShowOrder(Column, ckbDesc->isChecked());
}

void TDocPickBase::dbgAvailDblClick() {
  if (actOK->isEnabled()) actOKExecute();
}

void TDocPickBase::dbgAvailDrawColumnCell(toolkit::TDBGrid* Sender, const QRect& Rect, int DataCol,
                                          toolkit::TColumn* Column, toolkit::TGridDrawState State) {
  if (Sender != nullptr) uZULPickListsUtils::GridPaint(Sender, Rect, DataCol, Column, State);
}

TField* TDocPickBase::TextField(const std::string& Name, int Size) {
  return qryList_->AddField(Name, TFieldType::ftString, Size);
}
TField* TDocPickBase::BooleanField(const std::string& Name) {
  return qryList_->AddField(Name, TFieldType::ftBoolean);
}
TField* TDocPickBase::FloatField(const std::string& Name) {
  return qryList_->AddField(Name, TFieldType::ftFloat);
}
TField* TDocPickBase::DateField(const std::string& Name) {
  return qryList_->AddField(Name, TFieldType::ftDate);
}
TField* TDocPickBase::SmallintField(const std::string& Name) {
  return qryList_->AddField(Name, TFieldType::ftSmallint);
}
TField* TDocPickBase::IntegerField(const std::string& Name) {
  return qryList_->AddField(Name, TFieldType::ftInteger);
}
TField* TDocPickBase::AutoIncField(const std::string& Name) {
  return qryList_->AddField(Name, TFieldType::ftAutoInc);
}
TField* TDocPickBase::CalculatedField(const std::string& Name, TFieldType Type) {
  return qryList_->AddField(Name, Type, 0, ads::TFieldKind::fkCalculated);
}

toolkit::TColumn& TDocPickBase::NarrowColumn(TField* Field) {
  return Column(Field).SetWidth(16).Align(toolkit::TAlignment::taCenter);
}

QCheckBox* TDocPickBase::AddFilterBox(const char* Name, const char* Caption) {
  return AddCheckBox(Name, Caption, [this] { OrderClick(); });
}

QCheckBox* TDocPickBase::AddCheckBox(const char* Name, const char* Caption, std::function<void()> OnClick) {
  const TLayoutScope Scope(Layout_);
  QCheckBox* Above = Boxes_.empty() ? ckbDesc : Boxes_.back();
  QCheckBox* Box = Named(new toolkit::TCheckBox(QLatin1String(Caption), pnlForm), Name);
  Box->setGeometry(Above->x(), Above->y() + Above->height(), 75, BoxHeight);
  connect(Box, &QCheckBox::toggled, this, [this, OnClick = std::move(OnClick)] { Guarded(this, OnClick); });
  setTabOrder(Above, Box);
  setTabOrder(Box, bbnOK);
  Boxes_.push_back(Box);
  return Box;
}

void TDocPickBase::SetLabels(const std::vector<std::pair<TField*, int>>& Labels) {
  for (const auto& [Field, Number] : Labels) Field->SetDisplayLabel(LoadZULResString(Number));
}

void TDocPickBase::SetChoices(TPickChoices Choices, int Default) {
  Choices_ = std::move(Choices);
  for (TPickChoice& Choice : Choices_) {
    const bool IsLabel = Choice.Field != nullptr && Choice.Caption == Choice.Field->DisplayLabel();
    if (IsLabel) Choice.Caption = OwnLabel(*Choice.Field, Choice.Caption);
  }
  rgFindBy->Items().Clear();
  for (const TPickChoice& Choice : Choices_) rgFindBy->Items().Add(Choice.Caption);
  rgFindBy->SetItemIndex(Default);
  rgOrderBy->Items().Assign(rgFindBy->Items());
  rgOrderBy->SetItemIndex(Default);
}

}  // namespace uDocPickBase
