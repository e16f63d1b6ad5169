#pragma once

#include <cstdint>
#include <memory>

#include "pickbase/uDocPickBase.h"

namespace uPickItemPreset {

/// Lists the item presets.
class ZULPICKLISTS_EXPORT TfrmPickItemPreset : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickItemPreset> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickItemPreset>(Connection);
  }
  std::int32_t GetPreset() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_PresetID;
  ads::TField* qryList_Descript;

 private:
  friend class TDocPickBase;
  TfrmPickItemPreset();
};

/// Lets the user pick an item preset; its number goes to `Preset`, which stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallPickItemPreset(ads::TAdsConnection* Connection, std::int32_t& Preset);

}  // namespace uPickItemPreset
