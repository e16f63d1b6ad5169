#include "toolkit/ImageList.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <utility>

namespace toolkit {

namespace {

using TPaint = std::function<void(QPainter& Painter, const QSizeF& Size)>;

class TPaintedIconEngine : public QIconEngine {
 public:
  explicit TPaintedIconEngine(TPaint Paint) : Paint_(std::move(Paint)) {}

  QIconEngine* clone() const override { return new TPaintedIconEngine(*this); }
  QString key() const override { return QStringLiteral("PaintedIcon"); }

  void paint(QPainter* Painter, const QRect& Rect, QIcon::Mode Mode, QIcon::State State) override {
    if (Mode == QIcon::Normal) {
      Painter->save();
      Painter->translate(Rect.topLeft());
      Painter->setRenderHint(QPainter::Antialiasing);
      Paint_(*Painter, QSizeF(Rect.size()));
      Painter->restore();
      return;
    }
    const qreal Scale = Painter->device()->devicePixelRatio();
    Painter->drawPixmap(Rect, scaledPixmap((QSizeF(Rect.size()) * Scale).toSize(), Mode, State, Scale));
  }

  QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override {
    return scaledPixmap(Size, Mode, State, 1);
  }

  // `Size` is in the pixels of the device; the picture's pens and margins grow with the scale.
  QPixmap scaledPixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State, qreal Scale) override {
    QPixmap Picture(Size);
    Picture.fill(Qt::transparent);
    {
      QPainter Painter(&Picture);
      Painter.setRenderHint(QPainter::Antialiasing);
      Painter.scale(Scale, Scale);
      Paint_(Painter, QSizeF(Size) / Scale);
    }
    if (Mode == QIcon::Normal) return Picture;
    QStyleOption Option;
    Option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(Mode, Picture, &Option);
  }

 private:
  TPaint Paint_;
};

}  // namespace

QIcon PaintedIcon(TPaint Paint) {
  return QIcon(new TPaintedIconEngine(std::move(Paint)));
}

int TImageList::Add(const QIcon& Image) {
  Images_.push_back(Image);
  return Count() - 1;
}

void TImageList::Draw(QPainter& Painter, int X, int Y, int Index, bool Enabled) const {
  if (Index < 0 || Index >= Count()) return;
  Images_[static_cast<std::size_t>(Index)].paint(&Painter, QRect(QPoint(X, Y), Size_), Qt::AlignLeft | Qt::AlignTop,
                                                 Enabled ? QIcon::Normal : QIcon::Disabled);
}

}  // namespace toolkit
