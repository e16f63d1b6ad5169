#include "servers/HostileTrial.h"

#include <sqlite3.h>

#include <QFile>
#include <QSqlQuery>

#include "ads/Cursor.h"

namespace support {

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int Slowness = 4;
#else
constexpr int Slowness = 1;
#endif

constexpr int RowsOfEachTable = 30;
constexpr int LongestRun = 4000;  // milliseconds of one text, with all the queries that come of it
constexpr qsizetype MostComplaints = 100;

QStringList Names(const QSqlDatabase& Database, const QString& Sql) {
  QStringList Result;
  QSqlQuery Query(Sql, Database);
  while (Query.next()) Result << Query.value(0).toString();
  return Result;
}

// A table of that server has no name for the place of a row.
void ShrinkOnMariaDB(const TBackend& Backend) {
  for (const QString& Name :
       Names(Backend.Beside(), QStringLiteral("SELECT table_name FROM information_schema.tables WHERE table_schema = "
                                              "DATABASE() AND table_type = 'BASE TABLE'"))) {
    const int Count = Backend.ValueBeside(QStringLiteral("SELECT COUNT(*) FROM `%1`").arg(Name)).toInt();
    if (Count <= RowsOfEachTable) continue;
    Backend.Execute(Backend.Beside(),
                    QStringLiteral("DELETE FROM `%1` LIMIT %2").arg(Name).arg(Count - RowsOfEachTable));
  }
}

void Shrink(const TBackend& Backend) {
  if (IsOnMariaDB(Backend.Kind())) return ShrinkOnMariaDB(Backend);
  const bool OnServer = IsOnPostgreSQL(Backend.Kind());
  const QString Place = OnServer ? QStringLiteral("ctid") : QStringLiteral("rowid");
  const QString Tables = OnServer ? QStringLiteral("SELECT tablename FROM pg_tables WHERE schemaname = 'public'")
                                  : QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'");
  for (const QString& Name : Names(Backend.Beside(), Tables)) {
    if (Name.startsWith(QLatin1String("sqlite_"))) continue;
    Backend.Execute(Backend.Beside(),
                    QStringLiteral("DELETE FROM \"%1\" WHERE %2 NOT IN (SELECT %2 FROM \"%1\" LIMIT %3)")
                        .arg(Name, Place)
                        .arg(RowsOfEachTable));
  }
}

// What acts when it is called, of the database's owner and of the server's extensions.
void AddActingFunctions(TBackend& Backend) {
  for (const char* Argument : {"anyelement", "text", "integer"}) {
    Backend.ExecuteBeside(QStringLiteral("CREATE FUNCTION acting(%1) RETURNS integer LANGUAGE plpgsql AS "
                                         "'BEGIN PERFORM pg_advisory_lock(78); RETURN 1; END'")
                              .arg(QLatin1String(Argument)));
  }
  for (const QString& Name : Names(Backend.Beside(), QStringLiteral("SELECT name FROM pg_available_extensions WHERE "
                                                                    "name IN ('dblink', 'adminpack', 'xml2')"))) {
    Backend.ExecuteBeside(QStringLiteral("CREATE EXTENSION ") + Name);
  }
}

// What acts when it is called, of the database's owner, and what would be acted on.
void AddActingToMariaDB(TBackend& Backend) {
  Backend.ExecuteBeside(
      QStringLiteral("CREATE FUNCTION acting(a TEXT) RETURNS INTEGER MODIFIES SQL DATA BEGIN "
                     "INSERT INTO area (zip) VALUES ('acted'); RETURN GET_LOCK('zul', 0); END"));
  Backend.ExecuteBeside(QStringLiteral("CREATE SEQUENCE zul_sequence"));
  QSqlQuery(Backend.Beside()).exec(QStringLiteral("INSTALL SONAME 'metadata_lock_info'"));  // the server's, so once
}

}  // namespace

THostileBackends::THostileBackends() {
  RecordStatements(Backends_);
#ifdef ZUL_RECORDING_ODBC
  qputenv("ZUL_ODBC_SERVER", "SQLite");
  qputenv("ZUL_ODBC_RECORD", QFile::encodeName(Folder_.filePath(QStringLiteral("record"))));
  Backends_.UseSQLiteDriver(QStringLiteral(ZUL_RECORDING_ODBC));
#endif
}

