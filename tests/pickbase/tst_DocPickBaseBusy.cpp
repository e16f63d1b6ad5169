// What a user does in the base dialog while its query runs: the please-wait window keeps the event loop alive
// meanwhile.
#include <sqlite3.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlDriver>
#include <QTest>
#include <chrono>
#include <thread>

#include "PurchaseDialog.h"
#include "frame/uZULPickPlsWait.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using support::Column;
using support::DrivePick;
using support::TErrorBoxes;
using support::TTestCompany;
using uDocPickBase::TDocPickBase;

namespace {

using TLines = std::vector<std::string>;

// host_slow(Text, Bad): gives the text back after a while, and fails for one that equals `Bad`. The list has 600 rows,
// so that reading it takes a third of a second at least.
void Slow(sqlite3_context* Context, int, sqlite3_value** Args) {
  std::this_thread::sleep_for(std::chrono::microseconds(500));
  const QByteArray Text(reinterpret_cast<const char*>(sqlite3_value_text(Args[0])));
  const QByteArray Bad(reinterpret_cast<const char*>(sqlite3_value_text(Args[1])));
  if (Text == Bad) {
    sqlite3_result_error(Context, "The host's function has failed.", -1);
  } else {
    sqlite3_result_text(Context, Text.constData(), -1, SQLITE_TRANSIENT);
  }
}

}  // namespace

class tst_DocPickBaseBusy : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void init();
  void cleanup();

  void shouldKeepTheOldListWhenCancelIsClickedMeanwhile();
  void shouldKeepTheOldListForEscapeMeanwhile();
  void shouldNotBeConfirmedMeanwhile();
  void shouldQueryOnceMoreForASecondEnter();
  void shouldQueryOnceMoreForManyChanges();
  void shouldQueryAgainWithTheNewOrder();
  void shouldShowTheWholeListWhenTheTextIsDeletedMeanwhile();
  void shouldNotQueryAgainInAClosedWindow();
  void shouldNotQueryWhenTheWindowWasClosedBefore();
  void shouldScrollTheOldListMeanwhile();
  void shouldKeepTheOldListWhenReadingFailsHalfway();
  void shouldQueryOnceMoreWhenTheQueryThatRunsFails();
  void shouldQueryAgainAfterAFailureMeanwhile();
  void shouldNotLetTheWaitWindowBeClosed();

 private:
  /// Shows the dialog, runs the slow query by typing a text and Enter, and does `Meanwhile` once while its rows are
  /// read. What `ShowPick` returned.
  bool Search(
      const QString& Text, const std::function<void()>& Meanwhile, const std::function<void()>& Afterwards = [] {});
  void DoMeanwhile(const std::function<void()>& Meanwhile);
  void StopsAndThenCloses(const std::function<void()>& Stop);

  std::unique_ptr<TTestCompany> Company_;
  std::unique_ptr<TPurchaseDialog> Dialog_;
  bool Happened_ = false;
};

void tst_DocPickBaseBusy::init() {
  Company_ = std::make_unique<TTestCompany>();
  sqlite3* Handle = *static_cast<sqlite3* const*>(Company_->Database().driver()->handle().constData());
  QCOMPARE(sqlite3_create_function(Handle, "host_slow", 2, SQLITE_UTF8, nullptr, Slow, nullptr, nullptr), SQLITE_OK);
  Dialog_ = TPurchaseDialog::Create(Company_->Connection());
  Dialog_->NumberColumn = "host_slow(Number, '') Number";
  Dialog_->qryList_->AllowFunctions({"host_slow"});
  Happened_ = false;
}

void tst_DocPickBaseBusy::cleanup() {
  Dialog_.reset();
  Company_.reset();
}

// The next query posts it, so it runs while that query's rows are read.
void tst_DocPickBaseBusy::DoMeanwhile(const std::function<void()>& Meanwhile) {
  Dialog_->InSetSQL = [this, Meanwhile] {
    Dialog_->InSetSQL = nullptr;
    QMetaObject::invokeMethod(
        this,
        [this, Meanwhile] {
          Happened_ = Dialog_->findChild<uZULPickPlsWait::TZULPickPlsWait*>() != nullptr;
          Meanwhile();
        },
        Qt::QueuedConnection);
  };
}

