#include "picks/reference/uPickMultiUsers.h"

#include <stdexcept>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickMultiUsers {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickMultiUsers::TfrmPickMultiUsers() {
  Column(qryList_UserName = TextField("UserName", 10));
  Column(qryList_DisplayNm = TextField("DisplayNm", 30));
  PutTickedLast();
}

void TfrmPickMultiUsers::SetUpColumns() {
  TDocPickMultiBase::SetUpColumns();
  SetLabels({{qryList_UserName, 3013}, {qryList_DisplayNm, 3014}});
  SetChoices({{qryList_UserName, "UPPER(n.UserName) SortFld", Contains("WHERE UPPER(n.UserName)")},
              {qryList_DisplayNm, "UPPER(n.DisplayNm) SortFld", Contains("WHERE UPPER(n.DisplayNm)")}},
             1);
  SetPickCaption(LoadZULResString(454));
  SetAvailableCaption(LoadZULResString(454));
}

void TfrmPickMultiUsers::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT n.UserName, n.DisplayNm, ");
    Query.Add("FROM Names n");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickMultiUsers::GetPicked(toolkit::TStringList* Picked) {
  if (Picked == nullptr) throw std::invalid_argument("The picked users need a list to go to.");
  Picked->Clear();
  WalkTicked([&] { Picked->Add(qryList_UserName->AsString()); });
}

bool CallMultiUsersPick(toolkit::TStringList* Picked, ads::TAdsConnection* Connection) {
  return pickbase::Pick<TfrmPickMultiUsers>([&](TfrmPickMultiUsers& Dialog) { Dialog.GetPicked(Picked); }, Connection);
}

}  // namespace uPickMultiUsers
