#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickItemCategory {

/// Lists the categories of stock items.
class ZULPICKLISTS_EXPORT TfrmPickItemCat : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickItemCat> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickItemCat>(Connection);
  }
  std::string GetItemCat() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_CatID;
  ads::TField* qryList_Descript;

 private:
  friend class TDocPickBase;
  TfrmPickItemCat();
};

/// Lets the user pick an item category; its code goes to `ItemCat`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickItemCat(ads::TAdsConnection* Connection, std::string& ItemCat);

}  // namespace uPickItemCategory
