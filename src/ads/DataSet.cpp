#include "ads/DataSet.h"

#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

#include "ads/Connection.h"
#include "ads/EDatabaseError.h"
#include "ads/ListReading.h"
#include "ads/Store.h"
#include "ads/Trial.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

using TClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Waiting gives way so often, and the event loop is kept by a portion of the rest for so long.
constexpr milliseconds WaitingPortion(30);
constexpr milliseconds RestPortion(12);
// The first rows are painted before the rest is begun to be read.
constexpr milliseconds BeforeRest(30);
// Telling of more rows costs the more, the more there are.
constexpr milliseconds BetweenTellings(150);
// As many as nobody looks through before the rest is there, and few enough to be known long before it.
constexpr int PageRows = 1000;

}  // namespace

/// While rows are waited for; ended also when the dataset is destroyed meanwhile.
class TDataSet::TWaiting {
 public:
  explicit TWaiting(TDataSet& DataSet) : DataSet_(&DataSet) {
    DataSet.IsWaiting_ = true;
    DataSet.IsStopped_ = false;
  }
  ~TWaiting() {
    if (DataSet_ != nullptr) DataSet_->IsWaiting_ = false;
  }
  TWaiting(const TWaiting&) = delete;
  TWaiting& operator=(const TWaiting&) = delete;

 private:
  const QPointer<TDataSet> DataSet_;
};

TDataSet::TDataSet(QObject* Owner) : QObject(Owner) {}
TDataSet::~TDataSet() = default;

TField* TDataSet::AddField(const std::string& Name, TFieldType Type, int Size, TFieldKind Kind) {
  if (Active()) throw EDatabaseError("Field " + Name + " cannot be added to an open dataset.");
  for (const TField* Field : Fields_) {
    if (zulcommon::SameText(Field->FieldName(), Name)) throw EDatabaseError("There is a field " + Name + " already.");
  }
  Fields_.push_back(new TField(this, Name, Type, Size, Kind));
  return Fields_.back();
}

TField* TDataSet::FieldByName(const std::string& Name) const {
  for (TField* Field : Fields_) {
    if (zulcommon::SameText(Field->FieldName(), Name)) return Field;
  }
  throw EDatabaseError("Field '" + Name + "' not found.");
}

TAdsConnection& TDataSet::RequireConnection() const {
  if (Connection_ == nullptr) throw EDatabaseError("The dataset has no connection.");
  return *Connection_;
}

int TDataSet::MaxRows() const {
  return std::numeric_limits<int>::max();
}

bool TDataSet::Open() {
  return Load(Statements(FirstRowsFirst_ ? PageRows + 1 : 0));
}

std::unique_ptr<TListReading> TDataSet::NewReading(TListStatements Statements) const {
  std::vector<TListReading::TColumn> Columns;
  for (const TField* Field : Fields_) {
    if (Field->Kind() == TFieldKind::fkData) Columns.push_back({Field->FieldName(), Field->DataType()});
  }
  return std::make_unique<TListReading>(RequireConnection(), std::move(Statements), std::move(Columns), PageRows,
                                        MaxRows(), FirstRowsFirst_);
}

bool TDataSet::Load(TListStatements Statements) {
  if (TTrial* Trial = RequireConnection().Trial()) return LoadInTrial(*Trial, std::move(Statements));
  return Read(std::move(Statements));
}

std::vector<std::string> TDataSet::DataFieldNames() const {
  std::vector<std::string> Names;
  for (const TField* Field : Fields_) {
    if (Field->Kind() == TFieldKind::fkData) Names.push_back(Field->FieldName());
  }
  return Names;
}

bool TDataSet::LoadInTrial(TTrial& Trial, TListStatements Statements) {
  if (IsReadInTrials_) {
    if (ReadInTrial(Trial, Statements)) return true;
  } else {
    Trial.Try(Statements, DataFieldNames());
  }
  Show(NewReading(std::move(Statements)), true);
  return true;
}

bool TDataSet::ReadInTrial(TTrial& Trial, const TListStatements& Statements) {
  Trial.MakeWay();
  try {
    if (!Read(Statements)) return false;
  } catch (const EConnectionLost&) {
    throw;
  } catch (const EQueryEnded&) {
    throw;
  } catch (const EDatabaseError& Error) {
    Trial.TellFailed(Statements, Error.what());
    return false;
  }
  Trial.TellRead(Statements, KnownRows());
  return true;
}

// The rest of the rows before makes way, and is gone on with when there are no new ones.
bool TDataSet::Read(TListStatements Statements) {
  std::unique_ptr<TListReading> Reading = NewReading(std::move(Statements));
  LetGo(TRest::WhenWanted);
  bool IsComplete = false;
  try {
    const QPointer<TDataSet> StillThere(this);
    const bool IsShown = ReadUntilShown(*Reading, IsComplete);
    if (StillThere == nullptr) return false;
    if (IsShown) {
      Show(std::move(Reading), IsComplete);
      return true;
    }
    Reading.reset();
  } catch (...) {
    Reading.reset();
    Held_.reset();
    ScheduleRest();
    throw;
  }
  Held_.reset();
  ScheduleRest();
  return false;
}

