#pragma once

#include "toolkit/DBGrid.h"

namespace pickbase {

/// Gives the columns whose title is a single letter, such as "I", the name by which assistive programs call them.
void NameLetterColumns(toolkit::TDBGrid& Grid);

}  // namespace pickbase
