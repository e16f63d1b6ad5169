#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickEntity {

/// Lists the accounting entities.
class ZULPICKLISTS_EXPORT TfrmPickEntity : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickEntity> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickEntity>(Connection);
  }
  std::string GetEntity() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Entity;
  ads::TField* qryList_Desc;
  ads::TField* qryList_OEDefault;

 private:
  friend class TDocPickBase;
  TfrmPickEntity();
};

/// Lets the user pick an entity; its code goes to `Entity`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickEntity(ads::TAdsConnection* Connection, std::string& Entity);

/// The same with the code as its result: empty when none was picked.
ZULPICKLISTS_EXPORT std::string CallPickEntity(ads::TAdsConnection* Connection);

}  // namespace uPickEntity
