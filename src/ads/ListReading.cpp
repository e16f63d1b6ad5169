#include "ads/ListReading.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "ads/EDatabaseError.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

std::uint64_t HashOf(std::string_view Row) {
  return std::hash<std::string_view>()(Row);
}

// Of rows in any order.
std::uint64_t SumOf(const TStore& Rows) {
  std::uint64_t Sum = 0;
  for (int Row = 0; Row < Rows.RowCount(); ++Row) Sum += HashOf(Rows.RowBytes(Row));
  return Sum;
}

int ColumnNamed(const TCursor& Cursor, const std::string& Name) {
  for (int Column = 0; Column < Cursor.ColumnCount(); ++Column) {
    if (zulcommon::SameText(Cursor.ColumnName(Column), Name)) return Column;
  }
  return -1;
}

}  // namespace

TListReading::TListReading(const TAdsConnection& Connection, TListStatements Statements, std::vector<TColumn> Columns,
                           int PageRows, int MostRows, bool IsShownEarly)
    : Connection_(Connection),
      Statements_(std::move(Statements)),
      Columns_(std::move(Columns)),
      PageRows_(PageRows),
      MostRows_(MostRows),
      IsShownEarly_(IsShownEarly),
      Phase_(Statements_.Page.empty() ? TPhase::Whole : TPhase::Page),
      Rows_(NewStore()) {}

TListReading::~TListReading() = default;

std::shared_ptr<TStore> TListReading::NewStore() const {
  std::vector<TFieldType> Types;
  for (const TColumn& Column : Columns_) Types.push_back(Column.Type);
  return std::make_shared<TStore>(std::move(Types));
}

bool TListReading::IsAlone() const {
  return Cursor_ != nullptr && (Manner_ != TManner::Shared || !Cursor_->IsShareable());
}

void TListReading::RequireConnected() const {
  if (Cursor_ == nullptr || Cursor_->IsConnected()) return;
  throw EConnectionLost("The database connection was closed while rows were being read from it.");
}

void TListReading::Pause() {
  Cursor_.reset();
  HasBegun_ = false;
  Fresh_.reset();
  if (Phase_ == TPhase::Page) Rows_->Truncate(0);
}

// The next time without those that have disturbed it, and if that does not help, without a pause.
void TListReading::ReadAgain() {
  Pause();
  Manner_ = Manner_ == TManner::Shared ? TManner::Alone : TManner::Silent;
}

// What was begun here and is read without a pause cannot be disturbed, but what was left open before can.
TListReading::TState TListReading::GoOn(TTime Until) {
  RequireConnected();
  for (bool IsBegunHere = Cursor_ == nullptr;; IsBegunHere = true) {
    try {
      return ReadOn(Manner_ == TManner::Silent ? TCursor::Forever : Until);
    } catch (const EDisturbed&) {
      if (!IsShownEarly_ || (Manner_ == TManner::Silent && IsBegunHere)) throw;
    }
    ReadAgain();
  }
}

TListReading::TState TListReading::ReadOn(TTime Until) {
  return Phase_ == TPhase::Page ? ReadPage(Until) : ReadWhole(Until);
}

void TListReading::Begin(const std::string& Sql) {
  if (HasBegun_) return;
  if (Cursor_ == nullptr) {
    Cursor_ = Connection_.NewCursor();
    Cursor_->MindsChanges = IsShownEarly_;
    if (IsShownEarly_) Cursor_->OnMakeWay = [this] { Pause(); };
    Cursor_->Check(Statements_.Whole);
  }
  Sources_.clear();
  Cursor_->Begin(Sql);
  HasBegun_ = true;
}

void TListReading::Bind() {
  if (!Sources_.empty()) return;
  for (const TColumn& Column : Columns_) {
    Sources_.push_back(ColumnNamed(*Cursor_, Column.Name));
    if (Sources_.back() < 0) throw EDatabaseError("Field '" + Column.Name + "' not found in the query's result.");
  }
}

