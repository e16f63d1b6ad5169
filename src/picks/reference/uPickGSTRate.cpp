#include "picks/reference/uPickGSTRate.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickGSTRate {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickGSTRate::TfrmPickGSTRate() {
  Column(qryList_ID = TextField("ID", 3));
  Column(qryList_TaxDesc = TextField("TaxDesc", 15));
  Column(qryList_Rate = FloatField("Rate")).SetTitleAlignment(toolkit::TAlignment::taRightJustify);
}

void TfrmPickGSTRate::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(258));
  SetAvailableCaption(LoadZULResString(260));
  SetLabels({{qryList_ID, 3127}, {qryList_TaxDesc, 3128}, {qryList_Rate, 3129}});
  qryList_Rate->SetDisplayFormat(PriceFormat);
  SetChoices({{qryList_ID, "UPPER(g.ID) SortFld", Contains("AND UPPER(g.ID)")},
              {qryList_TaxDesc, "UPPER(g.TaxDesc) SortFld", Contains("AND UPPER(g.TaxDesc)")}},
             1);
}

void TfrmPickGSTRate::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT g.ID, g.TaxDesc, g.Rate, ");
    Query.Add("FROM GSTRates G");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickGSTRate::GetGSTRate() const {
  return qryList_ID->AsString();
}

bool CallPickGSTRate(ads::TAdsConnection* Connection, std::string& GSTRate) {
  return pickbase::PickText(GSTRate, &TfrmPickGSTRate::GetGSTRate, Connection);
}

}  // namespace uPickGSTRate
