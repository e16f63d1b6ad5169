#pragma once

#include "ServerKind.h"

namespace bench {

/// The pick lists of a big company on a server, each against its client library's own loop over the same result. The
/// company is the sample one at its scale of a thousand. The server is one of the benchmarks' own, for which the
/// company is made anew each time, which takes some minutes; or the one at the address in the environment, where it is
/// kept. ZUL_BENCH_SCALE asks for a smaller company. `Kind` must live as long as the program.
bool RegisterServerLists(const TServerKind& Kind);

}  // namespace bench
