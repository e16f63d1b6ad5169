#include <QAbstractEventDispatcher>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "ads/Ads.h"
#include "ads/Values.h"
#include "servers/Backends.h"
#include "servers/ListDialog.h"
#include "servers/OpenOrSkip.h"
#include "support/PickDriver.h"

using support::After;
using support::DrivePickAs;
using support::TBackend;
using support::TBackendKind;
using support::TListDialog;
using support::TListSource;

namespace {

constexpr int Rows = 60000;
const TListSource Long("A.Txt", "Longlist A WHERE 0=0", "A.Txt ID");

/// A host that goes on working over the connection, twenty times a second.
class THostWork : public QObject {
 public:
  enum class TBy { Timer, QueuedCall, None };

  THostWork(const QSqlDatabase& Database, TBy By) : Database_(Database) {
    connect(&Timer_, &QTimer::timeout, this, &THostWork::Work);
    if (By == TBy::Timer) Timer_.start(50);
    if (By == TBy::QueuedCall) Post();
  }
  void Stop() {
    Timer_.stop();
    Posting_ = false;
  }

  void Work();

  int Written = 0;        ///< so many rows, by what the connection said
  QStringList Failures;   ///< what it said else
  int WhileRowsCame = 0;  ///< how often it worked while a query was waited for
  std::function<bool()> IsWaiting;

 private:
  void Post();

  QSqlDatabase Database_;
  QTimer Timer_;
  QElapsedTimer Clock_;
  bool Posting_ = true;
};

void THostWork::Work() {
  if (IsWaiting && IsWaiting()) ++WhileRowsCame;
  QSqlQuery Query(Database_);
  if (Query.exec(QStringLiteral("INSERT INTO worked VALUES (%1)").arg(Written + Failures.size()))) {
    ++Written;
  } else {
    Failures << Query.lastError().text();
  }
  if (!Query.exec("SELECT COUNT(*) FROM worked") || !Query.next() || Query.value(0).toInt() != Written) {
    Failures << "read " + Query.value(0).toString() + " " + Query.lastError().text();
  }
}
void THostWork::Post() {
  const auto Next = [this] {
    if (!Posting_) return;
    if (Clock_.elapsed() >= 50) {
      Clock_.start();
      Work();
    }
    Post();
  };
  if (!Clock_.isValid()) Clock_.start();
  QMetaObject::invokeMethod(this, Next, Qt::QueuedConnection);
}

}  // namespace

