#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "sample/tables/Random.h"

namespace sample {

/// The suburb of a number from 0, all different, up to 30 characters.
std::string SuburbName(std::int64_t Number);

/// A short made-up place name, without what tells two suburbs apart.
std::string AnyTown(TRandom& Random);

/// How many postcodes the states have together.
std::int64_t PostcodeCount();

/// The postcode of a number from 0 to `PostcodeCount` - 1, ascending: four digits.
std::string Postcode(std::int64_t Number);

/// Such as "12 Wattle St" or "Unit 3/48 O'Hara Pde".
std::string AnyStreetAddress(TRandom& Random);

/// A telephone number of the state of the postcode, or a mobile one; from the ranges that are never connected.
std::string AnyPhone(TRandom& Random, std::string_view Zip);

}  // namespace sample
