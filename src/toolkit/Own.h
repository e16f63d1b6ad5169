#pragma once

class QObject;

namespace toolkit {

/// Whether an object belongs to one of the library's windows: a TForm, what was declared to be own, and everything in
/// them or owned by them (boxes, popup menus, timers). Null is not.
bool IsOwn(const QObject* Object);

/// Declares a window that is no TForm to be one of the library's, whoever owns it.
void DeclareOwn(QObject* Window);

}  // namespace toolkit
