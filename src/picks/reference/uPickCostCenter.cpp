#include "picks/reference/uPickCostCenter.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickCostCenter {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickCostCenter::TfrmPickCostCenter() {
  Column(qryList_CstCtr = TextField("CstCtr", 9));
  Column(qryList_Desc = TextField("Desc", 50)).SetWidth(150);
  NarrowColumn(qryList_Default = BooleanField("Default"));
}

void TfrmPickCostCenter::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(2));
  SetAvailableCaption(LoadZULResString(80));
  SetLabels({{qryList_CstCtr, 3004}, {qryList_Desc, 3007}, {qryList_Default, 3195}});
  SetChoices({{qryList_CstCtr, "UPPER(CstCtr) SortFld", Contains("AND UPPER(CstCtr)")},
              {qryList_Desc, "UPPER([Desc]) SortFld", Contains("AND UPPER([Desc])")}},
             1);
}

void TfrmPickCostCenter::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT CstCtr, [Desc], [Default], ");
    Query.Add("FROM CstCtr");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickCostCenter::GetCostCenter() const {
  return qryList_CstCtr->AsString();
}

bool CallPickCostCenter(ads::TAdsConnection* Connection, std::string& CostCenter) {
  return pickbase::PickText(CostCenter, &TfrmPickCostCenter::GetCostCenter, Connection);
}

}  // namespace uPickCostCenter