// Whether enough is there to be shown; false when the reading was stopped.
bool TDataSet::ReadUntilShown(TListReading& Reading, bool& IsComplete) {
  const QPointer<TDataSet> StillThere(this);
  const TWaiting Waiting(*this);
  for (;;) {
    const auto Until = OnProgress ? TClock::now() + WaitingPortion : TClock::time_point::max();
    IsComplete = Reading.GoOn(Until) != TListReading::TState::Going;
    if (IsComplete || (FirstRowsFirst_ && Reading.CanBeShown())) return true;
    if (!KeepWaiting(Reading) || StillThere == nullptr) return false;
  }
}

// Gives way to whatever else is to be done. False when nobody waits any more.
bool TDataSet::KeepWaiting(const TListReading& Reading) {
  HoldWhile(Reading);
  const QPointer<TDataSet> StillThere(this);
  if (const auto Progress = OnProgress) Progress();  // a copy, which outlives the dataset
  return StillThere != nullptr && !IsStopped_;
}

void TDataSet::HoldWhile(const TListReading& Reading) {
  if (!Reading.IsAlone()) {
    Held_.reset();
  } else if (Held_ == nullptr && HoldOthers) {
    Held_ = HoldOthers();
  }
}

void TDataSet::Show(std::unique_ptr<TListReading> Reading, bool IsComplete) {
  HoldWhile(*Reading);
  Close();
  Store_ = Reading->Rows();
  if (!IsComplete) Reading_ = std::move(Reading);
  int Column = 0;
  for (TField* Field : Fields_) Field->Column_ = Field->Kind() == TFieldKind::fkData ? Column++ : -1;
  Row_ = Store_->RowCount() > 0 ? 0 : -1;
  Bof_ = true;
  Eof_ = Row_ < 0;
  ToldRows_ = Store_->RowCount();
  ToldAt_ = TClock::now();
  ScheduleRest();
  Reading.reset();
  if (AfterOpen) AfterOpen(*this);
  Q_EMIT Opened();
}

void TDataSet::ScheduleRest() {
  if (Reading_ == nullptr) return;
  if (RestTimer_ == nullptr) {
    RestTimer_ = new QTimer(this);
    connect(RestTimer_, &QTimer::timeout, this, &TDataSet::ReadRestInTurn);
  }
  RestTimer_->start(BeforeRest);
}

void TDataSet::LetGo(TRest Rest) {
  if (Reading_ == nullptr) return;
  Reading_->Pause();
  Held_.reset();
  RestTimer_->stop();
  if (Rest == TRest::InEventLoop) ScheduleRest();
}

void TDataSet::GiveUpRest() {
  if (Reading_ == nullptr) return;
  LetGo(TRest::WhenWanted);
  Reading_.reset();
  Store_->Finish();
}

void TDataSet::ReadRestInTurn() {
  if (Reading_ == nullptr || IsWaiting_) return;
  RestTimer_->setInterval(0);
  std::string Message;
  try {
    return ReadPortion(TClock::now() + RestPortion);
  } catch (const std::exception& Error) {
    Message = Error.what();
  }
  LetGo(TRest::WhenWanted);
  if (const auto Tell = OnRestFailed) Tell(Message);
}

void TDataSet::ReadPortion(TClock::time_point Until) {
  const TListReading::TState State = Reading_->GoOn(Until);
  HoldWhile(*Reading_);
  if (State == TListReading::TState::Replaced) return Replace();
  const bool IsAll = State == TListReading::TState::Complete;
  if (IsAll) {
    RestTimer_->stop();
    Reading_.reset();
    Held_.reset();
  }
  if (!IsAll && (KnownRows() == ToldRows_ || TClock::now() - ToldAt_ < BetweenTellings)) return;
  ToldRows_ = KnownRows();
  ToldAt_ = TClock::now();
  Q_EMIT Grown();
}

// The current row stays the same record where there still is one.
void TDataSet::Replace() {
  const std::shared_ptr<TStore> Before = std::exchange(Store_, Reading_->TakeReplacement());
  RestTimer_->stop();
  Reading_.reset();
  Held_.reset();
  const std::vector<int> Places = PlacesIn(*Before, *Store_);
  const int Last = KnownRows() - 1;
  const int Place = Row_ < 0 ? -1 : Places[static_cast<std::size_t>(Row_)];
  Row_ = Place >= 0 ? Place : std::min(std::max(Row_, 0), Last);
  CalculatedRow_ = -1;
  ToldRows_ = KnownRows();
  Q_EMIT Replaced(Places);
}

