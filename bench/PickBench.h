#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ads/Connection.h"

namespace bench {

/// A database that benchmarks share, made at its first use in the folder that the environment variable ZUL_BENCH_FOLDER
/// names, else in the temporary one, and kept there for the next run.
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

/// What a plain C program does with a query: prepare, step to the end, read the first `Columns` columns of each row.
/// Returns the seconds that it took, those of the processor (0 where a server has a part in it), and the bytes of the
/// values it read.
struct TPlainRun {
  double Seconds = 0;
  double ProcessorSeconds = 0;
  std::int64_t Rows = 0;
  std::int64_t Bytes = 0;
};
double ProcessorSeconds();
TPlainRun RunPlainly(TBenchDatabase& Database, const std::string& Sql, int Columns);

}  // namespace bench
