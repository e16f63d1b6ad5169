#include "LoadServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QMap>
#include <QSqlError>
#include <QSqlQuery>
#include <algorithm>

#include "ads/ProcessMemory.h"
#include "ads/ThrowawayMariaDB.h"
#include "ads/ThrowawayPostgreSQL.h"
#include "sample/SampleCompany.h"

namespace {

// For the writers and those who watch.
constexpr int MoreConnections = 30;

// How many there are of each thing, with those that there are none of left out.
QStringList Found(const QSqlDatabase& Watching, const QMap<QString, QString>& Queries) {
  QStringList Result;
  for (auto Each = Queries.begin(); Each != Queries.end(); ++Each) {
    QSqlQuery Query(Watching);
    if (!Query.exec(Each.value()) || !Query.next()) {
      Result << Each.key() + ": " + Query.lastError().text();
    } else if (Query.value(0).toInt() != 0) {
      Result << Query.value(0).toString() + ' ' + Each.key();
    }
  }
  return Result;
}

class TPostgreSQLLockView : public TLockView {
 public:
  explicit TPostgreSQLLockView(const QSqlDatabase& Watching) : Query_(Watching) {
    Query_.prepare(QStringLiteral(
        "SELECT L.pid, B.pid, coalesce(extract(epoch FROM clock_timestamp() - L.waitstart) * 1000, 0) "
        "FROM pg_locks L, unnest(pg_blocking_pids(L.pid)) B(pid) JOIN pg_stat_activity A ON A.pid = B.pid "
        "WHERE NOT L.granted AND A.backend_type = 'client backend'"));
  }

  std::vector<TLockWait> Waits() override {
    std::vector<TLockWait> Result;
    if (!Query_.exec()) qFatal("%s", qPrintable(Query_.lastError().text()));
    while (Query_.next()) {
      Result.push_back({Query_.value(0).toLongLong(), Query_.value(1).toLongLong(), Query_.value(2).toDouble()});
    }
    return Result;
  }

 private:
  QSqlQuery Query_;
};

// A row's lock is told by InnoDB's own tables, which are no younger than a tenth of a second after they were last read.
// So they are read only when somebody waits, and who was seen to wait is followed by the statement's number.
class TMariaDBLockView : public TLockView {
 public:
  explicit TMariaDBLockView(const QSqlDatabase& Watching) : Database_(Watching) {}

  std::vector<TLockWait> Waits() override {
    if (RowWaits() > 0 && (!Read_.isValid() || Read_.elapsed() > 150)) ReadBlockers();
    std::vector<TLockWait> Result;
    QMap<qint64, qint64> Running;
    QSqlQuery Query = Asked(
        "SELECT ID, QUERY_ID, TIME_MS, STATE LIKE 'Waiting for%lock' FROM information_schema.PROCESSLIST WHERE "
        "COMMAND = 'Query'");
    while (Query.next()) {
      const qint64 Session = Query.value(0).toLongLong();
      const qint64 Statement = Query.value(1).toLongLong();
      const auto Known = Blockers_.constFind({Session, Statement});
      if (Known != Blockers_.constEnd()) {
        Result.push_back({Session, Known.value(), Query.value(2).toDouble()});
      } else if (Query.value(3).toBool()) {
        Result.push_back({Session, 0, Query.value(2).toDouble()});
      }
    }
    return Result;
  }

 private:
  QSqlQuery Asked(const char* Sql) const {
    QSqlQuery Query(Database_);
    if (!Query.exec(QLatin1String(Sql))) qFatal("%s: %s", Sql, qPrintable(Query.lastError().text()));
    return Query;
  }

  int RowWaits() const {
    QSqlQuery Query = Asked("SHOW GLOBAL STATUS LIKE 'Innodb_row_lock_current_waits'");
    return Query.next() ? Query.value(1).toInt() : 0;
  }

  void ReadBlockers() {
    QSqlQuery Query = Asked(
        "SELECT P.ID, P.QUERY_ID, B.trx_mysql_thread_id FROM information_schema.INNODB_LOCK_WAITS W "
        "JOIN information_schema.INNODB_TRX R ON R.trx_id = W.requesting_trx_id "
        "JOIN information_schema.INNODB_TRX B ON B.trx_id = W.blocking_trx_id "
        "JOIN information_schema.PROCESSLIST P ON P.ID = R.trx_mysql_thread_id");
    Read_.start();
    while (Query.next()) {
      Blockers_[{Query.value(0).toLongLong(), Query.value(1).toLongLong()}] = Query.value(2).toLongLong();
    }
  }

  QSqlDatabase Database_;
  QElapsedTimer Read_;
  QMap<std::pair<qint64, qint64>, qint64> Blockers_;  // by session and statement
};

class TPostgreSQLLoadServer : public TLoadServer {
 public:
  explicit TPostgreSQLLoadServer(int Connections)
      : Server_({{QStringLiteral("max_connections=%1").arg(Connections + MoreConnections),
                  QStringLiteral("shared_buffers=256MB"), QStringLiteral("jit=off")},
                 {}}) {}

  QString Reason() const override { return Server_.Reason(); }
  QString Name() const override { return QStringLiteral("PostgreSQL"); }
  std::string Address() const override { return Server_.Address(QStringLiteral("postgres")); }
  QSqlDatabase Connect(const QString& ConnectionName) const override { return Server_.Connect(ConnectionName); }
  QString SessionSql() const override { return QStringLiteral("SELECT pg_backend_pid()"); }
  QString ConnectionsSql() const override {
    return QStringLiteral("SELECT count(*) FROM pg_stat_activity WHERE backend_type = 'client backend'");
  }

