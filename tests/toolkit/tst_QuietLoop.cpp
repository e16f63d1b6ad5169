// What a host's user, timers and sockets can do while something waits, and what the host gets of it afterwards. All
// windows, timers and sockets of this program are a host's, but for those in a TForm.
#include <sys/socket.h>
#include <unistd.h>

#include <QtTest>
#include <QtWidgets>
#include <memory>
#include <optional>
#include <stdexcept>

#include "ErrorBoxAnswer.h"
#include "toolkit/EventGuard.h"
#include "toolkit/Form.h"
#include "toolkit/QuietLoop.h"

using toolkit::ServeEvents;
using toolkit::TForm;
using toolkit::TInputHeld;
using toolkit::TOthersHeld;
using toolkit::TTypedKey;

namespace {

constexpr auto Nobody = nullptr;

void ServeFor(int Milliseconds) {
  QElapsedTimer Clock;
  Clock.start();
  while (Clock.elapsed() < Milliseconds) {
    ServeEvents();
    QThread::msleep(1);
  }
}

// "ab<b<" for a, b, Backspace, b, Enter and so on.
QString Shown(const std::vector<TTypedKey>& Keys) {
  QString Result;
  for (const TTypedKey& Key : Keys) {
    const bool IsEnter = Key.Key == Qt::Key_Return || Key.Key == Qt::Key_Enter;
    Result += Key.Key == Qt::Key_Backspace ? QStringLiteral("<") : IsEnter ? QStringLiteral("!") : Key.Text;
  }
  return Result;
}

// As it comes from the user: to the window, or the widget that has grabbed it.
template <typename TEvent>
bool SendAsUser(QObject* Receiver, TEvent Event) {
  QSpontaneKeyEvent::setSpontaneous(&Event);
  qApp->notify(Receiver, &Event);
  return Event.isAccepted();
}

/// Counts the events of some types that reach an object.
class TCounter : public QObject {
 public:
  TCounter(QObject* Of, QList<QEvent::Type> Types) : Types_(std::move(Types)) { Of->installEventFilter(this); }
  int Count = 0;
  bool eventFilter(QObject*, QEvent* Event) override {
    if (Types_.contains(Event->type())) ++Count;
    return false;
  }

 private:
  QList<QEvent::Type> Types_;
};

/// A window of the host's with the focus in a line edit.
class THostWindow : public QWidget {
 public:
  THostWindow() {
    Edit->setGeometry(0, 0, 100, 25);
    Button->setGeometry(0, 30, 100, 25);
    resize(200, 100);
    show();
    activateWindow();
    Edit->setFocus();
    if (!QTest::qWaitForWindowActive(this)) qFatal("The window does not come.");
  }
  QLineEdit* Edit = new QLineEdit(this);
  QPushButton* Button = new QPushButton("Go", this);
};

/// A connected pair of sockets with a notifier at one end, which reads what comes.
class TSocket {
 public:
  TSocket() {
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, Ends_) != 0) qFatal("There is no socket.");
    Notifier = std::make_unique<QSocketNotifier>(Ends_[0], QSocketNotifier::Read);
    QObject::connect(Notifier.get(), &QSocketNotifier::activated, Notifier.get(), [this] {
      char Byte = 0;
      if (read(Ends_[0], &Byte, 1) == 1) Received += QLatin1Char(Byte);
    });
  }
  ~TSocket() {
    Notifier.reset();
    close(Ends_[0]);
    close(Ends_[1]);
  }
  void Send(char Byte) {
    if (write(Ends_[1], &Byte, 1) != 1) qFatal("The socket is broken.");
  }
  std::unique_ptr<QSocketNotifier> Notifier;
  QString Received;

 private:
  int Ends_[2] = {};
};

/// Counts the keys pressed in a widget and destroys it for Return.
class TDestroyer : public QObject {
 public:
  int Keys = 0;
  bool eventFilter(QObject* Widget, QEvent* Event) override {
    if (Event->type() != QEvent::KeyPress) return false;
    ++Keys;
    if (static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Return) delete Widget;
    return true;
  }
};

/// Counts the ticks of a timer of its own, as old code has it.
class TTicker : public QObject {
 public:
  int Ticks = 0;
  int Id = 0;

 protected:
  void timerEvent(QTimerEvent* Event) override {
    if (Event->timerId() == Id) ++Ticks;
  }
};

// Waits in an event loop, as a dialog does, for 200 milliseconds. How often the loop woke up.
int WakingsOfALoop() {
  TForm Own;
  QTimer Quit(&Own);
  QEventLoop Loop;
  QObject::connect(&Quit, &QTimer::timeout, &Loop, &QEventLoop::quit);
  Quit.start(200);
  int Wakings = 0;
  const auto Counting = QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &Loop,
                                         [&Wakings] { ++Wakings; });
  Loop.exec();
  QObject::disconnect(Counting);
  return Wakings;
}

}  // namespace

