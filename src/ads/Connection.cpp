#include "ads/Connection.h"

#include <QSqlDriver>
#include <QThread>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/sql/ReadingOnly.h"

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
    case TODBCServer::SQLite:
      return Shared<sql::TPlainSQLiteDialect>();
    default:
      return Shared<sql::TAdvantageDialect>();
  }
}

}  // namespace

EDatabaseError::EDatabaseError(const std::string& Message) : std::runtime_error(Message) {}
EDatabaseError::~EDatabaseError() = default;
EConnectionLost::EConnectionLost(const std::string& Message) : EDatabaseError(Message) {}
EConnectionLost::~EConnectionLost() = default;

TAdsConnection::TAdsConnection(QSqlDatabase Database) : Database_(std::move(Database)) {}
TAdsConnection::~TAdsConnection() = default;

// Drivers take no locks: what two threads do to a connection at once may crash in either.
void TAdsConnection::RequireOwnThread() const {
  if (!Database_.isValid() || Database_.driver()->thread() == QThread::currentThread()) return;
  throw EDatabaseError("The database connection belongs to another thread.");
}

const sql::TDialect& TAdsConnection::Dialect() const {
  RequireOwnThread();
  if (void* Handle = ODBCHandle(Database_)) return ODBCDialect(Handle);
  const QSqlDriver* Driver = Database_.driver();
  switch (Driver != nullptr ? Driver->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite:
      return Shared<sql::TSQLiteDialect>();
    case QSqlDriver::PostgreSQL:
      return Shared<sql::TPostgreSQLDialect>();
    default:
      return Shared<sql::TAdvantageDialect>();
  }
}

std::unique_ptr<TCursor> TAdsConnection::OpenCursor(const std::string& Sql,
                                                    std::span<const std::string> AllowedFunctions) {
  RequireOwnThread();
  // A lost connection to PostgreSQL is not open either, but has more to say.
  pg_conn* Server = PostgreSQLHandle(Database_);
  if (Server == nullptr && !Database_.isOpen()) throw EConnectionLost("The database connection is not open.");
  sql::RequireReadingOnly(Sql, AllowedFunctions);
  const sql::TDialect& Speech = Dialect();
  Speech.RequireUnambiguous(Sql);
  const std::string Rewritten = Speech.Rewrite(Sql);
  if (sqlite3* Handle = SQLiteHandle(Database_)) {
    RegisterSQLiteFunctions(Handle);
    return OpenSQLiteCursor(Database_, Rewritten);
  }
  if (Server != nullptr) return OpenPostgreSQLCursor(Database_, Rewritten);
  if (ODBCHandle(Database_) != nullptr) return OpenODBCCursor(Database_, Rewritten);
  return OpenQSqlCursor(Database_, Rewritten);
}

}  // namespace ads
