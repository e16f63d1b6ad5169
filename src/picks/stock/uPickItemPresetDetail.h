#pragma once

#include <memory>

#include "picks/stock/uOptionPickBase.h"

namespace uPickItemPresetDetail {

/// Lists the options of one line of an item preset.
class ZULPICKLISTS_EXPORT TfrmPickItemPresetDetail : public uOptionPickBase::TOptionPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickItemPresetDetail> Create(ads::TAdsConnection* Connection, std::int32_t LineID) {
    return Construct<TfrmPickItemPresetDetail>(Connection, LineID);
  }
  void SetUpColumns() override;

  ads::TAdsTable* tblDetails_;
  ads::TField* tblDetails_LineID;
  ads::TField* tblDetails_Descript;

 private:
  friend class uDocPickBase::TDocPickBase;
  explicit TfrmPickItemPresetDetail(std::int32_t LineID);

  std::int32_t LineID_;
};

/// Lets the user pick one of a preset line's options; its item code goes to `Item`, which is empty when none was
/// picked.
ZULPICKLISTS_EXPORT bool CallPickPresetDetail(ads::TAdsConnection* Connection, std::int32_t LineID, std::string& Item);

}  // namespace uPickItemPresetDetail
