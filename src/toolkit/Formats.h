#pragma once

#include "zulcommon/DisplayFormats.h"
#include "zulcommon/TypedValues.h"

// How values are shown and typed. They live below the database layer, because a field formats its own value.
namespace toolkit {

using zulcommon::FormatDate;
using zulcommon::FormatMinutes;
using zulcommon::FormatNumber;
using zulcommon::FormatShortDate;
using zulcommon::PlainNumber;
using zulcommon::ReadDate;
using zulcommon::ReadInteger;
using zulcommon::ReadNumber;
using zulcommon::SetShortDateFormat;
using zulcommon::ShortDateFormat;

}  // namespace toolkit
