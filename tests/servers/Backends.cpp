#include "servers/Backends.h"

#include <sqlite3.h>

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <chrono>

#include "ads/Await.h"
#include "sample/SampleCompany.h"

namespace support {

namespace {

// The names under which their packages register the drivers.
constexpr char PostgreSQLODBC[] = "PostgreSQL Unicode";
constexpr char MariaDBODBC[] = "MariaDB Unicode";

QString DriverOf(TBackendKind Kind) {
  switch (Kind) {
    case TBackendKind::SQLite:
    case TBackendKind::OtherSQLite:
      return QStringLiteral("QSQLITE");
    case TBackendKind::PostgreSQL:
      return QStringLiteral("QPSQL");
    case TBackendKind::MariaDB:
      return QStringLiteral("QMYSQL");
    default:
      return QStringLiteral("QODBC");
  }
}

void Close(QSqlDatabase& Database) {
  const QString Name = Database.connectionName();
  Database = {};
  QSqlDatabase::removeDatabase(Name);
}

// A function takes the place of SQLite's own of that name, for this connection alone.
void BecomeAnotherBuild(const QSqlDatabase& Database) {
  const auto Tell = [](sqlite3_context* Context, int, sqlite3_value**) {
    sqlite3_result_text(Context, "another build", -1, SQLITE_STATIC);
  };
  auto* Handle = *static_cast<sqlite3* const*>(Database.driver()->handle().constData());
  sqlite3_create_function(Handle, "sqlite_source_id", 0, SQLITE_UTF8, nullptr, Tell, nullptr, nullptr);
}

QString DataOf(const QSqlDatabase& Database) {
  const QString Name = Database.databaseName();
  const auto At = Name.indexOf(QLatin1String("Database="));
  return At < 0 ? Name : Name.mid(At + 9).section(QLatin1Char(';'), 0, 0);
}

bool IsTo(const QSqlDatabase& Database, bool IsMariaDB) {
  const QString Driver = Database.driverName();
  if (Driver == QLatin1String("QODBC"))
    return Database.databaseName().contains(QLatin1String(IsMariaDB ? MariaDBODBC : PostgreSQLODBC));
  return Driver == DriverOf(IsMariaDB ? TBackendKind::MariaDB : TBackendKind::PostgreSQL);
}

// A server ends a session some time after its client has closed it. A test that counts sessions is to meet none of an
// earlier test's.
void AwaitClosedSessions(const QSqlDatabase& Beside, bool IsMariaDB) {
  int Open = 0;
  for (const QString& Name : QSqlDatabase::connectionNames()) {
    const QSqlDatabase Database = QSqlDatabase::database(Name, false);
    if (Database.isOpen() && IsTo(Database, IsMariaDB)) ++Open;
  }
  const QString Sessions =
      IsMariaDB ? QStringLiteral("SELECT COUNT(*) FROM information_schema.processlist WHERE user IN ('root', 'tester')")
                : QStringLiteral("SELECT COUNT(*) FROM pg_stat_activity WHERE backend_type = 'client backend'");
  Await([&] { return TBackend::Value(Beside, Sessions).toInt() <= Open; }, std::chrono::seconds(5));
}

bool Opens(QSqlDatabase Database, QString& Reason) {
  const bool Opened = Database.open();
  if (!Opened) Reason = Database.lastError().text().simplified();
  Close(Database);
  return Opened;
}

}  // namespace

const char* NameOf(TBackendKind Kind) {
  switch (Kind) {
    case TBackendKind::SQLite:
      return "SQLite";
    case TBackendKind::PostgreSQL:
      return "PostgreSQL";
    case TBackendKind::ODBCSQLite:
      return "SQLite by ODBC";
    case TBackendKind::OtherSQLite:
      return "SQLite of another build";
    case TBackendKind::MariaDB:
      return "MariaDB";
    case TBackendKind::ODBCMariaDB:
      return "MariaDB by ODBC";
    default:
      return "PostgreSQL by ODBC";
  }
}

bool IsOnPostgreSQL(TBackendKind Kind) {
  return Kind == TBackendKind::PostgreSQL || Kind == TBackendKind::ODBCPostgreSQL;
}

bool IsOnMariaDB(TBackendKind Kind) {
  return Kind == TBackendKind::MariaDB || Kind == TBackendKind::ODBCMariaDB;
}

bool IsByODBC(TBackendKind Kind) {
  return DriverOf(Kind) == QLatin1String("QODBC");
}

TBackend::TBackend(TBackendKind Kind, QSqlDatabase Database, QSqlDatabase Beside, std::unique_ptr<QTemporaryDir> Folder)
    : Kind_(Kind), Folder_(std::move(Folder)), Database_(std::move(Database)), Beside_(std::move(Beside)) {
  Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
}

TBackend::~TBackend() {
  Connection_.reset();
  Close(Database_);
  Close(Beside_);
}

void TBackend::Execute(const QSqlDatabase& Database, const QString& Sql) {
  QSqlQuery Query(Database);
  if (!Query.exec(Sql)) qFatal("%s: %s", qPrintable(Sql), qPrintable(Query.lastError().text()));
}

QVariant TBackend::Value(const QSqlDatabase& Database, const QString& Sql) {
  QSqlQuery Query(Database);
  if (!Query.exec(Sql)) qFatal("%s: %s", qPrintable(Sql), qPrintable(Query.lastError().text()));
  return Query.next() ? Query.value(0) : QVariant();
}

sqlite3* SQLiteOf(const TBackend& Backend) {
  if (DriverOf(Backend.Kind()) != QLatin1String("QSQLITE")) return nullptr;
  return *static_cast<sqlite3* const*>(Backend.Database().driver()->handle().constData());
}

TBackends::TBackends() : Server_(std::make_unique<TThrowawayPostgreSQL>()) {
  if (!Server_->IsRunning()) return;
  QSqlDatabase Database = Server_->Connect(QStringLiteral("company"));
  TBackend::Execute(Database, QStringLiteral("CREATE DATABASE company"));
  Close(Database);
  sample::CreateCompanyOnServer(Server_->Address(QStringLiteral("company")));
}

TBackends::~TBackends() = default;

QString TBackends::Missing(TBackendKind Kind) {
  if (IsOnPostgreSQL(Kind) && !Server_->IsRunning()) return Server_->Reason();
  if (IsOnMariaDB(Kind) && !MariaDB().IsRunning()) return MariaDB().Reason();
  if (!QSqlDatabase::isDriverAvailable(DriverOf(Kind))) {
    return QStringLiteral("Qt's driver %1 is not installed").arg(DriverOf(Kind));
  }
  QString Reason;
  if (Kind == TBackendKind::ODBCSQLite) {
    Opens(Connect(Kind, CompanyFile(), {}, {}), Reason);
  } else if (Kind == TBackendKind::ODBCPostgreSQL) {
    Opens(Connect(Kind, QStringLiteral("postgres"), {}, {}), Reason);
  } else if (Kind == TBackendKind::ODBCMariaDB) {
    Opens(Connect(Kind, QStringLiteral("test"), {}, {}), Reason);
  }
  return Reason;
}

QString TBackends::CompanyFile() {
  const QString Name = Folder_.filePath(QStringLiteral("company.db"));
  if (!QFile::exists(Name)) sample::CreateCompany(Name.toStdString());
  return Name;
}

QString TBackends::NewServerDatabase() {
  const QString Name = QStringLiteral("company_%1").arg(++Databases_);
  QSqlDatabase Database = Server_->Connect(QUuid::createUuid().toString());
  TBackend::Execute(Database, QStringLiteral("CREATE DATABASE %1 TEMPLATE company").arg(Name));
  Close(Database);
  return Name;
}

TThrowawayMariaDB& TBackends::MariaDB() {
  if (MariaDB_ == nullptr) MariaDB_ = std::make_unique<TThrowawayMariaDB>();
  return *MariaDB_;
}

QString TBackends::NewMariaDBDatabase() {
  const QString Name = QStringLiteral("company_%1").arg(++Databases_);
  QSqlDatabase Database = MariaDB().Connect(QUuid::createUuid().toString());
  if (!HasMariaDBCompany_) {
    TBackend::Execute(Database, QStringLiteral("CREATE DATABASE company"));
    sample::CreateCompanyOnServer(MariaDB().Address(QStringLiteral("company")));
    HasMariaDBCompany_ = true;
    if (RecordsOnMariaDB_) {
      TBackend::Execute(Database, QStringLiteral("SET GLOBAL log_output = 'TABLE'"));
      TBackend::Execute(Database, QStringLiteral("SET GLOBAL general_log = ON"));
    }
  }
  TBackend::Execute(Database, QStringLiteral("CREATE DATABASE %1").arg(Name));
  QSqlQuery Tables(QStringLiteral("SELECT table_name FROM information_schema.tables WHERE table_schema = 'company'"),
                   Database);
  while (Tables.next()) {
    const QString Table = Tables.value(0).toString();
    TBackend::Execute(Database, QStringLiteral("CREATE TABLE %1.`%2` LIKE company.`%2`").arg(Name, Table));
    TBackend::Execute(Database, QStringLiteral("INSERT INTO %1.`%2` SELECT * FROM company.`%2`").arg(Name, Table));
  }
  Tables.clear();
  Close(Database);
  return Name;
}

QSqlDatabase TBackends::Connect(TBackendKind Kind, const QString& Name, const QString& User, const QString& Options) {
  const QString Account = User.isEmpty() ? QStringLiteral("tester") : User;
  QSqlDatabase Database = QSqlDatabase::addDatabase(DriverOf(Kind), QUuid::createUuid().toString());
  switch (Kind) {
    case TBackendKind::SQLite:
    case TBackendKind::OtherSQLite:
      Database.setDatabaseName(Name);
      break;
    case TBackendKind::PostgreSQL:
      Database.setHostName(Server_->Host());
      Database.setDatabaseName(Name);
      Database.setUserName(Account);
      break;
    case TBackendKind::ODBCSQLite:
      Database.setDatabaseName(QStringLiteral("DRIVER=%1;Database=%2;%3").arg(SQLiteDriver_, Name, Options));
      break;
    case TBackendKind::ODBCPostgreSQL:
      Database.setDatabaseName(QStringLiteral("DRIVER={%1};Servername=%2;Database=%3;Uid=%4;%5")
                                   .arg(PostgreSQLODBC, Server_->Host(), Name, Account, Options));
      break;
    case TBackendKind::MariaDB:
      Database.setDatabaseName(Name);
      Database.setUserName(Account);
      Database.setConnectOptions(QStringLiteral("UNIX_SOCKET=%1").arg(MariaDB().Socket()) +
                                 (Options.isEmpty() ? QString() : QLatin1Char(';') + Options));
      break;
    case TBackendKind::ODBCMariaDB:
      Database.setDatabaseName(QStringLiteral("DRIVER={%1};SOCKET=%2;DATABASE=%3;UID=%4%5")
                                   .arg(MariaDBODBC, MariaDB().Socket(), Name, Account,
                                        Options.isEmpty() ? QString() : QLatin1Char(';') + Options));
      break;
  }
  if (Database.open() && Kind == TBackendKind::OtherSQLite) BecomeAnotherBuild(Database);
  return Database;
}

QSqlDatabase TBackends::Connect(const TBackend& Backend, const QString& User) {
  return Connect(Backend.Kind(), DataOf(Backend.Database()), User, {});
}

std::unique_ptr<TBackend> TBackends::Open(TBackendKind Kind, const QString& Options) {
  auto Folder = std::make_unique<QTemporaryDir>();
  QString Name = Folder->filePath(QStringLiteral("company.db"));
  if (IsOnPostgreSQL(Kind)) {
    Name = NewServerDatabase();
  } else if (IsOnMariaDB(Kind)) {
    Name = NewMariaDBDatabase();
  } else if (!QFile::copy(CompanyFile(), Name)) {
    qFatal("The sample company cannot be copied.");
  }
  const TBackendKind Own = IsOnPostgreSQL(Kind) ? TBackendKind::PostgreSQL
                           : IsOnMariaDB(Kind)  ? TBackendKind::MariaDB
                                                : TBackendKind::SQLite;
  QSqlDatabase Database = Connect(Kind, Name, {}, Options);
  if (!Database.isOpen()) qFatal("%s", qPrintable(Database.lastError().text()));
  QSqlDatabase Beside = Connect(Own, Name, {}, {});
  if (Own != TBackendKind::SQLite) AwaitClosedSessions(Beside, Own == TBackendKind::MariaDB);
  return std::unique_ptr<TBackend>(new TBackend(Kind, Database, Beside, std::move(Folder)));
}

}  // namespace support
