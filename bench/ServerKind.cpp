#include "ServerKind.h"

#include "ads/ProcessMemory.h"
#include "ads/ThrowawayMariaDB.h"
#include "ads/ThrowawayPostgreSQL.h"

namespace bench {

namespace {

template <typename TServer>
TOwnServer Start(TServerOptions Options, qint64 (*MemoryKiB)(qint64 Process)) {
  const auto Server = std::make_shared<TServer>(std::move(Options));
  return {Server, Server->Reason(), [Server](const QString& Database) { return Server->Address(Database); },
          [Server, MemoryKiB] { return MemoryKiB(Server->ProcessId()); }};
}

TOwnServer StartPostgreSQL(TServerOptions Options) {
  return Start<TThrowawayPostgreSQL>(std::move(Options), [](qint64 Process) { return FamilyKiB(Process, "Pss"); });
}

TOwnServer StartMariaDB(TServerOptions Options) {
  return Start<TThrowawayMariaDB>(
      std::move(Options), [](qint64 Process) { return ProcessKiB(QString::number(Process), "status", "VmRSS"); });
}

std::unique_ptr<TPlainClient> ConnectMariaDB(const std::string& Address) {
  auto Result = PlainMariaDB(Address);
  Result->Execute("SET SESSION sql_mode = 'STRICT_ALL_TABLES,PIPES_AS_CONCAT'");
  return Result;
}

std::string PostgreSQLSeries(std::int64_t Count) {
  return "SELECT generate_series(1, CAST(" + std::to_string(Count) + " AS bigint)) AS N";
}

std::string MariaDBSeries(std::int64_t Count) {
  return "SELECT seq AS N FROM seq_1_to_" + std::to_string(Count);
}

}  // namespace

const TServerKind& PostgreSQLKind() {
  static const TServerKind Kind{
      "PostgreSQL",
      "ZUL_BENCH_SERVER",
      "postgres",
      "to_hex",
      {"shared_buffers=2GB", "work_mem=64MB", "maintenance_work_mem=256MB", "max_wal_size=8GB"},
      StartPostgreSQL,
      PlainPostgreSQL,
      PostgreSQLSeries,
      "SELECT pg_database_size(current_database())",
      {"ANALYZE"}};
  return Kind;
}

const TServerKind& MariaDBKind() {
  static const TServerKind Kind{
      "MariaDB",
      "ZUL_BENCH_MARIADB",
      "test",
      "HEX",
      {"innodb-buffer-pool-size=2G", "innodb-log-file-size=1G", "sort-buffer-size=64M"},
      StartMariaDB,
      ConnectMariaDB,
      MariaDBSeries,
      "SELECT SUM(data_length + index_length) FROM information_schema.tables WHERE table_schema = DATABASE()",
      {"ANALYZE TABLE cust", "ANALYZE TABLE ip", "ANALYZE TABLE jobs", "ANALYZE TABLE item", "ANALYZE TABLE itemdet"}};
  return Kind;
}

}  // namespace bench
