#pragma once

#include <QTest>
#include <memory>

#include "servers/Backends.h"

namespace support {

/// A backend of a kind; null, and the running test is skipped, when it is not to be had on this machine.
inline std::unique_ptr<TBackend> OpenOrSkip(TBackends& Backends, TBackendKind Kind, const QString& Options = {}) {
  const QString Missing = Backends.Missing(Kind);
  if (Missing.isEmpty()) return Backends.Open(Kind, Options);
  [&Missing] { QSKIP(qPrintable(Missing)); }();
  return nullptr;
}

}  // namespace support
