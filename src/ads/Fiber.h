#pragma once

#include <ucontext.h>

#include <cstddef>
#include <functional>

namespace ads {

/// A function that runs on a stack of its own, so that it can be left in its midst and gone on with later, while its
/// callers do something else: how SQLite's one long call is read in portions without a thread.
///
/// To be resumed on the thread that made it, and from outside of it only. No exception may leave the function.
class TFiber {
 public:
  explicit TFiber(std::function<void()> Body);
  /// The function must have ended, or never have begun.
  ~TFiber();
  TFiber(const TFiber&) = delete;
  TFiber& operator=(const TFiber&) = delete;

  /// Runs the function until it yields or ends.
  void Resume();
  /// Gives back to who resumed it. Only inside the function, and not while it handles an exception.
  void Yield();

  bool HasEnded() const { return HasEnded_; }

 private:
  static void Enter(unsigned High, unsigned Low);
  void Run();
  void Switch(ucontext_t& From, const ucontext_t& To, bool Outwards);

  std::function<void()> Body_;
  void* Memory_ = nullptr;  // the stack, with a page below it that cannot be touched
  std::size_t MemorySize_ = 0;
  ucontext_t Outside_{};
  ucontext_t Inside_{};
  bool HasEnded_ = false;
  // For the address sanitizer, which must be told of every change of stacks.
  const void* OutsideStack_ = nullptr;
  std::size_t OutsideSize_ = 0;
};

}  // namespace ads
