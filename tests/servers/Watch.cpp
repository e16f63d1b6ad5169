#include "servers/Watch.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace support {

namespace {

constexpr double Seed = 0.25;

QString HashOf(const QByteArray& Bytes) {
  return QString::fromLatin1(QCryptographicHash::hash(Bytes, QCryptographicHash::Sha1).toHex());
}

// Every row of a query, or why there are none: what was broken is to be told, not to end the program.
QString Rows(const QSqlDatabase& Database, const QString& Sql) {
  QSqlQuery Query(Database);
  Query.setForwardOnly(true);
  if (!Query.exec(Sql)) return QLatin1String("fails: ") + Query.lastError().text();
  QStringList Rows;
  while (Query.next()) {
    QString Row;
    for (int Column = 0; Column < Query.record().count(); ++Column) Row += Query.value(Column).toString() + u'|';
    Rows << Row;
  }
  return Rows.join(u' ');
}

// All that a PostgreSQL database holds, in one row.
QString ServerContents(const QSqlDatabase& Database) {
  const QString Tables =
      Rows(Database,
           "SELECT string_agg(format('SELECT %L, md5(string_agg(T::text, '''' ORDER BY T::text)) FROM %I T', relname, "
           "relname), ' UNION ALL ' ORDER BY relname) FROM pg_class WHERE relkind = 'r' AND relnamespace = "
           "'public'::regnamespace");
  return Rows(Database,
              "SELECT string_agg(sequencename || coalesce(last_value, 0), ' ' ORDER BY 1), (SELECT count(*) FROM "
              "pg_class), (SELECT count(*) FROM pg_proc), (SELECT count(*) FROM pg_largeobject_metadata), (SELECT "
              "count(*) FROM pg_namespace), (SELECT count(*) FROM pg_authid) FROM (SELECT * FROM pg_sequences ORDER "
              "BY 2) S") +
         Rows(Database, Tables.chopped(1));
}

QStringList MariaDBTables(const QSqlDatabase& Database, const char* Type) {
  QString Found = Rows(Database,
                       "SELECT concat('`', table_name, '`') FROM information_schema.tables WHERE table_schema = "
                       "DATABASE() AND table_type = '" +
                           QLatin1String(Type) + "' ORDER BY 1");
  return Found.remove(u'|').split(u' ', Qt::SkipEmptyParts);
}

// All that a MariaDB database holds.
QString MariaDBContents(const QSqlDatabase& Database) {
  return Rows(Database, "CHECKSUM TABLE " + MariaDBTables(Database, "BASE TABLE").join(u',')) +
         Rows(Database,
              "SELECT table_schema, table_name, auto_increment FROM information_schema.tables WHERE table_schema NOT "
              "IN ('mysql', 'information_schema', 'performance_schema') ORDER BY 1, 2");
}

QString FileContents(const QString& Name) {
  QFile File(Name);
  return File.open(QIODevice::ReadOnly) ? HashOf(File.readAll()) : QString();
}

}  // namespace

QString Contents(const TBackend& Backend) {
  if (IsOnPostgreSQL(Backend.Kind())) return ServerContents(Backend.Beside());
  return IsOnMariaDB(Backend.Kind()) ? MariaDBContents(Backend.Beside())
                                     : FileContents(Backend.Beside().databaseName());
}

TWatch::TWatch(TBackends& Backends, TBackend& Backend) : Backend_(Backend) {
  // The server runs under an account of its own.
  QFile::setPermissions(Folder_.path(), QFile::Permissions(0x7777));
  Names_.File = Folder_.filePath(QStringLiteral("acted"));
  Names_.Session = QStringLiteral("0");
  if (IsOnPostgreSQL(Backend.Kind())) {
    Bystander_ = Backends.Connect(Backend);
    Names_.Session = TBackend::Value(Bystander_, QStringLiteral("SELECT pg_backend_pid()")).toString();
    Names_.Host = Backends.Server().Host();
    Names_.Database = Backend.ValueBeside(QStringLiteral("SELECT current_database()")).toString();
    QSqlDriver* Driver = Backend.Beside().driver();
    if (Driver->subscribedToNotifications().isEmpty()) Driver->subscribeToNotification(QStringLiteral("zul"));
    connect(Driver, &QSqlDriver::notification, this, [this](const QString& Channel) { Notifications_ << Channel; });
    Rows(Backend_.Database(), QStringLiteral("SELECT setseed(%1)").arg(Seed));
  } else if (IsOnMariaDB(Backend.Kind())) {
    Bystander_ = Backends.Connect(Backend);
    Names_.Session = TBackend::Value(Bystander_, QStringLiteral("SELECT CONNECTION_ID()")).toString();
    Names_.Database = Backend.ValueBeside(QStringLiteral("SELECT DATABASE()")).toString();
  }
  Before_ = State();
  Before_ = State();  // once more: the first look may itself have had to read what is then kept
}

