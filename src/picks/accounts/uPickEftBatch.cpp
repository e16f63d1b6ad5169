#include "picks/accounts/uPickEftBatch.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickEftBatch {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickEFTBatch::TfrmPickEFTBatch() {
  Column(qryList_Batch = TextField("Batch", 8)).Align(TAlignment::taRightJustify);
  Column(qryList_Desc = TextField("Desc", 35)).SetWidth(150);
  Column(qryList_Posted = DateField("Posted")).SetAlignment(TAlignment::taCenter);
  Column(qryList_Total = FloatField("Total")).SetTitleAlignment(TAlignment::taRightJustify);
  NarrowColumn(qryList_Processed = BooleanField("Processed"));
  ckbProcessed = AddFilterBox("ckbProcessed", "Processed");
}

void TfrmPickEFTBatch::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Batch, 3079}, {qryList_Desc, 3007}, {qryList_Posted, 3209}, {qryList_Total, 3023}});
  qryList_Processed->SetDisplayLabel("P");
  qryList_Total->SetDisplayFormat(PriceFormat);
  SetChoices({{qryList_Batch, "UPPER(e.Batch) SortFld", Contains("AND UPPER(e.Batch)")},
              {qryList_Desc, "UPPER(p.[Desc]) SortFld", Contains("AND UPPER(p.[Desc])")},
              {qryList_Posted, "e.Posted SortFld", OnDate("AND e.Posted")}},
             1);
  SetAvailableCaption(LoadZULResString(311));
  SetPickCaption(LoadZULResString(215));
}

void TfrmPickEFTBatch::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT e.Batch, p.[Desc], e.Posted, SUM(e.Amount) Total, e.Processed, ");
    Query.Add("FROM EFTDetails e INNER JOIN PstdGLBatch p ON e.Batch = p.Batch");
    Query.Add("WHERE 0=0");
    if (!ckbProcessed->isChecked()) Query.Add("AND e.Processed = FALSE");
    Query.Keep();
    Query.Find();
    Query.Add("GROUP BY e.Batch, e.Posted, e.Processed, p.[Desc]");
    Query.OrderBy();
  });
}

std::string TfrmPickEFTBatch::GetBatchNo() const {
  return qryList_Batch->AsString();
}

bool CallEFTBatchPick(ads::TAdsConnection* Connection, std::string& BatchNo) {
  return pickbase::PickText(BatchNo, &TfrmPickEFTBatch::GetBatchNo, Connection);
}

}  // namespace uPickEftBatch
