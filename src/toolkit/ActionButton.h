#pragma once

#include <QPushButton>

#include "toolkit/zultoolkit_export.h"

class QAction;

namespace toolkit {

/// A push button whose caption is cut off with an ellipsis where it does not fit, and is its tool tip then.
class ZULTOOLKIT_EXPORT TActionButton : public QPushButton {
  Q_OBJECT
 public:
  explicit TActionButton(QWidget* Parent = nullptr);
  ~TActionButton() override;

  /// The pixels that there are for the caption.
  int CaptionRoom() const;

 protected:
  bool event(QEvent* Event) override;
  void initStyleOption(QStyleOptionButton* Option) const override;
};

/// Binds a button to an action: it shows the action's text and is enabled with it, and a click triggers the action.
ZULTOOLKIT_EXPORT void BindAction(QPushButton* Button, QAction* Action);

}  // namespace toolkit
