#pragma once

#include <QApplication>
#include <QTimer>

#include "pickbase/uDocPickBase.h"

namespace support {

/// Takes the first row of every pick that comes up while it lives, and cancels those that list nothing.
class TPickTaker {
 public:
  TPickTaker() {
    QObject::connect(&Timer_, &QTimer::timeout, &Timer_, [] { Take(); });
    Timer_.start(1);
  }

 private:
  static void Take() {
    auto* Dialog = dynamic_cast<uDocPickBase::TDocPickBase*>(QApplication::activeModalWidget());
    if (Dialog == nullptr || !Dialog->isVisible()) return;
    if (Dialog->actOK->isEnabled()) {
      Dialog->actOKExecute();
    } else {
      Dialog->reject();
    }
  }

  QTimer Timer_;
};

}  // namespace support
