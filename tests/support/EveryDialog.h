#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "catalog/Catalog.h"
#include "pickbase/uDocPickBase.h"

namespace support {

/// The dialog that a pick function shows when it is called with these arguments, complete and not shown. What the
/// function throws reaches the caller; so does a `std::logic_error` when it makes no dialog.
std::unique_ptr<uDocPickBase::TDocPickBase> DialogOf(const catalog::TPick& Pick, const catalog::TArgs& Args,
                                                     ads::TAdsConnection* Connection);

/// A dialog with arguments for which it lists something of the sample company.
struct TSampleDialog {
  std::string Name;
  std::function<std::unique_ptr<uDocPickBase::TDocPickBase>(ads::TAdsConnection*)> Create;
  const catalog::TPick* Pick = nullptr;  ///< the function that shows it so; null when none does
};

/// The dialogs of all picks of the catalog: one that takes no arguments as it is, another with the sets of arguments
/// that are told for it in EveryDialog.cpp, or at its defaults where none are.
const std::vector<TSampleDialog>& EveryDialog();

/// The first of those with this name: that of a pick at its defaults has the pick's.
const TSampleDialog& SampleDialog(const std::string& Name);

/// The names in EveryDialog.cpp that are no pick's.
std::vector<std::string> SamplesOfNoPick();

}  // namespace support
