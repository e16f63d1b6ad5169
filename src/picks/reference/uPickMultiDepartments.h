#pragma once

#include <memory>

#include "pickbase/uDocPickMultiBase.h"

namespace uPickMultiDepartments {

/// Lists the departments, to tick any number of them. `uPickDepartmentMulti` has a twin of it.
class ZULPICKLISTS_EXPORT TfrmPickMultiDepartments : public uDocPickMultiBase::TDocPickMultiBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickMultiDepartments> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickMultiDepartments>(Connection);
  }
  /// Replaces the list's lines by the ticked departments, in the order of the rows. Does nothing for a null list.
  void GetPicked(toolkit::TStringList* Picked);
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Department;

 private:
  friend class TDocPickBase;
  TfrmPickMultiDepartments();
};

/// Lets the user tick departments and replaces the lines of `Picked` (borrowed, may be null) by them; it stays as it is
/// when the user cancels.
ZULPICKLISTS_EXPORT bool CallMultiDepartmentsPick(toolkit::TStringList* Picked, ads::TAdsConnection* Connection);

}  // namespace uPickMultiDepartments
