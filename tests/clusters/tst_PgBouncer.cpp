#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSqlDriver>
#include <QTest>
#include <algorithm>
#include <set>
#include <thread>

#include "ads/Ads.h"
#include "ads/Await.h"
#include "ads/MessageOf.h"
#include "ads/Values.h"
#include "check/Check.h"
#include "clusters/Host.h"
#include "clusters/ThrowawayPgBouncer.h"
#include "servers/ListDialog.h"
#include "support/PickDriver.h"

using support::After;
using support::Await;
using support::DrivePickAs;
using support::NewName;
using support::TBackend;
using support::TBackendKind;
using support::THost;
using support::TListDialog;
using support::TListSource;
using TMode = TThrowawayPgBouncer::TMode;

Q_DECLARE_METATYPE(TMode)

namespace {

const TListSource Sleeping("A.ID", "Sleepy A WHERE 0=0");
const TListSource Million("A.ID + '-' + B.ID", "Cust A, Cust B WHERE 0=0", "A.ID + '-' + B.ID ID");
constexpr char CountCustomers[] = "SELECT COUNT(*) X FROM Cust";
constexpr char Lost[] = "The connection to the database is lost; it must be opened again before lists can be read.";

// What a client finds in its session: the server's connection, that it is in no transaction and may write, and how
// everything is set.
constexpr char Session[] =
    "SELECT pg_backend_pid() || ' ' || (SELECT COUNT(*) FROM pg_prepared_statements) || ' prepared, ' || (SELECT "
    "COUNT(*) "
    "FROM pg_cursors) || ' cursors, ' || (SELECT COUNT(*) FROM pg_locks WHERE pid = pg_backend_pid() AND locktype = "
    "'relation' AND relation = 'cust'::regclass) || ' locks, ' || (now() = statement_timestamp()) || (SELECT "
    "string_agg(name || '=' || setting, ';' ORDER BY name) FROM pg_settings)";

std::string Told(const std::vector<std::string>& Messages) {
  std::string Result;
  for (const std::string& Message : Messages) Result += Message + "|";
  return Result;
}

}  // namespace

