#include "ads/Query.h"

#include "ads/Connection.h"

namespace ads {

TAdsQuery::TAdsQuery(QObject* Owner) : TDataSet(Owner) {}
TAdsQuery::~TAdsQuery() = default;

TListStatements TAdsQuery::Statements(int PageRows) const {
  return RequireConnection().Statements(SQL_.Text(), AllowedFunctions_, PageRows);
}

}  // namespace ads
