#include "picks/reference/uPickAPAgeHist.h"

#include "pickbase/PickCall.h"

namespace uPickAPAgeHist {

using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;

TfrmPickAPAgeHist::TfrmPickAPAgeHist() = default;

void TfrmPickAPAgeHist::SetUpColumns() {
  TPeriodPickBase::SetUpColumns();
  SetPickCaption("Aging History Period");
  SetAvailableCaption("Aging History Periods");
  SetChoices({{qryList_Period, "UPPER(P.Period) SortFld", Contains("AND UPPER(P.Period)")},
              {qryList_Start, "P.Start SortFld", OnDate("AND P.Start")},
              {qryList_End, "P.[End] SortFld", OnDate("AND P.[End]")}},
             0);
}

void TfrmPickAPAgeHist::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT P.Period, P.Start, P.[End], ");
    Query.Add("FROM Periods P INNER JOIN APAgeHist H ON P.Period = H.Period");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    // A period has one row of history a vendor.
    Query.Add("GROUP BY P.Period, P.Start, P.[End]");
    Query.OrderBy("SortFld", true);
  });
}

bool CallAPAgeHistPeriodPick(ads::TAdsConnection* Connection, std::string& Period) {
  return pickbase::PickTextInOut<TfrmPickAPAgeHist>(Period, &TfrmPickAPAgeHist::GetPeriod, Connection);
}

}  // namespace uPickAPAgeHist
