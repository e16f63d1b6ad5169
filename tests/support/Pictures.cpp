#include "support/Pictures.h"

#include <QPainter>

namespace support {

namespace {

QString FileOf(const QString& Name) {
  return QStringLiteral(ZUL_PICTURES_FOLDER) + '/' + Name + ".png";
}

QImage On(const QColor& Behind, const QList<QImage>& Pictures) {
  QImage Image(Pictures.first().size(), QImage::Format_RGB32);
  Image.fill(Behind);
  QPainter Painter(&Image);
  for (const QImage& Picture : Pictures) Painter.drawImage(0, 0, Picture);
  return Image;
}

}  // namespace

bool LooksLike(const QImage& A, const QImage& B) {
  if (A.size() != B.size() || A.isNull()) return false;
  const auto Near = [](int One, int Other) { return std::abs(One - Other) <= 24; };
  for (int Y = 0; Y < B.height(); ++Y) {
    for (int X = 0; X < B.width(); ++X) {
      const QRgb One = A.pixel(X, Y);
      const QRgb Other = B.pixel(X, Y);
      if (!Near(qRed(One), qRed(Other)) || !Near(qGreen(One), qGreen(Other)) || !Near(qBlue(One), qBlue(Other))) {
        return false;
      }
    }
  }
  return true;
}

bool LooksLikeKept(const QImage& Painted, const QString& Name) {
  if (qEnvironmentVariableIsSet("ZUL_WRITE_PICTURES")) return Painted.save(FileOf(Name));
  const QImage Kept(FileOf(Name));
  if (Kept.isNull()) return false;
  // What is transparent shows on one of the two.
  return LooksLike(On(Qt::white, {Painted}), On(Qt::white, {Kept})) &&
         LooksLike(On(Qt::black, {Painted}), On(Qt::black, {Kept}));
}

QImage KeptPictures(const QStringList& Names, const QColor& Behind) {
  QList<QImage> Pictures;
  for (const QString& Name : Names) {
    Pictures.append(QImage(FileOf(Name)));
    if (Pictures.last().isNull()) return {};
  }
  return On(Behind, Pictures);
}

}  // namespace support
