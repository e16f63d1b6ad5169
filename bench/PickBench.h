#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace bench {

/// The database that the benchmarks share: the sample company's tables with a million rows in those that are measured. Made at the first use, as the file that the
/// environment variable ZUL_BENCH_DB names, else in the temporary folder, and kept there for the next run.
ads::TAdsConnection* Company();
std::string CompanyFile();
void CloseCompany();

/// What a plain C program does with a query: prepare, step to the end, read the first `Columns` columns of each row. Returns the seconds that
/// it took, and the bytes of the values it read.
struct TPlainRun {
  double Seconds = 0;
  std::int64_t Rows = 0;
  std::int64_t Bytes = 0;
};
TPlainRun RunPlainly(const std::string& Sql, int Columns);

using TCreate = std::function<std::unique_ptr<uDocPickBase::TDocPickBase>()>;

/// Opens the pick and puts its window up, painted, alternating with the plain run of the same query. Counters: seconds of each, their ratio, and the snapshot's
/// bytes against 1.5 times the bytes shown plus 16 a row.
void OpenAgainstPlain(benchmark::State& State, const std::string& PlainSql, int Columns, const TCreate& Create);

}  // namespace bench
