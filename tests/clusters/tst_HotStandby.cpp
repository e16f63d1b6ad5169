#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "ads/Ads.h"
#include "ads/Await.h"
#include "ads/Values.h"
#include "check/Check.h"
#include "clusters/Host.h"
#include "servers/ListDialog.h"
#include "support/PickDriver.h"

using support::Await;
using support::NewName;
using support::Once;
using support::TBackend;
using support::TBackendKind;
using support::THost;
using support::TListDialog;
using support::TListSource;

namespace {

const TListSource Sleeping("A.ID", "Sleepy A WHERE 0=0");
const TListSource Million("A.ID + '-' + B.ID", "Cust A, Cust B WHERE 0=0", "A.ID + '-' + B.ID ID");
constexpr char Lost[] = "The connection to the database is lost; it must be opened again before lists can be read.";
constexpr char Cancelled[] = "canceling statement due to conflict with recovery";
constexpr char Terminated[] = "terminating connection due to conflict with recovery";
constexpr char LockHeld[] = "User was holding a relation lock for too long.";

}  // namespace

/// Picks on a standby, which the primary's changes may take the data away from under a query.
class tst_HotStandby : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;
  std::unique_ptr<TThrowawayPostgreSQL> Standby_;
  std::unique_ptr<THost> Host_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  std::unique_ptr<TThrowawayPostgreSQL> NewStandby() const {
    return std::make_unique<TThrowawayPostgreSQL>(TThrowawayPostgreSQL::TOptions{
        {{"max_standby_streaming_delay=0", "hot_standby_feedback=off", "statement_timeout=20s"}, {}},
        false,
        &Backends_->Server()});
  }
  std::unique_ptr<THost> Connect() const {
    return std::make_unique<THost>(Standby_->Connect(NewName(), Company_->Database().databaseName()));
  }

  // Until the standby has done, or has heard of, what the primary has done.
  bool HasCaughtUp() const { return IsAtThePrimarys("pg_last_wal_replay_lsn()"); }
  bool HasHeard() const { return IsAtThePrimarys("pg_last_wal_receive_lsn()"); }
  bool IsAtThePrimarys(const QString& Place) const {
    const QString Primarys = Company_->ValueBeside("SELECT pg_current_wal_flush_lsn()").toString();
    const THost Watch(Standby_->Connect(NewName()));
    const QString Question = QStringLiteral("SELECT %1 >= '%2'").arg(Place, Primarys);
    return Await([&] { return Watch.Value(Question) == "true"; });
  }

  int Customers() { return Values(*Host_->Connection(), "SELECT COUNT(*) X FROM Cust").value(0).toInt(); }

  QString Told() const {
    QStringList Result;
    for (const std::string& Message : Boxes_->Messages()) Result << QString::fromStdString(Message);
    return Result.join('|');
  }

  // Has a query sleep on the standby, and the primary take away what it reads.
  void FindWhile(TListDialog& Dialog, const QStringList& PrimaryDoes) {
    Dialog.Source = Sleeping;
    const auto Watch = std::make_shared<const THost>(Standby_->Connect(NewName()));
    const auto Sleeps = [Watch] {
      return Watch->Value("SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep'") == "1";
    };
    Once(&Dialog, Sleeps, [this, PrimaryDoes] {
      for (const QString& Sql : PrimaryDoes) Company_->ExecuteBeside(Sql);
    });
    support::TypeFind(Dialog, "c0");
    Dialog.Source = {};
  }

  void FindsAgain(TListDialog& Dialog) {
    const std::size_t Before = Boxes_->Messages().size();
    support::TypeFind(Dialog, "C00501");
    QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00501"});
    QCOMPARE(Boxes_->Messages().size(), Before);
  }

  static void AddConflicts() {
    QTest::addColumn<QStringList>("PrimaryDoes");
    QTest::addColumn<QString>("Detail");
    QTest::newRow("a lock") << QStringList{"BEGIN", "LOCK TABLE cust IN ACCESS EXCLUSIVE MODE", "COMMIT"}
                            << QString(LockHeld);
    QTest::newRow("a table that is dropped") << QStringList{"DROP VIEW sleepy"} << QString(LockHeld);
    QTest::newRow("rows that are cleared up")
        << QStringList{"DELETE FROM custbal", "VACUUM custbal"}
        << QString("User query might have needed to see row versions that must be removed.");
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    if (!Backends_->Server().IsRunning()) QSKIP(qPrintable(Backends_->Server().Reason()));
    Standby_ = NewStandby();
    QVERIFY2(Standby_->IsRunning(), qPrintable(Standby_->Reason()));
  }
  void init() {
    Company_ = Backends_->Open(TBackendKind::PostgreSQL);
    Company_->ExecuteBeside(
        "CREATE VIEW sleepy AS SELECT id, pg_sleep(30)::text AS nap FROM cust WHERE pg_sleep(30) IS NOT NULL");
    QVERIFY(HasCaughtUp());
    Host_ = Connect();
    Boxes_ = std::make_unique<support::TErrorBoxes>();
  }
  void cleanup() {
    Boxes_.reset();
    Host_.reset();
    Company_.reset();
  }

  void shouldSeeWhatThePrimaryHasCommitted() {
    Company_->ExecuteBeside("INSERT INTO cust (id) VALUES ('fresh')");
    QVERIFY(HasCaughtUp());
    QCOMPARE(Customers(), 1001);
    QVERIFY(Host_->Database().transaction());
    QCOMPARE(Customers(), 1001);
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Values(*Host_->Connection(), "SELECT Nowhere X FROM Cust"));
    QCOMPARE(Customers(), 1001);
    QVERIFY(Host_->Database().commit());
  }

  void shouldPassACheck() {
    const check::TReport Report = check::Check(Host_->Connection());
    QVERIFY2(Report.IsFit(), check::TextOf(Report).c_str());
    QVERIFY(Report.Queries > 10000);
  }

  // What the account may do elsewhere does not matter here.
  void shouldReadWhereTheHostMayNotWrite() {
    QSqlQuery Write(Host_->Database());
    QVERIFY(!Write.exec("INSERT INTO cust (id) VALUES ('mine')"));
    QVERIFY(Write.lastError().text().contains("cannot execute INSERT in a read-only transaction"));
    QCOMPARE(Customers(), 1000);
    QVERIFY(Host_->Database().transaction());
    QCOMPARE(Customers(), 1000);
    QVERIFY(!Write.exec("INSERT INTO cust (id) VALUES ('mine')"));
    QVERIFY(Host_->Database().rollback());
    QCOMPARE(TListDialog::Create(Host_->Connection(), {})->qryList_->RecordCount(), 1000);
  }

  void shouldSayWhatHasEndedASearch_data() { AddConflicts(); }
  void shouldSayWhatHasEndedASearch() {
    QFETCH(const QStringList, PrimaryDoes);
    QFETCH(const QString, Detail);
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    FindWhile(*Dialog, PrimaryDoes);
    QCOMPARE(Told(), QStringList({Cancelled, Detail}).join('\n'));
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    QVERIFY(!Dialog->lblRows->text().contains("search"));
    QVERIFY(support::SqlLines(*Dialog).at(2).starts_with("AND UPPER(A.ID) LIKE"));  // none without it was tried
    FindsAgain(*Dialog);
  }

  // The server cannot take back a part of a transaction then, and ends the session.
  void shouldSayWhatHasEndedTheHostsTransaction_data() { AddConflicts(); }
  void shouldSayWhatHasEndedTheHostsTransaction() {
    QFETCH(const QStringList, PrimaryDoes);
    QFETCH(const QString, Detail);
    QVERIFY(Host_->Database().transaction());
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    FindWhile(*Dialog, PrimaryDoes);
    QCOMPARE(Told(), QStringList({Lost, Terminated, Detail}).join('\n'));
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    QVERIFY(Host_->OpenAgain());
    FindsAgain(*Dialog);
  }

  void shouldSayWhatHasEndedAnIdleTransaction() {
    QVERIFY(Host_->Database().transaction());
    QCOMPARE(Host_->Value("SELECT COUNT(*) FROM cust"), QString("1000"));
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    for (const char* Sql : {"BEGIN", "LOCK TABLE cust IN ACCESS EXCLUSIVE MODE", "COMMIT"})
      Company_->ExecuteBeside(Sql);
    QVERIFY(HasCaughtUp());
    support::TypeFind(*Dialog, "c0");
    QCOMPARE(Told(), QStringList({Lost, Terminated, LockHeld}).join('\n'));
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
    QVERIFY(Host_->OpenAgain());
    FindsAgain(*Dialog);
  }

  // The rows that are there stay, and the rest is read when it is wanted.
  void shouldSayWhatHasEndedTheRestOfALongList() {
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), Million);
    QTRY_VERIFY(Dialog->qryList_->KnownRows() > 1000);
    QVERIFY(!Dialog->qryList_->IsComplete());
    for (const char* Sql : {"BEGIN", "LOCK TABLE cust IN ACCESS EXCLUSIVE MODE", "COMMIT"})
      Company_->ExecuteBeside(Sql);
    QVERIFY(HasHeard());  // before the list has read on to its end
    QTRY_COMPARE(Boxes_->Messages().size(), std::size_t{1});
    QCOMPARE(Told(), QStringList({Cancelled, LockHeld}).join('\n'));
    QVERIFY(Dialog->qryList_->KnownRows() >= 1000);
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000000);
    Dialog->Source = {};
    FindsAgain(*Dialog);
  }

  // The last one, for it is no standby any more then.
  void shouldReadOnWhileItIsPromoted() {
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), Million);
    QTRY_VERIFY(Dialog->qryList_->KnownRows() > 1000);
    const std::unique_ptr<THost> Administrator = Connect();
    QCOMPARE(Administrator->Value("SELECT pg_promote()"), QString("true"));
    QCOMPARE(Administrator->Value("SELECT pg_is_in_recovery()"), QString("false"));
    QCOMPARE(Dialog->qryList_->RecordCount(), 1000000);
    QVERIFY(Boxes_->Messages().empty());
    Dialog->Source = {};
    FindsAgain(*Dialog);
    Host_->Execute("INSERT INTO cust (id) VALUES ('mine')");
    QCOMPARE(Customers(), 1001);
  }
};

QTEST_MAIN(tst_HotStandby)
#include "tst_HotStandby.moc"
