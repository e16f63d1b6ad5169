// Purchase orders and the extras that their lines can carry.
#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Documents.h"
#include "sample/tables/Parties.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

using TText = std::optional<std::string>;
using TLetter = std::optional<std::string_view>;

struct TFlags {
  bool Posted = false;
  bool Closed = false;
  bool Receipted = false;
  bool Cancelled = false;
  bool Paid = false;
};

// Of these the first orders have every one, so that each state and each kind can be looked for.
constexpr std::int64_t FlagCombinations = 32;
constexpr auto Kinds = std::to_array<TLetter>({"P", "M", std::nullopt});
constexpr std::int64_t EveryCombination = FlagCombinations * std::ssize(Kinds);

constexpr std::string_view VanishedVendor = "V9X9X9";

TFlags FlagsOf(std::int64_t Combination) {
  const auto Has = [&](std::int64_t Bit) { return Combination / Bit % 2 == 1; };
  return {Has(1), Has(2), Has(4), Has(8), Has(16)};
}

/// How far an order has come: each step mostly follows the one before.
TFlags AnyFlags(TRandom& Random) {
  TFlags Flags;
  Flags.Posted = Random.Percent(85);
  Flags.Receipted = Flags.Posted && Random.Percent(75);
  Flags.Closed = Flags.Receipted && Random.Percent(70);
  Flags.Paid = Flags.Closed && Random.Percent(70);
  Flags.Cancelled = Random.Percent(4);
  return Flags;
}

TLetter AnyKind(TRandom& Random) {
  const std::int64_t Share = Random.Below(100);
  return Share < 45 ? Kinds[0] : Share < 55 ? Kinds[1] : Share < 99 ? Kinds[2] : TLetter("");
}

struct TOrder {
  TLetter Kind;
  TFlags Flags;
  TText Vendor;
  TText Customer;
  TText DocumentNumber;
  TText DocumentType;
};

/// Customer orders come from a document; some of the others do, too, and a few customer orders have lost theirs.
void SetSource(TOrder& Order, const TPlan& Plan, TRandom& Random) {
  const bool ForCustomer = Order.Kind == TLetter("P");
  const std::int64_t Share = Random.Below(100);
  if (ForCustomer ? Share < 92 : Share < 10) {
    const TDocumentHead Document = DocumentAt(Plan, AnySale(Random, Plan));
    Order.Customer = CustomerID(Document.Customer);
    Order.DocumentNumber = Share == 0 ? std::string(NoDocument) : Document.Number;
    Order.DocumentType = Document.Type;
  } else if (ForCustomer && Share < 96) {
    Order.Customer = CustomerID(AnyCustomer(Random, Plan));
  }
}

TOrder OrderAt(const TPlan& Plan, TRandom& Random, std::int64_t Number) {
  TOrder Order;
  if (Number <= EveryCombination) {
    Order.Flags = FlagsOf((Number - 1) % FlagCombinations);
    Order.Kind = Kinds[static_cast<std::size_t>((Number - 1) / FlagCombinations)];
  } else {
    Order.Flags = AnyFlags(Random);
    Order.Kind = AnyKind(Random);
  }
  SetSource(Order, Plan, Random);
  // A tenth goes to the first ten vendors.
  const std::int64_t Vendor = Random.Between(1, Random.Percent(10) ? 10 : Plan.Vendors);
  Order.Vendor = Number == EveryCombination + 1 ? std::string(VanishedVendor) : VendorID(Vendor);
  return Order;
}

void AddOrder(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("IP", Number);
  const TOrder Order = OrderAt(Plan, Random, Number);
  const TDate Day = BaseDate - std::chrono::days{Random.Below(1500)};
  const std::int64_t Cents = Random.Between(1'000, 3'000'000);
  // Freight and metal surcharges leave fractions of a cent.
  const double Cost = static_cast<double>(Cents * 100 + (Random.Percent(20) ? Random.Below(100) : 0)) / 10'000;
  const std::optional<double> Tax =
      Random.Percent(2) ? std::nullopt : std::optional(static_cast<double>((Cents + 5) / 10) / 100);
  Rows.Add({Concat({"P", std::to_string(100'000 + Number)}), Day, Order.Vendor, Order.Customer, Order.DocumentNumber,
            Order.DocumentType, Order.Kind, Order.Flags.Posted, Order.Flags.Closed, Order.Flags.Receipted,
            Order.Flags.Cancelled, Order.Flags.Paid, Random.Percent(12), Cost, Tax});
}

struct TExtra {
  std::string_view Description;
  double Cost;
};
constexpr auto Extras = std::to_array<TExtra>({
    {"Freight", 45.0},
    {"Pallet charge", 18.5},
    {"Crane hire", 220.0},
    {"Cutting fee", 12.25},
    {"Fuel levy 2.5%", 0.0},
    {"Driver's assistant", 38.4},
    {"Edge_banding", 6.125},
    {"Rebate", -15.0},
    {"Gütesiegel", 3.3333},
    {"Tail lift", 25.0},
});

void AddExtras(TRows& Rows, const TPlan& Plan) {
  for (const TExtra& Extra : Extras) {
    Rows.Add({Extra.Description, Extra.Cost, std::nullopt});
  }
  Rows.Add({"Nobody's extra", 1.0, ""});
  for (std::int64_t Number = 0; Number < Plan.VendorExtras; ++Number) {
    TRandom Random = Plan.Chance("IPDetExtraMaster", Number);
    const TExtra& Extra = Extras[static_cast<std::size_t>(Random.Below(std::ssize(Extras)))];
    // Two for each of the vendors that have their own.
    Rows.Add({Concat({Extra.Description, Number % 2 == 0 ? " - metro" : " - rural"}),
              Extra.Cost + static_cast<double>(Random.Below(4'000)) / 100, VendorID(Number / 2 + 1)});
  }
}

}  // namespace

void WritePurchaseOrders(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("IP",
              {"Number", "Date", "ID", "CustID", "PONumber", "POType", "Type", "Posted", "Closed", "POReceipt",
               "Canceled", "APDocket", "RMA", "Cost", "FedTax"},
              [&](TRows& Rows) {
                for (std::int64_t Number = 1; Number <= Plan.PurchaseOrders; ++Number) {
                  AddOrder(Rows, Plan, Number);
                }
              });
  Filler.Fill("IPDetExtraMaster", {"Descript", "Cost", "VendID"}, [&](TRows& Rows) { AddExtras(Rows, Plan); });
}

}  // namespace sample
