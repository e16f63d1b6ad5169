#pragma once

#include <stdexcept>
#include <string>

#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A text that is not of the kind that it was to be read as.
class ZULTOOLKIT_EXPORT EConvertError : public std::runtime_error {
 public:
  explicit EConvertError(const std::string& Message) : std::runtime_error(Message) {}
};

}  // namespace toolkit
