#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QTest>
#include <algorithm>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "check/Check.h"
#include "servers/Backends.h"
#include "servers/OpenOrSkip.h"
#include "servers/Watch.h"

using check::TFinding;
using check::TFindingKind;
using check::TReport;
using check::TSeverity;
using support::TBackend;
using support::TBackendKind;

Q_DECLARE_METATYPE(support::TBackendKind)

namespace {

using TNames = std::vector<std::string>;

// Some of each kind: with finds by date and number, lookups, several tables, arguments.
const TNames SomePicks{"city",           "finance-rate", "item-history-period", "customer",
                       "customer-email", "vendor",       "oe-member",           "booking",
                       "stock-po",       "item-cost",    "kit-option"};

std::vector<const catalog::TPick*> Picks(const TNames& Names) {
  std::vector<const catalog::TPick*> Result;
  for (const std::string& Name : Names) Result.push_back(catalog::FullCatalog().Find(Name));
  return Result;
}

std::vector<TFinding> Of(const TReport& Report, TSeverity Severity) {
  std::vector<TFinding> Result;
  for (const TFinding& Finding : Report.Findings) {
    if (Finding.Severity == Severity) Result.push_back(Finding);
  }
  return Result;
}

// The one thing that breaks picks.
TFinding Only(const TReport& Report) {
  const std::vector<TFinding> Broken = Of(Report, TSeverity::Breaks);
  if (Broken.size() == 1) return Broken.front();
  qWarning("%s", check::TextOf(Report).c_str());
  return {TFindingKind::Server, TSeverity::Advice, "not one finding", {}, {}, {}};
}

bool Works(const TReport& Report, const std::string& Pick) {
  return std::any_of(Report.Picks.begin(), Report.Picks.end(),
                     [&Pick](const check::TPickReport& Each) { return Each.Name == Pick && Each.IsFit; });
}

QByteArray Bytes(const QString& FileName) {
  QFile File(FileName);
  return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}

// A table as its server knows it where the case of names counts.
QString Written(TBackendKind Kind, const QString& Table) {
  return support::IsOnMariaDB(Kind) ? Table.toLower() : Table;
}

}  // namespace

#define OPEN_BACKEND()                                        \
  QFETCH(const TBackendKind, Kind);                           \
  const auto Backend = support::OpenOrSkip(*Backends_, Kind); \
  if (Backend == nullptr) return

class tst_Check : public QObject {
  Q_OBJECT

  // With the sanitizers, which take several times as long, none by ODBC.
  static void OverEveryServer() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::AllBackends) {
#ifdef __SANITIZE_ADDRESS__
      if (support::IsByODBC(Kind)) continue;
#endif
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  static void OverServersWithRights() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::AllBackends) {
      if (support::IsOnPostgreSQL(Kind) || support::IsOnMariaDB(Kind)) QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  static void OverPostgreSQL() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::PostgreSQL, TBackendKind::ODBCPostgreSQL}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }

  std::unique_ptr<support::TBackends> Backends_;

 private Q_SLOTS:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
  }
  void cleanupTestCase() {
    Backends_.reset();
  }

  void shouldFindTheSampleCompanyFit_data() {
    OverEveryServer();
  }
  void shouldFindTheSampleCompanyFit();
  void shouldTellWhatAPickNeeds();
  void shouldSendEveryChoiceAndFind();
  void shouldNameAMissingTableOnce_data() {
    OverEveryServer();
  }
  void shouldNameAMissingTableOnce();
  void shouldNameAMissingColumn_data() {
    OverEveryServer();
  }
  void shouldNameAMissingColumn();
  void shouldNameAColumnOfAnUnfitType_data() {
    OverEveryServer();
  }
  void shouldNameAColumnOfAnUnfitType();
  void shouldTellThatTheSettingsHaveNoRow_data() {
    OverEveryServer();
  }
  void shouldTellThatTheSettingsHaveNoRow();
  void shouldProposeAMissingIndex_data() {
    OverEveryServer();
  }
  void shouldProposeAMissingIndex();
  void shouldTellAMissingRight_data() {
    OverServersWithRights();
  }
  void shouldTellAMissingRight();
  void shouldTellOfATableThatTheAccountMayNotSee();
  void shouldTellOfATableUnderANameWithCapitals();
  void shouldTellOfASchemaThatMayNotBeUsed_data() {
    OverPostgreSQL();
  }
  void shouldTellOfASchemaThatMayNotBeUsed();
  void shouldTellAMissingCollation_data() {
    OverPostgreSQL();
  }
  void shouldTellAMissingCollation();
  void shouldNameAQueryThatFailsForAnotherReason_data() {
    OverEveryServer();
  }
  void shouldNameAQueryThatFailsForAnotherReason();
  void shouldFindNothingInAnEmptyFile();
  void shouldFindNothingInAForeignDatabase();
  void shouldRefuseAFileThatIsNoDatabase();
  void shouldRefuseAConnectionThatIsNotOpen();
  void shouldChangeNothing_data() {
    OverEveryServer();
  }
  void shouldChangeNothing();
  void shouldDoOnAConnectionThatMayOnlyRead();
  void shouldKeepTheHostsTransaction_data() {
    OverEveryServer();
  }
  void shouldKeepTheHostsTransaction();
  void shouldReadNoRowOfTheHosts();
};

