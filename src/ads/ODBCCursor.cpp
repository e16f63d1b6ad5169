#include <sql.h>
#include <sqlext.h>

#include <QSqlDriver>
#include <QString>
#include <QVariant>
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstring>
#include <optional>
#include <thread>
#include <vector>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/MariaDBStatements.h"
#include "ads/PostgreSQLStatements.h"
#include "ads/SQLLog.h"
#include "zulcommon/Ascii.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

bool Succeeded(SQLRETURN Code) {
  return Code == SQL_SUCCESS || Code == SQL_SUCCESS_WITH_INFO;
}

std::string Utf8(const SQLWCHAR* Text, std::size_t Length) {
  return QString::fromUtf16(reinterpret_cast<const char16_t*>(Text), static_cast<qsizetype>(Length)).toStdString();
}

// The server's own words: driver managers and drivers put their names in brackets before them, and psqlODBC puts a
// remark behind.
std::string_view WithoutNames(std::string_view Message) {
  while (Message.starts_with('[') && Message.find(']') != Message.npos) Message.remove_prefix(Message.find(']') + 1);
  constexpr std::string_view Remark = ";\nError while executing the query";
  if (Message.ends_with(Remark)) Message.remove_suffix(Remark.size());
  return zulcommon::Trim(Message);
}

struct TDiagnosis {
  std::string State;
  std::string Message;
  SQLINTEGER Native = 0;  // the server's number, where the driver gives one
};

TDiagnosis Diagnose(SQLSMALLINT Kind, SQLHANDLE Handle) {
  SQLWCHAR State[6] = {};
  SQLWCHAR Text[4096] = {};
  SQLINTEGER Native = 0;
  SQLSMALLINT Length = 0;
  constexpr auto Room = static_cast<SQLSMALLINT>(std::size(Text));
  if (!Succeeded(SQLGetDiagRecW(Kind, Handle, 1, State, &Native, Text, Room, &Length))) {
    return {"HY000", "The ODBC driver reports a failure without a message.", 0};
  }
  const auto Read = static_cast<std::size_t>(std::min<SQLSMALLINT>(Length, static_cast<SQLSMALLINT>(Room - 1)));
  return {Utf8(State, 5), std::string(WithoutNames(Utf8(Text, Read))), Native};
}

bool IsLost(SQLHDBC Connection) {
  SQLUINTEGER Dead = SQL_CD_FALSE;
  return Succeeded(SQLGetConnectAttr(Connection, SQL_ATTR_CONNECTION_DEAD, &Dead, 0, nullptr)) && Dead == SQL_CD_TRUE;
}

/// One ODBC statement; closed, whatever was read from it, when it is destroyed.
class TStatementHandle {
 public:
  explicit TStatementHandle(SQLHDBC Connection) : Connection_(Connection) {
    if (!Succeeded(SQLAllocHandle(SQL_HANDLE_STMT, Connection, &Handle_))) {
      const TDiagnosis Diagnosis = Diagnose(SQL_HANDLE_DBC, Connection);
      if (Diagnosis.State.starts_with("08") || IsLost(Connection)) RaiseConnectionLost(Diagnosis.Message);
      throw EDatabaseError(Diagnosis.Message);
    }
  }
  ~TStatementHandle() {
    if (Handle_ != nullptr) SQLFreeHandle(SQL_HANDLE_STMT, Handle_);
  }
  TStatementHandle(const TStatementHandle&) = delete;
  TStatementHandle& operator=(const TStatementHandle&) = delete;

  SQLHSTMT Get() const { return Handle_; }

  /// Whether the driver manager still knows the statement, which it does not when the connection was closed.
  bool IsKnown() const {
    SQLULEN Type = 0;
    return SQLGetStmtAttr(Handle_, SQL_ATTR_CURSOR_TYPE, &Type, 0, nullptr) != SQL_INVALID_HANDLE;
  }

  /// The connection was closed, which has freed the statement.
  void Abandon() { Handle_ = nullptr; }

  /// A statement of the library's own, at once.
  void Execute(const std::string& Sql) {
    LogOwn(Sql);
    Require(ExecuteWide(QString::fromStdString(Sql)));
  }

