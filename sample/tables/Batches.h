#pragma once

#include <string>
#include <string_view>

#include "sample/store/Dates.h"
#include "sample/tables/Plan.h"

namespace sample {

/// What a posted batch is about. The batches of a company come in rounds of twelve.
enum class TBatchKind {
  ElectronicPayments,  // of payables
  Cheques,             // payments of payables, too
  Bills,               // payables without a payment
  Receivables,
  Ledger,
  OrderEntry,
  Inventory,
};

TBatchKind BatchKind(std::int64_t Number);

/// The code of a batch from 1 to `TPlan::Batches`, eight digits.
std::string BatchCode(std::int64_t Number);

/// The day of a batch: later numbers are later days.
TDate BatchDate(const TPlan& Plan, std::int64_t Number);

/// The code of some batch of receivables.
std::string AnyReceivablesBatch(TRandom& Random, const TPlan& Plan);

}  // namespace sample
