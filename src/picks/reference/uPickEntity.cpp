#include "picks/reference/uPickEntity.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickEntity {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickEntity::TfrmPickEntity() {
  Column(qryList_Entity = TextField("Entity", 4));
  Column(qryList_Desc = TextField("Desc", 50)).SetWidth(150);
  NarrowColumn(qryList_OEDefault = BooleanField("OEDefault"));
}

void TfrmPickEntity::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(90));
  SetAvailableCaption(LoadZULResString(81));
  SetLabels({{qryList_Entity, 3006}, {qryList_Desc, 3007}, {qryList_OEDefault, 3195}});
  SetChoices({{qryList_Entity, "UPPER(E.Entity) SortFld", Contains("AND UPPER(E.Entity)")},
              {qryList_Desc, "UPPER(E.[Desc]) SortFld", Contains("AND UPPER(E.[Desc])")}},
             1);
}

void TfrmPickEntity::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT E.Entity, E.[Desc], E.OEDefault, ");
    Query.Add("FROM Entity E");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickEntity::GetEntity() const {
  return qryList_Entity->AsString();
}

bool CallPickEntity(ads::TAdsConnection* Connection, std::string& Entity) {
  return pickbase::PickText(Entity, &TfrmPickEntity::GetEntity, Connection);
}

std::string CallPickEntity(ads::TAdsConnection* Connection) {
  std::string Entity;
  CallPickEntity(Connection, Entity);
  return Entity;
}

}  // namespace uPickEntity