class tst_QuietLoop : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void cleanup();

  // The user.
  void shouldKeepWhatIsTypedIntoTheHostsWindow();
  void shouldKeepOnlyWhatALineEditTakes_data();
  void shouldKeepOnlyWhatALineEditTakes();
  void shouldNotKeepKeysThatRepeatThemselves();
  void shouldKeepWhatAnInputMethodCommits();
  void shouldLetTheOwnWindowsBeUsed();
  void shouldLetAnOwnPopupBeUsed();
  void shouldKeepWhatIsTypedIntoAnOwnWindowWithoutFocus();
  void shouldNotClickInTheHostsWindow();
  void shouldLetNothingOfThePointerReachTheHost_data();
  void shouldLetNothingOfThePointerReachTheHost();
  void shouldNotTouchTheHostsWindow();
  void shouldTakeNoDropInTheHostsWindow();
  void shouldNotTriggerTheHostsShortcuts();
  void shouldNotEndAShortcutOfTwoKeys();
  void shouldNotTriggerTheHostsShortcutFromAnOwnWindow();
  void shouldPaintTheHostsWindow();
  void shouldLetTheProgramSendEvents();
  void shouldLetAMessageBoxBeAnsweredThatOpensMeanwhile();
  void shouldHoldInputFromAMessageBoxThatWasOpenBefore();
  void shouldLetTheOwnErrorBoxBeAnsweredOverTheHostsWindow();

  // Escape and closing.
  void shouldCallOnEscapeInsteadOfClosingTheHostsDialog();
  void shouldNotCallOnEscapeForAnOwnDialog();
  void shouldCallOnEscapeForAWindowThatTakesNoKeys();
  void shouldCallTheInnermostOnEscape();
  void shouldShowWhatOnEscapeThrows();
  void shouldEndInsideOfOnEscape();
  void shouldNotLetTheUserCloseTheHostsWindow();
  void shouldLetTheProgramCloseItsWindow();
  void shouldLetTheProgramAcceptItsDialog();
  void shouldLetTheUserCloseAnOwnWindow();

  // Several at once, and typing.
  void shouldLeaveKeysToTheOuterOne();
  void shouldGiveTheInnerOneOnlyWhatWasTypedSinceItBegan();
  void shouldEndInAnyOrder();
  void shouldTypeKeysIntoAWidget();
  void shouldStopTypingWhenTheWidgetIsGone();

  // Timers and sockets.
  void shouldHoldATimerAndTickOnceAfterwards();
  void shouldLoseNoSingleShot_data();
  void shouldLoseNoSingleShot();
  void shouldHoldATimerOfAnyObject();
  void shouldRunOwnTimers();
  void shouldLetWindowsAskForUpdates();
  void shouldShowToolTipsOfOwnWindows();
  void shouldForgetATimerThatIsStoppedMeanwhile();
  void shouldForgetATimerThatIsDestroyedMeanwhile();
  void shouldKeepTheNewIntervalOfATimerThatIsStartedAnew();
  void shouldKeepTheIntervalAndKindOfATimer();
  void shouldHoldATickThatWasOnItsWayWhenItBeganAgain();
  void shouldLetATimerGoThatMovesToAnotherThread();
  void shouldHoldASocketAndReportItAfterwards();
  void shouldReportAnOwnSocket();
  void shouldLeaveASocketAloneThatTheHostHasSwitched();
  void shouldForgetASocketThatIsDestroyedMeanwhile();
  void shouldNotBeBusyWhileTimersWait();
  void shouldNotBeBusyWhileSocketsWait();
  void shouldServeQueuedCalls();
  void shouldHoldUntilTheLastOneEnds();
  void shouldServeALoopThatTheHostWaitsIn();
  void shouldNotServeTheHostWhileAnOwnBoxWaits();
};