  /// The same; false when the server refuses with the number.
  bool ExecuteUnless(const std::string& Sql, unsigned Number) {
    LogOwn(Sql);
    const SQLRETURN Code = ExecuteWide(QString::fromStdString(Sql));
    if (!Succeeded(Code) && static_cast<unsigned>(Diagnose(SQL_HANDLE_STMT, Handle_).Native) == Number) return false;
    Require(Code);
    return true;
  }

  /// Lets the driver give back from a statement before it is executed, where it can.
  void AllowAsynchronous() {
    SQLUINTEGER Mode = SQL_AM_NONE;
    SQLGetInfo(Connection_, SQL_ASYNC_MODE, &Mode, sizeof Mode, nullptr);
    if (Mode == SQL_AM_STATEMENT) SetAsynchronous(SQL_ASYNC_ENABLE_ON);
  }

  /// Whether the statement has been executed; else it is to be called again, with the same text. `AsBytes` hands its
  /// bytes over as they are.
  bool HasExecuted(const std::string& Sql, bool AsBytes) {
    const SQLRETURN Code = Run(Sql, AsBytes);
    if (IsExecuting_) return false;
    Require(Code);
    SetAsynchronous(SQL_ASYNC_ENABLE_OFF);
    return true;
  }

  /// Has the driver prepare a statement; some drivers ask the server only when they are asked for the result's columns.
  void Prepare(const std::string& Sql, bool AsBytes) {
    const QString Text = QString::fromStdString(Sql);
    auto* Wide = const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(Text.utf16()));
    auto* Bytes = const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(Sql.data()));
    Require(AsBytes ? SQLPrepare(Handle_, Bytes, static_cast<SQLINTEGER>(Sql.size()))
                    : SQLPrepareW(Handle_, Wide, static_cast<SQLINTEGER>(Text.size())));
  }

  /// Ends a statement that is still being executed, as far as the driver does that within a moment.
  void Cancel(const std::string& Sql, bool AsBytes) {
    if (!IsExecuting_) return;
    constexpr std::chrono::milliseconds Moment(800);
    const auto End = std::chrono::steady_clock::now() + Moment;
    SQLCancel(Handle_);
    while (IsExecuting_ && std::chrono::steady_clock::now() < End) {
      Run(Sql, AsBytes);
      if (IsExecuting_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  bool Fetch() {
    const SQLRETURN Code = SQLFetch(Handle_);
    if (Code == SQL_NO_DATA) return false;
    Require(Code);
    return true;
  }

  void Require(SQLRETURN Code) const {
    if (Succeeded(Code) || Code == SQL_NO_DATA) return;
    const TDiagnosis Diagnosis = Diagnose(SQL_HANDLE_STMT, Handle_);
    // PostgreSQL's own, and ODBC's for what was canceled or took too long.
    for (const char* Ended : {"57014", "HY008", "HYT00"}) {
      if (Diagnosis.State == Ended) throw EQueryEnded(Diagnosis.Message);
    }
    // MariaDB's driver takes a node that may not answer for a connection that is lost.
    if (ODBCServer(Connection_) == TODBCServer::MariaDB &&
        mariadb::IsEndedFromOutside(static_cast<unsigned>(Diagnosis.Native))) {
      throw EQueryEnded(Diagnosis.Message);
    }
    if (!IsLost(Connection_)) {
      // A server behind this one is gone, or a transaction was given up to let others go on.
      const bool IsElsewhere = Diagnosis.State == "08001" || Diagnosis.State == "08006";
      if (IsElsewhere || Diagnosis.State.starts_with("40")) throw EQueryEnded(Diagnosis.Message);
      if (!Diagnosis.State.starts_with("08")) throw EDatabaseError(Diagnosis.Message);
    }
    RaiseConnectionLost(Diagnosis.Message);
  }

 private:
  // Notes whether the driver has given back before it was done.
  SQLRETURN Run(const std::string& Sql, bool AsBytes) {
    const SQLRETURN Code = AsBytes ? ExecuteBytes(Sql) : ExecuteWide(QString::fromStdString(Sql));
    IsExecuting_ = Code == SQL_STILL_EXECUTING;
    return Code;
  }
  SQLRETURN ExecuteWide(const QString& Text) {
    auto* Wide = const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(Text.utf16()));
    return SQLExecDirectW(Handle_, Wide, static_cast<SQLINTEGER>(Text.size()));
  }
  SQLRETURN ExecuteBytes(const std::string& Sql) {
    auto* Bytes = const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(Sql.data()));
    return SQLExecDirect(Handle_, Bytes, static_cast<SQLINTEGER>(Sql.size()));
  }
  void SetAsynchronous(SQLULEN Mode) {
    if (Mode == IsAsynchronous_) return;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): ODBC passes whole numbers so.
    if (Succeeded(SQLSetStmtAttr(Handle_, SQL_ATTR_ASYNC_ENABLE, reinterpret_cast<SQLPOINTER>(Mode), 0))) {
      IsAsynchronous_ = Mode;
    }
  }

  SQLHDBC Connection_;
  SQLHSTMT Handle_ = nullptr;
  SQLULEN IsAsynchronous_ = SQL_ASYNC_ENABLE_OFF;
  bool IsExecuting_ = false;
};

