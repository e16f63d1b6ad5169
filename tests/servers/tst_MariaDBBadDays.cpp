#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "ads/Ads.h"
#include "ads/MessageOf.h"
#include "ads/Values.h"
#include "picks/parties/uPickCustomer.h"
#include "sample/SampleCompany.h"
#include "servers/Backends.h"
#include "servers/HostileTexts.h"
#include "servers/ListDialog.h"
#include "servers/OpenOrSkip.h"
#include "servers/StopQuery.h"
#include "support/PickDriver.h"
#include "support/ProgramRun.h"

using support::After;
using support::DrivePickAs;
using support::MessageOf;
using support::TBackend;
using support::TBackendKind;
using support::TListDialog;
using support::TListSource;
using uPickCustomer::TfrmPickCustomer;

namespace {

constexpr qint64 Moment = 3000;

const TListSource Slow(
    "UPPER(A.ID)",
    "Cust A, Cust B, Cust C WHERE UPPER(A.Company + '-' + B.Company + '-' + C.Company) LIKE '%NOWHERE%'");

support::TRun RunPick(const QString& Address) {
  QProcessEnvironment Variables = QProcessEnvironment::systemEnvironment();
  Variables.insert("QT_QPA_PLATFORM", "offscreen");
  return support::RunProgram(ZUL_PROGRAM, {"customer", "--entity", "MAIN", "--db", Address}, Variables, 60000);
}

// A server that came up with special arguments and holds the company; closed again when it goes.
class TSpecialServer {
 public:
  explicit TSpecialServer(const QStringList& Settings, bool WithCompany = true)
      : Server(TServerOptions{Settings, {}}), Database(QSqlDatabase::addDatabase("QMYSQL", "special")) {
    if (Server.IsRunning() && WithCompany) sample::CreateCompanyOnServer(Server.Address("test"));
  }
  ~TSpecialServer() {
    Database = {};
    QSqlDatabase::removeDatabase("special");
  }
  TSpecialServer(const TSpecialServer&) = delete;
  TSpecialServer& operator=(const TSpecialServer&) = delete;

  void Execute(const QString& Sql) const {
    TBackend::Execute(Server.Connect("administrator"), Sql);
    QSqlDatabase::removeDatabase("administrator");
  }
  // By the network, where an account needs what it needs.
  bool Open(const QString& User, const QString& Options) {
    Database.setHostName("127.0.0.1");
    Database.setPort(Server.Port());
    Database.setUserName(User);
    Database.setDatabaseName("test");
    Database.setConnectOptions(Options);
    return Database.open();
  }

  TThrowawayMariaDB Server;
  QSqlDatabase Database;
};

// A certificate that vouches for itself, for the server and for a client.
class TCertificate {
 public:
  TCertificate() {
    QFile::setPermissions(Folder_.path(), QFile::permissions(Folder_.path()) | QFile::ReadOther | QFile::ExeOther);
    const QStringList Words{"req",   "-x509",   "-newkey", "rsa:2048", "-nodes", "-days", "2",
                            "-subj", "/CN=zul", "-keyout", Key(),      "-out",   File()};
    QProcess Process;
    Process.start("openssl", Words);
    IsThere_ = Process.waitForFinished(60000) && Process.exitCode() == 0 &&
               QFile::setPermissions(Key(), QFile::ReadOwner | QFile::ReadOther);
  }
  bool IsThere() const { return IsThere_; }
  QString File() const { return Folder_.filePath("certificate.pem"); }
  QString Key() const { return Folder_.filePath("key.pem"); }

 private:
  QTemporaryDir Folder_;
  bool IsThere_ = false;
};

}  // namespace