/// Picks through a pooler, which gives a host a server's connection for its session or for a transaction at a time.
class tst_PgBouncer : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;
  std::unique_ptr<TThrowawayPgBouncer> Pooler_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  static void AddModes() {
    QTest::addColumn<TMode>("Mode");
    QTest::newRow("session") << TMode::Session;
    QTest::newRow("transaction") << TMode::Transaction;
  }
  static TMode Mode() { return *static_cast<TMode*>(QTest::qData("Mode", qMetaTypeId<TMode>())); }

  void Open(TMode Mode, const QStringList& Settings = {}) {
    Pooler_ = std::make_unique<TThrowawayPgBouncer>(Backends_->Server(), Mode, Settings);
    QVERIFY2(Pooler_->IsRunning(), qPrintable(Pooler_->Reason()));
  }
  void OpenOfOne(TMode Mode, const QStringList& Settings = {}) {
    Open(Mode, QStringList{"default_pool_size = 1"} + Settings);
  }
  std::unique_ptr<THost> Connect() {
    return std::make_unique<THost>(Pooler_->Connect(NewName(), Company_->Database().databaseName()));
  }
  static int Customers(THost& Host) { return Values(*Host.Connection(), CountCustomers).value(0).toInt(); }
  static int CustomersOrNone(THost& Host) {
    try {
      return Customers(Host);
    } catch (const ads::EDatabaseError& Error) {
      qWarning("%s", Error.what());
      return 0;
    }
  }

  // How many of the servers' connections the pooler has given to somebody, and how many clients wait for one.
  QString Pool() const {
    for (const QString& Line : Pooler_->Ask("SHOW POOLS")) {
      if (!Line.contains("database=" + Company_->Database().databaseName())) continue;
      static const QRegularExpression Wanted("sv_active=(\\d+).*");
      static const QRegularExpression Waiting("cl_waiting=(\\d+)");
      return Wanted.match(Line).captured(1) + " given, " + Waiting.match(Line).captured(1) + " waiting";
    }
    return {};
  }

  // How long somebody waits for a connection of the server. Those who wait when a test begins, as for the first
  // connection of all, are given the time that they need.
  void WaitASecondAtMost() const { Pooler_->Ask("SET query_wait_timeout = 1"); }

  qint64 BytesToClients() const {
    for (const QString& Line : Pooler_->Ask("SHOW STATS_TOTALS")) {
      if (!Line.contains("database=" + Company_->Database().databaseName())) continue;
      static const QRegularExpression Sent("bytes_sent=(\\d+)");
      return Sent.match(Line).captured(1).toLongLong();
    }
    return -1;
  }

  void StopWhileItSleeps(TListDialog& Dialog, int Milliseconds) {
    Dialog.Source = Sleeping;
    After(&Dialog, Milliseconds, [&Dialog] { QTest::keyClick(Dialog.edFind, Qt::Key_Escape); });
    support::ClickBox(Dialog.ckbDesc);
    Dialog.Source = {};
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    if (!Backends_->Server().IsRunning()) QSKIP(qPrintable(Backends_->Server().Reason()));
    const TThrowawayPgBouncer Probe(Backends_->Server(), TMode::Session);
    if (!Probe.IsRunning()) QSKIP(qPrintable(Probe.Reason()));
  }
  void init() {
    Company_ = Backends_->Open(TBackendKind::PostgreSQL);
    Company_->ExecuteBeside(
        "CREATE VIEW sleepy AS SELECT id, pg_sleep(30)::text AS nap FROM cust WHERE pg_sleep(30) IS NOT NULL");
    // Which transaction it is that reads; and more rows than are in a list's first page.
    Company_->ExecuteBeside(
        "CREATE VIEW stamped AS SELECT id || '-' || n AS id, pg_backend_pid() || ' ' || now() AS stamp FROM cust, "
        "generate_series(1, 3) n");
    Boxes_ = std::make_unique<support::TErrorBoxes>();
  }
  void cleanup() {
    Boxes_.reset();
    if (QTest::currentTestFailed() && Pooler_ != nullptr) qWarning().noquote() << Pooler_->Log();
    Pooler_.reset();
    Company_.reset();
  }

  void shouldReadThePageAndTheWholeInOneTransaction_data() { AddModes(); }
  void shouldReadThePageAndTheWholeInOneTransaction() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const TListSource Stamped("A.ID", "Stamped A WHERE 0=0", "A.Stamp ID");
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    const QSignalSpy Replaced(Dialog->qryList_, &ads::TDataSet::Replaced);
    Dialog->Source = Stamped;
    Dialog->CallSetSQL();
    QVERIFY(!Dialog->qryList_->IsComplete());
    QTRY_VERIFY(Dialog->qryList_->IsComplete());
    const std::vector<std::string> Stamps = support::Column(*Dialog, "ID");
    QCOMPARE(Stamps.size(), std::size_t{3000});
    QCOMPARE(std::set<std::string>(Stamps.begin(), Stamps.end()).size(), std::size_t{1});
    QCOMPARE(Replaced.count(), 0);
  }

  void shouldReadInsideTheHostsTransaction_data() { AddModes(); }
  void shouldReadInsideTheHostsTransaction() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<THost> Other = Connect();
    for (int Round = 1; Round <= 3; ++Round) {
      QVERIFY(Host->Database().transaction());
      Host->Execute("INSERT INTO cust (id) VALUES ('mine')");
      QCOMPARE(Customers(*Other), 1000);
      QCOMPARE(Customers(*Host), 1001);
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Values(*Host->Connection(), "SELECT Nowhere X FROM Cust"));
      Host->Execute("UPDATE cust SET company = 'as ever' WHERE id = 'mine'");
      const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
      DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                               [&](TListDialog&) { StopWhileItSleeps(*Dialog, 150); });
      QCOMPARE(Customers(*Host), 1001);
      QVERIFY(Round < 3 ? Host->Database().rollback() : Host->Database().commit());
    }
    QCOMPARE(Customers(*Other), 1001);
  }

  void shouldStopAQueryAndReadTheNext_data() { AddModes(); }
  void shouldStopAQueryAndReadTheNext() {
    OpenOfOne(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               for (int Time = 0; Time < 10; ++Time) {
                                 const int Before = Dialog->qryList_->RecordCount();
                                 QElapsedTimer Clock;
                                 Clock.start();
                                 StopWhileItSleeps(*Dialog, 20 + 20 * Time);
                                 QVERIFY(Clock.elapsed() < 2000);
                                 QVERIFY(Dialog->isVisible());
                                 QCOMPARE(Dialog->qryList_->RecordCount(), Before);
                                 support::TypeFind(*Dialog, Time % 2 == 0 ? "C00500" : "");
                                 QCOMPARE(Dialog->qryList_->RecordCount(), Time % 2 == 0 ? 1 : 1000);
                               }
                             });
    QCOMPARE(Told(Boxes_->Messages()), std::string());
    QCOMPARE(Company_
                 ->ValueBeside("SELECT COUNT(*) FROM pg_stat_activity WHERE query LIKE '%sleepy%' AND state = "
                               "'active' AND pid <> pg_backend_pid()")
                 .toInt(),
             0);
  }

  void shouldPrepareWhatACheckAsks_data() { AddModes(); }
  void shouldPrepareWhatACheckAsks() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<THost> Other = Connect();
    std::vector<const catalog::TPick*> Picks;
    for (const char* Name : {"city", "customer", "oe-doc", "item-cost", "booking"}) {
      Picks.push_back(catalog::FullCatalog().Find(Name));
    }
    const check::TReport Report = check::Check(Host->Connection(), Picks);
    QVERIFY2(Report.IsFit(), check::TextOf(Report).c_str());
    QCOMPARE(Report.Server, std::string("PostgreSQL"));
    QVERIFY(Report.Queries > 100);
    QCOMPARE(Customers(*Other), 1000);
  }

  // The host's own: they live in the server's connection, which is another one when somebody else has that.
  void shouldLeaveTheHostsPreparedQueriesToThePooler_data() { AddModes(); }
  void shouldLeaveTheHostsPreparedQueriesToThePooler() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<THost> Other = Connect();
    QSqlQuery Prepared(Host->Database());
    QVERIFY(Prepared.prepare("SELECT company FROM cust WHERE id = ?"));
    Prepared.addBindValue("C00500");
    QVERIFY(Prepared.exec());
    QCOMPARE(Customers(*Host), 1000);
    QVERIFY2(Prepared.exec(), qPrintable(Prepared.lastError().text()));
    QVERIFY(Other->Database().transaction());
    QCOMPARE(Customers(*Other), 1000);
    const bool IsStillThere = Mode() == TMode::Session;
    QCOMPARE(Prepared.exec(), IsStillThere);
    if (!IsStillThere) QVERIFY(Prepared.lastError().text().contains("does not exist"));
    QCOMPARE(Customers(*Host), 1000);
    QVERIFY(Other->Database().rollback());
  }

  // For each way in which a reading can end: complete, failed, stopped, left in its midst, cut off.
  void shouldLeaveTheServersConnectionAsItWas_data() {
    QTest::addColumn<TMode>("Mode");
    QTest::addColumn<QString>("Way");
    for (const char* Way :
         {"complete", "failed", "stopped", "left in its midst", "in the host's transaction", "checked"}) {
      QTest::addRow("%s, session", Way) << TMode::Session << QString(Way);
      QTest::addRow("%s, transaction", Way) << TMode::Transaction << QString(Way);
    }
  }
  void shouldLeaveTheServersConnectionAsItWas() {
    QFETCH(const QString, Way);
    // Without the pooler's own clearing up between two sessions, which would hide what was left.
    OpenOfOne(Mode(), {"server_reset_query =", "server_reset_query_always = 0"});
    const QString Before = Connect()->Value(Session);
    {
      const std::unique_ptr<THost> Host = Connect();
      ReadInAWay(*Host, Way);
      if (Mode() == TMode::Transaction) QTRY_COMPARE(Pool(), QString("0 given, 0 waiting"));
    }
    const std::unique_ptr<THost> Other = Connect();
    QCOMPARE(Other->Value(Session), Before);
    Other->Execute("INSERT INTO area (zip) VALUES ('of another')");  // of itself permanent
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'of another'").toInt(), 1);
    QCOMPARE(Told(Boxes_->Messages()), std::string());
  }

  // A client that is cut off in the midst of a transaction takes the server's connection with it.
  void shouldGiveNobodyAConnectionInTheMidstOfATransaction_data() { AddModes(); }
  void shouldGiveNobodyAConnectionInTheMidstOfATransaction() {
    OpenOfOne(Mode(), {"server_reset_query ="});
    {
      const std::unique_ptr<THost> Host = Connect();
      const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), Million);
      QVERIFY(!Dialog->qryList_->IsComplete());
      Host->Database().close();
    }
    const std::unique_ptr<THost> Other = Connect();
    QVERIFY(Other->Value(Session).contains(" 0 prepared, 0 cursors, 0 locks, true"));
    QCOMPARE(Other->Value("SHOW transaction_read_only"), QString("off"));
    Other->Execute("INSERT INTO area (zip) VALUES ('of another')");
  }

  void shouldGiveTheServersConnectionBackWhenTheRowsAreIn_data() { AddModes(); }
  void shouldGiveTheServersConnectionBackWhenTheRowsAreIn() {
    OpenOfOne(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QTRY_VERIFY(Dialog->qryList_->IsComplete());
    QTRY_COMPARE(Pool(), QString(Mode() == TMode::Transaction ? "0 given, 0 waiting" : "1 given, 0 waiting"));
  }

  // A list of a million rows has it until the last one is in, whatever its user does meanwhile; the others wait.
  void shouldLetOthersReadWhenALongListIsIn() {
    OpenOfOne(TMode::Transaction, {"query_wait_timeout = 60"});
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), Million);
    QTRY_VERIFY(Dialog->qryList_->KnownRows() > 1000);
    QVERIFY(!Dialog->qryList_->IsComplete());
    const QString Name = Company_->Database().databaseName();
    std::atomic<int> Found = -1;
    const std::jthread Other([&] {  // as another program would
      THost Its(Pooler_->Connect(NewName(), Name));
      Found = CustomersOrNone(Its);
    });
    QVERIFY2(Await([this] { return Pool() == "1 given, 1 waiting"; }), qPrintable(Pool()));
    QCOMPARE(Found, -1);
    QTRY_COMPARE_WITH_TIMEOUT(Found, 1000, 60000);
    QVERIFY(Dialog->qryList_->IsComplete());
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000000);
  }

  void shouldLetOthersReadWhenALongListIsLeft() {
    OpenOfOne(TMode::Transaction);
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<THost> Other = Connect();
    std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), Million);
    QTRY_VERIFY(Dialog->qryList_->KnownRows() > 1000);
    QVERIFY(!Dialog->qryList_->IsComplete());
    const qint64 Before = BytesToClients();
    QVERIFY(Before > 0);
    Dialog.reset();
    QElapsedTimer Clock;
    Clock.start();
    QCOMPARE(Customers(*Other), 1000);
    QVERIFY(Clock.elapsed() < 1500);
    QVERIFY2(BytesToClients() - Before < 10'000'000, "the rest has been read");  // all of it is 40 million
  }

  // Both in one program: the one that is shown reads on while the other one waits.
  void shouldShowTwoListsOfOneProgramOverOneConnectionOfTheServer() {
    OpenOfOne(TMode::Transaction);
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<THost> Other = Connect();
    const std::unique_ptr<TListDialog> First = TListDialog::Create(Host->Connection(), Million);
    QVERIFY(!First->qryList_->IsComplete());
    const std::unique_ptr<TListDialog> Second = TListDialog::Create(Other->Connection(), {});
    QCOMPARE(Second->qryList_->RecordCount(), 1000);
    QCOMPARE(First->qryList_->RecordCount(), 1000000);
    QCOMPARE(Told(Boxes_->Messages()), std::string());
  }

  // What a pool that is smaller than the program's needs comes to.
  void shouldSayThatAQueryWaitsForItsOwnProgramsList() {
    OpenOfOne(TMode::Transaction);
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<THost> Other = Connect();
    WaitASecondAtMost();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), Million);
    QTRY_VERIFY(Dialog->qryList_->KnownRows() > 1000);
    QVERIFY(!Dialog->qryList_->IsComplete());
    QVERIFY_THROWS_EXCEPTION(ads::EConnectionLost, Customers(*Other));
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000000);
  }

  // A session has its connection from the beginning.
  void shouldSayThatThePoolerIsFull() {
    OpenOfOne(TMode::Transaction);
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    const std::unique_ptr<THost> Other = Connect();
    WaitASecondAtMost();
    QVERIFY(Other->Database().transaction());
    QCOMPARE(Customers(*Other), 1000);
    support::TypeFind(*Dialog, "C00500");
    QTRY_COMPARE(Boxes_->Messages().size(), std::size_t{1});
    VERIFY_CONTAINS(Boxes_->Messages().front(), Lost);
    VERIFY_CONTAINS(Boxes_->Messages().front(), "query_wait_timeout");
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    QVERIFY(Other->Database().rollback());
    FindsAgain(*Host, *Dialog);
  }

  // Nobody can take a question back that waits for a connection: that to the pooler is cut.
  void shouldGiveUpWaitingForAFullPooler() {
    OpenOfOne(TMode::Transaction);
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    const std::unique_ptr<THost> Other = Connect();
    QVERIFY(Other->Database().transaction());
    QCOMPARE(Customers(*Other), 1000);
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               QElapsedTimer Clock;
                               Clock.start();
                               StopWhileItSleeps(*Dialog, 100);
                               QVERIFY2(Clock.elapsed() < 4000, qPrintable(QString::number(Clock.elapsed())));
                               QVERIFY(Dialog->isVisible());
                               QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
                               QVERIFY(Other->Database().rollback());
                               support::TypeFind(*Dialog, "C00500");
                             });
    QCOMPARE(Boxes_->Messages().size(), std::size_t{1});
    VERIFY_CONTAINS(Boxes_->Messages().front(), Lost);
    QTRY_COMPARE(Pool(), QString("0 given, 0 waiting"));
    FindsAgain(*Host, *Dialog);
  }

  void shouldSayThatThePoolerHasRestarted_data() { AddModes(); }
  void shouldSayThatThePoolerHasRestarted() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QVERIFY(Pooler_->Restart());
    support::TypeFind(*Dialog, "C00500");
    QTRY_COMPARE(Boxes_->Messages().size(), std::size_t{1});
    VERIFY_CONTAINS(Boxes_->Messages().front(), Lost);
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    FindsAgain(*Host, *Dialog);
  }

  // Whoever has no connection of the server at that time does not notice.
  void shouldBearThatTheServerHasRestarted_data() { AddModes(); }
  void shouldBearThatTheServerHasRestarted() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QVERIFY(Backends_->Server().Restart());
    QVERIFY(Company_->Database().open());
    support::TypeFind(*Dialog, "C00500");
    if (Mode() == TMode::Session) {
      QTRY_COMPARE(Boxes_->Messages().size(), std::size_t{1});
      VERIFY_CONTAINS(Boxes_->Messages().front(), Lost);
      QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
      return FindsAgain(*Host, *Dialog);
    }
    QCOMPARE(Told(Boxes_->Messages()), std::string());
    QCOMPARE(Dialog->qryList_->RecordCount(), 1);
  }

  void shouldSayThatTheServerHasRestartedInTheMidstOfARead_data() { AddModes(); }
  void shouldSayThatTheServerHasRestartedInTheMidstOfARead() {
    Open(Mode());
    const std::unique_ptr<THost> Host = Connect();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    Dialog->Source = Sleeping;
    After(Dialog.get(), 200, [this] { QVERIFY(Backends_->Server().Restart()); });
    support::TypeFind(*Dialog, "C00500");
    QTRY_COMPARE(Boxes_->Messages().size(), std::size_t{1});
    VERIFY_CONTAINS(Boxes_->Messages().front(), Lost);
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    Dialog->Source = {};
    FindsAgain(*Host, *Dialog);
  }

  void shouldLeaveTheHostWhatItListensTo() {
    Open(TMode::Session);
    const std::unique_ptr<THost> Host = Connect();
    QVERIFY(Host->Database().driver()->subscribeToNotification("news"));
    QSignalSpy Told(Host->Database().driver(), &QSqlDriver::notification);
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), Million);
    QVERIFY(!Dialog->qryList_->IsComplete());
    Company_->ExecuteBeside("NOTIFY news, 'while it reads'");
    QTRY_VERIFY_WITH_TIMEOUT(Dialog->qryList_->IsComplete(), 60000);
    QTRY_COMPARE(Told.count(), 1);
    Company_->ExecuteBeside("NOTIFY news, 'afterwards'");
    QTRY_COMPARE(Told.count(), 2);
  }

 private:
  void ReadInAWay(THost& Host, const QString& Way) {
    if (Way == "complete") {
      QCOMPARE(TListDialog::Create(Host.Connection(), {})->qryList_->RecordCount(), 1000);
    } else if (Way == "failed") {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Values(*Host.Connection(), "SELECT Nowhere X FROM Cust"));
    } else if (Way == "stopped") {
      const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host.Connection(), {});
      DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                               [&](TListDialog&) { StopWhileItSleeps(*Dialog, 150); });
    } else if (Way == "left in its midst") {
      const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host.Connection(), Million);
      QTRY_VERIFY(Dialog->qryList_->KnownRows() > 1001);
      QVERIFY(!Dialog->qryList_->IsComplete());
    } else if (Way == "in the host's transaction") {
      QVERIFY(Host.Database().transaction());
      QCOMPARE(Customers(Host), 1000);
      QVERIFY(Host.Database().commit());
    } else {
      QVERIFY(check::Check(Host.Connection(), {catalog::FullCatalog().Find("customer")}).IsFit());
    }
  }

  // After what a host does whose connection is lost.
  void FindsAgain(THost& Host, TListDialog& Dialog) {
    const std::size_t Before = Boxes_->Messages().size();
    QVERIFY(Host.OpenAgain());
    support::TypeFind(Dialog, "C00501");
    QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00501"});
    QCOMPARE(Boxes_->Messages().size(), Before);
  }
};

QTEST_MAIN(tst_PgBouncer)
#include "tst_PgBouncer.moc"
