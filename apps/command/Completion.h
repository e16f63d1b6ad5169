#pragma once

#include <string>

#include "apps/manual/Manual.h"
#include "catalog/Catalog.h"

namespace command {

/// Bash's completion for zulpick and zulhost: picks, options, values.
std::string PickCompletion(const catalog::TCatalog& Catalog);

/// Bash's completion for a program that has options alone; what it names is files.
std::string OptionCompletion(const manual::TManual& Manual);

}  // namespace command
