#include "sample/tables/Company.h"

#include "sample/SampleCompany.h"

namespace sample {

namespace {

void WriteRows(TFiller& Filler, const TPlan& Plan) {
  WriteSystem(Filler);
  WriteCodes(Filler);
  WritePlaces(Filler, Plan);
  WritePeriods(Filler, Plan);
  WriteStaff(Filler);
  WriteCustomers(Filler, Plan);
  WriteContacts(Filler, Plan);
  WriteVendors(Filler, Plan);
  WriteJobs(Filler, Plan);
  WriteDocuments(Filler, Plan);
  WriteReceivables(Filler, Plan);
  WriteBookings(Filler, Plan);
  WritePurchaseOrders(Filler, Plan);
  WriteItems(Filler, Plan);
  WriteStock(Filler, Plan);
  WriteKits(Filler, Plan);
  WritePresets(Filler, Plan);
  WriteBatches(Filler, Plan);
}

}  // namespace

void WriteCompany(TRowSink& Sink, const TOptions& Options) {
  const TPlan Plan(Options);
  const TSchema Schema = ReadSchema(SchemaSql());
  for (const TTable& Table : Schema.Tables) {
    Sink.CreateTable(Table);
  }
  TFiller Filler(Sink, Schema);
  WriteRows(Filler, Plan);
  for (const TIndex& Index : Schema.Indexes) {
    Sink.CreateIndex(Index);
  }
  Sink.Finish();
}

}  // namespace sample
