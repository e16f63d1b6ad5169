#pragma once

#include <string>

#include "sample/tables/Random.h"

namespace sample {

/// The name of a tradesman's or builder's business, up to 35 characters.
std::string AnyTradeFirm(TRandom& Random);

/// The name of a business that supplies such, up to 35 characters.
std::string AnySupplier(TRandom& Random);

/// An address of the person at the firm, up to 40 characters, under a top-level domain that nobody can own.
std::string EmailAt(std::string_view Person, std::string_view Firm);

}  // namespace sample
