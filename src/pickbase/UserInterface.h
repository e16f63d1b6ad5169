#pragma once

#include <stdexcept>

#include "frame/zulpicklists_export.h"

namespace pickbase {

/// There is no QApplication.
class ZULPICKLISTS_EXPORT ENoApplication : public std::logic_error {
 public:
  ENoApplication();
  ~ENoApplication() override;
};

/// The thread is not that of the user interface.
class ZULPICKLISTS_EXPORT EOtherThread : public std::logic_error {
 public:
  EOtherThread();
  ~EOtherThread() override;
};

/// Throws where no dialog can be shown. Widgets cannot exist without a QApplication, which a QCoreApplication is not,
/// nor on another thread than its own: Qt would end the program over it, or crash later.
ZULPICKLISTS_EXPORT void RequireUserInterface();

}  // namespace pickbase
