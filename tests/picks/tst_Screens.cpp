// Where dialogs open on a system of two screens, and how they fit on a narrow one.
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include "frame/uZULPickListsUtils.h"
#include "frame/uZULPickPlsWait.h"
#include "support/EveryDialog.h"
#include "support/PickDriver.h"
#include "support/Screens.h"
#include "support/TestCompany.h"

using uDocPickBase::TDocPickBase;
using uZULPickPlsWait::TZULPickPlsWait;

namespace {

// The first is the primary one.
constexpr QRect Large(0, 0, 1280, 1024);
constexpr QRect Small(1280, 200, 800, 600);

// A host's window on one of the screens, the active one.
class THost : public QWidget {
 public:
  explicit THost(const QRect& Screen) {
    setGeometry(QRect(Screen.topLeft() + QPoint(40, 60), QSize(300, 200)));
    show();
  }
  bool IsActive() { return QTest::qWaitForWindowActive(this); }
};

QPoint Middle(const QRect& Screen, const QSize& Size) {
  return {Screen.x() + (Screen.width() - Size.width()) / 2, Screen.y() + (Screen.height() - Size.height()) / 2};
}

// The first of what a pick cannot do without that does not stand wholly in it.
QString OutOfReach(const TDocPickBase& Dialog) {
  for (const QWidget* Widget : {static_cast<QWidget*>(Dialog.bbnOK), static_cast<QWidget*>(Dialog.bbnCancel),
                                static_cast<QWidget*>(Dialog.edFind), static_cast<QWidget*>(Dialog.dbgAvail)}) {
    if (!Widget->isVisible()) continue;
    if (!Dialog.rect().contains(QRect(Widget->mapTo(&Dialog, QPoint()), Widget->size()))) return Widget->objectName();
  }
  return {};
}

void AddDialogs() {
  QTest::addColumn<int>("Index");
  int Index = 0;
  for (const support::TSampleDialog& Sample : support::EveryDialog()) QTest::newRow(Sample.Name.c_str()) << Index++;
}

}  // namespace

class tst_Screens : public QObject {
  Q_OBJECT

  support::TTestCompany Company_;

  std::unique_ptr<TDocPickBase> Dialog(int Index) {
    return support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company_.Connection());
  }

 private Q_SLOTS:
  void shouldOpenOnTheScreenOfTheCaller_data();
  void shouldOpenOnTheScreenOfTheCaller();
  void shouldWaitOnTheScreenOfTheCaller();
  void shouldOpenOnThePrimaryScreenWithoutACaller();
  void shouldKeepEverythingInReachOnANarrowScreen_data() { AddDialogs(); }
  void shouldKeepEverythingInReachOnANarrowScreen();
  void shouldScrollSidewaysWhatDoesNotFit();
};

void tst_Screens::shouldOpenOnTheScreenOfTheCaller_data() {
  QTest::addColumn<QRect>("Screen");
  QTest::newRow("primary") << Large;
  QTest::newRow("second") << Small;
}

void tst_Screens::shouldOpenOnTheScreenOfTheCaller() {
  QFETCH(QRect, Screen);
  THost Host(Screen);
  QVERIFY(Host.IsActive());
  const auto Pick = Dialog(0);
  QCOMPARE(Pick->geometry().topLeft(), Middle(Screen, Pick->size()));
  support::DrivePick([&] { return Pick->ShowPick(); },
                     [&](TDocPickBase&) {
                       QCOMPARE(Pick->screen()->geometry(), Screen);
                       QCOMPARE(Pick->geometry().topLeft(), Middle(Screen, Pick->size()));
                       TZULPickPlsWait Wait(Pick.get(), "Reading", true);
                       QCOMPARE(Wait.geometry().topLeft(), Middle(Screen, Wait.size()));
                     });
}

void tst_Screens::shouldWaitOnTheScreenOfTheCaller() {
  THost Host(Small);
  QVERIFY(Host.IsActive());
  TDocPickBase* const None = nullptr;
  const TZULPickPlsWait Wait(None, "Reading", true);
  QCOMPARE(Wait.geometry().topLeft(), Middle(Small, Wait.size()));
  const auto Pick = Dialog(0);  // not shown yet, as when its first query runs
  const TZULPickPlsWait First(Pick.get(), "Reading", true);
  QCOMPARE(First.geometry().topLeft(), Middle(Small, First.size()));
}

void tst_Screens::shouldOpenOnThePrimaryScreenWithoutACaller() {
  const auto Pick = Dialog(0);
  QCOMPARE(Pick->geometry().topLeft(), Middle(Large, Pick->size()));
}

void tst_Screens::shouldKeepEverythingInReachOnANarrowScreen() {
  QFETCH(int, Index);
  const auto Wide = Dialog(Index);
  QCOMPARE(Wide->dbgAvail->maximumViewportSize().width(), Wide->dbgAvail->ColumnsWidth());
  THost Host(Small);
  QVERIFY(Host.IsActive());
  const auto Pick = Dialog(Index);
  Pick->show();
  QVERIFY(QTest::qWaitForWindowActive(Pick.get()));
  QCOMPARE(Pick->width(), std::min(Wide->width(), Small.width()));
  QVERIFY(Small.contains(Pick->geometry()));
  QCOMPARE(OutOfReach(*Pick), QString());
  for (const TDocPickBase* Each : {Wide.get(), Pick.get()}) {
    const int Titles = Each->dbgAvail->horizontalHeader()->height();
    const int Bar =
        Each == Pick.get() && Wide->width() > Small.width() ? Each->dbgAvail->horizontalScrollBar()->height() : 0;
    const int Rows = Each->dbgAvail->height() - 2 * Each->dbgAvail->frameWidth() - Titles - Bar;
    QCOMPARE(Rows % Each->dbgAvail->rowHeight(0), 0);
  }
  QCOMPARE(Pick->dbgAvail->horizontalScrollBar()->isVisible(), Wide->width() > Small.width());
  if (Wide->width() <= Small.width()) QCOMPARE(Pick->dbgAvail->size(), Wide->dbgAvail->size());
}

void tst_Screens::shouldScrollSidewaysWhatDoesNotFit() {
  THost Host(Small);
  QVERIFY(Host.IsActive());
  const auto Pick = support::SampleDialog("po").Create(Company_.Connection());
  Pick->show();
  QVERIFY(QTest::qWaitForWindowActive(Pick.get()));
  Pick->dbgAvail->setFocus();
  QScrollBar* Bar = Pick->dbgAvail->horizontalScrollBar();
  QVERIFY(Bar->maximum() > 0);
  for (int Times = 0; Times < 50; ++Times) QTest::keyClick(Pick->dbgAvail, Qt::Key_Right);
  QCOMPARE(Bar->value(), Bar->maximum());
  QTest::keyClick(Pick->dbgAvail, Qt::Key_PageDown);
  QTest::keyClick(Pick->dbgAvail, Qt::Key_End);
  QCOMPARE(Bar->value(), Bar->maximum());
  QCOMPARE(Pick->qryList_->RecNo(), Pick->qryList_->RecordCount());
  for (int Times = 0; Times < 50; ++Times) QTest::keyClick(Pick->dbgAvail, Qt::Key_Left);
  QCOMPARE(Bar->value(), 0);
}

ZUL_TEST_MAIN(tst_Screens, Large, Small)
#include "tst_Screens.moc"