// Reads a value in pieces into `Text`; false for a null. `Unit` is a byte or a UTF-16 unit. Each piece is as long as
// all before it, because a driver may go through the whole value for every one.
template <typename TUnit>
bool ReadPieces(const TStatementHandle& Statement, int Column, SQLSMALLINT Type, std::vector<TUnit>& Text) {
  constexpr std::size_t FirstRoom = 1024;
  const std::size_t Terminator = Type == SQL_C_BINARY ? 0 : 1;
  Text.clear();
  for (SQLRETURN Code = SQL_SUCCESS_WITH_INFO; Code == SQL_SUCCESS_WITH_INFO;) {
    const std::size_t Before = Text.size();
    const std::size_t Room = std::max(FirstRoom, Before);
    Text.resize(Before + Room);
    SQLLEN Bytes = 0;
    Code = SQLGetData(Statement.Get(), static_cast<SQLUSMALLINT>(Column + 1), Type, Text.data() + Before,
                      static_cast<SQLLEN>(Room * sizeof(TUnit)), &Bytes);
    Statement.Require(Code);
    if (Bytes == SQL_NULL_DATA) return false;
    const std::size_t Whole = Bytes < 0 ? Room : static_cast<std::size_t>(Bytes) / sizeof(TUnit);
    const std::size_t Read = Code == SQL_NO_DATA ? 0 : std::min(Whole, Room - Terminator);
    Text.resize(Before + Read);
    if (Read == Whole) break;
  }
  return true;
}

/// What a query stands in on a server that has more than the driver's own calls for that.
class TScopeByODBC {
 public:
  TScopeByODBC() = default;
  virtual ~TScopeByODBC() = default;
  TScopeByODBC(const TScopeByODBC&) = delete;
  TScopeByODBC& operator=(const TScopeByODBC&) = delete;

  /// The connection was closed, and the transaction with it.
  virtual void Abandon() = 0;

  /// Whether what was begun has lasted.
  virtual bool IsStillOpen() { return true; }

  /// The statement has been executed, and the host has not had its turn since. Whether what was begun is ended now,
  /// before the rows are read.
  virtual bool EndsBeforeRows() { return false; }

  /// Throws what the server has to say about a text that it cannot take, where a failure would cost more than that.
  virtual void Check(const std::string&) const {}
};

/// On a MariaDB server, as `TMariaDBCursor`'s. The driver's autocommit being off begins no transaction by itself, and
/// ending one is no more than what the session would do.
class TMariaDBByODBC final : public TScopeByODBC {
 public:
  explicit TMariaDBByODBC(SQLHDBC Connection) : Connection_(Connection) {
    const std::string Version = ODBCServerVersion(Connection);
    mariadb::RequireRelease(mariadb::ReleaseOf(Version), Version);
    Look();
    if (!InHostsTransaction_ && !SeesOneState_) Execute(mariadb::SetOneState);
    if (InHostsTransaction_) {
      HasSavepoint_ = TStatementHandle(Connection_).ExecuteUnless(mariadb::Savepoint, mariadb::NoSavepoints);
    } else {
      Execute(mariadb::Begin);
    }
  }
  ~TMariaDBByODBC() override {
    if (Connection_ == nullptr) return;
    try {
      End();
    } catch (const EDatabaseError&) {
      // The connection is lost, or the server has ended the transaction.
    }
  }

  void Abandon() override { Connection_ = nullptr; }

