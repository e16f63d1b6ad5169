#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include "ads/Ads.h"
#include "ads/Cursor.h"
#include "ads/ThrowawayPostgreSQL.h"
#include "sample/SampleCompany.h"

// What a build says that was configured without one of the servers.
class tst_LeftOutDatabases : public QObject {
  Q_OBJECT
 private slots:
  void shouldRefusePostgreSQLByName();
  void shouldLeaveTheHostsServerConnectionAlone();
  void shouldRefuseODBCByName();
  void shouldReadSQLiteAllTheSame();
  void shouldWriteNoCompanyOnAServer();
};

namespace {

constexpr char Sql[] = "SELECT Zip FROM Area";

// A connection that is known by Qt as long as this lives.
class TConnection {
 public:
  explicit TConnection(const char* Driver) : Database_(QSqlDatabase::addDatabase(Driver, "left out")) {}
  ~TConnection() {
    Database_ = {};
    QSqlDatabase::removeDatabase("left out");
  }
  TConnection(const TConnection&) = delete;
  TConnection& operator=(const TConnection&) = delete;
  QSqlDatabase& Database() { return Database_; }

 private:
  QSqlDatabase Database_;
};

std::string RefusalOf(const QSqlDatabase& Database) {
  const ads::TAdsConnection Connection(Database);
  try {
    Connection.OpenCursor(Sql)->Next();
  } catch (const ads::EConnectionLost& Error) {
    return std::string("lost: ") + Error.what();
  } catch (const ads::EDatabaseError& Error) {
    return Error.what();
  }
  return "";
}

}  // namespace

void tst_LeftOutDatabases::shouldRefusePostgreSQLByName() {
  TConnection Connection("QPSQL");
  const std::string Refusal = RefusalOf(Connection.Database());
  if (ZUL_WITH_POSTGRESQL) {
    QVERIFY(Refusal.starts_with("lost: "));
  } else {
    QCOMPARE(Refusal, std::string("The pick lists were built without PostgreSQL (ZUL_WITH_POSTGRESQL)."));
  }
}

void tst_LeftOutDatabases::shouldLeaveTheHostsServerConnectionAlone() {
  if (ZUL_WITH_POSTGRESQL) QSKIP("This build reads PostgreSQL.");
  const TThrowawayPostgreSQL Server;
  if (!Server.IsRunning()) QSKIP(qPrintable(Server.Reason()));
  {
    const QSqlDatabase Database = Server.Connect("left out server");
    QVERIFY(Database.isOpen());
    QVERIFY(!RefusalOf(Database).empty());
    QSqlQuery Query(Database);
    QVERIFY(Query.exec("SELECT 42") && Query.next());
    QCOMPARE(Query.value(0).toInt(), 42);
  }
  QSqlDatabase::removeDatabase("left out server");
}

void tst_LeftOutDatabases::shouldRefuseODBCByName() {
  TConnection Connection("QODBC");
  Connection.Database().setDatabaseName("DRIVER=SQLite3;Database=:memory:");  // as its package registers it
  if (!Connection.Database().open()) QSKIP("SQLite's ODBC driver is not installed.");
  const std::string Refusal = RefusalOf(Connection.Database());
  if (ZUL_WITH_ODBC) {
    QVERIFY2(Refusal.find("Area") != std::string::npos, Refusal.c_str());
  } else {
    QCOMPARE(Refusal, std::string("The pick lists were built without ODBC (ZUL_WITH_ODBC)."));
  }
  QSqlQuery Query(Connection.Database());
  QVERIFY(Query.exec("SELECT 42") && Query.next());
  QCOMPARE(Query.value(0).toInt(), 42);
}

void tst_LeftOutDatabases::shouldReadSQLiteAllTheSame() {
  TConnection Connection("QSQLITE");
  Connection.Database().setDatabaseName(":memory:");
  QVERIFY(Connection.Database().open());
  QSqlQuery Query(Connection.Database());
  QVERIFY(Query.exec("CREATE TABLE Area (Zip VARCHAR(10))"));
  QVERIFY(Query.exec("INSERT INTO Area VALUES ('4000')"));
  const ads::TAdsConnection Ads(Connection.Database());
  const auto Cursor = Ads.OpenCursor(Sql);
  QVERIFY(Cursor->Next());
  QCOMPARE(std::string(Cursor->Text(0)), std::string("4000"));
  QVERIFY(!Cursor->Next());
}

void tst_LeftOutDatabases::shouldWriteNoCompanyOnAServer() {
  if (ZUL_WITH_POSTGRESQL) QSKIP("This build writes to PostgreSQL.");
  try {
    sample::CreateCompanyOnServer("postgresql://nobody@localhost/none");
    QFAIL("It was written.");
  } catch (const std::runtime_error& Error) {
    QVERIFY(std::string(Error.what()).find("ZUL_WITH_POSTGRESQL") != std::string::npos);
  }
}

QTEST_GUILESS_MAIN(tst_LeftOutDatabases)
#include "tst_LeftOutDatabases.moc"
