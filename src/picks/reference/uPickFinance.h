#pragma once

#include <cstdint>
#include <memory>

#include "pickbase/uDocPickBase.h"

namespace uPickFinance {

/// Lists the finance rates. What is typed never narrows this list: its find condition has no WHERE before it, so the
/// query fails and the whole list is shown instead.
class ZULPICKLISTS_EXPORT TfrmPickFinance : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickFinance> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickFinance>(Connection);
  }
  std::int32_t GetFinanceKey() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Key;
  ads::TField* qryList_Name;
  ads::TField* qryList_Percent;

 private:
  friend class TDocPickBase;
  TfrmPickFinance();
};

/// Lets the user pick a finance rate; its key goes to `FinanceKey`, which stays as it is when none was picked.
ZULPICKLISTS_EXPORT bool CallPickFinanceRate(ads::TAdsConnection* Connection, std::int32_t& FinanceKey);

}  // namespace uPickFinance