std::unique_ptr<TBackend> THostileBackends::Open(TBackendKind Kind) {
  std::unique_ptr<TBackend> Backend = Backends_.Open(Kind);
  Shrink(*Backend);
  if (IsOnPostgreSQL(Kind)) {
    AddActingFunctions(*Backend);
    Backend->Execute(QStringLiteral("SET statement_timeout = %1").arg(LongestRun));
  }
  if (IsOnMariaDB(Kind)) {
    AddActingToMariaDB(*Backend);
    Backend->Execute(QStringLiteral("SET max_statement_time = %1").arg(LongestRun / 1000));
  }
  Backend->Connection()->OpenCursor("SELECT 1 X");  // which gives a connection its functions
  return Backend;
}

THostileTrial::THostileTrial(THostileBackends& Backends, TBackend& Backend)
    : Backend_(Backend), Sent_(Backend, Backends.All()), Watch_(Backends.All(), Backend) {
  WatchTime();
}

void THostileTrial::WatchTime() {
  if (sqlite3* Handle = SQLiteOf(Backend_)) sqlite3_progress_handler(Handle, 10000, Progress, this);
}

THostileTrial::~THostileTrial() {
  if (sqlite3* Handle = SQLiteOf(Backend_)) sqlite3_progress_handler(Handle, 0, nullptr, nullptr);
}

int THostileTrial::Progress(void* Self) {
  const QElapsedTimer& Running = static_cast<THostileTrial*>(Self)->Running_;
  return Running.isValid() && Running.elapsed() > LongestRun ? 1 : 0;
}

void THostileTrial::Forget() {
  Check();
  Known_.clear();
}

void THostileTrial::Learn(const std::function<void()>& Harmless) {
  Check();
  Harmless();
  for (const QString& Statement : Sent_.Take()) Known_ << ShapeOf(Statement);
}

void THostileTrial::Try(const QString& What, const std::function<void()>& Hostile) {
  if (Complaints_.size() >= MostComplaints) return;
  ++Tries_;
  Untold_ << What;
  WatchTime();  // a list that was read in portions has taken the last one's place
  Running_.start();
  Hostile();
  if (Running_.elapsed() > LongestRun - 500)
    Complain(QStringLiteral("%1 took %2 ms").arg(What).arg(Running_.elapsed()));
  Running_.invalidate();
}

// To ask a server for what it wrote down takes its time, so it is asked for many tries at once; each complaint
// is of a statement in which the text is to be seen.
void THostileTrial::Check() {
  for (const QString& Statement : Sent_.Take()) {
    if (EveryShape_ || Untold_.isEmpty() || Known_.contains(ShapeOf(Statement))) continue;
    Known_ << ShapeOf(Statement);
    Complain(QStringLiteral("%1 ... %2 sent\n%3").arg(Untold_.first(), Untold_.last(), Statement.left(2000)));
  }
  Untold_.clear();
}

void THostileTrial::CheckNothingChanged(const QString& What) {
  Check();
  for (const QString& Change : Watch_.Changes()) Complain(What + QLatin1String(" changed ") + Change);
  Sent_.Take();  // what the watch itself asked
}

void THostileTrial::ExpectChanges() {
  Watch_.Changes();
  Sent_.Take();
}

void THostileTrial::Complain(const QString& What) {
  Complaints_ << What;
}

// The sanitizers look into the same code, which takes them several times as long.
TShare::TShare(int Parts) : Parts_(qEnvironmentVariableIsSet("ZUL_HOSTILE_ALL") ? 1 : Parts * Slowness) {}

QStringList TShare::Of(const QStringList& Texts) {
  QStringList Result;
  for (qsizetype Index = Place_++ % Parts_; Index < Texts.size(); Index += Parts_) Result << Texts[Index];
  return Result;
}

QByteArray Told(const QStringList& Complaints) {
  for (const QString& Complaint : Complaints.mid(0, MostComplaints)) qWarning("%s", qPrintable(Complaint));
  return QByteArray::number(Complaints.size()) + " complaints";
}

}  // namespace support
