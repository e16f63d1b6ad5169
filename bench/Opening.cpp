#include "Opening.h"

#include <malloc.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QKeyEvent>
#include <algorithm>
#include <ctime>

#include "ads/ProcessMemory.h"
#include "pickbase/PickCall.h"

namespace bench {

namespace {

using uDocPickBase::TDocPickBase;

// How long the event dispatcher is left alone while this lives, from one time that it is awake to the next.
class TSilence {
 public:
  TSilence()
      : Connection_(QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                                     [this] { Note(); })) {}
  ~TSilence() { QObject::disconnect(Connection_); }
  TSilence(const TSilence&) = delete;
  TSilence& operator=(const TSilence&) = delete;

  double Longest() {
    Note();
    return Longest_;
  }
  double LongestOfProcessor() const { return LongestOfProcessor_; }

 private:
  void Note() {
    Longest_ = std::max(Longest_, SecondsSince(Last_));
    const double Processor = ProcessorSeconds();
    LongestOfProcessor_ = std::max(LongestOfProcessor_, Processor - LastProcessor_);
    LastProcessor_ = Processor;
    Last_ = TClock::now();
  }

  TClock::time_point Last_ = TClock::now();
  double LastProcessor_ = ProcessorSeconds();
  double Longest_ = 0;
  double LongestOfProcessor_ = 0;
  QMetaObject::Connection Connection_;
};

// Looks on until the first rows of a dialog are painted and all rows are there, and closes it then.
class TViewer : public QObject {
 public:
  TViewer(TDocPickBase& Dialog, TClock::time_point Start, TOpening& Opening)
      : Dialog_(Dialog), Start_(Start), Opening_(Opening) {
    Dialog.dbgAvail->viewport()->installEventFilter(this);
    connect(Dialog.qryList_, &ads::TDataSet::Grown, this, &TViewer::Look, Qt::QueuedConnection);
    connect(Dialog.qryList_, &ads::TDataSet::Replaced, this, &TViewer::Look, Qt::QueuedConnection);
    Dialog.qryList_->OnRestFailed = [](const std::string& Message) { qFatal("%s", Message.c_str()); };
  }

  // Looks again once the event has done its work.
  bool eventFilter(QObject*, QEvent* Event) override {
    if (Event->type() == QEvent::Paint && !IsPainted_ && Dialog_.qryList_->KnownRows() > 0) {
      IsPainted_ = true;
      QMetaObject::invokeMethod(this, &TViewer::Look, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  void Look() {
    if (IsPainted_ && Opening_.FirstPage == 0) Opening_.FirstPage = SecondsSince(Start_);
    if (!IsPainted_ || !Dialog_.qryList_->IsComplete()) return;
    Opening_.Whole = SecondsSince(Start_);
    Dialog_.reject();
  }

  TDocPickBase& Dialog_;
  TClock::time_point Start_;
  TOpening& Opening_;
  bool IsPainted_ = false;
};

// Presses End when the first rows of a dialog are painted, and closes it then.
class TJumper : public QObject {
 public:
  TJumper(TDocPickBase& Dialog, double& Seconds) : Dialog_(Dialog), Seconds_(Seconds) {
    Dialog.dbgAvail->viewport()->installEventFilter(this);
  }

  // Jumps once the event has done its work.
  bool eventFilter(QObject*, QEvent* Event) override {
    if (Event->type() == QEvent::Paint && !IsPainted_ && Dialog_.qryList_->KnownRows() > 0) {
      IsPainted_ = true;
      QMetaObject::invokeMethod(this, &TJumper::Jump, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  void Jump() {
    const TClock::time_point Start = TClock::now();
    QKeyEvent Pressed(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QCoreApplication::sendEvent(Dialog_.dbgAvail, &Pressed);
    Dialog_.dbgAvail->viewport()->repaint();
    Seconds_ = SecondsSince(Start);
    const bool IsThere = Dialog_.qryList_->IsComplete() && Dialog_.qryList_->RecNo() == Dialog_.qryList_->KnownRows();
    if (!IsThere) qFatal("The End key did not go to the last row.");
    Dialog_.reject();
  }

  TDocPickBase& Dialog_;
  double& Seconds_;
  bool IsPainted_ = false;
};

double StatusBytes(const char* Name) {
  return static_cast<double>(ProcessKiB(QStringLiteral("self"), "status", Name)) * 1024;
}

void ForgetPeak() {
  malloc_trim(0);
  QFile File(QStringLiteral("/proc/self/clear_refs"));
  if (File.open(QIODevice::WriteOnly)) File.write("5");
}

}  // namespace

double SecondsSince(TClock::time_point Start) {
  return std::chrono::duration<double>(TClock::now() - Start).count();
}

double ProcessorSeconds() {
  timespec Now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &Now);
  return static_cast<double>(Now.tv_sec) + static_cast<double>(Now.tv_nsec) / 1e9;
}

TOpening Open(const TCreate& Create) {
  TOpening Opening;
  const pickbase::TPickCall Call;
  TSilence Silence;
  const double Before = ProcessorSeconds();
  const TClock::time_point Start = TClock::now();
  const auto Dialog = Create();
  const TViewer Viewer(*Dialog, Start, Opening);
  Dialog->ShowPick();
  Opening.Processor = ProcessorSeconds() - Before;
  Opening.Silence = Silence.Longest();
  Opening.SilenceOfProcessor = Silence.LongestOfProcessor();
  Opening.Rows = Dialog->qryList_->KnownRows();
  Opening.Snapshot = Dialog->qryList_->SnapshotBytes();
  return Opening;
}

double JumpToEnd(const TCreate& Create) {
  double Seconds = 0;
  const pickbase::TPickCall Call;
  const auto Dialog = Create();
  const TJumper Jumper(*Dialog, Seconds);
  Dialog->ShowPick();
  return Seconds;
}

double Requery(TDocPickBase& Dialog) {
  const TClock::time_point Start = TClock::now();
  Dialog.CallSetSQL();
  Dialog.dbgAvail->viewport()->repaint();
  return SecondsSince(Start);
}

TListMemory MeasureMemory(const TCreate& Create) {
  ForgetPeak();
  const double Before = StatusBytes("VmRSS");
  const auto Dialog = Create();
  Dialog->qryList_->RecordCount();
  return {static_cast<double>(Dialog->qryList_->SnapshotBytes()), StatusBytes("VmHWM") - Before};
}

}  // namespace bench
