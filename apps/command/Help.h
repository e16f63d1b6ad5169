#pragma once

#include <string>

#include "catalog/Catalog.h"

namespace command {

/// Every pick with its options, by group.
std::string ListText(const catalog::TCatalog& Catalog);

/// What one pick picks and each of its options.
std::string PickHelp(const catalog::TPick& Pick);

/// The options that every program has.
std::string CommonHelp();

/// What an argument takes, such as "TEXT" or "open|posted"; empty for a Boolean.
std::string ValueHint(const catalog::TArg& Arg);

}  // namespace command
