#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "frame/zulpicklists_export.h"
#include "toolkit/QuietLoop.h"

class QLineEdit;

namespace uDocPickBase {
class TDocPickBase;
}

/// The convention that every exported pick function follows, written once: create the dialog, show it, take the key
/// when it was closed with OK, free the dialog in every case.
namespace pickbase {

/// A pick that is under way. Until its dialog is on the screen, nothing that the user does reaches another window: what
/// is typed goes to the find box then, and Escape gives the pick up.
class ZULPICKLISTS_EXPORT TPickCall {
 public:
  TPickCall();
  ~TPickCall();
  TPickCall(const TPickCall&) = delete;
  TPickCall& operator=(const TPickCall&) = delete;

  /// The innermost one of this thread; null when there is none.
  static TPickCall* Current();
  /// Whether a call of this thread has not ended yet; null has.
  static bool IsUnderWay(const TPickCall* Call);

  /// Begins to hold the input; on the thread of the user interface.
  void HoldInput();
  /// Called when the user gives the pick up before its dialog is shown.
  std::function<void()> OnGiveUp;
  /// The dialog is on the screen. What was typed so far goes into its find box; null throws it away.
  void DialogIsUp(QLineEdit* FindBox);

 private:
  TPickCall* Outer_;
  std::unique_ptr<toolkit::TInputHeld> Input_;
};

/// While it lives, it is told of the pick functions that are called on this thread; the innermost one only.
class ZULPICKLISTS_EXPORT TPickWatch {
 public:
  TPickWatch();
  ~TPickWatch();
  TPickWatch(const TPickWatch&) = delete;
  TPickWatch& operator=(const TPickWatch&) = delete;

  /// A dialog is complete and its list open. Whether it is to be shown: when it is not, the function answers as for
  /// Cancel. What is thrown reaches the function's caller.
  std::function<bool(uDocPickBase::TDocPickBase& Dialog)> OnBuilt;
  /// Nothing was chosen. The dialog goes with this unless it is kept; it may outlive the call.
  std::function<void(std::unique_ptr<uDocPickBase::TDocPickBase> Dialog)> OnNotChosen;
  /// The user has chosen; the dialog still has its list, and the ticks in it.
  std::function<void(uDocPickBase::TDocPickBase& Dialog)> OnChosen;

  // For `Pick`.
  static bool Show(uDocPickBase::TDocPickBase& Dialog);
  static void NotChosen(std::unique_ptr<uDocPickBase::TDocPickBase> Dialog);
  static void Chosen(uDocPickBase::TDocPickBase& Dialog);

 private:
  TPickWatch* Outer_;
};

/// Runs one pick; `Take` reads what the user chose from the dialog. Whether something was chosen.
template <typename TDialog, typename TTake, typename... TArgs>
bool Pick(TTake Take, TArgs... Args) {
  TPickCall Call;
  std::unique_ptr<TDialog> Dialog = TDialog::Create(std::move(Args)...);
  if (!TPickWatch::Show(*Dialog)) {
    TPickWatch::NotChosen(std::move(Dialog));
    return false;
  }
  Take(*Dialog);
  TPickWatch::Chosen(*Dialog);
  return true;
}

/// A pick with a text key that is in-out: it stays as it is when nothing is chosen.
template <typename TDialog, typename... TArgs>
bool PickTextInOut(std::string& Key, std::string (TDialog::*Accessor)() const, TArgs... Args) {
  return Pick<TDialog>([&](const TDialog& Dialog) { Key = (Dialog.*Accessor)(); }, std::move(Args)...);
}

/// A pick with a text key that is output only: it is empty unless something is chosen, also when the pick throws. The
/// arguments are taken by value, so the caller may pass the same variable as argument and key.
template <typename TDialog, typename... TArgs>
bool PickText(std::string& Key, std::string (TDialog::*Accessor)() const, TArgs... Args) {
  Key.clear();
  return PickTextInOut<TDialog>(Key, Accessor, std::move(Args)...);
}

/// A pick with several outputs, read by `Take`: the texts `Keys` are output only, as that of `PickText`.
template <typename TDialog, typename TTake, typename... TArgs>
bool PickTexts(std::initializer_list<std::string*> Keys, TTake Take, TArgs... Args) {
  for (std::string* Key : Keys) Key->clear();
  return Pick<TDialog>(std::move(Take), std::move(Args)...);
}

/// A pick with a whole number as key: it stays as it is when nothing is chosen.
template <typename TDialog, typename... TArgs>
bool PickInteger(std::int32_t& Key, std::int32_t (TDialog::*Accessor)() const, TArgs... Args) {
  return Pick<TDialog>([&](const TDialog& Dialog) { Key = (Dialog.*Accessor)(); }, std::move(Args)...);
}

}  // namespace pickbase
