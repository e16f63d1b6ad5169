#include "sample/store/Dates.h"

namespace sample {

std::string DateText(TDate Date) {
  const std::chrono::year_month_day Parts(Date);
  const auto Year = static_cast<unsigned>(static_cast<int>(Parts.year()));
  const auto Month = static_cast<unsigned>(Parts.month());
  const auto Day = static_cast<unsigned>(Parts.day());
  std::string Result = "0000-00-00";
  const auto Put = [&](std::size_t At, unsigned Number) {
    Result[At] = static_cast<char>('0' + Number / 10 % 10);
    Result[At + 1] = static_cast<char>('0' + Number % 10);
  };
  Put(0, Year / 100);
  Put(2, Year % 100);
  Put(5, Month);
  Put(8, Day);
  return Result;
}

}  // namespace sample
