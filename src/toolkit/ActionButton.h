#pragma once

#include "toolkit/zultoolkit_export.h"

class QAction;
class QPushButton;

namespace toolkit {

/// Binds a button to an action: it shows the action's text and is enabled with it, and a click triggers the action.
ZULTOOLKIT_EXPORT void BindAction(QPushButton* Button, QAction* Action);

}  // namespace toolkit