void TListReading::BindSort() {
  if (!SortSources_.empty()) return;
  for (const std::string& Name : Statements_.SortColumns) SortSources_.push_back(ColumnNamed(*Cursor_, Name));
}

TListReading::TState TListReading::ReadPage(TTime Until) {
  Begin(Statements_.Page);
  const bool HasMore = Cursor_->GoOn(Until, [this] { return TakePageRow(); });
  if (HasMore && Rows_->RowCount() <= PageRows_) return TState::Going;
  if (HasMore) {
    EndPage();
    return TState::Going;
  }
  Bind();
  Cursor_.reset();
  Rows_->Finish();
  return TState::Complete;
}

bool TListReading::TakePageRow() {
  Bind();
  BindSort();
  Rows_->AppendRow(*Cursor_, Sources_);
  std::string Key = SortKey();
  RowsOfLastKey_ = Rows_->RowCount() > 1 && Key == LastKey_ ? RowsOfLastKey_ + 1 : 1;
  LastKey_ = std::move(Key);
  return Rows_->RowCount() <= PageRows_;
}

// Equal for rows that the order may put in either way; a column that the result does not have counts as equal.
std::string TListReading::SortKey() {
  std::string Key;
  for (const int Column : SortSources_) {
    if (Column < 0) continue;
    const bool IsNull = Cursor_->Kind(Column) == TValueKind::Null;
    Key += IsNull ? 'N' : 'V';
    if (IsNull) continue;
    const std::string_view Value = Cursor_->Text(Column);
    Key.append(std::to_string(Value.size())).append(1, ':').append(Value);
  }
  return Key;
}

void TListReading::EndPage() {
  Rows_->Truncate(Rows_->RowCount() - RowsOfLastKey_);
  Phase_ = TPhase::Whole;
  HasBegun_ = false;
}

TListReading::TState TListReading::ReadWhole(TTime Until) {
  if (!HasBegun_) {
    Begin(Statements_.Whole);
    Known_ = Rows_->RowCount();
    KnownSum_ = SumOf(*Rows_);
    FreshSum_ = 0;
    IsReplacing_ = false;
    if (Known_ > 0) Fresh_ = NewStore();
  }
  const bool HasMore = Cursor_->GoOn(Until, [this] { return TakeRow(); });
  if (HasMore && Rows_->RowCount() < MostRows_) return TState::Going;
  Bind();
  Cursor_.reset();
  if (Fresh_ != nullptr) {
    Fresh_->Finish();
    return TState::Replaced;
  }
  Rows_->Finish();
  return TState::Complete;
}

bool TListReading::TakeRow() {
  Bind();
  if (Fresh_ == nullptr) {
    Rows_->AppendRow(*Cursor_, Sources_);
    return Rows_->RowCount() < MostRows_;
  }
  Fresh_->AppendRow(*Cursor_, Sources_);
  if (IsReplacing_) return true;
  FreshSum_ += HashOf(Fresh_->RowBytes(Fresh_->RowCount() - 1));
  if (Fresh_->RowCount() < Known_) return true;
  if (FreshSum_ == KnownSum_) {
    Fresh_.reset();
  } else {
    IsReplacing_ = true;
  }
  return true;
}

std::vector<int> PlacesIn(const TStore& Before, const TStore& After) {
  std::vector<int> Places(static_cast<std::size_t>(Before.RowCount()), -1);
  std::unordered_map<std::uint64_t, std::vector<int>> Wanted;  // the first row of each last
  for (int Row = Before.RowCount() - 1; Row >= 0; --Row) Wanted[HashOf(Before.RowBytes(Row))].push_back(Row);
  for (int Row = 0; Row < After.RowCount() && !Wanted.empty(); ++Row) {
    const auto Found = Wanted.find(HashOf(After.RowBytes(Row)));
    if (Found == Wanted.end()) continue;
    Places[static_cast<std::size_t>(Found->second.back())] = Row;
    Found->second.pop_back();
    if (Found->second.empty()) Wanted.erase(Found);
  }
  return Places;
}

}  // namespace ads
