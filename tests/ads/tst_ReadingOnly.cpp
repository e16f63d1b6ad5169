#include <QElapsedTimer>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/sql/ReadingOnly.h"

namespace {

QByteArray Verdict(const std::string& Sql, const std::vector<std::string>& Functions = {}) {
  try {
    ads::sql::RequireReadingOnly(Sql, Functions);
    return "accepted";
  } catch (const ads::EDatabaseError& Error) {
    return Error.what();
  }
}

QByteArray ShapeVerdict(const QByteArray& Sql, const QByteArray& Pattern) {
  try {
    ads::sql::RequireShape(Sql.toStdString(), Pattern.toStdString());
    return "accepted";
  } catch (const ads::EDatabaseError& Error) {
    return Error.what();
  }
}

}  // namespace

class tst_ReadingOnly : public QObject {
  Q_OBJECT

 private slots:
  void shouldLetAQueryThrough_data() {
    QTest::addColumn<QByteArray>("Sql");
    const auto Row = [](const char* Sql) {
      QTest::newRow(QByteArray(Sql).simplified().constData()) << QByteArray(Sql);
    };
    Row("SELECT 1");
    Row("select Zip from Area");
    Row(" \r\n-- a list\rSELECT Zip FROM Area");
    Row("/* a list */ SELECT Zip FROM Area");
    Row("SELECT Zip FROM Area WHERE UPPER(Zip) LIKE '%; DROP TABLE Area --%'");
    Row("SELECT Zip FROM Area -- ; no statement");
    Row("SELECT [Update], \"Into\" FROM [Delete]");
    Row("SELECT T.Update, T . Set FROM Area T");
    Row("SELECT Updated, InsertedBy, Offset_For FROM Area");
    Row("SELECT Zip FROM Area WHERE Zip IN (SELECT Zip FROM Area) UNION ALL SELECT Zip FROM Area");
    Row("SELECT Edit, Sleep FROM Area");
    Row("SELECT pg_name, lo_name FROM Area");
    Row("SELECT COUNT(*), SUM(Amt), COALESCE(Bal, 0), SubString(Zip, 1, 2) FROM Area");
    Row("SELECT Zip FROM Area WHERE Zip = '(' OR Zip = ')'");
    Row("SELECT CASE WHEN Zip = '1' THEN 'a' ELSE 'b' END FROM Area");
  }
  void shouldLetAQueryThrough() {
    QFETCH(QByteArray, Sql);
    QCOMPARE(Verdict(Sql.toStdString()), QByteArray("accepted"));
  }

  void shouldRefuseWhatIsNoQuery_data() {
    QTest::addColumn<QByteArray>("Sql");
    QTest::addColumn<QByteArray>("Expected");
    const auto Row = [](const char* Sql, const char* Expected) {
      QTest::newRow(QByteArray(Sql).simplified().constData()) << QByteArray(Sql) << QByteArray(Expected);
    };
    Row("", "The SQL text is empty.");
    Row(" -- nothing\n", "The SQL text is empty.");
    Row("FROM Cust C", "A query that does not start with SELECT at line 1, column 1 of the SQL text.");
    Row("\n  UPDATE Cust SET ID = ''", "A query that does not start with SELECT at line 2, column 3 of the SQL text.");
    Row("[SELECT] 1", "A query that does not start with SELECT at line 1, column 1 of the SQL text.");
    Row("(SELECT 1)", "A query that does not start with SELECT at line 1, column 1 of the SQL text.");
    Row("WITH x AS (SELECT 1) SELECT * FROM x",
        "A query that does not start with SELECT at line 1, column 1 of the SQL text.");
    Row("SELECT 1;", "A second statement at line 1, column 9 of the SQL text.");
    Row("SELECT 1; DROP TABLE Cust", "A second statement at line 1, column 9 of the SQL text.");
    Row("SELECT 1 --\r; DROP TABLE Cust", "A second statement at line 2, column 1 of the SQL text.");
    Row("SELECT 1 WHERE 1 = 7) OR (1 = 1", "A parenthesis that was not opened at line 1, column 21 of the SQL text.");
    Row("SELECT (1", "A parenthesis that is not closed at line 1, column 8 of the SQL text.");
    Row("SELECT 'a", "An unterminated text at line 1, column 8 of the SQL text.");
    Row("SELECT * INTO Copied FROM Cust", "A query may only read: INTO at line 1, column 10 of the SQL text.");
    Row("SELECT 1.\nInto Copied FROM Cust", "A query may only read: Into at line 2, column 1 of the SQL text.");
    Row("SELECT x FROM (SELECT pg_catalog.pg_sleep(9)) x",
        "A query may only read: the function pg_sleep at line 1, column 34 of the SQL text.");
  }
  void shouldRefuseWhatIsNoQuery() {
    QFETCH(QByteArray, Sql);
    QFETCH(QByteArray, Expected);
    QCOMPARE(Verdict(Sql.toStdString()), Expected);
  }