  /// The savepoint must not be open while the host may write: going back to it would take that back without a word. The
  /// driver has all rows by now, unless it is set to read them one by one; then it refuses to end anything.
  bool EndsBeforeRows() override {
    if (!InHostsTransaction_) return false;  // the server refuses what the host would write
    try {
      CloseScope();
    } catch (const EDatabaseError&) {
      return false;
    }
    Abandon();
    return true;
  }

 private:
  void Execute(const char* Sql) const { TStatementHandle(Connection_).Execute(Sql); }

  void End() const {
    try {
      CloseScope();
    } catch (const EQueryEnded&) {  // the node may not answer, and has left open what was begun
      Execute(mariadb::AllowOutdated);
      CloseScope();
      Execute(mariadb::ForbidOutdated);
    }
  }

  void CloseScope() const {
    if (!InHostsTransaction_) return Execute(mariadb::End);
    if (!HasSavepoint_) return;
    Execute(mariadb::BackToSavepoint);
    Execute(mariadb::DropSavepoint);
  }

  void Look() {
    TStatementHandle Statement(Connection_);
    Statement.Execute(mariadb::Look);
    if (!Statement.Fetch()) return;
    SQLINTEGER Inside = 0;
    SQLCHAR Level[32] = {};
    SQLLEN Bytes = 0;
    SQLGetData(Statement.Get(), 1, SQL_C_SLONG, &Inside, sizeof Inside, &Bytes);
    SQLGetData(Statement.Get(), 2, SQL_C_CHAR, Level, sizeof Level, &Bytes);
    InHostsTransaction_ = Inside != 0;
    SeesOneState_ = std::strcmp(reinterpret_cast<const char*>(Level), mariadb::OneState) == 0;
  }

  SQLHDBC Connection_;
  bool InHostsTransaction_ = false;
  bool SeesOneState_ = false;
  bool HasSavepoint_ = false;  // unless the server has none in the host's transaction
};

/// What a query stands in on a PostgreSQL server, as `TPostgreSQLScope`, but by statements: the driver's own calls for
/// transactions cannot tell whether the host has begun one by a statement.
class TPostgreSQLByODBC final : public TScopeByODBC {
 public:
  explicit TPostgreSQLByODBC(SQLHDBC Connection) : Connection_(Connection), InHostsTransaction_(IsInTransaction()) {
    // In one text, because the driver encloses each in a savepoint of its own, which would end the reading mode.
    const std::string Begin = InHostsTransaction_ ? postgresql::Savepoint : postgresql::Begin;
    TStatementHandle(Connection).Execute(Begin + "; " + postgresql::TextSettings);
    // The driver protects the host's transaction from a failing statement by savepoints of its own, but for the first
    // statement since it began the transaction: this is that one.
    try {
      Mark_ = Mark();
    } catch (const EDatabaseError&) {
      End();
      throw;
    }
  }
  ~TPostgreSQLByODBC() override {
    if (Connection_ != nullptr) End();
  }

  void Abandon() override { Connection_ = nullptr; }

  /// A failing statement of the host's may have ended it, and with it the rows of a list whose driver reads them in
  /// portions, without a word.
  bool IsStillOpen() override {
    bool Open = false;
    try {
      Open = Mark() == Mark_;
    } catch (const EDatabaseError&) {
      return false;  // it has failed, and is ended as such
    }
    if (!Open) Abandon();
    return Open;
  }

  /// The driver ends the host's transaction over a
  /// text that is no SQL at all, because its own savepoint, sent together with the text, fails with it; so the server
  /// is asked what columns the text would give, and sees it as a mere argument.
  void Check(const std::string& Sql) const override {
    if (!InHostsTransaction_) return;
    std::string Argument = "E'";
    for (const char Byte : Sql) Argument.append(Byte == '\'' || Byte == '\\' ? 2 : 1, Byte);
    TStatementHandle(Connection_).Execute("SELECT query_to_xmlschema(" + Argument + "', TRUE, FALSE, '')");
  }

 private:
  void End() noexcept {
    try {
      TStatementHandle(Connection_).Execute(InHostsTransaction_ ? postgresql::BackToSavepoint : "ROLLBACK");
    } catch (const EDatabaseError&) {
      // The connection is lost, and the transaction with it.
    }
  }

