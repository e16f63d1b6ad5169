#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/reference/uPickAPAgeHist.h"
#include "picks/reference/uPickDepartmentMulti.h"
#include "picks/reference/uPickItemHistPeriod.h"
#include "picks/reference/uPickMultiDepartments.h"
#include "picks/reference/uPickMultiUsers.h"
#include "picks/reference/uPickPeriods.h"
#include "picks/reference/uPickSalesPerson.h"
#include "picks/reference/uPickUserName.h"

namespace catalog {

namespace {

TPick PeriodPick() {
  return {"period",
          "uPickPeriods::CallPickPeriod",
          "An accounting period",
          {BooleanArg("include-closed", "List closed periods, too")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return TextResult([&](std::string& Period) {
              return uPickPeriods::CallPickPeriod(Connection, Args.Boolean("include-closed"), Period);
            });
          },
          {}};
}

TPick DepartmentsTextPick() {
  return {"departments-text",
          "uPickDepartmentMulti::CallDepartmentsPick",
          "Departments, as a text that holds the last one that was ticked, in quotation marks",
          {},
          [](ads::TAdsConnection* Connection, const TArgs&) {
            return TextResult([&](std::string& Departments) {
              return uPickDepartmentMulti::CallDepartmentsPick(Departments, Connection);
            });
          },
          {}};
}

TPick SalesPersonPick() {
  return {"salesperson",
          "uPickSalesPerson::CallPickSalesPerson",
          "A sales person",
          {TextArg("entity",
                   "Only sales people of this entity, such as MAIN, where the system keeps several accounts; "
                   "of all when it is empty")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return TextResult([&](std::string& SalesPerson) {
              return uPickSalesPerson::CallPickSalesPerson(Connection, SalesPerson, Args.Text("entity"));
            });
          },
          {}};
}

TPick UserPick() {
  return {"user",
          "uPickUserName::CallPickUser",
          "A user",
          {TextArg("entity", "Only users of this entity, such as MAIN; of all when it is empty")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return TextResult([&](std::string& UserName) {
              return uPickUserName::CallPickUser(Connection, UserName, Args.Text("entity"));
            });
          },
          {}};
}

}  // namespace

void AddPeriodsAndStaff(TCatalog& Catalog) {
  Catalog.StartGroup("Codes and periods");
  Catalog.Add(PeriodPick());
  Catalog.Add(InOutPick("aging-period", "uPickAPAgeHist::CallAPAgeHistPeriodPick",
                        "A period that has payables aging history", InOutArg("period", "The period so far"),
                        uPickAPAgeHist::CallAPAgeHistPeriodPick));
  Catalog.Add(TextPick("item-history-period", "uPickItemHistPeriod::CallPickItemHistPeriod",
                       "A period of the item history", uPickItemHistPeriod::CallPickItemHistPeriod));
  Catalog.StartGroup("Departments and staff");
  Catalog.Add(ListPick("departments", "uPickDepartmentMulti::CallDepartmentsPick", "Any number of departments",
                       uPickDepartmentMulti::CallDepartmentsPick));
  Catalog.Add(DepartmentsTextPick());
  Catalog.Add(ListPick("multi-departments", "uPickMultiDepartments::CallMultiDepartmentsPick",
                       "Any number of departments, by the other dialog for them",
                       uPickMultiDepartments::CallMultiDepartmentsPick));
  Catalog.Add(ListPick("users", "uPickMultiUsers::CallMultiUsersPick", "Any number of users",
                       uPickMultiUsers::CallMultiUsersPick));
  Catalog.Add(SalesPersonPick());
  Catalog.Add(UserPick());
}

}  // namespace catalog
