#pragma once

#include <memory>
#include <string>

#include "picks/reference/uPeriodPickBase.h"

namespace uPickAPAgeHist {

/// Lists the periods that have payables aging history, each once and always the latest first, whatever the descending
/// box says.
class ZULPICKLISTS_EXPORT TfrmPickAPAgeHist : public uPeriodPickBase::TPeriodPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickAPAgeHist> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickAPAgeHist>(Connection);
  }
  void SetUpColumns() override;
  void SetSQL() override;

 private:
  friend class TDocPickBase;
  TfrmPickAPAgeHist();
};

/// Lets the user pick a period of the aging history; its code goes to `Period`, which stays as it is when none was
/// picked.
ZULPICKLISTS_EXPORT bool CallAPAgeHistPeriodPick(ads::TAdsConnection* Connection, std::string& Period);

}  // namespace uPickAPAgeHist
