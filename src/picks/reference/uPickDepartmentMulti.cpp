#include "picks/reference/uPickDepartmentMulti.h"

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickDepartmentMulti {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickDepartments::TfrmPickDepartments() {
  Column(qryList_Department = TextField("Department", 10)).SetWidth(120);
  PutTickedLast();
}

void TfrmPickDepartments::SetUpColumns() {
  TDocPickMultiBase::SetUpColumns();
  SetLabels({{qryList_Department, 3210}});
  SetChoices({{qryList_Department, "UPPER(Department) SortFld", Contains("WHERE UPPER(Department)")}}, 0);
  SetPickCaption(LoadZULResString(381));
  SetAvailableCaption(LoadZULResString(381));
}

void TfrmPickDepartments::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Add("SELECT Department, UPPER(Department) SortFld");
    Query.Add("FROM Dept");
    Query.FindAlways(Choices()[0].Find);
    Query.OrderBy();
  });
}

void TfrmPickDepartments::GetDepartments(toolkit::TStringList* Picked) {
  if (Picked == nullptr) return;
  Picked->Clear();
  WalkTicked([&] { Picked->Add(qryList_Department->AsString()); });
}

bool CallDepartmentsPick(toolkit::TStringList* Picked, ads::TAdsConnection* Connection) {
  return pickbase::Pick<TfrmPickDepartments>([&](TfrmPickDepartments& Dialog) { Dialog.GetDepartments(Picked); },
                                             Connection);
}

bool CallDepartmentsPick(std::string& Departments, ads::TAdsConnection* Connection) {
  Departments.clear();
  toolkit::TStringList Picked;
  if (!CallDepartmentsPick(&Picked, Connection)) return false;
  for (int Index = 0; Index < Picked.Count(); ++Index) {
    Departments = (Index == 0 ? "'" : ", '") + Picked[Index] + "'";
  }
  return true;
}

}  // namespace uPickDepartmentMulti
