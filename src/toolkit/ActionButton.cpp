#include "toolkit/ActionButton.h"

#include <QAction>
#include <QPushButton>

namespace toolkit {

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
