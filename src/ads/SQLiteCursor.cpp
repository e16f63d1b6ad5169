#include <sqlite3.h>

#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>
#include <chrono>
#include <cstring>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/Fiber.h"
#include "ads/SQLLog.h"
#include "ads/sql/LikePattern.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

[[noreturn]] void Fail(sqlite3* Handle) {
  if (sqlite3_errcode(Handle) == SQLITE_INTERRUPT) throw EQueryEnded(sqlite3_errmsg(Handle));
  throw EDatabaseError(sqlite3_errmsg(Handle));
}

std::string_view ValueText(sqlite3_value* Value) {
  const auto* Bytes = reinterpret_cast<const char*>(sqlite3_value_text(Value));
  if (Bytes == nullptr) return {};
  return {Bytes, static_cast<std::size_t>(sqlite3_value_bytes(Value))};
}

// The connections that have the functions. SQLite tells when one is closed, so that a handle that is used anew
// later is not taken for the old one.
struct TRegistered {
  std::mutex Mutex;
  std::set<sqlite3*> Handles;
};
// Never destroyed: a host may leave its connections to be closed when the program ends, after this library's statics
// are gone.
TRegistered& Registered() {
  static auto* const Instance = new TRegistered;
  return *Instance;
}

void Forget(void* Handle) {
  const std::lock_guard Lock(Registered().Mutex);
  Registered().Handles.erase(static_cast<sqlite3*>(Handle));
}

// Whether a connection to which the functions were given has not been closed since.
bool IsRegistered(sqlite3* Handle) {
  const std::lock_guard Lock(Registered().Mutex);
  return Registered().Handles.contains(Handle);
}

// The rows of a query of ours, one text each, by whatever library the driver has; nothing when it fails.
std::string Answers(const QSqlDatabase& Database, const char* Sql) {
  LogOwn(Sql);
  QSqlQuery Query(Database);
  Query.setForwardOnly(true);
  std::string Result;
  if (!Query.exec(QLatin1String(Sql))) return Result;
  while (Query.next()) Result += Query.value(0).toString().toStdString() + '\n';
  return Result;
}

std::string OwnOptions() {
  std::string Result;
  for (int Index = 0; const char* Option = sqlite3_compileoption_get(Index); ++Index) Result.append(Option) += '\n';
  return Result;
}

// Whether the library of the driver was built from the same source with the same options as this one. Asked by SQL,
// because the handle of another build must not reach a function of ours.
bool IsSameBuild(const QSqlDatabase& Database) {
  return Answers(Database, "SELECT sqlite_source_id()") == std::string(sqlite3_sourceid()) + '\n' &&
         Answers(Database, "PRAGMA compile_options") == OwnOptions();
}

// Two copies of one build lay a handle out alike, but each has its own allocator's counts, caches and file locks, and
// its own file systems, by which they can be told apart.
bool IsSameCopy(sqlite3* Handle) {
  sqlite3_vfs* Theirs = nullptr;
  if (sqlite3_file_control(Handle, "main", SQLITE_FCNTL_VFS_POINTER, &Theirs) != SQLITE_OK) return false;
  return Theirs != nullptr && sqlite3_vfs_find(Theirs->zName) == Theirs;
}

}  // namespace

/// A statement that is read on a stack of its own, because SQLite sorts a whole list within one call. The call is left
/// in its midst, and gone on with later, from inside a function of ours that it calls for a row: there SQLite allows
/// the connection to be used for something else. Only where it calls none for long is it left from its progress
/// handler, where SQLite forbids that.
class TSQLiteCursor final : public TCursor {
 public:
  explicit TSQLiteCursor(const QSqlDatabase& Database) : Database_(Database), Handle_(SQLiteHandle(Database)) {}
  ~TSQLiteCursor() override {
    StopReading();
    sqlite3_finalize(Before_);
    sqlite3_finalize(Prepared_);
    sqlite3_finalize(Statement_);
    if (!IsConnected() && IsRegistered(Handle_)) sqlite3_close(Handle_);
  }
  TSQLiteCursor(const TSQLiteCursor&) = delete;
  TSQLiteCursor& operator=(const TSQLiteCursor&) = delete;

  void Check(const std::string& Sql) override {
    sqlite3_finalize(std::exchange(Prepared_, nullptr));
    Prepared_ = Compiled(Sql);
    PreparedSql_ = Sql;
  }

  std::vector<std::string> Prepare(const std::string& Sql) override {
    sqlite3_stmt* Statement = Compiled(Sql);
    std::vector<std::string> Names;
    Names.reserve(static_cast<std::size_t>(sqlite3_column_count(Statement)));
    for (int Column = 0; Column < sqlite3_column_count(Statement); ++Column) {
      Names.emplace_back(sqlite3_column_name(Statement, Column));
    }
    sqlite3_finalize(Statement);
    return Names;
  }

  // What was begun before ends behind the first step of this one only: SQLite keeps its state of the data for as long
  // as any statement is being read.
  void Begin(const std::string& Sql) override {
    StopReading();
    sqlite3_finalize(Before_);
    Before_ = std::exchange(Statement_, nullptr);
    const bool IsPrepared = Prepared_ != nullptr && Sql == PreparedSql_;
    Statement_ = IsPrepared ? std::exchange(Prepared_, nullptr) : Compiled(Sql);
    Changes_ = sqlite3_total_changes64(Handle_);
  }

