#include "ads/Cursor.h"

namespace ads {

std::unique_ptr<TCursor> NewMariaDBCursor(const QSqlDatabase&) {
  throw EDatabaseError("The pick lists were built without MariaDB.");
}

}  // namespace ads
