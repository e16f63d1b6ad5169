#include "ads/sql/Dialect.h"

namespace ads::sql {

TDialect::~TDialect() = default;

const char* TAdvantageDialect::Name() const {
  return "Advantage";
}

std::string TAdvantageDialect::Rewrite(std::string_view Sql) const {
  return std::string(Sql);
}

}  // namespace ads::sql
