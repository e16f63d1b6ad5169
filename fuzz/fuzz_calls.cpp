// Queries of the dialogs' own language, made of pieces by chance, and now and then one piece that is none of it: a call
// of another function in any notation, a table of a server's own, another operator. Only those without such a piece
// may pass the gate, all of those must, and SQLite then reads nothing but its tables.
#include <random>
#include <span>
#include <string_view>

#include "ads/EDatabaseError.h"
#include "ads/sql/Dialect.h"
#include "ads/sql/ReadingOnly.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/WatchedDatabase.h"

namespace {

using TPieces = std::span<const std::string_view>;

constexpr std::string_view Allowed[] = {
    "UPPER(@)",           "upper (@)",        "COALESCE(@, @)", "COUNT(*)",           "SUM(@)",           "TRIM(@)",
    "SubString(@, 1, 2)", "IIF(@ = @, @, @)", "Count(@)",       "COALESCE/* */(@,@)", "COUNT(DISTINCT @)"};

constexpr std::string_view Plain[] = {"7",
                                      "-1.5",
                                      "1e3",
                                      "'x'",
                                      "'it''s (x).f'",
                                      "'pg_sleep(9)'",
                                      "ID",
                                      "T.Item",
                                      "[Key]",
                                      "\"Date\"",
                                      "T.[Desc]",
                                      "T.Update",
                                      "T . nextval",
                                      "NULL",
                                      "TRUE",
                                      "(@)",
                                      "@ + @",
                                      "@ - @",
                                      "@ * @",
                                      "(SELECT Item FROM ItemDet)",
                                      "(SELECT @ FROM ItemDet T)",
                                      "CASE WHEN @ = @ THEN @ ELSE @ END",
                                      "CASE @ WHEN @ THEN @ END"};

constexpr std::string_view Conditions[] = {"@ = @",
                                           "@ <> @",
                                           "@ LIKE '%A%'",
                                           "@ NOT LIKE 'x_'",
                                           "@ IN (@, @)",
                                           "@ NOT IN (SELECT Item FROM ItemDet)",
                                           "@ IS NULL",
                                           "@ IS NOT NULL",
                                           "@ BETWEEN @ AND @",
                                           "EXISTS (SELECT 1 FROM ItemDet T WHERE @ = @)",
                                           "(@ = @ OR NOT @ > @)",
                                           "@ = @ AND @ < @"};

constexpr std::string_view Tables[] = {"ItemLocations T",
                                       "ItemDet AS T",
                                       "ItemCost T LEFT OUTER JOIN ItemLocations L ON T.ItemLoc = L.ID",
                                       "ItemDet T INNER JOIN ItemCost C ON T.Item = C.Item",
                                       "(SELECT Item, ItemLoc FROM ItemDet) T",
                                       "ItemLocations T, ItemDet D"};

// `#` stands for the name of a function.
constexpr std::string_view Calls[] = {"#(@)",
                                      "# (@, @)",
                                      "#()",
                                      "#/* */(@)",
                                      "#--\n(@)",
                                      "\"#\"(@)",
                                      "[#](@)",
                                      "[#] (@)",
                                      "pg_catalog.#(@)",
                                      "pg_catalog.\"#\"(@)",
                                      "[pg_catalog].[#](@)",
                                      "a.b.#(@)",
                                      "T.#(@)",
                                      "(@).#",
                                      "(@) . #",
                                      "(@).\"#\"",
                                      "(@).[#]",
                                      "(@)/* */./* */#",
                                      "(@).#.x",
                                      "(@).x.#",
                                      "((@)).#",
                                      "(SELECT @).#",
                                      "UPPER(@).#",
                                      "COUNT(*).#",
                                      "(CASE WHEN @ = @ THEN @ END).#",
                                      "CASE WHEN @ = @ THEN @ END.#",
                                      "'x'.#",
                                      "(@).#(@)",
                                      "# 'x'",
                                      "\"#\" 'x'",
                                      "[#] 'x'",
                                      "a.# 'x'",
                                      "#(7) 'x'",
                                      "CAST(@ AS #)",
                                      "(@ OPERATOR(pg_catalog.#) @)",
                                      "(@ COLLATE #)",
                                      "UPPER(@) OVER ()",
                                      "ARRAY[@]",
                                      "ROW(@, @)",
                                      "@ # @",
                                      "(SELECT 1 FROM #(@) x)",
                                      "(SELECT 1 FROM ItemDet, #(@))",
                                      "(SELECT 1 FROM LATERAL #(@) x)",
                                      "(SELECT 1 FROM (@).# x)",
                                      "(TABLE #)",
                                      "(VALUES (@))",
                                      "(WITH x AS (SELECT @) SELECT 1 FROM x)",
                                      "(SELECT @; SELECT @)",
                                      "CURRENT_USER",
                                      "SESSION_USER",
                                      "CURRENT_TIMESTAMP",
                                      "LOCALTIME",
                                      "{fn #(@)}",
                                      "?",
                                      ":x",
                                      "`#`(@)",
                                      "$$x$$",
                                      "E'x'",
                                      "X'27'",
                                      "0x1F",
                                      "@::#",
                                      "@ GLOB @",
                                      "@ MATCH @",
                                      "@ REGEXP @",
                                      "@ LIKE 'x' ESCAPE '!'",
                                      "@ -> @",
                                      "@ << @",
                                      "@ & @",
                                      "~@"};

constexpr std::string_view Functions[] = {
    "pg_sleep",     "pg_advisory_lock", "nextval",        "lo_import",   "dblink_exec", "ts_stat",    "set_config",
    "pg_read_file", "random",           "char",           "hex",         "zeroblob",    "randomblob", "printf",
    "replace",      "load_file",        "load_extension", "sqlite_log",  "json",        "abs_",       "changes",
    "last_value",   "group_concat",     "quote",          "typeof",      "unicode",     "zul_like",   "zul_upper",
    "now",          "version",          "sleep",          "xp_cmdshell", "nullif"};

constexpr std::string_view OwnTables[] = {"sqlite_master",
                                          "[sqlite_schema]",
                                          "main.sqlite_master",
                                          "'sqlite_master'",
                                          "sqlite_temp_master T",
                                          "pragma_table_info",
                                          "\"pragma_optimize\"",
                                          "'pragma_optimize' T",
                                          "dbstat",
                                          "json_each T",
                                          "pg_authid",
                                          "pg_catalog.pg_class T",
                                          "information_schema.tables",
                                          "[information_schema].[tables]",
                                          "ItemDet T, sqlite_master",
                                          "ItemDet T INNER JOIN pg_shadow S ON 0=0",
                                          "ItemDet NATURAL JOIN ItemCost",
                                          "ItemDet TABLESAMPLE SYSTEM (1)",
                                          "ONLY ItemDet",
                                          "ROWS FROM (pg_sleep(1)) T"};

/// A query out of pieces that the bytes choose.
class TGenerator {
 public:
  explicit TGenerator(std::span<const std::uint8_t> Bytes) : Bytes_(Bytes) {}