bool tst_DocPickBaseBusy::Search(const QString& Text, const std::function<void()>& Meanwhile,
                                 const std::function<void()>& Afterwards) {
  return DrivePick([&] { return Dialog_->ShowPick(); },
                   [&](TDocPickBase&) {
                     DoMeanwhile(Meanwhile);
                     support::TypeFind(*Dialog_, Text);
                     Afterwards();
                   });
}

void tst_DocPickBaseBusy::StopsAndThenCloses(const std::function<void()>& Stop) {
  Dialog_->qryList_->SetRecNo(5);
  bool Open = false;
  bool Closed = false;
  QVERIFY(!Search("p1", Stop, [&] {
    Open = Dialog_->isVisible();
    Stop();
    Closed = !Dialog_->isVisible();
  }));
  QVERIFY(Happened_);
  QVERIFY(Open);
  QVERIFY(Closed);
  QCOMPARE(Dialog_->Queries, 2);
  QCOMPARE(Dialog_->qryList_->RecordCount(), 600);
  QCOMPARE(Dialog_->qryList_->RecNo(), 5);
  QCOMPARE(Dialog_->edFind->text(), QString("p1"));
  QVERIFY(Dialog_->findChild<uZULPickPlsWait::TZULPickPlsWait*>() == nullptr);
}

void tst_DocPickBaseBusy::shouldKeepTheOldListWhenCancelIsClickedMeanwhile() {
  StopsAndThenCloses([&] { support::ClickCancel(*Dialog_); });
}

void tst_DocPickBaseBusy::shouldKeepTheOldListForEscapeMeanwhile() {
  StopsAndThenCloses([&] { QTest::keyClick(Dialog_->edFind, Qt::Key_Escape); });
}

void tst_DocPickBaseBusy::shouldNotBeConfirmedMeanwhile() {
  bool Enabled = true;
  bool Open = false;
  bool EnabledAfterwards = false;
  QVERIFY(!Search(
      "p1",
      [&] {
        Enabled = Dialog_->bbnOK->isEnabled();
        support::ClickOK(*Dialog_);
        support::DoubleClickRow(*Dialog_, 1);
        QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Return);
        Open = Dialog_->isVisible();
      },
      [&] { EnabledAfterwards = Dialog_->bbnOK->isEnabled(); }));
  QVERIFY(Happened_);
  QVERIFY(!Enabled);
  QVERIFY(Open);
  QVERIFY(EnabledAfterwards);
}

void tst_DocPickBaseBusy::shouldQueryOnceMoreForASecondEnter() {
  Search("p1", [&] { support::TypeFind(*Dialog_, "p100003"); });
  QVERIFY(Happened_);
  QCOMPARE(Dialog_->Queries, 3);
  QCOMPARE(Column(*Dialog_, "Number"), TLines{"P100003"});
}

void tst_DocPickBaseBusy::shouldQueryOnceMoreForManyChanges() {
  Search("p1", [&] {
    support::TypeFind(*Dialog_, "p100004");
    support::ChooseOrderBy(*Dialog_, TPurchaseDialog::ByDate);
    support::ClickBox(Dialog_->ckbDesc);
    support::TypeFind(*Dialog_, "p10000");
  });
  QVERIFY(Happened_);
  QCOMPARE(Dialog_->Queries, 3);
  QCOMPARE(Dialog_->qryList_->RecordCount(), 9);
  QCOMPARE(support::SqlLines(*Dialog_).back(), std::string("ORDER BY SortFld DESC"));
}

void tst_DocPickBaseBusy::shouldQueryAgainWithTheNewOrder() {
  Search("p1", [&] { support::ChooseOrderBy(*Dialog_, TPurchaseDialog::ByDate); });
  QVERIFY(Happened_);
  QCOMPARE(Dialog_->Queries, 3);
  const TLines Dates = Column(*Dialog_, "Date");
  QCOMPARE(Dates.size(), std::size_t{600});
  QVERIFY(std::is_sorted(Dates.begin(), Dates.end()));
}

void tst_DocPickBaseBusy::shouldShowTheWholeListWhenTheTextIsDeletedMeanwhile() {
  Search("1", [&] { support::ChooseFindBy(*Dialog_, TPurchaseDialog::ByDate); });
  QVERIFY(Happened_);
  QVERIFY(Dialog_->edFind->text().isEmpty());
  QCOMPARE(Dialog_->Queries, 3);
  QCOMPARE(Dialog_->qryList_->RecordCount(), 600);
}

