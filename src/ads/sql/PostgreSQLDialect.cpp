#include <algorithm>
#include <vector>

#include "ads/sql/Dialect.h"
#include "ads/sql/Rewriter.h"
#include "zulcommon/Ascii.h"

namespace ads::sql {

namespace {

// Names are created without quotes, so the server keeps them in lower case.
std::string Quoted(const std::string& Name) {
  std::string Result = "\"";
  for (char Byte : Name) {
    if (Byte == '"') Result += '"';
    Result += zulcommon::LowerAscii(Byte);
  }
  return Result + '"';
}

// Whether a backslash in '…' means itself is a setting of the session; in E'…' a doubled one always does.
std::string WithBackslashesDoubled(std::string_view Text) {
  std::string Result = "E";
  for (char Byte : Text) Result.append(Byte == '\\' ? 2 : 1, Byte);
  return Result;
}

void RewriteNamesAndTexts(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    const TToken& Token = Statement[Position];
    if (Token.Kind == TTokenKind::QuotedName) Rewriter.Replace(Position, Quoted(NameOf(Token)));
    if (Token.Kind == TTokenKind::Text && Token.Source.find('\\') != Token.Source.npos) {
      Rewriter.Replace(Position, WithBackslashesDoubled(Token.Source));
    }
  }
}

// The words that the server takes as an alias only after AS differ between its releases; after AS it takes any.
void RewriteAliases(TRewriter& Rewriter) {
  for (const auto& List : Rewriter.Statement().SelectLists()) {
    for (const auto& Item : List.Items) {
      if (Item.AliasWithoutAs) Rewriter.InsertBefore(Item.Alias, "AS ");
    }
  }
}

// The database's own locale may not know letters beyond ASCII; the ICU collation knows them all. The cast lets UPPER
// take what is no text, too, and gives a text to a bare ''.
void RewriteUpper(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (!Statement.IsCall(Position, "UPPER") || Statement.Arguments(Position).size() != 1) continue;
    Rewriter.InsertAfter(Position + 1, "CAST(");
    Rewriter.InsertBefore(Statement.Partner(Position + 1), " AS text) COLLATE \"und-x-icu\"");
  }
}

void RewriteIif(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (!Statement.IsCall(Position, "IIF")) continue;
    const auto Arguments = Statement.Arguments(Position);
    const auto IsLeftOut = [](TStatement::TRange Argument) { return Argument.First == TStatement::None; };
    if (Arguments.size() != 3 || std::any_of(Arguments.begin(), Arguments.end(), IsLeftOut)) continue;
    Rewriter.Replace(Position, "CASE WHEN");
    Rewriter.Replace(Position + 1, " ");
    Rewriter.RemoveBlanksBefore(Position + 1);
    Rewriter.Replace(Arguments[0].Last + 1, " THEN");
    Rewriter.Replace(Arguments[1].Last + 1, " ELSE");
    Rewriter.Replace(Statement.Partner(Position + 1), " END");
  }
}

// Without an escape character nothing but % and _ is special in a pattern.
void RewriteLikes(TRewriter& Rewriter) {
  for (const auto& Like : Rewriter.Statement().Likes()) Rewriter.InsertAfter(Like.Pattern.Last, " ESCAPE ''");
}

// Sorts an expression by the code of its characters, if it is a text.
void CollateByCode(TRewriter& Rewriter, TStatement::TRange Expression) {
  const TStatement& Statement = Rewriter.Statement();
  if (!Statement.IsText(Expression)) return;
  const bool Single = Statement.OperandEnd(Expression.First) == Expression.Last;
  if (!Single) Rewriter.InsertBefore(Expression.First, "(");
  Rewriter.InsertAfter(Expression.Last, Single ? " COLLATE \"C\"" : ") COLLATE \"C\"");
}

using TSelectLists = std::vector<TStatement::TList<TStatement::TSelectItem>>;

// The column of a query's first part that has a name, or None.
std::size_t ColumnNamed(const TStatement& Statement, const std::vector<TStatement::TSelectItem>& Columns,
                        const TToken& Name) {
  for (std::size_t Column = 0; Column < Columns.size(); ++Column) {
    const std::size_t Alias = Columns[Column].Alias;
    if (Alias != TStatement::None && Quoted(NameOf(Statement[Alias])) == Quoted(NameOf(Name))) return Column;
  }
  return TStatement::None;
}

// The server takes no COLLATE after an output name, so the column behind the name gets it, in each part of a UNION.
void CollateSorted(TRewriter& Rewriter, const TSelectLists& Parts, TStatement::TRange Sorted) {
  const TStatement& Statement = Rewriter.Statement();
  const bool IsName = Sorted.First == Sorted.Last && Statement.IsName(Sorted.First);
  const std::size_t Column = IsName && !Parts.empty()
                                 ? ColumnNamed(Statement, Parts.front().Items, Statement[Sorted.First])
                                 : TStatement::None;
  if (Column == TStatement::None) return CollateByCode(Rewriter, Sorted);
  for (const auto& Part : Parts) {
    if (Column < Part.Items.size()) CollateByCode(Rewriter, Part.Items[Column].Expression);
  }
}

// Nulls before values, and after them in a descending order.
void RewriteSorting(TRewriter& Rewriter) {
  for (const auto& Order : Rewriter.Statement().SortLists()) {
    TSelectLists Parts = Rewriter.Statement().SelectLists();
    std::erase_if(Parts, [&Order](const auto& List) { return List.Within != Order.Within; });
    for (const auto& Item : Order.Items) {
      CollateSorted(Rewriter, Parts, Item.Expression);
      if (!Item.SaysNulls) Rewriter.InsertAfter(Item.Last, Item.Descending ? " NULLS LAST" : " NULLS FIRST");
    }
  }
}

}  // namespace

const char* TPostgreSQLDialect::Name() const {
  return "PostgreSQL";
}

std::string TPostgreSQLDialect::Rewrite(std::string_view Sql) const {
  TRewriter Rewriter(Sql);
  RewriteNamesAndTexts(Rewriter);
  RewriteIif(Rewriter);
  RewriteUpper(Rewriter);
  Rewriter.JoinTexts();
  RewriteLikes(Rewriter);
  RewriteSorting(Rewriter);
  RewriteAliases(Rewriter);
  return Rewriter.Text();
}

}  // namespace ads::sql
