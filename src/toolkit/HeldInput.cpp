#include "toolkit/HeldInput.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

#include "toolkit/EventGuard.h"
#include "toolkit/Own.h"

namespace toolkit {

namespace {

enum class TInput : std::uint8_t { None, Opening, MaybeShortcut, Key, Composed, Shortcut, Pointer, Drop, Close };

TInput InputOf(const QEvent& Event) {
  switch (Event.type()) {
    case QEvent::Show:
      return TInput::Opening;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return TInput::Key;
    case QEvent::ShortcutOverride:
      return TInput::MaybeShortcut;
    case QEvent::InputMethod:
      return TInput::Composed;
    case QEvent::Shortcut:
      return TInput::Shortcut;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::ContextMenu:
      return TInput::Pointer;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return TInput::Drop;
    case QEvent::Close:
      return TInput::Close;
    default:
      return TInput::None;
  }
}

// A window of widgets gets its events by way of a QWindow.
QObject* WidgetOrSelf(QObject* Receiver) {
  const auto* Window = qobject_cast<QWindow*>(Receiver);
  QWidget* Widget = Window != nullptr && Window->handle() != nullptr ? QWidget::find(Window->winId()) : nullptr;
  return Widget != nullptr ? Widget : Receiver;
}

bool TakesKeys(const QObject* Object) {
  const auto* Widget = qobject_cast<const QWidget*>(Object);
  return Widget == nullptr || !Widget->window()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus);
}

bool IsModalOrPopup(const QObject* Receiver) {
  if (const auto* Window = qobject_cast<const QWindow*>(Receiver)) {
    return Window->modality() != Qt::NonModal || Window->type() == Qt::Popup;
  }
  const auto* Widget = qobject_cast<const QWidget*>(Receiver);
  return Widget != nullptr && Widget->isWindow() && (Widget->isModal() || Widget->windowType() == Qt::Popup);
}

bool IsCharacter(char32_t Character) {
  return QChar::category(Character) != QChar::Other_Control;
}

std::optional<TTypedKey> TypedKey(const QKeyEvent& Key) {
  const auto Modifiers = Key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier);
  const TTypedKey Typed{Key.key(), Key.text()};
  const bool Edits = Typed.Key == Qt::Key_Backspace || Typed.Key == Qt::Key_Return || Typed.Key == Qt::Key_Enter;
  if (Edits) return Modifiers == Qt::NoModifier ? std::optional(Typed) : std::nullopt;
  // Both together are what some keyboards send for the key of the third characters.
  if (Modifiers != Qt::NoModifier && Modifiers != (Qt::ControlModifier | Qt::AltModifier)) return {};
  const QList<uint> Characters = Typed.Text.toUcs4();
  return !Characters.isEmpty() && IsCharacter(Characters.first()) ? std::optional(Typed) : std::nullopt;
}

}  // namespace

void THeldInput::Begin(const TInputHeld* Holder, std::function<void()> OnEscape) {
  Holders_.push_back({Holder, std::move(OnEscape), Keys_.size()});
}

auto THeldInput::Find(const TInputHeld* Holder) {
  return std::ranges::find(Holders_, Holder, &THolder::Is);
}

void THeldInput::End(const TInputHeld* Holder) {
  Holders_.erase(Find(Holder));
}

std::vector<TTypedKey> THeldInput::Take(const TInputHeld* Holder) {
  const auto First = Keys_.begin() + static_cast<std::ptrdiff_t>(Find(Holder)->From);
  std::vector<TTypedKey> Taken(std::make_move_iterator(First), std::make_move_iterator(Keys_.end()));
  Keys_.erase(First, Keys_.end());
  for (THolder& Each : Holders_) Each.From = std::min(Each.From, Keys_.size());
  return Taken;
}

