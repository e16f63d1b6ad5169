#include "picks/stock/ItemTypeIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <array>

namespace stock {

namespace {

constexpr int Side = 15;
constexpr QColor Ink(45, 55, 72);
constexpr QColor Paper(255, 255, 255);
constexpr QColor CardTop(240, 205, 150);
constexpr QColor CardLeft(214, 164, 96);
constexpr QColor CardRight(176, 122, 58);
constexpr QColor Steel(165, 190, 220);
constexpr QColor Blue(35, 95, 180);
constexpr QColor Green(20, 120, 70);
constexpr QColor Red(190, 50, 40);

// A cube that is seen from above one of its edges: the middle of its top, and half of its width.
void PaintCube(QPainter& Painter, QPointF Top, qreal Half, const std::array<QColor, 3>& Sides) {
  const qreal Slope = Half / 2;
  const QPointF Right(Half, -Slope);
  const QPointF Left(-Half, -Slope);
  const QPointF Down(0, Half * 1.1);
  const QPointF Edge = Top + QPointF(0, Slope);
  Painter.setBrush(Sides[0]);
  Painter.drawPolygon(QPolygonF({Edge, Edge + Right, Edge + Right + Left, Edge + Left}));
  Painter.setBrush(Sides[1]);
  Painter.drawPolygon(QPolygonF({Edge, Edge + Left, Edge + Left + Down, Edge + Down}));
  Painter.setBrush(Sides[2]);
  Painter.drawPolygon(QPolygonF({Edge, Edge + Right, Edge + Right + Down, Edge + Down}));
}

void PaintStock(QPainter& Painter) {
  Painter.setPen(QPen(Ink, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  PaintCube(Painter, {7.5, 4}, 6.5, {CardTop, CardLeft, CardRight});
}

// The same box, but none there.
void PaintNonStock(QPainter& Painter) {
  Painter.setPen(QPen(Ink, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  PaintCube(Painter, {7.5, 4}, 6.5, {Paper, Paper, Paper});
  Painter.setPen(QPen(Red, 1.8, Qt::SolidLine, Qt::RoundCap));
  Painter.drawLine(QPointF(2, 13), QPointF(13, 2));
}

void PaintService(QPainter& Painter) {
  Painter.translate(7.5, 7.5);
  Painter.rotate(45);
  QPainterPath Spanner;
  Spanner.addRoundedRect(QRectF(-1.6, -4, 3.2, 11.5), 1.6, 1.6);
  QPainterPath Head;
  Head.addEllipse(QPointF(0, -4.2), 3.9, 3.7);
  QPainterPath Mouth;
  Mouth.addRect(QRectF(-1.5, -9, 3, 4.8));
  Painter.setPen(QPen(Ink, 0.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.setBrush(Steel);
  Painter.drawPath(Spanner.united(Head).subtracted(Mouth));
}

void PaintLabour(QPainter& Painter) {
  Painter.setPen(QPen(Ink, 1.3));
  Painter.setBrush(Paper);
  Painter.drawEllipse(QPointF(7.5, 7.5), 6.4, 6.4);
  Painter.setPen(QPen(Blue, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.drawPolyline(QPolygonF({{7.5, 3.9}, {7.5, 7.7}, {10.1, 9.3}}));
}

void PaintKit(QPainter& Painter) {
  Painter.setPen(QPen(Ink, 0.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  PaintCube(Painter, {7.5, 2.2}, 3.3, {QColor(255, 165, 155), QColor(220, 85, 75), QColor(175, 55, 50)});
  PaintCube(Painter, {3.9, 8.4}, 3.3, {QColor(165, 200, 255), QColor(85, 140, 220), QColor(50, 105, 185)});
  PaintCube(Painter, {11.1, 8.4}, 3.3, {QColor(160, 225, 185), QColor(75, 170, 120), QColor(40, 130, 85)});
}

void PaintPreset(QPainter& Painter) {
  Painter.setPen(QPen(Ink, 1));
  Painter.setBrush(Paper);
  Painter.drawRect(QRectF(0.5, 0.5, 14, 14));
  for (const qreal Line : {3.0, 7.0, 11.0}) Painter.fillRect(QRectF(7, Line, 6, 1), Ink);
  for (const qreal Open : {2.5, 10.5}) Painter.drawRect(QRectF(2.5, Open, 2, 2));
  Painter.fillRect(QRectF(2, 6, 3, 3), Green);
}

void PaintComment(QPainter& Painter) {
  QPainterPath Bubble;
  Bubble.addRoundedRect(QRectF(0.5, 1.5, 14, 9), 2.5, 2.5);
  QPainterPath Tail;
  Tail.addPolygon(QPolygonF({{3.5, 9.5}, {3.5, 14}, {8, 9.5}, {3.5, 9.5}}));
  Painter.setPen(QPen(Ink, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.setBrush(QColor(255, 236, 150));
  Painter.drawPath(Bubble.united(Tail));
  Painter.fillRect(QRectF(3, 4, 9, 1), Ink);
  Painter.fillRect(QRectF(3, 7, 6, 1), Ink);
}

// A picture that is painted on a square of fifteen.
QIcon Picture(void (*Paint)(QPainter& Painter)) {
  return toolkit::PaintedIcon([Paint](QPainter& Painter, const QSizeF& Size) {
    Painter.scale(Size.width() / Side, Size.height() / Side);
    Paint(Painter);
  });
}

}  // namespace

toolkit::TImageList ItemTypeIcons() {
  toolkit::TImageList List(Side, Side);
  for (auto* Paint : {PaintStock, PaintNonStock, PaintService, PaintLabour, PaintKit, PaintPreset, PaintComment}) {
    List.Add(Picture(Paint));
  }
  return List;
}

}  // namespace stock
