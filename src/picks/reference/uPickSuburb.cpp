#include "picks/reference/uPickSuburb.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickSuburb {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickSuburb::TfrmPickSuburb() {
  Column(qryList_Suburb = TextField("Suburb", 30)).SetWidth(150);
}

void TfrmPickSuburb::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(96));
  SetAvailableCaption(LoadZULResString(364));
  SetLabels({{qryList_Suburb, 3200}});
  SetChoices({{qryList_Suburb, "UPPER(Suburb) SortFld", Contains("WHERE UPPER(Suburb)")}}, 0);
}

void TfrmPickSuburb::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT Suburb, ");
    Query.Add("FROM Suburb");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickSuburb::GetSuburb() const {
  return qryList_Suburb->AsString();
}

bool CallPickSuburb(ads::TAdsConnection* Connection, std::string& Suburb) {
  return pickbase::PickText(Suburb, &TfrmPickSuburb::GetSuburb, Connection);
}

}  // namespace uPickSuburb
