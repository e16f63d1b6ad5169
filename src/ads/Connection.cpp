#include "ads/Connection.h"

#include <QSqlDriver>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/sql/ReadingOnly.h"

namespace ads {

namespace {

std::unique_ptr<sql::TDialect> ChooseDialect(const QSqlDatabase& Database) {
  const QSqlDriver* Driver = Database.driver();
  switch (Driver != nullptr ? Driver->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite:
      return std::make_unique<sql::TSQLiteDialect>();
    case QSqlDriver::PostgreSQL:
      return std::make_unique<sql::TPostgreSQLDialect>();
    default:
      return std::make_unique<sql::TAdvantageDialect>();
  }
}

}  // namespace

EDatabaseError::EDatabaseError(const std::string& Message) : std::runtime_error(Message) {}
EDatabaseError::~EDatabaseError() = default;

TAdsConnection::TAdsConnection(QSqlDatabase Database)
    : Database_(std::move(Database)), Dialect_(ChooseDialect(Database_)) {}

TAdsConnection::~TAdsConnection() = default;

std::unique_ptr<TCursor> TAdsConnection::OpenCursor(const std::string& Sql) {
  if (!Database_.isOpen()) throw EDatabaseError("The database connection is not open.");
  sql::RequireReadingOnly(Sql);
  const std::string Rewritten = Dialect_->Rewrite(Sql);
  if (sqlite3* Handle = SQLiteHandle(Database_)) {
    RegisterSQLiteFunctions(Handle);
    return OpenSQLiteCursor(Handle, Rewritten);
  }
  return OpenQSqlCursor(Database_, Rewritten);
}

}  // namespace ads
