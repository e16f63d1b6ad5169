#pragma once

#include <cstdint>
#include <set>

/// The string numbers that were loaded so far in this program, by whichever library. The program's own
/// `zulcommon::LoadZULResString` stands before that of the library, notes the number and calls it.
const std::set<std::int32_t>& LoadedTexts();
