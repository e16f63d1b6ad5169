#include "toolkit/Label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "toolkit/WholeText.h"

namespace toolkit {

TLabel::TLabel(QWidget* Parent) : QLabel(Parent) {
  setTextFormat(Qt::PlainText);
}

TLabel::~TLabel() = default;

QString TLabel::ShownText() const {
  const int Room = contentsRect().width();
  const QFontMetrics Metrics = fontMetrics();
  if (!wordWrap()) return Metrics.elidedText(text(), Qt::ElideRight, Room);
  QStringList Words = text().split(u' ');
  for (QString& Word : Words) Word = Metrics.elidedText(Word, Qt::ElideRight, Room);
  return Words.join(u' ');
}

bool TLabel::IsCutOff() const {
  if (ShownText() != text()) return true;
  const QRect Place = contentsRect();
  return wordWrap() && fontMetrics().boundingRect(Place, Qt::TextWordWrap, text()).height() > Place.height();
}

bool TLabel::event(QEvent* Event) {
  const bool IsAsked = Event->type() == QEvent::ToolTip && toolTip().isEmpty() && IsCutOff();
  if (!IsAsked) return QLabel::event(Event);
  QToolTip::showText(static_cast<QHelpEvent*>(Event)->globalPos(), AsToolTip(text()), this);
  return true;
}

void TLabel::paintEvent(QPaintEvent* Event) {
  if (!IsCutOff()) return QLabel::paintEvent(Event);
  QPainter Painter(this);
  const int Alignment = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                        (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
  style()->drawItemText(&Painter, contentsRect(), Alignment, palette(), isEnabled(), ShownText(), foregroundRole());
}

}  // namespace toolkit
