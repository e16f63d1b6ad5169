#include "toolkit/GroupBox.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

#include "toolkit/Mnemonic.h"

namespace toolkit {

namespace {

constexpr int TitleLeft = 8;
constexpr int TitleRight = 4;  // at least, of a long title
constexpr int TitleGap = 2;  // between the title and the frame's line
constexpr qreal CornerRadius = 2;

}  // namespace

TGroupBox::TGroupBox(QWidget* Parent) : QGroupBox(Parent) {}
TGroupBox::~TGroupBox() = default;

QString TGroupBox::ShownTitle() const {
  return fontMetrics().elidedText(title(), Qt::ElideRight, std::max(width() - TitleLeft - TitleRight, 0),
                                  Qt::TextShowMnemonic);
}

// A title that does not fit is to be read in its tool tip.
bool TGroupBox::event(QEvent* Event) {
  if (Event->type() != QEvent::ToolTip || !toolTip().isEmpty() || ShownTitle() == title()) {
    return QGroupBox::event(Event);
  }
  QToolTip::showText(static_cast<QHelpEvent*>(Event)->globalPos(), WithoutMnemonic(title()).toHtmlEscaped(), this);
  return true;
}

void TGroupBox::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  const QFontMetrics Metrics = fontMetrics();
  const QString Shown = ShownTitle();
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
