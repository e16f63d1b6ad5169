#include <QChar>
#include <QString>
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "ads/sql/Dialect.h"
#include "ads/sql/Rewriter.h"
#include "zulcommon/Ascii.h"
#include "zulcommon/Text.h"

namespace ads::sql {

namespace {

using TRange = TStatement::TRange;

// The words that the server, in any of its modes, takes for no name unless they are quoted, and that are no words of
// the dialogs' language. Behind a point every word is a name.
constexpr auto ReservedWords = std::to_array<std::string_view>({"ACCESSIBLE",
                                                                "ADD",
                                                                "ASENSITIVE",
                                                                "BEFORE",
                                                                "BIGINT",
                                                                "BINARY",
                                                                "BLOB",
                                                                "BODY",
                                                                "BOTH",
                                                                "CASCADE",
                                                                "CHANGE",
                                                                "CHAR",
                                                                "CHARACTER",
                                                                "CHECK",
                                                                "COLUMN",
                                                                "CONDITION",
                                                                "CONSTRAINT",
                                                                "CONTINUE",
                                                                "CONVERT",
                                                                "CURSOR",
                                                                "DATABASES",
                                                                "DAY_HOUR",
                                                                "DAY_MICROSECOND",
                                                                "DAY_MINUTE",
                                                                "DAY_SECOND",
                                                                "DEC",
                                                                "DECIMAL",
                                                                "DEFAULT",
                                                                "DELAYED",
                                                                "DELETE_DOMAIN_ID",
                                                                "DESCRIBE",
                                                                "DETERMINISTIC",
                                                                "DISTINCTROW",
                                                                "DIV",
                                                                "DOUBLE",
                                                                "DO_DOMAIN_IDS",
                                                                "EACH",
                                                                "ELSEIF",
                                                                "ELSIF",
                                                                "ENCLOSED",
                                                                "ESCAPED",
                                                                "EXIT",
                                                                "FLOAT",
                                                                "FLOAT4",
                                                                "FLOAT8",
                                                                "FORCE",
                                                                "FOREIGN",
                                                                "FULLTEXT",
                                                                "GOTO",
                                                                "HIGH_PRIORITY",
                                                                "HOUR_MICROSECOND",
                                                                "HOUR_MINUTE",
                                                                "HOUR_SECOND",
                                                                "IF",
                                                                "IGNORE",
                                                                "IGNORE_DOMAIN_IDS",
                                                                "INDEX",
                                                                "INFILE",
                                                                "INOUT",
                                                                "INSENSITIVE",
                                                                "INT",
                                                                "INT1",
                                                                "INT2",
                                                                "INT3",
                                                                "INT4",
                                                                "INT8",
                                                                "INTEGER",
                                                                "INTERVAL",
                                                                "ITERATE",
                                                                "KEY",
                                                                "KEYS",
                                                                "LEADING",
                                                                "LEAVE",
                                                                "LINEAR",
                                                                "LINES",
                                                                "LOAD",
                                                                "LONG",
                                                                "LONGBLOB",
                                                                "LONGTEXT",
                                                                "LOOP",
                                                                "LOW_PRIORITY",
                                                                "MASTER_DEMOTE_TO_REPLICA",
                                                                "MASTER_DEMOTE_TO_SLAVE",
                                                                "MASTER_SSL_VERIFY_SERVER_CERT",
                                                                "MAXVALUE",
                                                                "MEDIUMBLOB",
                                                                "MEDIUMINT",
                                                                "MEDIUMTEXT",
                                                                "MIDDLEINT",
                                                                "MINUS",
                                                                "MINUTE_MICROSECOND",
                                                                "MINUTE_SECOND",
                                                                "MOD",
                                                                "MODIFIES",
                                                                "NO_WRITE_TO_BINLOG",
                                                                "NUMERIC",
                                                                "OPTIMIZE",
                                                                "OPTIONALLY",
                                                                "OTHERS",
                                                                "OUT",
                                                                "OVER",
                                                                "PACKAGE",
                                                                "PAGE_CHECKSUM",
                                                                "PARSE_VCOL_EXPR",
                                                                "PARTITION",
                                                                "PORTION",
                                                                "PRECISION",
                                                                "PRIMARY",
                                                                "PURGE",
                                                                "RAISE",
                                                                "RANGE",
                                                                "READ",
                                                                "READS",
                                                                "READ_WRITE",
                                                                "REAL",
                                                                "REFERENCES",
                                                                "REF_SYSTEM_ID",
                                                                "REPEAT",
                                                                "REQUIRE",
                                                                "RESIGNAL",
                                                                "RESTRICT",
                                                                "RETURN",
                                                                "ROWNUM",
                                                                "ROWS",
                                                                "ROWTYPE",
                                                                "ROW_NUMBER",
                                                                "SCHEMAS",
                                                                "SECOND_MICROSECOND",
                                                                "SENSITIVE",
                                                                "SEPARATOR",
                                                                "SIGNAL",
                                                                "SMALLINT",
                                                                "SPATIAL",
                                                                "SPECIFIC",
                                                                "SQL",
                                                                "SQLEXCEPTION",
                                                                "SQLSTATE",
                                                                "SQLWARNING",
                                                                "SQL_BIG_RESULT",
                                                                "SQL_BUFFER_RESULT",
                                                                "SQL_CACHE",
                                                                "SQL_CALC_FOUND_ROWS",
                                                                "SQL_NO_CACHE",
                                                                "SQL_SMALL_RESULT",
                                                                "SSL",
                                                                "STARTING",
                                                                "STATS_AUTO_RECALC",
                                                                "STATS_PERSISTENT",
                                                                "STATS_SAMPLE_PAGES",
                                                                "STRAIGHT_JOIN",
                                                                "TERMINATED",
                                                                "TINYBLOB",
                                                                "TINYINT",
                                                                "TINYTEXT",
                                                                "TO",
                                                                "TRAILING",
                                                                "TRIGGER",
                                                                "UNDO",
                                                                "UNIQUE",
                                                                "UNLOCK",
                                                                "UNSIGNED",
                                                                "USAGE",
                                                                "USE",
                                                                "VARBINARY",
                                                                "VARCHAR",
                                                                "VARCHARACTER",
                                                                "VARYING",
                                                                "WHILE",
                                                                "WRITE",
                                                                "XOR",
                                                                "YEAR_MONTH",
                                                                "ZEROFILL"});
static_assert(std::is_sorted(ReservedWords.begin(), ReservedWords.end()));

// What a sequence is asked for in one of the server's modes, in the notation of a column.
constexpr auto SequenceWords = std::to_array<std::string_view>({"CURRVAL", "LASTVAL", "NEXTVAL"});

// Whatever the session's own character set and collation are, texts are compared and sorted by the code of their
// characters in this one, where blanks at the end count too.
constexpr std::string_view InUnicode = " USING utf8mb4)";
constexpr std::string_view ByCode = " COLLATE utf8mb4_nopad_bin";
constexpr std::string_view WithUnicodeCases = " COLLATE utf8mb4_uca1400_ai_ci";

std::string Lower(std::string_view Name) {
  std::string Result;
  for (const char Byte : Name) Result += zulcommon::LowerAscii(Byte);
  return Result;
}

// In backticks, which quote a name in every mode of the server.
std::string Quoted(std::string_view Name) {
  std::string Result = "`";
  for (const char Byte : Name) Result.append(Byte == '`' ? 2 : 1, Byte);
  return Result + '`';
}

// A text as its bytes, which no mode and no character set of the session reads in another way.
std::string AsBytes(std::string_view Text) {
  constexpr char Digits[] = "0123456789ABCDEF";
  std::string Result = "_utf8mb4 X'";
  for (const char Byte : Text) {
    const auto Value = static_cast<unsigned char>(Byte);
    Result += {Digits[Value >> 4], Digits[Value & 15]};
  }
  return Result + '\'';
}

// Whether a text can stand in quotes: it is not empty, which is NULL in one of the modes, and its characters are the
// same in all character sets. A backslash is none of them, nor are those that national variants of ASCII replace.
bool IsPlain(std::string_view Text) {
  constexpr std::string_view Signs = " !\"%&'()*+,-./:;<=>?_";
  const auto IsPlainByte = [Signs](char Byte) {
    const char Letter = zulcommon::UpperAscii(Byte);
    return (Letter >= 'A' && Letter <= 'Z') || (Byte >= '0' && Byte <= '9') || Signs.find(Byte) != Signs.npos;
  };
  return !Text.empty() && std::all_of(Text.begin(), Text.end(), IsPlainByte);
}

// Tables and their aliases, which the server may keep apart by the case of their letters: marked by position.
class TTableNames {
 public:
  explicit TTableNames(const TStatement& Statement) : Statement_(Statement), Marks_(Statement.Count()) { Scan(0); }

