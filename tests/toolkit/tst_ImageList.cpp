#include <QTest>
#include <QtWidgets>

#include "toolkit/ImageList.h"

using toolkit::PaintedIcon;
using toolkit::TImageList;

namespace {

constexpr QRgb Clear = 0;

// A red lower right quarter, everything else left out.
QIcon Quarter() {
  return PaintedIcon([](QPainter& Painter, const QSizeF& Size) {
    Painter.fillRect(QRectF(Size.width() / 2, Size.height() / 2, Size.width() / 2, Size.height() / 2), Qt::red);
  });
}

QImage Canvas(int Width, int Height, qreal Scale) {
  QImage Image((QSizeF(Width, Height) * Scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  Image.setDevicePixelRatio(Scale);
  Image.fill(Qt::transparent);
  return Image;
}

QImage Drawn(const TImageList& List, int X, int Y, int Index, bool Enabled = true, qreal Scale = 1) {
  QImage Image = Canvas(40, 40, Scale);
  QPainter Painter(&Image);
  List.Draw(Painter, X, Y, Index, Enabled);
  return Image;
}

QRect Ink(const QImage& Image) {
  QRect Result;
  for (int Y = 0; Y < Image.height(); ++Y) {
    for (int X = 0; X < Image.width(); ++X) {
      if (qAlpha(Image.pixel(X, Y)) != 0) Result |= QRect(X, Y, 1, 1);
    }
  }
  return Result;
}

}  // namespace

class tst_ImageList : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldNumberThePictures() {
    TImageList List(16, 16);
    QCOMPARE(List.Count(), 0);
    QCOMPARE(List.Size(), QSize(16, 16));
    QCOMPARE(List.Add(Quarter()), 0);
    QCOMPARE(List.Add(Quarter()), 1);
    QCOMPARE(List.Count(), 2);
  }

  void shouldDrawAtThePlaceAndLeaveTheRestTransparent() {
    TImageList List(16, 16);
    List.Add(Quarter());
    const QImage Image = Drawn(List, 10, 4, 0);
    QCOMPARE(Ink(Image), QRect(18, 12, 8, 8));
    QCOMPARE(Image.pixel(20, 14), QColor(Qt::red).rgb());
    QCOMPARE(Image.pixel(10, 4), Clear);
  }

  void shouldLayOnePictureOverAnother() {
    TImageList List(16, 16);
    List.Add(PaintedIcon(
        [](QPainter& Painter, const QSizeF& Size) { Painter.fillRect(QRectF(QPointF(0, 0), Size), Qt::blue); }));
    List.Add(Quarter());
    QImage Image = Canvas(16, 16, 1);
    QPainter Painter(&Image);
    List.Draw(Painter, 0, 0, 0);
    List.Draw(Painter, 0, 0, 1);
    QCOMPARE(Image.pixel(2, 2), QColor(Qt::blue).rgb());
    QCOMPARE(Image.pixel(12, 12), QColor(Qt::red).rgb());
  }

  void shouldDrawNothingForANumberWithoutAPicture() {
    TImageList List(16, 16);
    List.Add(Quarter());
    QVERIFY(Ink(Drawn(List, 0, 0, -1)).isNull());
    QVERIFY(Ink(Drawn(List, 0, 0, 1)).isNull());
  }

  void shouldBeSharpOnAHighDpiScreen() {
    TImageList List(15, 15);
    List.Add(
        PaintedIcon([](QPainter& Painter, const QSizeF&) { Painter.fillRect(QRectF(0.5, 0.5, 3, 3), Qt::black); }));
    const QImage Image = Drawn(List, 2, 2, 0, true, 2);
    QCOMPARE(Ink(Image), QRect(5, 5, 6, 6));
    QCOMPARE(Image.pixel(5, 5), QColor(Qt::black).rgb());
    QCOMPARE(Image.pixel(10, 10), QColor(Qt::black).rgb());
  }

  void shouldGreyADisabledPicture_data() {
    QTest::addColumn<qreal>("scale");
    QTest::newRow("96 dpi") << 1.0;
    QTest::newRow("192 dpi") << 2.0;
  }

  void shouldGreyADisabledPicture() {
    QFETCH(qreal, scale);
    TImageList List(16, 16);
    List.Add(Quarter());
    const QImage Image = Drawn(List, 0, 0, 0, false, scale);
    const int Side = qRound(8 * scale);
    QCOMPARE(Ink(Image), QRect(Side, Side, Side, Side));
    const QColor Colour = Image.pixelColor(Side + 2, Side + 2);
    QVERIFY2(Colour.saturation() < 60, qPrintable(Colour.name()));
  }

  void shouldGivePixmapsOfTheSizeWanted() {
    const QIcon Icon = Quarter();
    QVERIFY(!Icon.isNull());
    const QPixmap Small = Icon.pixmap(QSize(16, 16), 1.0);
    QCOMPARE(Small.size(), QSize(16, 16));
    QCOMPARE(Ink(Small.toImage()), QRect(8, 8, 8, 8));
    const QPixmap Large = Icon.pixmap(QSize(16, 16), 3.0);
    QCOMPARE(Large.size(), QSize(48, 48));
    QCOMPARE(Ink(Large.toImage()), QRect(24, 24, 24, 24));
  }

  void shouldLeaveThePainterAsItWas() {
    TImageList List(16, 16);
    List.Add(PaintedIcon([](QPainter& Painter, const QSizeF&) {
      Painter.setPen(Qt::red);
      Painter.translate(50, 50);
    }));
    QImage Image = Canvas(16, 16, 1);
    QPainter Painter(&Image);
    Painter.setPen(Qt::green);
    List.Draw(Painter, 3, 3, 0);
    QCOMPARE(Painter.pen().color(), QColor(Qt::green));
    QVERIFY(Painter.transform().isIdentity());
    QVERIFY(!Painter.testRenderHint(QPainter::Antialiasing));
  }

  void shouldTakeOrdinaryIcons() {
    QPixmap Pixmap(16, 16);
    Pixmap.fill(Qt::green);
    TImageList List(16, 16);
    List.Add(QIcon(Pixmap));
    QCOMPARE(Ink(Drawn(List, 1, 2, 0)), QRect(1, 2, 16, 16));
  }
};

QTEST_MAIN(tst_ImageList)
#include "tst_ImageList.moc"
