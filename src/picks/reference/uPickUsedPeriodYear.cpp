#include "picks/reference/uPickUsedPeriodYear.h"

#include "pickbase/PickCall.h"

namespace uPickUsedPeriodYear {

using uDocPickBase::TListQuery;

TfrmPickUsedPeriod::TfrmPickUsedPeriod() {
  Column(qryList_Year = TextField("Year", 4)).SetWidth(80).Align(toolkit::TAlignment::taRightJustify);
}

void TfrmPickUsedPeriod::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  qryList_Year->SetDisplayLabel("Year");
  SetPickCaption("Year");
  SetAvailableCaption("Years");
}

void TfrmPickUsedPeriod::SetSQL() {
  OpenPlainly([](TListQuery& Query) {
    Query.Add("SELECT DISTINCT SubString(RealPeriod, 1, 4) Year");
    Query.Add("FROM Periods");
    Query.Add("ORDER BY Year");
  });
}

std::string TfrmPickUsedPeriod::GetYear() const {
  return qryList_Year->AsString();
}

bool CallPickUsedPeriodYear(ads::TAdsConnection* Connection, std::string& Year) {
  return pickbase::PickText(Year, &TfrmPickUsedPeriod::GetYear, Connection);
}

}  // namespace uPickUsedPeriodYear
