#include "sample/tables/Plan.h"

#include <algorithm>
#include <stdexcept>

#include "sample/words/Places.h"

namespace sample {

TPlan::TPlan(const TOptions& Options) : Seed(Options.Seed) {
  const std::int64_t Scale = Options.Scale;
  if (Scale < 1 || Scale > MaxScale) {
    throw std::runtime_error("The scale must be from 1 to " + std::to_string(MaxScale) + ".");
  }
  Suburbs = 150 * Scale;
  Areas = std::min(200 * Scale, PostcodeCount());
  Customers = 1000 * Scale;
  Prospects = 150 * Scale;
  Vendors = 200 * Scale;
  Jobs = 300 * Scale;
  Documents = 1000 * Scale;
  OldInvoices = 1100 * Scale;
  Bookings = 200 * Scale;
  PurchaseOrders = 600 * Scale;
  VendorExtras = 80 * Scale;
  Items = 500 * Scale;
  Batches = 300 * Scale;
  AgedVendors = 6 * Scale;
}

}  // namespace sample
