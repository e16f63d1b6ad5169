#include "ads/sql/Dialect.h"

namespace ads::sql {

TDialect::~TDialect() = default;

std::string TDialect::FirstRowOnly(std::string_view Select) const {
  return std::string(Select) + " LIMIT 1";
}

const char* TAdvantageDialect::Name() const {
  return "Advantage";
}

std::string TAdvantageDialect::Rewrite(std::string_view Sql) const {
  return std::string(Sql);
}

std::string TAdvantageDialect::FirstRowOnly(std::string_view Select) const {
  constexpr std::string_view Verb = "SELECT";
  return std::string(Verb) + " TOP 1" + std::string(Select.substr(Verb.size()));
}

}  // namespace ads::sql
