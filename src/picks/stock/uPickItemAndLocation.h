#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickItemAndLocation {

/// Lists the child items of one parent item at every location that holds them; those with nothing on hand when their
/// box is ticked.
class ZULPICKLISTS_EXPORT TfrmPickItemAndLocation : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// The parent's code goes into the query as it is. An empty one stands for the items whose parent is an empty text.
  static std::unique_ptr<TfrmPickItemAndLocation> Create(const std::string& ParentItem,
                                                         ads::TAdsConnection* Connection) {
    return Construct<TfrmPickItemAndLocation>(Connection, ParentItem);
  }
  std::string GetItemNo() const;
  std::int32_t GetLocation() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Item;
  ads::TField* qryList_OnHand;
  ads::TField* qryList_FullName;
  ads::TField* qryList_desc;
  ads::TField* qryList_SupplyLot;
  ads::TField* qryList_LocalRefNo;
  ads::TField* qryList_BinLocation;
  ads::TField* qryList_ItemLoc;
  QCheckBox* ckbZero;

 private:
  friend class TDocPickBase;
  explicit TfrmPickItemAndLocation(std::string ParentItem);

  std::string ParentItem_;
};

/// Lets the user pick one of a parent's child items at a location. Its code goes to `ItemNo`, which is empty when none
/// was picked, and the location's number to `Location`, which then stays as it is.
ZULPICKLISTS_EXPORT bool CallPickItemAndLocation(const std::string& ParentItem, ads::TAdsConnection* Connection,
                                                 std::string& ItemNo, std::int32_t& Location);

}  // namespace uPickItemAndLocation
