#pragma once

#include <cstdint>
#include <memory>

#include "pickbase/uDocPickBase.h"

namespace uPickItemFactorPreset {

/// Lists the presets of item factors.
class ZULPICKLISTS_EXPORT TfrmPickItemFactorPreset : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickItemFactorPreset> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickItemFactorPreset>(Connection);
  }
  std::int32_t GetID() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_Description;

 private:
  friend class TDocPickBase;
  TfrmPickItemFactorPreset();
};

/// Lets the user pick an item factor preset; its number goes to `ID`, which stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallPickItemFactor(ads::TAdsConnection* Connection, std::int32_t& ID);

}  // namespace uPickItemFactorPreset
