#pragma once

#include <cstdint>

#include "sample/SampleCompany.h"
#include "sample/tables/Random.h"

namespace sample {

/// How many rows the company's tables have. Codes that every company has a handful of do not grow with the scale.
struct TPlan {
  explicit TPlan(const TOptions& Options);

  /// The chance behind one row of a subject.
  TRandom Chance(std::string_view Subject, std::int64_t Row) const { return {Seed, Subject, Row}; }

  std::uint64_t Seed;
  std::int64_t Suburbs;
  std::int64_t Areas;  // postcodes: there are only so many
  std::int64_t Customers;
  std::int64_t Prospects;
  std::int64_t Vendors;
  std::int64_t Jobs;
  std::int64_t Documents;
  std::int64_t OldInvoices;  // receivables without a document
  std::int64_t Bookings;
  std::int64_t PurchaseOrders;
  std::int64_t VendorExtras;
  std::int64_t Items;
  std::int64_t Batches;
  std::int64_t AgedVendors;  // a period
};

}  // namespace sample
