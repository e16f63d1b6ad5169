#include "picks/reference/uPickItemHistPeriod.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickItemHistPeriod {

using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickItemHistPeriod::TfrmPickItemHistPeriod() = default;

void TfrmPickItemHistPeriod::SetUpColumns() {
  TPeriodPickBase::SetUpColumns();
  SetAvailableCaption(LoadZULResString(214));
  SetPickCaption(LoadZULResString(153));
  // The second order's comma and the searches in the history's own dates are meant so.
  SetChoices({{qryList_Period, "UPPER(I.Period) SortFld", Contains("AND UPPER(I.Period)")},
              {qryList_Start, "P.Start, SortFld", OnDate("AND I.Start")},
              {qryList_End, "P.[End] SortFld", OnDate("AND I.[End]")}},
             0);
}

void TfrmPickItemHistPeriod::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT I.Period, P.Start, P.[End], ");
    Query.Add("FROM IPHistParents I LEFT OUTER JOIN Periods P ON I.Period = P.Period");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

bool CallPickItemHistPeriod(ads::TAdsConnection* Connection, std::string& Period) {
  return pickbase::PickText<TfrmPickItemHistPeriod>(Period, &TfrmPickItemHistPeriod::GetPeriod, Connection);
}

}  // namespace uPickItemHistPeriod
