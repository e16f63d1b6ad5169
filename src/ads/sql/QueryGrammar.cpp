#include "ads/sql/QueryGrammar.h"

#include <algorithm>
#include <array>

#include "zulcommon/Text.h"

namespace ads::sql {

namespace {

// The functions of the dialogs' queries, and two more that ask for no more than those do.
constexpr auto Functions =
    std::to_array<std::string_view>({"COALESCE", "COUNT", "IIF", "SUBSTRING", "SUM", "TRIM", "UPPER"});
static_assert(std::is_sorted(Functions.begin(), Functions.end()));

// Words of the language, which are no names unless they are quoted or stand behind a point.
constexpr auto Keywords = std::to_array<std::string_view>(
    {"ALL",  "AND",  "AS",    "BETWEEN", "BY",    "CASE",  "CROSS",  "DISTINCT", "ELSE",  "END",  "EXISTS",
     "FROM", "FULL", "GROUP", "HAVING",  "IN",    "INNER", "IS",     "JOIN",     "LEFT",  "LIKE", "LIMIT",
     "NOT",  "ON",   "OR",    "ORDER",   "OUTER", "RIGHT", "SELECT", "THEN",     "UNION", "WHEN", "WHERE"});
static_assert(std::is_sorted(Keywords.begin(), Keywords.end()));

// Functions without parentheses, on any of the servers.
constexpr auto BareFunctions = std::to_array<std::string_view>(
    {"CURRENT", "CURRENT_CATALOG", "CURRENT_DATE", "CURRENT_PATH", "CURRENT_ROLE", "CURRENT_SCHEMA", "CURRENT_TIME",
     "CURRENT_TIMESTAMP", "CURRENT_USER", "LOCALTIME", "LOCALTIMESTAMP", "SESSION_USER", "SYSDATE", "SYSTEM_USER",
     "SYSTIMESTAMP", "USER", "UTC_DATE", "UTC_TIME", "UTC_TIMESTAMP"});
static_assert(std::is_sorted(BareFunctions.begin(), BareFunctions.end()));

// Words that begin what is not in the language: other statements, what a statement does besides reading, other clauses,
// operators and tables. As names they must be quoted, or stand behind a point.
constexpr auto OtherWords = std::to_array<std::string_view>(
    {"ALTER",      "ANALYZE",   "ANY",    "ARRAY",    "AT",          "ATTACH",     "BEGIN",    "CALL",
     "CHECKPOINT", "COLLATE",   "COMMIT", "COPY",     "CREATE",      "DEALLOCATE", "DECLARE",  "DELETE",
     "DETACH",     "DISCARD",   "DO",     "DROP",     "ESCAPE",      "EXCEPT",     "EXEC",     "EXECUTE",
     "EXPLAIN",    "FETCH",     "FOR",    "GLOB",     "GRANT",       "HANDLER",    "ILIKE",    "INSERT",
     "INTERSECT",  "INTO",      "KILL",   "LATERAL",  "LISTEN",      "LOCK",       "MATCH",    "MERGE",
     "NATURAL",    "NOTIFY",    "OFFSET", "ONLY",     "OPERATOR",    "OUTFILE",    "PRAGMA",   "PREPARE",
     "PROCEDURE",  "RECURSIVE", "REGEXP", "REINDEX",  "RELEASE",     "RENAME",     "REPLACE",  "RESET",
     "RETURNING",  "REVOKE",    "RLIKE",  "ROLLBACK", "ROW",         "SAVEPOINT",  "SET",      "SHOW",
     "SHUTDOWN",   "SIMILAR",   "SOME",   "TABLE",    "TABLESAMPLE", "TRUNCATE",   "UNLISTEN", "UPDATE",
     "UPSERT",     "USING",     "VACUUM", "VALUES",   "WINDOW",      "WITH",       "WITHIN"});
static_assert(std::is_sorted(OtherWords.begin(), OtherWords.end()));

// Tables of the servers' own: what all of such a schema, or with such a beginning, belongs to the server.
constexpr auto OwnSchemas =
    std::to_array<std::string_view>({"INFORMATION_SCHEMA", "MYSQL", "PERFORMANCE_SCHEMA", "SYS", "SYSTEM"});
constexpr auto OwnTables = std::to_array<std::string_view>({"PG_", "PRAGMA_", "SQLITE_"});
// Tables that SQLite computes when they are read, by names without a beginning of their own.
constexpr auto ComputedTables = std::to_array<std::string_view>(
    {"BYTECODE", "DBSTAT", "FSDIR", "GENERATE_SERIES", "JSON_EACH", "JSON_TREE", "TABLES_USED"});

constexpr auto Operators =
    std::to_array<std::string_view>({"+", "-", "*", "/", "%", "||", "=", "<>", "!=", "<", ">", "<=", ">="});

// A longer text is not repeated in a message.
constexpr std::size_t Shown = 60;

bool IsServersOwn(std::string_view Name, bool Qualifies) {
  const auto IsName = [Name](std::string_view Upper) { return IsSameWord(Name, Upper); };
  const auto IsBeginning = [Name](std::string_view Upper) { return IsSameWord(Name.substr(0, Upper.size()), Upper); };
  if (std::any_of(OwnTables.begin(), OwnTables.end(), IsBeginning)) return true;
  if (Qualifies) return std::any_of(OwnSchemas.begin(), OwnSchemas.end(), IsName);
  return std::any_of(ComputedTables.begin(), ComputedTables.end(), IsName);
}

}  // namespace

TQueryGrammar::TQueryGrammar(const TStatement& Statement, std::span<const std::string> AllowedFunctions)
    : Statement_(Statement), AllowedFunctions_(AllowedFunctions) {}

void TQueryGrammar::Check() {
  Query();
  if (At_ < Statement_.Count()) Refuse();
}

void TQueryGrammar::Refuse(const std::string& What) const {
  if (At_ >= Statement_.Count()) Statement_.Refuse(Statement_.Count() - 1, "A query that is not complete");
  if (LooksAt(";")) Statement_.Refuse(At_, "A second statement");
  const std::string_view Source = Statement_[At_].Source;
  Statement_.Refuse(At_, "A query may only read: " + What + (Source.size() > Shown ? "a text" : std::string(Source)));
}

void TQueryGrammar::RefuseTable() const {
  Refuse("the table ");
}

bool TQueryGrammar::LooksAtName() const {
  if (At_ >= Statement_.Count()) return false;
  const TToken& Token = Statement_[At_];
  if (Token.Kind != TTokenKind::Word) return Token.Kind == TTokenKind::QuotedName;
  if (Statement_.IsQualified(At_)) return true;
  return !IsOneOf(Token.Source, Keywords) && !IsOneOf(Token.Source, OtherWords) &&
         !IsOneOf(Token.Source, BareFunctions);
}

bool TQueryGrammar::LooksAtQuery() const {
  std::size_t Inside = At_;
  while (Statement_.IsSymbol(Inside, "(")) ++Inside;
  return Statement_.IsKeyword(Inside, "SELECT");
}

bool TQueryGrammar::Take(std::string_view Symbol) {
  if (!LooksAt(Symbol)) return false;
  ++At_;
  return true;
}

bool TQueryGrammar::TakeWord(std::string_view Upper) {
  if (!LooksAtWord(Upper)) return false;
  ++At_;
  return true;
}

void TQueryGrammar::Require(std::string_view Symbol) {
  if (!Take(Symbol)) Refuse();
}

void TQueryGrammar::RequireWord(std::string_view Upper) {
  if (!TakeWord(Upper)) Refuse();
}

void TQueryGrammar::RequireNumber() {
  if (At_ >= Statement_.Count() || Statement_[At_].Kind != TTokenKind::Number) Refuse();
  ++At_;
}

void TQueryGrammar::Query() {
  Select();
  while (TakeWord("UNION")) {
    TakeWord("ALL");
    Select();
  }
  if (TakeWord("ORDER")) {
    RequireWord("BY");
    SortItems();
  }
  if (TakeWord("LIMIT")) RequireNumber();
}

void TQueryGrammar::Select() {
  RequireWord("SELECT");
  if (!TakeWord("DISTINCT")) TakeWord("ALL");
  if (LooksAtWord("TOP") && At_ + 1 < Statement_.Count() && Statement_[At_ + 1].Kind == TTokenKind::Number) At_ += 2;
  do SelectItem();
  while (Take(","));
  if (TakeWord("FROM")) Tables();
  // A condition without WHERE is for the server to refuse: some of the dialogs' queries have one.
  if (TakeWord("WHERE") || TakeWord("AND")) Expression();
  if (TakeWord("GROUP")) {
    RequireWord("BY");
    ExpressionList();
  }
  if (TakeWord("HAVING")) Expression();
}

void TQueryGrammar::SelectItem() {
  if (Take("*")) return;
  Expression();
  ColumnAlias();
}

void TQueryGrammar::Tables() {
  do JoinedTables();
  while (Take(","));
}

void TQueryGrammar::JoinedTables() {
  Table();
  while (TakeJoin()) {
    Table();
    if (TakeWord("ON")) Expression();
  }
}

bool TQueryGrammar::TakeJoin() {
  if (TakeWord("INNER") || TakeWord("CROSS")) {
    RequireWord("JOIN");
    return true;
  }
  if (TakeWord("LEFT") || TakeWord("RIGHT") || TakeWord("FULL")) {
    TakeWord("OUTER");
    RequireWord("JOIN");
    return true;
  }
  return TakeWord("JOIN");
}

void TQueryGrammar::Table() {
  if (!Take("(")) {
    TableName();
  } else {
    if (LooksAtWord("SELECT")) {
      Query();
    } else {
      JoinedTables();
    }
    Require(")");
  }
  Alias();
}

void TQueryGrammar::TableName() {
  if (Statement_.IsSymbol(At_ + 1, "(") && IsAllowedByHost(Statement_[At_])) return Call();
  do {
    if (!LooksAtName()) RefuseTable();
    if (IsServersOwn(NameOf(Statement_[At_]), Statement_.IsSymbol(At_ + 1, "."))) RefuseTable();
    if (Statement_.IsSymbol(At_ + 1, "(")) Refuse("the function ");
    ++At_;
  } while (Take("."));
}

void TQueryGrammar::Alias() {
  const bool Announced = TakeWord("AS");
  if (LooksAtName()) {
    if (Statement_.IsSymbol(At_ + 1, "(")) Refuse("the function ");
    ++At_;
  } else if (Announced) {
    Refuse();
  }
}

// Any word may name a column where the name ends the item.
void TQueryGrammar::ColumnAlias() {
  TakeWord("AS");
  const bool IsWord = At_ < Statement_.Count() && Statement_[At_].Kind == TTokenKind::Word;
  const bool IsLast = At_ + 1 == Statement_.Count() || Statement_.IsSymbol(At_ + 1, ",") ||
                      Statement_.IsSymbol(At_ + 1, ")") || Statement_.IsKeyword(At_ + 1, "FROM");
  if (IsWord && IsLast && !LooksAtWord("FROM")) {
    ++At_;
  } else {
    Alias();
  }
}

void TQueryGrammar::SortItems() {
  do {
    Expression();
    if (!TakeWord("ASC")) TakeWord("DESC");
  } while (Take(","));
}

void TQueryGrammar::ExpressionList() {
  do Expression();
  while (Take(","));
}

// No order of precedence: the server knows it, and every order has the same parts.
void TQueryGrammar::Expression() {
  do Operand();
  while (TakeOperator());
}

bool TQueryGrammar::TakeOperator() {
  if (TakeWord("AND") || TakeWord("OR") || TakeWord("IS") || TakeNegatable()) return true;
  if (LooksAtWord("NOT")) {
    ++At_;
    if (!TakeNegatable()) Refuse();
    return true;
  }
  const auto Is = [this](std::string_view Operator) { return LooksAt(Operator); };
  if (std::none_of(Operators.begin(), Operators.end(), Is)) return false;
  // A sign that touches one of these belongs to an operator of another name on PostgreSQL.
  const bool Swallows = LooksAt("%") || LooksAt("||") || LooksAt("!=");
  if (Swallows && TouchesNext() && (Statement_.IsSymbol(At_ + 1, "+") || Statement_.IsSymbol(At_ + 1, "-"))) Refuse();
  ++At_;
  return true;
}

bool TQueryGrammar::TakeNegatable() {
  if (TakeWord("LIKE") || TakeWord("BETWEEN")) return true;
  if (!TakeWord("IN")) return false;
  if (!LooksAt("(")) RefuseTable();  // SQLite reads a table there
  return true;
}

bool TQueryGrammar::TouchesNext() const {
  return Statement_.BlanksBefore(At_ + 1).empty();
}

void TQueryGrammar::Operand() {
  while (TakeWord("NOT") || Take("-") || Take("+")) continue;
  if (TakeWord("EXISTS") && !LooksAtQuery()) Refuse();
  if (LooksAt("(")) return Parenthesis();
  if (LooksAtWord("CASE")) return Case();
  if (At_ >= Statement_.Count()) Refuse();
  const TTokenKind Kind = Statement_[At_].Kind;
  if (Kind == TTokenKind::Text) {
    ++At_;
    return;
  }
  if (Kind == TTokenKind::Number) {  // two of them are for the server to refuse
    while (At_ < Statement_.Count() && Statement_[At_].Kind == TTokenKind::Number) ++At_;
    return;
  }
  ColumnOrCall();
}

void TQueryGrammar::Parenthesis() {
  const bool IsList = At_ > 0 && Statement_.IsKeyword(At_ - 1, "IN");
  Require("(");
  if (LooksAtWord("SELECT")) {
    Query();
  } else if (IsList) {
    ExpressionList();
  } else {
    Expression();
  }
  Require(")");
}

void TQueryGrammar::Case() {
  RequireWord("CASE");
  if (!LooksAtWord("WHEN")) Expression();
  while (TakeWord("WHEN")) {
    Expression();
    RequireWord("THEN");
    Expression();
  }
  if (TakeWord("ELSE")) Expression();
  RequireWord("END");
}

void TQueryGrammar::ColumnOrCall() {
  const TToken& First = Statement_[At_];
  const bool Called = Statement_.IsSymbol(At_ + 1, "(");
  if (Called && (First.Kind == TTokenKind::QuotedName || First.Kind == TTokenKind::Word)) {
    if (!IsAllowedFunction(First)) Refuse("the function ");
    return Call();
  }
  if (!LooksAtName()) Refuse(IsOneOf(First.Source, BareFunctions) ? "the function " : "");
  ++At_;
  while (Take(".")) {
    if (Take("*")) return;
    if (!LooksAtName()) Refuse();
    if (Statement_.IsSymbol(At_ + 1, "(")) Refuse("the function ");
    ++At_;
  }
}

// From the function's name to its closing parenthesis.
void TQueryGrammar::Call() {
  const bool IsCast = LooksAtWord("CAST");
  At_ += 2;
  if (Take(")")) return;
  if (Take("*")) return Require(")");
  TakeWord("DISTINCT");
  ExpressionList();
  if (IsCast) TypeName();
  Require(")");
}

// AS type, with its measures or without.
void TQueryGrammar::TypeName() {
  RequireWord("AS");
  do {
    if (!LooksAtName()) Refuse();
    ++At_;
  } while (LooksAtName());
  if (!Take("(")) return;
  do RequireNumber();
  while (Take(","));
  Require(")");
}

bool TQueryGrammar::IsAllowedFunction(const TToken& Name) const {
  return (Name.Kind == TTokenKind::Word && IsOneOf(Name.Source, Functions)) || IsAllowedByHost(Name);
}

bool TQueryGrammar::IsAllowedByHost(const TToken& Name) const {
  if (Name.Kind != TTokenKind::Word) return false;
  return std::any_of(AllowedFunctions_.begin(), AllowedFunctions_.end(),
                     [&Name](const std::string& Allowed) { return zulcommon::SameText(Name.Source, Allowed); });
}

}  // namespace ads::sql
