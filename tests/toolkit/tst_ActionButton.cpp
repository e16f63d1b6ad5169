#include <QTest>
#include <QtWidgets>

#include "toolkit/ActionButton.h"

using toolkit::BindAction;

class tst_ActionButton : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldShowTheActionFromTheStart() {
    QAction Action(QStringLiteral("Find"));
    Action.setEnabled(false);
    QPushButton Button;
    BindAction(&Button, &Action);
    QCOMPARE(Button.text(), QStringLiteral("Find"));
    QVERIFY(!Button.isEnabled());
  }

  void shouldFollowTheAction() {
    QAction Action;
    QPushButton Button;
    BindAction(&Button, &Action);
    Action.setText(QStringLiteral("OK"));
    QCOMPARE(Button.text(), QStringLiteral("OK"));
    Action.setEnabled(false);
    QVERIFY(!Button.isEnabled());
    Action.setEnabled(true);
    QVERIFY(Button.isEnabled());
  }

  void shouldTriggerTheActionOnceForAClick() {
    QAction Action(QStringLiteral("OK"));
    int Triggered = 0;
    connect(&Action, &QAction::triggered, this, [&Triggered] { ++Triggered; });
    QPushButton Button;
    BindAction(&Button, &Action);
    Button.show();
    QTest::mouseClick(&Button, Qt::LeftButton);
    QCOMPARE(Triggered, 1);
    QTest::keyClick(&Button, Qt::Key_Space);
    QCOMPARE(Triggered, 2);
    Action.setEnabled(false);
    QTest::mouseClick(&Button, Qt::LeftButton);
    QCOMPARE(Triggered, 2);
  }

  void shouldLeaveTheActionUsableWhenTheButtonIsGone() {
    QAction Action(QStringLiteral("OK"));
    int Triggered = 0;
    connect(&Action, &QAction::triggered, this, [&Triggered] { ++Triggered; });
    {
      QPushButton Button;
      BindAction(&Button, &Action);
    }
    Action.setText(QStringLiteral("Yes"));
    Action.trigger();
    QCOMPARE(Triggered, 1);
  }

  void shouldLeaveTheButtonStandingWhenTheActionIsGone() {
    QPushButton Button;
    {
      QAction Action(QStringLiteral("OK"));
      BindAction(&Button, &Action);
    }
    Button.click();
    QCOMPARE(Button.text(), QStringLiteral("OK"));
  }
};

QTEST_MAIN(tst_ActionButton)
#include "tst_ActionButton.moc"
