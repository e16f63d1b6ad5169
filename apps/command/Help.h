#pragma once

#include <string>
#include <vector>

#include "apps/manual/Manual.h"
#include "catalog/Catalog.h"

namespace command {

/// An option that the programs have besides those of a pick.
struct TCommonOption {
  manual::TOption Text;
  bool OnlyPick = false;  ///< zulpick's alone: zulhost has no use for it
};

const std::vector<TCommonOption>& Options();

/// What zulpick and zulhost say of themselves.
const manual::TManual& PickManual();
const manual::TManual& HostManual();

/// Every pick with its options, by group.
std::string ListText(const catalog::TCatalog& Catalog);

/// What one pick picks, each of its options, and a command that calls it.
std::string PickHelp(const catalog::TPick& Pick);

/// A command that opens the pick over the sample company, and lists something there.
std::string ExampleCommand(const catalog::TPick& Pick);

/// zulpick's manual page, with every pick, in troff.
std::string PickPage(const catalog::TCatalog& Catalog);

/// What an argument takes, such as "TEXT" or "open|posted"; empty for a Boolean.
std::string ValueHint(const catalog::TArg& Arg);

}  // namespace command