/// What goes wrong with a MariaDB server, its accounts and its tables: each time the server's message, and a dialog
/// that stays as it was.
class tst_MariaDBBadDays : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  void AddKinds() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::newRow("MariaDB") << TBackendKind::MariaDB;
    QTest::newRow("MariaDB by ODBC") << TBackendKind::ODBCMariaDB;
  }
  bool Open() { return Open(*static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()))); }
  bool Open(TBackendKind Kind) {
    Company_ = support::OpenOrSkip(*Backends_, Kind);
    return Company_ != nullptr;
  }
  QString Session() const { return TBackend::Value(Company_->Database(), "SELECT CONNECTION_ID()").toString(); }
  QString DatabaseName() const { return Company_->ValueBeside("SELECT DATABASE()").toString(); }
  std::string Messages() const {
    std::string Result;
    for (const std::string& Message : Boxes_->Messages()) Result += Message + '\n';
    return Result;
  }
  void Reopen() {
    Company_->Database().close();
    QVERIFY(Company_->Database().open());
  }

  // Drives a real customer pick, which shows all customers and then does what the test says; whether one was chosen.
  bool Pick(const std::function<void(TfrmPickCustomer&)>& Drive, std::string& Customer) {
    const auto Call = [&] {
      return uPickCustomer::CallCustomerPick(Company_->Connection(), Customer, false, "", true, false);
    };
    return DrivePickAs<TfrmPickCustomer>(Call, [&](TfrmPickCustomer& Dialog) {
      QVERIFY(Dialog.qryList_->RecordCount() > 500);
      support::ChooseFindBy(Dialog, 0);
      Drive(Dialog);
    });
  }
  void PickAndCancel(const std::function<void(TfrmPickCustomer&)>& Drive) {
    std::string Customer;
    QVERIFY(!Pick(Drive, Customer));
  }

  QStringList Checksums() const {
    QSqlQuery Tables(
        "SELECT group_concat('`', table_name, '`') FROM information_schema.tables WHERE table_schema = DATABASE()",
        Company_->Beside());
    if (!Tables.next()) return {};
    QSqlQuery Query("CHECKSUM TABLE " + Tables.value(0).toString(), Company_->Beside());
    QStringList Result;
    while (Query.next()) Result << Query.value(0).toString() + ' ' + Query.value(1).toString();
    return Result;
  }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() {
    Boxes_.reset();
    Company_.reset();
  }

  void shouldTellWhyTheDatabaseCannotBeOpened_data() {
    QTest::addColumn<QString>("Account");
    QTest::addColumn<QString>("Place");
    QTest::addColumn<QString>("Message");
    QTest::newRow("a wrong password") << "locked:sesame54"
                                      << "127.0.0.1:PORT/test"
                                      << "Access denied for user 'locked'@";
    QTest::newRow("no password") << "locked"
                                 << "127.0.0.1:PORT/test"
                                 << "(using password: NO)";
    QTest::newRow("an unknown account") << "nobody:sesame54"
                                        << "127.0.0.1:PORT/test"
                                        << "Access denied for user 'nobody'@";
    QTest::newRow("an unknown host") << "locked:sesame54"
                                     << "nowhere.invalid/test"
                                     << "Unknown server host 'nowhere.invalid'";
    QTest::newRow("an unknown database") << "locked:right54"
                                         << "127.0.0.1:PORT/nowhere"
                                         << "Unknown database 'nowhere'";
    QTest::newRow("nobody listens") << "locked:sesame54"
                                    << "127.0.0.1:1/test"
                                    << "Can't connect to server on '127.0.0.1'";
    QTest::newRow("no such socket") << "locked:sesame54"
                                    << "/test?unix_socket=/nowhere/socket"
                                    << "'/nowhere/socket'";
  }
  void shouldTellWhyTheDatabaseCannotBeOpened() {
    if (!Open(TBackendKind::MariaDB)) return;
    QFETCH(const QString, Account);
    QFETCH(QString, Place);
    QFETCH(const QString, Message);
    Company_->ExecuteBeside("CREATE OR REPLACE USER locked@'%' IDENTIFIED BY 'right54'");
    Company_->ExecuteBeside("GRANT SELECT ON *.* TO locked@'%'");
    Place.replace("PORT", QString::number(Backends_->MariaDB().Port()));
    const support::TRun Result = RunPick("mysql://" + Account + '@' + Place);
    QCOMPARE(Result.Code, 3);
    QVERIFY2(Result.Errors.contains(Message), qPrintable(Result.Errors));
    const QString All = Result.Errors + Result.Output;
    QVERIFY2(!All.contains("sesame54") && !All.contains("right54"), qPrintable(All));
  }

  void shouldRefuseAServerThatIsTooOldOrNone_data() {
    QTest::addColumn<QString>("Version");
    QTest::newRow("too old") << "10.3.0-MariaDB";
    QTest::newRow("just too old") << "10.11.5-MariaDB";
    QTest::newRow("of another kind") << "8.0.0";
  }
  void shouldRefuseAServerThatIsTooOldOrNone() {
    QFETCH(const QString, Version);
    TSpecialServer Special({"version=" + Version}, false);
    if (!Special.Server.IsRunning()) QSKIP(qPrintable(Special.Server.Reason()));
    QVERIFY(Special.Open("tester", {}));
    QVERIFY(TBackend::Value(Special.Database, "SELECT VERSION()").toString().startsWith(Version));
    {
      ads::TAdsConnection Connection(Special.Database);
      std::string Customer;
      VERIFY_CONTAINS(MessageOf<ads::EDatabaseError>(
                          [&] { uPickCustomer::CallCustomerPick(&Connection, Customer, false, "", true, false); }),
                      "The server is " + Version);
    }
    const support::TRun Result = RunPick(QStringLiteral("mysql://tester@127.0.0.1:%1/test").arg(Special.Server.Port()));
    QCOMPARE(Result.Code, 3);
    QVERIFY2(Result.Errors.contains("lists can be read from MariaDB 10.11.6 or later"), qPrintable(Result.Errors));
  }

  void shouldRefuseByODBCAServerThatIsTooOld_data() {
    QTest::addColumn<QString>("Version");
    QTest::addColumn<bool>("IsRead");
    QTest::newRow("too old") << "10.3.0-MariaDB" << false;
    QTest::newRow("just too old") << "10.11.5-MariaDB" << false;
    QTest::newRow("just new enough") << "10.11.6-MariaDB" << true;
  }
  void shouldRefuseByODBCAServerThatIsTooOld() {
    QFETCH(const QString, Version);
    QFETCH(const bool, IsRead);
    TSpecialServer Special({"version=" + Version});
    if (!Special.Server.IsRunning()) QSKIP(qPrintable(Special.Server.Reason()));
    const QString Missing = Backends_->Missing(TBackendKind::ODBCMariaDB);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    {
      QSqlDatabase Database = QSqlDatabase::addDatabase("QODBC", "by ODBC");
      Database.setDatabaseName("DRIVER={MariaDB Unicode};SOCKET=" + Special.Server.Socket() +
                               ";DATABASE=test;UID=tester");
      QVERIFY2(Database.open(), qPrintable(Database.lastError().text()));
      ads::TAdsConnection Connection(Database);
      const std::string Message =
          MessageOf<ads::EDatabaseError>([&] { QVERIFY(!Values(Connection, "SELECT ID X FROM Cust").isEmpty()); });
      QCOMPARE(Message.find("lists can be read from MariaDB 10.11.6 or later") == Message.npos, IsRead);
    }
    QSqlDatabase::removeDatabase("by ODBC");
  }

  void shouldSayWhichTableMayNotBeRead_data() { AddKinds(); }
  void shouldSayWhichTableMayNotBeRead() {
    if (!Open()) return;
    Company_->ExecuteBeside("CREATE OR REPLACE USER partly@localhost");
    QSqlQuery Tables(
        "SELECT table_name FROM information_schema.tables WHERE table_schema = DATABASE() AND table_name "
        "<> 'custbal'",
        Company_->Beside());
    QStringList Names;
    while (Tables.next()) Names << Tables.value(0).toString();
    for (const QString& Name : Names) {
      Company_->ExecuteBeside("GRANT SELECT ON `" + DatabaseName() + "`.`" + Name + "` TO partly@localhost");
    }
    QSqlDatabase Database = Backends_->Connect(*Company_, "partly");
    QVERIFY2(Database.isOpen(), qPrintable(Database.lastError().text()));
    {
      ads::TAdsConnection Connection(Database);
      const auto Dialog = TfrmPickCustomer::Create(&Connection, false, "", true, false);
      QVERIFY(!DrivePickAs<TfrmPickCustomer>([&] { return Dialog->ShowPick(); },
                                             [&](TfrmPickCustomer&) {
                                               support::ClickBox(Dialog->ckbBalance);
                                               QTest::qWait(300);
                                               QVERIFY2(Boxes_->Messages().size() == 1, Messages().c_str());
                                               VERIFY_CONTAINS(Messages(), "SELECT command denied to user 'partly'");
                                               VERIFY_CONTAINS(Messages(), "custbal");
                                               QVERIFY(Dialog->isVisible());
                                               support::ChooseFindBy(*Dialog, 0);
                                               support::TypeFind(*Dialog, "C0050");
                                               QVERIFY(Dialog->qryList_->RecordCount() > 0);
                                             }));
    }
    const QString Name = Database.connectionName();
    Database = {};
    QSqlDatabase::removeDatabase(Name);
  }

  void shouldSayWhatIsMissing_data() { AddKinds(); }
  void shouldSayWhatIsMissing() {
    if (!Open()) return;
    PickAndCancel([&](TfrmPickCustomer& Dialog) {
      support::TypeFind(Dialog, "C00");
      const std::vector<std::string> Before = support::Column(Dialog, "ID");
      Company_->ExecuteBeside("ALTER TABLE cust CHANGE company firm VARCHAR(35)");
      support::TypeFind(Dialog, "C00500");
      QVERIFY2(Boxes_->Messages().size() == 1, Messages().c_str());
      VERIFY_CONTAINS(Messages(), "Unknown column");
      QVERIFY(support::Column(Dialog, "ID") == Before);
      Company_->ExecuteBeside("RENAME TABLE cust TO clients");
      support::TypeFind(Dialog, "C00500");
      QVERIFY2(Boxes_->Messages().size() == 2, Messages().c_str());
      VERIFY_CONTAINS(Boxes_->Messages().back(), "cust' doesn't exist");
      QVERIFY(support::Column(Dialog, "ID") == Before);
      QCOMPARE(Dialog.edFind->text(), QString("C00500"));
      Company_->ExecuteBeside("RENAME TABLE clients TO cust");
      Company_->ExecuteBeside("ALTER TABLE cust CHANGE firm company VARCHAR(35)");
      support::TypeFind(Dialog, "C00500");
      QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00500"});
      QCOMPARE(Boxes_->Messages().size(), std::size_t(2));
    });
  }

  void shouldThrowWhenTheConnectionIsLostBeforeTheFirstQuery_data() { AddKinds(); }
  void shouldThrowWhenTheConnectionIsLostBeforeTheFirstQuery() {
    if (!Open()) return;
    Company_->ExecuteBeside("KILL " + Session());
    std::string Customer = "before";
    VERIFY_CONTAINS(MessageOf<ads::EConnectionLost>([&] {
                      uPickCustomer::CallCustomerPick(Company_->Connection(), Customer, false, "", true, false);
                    }),
                    "lost");
    QCOMPARE(Customer, std::string("before"));
    Reopen();
    PickAndCancel([](TfrmPickCustomer&) {});
  }

  void shouldKeepItsListWhenTheConnectionIsLostInAFind_data() { AddKinds(); }
  void shouldKeepItsListWhenTheConnectionIsLostInAFind() {
    if (!Open()) return;
    const bool IsAsked = Company_->Kind() == TBackendKind::MariaDB;  // by ODBC nobody is served meanwhile
    const auto Dialog = TListDialog::Create(Company_->Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        const QString Mine = Session();
                                        const std::vector<std::string> Before = support::Column(*Dialog, "ID");
                                        if (IsAsked) {
                                          Dialog->Source = Slow;
                                          After(Dialog.get(), 200, [&] { Company_->ExecuteBeside("KILL " + Mine); });
                                        } else {
                                          Company_->ExecuteBeside("KILL " + Mine);
                                        }
                                        support::TypeFind(*Dialog, "C00500");
                                        QVERIFY2(Boxes_->Messages().size() == 1, Messages().c_str());
                                        VERIFY_CONTAINS(Messages(), "lost");
                                        QVERIFY(support::Column(*Dialog, "ID") == Before);
                                        QCOMPARE(Dialog->edFind->text(), QString("C00500"));
                                        Dialog->Source = {};
                                        Reopen();
                                        support::TypeFind(*Dialog, "C00500");
                                        QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00500"});
                                      }));
    QCOMPARE(Boxes_->Messages().size(), std::size_t(1));
  }

  void shouldGiveTheKeyOfAListWhoseConnectionIsLost_data() { AddKinds(); }
  void shouldGiveTheKeyOfAListWhoseConnectionIsLost() {
    if (!Open()) return;
    std::string Customer, Shown;
    const auto Drive = [&](TfrmPickCustomer& Dialog) {
      Company_->ExecuteBeside("KILL " + Session());
      Dialog.qryList_->SetRecNo(7);
      Shown = Dialog.GetCustID();
      support::ClickOK(Dialog);
    };
    QVERIFY(Pick(Drive, Customer));
    QCOMPARE(Customer, Shown);
    QVERIFY(!Customer.empty());
    QVERIFY2(Boxes_->Messages().empty(), Messages().c_str());
  }

  void shouldTellThatTheConnectionIsLostWhenABalanceIsLookedUp_data() { AddKinds(); }
  void shouldTellThatTheConnectionIsLostWhenABalanceIsLookedUp() {
    if (!Open()) return;
    PickAndCancel([&](TfrmPickCustomer& Dialog) {
      const std::vector<std::string> Before = support::Column(Dialog, "ID");
      Company_->ExecuteBeside("KILL " + Session());
      support::ClickBox(Dialog.ckbBalance);
      QTest::qWait(300);
      QVERIFY2(Boxes_->Messages().size() == 1, Messages().c_str());
      VERIFY_CONTAINS(Messages(), "lost");
      QVERIFY(Dialog.isVisible());
      QVERIFY(support::Column(Dialog, "ID") == Before);
      Reopen();
      support::TypeFind(Dialog, "C00500");
      QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00500"});
      if (!Dialog.ckbBalance->isChecked()) support::ClickBox(Dialog.ckbBalance);
      QTest::qWait(100);
      support::TypeFind(Dialog, "C00");
      const std::vector<std::string> Balances = support::ShownColumn(Dialog, "Balance");
      QVERIFY(std::any_of(Balances.begin(), Balances.end(), [](const std::string& Text) { return !Text.empty(); }));
      QCOMPARE(Boxes_->Messages().size(), std::size_t(1));
    });
  }

  void shouldTellOnceThatItHasWaitedLongEnough_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Setting");
    QTest::addColumn<QString>("Message");
    for (const TBackendKind Kind : {TBackendKind::MariaDB, TBackendKind::ODBCMariaDB}) {
      QTest::addRow("a table that is locked, %s", support::NameOf(Kind)) << Kind << "SET lock_wait_timeout = 2"
                                                                         << "Lock wait timeout exceeded";
      QTest::addRow("a limit of time, %s", support::NameOf(Kind)) << Kind << "SET max_statement_time = 2"
                                                                  << "max_statement_time exceeded";
    }
  }
  void shouldTellOnceThatItHasWaitedLongEnough() {
    if (!Open()) return;
    QFETCH(const QString, Setting);
    QFETCH(const QString, Message);
    PickAndCancel([&](TfrmPickCustomer& Dialog) {
      const std::vector<std::string> Before = support::Column(Dialog, "ID");
      TBackend::Execute(Company_->Database(), Setting);
      Company_->ExecuteBeside("LOCK TABLES cust WRITE");
      QElapsedTimer Clock;
      Clock.start();
      support::TypeFind(Dialog, "C00500");
      const qint64 Took = Clock.elapsed();
      Company_->ExecuteBeside("UNLOCK TABLES");
      QVERIFY2(Boxes_->Messages().size() == 1, Messages().c_str());
      VERIFY_CONTAINS(Messages(), Message);
      QVERIFY2(Took >= 1500 && Took < 3800, qPrintable(QString::number(Took)));  // waited once
      QVERIFY(support::Column(Dialog, "ID") == Before);
      QCOMPARE(Dialog.edFind->text(), QString("C00500"));
      support::TypeFind(Dialog, "C00500");
      QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00500"});
    });
  }

  void shouldStopWaitingForALockWhenItIsToldTo() {
    if (!Open(TBackendKind::MariaDB)) return;
    const QString Mine = Session();
    PickAndCancel([&](TfrmPickCustomer& Dialog) {
      const std::vector<std::string> Before = support::Column(Dialog, "ID");
      Company_->ExecuteBeside("LOCK TABLES cust WRITE");
      QElapsedTimer Clock;
      After(&Dialog, 300, [&] {
        Clock.start();
        QTest::keyClick(Dialog.edFind, Qt::Key_Escape);
      });
      support::TypeFind(Dialog, "C00500");
      QVERIFY(Clock.isValid() && Clock.elapsed() < Moment);
      Company_->ExecuteBeside("UNLOCK TABLES");
      QVERIFY(Dialog.isVisible());
      QVERIFY(support::Column(Dialog, "ID") == Before);
      support::TypeFind(Dialog, "C00500");
      QCOMPARE(support::Column(Dialog, "ID"), std::vector<std::string>{"C00500"});
    });
    QCOMPARE(Session(), Mine);
    QVERIFY2(Boxes_->Messages().empty(), Messages().c_str());
  }

  // The account may do everything.
  void shouldTakeWhatIsPassedForATextOrRefuseIt_data() { AddKinds(); }
  void shouldTakeWhatIsPassedForATextOrRefuseIt() {
    if (!Open()) return;
    for (const bool InTransaction : {false, true}) {
      if (InTransaction) TBackend::Execute(Company_->Database(), "START TRANSACTION");
      const QStringList Before = Checksums();
      QVERIFY(Before.size() > 10);
      int Refused = 0, Read = 0;
      QElapsedTimer Clock;
      Clock.start();
      for (const QString& Text : support::HostileCodes({"/nowhere/acted", "1", "localhost", "company"})) {
        try {
          const auto Dialog = TfrmPickCustomer::Create(Company_->Connection(), true, Text.toStdString(), true, false);
          QVERIFY2(Dialog->qryList_->IsEmpty() || Text.trimmed().isEmpty() || !Text.contains('\''), qPrintable(Text));
          ++Read;
        } catch (const ads::EDatabaseError&) {
          ++Refused;
        }
      }
      QVERIFY(Refused > 0 && Read > 0);
      QCOMPARE(Checksums(), Before);
      QCOMPARE(TBackend::Value(Company_->Database(), "SELECT @@in_transaction").toInt(), InTransaction ? 1 : 0);
      qInfo("%d refused, %d read in %lld ms", Refused, Read, Clock.elapsed());
      if (InTransaction) TBackend::Execute(Company_->Database(), "ROLLBACK");
    }
  }

  void shouldStopAQueryWhereTheServerWantsTLS_data() {
    QTest::addColumn<QString>("User");
    QTest::addColumn<bool>("WithCertificate");
    QTest::newRow("of the connection") << "safe" << false;
    QTest::newRow("with a client's certificate") << "certified" << true;
  }
  void shouldStopAQueryWhereTheServerWantsTLS() {
    QFETCH(const QString, User);
    QFETCH(const bool, WithCertificate);
    const TCertificate Certificate;
    if (!Certificate.IsThere()) QSKIP("openssl is not installed");
    TSpecialServer Special({"ssl-ca=" + Certificate.File(), "ssl-cert=" + Certificate.File(),
                            "ssl-key=" + Certificate.Key(), "skip-name-resolve"});
    if (!Special.Server.IsRunning()) QSKIP(qPrintable(Special.Server.Reason()));
    Special.Execute("CREATE USER safe@'%' REQUIRE SSL");
    Special.Execute("CREATE USER certified@'%' REQUIRE X509");
    Special.Execute("GRANT SELECT ON test.* TO safe@'%', certified@'%'");
    QVERIFY(!Special.Open(User, {}));
    QString Options = "SSL_CA=" + Certificate.File();
    if (WithCertificate) Options += ";SSL_CERT=" + Certificate.File() + ";SSL_KEY=" + Certificate.Key();
    QVERIFY2(Special.Open(User, Options), qPrintable(Special.Database.lastError().text()));
    QSqlQuery Cipher("SHOW STATUS LIKE 'Ssl_cipher'", Special.Database);
    QVERIFY(Cipher.next() && !Cipher.value(1).toString().isEmpty());
    Cipher.clear();
    ads::TAdsConnection Connection(Special.Database);
    const QString Mine = TBackend::Value(Special.Database, "SELECT CONNECTION_ID()").toString();
    const auto Dialog = TListDialog::Create(&Connection, {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        const qint64 Took = support::StopQuery(*Dialog, Slow, 300);
                                        qInfo("The stop took %lld ms.", Took);
                                        QVERIFY(Took >= 0 && Took < Moment);
                                        support::TypeFind(*Dialog, "C00500");
                                        QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00500"});
                                      }));
    QCOMPARE(TBackend::Value(Special.Database, "SELECT CONNECTION_ID()").toString(), Mine);
    QVERIFY2(Boxes_->Messages().empty(), Messages().c_str());
  }
};

QTEST_MAIN(tst_MariaDBBadDays)
#include "tst_MariaDBBadDays.moc"