  void shouldRefuseEachWordThatChangesSomething() {
    const QByteArray Words =
        "INSERT UPDATE DELETE MERGE REPLACE UPSERT DROP CREATE ALTER TRUNCATE INTO GRANT REVOKE EXEC EXECUTE CALL COPY "
        "ATTACH DETACH PRAGMA VACUUM REINDEX BEGIN COMMIT ROLLBACK SAVEPOINT RELEASE LOCK SET DO LISTEN NOTIFY FOR "
        "RETURNING PREPARE DECLARE RESET DISCARD WITH";
    for (const QByteArray& Word : Words.split(' ')) {
      for (const QByteArray& Written : {Word, Word.toLower()}) {
        const QByteArray Refusal = "A query may only read: " + Written + " at line 1, column 12 of the SQL text.";
        QCOMPARE(Verdict("SELECT x, (" + Written.toStdString() + " y) FROM z"), Refusal);
        QCOMPARE(Verdict("SELECT x, T." + Written.toStdString() + " FROM T"), QByteArray("accepted"));
        QCOMPARE(Verdict("SELECT x, '" + Written.toStdString() + "' FROM T"), QByteArray("accepted"));
      }
    }
  }

  void shouldRefuseEachFunctionThatActs() {
    const QByteArray Functions =
        "load_extension writefile readfile edit fts3_tokenizer nextval setval lo_import lo_export lo_unlink "
        "pg_sleep pg_terminate_backend pg_advisory_lock pg_read_file pg_notify dblink dblink_exec set_config setseed "
        "query_to_xml query_to_xml_and_xmlschema table_to_xml crosstab crosstab3 ts_stat txid_current openquery "
        "xp_cmdshell optimize sqlite_log";
    for (const QByteArray& Name : Functions.split(' ')) {
      for (const QByteArray& Called :
           {Name + "(", Name.toUpper() + " (", '[' + Name + "](", '"' + Name + "\" /* */("}) {
        const QByteArray Refusal = Verdict("SELECT x FROM y WHERE " + Called.toStdString() + "'z')");
        QVERIFY2(Refusal.startsWith("A query may only read: the function"), (Called + ": " + Refusal).constData());
      }
      QCOMPARE(Verdict("SELECT " + Name.toStdString() + " FROM x"), QByteArray("accepted"));
    }
  }

  void shouldRefuseTheTablesOfPragmas_data() {
    QTest::addColumn<QByteArray>("Rest");
    for (const char* Rest :
         {"FROM pragma_optimize", "FROM Pragma_Optimize(-1)", "FROM [pragma_optimize]", "FROM \"pragma_optimize\"",
          "FROM 'pragma_optimize'", "FROM 'PRAGMA_optimize' p", "FROM x, 'pragma_optimize'",
          "FROM x JOIN 'pragma_optimize'", "FROM main.pragma_optimize", "FROM main.'pragma_optimize'",
          "FROM ('pragma_optimize')", "FROM x WHERE y IN pragma_optimize", "FROM x WHERE y IN 'pragma_optimize'",
          "FROM x WHERE EXISTS (SELECT 1 FROM /* */ 'pragma_optimize')"}) {
      QTest::newRow(Rest) << QByteArray(Rest);
    }
  }
  void shouldRefuseTheTablesOfPragmas() {
    QFETCH(QByteArray, Rest);
    const QByteArray Refusal = Verdict("SELECT 1 " + Rest.toStdString());
    QVERIFY2(Refusal.startsWith("A query may only read: the table"), Refusal.constData());
  }

