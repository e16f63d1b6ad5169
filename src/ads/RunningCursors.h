#pragma once

#include <map>
#include <mutex>

namespace ads {

/// The cursor that is being read from a connection, which can be no more than one where a connection can do but one
/// thing at a time. One object for each kind of connection.
template <typename THandle, typename TCursorType>
class TRunningCursors {
 public:
  TCursorType* On(THandle Handle) {
    const std::lock_guard Lock(Mutex_);
    const auto Found = Cursors_.find(Handle);
    return Found == Cursors_.end() ? nullptr : Found->second;
  }
  void Set(THandle Handle, TCursorType* Cursor) {
    const std::lock_guard Lock(Mutex_);
    Cursors_[Handle] = Cursor;
  }
  /// Forgets it, unless another one has taken its place.
  void Forget(THandle Handle, const TCursorType* Cursor) {
    const std::lock_guard Lock(Mutex_);
    const auto Found = Cursors_.find(Handle);
    if (Found != Cursors_.end() && Found->second == Cursor) Cursors_.erase(Found);
  }

  /// Frees the connection for a cursor: another one that is being read from it makes way.
  void MakeWayFor(THandle Handle, const TCursorType* Cursor) {
    TCursorType* Before = On(Handle);
    if (Before == nullptr || Before == Cursor || !Before->IsConnected()) return;
    if (const auto MakeWay = Before->OnMakeWay) return MakeWay();  // a copy, which outlives the cursor
    Before->KeepTheRest();
  }

 private:
  std::mutex Mutex_;
  std::map<THandle, TCursorType*> Cursors_;
};

}  // namespace ads