void tst_Check::shouldFindTheSampleCompanyFit() {
  OPEN_BACKEND();
  QElapsedTimer Timer;
  Timer.start();
#ifdef __SANITIZE_ADDRESS__
  const bool IsSlow = Kind != TBackendKind::SQLite;
#else
  const bool IsSlow = support::IsByODBC(Kind);
#endif
  const TReport Report =
      IsSlow ? check::Check(Backend->Connection(), Picks(SomePicks)) : check::Check(Backend->Connection());
  qInfo("%s: %d queries in %lld ms", support::NameOf(Kind), Report.Queries, static_cast<long long>(Timer.elapsed()));
  QVERIFY2(Report.IsFit(), check::TextOf(Report).c_str());
  QVERIFY2(Of(Report, TSeverity::Advice).empty(), check::TextOf(Report).c_str());
  QCOMPARE(Report.Picks.size(), IsSlow ? SomePicks.size() : catalog::FullCatalog().All().size());
  QVERIFY(Report.Queries > (IsSlow ? 1000 : 10000));
  QCOMPARE(Report.Server, std::string(support::IsOnPostgreSQL(Kind) ? "PostgreSQL"
                                      : support::IsOnMariaDB(Kind)  ? "MariaDB"
                                                                    : "SQLite"));
  QVERIFY(!Report.Version.empty());
}

void tst_Check::shouldTellWhatAPickNeeds() {
  const auto Backend = Backends_->Open(TBackendKind::SQLite);
  const TReport Report = check::Check(Backend->Connection(), Picks({"city", "customer"}));
  QCOMPARE(Report.Picks.size(), std::size_t(2));
  const auto& City = Report.Picks[0];
  QCOMPARE(City.Name, std::string("city"));
  QCOMPARE(City.Needs.size(), std::size_t(2));
  QCOMPARE(City.Needs[0].Table, std::string("Area"));
  QCOMPARE(City.Needs[0].Columns, TNames{"Zip"});
  QCOMPARE(City.Needs[1].Table, std::string("Sys"));
  // The balances are looked up for rows that are painted.
  const auto& Needs = Report.Picks[1].Needs;
  const auto IsBalance = [](const check::TNeed& Need) {
    return Need.Table == "CustBal" && Need.Columns == TNames{"Balance", "Credit", "CustID"};
  };
  QVERIFY(std::any_of(Needs.begin(), Needs.end(), IsBalance));
}

// City: Sys, and its one order up and down, each with and without a text.
void tst_Check::shouldSendEveryChoiceAndFind() {
  const auto Backend = Backends_->Open(TBackendKind::SQLite);
  const TReport City = check::Check(Backend->Connection(), Picks({"city"}));
  QCOMPARE(City.Picks[0].Queries, 1 + 2 * 2);
  // Each with its first page, but for that of Sys.
  QCOMPARE(City.Queries, 2 * 4);
  // Costs of an item: five orders up and down, each with five finds and without, the item given and not.
  const TReport Costs = check::Check(Backend->Connection(), Picks({"item-cost"}));
  QCOMPARE(Costs.Picks[0].Queries, 1 + 2 * 5 * 2 * 6);
}

