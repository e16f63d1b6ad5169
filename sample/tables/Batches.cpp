// Posted batches with their ledger lines, payables lines and electronic payments.
#include "sample/tables/Batches.h"

#include <vector>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Parties.h"
#include "sample/tables/Periods.h"
#include "sample/words/Goods.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

constexpr std::int64_t RoundSize = 12;
constexpr std::int64_t FirstReceivables = 1;

bool IsPayables(TBatchKind Kind) {
  return Kind == TBatchKind::ElectronicPayments || Kind == TBatchKind::Cheques || Kind == TBatchKind::Bills;
}

std::string_view SourceOf(TBatchKind Kind) {
  switch (Kind) {
    case TBatchKind::Receivables:
      return "AR";
    case TBatchKind::Ledger:
      return "GL";
    case TBatchKind::OrderEntry:
      return "OE";
    case TBatchKind::Inventory:
      return "IN";
    default:
      return "AP";
  }
}

struct TPayment {
  std::string Vendor;
  std::int64_t Cents;
};

/// The payables lines of a batch; for electronic payments, the payments.
std::vector<TPayment> PaymentsOf(const TPlan& Plan, std::int64_t Number) {
  if (Number == RoundSize / 2) {
    return {{VendorID(1), 1000}, {VendorID(2), 2000}, {VendorID(3), 550}};
  }
  TRandom Random = Plan.Chance("AP", Number);
  std::vector<TPayment> Result(static_cast<std::size_t>(Random.Between(2, 8)));
  for (TPayment& Payment : Result) {
    Payment.Vendor = VendorID(Random.Between(1, Plan.Vendors));
    Payment.Cents = Random.Between(1'000, 1'500'000);
  }
  return Result;
}

double TotalOf(const TPlan& Plan, std::int64_t Number) {
  std::int64_t Cents = 0;
  if (IsPayables(BatchKind(Number))) {
    for (const TPayment& Payment : PaymentsOf(Plan, Number)) {
      Cents += Payment.Cents;
    }
  } else {
    Cents = Plan.Chance("PstdGLBatch total", Number).Between(-200'000, 4'000'000);
  }
  return static_cast<double>(Cents) / 100;
}

std::optional<std::string> DescriptionOf(const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("PstdGLBatch", Number);
  const std::string Day = DateText(BatchDate(Plan, Number));
  if (Random.Percent(3)) {
    return std::nullopt;
  }
  switch (BatchKind(Number)) {
    case TBatchKind::ElectronicPayments:
      return Concat({Random.Percent(10) ? "EFT 50%_part run – " : "EFT supplier run ", Day});
    case TBatchKind::Cheques:
      return Concat({Random.Percent(10) ? "Müller's cheques " : "Cheque run ", Day});
    case TBatchKind::Bills:
      return Concat({"Supplier invoices ", Day});
    case TBatchKind::Receivables:
      return Concat({"Customer receipts ", Day});
    case TBatchKind::OrderEntry:
      return Concat({"Invoicing ", Day});
    case TBatchKind::Inventory:
      return Fitted(Concat({"Stock issue: ", AnyWork(Random)}), 35);
    case TBatchKind::Ledger:
      break;
  }
  return Random.Percent(50) ? "Journal, wages & accruals" : "Journal \\ correction";
}

void AddLedgerLines(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("GL", Number);
  const TDate Day = BatchDate(Plan, Number);
  const std::int64_t Lines = Random.Between(2, 5);
  for (std::int64_t Line = 0; Line < Lines; ++Line) {
    // A batch that was entered overnight has lines of two days.
    const TDate LineDay = Number % 36 == 0 && Line == 0 ? Day + std::chrono::days{1} : Day;
    Rows.Add({BatchCode(Number), LineDay, PeriodOf(Day), SourceOf(BatchKind(Number)),
              static_cast<double>(Random.Between(-500'000, 500'000)) / 100});
  }
}

void AddPayablesLines(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  const std::string_view Type = BatchKind(Number) == TBatchKind::Bills ? "IN" : "PA";
  for (const TPayment& Payment : PaymentsOf(Plan, Number)) {
    Rows.Add({Payment.Vendor, Type, BatchCode(Number), static_cast<double>(Payment.Cents) / 100});
  }
}

void AddElectronicPayments(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("EFTDetails", Number);
  std::optional<TDate> Posted;
  if (Number == RoundSize / 2 || !Random.Percent(4)) {
    Posted = BatchDate(Plan, Number);
  }
  const bool Processed = Number != RoundSize / 2 && Random.Percent(60);
  for (const TPayment& Payment : PaymentsOf(Plan, Number)) {
    Rows.Add({BatchCode(Number), Payment.Vendor, Posted, static_cast<double>(Payment.Cents) / 100, Processed});
  }
}

}  // namespace

TBatchKind BatchKind(std::int64_t Number) {
  switch (Number % RoundSize) {
    case 0:
    case 6:
      return TBatchKind::ElectronicPayments;
    case 3:
      return TBatchKind::Cheques;
    case 9:
      return TBatchKind::Bills;
    case FirstReceivables:
    case 7:
      return TBatchKind::Receivables;
    case 2:
    case 8:
      return TBatchKind::Ledger;
    case 4:
    case 10:
      return TBatchKind::OrderEntry;
    default:
      return TBatchKind::Inventory;
  }
}

std::string BatchCode(std::int64_t Number) {
  return Padded(Number, 8);
}

TDate BatchDate(const TPlan& Plan, std::int64_t Number) {
  constexpr std::int64_t Days = 1500;
  return BaseDate - std::chrono::days{Days * (Plan.Batches - Number) / Plan.Batches};
}

std::string AnyReceivablesBatch(TRandom& Random, const TPlan& Plan) {
  return BatchCode(Random.Below(Plan.Batches / RoundSize) * RoundSize + FirstReceivables);
}

void WriteBatches(TFiller& Filler, const TPlan& Plan) {
  const auto ForEach = [&](TRows& Rows, auto IsWanted, auto Add) {
    for (std::int64_t Number = 1; Number <= Plan.Batches; ++Number) {
      if (IsWanted(BatchKind(Number))) {
        Add(Rows, Plan, Number);
      }
    }
  };
  const auto IsAny = [](TBatchKind) { return true; };
  const auto IsElectronic = [](TBatchKind Kind) { return Kind == TBatchKind::ElectronicPayments; };
  Filler.Fill("PstdGLBatch", {"Batch", "Period", "Desc", "Source", "Total"}, [&](TRows& Rows) {
    ForEach(Rows, IsAny, [](TRows& Out, const TPlan& P, std::int64_t Number) {
      Out.Add({BatchCode(Number), PeriodOf(BatchDate(P, Number)), DescriptionOf(P, Number), SourceOf(BatchKind(Number)),
               TotalOf(P, Number)});
    });
  });
  Filler.Fill("GL", {"Batch", "Date", "Period", "Source", "Amt"},
              [&](TRows& Rows) { ForEach(Rows, IsAny, AddLedgerLines); });
  Filler.Fill("AP", {"ID", "Type", "Batch", "Amt"}, [&](TRows& Rows) { ForEach(Rows, IsPayables, AddPayablesLines); });
  Filler.Fill("EFTDetails", {"Batch", "VendID", "Posted", "Amount", "Processed"}, [&](TRows& Rows) {
    ForEach(Rows, IsElectronic, AddElectronicPayments);
    // Sent to the bank, but not posted yet.
    Rows.Add({BatchCode(Plan.Batches + 1), VendorID(1), std::nullopt, 99.95, false});
  });
}

}  // namespace sample