  bool operator[](std::size_t Position) const { return Marks_[Position]; }

 private:
  // Goes through one level of parentheses, and from there through those within it.
  std::size_t Scan(std::size_t At, bool InFrom = false) {
    bool TableNext = InFrom;
    while (At < Statement_.Count() && !Statement_.IsSymbol(At, ")")) {
      if (Statement_.IsSymbol(At, "(")) {
        At = Scan(At + 1, TableNext && !Statement_.IsKeyword(At + 1, "SELECT")) + 1;
        if (TableNext) At = TakeAlias(At);
        TableNext = false;
        continue;
      }
      if (TableNext && Statement_.IsName(At) && !Statement_.IsSymbol(At + 1, "(")) {
        At = TakeAlias(TakeName(At));
        TableNext = false;
        continue;
      }
      if (TableNext && Statement_.IsName(At)) {  // a call that gives a table
        At = TakeAlias(Scan(At + 2) + 1);
        TableNext = false;
        continue;
      }
      if (Statement_.IsKeyword(At, "FROM")) InFrom = true;
      if (EndsTables(At)) InFrom = false;
      TableNext = InFrom && (Statement_.IsKeyword(At, "FROM") || Statement_.IsKeyword(At, "JOIN") ||
                             Statement_.IsSymbol(At, ","));
      ++At;
    }
    return At;
  }

