#pragma once

#include <chrono>
#include <string>

namespace sample {

using TDate = std::chrono::sys_days;

/// YYYY-MM-DD.
std::string DateText(TDate Date);

/// The day with which the company's books stand. Everything happens around it, whatever today is.
inline constexpr TDate BaseDate = std::chrono::year{2026} / std::chrono::June / 30;

}  // namespace sample