  std::string Query() {
    std::string Sql = "SELECT " + Filled("@", 0) + " SortFld FROM " + Table();
    if (Next() % 4 != 0) Sql += " WHERE 0=0 AND " + Filled(Any(Conditions), 0);
    if (Next() % 8 == 0) Sql += " UNION ALL SELECT " + Filled("@", 0) + " FROM " + Table();
    return Sql + (Next() % 2 == 0 ? " ORDER BY SortFld" : " ORDER BY SortFld DESC");
  }

  /// Whether something was put in that is none of the dialogs' language.
  bool IsForeign() const { return Foreign_; }

 private:
  static constexpr int Deepest = 4;

  std::uint8_t Next() { return At_ < Bytes_.size() ? Bytes_[At_++] : 1; }
  std::string_view Any(TPieces Pieces) { return Pieces[Next() % Pieces.size()]; }

  std::string Table() {
    if (Next() % 32 != 0) return std::string(Any(Tables));
    Foreign_ = true;
    return std::string(Any(OwnTables));
  }

  std::string_view Expression(int Depth) {
    const std::uint8_t Choice = Next();
    if (Depth < Deepest && Choice % 32 == 0) {
      Foreign_ = true;
      return Any(Calls);
    }
    if (Depth >= Deepest) return Any(TPieces(Plain).first(13));
    return Choice % 4 == 1 ? Any(Allowed) : Any(Plain);
  }

  std::string Filled(std::string_view Piece, int Depth) {
    std::string Result;
    for (const char Letter : Piece) {
      if (Letter == '@') {
        Result += Filled(Expression(Depth + 1), Depth + 1);
      } else if (Letter == '#') {
        Result += Any(Functions);
      } else {
        Result += Letter;
      }
    }
    return Result;
  }

  std::span<const std::uint8_t> Bytes_;
  std::size_t At_ = 0;
  bool Foreign_ = false;
};

// Without the library: the bytes of such texts are changed by chance.
constexpr int Texts = 300;
constexpr std::size_t LengthOfText = 64;

}  // namespace

std::vector<std::string> Corpus() {
  std::mt19937 Random(7);
  std::vector<std::string> All;
  for (int Number = 0; Number < Texts; ++Number) {
    std::string Text(LengthOfText, '\0');
    for (char& Byte : Text) Byte = static_cast<char>(Random());
    All.push_back(std::move(Text));
  }
  return All;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  static const ads::sql::TPostgreSQLDialect PostgreSQL;
  static const ads::sql::TPlainSQLiteDialect PlainSQLite;
  static ads::TAdsQuery Query{nullptr};
  TGenerator Generator({Data, Size});
  const std::string Sql = Generator.Query();
  bool Passed = true;
  std::string Why;
  try {
    ads::sql::RequireReadingOnly(Sql);
  } catch (const ads::EDatabaseError& Error) {
    Passed = false;
    Why = Error.what();
  }
  if (Passed && Generator.IsForeign()) fuzz::Fail("Passed", Sql);
  if (!Passed && !Generator.IsForeign()) fuzz::Fail(("Refused: " + Why).c_str(), Sql);
  if (!Passed) return 0;
  fuzz::Database().Try(Query, Sql);
  try {
    PostgreSQL.Rewrite(Sql);
    PlainSQLite.Rewrite(Sql);
  } catch (const ads::EDatabaseError& Error) {
    fuzz::Fail(Error.what(), Sql);
  }
  return 0;
}
