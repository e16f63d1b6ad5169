#include "toolkit/QuietLoop.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "toolkit/HeldInput.h"
#include "toolkit/HeldOthers.h"
#include "toolkit/Own.h"

namespace toolkit {

namespace {

// How many ServeEvents are under way, and whether a foreign event loop waits inside of one.
int Serving = 0;
bool ForeignLoopWaits = false;

/// Sees every event of the user interface's thread before its receiver does. It lives only while something is held:
/// nothing of it is left in the application when the library is unloaded.
class TQuietFilter : public QObject {
 public:
  /// The only one, first among the application's filters.
  static TQuietFilter& Needed();
  /// Null when nothing is held.
  static TQuietFilter* Existing() { return Only; }
  static void DeleteWhenIdle();

  bool eventFilter(QObject* Receiver, QEvent* Event) override;

  THeldInput Input;
  THeldOthers Others;

 private:
  void BeforeALoopWaits();

  static TQuietFilter* Only;
};

TQuietFilter* TQuietFilter::Only = nullptr;

TQuietFilter& TQuietFilter::Needed() {
  if (Only == nullptr) Only = new TQuietFilter;
  if (auto* Application = QCoreApplication::instance()) Application->installEventFilter(Only);
  if (auto* Dispatcher = QAbstractEventDispatcher::instance()) {
    disconnect(Dispatcher, nullptr, Only, nullptr);
    connect(Dispatcher, &QAbstractEventDispatcher::aboutToBlock, Only, [] { Only->BeforeALoopWaits(); });
  }
  return *Only;
}

void TQuietFilter::DeleteWhenIdle() {
  if (Only != nullptr && Only->Input.Empty() && Only->Others.Empty()) delete std::exchange(Only, nullptr);
}

bool TQuietFilter::eventFilter(QObject* Receiver, QEvent* Event) {
  switch (Event->type()) {
    case QEvent::Timer:
    case QEvent::SockAct:
      return !Others.Empty() && !ForeignLoopWaits && Others.Swallows(Receiver, Event);
    case QEvent::ThreadChange:
      // It takes its timers along, and so as they are.
      Others.LetGoTimersOf(Receiver);
      return false;
    default:
      return !Input.Empty() && Input.Swallows(Receiver, Event);
  }
}

// ServeEvents never waits itself. An own window that waits for its user inside of it does not need the others.
void TQuietFilter::BeforeALoopWaits() {
  if (Serving == 0 || ForeignLoopWaits || Others.Empty()) return;
  const QWidget* Top = QApplication::activePopupWidget();
  if (Top == nullptr) Top = QApplication::activeModalWidget();
  if (IsOwn(Top)) return;
  ForeignLoopWaits = true;
  Others.LetGo();
}

}  // namespace

void ServeEvents() {
  const bool Waited = ForeignLoopWaits;
  ++Serving;
  QCoreApplication::processEvents();
  --Serving;
  ForeignLoopWaits = Waited;
}

TInputHeld::TInputHeld(std::function<void()> OnEscape) {
  TQuietFilter::Needed().Input.Begin(this, std::move(OnEscape));
}

TInputHeld::~TInputHeld() {
  TQuietFilter::Existing()->Input.End(this);
  TQuietFilter::DeleteWhenIdle();
}

std::vector<TTypedKey> TInputHeld::TakeTyped() {
  return TQuietFilter::Existing()->Input.Take(this);
}

void Type(QWidget* Into, const std::vector<TTypedKey>& Keys) {
  const QPointer<QWidget> There(Into);
  for (const TTypedKey& Key : Keys) {
    for (const QEvent::Type Kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
      if (There.isNull()) return;
      QKeyEvent Event(Kind, Key.Key, Qt::NoModifier, Key.Text);
      QCoreApplication::sendEvent(There, &Event);
    }
  }
}

TOthersHeld::TOthersHeld() {
  TQuietFilter::Needed().Others.Begin();
}

TOthersHeld::~TOthersHeld() {
  TQuietFilter::Existing()->Others.End();
  TQuietFilter::DeleteWhenIdle();
}

}  // namespace toolkit
