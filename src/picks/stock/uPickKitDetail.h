#pragma once

#include <memory>

#include "picks/stock/uOptionPickBase.h"

namespace uPickKitDetail {

/// Lists the options of a kit.
class ZULPICKLISTS_EXPORT TfrmPickKitDetail : public uOptionPickBase::TOptionPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickKitDetail> Create(ads::TAdsConnection* Connection, std::int32_t KitID) {
    return Construct<TfrmPickKitDetail>(Connection, KitID);
  }
  void SetUpColumns() override;

  ads::TAdsTable* tblKits_;
  ads::TField* tblKits_Item;
  ads::TField* tblKits_ID;
  ads::TField* tblKits_Descript;

 private:
  friend class uDocPickBase::TDocPickBase;
  explicit TfrmPickKitDetail(std::int32_t KitID);

  std::int32_t KitID_;
};

/// Lets the user pick one of a kit's options; its item code goes to `Item`, which stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallPickKitDetail(ads::TAdsConnection* Connection, std::int32_t KitID, std::string& Item);

}  // namespace uPickKitDetail