  bool EndsTables(std::size_t At) const {
    constexpr auto Words = std::to_array<std::string_view>({"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "UNION"});
    return std::any_of(Words.begin(), Words.end(), [&](auto Word) { return Statement_.IsKeyword(At, Word); });
  }

  std::size_t TakeName(std::size_t At) {
    Marks_[At] = true;
    while (Statement_.IsSymbol(At + 1, ".") && Statement_.IsName(At + 2)) Marks_[At += 2] = true;
    return At + 1;
  }

  std::size_t TakeAlias(std::size_t At) {
    if (Statement_.IsKeyword(At, "AS")) ++At;
    if (!Statement_.IsName(At) || Statement_.IsKeyword(At, "LEFT") || Statement_.IsKeyword(At, "RIGHT")) return At;
    Marks_[At] = true;
    return At + 1;
  }

  const TStatement& Statement_;
  std::vector<bool> Marks_;
};

void RewriteNames(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  const TTableNames Tables(Statement);
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    const TToken& Token = Statement[Position];
    if (!Statement.IsName(Position) || Statement.IsSymbol(Position + 1, "(")) continue;
    const bool IsOfTable = Tables[Position] || Statement.IsSymbol(Position + 1, ".");
    const std::string Name = IsOfTable ? Lower(NameOf(Token)) : NameOf(Token);
    const bool IsReserved = !Statement.IsQualified(Position) && !Statement.IsKeyword(Position - 1, "AS") &&
                            IsOneOf(Token.Source, ReservedWords);
    if (Token.Kind == TTokenKind::QuotedName || IsReserved) {
      Rewriter.Replace(Position, Quoted(Name));
    } else if (Name != Token.Source) {
      Rewriter.Replace(Position, Name);
    }
  }
}

// Any word may name a column, and which of them the server takes without quotes differs between its modes.
void RewriteAliases(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (const auto& List : Statement.SelectLists()) {
    for (const auto& Item : List.Items) {
      if (Item.Alias == TStatement::None || Statement[Item.Alias].Kind != TTokenKind::Word) continue;
      Rewriter.Replace(Item.Alias, Quoted(Statement[Item.Alias].Source));
    }
  }
}

void RewriteTexts(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (Statement[Position].Kind != TTokenKind::Text) continue;
    const std::string Text = TextOf(Statement[Position]);
    if (!IsPlain(Text)) Rewriter.Replace(Position, AsBytes(Text));
  }
}

// Some functions mean something else in one of the server's modes, unless they are called by their schema; and some
// are known only where the parenthesis follows at once.
void RewriteCalls(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position + 1 < Statement.Count(); ++Position) {
    if (!Statement.IsSymbol(Position + 1, "(") || !Statement.IsName(Position) || Statement.IsQualified(Position))
      continue;
    Rewriter.RemoveBlanksBefore(Position + 1);
    const bool IsWhole = !Statement.Arguments(Position).empty();
    if (IsWhole && (Statement.IsKeyword(Position, "TRIM") || Statement.IsKeyword(Position, "SUBSTRING"))) {
      Rewriter.InsertBefore(Position, "mariadb_schema.");
    }
    if (IsWhole && Statement.IsKeyword(Position, "IIF")) Rewriter.Replace(Position, "IF");
  }
}

void RewriteJoins(TRewriter& Rewriter) {
  for (const auto& Sum : Rewriter.Statement().TextSums()) {
    Rewriter.InsertBefore(Sum.All.First, "mariadb_schema.CONCAT(");
    for (const std::size_t Join : Sum.Joins) {
      Rewriter.RemoveBlanksBefore(Join);
      Rewriter.Replace(Join, ",");
    }
    Rewriter.InsertAfter(Sum.All.Last, ")");
  }
}

std::string Utf8(char32_t Letter) {
  return QString::fromUcs4(&Letter, 1).toStdString();
}

// The letters that the server has no upper case for because it is several characters, as the pattern that finds one of
// them, and as calls of REPLACE around a text that is in upper case otherwise.
struct TSeveral {
  std::string Pattern;
  std::string Before;
  std::string Behind;

