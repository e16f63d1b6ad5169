#pragma once

#include <QDeadlineTimer>
#include <QThread>
#include <chrono>

namespace support {

/// Waits until something is there, without serving events, in which a list would read on. False when it has not come in
/// time.
template <typename TCondition>
bool Await(const TCondition& IsThere, std::chrono::milliseconds Most = std::chrono::seconds(20)) {
  for (const QDeadlineTimer End(Most); !IsThere(); QThread::msleep(10)) {
    if (End.hasExpired()) return false;
  }
  return true;
}

}  // namespace support
