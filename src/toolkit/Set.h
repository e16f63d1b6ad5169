#pragma once

#include "zulcommon/Set.h"

namespace toolkit {

using zulcommon::TSet;

}  // namespace toolkit
