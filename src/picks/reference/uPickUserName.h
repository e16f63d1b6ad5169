#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickUserName {

/// Lists the users; inactive ones when their box is ticked.
class ZULPICKLISTS_EXPORT TfrmPickUserName : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// Only the users of `Entity` are listed, unless it is empty. It goes into the query as it is.
  static std::unique_ptr<TfrmPickUserName> Create(ads::TAdsConnection* Connection, const std::string& Entity) {
    return Construct<TfrmPickUserName>(Connection, Entity);
  }
  std::string GetUserName() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_UserName;
  ads::TField* qryList_DisplayNM;
  ads::TField* qryList_Inactive;
  QCheckBox* ckbInactive;

 private:
  friend class TDocPickBase;
  explicit TfrmPickUserName(std::string Entity);

  std::string Entity_;
};

/// Lets the user pick a user, of an entity unless that is empty; the user name goes to `UserName`, which is empty when
/// none was picked.
ZULPICKLISTS_EXPORT bool CallPickUser(ads::TAdsConnection* Connection, std::string& UserName,
                                      const std::string& Entity);

}  // namespace uPickUserName
