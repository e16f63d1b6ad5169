#include "picks/reference/uPickItemClass.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickItemClass {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickItemClass::TfrmPickItemClass() {
  Column(qryList_Class = TextField("Class", 3));
  Column(qryList_ClassDesc = TextField("ClassDesc", 20));
}

void TfrmPickItemClass::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetPickCaption(LoadZULResString(57));
  SetAvailableCaption(LoadZULResString(140));
  SetLabels({{qryList_Class, 3145}, {qryList_ClassDesc, 3007}});
  SetChoices({{qryList_Class, "UPPER(Class) SortFld", Contains("AND UPPER(Class)")},
              {qryList_ClassDesc, "UPPER(ClassDesc) SortFld", Contains("AND UPPER(ClassDesc)")}},
             0);
}

void TfrmPickItemClass::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT Class, ClassDesc, ");
    Query.Add("FROM ItemClass");
    Query.Add("WHERE 0=0");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickItemClass::GetItemClass() const {
  return qryList_Class->AsString();
}

bool CallPickItemClass(ads::TAdsConnection* Connection, std::string& ItemClass) {
  return pickbase::PickText(ItemClass, &TfrmPickItemClass::GetItemClass, Connection);
}

}  // namespace uPickItemClass
