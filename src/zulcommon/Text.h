#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// `Text` in upper case, by Unicode's full mapping and the same in every locale ("ß" gives "SS", "é" gives "É").
/// UTF-8; bytes that are no valid UTF-8 are kept as they are. The one upper-casing of the system: what is typed into
/// a find box and what the database compares it with both go through it. No letter looks at its neighbours: two texts
/// in upper case, joined, are the joined texts in upper case.
ZULCOMMON_EXPORT std::string UpperCase(std::string_view Text);

/// Appends to `Out` what `UpperCase(Text)` gives; for callers that upper-case many texts into one buffer. `Text` must
/// not lie in that buffer.
ZULCOMMON_EXPORT void AppendUpperCase(std::string& Out, std::string_view Text);

/// Whether every byte belongs to a character of UTF-8.
ZULCOMMON_EXPORT bool IsUtf8(std::string_view Text);

/// `Text` without the blanks and control characters (all characters up to U+0020) at its ends.
ZULCOMMON_EXPORT std::string_view Trim(std::string_view Text);

/// Whether two identifiers are the same without regard to the case of their ASCII letters.
ZULCOMMON_EXPORT bool SameText(std::string_view A, std::string_view B);

/// `Format` with each "%s" replaced by the next of `Args` and "%%" by a percent sign. An argument too few leaves its
/// "%s" standing, one too many is ignored.
ZULCOMMON_EXPORT std::string FormatText(std::string_view Format, const std::vector<std::string>& Args);

}  // namespace zulcommon
