#include <QRegularExpression>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/GoldenCases.h"
#include "ads/ThrowawayMariaDB.h"
#include "ads/ThrowawayPostgreSQL.h"
#include "ads/Values.h"
#include "ads/sql/Dialect.h"
#include "ads/sql/ReadingOnly.h"
#include "sample/SampleCompany.h"

Q_DECLARE_METATYPE(TGoldenCase)

namespace {

// The sample company's schema for PostgreSQL, its names in lower case.
QString PostgreSQLSchema() {
  QString Schema = QString::fromUtf8(sample::SchemaSql());
  Schema.remove(QRegularExpression("--[^\n]*"));
  return Schema.replace("DOUBLE", "DOUBLE PRECISION").toLower();
}

// The same for MariaDB, which keeps quoted names in backticks whatever its mode.
QString MariaDBSchema() {
  QString Schema = QString::fromUtf8(sample::SchemaSql());
  Schema.remove(QRegularExpression("--[^\n]*"));
  return Schema.replace('"', '`').toLower();
}

void CreateTables(const QSqlDatabase& Database, const QString& Schema) {
  for (const QString& Statement : Schema.split(';')) {
    if (!Statement.trimmed().isEmpty()) Execute(Database, Statement);
  }
}

void Run(ads::TAdsConnection& Connection, const std::string& Sql) {
  ads::TAdsQuery Query(nullptr);
  Query.SetConnection(&Connection);
  Query.SQL()->Add(Sql);
  Query.Open();
}

}  // namespace

