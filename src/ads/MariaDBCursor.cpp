#include <algorithm>
#include <chrono>
#include <deque>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "ads/Cursor.h"
#include "ads/KeptRows.h"
#include "ads/MariaDBStatements.h"
#include "ads/MariaDBTalk.h"
#include "ads/MariaDBValues.h"
#include "ads/RunningCursors.h"
#include "ads/SQLLog.h"
#include "ads/Stopping.h"
#include "zulcommon/Ascii.h"

namespace ads {

namespace {

class TMariaDBCursor;

TRunningCursors<MYSQL*, TMariaDBCursor>& Running() {
  static TRunningCursors<MYSQL*, TMariaDBCursor> Instance;
  return Instance;
}

void RequireKnownServer(MYSQL* Handle) {
  const char* Name = mysql_get_server_info(Handle);
  mariadb::RequireRelease(mariadb_connection(Handle) ? mysql_get_server_version(Handle) : 0,
                          Name == nullptr ? "unknown" : Name);
}

/// Reads the rows one by one as the server sends them.
///
/// What a query stands in lets nothing of it stay behind: a transaction of its own, in which the server refuses every
/// write, or inside the host's transaction a savepoint, to which it goes back in the end. There only what the dialogs'
/// language has no words for keeps a query from writing: the server cannot be asked to.
class TMariaDBCursor final : public TCursor {
 public:
  explicit TMariaDBCursor(const QSqlDatabase& Database)
      : Database_(Database), Talk_(MariaDBHandle(Database)), Thread_(mysql_thread_id(Talk_.Handle())) {
    if (Talk_.IsLost()) RaiseConnectionLost(Talk_.Message());
    RequireKnownServer(Talk_.Handle());
  }
  ~TMariaDBCursor() override {
    NoLongerRunning();
    if (IsConnected()) {
      Abort();
    } else {
      Talk_.Abandon();
    }
  }
  TMariaDBCursor(const TMariaDBCursor&) = delete;
  TMariaDBCursor& operator=(const TMariaDBCursor&) = delete;

  // A connection that was opened again may have the address of the one before, but another number on the server.
  bool IsConnected() const override {
    return MariaDBHandle(Database_) == Talk_.Handle() && mysql_thread_id(Talk_.Handle()) == Thread_;
  }

  bool IsShareable() const override { return false; }

  // Preparing reads and locks nothing, so it needs no transaction.
  std::vector<std::string> Prepare(const std::string& Sql) override {
    Running().MakeWayFor(Talk_.Handle(), this);
    RequireFree();
    const TStatement Statement(mysql_stmt_init(Talk_.Handle()));
    if (Statement == nullptr) throw std::bad_alloc();
    if (mysql_stmt_prepare(Statement.get(), Sql.data(), static_cast<unsigned long>(Sql.size())) != 0) {
      const std::string Message = mysql_stmt_error(Statement.get());
      if (IsGone(mysql_stmt_errno(Statement.get()))) RaiseConnectionLost(Message);
      throw EDatabaseError(Message);
    }
    const TColumns Columns(mysql_stmt_result_metadata(Statement.get()));
    std::vector<std::string> Names;
    const unsigned Count = Columns == nullptr ? 0 : mysql_num_fields(Columns.get());
    for (unsigned Column = 0; Column < Count; ++Column) {
      Names.emplace_back(mysql_fetch_field_direct(Columns.get(), Column)->name);
    }
    return Names;
  }

  void Begin(const std::string& Sql) override {
    Sql_ = Sql;
    Names_.clear();
    Kept_ = {};
    if (Phase_ == TPhase::Reading) {
      Phase_ = TPhase::Skipping;
    } else if (Phase_ == TPhase::Idle) {
      Running().MakeWayFor(Talk_.Handle(), this);
      Look();
    }
  }