void tst_Check::shouldNameAMissingTableOnce() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("DROP TABLE " + Written(Kind, "CustBal"));
  const TReport Report = check::Check(Backend->Connection(), Picks({"city", "customer"}));
  const TFinding Finding = Only(Report);
  QCOMPARE(Finding.Kind, TFindingKind::MissingTable);
  QCOMPARE(Finding.Text, std::string("Table CustBal is missing, with the columns Balance, Credit, CustID."));
  QCOMPARE(Finding.Picks, TNames{"customer"});
  QVERIFY(Works(Report, "city"));
  QVERIFY(!Works(Report, "customer"));
}

void tst_Check::shouldNameAMissingColumn() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("ALTER TABLE " + Written(Kind, "Cust") + " DROP COLUMN Email");
  const TReport Report = check::Check(Backend->Connection(), Picks({"customer", "customer-email", "vendor-email"}));
  const TFinding Finding = Only(Report);
  QCOMPARE(Finding.Kind, TFindingKind::MissingColumn);
  QCOMPARE(Finding.Text, std::string("Column Cust.Email is missing, a text."));
  QCOMPARE(Finding.Picks, TNames{"customer-email"});
}

void tst_Check::shouldNameAColumnOfAnUnfitType() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("DROP TABLE " + Written(Kind, "Vend"));
  Backend->ExecuteBeside("CREATE TABLE " + Written(Kind, "Vend") +
                         " (ID VARCHAR(6), Company VARCHAR(35), Addr1 VARCHAR(35), Zip VARCHAR(30), Phone VARCHAR(15), "
                         "Email VARCHAR(40), Contractor VARCHAR(3), Service BOOLEAN, InActive BOOLEAN)");
  const TReport Report = check::Check(Backend->Connection(), Picks({"vendor"}));
  const TFinding Finding = Only(Report);
  QCOMPARE(Finding.Kind, TFindingKind::UnfitType);
  QVERIFY(Finding.Text.starts_with("Column Vend.Contractor is of the type "));
  QVERIFY(Finding.Text.ends_with(", but has to be a yes or no."));
}

void tst_Check::shouldTellThatTheSettingsHaveNoRow() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("DELETE FROM " + Written(Kind, "Sys"));
  const TFinding Finding = Only(check::Check(Backend->Connection(), Picks({"city", "state"})));
  QCOMPARE(Finding.Kind, TFindingKind::EmptySettings);
  QCOMPARE(Finding.Text, std::string("Table Sys has no row, and so no setting."));
  QCOMPARE(Finding.Picks, (TNames{"city", "state"}));
  Backend->ExecuteBeside(QString::fromStdString(Finding.Mend));
  QVERIFY(check::Check(Backend->Connection(), Picks({"city"})).IsFit());
}

void tst_Check::shouldProposeAMissingIndex() {
  OPEN_BACKEND();
  Backend->ExecuteBeside(support::IsOnMariaDB(Kind) ? "DROP INDEX FK_CUSTID ON custbal" : "DROP INDEX FK_CUSTID");
  const TReport Report = check::Check(Backend->Connection(), Picks({"city", "customer"}));
  QVERIFY2(Report.IsFit(), check::TextOf(Report).c_str());
  const std::vector<TFinding> Advice = Of(Report, TSeverity::Advice);
  QCOMPARE(Advice.size(), std::size_t(1));
  QCOMPARE(Advice[0].Kind, TFindingKind::MissingIndex);
  QCOMPARE(Advice[0].Text, std::string("No index of table CustBal begins with CustID."));
  QCOMPARE(Advice[0].Picks, TNames{"customer"});
  Backend->ExecuteBeside(QString::fromStdString(Advice[0].Mend));
  QVERIFY(Of(check::Check(Backend->Connection(), Picks({"customer"})), TSeverity::Advice).empty());
}