  bool GoOn(TTime Until, const TTakeRow& Take) override {
    if (MindsChanges && sqlite3_total_changes64(Handle_) != Changes_) {
      StopReading();
      throw EDisturbed();
    }
    Until_ = Until;
    Take_ = &Take;
    HasEnded_ = false;
    if (Until == Forever && !Fiber_) {
      while (Step()) continue;
    } else {
      GoOnInside();
    }
    return !HasEnded_;
  }

  bool IsShareable() const override { return !InProgressHandler_; }

  /// The cursor on whose stack this thread is; null on its own.
  static TSQLiteCursor*& Running() {
    static thread_local TSQLiteCursor* Instance = nullptr;
    return Instance;
  }

  /// For a function that the statement calls: gives way when it is time to. False when the statement is to end.
  bool TakeTurn() {
    constexpr unsigned CallsBetweenClockReads = 64;
    if (++Calls_ % CallsBetweenClockReads == 0 && std::chrono::steady_clock::now() >= Until_) Fiber_->Yield();
    return !IsStopping_;
  }

  // SQLite does not close a connection under a running statement, so that the handle is this one's as long as it lives;
  // Qt's driver, which has let go of it by then, would leave it open for good.
  bool IsConnected() const override { return SQLiteHandle(Database_) == Handle_; }

  int ColumnCount() const override { return sqlite3_column_count(Statement_); }
  std::string ColumnName(int Column) const override {
    const char* Name = sqlite3_column_name(Statement_, Column);
    return Name != nullptr ? Name : "";
  }
  TValueKind Kind(int Column) override {
    switch (sqlite3_column_type(Statement_, Column)) {
      case SQLITE_INTEGER:
        return TValueKind::Integer;
      case SQLITE_FLOAT:
        return TValueKind::Real;
      case SQLITE_NULL:
        return TValueKind::Null;
      default:
        return TValueKind::Text;  // a blob as well: its bytes
    }
  }
  std::int64_t Integer(int Column) override { return sqlite3_column_int64(Statement_, Column); }
  double Real(int Column) override { return sqlite3_column_double(Statement_, Column); }
  std::string_view Text(int Column) override {
    const auto* Bytes = reinterpret_cast<const char*>(sqlite3_column_text(Statement_, Column));
    if (Bytes == nullptr) return {};
    return {Bytes, static_cast<std::size_t>(sqlite3_column_bytes(Statement_, Column))};
  }

 private:
  sqlite3_stmt* Compiled(const std::string& Sql) {
    sqlite3_stmt* Result = nullptr;
    const char* Tail = nullptr;
    if (sqlite3_prepare_v2(Handle_, Sql.data(), static_cast<int>(Sql.size()), &Result, &Tail) != SQLITE_OK)
      Fail(Handle_);
    const char* Wrong = nullptr;
    if (Result == nullptr || Tail != Sql.data() + Sql.size()) {
      Wrong = "The query is not one single statement.";
    } else if (sqlite3_stmt_readonly(Result) == 0) {
      Wrong = "The query does not only read.";
    }
    if (Wrong == nullptr) return Result;
    sqlite3_finalize(Result);
    throw EDatabaseError(Wrong);
  }

  // Whether there is more to be done at once.
  bool Step() {
    const int Result = sqlite3_step(Statement_);
    if (Before_ != nullptr) sqlite3_finalize(std::exchange(Before_, nullptr));
    if (Result == SQLITE_DONE) HasEnded_ = true;
    if (Result == SQLITE_ROW) return !IsStopping_ && (*Take_)();
    if (Result != SQLITE_DONE && !IsStopping_) Fail(Handle_);
    return false;
  }

  // What runs on the stack of its own.
  void ReadInside() {
    try {
      while (!HasEnded_ && !IsStopping_) {
        if (!Step() || IsTime(Until_)) {
          if (!HasEnded_ && !IsStopping_) Fiber_->Yield();
        }
      }
    } catch (...) {
      Failure_ = std::current_exception();
    }
  }

  void GoOnInside() {
    if (!Fiber_) Fiber_ = std::make_unique<TFiber>([this] { ReadInside(); });
    TSQLiteCursor* const Outer = std::exchange(Running(), this);
    constexpr int StepsBetweenCalls = 5000;
    sqlite3_progress_handler(Handle_, StepsBetweenCalls, Progress, this);
    Fiber_->Resume();
    sqlite3_progress_handler(Handle_, 0, nullptr, nullptr);
    Running() = Outer;
    Changes_ = sqlite3_total_changes64(Handle_);
    if (!Fiber_->HasEnded()) return;
    Fiber_.reset();
    if (Failure_) std::rethrow_exception(std::exchange(Failure_, nullptr));
  }

