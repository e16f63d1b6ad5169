#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickState {

/// Lists the states of the country.
class ZULPICKLISTS_EXPORT TfrmPickState : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickState> Create(ads::TAdsConnection* Connection) {
    return Construct<TfrmPickState>(Connection);
  }
  std::string GetState() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_State;

 private:
  friend class TDocPickBase;
  TfrmPickState();
};

/// Lets the user pick a state; its abbreviation goes to `State`, which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickState(ads::TAdsConnection* Connection, std::string& State);

}  // namespace uPickState
