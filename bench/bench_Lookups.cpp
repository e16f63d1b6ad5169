#include <QLineEdit>

#include "ListBench.h"
#include "picks/reference/uPickCostCenter.h"
#include "picks/reference/uPickJob.h"
#include "picks/reference/uPickSuburb.h"

namespace {

void MeasureList(benchmark::State& State, const std::string& PlainSql, int Columns, const bench::TCreate& Create) {
  bench::MeasureList(
      State, [&] { return bench::RunPlainly(bench::Lookups(), PlainSql, Columns); }, Create);
}

using uPickCostCenter::TfrmPickCostCenter;
using uPickJob::TfrmPickJob;
using uPickSuburb::TfrmPickSuburb;

void OpenAMillionJobs(benchmark::State& State) {
  MeasureList(State, "SELECT j.JobNo, j.[Desc], UPPER(j.[Desc]) SortFld FROM Jobs j ORDER BY SortFld", 2,
              [] { return TfrmPickJob::Create(bench::Lookups().Connection()); });
}
BENCHMARK(OpenAMillionJobs)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void OpenAMillionSuburbs(benchmark::State& State) {
  MeasureList(State, "SELECT Suburb, UPPER(Suburb) SortFld FROM Suburb ORDER BY SortFld", 1,
              [] { return TfrmPickSuburb::Create(bench::Lookups().Connection()); });
}
BENCHMARK(OpenAMillionSuburbs)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// The dialog is open already; what is measured is one search.
void SearchAMillionJobs(benchmark::State& State) {
  const auto Dialog = TfrmPickJob::Create(bench::Lookups().Connection());
  Dialog->edFind->setText("repair 77");
  for ([[maybe_unused]] auto _ : State) {
    Dialog->CallSetSQL();
    Dialog->qryList_->RecordCount();
  }
  State.counters["plain_ms"] = 1000 * bench::RunPlainly(bench::Lookups(),
                                                        "SELECT j.JobNo, j.[Desc], UPPER(j.[Desc]) SortFld FROM Jobs j "
                                                        "WHERE UPPER(j.[Desc]) LIKE '%REPAIR 77%' ORDER BY SortFld",
                                                        2)
                                          .Seconds;
}
BENCHMARK(SearchAMillionJobs)->Unit(benchmark::kMillisecond);

void OpenAHundredCostCentres(benchmark::State& State) {
  MeasureList(State, "SELECT CstCtr, [Desc], [Default], UPPER([Desc]) SortFld FROM CstCtr ORDER BY SortFld", 3,
              [] { return TfrmPickCostCenter::Create(bench::Lookups().Connection()); });
}
BENCHMARK(OpenAHundredCostCentres)->UseManualTime()->Iterations(50)->Unit(benchmark::kMillisecond);

}  // namespace