  TSeveral() {
    constexpr char32_t End = 0x10000;  // there are none beyond
    std::string Letters = "[";
    for (char32_t Letter = 0x80; Letter < End; ++Letter) {
      if (QChar::isSurrogate(Letter)) continue;
      const std::string Upper = zulcommon::UpperCase(Utf8(Letter));
      if (Upper == Utf8(Letter) || QString::fromStdString(Upper).size() == 1) continue;
      Letters += Utf8(Letter);
      if (QChar::toUpper(Letter) != Letter) continue;  // becomes one of the others first
      Before += "REPLACE(";
      Behind += ", " + AsBytes(Utf8(Letter)) + ", " + (IsPlain(Upper) ? '\'' + Upper + '\'' : AsBytes(Upper)) + ")";
    }
    Pattern = AsBytes(Letters + ']');
  }
};

// In upper case by the server's newest table of letters, which knows those whose upper case is one letter; and only a
// text that has another one pays for it.
std::string UpperOf(std::string_view Text) {
  static const TSeveral Several;
  const std::string Unicode = "CONVERT(" + std::string(Text) + std::string(InUnicode);
  const std::string Upper = "UPPER(" + Unicode + std::string(WithUnicodeCases) + ")" + std::string(ByCode);
  return "IF(LENGTH(" + Unicode + ") > CHAR_LENGTH(" + Unicode + ") AND " + Unicode + std::string(ByCode) + " RLIKE " +
         Several.Pattern + ", " + Several.Before + Upper + Several.Behind + ", " + Upper + ")";
}

bool IsUpper(const TStatement& Statement, std::size_t Position) {
  return Statement.IsCall(Position, "UPPER") && Statement.Arguments(Position).size() == 1;
}

// To be done when all else is, because what stands within a call is written more than once; inner calls first.
void RewriteUpper(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = Statement.Count(); Position-- > 0;) {
    if (!IsUpper(Statement, Position)) continue;
    const std::string Argument = Rewriter.TextOf(Statement.Arguments(Position).front());
    Rewriter.ReplaceAll({Position, Statement.Partner(Position + 1)}, UpperOf(Argument));
  }
}

