#include <QElapsedTimer>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/Values.h"
#include "ads/sql/Dialect.h"

class tst_SQLiteDialect : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    Database_ = QSqlDatabase::addDatabase("QSQLITE", "tst_SQLiteDialect");
    Database_.setDatabaseName(":memory:");
    QVERIFY(Database_.open());
    Execute(Database_, "CREATE TABLE T (N INTEGER, A VARCHAR(20), B VARCHAR(20), [Default] BOOLEAN, [End] DATE)");
    Execute(Database_,
            "INSERT INTO T VALUES (1, 'éclair', 'x_y', 1, '2024-06-30'), (2, 'Zoo', 'A%B', 0, NULL), "
            "(3, NULL, 'a\\b', NULL, NULL)");
    Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
  }

  void cleanupTestCase() {
    Connection_.reset();
    Database_ = {};
    QSqlDatabase::removeDatabase("tst_SQLiteDialect");
  }

  void shouldGiveTheServerItsOwnText_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Expected");
    const auto Row = [](const char* Name, const char* Sql, const char* Expected) {
      QTest::newRow(QByteArray(Name).simplified().constData()) << QString(Sql) << QString(Expected);
    };
    const auto Kept = [&Row](const char* Sql) { Row(Sql, Sql, Sql); };
    Kept("");
    Kept("SELECT  [Desc],\tKey , IIF(a, b, c)\r\nFROM  T\rWHERE x = TRUE ");
    Kept("SELECT O.SubTotal + O.FedTax Total, +1, -1 + +2 FROM O");
    Kept("SELECT SubString(RealPeriod, 1, 4) Year FROM Periods ORDER BY Year DESC");
    Kept("SELECT 1 Desc, 2 End, 3 Key, 4 Total, 5 Date, 6 Year FROM T");
    Kept("SELECT T.End, T.Key, T.Desc, T.* FROM T");
    Kept("SELECT T.UPPER, UPPER, [UPPER](x), x.UPPER(y) FROM T");
    Kept("SELECT CASE x WHEN 1 THEN 2 END FROM T");
    Row("a name in double quotes", "SELECT \"desc\", T.\"De\"\"sc\" FROM \"T\"", "SELECT [desc], T.[De\"sc] FROM [T]");
    Row("a name with a bracket", "SELECT \"a]b`c\"", "SELECT `a]b``c`");
    Row("a reserved alias", "SELECT 1 Default, 2 AS Order, 3 Left FROM T",
        "SELECT 1 [Default], 2 AS [Order], 3 [Left] FROM T");
    Row("a reserved column", "SELECT T.Default, T.Group FROM T", "SELECT T.[Default], T.[Group] FROM T");
    Row("UPPER", "SELECT upper (UPPER(x))", "SELECT zul_upper (zul_upper(x))");
    Row("LIKE", "WHERE a LIKE 'x' AND b.c like 'y'", "WHERE zul_like(a, 'x') AND zul_like(b.c, 'y')");
    Row("NOT LIKE", "WHERE a NOT LIKE 'x' OR NOT b LIKE 'y'", "WHERE NOT zul_like(a, 'x') OR NOT zul_like(b, 'y')");
    Row("LIKE of a call", "WHERE UPPER(a.[b]) LIKE '%x%'", "WHERE zul_like(zul_upper(a.[b]), '%x%')");
    Row("LIKE of a qualified call", "WHERE m.f(a) LIKE 'x'", "WHERE zul_like(m.f(a), 'x')");
    Row("LIKE of parentheses", "WHERE (a) LIKE ('x')", "WHERE zul_like((a), ('x'))");
    Row("LIKE of a condition in parentheses", "WHERE x IN (a) AND (a LIKE 'x')",
        "WHERE x IN (a) AND (zul_like(a, 'x'))");
    Row("LIKE of a text", "WHERE 'a' LIKE b", "WHERE zul_like('a', b)");
    Row("LIKE of sums", "WHERE a + ' ' + b LIKE 'x' + c", "WHERE zul_like(a || ' ' || b, 'x' || c)");
    Row("LIKE of a CASE", "WHERE CASE WHEN a LIKE 'x' THEN b END LIKE 'y'",
        "WHERE zul_like(CASE WHEN zul_like(a, 'x') THEN b END, 'y')");
    Row("LIKE in nested texts", "SELECT IIF(a LIKE 'x', (SELECT b FROM c WHERE d LIKE 'y'), 'z')",
        "SELECT IIF(zul_like(a, 'x'), (SELECT b FROM c WHERE zul_like(d, 'y')), 'z')");
    Row("LIKE over lines", "WHERE a\r  LIKE\r  'x'\rORDER BY b", "WHERE zul_like(a,\r  'x')\rORDER BY b");
    Row("a sum with a text", "SELECT a + 'x' + b, a+b", "SELECT a || 'x' || b, a+b");
    Row("a sum with a call", "SELECT a + Trim(b), c + UPPER(d)", "SELECT a || Trim(b), c || zul_upper(d)");
    Row("a sum of a choice", "SELECT IIF(a, 'x', b) + c, IIF(a = 'x', 1, 2) + c",
        "SELECT IIF(a, 'x', b) || c, IIF(a = 'x', 1, 2) + c");
    Row("a sum in parentheses", "SELECT a + ('x'), (a + b) + c", "SELECT a || ('x'), (a + b) + c");
    Row("a sum in a sum", "SELECT a + f(1 + 2) + (b + 'x')", "SELECT a || f(1 + 2) || (b || 'x')");
    Row("a comment", "SELECT a--b\rFROM/*c*/T //d", "SELECT a \rFROM T  ");
    Row("a text is left alone", "SELECT 'UPPER(\"a\") LIKE + [b]' + \"c\"", "SELECT 'UPPER(\"a\") LIKE + [b]' || [c]");
  }
  void shouldGiveTheServerItsOwnText() {
    QFETCH(QString, Sql);
    QFETCH(QString, Expected);
    QCOMPARE(QString::fromStdString(ads::sql::TSQLiteDialect().Rewrite(Sql.toStdString())), Expected);
  }

  void shouldGiveASQLiteWithoutFunctionsItsOwnText_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Expected");
    const auto Row = [](const char* Sql, const char* Expected) {
      QTest::newRow(QByteArray(Sql).simplified().constData()) << QString(Sql) << QString(Expected);
    };
    Row("SELECT [a], \"b\", T.Default, a + 'x' FROM T", "SELECT [a], [b], T.[Default], a || 'x' FROM T");
    Row("WHERE a LIKE '%x''y%'", "WHERE (instr(a, 'x''y') > 0)");
    Row("WHERE a NOT LIKE '%x%' OR NOT b LIKE '%%'", "WHERE (NOT instr(a, 'x') > 0) OR NOT (instr(b, '') > 0)");
    Row("WHERE a + ' ' + b LIKE '%'", "WHERE (instr(a || ' ' || b, '') > 0)");
    Row("WHERE a LIKE 'x%' AND b NOT LIKE '_*?[]'", "WHERE a GLOB 'x*' AND b NOT GLOB '?[*][?][[]]'");
    Row("WHERE a LIKE '%x_y%'", "WHERE a GLOB '*x?y*'");
    Row("WHERE a LIKE b",
        "WHERE a GLOB replace(replace(replace(replace(replace(b, '[', '[[]'), '*', '[*]'), '?', '[?]'), '%', '*'), "
        "'_', '?')");
    Row("SELECT x.UPPER(a), UPPER, UPPER(a, b)", "SELECT x.UPPER(a), UPPER, UPPER(a, b)");
  }
  void shouldGiveASQLiteWithoutFunctionsItsOwnText() {
    QFETCH(QString, Sql);
    QFETCH(QString, Expected);
    QCOMPARE(QString::fromStdString(ads::sql::TPlainSQLiteDialect().Rewrite(Sql.toStdString())), Expected);
  }

  void shouldUpperCaseInASubqueryWhereThereAreNoFunctions() {
    const std::string Sql = ads::sql::TPlainSQLiteDialect().Rewrite("SELECT upper (a + 'x') X FROM T");
    QVERIFY2(Sql.starts_with("SELECT (SELECT CASE WHEN zul_text GLOB '*[^ -~]*' THEN"), Sql.substr(0, 80).c_str());
    QVERIFY(Sql.ends_with("ELSE upper(zul_text) END FROM (SELECT a || 'x' AS zul_text)) X FROM T"));
  }

  void shouldAskForTheFirstRowInTheServersOwnWay() {
    const std::string Select = "SELECT [a] FROM [T]";
    QCOMPARE(ads::sql::TAdvantageDialect().FirstRowOnly(Select), std::string("SELECT TOP 1 [a] FROM [T]"));
    for (const ads::sql::TDialect* Dialect :
         std::initializer_list<const ads::sql::TDialect*>{&PlainSQLite_, &SQLite_, &PostgreSQL_}) {
      QCOMPARE(Dialect->FirstRowOnly(Select), std::string("SELECT [a] FROM [T] LIMIT 1"));
    }
  }

  void shouldPassEveryTextToAdvantageAsItIs() {
    for (const char* Sql : {"", "SELECT \"a\" + 'b' -- c", "no SQL 'at all"}) {
      QCOMPARE(QString::fromStdString(ads::sql::TAdvantageDialect().Rewrite(Sql)), QString(Sql));
    }
  }

  void shouldSayItsName() {
    QCOMPARE(QString(ads::sql::TSQLiteDialect().Name()), QString("SQLite"));
    QCOMPARE(QString(ads::sql::TAdvantageDialect().Name()), QString("Advantage"));
    QCOMPARE(QString(ads::sql::TPlainSQLiteDialect().Name()), QString("SQLite without functions"));
  }

  void shouldRefuseATextThatCannotBeTakenApart() {
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, ads::sql::TSQLiteDialect().Rewrite("SELECT 'a"));
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, ads::sql::TSQLiteDialect().Rewrite("SELECT (1"));
  }

  void shouldMatchInExactCaseWhateverTheConnectionSays() {
    for (const char* Switch : {"PRAGMA case_sensitive_like = 0", "PRAGMA case_sensitive_like = 1"}) {
      Execute(Database_, Switch);
      QCOMPARE(Rows("SELECT N X FROM T WHERE A LIKE 'z%'"), QStringList());
      QCOMPARE(Rows("SELECT N X FROM T WHERE A LIKE 'Z%'"), QStringList("2"));
      QCOMPARE(Rows("SELECT N X FROM T WHERE A NOT LIKE 'Z%'"), QStringList("1"));
    }
  }

  void shouldTakeNothingButPercentAndUnderscoreForWildcards() {
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '%\\%'"), QStringList("3"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE 'a\\b'"), QStringList("3"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '___' ORDER BY N"), QStringList({"1", "2", "3"}));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '*'"), QStringList());
  }

  void shouldUpperCaseLettersBeyondAscii() {
    QCOMPARE(Rows("SELECT UPPER(A) X FROM T WHERE UPPER(A) LIKE '%ÉC%'"), QStringList("ÉCLAIR"));
    QCOMPARE(Rows("SELECT UPPER('straße') X"), QStringList("STRASSE"));
  }

  void shouldJoinTextsAndAddNumbers() {
    QCOMPARE(Rows("SELECT Trim(' a ') + ' - ' + B X FROM T WHERE N = 1"), QStringList("a - x_y"));
    QCOMPARE(Rows("SELECT N + N X FROM T WHERE N = 3"), QStringList("6"));
  }

  void shouldSortByTheCodeOfTheCharactersWithNullsFirst() {
    QCOMPARE(Rows("SELECT A X, UPPER(A) SortFld FROM T ORDER BY SortFld"), QStringList({"(null)", "Zoo", "éclair"}));
    QCOMPARE(Rows("SELECT A X, UPPER(A) SortFld FROM T ORDER BY SortFld DESC"),
             QStringList({"éclair", "Zoo", "(null)"}));
  }

  void shouldFindAReservedColumnAndAlias() {
    QCOMPARE(Rows("SELECT T.Default X FROM T WHERE T.End = '2024-06-30'"), QStringList("1"));
    QCOMPARE(Values(*Connection_, "SELECT N Default FROM T WHERE N = 2", "Default"), QStringList("2"));
  }

  void shouldFailForAnUnknownNameHoweverItIsWritten() {
    for (const char* Name : {"Nowhere", "[Nowhere]", "\"Nowhere\"", "T.[Nowhere]", "T.\"Nowhere\"", "\"No]where\""}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows(std::string("SELECT ") + Name + " X FROM T"));
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                               Rows(std::string("SELECT N X FROM T WHERE ") + Name + " = 'Nowhere'"));
    }
  }

  void shouldTakeTimeInProportionToTheText() {
    std::string Sql = "SELECT N X FROM T WHERE A LIKE '" + std::string(5'000'000, 'x') + "'";
    for (int I = 0; I < 50'000; ++I) Sql += " OR UPPER(A + 'b' + c) LIKE '%''x%'";
    QElapsedTimer Timer;
    Timer.start();
    const std::string Rewritten = ads::sql::TSQLiteDialect().Rewrite(Sql);
    QVERIFY(Rewritten.ends_with(" OR zul_like(zul_upper(A || 'b' || c), '%''x%')"));
    QVERIFY2(Timer.elapsed() < 5000, qPrintable(QString::number(Timer.elapsed())));
  }

 private:
  const ads::sql::TPlainSQLiteDialect PlainSQLite_;
  const ads::sql::TSQLiteDialect SQLite_;
  const ads::sql::TPostgreSQLDialect PostgreSQL_;

  QStringList Rows(const std::string& Sql) { return Values(*Connection_, Sql); }

  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

QTEST_GUILESS_MAIN(tst_SQLiteDialect)
#include "tst_SQLiteDialect.moc"