  bool GoOn(TTime Until, const TTakeRow& Take) override {
    if (Kept_.AreKept()) return Kept_.Give(Values_, Take);
    OnRow_ = false;
    while (Phase_ != TPhase::Idle) {
      if (!Talk_.Await(Until) || !Stopping_.IsSettled(Until)) return true;
      if (!TakeAnswer()) continue;
      OnRow_ = true;
      if (!Take() || IsTime(Until)) return true;
    }
    if (Failure_) std::rethrow_exception(std::exchange(Failure_, nullptr));
    return false;
  }

  int ColumnCount() const override { return static_cast<int>(Names_.size()); }
  std::string ColumnName(int Column) const override { return Names_[static_cast<std::size_t>(Column)]; }

  TValueKind Kind(int Column) override { return MariaDBKind(Shape(Column), Value(Column)); }
  std::int64_t Integer(int Column) override { return MariaDBInteger(Shape(Column), Value(Column)); }
  double Real(int Column) override {
    if (Shape(Column) == TMariaDBShape::Real) return MariaDBReal(Value(Column));
    return static_cast<double>(Integer(Column));
  }
  std::string_view Text(int Column) override {
    return MariaDBText(Shape(Column), Value(Column), Texts_[static_cast<std::size_t>(Column)]);
  }

  // Frees the connection for another query in the midst of this one.
  void KeepTheRest() {
    Kept_.Keep(Values_, OnRow_, [this](const TTakeRow& Take) { GoOn(Forever, Take); });
  }

 private:
  enum class TPhase {
    Idle,      // nothing is open
    Looking,   // how the session stands is being asked for
    Opening,   // the transaction or savepoint is being begun
    Asking,    // the query has been sent
    Reading,   // its rows come
    Skipping,  // what is left of a query is being waited for, and another one is to be sent
    Closing,   // the transaction or savepoint is being ended
  };

  // Server's and client library's numbers of errors.
  static constexpr unsigned Killed = 1927, ShutsDown = 1053;
  static constexpr unsigned ConnectionGone[] = {2002, 2003, 2006, 2013, 2055, Killed, ShutsDown};

  TMariaDBShape Shape(int Column) const { return Shapes_[static_cast<std::size_t>(Column)]; }
  std::string_view Value(int Column) const { return Values_[static_cast<std::size_t>(Column)]; }

  struct TEnd {
    void operator()(MYSQL_STMT* Statement) const { mysql_stmt_close(Statement); }
    void operator()(MYSQL_RES* Columns) const { mysql_free_result(Columns); }
  };
  using TStatement = std::unique_ptr<MYSQL_STMT, TEnd>;
  using TColumns = std::unique_ptr<MYSQL_RES, TEnd>;

  void RequireFree() const {
    if (Talk_.IsLost()) RaiseConnectionLost(Talk_.Message());
    if (Talk_.IsBusy()) throw EDatabaseError("The rows of another query are still being read from this connection.");
  }

  void SendOwn(const std::string& Sql) {
    LogOwn(Sql);
    Talk_.Send(Sql);
  }

  void Look() {
    RequireFree();
    SendOwn(mariadb::Look);
    Phase_ = TPhase::Looking;
    Running().Set(Talk_.Handle(), this);
  }

  void NoLongerRunning() { Running().Forget(Talk_.Handle(), this); }

  // Takes what was waited for and does what follows from it; whether it is a row of the query.
  bool TakeAnswer() {
    switch (Phase_) {
      case TPhase::Looking:
        if (TakeLook()) OpenScope();
        return false;
      case TPhase::Asking:
        TakeQuery();
        return false;
      case TPhase::Reading:
        return TakeRow();
      case TPhase::Skipping:
        TakeRow();
        return false;
      default:
        TakeDone();
        return false;
    }
  }

