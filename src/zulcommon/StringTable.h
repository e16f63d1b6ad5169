#pragma once

#include <cstdint>
#include <string>

#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// The text with a number from the application's shared string table: captions, labels and messages. UTF-8.
///
/// A number without a text gives a visible placeholder ("#1234"), never an empty caption. Reading is safe from any
/// thread as long as none changes the table.
ZULCOMMON_EXPORT std::string LoadZULResString(std::int32_t Number);

/// Lays a host's own table over the texts that are compiled in: another language, or other words. Numbers that
/// the file does not hold keep their text.
///
/// The file is UTF-8, a line a text: the number, a tab, the text, in which \n stands for a line break, \t for a tab and
/// \\ for a backslash. Empty lines and lines that start with # are skipped. A file that cannot be read, or a line that
/// is not of this form, throws `EZULException` that names the file and the line; the table then stays as it was.
ZULCOMMON_EXPORT void LoadStringTable(const std::string& FileName);

/// Goes back to the texts that are compiled in.
ZULCOMMON_EXPORT void ResetStringTable();

}  // namespace zulcommon
