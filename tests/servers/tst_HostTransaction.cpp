#include <sqlite3.h>

#include <QTest>

#include "ads/Ads.h"
#include "ads/Values.h"
#include "servers/Backends.h"
#include "servers/OpenOrSkip.h"

using support::TBackend;
using support::TBackendKind;

namespace {

constexpr char CountAreas[] = "SELECT COUNT(*) X FROM Area";
constexpr const char* FailingQueries[] = {"SELECT Zip X FROM Area WHERE UPPER(Nowhere) LIKE '%A%' ORDER BY X",
                                          "SELECT Zip X FROM Area WHERE Zip = 'it''s \\' AND Zip > AND 0=0 ORDER BY X",
                                          "SELECT Zip X FROM"};

// What a host could see of its session on a PostgreSQL server, asked in the session itself and beside it.
QStringList ServerTraces(const TBackend& Backend, int Process) {
  const auto All = [](const QSqlDatabase& Database, const QString& Sql) {
    QStringList Result;
    QSqlQuery Query(Sql, Database);
    if (Query.lastError().isValid()) qFatal("%s", qPrintable(Query.lastError().text()));
    while (Query.next()) Result += Query.value(0).toString();
    return Result;
  };
  const QString Number = QString::number(Process);
  QStringList Result;
  Result += All(Backend.Beside(),
                "SELECT state || ' ' || coalesce(xact_start::text, '-') || ' ' || coalesce(backend_xmin::text, '-') "
                "FROM pg_stat_activity WHERE pid = " +
                    Number);
  Result += All(Backend.Beside(),
                "SELECT locktype || ' ' || mode || ' ' || coalesce(relation::regclass::text, '-') FROM pg_locks "
                "WHERE pid = " +
                    Number + " ORDER BY 1");
  Result += "prepared: " + All(Backend.Database(), "SELECT name FROM pg_prepared_statements ORDER BY 1").join(",");
  Result += "cursors: " + All(Backend.Database(), "SELECT COUNT(*) FROM pg_cursors").join(",");
  Result += All(Backend.Database(), "SELECT name || '=' || setting FROM pg_settings ORDER BY 1");
  return Result;
}

}  // namespace

