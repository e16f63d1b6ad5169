#include "picks/reference/uPickFinance.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickFinance {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickFinance::TfrmPickFinance() {
  qryList_Key = FloatField("Key");
  Column(qryList_Name = TextField("Name", 50)).SetWidth(150);
  Column(qryList_Percent = FloatField("Percent")).SetTitleAlignment(toolkit::TAlignment::taRightJustify);
  qryList_Percent->SetDisplayFormat("0.00");
}

void TfrmPickFinance::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(406));
  SetAvailableCaption(LoadZULResString(407));
  SetLabels({{qryList_Name, 3192}, {qryList_Percent, 3194}});
  SetChoices({{qryList_Name, "UPPER(Name) SortFld", Contains("AND UPPER(Name)")}}, 0);
}

void TfrmPickFinance::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT [Key], Name, Percent, ");
    Query.Add("FROM FinanceRates");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::int32_t TfrmPickFinance::GetFinanceKey() const {
  return qryList_Key->AsInteger();
}

bool CallPickFinanceRate(ads::TAdsConnection* Connection, std::int32_t& FinanceKey) {
  return pickbase::PickInteger(FinanceKey, &TfrmPickFinance::GetFinanceKey, Connection);
}

}  // namespace uPickFinance
