#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

#include "ads/Ads.h"
#include "ads/Await.h"
#include "ads/Values.h"
#include "clusters/Balancer.h"
#include "clusters/ThrowawayGalera.h"
#include "picks/parties/uPickCustomer.h"
#include "sample/SampleCompany.h"
#include "servers/Backends.h"
#include "servers/ListDialog.h"
#include "servers/StopQuery.h"
#include "support/PickDriver.h"

using support::DrivePickAs;
using support::TBackend;
using support::TListDialog;
using support::TListSource;
using uPickCustomer::TfrmPickCustomer;

namespace {

constexpr int Many = 400000;
constexpr qint64 Moment = 3000;

enum class TLeaving { Stopped, Killed, Isolated, Rejecting };
enum class TWay { Driver, ODBC };

constexpr char NotReady[] = "WSREP has not yet prepared node for application use";

const TListSource Long("A.ID", "Longlist A WHERE 0=0");
const TListSource Slow(
    "UPPER(A.ID)",
    "Cust A, Cust B, Cust C WHERE UPPER(A.Company + '-' + B.Company + '-' + C.Company) LIKE '%NOWHERE%'");

bool Contains(const std::vector<std::string>& Messages, const char* Part) {
  return std::any_of(Messages.begin(), Messages.end(), [Part](const std::string& Message) {
    return QString::fromStdString(Message).contains(QLatin1String(Part));
  });
}

std::string Shown(const std::vector<std::string>& Messages) {
  std::string Result = std::to_string(Messages.size()) + " messages";
  for (const std::string& Message : Messages) Result += '\n' + Message;
  return Result;
}

/// A host's connection to one node at a time.
class THost {
 public:
  THost(TThrowawayGalera& Cluster, int Node, TWay Way, int Port = 0)
      : Cluster_(Cluster),
        Database_(QSqlDatabase::addDatabase(Way == TWay::ODBC ? "QODBC" : "QMYSQL", "host")),
        Way_(Way) {
    Move(Node, Port);
    if (!Database_.isOpen()) qFatal("%s", qPrintable(Database_.lastError().text()));
    Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
  }
  ~THost() {
    Connection_.reset();
    Database_ = {};
    QSqlDatabase::removeDatabase("host");
  }
  THost(const THost&) = delete;
  THost& operator=(const THost&) = delete;

  /// As a host does when the node to which it was connected is gone.
  void Move(int Node, int Port = 0) {
    Database_.close();
    const int To = Port == 0 ? Cluster_.Node(Node).Port() : Port;
    if (Way_ == TWay::ODBC) {
      Database_.setDatabaseName(
          QStringLiteral("DRIVER={MariaDB Unicode};SERVER=127.0.0.1;PORT=%1;DATABASE=company;UID=tester").arg(To));
    } else {
      Database_.setHostName("127.0.0.1");
      Database_.setPort(To);
      Database_.setUserName("tester");
      Database_.setDatabaseName("company");
    }
    Database_.open();
  }

  QSqlDatabase Database() const { return Database_; }
  ads::TAdsConnection* Connection() const { return Connection_.get(); }
  void Execute(const QString& Sql) const { TBackend::Execute(Database_, Sql); }
  QVariant Value(const QString& Sql) const { return TBackend::Value(Database_, Sql); }

 private:
  TThrowawayGalera& Cluster_;
  QSqlDatabase Database_;
  TWay Way_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

/// Somebody else on a node.
class TOther {
 public:
  TOther(const TThrowawayGalera& Cluster, int Node, QString Name = "other")
      : Name_(std::move(Name)), Database_(Cluster.Connect(Node, Name_, "company")) {}
  ~TOther() {
    Database_ = {};
    QSqlDatabase::removeDatabase(Name_);
  }
  TOther(const TOther&) = delete;
  TOther& operator=(const TOther&) = delete;

  bool Execute(const QString& Sql) const { return QSqlQuery(Database_).exec(Sql); }
  QVariant Value(const QString& Sql) const { return TBackend::Value(Database_, Sql); }

