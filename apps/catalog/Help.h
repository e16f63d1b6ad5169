#pragma once

#include <string>

#include "apps/catalog/Catalog.h"

namespace catalog {

/// Every pick with its options, by group.
std::string ListText(const TCatalog& Catalog);

/// What one pick picks and each of its options.
std::string PickHelp(const TPick& Pick);

/// The options that every program has.
std::string CommonHelp();

/// What an argument takes, such as "TEXT" or "open|posted"; empty for a Boolean.
std::string ValueHint(const TArg& Arg);

}  // namespace catalog
