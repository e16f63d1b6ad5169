#include "picks/reference/uPickSalesPerson.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickSalesPerson {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickSalesPerson::TfrmPickSalesPerson(std::string Entity) : Entity_(std::move(Entity)) {
  Column(qryList_SalesMan = TextField("SalesMan", 30)).SetWidth(120);
  Column(qryList_Department = TextField("Department", 10)).SetWidth(120);
  Column(qryList_Title = TextField("Title", 35)).SetWidth(120);
}

void TfrmPickSalesPerson::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(344));
  SetAvailableCaption(LoadZULResString(59));
  SetLabels({{qryList_SalesMan, 3018}, {qryList_Department, 3019}, {qryList_Title, 3020}});
  // The name has a shorter caption among the choices than in the list.
  SetChoices({{qryList_SalesMan, LoadZULResString(3025), "UPPER(SalesMan) SortFld", Contains("AND UPPER(SalesMan)")},
              {qryList_Department, "UPPER(Department) SortFld", Contains("AND UPPER(Department)")},
              {qryList_Title, "UPPER(Title) SortFld", Contains("AND UPPER(Title)")}},
             0);
}

void TfrmPickSalesPerson::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT SalesMan, Department, Title, ");
    Query.Add("FROM SalesMen");
    Query.Add("WHERE DiscontD = FALSE");
    if (MultiAcct && !Entity_.empty()) Query.Add("AND Entity = '" + Query.Passed(Entity_) + "'");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickSalesPerson::GetSalesPerson() const {
  return qryList_SalesMan->AsString();
}

bool CallPickSalesPerson(ads::TAdsConnection* Connection, std::string& SalesPerson, const std::string& Entity) {
  return pickbase::PickText(SalesPerson, &TfrmPickSalesPerson::GetSalesPerson, Connection, Entity);
}

}  // namespace uPickSalesPerson
