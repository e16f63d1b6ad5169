#pragma once

#include <benchmark/benchmark.h>

#include <functional>

#include "Opening.h"
#include "PickBench.h"

namespace bench {

using TRunPlainly = std::function<TPlainRun()>;

/// Opens the pick as its user sees it, alternating with the plain run of its whole query. Counters, each from the best
/// of the iterations where nothing else is said, the ratios to the best plain run:
///
///   first_page_ratio, first_page_ms   from the call until the first rows are painted
///   whole_ratio                       from the call until all rows are there, read in the event loop
///   whole_processor_ratio             the same by the processor's time, where the database is one of the process
///   asked_ratio                       from the call until its number of rows is told to who asks for it at once
///   silence_ms                        the longest time that the event dispatcher was left alone, of all iterations
///   silence_processor_ms              the same by the processor's time, without what other programs took from it
///   stop_ms                           from Esc in the midst of a requery of the open dialog until that has ended
///   leave_ms                          from Esc while the rest of the rows is still to come until the dialog has ended
///   snapshot_of_allowed               the bytes of the list against 1.5 times those shown and 16 a row
///
/// Both kinds of Esc are pressed once only, and not in a list of one page.
void MeasureList(benchmark::State& State, const TRunPlainly& RunPlainly, const TCreate& Create);

/// The same for a requery of a dialog that is open: `first_page_ratio` until the first rows are painted, `asked_ratio`
/// until their number is told.
void MeasureRequery(benchmark::State& State, const TRunPlainly& RunPlainly, uDocPickBase::TDocPickBase& Dialog);

}  // namespace bench
