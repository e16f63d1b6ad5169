#include "picks/purchasing/uPickStockPO.h"

namespace uPickStockPO {

TfrmPickStockPO::TfrmPickStockPO(TPOStates RequiredStates, TPOStates ExcludedStates)
    : TPOKindPickBase(RequiredStates, ExcludedStates, "WHERE (I.Type IS NULL)") {
  SetCaption("Select Stock Purchase Order");
  SetAvailableCaption("Stock Purchase Orders");
}

}  // namespace uPickStockPO
