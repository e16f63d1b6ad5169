#include "picks/reference/uPickCutLocations.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickCutLocations {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickCutLocations::TfrmPickCutLocations() {
  Column(qryList_Desc = TextField("Desc", 30)).SetWidth(150);
}

void TfrmPickCutLocations::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(392));
  SetAvailableCaption(LoadZULResString(446));
  SetLabels({{qryList_Desc, 3156}});
  SetChoices({{qryList_Desc, "UPPER([Desc]) SortFld", Contains("WHERE UPPER([Desc])")}}, 0);
}

void TfrmPickCutLocations::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT [Desc], ");
    Query.Add("FROM Location");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickCutLocations::GetCutLoc() const {
  return qryList_Desc->AsString();
}

bool CallPickCutLoc(ads::TAdsConnection* Connection, std::string& CutLoc) {
  return pickbase::PickText(CutLoc, &TfrmPickCutLocations::GetCutLoc, Connection);
}

}  // namespace uPickCutLocations