void tst_QuietLoop::cleanup() {
  QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_QuietLoop::shouldKeepWhatIsTypedIntoTheHostsWindow() {
  THostWindow Host;
  {
    TInputHeld Held(Nobody);
    QTest::keyClicks(Host.Edit, "ab");
    QTest::keyClick(Host.windowHandle(), Qt::Key_C);
    QCOMPARE(Shown(Held.TakeTyped()), QString("abc"));
    QCOMPARE(Shown(Held.TakeTyped()), QString());
    QTest::keyClicks(Host.Edit, "d");
    QCOMPARE(Shown(Held.TakeTyped()), QString("d"));
    QCOMPARE(Host.Edit->text(), QString());
  }
  QTest::keyClicks(Host.Edit, "e");
  QTest::keyClick(Host.windowHandle(), Qt::Key_F);
  QCOMPARE(Host.Edit->text(), QString("ef"));
}

void tst_QuietLoop::shouldKeepOnlyWhatALineEditTakes_data() {
  QTest::addColumn<int>("Key");
  QTest::addColumn<int>("Modifiers");
  QTest::addColumn<QString>("Text");
  QTest::addColumn<QString>("Kept");
  const int None = Qt::NoModifier;
  const int Shift = Qt::ShiftModifier;
  const int Control = Qt::ControlModifier;
  const int Alt = Qt::AltModifier;
  QTest::newRow("letter") << int{Qt::Key_A} << None << "a"
                          << "a";
  QTest::newRow("capital letter") << int{Qt::Key_A} << Shift << "A"
                                  << "A";
  QTest::newRow("blank") << int{Qt::Key_Space} << None << " "
                         << " ";
  QTest::newRow("digit of the keypad") << int{Qt::Key_1} << int{Qt::KeypadModifier} << "1"
                                       << "1";
  QTest::newRow("AltGr") << int{Qt::Key_At} << int{Qt::GroupSwitchModifier} << "@"
                         << "@";
  QTest::newRow("AltGr as two keys") << int{Qt::Key_At} << (Control | Alt) << "@"
                                     << "@";
  QTest::newRow("beyond the first plane")
      << 0 << None << QString::fromUcs4(U"\U0001F600") << QString::fromUcs4(U"\U0001F600");
  QTest::newRow("Backspace") << int{Qt::Key_Backspace} << None << "\b"
                             << "<";
  QTest::newRow("Return") << int{Qt::Key_Return} << None << "\r"
                          << "!";
  QTest::newRow("Enter") << int{Qt::Key_Enter} << int{Qt::KeypadModifier} << "\r"
                         << "!";
  QTest::newRow("Ctrl+X") << int{Qt::Key_X} << Control << "x"
                          << "";
  QTest::newRow("Ctrl+Shift+X") << int{Qt::Key_X} << (Control | Shift) << "X"
                                << "";
  QTest::newRow("Alt+F") << int{Qt::Key_F} << Alt << "f"
                         << "";
  QTest::newRow("Meta+A") << int{Qt::Key_A} << int{Qt::MetaModifier} << "a"
                          << "";
  QTest::newRow("Ctrl+Backspace") << int{Qt::Key_Backspace} << Control << "\b"
                                  << "";
  QTest::newRow("Alt+Return") << int{Qt::Key_Return} << Alt << "\r"
                              << "";
  QTest::newRow("Tab") << int{Qt::Key_Tab} << None << "\t"
                       << "";
  QTest::newRow("Delete") << int{Qt::Key_Delete} << None << "\x7f"
                          << "";
  QTest::newRow("Left") << int{Qt::Key_Left} << None << ""
                        << "";
  QTest::newRow("Shift") << int{Qt::Key_Shift} << Shift << ""
                         << "";
}
void tst_QuietLoop::shouldKeepOnlyWhatALineEditTakes() {
  QFETCH(int, Key);
  QFETCH(int, Modifiers);
  QFETCH(QString, Text);
  QFETCH(QString, Kept);
  THostWindow Host;
  TCounter Reached(Host.Edit, {QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride});
  TInputHeld Held(Nobody);
  for (const QEvent::Type Kind : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
    QVERIFY(SendAsUser(Host.Edit, QKeyEvent(Kind, Key, Qt::KeyboardModifiers(Modifiers), Text)));
  }
  QCOMPARE(Shown(Held.TakeTyped()), Kept);
  QCOMPARE(Reached.Count, 0);
}

void tst_QuietLoop::shouldNotKeepKeysThatRepeatThemselves() {
  THostWindow Host;
  TInputHeld Held(Nobody);
  QVERIFY(SendAsUser(Host.Edit, QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a", false)));
  QVERIFY(SendAsUser(Host.Edit, QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a", true)));
  QCOMPARE(Shown(Held.TakeTyped()), QString("a"));
  QCOMPARE(Host.Edit->text(), QString());
}

void tst_QuietLoop::shouldKeepWhatAnInputMethodCommits() {
  THostWindow Host;
  TForm Own;
  auto* OwnEdit = new QLineEdit(&Own);
  TInputHeld Held(Nobody);
  const QString Text = QString::fromUtf8("é") + QString::fromUcs4(U"\U0001F600");
  QInputMethodEvent Commit;
  Commit.setCommitString(Text + "\n");
  QCoreApplication::sendEvent(Host.Edit, &Commit);
  QCoreApplication::sendEvent(OwnEdit, &Commit);
  const std::vector<TTypedKey> Typed = Held.TakeTyped();
  QCOMPARE(Typed.size(), std::size_t{2});
  QCOMPARE(Shown(Typed), Text);
  QCOMPARE(Host.Edit->text(), QString());
  QVERIFY(OwnEdit->text().startsWith(Text));
}

void tst_QuietLoop::shouldLetTheOwnWindowsBeUsed() {
  THostWindow Host;
  TForm Own(&Host);
  Own.SetClientSize(200, 100);
  auto* Edit = new QLineEdit(&Own);
  auto* Box = new QCheckBox("Box", &Own);
  Box->setGeometry(0, 40, 100, 25);
  Own.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Own));
  TInputHeld Held(Nobody);
  QTest::keyClicks(Edit, "a");
  Edit->setFocus();
  QTest::keyClick(Own.windowHandle(), Qt::Key_B);
  QTest::mouseClick(Own.windowHandle(), Qt::LeftButton, {}, {8, 52});
  QCOMPARE(Edit->text(), QString("ab"));
  QVERIFY(Box->isChecked());
  QCOMPARE(Shown(Held.TakeTyped()), QString());
}

void tst_QuietLoop::shouldLetAnOwnPopupBeUsed() {
  THostWindow Host;
  TForm Own;
  Own.show();
  QMenu Menu(&Own);
  int Triggered = 0;
  connect(Menu.addAction("Copy"), &QAction::triggered, &Menu, [&Triggered] { ++Triggered; });
  int Escapes = 0;
  TInputHeld Held([&Escapes] { ++Escapes; });
  // The window system may send the keys of a popup to any window: they go to the popup.
  Menu.popup({});
  QTest::keyClick(Host.windowHandle(), Qt::Key_Down);
  QTest::keyClick(Host.windowHandle(), Qt::Key_Return);
  QCOMPARE(Triggered, 1);
  Menu.popup({});
  QTest::keyClick(Host.windowHandle(), Qt::Key_Escape);
  QVERIFY(!Menu.isVisible());
  QCOMPARE(Escapes, 0);
  QCOMPARE(Shown(Held.TakeTyped()), QString());
}

void tst_QuietLoop::shouldKeepWhatIsTypedIntoAnOwnWindowWithoutFocus() {
  TForm Wait;
  Wait.setWindowFlag(Qt::WindowDoesNotAcceptFocus);
  auto* Button = new QPushButton("Stop", &Wait);
  int Clicks = 0;
  connect(Button, &QPushButton::clicked, Button, [&Clicks] { ++Clicks; });
  Wait.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Wait));
  TInputHeld Held(Nobody);
  QTest::keyClicks(Button, "a ");
  QCOMPARE(Shown(Held.TakeTyped()), QString("a "));
  QCOMPARE(Clicks, 0);
  QTest::mouseClick(Button, Qt::LeftButton);
  QCOMPARE(Clicks, 1);
}

void tst_QuietLoop::shouldNotClickInTheHostsWindow() {
  THostWindow Host;
  int Clicks = 0;
  connect(Host.Button, &QPushButton::clicked, &Host, [&Clicks] { ++Clicks; });
  const QPoint Middle = Host.Button->geometry().center();
  {
    const TInputHeld Held(Nobody);
    QTest::mouseClick(Host.Button, Qt::LeftButton);
    QTest::mouseClick(Host.windowHandle(), Qt::LeftButton, {}, Middle);
    QTest::mouseDClick(Host.windowHandle(), Qt::LeftButton, {}, Middle);
    QTest::keyClick(Host.Button, Qt::Key_Space);
    QCOMPARE(Clicks, 0);
    QVERIFY(!Host.Button->isDown());
  }
  QTest::mouseClick(Host.windowHandle(), Qt::LeftButton, {}, Middle);
  QCOMPARE(Clicks, 1);
}

using TSender = std::function<bool(QObject*)>;
Q_DECLARE_METATYPE(TSender)

void tst_QuietLoop::shouldLetNothingOfThePointerReachTheHost_data() {
  QTest::addColumn<int>("Type");
  QTest::addColumn<TSender>("Send");
  const auto Mouse = [](QEvent::Type Type) {
    QTest::addRow("mouse %d", Type) << int{Type} << TSender([Type](QObject* Receiver) {
      return SendAsUser(Receiver, QMouseEvent(Type, {}, {}, Qt::LeftButton, Qt::LeftButton, {}));
    });
  };
  Mouse(QEvent::MouseButtonPress);
  Mouse(QEvent::MouseMove);
  Mouse(QEvent::MouseButtonRelease);
  Mouse(QEvent::MouseButtonDblClick);
  QTest::newRow("wheel") << int{QEvent::Wheel} << TSender([](QObject* Receiver) {
    return SendAsUser(Receiver, QWheelEvent({}, {}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false));
  });
  QTest::newRow("context menu") << int{QEvent::ContextMenu} << TSender([](QObject* Receiver) {
    return SendAsUser(Receiver, QContextMenuEvent(QContextMenuEvent::Keyboard, {}, {}));
  });
}
void tst_QuietLoop::shouldLetNothingOfThePointerReachTheHost() {
  QFETCH(int, Type);
  QFETCH(TSender, Send);
  QWidget Host;
  Host.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Host));
  TCounter Reached(&Host, {static_cast<QEvent::Type>(Type)});
  {
    const TInputHeld Held(Nobody);
    QVERIFY(Send(&Host));
    QVERIFY(Send(Host.windowHandle()));
    QCOMPARE(Reached.Count, 0);
  }
  Send(&Host);
  QCOMPARE(Reached.Count, 1);
}

