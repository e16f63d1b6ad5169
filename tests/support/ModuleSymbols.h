#pragma once

#include <set>
#include <string>
#include <vector>

namespace support {

/// A function that the module exports, with its symbol there.
struct TExportedFunction {
  std::string Name;       ///< such as "uPickCity::CallPickCity"
  std::string Signature;  ///< the same with its parameters
  std::string Symbol;
};

/// The pick functions that the module exports, read from its symbols; of several of the same name, each.
const std::vector<TExportedFunction>& ExportedPickFunctions();

/// The classes of dialogs that the module exports, such as "uPickCity::TfrmPickCity".
const std::set<std::string>& ExportedDialogs();

/// The name without what stands behind the first "::": its unit.
std::string UnitOf(const std::string& Name);

}  // namespace support
