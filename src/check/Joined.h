#pragma once

#include <string>
#include <vector>

namespace check {

/// Names for a sentence, with commas between.
inline std::string Joined(const std::vector<std::string>& Names) {
  std::string Result;
  for (const std::string& Name : Names) Result += (Result.empty() ? "" : ", ") + Name;
  return Result;
}

}  // namespace check
