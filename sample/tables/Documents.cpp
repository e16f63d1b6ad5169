// Order-entry documents and their jobs.
#include "sample/tables/Documents.h"

#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Parties.h"
#include "sample/tables/Staff.h"
#include "sample/words/Goods.h"
#include "sample/words/Places.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

// Where the types stand in a round.
constexpr std::int64_t RoundSize = 50;
constexpr std::int64_t FirstMember = 1;
constexpr std::int64_t FirstQuote = 5;
constexpr std::int64_t FirstOrder = 10;
constexpr std::int64_t FirstInvoice = 27;
constexpr std::int64_t FirstOwnInvoice = 37;  // those before have the number of their order
constexpr std::int64_t FirstCredit = 44;
constexpr std::int64_t FirstReturn = 46;
constexpr std::int64_t ServicePlace = 48;
constexpr std::int64_t OrderOfInvoice = FirstInvoice - FirstOrder;  // so far before its invoice

std::string_view TypeAt(std::int64_t Place) {
  return Place < FirstMember     ? letters::Group
         : Place < FirstQuote    ? letters::Member
         : Place < FirstOrder    ? letters::Quote
         : Place < FirstInvoice  ? letters::Order
         : Place < FirstCredit   ? letters::Invoice
         : Place < FirstReturn   ? letters::Credit
         : Place < ServicePlace  ? letters::Return
         : Place == ServicePlace ? letters::Service
                                 : letters::Template;
}

/// In one round in ten the members have lost their group, so that there are groups without members, too.
bool IsBroken(std::int64_t Round) {
  return Round % 10 == 9;
}

