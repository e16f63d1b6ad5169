#pragma once

#include "apps/command/CommandLine.h"

namespace command {

/// For a check nothing is shown, so it needs no display. Before there is an application.
void NeedNoDisplay();

/// Checks the database for one pick, or for all, and prints what was found. Whether the database is fit. Throws
/// `EUsage`, `EOpenError` and what `check::Check` throws.
bool RunCheck(const TCommandLine& CommandLine);

}  // namespace command
