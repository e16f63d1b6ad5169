#include "ListBench.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include "pickbase/PickCall.h"

namespace bench {

namespace {

using uDocPickBase::TDocPickBase;

// What other programs have disturbed the least.
double Best(const std::vector<double>& Values) {
  return Values.empty() ? 0 : *std::min_element(Values.begin(), Values.end());
}

double Ask(const TCreate& Create) {
  const TClock::time_point Start = TClock::now();
  benchmark::DoNotOptimize(Create()->qryList_->RecordCount());
  return SecondsSince(Start);
}

// A user who presses Esc in a dialog after so many seconds.
class TEscape {
 public:
  TEscape(TDocPickBase& Dialog, double Delay)
      : Presser_([this, &Dialog, Delay] {
          std::this_thread::sleep_for(std::chrono::duration<double>(Delay));
          Pressed_ = TClock::now();
          QCoreApplication::postEvent(&Dialog, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        }) {}

  /// The seconds since the key was pressed; 0 when that is still to come.
  double Since() {
    const TClock::time_point Now = TClock::now();
    Presser_.join();
    return std::max(0.0, std::chrono::duration<double>(Now - Pressed_).count());
  }

 private:
  TClock::time_point Pressed_;
  std::thread Presser_;
};

// 0 when the requery was over before the key was pressed.
double Stop(const TCreate& Create, double Delay) {
  const auto Dialog = Create();
  Dialog->show();
  Dialog->qryList_->GiveUpRest();
  bool IsStopped = true;
  QObject::connect(Dialog->qryList_, &ads::TDataSet::Opened, [&IsStopped] { IsStopped = false; });
  TEscape Escape(*Dialog, Delay);
  Dialog->CallSetSQL();
  const double Seconds = Escape.Since();
  QCoreApplication::removePostedEvents(Dialog.get());
  return IsStopped ? Seconds : 0;
}

double Leave(const TCreate& Create, double Delay) {
  const pickbase::TPickCall Call;
  const auto Dialog = Create();
  TEscape Escape(*Dialog, Delay);
  Dialog->ShowPick();
  const double Seconds = Escape.Since();
  return Dialog->qryList_->IsComplete() ? 0 : Seconds;
}

}  // namespace

void MeasureList(benchmark::State& State, const TRunPlainly& RunPlainly, const TCreate& Create) {
  constexpr int OnePage = 1000;
  std::vector<double> Plain, PlainProcessor, First, Whole, Processor, Asked;
  TPlainRun Run = RunPlainly();  // both find the data in the cache
  TOpening Opening;
  double Silence = 0;
  double SilenceOfProcessor = 0;
  for ([[maybe_unused]] auto _ : State) {
    Run = RunPlainly();
    Plain.push_back(Run.Seconds);
    PlainProcessor.push_back(Run.ProcessorSeconds);
    Opening = Open(Create);
    First.push_back(Opening.FirstPage);
    Whole.push_back(Opening.Whole);
    Processor.push_back(Opening.Processor);
    Silence = std::max(Silence, Opening.Silence);
    SilenceOfProcessor = std::max(SilenceOfProcessor, Opening.SilenceOfProcessor);
    Asked.push_back(Ask(Create));
    State.SetIterationTime(Opening.Whole);
    if (Opening.Rows != Run.Rows) State.SkipWithError("The pick lists other rows than the plain run.");
  }
  if (Opening.Rows > OnePage) {
    State.counters["stop_ms"] = Stop(Create, Opening.FirstPage / 3) * 1000;
    State.counters["leave_ms"] = Leave(Create, (Opening.FirstPage * 2 + Opening.Whole) / 3) * 1000;
  }
  const auto Ratio = [&Plain](const std::vector<double>& Values) { return Best(Values) / Best(Plain); };
  State.counters["rows"] = static_cast<double>(Run.Rows);
  State.counters["plain_ms"] = Best(Plain) * 1000;
  State.counters["first_page_ms"] = Best(First) * 1000;
  State.counters["first_page_ratio"] = Ratio(First);
  State.counters["whole_ratio"] = Ratio(Whole);
  State.counters["asked_ratio"] = Ratio(Asked);
  State.counters["silence_ms"] = Silence * 1000;
  State.counters["silence_processor_ms"] = SilenceOfProcessor * 1000;
  if (Run.ProcessorSeconds > 0) State.counters["whole_processor_ratio"] = Best(Processor) / Best(PlainProcessor);
  State.counters["snapshot_of_allowed"] = static_cast<double>(Opening.Snapshot) /
                                          (1.5 * static_cast<double>(Run.Bytes) + 16.0 * static_cast<double>(Run.Rows));
}

void MeasureRequery(benchmark::State& State, const TRunPlainly& RunPlainly, TDocPickBase& Dialog) {
  std::vector<double> Plain, First, Asked;
  Dialog.show();
  TPlainRun Run = RunPlainly();
  for ([[maybe_unused]] auto _ : State) {
    Run = RunPlainly();
    Plain.push_back(Run.Seconds);
    const TClock::time_point Start = TClock::now();
    First.push_back(Requery(Dialog));
    const int Rows = Dialog.qryList_->RecordCount();
    Asked.push_back(SecondsSince(Start));
    State.SetIterationTime(Asked.back());
    if (Rows != Run.Rows) State.SkipWithError("The pick lists other rows than the plain run.");
  }
  State.counters["rows"] = static_cast<double>(Run.Rows);
  State.counters["plain_ms"] = Best(Plain) * 1000;
  State.counters["first_page_ratio"] = Best(First) / Best(Plain);
  State.counters["asked_ratio"] = Best(Asked) / Best(Plain);
}

}  // namespace bench
