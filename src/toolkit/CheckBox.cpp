#include "toolkit/CheckBox.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QToolTip>

#include "toolkit/ChoicePainting.h"

namespace toolkit {

namespace {

constexpr int Height = 14;

}  // namespace

TCheckBox::TCheckBox(QWidget* Parent) : QCheckBox(Parent) {}
TCheckBox::TCheckBox(const QString& Caption, QWidget* Parent) : QCheckBox(Caption, Parent) {}
TCheckBox::~TCheckBox() = default;

QSize TCheckBox::sizeHint() const {
  return {QCheckBox::sizeHint().width(), Height};
}

bool TCheckBox::event(QEvent* Event) {
  const QString Whole = Event->type() == QEvent::ToolTip ? ChoiceToolTip(*this, text()) : QString();
  if (Whole.isEmpty()) return QCheckBox::event(Event);
  QToolTip::showText(static_cast<QHelpEvent*>(Event)->globalPos(), Whole, this);
  return true;
}

bool TCheckBox::hitButton(const QPoint& Position) const {
  return rect().contains(Position);
}

void TCheckBox::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  QStyleOptionButton Option;
  initStyleOption(&Option);
  PaintChoice(Painter, *this, Option, QStyle::PE_IndicatorCheckBox, text());
}

}  // namespace toolkit
