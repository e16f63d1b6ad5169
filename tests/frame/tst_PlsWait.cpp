#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include "frame/uZULPickPlsWait.h"

using uZULPickPlsWait::TZULPickPlsWait;

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
