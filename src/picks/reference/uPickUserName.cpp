#include "picks/reference/uPickUserName.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickUserName {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickUserName::TfrmPickUserName(std::string Entity) : Entity_(std::move(Entity)) {
  Column(qryList_UserName = TextField("UserName", 10));
  Column(qryList_DisplayNM = TextField("DisplayNM", 30)).SetWidth(150);
  NarrowColumn(qryList_Inactive = BooleanField("Inactive"));
  ckbInactive = AddFilterBox("ckbInactive", "Inactive");
}

void TfrmPickUserName::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetAvailableCaption(LoadZULResString(454));
  SetPickCaption(LoadZULResString(572));
  SetLabels({{qryList_UserName, 3013}, {qryList_DisplayNM, 3014}});
  qryList_Inactive->SetDisplayLabel("I");
  SetChoices({{qryList_UserName, "UPPER(UserName) SortFld", Contains("AND UPPER(UserName)")},
              {qryList_DisplayNM, "UPPER(DisplayNM) SortFld", Contains("AND UPPER(DisplayNM)")}},
             1);
}

void TfrmPickUserName::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT UserName, DisplayNM, Inactive, ");
    Query.Add("FROM Names");
    Query.Add("WHERE 0=0");
    if (!Entity_.empty()) Query.Add("AND Entity = '" + Query.Passed(Entity_) + "'");
    if (!ckbInactive->isChecked()) Query.Add("AND InActive = FALSE");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickUserName::GetUserName() const {
  return qryList_UserName->AsString();
}

bool CallPickUser(ads::TAdsConnection* Connection, std::string& UserName, const std::string& Entity) {
  return pickbase::PickText(UserName, &TfrmPickUserName::GetUserName, Connection, Entity);
}

}  // namespace uPickUserName