 private:
  QString Name_;
  QSqlDatabase Database_;
};

/// Commits one generation of all twins after the other on a node, until it is destroyed.
class TWriter {
 public:
  TWriter(const TThrowawayGalera& Cluster, int Node)
      : Thread_([this, &Cluster, Node] {
          const TOther Other(Cluster, Node, "writer");
          while (!IsEnding_) Write(Other);
        }) {}
  ~TWriter() { End(); }
  TWriter(const TWriter&) = delete;
  TWriter& operator=(const TWriter&) = delete;

  void End() {
    IsEnding_ = true;
    if (Thread_.joinable()) Thread_.join();
  }
  int Generations() const { return Generations_; }
  int Failures() const { return Failures_; }
  qint64 LongestWait() const { return LongestWait_; }

 private:
  void Write(const TOther& Other) {
    QElapsedTimer Clock;
    Clock.start();
    const bool Done = Other.Execute(QStringLiteral("UPDATE twins SET id = 'generation %1'").arg(Generations_ + 1));
    LongestWait_ = std::max<qint64>(LongestWait_, Clock.elapsed());
    (Done ? Generations_ : Failures_) += 1;
  }

  std::atomic<bool> IsEnding_ = false;
  std::atomic<int> Generations_ = 0;
  std::atomic<int> Failures_ = 0;
  std::atomic<qint64> LongestWait_ = 0;
  std::thread Thread_;
};

}  // namespace

/// Picks over a cluster of MariaDB servers of which a node goes, may not answer, or takes what others have written.
class tst_GaleraCluster : public QObject {
  Q_OBJECT

  std::unique_ptr<TThrowawayGalera> Cluster_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  void CreateCompany() {
    TBackend::Execute(Cluster_->Connect(0, "maker", "test"), "CREATE DATABASE company COLLATE utf8mb4_nopad_bin");
    QSqlDatabase::removeDatabase("maker");
    sample::CreateCompanyOnServer("mysql://tester@127.0.0.1:" + std::to_string(Cluster_->Node(0).Port()) + "/company");
    const TOther Maker(*Cluster_, 0);
    QVERIFY(Maker.Execute("CREATE TABLE longlist (id VARCHAR(20) PRIMARY KEY, tens INTEGER)"));
    QVERIFY(Maker.Execute(QStringLiteral("INSERT INTO longlist SELECT concat('row ', 1000000 + seq * 7919 % 1000003), "
                                         "seq DIV 10 FROM seq_1_to_%1")
                              .arg(Many)));
    QVERIFY(Maker.Execute("CREATE TABLE twins (n INTEGER PRIMARY KEY, id VARCHAR(40))"));
    QVERIFY(Maker.Execute("INSERT INTO twins SELECT seq, 'generation 0' FROM seq_1_to_3000"));
    QVERIFY(Cluster_->WaitUntilSynced());
  }

  bool Leave(int Node, TLeaving Leaving) {
    switch (Leaving) {
      case TLeaving::Stopped:
        Cluster_->Node(Node).Stop();
        return true;
      case TLeaving::Killed:
        Cluster_->Node(Node).Kill();
        return true;
      case TLeaving::Isolated:
        return Cluster_->Isolate(Node);
      default:
        return TOther(*Cluster_, Node).Execute("SET GLOBAL wsrep_reject_queries = 'ALL'");
    }
  }
  bool ComeBack(int Node, TLeaving Leaving) {
    if (Leaving != TLeaving::Rejecting) return Cluster_->Rejoin(Node);
    return TOther(*Cluster_, Node).Execute("SET GLOBAL wsrep_reject_queries = 'NONE'");
  }

  static void AddWays() {
    QTest::addColumn<TWay>("Way");
    QTest::newRow("by the driver") << TWay::Driver;
    QTest::newRow("by ODBC") << TWay::ODBC;
  }

