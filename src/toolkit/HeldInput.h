#pragma once

#include <QPointer>
#include <cstddef>
#include <functional>
#include <vector>

#include "toolkit/QuietLoop.h"

class QEvent;
class QInputMethodEvent;
class QKeyEvent;
class QObject;

namespace toolkit {

/// What the user does while a TInputHeld lives: to whom it may go, and what is kept of it.
class THeldInput {
 public:
  void Begin(const TInputHeld* Holder, std::function<void()> OnEscape);
  void End(const TInputHeld* Holder);
  bool Empty() const { return Holders_.empty(); }
  std::vector<TTypedKey> Take(const TInputHeld* Holder);

  /// Whether the event is to be kept from its receiver. An Escape ends the innermost wait, and so maybe this object: it
  /// must not be used after true.
  bool Swallows(QObject* Receiver, QEvent* Event);

 private:
  struct THolder {
    const TInputHeld* Is;
    std::function<void()> OnEscape;
    std::size_t From;  // the first of Keys_ that was typed while it lived
  };

  auto Find(const TInputHeld* Holder);
  bool IsFree(const QObject* Object) const;
  QObject* Target(QObject* Receiver) const;
  bool MayReach(QObject* Receiver) const;
  bool MayType(QObject* Receiver) const;
  void NoteOpened(QObject* Window);
  bool IsUsersClose(QObject* Receiver);
  void Keep(const QKeyEvent& Key);
  void KeepCommitted(const QInputMethodEvent& Composed);
  void Escape() const;

  std::vector<THolder> Holders_;
  std::vector<TTypedKey> Keys_;
  std::vector<QPointer<QObject>> Opened_;  // windows that only the user can end
  bool Probing_ = false;
};

}  // namespace toolkit