bool TDataSet::ReadToEnd() {
  if (Reading_ == nullptr) return true;
  if (IsWaiting_) return false;
  const QPointer<TDataSet> StillThere(this);
  const TWaiting Waiting(*this);
  try {
    while (Reading_ != nullptr) {
      ReadPortion(OnProgress ? TClock::now() + WaitingPortion : TClock::time_point::max());
      if (Reading_ == nullptr) break;
      if (!KeepWaiting(*Reading_) || StillThere == nullptr) return false;
    }
  } catch (...) {
    // Who tells of it may wait for what was held.
    if (StillThere != nullptr) LetGo(TRest::WhenWanted);
    throw;
  }
  return true;
}

void TDataSet::Close() {
  if (!Active()) return;
  if (RestTimer_ != nullptr) RestTimer_->stop();
  Reading_.reset();
  Store_.reset();
  Row_ = CalculatedRow_ = -1;
  Bof_ = Eof_ = true;
  for (const TField* Field : Fields_) {
    if (Field->Lookup_) Field->ForgetLookups();
  }
  if (AfterClose) AfterClose(*this);
  Q_EMIT Closed();
}

int TDataSet::KnownRows() const {
  return Store_ ? Store_->RowCount() : 0;
}

// That the rows are read late is none of the caller's business.
int TDataSet::RecordCount() const {
  const_cast<TDataSet*>(this)->ReadToEnd();
  return KnownRows();
}

std::size_t TDataSet::SnapshotBytes() const {
  return Store_ ? Store_->ByteCount() : 0;
}

int TDataSet::RecNo() const {
  return HasRow() ? ReadRow() + 1 : 0;
}

void TDataSet::GoTo(int Row) {
  Row_ = Row;
  if (ControlsDisabled_ == 0) Q_EMIT Scrolled();
}

void TDataSet::First() {
  if (IsEmpty()) return;
  Bof_ = true;
  Eof_ = false;
  GoTo(0);
}

void TDataSet::Last() {
  if (IsEmpty()) return;
  Bof_ = false;
  Eof_ = true;
  GoTo(RecordCount() - 1);
}

void TDataSet::Next() {
  if (IsEmpty()) return;
  Bof_ = false;
  if (Row_ + 1 >= KnownRows()) ReadToEnd();
  Eof_ = Row_ + 1 >= KnownRows();
  if (!Eof_) GoTo(Row_ + 1);
}

void TDataSet::Prior() {
  if (IsEmpty()) return;
  Eof_ = false;
  Bof_ = Row_ == 0;
  if (!Bof_) GoTo(Row_ - 1);
}

void TDataSet::SetRecNo(int RecNo) {
  if (IsEmpty()) return;
  if (RecNo > KnownRows()) ReadToEnd();
  Bof_ = Eof_ = false;
  GoTo(std::clamp(RecNo, 1, KnownRows()) - 1);
}

template <typename TEquals>
bool TDataSet::LocateWhere(const std::string& FieldName, TEquals Equals) {
  const TField* Field = FieldByName(FieldName);
  for (int Row = 0; Row < KnownRows() || !IsComplete(); ++Row) {
    if (Row >= KnownRows() && (!ReadToEnd() || Row >= KnownRows())) break;
    {
      const TRowScope Scope(*this, Row);
      if (Field->IsNull() || !Equals(*Field)) continue;
    }
    SetRecNo(Row + 1);
    return true;
  }
  return false;
}

bool TDataSet::Locate(const std::string& FieldName, bool Value) {
  return LocateWhere(FieldName, [Value](const TField& Field) { return Field.AsBoolean() == Value; });
}

bool TDataSet::Locate(const std::string& FieldName, std::int32_t Value) {
  return LocateWhere(FieldName, [Value](const TField& Field) { return Field.AsInteger() == Value; });
}

bool TDataSet::Locate(const std::string& FieldName, const std::string& Value) {
  return LocateWhere(FieldName, [&Value](const TField& Field) { return Field.AsString() == Value; });
}

void TDataSet::EnableControls() {
  if (ControlsDisabled_ > 0 && --ControlsDisabled_ == 0 && Active()) Q_EMIT Scrolled();
}

void TDataSet::Refresh() {
  CalculatedRow_ = -1;
  if (ControlsDisabled_ == 0) Q_EMIT Refreshed();
}

void TDataSet::Calculate() {
  if (Calculating_ || CalculatedRow_ == ReadRow()) return;
  for (TField* Field : Fields_) Field->Calculated_ = {};
  Calculating_ = true;
  struct TDone {
    bool& Flag;
    ~TDone() { Flag = false; }
  } const Done{Calculating_};
  CalculatedRow_ = -1;
  if (OnCalcFields) OnCalcFields(*this);
  CalculatedRow_ = ReadRow();
}

}  // namespace ads
