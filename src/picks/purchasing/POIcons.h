#pragma once

#include "frame/zulpicklists_export.h"
#include "toolkit/ImageList.h"

/// The pictures of purchase orders, 16 by 16. They keep within 15 by 15, which is what a grid's cell shows of them.
namespace purchasing {

/// Where the types begin among the pictures of `OrderIcons`.
inline constexpr int FirstOverlay = 6;

/// The states by the numbers of `StatePicture`, then the types by those of `TypePicture`: small, in the lower right
/// corner, to be drawn over a state.
ZULPICKLISTS_EXPORT toolkit::TImageList OrderIcons();

/// The types by the numbers of `TypePicture`, each a picture of its own.
ZULPICKLISTS_EXPORT toolkit::TImageList TypeIcons();

}  // namespace purchasing