std::optional<std::string> AnyJob(TRandom& Random, const TPlan& Plan, std::string_view Type) {
  const std::int64_t Share = Type == letters::Member ? 99 : Random.Below(100);
  if (Share < 8) {
    return std::nullopt;
  }
  if (Share < 10) {
    return "";
  }
  if (Share < 14) {
    return Concat({"9", Padded(Random.Below(100'000), 5)});  // of a job that was deleted
  }
  return JobNo(Random.Between(1, Plan.Jobs * 9 / 10));  // the newest jobs have no document yet
}

std::optional<double> Amount(std::int64_t Cents, bool Known) {
  return Known ? std::optional(static_cast<double>(Cents) / 100) : std::nullopt;
}

std::optional<std::string> AnyShipTo(TRandom& Random) {
  const std::int64_t Share = Random.Below(100);
  if (Share < 50) {
    return AnyStreetAddress(Random);
  }
  if (Share < 70) {
    return Fitted(Concat({"Attn: site office, ", AnyTown(Random)}), 35);
  }
  return Share < 85 ? std::optional<std::string>("") : std::nullopt;
}

void AddDocument(TRows& Rows, const TPlan& Plan, std::int64_t Position) {
  const TDocumentHead Head = DocumentAt(Plan, Position);
  TRandom Random = Plan.Chance("OE details", Position);
  std::optional<std::string_view> SalesMan;
  if (!Random.Percent(5)) {
    SalesMan = SalesmanName(Random.Below(SalesmanCount()));
  }
  Rows.Add({Head.Type, Head.Number, CustomerID(Head.Customer), Head.JobNo, Head.Date, Head.SubTotal, Head.Tax, SalesMan,
            AnyShipTo(Random), Random.Percent(55), Random.Percent(35), Random.Percent(30), Random.Percent(40)});
}

/// The members of one round's group, and what a look for members has to tell from them.
void AddGroup(TRows& Rows, const TPlan& Plan, std::int64_t Round) {
  const TDocumentHead Group = DocumentAt(Plan, Round * RoundSize);
  const std::string Customer = CustomerID(Group.Customer);
  for (std::int64_t Place = FirstMember; Place < FirstQuote; ++Place) {
    const TDocumentHead Member = DocumentAt(Plan, Round * RoundSize + Place);
    Rows.Add({Member.Number, Member.Type, Group.Number, Group.Type, Customer});
  }
  const TDocumentHead Quote = DocumentAt(Plan, Round * RoundSize + FirstQuote);
  Rows.Add({Quote.Number, Quote.Type, Group.Number, Group.Type, Customer});
  const TDocumentHead First = DocumentAt(Plan, Round * RoundSize + FirstMember);
  Rows.Add({First.Number, First.Type, Quote.Number, Quote.Type, Customer});
}

std::string JobDescription(const TPlan& Plan, std::int64_t Number) {
  static constexpr auto Odd = std::to_array<std::string_view>({
      "Smith's \"Dream\" kitchen",
      "Café counter – stage 1",
      "Stage_2 50% variation",
      "Lot 4\\5 re-roof",
      "Straßenbahn depot",
      "",
  });
  if (Number <= std::ssize(Odd)) {
    return std::string(Odd[static_cast<std::size_t>(Number - 1)]);
  }
  TRandom Random = Plan.Chance("Jobs", Number);
  return Fitted(Concat({AnyWork(Random), " ", AnyTown(Random)}), 25);
}

}  // namespace

std::string JobNo(std::int64_t Number) {
  return std::to_string(100'000 + Number);
}

TDocumentHead DocumentAt(const TPlan& Plan, std::int64_t Position) {
  const std::int64_t Place = Position % RoundSize;
  if (Place >= FirstInvoice && Place < FirstOwnInvoice) {
    TDocumentHead Head = DocumentAt(Plan, Position - OrderOfInvoice);
    Head.Type = letters::Invoice;
    return Head;
  }
  TRandom Random = Plan.Chance("OE", Position);
  TDocumentHead Head;
  Head.Type = TypeAt(Place);
  Head.Number = std::to_string(1'000'001 + Position);
  Head.Customer = AnyCustomer(Random, Plan);
  Head.JobNo = AnyJob(Random, Plan, Head.Type);
  const TDate Day = BaseDate - std::chrono::days{Random.Below(1500)};
  const std::int64_t Cents = Random.Between(500, Random.Percent(10) ? 9'000'000 : 400'000);
  const std::int64_t Sign = Head.Type == letters::Credit || Head.Type == letters::Return ? -1 : 1;
  Head.SubTotal = Amount(Sign * Cents, !Random.Percent(1));
  Head.Tax = Amount(Sign * ((Cents + 5) / 10), !Random.Percent(1));
  if (!Random.Percent(1)) {
    Head.Date = Day;
  }
  if (Head.Type == letters::Member && !IsBroken(Position / RoundSize)) {
    Head.Customer = DocumentAt(Plan, Position - Place).Customer;
  }
  return Head;
}

std::int64_t AnySale(TRandom& Random, const TPlan& Plan) {
  const std::int64_t Round = Random.Below(Plan.Documents / RoundSize);
  return Round * RoundSize + Random.Between(FirstOrder, FirstCredit - 1);
}

void WriteJobs(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Jobs", {"JobNo", "Desc"}, [&](TRows& Rows) {
    for (std::int64_t Number = 1; Number <= Plan.Jobs; ++Number) {
      Rows.Add({JobNo(Number), JobDescription(Plan, Number)});
    }
  });
}

void WriteDocuments(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("OE",
              {"Type", "Number", "ID", "JobNo", "Date", "SubTotal", "FedTax", "SalesMan", "ShipTo2", "Posted",
               "StockReturned", "Internal", "StockTrans"},
              [&](TRows& Rows) {
                for (std::int64_t Position = 0; Position < Plan.Documents; ++Position) {
                  AddDocument(Rows, Plan, Position);
                }
              });
  Filler.Fill("OEQuoteGrps", {"Quote", "QuoteType", "Parent", "ParentType", "Customer"}, [&](TRows& Rows) {
    for (std::int64_t Round = 0; Round < Plan.Documents / RoundSize; ++Round) {
      if (!IsBroken(Round)) {
        AddGroup(Rows, Plan, Round);
      }
    }
  });
}

}  // namespace sample
