#include "picks/reference/uPickItemFactorPreset.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickItemFactorPreset {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickItemFactorPreset::TfrmPickItemFactorPreset() {
  qryList_ID = AutoIncField("ID");
  Column(qryList_Description = TextField("Description", 50));
}

void TfrmPickItemFactorPreset::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Description, 3007}});
  SetChoices({{qryList_Description, "UPPER(Description) SortFLD", Contains("AND UPPER(Description)")}}, 0);
  SetPickCaption(LoadZULResString(523));
  SetAvailableCaption(LoadZULResString(524));
}

void TfrmPickItemFactorPreset::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT ID, Description, ");
    Query.Add("FROM ItemFactorPresets");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy("SortFLD");
  });
}

std::int32_t TfrmPickItemFactorPreset::GetID() const {
  return qryList_ID->AsInteger();
}

bool CallPickItemFactor(ads::TAdsConnection* Connection, std::int32_t& ID) {
  return pickbase::PickInteger(ID, &TfrmPickItemFactorPreset::GetID, Connection);
}

}  // namespace uPickItemFactorPreset
