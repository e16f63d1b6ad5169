#include <QElapsedTimer>
#include <QSqlDriver>
#include <QTest>

#include "ads/Ads.h"
#include "ads/MessageOf.h"
#include "ads/Values.h"
#include "servers/Backends.h"
#include "servers/OpenOrSkip.h"

using support::MessageOf;
using support::TBackend;
using support::TBackendKind;

namespace {

constexpr char Lost[] = "The connection to the database is lost; it must be opened again before lists can be read.";

constexpr char Closed[] = "The database connection was closed while rows were being read from it.";

}  // namespace

/// What goes wrong with servers and connections: each time a clear message, the dataset as it was, and lists again as
/// soon as the connection is usable again.
class tst_BadDays : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;
  std::string LastFailure_;  // of the last long list: whether it was told as a lost connection
  std::unique_ptr<ads::TAdsQuery> List_;
  ads::TField* Zip_ = nullptr;

  void AddBackends(bool OnlyServers) {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) {
      const bool IsServer = support::IsOnPostgreSQL(Kind) || support::IsOnMariaDB(Kind);
      if (!OnlyServers || IsServer) QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  bool IsOnMariaDB() const { return support::IsOnMariaDB(Company_->Kind()); }
  // The host's session, as the server counts them; how it is ended, and how one sees that it has.
  QString Session() const {
    return TBackend::Value(Company_->Database(), IsOnMariaDB() ? "SELECT CONNECTION_ID()" : "SELECT pg_backend_pid()")
        .toString();
  }
  void EndSession(const QString& Number) {
    Company_->ExecuteBeside(IsOnMariaDB() ? "KILL CONNECTION " + Number
                                          : "SELECT pg_terminate_backend(" + Number + ")");
  }
  int SessionsOf(const QString& Number) const {
    const QString Sessions =
        IsOnMariaDB() ? "information_schema.processlist WHERE id = " : "pg_stat_activity WHERE pid = ";
    return Company_->ValueBeside("SELECT COUNT(*) FROM " + Sessions + Number).toInt();
  }
  void StopServer() { IsOnMariaDB() ? Backends_->MariaDB().Stop() : Backends_->Server().Stop(); }
  bool RestartServer() { return IsOnMariaDB() ? Backends_->MariaDB().Restart() : Backends_->Server().Restart(); }
  bool Open(const QString& Options = {}) {
    const TBackendKind Kind = *static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()));
    Company_ = support::OpenOrSkip(*Backends_, Kind, Options);
    if (Company_ == nullptr) return false;
    List_ = std::make_unique<ads::TAdsQuery>(nullptr);
    List_->SetConnection(Company_->Connection());
    Zip_ = List_->AddField("Zip", ads::TFieldType::ftString, 30);
    List_->SQL()->Add("SELECT Zip FROM Area ORDER BY Zip");
    List_->Open();
    return true;
  }
  std::string Reopen() {
    return MessageOf([this] { List_->Open(); });
  }
  QStringList Rows(const std::string& Sql) { return Values(*Company_->Connection(), Sql); }

  // The list still shows what it showed.
  void KeepsItsRows(int Count, const std::string& First) {
    QVERIFY(List_->Active());
    QCOMPARE(List_->RecordCount(), Count);
    QCOMPARE(Zip_->AsString(), First);
  }

  // Reads very many rows, in the midst of which the host does something, once.
  std::string ReadLong(const std::function<void()>& HostDoes) {
    ads::TAdsQuery Long(nullptr);
    Long.SetConnection(Company_->Connection());
    Long.AddField("ID", ads::TFieldType::ftString, 6);
    Long.SQL()->Add("SELECT A.ID FROM Cust A, Cust B");
    bool Done = false;
    Long.OnProgress = [&] {
      if (!std::exchange(Done, true)) HostDoes();
    };
    LastFailure_.clear();
    const std::string Message = MessageOf([&] {
      try {
        Long.Open();
      } catch (const ads::EConnectionLost&) {
        LastFailure_ = "lost";
        throw;
      }
    });
    return Done && !Long.Active() ? Message : "the rows were read to their end";
  }

  static qsizetype OpenFiles() { return QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size(); }

  // What the host does to be connected again.
  void OpenAgain() {
    QSqlDatabase Database = Company_->Database();
    Database.close();
    QVERIFY2(Database.open(), qPrintable(Database.lastError().text()));
    QCOMPARE(Reopen(), std::string("nothing was thrown"));
  }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void cleanup() {
    List_.reset();
    Company_.reset();
  }

  void shouldSayThatTheServerIsGone_data() { AddBackends(true); }
  void shouldSayThatTheServerIsGone() {
    if (!Open()) return;
    const int Count = List_->RecordCount();
    const std::string First = Zip_->AsString();
    StopServer();
    const std::string Gone = Reopen();
    VERIFY_CONTAINS(Gone, Lost);
    KeepsItsRows(Count, First);
    VERIFY_CONTAINS(Reopen(), Lost);  // and once more when it is asked again
    QVERIFY(RestartServer());
    VERIFY_CONTAINS(Reopen(),
                    Lost);  // what the host had set up in its session is gone: only the host may open it again
    KeepsItsRows(Count, First);
    OpenAgain();
    KeepsItsRows(Count, First);
  }

  void shouldSayThatTheConnectionWasCut_data() { AddBackends(true); }
  void shouldSayThatTheConnectionWasCut() {
    if (!Open()) return;
    const int Count = List_->RecordCount();
    const std::string First = Zip_->AsString();
    const QString Mine = Session();
    EndSession(Mine);
    QTRY_COMPARE(SessionsOf(Mine), 0);
    VERIFY_CONTAINS(Reopen(), Lost);
    KeepsItsRows(Count, First);
    OpenAgain();
  }

  // MariaDB's driver for ODBC has every row before the first one is read; PostgreSQL's unless it is asked for portions.
  void shouldSayThatTheConnectionWasCutInTheMidstOfTheRows_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::PostgreSQL, TBackendKind::ODBCPostgreSQL, TBackendKind::MariaDB}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldSayThatTheConnectionWasCutInTheMidstOfTheRows() {
    QFETCH(const TBackendKind, Kind);
    if (!Open(Kind == TBackendKind::ODBCPostgreSQL ? "UseDeclareFetch=1" : "")) return;
    const QString Mine = Session();
    ads::TAdsQuery Long(nullptr);
    Long.SetConnection(Company_->Connection());
    Long.AddField("ID", ads::TFieldType::ftString, 6);
    Long.SQL()->Add("SELECT A.ID FROM Cust A, Cust B, Cust C");
    int Calls = 0;
    Long.OnProgress = [&] {
      if (++Calls == 2) EndSession(Mine);
    };
    const std::string Message = MessageOf([&] { Long.Open(); });
    VERIFY_CONTAINS(Message, Lost);
    QVERIFY(Calls >= 2);
    QVERIFY(!Long.Active());
    VERIFY_CONTAINS(Reopen(), Lost);
    OpenAgain();
  }

  void shouldSayThatTheHostClosedTheConnectionInTheMidstOfTheRows_data() { AddBackends(false); }
  void shouldSayThatTheHostClosedTheConnectionInTheMidstOfTheRows() {
    const QByteArray Options[] = {"UseDeclareFetch=0;StepAPI=0", "UseDeclareFetch=1;StepAPI=1"};
    for (const QByteArray& Option : Options) {
      for (const bool ReopensAtOnce : {false, true}) {
        QFETCH(const TBackendKind, Kind);
        if (!Open(Kind == TBackendKind::MariaDB ? QByteArray() : Option)) return;
        const int Count = List_->RecordCount();
        const std::string First = Zip_->AsString();
        const qsizetype Files = OpenFiles();
        const auto Close = [&] {
          Company_->Database().close();
          if (ReopensAtOnce) QVERIFY(Company_->Database().open());
        };
        QCOMPARE(QString::fromStdString(ReadLong(Close)), QString(Closed));
        KeepsItsRows(Count, First);
        if (!ReopensAtOnce) QCOMPARE(Reopen(), std::string("The database connection is not open."));
        OpenAgain();
        QCOMPARE(OpenFiles(), Files);
      }
    }
  }

  void shouldSayThatTheHostRemovedTheConnectionInTheMidstOfTheRows_data() { AddBackends(false); }
  void shouldSayThatTheHostRemovedTheConnectionInTheMidstOfTheRows() {
    if (!Open()) return;
    // Qt closes no MariaDB connection that is removed while it is in use: the client library holds it, and the server.
    const bool StaysOpen = Company_->Kind() == TBackendKind::MariaDB;
    static auto* const Handles = new QVariantList;
    const QString Mine = StaysOpen ? Session() : QString();
    const auto Remove = [&] {
      if (StaysOpen) *Handles << Company_->Database().driver()->handle();
      QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is still in use, all queries will cease to work"));
      QSqlDatabase::removeDatabase(Company_->Database().connectionName());
    };
    QCOMPARE(ReadLong(Remove), std::string(Closed));
    QCOMPARE(LastFailure_, std::string("lost"));
    QCOMPARE(Reopen(), std::string("The database connection is not open."));
    if (StaysOpen) EndSession(Mine);
  }

  // The inner list ends first, and its failure is not the outer one's.
  void shouldSayThatTheHostClosedTheConnectionUnderTwoLists_data() { AddBackends(false); }
  void shouldSayThatTheHostClosedTheConnectionUnderTwoLists() {
    if (!Open()) return;
    std::string Inner;
    const std::string Outer = ReadLong([&] { Inner = ReadLong([&] { Company_->Database().close(); }); });
    QCOMPARE(Inner, std::string(Closed));
    QCOMPARE(Outer, std::string(Closed));
    OpenAgain();
  }

  void shouldSayThatAQueryTookTooLong_data() { AddBackends(true); }
  void shouldSayThatAQueryTookTooLong() {
    if (!Open()) return;
    const int Count = List_->RecordCount();
    const std::string First = Zip_->AsString();
    Company_->Execute(IsOnMariaDB() ? "SET max_statement_time = 0.2" : "SET statement_timeout = '200ms'");
    for (const bool InTransaction : {false, true}) {
      if (InTransaction) QVERIFY(Company_->Database().transaction());
      const std::string Message = MessageOf([this] { Rows("SELECT COUNT(*) X FROM Cust A, Cust B, Cust C, Cust D"); });
      VERIFY_CONTAINS(Message, IsOnMariaDB() ? "Query execution was interrupted (max_statement_time exceeded)"
                                             : "canceling statement due to statement timeout");
      KeepsItsRows(Count, First);
      QCOMPARE(Reopen(), std::string("nothing was thrown"));
      if (InTransaction) QVERIFY(Company_->Database().commit());
    }
    if (IsOnMariaDB()) {
      QCOMPARE(TBackend::Value(Company_->Database(), "SELECT @@max_statement_time").toDouble(), 0.2);
    } else {
      QCOMPARE(TBackend::Value(Company_->Database(), "SHOW statement_timeout").toString(), QString("200ms"));
    }
  }

  void shouldSayThatATableIsLocked_data() { AddBackends(true); }
  void shouldSayThatATableIsLocked() {
    if (!Open()) return;
    Company_->Execute(IsOnMariaDB() ? "SET lock_wait_timeout = 1" : "SET lock_timeout = '200ms'");
    for (const bool InTransaction : {false, true}) {
      if (InTransaction) QVERIFY(Company_->Database().transaction());
      if (!IsOnMariaDB()) Company_->ExecuteBeside("BEGIN");
      Company_->ExecuteBeside(IsOnMariaDB() ? "LOCK TABLES area WRITE" : "LOCK TABLE area IN ACCESS EXCLUSIVE MODE");
      VERIFY_CONTAINS(Reopen(),
                      IsOnMariaDB() ? "Lock wait timeout exceeded" : "canceling statement due to lock timeout");
      QVERIFY(List_->Active());
      QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));  // other tables are free
      Company_->ExecuteBeside(IsOnMariaDB() ? "UNLOCK TABLES" : "ROLLBACK");
      QCOMPARE(Reopen(), std::string("nothing was thrown"));
      if (InTransaction) QVERIFY(Company_->Database().commit());
    }
  }

  void shouldSayThatTheFileIsLocked_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::SQLite, TBackendKind::ODBCSQLite}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldSayThatTheFileIsLocked() {
    if (!Open("Timeout=200")) return;
    if (Company_->Kind() == TBackendKind::SQLite) Company_->Execute("PRAGMA busy_timeout = 200");
    const int Count = List_->RecordCount();
    const std::string First = Zip_->AsString();
    Company_->ExecuteBeside("BEGIN EXCLUSIVE");
    VERIFY_CONTAINS(Reopen(), "locked");
    KeepsItsRows(Count, First);
    Company_->ExecuteBeside("ROLLBACK");
    QCOMPARE(Reopen(), std::string("nothing was thrown"));
  }

  void shouldSayThatTheConnectionIsNotOpen_data() { AddBackends(false); }
  void shouldSayThatTheConnectionIsNotOpen() {
    if (!Open()) return;
    Company_->Database().close();
    QCOMPARE(Reopen(), std::string("The database connection is not open."));
    QVERIFY(List_->Active());
    OpenAgain();
  }
};

QTEST_GUILESS_MAIN(tst_BadDays)
#include "tst_BadDays.moc"
