#include <QSqlQuery>
#include <QTest>
#include <algorithm>
#include <memory>

#include "LoadServer.h"
#include "LoadUsers.h"
#include "LoadWriters.h"

namespace {

constexpr int Writers = 4;
// A writer may wait no longer for one who reads.
constexpr double LongestWait = 50;
// A user looks at a list for so many milliseconds at the most; one whose memory is watched just opens and closes.
constexpr int ShortLook = 20;
// The one failure that may come to pass: a server at its limits leaves a stop unanswered for two seconds, and the
// connection is cut. Of so many picks it may be one.
constexpr std::size_t PicksForACut = 50;
// What a user's process may take beyond what it held when it had opened all picks twice.
constexpr qint64 AllowedUserGrowthKiB = 3 * 1024;

int Asked(const char* Variable, int Default) {
  bool IsSet = false;
  const int Value = qEnvironmentVariableIntValue(Variable, &IsSet);
  return IsSet ? Value : Default;
}

// ZUL_LOAD_CONNECTIONS, ZUL_LOAD_SECONDS (for each server, in two halves), ZUL_LOAD_CUSTOMERS and ZUL_LOAD_LOOK_MS ask
// for more. Users who look at nothing for long are as many as a machine can serve and no more, which tells little of
// anything but the machine: a few hundred of them must be given time.
int Connections() {
  return Asked("ZUL_LOAD_CONNECTIONS", 20);
}
int Seconds() {
  return Asked("ZUL_LOAD_SECONDS", 10);
}
int Customers() {
  return Asked("ZUL_LOAD_CUSTOMERS", 5000);
}
int LongestLook() {
  return Asked("ZUL_LOAD_LOOK_MS", 450);
}

// The different ones, of which there may be many.
QString ErrorsOf(const TLoadUsers& Users) {
  QStringList Different = Users.Errors();
  Different.removeDuplicates();
  return QStringList(Different.mid(0, 20)).join(u'\n');
}

void Print(const QString& Text) {
  for (const QString& Line : Text.split(u'\n', Qt::SkipEmptyParts)) qInfo("%s", qPrintable(Line));
}

int Count(const QSqlDatabase& Watching, const QString& Sql) {
  QSqlQuery Query(Sql, Watching);
  return Query.next() ? Query.value(0).toInt() : -1;
}

// A connection that watches, for the life of this.
class TWatching {
 public:
  explicit TWatching(const TLoadServer& Server) : Database_(Server.Connect(Name())) {}
  ~TWatching() {
    Database_ = {};
    QSqlDatabase::removeDatabase(Name());
  }
  TWatching(const TWatching&) = delete;
  TWatching& operator=(const TWatching&) = delete;

  const QSqlDatabase& Database() const { return Database_; }

 private:
  static QString Name() { return QStringLiteral("watching"); }

  QSqlDatabase Database_;
};

}  // namespace

class tst_ManyAtOnce : public QObject {
  Q_OBJECT

  // One half of a server's load; what is wrong ends the test function.
  void Load(const TLoadServer& Server, const QSqlDatabase& Watching) {
    constexpr int Own = 1;
    QTRY_COMPARE(Count(Watching, Server.ConnectionsSql()), Own);
    TLoadUsers Users(Server.Address(), Connections(), LongestLook());
    QVERIFY2(Users.Connect(), qPrintable(ErrorsOf(Users)));
    QCOMPARE(Count(Watching, Server.ConnectionsSql()), Own + Connections());
    {
      TLoadWriters Writing(Server, Writers);
      const bool IsDone = Users.Work(Seconds() / 2.0);
      Writing.Stop();
      Report(Server, Users, Writing);
      QVERIFY2(IsDone, "Not all users came to an end.");
      QCOMPARE(Writing.Errors(), QStringList());
      QVERIFY(Writing.LongestWaitForReader() <= LongestWait);
    }
    QCOMPARE(ErrorsOf(Users), QString());
    QVERIFY(static_cast<std::size_t>(Users.Cuts()) * PicksForACut <= Users.Times().Count(QStringLiteral("open")));
    // They are all connected still, as hosts are between two picks.
    QTRY_COMPARE(Server.Leftovers(Watching), QStringList());
    QVERIFY(Users.Leave());
    QCOMPARE(ErrorsOf(Users), QString());
    QTRY_COMPARE(Count(Watching, Server.ConnectionsSql()), Own);
  }

