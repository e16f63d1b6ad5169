#include <QElapsedTimer>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/sql/ReadingOnly.h"

namespace {

QByteArray Verdict(const std::string& Sql) {
  try {
    ads::sql::RequireReadingOnly(Sql);
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