void tst_QuietLoop::shouldNotTouchTheHostsWindow() {
  static const std::unique_ptr<QPointingDevice> Screen(QTest::createTouchDevice());
  QWidget Host;
  Host.setAttribute(Qt::WA_AcceptTouchEvents);
  Host.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Host));
  TCounter Reached(&Host, {QEvent::TouchBegin, QEvent::MouseButtonPress});
  {
    const TInputHeld Held(Nobody);
    QTest::touchEvent(&Host, Screen.get()).press(0, {5, 5});
    QTest::touchEvent(&Host, Screen.get()).move(0, {6, 6});
    QTest::touchEvent(&Host, Screen.get()).release(0, {6, 6});
    QCOMPARE(Reached.Count, 0);
  }
  QTest::touchEvent(&Host, Screen.get()).press(0, {5, 5});
  QTest::touchEvent(&Host, Screen.get()).release(0, {5, 5});
  QVERIFY(Reached.Count > 0);
}

void tst_QuietLoop::shouldTakeNoDropInTheHostsWindow() {
  THostWindow Host;
  QMimeData Data;
  Data.setText("dropped");
  const auto Drop = [&](QObject* On) {
    QDragEnterEvent Enter({5, 5}, Qt::CopyAction, &Data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(On, &Enter);
    QDropEvent Event({5, 5}, Qt::CopyAction, &Data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(On, &Event);
    return Enter.isAccepted() || Event.isAccepted();
  };
  {
    const TInputHeld Held(Nobody);
    QVERIFY(!Drop(Host.Edit));
    QVERIFY(!Drop(Host.windowHandle()));
    QCOMPARE(Host.Edit->text(), QString());
  }
  QVERIFY(Drop(Host.Edit));
  QCOMPARE(Host.Edit->text(), QString("dropped"));
}

void tst_QuietLoop::shouldNotTriggerTheHostsShortcuts() {
  THostWindow Host;
  int Triggered = 0;
  const auto Count = [&Triggered] { ++Triggered; };
  QAction Action;
  Action.setShortcut(QKeySequence("Ctrl+G"));
  connect(&Action, &QAction::triggered, &Host, Count);
  Host.addAction(&Action);
  const QShortcut Letter(QKeySequence("G"), &Host, Count);
  {
    TInputHeld Held(Nobody);
    QTest::keyClick(Host.Edit, Qt::Key_G, Qt::ControlModifier);
    QTest::keyClick(Host.windowHandle(), Qt::Key_G, Qt::ControlModifier);
    QTest::keyClick(Host.Button, Qt::Key_G);
    QCOMPARE(Triggered, 0);
    QCOMPARE(Shown(Held.TakeTyped()), QString("g"));
  }
  QTest::keyClick(Host.windowHandle(), Qt::Key_G, Qt::ControlModifier);
  QTest::keyClick(Host.Button, Qt::Key_G);
  QCOMPARE(Triggered, 2);
}

void tst_QuietLoop::shouldNotEndAShortcutOfTwoKeys() {
  THostWindow Host;
  int Triggered = 0;
  const QShortcut Shortcut(QKeySequence("Ctrl+K, Ctrl+L"), &Host, [&Triggered] { ++Triggered; });
  QTest::keyClick(&Host, Qt::Key_K, Qt::ControlModifier);
  {
    const TInputHeld Held(Nobody);
    QTest::keyClick(&Host, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(Triggered, 0);
  }
  QTest::keyClick(&Host, Qt::Key_K, Qt::ControlModifier);
  QTest::keyClick(&Host, Qt::Key_L, Qt::ControlModifier);
  QCOMPARE(Triggered, 1);
}

void tst_QuietLoop::shouldNotTriggerTheHostsShortcutFromAnOwnWindow() {
  THostWindow Host;
  TForm Own;
  Own.setFocusPolicy(Qt::StrongFocus);
  int HostTriggered = 0;
  int OwnTriggered = 0;
  const QShortcut HostShortcut(
      QKeySequence("Ctrl+G"), &Host, [&HostTriggered] { ++HostTriggered; }, Qt::ApplicationShortcut);
  const QShortcut OwnShortcut(QKeySequence("Ctrl+H"), &Own, [&OwnTriggered] { ++OwnTriggered; });
  Own.show();
  Own.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&Own));
  const auto Press = [&Own] {
    QTest::keyClick(&Own, Qt::Key_G, Qt::ControlModifier);
    QTest::keyClick(&Own, Qt::Key_H, Qt::ControlModifier);
  };
  {
    const TInputHeld Held(Nobody);
    Press();
    QCOMPARE(HostTriggered, 0);
    QCOMPARE(OwnTriggered, 1);
  }
  Press();
  QCOMPARE(HostTriggered, 1);
  QCOMPARE(OwnTriggered, 2);
}

void tst_QuietLoop::shouldPaintTheHostsWindow() {
  THostWindow Host;
  TCounter Painted(Host.Button, {QEvent::Paint});
  const TInputHeld Held(Nobody);
  const TOthersHeld Others;
  Host.Button->update();
  ServeFor(50);
  QVERIFY(Painted.Count > 0);
}

void tst_QuietLoop::shouldLetTheProgramSendEvents() {
  THostWindow Host;
  TInputHeld Held(Nobody);
  QKeyEvent Key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
  QCoreApplication::sendEvent(Host.Edit, &Key);
  QCOMPARE(Host.Edit->text(), QString("a"));
  QCOMPARE(Shown(Held.TakeTyped()), QString());
}

void tst_QuietLoop::shouldLetAMessageBoxBeAnsweredThatOpensMeanwhile() {
  THostWindow Host;
  TInputHeld Held(Nobody);
  bool Answered = false;
  QMetaObject::invokeMethod(
      &Host,
      [&] {
        QMessageBox Box(QMessageBox::Information, "Host", "Read this.", QMessageBox::Ok, &Host);
        QTimer::singleShot(50, &Box, [&Box] {
          QTest::keyClick(Box.parentWidget(), Qt::Key_A);
          QTest::keyClick(Box.windowHandle(), Qt::Key_Escape);
        });
        Box.exec();
        Answered = true;
      },
      Qt::QueuedConnection);
  ServeEvents();
  QVERIFY(Answered);
  QCOMPARE(Shown(Held.TakeTyped()), QString("a"));
}

void tst_QuietLoop::shouldHoldInputFromAMessageBoxThatWasOpenBefore() {
  QMessageBox Box(QMessageBox::Information, "Host", "Read this.", QMessageBox::Ok);
  Box.setModal(true);
  Box.show();
  {
    TInputHeld Held(Nobody);
    QTest::keyClick(&Box, Qt::Key_Return);
    QVERIFY(Box.isVisible());
    QCOMPARE(Shown(Held.TakeTyped()), QString("!"));
  }
  QTest::keyClick(&Box, Qt::Key_Escape);
  QVERIFY(!Box.isVisible());
}

void tst_QuietLoop::shouldLetTheOwnErrorBoxBeAnsweredOverTheHostsWindow() {
  THostWindow Host;
  int Answers = 0;
  QTimer::singleShot(50, &Host, [&] {
    const TInputHeld Held(Nobody);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    ++Answers;
  });
  toolkit::ShowError(&Host, "It failed.");
  QCOMPARE(Answers, 1);
}

void tst_QuietLoop::shouldCallOnEscapeInsteadOfClosingTheHostsDialog() {
  const QPointer<QDialog> Host = new QDialog;
  Host->setAttribute(Qt::WA_DeleteOnClose);
  Host->show();
  Host->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(Host));
  int Escapes = 0;
  {
    TInputHeld Held([&Escapes] { ++Escapes; });
    QTest::keyClick(Host, Qt::Key_Escape);
    QCOMPARE(Escapes, 1);
    QTest::keyClick(Host->windowHandle(), Qt::Key_Escape);
    QCOMPARE(Escapes, 2);
    QTest::keyClick(Host, Qt::Key_Escape, Qt::ControlModifier);
    QCOMPARE(Escapes, 2);
    ServeFor(20);
    QVERIFY(!Host.isNull());
    QVERIFY(Host->isVisible());
    QVERIFY(Held.TakeTyped().empty());
  }
  QTest::keyClick(Host, Qt::Key_Escape);
  QCOMPARE(Escapes, 2);
  QTRY_VERIFY(Host.isNull());
}