  QStringList Leftovers(const QSqlDatabase& Watching) const override {
    return Found(
        Watching,
        {{"sessions in a transaction",
          "SELECT count(*) FROM pg_stat_activity WHERE backend_type = 'client backend' AND pid <> pg_backend_pid() AND "
          "(state <> 'idle' OR xact_start IS NOT NULL OR backend_xmin IS NOT NULL)"},
         {"locks",
          "SELECT count(*) FROM pg_locks L JOIN pg_stat_activity A USING (pid) WHERE A.backend_type = "
          "'client backend' AND pid <> pg_backend_pid()"},
         {"prepared transactions", "SELECT count(*) FROM pg_prepared_xacts"},
         {"temporary files", "SELECT count(*) FROM pg_ls_tmpdir()"}});
  }

  std::unique_ptr<TLockView> LockView(const QSqlDatabase& Watching) const override {
    return std::make_unique<TPostgreSQLLockView>(Watching);
  }

  // All of its processes, without what they share.
  qint64 MemoryKiB(const QSqlDatabase&) const override { return FamilyKiB(Server_.ProcessId(), "Pss_Anon"); }
  qint64 AllowedGrowthKiB() const override { return 4 * 1024; }

 private:
  TThrowawayPostgreSQL Server_;
};

class TMariaDBLoadServer : public TLoadServer {
 public:
  explicit TMariaDBLoadServer(int Connections)
      : Connections_(Connections),
        Server_({{QStringLiteral("max-connections=%1").arg(Connections + MoreConnections)}, {}}) {}

  QString Reason() const override { return Server_.Reason(); }
  QString Name() const override { return QStringLiteral("MariaDB"); }
  std::string Address() const override { return Server_.Address(QStringLiteral("test")); }
  QSqlDatabase Connect(const QString& ConnectionName) const override { return Server_.Connect(ConnectionName); }
  QString SessionSql() const override { return QStringLiteral("SELECT CONNECTION_ID()"); }
  QString ConnectionsSql() const override {
    return QStringLiteral("SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE COMMAND <> 'Daemon'");
  }

  QStringList Leftovers(const QSqlDatabase& Watching) const override {
    return Found(
        Watching,
        {{"open transactions",
          "SELECT COUNT(*) FROM information_schema.INNODB_TRX WHERE trx_mysql_thread_id <> CONNECTION_ID()"},
         {"sessions at work",
          "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE COMMAND NOT IN "
          "('Daemon', 'Sleep') AND ID <> CONNECTION_ID()"},
         {"prepared statements",
          "SELECT VARIABLE_VALUE FROM information_schema.GLOBAL_STATUS WHERE "
          "VARIABLE_NAME = 'PREPARED_STMT_COUNT'"},
         {"temporary files",
          QStringLiteral("SELECT %1").arg(QDir(TemporaryFolder(Watching)).entryList({"#sql*", "MY*", "ib*"}).size())}});
  }

  std::unique_ptr<TLockView> LockView(const QSqlDatabase& Watching) const override {
    return std::make_unique<TMariaDBLockView>(Watching);
  }

  qint64 MemoryKiB(const QSqlDatabase& Watching) const override {
    QSqlQuery Pool("SHOW GLOBAL STATUS LIKE 'Innodb_buffer_pool_bytes_data'", Watching);
    const qint64 PoolKiB = Pool.next() ? Pool.value(1).toLongLong() / 1024 : 0;
    return ProcessKiB(QString::number(Server_.ProcessId()), "status", "VmRSS") - PoolKiB;
  }
  // Its sessions are threads, and its allocator keeps what many of them had side by side.
  qint64 AllowedGrowthKiB() const override { return std::max(16 * 1024, Connections_ * 160); }

 private:
  static QString TemporaryFolder(const QSqlDatabase& Watching) {
    QSqlQuery Query(QStringLiteral("SELECT @@tmpdir"), Watching);
    return Query.next() ? Query.value(0).toString() : QString();
  }

  int Connections_;
  TThrowawayMariaDB Server_;
};

}  // namespace

void TLoadServer::MakeCompany(int Customers) {
  sample::TOptions Options;
  Options.Scale = std::max(1, Customers / 1000);
  sample::CreateCompanyOnServer(Address(), Options);
  const QString Name = QStringLiteral("analyzing");
  {
    QSqlDatabase Database = Connect(Name);
    QSqlQuery Query(Database);
    // So that nothing is analyzed in the midst of the load that could be by now.
    for (const char* Table : {"cust", "custbal", "oe"}) {
      const QLatin1String Verb(Database.driverName() == QLatin1String("QMYSQL") ? "ANALYZE TABLE " : "VACUUM ANALYZE ");
      if (!Query.exec(Verb + QLatin1String(Table))) qFatal("%s", qPrintable(Query.lastError().text()));
    }
  }
  QSqlDatabase::removeDatabase(Name);
}

std::unique_ptr<TLoadServer> NewPostgreSQLLoadServer(int Connections) {
  return std::make_unique<TPostgreSQLLoadServer>(Connections);
}

std::unique_ptr<TLoadServer> NewMariaDBLoadServer(int Connections) {
  return std::make_unique<TMariaDBLoadServer>(Connections);
}