  // Reads what the server says of the session; whether it is all there.
  bool TakeLook() {
    if (Talk_.Result() == nullptr) {
      if (Talk_.Failure() != 0 || Talk_.TakeResult() == nullptr) {
        FailAsTold();
        GoIdle();
        return false;
      }
      Talk_.AskRow();
      return false;
    }
    if (Talk_.Row() == nullptr) {
      if (Talk_.Failure() != 0) FailAsTold();
      Talk_.DropResult();
      if (Failure_) GoIdle();
      return !Failure_;
    }
    const auto Text = [Row = Talk_.Row()](int Column) {
      return std::string(Row[Column] == nullptr ? "" : Row[Column]);
    };
    InHostsTransaction_ = Text(0) == "1";
    SeesOneState_ = Text(1) == mariadb::OneState;
    WritesUtf8_ = Text(2).starts_with("utf8");
    ReadsUtf8_ = Text(3) == "utf8mb4";
    Talk_.AskRow();
    return false;
  }

  void OpenScope() {
    if (!WritesUtf8_ && !std::all_of(Sql_.begin(), Sql_.end(), zulcommon::IsAscii)) {
      Fail("A name with letters beyond ASCII cannot be sent in the character set that the session has.");
      return GoIdle();
    }
    Phase_ = TPhase::Opening;
    IsOpened_ = false;
    if (InHostsTransaction_ || SeesOneState_) return Open();
    SendOwn(mariadb::SetOneState);
  }

  void Open() {
    SendOwn(InHostsTransaction_ ? mariadb::Savepoint : mariadb::Begin);
    IsOpened_ = true;
    HasSavepoint_ = true;
  }

  void Ask() {
    Talk_.DropResult();
    Talk_.Send(ReadsUtf8_ ? Sql_ : mariadb::InUtf8 + Sql_);
    Phase_ = TPhase::Asking;
  }

  // The end of a statement without rows.
  void TakeDone() {
    if (IsGone(Talk_.Failure())) Raise();
    if (Phase_ == TPhase::Opening) {
      if (Talk_.Failure() == 0) return IsOpened_ ? Ask() : Open();
      if (Talk_.Failure() == mariadb::NoSavepoints && IsOpened_) {
        HasSavepoint_ = false;
        return Ask();
      }
      FailAsTold();
      return GoIdle();
    }
    GoOnClosing();
  }

  // What cannot be ended has been ended by the server, or by the host.
  void GoOnClosing() {
    if (Talk_.Failure() == mariadb::NodeNotReady && !IsOutdatedAllowed_) {
      IsOutdatedAllowed_ = true;
      ToClose_ = ScopeEnd();
      ToClose_.push_front(mariadb::AllowOutdated);
      ToClose_.push_back(mariadb::ForbidOutdated);
    }
    SendNext();
  }

  void SendNext() {
    if (ToClose_.empty()) return GoIdle();
    SendOwn(ToClose_.front());
    ToClose_.pop_front();
  }

  std::deque<const char*> ScopeEnd() const {
    if (!InHostsTransaction_) return {mariadb::End};
    if (!HasSavepoint_) return {};
    return {mariadb::BackToSavepoint, mariadb::DropSavepoint};
  }

  void TakeQuery() {
    if (Talk_.Failure() != 0) {
      FailAsTold();
      return CloseScope();
    }
    if (Talk_.TakeResult() == nullptr) {
      Fail("The query gives no rows.");
      return CloseScope();
    }
    Describe();
    Phase_ = TPhase::Reading;
    Talk_.AskRow();
    IsAsked_ = true;
  }

  bool TakeRow() {
    if (!IsAsked_) {
      IsAsked_ = true;
      Talk_.AskRow();
      if (!Talk_.IsDone()) return false;
    }
    IsAsked_ = false;
    const MYSQL_ROW Row = Talk_.Row();
    if (Row != nullptr) {
      ReadValues(Row);
      return true;
    }
    const bool HasFailed = Talk_.Failure() != 0;
    if (HasFailed) FailAsTold();
    Talk_.DropResult();
    if (Phase_ == TPhase::Skipping && !HasFailed) {
      Ask();
    } else {
      CloseScope();
    }
    return false;
  }

  void Describe() {
    const MYSQL_FIELD* Fields = mysql_fetch_fields(Talk_.Result());
    const unsigned Count = mysql_num_fields(Talk_.Result());
    Shapes_.clear();
    for (unsigned Column = 0; Column < Count; ++Column) {
      Names_.emplace_back(Fields[Column].name, Fields[Column].name_length);
      Shapes_.push_back(MariaDBShape(Fields[Column]));
    }
    Values_.resize(Count);
    Texts_.resize(Count);
  }

