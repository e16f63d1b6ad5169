#include "pickbase/PickIcon.h"

#include <QPainter>

#include "toolkit/ImageList.h"

namespace pickbase {

namespace {

constexpr int Side = 16;
constexpr QColor Ink(45, 55, 72);
constexpr QColor Paper(255, 255, 255);
constexpr QColor Line(170, 178, 190);
constexpr QColor Picked(48, 140, 198);

}  // namespace

QIcon PickIcon() {
  return toolkit::PaintedIcon([](QPainter& Painter, const QSizeF& Size) {
    Painter.scale(Size.width() / Side, Size.height() / Side);
    Painter.setPen(QPen(Ink, 1));
    Painter.setBrush(Paper);
    Painter.drawRoundedRect(QRectF(0.5, 0.5, 15, 15), 1.5, 1.5);
    Painter.fillRect(QRectF(1, 6, 14, 4), Picked);
    for (const qreal Row : {3.0, 12.0}) Painter.fillRect(QRectF(3, Row, 10, 1.2), Line);
    Painter.fillRect(QRectF(3, 7.4, 10, 1.2), Paper);
  });
}

}  // namespace pickbase
