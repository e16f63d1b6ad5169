#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "PlainClient.h"
#include "ads/ServerProcess.h"

namespace bench {

/// A server that was started, which ends with the last copy of this.
struct TOwnServer {
  std::shared_ptr<void> Server;
  QString Reason;  ///< why there is none; empty when there is
  std::function<std::string(const QString& Database)> Address;
  std::function<qint64()> MemoryKiB;
};

/// What is different from server to server. The statements of measurements are the same otherwise; they join texts by
/// ||.
struct TServerKind {
  const char* Name;             ///< that ends the names of its benchmarks
  const char* AddressVariable;  ///< of the environment: a server to be used instead of one of the benchmarks' own
  const char* Database;         ///< one that a new server has
  const char* Hex;              ///< the function that writes a number so
  QStringList ForMillions;      ///< the settings that a server for millions of rows has
  TOwnServer (*Start)(TServerOptions Options);
  std::unique_ptr<TPlainClient> (*Connect)(const std::string& Address);
  std::string (*Series)(std::int64_t Count);  ///< a query for the numbers N from 1
  const char* SizeSql;                        ///< the bytes of the database that is connected
  std::vector<std::string> Analyze;
};

const TServerKind& PostgreSQLKind();
const TServerKind& MariaDBKind();

}  // namespace bench
