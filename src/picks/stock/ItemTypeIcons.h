#pragma once

#include "frame/zulpicklists_export.h"
#include "toolkit/ImageList.h"

namespace stock {

/// The pictures of the item types, 15 by 15 pixels, in the order of `zulcommon::TItemType` without the unknown one: a
/// box (stock), a crossed-out box (non-stock), a spanner (service), a clock (labour), a box of parts (kit), a list to
/// choose from (preset), a speech bubble (comment).
ZULPICKLISTS_EXPORT toolkit::TImageList ItemTypeIcons();

}  // namespace stock