void tst_Check::shouldTellAMissingRight() {
  OPEN_BACKEND();
  const QString Role = QStringLiteral("reader_%1").arg(static_cast<int>(Kind));
  if (support::IsOnMariaDB(Kind)) {
    Backend->ExecuteBeside("CREATE USER " + Role + "@localhost");
    Backend->ExecuteBeside("GRANT SELECT ON sys TO " + Role + "@localhost");
    Backend->ExecuteBeside("GRANT INSERT ON area TO " + Role + "@localhost");
    Backend->ExecuteBeside("GRANT SELECT (state) ON state TO " + Role + "@localhost");
  } else {
    Backend->ExecuteBeside("CREATE ROLE " + Role + " LOGIN");
    Backend->ExecuteBeside("GRANT SELECT ON ALL TABLES IN SCHEMA public TO " + Role);
    Backend->ExecuteBeside("REVOKE SELECT ON area, state FROM " + Role);
    Backend->ExecuteBeside("GRANT SELECT (state) ON state TO " + Role);
  }
  QSqlDatabase Database = Backends_->Connect(*Backend, Role);
  {
    ads::TAdsConnection Connection(Database);
    const TReport Report = check::Check(&Connection, Picks({"city", "state"}));
    const TFinding Finding = Only(Report);
    QCOMPARE(Finding.Kind, TFindingKind::MissingRight);
    const std::string Account = Role.toStdString() + (support::IsOnMariaDB(Kind) ? "@localhost" : "");
    QCOMPARE(Finding.Text, "The account " + Account + " may not read table Area.");
    QCOMPARE(Finding.Picks, TNames{"city"});
    Backend->ExecuteBeside(QString::fromStdString(Finding.Mend));
    QVERIFY(check::Check(&Connection, Picks({"city", "state"})).IsFit());
  }
  const QString Name = Database.connectionName();
  Database = {};
  QSqlDatabase::removeDatabase(Name);
}

// A server that says nothing of a table of which the account may not even know.
void tst_Check::shouldTellOfATableThatTheAccountMayNotSee() {
  const auto Backend = support::OpenOrSkip(*Backends_, TBackendKind::MariaDB);
  if (Backend == nullptr) return;
  Backend->ExecuteBeside("CREATE USER blind@localhost");
  Backend->ExecuteBeside("GRANT SELECT ON sys TO blind@localhost");
  QSqlDatabase Database = Backends_->Connect(*Backend, "blind");
  {
    ads::TAdsConnection Connection(Database);
    const TFinding Finding = Only(check::Check(&Connection, Picks({"city"})));
    QCOMPARE(Finding.Kind, TFindingKind::MissingTable);
    QVERIFY2(Finding.Text.find("Or the account may not read it: SELECT command denied to user") != Finding.Text.npos,
             Finding.Text.c_str());
  }
  const QString Name = Database.connectionName();
  Database = {};
  QSqlDatabase::removeDatabase(Name);
}

void tst_Check::shouldTellOfATableUnderANameWithCapitals() {
  const auto Backend = support::OpenOrSkip(*Backends_, TBackendKind::MariaDB);
  if (Backend == nullptr) return;
  Backend->ExecuteBeside("RENAME TABLE area TO `Area`");
  const TFinding Finding = Only(check::Check(Backend->Connection(), Picks({"city"})));
  QVERIFY2(Finding.Text.find("\"Area\" stands in \"" + Backend->Database().databaseName().toStdString() +
                             "\"; names must be in lower case") != Finding.Text.npos,
           Finding.Text.c_str());
}

void tst_Check::shouldTellOfASchemaThatMayNotBeUsed() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("CREATE SCHEMA aside");
  Backend->ExecuteBeside("ALTER TABLE area SET SCHEMA aside");
  Backend->ExecuteBeside("ALTER TABLE state RENAME TO \"State\"");
  const TReport Report = check::Check(Backend->Connection(), Picks({"city", "state"}));
  const std::vector<TFinding> Broken = Of(Report, TSeverity::Breaks);
  QCOMPARE(Broken.size(), std::size_t(2));
  QVERIFY(Broken[0].Text.ends_with("(\"area\" stands in \"aside\", a schema that is not in the search path.)"));
  QVERIFY(Broken[1].Text.ends_with("(\"State\" stands in \"public\"; names must be in lower case.)"));
}

void tst_Check::shouldTellAMissingCollation() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("DROP COLLATION pg_catalog.\"und-x-icu\"");
  const TFinding Finding = Only(check::Check(Backend->Connection(), Picks({"city", "state"})));
  QCOMPARE(Finding.Kind, TFindingKind::Server);
  QVERIFY(Finding.Text.starts_with("The ICU collation \"und-x-icu\" is missing"));
  QCOMPARE(Finding.Picks, (TNames{"city", "state"}));
  Backend->ExecuteBeside(QString::fromStdString(Finding.Mend));
  QVERIFY(check::Check(Backend->Connection(), Picks({"city"})).IsFit());
}