  void shouldLookForTheNamesOfPragmas() {
    for (const char* Condition : {"Zip = 'pragma_optimize'", "UPPER(Zip) LIKE 'PRAGMA_OPTIMIZE'", "Zip > 'pragma_x'",
                                  "Zip = 'a' + 'pragma_x'", "UPPER(Zip) LIKE '%PRAGMA_%'", "Zip IN ('a pragma_')"}) {
      QCOMPARE(Verdict("SELECT Zip FROM Area WHERE " + std::string(Condition)), QByteArray("accepted"));
    }
  }

  void shouldRefuseAFunctionInEveryNotation_data() {
    QTest::addColumn<QByteArray>("Sql");
    QTest::addColumn<int>("Column");
    const auto Row = [](const char* Sql, int Column) { QTest::newRow(Sql) << QByteArray(Sql) << Column; };
    Row("SELECT length('a')", 8);
    Row("SELECT \"upper\"('a')", 8);
    Row("SELECT [UPPER]('a')", 8);
    Row("SELECT public.upper('a')", 15);
    Row("SELECT (77).pg_advisory_lock", 12);
    Row("SELECT ('select 1').dblink_exec", 20);
    Row("SELECT ('/etc/hostname').\"pg_read_file\"", 25);
    Row("SELECT ('q') /* */ . [ts_stat]", 20);
    Row("SELECT UPPER('a').ts_stat", 18);
    Row("SELECT (SELECT 'q').ts_stat", 20);
    Row("SELECT CASE WHEN 1 = 1 THEN 'q' END.ts_stat", 36);
    Row("SELECT Zip FROM Area WHERE (Zip).lower = 'a'", 33);
    Row("SELECT Zip FROM Area ORDER BY (Zip).lower", 36);
    Row("SELECT regclass 'area'", 17);
    Row("SELECT \"xml\" '<a/>'", 14);
    Row("SELECT Zip 'name' FROM Area", 12);
    Row("SELECT 1 'name'", 10);
    Row("SELECT 'a' 'b'", 12);
    Row("SELECT 'a'\n'b'", 1);
    Row("SELECT CURRENT_USER", 8);
    Row("SELECT Zip FROM Area WHERE Zip = current_schema", 34);
    Row("SELECT x FROM current_date", 15);
    Row("SELECT Zip FROM Area a (b)", 22);
    Row("SELECT Zip FROM UPPER", 0);
    Row("SELECT x FROM generate_series(1, 9)", 15);
    Row("SELECT x FROM count(77) x", 15);
    Row("SELECT COALESCE(Zip, (Zip, 1)) FROM Area", 26);
    Row("SELECT 1 OPERATOR(pg_catalog.+) 2", 10);
    Row("SELECT ARRAY(SELECT 1)", 8);
    Row("SELECT ROW(1, 2)", 8);
    Row("SELECT Zip COLLATE x FROM Area", 12);
    Row("SELECT Zip GLOB '*' FROM Area", 12);
    Row("SELECT Zip AT TIME ZONE 'utc' FROM Area", 12);
    Row("SELECT Zip FROM Area WHERE Zip MATCH 'x'", 32);
    Row("SELECT Zip %- 1 FROM Area", 12);
    Row("SELECT Zip ||- 1 FROM Area", 12);
    Row("SELECT Zip ->> 1 FROM Area", 13);
    Row("SELECT SUM(Zip) OVER (ORDER BY Zip) FROM Area", 17);
  }
  void shouldRefuseAFunctionInEveryNotation() {
    QFETCH(QByteArray, Sql);
    QFETCH(int, Column);
    const QByteArray Refusal = Verdict(Sql.toStdString());
    if (Column == 0) {  // a table of that name
      QCOMPARE(Refusal, QByteArray("accepted"));
      return;
    }
    QVERIFY2(Refusal.startsWith("A query may only read: "), Refusal.constData());
    QVERIFY2(Refusal.contains(", column " + QByteArray::number(Column) + " of"), Refusal.constData());
  }