/// Every query of every dialog, as the dialogs put it together, with what each kind of server gets for it, to the
/// letter; and each of them on the real servers over the sample company's tables.
class tst_DialectGolden : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    Cases_ = ReadGoldenCases();
    SQLite_ = QSqlDatabase::addDatabase("QSQLITE", "golden SQLite");
    SQLite_.setDatabaseName(":memory:");
    QVERIFY(SQLite_.open());
    CreateTables(SQLite_, QString::fromUtf8(sample::SchemaSql()).remove(QRegularExpression("--[^\n]*")));
    SQLiteConnection_ = std::make_unique<ads::TAdsConnection>(SQLite_);
    Run(*SQLiteConnection_, "SELECT 1");  // gives the connection the dialect's functions

    MariaDBServer_ = std::make_unique<TThrowawayMariaDB>();
    if (MariaDBServer_->IsRunning()) {
      MariaDB_ = MariaDBServer_->Connect("golden MariaDB");
      QVERIFY(MariaDB_.isOpen());
      CreateTables(MariaDB_, MariaDBSchema());
      MariaDBConnection_ = std::make_unique<ads::TAdsConnection>(MariaDB_);
    }

    Server_ = std::make_unique<TThrowawayPostgreSQL>();
    if (!Server_->IsRunning()) return;
    PostgreSQL_ = Server_->Connect("golden PostgreSQL");
    QVERIFY(PostgreSQL_.isOpen());
    CreateTables(PostgreSQL_, PostgreSQLSchema());
    PostgreSQLConnection_ = std::make_unique<ads::TAdsConnection>(PostgreSQL_);
  }

  void cleanupTestCase() {
    SQLiteConnection_.reset();
    PostgreSQLConnection_.reset();
    MariaDBConnection_.reset();
    SQLite_ = {};
    PostgreSQL_ = {};
    MariaDB_ = {};
    QSqlDatabase::removeDatabase("golden SQLite");
    QSqlDatabase::removeDatabase("golden PostgreSQL");
    QSqlDatabase::removeDatabase("golden MariaDB");
  }

  void shouldLeaveTheTextAsItIsForAdvantage_data() {
    AddCases([](const TGoldenCase&) { return true; });
  }
  void shouldLeaveTheTextAsItIsForAdvantage() {
    QFETCH(TGoldenCase, Case);
    QVERIFY(ads::sql::TAdvantageDialect().Rewrite(Case.Dialog) == Case.Dialog);
  }

  void shouldGiveSQLiteItsOwnText_data() {
    AddCases([](const TGoldenCase&) { return true; });
  }
  void shouldGiveSQLiteItsOwnText() {
    QFETCH(TGoldenCase, Case);
    QCOMPARE(QString::fromStdString(ads::sql::TSQLiteDialect().Rewrite(Case.Dialog)),
             QString::fromStdString(Case.SQLite));
  }

  void shouldGivePostgreSQLItsOwnText_data() {
    AddCases([](const TGoldenCase&) { return true; });
  }
  void shouldGivePostgreSQLItsOwnText() {
    QFETCH(TGoldenCase, Case);
    QCOMPARE(QString::fromStdString(ads::sql::TPostgreSQLDialect().Rewrite(Case.Dialog)),
             QString::fromStdString(Case.PostgreSQL));
  }

  void shouldGiveMariaDBItsOwnText_data() {
    AddCases([](const TGoldenCase&) { return true; });
  }
  void shouldGiveMariaDBItsOwnText() {
    QFETCH(TGoldenCase, Case);
    QCOMPARE(QString::fromStdString(ads::sql::TMariaDBDialect().Rewrite(Case.Dialog)),
             QString::fromStdString(Case.MariaDB));
  }

  void shouldLetEachQueryThroughTheGate_data() {
    AddCases([](const TGoldenCase& Case) { return Case.Dialog.starts_with("SELECT"); });
  }
  void shouldLetEachQueryThroughTheGate() {
    QFETCH(TGoldenCase, Case);
    ads::sql::RequireReadingOnly(Case.Dialog);
  }

  void shouldRunOnSQLite_data() {
    AddCases([](const TGoldenCase& Case) { return !Case.MustFail; });
  }
  void shouldRunOnSQLite() {
    QFETCH(TGoldenCase, Case);
    Run(*SQLiteConnection_, Case.Dialog);
  }

  void shouldRunOnPostgreSQL_data() {
    AddCases([](const TGoldenCase& Case) { return !Case.MustFail; });
  }
  void shouldRunOnPostgreSQL() {
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QFETCH(TGoldenCase, Case);
    Run(*PostgreSQLConnection_, Case.Dialog);
  }

  void shouldRunOnMariaDB_data() {
    AddCases([](const TGoldenCase& Case) { return !Case.MustFail; });
  }
  void shouldRunOnMariaDB() {
    if (!MariaDBServer_->IsRunning()) QSKIP(qPrintable(MariaDBServer_->Reason()));
    QFETCH(TGoldenCase, Case);
    Run(*MariaDBConnection_, Case.Dialog);
  }

  void shouldFailOnMariaDB_data() {
    AddCases([](const TGoldenCase& Case) { return Case.MustFail; });
  }
  void shouldFailOnMariaDB() {
    if (!MariaDBServer_->IsRunning()) QSKIP(qPrintable(MariaDBServer_->Reason()));
    QFETCH(TGoldenCase, Case);
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Run(*MariaDBConnection_, Case.Dialog));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Execute(MariaDB_, QString::fromStdString(Case.MariaDB)));
  }

  void shouldFailOnBothServers_data() {
    AddCases([](const TGoldenCase& Case) { return Case.MustFail; });
  }
  void shouldFailOnBothServers() {
    QFETCH(TGoldenCase, Case);
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Run(*SQLiteConnection_, Case.Dialog));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Execute(SQLite_, QString::fromStdString(Case.SQLite)));
    if (!Server_->IsRunning()) QSKIP(qPrintable(Server_->Reason()));
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Run(*PostgreSQLConnection_, Case.Dialog));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Execute(PostgreSQL_, QString::fromStdString(Case.PostgreSQL)));
  }

 private:
  template <typename TFilter>
  void AddCases(TFilter Belongs) {
    QTest::addColumn<TGoldenCase>("Case");
    for (const TGoldenCase& Case : Cases_) {
      if (Belongs(Case)) QTest::newRow(Case.Title.c_str()) << Case;
    }
  }

  std::vector<TGoldenCase> Cases_;
  QSqlDatabase SQLite_;
  QSqlDatabase PostgreSQL_;
  QSqlDatabase MariaDB_;
  std::unique_ptr<TThrowawayPostgreSQL> Server_;
  std::unique_ptr<TThrowawayMariaDB> MariaDBServer_;
  std::unique_ptr<ads::TAdsConnection> SQLiteConnection_;
  std::unique_ptr<ads::TAdsConnection> PostgreSQLConnection_;
  std::unique_ptr<ads::TAdsConnection> MariaDBConnection_;
};

QTEST_GUILESS_MAIN(tst_DialectGolden)
#include "tst_DialectGolden.moc"