  // Tells the transaction from every other one, and what has been begun in it from what was before.
  std::string Mark() const {
    TStatementHandle Statement(Connection_);
    Statement.Execute("SELECT CAST(now() AS text) || current_setting('transaction_read_only')");
    SQLCHAR Text[64] = {};
    SQLLEN Bytes = 0;
    if (Statement.Fetch()) SQLGetData(Statement.Get(), 1, SQL_C_CHAR, Text, sizeof Text, &Bytes);
    return reinterpret_cast<const char*>(Text);
  }

  // A statement that is a transaction of its own starts when that transaction does.
  bool IsInTransaction() const {
    SQLULEN Autocommit = SQL_AUTOCOMMIT_ON;
    SQLGetConnectAttr(Connection_, SQL_ATTR_AUTOCOMMIT, &Autocommit, 0, nullptr);
    if (static_cast<SQLUINTEGER>(Autocommit) == SQL_AUTOCOMMIT_OFF) return true;
    TStatementHandle Statement(Connection_);
    Statement.Execute("SELECT CASE WHEN now() = statement_timestamp() THEN 0 ELSE 1 END");
    SQLINTEGER Inside = 0;
    SQLLEN Bytes = 0;
    if (Statement.Fetch()) SQLGetData(Statement.Get(), 1, SQL_C_SLONG, &Inside, sizeof Inside, &Bytes);
    return Inside != 0;
  }

  SQLHDBC Connection_;
  bool InHostsTransaction_;
  std::string Mark_;
};

// SQLite wants UTF-8 always. Its driver may know nothing of wide characters, and then the driver manager translates
// them for the locale of the program, which need not be UTF-8, and those beyond the first 65536 not at all.
bool TakesWideTexts(SQLHDBC Connection) {
  TStatementHandle Statement(Connection);
  Statement.Execute("SELECT hex('\U0001D11E')");
  SQLCHAR Hex[16] = {};
  SQLLEN Bytes = 0;
  return Statement.Fetch() && Succeeded(SQLGetData(Statement.Get(), 1, SQL_C_CHAR, Hex, sizeof Hex, &Bytes)) &&
         std::strcmp(reinterpret_cast<const char*>(Hex), "F09D849E") == 0;
}

class TODBCCursor final : public TCursor {
 public:
  explicit TODBCCursor(const QSqlDatabase& Database)
      : Database_(Database), Connection_(ODBCHandle(Database)), Server_(ODBCServer(Connection_)) {}

  ~TODBCCursor() override {
    if (!IsConnected()) {
      LetGo();
    } else if (Statement_) {
      Statement_->Cancel(Sql_, AsBytes_);
    }
  }
  TODBCCursor(const TODBCCursor&) = delete;
  TODBCCursor& operator=(const TODBCCursor&) = delete;

  // A connection that was opened again may have the address of the one before.
  bool IsConnected() const override {
    return ODBCHandle(Database_) == Connection_ && (!Statement_ || Statement_->IsKnown());
  }

  bool IsShareable() const override { return false; }

  void Begin(const std::string& Sql) override {
    Open(Sql);
    Statement_->AllowAsynchronous();
  }

  // PostgreSQL's driver may leave all of the preparing to the moment of execution, so there the statement is executed,
  // but asked for no row.
  std::vector<std::string> Prepare(const std::string& Sql) override {
    Open(Sql);
    if (Server_ == TODBCServer::PostgreSQL) {
      Statement_->Execute("SELECT * FROM (" + Sql + "\n) zul LIMIT 0");
    } else {
      Statement_->Prepare(Sql, AsBytes_);
    }
    Describe();
    Statement_.reset();
    std::vector<std::string> Names;
    for (const TColumn& Column : Columns_) Names.push_back(Column.Name);
    return Names;
  }

  // Most drivers give back only when the statement has been executed, so the first portion may take as long as that.
  bool GoOn(TTime Until, const TTakeRow& Take) override {
    if (!HasExecuted_ && !Execute(Until)) return true;
    while (Statement_ && Fetch()) {
      if (!Take() || IsTime(Until)) return true;
    }
    Statement_.reset();
    if (Scope_ && !Scope_->IsStillOpen()) {
      Scope_.reset();
      throw EDisturbed();
    }
    Scope_.reset();
    return false;
  }

  int ColumnCount() const override { return static_cast<int>(Columns_.size()); }
  std::string ColumnName(int Column) const override { return Columns_[static_cast<std::size_t>(Column)].Name; }

