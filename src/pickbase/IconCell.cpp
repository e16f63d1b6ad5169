#include "pickbase/IconCell.h"

#include <QImage>
#include <QPainter>
#include <QStyle>

namespace pickbase {

using toolkit::TDBGrid;
using toolkit::TGridDrawState;
using toolkit::TGridDrawStateFlag;

namespace {

constexpr int Side = 15;
constexpr int BelowTop = 2;
constexpr int DarkestPaper = 80;  // of 255
constexpr QColor RimColour(225, 228, 232);

bool IsHighlighted(const TDBGrid& Grid, TGridDrawState State, TIconHighlight Highlight) {
  if (!State.Contains(TGridDrawStateFlag::gdSelected)) return false;
  if (State.Contains(TGridDrawStateFlag::gdFocused) && Grid.hasFocus()) return true;
  return Highlight == TIconHighlight::Selection && Grid.AlwaysShowSelection();
}

// The pictures are drawn for paper: their outlines are dark.
bool IsDark(const QColor& Colour) {
  return qGray(Colour.rgb()) < DarkestPaper;
}

// What the pictures cover, in one colour.
QImage Silhouette(const QSize& Size, qreal Scale, const toolkit::TImageList& Images, const std::vector<int>& Pictures) {
  QImage Image((QSizeF(Size) * Scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  Image.setDevicePixelRatio(Scale);
  Image.fill(Qt::transparent);
  QPainter Painter(&Image);
  for (const int Picture : Pictures) Images.Draw(Painter, 0, 0, Picture);
  Painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  Painter.fillRect(QRect(QPoint(), Size), RimColour);
  return Image;
}

void PaintRim(QPainter& Canvas, const QRect& Area, const toolkit::TImageList& Images,
              const std::vector<int>& Pictures) {
  const QImage Rim = Silhouette(Area.size(), Canvas.device()->devicePixelRatio(), Images, Pictures);
  for (const int Y : {-1, 0, 1}) {
    for (const int X : {-1, 0, 1}) Canvas.drawImage(Area.topLeft() + QPoint(X, Y), Rim);
  }
}

}  // namespace

void PaintIconCell(const TDBGrid& Grid, const QRect& Rect, TGridDrawState State, TIconHighlight Highlight,
                   const toolkit::TImageList& Images, const std::vector<int>& Pictures) {
  QPainter& Canvas = *Grid.Canvas();
  Canvas.fillRect(Rect, Canvas.brush());
  const QRect Area =
      QStyle::visualRect(Grid.layoutDirection(), Rect, QRect(Rect.left(), Rect.top() + BelowTop, Side, Side));
  const bool Highlighted = IsHighlighted(Grid, State, Highlight);
  const QColor Behind = Grid.palette().color(Highlighted ? QPalette::Highlight : QPalette::Base);
  Canvas.fillRect(Area, Behind);
  Canvas.save();
  Canvas.setClipRect(Area, Qt::IntersectClip);
  if (IsDark(Behind)) PaintRim(Canvas, Area, Images, Pictures);
  for (const int Picture : Pictures) Images.Draw(Canvas, Area.left(), Area.top(), Picture);
  Canvas.restore();
}

}  // namespace pickbase
