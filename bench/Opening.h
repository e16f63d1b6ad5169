#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <memory>

#include "pickbase/uDocPickBase.h"

namespace bench {

using TCreate = std::function<std::unique_ptr<uDocPickBase::TDocPickBase>()>;
using TClock = std::chrono::steady_clock;

double SecondsSince(TClock::time_point Start);
double ProcessorSeconds();

/// What opening a list took, in seconds.
struct TOpening {
  double FirstPage = 0;
  double Whole = 0;
  double Processor = 0;
  double Silence = 0;
  double SilenceOfProcessor = 0;
  int Rows = 0;
  std::size_t Snapshot = 0;
};

/// Opens a pick as its user sees it, as an exported function does it but for the key, and closes it when all rows are
/// there.
TOpening Open(const TCreate& Create);

/// Opens a pick, presses End as soon as its first rows are painted, and closes it; the seconds from the key until the
/// last row is painted.
double JumpToEnd(const TCreate& Create);

/// Runs the query of a dialog that is shown anew; the seconds until its first rows are painted.
double Requery(uDocPickBase::TDocPickBase& Dialog);

/// What reading a list takes in bytes: the list that is kept, and all that the process takes for it at the most.
struct TListMemory {
  double Snapshot = 0;
  double Peak = 0;
};
TListMemory MeasureMemory(const TCreate& Create);

}  // namespace bench
