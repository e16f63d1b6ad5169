// In place of the ODBC cursor, in a build that was configured without it. Which server answers behind the driver is not
// known then, nor how it is kept from writing.
#include <QSqlDriver>

#include "ads/Cursor.h"

namespace ads {

namespace {

[[noreturn]] void Refuse() {
  throw EDatabaseError("The pick lists were built without ODBC (ZUL_WITH_ODBC).");
}

}  // namespace

void* ODBCHandle(const QSqlDatabase& Database) {
  if (Database.driver() != nullptr && Database.driver()->inherits("QODBCDriver")) Refuse();
  return nullptr;
}

TODBCServer ODBCServer(void*) {
  Refuse();
}

std::unique_ptr<TCursor> NewODBCCursor(const QSqlDatabase&) {
  Refuse();
}

std::string ODBCServerName(void*) {
  Refuse();
}

std::string ODBCServerVersion(void*) {
  Refuse();
}

}  // namespace ads
