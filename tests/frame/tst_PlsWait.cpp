#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <stdexcept>

#include "frame/uZULPickPlsWait.h"
#include "toolkit/QuietLoop.h"

using uZULPickPlsWait::TZULPickPlsWait;

namespace {

/// Whether a window of the window system shows the widget: a widget counts as visible before.
bool IsOnScreen(const QWidget& Window) {
  const QWindow* Handle = Window.windowHandle();
  return Handle != nullptr && Handle->isVisible();
}

/// Counts how often a widget is painted while its window is exposed.
class TPainted : public QObject {
 public:
  explicit TPainted(QWidget* Widget) : Widget_(Widget) { Widget->installEventFilter(this); }
  int Count = 0;
  bool eventFilter(QObject*, QEvent* Event) override {
    const QWindow* Handle = Widget_->window()->windowHandle();
    if (Event->type() == QEvent::Paint && Handle != nullptr && Handle->isExposed()) ++Count;
    return false;
  }

 private:
  QWidget* Widget_;
};

void ServeFor(int Milliseconds) {
  QElapsedTimer Clock;
  Clock.start();
  while (Clock.elapsed() < Milliseconds) {
    toolkit::ServeEvents();
    QThread::msleep(1);
  }
}

}  // namespace

class tst_PlsWait : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase() { QGuiApplication::setApplicationDisplayName("Back Office"); }

  void shouldShowItsMessageInTheMiddleOfTheScreen() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    QVERIFY(Window.isVisible());
    QVERIFY(!Window.isModal());
    QCOMPARE(Window.windowTitle(), QString("Back Office"));
    QCOMPARE(Window.lblStatus->text(), QString("Reading"));
    QCOMPARE(Window.gbPleaseWait->title(), QString("Please Wait"));
    QCOMPARE(Window.gbPleaseWait->geometry(), QRect(4, 4, 264, 36));
    QCOMPARE(Window.lblStatus->geometry(), QRect(4, 16, 256, 17));
    QCOMPARE(Window.size(), QSize(272, 44));
    QCOMPARE(Window.DotStep, std::uint8_t{1});
  }

  void shouldStayHiddenWithItsTimerRunningWhenItIsNotToBeShown() {
    TZULPickPlsWait Window(nullptr, "Reading", false);
    QVERIFY(!Window.isVisible());
    QVERIFY(Window.tmCapt->isActive());
    QCOMPARE(Window.tmCapt->interval(), 1500);
  }

  void shouldLeaveTheCaptionAtOneDotAtEveryTick() {
    TZULPickPlsWait Window(nullptr, "Reading", false);
    Window.tmCapt->setInterval(5);
    QTRY_COMPARE(Window.gbPleaseWait->title(), QString("Please Wait."));
    for (int Tick = 0; Tick < 4; ++Tick) Window.tmCaptTimer();
    QCOMPARE(Window.gbPleaseWait->title(), QString("Please Wait."));
  }

  void shouldShowAsManyDotsAsTheStepSays_data() {
    QTest::addColumn<int>("Step");
    QTest::addColumn<QString>("Caption");
    QTest::addColumn<int>("StepAfter");
    QTest::newRow("none") << 0 << "Please Wait" << 0;
    QTest::newRow("two") << 2 << "Please Wait.." << 2;
    QTest::newRow("three starts over") << 3 << "Please Wait..." << 0;
    QTest::newRow("any other changes nothing") << 4 << "before" << 4;
  }
  void shouldShowAsManyDotsAsTheStepSays() {
    QFETCH(int, Step);
    QFETCH(QString, Caption);
    QFETCH(int, StepAfter);
    TZULPickPlsWait Window(nullptr, "Reading", false);
    Window.gbPleaseWait->setTitle("before");
    Window.DotStep = static_cast<std::uint8_t>(Step);
    Window.tmCaptTimer();
    QCOMPARE(Window.gbPleaseWait->title(), Caption);
    QCOMPARE(int{Window.DotStep}, StepAfter);
  }

  void shouldPumpMessagesWhenTheMessageChanges() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    bool Ran = false;
    QMetaObject::invokeMethod(
        this, [&Ran] { Ran = true; }, Qt::QueuedConnection);
    Window.UpdateForm("Sorting");
    QVERIFY(Ran);
    QCOMPARE(Window.lblStatus->text(), QString("Sorting"));
  }

  void shouldNotBeClosedByTheUser() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    QTest::keyClick(&Window, Qt::Key_Escape);
    Window.close();
    QVERIFY(Window.isVisible());
  }

  void shouldCountAsShownBeforeItIsOnTheScreen() {
    QWidget Owner;
    TZULPickPlsWait Window(&Owner, "Reading", false);
    Window.ShowSoon();
    QVERIFY(Window.isVisible());
    QVERIFY(!IsOnScreen(Window));
    QCOMPARE(Window.parentWidget(), &Owner);
    QCOMPARE(Window.lblStatus->text(), QString("Reading"));
    QCOMPARE(Window.gbPleaseWait->title(), QString("Please Wait"));
    QCOMPARE(Window.size(), QSize(272, 44));
    QVERIFY(Window.tmCapt->isActive());
    ServeFor(60);
    QVERIFY(Window.isVisible());
    QVERIFY(!IsOnScreen(Window));
  }

  void shouldComeOntoTheScreenPaintedAfterAWhile() {
    TZULPickPlsWait Window(nullptr, "Reading", false);
    Window.ShowSoon();
    const TPainted Painted(Window.lblStatus);
    TZULPickPlsWait Now(nullptr, "Reading", true);
    toolkit::ServeEvents();
    QThread::msleep(120);
    QVERIFY(!IsOnScreen(Window));
    toolkit::ServeEvents();  // once is enough
    QVERIFY(Window.isVisible());
    QVERIFY(IsOnScreen(Window));
    QVERIFY(Window.windowHandle()->isExposed());
    QVERIFY(Painted.Count > 0);
    QTRY_COMPARE(Window.geometry(), Now.geometry());
    QCOMPARE(Window.size(), QSize(272, 44));
  }

  void shouldComeOntoTheScreenWhileTheHostsTimersWait() {
    TZULPickPlsWait Window(nullptr, "Reading", false);
    Window.ShowSoon();
    const toolkit::TOthersHeld Others;
    const toolkit::TInputHeld Input(nullptr);
    ServeFor(130);
    QVERIFY(IsOnScreen(Window));
  }

  void shouldNotComeOntoTheScreenAfterItWasHidden() {
    TZULPickPlsWait Window(nullptr, "Reading", false);
    Window.ShowSoon();
    Window.hide();
    ServeFor(130);
    QVERIFY(!Window.isVisible());
    QVERIFY(!IsOnScreen(Window));
    Window.show();
    QVERIFY(IsOnScreen(Window));
  }

  void shouldLeaveAWindowAloneThatIsShownAlready() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    Window.ShowSoon();
    QVERIFY(IsOnScreen(Window));
    QVERIFY(!Window.testAttribute(Qt::WA_DontShowOnScreen));
  }

  void shouldBeFreedBeforeItIsOnTheScreen() {
    {
      TZULPickPlsWait Window(nullptr, "Reading", false);
      Window.ShowSoon();
    }
    ServeFor(130);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
  }

  void shouldCallOnEscape() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    int Escapes = 0;
    Window.OnEscape = [&Escapes] { ++Escapes; };
    QTest::keyClick(&Window, Qt::Key_A);
    QTest::keyClick(&Window, Qt::Key_Return);
    QCOMPARE(Escapes, 0);
    QTest::keyClick(&Window, Qt::Key_Escape);
    QCOMPARE(Escapes, 1);
    QVERIFY(Window.isVisible());
    Window.reject();
    QCOMPARE(Escapes, 1);
  }

  void shouldShowWhatOnEscapeThrows() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    Window.OnEscape = [] { throw std::runtime_error("It cannot be stopped."); };
    QString Message;
    QTimer Answer;
    connect(&Answer, &QTimer::timeout, &Answer, [&Message] {
      auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (Box == nullptr) return;
      Message = Box->text();
      Box->button(QMessageBox::Ok)->click();
    });
    Answer.start(10);
    QTest::keyClick(&Window, Qt::Key_Escape);
    QCOMPARE(Message, QString("It cannot be stopped."));
  }

  void shouldLeaveEscapeToTheWaitThatHoldsTheInput() {
    TZULPickPlsWait Window(nullptr, "Reading", true);
    QString Called;
    Window.OnEscape = [&Called] { Called += 'w'; };
    {
      const toolkit::TInputHeld Held([&Called] { Called += 'h'; });
      QTest::keyClick(&Window, Qt::Key_Escape);
    }
    QTest::keyClick(&Window, Qt::Key_Escape);
    QCOMPARE(Called, QString("hw"));
  }

  void shouldBeFreedWithinOnEscape() {
    QPointer<TZULPickPlsWait> Window = new TZULPickPlsWait(nullptr, "Reading", true);
    Window->OnEscape = [&Window] { delete Window; };
    QTest::keyClick(Window, Qt::Key_Escape);
    QVERIFY(Window.isNull());
  }

  void shouldBeFreedWithItsOwner() {
    QPointer<TZULPickPlsWait> Window;
    {
      QWidget Owner;
      Window = new TZULPickPlsWait(&Owner, "Reading", true);
    }
    QVERIFY(Window.isNull());
  }
};

QTEST_MAIN(tst_PlsWait)
#include "tst_PlsWait.moc"
