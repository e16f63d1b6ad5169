#include "sample/words/Places.h"

#include "sample/tables/Company.h"
#include "sample/tables/Parties.h"

namespace sample {

std::string AreaZip(const TPlan& Plan, std::int64_t Number) {
  return Postcode(Number * PostcodeCount() / Plan.Areas);
}

void WritePlaces(TFiller& Filler, const TPlan& Plan) {
  Filler.Fill("Area", {"Zip"}, [&](TRows& Rows) {
    for (std::int64_t Number = 0; Number < Plan.Areas; ++Number) {
      Rows.Add({AreaZip(Plan, Number)});
    }
  });
  Filler.Fill("Suburb", {"Suburb"}, [&](TRows& Rows) {
    for (std::int64_t Number = 0; Number < Plan.Suburbs; ++Number) {
      Rows.Add({SuburbName(Number)});
    }
  });
}

}  // namespace sample
