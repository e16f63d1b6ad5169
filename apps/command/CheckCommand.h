#pragma once

#include <string>

#include "apps/command/CommandLine.h"

namespace command {

/// For a check nothing is shown, so it needs no display. Before there is an application.
void NeedNoDisplay();

struct TCheckResult {
  bool IsFit = false;
  std::string Text;  ///< the report, to be printed
};

/// Checks the database for one pick, or for all. Throws `EUsage`, `EOpenError` and what `check::Check` throws.
TCheckResult RunCheck(const TCommandLine& CommandLine);

}  // namespace command
