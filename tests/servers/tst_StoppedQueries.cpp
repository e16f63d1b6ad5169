#include <sqlite3.h>
#include <sys/types.h>

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <csignal>
#include <thread>

#include "ads/Ads.h"
#include "ads/Values.h"
#include "frame/uZULPickPlsWait.h"
#include "servers/Backends.h"
#include "servers/ListDialog.h"
#include "servers/OpenOrSkip.h"
#include "servers/StallingProxy.h"
#include "support/PickDriver.h"

using support::After;
using support::DrivePickAs;
using support::Once;
using support::TBackend;
using support::TBackendKind;
using support::TListDialog;
using support::TListSource;
using support::TTickDialog;
using uZULPickPlsWait::TZULPickPlsWait;

namespace {

// Queries that take very long, each in its own way.
const TListSource NoRowsOfKeys("A.ID", "Cust A, Cust B, Cust C, Cust D WHERE A.ID + '-' + B.ID + '-' + C.ID = D.ID");
const TListSource NoRowsOfTexts(
    "UPPER(A.ID)",
    "Cust A, Cust B, Cust C WHERE UPPER(A.Company + '-' + B.Company + '-' + C.Company) LIKE '%NOWHERE%'");
const TListSource Sorting("UPPER(C.Company + '-' + B.Company + '-' + A.Company)", "Cust A, Cust B, Cust C WHERE 0=0",
                          "A.ID + '-' + B.ID + '-' + C.ID ID");
const TListSource Sleeping("A.ID", "Sleepy A WHERE 0=0");

// A stop is answered at once; this is what a busy machine may take.
constexpr qint64 Moment = 3000;
constexpr int IntoTheQuery = 120;
constexpr char ProxyName[] = "through the proxy";

struct TDialogState {
  std::vector<std::string> Rows;
  std::vector<int> Ticks;
  std::string FindText;
  int RecNo;
  QString Told;
  bool operator==(const TDialogState&) const = default;
};

TDialogState StateOf(TTickDialog& Dialog) {
  return {support::Column(Dialog, "ID"),
          {Dialog.TickedRows.begin(), Dialog.TickedRows.end()},
          Dialog.edFind->text().toStdString(),
          Dialog.qryList_->RecNo(),
          Dialog.lblRows->text()};
}

void PressEscape(QWidget* Widget) {
  QTest::keyClick(Widget, Qt::Key_Escape);
}

}  // namespace

