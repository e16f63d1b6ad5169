#include "toolkit/ActionButton.h"

#include <QAction>
#include <QStyleOptionButton>

#include "toolkit/WholeText.h"

namespace toolkit {

TActionButton::TActionButton(QWidget* Parent) : QPushButton(Parent) {}
TActionButton::~TActionButton() = default;

int TActionButton::CaptionRoom() const {
  QStyleOptionButton Option;
  QPushButton::initStyleOption(&Option);
  return style()->subElementRect(QStyle::SE_PushButtonContents, &Option, this).width();
}

bool TActionButton::event(QEvent* Event) {
  return ShowWholeText(Event, this, text(), CaptionRoom()) || QPushButton::event(Event);
}

void TActionButton::initStyleOption(QStyleOptionButton* Option) const {
  QPushButton::initStyleOption(Option);
  Option->text = ElidedCaption(*this, text(), CaptionRoom());
}

void BindAction(QPushButton* Button, QAction* Action) {
  const auto Follow = [Button, Action] {
    Button->setText(Action->text());
    Button->setEnabled(Action->isEnabled());
  };
  Follow();
  // Each connection ends with either of the two.
  QObject::connect(Action, &QAction::changed, Button, Follow);
  QObject::connect(Button, &QPushButton::clicked, Action, [Action] { Action->trigger(); });
}

}  // namespace toolkit
