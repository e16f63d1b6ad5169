#include "ads/sql/Dialect.h"

#include <cstddef>

#include "ads/sql/Lexer.h"
#include "ads/sql/SQLError.h"

namespace ads::sql {

TDialect::~TDialect() = default;

void TDialect::RequireUnambiguous(std::string_view) const {}

std::string TDialect::FirstRowOnly(std::string_view Select) const {
  return std::string(Select) + " LIMIT 1";
}

std::string TDialect::FirstRows(std::string_view Rewritten, int Count) const {
  return std::string(Rewritten) + "\nLIMIT " + std::to_string(Count);
}

const char* TAdvantageDialect::Name() const {
  return "Advantage";
}

std::string TAdvantageDialect::Rewrite(std::string_view Sql) const {
  return std::string(Sql);
}

void TAdvantageDialect::RequireUnambiguous(std::string_view Sql) const {
  for (const TToken& Token : Tokenize(Sql)) {
    if (Token.Kind != TTokenKind::Text && Token.Kind != TTokenKind::QuotedName) continue;
    for (const std::string_view Escaped : {"\\'", "\\\"", "\\]"}) {
      const std::size_t At = Token.Source.find(Escaped);
      if (At == Token.Source.npos) continue;
      RaiseAt(Sql, static_cast<std::size_t>(Token.Source.data() - Sql.data()) + At, "A backslash before a quote");
    }
  }
}

std::string TAdvantageDialect::FirstRowOnly(std::string_view Select) const {
  constexpr std::string_view Verb = "SELECT";
  return std::string(Verb) + " TOP 1" + std::string(Select.substr(Verb.size()));
}

std::string TAdvantageDialect::FirstRows(std::string_view, int) const {
  return {};
}

}  // namespace ads::sql
