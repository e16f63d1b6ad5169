#include "sample/tables/Periods.h"

#include "sample/tables/Codes.h"
#include "sample/tables/Company.h"
#include "sample/tables/Parties.h"
#include "sample/words/Text.h"

namespace sample {

namespace {

using std::chrono::days;
using std::chrono::last;
using std::chrono::month;
using std::chrono::months;
using std::chrono::year;
using std::chrono::year_month;
using std::chrono::year_month_day;

constexpr TDate LastClosed = year{2026} / std::chrono::March / 31;

/// The calendar month of a month of the financial year, 1 for July.
year_month CalendarMonth(int FinancialYear, int Month) {
  return year_month{year{FinancialYear - 1}, std::chrono::June} + months{Month};
}

std::string PeriodCode(int FinancialYear, int Month) {
  return Padded(FinancialYear % 100, 2) + Padded(Month, 2);
}

std::string RealPeriod(year_month Month) {
  return Padded(static_cast<int>(Month.year()), 4) + Padded(static_cast<unsigned>(Month.month()), 2);
}

void AddPeriod(TRows& Rows, int FinancialYear, int Month) {
  const year_month Real = CalendarMonth(FinancialYear, Month);
  const TDate Start = Real / 1;
  const TDate End = Real / last;
  std::optional<TDate> Closed;
  // One month in the middle was opened again for a correction.
  if (End <= LastClosed && PeriodCode(FinancialYear, Month) != "2507") {
    Closed = End + days{9 + Month};
  }
  Rows.Add({PeriodCode(FinancialYear, Month), Start, End, RealPeriod(Real), Closed});
}

void AddHistory(TRows& Rows, const TPlan& Plan, const std::string& Period) {
  for (std::int64_t Number = 1; Number <= Plan.AgedVendors; ++Number) {
    TRandom Random = Plan.Chance(Concat({"APAgeHist", Period}), Number);
    Rows.Add({Period, VendorID(Random.Between(1, Plan.Vendors)),
              static_cast<double>(Random.Between(-5'000, 900'000)) / 100});
  }
}

}  // namespace

std::string PeriodOf(TDate Date) {
  const year_month_day Day(Date);
  const int Month = static_cast<int>(static_cast<unsigned>(Day.month()));
  const bool SecondHalf = Month >= 7;
  return PeriodCode(static_cast<int>(Day.year()) + (SecondHalf ? 1 : 0), SecondHalf ? Month - 6 : Month + 6);
}

void WritePeriods(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Periods", {"Period", "Start", "End", "RealPeriod", "Closed"}, [](TRows& Rows) {
    for (int Year = FirstYear; Year <= LastYear; ++Year) {
      for (int Month = 1; Month <= 12; ++Month) {
        AddPeriod(Rows, Year, Month);
      }
    }
    // Adjustments after the year's end happen on no day.
    Rows.Add({PeriodCode(2026, 13), std::nullopt, std::nullopt, "202606", std::nullopt});
  });
  Filler.Fill("APAgeHist", {"Period", "VendID", "Balance"}, [&](TRows& Rows) {
    for (int Month = 1; Month <= 12; ++Month) {
      AddHistory(Rows, Plan, PeriodCode(2025, Month));
      AddHistory(Rows, Plan, PeriodCode(2026, Month));
    }
    AddHistory(Rows, Plan, PeriodCode(2018, 12));
  });
  Filler.Fill("IPHistParents", {"Period"}, [](TRows& Rows) {
    // The history reaches further back than the periods do.
    for (int Year = FirstYear - 2; Year <= 2026; ++Year) {
      for (int Month = 3; Month <= 12; Month += 3) {
        Rows.Add({PeriodCode(Year, Month)});
      }
    }
  });
}

}  // namespace sample
