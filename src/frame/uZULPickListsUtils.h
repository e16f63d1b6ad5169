#pragma once

#include <string>
#include <string_view>

#include "frame/zulpicklists_export.h"
#include "toolkit/DBGrid.h"
#include "toolkit/Form.h"

namespace uZULPickListsUtils {

/// `S` with every single quote doubled, to stand between single quotes in SQL. Adds no quotes around it.
ZULPICKLISTS_EXPORT std::string AddQuotes(std::string_view S);

/// Moves a form to the middle of the screen on which the window that calls it stands, of the part that no panel covers,
/// keeping its size. A form larger than that begins before it.
ZULPICKLISTS_EXPORT void CenterFormOnScreen(toolkit::TForm* Form);

/// Paints a cell of a grid: a Boolean field as the tick image in the colour of the texts around it (nothing for false),
/// unless it has a display text of its own; any other field as the grid itself would. To be called while the grid
/// paints the cell
/// (`TDBGrid::OnDrawColumnCell`), with what it passes; at any other time it does nothing.
ZULPICKLISTS_EXPORT void GridPaint(toolkit::TDBGrid* Grid, const QRect& Rect, int DataCol, toolkit::TColumn* Column,
                                   toolkit::TGridDrawState State);

/// The position of the first column that shows `Field`, -1 when none does.
ZULPICKLISTS_EXPORT int GridColIndex(const toolkit::TDBGrid* Grid, const ads::TField* Field);

/// The first column that shows `Field`, null when none does.
ZULPICKLISTS_EXPORT toolkit::TColumn* GridCol(const toolkit::TDBGrid* Grid, const ads::TField* Field);

}  // namespace uZULPickListsUtils