  TValueKind Kind(int Column) override { return At(Column).Kind; }
  std::int64_t Integer(int) override { return 0; }  // no value is of that kind: whole numbers come as texts
  double Real(int Column) override { return At(Column).Real; }
  std::string_view Text(int Column) override {
    TColumn& Value = At(Column);
    if (Value.Kind == TValueKind::Real) {
      char Digits[40];
      Value.Text.assign(Digits, std::to_chars(Digits, Digits + sizeof Digits, Value.Real).ptr);
    }
    return Value.Text;
  }

 private:
  void Open(const std::string& Sql) {
    Sql_ = Sql;
    Statement_.reset();
    Columns_.clear();
    HasExecuted_ = false;
    if (!Scope_) Scope_ = NewScope();
    if (Scope_) Scope_->Check(Sql);
    Statement_.emplace(Connection_);
    AsBytes_ = Server_ == TODBCServer::SQLite && !std::all_of(Sql.begin(), Sql.end(), zulcommon::IsAscii) &&
               !TakesWideTexts(Connection_);
  }

  std::unique_ptr<TScopeByODBC> NewScope() const {
    if (Server_ == TODBCServer::PostgreSQL) return std::make_unique<TPostgreSQLByODBC>(Connection_);
    if (Server_ == TODBCServer::MariaDB) return std::make_unique<TMariaDBByODBC>(Connection_);
    return nullptr;
  }

  // Ends what is left of a connection that the host has closed. Closing frees the statements of a connection, and not
  // every call on a freed one is refused. SQLite's driver though does not close a connection under a running statement,
  // and Qt's lets go of it all the same; it is closed here, behind the last statement.
  void LetGo() {
    if (Scope_) Scope_->Abandon();
    if (!Statement_) return;
    if (Server_ != TODBCServer::SQLite) return Statement_->Abandon();
    Statement_.reset();
    if (Succeeded(SQLDisconnect(Connection_))) SQLFreeHandle(SQL_HANDLE_DBC, Connection_);
  }

  struct TColumn {
    std::string Name;
    SQLSMALLINT Type = SQL_UNKNOWN_TYPE;
    TValueKind Kind = TValueKind::Null;  // with what follows: the value in the current row
    double Real = 0;
    std::string Text;
  };

  bool Execute(TTime Until) {
    constexpr std::chrono::milliseconds BetweenQuestions(2);
    while (!Statement_->HasExecuted(Sql_, AsBytes_)) {
      if (std::chrono::steady_clock::now() >= Until) return false;
      std::this_thread::sleep_for(BetweenQuestions);
    }
    HasExecuted_ = true;
    if (Scope_ && Scope_->EndsBeforeRows()) Scope_.reset();
    Describe();
    return true;
  }

  bool Fetch() {
    Read_ = 0;
    return Statement_->Fetch();
  }

  void Describe() {
    SQLSMALLINT Count = 0;
    Statement_->Require(SQLNumResultCols(Statement_->Get(), &Count));
    if (Count == 0) throw EDatabaseError("The query gives no rows.");
    for (SQLSMALLINT Column = 1; Column <= Count; ++Column) {
      SQLWCHAR Name[256] = {};
      SQLSMALLINT Length = 0, Digits = 0, Nullable = 0;
      SQLULEN Size = 0;
      TColumn& Fresh = Columns_.emplace_back();
      Statement_->Require(SQLDescribeColW(Statement_->Get(), static_cast<SQLUSMALLINT>(Column), Name,
                                          static_cast<SQLSMALLINT>(std::size(Name)), &Length, &Fresh.Type, &Size,
                                          &Digits, &Nullable));
      Fresh.Name = Utf8(Name, std::min<std::size_t>(static_cast<std::size_t>(Length), std::size(Name) - 1));
    }
  }

  // Drivers give the values of a row from the left to the right, each once.
  TColumn& At(int Column) {
    for (; Read_ <= Column; ++Read_) ReadValue(Columns_[static_cast<std::size_t>(Read_)], Read_);
    return Columns_[static_cast<std::size_t>(Column)];
  }

