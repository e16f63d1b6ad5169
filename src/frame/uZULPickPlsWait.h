#pragma once

#include <cstdint>
#include <string>

#include "frame/zulpicklists_export.h"
#include "toolkit/Form.h"

class QGroupBox;
class QLabel;
class QTimer;

namespace uZULPickPlsWait {

/// A small modeless window that tells the user that a query is running. Freed by its creator, or with its owner.
///
/// It cannot be closed by the user. `UpdateForm` and the timer run the event loop, so other handlers of the owning
/// dialog can run inside them.
class ZULPICKLISTS_EXPORT TZULPickPlsWait : public toolkit::TForm {
  Q_OBJECT
 public:
  TZULPickPlsWait(QWidget* Owner, const std::string& Message, bool ShowNow);
  ~TZULPickPlsWait() override;

  /// Shows another message at once.
  void UpdateForm(const std::string& Message);

  /// Every one and a half seconds: the caption with as many dots as `DotStep` says. The step stays as it is, so the
  /// dots do not cycle.
  void tmCaptTimer();

  void reject() override;

  QGroupBox* gbPleaseWait;
  QLabel* lblStatus;
  QTimer* tmCapt;
  std::uint8_t DotStep = 1;

 protected:
  void closeEvent(QCloseEvent* Event) override;
};

}  // namespace uZULPickPlsWait
