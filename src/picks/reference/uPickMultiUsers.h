#pragma once

#include <memory>

#include "pickbase/uDocPickMultiBase.h"

namespace uPickMultiUsers {

/// Lists the users, to tick any number of them.
class ZULPICKLISTS_EXPORT TfrmPickMultiUsers : public uDocPickMultiBase::TDocPickMultiBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickMultiUsers> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickMultiUsers>(Connection);
  }
  /// Replaces the list's lines by the ticked users' names, in the order of the rows. Throws `std::invalid_argument` for
  /// a null list.
  void GetPicked(toolkit::TStringList* Picked);
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_UserName;
  ads::TField* qryList_DisplayNm;

 private:
  friend class TDocPickBase;
  TfrmPickMultiUsers();
};

/// Lets the user tick users and replaces the lines of `Picked` (borrowed) by their user names; it stays as it is when
/// the user cancels. It must not be null: `std::invalid_argument` once the user has confirmed.
ZULPICKLISTS_EXPORT bool CallMultiUsersPick(toolkit::TStringList* Picked, ads::TAdsConnection* Connection);

}  // namespace uPickMultiUsers
