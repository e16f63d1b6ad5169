#include "pickbase/PickCall.h"

#include <QLineEdit>

#include "pickbase/uDocPickBase.h"

namespace pickbase {

namespace {

TPickCall*& Innermost() {
  static thread_local TPickCall* Instance = nullptr;
  return Instance;
}

TPickWatch*& InnermostWatch() {
  static thread_local TPickWatch* Instance = nullptr;
  return Instance;
}

}  // namespace

TPickCall::TPickCall() : Outer_(std::exchange(Innermost(), this)) {}

TPickCall::~TPickCall() {
  Innermost() = Outer_;
}

TPickCall* TPickCall::Current() {
  return Innermost();
}

bool TPickCall::IsUnderWay(const TPickCall* Call) {
  for (const TPickCall* Each = Innermost(); Each != nullptr; Each = Each->Outer_) {
    if (Each == Call) return true;
  }
  return false;
}

void TPickCall::HoldInput() {
  if (Input_ != nullptr) return;
  Input_ = std::make_unique<toolkit::TInputHeld>([this] {
    if (const auto GiveUp = OnGiveUp) GiveUp();
  });
}

void TPickCall::DialogIsUp(QLineEdit* FindBox) {
  if (Input_ == nullptr) return;
  const std::vector<toolkit::TTypedKey> Keys = Input_->TakeTyped();
  Input_.reset();
  if (FindBox != nullptr) toolkit::Type(FindBox, Keys);
}

TPickWatch::TPickWatch() : Outer_(std::exchange(InnermostWatch(), this)) {}

TPickWatch::~TPickWatch() {
  InnermostWatch() = Outer_;
}

bool TPickWatch::Show(uDocPickBase::TDocPickBase& Dialog) {
  const TPickWatch* Watch = InnermostWatch();
  if (Watch != nullptr && Watch->OnBuilt && !Watch->OnBuilt(Dialog)) return false;
  return Dialog.ShowPick();
}

void TPickWatch::NotChosen(std::unique_ptr<uDocPickBase::TDocPickBase> Dialog) {
  const TPickWatch* Watch = InnermostWatch();
  if (Watch != nullptr && Watch->OnNotChosen) Watch->OnNotChosen(std::move(Dialog));
}

void TPickWatch::Chosen(uDocPickBase::TDocPickBase& Dialog) {
  const TPickWatch* Watch = InnermostWatch();
  if (Watch != nullptr && Watch->OnChosen) Watch->OnChosen(Dialog);
}

}  // namespace pickbase