/// A pick inside a host's work: it sees what the host sees, and leaves nothing behind.
class tst_HostTransaction : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Host_;

  void AddBackends() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Options");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind << QString();
    for (const char* Options : {"UseDeclareFetch=1", "UseServerSidePrepare=0", "Protocol=7.4-0"}) {
      QTest::newRow(Options) << TBackendKind::ODBCPostgreSQL << QString(Options);
    }
  }
  bool Open() {
    const TBackendKind Kind = *static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()));
    const QString Options = *static_cast<QString*>(QTest::qData("Options", qMetaTypeId<QString>()));
    Host_ = support::OpenOrSkip(*Backends_, Kind, Options);
    return Host_ != nullptr;
  }
  QStringList Rows(const std::string& Sql) { return Values(*Host_->Connection(), Sql, "X", {"CAST"}); }
  int Areas() { return Rows(CountAreas).value(0).toInt(); }
  int AreasBeside() { return Host_->ValueBeside("SELECT COUNT(*) FROM area").toInt(); }

  // Over a name, over the grammar and, where that can be, over a value.
  void FailToOpen() {
    for (const char* Sql : FailingQueries) QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows(Sql));
    if (!support::IsOnPostgreSQL(Host_->Kind())) return;
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows("SELECT CAST('x' + Zip AS INTEGER) X FROM Area"));
  }

  // Each way in which a reading can come to its end.
  void ReadInEveryWay() {
    QCOMPARE(Rows("SELECT UPPER(C.Company) X FROM Cust C WHERE UPPER(C.Company) LIKE '%É%' ORDER BY X").isEmpty(),
             false);
    QCOMPARE(Rows("SELECT Zip X FROM Area WHERE 0=1"), QStringList());
    FailToOpen();
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows("DELETE FROM Area"));
    ads::TAdsTable Table(nullptr);
    Table.SetConnection(Host_->Connection());
    Table.SetTableName("Cust");
    Table.SetIndex("PK_ID", "ID");
    Table.AddField("Company", ads::TFieldType::ftString, 35);
    Table.Open();
    QVERIFY(Table.FindKey("C00500"));
    QVERIFY(!Table.FindKey("none"));
    ads::TAdsQuery Broken(nullptr);
    Broken.SetConnection(Host_->Connection());
    Broken.AddField("ID", ads::TFieldType::ftString, 6);
    Broken.SQL()->Add("SELECT A.ID FROM Cust A, Cust B WHERE B.ID LIKE 'C00%'");
    Broken.OnProgress = [] { throw std::runtime_error("enough"); };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Broken.Open());
    ads::TAdsQuery NoField(nullptr);
    NoField.SetConnection(Host_->Connection());
    NoField.AddField("Missing", ads::TFieldType::ftString, 6);
    NoField.SQL()->Add("SELECT ID FROM Cust");
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, NoField.Open());
  }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void cleanup() { Host_.reset(); }

  void shouldSeeWhatTheHostHasNotCommitted_data() { AddBackends(); }
  void shouldSeeWhatTheHostHasNotCommitted() {
    if (!Open()) return;
    const int Before = Areas();
    QVERIFY(Host_->Database().transaction());
    Host_->Execute("INSERT INTO area (zip) VALUES ('mine')");
    QCOMPARE(Areas(), Before + 1);
    QCOMPARE(Rows("SELECT Zip X FROM Area WHERE Zip = 'mine'"), QStringList("mine"));
    QVERIFY(Host_->Database().rollback());
    QCOMPARE(Areas(), Before);
    QCOMPARE(AreasBeside(), Before);
  }

  void shouldLeaveTheTransactionUsableAfterAFailedOpening_data() { AddBackends(); }
  void shouldLeaveTheTransactionUsableAfterAFailedOpening() {
    if (!Open()) return;
    const int Before = Areas();
    QVERIFY(Host_->Database().transaction());
    Host_->Execute("INSERT INTO area (zip) VALUES ('first')");
    FailToOpen();
    QCOMPARE(Areas(), Before + 1);
    Host_->Execute("INSERT INTO area (zip) VALUES ('second')");
    FailToOpen();
    QVERIFY2(Host_->Database().commit(), qPrintable(Host_->Database().lastError().text()));
    QCOMPARE(AreasBeside(), Before + 2);
  }

  void shouldLeaveATransactionUsableInWhichItIsTheFirstToRead_data() { AddBackends(); }
  void shouldLeaveATransactionUsableInWhichItIsTheFirstToRead() {
    if (!Open()) return;
    const int Before = Areas();
    for (int Round = 1; Round <= 2; ++Round) {
      QVERIFY(Host_->Database().transaction());
      FailToOpen();
      Host_->Execute(QStringLiteral("INSERT INTO area (zip) VALUES ('in round %1')").arg(Round));
      FailToOpen();
      QVERIFY2(Host_->Database().commit(), qPrintable(Host_->Database().lastError().text()));
      QCOMPARE(AreasBeside(), Before + Round);
    }
  }

  void shouldLeaveATransactionThatBeganByAStatementAsItIs_data() { AddBackends(); }
  void shouldLeaveATransactionThatBeganByAStatementAsItIs() {
    if (!Open()) return;
    const int Before = Areas();
    Host_->Execute("BEGIN");
    Host_->Execute("INSERT INTO area (zip) VALUES ('first')");
    Host_->Execute("SAVEPOINT zul_pick");  // the host may call its own as it likes
    Host_->Execute("INSERT INTO area (zip) VALUES ('second')");
    QCOMPARE(Areas(), Before + 2);
    FailToOpen();
    QCOMPARE(AreasBeside(), Before);
    Host_->Execute("INSERT INTO area (zip) VALUES ('third')");
    Host_->Execute("ROLLBACK TO SAVEPOINT zul_pick");
    QCOMPARE(Areas(), Before + 1);
    Host_->Execute("COMMIT");
    QCOMPARE(AreasBeside(), Before + 1);
  }

  void shouldLeaveNothingBehindOutsideATransaction_data() { AddBackends(); }
  void shouldLeaveNothingBehindOutsideATransaction() {
    if (!Open()) return;
    if (support::IsOnMariaDB(Host_->Kind())) return LeavesNothingOnMariaDB(false);
    if (!support::IsOnPostgreSQL(Host_->Kind())) return LeavesNothingInSQLite(false);
    const int Process = TBackend::Value(Host_->Database(), "SELECT pg_backend_pid()").toInt();
    const QStringList Before = ServerTraces(*Host_, Process);
    QVERIFY(Before.contains("idle - -"));
    ReadInEveryWay();
    QCOMPARE(ServerTraces(*Host_, Process), Before);
    Host_->Execute("INSERT INTO area (zip) VALUES ('mine')");  // of itself permanent
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'mine'").toInt(), 1);
  }

  void shouldLeaveNothingBehindInTheHostsTransaction_data() { AddBackends(); }
  void shouldLeaveNothingBehindInTheHostsTransaction() {
    if (!Open()) return;
    if (support::IsOnMariaDB(Host_->Kind())) return LeavesNothingOnMariaDB(true);
    if (!support::IsOnPostgreSQL(Host_->Kind())) return LeavesNothingInSQLite(true);
    const int Process = TBackend::Value(Host_->Database(), "SELECT pg_backend_pid()").toInt();
    QVERIFY(Host_->Database().transaction());
    Host_->Execute("INSERT INTO terms (\"desc\") VALUES ('mine')");
    Host_->Execute("SET LOCAL search_path = public");
    ServerTraces(*Host_, Process);  // takes locks on the catalogs itself
    const QStringList Before = ServerTraces(*Host_, Process);
    QVERIFY(Before.first().startsWith("idle in transaction"));
    ReadInEveryWay();
    QCOMPARE(ServerTraces(*Host_, Process), Before);
    Host_->Execute("INSERT INTO area (zip) VALUES ('mine')");  // it may write as before
    QVERIFY(Host_->Database().commit());
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'mine'").toInt(), 1);
  }

  void shouldKeepAReadingHostReading_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Options");
    for (const TBackendKind Kind : support::AllBackends) {
      if (support::IsOnPostgreSQL(Kind) || support::IsOnMariaDB(Kind)) {
        QTest::newRow(support::NameOf(Kind)) << Kind << QString();
      }
    }
  }
  void shouldKeepAReadingHostReading() {
    if (!Open()) return;
    Host_->Execute("START TRANSACTION READ ONLY");
    QVERIFY(Areas() > 0);
    QSqlQuery Query(Host_->Database());
    QVERIFY(!Query.exec("INSERT INTO area (zip) VALUES ('mine')"));
    Host_->Execute("ROLLBACK");
  }

  void shouldSayThatTheHostsTransactionHasFailedAlready() {
    const QString Missing = Backends_->Missing(TBackendKind::PostgreSQL);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    Host_ = Backends_->Open(TBackendKind::PostgreSQL);
    QVERIFY(Host_->Database().transaction());
    QSqlQuery Query(Host_->Database());
    QVERIFY(!Query.exec("SELECT nothing FROM area"));
    try {
      Areas();
      QFAIL("nothing was thrown");
    } catch (const ads::EDatabaseError& Error) {
      QCOMPARE(QString(Error.what()),
               QString("current transaction is aborted, commands ignored until end of transaction block"));
    }
    QVERIFY(Host_->Database().rollback());
    QVERIFY(Areas() > 0);
  }

 private:
  void LeavesNothingOnMariaDB(bool InTransaction) {
    const QString Session = TBackend::Value(Host_->Database(), "SELECT CONNECTION_ID()").toString();
    const auto Traces = [&] {
      QStringList Result;
      for (const QString& Sql :
           {"SELECT count(*), coalesce(max(trx_state), '') FROM information_schema.innodb_trx WHERE "
            "trx_mysql_thread_id = " +
                Session,
            QString("SELECT variable_value FROM information_schema.global_status WHERE variable_name = "
                    "'PREPARED_STMT_COUNT'"),
            QString("SELECT count(*) FROM information_schema.processlist WHERE user = 'tester'")}) {
        Result << Host_->ValueBeside(Sql).toString();
      }
      return Result << TBackend::Value(Host_->Database(), "SELECT @@in_transaction").toString();
    };
    if (InTransaction) QVERIFY(Host_->Database().transaction());
    if (InTransaction) Host_->Execute("INSERT INTO area (zip) VALUES ('mine')");
    const QStringList Before = Traces();
    ReadInEveryWay();
    QCOMPARE(Traces(), Before);
    if (InTransaction) QVERIFY(Host_->Database().commit());
    Host_->ExecuteBeside("SET lock_wait_timeout = 1");
    Host_->ExecuteBeside("LOCK TABLES area WRITE, cust WRITE");  // nobody holds a lock
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'mine'").toInt(), InTransaction ? 1 : 0);
    Host_->ExecuteBeside("UNLOCK TABLES");
  }

  void LeavesNothingInSQLite(bool InTransaction) {
    sqlite3* Handle = support::SQLiteOf(*Host_);
    if (InTransaction) QVERIFY(Host_->Database().transaction());
    if (InTransaction) Host_->Execute("INSERT INTO area (zip) VALUES ('mine')");
    ReadInEveryWay();
    if (Handle != nullptr) {
      QVERIFY(sqlite3_next_stmt(Handle, nullptr) == nullptr);
      QCOMPARE(sqlite3_get_autocommit(Handle) != 0, !InTransaction);
    }
    if (InTransaction) QVERIFY(Host_->Database().commit());
    Host_->ExecuteBeside("BEGIN EXCLUSIVE");  // nobody holds a lock
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'mine'").toInt(), InTransaction ? 1 : 0);
    Host_->ExecuteBeside("ROLLBACK");
  }
};

QTEST_GUILESS_MAIN(tst_HostTransaction)
#include "tst_HostTransaction.moc"