/// A user who takes a query back: at once, and without hurting anything of the dialog's, the host's or the server's.
class tst_StoppedQueries : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Host_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;
  std::unique_ptr<ads::TAdsConnection> Through_;  // a proxy
  std::vector<std::string> Expected_;             // messages in boxes
  int Process_ = 0;

  void AddSlowQueries() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<TListSource>("Slow");
    QTest::newRow("SQLite without a function") << TBackendKind::SQLite << NoRowsOfKeys;
    QTest::newRow("SQLite in a function") << TBackendKind::SQLite << NoRowsOfTexts;
    QTest::newRow("SQLite in the sort") << TBackendKind::SQLite << Sorting;
    QTest::newRow("PostgreSQL before the first row") << TBackendKind::PostgreSQL << NoRowsOfTexts;
    QTest::newRow("PostgreSQL in the sort") << TBackendKind::PostgreSQL << Sorting;
    QTest::newRow("PostgreSQL asleep") << TBackendKind::PostgreSQL << Sleeping;
    QTest::newRow("MariaDB before the first row") << TBackendKind::MariaDB << NoRowsOfTexts;
    QTest::newRow("MariaDB in the sort") << TBackendKind::MariaDB << Sorting;
    QTest::newRow("MariaDB asleep") << TBackendKind::MariaDB << Sleeping;
  }
  bool Open() { return OpenKind(*static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()))); }
  bool OpenKind(TBackendKind Kind, const QString& Options = {}) {
    Host_ = support::OpenOrSkip(*Backends_, Kind, Options);
    if (Host_ == nullptr) return false;
    if (support::IsOnMariaDB(Kind)) {
      Host_->Execute("CREATE VIEW sleepy AS SELECT id, SLEEP(60) AS nap FROM cust WHERE SLEEP(60) IS NOT NULL");
      Process_ = TBackend::Value(Host_->Database(), "SELECT CONNECTION_ID()").toInt();
    } else if (support::IsOnPostgreSQL(Kind)) {
      Host_->Execute(
          "CREATE VIEW sleepy AS SELECT id, pg_sleep(60)::text AS nap FROM cust WHERE pg_sleep(60) IS NOT NULL");
      Process_ = TBackend::Value(Host_->Database(), "SELECT pg_backend_pid()").toInt();
    }
    return true;
  }
  QStringList Rows(const std::string& Sql) { return Values(*Host_->Connection(), Sql); }
  sqlite3* Handle() const { return support::SQLiteOf(*Host_); }

  // What the session does, as others see it.
  QString Activity() const {
    if (support::IsOnMariaDB(Host_->Kind())) {
      const QString Session = QString::number(Process_);
      return Host_
          ->ValueBeside(
              "SELECT concat(if(command = 'Sleep', 'idle', command), if(EXISTS (SELECT 1 FROM "
              "information_schema.innodb_trx WHERE trx_mysql_thread_id = " +
              Session + "), ' in transaction', ' - 0')) FROM information_schema.processlist WHERE id = " + Session)
          .toString();
    }
    return Host_
        ->ValueBeside(QStringLiteral("SELECT state || ' ' || coalesce(backend_xmin::text, '-') || ' ' || (SELECT "
                                     "COUNT(*) FROM pg_locks L WHERE L.pid = A.pid AND relation IS NOT NULL) FROM "
                                     "pg_stat_activity A WHERE pid = %1")
                          .arg(Process_))
        .toString();
  }
  void LeftNothing(bool InTransaction) {
    if (Host_->Kind() == TBackendKind::SQLite) {
      QVERIFY(sqlite3_next_stmt(Handle(), nullptr) == nullptr);
      QCOMPARE(sqlite3_get_autocommit(Handle()) != 0, !InTransaction);
    } else if (!InTransaction) {
      QElapsedTimer Clock;
      Clock.start();
      QTRY_COMPARE_WITH_TIMEOUT(Activity(), QString("idle - 0"), Moment);
      qInfo("The server has ended it %lld ms later.", Clock.elapsed());
    } else {
      QTRY_VERIFY_WITH_TIMEOUT(Activity().startsWith("idle in transaction"), Moment);
      QSqlQuery Query(Host_->Database());
      QVERIFY(Query.exec("SAVEPOINT mine"));
      QVERIFY(!Query.exec(support::IsOnMariaDB(Host_->Kind()) ? "RELEASE SAVEPOINT zul_pick_c4f1a90e"
                                                              : "RELEASE SAVEPOINT zul_pick"));  // there is none
      QVERIFY(Query.exec("ROLLBACK TO SAVEPOINT mine"));
    }
  }

  // Has a query run that takes very long and takes it back by `Stop`. How long that took, or -1 when the query was not
  // under way.
  template <typename TDialog>
  qint64 Stop(TDialog& Dialog, const TListSource& Slow, int Milliseconds, const std::function<void()>& Stop) {
    const TListSource Before = std::exchange(Dialog.Source, Slow);
    QElapsedTimer Clock;
    bool WasWaiting = false;
    After(&Dialog, Milliseconds, [&] {
      WasWaiting = Dialog.qryList_->IsWaiting();
      Clock.start();
      Stop();
    });
    QTest::mouseClick(Dialog.ckbDesc, Qt::LeftButton, {}, QPoint(6, Dialog.ckbDesc->height() / 2));
    const qint64 Took = Clock.isValid() ? Clock.elapsed() : -1;
    Dialog.Source = Before;
    return WasWaiting ? Took : -1;
  }

  void StopsAndLivesOn(bool InTransaction) {
    QFETCH(const TListSource, Slow);
    const int Areas = Host_->ValueBeside("SELECT COUNT(*) FROM area").toInt();
    if (InTransaction) {
      QVERIFY(Host_->Database().transaction());
      Host_->Execute("INSERT INTO area (zip) VALUES ('before')");
    }
    const auto Drive = [&](TTickDialog& Dialog) {
      Dialog.edFind->setText("c0");
      Dialog.qryList_->SetRecNo(3);
      Dialog.dbgAvailDblClick();
      Dialog.qryList_->SetRecNo(7);
      Dialog.dbgAvailDblClick();
      const TDialogState Before = StateOf(Dialog);
      QCOMPARE(Before.Ticks, (std::vector<int>{3, 7}));
      const qint64 Took = Stop(Dialog, Slow, IntoTheQuery, [&] { PressEscape(Dialog.edFind); });
      qInfo("The stop took %lld ms.", Took);
      QVERIFY(Took >= 0 && Took < Moment);
      QVERIFY(Dialog.isVisible());
      QVERIFY(StateOf(Dialog) == Before);
      QVERIFY(Dialog.actOK->isEnabled());
      QVERIFY(Dialog.findChild<TZULPickPlsWait*>() == nullptr);
      LeftNothing(InTransaction);
      support::TypeFind(Dialog, "C00500");
      QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00500"});
      PressEscape(Dialog.edFind);
      QVERIFY(!Dialog.isVisible());
    };
    const std::unique_ptr<TTickDialog> Dialog = TTickDialog::Create(Host_->Connection(), {});
    QVERIFY(!DrivePickAs<TTickDialog>([&] { return Dialog->ShowPick(); }, Drive));
    if (!InTransaction) return;
    Host_->Execute("INSERT INTO area (zip) VALUES ('after')");
    QVERIFY(Host_->Database().commit());
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM area").toInt(), Areas + 2);
  }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() {
    QCOMPARE(Boxes_->Messages(), std::exchange(Expected_, {}));
    Boxes_.reset();
    Disconnect();
    Host_.reset();
  }

  void shouldLeaveTheDialogAsItWas_data() { AddSlowQueries(); }
  void shouldLeaveTheDialogAsItWas() {
    if (Open()) StopsAndLivesOn(false);
  }

  void shouldLeaveTheHostsTransactionAsItWas_data() { AddSlowQueries(); }
  void shouldLeaveTheHostsTransactionAsItWas() {
    if (Open()) StopsAndLivesOn(true);
  }

  void shouldStopByTheCancelButton_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<TListSource>("Slow");
    QTest::newRow("SQLite") << TBackendKind::SQLite << NoRowsOfTexts;
    QTest::newRow("PostgreSQL") << TBackendKind::PostgreSQL << Sleeping;
    QTest::newRow("MariaDB") << TBackendKind::MariaDB << Sleeping;
  }
  void shouldStopByTheCancelButton() {
    if (!Open()) return;
    QFETCH(const TListSource, Slow);
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        const auto Click = [&] { support::ClickCancel(*Dialog); };
                                        QVERIFY(Stop(*Dialog, Slow, IntoTheQuery, Click) >= 0);
                                        QVERIFY(Dialog->isVisible());
                                        QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
                                        support::ClickCancel(*Dialog);
                                        QVERIFY(!Dialog->isVisible());
                                      }));
  }

  void shouldBearTwentyStopsInARow_data() { AddSlowQueries(); }
  void shouldBearTwentyStopsInARow() {
    if (!Open()) return;
    QFETCH(const TListSource, Slow);
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        for (int Time = 0; Time < 20; ++Time) {
                                          QVERIFY(Stop(*Dialog, Slow, Time * 3, [&] { Dialog->reject(); }) <
                                                  Moment);  // the first ones before it has begun
                                          QVERIFY(Dialog->isVisible());
                                        }
                                        LeftNothing(false);
                                        QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
                                      }));
  }

  void shouldEndAndCloseWithItsWindow_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<TListSource>("Slow");
    QTest::newRow("SQLite") << TBackendKind::SQLite << NoRowsOfTexts;
    QTest::newRow("PostgreSQL") << TBackendKind::PostgreSQL << Sleeping;
    QTest::newRow("MariaDB") << TBackendKind::MariaDB << Sleeping;
  }
  void shouldEndAndCloseWithItsWindow() {
    if (!Open()) return;
    QFETCH(const TListSource, Slow);
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        const qint64 Took = Stop(*Dialog, Slow, IntoTheQuery, [&] { Dialog->close(); });
                                        QVERIFY(Took >= 0 && Took < Moment);
                                        QVERIFY(!Dialog->isVisible());
                                        LeftNothing(false);
                                      }));
  }

  // As the button does, before there is a dialog to be cancelled.
  void shouldGiveUpThePickDuringItsFirstQuery_data() { AddSlowQueries(); }
  void shouldGiveUpThePickDuringItsFirstQuery() {
    if (!Open()) return;
    QFETCH(const TListSource, Slow);
    QWidget Window;  // the host's, in which the key is pressed while no dialog is there
    Window.show();
    for (const bool InWaitWindow : {false, true}) {
      QElapsedTimer Clock;
      std::string Key = "before";
      const auto Prepare = [&](TListDialog& Dialog) {
        After(&Dialog, IntoTheQuery, [&, Prepared = &Dialog] {
          Clock.start();
          PressEscape(InWaitWindow ? Prepared->findChild<TZULPickPlsWait*>() : &Window);
        });
      };
      QVERIFY(!pickbase::PickText<TListDialog>(Key, &TListDialog::GetID, Host_->Connection(), Slow,
                                               std::function<void(TListDialog&)>(Prepare)));
      QVERIFY(Clock.isValid());
      QVERIFY(Clock.elapsed() < Moment);
      QCOMPARE(Key, std::string());
      QVERIFY(Window.isVisible());
      LeftNothing(false);
    }
  }

  // The rest of a list that is wanted for the End key: what is there stays, and can be left for another order.
  void shouldStopWaitingForTheEndOfTheList_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::SQLite, TBackendKind::PostgreSQL, TBackendKind::MariaDB}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldStopWaitingForTheEndOfTheList() {
    if (!Open()) return;
    const TListSource Million("A.ID + '-' + B.ID", "Cust A, Cust B WHERE 0=0", "A.ID + '-' + B.ID ID");
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), Million);
    const auto PressEnd = [&](const std::function<void()>& Meanwhile) {
      After(Dialog.get(), 20, Meanwhile);
      QTest::keyClick(Dialog->dbgAvail, Qt::Key_End);
    };
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        PressEnd([&] { PressEscape(Dialog->dbgAvail); });
                                        QVERIFY(Dialog->isVisible());
                                        QVERIFY(!Dialog->qryList_->IsComplete());
                                        QCOMPARE(Dialog->qryList_->RecNo(), 1);
                                        QVERIFY(Dialog->actOK->isEnabled());
                                        Dialog->Source = {};
                                        PressEnd([&] { support::ClickBox(Dialog->ckbDesc); });
                                        QTRY_COMPARE(Dialog->Queries, 2);
                                        QCOMPARE(Dialog->qryList_->RecNo(), 1);
                                        QCOMPARE(support::Column(*Dialog, "ID").front(), std::string("C01000"));
                                        PressEscape(Dialog->dbgAvail);
                                        QVERIFY(!Dialog->isVisible());
                                      }));
    LeftNothing(false);
  }

  // It would be answered by the statement that comes next.
  void shouldNotHitWhatComesNextInTheMomentTheRowsEnd_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Sleep");
    QTest::newRow("PostgreSQL") << TBackendKind::PostgreSQL << "pg_sleep(%1)";
    QTest::newRow("MariaDB") << TBackendKind::MariaDB << "SLEEP(%1)";
  }
  void shouldNotHitWhatComesNextInTheMomentTheRowsEnd() {
    QFETCH(const QString, Sleep);
    if (!Open()) return;
    Host_->Execute("CREATE TABLE nap (seconds DOUBLE PRECISION)");
    Host_->Execute("INSERT INTO nap VALUES (0)");
    Host_->Execute("CREATE VIEW napping AS SELECT CAST(" + Sleep.arg("seconds") + " AS CHAR(10)) AS zip FROM nap");
    for (int Time = 0; Time < 40; ++Time) {
      Host_->Execute(QStringLiteral("UPDATE nap SET seconds = %1").arg(0.015 + Time * 0.00075));
      ads::TAdsQuery List(nullptr);
      List.SetConnection(Host_->Connection());
      List.AddField("Zip", ads::TFieldType::ftString, 10);
      List.SQL()->Add("SELECT Zip FROM Napping");
      List.OnProgress = [&] { List.Stop(); };
      const bool IsOpen = List.Open();
      QCOMPARE(List.Active(), IsOpen);
      Host_->Execute("SELECT " + Sleep.arg("0.005"));
      QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
    }
    LeftNothing(false);
  }

  void shouldStopBetweenRows_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  void shouldStopBetweenRows() {
    QFETCH(const TBackendKind, Kind);
    // SQLite's driver for ODBC reads the whole result before it gives the first row.
    if (!OpenKind(Kind, Kind == TBackendKind::ODBCPostgreSQL ? "UseDeclareFetch=1" : "")) return;
    // So many rows that they do not all come before the last call, even while a busy machine gives this process few
    // turns; by ODBC no more than a driver can take at once.
    const std::string Sql =
        support::IsByODBC(Kind) ? "SELECT A.ID FROM Cust A, Cust B" : "SELECT A.ID FROM Cust A, Cust B, Cust C";
    for (const bool InTransaction : {false, true}) {
      if (InTransaction) QVERIFY(Host_->Database().transaction());
      for (int Calls = 1; Calls < 4; ++Calls) {
        ads::TAdsQuery List(nullptr);
        List.SetConnection(Host_->Connection());
        List.AddField("ID", ads::TFieldType::ftString, 10);
        List.SQL()->Add(Sql);
        int Call = 0;
        List.OnProgress = [&] {
          if (++Call == Calls) List.Stop();
        };
        QVERIFY(!List.Open());
        QCOMPARE(Call, Calls);
        QVERIFY(!List.Active());
        QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
      }
      Host_->Execute(QStringLiteral("INSERT INTO area (zip) VALUES ('mine %1')").arg(InTransaction));
      if (InTransaction) QVERIFY(Host_->Database().commit());
    }
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip LIKE 'mine%'").toInt(), 2);
  }

  // An interrupt of the connection would end them.
  void shouldLetTheHostReadOnItsOwnRows() {
    QVERIFY(OpenKind(TBackendKind::SQLite));
    QSqlQuery Half(Host_->Database());
    Half.setForwardOnly(true);
    QVERIFY(Half.exec("SELECT id FROM cust ORDER BY id"));
    QVERIFY(Half.next() && Half.next());
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               for (const TListSource& Slow : {NoRowsOfKeys, NoRowsOfTexts, Sorting}) {
                                 QVERIFY(Stop(*Dialog, Slow, IntoTheQuery, [&] { PressEscape(Dialog->edFind); }) >= 0);
                                 QVERIFY2(Half.next(), qPrintable(Half.lastError().text()));
                               }
                             });
    int Read = 5;
    while (Half.next()) ++Read;
    QVERIFY(!Half.lastError().isValid());
    QCOMPARE(Read, 1000);
  }

  void shouldTellThatTheAdministratorHasEndedASearch_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind :
         {TBackendKind::PostgreSQL, TBackendKind::ODBCPostgreSQL, TBackendKind::MariaDB, TBackendKind::ODBCMariaDB}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldTellThatTheAdministratorHasEndedASearch() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    DrivePickAs<TListDialog>(
        [&] { return Dialog->ShowPick(); },
        [&](TListDialog&) {
          Dialog->Source = Sleeping;
          std::thread Administrator([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(IntoTheQuery));
            EndStatement();
          });
          support::TypeFind(*Dialog, "c0");
          Administrator.join();
          QVERIFY(Dialog->isVisible());
          QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
          QVERIFY(!Dialog->lblRows->text().contains("search"));
          QVERIFY(support::SqlLines(*Dialog).at(2).starts_with("AND UPPER(A.ID) LIKE"));  // none without it was tried
        });
    Expected_ = {support::IsOnMariaDB(Host_->Kind())         ? "Query execution was interrupted"
                 : Host_->Kind() == TBackendKind::PostgreSQL ? "canceling statement due to user request"
                                                             : "ERROR: canceling statement due to user request"};
    LeftNothing(false);
  }

  void shouldLeaveAServerThatHasGoneSilent_data() {
    QTest::addColumn<TListSource>("Slow");
    QTest::newRow("before the first row") << Sleeping;
    QTest::newRow("in the sort") << Sorting;
  }
  void shouldLeaveAServerThatHasGoneSilent() {
    QFETCH(const TListSource, Slow);
    if (!OpenKind(TBackendKind::PostgreSQL)) return;
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), {});
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               const qint64 Took = Stop(*Dialog, Slow, IntoTheQuery, [&] {
                                 kill(Process_, SIGSTOP);
                                 PressEscape(Dialog->edFind);
                               });
                               kill(Process_, SIGCONT);
                               qInfo("The stop took %lld ms.", Took);
                               QVERIFY(Took >= 0 && Took < Moment);
                               QVERIFY(Dialog->isVisible());
                               QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
                             });
    QVERIFY(!Host_->Database().isOpen());
    QVERIFY_THROWS_EXCEPTION(ads::EConnectionLost, Rows("SELECT COUNT(*) X FROM Cust"));
  }

  // A network that loses everything: neither the server nor who asks it to end the query can be reached.
  void shouldLeaveANetworkThatHasGoneSilent_data() {
    QTest::addColumn<int>("Bytes");
    QTest::newRow("before the query") << 0;
    QTest::newRow("before the first row") << 50;
    QTest::newRow("amid the page") << 10000;
    QTest::newRow("amid the rest") << 400000;
  }
  void shouldLeaveANetworkThatHasGoneSilent() {
    QFETCH(const int, Bytes);
    if (!OpenKind(TBackendKind::PostgreSQL)) return;
    support::TStallingProxy Proxy(Backends_->Server().Host());
    Connect(Proxy);
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Through_.get(), {});
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               QElapsedTimer Clock;
                               Dialog->Source = TListSource("A.ID", "Cust A, Cust B WHERE 0=0", "A.ID + '-' + B.ID ID");
                               Bytes == 0 ? Proxy.Stall() : Proxy.StallAfter(Bytes);
                               const auto IsStalled = [&Proxy] { return Proxy.IsStalled(); };
                               Once(Dialog.get(), IsStalled, [&] {
                                 Clock.start();
                                 PressEscape(Dialog->edFind);
                               });
                               support::ClickBox(Dialog->ckbDesc);
                               if (!Clock.isValid())
                                 QTest::keyClick(Dialog->dbgAvail, Qt::Key_End);  // the page is there
                               QVERIFY(Clock.isValid());
                               qInfo("The stop took %lld ms.", Clock.elapsed());
                               QVERIFY(Clock.elapsed() < Moment);
                               QVERIFY(Dialog->isVisible());
                               QVERIFY(Dialog->qryList_->KnownRows() >= 900);
                               PressEscape(Dialog->edFind);
                               QVERIFY(!Dialog->isVisible());
                             });
    QVERIFY(!Through_->Database().isOpen());
    QVERIFY_THROWS_EXCEPTION(ads::EConnectionLost, Values(*Through_, "SELECT COUNT(*) X FROM Cust"));
  }

  void shouldGiveUpAPickWhoseServerWasSilentBefore() {
    if (!OpenKind(TBackendKind::PostgreSQL)) return;
    support::TStallingProxy Proxy(Backends_->Server().Host());
    Connect(Proxy);
    Proxy.Stall();
    QWidget Window;
    Window.show();
    QElapsedTimer Clock;
    std::thread User([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(IntoTheQuery));
      const auto Press = [&] {
        Clock.start();
        PressEscape(&Window);
      };
      QMetaObject::invokeMethod(this, Press, Qt::QueuedConnection);
    });
    std::string Key;
    QVERIFY(!pickbase::PickText<TListDialog>(Key, &TListDialog::GetID, Through_.get(), TListSource(),
                                             std::function<void(TListDialog&)>()));
    User.join();
    QVERIFY(Clock.isValid());
    qInfo("Giving up took %lld ms.", Clock.elapsed());
    QVERIFY(Clock.elapsed() < Moment);
    QVERIFY(!Through_->Database().isOpen());
  }

 private:
  void Connect(const support::TStallingProxy& Proxy) {
    QSqlDatabase Database = QSqlDatabase::addDatabase("QPSQL", ProxyName);
    Database.setHostName(Proxy.Host());
    Database.setDatabaseName(Host_->Database().databaseName());
    Database.setUserName("tester");
    if (!Database.open()) qFatal("%s", qPrintable(Database.lastError().text()));
    Through_ = std::make_unique<ads::TAdsConnection>(Database);
  }
  void Disconnect() {
    if (Through_ == nullptr) return;
    Through_.reset();
    QSqlDatabase::removeDatabase(ProxyName);
  }

  // On a thread of its own, which has no part in the other connections.
  void EndStatement() const {
    const QString Name = "Administrator";
    const QString Session = QString::number(Process_);
    if (support::IsOnMariaDB(Host_->Kind())) {
      const QSqlDatabase Database = Backends_->MariaDB().Connect(Name);
      TBackend::Execute(Database, "KILL QUERY " + Session);
    } else {
      const QSqlDatabase Database = Backends_->Server().Connect(Name, QStringLiteral("company"));
      TBackend::Value(Database, "SELECT pg_cancel_backend(" + Session + ")");
    }
    QSqlDatabase::removeDatabase(Name);
  }
};

QTEST_MAIN(tst_StoppedQueries)
#include "tst_StoppedQueries.moc"
