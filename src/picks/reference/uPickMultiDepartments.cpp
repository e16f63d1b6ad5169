#include "picks/reference/uPickMultiDepartments.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickMultiDepartments {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickMultiDepartments::TfrmPickMultiDepartments() {
  Column(qryList_Department = TextField("Department", 10));
  PutTickedLast();
}

void TfrmPickMultiDepartments::SetUpColumns() {
  TDocPickMultiBase::SetUpColumns();
  SetLabels({{qryList_Department, 3210}});
  SetChoices({{qryList_Department, "UPPER(d.Department) SortFld", Contains("WHERE UPPER(d.Department)")}}, 0);
  SetPickCaption(LoadZULResString(381));
  SetAvailableCaption(LoadZULResString(381));
}

void TfrmPickMultiDepartments::SetSQL() {
  OpenGuarded([](TListQuery& Query) {
    Query.Select("SELECT d.Department, ");
    Query.Add("FROM Dept d");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickMultiDepartments::GetPicked(toolkit::TStringList* Picked) {
  if (Picked == nullptr) return;
  Picked->Clear();
  WalkTicked([&] { Picked->Add(qryList_Department->AsString()); });
}

bool CallMultiDepartmentsPick(toolkit::TStringList* Picked, ads::TAdsConnection* Connection) {
  return pickbase::Pick<TfrmPickMultiDepartments>([&](TfrmPickMultiDepartments& Dialog) { Dialog.GetPicked(Picked); },
                                                  Connection);
}

}  // namespace uPickMultiDepartments
