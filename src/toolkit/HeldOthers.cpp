#include "toolkit/HeldOthers.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QThread>
#include <QTimerEvent>
#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <typeinfo>
#include <utility>

#include "toolkit/Own.h"

namespace toolkit {

namespace {

using TTimerInfo = QAbstractEventDispatcher::TimerInfo;

// Three weeks: a timer with this interval does not tick while anything waits.
constexpr int Never = std::numeric_limits<int>::max();

// The tool tips of all windows come and go by timers of the application object. A program's own application class may
// have others.
bool IsQtsApplication(const QObject* Object) {
  const auto* Application = QCoreApplication::instance();
  return Object == Application && typeid(*Application) == typeid(QApplication);
}

// A timer as its receiver has it now; none when it was stopped, or belongs to somebody else.
std::optional<TTimerInfo> Running(QObject* Receiver, int Id) {
  const auto* Dispatcher = QAbstractEventDispatcher::instance();
  if (Dispatcher == nullptr || Receiver->thread() != QThread::currentThread()) return {};
  const QList<TTimerInfo> Timers = Dispatcher->registeredTimers(Receiver);
  const auto Found = std::ranges::find(Timers, Id, &TTimerInfo::timerId);
  return Found == Timers.end() ? std::nullopt : std::optional(*Found);
}

// Under the same number, so that its receiver goes on stopping and recognizing it as before.
void Restart(QObject* Receiver, int Id, int Interval, Qt::TimerType Type) {
  auto* Dispatcher = QAbstractEventDispatcher::instance();
  Dispatcher->unregisterTimer(Id);
  Dispatcher->registerTimer(Id, Interval, Type, Receiver);
}

}  // namespace

void THeldOthers::End() {
  if (--Holders_ == 0) LetGo();
}

bool THeldOthers::Swallows(QObject* Receiver, const QEvent* Event) {
  if (Event->type() == QEvent::Timer) return HoldTimer(Receiver, static_cast<const QTimerEvent*>(Event)->timerId());
  auto* Socket = qobject_cast<QSocketNotifier*>(Receiver);
  if (Socket == nullptr || IsOwn(Socket)) return false;
  // What it has stays there to be read, and would be reported again at once.
  Socket->setEnabled(false);
  Sockets_.emplace_back(Socket);
  return true;
}

bool THeldOthers::HoldTimer(QObject* Receiver, int Id) {
  if (IsQtsApplication(Receiver) || IsOwn(Receiver)) return false;
  const std::optional<TTimerInfo> Timer = Running(Receiver, Id);
  if (!Timer) return false;
  if (Timer->interval == Never) return true;
  std::erase_if(Timers_, [&](const THeldTimer& Held) { return Held.Receiver == Receiver && Held.Id == Id; });
  Timers_.push_back({Receiver, Id, Timer->interval, Timer->timerType});
  // One of interval 0 would keep the processor busy, and a single shot is one that repeats until it is delivered.
  Restart(Receiver, Id, Never, Qt::PreciseTimer);
  return true;
}

void THeldOthers::Wake(const THeldTimer& Timer) {
  if (Timer.Receiver.isNull()) return;
  const std::optional<TTimerInfo> Now = Running(Timer.Receiver, Timer.Id);
  if (!Now || Now->interval != Never) return;
  Restart(Timer.Receiver, Timer.Id, Timer.Interval, Timer.Type);
  QCoreApplication::postEvent(Timer.Receiver, new QTimerEvent(Timer.Id));
}

void THeldOthers::LetGo() {
  for (const THeldTimer& Timer : std::exchange(Timers_, {})) Wake(Timer);
  for (const QPointer<QSocketNotifier>& Socket : std::exchange(Sockets_, {})) {
    if (!Socket.isNull()) Socket->setEnabled(true);
  }
}

void THeldOthers::LetGoTimersOf(const QObject* Receiver) {
  const auto Others =
      std::ranges::partition(Timers_, [&](const THeldTimer& Timer) { return Timer.Receiver != Receiver; });
  const std::vector<THeldTimer> Theirs(std::make_move_iterator(Others.begin()), std::make_move_iterator(Others.end()));
  Timers_.erase(Others.begin(), Others.end());
  for (const THeldTimer& Timer : Theirs) Wake(Timer);
}

}  // namespace toolkit
