#pragma once

#include <cstdint>
#include <vector>

#include "frame/zulpicklists_export.h"
#include "toolkit/DBGrid.h"
#include "toolkit/ImageList.h"

/// Grid cells that show pictures instead of their field's value.
namespace pickbase {

/// When the area behind the pictures has the colour of the selection.
enum class TIconHighlight : std::uint8_t {
  Selection,  ///< in the selected row, as the grid itself shows it
  Focus,      ///< in the selected row while the grid has the keyboard
};

/// Paints a cell with pictures of `Images`, one over the other; a row that shows none passes an empty list. To be
/// called while the grid paints the cell (`TDBGrid::OnDrawColumnCell`), with what it passes. The pictures are cut off
/// at 15 by 15 pixels, so that the lines of the grid stay free. On a dark colour they get a light rim, because their
/// outlines are dark.
ZULPICKLISTS_EXPORT void PaintIconCell(const toolkit::TDBGrid& Grid, const QRect& Rect, toolkit::TGridDrawState State,
                                       TIconHighlight Highlight, const toolkit::TImageList& Images,
                                       const std::vector<int>& Pictures);

}  // namespace pickbase
