#include "picks/reference/uPickPeriods.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickPeriods {

using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickPeriods::TfrmPickPeriods(bool IncludeClosed) : IncludeClosed_(IncludeClosed) {}

void TfrmPickPeriods::SetUpColumns() {
  TPeriodPickBase::SetUpColumns();
  SetAvailableCaption(LoadZULResString(214));
  SetPickCaption(LoadZULResString(153));
  SetChoices({{qryList_Period, "UPPER(P.Period) SortFld", Contains("AND UPPER(P.Period)")},
              {qryList_Start, "P.[Start] SortFld", OnDate("AND P.[Start]")},
              {qryList_End, "P.[End] SortFld", OnDate("AND P.[End]")}},
             0);
  ckbDesc->setChecked(true);
}

void TfrmPickPeriods::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT P.Period, P.[Start], P.[End], ");
    Query.Add("FROM Periods P");
    Query.Add("WHERE 0=0");
    if (!IncludeClosed_) Query.Add("AND Closed IS NULL");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

bool CallPickPeriod(ads::TAdsConnection* Connection, bool IncludeClosed, std::string& Period) {
  return pickbase::PickText<TfrmPickPeriods>(Period, &TfrmPickPeriods::GetPeriod, Connection, IncludeClosed);
}

}  // namespace uPickPeriods
