#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "frame/zulpicklists_export.h"
#include "toolkit/Form.h"

class QGroupBox;
class QLabel;
class QTimer;

namespace uZULPickPlsWait {

/// A small modeless window that tells the user that a query is running. Freed by its creator, or with its owner.
///
/// It cannot be closed by the user. `UpdateForm` and the timers serve events, so other handlers of the owning dialog
/// can run inside them.
class ZULPICKLISTS_EXPORT TZULPickPlsWait : public toolkit::TForm {
  Q_OBJECT
 public:
  TZULPickPlsWait(QWidget* Owner, const std::string& Message, bool ShowNow);
  ~TZULPickPlsWait() override;

  /// For a creator who serves events while it waits: the window counts as shown at once (`isVisible()`), but comes onto
  /// the screen only when 100 milliseconds have passed, so that nothing flashes for a wait that is over by then. It is
  /// painted when it comes, for which the events are served up to a tenth of a second. Does nothing for a window that
  /// is shown already.
  void ShowSoon();

  /// Shows another message at once.
  void UpdateForm(const std::string& Message);

  /// Every one and a half seconds: the caption with as many dots as `DotStep` says. The step stays as it is, so the
  /// dots do not cycle.
  void tmCaptTimer();

  void reject() override;

  /// Called for Escape in the window; guarded. Nothing happens without it, and while a `toolkit::TInputHeld` lives that
  /// one's is called instead.
  std::function<void()> OnEscape;

  QGroupBox* gbPleaseWait;
  QLabel* lblStatus;
  QTimer* tmCapt;
  std::uint8_t DotStep = 1;

 protected:
  void keyPressEvent(QKeyEvent* Event) override;
  void closeEvent(QCloseEvent* Event) override;

 private:
  void BringOntoScreen();
};

}  // namespace uZULPickPlsWait
