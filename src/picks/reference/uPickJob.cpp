#include "picks/reference/uPickJob.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickJob {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickJob::TfrmPickJob() {
  Column(qryList_JobNo = TextField("JobNo", 6)).Align(toolkit::TAlignment::taRightJustify);
  Column(qryList_Desc = TextField("Desc", 25)).SetWidth(150);
}

void TfrmPickJob::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(152));
  SetAvailableCaption(LoadZULResString(426));
  SetLabels({{qryList_JobNo, 3000}, {qryList_Desc, 3001}});
  SetChoices({{qryList_JobNo, "UPPER(j.JobNo) SortFld", Contains("WHERE UPPER(j.JobNo)")},
              {qryList_Desc, "UPPER(j.[Desc]) SortFld", Contains("WHERE UPPER(j.[Desc])")}},
             1);
}

void TfrmPickJob::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT j.JobNo, j.[Desc], ");
    Query.Add("FROM Jobs j");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickJob::GetJobNo() const {
  return qryList_JobNo->AsString();
}

bool CallPickJobNo(ads::TAdsConnection* Connection, std::string& JobNo) {
  return pickbase::PickText(JobNo, &TfrmPickJob::GetJobNo, Connection);
}

}  // namespace uPickJob
