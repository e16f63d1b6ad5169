#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickMultiBase.h"

namespace uPickDepartmentMulti {

/// Lists the departments, to tick any number of them. `uPickMultiDepartments` has a twin of it.
class ZULPICKLISTS_EXPORT TfrmPickDepartments : public uDocPickMultiBase::TDocPickMultiBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickDepartments> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickDepartments>(Connection);
  }
  /// Replaces the list's lines by the ticked departments, in the order of the rows. Does nothing for a null list.
  void GetDepartments(toolkit::TStringList* Picked);
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Department;

 private:
  friend class TDocPickBase;
  TfrmPickDepartments();
};

/// Lets the user tick departments and replaces the lines of `Picked` (borrowed, may be null) by them; it stays as it is
/// when the user cancels.
ZULPICKLISTS_EXPORT bool CallDepartmentsPick(toolkit::TStringList* Picked, ads::TAdsConnection* Connection);

/// The same with a text, which is empty when nothing was ticked. Of several departments it holds only the last one,
/// with a comma before it: "'ADMIN'" for one, ", 'SALES'" for two or more. Hosts rely on it; who wants them all uses
/// the list.
ZULPICKLISTS_EXPORT bool CallDepartmentsPick(std::string& Departments, ads::TAdsConnection* Connection);

}  // namespace uPickDepartmentMulti
