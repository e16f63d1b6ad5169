#include "ads/Query.h"

#include "ads/Connection.h"
#include "ads/Cursor.h"

namespace ads {

TAdsQuery::TAdsQuery(QObject* Owner) : TDataSet(Owner) {}
TAdsQuery::~TAdsQuery() = default;

std::unique_ptr<TCursor> TAdsQuery::OpenCursor() {
  return RequireConnection().OpenCursor(SQL_.Text(), AllowedFunctions_);
}

}  // namespace ads
