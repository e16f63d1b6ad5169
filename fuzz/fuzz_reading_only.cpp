// Whatever stands in a find box or in a code of the caller's goes into a query, some of it just as it was typed. Here
// any text does, in each of these places, over a real database that would tell if anything but reading was asked of it.
#include <set>
#include <string_view>

#include "ads/EDatabaseError.h"
#include "ads/sql/Dialect.h"
#include "ads/sql/Lexer.h"
#include "ads/sql/ReadingOnly.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/WatchedDatabase.h"
#include "zulcommon/Text.h"

namespace {

using ads::TFieldType;
using fuzz::Fail;

// The fields of one dialog's list.
struct TList {
  explicit TList(const std::vector<std::pair<const char*, TFieldType>>& Fields) {
    for (const auto& [Name, Type] : Fields) Query.AddField(Name, Type, Type == TFieldType::ftString ? 50 : 0);
  }
  ads::TAdsQuery Query{nullptr};
};

// As the dialogs quote what is looked for.
std::string Quoted(const std::string& Text) {
  std::string Result;
  for (const char Byte : zulcommon::UpperCase(zulcommon::Trim(Text)))
    Result += Byte == '\'' ? "''" : std::string(1, Byte);
  return Result;
}

// A text in quotes is one text, whatever stands in it.
void CheckQuoted(const std::string& Text, const std::string& Sql) {
  if (Text.find('\0') != std::string::npos) return;
  try {
    ads::sql::RequireReadingOnly(Sql);
  } catch (const ads::EDatabaseError& Error) {
    Fail(Error.what(), Sql);
  }
}

// The words that a text has before parentheses, in upper case: the functions that it calls, and some of the language.
std::set<std::string> Called(const std::string& Sql) {
  std::set<std::string> Result;
  std::string Before;
  for (const ads::sql::TToken& Token : ads::sql::Tokenize(Sql)) {
    if (Token.Kind == ads::sql::TTokenKind::Blank) continue;
    if (Token.IsSymbol(";")) Fail("A second statement", Sql);
    if (Token.IsSymbol("(") && !Before.empty()) Result.insert(zulcommon::UpperCase(Before));
    Before = Token.Kind == ads::sql::TTokenKind::Word ? Token.Source : "";
  }
  return Result;
}

// What a server gets is still one statement, which calls no more than the text did, and what the dialect itself calls.
void CheckRewritten(const ads::sql::TDialect& Dialect, const std::string& Sql) {
  static const std::set<std::string> Own{"ZUL_UPPER", "ZUL_LIKE", "CAST"};
  std::string Rewritten;
  try {
    ads::sql::RequireReadingOnly(Sql);
    Rewritten = Dialect.Rewrite(Sql);
  } catch (const ads::EDatabaseError&) {
    return;
  }
  // A text with a backslash becomes one of PostgreSQL's own, a name with a bracket one of SQLite's; the lexer knows
  // neither.
  if (Rewritten.find_first_of("\\`") != std::string::npos) return;
  const std::set<std::string> Before = Called(Sql);
  for (const std::string& Name : Called(Rewritten)) {
    if (!Before.contains(Name) && !Own.contains(Name)) Fail(("Calls " + Name).c_str(), Sql + "\nbecame\n" + Rewritten);
  }
}

using namespace std::string_view_literals;

constexpr std::string_view Texts[] = {

    "",
    "7",
    " -12.5e3 ",
    "abc",
    "O'Neil",
    "''",
    "7 OR 1=1",
    "7; DROP TABLE ItemDet",
    "7;",
    "1) OR (1=1",
    "(((",
    "[",
    "]",
    "7 --",
    "7 // x",
    "/* 7",
    "7 /* */ OR 1=1",
    "7 UNION SELECT 1, 'x', 'y', 'z'",
    "7 UNION SELECT name, sql, type, 1 FROM sqlite_master",
    "(SELECT MAX(ID) FROM ItemLocations)",
    "ID IN (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n)",
    "7 OR EXISTS (SELECT 1 FROM pragma_optimize)",
    "7 OR EXISTS (SELECT 1 FROM 'pragma_optimize')",
    "7 OR load_extension('x')",
    "7 OR \"load_extension\"('x')",
    "7 OR zeroblob(900000) IS NULL",
    "7 OR randomblob(-1) IS NULL",
    "7 OR ID IN (SELECT value FROM json_each('[1,2]'))",
    "CASE WHEN 1=1 THEN 7 END",
    "IIF(1=1, 7, 8)",
    "IIF(1=1, 7, 8)'x'",
    "7 LIKE '%_' ESCAPE '\\'",
    "'a' + 'b' + UPPER('c')",
    "?1",
    ":x",
    "@x",
    "$x",
    "{d '2025-01-01'}",
    "0x7",
    "7e",
    "1.2.3",
    "`7`",
    "\\",
    "\x01\x02\x1b\x7f",
    "7\0;DELETE FROM ItemDet"sv,
    "\xff\xfe",
    "\xc3",
    "\xef\xbb\xbf"
    "7",
    "\xc2\xa0"
    "7",
    "7\rOR 1=1",
    "7\vOR 1=1",
    "ß",
    "'; DELETE FROM ItemDet; --",
    "' OR '1'='1",
    "' UNION SELECT 1, 2, 3, 4 FROM 'pragma_optimize",
    "\" OR 1=1",
    "] OR 1=1",
    "7 INTO x",
    "7 FOR UPDATE",
    "SELECT 1",
    "SELECT * FROM ItemDet",
    "DELETE FROM ItemDet",
    "INSERT INTO ItemDet VALUES (1, 2, 3)",
    "REPLACE INTO ItemDet VALUES (1, 2, 3)",
    "UPDATE ItemDet SET OnHand = 0",
    "DROP TABLE ItemDet",
    "ATTACH 'x' AS y",
    "PRAGMA user_version = 7",
    "VACUUM",
    "BEGIN",
    "SELECT 1; DELETE FROM ItemDet",
    "SELECT ID FROM ItemLocations RETURNING ID",
    "SELECT * FROM (DELETE FROM ItemDet RETURNING *)",
    "EXPLAIN SELECT 1",
    "VALUES (1)",
    "SELECT \"Desc\" FROM [ItemDet] WHERE Item LIKE '%A%'"};

// The lists of the dialogs that the texts are tried in.
struct TLists {
  TList Any{{}};
  TList Locations{
      {{"ID", TFieldType::ftAutoInc}, {"ShortName", TFieldType::ftString}, {"FullName", TFieldType::ftString}}};
  TList Costs{{{"Key", TFieldType::ftAutoInc},
               {"Date", TFieldType::ftDate},
               {"Qty", TFieldType::ftFloat},
               {"UnitCost", TFieldType::ftFloat}}};
};

const std::string FromLocations =
    "SELECT l.ID, l.ShortName, l.FullName, UPPER(l.FullName) SortFld\nFROM ItemLocations l\n";
const std::string FromCosts =
    "SELECT I.[Key], I.[Date], I.Qty, I.UnitCost, I.UnitBuff, l.ShortName, I.Qty SortFld\nFROM ItemCost I\n"
    "  LEFT OUTER JOIN ItemLocations l ON i.ItemLoc=l.ID\n";

}  // namespace

