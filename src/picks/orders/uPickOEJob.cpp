#include "picks/orders/uPickOEJob.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickOEJob {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickOEJob::TfrmPickOEJob() {
  Column(qryList_JobNo = TextField("JobNo", 6)).Align(TAlignment::taRightJustify);
  Column(qryList_Desc = TextField("Desc", 25)).SetWidth(120);
  NarrowColumn(qryList_Type = TextField("Type", 1));
  Column(qryList_Number = TextField("Number", 8)).Align(TAlignment::taRightJustify);
}

void TfrmPickOEJob::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(152));
  SetAvailableCaption(LoadZULResString(426));
  SetLabels({{qryList_JobNo, 3000}, {qryList_Desc, 3001}, {qryList_Type, 3147}, {qryList_Number, 3021}});
  SetChoices({{qryList_JobNo, "UPPER(j.JobNo) SortFld", Contains("AND UPPER(j.JobNo)")},
              {qryList_Desc, "UPPER(j.[Desc]) SortFld", Contains("AND UPPER(j.[Desc])")},
              {qryList_Type, LoadZULResString(3022), "UPPER(o.Type) SortFld", Contains("AND UPPER(o.Type)")},
              {qryList_Number, "UPPER(o.Number) SortFld", Contains("AND UPPER(o.Number)")}},
             1);
}

void TfrmPickOEJob::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT j.JobNo, j.[Desc], o.Type, o.Number, ");
    Query.Add("FROM Jobs j LEFT OUTER JOIN OE o ON (j.JobNo = o.JobNo)");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickOEJob::GetJobNo() const {
  return qryList_JobNo->AsString();
}

bool CallPickOEJob(ads::TAdsConnection* Connection, std::string& JobNo) {
  return pickbase::PickText(JobNo, &TfrmPickOEJob::GetJobNo, Connection);
}

}  // namespace uPickOEJob
