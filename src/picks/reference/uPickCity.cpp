#include "picks/reference/uPickCity.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickCity {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickCity::TfrmPickCity() {
  Column(qryList_Zip = TextField("Zip", 30)).SetWidth(120);
}

void TfrmPickCity::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(97));
  SetAvailableCaption(LoadZULResString(366));
  SetLabels({{qryList_Zip, 3059}});
  SetChoices({{qryList_Zip, "UPPER(Zip) SortFld", Contains("WHERE UPPER(Zip)")}}, 0);
}

void TfrmPickCity::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT Zip, ");
    Query.Add("FROM Area");
    Query.Keep();
    Query.FindAlways(Choices()[0].Find);
    Query.OrderBy();
  });
}

std::string TfrmPickCity::GetCity() const {
  return qryList_Zip->AsString();
}

bool CallPickCity(ads::TAdsConnection* Connection, std::string& Zip) {
  return pickbase::PickText(Zip, &TfrmPickCity::GetCity, Connection);
}

}  // namespace uPickCity