std::vector<std::string> Corpus() {
  std::vector<std::string> All(std::begin(Texts), std::end(Texts));
  for (const char Repeated : {'(', '\'', '9'}) All.emplace_back(100'000, Repeated);
  return All;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  static const ads::sql::TPostgreSQLDialect PostgreSQL;
  static const ads::sql::TSQLiteDialect SQLite;
  static TLists Lists;
  const std::string Text(reinterpret_cast<const char*>(Data), Size);
  const std::string Found =
      FromLocations + "WHERE 0=0\nAND UPPER(l.FullName) LIKE '%" + Quoted(Text) + "%'\nORDER BY SortFld";
  CheckQuoted(Text, Found);
  const std::vector<std::pair<TList*, std::string>> Tries{
      {&Lists.Any, Text},
      {&Lists.Locations, Found},
      {&Lists.Locations, FromLocations + "WHERE 0=0\nAND l.ID = " + Text + "\nORDER BY SortFld DESC"},
      {&Lists.Locations,
       FromLocations + " INNER JOIN ItemDet d ON l.ID = d.ItemLoc\nWHERE d.Item = '" + Text + "'\nORDER BY SortFld"},
      {&Lists.Costs, FromCosts + "WHERE Item = 'A'\nAND I.UnitCost = " + Text + "\nORDER BY SortFld"}};
  for (const auto& [List, Sql] : Tries) {
    fuzz::Database().Try(List->Query, Sql);
    CheckRewritten(SQLite, Sql);
    CheckRewritten(PostgreSQL, Sql);
  }
  fuzz::Database().CheckContent(Text);
  return 0;
}
