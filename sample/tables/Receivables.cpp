#include <cmath>

#include "sample/tables/Batches.h"
#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Documents.h"
#include "sample/tables/Entities.h"
#include "sample/tables/Parties.h"
#include "sample/words/Goods.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

struct TReceivable {
  std::int64_t Customer = 0;
  std::string_view Type = "IN";
  std::string Number;
  std::optional<TDate> Date;
  std::optional<std::string> Description;
  std::optional<double> Amount;
  std::string_view DocumentType;
};

/// What of an amount is still owed: nothing, a part or all of it.
std::optional<double> AnyBalance(TRandom& Random, std::optional<double> Amount) {
  const std::int64_t Share = Random.Below(100);
  if (!Amount || Share >= 60) {
    return Amount;
  }
  return Share < 45 ? 0.0 : static_cast<double>(static_cast<std::int64_t>(*Amount * 100) / 4) / 100;
}

void AddReceivable(TRows& Rows, const TPlan& Plan, TRandom& Random, const TReceivable& Entry) {
  std::optional<TDate> Due;
  if (Entry.Date && Entry.Type == "IN") {
    Due = *Entry.Date + std::chrono::days{30};
  }
  // Some sales are booked with another part of the business than the customer belongs to.
  const auto Entity = EntityOfCustomer(Random.Percent(20) ? Random.Between(1, 9) : Entry.Customer);
  const auto DocumentType = Entry.DocumentType.empty() ? std::nullopt : std::optional(Entry.DocumentType);
  const std::optional<double> Balance = AnyBalance(Random, Entry.Amount);
  Rows.Add({CustomerID(Entry.Customer), Entry.Type, Entry.Number, Entry.Date, Due, Entry.Description, Balance,
            Entry.Amount, DocumentType, AnyReceivablesBatch(Random, Plan), Entity});
}

/// The invoice or credit of a document, if it is of that kind.
void AddDocument(TRows& Rows, const TPlan& Plan, std::int64_t Position) {
  const TDocumentHead Document = DocumentAt(Plan, Position);
  if (Document.Type != letters::Invoice && Document.Type != letters::Credit) {
    return;
  }
  TRandom Random = Plan.Chance("AR", Position);
  TReceivable Entry;
  Entry.Customer = Document.Customer;
  Entry.Number = Document.Number;
  Entry.Date = Document.Date;
  if (!Random.Percent(5)) {
    Entry.Description = Fitted(Concat({"Order ", Document.Number, ": ", AnyWork(Random)}), 40);
  }
  if (Document.SubTotal && Document.Tax) {
    Entry.Amount = std::round((*Document.SubTotal + *Document.Tax) * 100) / 100;
  }
  Entry.DocumentType = Document.Type;
  AddReceivable(Rows, Plan, Random, Entry);
}

/// What was brought forward from before the documents, with payments and adjustments.
void AddOld(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("AR old", Number);
  TReceivable Entry;
  Entry.Customer = AnyCustomer(Random, Plan);
  Entry.Number = Concat({"A", Padded(Number, 7)});
  Entry.Date = BaseDate - std::chrono::days{1500 + Random.Below(400)};
  const std::int64_t Share = Random.Below(100);
  Entry.Type = Share < 70 ? "IN" : Share < 95 ? "PA" : "AD";
  Entry.Description = Entry.Type == "IN" ? "Brought forward" : Entry.Type == "PA" ? "Payment – thank you" : "Adj. 100%";
  const std::int64_t Cents = Random.Between(-20'000, 300'000);
  Entry.Amount = static_cast<double>(Entry.Type == "IN" ? Cents : -Cents) / 100;
  if (Entry.Type == "IN") {
    Entry.DocumentType = letters::Invoice;
  }
  AddReceivable(Rows, Plan, Random, Entry);
}

}  // namespace

void WriteReceivables(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("AR", {"ID", "Type", "InvNo", "Date", "Due", "Desc", "Bal", "Amt", "OEDt", "Batch", "Entity"},
              [&](TRows& Rows) {
                for (std::int64_t Position = 0; Position < Plan.Documents; ++Position) {
                  AddDocument(Rows, Plan, Position);
                }
                for (std::int64_t Number = 1; Number <= Plan.OldInvoices; ++Number) {
                  AddOld(Rows, Plan, Number);
                }
              });
}

}  // namespace sample
