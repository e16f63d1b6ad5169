#pragma once

#include <cstdint>
#include <string_view>

namespace sample {

std::int64_t SalesmanCount();

/// The name of the sales person of a number from 0.
std::string_view SalesmanName(std::int64_t Number);

}  // namespace sample
