#include "pickbase/UserInterface.h"

#include <QApplication>
#include <QThread>

namespace pickbase {

ENoApplication::ENoApplication() : std::logic_error("A pick needs a QApplication.") {}
ENoApplication::~ENoApplication() = default;
EOtherThread::EOtherThread() : std::logic_error("A pick must be called on the thread of the user interface.") {}
EOtherThread::~EOtherThread() = default;

void RequireUserInterface() {
  const auto* Application = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (Application == nullptr) throw ENoApplication();
  if (QThread::currentThread() != Application->thread()) throw EOtherThread();
}

}  // namespace pickbase