  // A customer is changed by the host, in a transaction, and by somebody else on another node, whose change wins.
  static void ChangeAsHost(const THost& Host) {
    Host.Execute("START TRANSACTION");
    Host.Execute("UPDATE cust SET company = 'host' WHERE id = 'C00001'");
  }
  void ChangeAsOther(int Node, int HostsNode, const QString& Text) const {
    const TOther Winner(*Cluster_, Node, "winner"), Watcher(*Cluster_, HostsNode, "watcher");
    QVERIFY(Winner.Execute(QStringLiteral("UPDATE cust SET company = '%1' WHERE id = 'C00001'").arg(Text)));
    QVERIFY(support::Await(
        [&] { return Watcher.Value("SELECT company FROM cust WHERE id = 'C00001'").toString() == Text; }));
  }

 private slots:
  void initTestCase() {
    QElapsedTimer Clock;
    Clock.start();
    Cluster_ = std::make_unique<TThrowawayGalera>();
    if (!Cluster_->IsRunning()) QSKIP(qPrintable(Cluster_->Reason()));
    qInfo("The cluster took %lld ms.", Clock.restart());
    CreateCompany();
    qInfo("The company took %lld ms.", Clock.elapsed());
  }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() { Boxes_.reset(); }
  void cleanupTestCase() { Cluster_.reset(); }

  void shouldKeepItsListWhenTheNodeGoesBetweenFinds_data() {
    QTest::addColumn<TWay>("Way");
    QTest::addColumn<TLeaving>("Leaving");
    QTest::addColumn<QString>("Message");
    QTest::newRow("stopped") << TWay::Driver << TLeaving::Stopped << "lost";
    QTest::newRow("killed") << TWay::Driver << TLeaving::Killed << "lost";
    QTest::newRow("cut off from the others") << TWay::Driver << TLeaving::Isolated << NotReady;
    QTest::newRow("rejecting") << TWay::Driver << TLeaving::Rejecting << NotReady;
    QTest::newRow("stopped, by ODBC") << TWay::ODBC << TLeaving::Stopped << "lost";
    QTest::newRow("rejecting, by ODBC") << TWay::ODBC << TLeaving::Rejecting << NotReady;
  }
  void shouldKeepItsListWhenTheNodeGoesBetweenFinds() {
    QFETCH(const TWay, Way);
    QFETCH(const TLeaving, Leaving);
    QFETCH(const QString, Message);
    THost Host(*Cluster_, 1, Way);
    std::string Customer;
    const auto Drive = [&](TfrmPickCustomer& Dialog) {
      support::TypeFind(Dialog, "a");
      const std::vector<std::string> Before = support::Column(Dialog, "ID");
      QVERIFY(!Before.empty() && Before.size() < 1000);
      QVERIFY(Leave(1, Leaving));
      support::TypeFind(Dialog, "C0050");
      QVERIFY2(Boxes_->Messages().size() == 1 && Contains(Boxes_->Messages(), qPrintable(Message)),
               Shown(Boxes_->Messages()).c_str());
      QVERIFY(Dialog.isVisible());
      QCOMPARE(support::Column(Dialog, "ID"), Before);
      QCOMPARE(Dialog.edFind->text(), QString("C0050"));
      Host.Move(2);
      QVERIFY(Host.Database().isOpen());
      support::ChooseFindBy(Dialog, 0);
      support::TypeFind(Dialog, "C0050");
      const std::vector<std::string> Found = support::Column(Dialog, Dialog.qryList_ID->FieldName());
      QVERIFY2(std::find(Found.begin(), Found.end(), "C00500") != Found.end(), std::to_string(Found.size()).c_str());
      support::ClickOK(Dialog);
    };
    QVERIFY(DrivePickAs<TfrmPickCustomer>(
        [&] { return uPickCustomer::CallCustomerPick(Host.Connection(), Customer, false, "", true, false); }, Drive));
    QVERIFY(!Customer.empty());
    QVERIFY(ComeBack(1, Leaving));
  }

