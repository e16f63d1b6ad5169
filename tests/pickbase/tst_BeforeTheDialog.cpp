// What the user does between the call of a pick and its dialog, while the first query runs: nothing of it reaches the
// host's windows.
#include <sqlite3.h>

#include <QAbstractEventDispatcher>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlDriver>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <chrono>
#include <thread>

#include "frame/uZULPickPlsWait.h"
#include "picks/reference/uPickSuburb.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using support::DrivePick;
using uDocPickBase::TDocPickBase;
using uZULPickPlsWait::TZULPickPlsWait;

namespace {

int Pause = 0;  // of the function below, in microseconds

// host_slow(Text): gives the text back after a while.
void Slow(sqlite3_context* Context, int, sqlite3_value** Args) {
  std::this_thread::sleep_for(std::chrono::microseconds(Pause));
  sqlite3_result_value(Context, Args[0]);
}

TZULPickPlsWait* WaitWindow() {
  for (QWidget* Window : QApplication::topLevelWidgets()) {
    if (auto* Wait = qobject_cast<TZULPickPlsWait*>(Window)) return Wait;
  }
  return nullptr;
}

// Notes what is painted of the please-wait window.
class TPaintWatch : public QObject {
 public:
  TPaintWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* Receiver, QEvent* Event) override {
    auto* Wait = qobject_cast<TZULPickPlsWait*>(Receiver);
    if (Wait == nullptr) return false;
    if (Event->type() == QEvent::Show && !Wait->testAttribute(Qt::WA_DontShowOnScreen)) ++Shown;
    if (Event->type() == QEvent::Paint) ++Painted;
    return false;
  }
  int Shown = 0;
  int Painted = 0;
};

}  // namespace

class tst_BeforeTheDialog : public QObject {
  Q_OBJECT
 private slots:
  void init();
  void cleanup();

  void shouldPutIntoTheFindBoxWhatIsTyped();
  void shouldSearchForWhatIsTypedWithEnter();
  void shouldGiveThePickUpByEscape();
  void shouldGiveThePickUpByEscapeInThePleaseWaitWindow();
  void shouldKeepAHostsDialogThatEscapeWouldClose();
  void shouldNotCallAgainOnASecondClick();
  void shouldNotCloseTheHost();
  void shouldPickAgainAfterAPickThatWasGivenUp();
  void shouldPaintThePleaseWaitWindow();
  void shouldNotShowThePleaseWaitWindowForAQuickQuery();
  void shouldLeaveTheHostItsInputAfterwards();

 private:
  /// Calls the pick by the host's button; `Meanwhile` is done once while its first query runs, `Drive` in its dialog.
  void CallByButton(const std::function<void()>& Meanwhile, const std::function<void(TDocPickBase&)>& Drive);
  /// The same for a pick whose dialog does not come up.
  void CallByButton(const std::function<void()>& Meanwhile);
  void DoInFirstQuery(const std::function<void()>& Meanwhile);

  std::unique_ptr<support::TTestCompany> Company_;
  std::unique_ptr<QDialog> Host_;
  QLineEdit* Field_ = nullptr;
  QPushButton* Button_ = nullptr;
  QMetaObject::Connection Awake_;
  int Calls_ = 0;
  bool Happened_ = false;
  bool Result_ = false;
  std::string Suburb_;
};

void tst_BeforeTheDialog::init() {
  Company_ = std::make_unique<support::TTestCompany>();
  sqlite3* Handle = *static_cast<sqlite3* const*>(Company_->Database().driver()->handle().constData());
  QCOMPARE(sqlite3_create_function(Handle, "host_slow", 1, SQLITE_UTF8, nullptr, Slow, nullptr, nullptr), SQLITE_OK);
  Company_->Execute("ALTER TABLE Suburb RENAME TO Suburbs");
  Company_->Execute("CREATE VIEW Suburb AS SELECT host_slow(Suburb) Suburb FROM Suburbs");
  Pause = 2000;
  Calls_ = 0;
  Happened_ = false;
  Host_ = std::make_unique<QDialog>();
  auto* Layout = new QVBoxLayout(Host_.get());
  Layout->addWidget(Field_ = new QLineEdit);
  Layout->addWidget(Button_ = new QPushButton);
  connect(Button_, &QPushButton::clicked, this, [this] {
    ++Calls_;
    Suburb_ = "before";
    Result_ = uPickSuburb::CallPickSuburb(Company_->Connection(), Suburb_);
  });
  Host_->show();
  QVERIFY(QTest::qWaitForWindowActive(Host_.get()));
  Field_->setFocus();
}

void tst_BeforeTheDialog::cleanup() {
  disconnect(Awake_);
  Host_.reset();
  Company_.reset();
}

// The dispatcher wakes up in the midst of the query, because the library lets it.
void tst_BeforeTheDialog::DoInFirstQuery(const std::function<void()>& Meanwhile) {
  Awake_ = connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, [this, Meanwhile] {
    if (Happened_ || WaitWindow() == nullptr) return;
    Happened_ = true;
    Meanwhile();
  });
}

void tst_BeforeTheDialog::CallByButton(const std::function<void()>& Meanwhile,
                                       const std::function<void(TDocPickBase&)>& Drive) {
  DoInFirstQuery(Meanwhile);
  DrivePick(
      [this] {
        QTest::mouseClick(Button_, Qt::LeftButton);
        return Result_;
      },
      Drive);
}