// A view that gives a value which cannot be compared, or none at all.
void tst_Check::shouldNameAQueryThatFailsForAnotherReason() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("DROP TABLE " + Written(Kind, "Periods"));
  if (support::IsOnMariaDB(Kind)) Backend->ExecuteBeside("CREATE TABLE gone (a INTEGER)");
  Backend->ExecuteBeside(
      support::IsOnMariaDB(Kind) ? "CREATE VIEW periods AS SELECT a AS period FROM gone"
      : support::IsOnPostgreSQL(Kind)
          ? "CREATE VIEW periods AS SELECT CAST('{}' AS json) AS period, CURRENT_DATE AS start, CURRENT_DATE AS "
            "\"end\", '202601' AS realperiod, CURRENT_DATE AS closed"
          : "CREATE VIEW Periods AS SELECT NoSuchColumn AS Period FROM Area");
  if (support::IsOnMariaDB(Kind)) Backend->ExecuteBeside("DROP TABLE gone");
  const TReport Report = check::Check(Backend->Connection(), Picks({"city", "aging-period"}));
  QVERIFY(Works(Report, "city"));
  QVERIFY(!Works(Report, "aging-period"));
  const std::vector<TFinding> Broken = Of(Report, TSeverity::Breaks);
  QVERIFY(!Broken.empty());
  for (const TFinding& Finding : Broken) {
    QCOMPARE(Finding.Kind, TFindingKind::FailingQuery);
    QVERIFY2(Finding.Text.starts_with("A query of aging-period fails: "), Finding.Text.c_str());
    QVERIFY(!Finding.States.empty());
    for (const std::string& State : Finding.States) QVERIFY(State.starts_with("aging-period"));
  }
  const auto& States = Broken.front().States;
  QCOMPARE(States.front(), std::string("aging-period: on opening"));
  const auto IsNamed = [](const std::string& State) {
    return State == "aging-period: order by \"Start\", find \"2000-01-31\" by \"End\"";
  };
  QVERIFY2(std::any_of(States.begin(), States.end(), IsNamed), check::TextOf(Report).c_str());
}

void tst_Check::shouldFindNothingInAnEmptyFile() {
  const QTemporaryDir Folder;
  const QString FileName = Folder.filePath("empty.db");
  QVERIFY(QFile(FileName).open(QIODevice::WriteOnly));
  {
    QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE", "empty");
    Database.setDatabaseName(FileName);
    QVERIFY(Database.open());
    ads::TAdsConnection Connection(Database);
    const TReport Report = check::Check(&Connection);
    QVERIFY(!Report.IsFit());
    for (const TFinding& Finding : Of(Report, TSeverity::Breaks)) QCOMPARE(Finding.Kind, TFindingKind::MissingTable);
    QVERIFY(std::none_of(Report.Picks.begin(), Report.Picks.end(), [](const auto& Pick) { return Pick.IsFit; }));
  }
  QSqlDatabase::removeDatabase("empty");
  QCOMPARE(Bytes(FileName), QByteArray());
}

void tst_Check::shouldFindNothingInAForeignDatabase() {
  {
    QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE", "foreign");
    Database.setDatabaseName(":memory:");
    QVERIFY(Database.open());
    QSqlQuery Query(Database);
    QVERIFY(Query.exec("CREATE TABLE Cust (Shoe INTEGER, Size INTEGER)"));
    QVERIFY(Query.exec("CREATE TABLE Area (Kilometres INTEGER)"));
    ads::TAdsConnection Connection(Database);
    const TReport Report = check::Check(&Connection, Picks({"city"}));
    const std::vector<TFinding> Broken = Of(Report, TSeverity::Breaks);
    QCOMPARE(Broken.size(), std::size_t(2));
    QCOMPARE(Broken[0].Text, std::string("Column Area.Zip is missing, a text."));
    QCOMPARE(Broken[1].Kind, TFindingKind::MissingTable);
  }
  QSqlDatabase::removeDatabase("foreign");
}