  void shouldRefuseOtherClauses_data() {
    QTest::addColumn<QByteArray>("Sql");
    for (const char* Sql : {"SELECT 1 UNION TABLE pg_authid",
                            "SELECT 1 UNION VALUES (1)",
                            "SELECT x FROM (TABLE pg_authid) y",
                            "SELECT x FROM (VALUES (1)) y",
                            "SELECT 1 EXCEPT SELECT 2",
                            "SELECT 1 INTERSECT SELECT 2",
                            "SELECT Zip FROM Area OFFSET 5",
                            "SELECT Zip FROM Area FETCH FIRST 5 ROWS ONLY",
                            "SELECT Zip FROM ONLY Area",
                            "SELECT Zip FROM Area TABLESAMPLE system (1)",
                            "SELECT Zip FROM Area, LATERAL (SELECT 1) x",
                            "SELECT Zip FROM Area NATURAL JOIN Cust",
                            "SELECT Zip FROM Area JOIN Cust USING (Zip)",
                            "SELECT Zip FROM Area WINDOW w AS (ORDER BY Zip)",
                            "SELECT Zip FROM Area PROCEDURE ANALYSE()",
                            "SELECT Zip FROM Area LIMIT (SELECT 1)",
                            "SELECT Zip FROM Area ORDER BY Zip USING <",
                            "SELECT Zip FROM Area; ",
                            "SELECT Zip, FROM Area",
                            "SELECT Zip FROM Area WHERE",

                            "SELECT Zip FROM Area WHERE Zip IN Area"}) {
      QTest::newRow(Sql) << QByteArray(Sql);
    }
  }
  void shouldRefuseOtherClauses() {
    QFETCH(QByteArray, Sql);
    QVERIFY2(Verdict(Sql.toStdString()) != "accepted", Sql.constData());
  }

  void shouldRefuseTheTablesOfTheServersOwn() {
    for (const char* Table :
         {"pg_class", "PG_Authid", "pg_catalog.pg_proc", "[pg_class]", "\"pg_class\"", "sqlite_master",
          "main.sqlite_schema", "temp.[sqlite_temp_master]", "information_schema.tables", "INFORMATION_SCHEMA.[TABLES]",
          "system.tables", "\"system\".objects", "mysql.user", "performance_schema.threads", "sys.objects", "dbstat",
          "json_each", "'sqlite_master'", "main.'sqlite_master'"}) {
      for (const char* From : {"FROM %1", "FROM Area, %1 x", "FROM Area JOIN %1 ON 1 = 1", "FROM (%1)",
                               "FROM Area WHERE Zip IN (SELECT 1 FROM %1)", "FROM Area UNION SELECT 1 FROM %1"}) {
        const QString Sql = "SELECT 1 " + QString(From).arg(Table);
        const QByteArray Refusal = Verdict(Sql.toStdString());
        QVERIFY2(Refusal.startsWith("A query may only read: the table"), qPrintable(Sql + ": " + Refusal));
      }
    }
    QCOMPARE(Verdict("SELECT [QtyDec] FROM [Sys]"), QByteArray("accepted"));
    QCOMPARE(Verdict("SELECT sys.pg_class, sqlite_x FROM Sys"), QByteArray("accepted"));
  }

