#pragma once

#include <QDir>
#include <memory>
#include <string>

#include "PlainClient.h"
#include "ads/Connection.h"

namespace bench {

/// Where databases are kept: the folder that the environment variable ZUL_BENCH_FOLDER names, else the temporary one.
QDir KeptFolder();

/// A database that benchmarks share, made at its first use and kept for the next run.
class TBenchDatabase {
 public:
  using TMake = void (*)(const std::string& FileName);

  TBenchDatabase(const char* Name, TMake Make) : Name_(Name), Make_(Make) {}
  ~TBenchDatabase();
  TBenchDatabase(const TBenchDatabase&) = delete;
  TBenchDatabase& operator=(const TBenchDatabase&) = delete;

  std::string FileName();
  ads::TAdsConnection* Connection();
  /// To be called before the application ends.
  void Close();

 private:
  const char* Name_;
  TMake Make_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

/// A million rows in the tables of a few lookups.
TBenchDatabase& Lookups();
/// The sample company with a million customers, documents, purchase orders, stock rows of one parent item and payments.
TBenchDatabase& Company();

/// The run of a query on a connection of its own.
TPlainRun RunPlainly(TBenchDatabase& Database, const std::string& Sql, int Columns);

}  // namespace bench
