#include "ads/Connection.h"

#include <QSqlDriver>
#include <QThread>
#include <QVariant>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/SQLLog.h"
#include "ads/sql/ReadingOnly.h"
#include "ads/sql/Statement.h"

namespace ads {

namespace {

// Dialects have no state, so one of each serves all connections.
template <typename TDialect>
const sql::TDialect& Shared() {
  static const TDialect Dialect;
  return Dialect;
}

const sql::TDialect& ODBCDialect(void* Handle) {
  switch (ODBCServer(Handle)) {
    case TODBCServer::PostgreSQL:
      return Shared<sql::TPostgreSQLDialect>();
    case TODBCServer::MariaDB:
      return Shared<sql::TMariaDBDialect>();
    case TODBCServer::SQLite:
      return Shared<sql::TPlainSQLiteDialect>();
    default:
      return Shared<sql::TAdvantageDialect>();
  }
}

}  // namespace

// The one name or the other, by the release of Qt.
st_mysql* MariaDBHandle(const QSqlDatabase& Database) {
  if (Database.driver() == nullptr || !Database.driver()->isOpen()) return nullptr;
  const QVariant Handle = Database.driver()->handle();
  const std::string_view Type = Handle.isValid() ? Handle.typeName() : "";
  if (Type != "MYSQL*" && Type != "st_mysql*") return nullptr;
  return *static_cast<st_mysql* const*>(Handle.constData());
}

EDatabaseError::EDatabaseError(const std::string& Message) : std::runtime_error(Message) {}
EDatabaseError::~EDatabaseError() = default;
EConnectionLost::EConnectionLost(const std::string& Message) : EDatabaseError(Message) {}
EConnectionLost::~EConnectionLost() = default;
EQueryEnded::EQueryEnded(const std::string& Message) : EDatabaseError(Message) {}
EQueryEnded::~EQueryEnded() = default;

// NOLINTNEXTLINE(performance-*): Qt 6.4 can only copy it, later ones move it.
TAdsConnection::TAdsConnection(QSqlDatabase Database) : Database_(std::move(Database)) {}
TAdsConnection::~TAdsConnection() = default;

// Drivers take no locks: what two threads do to a connection at once may crash in either.
void TAdsConnection::RequireOwnThread() const {
  if (!Database_.isValid() || Database_.driver()->thread() == QThread::currentThread()) return;
  throw EDatabaseError("The database connection belongs to another thread.");
}

bool TAdsConnection::IsOfOwnSQLite() const {
  if (!IsOfOwnSQLite_ && Database_.isOpen()) IsOfOwnSQLite_ = ads::IsOfOwnSQLite(Database_);
  return IsOfOwnSQLite_.value_or(false);
}

const sql::TDialect& TAdsConnection::Dialect() const {
  RequireOwnThread();
  if (void* Handle = ODBCHandle(Database_)) return ODBCDialect(Handle);
  // A library that is not ours cannot be given functions.
  if (SQLiteHandle(Database_) != nullptr && IsOfOwnSQLite()) return Shared<sql::TSQLiteDialect>();
  if (SQLiteHandle(Database_) != nullptr) return Shared<sql::TPlainSQLiteDialect>();
  const QSqlDriver* Driver = Database_.driver();
  switch (Driver != nullptr ? Driver->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite:
      return Shared<sql::TPlainSQLiteDialect>();
    case QSqlDriver::PostgreSQL:
      return Shared<sql::TPostgreSQLDialect>();
    case QSqlDriver::MySqlServer:
      return Shared<sql::TMariaDBDialect>();
    default:
      return Shared<sql::TAdvantageDialect>();
  }
}

namespace {

// A page can be asked for where the order tells which rows are the first, by columns of the result. A text that limits
// its rows itself has none.
void AddPage(TListStatements& Statements, const sql::TDialect& Speech, const std::string& Sql, int PageRows) {
  const sql::TStatement Statement(Sql);
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (Statement.IsKeyword(Position, "LIMIT") || Statement.IsKeyword(Position, "TOP")) return;
  }
  for (const auto& List : Statement.SortLists()) {
    if (List.Within != sql::TStatement::None) continue;
    for (const auto& Item : List.Items) {
      if (!Statement.IsName(Item.Expression.Last) || Item.Expression.First != Item.Expression.Last) return;
      Statements.SortColumns.push_back(sql::NameOf(Statement[Item.Expression.Last]));
    }
  }
  if (!Statements.SortColumns.empty()) Statements.Page = Speech.FirstRows(Statements.Whole, PageRows);
}

}  // namespace

TListStatements TAdsConnection::Statements(const std::string& Sql, std::span<const std::string> AllowedFunctions,
                                           int PageRows) const {
  RequireOwnThread();
  // A lost connection to PostgreSQL is not open either, but has more to say.
  if (PostgreSQLHandle(Database_) == nullptr && !Database_.isOpen()) {
    throw EConnectionLost("The database connection is not open.");
  }
  sql::RequireReadingOnly(Sql, AllowedFunctions);
  const sql::TDialect& Speech = Dialect();
  Speech.RequireUnambiguous(Sql);
  TListStatements Result;
  Result.Source = Sql;
  Result.Whole = Speech.Rewrite(Sql);
  if (PageRows > 0) AddPage(Result, Speech, Sql, PageRows);
  return Result;
}

std::unique_ptr<TCursor> TAdsConnection::NewCursor() const {
  return Logged(NewPlainCursor());
}

std::unique_ptr<TCursor> TAdsConnection::NewPlainCursor() const {
  if (IsOfOwnSQLite()) {
    RegisterSQLiteFunctions(SQLiteHandle(Database_));
    return NewSQLiteCursor(Database_);
  }
  if (PostgreSQLHandle(Database_) != nullptr) return NewPostgreSQLCursor(Database_);
  if (MariaDBHandle(Database_) != nullptr) return NewMariaDBCursor(Database_);
  if (ODBCHandle(Database_) != nullptr) return NewODBCCursor(Database_);
  return NewQSqlCursor(Database_);
}

std::unique_ptr<TCursor> TAdsConnection::OpenCursor(const std::string& Sql,
                                                    std::span<const std::string> AllowedFunctions) const {
  const TListStatements Texts = Statements(Sql, AllowedFunctions, 0);
  std::unique_ptr<TCursor> Cursor = NewCursor();
  Cursor->Begin(Texts.Whole);
  return Cursor;
}

}  // namespace ads
