#include "ads/sql/ReadingOnly.h"

#include <algorithm>
#include <array>
#include <string>

#include "ads/EDatabaseError.h"
#include "ads/sql/Statement.h"

namespace ads::sql {

namespace {

// Words with which a statement changes data, the schema, the session or a lock on any of the servers, or (WITH) can be
// made to run without end. Some could only start a statement; they are refused everywhere all the same, because no
// query of the dialogs needs them.
constexpr auto RefusedWords = std::to_array<std::string_view>(
    {"ALTER",      "ATTACH",   "BEGIN",     "CALL",   "CHECKPOINT", "COMMIT",    "COPY",    "CREATE",
     "DEALLOCATE", "DECLARE",  "DELETE",    "DETACH", "DISCARD",    "DO",        "DROP",    "EXEC",
     "EXECUTE",    "FOR",      "GRANT",     "INSERT", "INTO",       "KILL",      "LISTEN",  "LOCK",
     "MERGE",      "NOTIFY",   "OUTFILE",   "PRAGMA", "PREPARE",    "REINDEX",   "RELEASE", "RENAME",
     "REPLACE",    "RESET",    "RETURNING", "REVOKE", "ROLLBACK",   "SAVEPOINT", "SET",     "SHUTDOWN",
     "TRUNCATE",   "UNLISTEN", "UPDATE",    "UPSERT", "VACUUM",     "WITH"});
static_assert(std::is_sorted(RefusedWords.begin(), RefusedWords.end()));

// Functions that act although they stand in a SELECT. A star at the end stands for any rest.
constexpr auto ActingFunctions = std::to_array<std::string_view>(
    {// files, libraries and programs of the server's machine
     "LOAD_EXTENSION", "LOAD_FILE", "READFILE", "WRITEFILE", "EDIT", "FTS3_TOKENIZER", "LO_*", "LOREAD", "LOWRITE",
     "SYS_EXEC", "SYS_EVAL", "XP_*", "SQLITE_LOG",
     // the indexes of a text search
     "OPTIMIZE",
     // the server itself: sessions, locks, backups, files, settings, notifications, waiting
     "PG_*", "SET_CONFIG", "SETSEED", "TXID_*", "GET_LOCK", "RELEASE_LOCK", "RELEASE_ALL_LOCKS", "BENCHMARK", "SLEEP",
     "BINARY_UPGRADE_*", "BRIN_*", "GIN_CLEAN_PENDING_LIST",
     // sequences
     "NEXTVAL", "SETVAL",
     // a text that is run as a statement, here or on another server
     "QUERY_TO_XML*", "CURSOR_TO_XML*", "TABLE_TO_XML*", "SCHEMA_TO_XML*", "DATABASE_TO_XML*", "XPATH_TABLE", "TS_STAT",
     "TS_REWRITE", "CROSSTAB*", "CONNECTBY*", "DBLINK*", "POSTGRES_FDW_*", "OPENQUERY", "OPENROWSET", "OPENDATASOURCE",
     "SP_*"});

bool Matches(std::string_view Name, std::string_view Function) {
  if (!Function.ends_with('*')) return IsSameWord(Name, Function);
  const std::string_view Start = Function.substr(0, Function.size() - 1);
  return IsSameWord(Name.substr(0, Start.size()), Start);
}

bool IsActingFunction(std::string_view Name) {
  return std::any_of(ActingFunctions.begin(), ActingFunctions.end(),
                     [Name](std::string_view Function) { return Matches(Name, Function); });
}

// Where a text stands for a value for certain. SQLite also takes one for a name, wherever a table may stand.
bool IsValue(const TStatement& Statement, std::size_t Position) {
  const TToken& Before = Statement[Position - 1];
  if (Before.Kind != TTokenKind::Symbol) return Before.IsWord("LIKE");
  return !Before.IsSymbol(",") && !Before.IsSymbol("(") && !Before.IsSymbol(".");
}

// SQLite answers its pragmas as tables, too, and one of those (pragma_optimize) writes when it is read.
bool IsPragmaTable(const TStatement& Statement, std::size_t Position) {
  const TToken& Token = Statement[Position];
  switch (Token.Kind) {
    case TTokenKind::Word:
    case TTokenKind::QuotedName:
      return Matches(NameOf(Token), "PRAGMA_*");
    case TTokenKind::Text:
      return Matches(TextOf(Token), "PRAGMA_*") && !IsValue(Statement, Position);
    default:
      return false;
  }
}

void CheckToken(const TStatement& Statement, std::size_t Position) {
  const TToken& Token = Statement[Position];
  if (Token.IsSymbol(";")) Statement.Refuse(Position, "A second statement");
  const bool Bare = Token.Kind == TTokenKind::Word;
  if (Bare && !Statement.IsQualified(Position) && IsOneOf(Token.Source, RefusedWords)) {
    Statement.Refuse(Position, "A query may only read: " + std::string(Token.Source));
  }
  const bool Called = (Bare || Token.Kind == TTokenKind::QuotedName) && Statement.IsSymbol(Position + 1, "(");
  if (Called && IsActingFunction(NameOf(Token))) {
    Statement.Refuse(Position, "A query may only read: the function " + std::string(Token.Source));
  }
  if (IsPragmaTable(Statement, Position)) {
    Statement.Refuse(Position, "A query may only read: the table " + std::string(Token.Source));
  }
}

}  // namespace

void RequireReadingOnly(std::string_view Sql) {
  const TStatement Statement(Sql);
  if (Statement.Count() == 0) throw EDatabaseError("The SQL text is empty.");
  if (!Statement[0].IsWord("SELECT")) Statement.Refuse(0, "A query that does not start with SELECT");
  for (std::size_t Position = 1; Position < Statement.Count(); ++Position) CheckToken(Statement, Position);
}

}  // namespace ads::sql
