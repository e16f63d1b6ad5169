#pragma once

#include <functional>
#include <string>
#include <vector>

#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// What is not as it should be in a string table.
struct TTextFinding {
  int Line = 0;  ///< 0 for what is missing
  std::string Message;
};

/// The pixels that a text takes in the font of the forms or, bold, of column titles.
using TTextWidth = std::function<int(const std::string& Text, bool Bold)>;

/// Compares a string table with the English one: lines of a wrong form, numbers and names that are missing, unknown or
/// given twice, format marks (%s) and marked letters (&) that differ from English, letters that are marked twice, texts
/// that are wider than their place.
///
/// Findings come in the order of the lines, what is missing at the end; none says that the table is complete. Throws
/// `EZULException` for a file that cannot be read.
ZULCOMMON_EXPORT std::vector<TTextFinding> CheckTexts(const std::string& FileName, const TTextWidth& WidthOf);

}  // namespace zulcommon
