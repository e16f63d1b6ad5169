#include "picks/reference/uPickTerms.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickTerms {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickTerms::TfrmPickTerms() {
  Column(qryList_Desc = TextField("Desc", 35)).SetWidth(150);
  NarrowColumn(qryList_Default = BooleanField("Default"));
}

void TfrmPickTerms::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(67));
  SetAvailableCaption(LoadZULResString(67));
  SetLabels({{qryList_Desc, 3007}, {qryList_Default, 3195}});
  SetChoices({{qryList_Desc, "UPPER([Desc]) SortFld", Contains("AND UPPER([Desc])")}}, 0);
}

void TfrmPickTerms::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT [Desc], [Default], ");
    Query.Add("FROM Terms");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickTerms::GetTerms() const {
  return qryList_Desc->AsString();
}

bool CallPickTerms(ads::TAdsConnection* Connection, std::string& Terms) {
  return pickbase::PickText(Terms, &TfrmPickTerms::GetTerms, Connection);
}

}  // namespace uPickTerms