  void shouldSayThatTheNodeIsGoneInTheMidstOfTheRows_data() {
    QTest::addColumn<TLeaving>("Leaving");
    QTest::newRow("stopped") << TLeaving::Stopped;
    QTest::newRow("killed") << TLeaving::Killed;
  }
  void shouldSayThatTheNodeIsGoneInTheMidstOfTheRows() {
    QFETCH(const TLeaving, Leaving);
    THost Host(*Cluster_, 1, TWay::Driver);
    {
      const pickbase::TPickCall Call;
      const auto Dialog = TListDialog::Create(Host.Connection(), Long);
      const int Before = Dialog->qryList_->KnownRows();
      QVERIFY(Before >= 990 && !Dialog->qryList_->IsComplete());
      QVERIFY(Leave(1, Leaving));
      Dialog->show();
      QTRY_VERIFY_WITH_TIMEOUT(!Boxes_->Messages().empty(), 10000);
      QVERIFY2(Boxes_->Messages().size() == 1 && Contains(Boxes_->Messages(), "lost"),
               Shown(Boxes_->Messages()).c_str());
      QVERIFY(Dialog->isVisible());
      QVERIFY(Dialog->qryList_->KnownRows() >= Before && Dialog->qryList_->KnownRows() < Many);
      Host.Move(0);
      support::TypeFind(*Dialog, "row 100000");
      QVERIFY(Dialog->qryList_->RecordCount() > 0 && Dialog->qryList_->RecordCount() <= 10);
    }
    QVERIFY(ComeBack(1, Leaving));
  }

  // A node that has lost the others refuses to end a transaction, too.
  void shouldLeaveNoTransactionOnANodeThatLosesTheOthersWhileItReads_data() {
    QTest::addColumn<TWay>("Way");
    QTest::addColumn<bool>("InTransaction");
    QTest::newRow("outside") << TWay::Driver << false;
    QTest::newRow("in the host's transaction") << TWay::Driver << true;
    QTest::newRow("by ODBC") << TWay::ODBC << false;
  }
  void shouldLeaveNoTransactionOnANodeThatLosesTheOthersWhileItReads() {
    QFETCH(const TWay, Way);
    QFETCH(const bool, InTransaction);
    THost Host(*Cluster_, 1, Way);
    if (InTransaction) Host.Execute("START TRANSACTION");
    {
      const pickbase::TPickCall Call;
      const auto Dialog = TListDialog::Create(Host.Connection(), Long);
      QVERIFY(!Dialog->qryList_->IsComplete());
      QVERIFY(Leave(1, TLeaving::Rejecting));
      try {
        Dialog->qryList_->RecordCount();
      } catch (const ads::EQueryEnded&) {
        // The whole list had not been asked for yet.
      }
    }
    QVERIFY(ComeBack(1, TLeaving::Rejecting));
    QCOMPARE(Host.Value("SELECT @@wsrep_dirty_reads").toInt(), 0);
    QCOMPARE(Host.Value("SELECT @@in_transaction").toInt(), InTransaction ? 1 : 0);
    QSqlQuery Query(Host.Database());
    QVERIFY(!Query.exec("RELEASE SAVEPOINT zul_pick"));  // there is none
    Host.Execute("INSERT INTO area (zip) VALUES ('back')");
    Host.Execute("ROLLBACK");
    Host.Execute("DELETE FROM area WHERE zip = 'back'");
  }

  void shouldReadOnANodeThatGivesOthersItsData() {
    const THost Host(*Cluster_, 1, TWay::Driver);
    Host.Execute("SET GLOBAL wsrep_desync = ON");
    QSqlQuery State("SHOW STATUS LIKE 'wsrep_local_state_comment'", Host.Database());
    QVERIFY(State.next());
    QCOMPARE(State.value(1).toString(), QString("Donor/Desynced"));
    State.clear();
    const auto Dialog = TfrmPickCustomer::Create(Host.Connection(), false, "", true, true);
    QVERIFY(Dialog->qryList_->RecordCount() > 500);
    Host.Execute("SET GLOBAL wsrep_desync = OFF");
  }

