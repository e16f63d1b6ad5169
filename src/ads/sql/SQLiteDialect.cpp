#include <algorithm>
#include <array>

#include "ads/sql/Dialect.h"
#include "ads/sql/SQLiteNames.h"

namespace ads::sql {

namespace {

// The words that SQLite takes neither as a column after a point nor as an alias, unless they are quoted. All others
// of its keywords (DESC, END, KEY, …) are free there.
constexpr auto ReservedWords =
    std::to_array<std::string_view>({"ADD",     "ALL",       "ALTER",       "AND",        "AS",        "AUTOINCREMENT",
                                     "BETWEEN", "CASE",      "CHECK",       "COLLATE",    "COMMIT",    "CONSTRAINT",
                                     "CREATE",  "CROSS",     "DEFAULT",     "DEFERRABLE", "DELETE",    "DISTINCT",
                                     "DROP",    "ELSE",      "ESCAPE",      "EXCEPT",     "EXISTS",    "FOREIGN",
                                     "FROM",    "FULL",      "GLOB",        "GROUP",      "HAVING",    "IN",
                                     "INDEX",   "INDEXED",   "INNER",       "INSERT",     "INTERSECT", "INTO",
                                     "IS",      "ISNULL",    "JOIN",        "LEFT",       "LIKE",      "LIMIT",
                                     "MATCH",   "NATURAL",   "NOT",         "NOTHING",    "NOTNULL",   "NULL",
                                     "ON",      "OR",        "ORDER",       "OUTER",      "PRIMARY",   "REFERENCES",
                                     "REGEXP",  "RETURNING", "RIGHT",       "SELECT",     "SET",       "TABLE",
                                     "THEN",    "TO",        "TRANSACTION", "UNION",      "UNIQUE",    "UPDATE",
                                     "USING",   "VALUES",    "WHEN",        "WHERE"});
static_assert(std::is_sorted(ReservedWords.begin(), ReservedWords.end()));

// Brackets, because SQLite takes an unknown name in double quotes for a text. A name that holds the closing bracket
// has no spelling in brackets and goes between backticks.
std::string Quoted(const std::string& Name) {
  if (Name.find(']') == std::string::npos) return '[' + Name + ']';
  std::string Result = "`";
  for (char Byte : Name) Result.append(Byte == '`' ? 2 : 1, Byte);
  return Result + '`';
}

void RewriteNames(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    const TToken& Token = Statement[Position];
    const bool InDoubleQuotes = Token.Source.starts_with('"');
    const bool Reserved =
        Token.Kind == TTokenKind::Word && Statement.IsQualified(Position) && IsOneOf(Token.Source, ReservedWords);
    if (InDoubleQuotes || Reserved) Rewriter.Replace(Position, Quoted(NameOf(Token)));
  }
}

void RewriteAliases(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (const auto& List : Statement.SelectLists()) {
    for (const auto& Item : List.Items) {
      if (Item.Alias == TStatement::None || Statement[Item.Alias].Kind != TTokenKind::Word) continue;
      const std::string_view Alias = Statement[Item.Alias].Source;
      if (IsOneOf(Alias, ReservedWords)) Rewriter.Replace(Item.Alias, Quoted(std::string(Alias)));
    }
  }
}

void RewriteUpper(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (Statement.IsCall(Position, "UPPER")) Rewriter.Replace(Position, "zul_upper");
  }
}

// SQLite's own LIKE folds the case of ASCII letters, or not, by a switch of the host's connection.
void RewriteLikes(TRewriter& Rewriter) {
  for (const auto& Like : Rewriter.Statement().Likes()) {
    Rewriter.InsertBefore(Like.Text.First, Like.Not == TStatement::None ? "zul_like(" : "NOT zul_like(");
    if (Like.Not != TStatement::None) Rewriter.Remove(Like.Not);
    Rewriter.RemoveBlanksBefore(Like.Like);
    Rewriter.Replace(Like.Like, ",");
    Rewriter.InsertAfter(Like.Pattern.Last, ")");
  }
}

}  // namespace

void RewriteSQLiteNames(TRewriter& Rewriter) {
  RewriteNames(Rewriter);
  RewriteAliases(Rewriter);
}

const char* TSQLiteDialect::Name() const {
  return "SQLite";
}

std::string TSQLiteDialect::Rewrite(std::string_view Sql) const {
  TRewriter Rewriter(Sql);
  RewriteSQLiteNames(Rewriter);
  RewriteUpper(Rewriter);
  Rewriter.JoinTexts();
  RewriteLikes(Rewriter);
  return Rewriter.Text();
}

}  // namespace ads::sql