// Makes a text compare by the code of its characters; what UPPER has become does so already.
void CompareByCode(TRewriter& Rewriter, TRange Text) {
  const TStatement& Statement = Rewriter.Statement();
  if (IsUpper(Statement, Text.First) && Statement.OperandEnd(Text.First) == Text.Last) return;
  Rewriter.InsertBefore(Text.First, "CONVERT(");
  Rewriter.InsertAfter(Text.Last, std::string(InUnicode) + std::string(ByCode));
}

// The escape character is one that no text of a query can hold. To say that there is none is an error in one mode.
void RewriteLikes(TRewriter& Rewriter) {
  for (const auto& Like : Rewriter.Statement().Likes()) {
    CompareByCode(Rewriter, Like.Text);
    Rewriter.InsertAfter(Like.Pattern.Last, " ESCAPE _utf8mb4 X'00'");
  }
}

void SortByCode(TRewriter& Rewriter, TRange Expression) {
  if (Rewriter.Statement().IsText(Expression)) CompareByCode(Rewriter, Expression);
}

// The column of a query's first part that has a name, or None.
std::size_t ColumnNamed(const TStatement& Statement, const std::vector<TStatement::TSelectItem>& Columns, TRange Name) {
  if (Name.First != Name.Last || !Statement.IsName(Name.First)) return TStatement::None;
  const auto IsNamed = [&](const TStatement::TSelectItem& Column) {
    return Column.Alias != TStatement::None &&
           zulcommon::SameText(NameOf(Statement[Column.Alias]), NameOf(Statement[Name.First]));
  };
  const auto Found = std::find_if(Columns.begin(), Columns.end(), IsNamed);
  return Found == Columns.end() ? TStatement::None : static_cast<std::size_t>(Found - Columns.begin());
}

// What a query sorts by under a name of its result is the column behind the name, in each part of a UNION. Nulls stand
// before values as they are.
void RewriteSorting(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  std::vector<bool> Done(Statement.Count());
  const auto Sort = [&](TRange Expression) {
    if (Expression.First == TStatement::None || Done[Expression.First]) return;
    Done[Expression.First] = true;
    SortByCode(Rewriter, Expression);
  };
  for (const auto& Order : Statement.SortLists()) {
    auto Parts = Statement.SelectLists();
    std::erase_if(Parts, [&Order](const auto& List) { return List.Within != Order.Within; });
    for (const auto& Item : Order.Items) {
      const std::size_t Column =
          Parts.empty() ? TStatement::None : ColumnNamed(Statement, Parts.front().Items, Item.Expression);
      if (Column == TStatement::None) Sort(Item.Expression);
      for (const auto& Part : Parts) {
        if (Column < Part.Items.size()) Sort(Part.Items[Column].Expression);
      }
    }
  }
}

// In one of the server's modes NOT binds closer than what it denies.
void RewriteNots(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    const TRange Denied = Statement.Denied(Position);
    if (Denied.First == TStatement::None || Statement.OperandEnd(Denied.First) == Denied.Last) continue;
    Rewriter.InsertBefore(Denied.First, "(");
    Rewriter.InsertAfter(Denied.Last, ")");
  }
}

}  // namespace

const char* TMariaDBDialect::Name() const {
  return "MariaDB";
}

std::string TMariaDBDialect::Rewrite(std::string_view Sql) const {
  TRewriter Rewriter(Sql);
  RewriteNames(Rewriter);
  RewriteTexts(Rewriter);
  RewriteCalls(Rewriter);
  RewriteJoins(Rewriter);
  RewriteLikes(Rewriter);
  RewriteSorting(Rewriter);
  RewriteAliases(Rewriter);
  RewriteNots(Rewriter);
  RewriteUpper(Rewriter);
  return Rewriter.Text();
}

void TMariaDBDialect::RequireUnambiguous(std::string_view Sql) const {
  const TStatement Statement(Sql);
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (!Statement.IsQualified(Position) || !Statement.IsName(Position)) continue;
    if (IsOneOf(NameOf(Statement[Position]), SequenceWords))
      Statement.Refuse(Position, "A sequence that is counted on");
  }
}

}  // namespace ads::sql