void tst_QuietLoop::shouldNotCallOnEscapeForAnOwnDialog() {
  TForm Own;
  Own.show();
  int Escapes = 0;
  const TInputHeld Held([&Escapes] { ++Escapes; });
  QTest::keyClick(&Own, Qt::Key_Escape);
  QVERIFY(!Own.isVisible());
  QCOMPARE(Escapes, 0);
}

void tst_QuietLoop::shouldCallOnEscapeForAWindowThatTakesNoKeys() {
  TForm Wait;
  Wait.setWindowFlag(Qt::WindowDoesNotAcceptFocus);
  Wait.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Wait));
  int Escapes = 0;
  const TInputHeld Held([&Escapes] { ++Escapes; });
  QTest::keyClick(&Wait, Qt::Key_Escape);
  QTest::keyClick(Wait.windowHandle(), Qt::Key_Escape);
  QCOMPARE(Escapes, 2);
  QVERIFY(Wait.isVisible());
}

void tst_QuietLoop::shouldCallTheInnermostOnEscape() {
  THostWindow Host;
  QString Called;
  const TInputHeld Outer([&Called] { Called += 'o'; });
  {
    const TInputHeld Inner([&Called] { Called += 'i'; });
    QTest::keyClick(Host.Edit, Qt::Key_Escape);
  }
  QTest::keyClick(Host.Edit, Qt::Key_Escape);
  QCOMPARE(Called, QString("io"));
}

