#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "toolkit/zultoolkit_export.h"

class QWidget;

// The quiet loop: how a wait keeps the windows alive without anything happening behind its back. All of it belongs to
// the thread of the user interface and works while there is an application; without one it does nothing.
//
// "Own" windows are the library's: a TForm, the error box, and everything in them or owned by them (popup menus,
// timers). All others are foreign.
namespace toolkit {

/// The only place that serves events while something waits. Serves what is there, without waiting for more. Handlers
/// run inside of it, so an object of the caller's may be gone afterwards.
ZULTOOLKIT_EXPORT void ServeEvents();

/// A key that was typed into a window that was not to have it: a character (`Text`), Backspace, Return or Enter.
struct TTypedKey {
  int Key = 0;   ///< Qt::Key; 0 for a character that an input method has composed
  QString Text;  ///< as a line edit would insert it
  bool operator==(const TTypedKey&) const = default;
};

/// While one lives, nothing that the user does reaches a foreign window: no key, click, movement or wheel of the mouse,
/// touch, pen, gesture, drop, shortcut, context menu, input method, nor the window's close button. The own windows get
/// all of it, and all windows are painted, moved and resized as ever. What a program does itself (`close()`, events
/// that it sends) is no input and passes.
///
/// Two kinds of foreign windows get their input nevertheless, because nobody else could end them: modal windows and
/// popups that are opened meanwhile, as by a queued call. What reaches a program otherwise than as an event of a window
/// (a tray icon, a menu bar of the desktop's) cannot be held back.
///
/// What is typed is kept: characters, Backspace, Return and Enter, in order, without those that repeat themselves and
/// those with Ctrl, Alt or Meta. A window that does not accept the focus, such as a please-wait window, takes no keys
/// either.
///
/// They may be nested and end in any order. A typed key is there for each that lives when it is typed, and is gone with
/// the first `TakeTyped`: so an inner wait that has no use for the keys leaves them to the outer one.
class ZULTOOLKIT_EXPORT TInputHeld {
 public:
  /// `OnEscape` is called at once when Escape is pressed in a window that takes no keys; of several the innermost
  /// one's. It is guarded, may be null and may end any TInputHeld. In an own window that does take keys (a dialog, a
  /// popup menu) Escape does what it always does there, and nobody is called.
  explicit TInputHeld(std::function<void()> OnEscape);
  ~TInputHeld();
  TInputHeld(const TInputHeld&) = delete;
  TInputHeld& operator=(const TInputHeld&) = delete;

  /// The keys typed since this one began, but for those that were taken already. Serve the events once more before, so
  /// that none still waits in the event queue.
  std::vector<TTypedKey> TakeTyped();
};

/// Sends kept keys to a widget, in order, as if they were typed into it now; it need not be shown or have the focus.
/// The handlers run meanwhile: when one of them destroys the widget, the rest is dropped.
ZULTOOLKIT_EXPORT void Type(QWidget* Into, const std::vector<TTypedKey>& Keys);

/// While one lives, foreign timers and socket notifiers wait, for a connection that cannot be shared in the midst of a
/// result. Qt's own timers of a QWindow and of the application object go on: windows are painted, tool tips are shown.
///
/// Held is what would have come: a timer ticks once when the last TOthersHeld ends, however often it was due, and then
/// goes on in its interval; a single shot fires then; a socket reports then what it has. A timer that was stopped or
/// destroyed meanwhile stays silent. Held timers and sockets use no processor time. Meanwhile such a timer's remaining
/// time is of no meaning, and QTimer::singleShot must not be used for the library's own purposes: its timer belongs to
/// nobody.
///
/// Queued calls and other posted events, other threads, and event sources beside Qt's cannot be held back. Where such a
/// call waits in an event loop of its own inside of ServeEvents, timers and sockets are served until that has returned,
/// for that loop may never end otherwise.
class ZULTOOLKIT_EXPORT TOthersHeld {
 public:
  TOthersHeld();
  ~TOthersHeld();
  TOthersHeld(const TOthersHeld&) = delete;
  TOthersHeld& operator=(const TOthersHeld&) = delete;
};

}  // namespace toolkit
