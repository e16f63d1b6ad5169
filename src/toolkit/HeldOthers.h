#pragma once

#include <QObject>
#include <QPointer>
#include <QSocketNotifier>
#include <vector>

class QTimerEvent;

namespace toolkit {

/// The foreign timers and sockets that wait while a TOthersHeld lives.
class THeldOthers {
 public:
  void Begin() { ++Holders_; }
  void End();
  bool Empty() const { return Holders_ == 0; }

  /// Whether the event is to be kept from its receiver; the timer or socket is silent from then on.
  bool Swallows(QObject* Receiver, const QEvent* Event);

  /// Wakes what waits: the sockets report again, the timers run again and each gets the tick that it missed.
  void LetGo();
  /// The same for the timers of one object.
  void LetGoTimersOf(const QObject* Receiver);

 private:
  struct THeldTimer {
    QPointer<QObject> Receiver;
    int Id;
    int Interval;
    Qt::TimerType Type;
  };

  bool HoldTimer(QObject* Receiver, int Id);
  static void Wake(const THeldTimer& Timer);

  int Holders_ = 0;
  std::vector<THeldTimer> Timers_;
  std::vector<QPointer<QSocketNotifier>> Sockets_;
};

}  // namespace toolkit