  void shouldReadOneStateWhileAnotherNodeWrites_data() { AddWays(); }
  void shouldReadOneStateWhileAnotherNodeWrites() {
    QFETCH(const TWay, Way);
    const THost Host(*Cluster_, 1, Way);
    TWriter Writer(*Cluster_, 0);
    std::set<std::string> Seen;
    int Lists = 0;
    QElapsedTimer Clock;
    for (Clock.start(); Clock.elapsed() < 8000;) {
      const pickbase::TPickCall Call;
      const auto Dialog = TListDialog::Create(Host.Connection(), {"A.N", "Twins A WHERE 0=0"});
      for (const char* Text : {"", "GENERATION"}) {
        Dialog->edFind->setText(Text);
        if (*Text != 0) Dialog->CallSetSQL();
        QCOMPARE(Dialog->qryList_->RecordCount(), 3000);
        const std::vector<std::string> Rows = support::Column(*Dialog, "ID");
        const std::set<std::string> Generations(Rows.begin(), Rows.end());
        QVERIFY2(Generations.size() == 1, std::to_string(Generations.size()).c_str());
        Seen.merge(std::set(Generations));
        ++Lists;
      }
    }
    Writer.End();
    QCOMPARE(Writer.Failures(), 0);
    QVERIFY(Seen.size() > 5);
    QCOMPARE(Boxes_->Messages(), std::vector<std::string>());
    qInfo("%d lists, %d of other generations; %d commits, the longest took %lld ms.", Lists, int(Seen.size()),
          Writer.Generations(), Writer.LongestWait());
  }

