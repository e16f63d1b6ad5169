#include <sqlite3.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "ads/Ads.h"
#include "servers/Backends.h"
#include "servers/ListDialog.h"
#include "servers/OpenOrSkip.h"
#include "servers/SentStatements.h"
#include "support/PickDriver.h"

using support::After;
using support::DrivePickAs;
using support::TBackend;
using support::TBackendKind;
using support::TListDialog;
using support::TListSource;
using support::TTickDialog;

namespace {

constexpr int Page = 1000;
constexpr int Many = 20000;

using TLines = std::vector<std::string>;

}  // namespace

/// A list that shows its first rows before the rest: they are the beginning of the whole, whatever the order, and all
/// the same to code.
class tst_FirstRows : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Host_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;
  TLines Expected_;  // messages in boxes

  void AddBackends() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  void AddEmbeddedOnes() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::SQLite, TBackendKind::PostgreSQL, TBackendKind::MariaDB}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  bool Open(int Count = Many) {
    QFETCH(const TBackendKind, Kind);
    Host_ = support::OpenOrSkip(*Backends_, Kind);
    if (Host_ == nullptr) return false;
    Host_->ExecuteBeside(
        "CREATE TABLE longlist (txt VARCHAR(20), same INTEGER, void INTEGER, half INTEGER, tens INTEGER)");
    if (support::IsOnMariaDB(Kind)) Host_->ExecuteBeside("SET max_recursive_iterations = 1000000");
    Fill(Count);
    return true;
  }
  // "row 1000001" and so on, in no order.
  void Fill(int Count) {
    Host_->ExecuteBeside(
        QStringLiteral("INSERT INTO longlist WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                       "%1) SELECT %2, 7, NULL, i % 3, %3 FROM n")
            .arg(Count)
            .arg(support::IsOnMariaDB(Host_->Kind()) ? "concat('row ', 1000000 + i * 7919 % 1000003)"
                                                     : "'row ' || (1000000 + i * 7919 % 1000003)",
                 support::IsOnMariaDB(Host_->Kind()) ? "i DIV 10" : "i / 10"));
  }
  static TLines Texts(int Count) {
    TLines Result;
    for (int Row = 1; Row <= Count; ++Row) {
      Result.push_back("row " + std::to_string(1000000 + static_cast<long long>(Row) * 7919 % 1000003));
    }
    std::sort(Result.begin(), Result.end());
    return Result;
  }
  static TLines Sorted(TLines Lines) {
    std::sort(Lines.begin(), Lines.end());
    return Lines;
  }
  static TListSource By(const char* Sort) { return {std::string("A.") + Sort, "Longlist A WHERE 0=0", "A.Txt ID"}; }
  static TLines Known(const TListDialog& Dialog) {
    TLines Result;
    for (int Row = 0; Row < Dialog.qryList_->KnownRows(); ++Row) {
      const ads::TRowScope Scope(*Dialog.qryList_, Row);
      Result.push_back(Dialog.qryList_ID->AsString());
    }
    return Result;
  }
  std::unique_ptr<TListDialog> Listing(const TListSource& Source) {
    return TListDialog::Create(Host_->Connection(), Source);
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    support::RecordStatements(*Backends_);
  }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() {
    for (const std::string& Message : Boxes_->Messages()) qInfo("A box said: %s", Message.c_str());
    QCOMPARE(Boxes_->Messages(), std::exchange(Expected_, {}));
    Boxes_.reset();
    Host_.reset();
  }

  void shouldShowTheBeginningOfTheWholeList_data() { AddBackends(); }
  void shouldShowTheBeginningOfTheWholeList() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    const TLines First = Known(*Dialog);
    QVERIFY(!Dialog->qryList_->IsComplete());
    QVERIFY(First.size() >= Page - 1 && First.size() < Many);
    const TLines All = Texts(Many);
    QVERIFY(std::equal(First.begin(), First.end(), All.begin()));
    QCOMPARE(Dialog->qryList_->RecordCount(), Many);
    QVERIFY(support::Column(*Dialog, "ID") == All);
  }

  void shouldShowTheBeginningInDescendingOrder_data() { AddBackends(); }
  void shouldShowTheBeginningInDescendingOrder() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    Dialog->ckbDesc->setChecked(true);
    const TLines First = Known(*Dialog);
    QVERIFY(!Dialog->qryList_->IsComplete());
    const TLines All = Texts(Many);
    QVERIFY(std::equal(First.begin(), First.end(), All.rbegin()));
    QVERIFY(support::Column(*Dialog, "ID") == TLines(All.rbegin(), All.rend()));
  }

  // What comes first of equal ones is the server's to say, and it may say it in two ways.
  void shouldHaveEveryRowOnceWhereSortValuesAreEqual_data() { AddBackends(); }
  void shouldHaveEveryRowOnceWhereSortValuesAreEqual() {
    if (!Open()) return;
    for (const char* Sort : {"Same", "Void", "Half"}) {
      const std::unique_ptr<TListDialog> Dialog = Listing(By(Sort));
      QCOMPARE(Dialog->qryList_->RecordCount(), Many);
      QVERIFY(Sorted(support::Column(*Dialog, "ID")) == Texts(Many));
    }
  }

  // The tenth row of ten equal ones might be another one the next time.
  void shouldLeaveOutOfThePageWhatMayStandElsewhereInTheList_data() { AddBackends(); }
  void shouldLeaveOutOfThePageWhatMayStandElsewhereInTheList() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Tens"));
    const TLines First = Known(*Dialog);
    QCOMPARE(First.size(), std::size_t{999});
    bool IsReplaced = false;
    connect(Dialog->qryList_, &ads::TDataSet::Replaced, this, [&] { IsReplaced = true; });
    QCOMPARE(Dialog->qryList_->RecordCount(), Many);
    QVERIFY(!IsReplaced);
    const TLines All = Known(*Dialog);
    QVERIFY(std::equal(First.begin(), First.end(), All.begin()));
    QVERIFY(Sorted(All) == Texts(Many));
  }

  void shouldListAUnion_data() { AddBackends(); }
  void shouldListAUnion() {
    if (!Open()) return;
    TListSource Union;
    Union.Whole =
        "SELECT Txt ID, Txt SortFld FROM Longlist WHERE Half = 0 UNION ALL "
        "SELECT Txt ID, Txt SortFld FROM Longlist WHERE Half <> 0";
    const std::unique_ptr<TListDialog> Dialog = Listing(Union);
    QVERIFY(!Dialog->qryList_->IsComplete());
    QVERIFY(support::Column(*Dialog, "ID") == Texts(Many));
  }

  void shouldKnowAListThatIsAboutAsLongAsAPage_data() { AddBackends(); }
  void shouldKnowAListThatIsAboutAsLongAsAPage() {
    if (!Open(Page - 1)) return;
    for (const int Count : {Page - 1, Page, Page + 1, Page + 2}) {
      Host_->ExecuteBeside("DELETE FROM longlist");
      Fill(Count);
      const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
      QCOMPARE(Dialog->qryList_->IsComplete(), Count <= Page);
      QCOMPARE(Dialog->qryList_->RecordCount(), Count);
      QVERIFY(support::Column(*Dialog, "ID") == Texts(Count));
    }
  }

  void shouldAskOnlyOnceForAShortList_data() { AddEmbeddedOnes(); }
  void shouldAskOnlyOnceForAShortList() {
    if (!Open(Page)) return;
    support::TSentStatements Sent(*Host_, *Backends_);
    const auto Queries = [&Sent] { return Sent.Take().filter("longlist", Qt::CaseInsensitive).size(); };
    Listing(By("Txt"));
    QCOMPARE(Queries(), 1);
    Host_->ExecuteBeside("INSERT INTO longlist (txt) VALUES ('row 1')");
    QCOMPARE(Listing(By("Txt"))->qryList_->RecordCount(), Page + 1);
    QCOMPARE(Queries(), 2);
  }

  void shouldGiveCodeTheWholeList_data() { AddBackends(); }
  void shouldGiveCodeTheWholeList() {
    if (!Open()) return;
    const TLines All = Texts(Many);
    const auto Fresh = [&] {
      std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
      return Dialog->qryList_->IsComplete() ? nullptr : std::move(Dialog);
    };
    auto Dialog = Fresh();
    Dialog->qryList_->Last();
    QCOMPARE(Dialog->GetID(), All.back());
    Dialog = Fresh();
    int Walked = 0;
    for (; !Dialog->qryList_->Eof(); Dialog->qryList_->Next()) ++Walked;
    QCOMPARE(Walked, Many);
    Dialog = Fresh();
    QVERIFY(Dialog->qryList_->Locate("ID", All[Many - 5]));
    QCOMPARE(Dialog->qryList_->RecNo(), Many - 4);
    Dialog = Fresh();
    QVERIFY(!Dialog->qryList_->Locate("ID", "nowhere"));
    Dialog = Fresh();
    Dialog->qryList_->SetRecNo(Many - 1);
    QCOMPARE(Dialog->GetID(), All[Many - 2]);
  }

  void shouldGrowUnderTheUsersEyes_data() { AddBackends(); }
  void shouldGrowUnderTheUsersEyes() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               QTest::keyClick(Dialog->dbgAvail, Qt::Key_Down);
                               QTRY_VERIFY_WITH_TIMEOUT(Dialog->qryList_->IsComplete(), 20000);
                               QCOMPARE(Dialog->dbgAvail->model()->rowCount(), Many);
                               QCOMPARE(Dialog->qryList_->RecNo(), 2);
                               QVERIFY(Known(*Dialog) == Texts(Many));
                             });
  }

  // Somebody else writes between the page and the rest.
  void shouldFollowWhatHasChangedMeanwhile_data() { AddEmbeddedOnes(); }
  void shouldFollowWhatHasChangedMeanwhile() {
    if (Open()) FollowsChanges(Host_->Beside());
  }

  void shouldFollowWhatTheHostChangesInItsTransaction_data() { AddBackends(); }
  void shouldFollowWhatTheHostChangesInItsTransaction() {
    if (!Open()) return;
    QVERIFY(Host_->Database().transaction());
    FollowsChanges(Host_->Database());
    QVERIFY(Host_->Database().commit());
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM longlist").toInt(), Many + 1);
  }

  // Both queries of a list that is read in one go see one state.
  void shouldSeeOneStateOfTheData_data() { AddEmbeddedOnes(); }
  void shouldSeeOneStateOfTheData() {
    if (!Open()) return;
    if (Host_->Kind() == TBackendKind::SQLite) Host_->ExecuteBeside("PRAGMA journal_mode = WAL");
    pickbase::TPickCall Call;  // without one a dialog lets go of the data once it is created
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    QVERIFY(!Dialog->qryList_->IsComplete());
    Host_->ExecuteBeside("DELETE FROM longlist");
    QCOMPARE(Dialog->qryList_->RecordCount(), Many);
    QVERIFY(support::Column(*Dialog, "ID") == Texts(Many));
  }

  void shouldLeaveNothingOpenOnceTheRowsAreIn_data() { AddEmbeddedOnes(); }
  void shouldLeaveNothingOpenOnceTheRowsAreIn() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                             [&](TListDialog&) {
                               QTRY_VERIFY_WITH_TIMEOUT(Dialog->qryList_->IsComplete(), 20000);
                               LeftNothing();
                               support::ClickBox(Dialog->ckbDesc);
                               QVERIFY(!Dialog->qryList_->IsComplete());
                               support::ClickCancel(*Dialog);
                             });
    LeftNothing();
  }

  void shouldBePickedFromAtOnce_data() { AddBackends(); }
  void shouldBePickedFromAtOnce() {
    if (!Open()) return;
    const TLines All = Texts(Many);
    enum class TWay { OK, Enter, DoubleClick };
    for (const TWay Way : {TWay::OK, TWay::Enter, TWay::DoubleClick}) {
      std::string Key;
      bool WasComplete = true;
      QVERIFY(DrivePickAs<TListDialog>(
          [&] {
            return pickbase::PickText<TListDialog>(Key, &TListDialog::GetID, Host_->Connection(), By("Txt"),
                                                   std::function<void(TListDialog&)>());
          },
          [&](TListDialog& Dialog) {
            support::ClickBox(Dialog.ckbDesc);
            WasComplete = Dialog.qryList_->IsComplete();
            Dialog.qryList_->SetRecNo(2);
            if (Way == TWay::OK) support::ClickOK(Dialog);
            if (Way == TWay::Enter) QTest::keyClick(Dialog.dbgAvail, Qt::Key_Return);
            if (Way == TWay::DoubleClick) support::DoubleClickRow(Dialog, 1);
          }));
      QVERIFY(!WasComplete);
      QCOMPARE(Key, All[Many - 2]);
    }
  }

  void shouldBearTheEndOfTheDialogWhileRowsCome_data() { AddBackends(); }
  void shouldBearTheEndOfTheDialogWhileRowsCome() {
    if (!Open(3 * Many)) return;
    for (const int Milliseconds : {0, 20, 60}) {
      std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
      QMetaObject::invokeMethod(
          this, [&] { Dialog.reset(); }, Qt::QueuedConnection);
      QTest::qWait(Milliseconds);
      Dialog.reset();
      Dialog = Listing(By("Txt"));
      QMetaObject::invokeMethod(
          this, [&] { Dialog.reset(); }, Qt::QueuedConnection);
      TListDialog* const Ending = Dialog.get();
      Ending->qryList_->ReadToEnd();
      QTRY_VERIFY(Dialog == nullptr);  // at once, where the rows take longer than that
    }
    QCOMPARE(TBackend::Value(Host_->Database(), "SELECT COUNT(*) FROM longlist").toInt(), 3 * Many);
  }

  void shouldKeepThePageWhenTheServerEnds_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Session");
    QTest::addColumn<QString>("End");
    QTest::newRow("PostgreSQL") << TBackendKind::PostgreSQL << "SELECT pg_backend_pid()"
                                << "SELECT pg_terminate_backend(%1)";
    QTest::newRow("MariaDB") << TBackendKind::MariaDB << "SELECT CONNECTION_ID()"
                             << "KILL CONNECTION %1";
  }
  void shouldKeepThePageWhenTheServerEnds() {
    QFETCH(const QString, Session);
    QFETCH(const QString, End);
    if (!Open(10 * Many)) return;
    const int Process = TBackend::Value(Host_->Database(), Session).toInt();
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    QVERIFY(DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                     [&](TListDialog&) {
                                       support::ClickBox(Dialog->ckbDesc);
                                       QVERIFY(!Dialog->qryList_->IsComplete());
                                       Host_->ExecuteBeside(End.arg(Process));
                                       QTRY_COMPARE(Boxes_->Messages().size(), std::size_t{1});
                                       Expected_ = Boxes_->Messages();
                                       QVERIFY(Dialog->isVisible());
                                       QVERIFY(Dialog->qryList_->KnownRows() >= Page - 1);
                                       QTest::qWait(100);
                                       support::ClickOK(*Dialog);
                                     }));
    QVERIFY(Expected_.at(0).starts_with("The connection to the database is lost"));
    QCOMPARE(Dialog->GetID(), Texts(10 * Many).back());
  }

  void shouldStayInTheBarOfMemory_data() { AddBackends(); }
  void shouldStayInTheBarOfMemory() {
    if (!Open()) return;
    const std::unique_ptr<TListDialog> Dialog = Listing(By("Txt"));
    QCOMPARE(Dialog->qryList_->RecordCount(), Many);
    std::size_t Shown = 0;
    for (const std::string& Text : Texts(Many)) Shown += Text.size();
    QVERIFY(Dialog->qryList_->SnapshotBytes() <= Shown * 3 / 2 + 16 * std::size_t{Many});
  }

  void shouldNotReadOnForWhatAssistiveProgramsAsk() {
    Host_ = Backends_->Open(TBackendKind::SQLite);
    const auto Dialog = TTickDialog::Create(
        Host_->Connection(), support::TListSource("UPPER(A.ID)", "Cust A, Cust B WHERE B.ID LIKE 'C0000%'"));
    QVERIFY(!Dialog->qryList_->IsComplete());
    QCOMPARE(Dialog->dbgAvail->AccessibleRow(0), QString("Ticked: no, ID: C00001"));
    QVERIFY(!Dialog->qryList_->IsComplete());
  }

 private:
  void FollowsChanges(const QSqlDatabase& Writer) {
    const std::unique_ptr<TTickDialog> Dialog = TTickDialog::Create(Host_->Connection(), By("Txt"));
    const TLines Before = Texts(Many);
    DrivePickAs<TTickDialog>(
        [&] { return Dialog->ShowPick(); },
        [&](TTickDialog&) {
          Dialog->CallSetSQL();  // on a slow machine the rest has been read by now
          Dialog->qryList_->LetGo(ads::TDataSet::TRest::WhenWanted);
          QVERIFY(!Dialog->qryList_->IsComplete());
          for (const int RecNo : {2, 4, 6}) {
            Dialog->qryList_->SetRecNo(RecNo);
            Dialog->dbgAvailDblClick();
          }
          const int Top = 4;
          Dialog->dbgAvail->verticalScrollBar()->setValue(Top);
          TBackend::Execute(Writer, "INSERT INTO longlist (txt) VALUES ('row 0')");
          TBackend::Execute(Writer, "INSERT INTO longlist (txt) VALUES ('row 00')");
          TBackend::Execute(Writer,
                            QString("DELETE FROM longlist WHERE txt = '%1'").arg(QString::fromStdString(Before[3])));
          QVERIFY(Dialog->qryList_->ReadToEnd());
          QCOMPARE(Dialog->qryList_->KnownRows(), Many + 1);
          QCOMPARE(Dialog->GetID(), Before[5]);
          QCOMPARE(Dialog->qryList_->RecNo(), 7);
          QCOMPARE(std::vector<int>(Dialog->TickedRows.begin(), Dialog->TickedRows.end()), (std::vector<int>{4, 7}));
          QCOMPARE(Dialog->dbgAvail->verticalScrollBar()->value(), Top + 1);
          QCOMPARE(Dialog->dbgAvail->model()->rowCount(), Many + 1);
        });
  }

  void LeftNothing() {
    if (Host_->Kind() == TBackendKind::SQLite) {
      QVERIFY(sqlite3_next_stmt(support::SQLiteOf(*Host_), nullptr) == nullptr);
      return;
    }
    if (Host_->Kind() == TBackendKind::MariaDB) {
      QTRY_COMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM information_schema.innodb_trx").toInt(), 0);
      Host_->ExecuteBeside("SET lock_wait_timeout = 1");
      Host_->ExecuteBeside("LOCK TABLES longlist WRITE");
      Host_->ExecuteBeside("UNLOCK TABLES");
      return;
    }
    const QString Session = TBackend::Value(Host_->Database(), "SELECT pg_backend_pid()").toString();
    QTRY_COMPARE(Host_->ValueBeside("SELECT state FROM pg_stat_activity WHERE pid = " + Session).toString(),
                 QString("idle"));
    QCOMPARE(Host_->ValueBeside("SELECT COUNT(*) FROM pg_locks WHERE pid = " + Session).toInt(), 0);
  }
};

QTEST_MAIN(tst_FirstRows)
#include "tst_FirstRows.moc"
