#include "pickbase/PickCall.h"

#include <QLineEdit>

namespace pickbase {

namespace {

TPickCall*& Innermost() {
  static thread_local TPickCall* Instance = nullptr;
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

}  // namespace pickbase
