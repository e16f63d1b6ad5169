#include "ads/sql/ReadingOnly.h"

#include <cstddef>
#include <vector>

#include "ads/EDatabaseError.h"
#include "ads/sql/QueryGrammar.h"
#include "ads/sql/SQLError.h"
#include "ads/sql/Statement.h"

namespace ads::sql {

namespace {

bool IsSign(const TToken& Token) {
  return Token.IsSymbol("+") || Token.IsSymbol("-");
}

// The tokens that make a shape: no white space, and no sign of a number, which is known by the operator before it.
std::vector<TToken> ShapeOf(std::string_view Sql) {
  std::vector<TToken> Shape;
  for (const TToken& Token : Tokenize(Sql)) {
    if (Token.Kind == TTokenKind::Blank && !Token.IsComment()) continue;
    const std::size_t Count = Shape.size();
    const bool IsSigned = Token.Kind == TTokenKind::Number && Count >= 2 && IsSign(Shape[Count - 1]) &&
                          Shape[Count - 2].Kind == TTokenKind::Symbol && !Shape[Count - 2].IsSymbol(")");
    if (IsSigned) Shape.pop_back();
    Shape.push_back(Token);
  }
  return Shape;
}

bool IsAlike(const TToken& Token, const TToken& Pattern) {
  if (Token.Kind != Pattern.Kind) return false;
  const bool IsValue = Token.Kind == TTokenKind::Text || Token.Kind == TTokenKind::Number;
  return IsValue || Token.Source == Pattern.Source;
}

}  // namespace

void RequireReadingOnly(std::string_view Sql, std::span<const std::string> AllowedFunctions) {
  const TStatement Statement(Sql);
  if (Statement.Count() == 0) throw EDatabaseError("The SQL text is empty.");
  if (!Statement[0].IsWord("SELECT")) Statement.Refuse(0, "A query that does not start with SELECT");
  TQueryGrammar(Statement, AllowedFunctions).Check();
}

void RequireShape(std::string_view Sql, std::string_view Pattern) {
  constexpr char Changed[] = "A value that would change the query";
  const std::vector<TToken> Shape = ShapeOf(Sql);
  const std::vector<TToken> Wanted = ShapeOf(Pattern);
  for (std::size_t Index = 0; Index < Shape.size(); ++Index) {
    if (Index < Wanted.size() && IsAlike(Shape[Index], Wanted[Index])) continue;
    RaiseAt(Sql, static_cast<std::size_t>(Shape[Index].Source.data() - Sql.data()), Changed);
  }
  if (Shape.size() < Wanted.size()) RaiseAt(Sql, Sql.size(), Changed);
}

}  // namespace ads::sql
