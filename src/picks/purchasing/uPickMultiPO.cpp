#include "picks/purchasing/uPickMultiPO.h"

namespace uPickMultiPO {

TfrmPickMultiPO::TfrmPickMultiPO(TPOStates RequiredStates, TPOStates ExcludedStates)
    : TPOKindPickBase(RequiredStates, ExcludedStates, "WHERE (I.Type = 'M')") {
  SetCaption("Select Multi. Order Purchase Order");
  SetAvailableCaption("Multi. Order Purchase Orders");
}

}  // namespace uPickMultiPO
