#pragma once

#include <algorithm>
#include <chrono>
#include <future>

namespace ads {

/// Has a server end the query that a talk (`TPostgreSQLTalk`, `TMariaDBTalk`) is at, asked by another connection, and
/// says for how long its answer is waited for.
template <typename TTalk>
class TStopping {
 public:
  using TTime = std::chrono::steady_clock::time_point;

  /// The talk must live longer.
  explicit TStopping(TTalk& Talk) : Talk_(Talk) {}

  /// Asks the server, without waiting.
  void Ask() { Request_ = Talk_.Cancel(); }

  /// Whether no request is under way, for which it waits until `Until` at most: one that arrived late would hit the
  /// next statement.
  bool IsSettled(TTime Until) {
    if (!Request_.valid()) return true;
    if (Until != TTime::max() && Request_.wait_until(Until) != std::future_status::ready) return false;
    if (Request_.get()) Patience_ = ForABusyOne;
    Request_ = {};
    return true;
  }

  /// From now on the server's answer is waited for.
  void Begin() {
    Began_ = std::chrono::steady_clock::now();
    Patience_ = ForASilentOne;
  }
  /// When a server is taken for lost that has not answered: later for one that has heard a request, which lives and is
  /// only busy.
  TTime End() const { return Began_ + Patience_; }

  /// Asks until the query has ended; false when it has not in time. A server that has not begun with the query yet has
  /// nothing to end, and is asked again.
  bool EndQuery() {
    constexpr std::chrono::milliseconds BetweenRequests(100);
    for (TTime Now = std::chrono::steady_clock::now(); Now < End(); Now = std::chrono::steady_clock::now()) {
      if (IsSettled(Now)) Ask();
      if (Talk_.Drain(std::min(End(), Now + BetweenRequests))) return true;
    }
    return false;
  }

 private:
  static constexpr std::chrono::milliseconds ForASilentOne{800}, ForABusyOne{2000};

  TTalk& Talk_;
  std::shared_future<bool> Request_;  // whether the server has heard it
  TTime Began_;
  std::chrono::milliseconds Patience_ = ForASilentOne;
};

}  // namespace ads
