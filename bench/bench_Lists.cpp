#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>

#include "PickBench.h"
#include "picks/reference/uPickJob.h"
#include "picks/reference/uPickMultiUsers.h"

namespace {

using uPickJob::TfrmPickJob;
using uPickMultiUsers::TfrmPickMultiUsers;

// A jump to a place anywhere in a million rows, painted.
void ScrollAMillionJobs(benchmark::State& State) {
  const auto Dialog = TfrmPickJob::Create(bench::Lookups().Connection());
  Dialog->show();
  Dialog->qryList_->RecordCount();
  QScrollBar* Bar = Dialog->dbgAvail->verticalScrollBar();
  unsigned Place = 1;
  for ([[maybe_unused]] auto _ : State) {
    Place = Place * 1664525U + 1013904223U;
    Bar->setValue(static_cast<int>(Place % static_cast<unsigned>(Bar->maximum())));
    Dialog->dbgAvail->viewport()->repaint();
  }
}
BENCHMARK(ScrollAMillionJobs)->Unit(benchmark::kMillisecond);

// One step of the cursor, as with the arrow keys, painted.
void StepThroughAMillionJobs(benchmark::State& State) {
  const auto Dialog = TfrmPickJob::Create(bench::Lookups().Connection());
  Dialog->show();
  Dialog->qryList_->SetRecNo(500000);
  for ([[maybe_unused]] auto _ : State) {
    Dialog->qryList_->Next();
    Dialog->dbgAvail->viewport()->repaint();
  }
}
BENCHMARK(StepThroughAMillionJobs)->Unit(benchmark::kMillisecond);

void TickAllOfAMillionAndCollect(benchmark::State& State) {
  const auto Dialog = TfrmPickMultiUsers::Create(bench::Lookups().Connection());
  Dialog->show();
  for ([[maybe_unused]] auto _ : State) {
    toolkit::TStringList Keys;
    Dialog->mniAllClick();
    Dialog->GetPicked(&Keys);
    if (Keys.Count() != Dialog->qryList_->RecordCount()) State.SkipWithError("Ticks were lost.");
  }
}
BENCHMARK(TickAllOfAMillionAndCollect)->Unit(benchmark::kMillisecond);

}  // namespace