TWatch::~TWatch() {
  const QString Name = Bystander_.connectionName();
  Bystander_ = {};
  if (!Name.isEmpty()) QSqlDatabase::removeDatabase(Name);
}

QStringList TWatch::Changes() {
  const TState Now = State();
  QStringList Result;
  for (const QString& What : Now.keys()) {
    if (Now[What] != Before_[What]) Result << What + ": " + Before_[What] + ", now " + Now[What];
  }
  Before_ = Now;
  return Result;
}

TWatch::TState TWatch::State() {
  TState Result;
  Result["contents"] = Contents(Backend_);
  Result["contents for the host"] = HashOf(ContentsForHost().toUtf8());
  Result["files"] = QDir(Folder_.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot).join(u' ');
  if (IsOnPostgreSQL(Backend_.Kind())) {
    AddSession(Result);
    AddServer(Result);
  } else if (IsOnMariaDB(Backend_.Kind())) {
    AddMariaDB(Result);
  } else {
    AddSQLite(Result);
  }
  QCoreApplication::processEvents();
  Result["notifications"] = Notifications_.join(u' ');
  return Result;
}

QString TWatch::ContentsForHost() const {
  const QSqlDatabase Host = Backend_.Database();
  if (IsOnPostgreSQL(Backend_.Kind())) return ServerContents(Host);
  if (IsOnMariaDB(Backend_.Kind())) return MariaDBContents(Host);
  QString Result = Rows(Host, QStringLiteral("SELECT * FROM sqlite_master"));
  QSqlQuery Tables(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'"), Host);
  QStringList Names;
  while (Tables.next()) Names << Tables.value(0).toString();
  for (const QString& Name : Names) Result += Rows(Host, QStringLiteral("SELECT * FROM [%1]").arg(Name));
  return Result;
}

// What only the host's own session can tell.
void TWatch::AddSession(TState& State) const {
  const QSqlDatabase Host = Backend_.Database();
  State["session"] = Rows(Host,
                          "SELECT pg_backend_pid(), current_user, session_user, current_schemas(TRUE)::text, "
                          "current_setting('zul.acted', TRUE), txid_current_if_assigned(), pg_my_temp_schema()");
  State["settings"] = Rows(Host, "SELECT md5(string_agg(name || setting, ' ' ORDER BY name)) FROM pg_settings");
  State["listening"] = Rows(Host, "SELECT pg_listening_channels()");
  State["prepared"] = Rows(Host, "SELECT name, statement FROM pg_prepared_statements ORDER BY 1");
  State["cursors"] = Rows(Host, "SELECT name FROM pg_cursors WHERE name NOT LIKE 'SQL_CUR%' AND name <> ''");
  State["other connections"] =
      Rows(Host, "SELECT to_regproc('dblink_get_connections') IS NULL").startsWith(QLatin1Char('f'))
          ? Rows(Host, "SELECT dblink_get_connections()::text")
          : QString();
  // Somebody else who asks for a random number, or sets the seed, takes another one away from here.
  State["random"] = Rows(Host, "SELECT random()");
  Rows(Host, QStringLiteral("SELECT setseed(%1)").arg(Seed));
  State["host"] = Rows(Host, "SELECT pg_backend_pid()");
}

// What others see of that session and of the server.
void TWatch::AddServer(TState& State) const {
  const QSqlDatabase Beside = Backend_.Beside();
  const QString Session = QString(State["host"]).remove(u'|');
  State["transaction"] =
      Rows(Beside, "SELECT state, xact_start, backend_xid FROM pg_stat_activity WHERE pid = " + Session);
  State["locks"] =
      Rows(Beside, "SELECT locktype, mode, relation::regclass, objid, count(*) FROM pg_locks WHERE pid = " + Session +
                       " AND locktype <> 'virtualxid' GROUP BY 1, 2, 3, 4 ORDER BY 1, 2, 3, 4");
  State["advisory locks"] = Rows(Beside, "SELECT pid, objid FROM pg_locks WHERE locktype = 'advisory'");
  State["sessions"] = Rows(Beside, "SELECT pid FROM pg_stat_activity WHERE backend_type = 'client backend' ORDER BY 1");
  State["server"] =
      Rows(Beside,
           "SELECT pg_conf_load_time(), pg_current_logfile(), (SELECT count(*) FROM pg_replication_slots), "
           "(SELECT count(*) FROM pg_replication_origin), (SELECT count(*) FROM pg_prepared_xacts), "
           "(SELECT max(stats_reset) FROM pg_stat_database), (SELECT stats_reset FROM pg_stat_bgwriter)");
}

void TWatch::AddMariaDB(TState& State) const {
  const QSqlDatabase Host = Backend_.Database();
  const QString Session = Rows(Host, "SELECT CONNECTION_ID()").remove(u'|');
  State["session"] = Session + Rows(Host, "SELECT CURRENT_USER(), DATABASE(), @@in_transaction, LAST_INSERT_ID()");
  State["variables"] = Rows(Host, "SELECT variable_name, variable_value FROM information_schema.user_variables");
  State["settings"] = Rows(
      Host,
      "SELECT md5(group_concat(variable_name, variable_value ORDER BY 1)) FROM information_schema.session_variables "
      "WHERE variable_name NOT IN ('TIMESTAMP', 'ERROR_COUNT', 'WARNING_COUNT', 'IDENTITY')");
  State["temporary tables"] =
      Rows(Host, "SELECT table_name FROM information_schema.tables WHERE table_type = 'TEMPORARY'");
  State["random"] = Rows(Host, "SELECT RAND()");
  Rows(Host, "SET rand_seed1 = 1, rand_seed2 = 2");
  const QSqlDatabase Beside = Backend_.Beside();
  State["transaction"] = Rows(Beside,
                              "SELECT trx_state, trx_isolation_level, trx_is_read_only, trx_rows_modified > 0 FROM "
                              "information_schema.innodb_trx WHERE trx_mysql_thread_id = " +
                                  Session);
  // What the host reads for this watch within its own transaction stays locked as well.
  if (State["transaction"].isEmpty()) {
    State["locks"] = Rows(Beside,
                          "SELECT lock_mode, table_schema, table_name FROM information_schema.metadata_lock_info WHERE "
                          "thread_id = " +
                              Session + " ORDER BY 1, 2, 3");
  }
  for (const QString& Name : MariaDBTables(Beside, "SEQUENCE")) {
    State["sequence " + Name] = Rows(Beside, "SELECT next_not_cached_value FROM " + Name);
  }
  // Asked beside the host: a transaction in which these have been read has no savepoints.
  State["accounts and routines"] = Rows(Beside,
                                        "CHECKSUM TABLE mysql.global_priv, mysql.db, mysql.proc, mysql.event, "
                                        "mysql.plugin, mysql.servers, mysql.func");
  State["named locks"] = Rows(Beside, "SELECT IS_USED_LOCK('zul')");
  State["sessions"] =
      Rows(Beside, "SELECT id, user FROM information_schema.processlist WHERE user = 'tester' ORDER BY 1");
  State["prepared"] =
      Rows(Beside,
           "SELECT variable_value FROM information_schema.global_status WHERE variable_name = 'PREPARED_STMT_COUNT'");
  State["server"] = Rows(Beside,
                         "SELECT md5(group_concat(variable_name, variable_value ORDER BY 1)) FROM "
                         "information_schema.global_variables WHERE variable_name NOT LIKE '%gtid%'");
  State["files beside"] =
      QDir(TBackend::Value(Beside, QStringLiteral("SELECT @@datadir")).toString() + Beside.databaseName())
          .entryList(QDir::Files)
          .join(u' ');
}

void TWatch::AddSQLite(TState& State) const {
  const QSqlDatabase Host = Backend_.Database();
  for (const char* Pragma :
       {"user_version", "application_id", "journal_mode", "foreign_keys", "query_only", "recursive_triggers",
        "synchronous", "temp_store", "locking_mode", "writable_schema", "trusted_schema", "secure_delete", "cache_size",
        "database_list", "busy_timeout", "schema_version", "freelist_count"}) {
    State[QLatin1String(Pragma)] = Rows(Host, QLatin1String("PRAGMA ") + QLatin1String(Pragma));
  }
  State["changes"] = Rows(Host, "SELECT total_changes(), last_insert_rowid()");
  State["temporary"] = Rows(Host, "SELECT * FROM sqlite_temp_master");
  State["functions"] = Rows(Host, "SELECT COUNT(*) FROM pragma_function_list");
  const QFileInfo File(Backend_.Beside().databaseName());
  State["files beside"] = File.dir().entryList(QDir::Files).join(u' ');
}

}  // namespace support
