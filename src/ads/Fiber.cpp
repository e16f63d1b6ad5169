#include "ads/Fiber.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define ZUL_TELLS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZUL_TELLS_SANITIZER 1
#endif
#endif

#ifdef ZUL_TELLS_SANITIZER
#include <sanitizer/common_interface_defs.h>
#endif

namespace ads {

namespace {

// A program may have functions of its own that run in it; only what is used takes memory.
constexpr std::size_t StackSize = 8 << 20;

}  // namespace

TFiber::TFiber(std::function<void()> Body) : Body_(std::move(Body)) {
  const auto Page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  MemorySize_ = StackSize + Page;
  Memory_ = mmap(nullptr, MemorySize_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (Memory_ == MAP_FAILED) throw std::bad_alloc();
  mprotect(Memory_, Page, PROT_NONE);
  getcontext(&Inside_);
  Inside_.uc_stack.ss_sp = static_cast<char*>(Memory_) + Page;
  Inside_.uc_stack.ss_size = StackSize;
  Inside_.uc_link = &Outside_;
  const auto Self = reinterpret_cast<std::uintptr_t>(this);
  makecontext(&Inside_, reinterpret_cast<void (*)()>(&TFiber::Enter), 2, static_cast<unsigned>(Self >> 32),
              static_cast<unsigned>(Self));
}

TFiber::~TFiber() {
  munmap(Memory_, MemorySize_);
}

// A context takes arguments of the size of an int only.
void TFiber::Enter(unsigned High, unsigned Low) {
  reinterpret_cast<TFiber*>(static_cast<std::uintptr_t>(High) << 32 | Low)->Run();
}

void TFiber::Run() {
#ifdef ZUL_TELLS_SANITIZER
  __sanitizer_finish_switch_fiber(nullptr, &OutsideStack_, &OutsideSize_);
#endif
  Body_();
  HasEnded_ = true;
#ifdef ZUL_TELLS_SANITIZER
  __sanitizer_start_switch_fiber(nullptr, OutsideStack_, OutsideSize_);
#endif
}

void TFiber::Switch(ucontext_t& From, const ucontext_t& To, [[maybe_unused]] bool Outwards) {
#ifdef ZUL_TELLS_SANITIZER
  void* Fake = nullptr;
  const void* Stack = Outwards ? OutsideStack_ : Inside_.uc_stack.ss_sp;
  const std::size_t Size = Outwards ? OutsideSize_ : Inside_.uc_stack.ss_size;
  __sanitizer_start_switch_fiber(&Fake, Stack, Size);
  swapcontext(&From, &To);
  if (Outwards) {
    __sanitizer_finish_switch_fiber(Fake, &OutsideStack_, &OutsideSize_);
  } else {
    __sanitizer_finish_switch_fiber(Fake, nullptr, nullptr);
  }
#else
  swapcontext(&From, &To);
#endif
}

void TFiber::Resume() {
  Switch(Outside_, Inside_, false);
}

void TFiber::Yield() {
  Switch(Inside_, Outside_, true);
}

}  // namespace ads
