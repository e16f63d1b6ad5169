#pragma once

#include <memory>

#include "picks/purchasing/uPOKindPickBase.h"

namespace uPickStockPO {

using uPickListTypes::TPOStates;

/// Lists the purchase orders that were raised for stock.
class ZULPICKLISTS_EXPORT TfrmPickStockPO : public uPOKindPickBase::TPOKindPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickStockPO> Create(ads::TAdsConnection* Connection, TPOStates RequiredStates,
                                                 TPOStates ExcludedStates) {
    return Construct<TfrmPickStockPO>(Connection, RequiredStates, ExcludedStates);
  }

 private:
  friend class TDocPickBase;
  TfrmPickStockPO(TPOStates RequiredStates, TPOStates ExcludedStates);
};

}  // namespace uPickStockPO
