#include "toolkit/CheckBox.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "toolkit/ChoicePainting.h"
#include "toolkit/WholeText.h"

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

int TCheckBox::CaptionRoom() const {
  return ChoiceTextRect(*this).width();
}

bool TCheckBox::event(QEvent* Event) {
  return ShowWholeText(Event, this, text(), CaptionRoom()) || QCheckBox::event(Event);
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