  // All values are read as texts, which every driver gives in one form and which keep a decimal number exact. Only a
  // floating number would lose digits so. SQLite's driver keeps each value as a text itself; its numbers are
  // taken for what they say, because a column may hold anything.
  void ReadValue(TColumn& Value, int Column) {
    const bool Floating = Value.Type == SQL_DOUBLE || Value.Type == SQL_FLOAT || Value.Type == SQL_REAL;
    if (Floating && Server_ != TODBCServer::SQLite) return ReadReal(Value, Column);
    Value.Kind = ReadText(Value, Column) ? TValueKind::Text : TValueKind::Null;
    // A column of a fixed width is filled up with blanks.
    if (Value.Type != SQL_CHAR && Value.Type != SQL_WCHAR) return;
    Value.Text.resize(Value.Text.find_last_not_of(' ') + 1);
  }

  void ReadReal(TColumn& Value, int Column) {
    SQLLEN Bytes = 0;
    const auto Place = static_cast<SQLUSMALLINT>(Column + 1);
    Statement_->Require(SQLGetData(Statement_->Get(), Place, SQL_C_DOUBLE, &Value.Real, sizeof Value.Real, &Bytes));
    Value.Kind = Bytes == SQL_NULL_DATA ? TValueKind::Null : TValueKind::Real;
  }

  bool ReadText(TColumn& Value, int Column) {
    const bool Binary = Value.Type == SQL_BINARY || Value.Type == SQL_VARBINARY || Value.Type == SQL_LONGVARBINARY;
    if (Binary || !Wide_) return ReadBytes(Value, Column, Binary ? SQL_C_BINARY : SQL_C_CHAR);
    try {
      const bool HasValue = ReadPieces(*Statement_, Column, SQL_C_WCHAR, Units_);
      Value.Text = HasValue ? Utf8(Units_.data(), Units_.size()) : std::string();
      return HasValue;
    } catch (const EDatabaseError&) {
      Wide_ = false;  // a driver that knows nothing of wide characters says so at the first value
      return ReadBytes(Value, Column, SQL_C_CHAR);
    }
  }

  bool ReadBytes(TColumn& Value, int Column, SQLSMALLINT Type) {
    const bool HasValue = ReadPieces(*Statement_, Column, Type, Bytes_);
    Value.Text.assign(Bytes_.data(), HasValue ? Bytes_.size() : 0);
    return HasValue;
  }

  QSqlDatabase Database_;
  SQLHDBC Connection_;
  TODBCServer Server_;
  std::unique_ptr<TScopeByODBC> Scope_;
  std::optional<TStatementHandle> Statement_;
  std::string Sql_;
  bool AsBytes_ = false;
  bool HasExecuted_ = false;
  std::vector<TColumn> Columns_;
  int Read_ = 0;      // how many columns of the current row are
  bool Wide_ = true;  // texts come as UTF-16
  std::vector<SQLWCHAR> Units_;
  std::vector<char> Bytes_;
};

}  // namespace

void* ODBCHandle(const QSqlDatabase& Database) {
  const QSqlDriver* Driver = Database.driver();
  if (Driver == nullptr || !Driver->isOpen() || !Driver->inherits("QODBCDriver")) return nullptr;
  const QVariant Handle = Driver->handle();
  return Handle.isValid() ? *static_cast<void* const*>(Handle.constData()) : nullptr;
}

namespace {

std::string InfoText(SQLHDBC Handle, SQLUSMALLINT What) {
  SQLCHAR Text[128] = {};
  SQLSMALLINT Length = 0;
  SQLGetInfo(Handle, What, Text, static_cast<SQLSMALLINT>(sizeof Text), &Length);
  return reinterpret_cast<const char*>(Text);
}

}  // namespace

std::string ODBCServerName(void* Handle) {
  return InfoText(Handle, SQL_DBMS_NAME);
}

std::string ODBCServerVersion(void* Handle) {
  return InfoText(Handle, SQL_DBMS_VER);
}

TODBCServer ODBCServer(void* Handle) {
  const std::string Server = ODBCServerName(Handle);
  if (Server.starts_with("PostgreSQL")) return TODBCServer::PostgreSQL;
  if (Server.starts_with("MariaDB")) return TODBCServer::MariaDB;
  return Server.starts_with("SQLite") ? TODBCServer::SQLite : TODBCServer::Other;
}

std::unique_ptr<TCursor> NewODBCCursor(const QSqlDatabase& Database) {
  return std::make_unique<TODBCCursor>(Database);
}

}  // namespace ads