  void shouldTellThatTheHostsTransactionHadToMakeWay_data() { AddWays(); }
  void shouldTellThatTheHostsTransactionHadToMakeWay() {
    QFETCH(const TWay, Way);
    const THost Host(*Cluster_, 1, Way);
    ChangeAsHost(Host);
    const auto Dialog = TListDialog::Create(Host.Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        support::TypeFind(*Dialog, "C0050");
                                        const std::vector<std::string> Before = support::Column(*Dialog, "ID");
                                        QCOMPARE(Before.size(), std::size_t(10));
                                        ChangeAsOther(0, 1, QStringLiteral("winner %1").arg(int(Way)));
                                        support::TypeFind(*Dialog, "C00500");
                                        QVERIFY2(Boxes_->Messages().size() == 1 &&
                                                     Contains(Boxes_->Messages(), "Deadlock found"),
                                                 Shown(Boxes_->Messages()).c_str());
                                        QCOMPARE(support::Column(*Dialog, "ID"), Before);
                                        QCOMPARE(Dialog->edFind->text(), QString("C00500"));
                                        Host.Execute("ROLLBACK");
                                        ChangeAsHost(Host);
                                        support::TypeFind(*Dialog, "C00500");
                                        QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00500"});
                                        Host.Execute("COMMIT");
                                      }));
    const TOther Other(*Cluster_, 0);
    QTRY_COMPARE(Other.Value("SELECT company FROM cust WHERE id = 'C00001'").toString(), QString("host"));
    QCOMPARE(Boxes_->Messages().size(), std::size_t(1));
  }

  void shouldTellThatTheHostsTransactionHadToMakeWayInTheMidstOfTheRows() {
    const THost Host(*Cluster_, 1, TWay::Driver);
    ChangeAsHost(Host);
    {
      const pickbase::TPickCall Call;
      const auto Dialog = TListDialog::Create(Host.Connection(), Long);
      QVERIFY(!Dialog->qryList_->IsComplete());
      ChangeAsOther(0, 1, "in the midst");
      QVERIFY_THROWS_EXCEPTION(ads::EQueryEnded, Dialog->qryList_->RecordCount());
    }
    QCOMPARE(Host.Value("SELECT @@in_transaction").toInt(), 0);
    Host.Execute("ROLLBACK");
    QCOMPARE(Values(*Host.Connection(), "SELECT Company X FROM Cust WHERE ID = 'C00001'"), QStringList("in the midst"));
  }

  void shouldSeeWhatAnotherNodeHasCommittedWhenItWaitsForThat_data() { AddWays(); }
  void shouldSeeWhatAnotherNodeHasCommittedWhenItWaitsForThat() {
    QFETCH(const TWay, Way);
    const THost Host(*Cluster_, 1, Way);
    Host.Execute("SET SESSION wsrep_sync_wait = 15");
    const TOther Writer(*Cluster_, 0);
    const auto Dialog = TfrmPickCustomer::Create(Host.Connection(), false, "", true, true);
    Dialog->rgFindBy->SetItemIndex(0);
    for (int Round = 0; Round < 30; ++Round) {
      const QString Name = QStringLiteral("ROUND%1WAY%2").arg(Round).arg(int(Way));
      QVERIFY(Writer.Execute(QStringLiteral("UPDATE cust SET company = '%1' WHERE id = 'C00500'").arg(Name)));
      QCOMPARE(Values(*Host.Connection(), "SELECT Company X FROM Cust WHERE ID = 'C00500'"), QStringList(Name));
      Dialog->CallSetSQL();
      const std::vector<std::string> Companies = support::Column(*Dialog, "Company");
      QVERIFY(std::find(Companies.begin(), Companies.end(), Name.toStdString()) != Companies.end());
    }
    Host.Execute("START TRANSACTION");
    Host.Execute("UPDATE cust SET company = 'mine' WHERE id = 'C00500'");
    QCOMPARE(Values(*Host.Connection(), "SELECT Company X FROM Cust WHERE ID = 'C00500'"), QStringList("mine"));
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Values(*Host.Connection(), "SELECT Nowhere X FROM Cust"));
    QCOMPARE(Host.Value("SELECT @@in_transaction").toInt(), 1);
    Host.Execute("COMMIT");
    QVERIFY(Writer.Execute("SET SESSION wsrep_sync_wait = 15"));
    QCOMPARE(Writer.Value("SELECT company FROM cust WHERE id = 'C00500'").toString(), QString("mine"));
  }

  void shouldStopAQueryOnItsOwnNode() {
    const THost Host(*Cluster_, 2, TWay::Driver);
    const QString Mine = Host.Value("SELECT CONNECTION_ID()").toString();
    for (const char* Setting : {"DO 0", "SET SESSION wsrep_sync_wait = 15", "START TRANSACTION"}) {
      Host.Execute(Setting);
      const auto Dialog = TListDialog::Create(Host.Connection(), {});
      QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                        [&](TListDialog&) {
                                          const qint64 Took = support::StopQuery(*Dialog, Slow, 300);
                                          qInfo("The stop took %lld ms.", Took);
                                          QVERIFY(Took >= 0 && Took < Moment);
                                        }));
      QCOMPARE(Host.Value("SELECT CONNECTION_ID()").toString(), Mine);
    }
  }

  // Each server numbers its connections by itself.
  void shouldNotStopWhatRunsUnderItsNumberOnAnotherNode() {
    TBalancer Balancer({Cluster_->Node(0).Port()});
    auto Host = std::make_unique<THost>(*Cluster_, 0, TWay::Driver, Balancer.Port());
    const auto Number = [](const auto& Session) { return Session.Value("SELECT CONNECTION_ID()").toInt(); };
    while (Number(*Host) <= Number(TOther(*Cluster_, 1)) + 1) Host->Move(0, Balancer.Port());
    auto Stranger = std::make_unique<TOther>(*Cluster_, 1, "stranger");
    while (Number(*Stranger) < Number(*Host)) {
      Stranger.reset();
      Stranger = std::make_unique<TOther>(*Cluster_, 1, "stranger");
    }
    QCOMPARE(Number(*Stranger), Number(*Host));
    Stranger.reset();
    bool HasSlept = false;
    // Its session is made by the thread that uses it, under the number that comes next.
    Host->Move(0, Balancer.Port());
    std::atomic<int> StrangersNumber = 0;
    std::thread Sleeper([&] {
      const TOther Other(*Cluster_, 1, "sleeper");
      StrangersNumber = Number(Other);
      HasSlept = Other.Value("SELECT SLEEP(3)").toInt() == 0;
    });
    QTRY_VERIFY(StrangersNumber != 0);
    const int HostsNumber = Number(*Host);
    Balancer.SetPorts({Cluster_->Node(1).Port()});
    qint64 Took = -1;
    const auto Dialog = TListDialog::Create(Host->Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) { Took = support::StopQuery(*Dialog, Slow, 300); }));
    Sleeper.join();
    QCOMPARE(HostsNumber, int(StrangersNumber));
    QVERIFY(Took >= 0 && Took < Moment);
    QVERIFY(HasSlept);
    QVERIFY_THROWS_EXCEPTION(ads::EConnectionLost, Values(*Host->Connection(), "SELECT Zip X FROM Area"));
  }

  void shouldStopAQueryThroughABalancerThatComesBackToItsNode() {
    TBalancer Balancer({Cluster_->Node(0).Port(), Cluster_->Node(1).Port(), Cluster_->Node(2).Port()});
    const THost Host(*Cluster_, 0, TWay::Driver, Balancer.Port());
    const QString Mine = Host.Value("SELECT CONNECTION_ID()").toString();
    const auto Dialog = TListDialog::Create(Host.Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                      [&](TListDialog&) {
                                        const qint64 Took = support::StopQuery(*Dialog, Slow, 300);
                                        qInfo("The stop took %lld ms.", Took);
                                        QVERIFY(Took >= 0 && Took < Moment);
                                      }));
    QCOMPARE(Host.Value("SELECT CONNECTION_ID()").toString(), Mine);
  }

  void shouldLiveThroughATableThatIsAltered_data() {
    QTest::addColumn<TWay>("Way");
    QTest::addColumn<int>("Node");
    QTest::newRow("on another node") << TWay::Driver << 0;
    QTest::newRow("on the same node") << TWay::Driver << 1;
    QTest::newRow("on another node, by ODBC") << TWay::ODBC << 0;
  }
  void shouldLiveThroughATableThatIsAltered() {
    QFETCH(const TWay, Way);
    QFETCH(const int, Node);
    const THost Host(*Cluster_, 1, Way);
    const TOther Other(*Cluster_, Node);
    {
      const pickbase::TPickCall Call;
      const auto Dialog = TListDialog::Create(Host.Connection(), Long);
      QVERIFY(!Dialog->qryList_->IsComplete());
      bool IsAltered = false;
      std::thread Altering([&] {
        const TOther Alterer(*Cluster_, Node, "alterer");
        IsAltered = Alterer.Execute("ALTER TABLE longlist ADD COLUMN extra INTEGER DEFAULT 1, ALGORITHM=COPY");
      });
      QThread::msleep(500);
      QElapsedTimer Clock;
      Clock.start();
      try {
        QCOMPARE(Dialog->qryList_->RecordCount(), Many);
        qInfo("The list was read to its end.");
      } catch (const ads::EDatabaseError& Error) {
        qInfo("%s", Error.what());
        QVERIFY(Dialog->qryList_->KnownRows() >= 990);
      }
      std::vector<std::string> Rows;
      for (int Row = 0; Row < Dialog->qryList_->KnownRows(); ++Row) {
        const ads::TRowScope Scope(*Dialog->qryList_, Row);
        Rows.push_back(Dialog->qryList_ID->AsString());
      }
      QVERIFY(std::is_sorted(Rows.begin(), Rows.end()));
      QVERIFY(std::adjacent_find(Rows.begin(), Rows.end()) == Rows.end());
      Altering.join();
      QVERIFY(IsAltered);
      QVERIFY2(Clock.elapsed() < 60000, "the alteration was held up");
      QVERIFY(Cluster_->WaitUntilSynced());  // its node alters the table a moment later
      Dialog->edFind->setText("row 100000");
      Dialog->CallSetSQL();
      QVERIFY(Dialog->qryList_->RecordCount() > 0 && Dialog->qryList_->RecordCount() <= 10);
    }
    QVERIFY(Other.Execute("ALTER TABLE longlist DROP COLUMN extra"));
    QVERIFY(Cluster_->WaitUntilSynced());
    QCOMPARE(Host.Value("SELECT @@in_transaction").toInt(), 0);
  }
};

QTEST_MAIN(tst_GaleraCluster)
#include "tst_GaleraCluster.moc"
