// In place of the PostgreSQL cursor, in a build that was configured without it. Qt's general way of reading is not
// taken instead: it has neither the transaction in which the server refuses to write nor the savepoint in the host's
// own.
#include <QSqlDriver>

#include "ads/Cursor.h"

namespace ads {

namespace {

[[noreturn]] void Refuse() {
  throw EDatabaseError("The pick lists were built without PostgreSQL (ZUL_WITH_POSTGRESQL).");
}

}  // namespace

pg_conn* PostgreSQLHandle(const QSqlDatabase& Database) {
  if (Database.driver() != nullptr && Database.driver()->inherits("QPSQLDriver")) Refuse();
  return nullptr;
}

std::unique_ptr<TCursor> NewPostgreSQLCursor(const QSqlDatabase&) {
  Refuse();
}

}  // namespace ads
