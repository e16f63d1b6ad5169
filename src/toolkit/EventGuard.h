#pragma once

#include <functional>
#include <string>

#include "toolkit/zultoolkit_export.h"

class QWidget;

namespace toolkit {

/// Runs the body of an event handler. Nothing may be thrown through the event loop: an exception's message is shown in
/// an error box over `Over` instead, and the handler ends there. Returns whether it ran to its end.
ZULTOOLKIT_EXPORT bool Guarded(QWidget* Over, const std::function<void()>& Body);

/// A modal box with an OK button and an error sign (object name "ErrorBox"), over `Over` and titled like it. Returns
/// when the user has closed it.
ZULTOOLKIT_EXPORT void ShowError(QWidget* Over, const std::string& Message);

}  // namespace toolkit
