#include "toolkit/GroupBox.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "toolkit/WholeText.h"

namespace toolkit {

namespace {

constexpr int TitleLeft = 8;
constexpr int TitleRight = 4;  // at least, of a long title
constexpr int TitleGap = 2;    // between the title and the frame's line
constexpr qreal CornerRadius = 2;

}  // namespace

TGroupBox::TGroupBox(QWidget* Parent) : QGroupBox(Parent) {}
TGroupBox::~TGroupBox() = default;

int TGroupBox::CaptionRoom() const {
  return std::max(width() - TitleLeft - TitleRight, 0);
}

// A title that does not fit is to be read in its tool tip.
bool TGroupBox::event(QEvent* Event) {
  return ShowWholeText(Event, this, title(), CaptionRoom()) || QGroupBox::event(Event);
}

void TGroupBox::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  const QFontMetrics Metrics = fontMetrics();
  const QString Shown = ElidedCaption(*this, title(), CaptionRoom());
  const QRect Title =
      QStyle::visualRect(layoutDirection(), rect(),
                         QRect(TitleLeft, 0, Metrics.size(Qt::TextShowMnemonic, Shown).width(), Metrics.height()));
  Painter.setLayoutDirection(Qt::LayoutDirectionAuto);  // by its own letters
  style()->drawItemText(&Painter, Title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette(),
                        isEnabled(), Shown, QPalette::WindowText);
  if (!Shown.isEmpty()) {
    Painter.setClipRegion(QRegion(rect()) - Title.adjusted(-TitleGap, 0, TitleGap, 0));
  }
  QColor Line = palette().color(QPalette::WindowText);
  Line.setAlphaF(0.25F);
  Painter.setPen(Line);
  Painter.setRenderHint(QPainter::Antialiasing);
  const qreal Top = Metrics.height() / 2 + 0.5;
  Painter.drawRoundedRect(QRectF(0.5, Top, width() - 1, height() - Top - 0.5), CornerRadius, CornerRadius);
}

}  // namespace toolkit