void tst_QuietLoop::shouldShowWhatOnEscapeThrows() {
  THostWindow Host;
  const TErrorBoxAnswer Answer;
  const TInputHeld Held([] { throw std::runtime_error("It cannot be stopped."); });
  QTest::keyClick(Host.Edit, Qt::Key_Escape);
  QCOMPARE(Answer.Texts(), QStringList{"It cannot be stopped."});
}

void tst_QuietLoop::shouldEndInsideOfOnEscape() {
  THostWindow Host;
  std::optional<TInputHeld> Held;
  Held.emplace([&Held] { Held.reset(); });
  QTest::keyClick(Host.windowHandle(), Qt::Key_Escape);
  QVERIFY(!Held);
  QTest::keyClicks(Host.Edit, "a");
  QCOMPARE(Host.Edit->text(), QString("a"));
}

void tst_QuietLoop::shouldNotLetTheUserCloseTheHostsWindow() {
  THostWindow Host;
  TCounter Reached(&Host, {QEvent::Close});
  {
    const TInputHeld Held(Nobody);
    QVERIFY(!SendAsUser(Host.windowHandle(), QCloseEvent()));
    QVERIFY(Host.isVisible());
    QCOMPARE(Reached.Count, 0);
  }
  QVERIFY(SendAsUser(Host.windowHandle(), QCloseEvent()));
  QVERIFY(!Host.isVisible());
  QCOMPARE(Reached.Count, 1);
}

void tst_QuietLoop::shouldLetTheProgramCloseItsWindow() {
  THostWindow Host;
  TCounter Reached(&Host, {QEvent::Close});
  const TInputHeld Held(Nobody);
  QVERIFY(Host.close());
  QVERIFY(!Host.isVisible());
  QCOMPARE(Reached.Count, 1);
}

void tst_QuietLoop::shouldLetTheProgramAcceptItsDialog() {
  QDialog Host;
  Host.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Host));
  const TInputHeld Held(Nobody);
  Host.accept();
  QVERIFY(!Host.isVisible());
  QCOMPARE(Host.result(), int{QDialog::Accepted});
}

void tst_QuietLoop::shouldLetTheUserCloseAnOwnWindow() {
  TForm Own;
  Own.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Own));
  const TInputHeld Held(Nobody);
  QVERIFY(SendAsUser(Own.windowHandle(), QCloseEvent()));
  QVERIFY(!Own.isVisible());
}

void tst_QuietLoop::shouldLeaveKeysToTheOuterOne() {
  THostWindow Host;
  TInputHeld Outer(Nobody);
  QTest::keyClicks(Host.Edit, "a");
  {
    const TInputHeld Inner(Nobody);
    QTest::keyClicks(Host.Edit, "b");
  }
  QTest::keyClicks(Host.Edit, "c");
  QCOMPARE(Shown(Outer.TakeTyped()), QString("abc"));
}

void tst_QuietLoop::shouldGiveTheInnerOneOnlyWhatWasTypedSinceItBegan() {
  THostWindow Host;
  TInputHeld Outer(Nobody);
  QTest::keyClicks(Host.Edit, "a");
  TInputHeld Inner(Nobody);
  QTest::keyClicks(Host.Edit, "b");
  QCOMPARE(Shown(Inner.TakeTyped()), QString("b"));
  QTest::keyClicks(Host.Edit, "c");
  QCOMPARE(Shown(Outer.TakeTyped()), QString("ac"));
  QCOMPARE(Shown(Inner.TakeTyped()), QString());
  QTest::keyClicks(Host.Edit, "d");
  QCOMPARE(Shown(Inner.TakeTyped()), QString("d"));
}

void tst_QuietLoop::shouldEndInAnyOrder() {
  THostWindow Host;
  QString Called;
  auto First = std::make_unique<TInputHeld>([&Called] { Called += '1'; });
  auto Others = std::make_unique<TOthersHeld>();
  QTest::keyClicks(Host.Edit, "a");
  auto Second = std::make_unique<TInputHeld>([&Called] { Called += '2'; });
  QTest::keyClicks(Host.Edit, "b");
  First.reset();
  QTest::keyClicks(Host.Edit, "c");
  QTest::keyClick(Host.Edit, Qt::Key_Escape);
  QCOMPARE(Called, QString("2"));
  QCOMPARE(Shown(Second->TakeTyped()), QString("bc"));
  Second.reset();
  QTest::keyClicks(Host.Edit, "d");
  QCOMPARE(Host.Edit->text(), QString("d"));
  Others.reset();
}

void tst_QuietLoop::shouldTypeKeysIntoAWidget() {
  QLineEdit Edit;
  QString Entered;
  connect(&Edit, &QLineEdit::returnPressed, &Edit, [&] { Entered = Edit.text(); });
  const QString Composed = QString::fromUcs4(U"\U0001F600");
  toolkit::Type(&Edit, {{Qt::Key_A, "a"},
                        {Qt::Key_B, "B"},
                        {Qt::Key_Backspace, "\b"},
                        {0, Composed},
                        {Qt::Key_Return, "\r"},
                        {Qt::Key_C, "c"}});
  QCOMPARE(Entered, "a" + Composed);
  QCOMPARE(Edit.text(), "a" + Composed + "c");
}

void tst_QuietLoop::shouldStopTypingWhenTheWidgetIsGone() {
  const QPointer<QWidget> Widget = new QWidget;
  TDestroyer Destroyer;
  Widget->installEventFilter(&Destroyer);
  toolkit::Type(Widget, {{Qt::Key_A, "a"}, {Qt::Key_Return, "\r"}, {Qt::Key_B, "b"}});
  QVERIFY(Widget.isNull());
  QCOMPARE(Destroyer.Keys, 2);
  toolkit::Type(nullptr, {{Qt::Key_A, "a"}});
}

