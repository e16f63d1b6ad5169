#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickGSTRate {

/// Lists the rates of goods and services tax.
class ZULPICKLISTS_EXPORT TfrmPickGSTRate : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickGSTRate> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickGSTRate>(Connection);
  }
  std::string GetGSTRate() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_ID;
  ads::TField* qryList_TaxDesc;
  ads::TField* qryList_Rate;

 private:
  friend class TDocPickBase;
  TfrmPickGSTRate();
};

/// Lets the user pick a tax rate; its code goes to `GSTRate`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickGSTRate(ads::TAdsConnection* Connection, std::string& GSTRate);

}  // namespace uPickGSTRate
