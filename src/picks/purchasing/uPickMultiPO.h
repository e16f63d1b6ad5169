#pragma once

#include <memory>

#include "picks/purchasing/uPOKindPickBase.h"

namespace uPickMultiPO {

using uPickListTypes::TPOStates;

/// Lists the purchase orders that were raised for several documents.
class ZULPICKLISTS_EXPORT TfrmPickMultiPO : public uPOKindPickBase::TPOKindPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickMultiPO> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                 TPOStates ExcludedStates) {
    return Construct<TfrmPickMultiPO>(Connection, RequiredStates, ExcludedStates);
  }

 private:
  friend class TDocPickBase;
  TfrmPickMultiPO(TPOStates RequiredStates, TPOStates ExcludedStates);
};

}  // namespace uPickMultiPO
