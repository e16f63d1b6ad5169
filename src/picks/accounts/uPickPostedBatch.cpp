#include "picks/accounts/uPickPostedBatch.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"

namespace uPickPostedBatch {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;

TfrmPickPostedBatch::TfrmPickPostedBatch() {
  Column(qryList_Batch = TextField("Batch", 8)).Align(TAlignment::taRightJustify);
  Column(qryList_Period = TextField("Period", 4)).Align(TAlignment::taRightJustify);
  Column(qryList_Desc = TextField("Desc", 35)).SetWidth(150);
  Column(qryList_Source = TextField("Source", 2));
  Column(qryList_Total = FloatField("Total")).SetTitleAlignment(TAlignment::taRightJustify);
}

void TfrmPickPostedBatch::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Batch, 3079},
             {qryList_Period, 3054},
             {qryList_Desc, 3007},
             {qryList_Source, 3139},
             {qryList_Total, 3023}});
  qryList_Total->SetDisplayFormat(PriceFormat);
  SetChoices({{qryList_Batch, "UPPER(P.[Batch]) SortFld", Contains("AND UPPER(P.Batch)")},
              {qryList_Period, "UPPER(P.[Period]) SortFld", Contains("AND UPPER(P.Period)")},
              {qryList_Desc, "UPPER(P.[Desc]) SortFld", Contains("AND UPPER(P.[Desc])")},
              {qryList_Source, "UPPER(P.[Source]) SortFld", Contains("AND UPPER(P.Source)")}},
             0);
  ckbDesc->setChecked(true);
  SetAvailableCaption("Posted Batchs");
  SetPickCaption("Posted Batch");
}

void TfrmPickPostedBatch::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT P.[Batch], P.Period, P.[Desc], P.Source, P.Total, ");
    Query.Add("FROM PstdGLBatch P");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickPostedBatch::GetBatch() const {
  return qryList_Batch->AsString();
}

bool CallPickPostedBatch(ads::TAdsConnection* Connection, std::string& Batch) {
  return pickbase::PickText(Batch, &TfrmPickPostedBatch::GetBatch, Connection);
}

}  // namespace uPickPostedBatch
