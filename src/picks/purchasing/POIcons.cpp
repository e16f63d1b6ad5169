#include "picks/purchasing/POIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace purchasing {

namespace {

constexpr int Side = 16;
constexpr QColor Ink(45, 55, 72);
constexpr QColor Paper(255, 255, 255);
constexpr QColor Card(214, 164, 96);
constexpr QColor Lid(176, 122, 58);
constexpr QColor Gold(255, 209, 71);
constexpr QColor Red(200, 30, 30);
constexpr QColor Green(0, 110, 50);

// With a light rim, so that it stands out from whatever is behind it.
void PaintRimmed(QPainter& Painter, const QPainterPath& Shape, const QColor& Colour) {
  Painter.strokePath(Shape, QPen(Paper, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.fillPath(Shape, Colour);
}

// The states. They keep clear of the lower right corner as far as they can: that is where the type is laid over.

void PaintPage(QPainter& Painter) {
  Painter.setPen(Ink);
  Painter.setBrush(Paper);
  Painter.drawPolygon(QPolygonF({{1.5, 0.5}, {8.5, 0.5}, {12.5, 4.5}, {12.5, 14.5}, {1.5, 14.5}}));
  Painter.drawPolyline(QPolygonF({{8.5, 0.5}, {8.5, 4.5}, {12.5, 4.5}}));
}

void PaintTickedPage(QPainter& Painter) {
  PaintPage(Painter);
  Painter.setPen(QPen(Green, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.drawPolyline(QPolygonF({{3.5, 7.5}, {5.5, 9.7}, {9.5, 5.5}}));
}

void PaintClosedBox(QPainter& Painter) {
  Painter.setPen(Ink);
  Painter.setBrush(Card);
  Painter.drawRect(QRectF(1.5, 5.5, 12, 9));
  Painter.setBrush(Lid);
  Painter.drawRect(QRectF(0.5, 1.5, 14, 4));
  Painter.fillRect(QRectF(6, 2, 3, 7), Paper);
}

void PaintOpenBox(QPainter& Painter) {
  Painter.setPen(Ink);
  Painter.setBrush(Lid);
  Painter.drawPolygon(QPolygonF({{2.5, 8.5}, {0.5, 5.5}, {3.5, 5.5}, {5.5, 8.5}}));
  Painter.drawPolygon(QPolygonF({{12.5, 8.5}, {14.5, 5.5}, {11.5, 5.5}, {9.5, 8.5}}));
  Painter.setBrush(Card);
  Painter.drawRect(QRectF(2.5, 8.5, 10, 6));
  QPainterPath Arrow;
  Arrow.addPolygon(QPolygonF({{6, 0}, {9, 0}, {9, 3}, {11, 3}, {7.5, 7}, {4, 3}, {6, 3}, {6, 0}}));
  PaintRimmed(Painter, Arrow, Ink);
}

void PaintCoin(QPainter& Painter) {
  Painter.setPen(QPen(Ink, 1.2));
  Painter.setBrush(Gold);
  Painter.drawEllipse(QPointF(7, 7), 6.3, 6.3);
  QPainterPath Dollar(QPointF(9.2, 4.9));
  Dollar.cubicTo(8.6, 3.4, 4.8, 3.4, 4.8, 5.4);
  Dollar.cubicTo(4.8, 7.4, 9.3, 6.6, 9.3, 8.7);
  Dollar.cubicTo(9.3, 10.6, 5.4, 10.6, 4.7, 9.0);
  Dollar.moveTo(7, 2.4);
  Dollar.lineTo(7, 11.6);
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(Ink, 1.3, Qt::SolidLine, Qt::RoundCap));
  Painter.drawPath(Dollar);
}

void PaintCross(QPainter& Painter) {
  Painter.setPen(QPen(Paper, 1));
  Painter.setBrush(Red);
  Painter.drawEllipse(QPointF(7, 7), 6.5, 6.5);
  Painter.setPen(QPen(Paper, 2.2, Qt::SolidLine, Qt::RoundCap));
  Painter.drawLine(QPointF(4.3, 4.3), QPointF(9.7, 9.7));
  Painter.drawLine(QPointF(9.7, 4.3), QPointF(4.3, 9.7));
}

// The types, in a square of seven: goods on a shelf, a person, sheets one behind the other.

QPainterPath Stock() {
  QPainterPath Path;
  for (const QPointF Corner : {QPointF(0, 0), QPointF(4, 0), QPointF(0, 4), QPointF(4, 4)}) {
    Path.addRect(QRectF(Corner, QSizeF(3, 3)));
  }
  return Path;
}

QPainterPath Customer() {
  QPainterPath Path;
  Path.addEllipse(QPointF(3.5, 1.6), 1.7, 1.6);
  Path.moveTo(0.3, 7);
  Path.cubicTo(0.3, 2.8, 6.7, 2.8, 6.7, 7);
  Path.closeSubpath();
  return Path;
}

QPainterPath SeveralDocuments() {
  QPainterPath Path;
  Path.addPolygon(QPolygonF({{0, 0}, {5, 0}, {5, 2}, {2, 2}, {2, 5}, {0, 5}, {0, 0}}));
  Path.addRect(QRectF(3, 3, 4, 4));
  return Path;
}

struct TType {
  QPainterPath (*Shape)();
  QColor Colour;
};
constexpr TType Types[] = {
    {Stock, QColor(0, 90, 110)}, {Customer, QColor(90, 30, 140)}, {SeveralDocuments, QColor(150, 60, 0)}};

// A picture that is painted on a square of sixteen.
QIcon Picture(std::function<void(QPainter& Painter)> Paint) {
  return toolkit::PaintedIcon([Paint = std::move(Paint)](QPainter& Painter, const QSizeF& Size) {
    Painter.scale(Size.width() / Side, Size.height() / Side);
    Paint(Painter);
  });
}

void AddTypes(toolkit::TImageList& List, QPointF At, qreal Scale) {
  for (const TType& Type : Types) {
    List.Add(Picture([&Type, At, Scale](QPainter& Painter) {
      Painter.translate(At);
      Painter.scale(Scale, Scale);
      PaintRimmed(Painter, Type.Shape(), Type.Colour);
    }));
  }
}

}  // namespace

toolkit::TImageList OrderIcons() {
  toolkit::TImageList List(Side, Side);
  for (auto* Paint : {PaintPage, PaintTickedPage, PaintClosedBox, PaintCoin, PaintCross, PaintOpenBox}) {
    List.Add(Picture(Paint));
  }
  AddTypes(List, QPointF(8, 8), 1);
  return List;
}

toolkit::TImageList TypeIcons() {
  toolkit::TImageList List(Side, Side);
  AddTypes(List, QPointF(0.5, 0.5), 2);
  return List;
}

}  // namespace purchasing