  void shouldLetAHostsQueryCallMore() {
    const std::vector<std::string> Functions{"length", "cast", "series", "LEFT"};
    for (const char* Sql : {"SELECT LENGTH(Zip) FROM Area", "SELECT CAST(Zip AS VARCHAR(80)) X FROM Area",
                            "SELECT CAST(Zip AS double precision) FROM Area", "SELECT n FROM Series(1, 9) n",
                            "SELECT left(Zip, 2) FROM Area"}) {
      QCOMPARE(Verdict(Sql, Functions), QByteArray("accepted"));
      QVERIFY(Verdict(Sql) != "accepted");
    }
    for (const char* Sql : {"SELECT x.length(Zip) FROM Area", "SELECT (Zip).length FROM Area",
                            "SELECT \"length\"(Zip) FROM Area", "SELECT CAST(Zip AS x.y) FROM Area"}) {
      QVERIFY2(Verdict(Sql, Functions) != "accepted", Sql);
    }
  }

  void shouldKnowAQuerysShape_data() {
    QTest::addColumn<QByteArray>("Sql");
    QTest::addColumn<QByteArray>("Expected");
    const auto Row = [](const char* Sql, const char* Expected) {
      QTest::newRow(Sql) << QByteArray(Sql) << QByteArray(Expected);
    };
    Row("SELECT A FROM T WHERE A = 'Y' AND N = 0", "accepted");
    Row("SELECT A FROM T WHERE A = '' AND N = 1e-3", "accepted");
    Row("SELECT A FROM T WHERE A = 'O''NEIL ; -- /* ' AND N =  -12.5 ", "accepted");
    Row("SELECT A FROM T WHERE A = '\\' AND N = +7", "accepted");
    Row("SELECT A\nFROM T\nWHERE A = 'Y'\nAND N = 0", "accepted");
    const char* const At27 = "A value that would change the query at line 1, column 30 of the SQL text.";
    Row("SELECT A FROM T WHERE A = 'Y','Z' AND N = 0", At27);
    Row("SELECT A FROM T WHERE A = 'Y' OR 'x' = 'x' AND N = 0",
        "A value that would change the query at line 1, column 31 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y'--' AND N = 0", At27);
    Row("SELECT A FROM T WHERE A = 'Y'/**/ AND N = 0", At27);
    Row("SELECT A FROM T WHERE A = 7 AND N = 0",
        "A value that would change the query at line 1, column 27 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y' AND N = 0 + 1",
        "A value that would change the query at line 1, column 41 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y' AND N = -(1)",
        "A value that would change the query at line 1, column 39 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y' AND N = - - 1",
        "A value that would change the query at line 1, column 39 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y' AND N = x",
        "A value that would change the query at line 1, column 39 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y' AND N",
        "A value that would change the query at line 1, column 36 of the SQL text.");
    Row("SELECT A FROM T WHERE A = 'Y' AND N = 'x", "An unterminated text at line 1, column 39 of the SQL text.");
  }
  void shouldKnowAQuerysShape() {
    QFETCH(QByteArray, Sql);
    QFETCH(QByteArray, Expected);
    QCOMPARE(ShapeVerdict(Sql, "SELECT A FROM T WHERE A = 'X' AND N = 0"), Expected);
  }

  void shouldRefuseTooDeepANesting() {
    const auto Nested = [](std::size_t Depth) {
      return "SELECT " + std::string(Depth, '(') + "1" + std::string(Depth, ')');
    };
    QCOMPARE(Verdict(Nested(200)), QByteArray("accepted"));
    QCOMPARE(Verdict(Nested(201)), QByteArray("Too deep a nesting at line 1, column 208 of the SQL text."));
    QVERIFY(Verdict(Nested(3'000'000)).startsWith("Too deep a nesting"));
  }

  void shouldTakeTimeInProportionToTheText() {
    std::string Sql = "SELECT Zip FROM Area WHERE Zip LIKE '" + std::string(5'000'000, ';') + "'";
    for (int I = 0; I < 100'000; ++I) Sql += " OR (Zip = 'x')";
    QElapsedTimer Timer;
    Timer.start();
    QCOMPARE(Verdict(Sql), QByteArray("accepted"));
    QVERIFY2(Timer.elapsed() < 5000, qPrintable(QString::number(Timer.elapsed())));
  }
};

QTEST_GUILESS_MAIN(tst_ReadingOnly)
#include "tst_ReadingOnly.moc"
