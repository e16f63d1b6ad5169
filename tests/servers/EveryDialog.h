#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "pickbase/uDocPickBase.h"

namespace support {

/// A dialog with arguments for which it lists something of the sample company.
struct TSampleDialog {
  std::string Name;
  std::function<std::unique_ptr<uDocPickBase::TDocPickBase>(ads::TAdsConnection*)> Create;
};

/// Every dialog there is, some of them with several arguments.
const std::vector<TSampleDialog>& EveryDialog();

}  // namespace support