void tst_DocPickBaseBusy::shouldNotQueryAgainInAClosedWindow() {
  QVERIFY(!Search("p1", [&] {
    support::TypeFind(*Dialog_, "p100003");
    Dialog_->close();
  }));
  QVERIFY(Happened_);
  QCOMPARE(Dialog_->Queries, 2);
  // The next one is a matter of its own again.
  Dialog_->CallSetSQL();
  QCOMPARE(Dialog_->Queries, 3);
}

void tst_DocPickBaseBusy::shouldNotQueryWhenTheWindowWasClosedBefore() {
  bool Open = true;
  QVERIFY(!DrivePick([&] { return Dialog_->ShowPick(); },
                     [&](TDocPickBase&) {
                       QMetaObject::invokeMethod(
                           this, [this] { Dialog_->close(); }, Qt::QueuedConnection);
                       support::TypeFind(*Dialog_, "p100003");
                       Open = Dialog_->isVisible();
                     }));
  QVERIFY(!Open);
  QCOMPARE(Dialog_->Queries, 1);
  QCOMPARE(Dialog_->qryList_->RecordCount(), 600);
}

void tst_DocPickBaseBusy::shouldScrollTheOldListMeanwhile() {
  int Meanwhile = 0;
  Search("p1", [&] {
    QTest::keyClick(Dialog_->dbgAvail, Qt::Key_End);
    Meanwhile = Dialog_->qryList_->RecNo();
  });
  QVERIFY(Happened_);
  QCOMPARE(Meanwhile, 600);
  QCOMPARE(Dialog_->qryList_->RecNo(), 1);
}

void tst_DocPickBaseBusy::shouldKeepTheOldListWhenReadingFailsHalfway() {
  Dialog_->NumberColumn = "host_slow(Number, 'P100590') Number";
  TErrorBoxes Boxes;
  Search("p1", [&] { QTest::keyClick(Dialog_->dbgAvail, Qt::Key_Down); });
  QCOMPARE(Boxes.Messages(), TLines{"The host's function has failed."});
  QCOMPARE(Dialog_->qryList_->RecordCount(), 600);
  QCOMPARE(Column(*Dialog_, "Number").at(589), std::string("P100590"));
  QVERIFY(Dialog_->actOK->isEnabled());
}

// What was asked for meanwhile is done, and the failure is of no interest any more.
void tst_DocPickBaseBusy::shouldQueryOnceMoreWhenTheQueryThatRunsFails() {
  Dialog_->Plainly = true;
  Dialog_->NumberColumn = "host_slow(Number, 'P100590') Number";
  TErrorBoxes Boxes;
  Search("p1", [&] {
    support::ChooseOrderBy(*Dialog_, TPurchaseDialog::ByDate);
    Dialog_->InSetSQL = [&] { Dialog_->NumberColumn = "Number"; };
  });
  QVERIFY(Happened_);
  QCOMPARE(Boxes.Messages(), TLines{});
  QCOMPARE(Dialog_->Queries, 3);
  const TLines Dates = Column(*Dialog_, "Date");
  QCOMPARE(Dates.size(), std::size_t{600});
  QVERIFY(std::is_sorted(Dates.begin(), Dates.end()));
}

void tst_DocPickBaseBusy::shouldQueryAgainAfterAFailureMeanwhile() {
  TErrorBoxes Boxes;
  Search(
      "p1",
      [&] {
        support::ChooseFindBy(*Dialog_, TPurchaseDialog::ByDate);
        support::TypeFind(*Dialog_, "no date");
      },
      [&] { support::ChooseFindBy(*Dialog_, TPurchaseDialog::ByNumber); });
  QVERIFY(Happened_);
  QCOMPARE(Boxes.Messages().size(), std::size_t{1});
  QCOMPARE(Dialog_->Queries, 4);
  QCOMPARE(Dialog_->qryList_->RecordCount(), 600);
}

void tst_DocPickBaseBusy::shouldNotLetTheWaitWindowBeClosed() {
  bool StillShown = false;
  Search("p1", [&] {
    auto* Wait = Dialog_->findChild<uZULPickPlsWait::TZULPickPlsWait*>();
    QTest::keyClick(Wait, Qt::Key_Escape);
    Wait->close();
    StillShown = Wait->isVisible();
  });
  QVERIFY(Happened_);
  QVERIFY(StillShown);
}

QTEST_MAIN(tst_DocPickBaseBusy)
#include "tst_DocPickBaseBusy.moc"
