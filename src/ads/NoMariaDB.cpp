// In place of the MariaDB cursor, in a build that was configured without it. Qt's general way of reading is not taken
// instead: it has neither the transaction in which the server refuses to write nor the savepoint in the host's own.
#include "ads/Cursor.h"

namespace ads {

std::unique_ptr<TCursor> NewMariaDBCursor(const QSqlDatabase&) {
  throw EDatabaseError("The pick lists were built without MariaDB (ZUL_WITH_MARIADB).");
}

}  // namespace ads
