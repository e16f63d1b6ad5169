#pragma once

#include <cstdint>
#include <string>

#include "sample/store/Dates.h"

namespace sample {

/// The financial years that the company has periods of, by the year in which they end on 30 June.
inline constexpr int FirstYear = 2019;
inline constexpr int LastYear = 2027;

/// The code of the period in which a day falls: the financial year's last two digits and the month within it, so
/// that 2601 is July 2025.
std::string PeriodOf(TDate Date);

}  // namespace sample