bool THeldInput::Swallows(QObject* Receiver, QEvent* Event) {
  switch (InputOf(*Event)) {
    case TInput::Opening:
      NoteOpened(Receiver);
      return false;
    case TInput::MaybeShortcut:
      if (MayType(Receiver)) return false;
      Event->accept();  // which says that the key is none, and is to be typed
      return true;
    case TInput::Key:
      if (!Event->spontaneous() || MayType(Receiver)) return false;
      Event->accept();
      if (Event->type() == QEvent::KeyPress) Keep(static_cast<const QKeyEvent&>(*Event));
      return true;
    case TInput::Composed:
      if (MayType(Receiver)) return false;
      Event->accept();
      KeepCommitted(static_cast<const QInputMethodEvent&>(*Event));
      return true;
    case TInput::Shortcut:
      return !IsFree(Receiver);
    case TInput::Pointer:
      if (!Event->spontaneous() || MayReach(Receiver)) return false;
      Event->accept();  // what is not accepted is sent once more: to the parent, or as a click
      return true;
    case TInput::Drop:
      if (IsFree(WidgetOrSelf(Receiver))) return false;
      Event->ignore();
      return true;
    case TInput::Close:
      if (IsFree(WidgetOrSelf(Receiver)) || !IsUsersClose(Receiver)) return false;
      Event->ignore();
      return true;
    case TInput::None:
      break;
  }
  return false;
}

// Whether an object may have what the user does: it is in an own window, or in one that nobody else could end.
bool THeldInput::IsFree(const QObject* Object) const {
  if (IsOwn(Object)) return true;
  for (; Object != nullptr && !Opened_.empty(); Object = Object->parent()) {
    if (std::ranges::find(Opened_, Object) != Opened_.end()) return true;
  }
  return false;
}

// While a popup is open, every window of widgets hands keys and clicks on to it.
QObject* THeldInput::Target(QObject* Receiver) const {
  QWidget* Popup = QApplication::activePopupWidget();
  return Receiver->isWindowType() && IsFree(Popup) ? Popup : WidgetOrSelf(Receiver);
}

bool THeldInput::MayReach(QObject* Receiver) const {
  return IsFree(Target(Receiver));
}

bool THeldInput::MayType(QObject* Receiver) const {
  const QObject* Object = Target(Receiver);
  return IsFree(Object) && TakesKeys(Object);
}

void THeldInput::NoteOpened(QObject* Window) {
  if (!IsModalOrPopup(Window)) return;
  std::erase_if(Opened_, [](const QPointer<QObject>& Each) { return Each.isNull(); });
  Opened_.emplace_back(Window);
}

// A window's close() and its close button send it the same event. But close() calls nothing for a window that is
// closing already, and sends the event for any other, which is then this one's twin and is swallowed too.
bool THeldInput::IsUsersClose(QObject* Receiver) {
  auto* Window = qobject_cast<QWindow*>(Receiver);
  if (Window == nullptr) return false;  // a widget's event comes from within that of its window
  if (Probing_) return true;
  Probing_ = true;
  const bool IsClosing = Window->close();
  Probing_ = false;
  return !IsClosing;
}

void THeldInput::Keep(const QKeyEvent& Key) {
  if (Key.isAutoRepeat()) return;
  const bool IsEscape = Key.key() == Qt::Key_Escape && (Key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (IsEscape) return Escape();
  if (const std::optional<TTypedKey> Typed = TypedKey(Key)) Keys_.push_back(*Typed);
}

void THeldInput::KeepCommitted(const QInputMethodEvent& Composed) {
  for (const uint Character : Composed.commitString().toUcs4()) {
    const char32_t Code = Character;
    if (IsCharacter(Code)) Keys_.push_back({0, QString::fromUcs4(&Code, 1)});
  }
}

void THeldInput::Escape() const {
  // A copy, because it may end what it belongs to.
  const std::function<void()> OnEscape = Holders_.back().OnEscape;
  if (OnEscape) Guarded(nullptr, OnEscape);
}

}  // namespace toolkit
