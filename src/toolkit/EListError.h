#pragma once

#include <stdexcept>
#include <string>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// An index that a list does not have. The message names it.
class ZULTOOLKIT_EXPORT EListError : public std::out_of_range {
 public:
  explicit EListError(int Index);
  ~EListError() override;
};

}  // namespace toolkit