  void ReadValues(MYSQL_ROW Row) {
    const unsigned long* Lengths = mysql_fetch_lengths(Talk_.Result());
    for (std::size_t Column = 0; Column < Values_.size(); ++Column) {
      Values_[Column] = Row[Column] == nullptr ? std::string_view() : std::string_view(Row[Column], Lengths[Column]);
    }
  }

  static bool IsGone(unsigned Number) {
    return std::find(std::begin(ConnectionGone), std::end(ConnectionGone), Number) != std::end(ConnectionGone);
  }

  void Fail(const std::string& Message) { Failure_ = std::make_exception_ptr(EDatabaseError(Message)); }

  [[noreturn]] void Raise() {
    const std::string Message = Talk_.Message();
    GoIdle();
    RaiseConnectionLost(Message);
  }

  void FailAsTold() {
    const unsigned Number = Talk_.Failure();
    if (IsGone(Number)) Raise();
    if (mariadb::IsEndedFromOutside(Number)) {
      Failure_ = std::make_exception_ptr(EQueryEnded(Talk_.Message()));
    } else {
      Fail(Number == 0 ? "The server gives no answer." : Talk_.Message());
    }
  }

  void GoIdle() {
    Talk_.DropResult();
    Phase_ = TPhase::Idle;
    NoLongerRunning();
  }

  void CloseScope() {
    Talk_.DropResult();
    IsOutdatedAllowed_ = false;
    ToClose_ = ScopeEnd();
    Phase_ = TPhase::Closing;
    SendNext();
  }

  // Ends what is open, within a moment; a server that does not answer for so long is taken for lost.
  void Abort() {
    constexpr std::chrono::milliseconds EndIsNear(20);
    try {
      Stopping_.Begin();
      if (Phase_ != TPhase::Idle && Phase_ != TPhase::Closing) {
        // A query whose rows have been read to the last one ends by itself.
        if (!Talk_.Drain(std::chrono::steady_clock::now() + EndIsNear) && !Stopping_.EndQuery()) return Talk_.Cut();
        if (!Stopping_.IsSettled(Stopping_.End())) return Talk_.Cut();
        if (Phase_ == TPhase::Looking || IsGone(Talk_.Failure())) return;
        CloseScope();
      }
      while (Phase_ == TPhase::Closing) {
        if (!Talk_.Await(Stopping_.End())) return Talk_.Cut();
        TakeDone();
      }
    } catch (const EDatabaseError&) {
      // The connection is lost, and what was open with it.
    }
  }

  QSqlDatabase Database_;
  TMariaDBTalk Talk_;
  TStopping<TMariaDBTalk> Stopping_{Talk_};
  unsigned long Thread_;  // the connection's number on the server
  TPhase Phase_ = TPhase::Idle;
  std::string Sql_;
  bool InHostsTransaction_ = false;
  bool SeesOneState_ = false;
  bool WritesUtf8_ = false;
  bool ReadsUtf8_ = false;
  bool IsOpened_ = false;      // the statement that opens has been sent
  bool HasSavepoint_ = false;  // unless the server has none in the host's transaction
  bool IsAsked_ = false;       // the next row is
  bool OnRow_ = false;
  std::deque<const char*> ToClose_;  // what is still to be sent
  bool IsOutdatedAllowed_ = false;
  std::vector<std::string> Names_;
  std::vector<TMariaDBShape> Shapes_;
  std::vector<std::string_view> Values_;  // of the current row; without an address for a null
  std::vector<std::string> Texts_;
  std::exception_ptr Failure_;  // raised when everything is closed
  TKeptRows Kept_;
};

}  // namespace

std::unique_ptr<TCursor> NewMariaDBCursor(const QSqlDatabase& Database) {
  return std::make_unique<TMariaDBCursor>(Database);
}

}  // namespace ads
