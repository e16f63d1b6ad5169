#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickItemLocation {

/// Lists the locations that hold an item; those with nothing on hand when their box is ticked.
class ZULPICKLISTS_EXPORT TfrmPickItemLocation : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// The item's code goes into the query as it is. `IncludeZero` ticks the box at the start.
  static std::unique_ptr<TfrmPickItemLocation> Create(const std::string& Item, ads::TAdsConnection* Connection,
                                                      bool IncludeZero) {
    return Construct<TfrmPickItemLocation>(Connection, Item, IncludeZero);
  }
  std::int32_t GetLocation() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_OnHand;
  ads::TField* qryList_FullName;
  ads::TField* qryList_BinLocation;
  ads::TField* qryList_ItemLoc;
  ads::TAdsTable* tblItem_;
  ads::TField* tblItem_Item;
  ads::TField* tblItem_Desc;
  QCheckBox* ckbZero;

 private:
  friend class TDocPickBase;
  TfrmPickItemLocation(std::string Item, bool IncludeZero);

  std::string Item_;
  bool IncludeZero_;
};

/// Lets the user pick one of the locations that hold an item; its number goes to `Location`, which stays as it is when
/// none was picked.
ZULPICKLISTS_EXPORT bool CallPickLocation(const std::string& Item, ads::TAdsConnection* Connection,
                                          std::int32_t& Location, bool IncludeZero);

}  // namespace uPickItemLocation