void tst_QuietLoop::shouldHoldATimerAndTickOnceAfterwards() {
  QTimer Timer;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(20);
  {
    const TOthersHeld Held;
    ServeFor(100);
    QCOMPARE(Ticks, 0);
    QVERIFY(Timer.isActive());
  }
  ServeEvents();
  QCOMPARE(Ticks, 1);
  QTRY_VERIFY(Ticks > 3);
}

void tst_QuietLoop::shouldLoseNoSingleShot_data() {
  QTest::addColumn<int>("Milliseconds");
  QTest::newRow("at once") << 0;
  QTest::newRow("soon") << 10;
}
void tst_QuietLoop::shouldLoseNoSingleShot() {
  QFETCH(int, Milliseconds);
  int Functor = 0;
  int Object = 0;
  QObject Context;
  QTimer Timer;
  Timer.setSingleShot(true);
  connect(&Timer, &QTimer::timeout, &Context, [&Object] { ++Object; });
  {
    const TOthersHeld Held;
    // Without a delay it is a queued call, which passes.
    if (Milliseconds > 0) QTimer::singleShot(Milliseconds, &Context, [&Functor] { ++Functor; });
    Timer.start(Milliseconds);
    ServeFor(50);
    QCOMPARE(Functor, 0);
    QCOMPARE(Object, 0);
  }
  ServeFor(50);
  QCOMPARE(Functor, Milliseconds > 0 ? 1 : 0);
  QCOMPARE(Object, 1);
  QVERIFY(!Timer.isActive());
}

void tst_QuietLoop::shouldHoldATimerOfAnyObject() {
  TTicker Ticker;
  Ticker.Id = Ticker.startTimer(10);
  {
    const TOthersHeld Held;
    ServeFor(50);
    QCOMPARE(Ticker.Ticks, 0);
  }
  ServeEvents();
  QCOMPARE(Ticker.Ticks, 1);
}

void tst_QuietLoop::shouldRunOwnTimers() {
  TForm Own;
  QTimer Timer(&Own);
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(5);
  const TOthersHeld Held;
  ServeFor(50);
  QVERIFY(Ticks > 2);
}

// They come by a timer of the window's, which Qt serves before anybody sees it.
void tst_QuietLoop::shouldLetWindowsAskForUpdates() {
  QWindow Window;
  Window.resize(50, 50);
  Window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&Window));
  TCounter Updates(&Window, {QEvent::UpdateRequest});
  const TOthersHeld Held;
  Window.requestUpdate();
  ServeFor(50);
  QCOMPARE(Updates.Count, 1);
}

// They come by a timer of the application's.
void tst_QuietLoop::shouldShowToolTipsOfOwnWindows() {
  TForm Own;
  Own.setToolTip("Own");
  Own.show();
  Own.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&Own));
  TCounter Asked(&Own, {QEvent::ToolTip});
  const TOthersHeld Held;
  QTest::mouseMove(Own.windowHandle(), {10, 10});
  QTest::mouseMove(Own.windowHandle(), {12, 12});
  QElapsedTimer Clock;
  Clock.start();
  while (Asked.Count == 0 && Clock.elapsed() < 5000) ServeFor(10);
  QVERIFY(Asked.Count > 0);
  QToolTip::hideText();
}

void tst_QuietLoop::shouldForgetATimerThatIsStoppedMeanwhile() {
  QTimer Timer;
  TTicker Ticker;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  TCounter Reached(&Ticker, {QEvent::Timer});
  Timer.start(5);
  Ticker.Id = Ticker.startTimer(5);
  {
    const TOthersHeld Held;
    ServeFor(30);
    Timer.stop();
    Ticker.killTimer(Ticker.Id);
  }
  ServeFor(30);
  QCOMPARE(Ticks, 0);
  QCOMPARE(Reached.Count, 0);
}

void tst_QuietLoop::shouldForgetATimerThatIsDestroyedMeanwhile() {
  auto Timer = std::make_unique<QTimer>();
  int Ticks = 0;
  connect(Timer.get(), &QTimer::timeout, Timer.get(), [&Ticks] { ++Ticks; });
  Timer->start(5);
  {
    const TOthersHeld Held;
    ServeFor(30);
    Timer.reset();
  }
  ServeFor(30);
  QCOMPARE(Ticks, 0);
}

void tst_QuietLoop::shouldKeepTheNewIntervalOfATimerThatIsStartedAnew() {
  QTimer Timer;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(5);
  {
    const TOthersHeld Held;
    ServeFor(30);
    Timer.start(60000);
  }
  ServeFor(30);
  QCOMPARE(Ticks, 0);
  QVERIFY(Timer.remainingTime() > 30000);
}

void tst_QuietLoop::shouldKeepTheIntervalAndKindOfATimer() {
  TTicker Ticker;
  Ticker.Id = Ticker.startTimer(30, Qt::CoarseTimer);
  {
    const TOthersHeld Held;
    ServeFor(80);
  }
  const auto Timers = QAbstractEventDispatcher::instance()->registeredTimers(&Ticker);
  QCOMPARE(Timers.size(), 1);
  QCOMPARE(Timers.first().timerId, Ticker.Id);
  QCOMPARE(Timers.first().interval, 30);
  QCOMPARE(Timers.first().timerType, Qt::CoarseTimer);
}

void tst_QuietLoop::shouldHoldATickThatWasOnItsWayWhenItBeganAgain() {
  QTimer Timer;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(10);
  for (int Round = 0; Round < 3; ++Round) {
    const TOthersHeld Held;
    ServeFor(30);
    QCOMPARE(Ticks, 0);
  }
  ServeEvents();
  QCOMPARE(Ticks, 1);
}

