#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickSuburb {

/// Lists the suburbs.
class ZULPICKLISTS_EXPORT TfrmPickSuburb : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickSuburb> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickSuburb>(Connection);
  }
  std::string GetSuburb() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Suburb;

 private:
  friend class TDocPickBase;
  TfrmPickSuburb();
};

/// Lets the user pick a suburb; its name goes to `Suburb`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickSuburb(ads::TAdsConnection* Connection, std::string& Suburb);

}  // namespace uPickSuburb
