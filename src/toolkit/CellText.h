#pragma once

#include <Qt>
#include <string>

#include "ads/Field.h"

class QFont;
class QPainter;
class QRect;
class QString;

namespace toolkit {

/// The pixels between a text of the grid and the sides of its cell.
constexpr int CellTextMargin = 2;

/// Whether a text is wider than a cell of that width has room for.
bool IsCut(const QFont& Font, int CellWidth, const QString& Text);

Qt::Alignment QtAlignment(ads::TAlignment Alignment);

/// Draws one line of text in the painter's font and pen, vertically centred, cut off with an ellipsis where it does not
/// fit. `Direction` says where it is aligned to; the text itself reads as its own letters do.
void DrawCellText(QPainter& Painter, const QRect& Cell, const std::string& Text, ads::TAlignment Alignment,
                  Qt::LayoutDirection Direction, Qt::TextElideMode Elide = Qt::ElideRight);

}  // namespace toolkit
