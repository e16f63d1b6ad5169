#pragma once

#include <cstdint>
#include <string>

#include "sample/tables/Plan.h"

namespace sample {

/// The codes of a customer, a prospect and a vendor, by a number from 1.
std::string CustomerID(std::int64_t Number);
std::string ProspectID(std::int64_t Number);
std::string VendorID(std::int64_t Number);

/// The number of a customer that something happens to. The first twenty are regulars, with a tenth of everything.
std::int64_t AnyCustomer(TRandom& Random, const TPlan& Plan);

/// Every fifth vendor is a contractor.
inline bool IsContractor(std::int64_t VendorNumber) {
  return VendorNumber % 5 == 0;
}

/// The postcode of a row of Area, by a number from 0.
std::string AreaZip(const TPlan& Plan, std::int64_t Number);

}  // namespace sample
