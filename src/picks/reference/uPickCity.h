#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickCity {

/// Lists the postcodes of the area table.
class ZULPICKLISTS_EXPORT TfrmPickCity : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickCity> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickCity>(Connection);
  }
  std::string GetCity() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Zip;

 private:
  friend class TDocPickBase;
  TfrmPickCity();
};

/// Lets the user pick a postcode; it goes to `Zip`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickCity(ads::TAdsConnection* Connection, std::string& Zip);

}  // namespace uPickCity
