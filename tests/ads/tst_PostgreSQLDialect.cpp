#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/ThrowawayPostgreSQL.h"
#include "ads/Values.h"
#include "ads/sql/Dialect.h"

class tst_PostgreSQLDialect : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    Server_ = std::make_unique<TThrowawayPostgreSQL>();
    if (!Server_->IsRunning()) return;
    Database_ = Server_->Connect("tst_PostgreSQLDialect");
    QVERIFY(Database_.isOpen());
    Execute(Database_,
            "CREATE TABLE t (n integer, a varchar(20), b varchar(20), \"default\" boolean, \"end\" date, c char(6))");
    Execute(Database_,
            "INSERT INTO t VALUES (1, 'éclair', 'x_y', true, '2024-06-30', 'ab'), (2, 'Zoo', 'A%B', false, NULL, "
            "NULL), (3, NULL, E'a\\\\b', NULL, NULL, NULL), (4, 'zinc', 'q', NULL, NULL, NULL)");
    Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
  }

  void cleanupTestCase() {
    Connection_.reset();
    Database_ = {};
    QSqlDatabase::removeDatabase("tst_PostgreSQLDialect");
  }

  void shouldGiveTheServerItsOwnText_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Expected");
    const auto Row = [](const char* Name, const char* Sql, const char* Expected) {
      QTest::newRow(QByteArray(Name).simplified().constData()) << QString(Sql) << QString(Expected);
    };
    const auto Kept = [&Row](const char* Sql) { Row(Sql, Sql, Sql); };
    Kept("");
    Kept("SELECT  Zip,\tO.SubTotal + O.FedTax AS Total\r\nFROM  T x\rWHERE x = TRUE ");
    Kept("SELECT P.End, P.Default, P.Desc, P.User FROM P GROUP BY P.End");
    Kept("SELECT x.UPPER(y), T.IIF FROM T");
    Kept("SELECT IIF(a, b), UPPER(), UPPER(a, b)");
    Row("names", "SELECT [Desc], I.\"Date\", [A\"B], \"C\"\"D\", [Éa]",
        "SELECT \"desc\", I.\"date\", \"a\"\"b\", \"c\"\"d\", \"Éa\"");
    Row("an alias", "SELECT a Total, b [Total], COUNT(*) Year, 'x' y FROM T",
        "SELECT a AS Total, b AS \"total\", COUNT(*) AS Year, 'x' AS y FROM T");
    Row("an alias at each end of a list", "SELECT (SELECT 1 a) b UNION SELECT a b WHERE a IN (SELECT c d)",
        "SELECT (SELECT 1 AS a) AS b UNION SELECT a AS b WHERE a IN (SELECT c AS d)");
    Row("no alias", "SELECT a, T.b, a IS NULL, NOT a, CASE WHEN a THEN b END FROM T x, U y ORDER BY a DESC",
        "SELECT a, T.b, a IS NULL, NOT a, CASE WHEN a THEN b END FROM T x, U y ORDER BY a DESC NULLS LAST");
    Row("the alias of a CASE", "SELECT CASE WHEN a THEN b END c FROM T", "SELECT CASE WHEN a THEN b END AS c FROM T");
    Row("UPPER", "SELECT upper(a) = UPPER('')",
        "SELECT upper(CAST(a AS text) COLLATE \"und-x-icu\") = UPPER(CAST('' AS text) COLLATE \"und-x-icu\")");
    Row("IIF", "SELECT IIF(a,'x', IIF( b, c , 1))Name",
        "SELECT CASE WHEN a THEN 'x' ELSE CASE WHEN  b THEN c  ELSE 1 END END AS Name");
    Row("a backslash", "SELECT 'a\\''b', 'c'", "SELECT E'a\\\\''b', 'c'");
    Row("a sum of texts", "SELECT Trim(a) + ' - ' + b, a + b", "SELECT Trim(a) || ' - ' || b, a + b");
    Row("LIKE", "WHERE a LIKE 'x' AND b NOT LIKE 'y' + c OR d",
        "WHERE a LIKE 'x' ESCAPE '' AND b NOT LIKE 'y' || c ESCAPE '' OR d");
    Row("ORDER BY", "ORDER BY a, b.c DESC, 3 ASC, d DESC NULLS FIRST",
        "ORDER BY a NULLS FIRST, b.c DESC NULLS LAST, 3 ASC NULLS FIRST, d DESC NULLS FIRST");
    Row("ORDER BY in parentheses", "SELECT (SELECT a FROM b ORDER BY c) d",
        "SELECT (SELECT a FROM b ORDER BY c NULLS FIRST) AS d");
    Row("a text that sorts", "SELECT SubString(a, 1, 4) Year FROM T ORDER BY Year",
        "SELECT SubString(a, 1, 4) COLLATE \"C\" AS Year FROM T ORDER BY Year NULLS FIRST");
    Row("a text that sorts under another case of its name", "SELECT Trim(a) AS [SORT] FROM T ORDER BY Sort",
        "SELECT Trim(a) COLLATE \"C\" AS \"sort\" FROM T ORDER BY Sort NULLS FIRST");
    Row("a sum that sorts", "SELECT a + 'x' y FROM T ORDER BY y",
        "SELECT (a || 'x') COLLATE \"C\" AS y FROM T ORDER BY y NULLS FIRST");
    Row("an expression that sorts", "SELECT a FROM T ORDER BY Trim(a) DESC",
        "SELECT a FROM T ORDER BY Trim(a) COLLATE \"C\" DESC NULLS LAST");
    Row("both parts of a union", "SELECT a, Trim(b) s FROM T UNION ALL SELECT a, '' FROM U ORDER BY s",
        "SELECT a, Trim(b) COLLATE \"C\" AS s FROM T UNION ALL SELECT a, '' COLLATE \"C\" FROM U ORDER BY s NULLS "
        "FIRST");
    Row("not the list of another query", "SELECT Trim(a) s, (SELECT Trim(b) s FROM U) t FROM T ORDER BY s",
        "SELECT Trim(a) COLLATE \"C\" AS s, (SELECT Trim(b) AS s FROM U) AS t FROM T ORDER BY s NULLS FIRST");
    Row("a comment", "SELECT a--b\rFROM/*c*/T //d", "SELECT a \rFROM T  ");
  }
  void shouldGiveTheServerItsOwnText() {
    QFETCH(QString, Sql);
    QFETCH(QString, Expected);
    QCOMPARE(QString::fromStdString(ads::sql::TPostgreSQLDialect().Rewrite(Sql.toStdString())), Expected);
  }

  void shouldSayItsName() { QCOMPARE(QString(ads::sql::TPostgreSQLDialect().Name()), QString("PostgreSQL")); }

  void shouldMatchInExactCaseWithNothingButPercentAndUnderscoreSpecial() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QCOMPARE(Rows("SELECT N X FROM T WHERE A LIKE 'z%'"), QStringList("4"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE A NOT LIKE 'Z%' ORDER BY N"), QStringList({"1", "4"}));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '%\\%'"), QStringList("3"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE 'a\\b'"), QStringList("3"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '___' ORDER BY N"), QStringList({"1", "2", "3"}));
    QCOMPARE(Rows("SELECT '''\\' X"), QStringList("'\\"));
  }

  void shouldUpperCaseLettersBeyondAscii() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QCOMPARE(Rows("SELECT UPPER(A) X FROM T WHERE UPPER(A) LIKE '%ÉC%'"), QStringList("ÉCLAIR"));
    QCOMPARE(Rows("SELECT UPPER('straße') X"), QStringList("STRASSE"));
  }

  void shouldUpperCaseWhatIsNoPlainText() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QCOMPARE(Rows("SELECT N X FROM T WHERE UPPER(T.End) LIKE '2024%'"), QStringList("1"));
    QCOMPARE(Rows("SELECT UPPER(C) + '.' X FROM T WHERE N = 1"), QStringList("AB."));
    QCOMPARE(Rows("SELECT N X FROM T WHERE UPPER('') LIKE '%A%'"), QStringList());
  }

  void shouldSortByTheCodeOfTheCharactersWithNullsFirst() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QCOMPARE(Rows("SELECT A X, UPPER(A) SortFld FROM T ORDER BY SortFld"),
             QStringList({"(null)", "zinc", "Zoo", "éclair"}));
    QCOMPARE(Rows("SELECT A X, UPPER(A) SortFld FROM T ORDER BY SortFld DESC"),
             QStringList({"éclair", "Zoo", "zinc", "(null)"}));
    QCOMPARE(Rows("SELECT DISTINCT SubString(A, 1, 1) X FROM T ORDER BY X"), QStringList({"(null)", "Z", "z", "é"}));
    QCOMPARE(Rows("SELECT A X, UPPER(A) S FROM T UNION ALL SELECT 'x', UPPER('') FROM T WHERE N = 1 ORDER BY S"),
             QStringList({"(null)", "x", "zinc", "Zoo", "éclair"}));
  }

  void shouldChooseWithIif() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QCOMPARE(Rows("SELECT IIF(T.[Default], 'yes', IIF(T.[Default] IS NULL, 'nothing', 'no')) X FROM T ORDER BY N"),
             QStringList({"yes", "no", "nothing", "nothing"}));
  }

  void shouldTakeAnyWordForAnAlias() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    for (const char* Alias : {"Year", "Default", "Desc", "[End]", "User", "Name"}) {
      const QString Column = QString(Alias).remove('[').remove(']');
      QCOMPARE(Values(*Connection_, "SELECT N " + std::string(Alias) + " FROM T WHERE N = 2", Column.toStdString()),
               QStringList("2"));
    }
  }

  void shouldFailForAnUnknownNameHoweverItIsWritten() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    for (const char* Name : {"Nowhere", "[Nowhere]", "\"Nowhere\"", "T.[Nowhere]"}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows(std::string("SELECT ") + Name + " X FROM T"));
    }
  }

 private:
  QStringList Rows(const std::string& Sql) { return Values(*Connection_, Sql); }

  std::unique_ptr<TThrowawayPostgreSQL> Server_;
  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

QTEST_GUILESS_MAIN(tst_PostgreSQLDialect)
#include "tst_PostgreSQLDialect.moc"