/// A host whose own work over the connection goes on while lists are read from it: it loses nothing, and no list is cut
/// or wrong.
class tst_HostMeanwhile : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Host_;
  std::vector<std::string> All_;

  void AddBackends() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Options");
    QTest::addColumn<bool>("InTransaction");
    for (const bool InTransaction : {false, true}) {
      const auto Add = [&](TBackendKind Kind, const char* Options) {
        const QByteArray Name = QByteArray(support::NameOf(Kind)) + " " + Options;
        QTest::addRow("%s%s", Name.constData(), InTransaction ? ", in a transaction" : "")
            << Kind << QString(Options) << InTransaction;
      };
      Add(TBackendKind::SQLite, "");
      Add(TBackendKind::OtherSQLite, "");
      Add(TBackendKind::PostgreSQL, "");
      Add(TBackendKind::MariaDB, "");
      Add(TBackendKind::ODBCSQLite, "");
      Add(TBackendKind::ODBCPostgreSQL, "UseDeclareFetch=0");
      Add(TBackendKind::ODBCPostgreSQL, "UseDeclareFetch=1");
      Add(TBackendKind::ODBCMariaDB, "");
      Add(TBackendKind::ODBCMariaDB, "FORWARDONLY=1;NO_CACHE=1");
    }
  }
  bool Open() {
    QFETCH(const TBackendKind, Kind);
    QFETCH(const QString, Options);
    return OpenKind(Kind, Options, Rows);
  }
  bool OpenKind(TBackendKind Kind, const QString& Options, int Count) {
    Host_ = support::OpenOrSkip(*Backends_, Kind, Options);
    if (Host_ == nullptr) return false;
    Host_->ExecuteBeside("CREATE TABLE longlist (txt VARCHAR(20))");
    Host_->ExecuteBeside("CREATE TABLE worked (nr INTEGER)");
    if (support::IsOnMariaDB(Kind)) {
      Host_->ExecuteBeside(
          QStringLiteral("SET sql_mode = 'PIPES_AS_CONCAT', max_recursive_iterations = %1").arg(Count));
    }
    Host_->ExecuteBeside(
        QStringLiteral("INSERT INTO longlist WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                       "%1) SELECT 'row ' || (1000000 + i * 7919 % 1000000) FROM n")
            .arg(Count));
    All_.clear();
    for (int Row = 1; Row <= Count; ++Row) {
      All_.push_back("row " + std::to_string(1000000 + static_cast<long long>(Row) * 7919 % 1000000));
    }
    std::sort(All_.begin(), All_.end());
    return true;
  }

  // Each way in which a list is read: at first, to the end for a key or for code, and anew.
  void ReadInEveryWay(THostWork& Work) {
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), Long);
    Work.IsWaiting = [&] { return Dialog->qryList_->IsWaiting(); };
    DrivePickAs<TListDialog>(
        [&] { return Dialog->ShowPick(); },
        [&](TListDialog&) {
          QTest::keyClick(Dialog->dbgAvail, Qt::Key_End);
          QCOMPARE(Dialog->qryList_->RecNo(), Rows);
          QCOMPARE(support::Column(*Dialog, "ID"), All_);
          support::ClickBox(Dialog->ckbDesc);
          QTRY_VERIFY_WITH_TIMEOUT(Dialog->qryList_->IsComplete(), 20000);
          QVERIFY(support::Column(*Dialog, "ID") == std::vector<std::string>(All_.rbegin(), All_.rend()));
          support::ClickBox(Dialog->ckbDesc);
          QCOMPARE(Dialog->qryList_->RecordCount(), Rows);
          QVERIFY(support::Column(*Dialog, "ID") == All_);
        });
    Work.IsWaiting = nullptr;
  }

  void WorkAndRead(THostWork::TBy By, QStringList& Failures) {
    QFETCH(const bool, InTransaction);
    if (InTransaction) QVERIFY(Host_->Database().transaction());
    THostWork Work(Host_->Database(), By);
    Work.Work();
    ReadInEveryWay(Work);
    QTest::qWait(200);
    Work.Stop();
    qInfo("The host has written %d rows, %d times in the midst of a list.", Work.Written, Work.WhileRowsCame);
    QVERIFY(Work.Written > 0);
    Failures = Work.Failures;
    if (InTransaction) QVERIFY2(Host_->Database().commit(), qPrintable(Host_->Database().lastError().text()));
    const int Kept = Host_->ValueBeside("SELECT COUNT(*) FROM worked").toInt();
    // psqlODBC, while it reads by a cursor, takes back the whole transaction over a failing statement in it. The host
    // is told of the failure.
    QFETCH(const QString, Options);
    if (InTransaction && Options == "UseDeclareFetch=1" && !Failures.isEmpty()) return;
    QCOMPARE(Kept, Work.Written);
  }

  std::unique_ptr<support::TErrorBoxes> Boxes_;

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() {
    for (const std::string& Message : Boxes_->Messages()) qInfo("A box said: %s", Message.c_str());
    QCOMPARE(Boxes_->Messages(), std::vector<std::string>());
    Boxes_.reset();
    Host_.reset();
  }

  void shouldLoseNothingOfTheHostsTimers_data() { AddBackends(); }
  void shouldLoseNothingOfTheHostsTimers() {
    if (!Open()) return;
    QStringList Failures;
    WorkAndRead(THostWork::TBy::Timer, Failures);
    QCOMPARE(Failures, QStringList());
  }

  // They cannot be held back; but what was done is done, and what was not has been told.
  void shouldCutNoListForQueuedCalls_data() { AddBackends(); }
  void shouldCutNoListForQueuedCalls() {
    if (!Open()) return;
    QStringList Failures;
    WorkAndRead(THostWork::TBy::QueuedCall, Failures);
    Failures.removeDuplicates();
    for (const QString& Failure : Failures) qInfo("A statement of the host's failed: %s", qPrintable(Failure));
  }

  // The first rows take the server a while, so that they are disturbed before they are there and again before the rest.
  void shouldReadToTheEndHoweverOftenItIsDisturbed_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  void shouldReadToTheEndHoweverOftenItIsDisturbed() {
    QFETCH(const TBackendKind, Kind);
    constexpr int Count = 200000;
    if (!OpenKind(Kind, {}, Count)) return;
    ads::TAdsQuery List(nullptr);
    List.SetConnection(Host_->Connection());
    List.AddField("ID", ads::TFieldType::ftString, 40);
    List.SetFirstRowsFirst(true);
    List.SQL()->Add(
        "SELECT A.Txt ID, UPPER(A.Txt + '-' + A.Txt + '-' + A.Txt) SortFld FROM Longlist A ORDER BY SortFld");
    THostWork Work(Host_->Database(), THostWork::TBy::None);
    std::string Failed;
    List.OnProgress = [&] { Work.Work(); };
    List.OnRestFailed = [&](const std::string& Message) { Failed = Message; };
    QVERIFY(List.Open());
    const int WhileItOpened = Work.Written + static_cast<int>(Work.Failures.size());
    for (int Time = 0; Time < 20; ++Time) {
      Work.Work();
      QTest::qWait(10);
    }
    qInfo("The host has worked %d times before the first rows were there.", WhileItOpened);
    QCOMPARE(QString::fromStdString(Failed), QString());
    QCOMPARE(List.RecordCount(), Count);
    List.OnProgress = nullptr;
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM worked").toInt(), Work.Written);
  }

  void shouldNeverLeaveTheEventsAloneForLong_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::SQLite, TBackendKind::PostgreSQL, TBackendKind::MariaDB}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldNeverLeaveTheEventsAloneForLong() {
    QFETCH(const TBackendKind, Kind);
    if (!OpenKind(Kind, {}, 200000)) return;
    QElapsedTimer Clock;
    qint64 Longest = 0;
    const auto Listen = [&] {
      if (Clock.isValid()) Longest = std::max(Longest, Clock.elapsed());
      Clock.start();
    };
    const auto Listening =
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, Listen);
    Clock.start();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host_->Connection(), Long);
    Listen();
    qInfo("Until the page: %lld ms.", std::exchange(Longest, 0));
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               QTRY_VERIFY_WITH_TIMEOUT(Dialog->qryList_->IsComplete(), 30000);
                               qInfo("Until the last row: %lld ms.", Longest);
                               QVERIFY(Longest < 1000);
                               Clock.invalidate();
                               QCOMPARE(Dialog->qryList_->RecordCount(), 200000);
                             });
    disconnect(Listening);
  }
};

QTEST_MAIN(tst_HostMeanwhile)
#include "tst_HostMeanwhile.moc"
