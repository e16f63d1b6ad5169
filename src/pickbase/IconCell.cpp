#include "pickbase/IconCell.h"

#include <QPainter>

namespace pickbase {

using toolkit::TDBGrid;
using toolkit::TGridDrawState;
using toolkit::TGridDrawStateFlag;

namespace {

constexpr int Side = 15;
constexpr int BelowTop = 2;

bool IsHighlighted(const TDBGrid& Grid, TGridDrawState State, TIconHighlight Highlight) {
  if (!State.Contains(TGridDrawStateFlag::gdSelected)) return false;
  if (State.Contains(TGridDrawStateFlag::gdFocused) && Grid.hasFocus()) return true;
  return Highlight == TIconHighlight::Selection && Grid.AlwaysShowSelection();
}

}  // namespace

void PaintIconCell(const TDBGrid& Grid, const QRect& Rect, TGridDrawState State, TIconHighlight Highlight,
                   const toolkit::TImageList& Images, const std::vector<int>& Pictures) {
  QPainter& Canvas = *Grid.Canvas();
  Canvas.fillRect(Rect, Canvas.brush());
  const QRect Area(Rect.left(), Rect.top() + BelowTop, Side, Side);
  const bool Highlighted = IsHighlighted(Grid, State, Highlight);
  Canvas.fillRect(Area, Grid.palette().brush(Highlighted ? QPalette::Highlight : QPalette::Base));
  Canvas.save();
  Canvas.setClipRect(Area, Qt::IntersectClip);
  for (const int Picture : Pictures) Images.Draw(Canvas, Area.left(), Area.top(), Picture);
  Canvas.restore();
}

}  // namespace pickbase
