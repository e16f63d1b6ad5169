#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickLocation {

/// Lists the stock locations, or only those that hold an item.
class ZULPICKLISTS_EXPORT TfrmPickLocation : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// An empty item stands for all locations. Its code goes into the query as it is.
  static std::unique_ptr<TfrmPickLocation> Create(ads::TAdsConnection* Connection, const std::string& Item) {
    return Construct<TfrmPickLocation>(Connection, Item);
  }
  std::int32_t GetLocation() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_ShortName;
  ads::TField* qryList_FullName;

 private:
  friend class TDocPickBase;
  explicit TfrmPickLocation(std::string Item);
  bool IsWrongNumber() const;
  void TellOfWrongNumber();

  std::string Item_;
};

/// Lets the user pick a location, one that holds `Item` unless that is empty; its number goes to `Location`, which
/// stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallPickLocation(ads::TAdsConnection* Connection, std::int32_t& Location,
                                          const std::string& Item);

}  // namespace uPickLocation
