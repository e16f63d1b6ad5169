#include "picks/reference/uPickItemPreset.h"

#include "pickbase/PickCall.h"

namespace uPickItemPreset {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;

TfrmPickItemPreset::TfrmPickItemPreset() {
  qryList_PresetID = AutoIncField("PresetID");
  Column(qryList_Descript = TextField("Descript", 35));
}

void TfrmPickItemPreset::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Descript, 3007}});
  SetAvailableCaption("Item Presets");
  SetPickCaption("Item Preset");
  SetChoices({{qryList_Descript, "UPPER(Descript) SortFLD", Contains("AND UPPER(Descript)")}}, 0);
}

void TfrmPickItemPreset::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT PresetID, Descript, ");
    Query.Add("FROM Presets");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::int32_t TfrmPickItemPreset::GetPreset() const {
  return qryList_PresetID->AsInteger();
}

bool CallPickItemPreset(ads::TAdsConnection* Connection, std::int32_t& Preset) {
  return pickbase::PickInteger(Preset, &TfrmPickItemPreset::GetPreset, Connection);
}

}  // namespace uPickItemPreset