void tst_BeforeTheDialog::CallByButton(const std::function<void()>& Meanwhile) {
  DoInFirstQuery(Meanwhile);
  QTest::mouseClick(Button_, Qt::LeftButton);
}

void tst_BeforeTheDialog::shouldPutIntoTheFindBoxWhatIsTyped() {
  QString Typed;
  CallByButton([this] { QTest::keyClicks(Field_, "new"); },
               [&](TDocPickBase& Dialog) {
                 QTRY_COMPARE(Dialog.edFind->text(), QString("new"));
                 Typed = Dialog.edFind->text();
               });
  QVERIFY(Happened_);
  QCOMPARE(Typed, QString("new"));
  QCOMPARE(Field_->text(), QString());
}

void tst_BeforeTheDialog::shouldSearchForWhatIsTypedWithEnter() {
  std::vector<std::string> Lines;
  QTimer Timer;  // the search is under way when the dialog comes up
  connect(&Timer, &QTimer::timeout, this, [&] {
    auto* Dialog = dynamic_cast<TDocPickBase*>(QApplication::activeModalWidget());
    if (Dialog == nullptr || support::SqlLines(*Dialog).size() < 4 || !Dialog->bbnOK->isEnabled()) return;
    Lines = support::SqlLines(*Dialog);
    Timer.stop();
    Dialog->reject();
  });
  Timer.start(20);
  CallByButton([this] {
    QTest::keyClicks(Field_, "ox");
    QTest::keyClick(Field_, Qt::Key_Backspace);
    QTest::keyClick(Field_, Qt::Key_Return);
  });
  QCOMPARE(Lines.at(2), std::string("WHERE UPPER(Suburb) LIKE '%O%'"));
  QCOMPARE(Calls_, 1);
}

void tst_BeforeTheDialog::shouldGiveThePickUpByEscape() {
  CallByButton([this] { QTest::keyClick(Field_, Qt::Key_Escape); });
  QVERIFY(Happened_);
  QVERIFY(!Result_);
  QCOMPARE(Suburb_, std::string());
  QVERIFY(WaitWindow() == nullptr);
  QVERIFY(Host_->isVisible());
}

void tst_BeforeTheDialog::shouldGiveThePickUpByEscapeInThePleaseWaitWindow() {
  CallByButton([] { QTest::keyClick(WaitWindow(), Qt::Key_Escape); });
  QVERIFY(Happened_);
  QVERIFY(!Result_);
  QVERIFY(WaitWindow() == nullptr);
}

void tst_BeforeTheDialog::shouldKeepAHostsDialogThatEscapeWouldClose() {
  Host_->setAttribute(Qt::WA_DeleteOnClose);
  const QPointer<QDialog> Host = Host_.release();
  CallByButton([this] { QTest::keyClick(Field_, Qt::Key_Escape); });
  QVERIFY(Host != nullptr);
  QVERIFY(Host->isVisible());
  QTest::keyClick(Field_, Qt::Key_Escape);
  QTRY_VERIFY(Host == nullptr);
}

void tst_BeforeTheDialog::shouldNotCallAgainOnASecondClick() {
  CallByButton(
      [this] {
        QTest::mouseClick(Button_, Qt::LeftButton);
        QTest::mouseDClick(Button_, Qt::LeftButton);
        QTest::keyClick(Button_, Qt::Key_Space);
      },
      [](TDocPickBase& Dialog) { support::ClickOK(Dialog); });
  QVERIFY(Happened_);
  QCOMPARE(Calls_, 1);
  QVERIFY(Result_);
  QVERIFY(!Suburb_.empty());
}

void tst_BeforeTheDialog::shouldNotCloseTheHost() {
  CallByButton([this] { QTest::keyClick(Host_->windowHandle(), Qt::Key_Escape); }, [](TDocPickBase&) {});
  QVERIFY(Happened_);
  QVERIFY(Host_->isVisible());
}

void tst_BeforeTheDialog::shouldPickAgainAfterAPickThatWasGivenUp() {
  for (int Round = 0; Round < 3; ++Round) {
    Happened_ = false;
    CallByButton([this] { QTest::keyClick(Field_, Qt::Key_Escape); });
    QVERIFY(!Result_);
    disconnect(Awake_);
  }
  Happened_ = true;
  CallByButton([] {}, [](TDocPickBase& Dialog) { support::ClickOK(Dialog); });
  QVERIFY(Result_);
}

void tst_BeforeTheDialog::shouldPaintThePleaseWaitWindow() {
  const TPaintWatch Watch;
  CallByButton([] {}, [](TDocPickBase&) {});
  QVERIFY(Watch.Shown > 0);
  QVERIFY(Watch.Painted > 0);
}

void tst_BeforeTheDialog::shouldNotShowThePleaseWaitWindowForAQuickQuery() {
  Pause = 0;
  const TPaintWatch Watch;
  CallByButton([] {}, [](TDocPickBase&) {});
  QCOMPARE(Watch.Shown, 0);
}

void tst_BeforeTheDialog::shouldLeaveTheHostItsInputAfterwards() {
  CallByButton([this] { QTest::keyClicks(Field_, "lost"); }, [](TDocPickBase&) {});
  Host_->activateWindow();
  QTest::keyClicks(Field_, "mine");
  QCOMPARE(Field_->text(), QString("mine"));
  CallByButton([] {}, [](TDocPickBase&) {});
  QCOMPARE(Calls_, 2);
}

QTEST_MAIN(tst_BeforeTheDialog)
#include "tst_BeforeTheDialog.moc"
