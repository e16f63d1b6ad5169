#include "frame/uPickListTypes.h"

namespace uPickListTypes {

static_assert(static_cast<int>(TPOState::poCancelled) == 5, "hosts store sets of states by ordinal");

}  // namespace uPickListTypes