  // One who has the server alone opens all picks many times.
  void OpenAgain(const TLoadServer& Server) {
    TLoadUsers Users(Server.Address(), 1, ShortLook);
    QVERIFY(Users.Connect());
    QVERIFY(Users.Work(std::max(4.0, Seconds() / 8.0)));
    QVERIFY(Users.Leave());
    QCOMPARE(ErrorsOf(Users), QString());
    const TLoadUsers::TGrowth Growth = Users.Growth();
    Print(Users.Times().Table(QStringLiteral("one user, %1").arg(Server.Name())));
    qInfo("the user's process grew by %lld KiB", Growth.MostKiB);
    QCOMPARE(Growth.Users, 1);
#if !defined(__SANITIZE_ADDRESS__)  // which keeps freed memory back for a while
    QVERIFY(Growth.MostKiB <= AllowedUserGrowthKiB);
#endif
  }

  static void Report(const TLoadServer& Server, const TLoadUsers& Users, const TLoadWriters& Writing) {
    Print(Users.Times().Table(QStringLiteral("%1 users, %2").arg(Connections()).arg(Server.Name())));
    Print(Writing.Times().Table(QStringLiteral("%1 writers, %2").arg(Writers).arg(Server.Name())));
    qInfo("connections cut: %d", Users.Cuts());
    qInfo("a writer waited %.1f ms for a reader and %.1f ms for anybody; seen in %d looks, %.1f ms apart at the most",
          Writing.LongestWaitForReader(), Writing.LongestWait(), Writing.Looks(), Writing.LongestGap());
  }

  void LoadTwice(std::unique_ptr<TLoadServer> Server) {
    if (!Server->Reason().isEmpty()) QSKIP(qPrintable(Server->Reason()));
    Server->MakeCompany(Customers());
    const TWatching Watching(*Server);
    Load(*Server, Watching.Database());
    if (QTest::currentTestFailed()) return;
    const qint64 Once = Server->MemoryKiB(Watching.Database());
    QVERIFY(Once > 0);
    Load(*Server, Watching.Database());
    if (QTest::currentTestFailed()) return;
    const qint64 Twice = Server->MemoryKiB(Watching.Database());
    qInfo("the server holds %lld KiB after the first half and %lld KiB after the second", Once, Twice);
    QTRY_VERIFY(Server->MemoryKiB(Watching.Database()) - Once <= Server->AllowedGrowthKiB());
    OpenAgain(*Server);
  }

  // Somebody who reads locks a row that the writers change, for so long.
  void HoldARow(const TLoadServer& Server, int Milliseconds) {
    const TWatching Reader(Server);
    QSqlQuery Query(Reader.Database());
    QVERIFY(Query.exec("BEGIN"));
    QVERIFY(Query.exec("SELECT id FROM cust ORDER BY id FOR UPDATE"));
    QTest::qWait(Milliseconds);
    QVERIFY(Query.exec("ROLLBACK"));
  }

  void Notice(std::unique_ptr<TLoadServer> Server) {
    if (!Server->Reason().isEmpty()) QSKIP(qPrintable(Server->Reason()));
    Server->MakeCompany(1000);
    TLoadWriters Writing(*Server, Writers);
    QTRY_VERIFY(Writing.Times().Count(QStringLiteral("delete a customer")) > 0);
    HoldARow(*Server, 400);
    QTest::qWait(100);
    Writing.Stop();
    QCOMPARE(Writing.Errors(), QStringList());
    QVERIFY2(Writing.LongestWaitForReader() > 200, qPrintable(QString::number(Writing.LongestWaitForReader())));
  }

 private Q_SLOTS:
  void shouldNoticeAReaderWhoHoldsAWriterUpOnPostgreSQL() {
    Notice(NewPostgreSQLLoadServer(Connections()));
  }
  void shouldNoticeAReaderWhoHoldsAWriterUpOnMariaDB() {
    Notice(NewMariaDBLoadServer(Connections()));
  }
  void shouldServeManyUsersAtOnceOnPostgreSQL() {
    LoadTwice(NewPostgreSQLLoadServer(Connections()));
  }
  void shouldServeManyUsersAtOnceOnMariaDB() {
    LoadTwice(NewMariaDBLoadServer(Connections()));
  }
};

QTEST_MAIN(tst_ManyAtOnce)
#include "tst_ManyAtOnce.moc"