void tst_QuietLoop::shouldLetATimerGoThatMovesToAnotherThread() {
  QThread Thread;
  Thread.start();
  QTimer* Timer = new QTimer;
  QAtomicInt Ticks = 0;
  connect(Timer, &QTimer::timeout, Timer, [&Ticks] { ++Ticks; });
  Timer->start(10);
  {
    const TOthersHeld Held;
    ServeFor(30);
    Timer->moveToThread(&Thread);
    QTRY_VERIFY(Ticks > 2);
  }
  Timer->deleteLater();
  Thread.quit();
  QVERIFY(Thread.wait());
}

void tst_QuietLoop::shouldHoldASocketAndReportItAfterwards() {
  TSocket Socket;
  {
    const TOthersHeld Held;
    Socket.Send('a');
    Socket.Send('b');
    ServeFor(30);
    QCOMPARE(Socket.Received, QString());
    WakingsOfALoop();
    QCOMPARE(Socket.Received, QString());
  }
  ServeFor(30);
  QCOMPARE(Socket.Received, QString("ab"));
  QVERIFY(Socket.Notifier->isEnabled());
}

void tst_QuietLoop::shouldReportAnOwnSocket() {
  TForm Own;
  TSocket Socket;
  Socket.Notifier->setParent(&Own);
  const TOthersHeld Held;
  Socket.Send('a');
  ServeFor(20);
  QCOMPARE(Socket.Received, QString("a"));
}

void tst_QuietLoop::shouldLeaveASocketAloneThatTheHostHasSwitched() {
  TSocket Socket;
  Socket.Notifier->setEnabled(false);
  {
    const TOthersHeld Held;
    Socket.Send('a');
    WakingsOfALoop();
  }
  QVERIFY(!Socket.Notifier->isEnabled());
}

void tst_QuietLoop::shouldForgetASocketThatIsDestroyedMeanwhile() {
  TSocket Socket;
  {
    const TOthersHeld Held;
    Socket.Send('a');
    WakingsOfALoop();
    Socket.Notifier.reset();
  }
  ServeFor(20);
  QCOMPARE(Socket.Received, QString());
}

void tst_QuietLoop::shouldNotBeBusyWhileTimersWait() {
  QTimer Busy;
  Busy.start(0);
  QTimer Single;
  Single.setSingleShot(true);
  Single.start(0);
  {
    const TOthersHeld Held;
    const int Wakings = WakingsOfALoop();
    QVERIFY2(Wakings < 50, qPrintable(QString::number(Wakings)));
  }
  QVERIFY(WakingsOfALoop() > 50);
}

void tst_QuietLoop::shouldNotBeBusyWhileSocketsWait() {
  TSocket Socket;
  Socket.Send('a');
  const TOthersHeld Held;
  const int Wakings = WakingsOfALoop();
  QVERIFY2(Wakings < 50, qPrintable(QString::number(Wakings)));
}

void tst_QuietLoop::shouldServeQueuedCalls() {
  bool Called = false;
  QMetaObject::invokeMethod(
      this, [&Called] { Called = true; }, Qt::QueuedConnection);
  const TInputHeld Input(Nobody);
  const TOthersHeld Others;
  ServeEvents();
  QVERIFY(Called);
}

void tst_QuietLoop::shouldHoldUntilTheLastOneEnds() {
  QTimer Timer;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(5);
  auto First = std::make_unique<TOthersHeld>();
  auto Second = std::make_unique<TOthersHeld>();
  First.reset();
  ServeFor(30);
  QCOMPARE(Ticks, 0);
  Second.reset();
  ServeEvents();
  QCOMPARE(Ticks, 1);
}

void tst_QuietLoop::shouldServeALoopThatTheHostWaitsIn() {
  TSocket Socket;
  Socket.Send('a');
  QTimer Timer;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(5);
  const TOthersHeld Held;
  ServeFor(30);  // the timer waits already when the loop begins
  int Returned = 0;
  QMetaObject::invokeMethod(
      this,
      [&] {
        QEventLoop Loop;
        connect(&Timer, &QTimer::timeout, &Loop, [&] {
          if (!Socket.Received.isEmpty()) Loop.quit();
        });
        ++Returned;
        Loop.exec();
        ++Returned;
      },
      Qt::QueuedConnection);
  ServeEvents();
  QCOMPARE(Returned, 2);
  const int Before = Ticks;
  QVERIFY(Before > 0);
  ServeFor(30);
  QCOMPARE(Ticks, Before);
}

void tst_QuietLoop::shouldNotServeTheHostWhileAnOwnBoxWaits() {
  TForm Own;
  QTimer Timer;
  int Ticks = 0;
  connect(&Timer, &QTimer::timeout, &Timer, [&Ticks] { ++Ticks; });
  Timer.start(5);
  QTimer Answer(&Own);
  connect(&Answer, &QTimer::timeout, &Own, [] {
    if (QWidget* Box = QApplication::activeModalWidget()) QTest::keyClick(Box, Qt::Key_Escape);
  });
  Answer.start(50);
  const TOthersHeld Held;
  bool Answered = false;
  QMetaObject::invokeMethod(
      &Own,
      [&Answered] {
        toolkit::ShowError(nullptr, "It failed.");
        Answered = true;
      },
      Qt::QueuedConnection);
  ServeEvents();
  QVERIFY(Answered);
  QCOMPARE(Ticks, 0);
}

// What is held when the application ends must not need it any more.
int main(int ArgumentCount, char** Arguments) {
  std::optional<TInputHeld> Input;
  std::optional<TOthersHeld> Others;
  std::optional<QTimer> Timer;
  int Result = 0;
  {
    QApplication Application(ArgumentCount, Arguments);
    tst_QuietLoop Test;
    Result = QTest::qExec(&Test, ArgumentCount, Arguments);
    Input.emplace(nullptr);
    Others.emplace();
    Timer.emplace();
    Timer->start(1);
    ServeFor(10);
  }
  Input.reset();
  Others.reset();
  Timer.reset();
  ServeEvents();
  const TInputHeld WithoutApplication(nullptr);
  return Result;
}

#include "tst_QuietLoop.moc"
