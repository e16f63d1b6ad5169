#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// An error that the application itself reports to its user, such as a find text that is no date.
///
/// `what()` is the whole message, UTF-8, ready to be shown. An exception that led to this one is nested in the
/// standard way (`std::throw_with_nested`).
class ZULCOMMON_EXPORT EZULException : public std::runtime_error {
 public:
  /// The message as it is. A code of -1 says that nothing tells this error from others by number.
  explicit EZULException(const std::string& Message, std::int32_t Code = -1);

  /// The message with each "%s" replaced by the next of `Args`, "%%" by a percent sign. An argument too few leaves
  /// its "%s" standing, one too many is ignored.
  EZULException(const std::string& Message, const std::vector<std::string>& Args, std::int32_t Code = -1);

  ~EZULException() override;

  std::int32_t Code() const noexcept { return Code_; }

 private:
  std::int32_t Code_;
};

}  // namespace zulcommon
