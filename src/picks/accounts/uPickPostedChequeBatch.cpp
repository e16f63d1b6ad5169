#include "picks/accounts/uPickPostedChequeBatch.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickPostedChequeBatch {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickPostedChequeBatch::TfrmPickPostedChequeBatch() {
  Column(qryList_Batch = TextField("Batch", 8)).Align(TAlignment::taRightJustify);
  Column(qryList_Date = DateField("Date")).Align(TAlignment::taCenter);
  Column(qryList_Period = TextField("Period", 4));
  Column(qryList_Desc = TextField("Desc", 35)).SetWidth(120);
  Column(qryList_Total = FloatField("Total")).SetTitleAlignment(TAlignment::taRightJustify);
}

void TfrmPickPostedChequeBatch::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Batch, 3079},
             {qryList_Date, 3002},
             {qryList_Period, 3054},
             {qryList_Desc, 3007},
             {qryList_Total, 3023}});
  qryList_Total->SetDisplayFormat(PriceFormat);
  SetChoices({{qryList_Batch, "UPPER(p.Batch) SortFld", Contains("AND UPPER(p.Batch)")},
              {qryList_Date, "g.[Date] SortFld", OnDate("AND g.[Date]")},
              {qryList_Desc, "UPPER(p.[Desc]) SortFld", Contains("AND UPPER(p.[Desc])")}},
             2);
  SetPickCaption(LoadZULResString(215));
  SetAvailableCaption(LoadZULResString(311));
}

void TfrmPickPostedChequeBatch::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT p.Batch, g.[Date], g.Period, p.[Desc], p.Total, ");
    Query.Add("FROM GL g");
    Query.Add("INNER JOIN AP a ON g.Batch = a.Batch");
    Query.Add("  INNER JOIN PstdGLBatch p ON g.Batch = p.Batch");
    Query.Add("WHERE g.Source = 'AP'");
    Query.Add("AND a.Type = 'PA'");
    Query.Keep();
    Query.Find();
    Query.Add("GROUP BY p.Batch, g.[Date], g.Period, p.[Desc], p.Total");
    Query.OrderBy();
  });
}

std::string TfrmPickPostedChequeBatch::GetBatch() const {
  return qryList_Batch->AsString();
}

bool CallPickPostedChequeBatch(ads::TAdsConnection* Connection, std::string& Batch) {
  return pickbase::PickText(Batch, &TfrmPickPostedChequeBatch::GetBatch, Connection);
}

}  // namespace uPickPostedChequeBatch
