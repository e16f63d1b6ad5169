#pragma once

#include "sample/store/Rows.h"
#include "sample/tables/Plan.h"

namespace sample {

/// Writes the tables, every row and the indexes of a company, and finishes the sink. The indexes come last because
/// that is several times as fast, and it holds every key to be unique. Throws `std::runtime_error`.
void WriteCompany(TRowSink& Sink, const TOptions& Options);

// The rows of one subject each.
void WriteSystem(TFiller& Filler);
void WriteCodes(TFiller& Filler);
void WritePresets(TFiller& Filler, const TPlan& Plan);
void WritePlaces(TFiller& Filler, const TPlan& Plan);
void WritePeriods(TFiller& Filler, const TPlan& Plan);
void WriteStaff(TFiller& Filler);
void WriteCustomers(TFiller& Filler, const TPlan& Plan);
void WriteContacts(TFiller& Filler, const TPlan& Plan);
void WriteVendors(TFiller& Filler, const TPlan& Plan);
void WriteJobs(TFiller& Filler, const TPlan& Plan);
void WriteDocuments(TFiller& Filler, const TPlan& Plan);
void WriteReceivables(TFiller& Filler, const TPlan& Plan);
void WriteBookings(TFiller& Filler, const TPlan& Plan);
void WritePurchaseOrders(TFiller& Filler, const TPlan& Plan);
void WriteItems(TFiller& Filler, const TPlan& Plan);
void WriteStock(TFiller& Filler, const TPlan& Plan);
void WriteKits(TFiller& Filler, const TPlan& Plan);
void WriteBatches(TFiller& Filler, const TPlan& Plan);

}  // namespace sample
