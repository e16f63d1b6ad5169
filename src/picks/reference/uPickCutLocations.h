#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickCutLocations {

/// Lists the places where material is cut.
class ZULPICKLISTS_EXPORT TfrmPickCutLocations : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickCutLocations> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickCutLocations>(Connection);
  }
  std::string GetCutLoc() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Desc;

 private:
  friend class TDocPickBase;
  TfrmPickCutLocations();
};

/// Lets the user pick a cutting location; its name goes to `CutLoc`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickCutLoc(ads::TAdsConnection* Connection, std::string& CutLoc);

}  // namespace uPickCutLocations
