#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickItemCost {

/// Lists what one item cost each time that it was received; with the location where the system keeps several.
class ZULPICKLISTS_EXPORT TfrmPickItemCost : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// The item's code goes into the query as it is.
  static std::unique_ptr<TfrmPickItemCost> Create(ads::TAdsConnection* Connection, const std::string& Item) {
    return Construct<TfrmPickItemCost>(Connection, Item);
  }
  std::int32_t GetKey() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Key;
  ads::TField* qryList_Date;
  ads::TField* qryList_Qty;
  ads::TField* qryList_UnitCost;
  ads::TField* qryList_UnitBuff;
  ads::TField* qryList_ShortName;

 private:
  friend class TDocPickBase;
  explicit TfrmPickItemCost(std::string Item);

  std::string Item_;
};

/// Lets the user pick one of an item's costs; its key goes to `Key`, which stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallPickItemCost(ads::TAdsConnection* Connection, const std::string& Item, std::int32_t& Key);

}  // namespace uPickItemCost
