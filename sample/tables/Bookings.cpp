// Bookings of vendors, and the payables batches that are being entered for them.
#include <array>

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Documents.h"
#include "sample/tables/Parties.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

using std::chrono::days;
using TText = std::optional<std::string>;

struct TBooking {
  TText Customer;
  TText Prospect;
  std::optional<TDate> Begin;
  std::optional<TDate> End;
  std::optional<int> Start;
  std::optional<int> Finish;
  TText DocumentNumber;
  TText DocumentType;
};

/// Days and hours that are easily got wrong; those of the other bookings are left to chance.
bool SetOddTimes(TBooking& Booking, std::int64_t Number) {
  struct TTimes {
    int Days;
    std::optional<int> Start;
    std::optional<int> Finish;
  };
  static constexpr auto Odd = std::to_array<TTimes>({
      {3, 480, 1020},  // 27 hours
      {1, 540, 540},   // none
      {1, 605, 1439},  // from 10:05
      {2, 1020, 480},  // finishes before it starts
      {1, 0, 1},       // a minute
      {1, std::nullopt, 1020},
      {1, 480, std::nullopt},
      {0, 480, 1020},  // ends the day before it begins
  });
  if (Number > std::ssize(Odd)) {
    return false;
  }
  const TTimes& Times = Odd[static_cast<std::size_t>(Number - 1)];
  Booking.Begin = BaseDate + days{Number};
  Booking.End = *Booking.Begin + days{Times.Days - 1};
  Booking.Start = Times.Start;
  Booking.Finish = Times.Finish;
  return true;
}

void SetAnyTimes(TBooking& Booking, TRandom& Random) {
  const TDate Begin = BaseDate - days{300} + days{Random.Below(400)};
  if (!Random.Percent(3)) {
    Booking.Begin = Begin;
  }
  if (!Random.Percent(3)) {
    Booking.End = Begin + days{Random.Below(5)};
  }
  Booking.Start = static_cast<int>(Random.Between(24, 40)) * 15;
  Booking.Finish = *Booking.Start + static_cast<int>(Random.Between(4, 36)) * 15;
}

/// Most are for a customer, with or without a document; many for a prospect.
void SetParty(TBooking& Booking, const TPlan& Plan, TRandom& Random, std::int64_t Number) {
  const std::int64_t Share = Number <= 4 ? 0 : Random.Below(100);
  if (Share < 70) {
    const TDocumentHead Document = DocumentAt(Plan, AnySale(Random, Plan));
    Booking.Customer = CustomerID(Document.Customer);
    if (Share < 50) {
      Booking.DocumentNumber = Share == 49 ? std::string(NoDocument) : Document.Number;
      Booking.DocumentType = Document.Type;
    }
  } else if (Share < 96) {
    Booking.Prospect = ProspectID(Random.Between(1, Plan.Prospects));
  } else if (Share < 98) {  // a prospect who became a customer meanwhile
    Booking.Customer = CustomerID(AnyCustomer(Random, Plan));
    Booking.Prospect = ProspectID(Random.Between(1, Plan.Prospects));
  }
}

std::string BookingID(std::int64_t Number) {
  return LetterCode('B', Number);
}

void AddBooking(TRows& Rows, const TPlan& Plan, std::int64_t Number) {
  TRandom Random = Plan.Chance("Booking", Number);
  TBooking Booking;
  SetParty(Booking, Plan, Random, Number);
  if (!SetOddTimes(Booking, Number)) {
    SetAnyTimes(Booking, Random);
  }
  // Contractors, and rather often the first two.
  const std::int64_t Contractor = 5 * Random.Between(1, Random.Percent(10) ? 2 : Plan.Vendors / 5);
  Rows.Add({BookingID(Number), VendorID(Contractor), Booking.Customer, Booking.Prospect, Booking.Begin, Booking.End,
            Booking.Start, Booking.Finish, Booking.DocumentNumber, Booking.DocumentType, Random.Percent(40)});
}

}  // namespace

void WriteBookings(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Booking",
              {"ID", "VendID", "CustID", "ProspectID", "BegDate", "EndDate", "StartTime", "FinishTime", "OEInv", "OEDT",
               "PaidFor"},
              [&](TRows& Rows) {
                for (std::int64_t Number = 1; Number <= Plan.Bookings; ++Number) {
                  AddBooking(Rows, Plan, Number);
                }
              });
  Filler.Fill("APBtchDT", {"Batch", "BookingID"}, [&](TRows& Rows) {
    for (std::int64_t Number = 4; Number <= Plan.Bookings; Number += 4) {
      const std::string Batch = Concat({"E", Padded(Number / 20 + 1, 7)});
      Rows.Add({Batch, BookingID(Number)});
      Rows.Add({Batch, std::nullopt});  // a bill that has nothing to do with a booking
      if (Number % 12 == 0) {
        Rows.Add({Batch, BookingID(Number)});
      }
    }
  });
}

}  // namespace sample
