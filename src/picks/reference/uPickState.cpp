#include "picks/reference/uPickState.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickState {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickState::TfrmPickState() {
  Column(qryList_State = TextField("State", 5)).SetWidth(50);
}

void TfrmPickState::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(448));
  SetAvailableCaption(LoadZULResString(449));
  SetLabels({{qryList_State, 3223}});
  SetChoices({{qryList_State, "UPPER(State) SortFld", Contains("WHERE UPPER(State)")}}, 0);
}

void TfrmPickState::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT State, ");
    Query.Add("FROM State");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickState::GetState() const {
  return qryList_State->AsString();
}

bool CallPickState(ads::TAdsConnection* Connection, std::string& State) {
  return pickbase::PickText(State, &TfrmPickState::GetState, Connection);
}

}  // namespace uPickState
