#pragma once

#include <memory>
#include <string>

#include "picks/reference/uPeriodPickBase.h"

namespace uPickPeriods {

/// Lists the accounting periods, the latest first.
class ZULPICKLISTS_EXPORT TfrmPickPeriods : public uPeriodPickBase::TPeriodPickBase {
  Q_OBJECT
 public:
  /// Closed periods are listed only when `IncludeClosed` is true.
  static std::unique_ptr<TfrmPickPeriods> Create(ads::TAdsConnection* Connection, bool IncludeClosed) {
    return Construct<TfrmPickPeriods>(Connection, IncludeClosed);
  }
  void SetUpColumns() override;
  void SetSQL() override;

 private:
  friend class TDocPickBase;
  explicit TfrmPickPeriods(bool IncludeClosed);

  bool IncludeClosed_;
};

/// Lets the user pick a period, a closed one only with `IncludeClosed`; its code goes to `Period`, which is empty when
/// none was picked.
ZULPICKLISTS_EXPORT bool CallPickPeriod(ads::TAdsConnection* Connection, bool IncludeClosed, std::string& Period);

}  // namespace uPickPeriods
