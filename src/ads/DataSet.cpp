#include "ads/DataSet.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include "ads/Connection.h"
#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/Store.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

using TClock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds ProgressInterval(50);
constexpr int RowsBetweenClockReads = 512;

}  // namespace

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

int TDataSet::MaxRows() const { return std::numeric_limits<int>::max(); }

void TDataSet::Open() {
  Load(OpenCursor());
}

void TDataSet::Load(std::unique_ptr<TCursor> Cursor) {
  std::unique_ptr<TStore> Fresh = ReadAll(*Cursor);
  Cursor.reset();
  Close();
  Store_ = std::move(Fresh);
  int Column = 0;
  for (TField* Field : Fields_) Field->Column_ = Field->Kind() == TFieldKind::fkData ? Column++ : -1;
  Row_ = Store_->RowCount() > 0 ? 0 : -1;
  Bof_ = true;
  Eof_ = Row_ < 0;
  if (AfterOpen) AfterOpen(*this);
  Q_EMIT Opened();
}

// The cursor's column for each data field, in the order of the fields.
std::vector<int> TDataSet::BindFields(const TCursor& Cursor) {
  std::vector<std::string> Names;
  for (int Column = 0; Column < Cursor.ColumnCount(); ++Column) Names.push_back(Cursor.ColumnName(Column));
  std::vector<int> Sources;
  for (const TField* Field : Fields_) {
    if (Field->Kind() != TFieldKind::fkData) continue;
    const auto Found = std::find_if(Names.begin(), Names.end(), [Field](const std::string& Name) {
      return zulcommon::SameText(Name, Field->FieldName());
    });
    if (Found == Names.end()) throw EDatabaseError("Field '" + Field->FieldName() + "' not found in the query's result.");
    Sources.push_back(static_cast<int>(Found - Names.begin()));
  }
  return Sources;
}

std::unique_ptr<TStore> TDataSet::ReadAll(TCursor& Cursor) {
  const std::vector<int> Sources = BindFields(Cursor);
  std::vector<TFieldType> Types;
  for (const TField* Field : Fields_) {
    if (Field->Kind() == TFieldKind::fkData) Types.push_back(Field->DataType());
  }
  auto Fresh = std::make_unique<TStore>(std::move(Types));
  const int Most = MaxRows();
  TClock::time_point Told = TClock::now();
  while (Fresh->RowCount() < Most && Cursor.Next()) {
    Fresh->AppendRow(Cursor, Sources);
    if (OnProgress && Fresh->RowCount() % RowsBetweenClockReads == 0 && TClock::now() - Told >= ProgressInterval) {
      OnProgress();
      if (!Cursor.IsConnected()) {
        throw EConnectionLost("The database connection was closed while rows were being read from it.");
      }
      Told = TClock::now();
    }
  }
  Fresh->Finish();
  return Fresh;
}

void TDataSet::Close() {
  if (!Active()) return;
  Store_.reset();
  Row_ = CalculatedRow_ = -1;
  Bof_ = Eof_ = true;
  for (const TField* Field : Fields_) {
    if (Field->Lookup_) Field->ForgetLookups();
  }
  if (AfterClose) AfterClose(*this);
  Q_EMIT Closed();
}

int TDataSet::RecordCount() const { return Store_ ? Store_->RowCount() : 0; }

std::size_t TDataSet::SnapshotBytes() const { return Store_ ? Store_->ByteCount() : 0; }

int TDataSet::RecNo() const { return HasRow() ? ReadRow() + 1 : 0; }

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
  Eof_ = Row_ + 1 >= RecordCount();
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
  Bof_ = Eof_ = false;
  GoTo(std::clamp(RecNo, 1, RecordCount()) - 1);
}

template <typename TEquals>
bool TDataSet::LocateWhere(const std::string& FieldName, TEquals Equals) {
  const TField* Field = FieldByName(FieldName);
  for (int Row = 0; Row < RecordCount(); ++Row) {
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