void tst_Check::shouldRefuseAFileThatIsNoDatabase() {
  const QTemporaryDir Folder;
  QFile File(Folder.filePath("letter.txt"));
  QVERIFY(File.open(QIODevice::WriteOnly));
  File.write(QByteArray(5000, 'x'));
  File.close();
  {
    QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE", "letter");
    Database.setDatabaseName(File.fileName());
    QVERIFY(Database.open());
    ads::TAdsConnection Connection(Database);
    QVERIFY_EXCEPTION_THROWN(check::Check(&Connection), ads::EDatabaseError);
  }
  QSqlDatabase::removeDatabase("letter");
}

void tst_Check::shouldRefuseAConnectionThatIsNotOpen() {
  const auto Backend = Backends_->Open(TBackendKind::SQLite);
  Backend->Database().close();
  QVERIFY_EXCEPTION_THROWN(check::Check(Backend->Connection()), ads::EConnectionLost);
  QVERIFY_EXCEPTION_THROWN(check::Check(nullptr), ads::EDatabaseError);
}

void tst_Check::shouldChangeNothing() {
  OPEN_BACKEND();
  support::TWatch Watch(*Backends_, *Backend);
  Backend->Connection()->OpenCursor("SELECT 1 X");  // which gives a connection its functions
  Watch.Changes();
  const TReport Report = check::Check(Backend->Connection(), Picks({"customer", "oe-member", "finance-rate"}));
  QVERIFY(Report.IsFit());
  const QStringList Changes = Watch.Changes();
  QVERIFY2(Changes.isEmpty(), qPrintable(Changes.join('\n')));
}

void tst_Check::shouldDoOnAConnectionThatMayOnlyRead() {
  const auto Backend = Backends_->Open(TBackendKind::SQLite);
  const QString FileName = Backend->Database().databaseName();
  const QByteArray Before = Bytes(FileName);
  {
    QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE", "reading");
    Database.setDatabaseName(FileName);
    Database.setConnectOptions("QSQLITE_OPEN_READONLY");
    QVERIFY(Database.open());
    ads::TAdsConnection Connection(Database);
    QVERIFY(check::Check(&Connection).IsFit());
  }
  QSqlDatabase::removeDatabase("reading");
  QVERIFY(!Before.isEmpty());
  QCOMPARE(Bytes(FileName), Before);
}

// Even where queries fail.
void tst_Check::shouldKeepTheHostsTransaction() {
  OPEN_BACKEND();
  Backend->ExecuteBeside("DROP TABLE " + Written(Kind, "State"));
  Backend->ExecuteBeside("ALTER TABLE " + Written(Kind, "Cust") + " DROP COLUMN Addr1");
  QSqlDatabase Host = Backend->Database();
  QVERIFY(Host.transaction());
  Backend->Execute("INSERT INTO " + Written(Kind, "Area") + " (Zip) VALUES ('0000 HERE')");
  QVERIFY(!check::Check(Backend->Connection(), Picks({"city", "state", "customer"})).IsFit());
  QCOMPARE(TBackend::Value(Host, "SELECT COUNT(*) FROM " + Written(Kind, "Area") + " WHERE Zip = '0000 HERE'").toInt(),
           1);
  QCOMPARE(Backend->ValueBeside("SELECT COUNT(*) FROM " + Written(Kind, "Area") + " WHERE Zip = '0000 HERE'").toInt(),
           0);
  QVERIFY(Host.commit());
  QCOMPARE(Backend->ValueBeside("SELECT COUNT(*) FROM " + Written(Kind, "Area") + " WHERE Zip = '0000 HERE'").toInt(),
           1);
}

// A view that would take for ever is prepared like any other.
void tst_Check::shouldReadNoRowOfTheHosts() {
  const auto Backend = Backends_->Open(TBackendKind::SQLite);
  Backend->ExecuteBeside("DROP TABLE Area");
  Backend->ExecuteBeside(
      "CREATE VIEW Area AS WITH RECURSIVE Endless(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM Endless) SELECT "
      "CAST(N AS TEXT) AS Zip FROM Endless");
  const TReport Report = check::Check(Backend->Connection(), Picks({"city"}));
  QVERIFY2(Report.IsFit(), check::TextOf(Report).c_str());
  QVERIFY(Of(Report, TSeverity::Advice).empty());
}

QTEST_MAIN(tst_Check)
#include "tst_Check.moc"
