#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "ads/Ads.h"
#include "ads/Values.h"
#include "clusters/Companies.h"
#include "clusters/Host.h"
#include "servers/ListDialog.h"
#include "support/PickDriver.h"

using support::DrivePickAs;
using support::NewName;
using support::Once;
using support::TBackend;
using support::TBackendKind;
using support::THost;
using support::TListDialog;
using support::TListSource;

Q_DECLARE_METATYPE(support::TBackendKind)

namespace {

const TListSource Sleeping("A.ID", "Sleepy A WHERE 0=0");
constexpr char CountCustomers[] = "SELECT COUNT(*) X FROM Cust";

}  // namespace

/// Picks from tables of which a part lies on another server, which may be slow or away.
class tst_Shards : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TThrowawayPostgreSQL> Far_;
  std::unique_ptr<TBackend> Company_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  static void AddKinds() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::PostgreSQL, TBackendKind::ODBCPostgreSQL}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  std::unique_ptr<THost> Connect() {
    const TBackendKind Kind = *static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()));
    const QString Missing = Backends_->Missing(Kind);
    if (!Missing.isEmpty()) {
      [&Missing] { QSKIP(qPrintable(Missing)); }();
      return nullptr;
    }
    if (Kind == TBackendKind::PostgreSQL) return std::make_unique<THost>(Backends_->Connect(*Company_));
    QSqlDatabase Database = QSqlDatabase::addDatabase("QODBC", NewName());
    Database.setDatabaseName(QStringLiteral("DRIVER={PostgreSQL Unicode};Servername=%1;Database=%2;Uid=tester")
                                 .arg(Backends_->Server().Host(), Company_->Database().databaseName()));
    Database.open();
    return std::make_unique<THost>(Database);
  }
  static QStringList Customers(THost& Host) { return Values(*Host.Connection(), CountCustomers); }

  // Something of the other server's own.
  QString FarValue(const QString& Sql) const {
    const THost Far(Far_->Connect(NewName(), "company"));
    return Far.Value(Sql);
  }
  QString Sleepers() const {
    return FarValue("SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep' AND pid <> pg_backend_pid()");
  }

  void FindsAgain(TListDialog& Dialog) {
    const std::size_t Before = Boxes_->Messages().size();
    support::TypeFind(Dialog, "C00501");
    QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00501"});
    QCOMPARE(Boxes_->Messages().size(), Before);
  }
  // One box, which does not say that the host's own connection is lost, and the list as it was.
  void SaysWhatIsGone(TListDialog& Dialog) {
    QCOMPARE(Boxes_->Messages().size(), std::size_t{1});
    const std::string& Message = Boxes_->Messages().front();
    QVERIFY2(Message.find("must be opened again") == std::string::npos, Message.c_str());
    QVERIFY2(Message.find("connect") != std::string::npos || Message.find("terminat") != std::string::npos,
             Message.c_str());
    QCOMPARE(Dialog.qryList_->RecordCount(), 1000);
    QVERIFY(!Dialog.lblRows->text().contains("search"));
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    if (!Backends_->Server().IsRunning()) QSKIP(qPrintable(Backends_->Server().Reason()));
    Far_ = std::make_unique<TThrowawayPostgreSQL>(
        TThrowawayPostgreSQL::TOptions{{{"statement_timeout=20s"}, {}}, true, nullptr});
    QVERIFY2(Far_->IsRunning(), qPrintable(Far_->Reason()));
    support::CreateCompanyOn(*Far_);
    THost Far(Far_->Connect(NewName(), "company"));
    Far.Execute("CREATE VIEW sleepy AS SELECT id, pg_sleep(30)::text AS nap FROM cust WHERE pg_sleep(30) IS NOT NULL");
    Company_ = Backends_->Open(TBackendKind::PostgreSQL);
    support::PutShardsOn(Company_->Beside(), *Far_);
    Company_->ExecuteBeside("ALTER SERVER far OPTIONS (SET host '127.0.0.1')");  // by the network
    Company_->ExecuteBeside("IMPORT FOREIGN SCHEMA public LIMIT TO (sleepy) FROM SERVER far INTO public");
    Company_->ExecuteBeside("ANALYZE");
  }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() { Boxes_.reset(); }

  void shouldListTheRowsOfBothServers_data() { AddKinds(); }
  void shouldListTheRowsOfBothServers() {
    const std::unique_ptr<THost> Host = Connect();
    if (Host == nullptr) return;
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    const QString Far = FarValue("SELECT MIN(id) FROM cust_middle");
    QCOMPARE(Values(*Host->Connection(), "SELECT ID X FROM Cust WHERE ID = '" + Far.toStdString() + "'"),
             QStringList(Far));
    FindsAgain(*Dialog);
  }

  // Neither the letters of any language nor where nulls stand is anything that the other server is trusted with.
  void shouldFetchTheRowsAndSortThemHere() {
    THost Host(Backends_->Connect(*Company_));
    const ads::TListStatements Statements = Host.Connection()->Statements(
        "SELECT ID, UPPER(Company) SortFld FROM Cust WHERE UPPER(Company) LIKE '%AN%' ORDER BY SortFld", {}, 1001);
    QStringList Plan;
    QSqlQuery Query(Host.Database());
    QVERIFY(Query.exec("EXPLAIN (VERBOSE, COSTS OFF) " + QString::fromStdString(Statements.Page)));
    while (Query.next()) Plan << Query.value(0).toString().trimmed();
    QVERIFY2(!Plan.filter("Sort Key: ").isEmpty(), qPrintable(Plan.join('\n')));
    const QStringList Sent = Plan.filter("Remote SQL: ");
    QCOMPARE(Sent.size(), 1);
    QVERIFY2(!Sent.front().contains("ORDER BY") && !Sent.front().contains("LIKE"), qPrintable(Sent.front()));
  }

  void shouldReadInsideTheHostsTransaction_data() { AddKinds(); }
  void shouldReadInsideTheHostsTransaction() {
    const std::unique_ptr<THost> Host = Connect();
    if (Host == nullptr) return;
    const QString Far = FarValue("SELECT MIN(id) || '+' FROM cust_middle");  // would lie there
    QVERIFY(Host->Database().transaction());
    Host->Execute("INSERT INTO cust (id) VALUES ('" + Far.right(6) + "')");
    QCOMPARE(Customers(*Host), QStringList("1001"));
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Values(*Host->Connection(), "SELECT Nowhere X FROM Cust"));
    Host->Execute("UPDATE cust SET company = 'as ever' WHERE id = '" + Far.right(6) + "'");
    QCOMPARE(Customers(*Host), QStringList("1001"));
    QVERIFY(Host->Database().rollback());
    QCOMPARE(Customers(*Host), QStringList("1000"));
    QCOMPARE(FarValue("SELECT COUNT(*) FROM pg_stat_activity WHERE state LIKE 'idle in transaction%'"), QString("0"));
  }

  void shouldStopWhileTheOtherServerSearches() {
    const std::unique_ptr<THost> Host = std::make_unique<THost>(Backends_->Connect(*Company_));
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               for (const bool InTransaction : {false, true}) {
                                 if (InTransaction) QVERIFY(Host->Database().transaction());
                                 Dialog->Source = Sleeping;
                                 QElapsedTimer Clock;
                                 const auto Sleeps = [this] { return Sleepers() == "1"; };
                                 Once(Dialog.get(), Sleeps, [&] {
                                   Clock.start();
                                   QTest::keyClick(Dialog->edFind, Qt::Key_Escape);
                                 });
                                 support::ClickBox(Dialog->ckbDesc);
                                 Dialog->Source = {};
                                 QVERIFY(Clock.isValid() && Clock.elapsed() < 3000);
                                 QVERIFY(Dialog->isVisible());
                                 QTRY_COMPARE(Sleepers(), QString("0"));
                                 FindsAgain(*Dialog);
                                 if (InTransaction) QVERIFY(Host->Database().commit());
                               }
                             });
    QVERIFY(Boxes_->Messages().empty());
  }

  void shouldSayThatTheOtherServerIsAway_data() { AddKinds(); }
  void shouldSayThatTheOtherServerIsAway() {
    const std::unique_ptr<THost> Host = Connect();
    if (Host == nullptr) return;
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    Far_->Stop();
    support::TypeFind(*Dialog, "c0");
    SaysWhatIsGone(*Dialog);
    QVERIFY(Host->Database().isOpen());
    QVERIFY(Far_->Restart());
    FindsAgain(*Dialog);
  }

  void shouldSayThatTheOtherServerHasGoneInTheMidst_data() { AddKinds(); }
  void shouldSayThatTheOtherServerHasGoneInTheMidst() {
    const std::unique_ptr<THost> Host = Connect();
    if (Host == nullptr) return;
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    Dialog->Source = Sleeping;
    QProcess Stopper;  // by ODBC the window waits, and nobody else in this program does anything
    Stopper.start("sh",
                  {"-c", QStringLiteral("sleep 0.5; kill -INT $(head -1 %1/data/postmaster.pid)").arg(Far_->Host())});
    support::TypeFind(*Dialog, "c0");
    Dialog->Source = {};
    QVERIFY(Stopper.waitForFinished());
    SaysWhatIsGone(*Dialog);
    QVERIFY(Far_->Restart());
    FindsAgain(*Dialog);
  }

  // It is a transaction there as well, which is taken back with that of the pick.
  void shouldLeaveNothingThatAViewOnTheOtherServerWrites() {
    {
      THost Far(Far_->Connect(NewName(), "company"));
      Far.Execute("CREATE TABLE traces (id int)");
      Far.Execute(
          "CREATE FUNCTION leave_trace() RETURNS text LANGUAGE plpgsql AS 'BEGIN INSERT INTO public.traces VALUES (1); "
          "RETURN "
          "''left''; END'");
      Far.Execute("CREATE VIEW writing AS SELECT leave_trace() AS id");
    }
    Company_->ExecuteBeside("IMPORT FOREIGN SCHEMA public LIMIT TO (writing) FROM SERVER far INTO public");
    THost Host(Backends_->Connect(*Company_));
    QCOMPARE(Values(*Host.Connection(), "SELECT ID X FROM Writing"), QStringList("left"));
    QVERIFY(Host.Database().transaction());
    QCOMPARE(Values(*Host.Connection(), "SELECT ID X FROM Writing"), QStringList("left"));
    QVERIFY(Host.Database().commit());
    QCOMPARE(FarValue("SELECT COUNT(*) FROM traces"), QString("0"));
  }
};

QTEST_MAIN(tst_Shards)
#include "tst_Shards.moc"