  // Nonzero ends the statement, and no other of the connection.
  static int Progress(void* Self) {
    auto& Cursor = *static_cast<TSQLiteCursor*>(Self);
    if (Running() != &Cursor) return 0;
    // A function of ours is a better place, if one is called.
    constexpr std::chrono::milliseconds Patience(20);
    // NOLINTNEXTLINE(clang-analyzer-core.NullDereference): it is the one that runs.
    if (!Cursor.IsStopping_ && Cursor.Until_ != Forever &&
        std::chrono::steady_clock::now() >= Cursor.Until_ + Patience) {
      Cursor.InProgressHandler_ = true;
      Cursor.Fiber_->Yield();
      Cursor.InProgressHandler_ = false;
    }
    return Cursor.IsStopping_ ? 1 : 0;
  }

  void StopReading() {
    if (!Fiber_) return;
    IsStopping_ = true;
    try {
      while (Fiber_) GoOnInside();
    } catch (...) {
      // It is of no more interest.
    }
    Failure_ = nullptr;
    IsStopping_ = false;
  }

  QSqlDatabase Database_;
  sqlite3* Handle_;
  sqlite3_stmt* Statement_ = nullptr;
  sqlite3_stmt* Before_ = nullptr;    // the one before, which is ended later
  sqlite3_stmt* Prepared_ = nullptr;  // one that may be begun later, and its text
  std::string PreparedSql_;
  std::unique_ptr<TFiber> Fiber_;
  TTime Until_ = Forever;
  const TTakeRow* Take_ = nullptr;
  std::exception_ptr Failure_;
  sqlite3_int64 Changes_ = 0;  // by all statements of the connection, when this one was left last
  unsigned Calls_ = 0;
  bool HasEnded_ = false;
  bool IsStopping_ = false;
  bool InProgressHandler_ = false;
};

namespace {

// Where a statement that is being read may be left. False, and then it has failed, when it is to end.
bool TakeTurn(sqlite3_context* Context) {
  TSQLiteCursor* Running = TSQLiteCursor::Running();
  if (Running == nullptr || Running->TakeTurn()) return true;
  sqlite3_result_error(Context, "The query was stopped.", -1);
  return false;
}

// zul_upper(text): the upper-casing of the dialogs. The buffer is reused: a sort over a million rows calls this once a
// row.
void Upper(sqlite3_context* Context, int, sqlite3_value** Args) {
  if (!TakeTurn(Context) || sqlite3_value_type(Args[0]) == SQLITE_NULL) return;
  static thread_local std::string Buffer;
  Buffer.clear();
  zulcommon::AppendUpperCase(Buffer, ValueText(Args[0]));
  sqlite3_result_text64(Context, Buffer.data(), Buffer.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  if (Buffer.capacity() > 1 << 20) std::string().swap(Buffer);
}

// zul_like(text, pattern): exact case. The pattern is the same in every row, so it is read once a statement.
void Like(sqlite3_context* Context, int, sqlite3_value** Args) {
  if (!TakeTurn(Context)) return;
  if (sqlite3_value_type(Args[0]) == SQLITE_NULL || sqlite3_value_type(Args[1]) == SQLITE_NULL) return;
  auto* Pattern = static_cast<sql::TLikePattern*>(sqlite3_get_auxdata(Context, 1));
  if (Pattern != nullptr) {
    sqlite3_result_int(Context, Pattern->Matches(ValueText(Args[0])));
    return;
  }
  auto Fresh = std::make_unique<sql::TLikePattern>(ValueText(Args[1]));
  sqlite3_result_int(Context, Fresh->Matches(ValueText(Args[0])));
  sqlite3_set_auxdata(Context, 1, Fresh.release(), [](void* Old) { delete static_cast<sql::TLikePattern*>(Old); });
}

}  // namespace

sqlite3* SQLiteHandle(const QSqlDatabase& Database) {
  if (Database.driver() == nullptr) return nullptr;
  const QVariant Handle = Database.driver()->handle();
  if (!Handle.isValid() || std::strcmp(Handle.typeName(), "sqlite3*") != 0) return nullptr;
  return *static_cast<sqlite3* const*>(Handle.constData());
}

bool IsOfOwnSQLite(const QSqlDatabase& Database) {
  sqlite3* Handle = SQLiteHandle(Database);
  if (Handle == nullptr) return false;
  return IsRegistered(Handle) || (IsSameBuild(Database) && IsSameCopy(Handle));
}

void RegisterSQLiteFunctions(sqlite3* Handle) {
  {
    const std::lock_guard Lock(Registered().Mutex);
    if (!Registered().Handles.insert(Handle).second) return;
  }
  constexpr int Flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  // Forget is called when the connection is closed, and also when this very call fails.
  if (sqlite3_create_function_v2(Handle, "zul_like", 2, Flags, nullptr, Like, nullptr, nullptr, nullptr) != SQLITE_OK ||
      sqlite3_create_function_v2(Handle, "zul_upper", 1, Flags, Handle, Upper, nullptr, nullptr, Forget) != SQLITE_OK) {
    Forget(Handle);
    Fail(Handle);
  }
}

std::unique_ptr<TCursor> NewSQLiteCursor(const QSqlDatabase& Database) {
  return std::make_unique<TSQLiteCursor>(Database);
}

}  // namespace ads
