// The dialog from which every pick derives: how it is built and laid out, and the rules of its events.
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

#include "PurchaseDialog.h"
#include "ads/EDatabaseError.h"
#include "frame/uZULPickPlsWait.h"
#include "support/NumberedTexts.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"
#include "toolkit/EConvertError.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"
#include "zulcommon/StringTable.h"

using support::Column;
using support::DrivePick;
using support::SqlLines;
using support::TErrorBoxes;
using support::TTestCompany;
using uDocPickBase::TDocPickBase;
using uZULPickPlsWait::TZULPickPlsWait;

namespace {

using TLines = std::vector<std::string>;
using TGroups = TPurchaseDialog::TGroups;

const TLines WholeList{"SELECT Number, [Date], Cost, Posted, UPPER(Number) SortFld", "FROM IP", "WHERE 0=0",
                       "ORDER BY SortFld"};

// The two entries of a rebuild in the order of the number.
const TLines RebuiltList{"SELECT Number, [Date], Cost, Posted, UPPER(Number) SortFld\nFROM IP\nWHERE 0=0",
                         "ORDER BY SortFld"};

TLines SearchedBy(const std::string& FindLine) {
  return {WholeList[0], WholeList[1], WholeList[2], FindLine, WholeList[3]};
}

int BottomOf(const QWidget* Widget) {
  return Widget->y() + Widget->height();
}
int RightOf(const QWidget* Widget) {
  return Widget->x() + Widget->width();
}

// The message and the code of the error that a check raises; nothing for a good text.
std::string Refusal(const std::function<void()>& Check) {
  try {
    Check();
  } catch (const zulcommon::EZULException& Error) {
    return std::to_string(Error.Code()) + " " + Error.what();
  }
  return {};
}

}  // namespace

class tst_DocPickBase : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void init();
  void cleanup();

  // How it is created.
  void shouldGiveEveryDatasetTheConnection();
  void shouldRefuseToBeWithoutAConnection();
  void shouldQueryOnceAndThenTakeItsClosingSteps();
  void shouldTakeItsCaptionsByNumber();
  void shouldNameItsSubject();
  void shouldFormatByTheSystemsDecimals_data();
  void shouldFormatByTheSystemsDecimals();
  void shouldTakeTheSystemsSwitches();
  void shouldDoWithoutSystemSettings();
  void shouldLeaveTheSettingsClosed();
  void shouldPutTheCursorIntoTheFindBox();
  void shouldNotPutTheCursorIntoAHiddenFindBox();
  void shouldBearTheNamesOfItsComponents();
  void shouldTellAssistiveProgramsWhatEachControlIs();
  void shouldRaiseWhatTheFirstQueryRaises();

  // How it is laid out.
  void shouldBeAsWideAsItsColumns();
  void shouldEndBehindWhatItShows_data();
  void shouldEndBehindWhatItShows();
  void shouldHideGroupsWithoutItems_data();
  void shouldHideGroupsWithoutItems();
  void shouldBeInTheMiddleOfTheScreen();
  void shouldStackTheChoicesByTheirItems();
  void shouldMakeAGroupOfThreeItems62High();
  void shouldPutTheOrderUnderAHiddenFindBy();
  void shouldStackExtraBoxesUnderTheDescendingBox();
  void shouldMoveExtraBoxesWithAWiderList();
  void shouldGrowForManyChoices();
  void shouldFollowAColumnThatIsRemoved();
  void shouldKeepItsSizeWhenAColumnIsRemovedWithoutAdjusting();
  void shouldDoNothingForAColumnThatThereIsNot();

  // Showing it.
  void shouldShowAnEmptyListUnlessToldOtherwise();
  void shouldNotShowAnEmptyListWhenToldSo();
  void shouldShowAListWithRowsWhenToldNotToShowAnEmptyOne();
  void shouldReturnWhetherItWasClosedWithOK();
  void shouldHaveNoDefaultButton();
  void shouldAllowOKExactlyWhenThereAreRows();
  void shouldNotPickFromAnEmptyList();

  // Searching.
  void shouldNotQueryWhileTyping();
  void shouldSearchOnEnterAndOnTheFindButton();
  void shouldStayOpenOnEnterInTheFindBox();
  void shouldDoNothingOnEnterWithABlankText();
  void shouldPassOtherKeysThrough();
  void shouldShowTheWholeListWhenTheTextIsDeleted();
  void shouldEmptyTheTextForAnotherFindBy();
  void shouldNotQueryForAnotherFindByWithoutText();
  void shouldQueryForAnotherOrderOrDirection();
  void shouldQueryForAnExtraBox();
  void shouldCallABoxsOwnHandler();
  void shouldMakeTheTextFitForSql_data();
  void shouldMakeTheTextFitForSql();
  void shouldTakeALongText();
  void shouldReadADateByTheUsersPattern();
  void shouldCheckDates();
  void shouldCheckIntegers();
  void shouldCheckNumbers();
  void shouldSpellTheFindLineOfEachChoice_data();
  void shouldSpellTheFindLineOfEachChoice();
  void shouldGoIntoTheListByDown();
  void shouldTypeIntoTheFindBoxFromTheList();
  void shouldSayInTheListThatNothingWasFound();
  void shouldReplaceTheTextOfTheLastSearch();
  void shouldConfirmByCtrlEnter();
  void shouldTakeNumbersAsTheUserWritesThem_data();
  void shouldTakeNumbersAsTheUserWritesThem();

  // Failing.
  void shouldKeepTheListWhenTheDateIsWrong();
  void shouldKeepTheListWhenTheNumberIsWrong_data();
  void shouldKeepTheListWhenTheNumberIsWrong();
  void shouldNotCheckATextThatTheChosenFindByDoesNotUse();
  void shouldShowTheWholeListWhenTheServerCannotSearch();
  void shouldSayThatTheWholeListIsNotWhatWasFound();
  void shouldTellHowManyRowsThereAre();
  void shouldNotListTheWholeWithoutAConnection();
  void shouldRefuseAValueThatChangesTheQuery();
  void shouldKeepTheListWhenTheSecondTryFailsToo();
  void shouldTellAFailureOfAPlainQuery();
  void shouldFreeTheWaitWindowWhenTheQueryFails();
  void shouldShowTheWaitWindowWhileItQueries();
  void shouldRunNothingThatIsTyped();
  void shouldWriteDatesAsTheQueryWantsThem();

 private:
  std::unique_ptr<TPurchaseDialog> NewDialog(TGroups Groups = TGroups::Both) {
    return TPurchaseDialog::Create(Company_->Connection(), Groups);
  }

  std::unique_ptr<TTestCompany> Company_;
};

void tst_DocPickBase::init() {
  Company_ = std::make_unique<TTestCompany>();
  toolkit::SetShortDateFormat("dd/mm/yyyy");
}

void tst_DocPickBase::cleanup() {
  toolkit::SetShortDateFormat("");
  Company_.reset();
}

void tst_DocPickBase::shouldGiveEveryDatasetTheConnection() {
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->qryList_->Connection(), Company_->Connection());
  QCOMPARE(Dialog->tblSys_->Connection(), Company_->Connection());
  QCOMPARE(Dialog->tblCust_->Connection(), Company_->Connection());
}

void tst_DocPickBase::shouldRefuseToBeWithoutAConnection() {
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, TPurchaseDialog::Create(nullptr));
}

void tst_DocPickBase::shouldQueryOnceAndThenTakeItsClosingSteps() {
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->QueriesInSetup, 0);
  QCOMPARE(Dialog->QueriesWhenCreated, 1);
  QCOMPARE(Dialog->Queries, 1);
  QVERIFY(!Dialog->InSetup);
  QVERIFY(Dialog->ShowIfEmpty);
  QCOMPARE(SqlLines(*Dialog), WholeList);
  QCOMPARE(Dialog->qryList_->RecNo(), 1);
}

void tst_DocPickBase::shouldTakeItsCaptionsByNumber() {
  const support::TNumberedTexts Texts;
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->actOK->text(), QStringLiteral("T2000"));
  QCOMPARE(Dialog->actFind->text(), QStringLiteral("T2007"));
  QCOMPARE(Dialog->actCancel->text(), QStringLiteral("T2001"));
  QCOMPARE(Dialog->bbnOK->text(), QStringLiteral("T2000"));
  QCOMPARE(Dialog->bbnFInd->text(), QStringLiteral("T2007"));
  QCOMPARE(Dialog->bbnCancel->text(), QStringLiteral("T2001"));
  QCOMPARE(Dialog->gbFind->title(), QStringLiteral("T5033"));
  QCOMPARE(Dialog->rgFindBy->title(), QStringLiteral("T5034"));
  QCOMPARE(Dialog->rgOrderBy->title(), QStringLiteral("T5035"));
  QCOMPARE(Dialog->ckbDesc->text(), QStringLiteral("T5036"));
}

void tst_DocPickBase::shouldNameItsSubject() {
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->PickCaption, std::string("Order"));
  QCOMPARE(Dialog->Caption(), std::string("Select Order"));
  QCOMPARE(Dialog->AvailableCaption, std::string("Orders"));
  QCOMPARE(Dialog->gbList->title(), QStringLiteral("Available Orders"));
  Dialog->SetPickCaption("100%s");
  Dialog->SetAvailableCaption("");
  QCOMPARE(Dialog->PickCaption, std::string("100%s"));
  QCOMPARE(Dialog->Caption(), std::string("Select 100%s"));
  QCOMPARE(Dialog->gbList->title(), QStringLiteral("Available "));
}

void tst_DocPickBase::shouldFormatByTheSystemsDecimals_data() {
  QTest::addColumn<QVariant>("Decimals");
  QTest::addColumn<QString>("Format");
  QTest::newRow("none") << QVariant(0) << ",0";
  QTest::newRow("one") << QVariant(1) << ",0.0";
  QTest::newRow("two") << QVariant(2) << ",0.00";
  QTest::newRow("three") << QVariant(3) << ",0.000";
  QTest::newRow("the most") << QVariant(12) << ",0.000000000000";
  QTest::newRow("one too many") << QVariant(13) << ",0.000000000000";
  QTest::newRow("as many as fit") << QVariant(2147483647) << ",0.000000000000";
  QTest::newRow("more than fit") << QVariant(2147483648LL) << ",0";
  QTest::newRow("less than none") << QVariant(-2) << ",0";
  QTest::newRow("the fewest") << QVariant(-2147483648LL) << ",0";
  QTest::newRow("not set") << QVariant() << ",0";
}

void tst_DocPickBase::shouldFormatByTheSystemsDecimals() {
  QFETCH(QVariant, Decimals);
  QFETCH(QString, Format);
  Company_->Execute("UPDATE Sys SET PrcDec = ?, QtyDec = 5", {Decimals});
  const auto ByPrice = NewDialog();
  QCOMPARE(ByPrice->PriceFormat, Format.toStdString());
  QCOMPARE(ByPrice->QtyFormat, std::string(",0.00000"));
  Company_->Execute("UPDATE Sys SET QtyDec = ?, PrcDec = 4", {Decimals});
  const auto ByQuantity = NewDialog();
  QCOMPARE(ByQuantity->QtyFormat, Format.toStdString());
  QCOMPARE(ByQuantity->PriceFormat, std::string(",0.0000"));
}

void tst_DocPickBase::shouldTakeTheSystemsSwitches() {
  Company_->Execute("UPDATE Sys SET MultiAcct = 1, MultiLoc = 0");
  const auto Accounts = NewDialog();
  QVERIFY(Accounts->MultiAcct);
  QVERIFY(!Accounts->MultiLoc);
  Company_->Execute("UPDATE Sys SET MultiAcct = 0, MultiLoc = 1");
  const auto Locations = NewDialog();
  QVERIFY(!Locations->MultiAcct);
  QVERIFY(Locations->MultiLoc);
}

void tst_DocPickBase::shouldDoWithoutSystemSettings() {
  Company_->Execute("DELETE FROM Sys");
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->PriceFormat, std::string(",0"));
  QCOMPARE(Dialog->QtyFormat, std::string(",0"));
  QVERIFY(!Dialog->MultiAcct);
  QVERIFY(!Dialog->MultiLoc);
}

void tst_DocPickBase::shouldLeaveTheSettingsClosed() {
  QVERIFY(!NewDialog()->tblSys_->Active());
}

void tst_DocPickBase::shouldPutTheCursorIntoTheFindBox() {
  const auto Dialog = NewDialog();
  QWidget* Focus = nullptr;
  DrivePick([&] { return Dialog->ShowPick(); }, [&](TDocPickBase&) { Focus = QApplication::focusWidget(); });
  QCOMPARE(Focus, static_cast<QWidget*>(Dialog->edFind));
}

void tst_DocPickBase::shouldNotPutTheCursorIntoAHiddenFindBox() {
  const auto Dialog = NewDialog(TGroups::OrderOnly);
  QWidget* Focus = nullptr;
  DrivePick([&] { return Dialog->ShowPick(); }, [&](TDocPickBase&) { Focus = QApplication::focusWidget(); });
  QVERIFY(Focus != nullptr);
  QVERIFY(Focus != Dialog->edFind);
}

void tst_DocPickBase::shouldBearTheNamesOfItsComponents() {
  const auto Dialog = NewDialog();
  for (const char* Name :
       {"pnlForm",       "gbList",        "dbgAvail",         "gbFind",         "edFind",  "bbnFInd",
        "rgFindBy",      "rgOrderBy",     "ckbDesc",          "pnlButtons",     "bbnOK",   "bbnCancel",
        "actOK",         "actFind",       "actCancel",        "qryList_",       "tblSys_", "qryList_Number",
        "tblSys_QtyDec", "tblSys_PrcDec", "tblSys_MultiAcct", "tblSys_MultiLoc"}) {
    QVERIFY2(Dialog->findChild<QObject*>(QLatin1String(Name)) != nullptr, Name);
  }
}

void tst_DocPickBase::shouldTellAssistiveProgramsWhatEachControlIs() {
  const auto Dialog = NewDialog();
  Dialog->AddFilterBox("ckbPosted", "Posted");
  const TLines Names{"Find", "Available Orders", "OK", "Cancel", "Find", "Descending", "Posted", "Number", "Number"};
  const std::vector<QWidget*> Controls{Dialog->edFind,
                                       Dialog->dbgAvail,
                                       Dialog->bbnOK,
                                       Dialog->bbnCancel,
                                       Dialog->bbnFInd,
                                       Dialog->ckbDesc,
                                       Dialog->findChild<QCheckBox*>("ckbPosted"),
                                       Dialog->rgFindBy->Button(0),
                                       Dialog->rgOrderBy->Button(0)};
  for (std::size_t Index = 0; Index < Controls.size(); ++Index) {
    QAccessibleInterface* Interface = QAccessible::queryAccessibleInterface(Controls[Index]);
    QVERIFY(Interface != nullptr);
    QCOMPARE(Interface->text(QAccessible::Name).toStdString(), Names[Index]);
  }
}

void tst_DocPickBase::shouldRaiseWhatTheFirstQueryRaises() {
  Company_->Execute("DROP TABLE IP");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, NewDialog());
  QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_DocPickBase::shouldBeAsWideAsItsColumns() {
  const auto Dialog = NewDialog();
  const int Columns = (70 + 1) + (60 + 1) + (80 + 1) + (16 + 1);
  QCOMPARE(Dialog->dbgAvail->viewport()->width(), Columns);
  QCOMPARE(Dialog->dbgAvail->pos(), QPoint(4, 16));
  QCOMPARE(Dialog->gbList->pos(), QPoint(4, 4));
  QCOMPARE(Dialog->gbList->width(), Dialog->dbgAvail->width() + 8);
  QCOMPARE(Dialog->gbList->height(), 328);
  const int Left = RightOf(Dialog->gbList) + 4;
  for (const QWidget* Beside : {static_cast<QWidget*>(Dialog->gbFind), static_cast<QWidget*>(Dialog->rgFindBy),
                                static_cast<QWidget*>(Dialog->rgOrderBy), static_cast<QWidget*>(Dialog->ckbDesc)}) {
    QCOMPARE(Beside->x(), Left);
    QCOMPARE(Beside->width(), 83);
  }
  QCOMPARE(Dialog->gbFind->geometry(), QRect(Left, 4, 83, 69));
  QCOMPARE(Dialog->edFind->size(), QSize(75, 22));
  QCOMPARE(Dialog->ClientHeight(), 4 + 328 + 4);
  QCOMPARE(Dialog->pnlButtons->width(), 83);
  QCOMPARE(RightOf(Dialog->pnlButtons), Dialog->ClientWidth());
  QCOMPARE(Dialog->bbnOK->geometry(), QRect(4, 4, 75, 25));
  QCOMPARE(Dialog->bbnCancel->geometry(), QRect(4, 30, 75, 25));
}

void tst_DocPickBase::shouldEndBehindWhatItShows_data() {
  QTest::addColumn<int>("Groups");
  QTest::newRow("both groups") << static_cast<int>(TGroups::Both);
  QTest::newRow("find only") << static_cast<int>(TGroups::FindOnly);
  QTest::newRow("order only") << static_cast<int>(TGroups::OrderOnly);
  QTest::newRow("no group") << static_cast<int>(TGroups::None);
}

void tst_DocPickBase::shouldEndBehindWhatItShows() {
  QFETCH(int, Groups);
  const auto Dialog = NewDialog(static_cast<TGroups>(Groups));
  const int ListEnd = RightOf(Dialog->gbList) + 4;
  const int ChoicesEnd = ListEnd + 83 + 4;
  QCOMPARE(Dialog->ClientWidth(), (static_cast<TGroups>(Groups) == TGroups::None ? ListEnd : ChoicesEnd) + 83);
  QCOMPARE(Dialog->pnlButtons->x(), Dialog->ClientWidth() - 83);
  QCOMPARE(Dialog->pnlForm->width(), Dialog->ClientWidth() - 83);
}

void tst_DocPickBase::shouldHideGroupsWithoutItems_data() {
  shouldEndBehindWhatItShows_data();
}

void tst_DocPickBase::shouldHideGroupsWithoutItems() {
  QFETCH(int, Groups);
  const auto Shown = static_cast<TGroups>(Groups);
  const auto Dialog = NewDialog(Shown);
  const bool Find = Shown == TGroups::Both || Shown == TGroups::FindOnly;
  const bool Order = Shown == TGroups::Both || Shown == TGroups::OrderOnly;
  bool Seen[4] = {};
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              Seen[0] = Dialog->gbFind->isVisible();
              Seen[1] = Dialog->rgFindBy->isVisible();
              Seen[2] = Dialog->rgOrderBy->isVisible();
              Seen[3] = Dialog->ckbDesc->isVisible();
            });
  QCOMPARE(Seen[0], Find);
  QCOMPARE(Seen[1], Find);
  QCOMPARE(Seen[2], Order);
  QCOMPARE(Seen[3], Order);
}

void tst_DocPickBase::shouldBeInTheMiddleOfTheScreen() {
  const auto Dialog = NewDialog();
  const QSize Screen = QGuiApplication::primaryScreen()->size();
  QCOMPARE(Dialog->geometry().topLeft(),
           QPoint((Screen.width() - Dialog->width()) / 2, (Screen.height() - Dialog->height()) / 2));
}

void tst_DocPickBase::shouldStackTheChoicesByTheirItems() {
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->rgFindBy->y(), 73);
  QCOMPARE(Dialog->rgFindBy->height(), 6 * 14 + 20);
  QCOMPARE(Dialog->rgOrderBy->y(), BottomOf(Dialog->rgFindBy));
  QCOMPARE(Dialog->rgOrderBy->height(), 6 * 14 + 20);
  QCOMPARE(Dialog->ckbDesc->y(), BottomOf(Dialog->rgOrderBy));
  QCOMPARE(Dialog->ckbDesc->height(), 14);
}

void tst_DocPickBase::shouldMakeAGroupOfThreeItems62High() {
  const auto Dialog = NewDialog();
  Dialog->rgFindBy->Items().Clear();
  for (const char* Item : {"A", "B", "C"}) Dialog->rgFindBy->Items().Add(Item);
  Dialog->rgOrderBy->Items().Clear();
  Dialog->rgOrderBy->Items().Add("A");
  Dialog->UpdateFind();
  QCOMPARE(Dialog->rgFindBy->height(), 62);
  QCOMPARE(Dialog->rgOrderBy->y(), 73 + 62);
  QCOMPARE(Dialog->rgOrderBy->height(), 34);
  QCOMPARE(Dialog->ckbDesc->y(), 73 + 62 + 34);
}

void tst_DocPickBase::shouldPutTheOrderUnderAHiddenFindBy() {
  const auto Dialog = NewDialog(TGroups::OrderOnly);
  QCOMPARE(Dialog->rgFindBy->height(), 20);
  QCOMPARE(Dialog->rgOrderBy->y(), 73 + 20);
  QCOMPARE(Dialog->ckbDesc->y(), 73 + 20 + 104);
}

void tst_DocPickBase::shouldStackExtraBoxesUnderTheDescendingBox() {
  const auto Dialog = NewDialog();
  const QCheckBox* First = Dialog->AddFilterBox("ckbPosted", "Posted");
  const QCheckBox* Second = Dialog->AddFilterBox("ckbClosed", "Closed");
  Dialog->AdjustWidths();
  Dialog->UpdateFind();
  QCOMPARE(First->pos(), QPoint(Dialog->ckbDesc->x(), BottomOf(Dialog->ckbDesc)));
  QCOMPARE(Second->pos(), QPoint(Dialog->ckbDesc->x(), BottomOf(First)));
  QCOMPARE(First->objectName(), QStringLiteral("ckbPosted"));
  QCOMPARE(First->text(), QStringLiteral("Posted"));
}

void tst_DocPickBase::shouldMoveExtraBoxesWithAWiderList() {
  const auto Dialog = NewDialog();
  const QCheckBox* First = Dialog->AddFilterBox("ckbPosted", "Posted");
  const QCheckBox* Second = Dialog->AddFilterBox("ckbClosed", "Closed");
  Dialog->AdjustWidths();
  Dialog->UpdateFind();
  const int Left = Dialog->ckbDesc->x();
  const int Top = First->y();
  toolkit::TColumn* Column = Dialog->dbgAvail->Columns()[0];
  for (const int Change : {60, -90}) {
    Column->SetWidth(Column->Width() + Change);
    Dialog->AdjustWidths();
    QCOMPARE(First->pos(), QPoint(Dialog->ckbDesc->x(), BottomOf(Dialog->ckbDesc)));
    QCOMPARE(Second->pos(), QPoint(Dialog->ckbDesc->x(), BottomOf(First)));
  }
  QCOMPARE(First->pos(), QPoint(Left - 30, Top));
}

void tst_DocPickBase::shouldGrowForManyChoices() {
  struct TManyChoices : TPurchaseDialog {
    explicit TManyChoices() : TPurchaseDialog(TGroups::Both) { AddFilterBox("ckbPosted", "Posted"); }
    static std::unique_ptr<TManyChoices> Create(ads::TAdsConnection* Connection) {
      return Construct<TManyChoices>(Connection);
    }
    void SetUpColumns() override {
      TPurchaseDialog::SetUpColumns();
      uDocPickBase::TPickChoices Many = Choices();
      while (Many.size() < 10) Many.push_back(Many.front());
      SetChoices(Many, 0);
    }
  };
  const auto Dialog = TManyChoices::Create(Company_->Connection());
  const int Bottom = BottomOf(Dialog->findChild<QCheckBox*>("ckbPosted"));
  QVERIFY2(Bottom > 336, "There are choices enough to grow for.");
  QVERIFY(Bottom <= Dialog->ClientHeight());
  QCOMPARE(Dialog->ClientHeight(), BottomOf(Dialog->gbList) + 4);
  QVERIFY(BottomOf(Dialog->dbgAvail) <= Dialog->gbList->height());
}

void tst_DocPickBase::shouldFollowAColumnThatIsRemoved() {
  const auto Dialog = NewDialog();
  const int Width = Dialog->ClientWidth();
  Dialog->RemoveColumn(Dialog->qryList_Date, true);
  QCOMPARE(support::ColumnNames(*Dialog), (TLines{"Number", "Cost", "Posted"}));
  QCOMPARE(Dialog->ClientWidth(), Width - 61);
  QCOMPARE(Dialog->gbFind->x(), RightOf(Dialog->gbList) + 4);
}

void tst_DocPickBase::shouldKeepItsSizeWhenAColumnIsRemovedWithoutAdjusting() {
  const auto Dialog = NewDialog();
  const QSize Size = Dialog->size();
  Dialog->RemoveColumn(Dialog->qryList_Date, false);
  QCOMPARE(support::ColumnNames(*Dialog), (TLines{"Number", "Cost", "Posted"}));
  QCOMPARE(Dialog->size(), Size);
}

void tst_DocPickBase::shouldDoNothingForAColumnThatThereIsNot() {
  const auto Dialog = NewDialog();
  Dialog->RemoveColumn(Dialog->qryList_Date, false);
  const QSize Size = Dialog->size();
  Dialog->RemoveColumn(Dialog->qryList_Date, true);
  Dialog->RemoveColumn(Dialog->tblSys_QtyDec, true);
  QCOMPARE(Dialog->dbgAvail->Columns().Count(), 3);
  QCOMPARE(Dialog->size(), Size);
}

void tst_DocPickBase::shouldShowAnEmptyListUnlessToldOtherwise() {
  Company_->Execute("DELETE FROM IP");
  const auto Dialog = NewDialog();
  bool Enabled = true;
  bool Shown = false;
  QVERIFY(!DrivePick([&] { return Dialog->ShowPick(); },
                     [&](TDocPickBase&) {
                       Shown = true;
                       Enabled = Dialog->bbnOK->isEnabled();
                     }));
  QVERIFY(Shown);
  QVERIFY(!Enabled);
}

void tst_DocPickBase::shouldNotShowAnEmptyListWhenToldSo() {
  Company_->Execute("DELETE FROM IP");
  const auto Dialog = NewDialog();
  Dialog->SetShowIfEmpty(false);
  bool Shown = false;
  QTimer Timer;
  connect(&Timer, &QTimer::timeout, &Timer, [&] {
    Shown = true;
    Dialog->reject();
  });
  Timer.start(0);
  QVERIFY(!Dialog->ShowPick());
  QVERIFY(!Shown);
}

void tst_DocPickBase::shouldShowAListWithRowsWhenToldNotToShowAnEmptyOne() {
  Company_->Execute("DELETE FROM IP WHERE Number <> 'P100003'");
  const auto Dialog = NewDialog();
  Dialog->SetShowIfEmpty(false);
  QVERIFY(DrivePick([&] { return Dialog->ShowPick(); }, support::ClickOK));
}

void tst_DocPickBase::shouldReturnWhetherItWasClosedWithOK() {
  const auto Dialog = NewDialog();
  const auto Show = [&] { return Dialog->ShowPick(); };
  QVERIFY(DrivePick(Show, support::ClickOK));
  QVERIFY(!DrivePick(Show, support::ClickCancel));
  QVERIFY(!DrivePick(Show, [](TDocPickBase& Shown) { Shown.close(); }));
  QVERIFY(!DrivePick(Show, [](TDocPickBase& Shown) { QTest::keyClick(Shown.edFind, Qt::Key_Escape); }));
  QVERIFY(DrivePick(Show, [](TDocPickBase& Shown) { support::DoubleClickRow(Shown, 4); }));
  QCOMPARE(Dialog->qryList_->RecNo(), 5);
  QVERIFY(DrivePick(Show, [](TDocPickBase& Shown) {
    Shown.dbgAvail->setFocus();
    QTest::keyClick(Shown.dbgAvail, Qt::Key_Down);
    QTest::keyClick(Shown.dbgAvail, Qt::Key_Enter);
  }));
  QCOMPARE(Dialog->qryList_->RecNo(), 6);
}

void tst_DocPickBase::shouldHaveNoDefaultButton() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              for (const QPushButton* Button : Dialog->findChildren<QPushButton*>()) {
                QVERIFY2(!Button->isDefault() && !Button->autoDefault(), qPrintable(Button->objectName()));
              }
            });
}

void tst_DocPickBase::shouldAllowOKExactlyWhenThereAreRows() {
  const auto Dialog = NewDialog();
  QVERIFY(Dialog->actOK->isEnabled());
  Dialog->qryList_->Close();
  QVERIFY(!Dialog->actOK->isEnabled());
  Dialog->qryList_->Open();
  QVERIFY(Dialog->actOK->isEnabled());
  Dialog->edFind->setText("no such order");
  Dialog->actFindExecute();
  QVERIFY(Dialog->qryList_->Active());
  QVERIFY(!Dialog->actOK->isEnabled());
  QVERIFY(!Dialog->bbnOK->isEnabled());
  Dialog->edFind->clear();
  QVERIFY(Dialog->actOK->isEnabled());
  QVERIFY(Dialog->bbnOK->isEnabled());
}

void tst_DocPickBase::shouldNotPickFromAnEmptyList() {
  Company_->Execute("DELETE FROM IP");
  const auto Dialog = NewDialog();
  bool Open = false;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              Dialog->dbgAvailDblClick();
              Dialog->actOK->trigger();
              support::ClickOK(*Dialog);
              Open = Dialog->isVisible();
            });
  QVERIFY(Open);
}

void tst_DocPickBase::shouldNotQueryWhileTyping() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              QVERIFY(!Dialog->bbnFInd->isEnabled());
              QTest::keyClicks(Dialog->edFind, " ");
              QVERIFY(!Dialog->bbnFInd->isEnabled());
              QTest::keyClicks(Dialog->edFind, "P");
              QVERIFY(Dialog->bbnFInd->isEnabled());
              QTest::keyClicks(Dialog->edFind, "O10");
            });
  QCOMPARE(Dialog->Queries, 1);
}

void tst_DocPickBase::shouldSearchOnEnterAndOnTheFindButton() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "p10000");
              QCOMPARE(Dialog->Queries, 2);
              QCOMPARE(Dialog->qryList_->RecordCount(), 9);
              QTest::keyClick(Dialog->edFind, Qt::Key_End);
              QTest::keyClicks(Dialog->edFind, "3");
              QTest::keyClick(Dialog->edFind, Qt::Key_Enter);
              QCOMPARE(Dialog->Queries, 3);
              QCOMPARE(Column(*Dialog, "Number"), TLines{"P100003"});
              QTest::keyClick(Dialog->edFind, Qt::Key_End);
              QTest::keyClick(Dialog->edFind, Qt::Key_Backspace);
              QTest::mouseClick(Dialog->bbnFInd, Qt::LeftButton);
              QCOMPARE(Dialog->Queries, 4);
              QCOMPARE(Dialog->qryList_->RecordCount(), 9);
            });
  QCOMPARE(SqlLines(*Dialog), SearchedBy("AND UPPER(Number) LIKE '%P10000%'"));
}

void tst_DocPickBase::shouldStayOpenOnEnterInTheFindBox() {
  const auto Dialog = NewDialog();
  bool Open = false;
  QVERIFY(!DrivePick([&] { return Dialog->ShowPick(); },
                     [&](TDocPickBase&) {
                       QTest::keyClick(Dialog->edFind, Qt::Key_Return);
                       support::TypeFind(*Dialog, "p1");
                       QTest::keyClick(Dialog->edFind, Qt::Key_Return);
                       Open = Dialog->isVisible();
                     }));
  QVERIFY(Open);
}

void tst_DocPickBase::shouldDoNothingOnEnterWithABlankText() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              QTest::keyClick(Dialog->edFind, Qt::Key_Return);
              QTest::keyClicks(Dialog->edFind, "   ");
              QTest::keyClick(Dialog->edFind, Qt::Key_Return);
            });
  Dialog->actFindExecute();
  Dialog->edFindKeyPress('\r');
  QCOMPARE(Dialog->Queries, 1);
  QCOMPARE(Dialog->edFind->text(), QStringLiteral("   "));
}

void tst_DocPickBase::shouldPassOtherKeysThrough() {
  const auto Dialog = NewDialog();
  Dialog->edFind->setText("p1");
  Dialog->edFindKeyPress('x');
  QCOMPARE(Dialog->Queries, 1);
  Dialog->edFindKeyPress('\r');
  QCOMPARE(Dialog->Queries, 2);
}

void tst_DocPickBase::shouldShowTheWholeListWhenTheTextIsDeleted() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "33");
              const int Found = Dialog->qryList_->RecordCount();
              QTest::keyClick(Dialog->edFind, Qt::Key_End);
              QTest::keyClick(Dialog->edFind, Qt::Key_Backspace);
              QCOMPARE(Dialog->Queries, 2);
              QCOMPARE(Dialog->qryList_->RecordCount(), Found);
              QTest::keyClick(Dialog->edFind, Qt::Key_Backspace);
              QCOMPARE(Dialog->Queries, 3);
              QCOMPARE(Dialog->qryList_->RecordCount(), 600);
            });
  QCOMPARE(SqlLines(*Dialog), WholeList);
}

void tst_DocPickBase::shouldEmptyTheTextForAnotherFindBy() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "33");
              support::ChooseFindBy(*Dialog, TPurchaseDialog::ByDate);
            });
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), static_cast<int>(TPurchaseDialog::ByDate));
  QVERIFY(Dialog->edFind->text().isEmpty());
  QCOMPARE(Dialog->Queries, 3);
  QCOMPARE(Dialog->qryList_->RecordCount(), 600);
}

void tst_DocPickBase::shouldNotQueryForAnotherFindByWithoutText() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) { support::ChooseFindBy(*Dialog, TPurchaseDialog::ByCost); });
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), static_cast<int>(TPurchaseDialog::ByCost));
  QCOMPARE(Dialog->Queries, 1);
}

void tst_DocPickBase::shouldQueryForAnotherOrderOrDirection() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "33");
              support::ChooseOrderBy(*Dialog, TPurchaseDialog::ByDate);
              QCOMPARE(Dialog->Queries, 3);
              support::ChooseOrderBy(*Dialog, TPurchaseDialog::ByDate);
              QCOMPARE(Dialog->Queries, 3);
              support::ClickBox(Dialog->ckbDesc);
              QCOMPARE(Dialog->Queries, 4);
            });
  QCOMPARE(SqlLines(*Dialog), (TLines{"SELECT Number, [Date], Cost, Posted, [Date] SortFld", "FROM IP", "WHERE 0=0",
                                      "AND UPPER(Number) LIKE '%33%'", "ORDER BY SortFld DESC"}));
  TLines Dates = Column(*Dialog, "Date");
  QVERIFY(Dates.size() > 1);
  QVERIFY(std::is_sorted(Dates.rbegin(), Dates.rend()));
}

void tst_DocPickBase::shouldQueryForAnExtraBox() {
  const auto Dialog = NewDialog();
  QCheckBox* Box = Dialog->AddFilterBox("ckbPosted", "Posted");
  Box->setChecked(true);
  Box->setChecked(false);
  QCOMPARE(Dialog->Queries, 3);
  Dialog->InSetup = true;
  Box->setChecked(true);
  QCOMPARE(Dialog->Queries, 3);
}

void tst_DocPickBase::shouldCallABoxsOwnHandler() {
  const auto Dialog = NewDialog();
  int Clicks = 0;
  QCheckBox* Box = Dialog->AddCheckBox("ckbOwn", "Own", [&] {
    ++Clicks;
    throw ads::EDatabaseError("Not today.");
  });
  TErrorBoxes Boxes;
  Box->setChecked(true);
  QCOMPARE(Clicks, 1);
  QCOMPARE(Dialog->Queries, 1);
  QCOMPARE(Boxes.Messages(), TLines{"Not today."});
}

void tst_DocPickBase::shouldMakeTheTextFitForSql_data() {
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QString>("InSql");
  QTest::newRow("upper case") << "Abc"
                              << "ABC";
  QTest::newRow("blanks around it") << " \t abc def \r"
                                    << "ABC DEF";
  QTest::newRow("quote") << "O'Neil"
                         << "O''NEIL";
  QTest::newRow("two quotes") << "''"
                              << "''''";
  QTest::newRow("accents") << QStringLiteral("café ñandú żółw") << QStringLiteral("CAFÉ ÑANDÚ ŻÓŁW");
  QTest::newRow("Greek and Cyrillic") << QStringLiteral("ωμέγα жук") << QStringLiteral("ΩΜΈΓΑ ЖУК");
  QTest::newRow("sharp s") << QStringLiteral("straße") << "STRASSE";
  QTest::newRow("outside of the basic plane") << QStringLiteral("𐐨 😀") << QStringLiteral("𐐀 😀");
  QTest::newRow("wildcards") << "10%_"
                             << "10%_";
  QTest::newRow("blank") << "   "
                         << "";
  QTest::newRow("empty") << ""
                         << "";
}

void tst_DocPickBase::shouldMakeTheTextFitForSql() {
  QFETCH(QString, Typed);
  QFETCH(QString, InSql);
  const auto Dialog = NewDialog();
  Dialog->edFind->setText(Typed);
  QCOMPARE(QString::fromStdString(Dialog->FindText()), InSql);
}

void tst_DocPickBase::shouldTakeALongText() {
  const auto Dialog = NewDialog();
  const QString Long(100000, 'x');
  DrivePick([&] { return Dialog->ShowPick(); }, [&](TDocPickBase&) { support::TypeFind(*Dialog, Long); });
  QCOMPARE(Dialog->edFind->text().size(), Long.size());
  QCOMPARE(SqlLines(*Dialog), SearchedBy("AND UPPER(Number) LIKE '%" + Long.toUpper().toStdString() + "%'"));
  QVERIFY(Dialog->qryList_->IsEmpty());
}

void tst_DocPickBase::shouldReadADateByTheUsersPattern() {
  const auto Dialog = NewDialog();
  Dialog->edFind->setText(" 3/4/2026 ");
  QCOMPARE(Dialog->FindDate(), std::string("2026-04-03"));
  toolkit::SetShortDateFormat("mm-dd-yyyy");
  Dialog->edFind->setText("3-4-2026");
  QCOMPARE(Dialog->FindDate(), std::string("2026-03-04"));
  Dialog->edFind->setText("3/4/2026");
  QVERIFY_THROWS_EXCEPTION(toolkit::EConvertError, Dialog->FindDate());
  Dialog->edFind->clear();
  QVERIFY_THROWS_EXCEPTION(toolkit::EConvertError, Dialog->FindDate());
}

void tst_DocPickBase::shouldCheckDates() {
  const auto Dialog = NewDialog();
  const support::TNumberedTexts Texts;
  for (const char* Good : {"1/2/2026", "29/02/2024", " 1/2/26 "}) {
    QCOMPARE(Refusal([&] { Dialog->CheckDate(Good); }), std::string());
  }
  for (const char* Bad : {"", "29/02/2026", "2026-02-01", "tomorrow", "1/2/2026x", "13/13/2026"}) {
    QCOMPARE(Refusal([&] { Dialog->CheckDate(Bad); }), std::string("-1 T6023"));
  }
  zulcommon::ResetStringTable();
  QCOMPARE(Refusal([&] { Dialog->CheckDate("tomorrow"); }),
           std::string("-1 The find text is not a valid date. Please type it as DD/MM/YYYY."));
}

void tst_DocPickBase::shouldCheckIntegers() {
  const auto Dialog = NewDialog();
  const support::TNumberedTexts Texts;
  for (const char* Good : {"0", "-1", "+7", " 42 ", "2147483647", "-2147483648"}) {
    QCOMPARE(Refusal([&] { Dialog->CheckInt(Good); }), std::string());
  }
  for (const char* Bad : {"", " ", "1.0", "2147483648", "-2147483649", "1e3", "abc", "1 2", "1;"}) {
    QCOMPARE(Refusal([&] { Dialog->CheckInt(Bad); }), std::string("-1 T6097"));
  }
}

void tst_DocPickBase::shouldCheckNumbers() {
  const auto Dialog = NewDialog();
  const support::TNumberedTexts Texts;
  for (const char* Good : {"0", "-1.5", "+7.25", " 42 ", "1e3", ".5", "5."}) {
    QCOMPARE(Refusal([&] { Dialog->CheckNumber(Good); }), std::string());
  }
  for (const char* Bad : {"", " ", "1,5", "abc", "1 OR 1=1", "0x10", "inf", "nan", "1e999"}) {
    QCOMPARE(Refusal([&] { Dialog->CheckNumber(Bad); }), std::string("-1 T6097"));
  }
}

void tst_DocPickBase::shouldSpellTheFindLineOfEachChoice_data() {
  QTest::addColumn<int>("FindBy");
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QString>("Line");

  QTest::newRow("text") << static_cast<int>(TPurchaseDialog::ByNumber) << " po'1 "
                        << "AND UPPER(Number) LIKE '%PO''1%'";
  QTest::newRow("date") << static_cast<int>(TPurchaseDialog::ByDate) << " 21/5/2023"
                        << "AND [Date] = '2023-05-21'";
  QTest::newRow("number") << static_cast<int>(TPurchaseDialog::ByCost) << " 64.41 "
                          << "AND Cost = 64.41";
  QTest::newRow("typed number") << static_cast<int>(TPurchaseDialog::ByTypedCost) << " 64.41 "
                                << "AND Cost =  64.41 ";
  QTest::newRow("typed integer") << static_cast<int>(TPurchaseDialog::ByTypedInteger) << " 64 "
                                 << "AND Cost =  64 ";
}

void tst_DocPickBase::shouldSpellTheFindLineOfEachChoice() {
  QFETCH(int, FindBy);
  QFETCH(QString, Typed);
  QFETCH(QString, Line);
  const auto Dialog = NewDialog();
  Dialog->rgFindBy->SetItemIndex(FindBy);
  Dialog->edFind->setText(Typed);
  Dialog->SetSQL();
  QCOMPARE(SqlLines(*Dialog), SearchedBy(Line.toStdString()));
  QVERIFY(Dialog->qryList_->RecordCount() < 600);
}

void tst_DocPickBase::shouldGoIntoTheListByDown() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              for (const Qt::Key Key : {Qt::Key_Down, Qt::Key_PageDown}) {
                Dialog->edFind->setFocus();
                QTest::keyClick(Dialog->edFind, Key);
                QVERIFY(Dialog->dbgAvail->hasFocus());
                QCOMPARE(Dialog->qryList_->RecNo(), 1);
              }
              Dialog->bbnCancel->setFocus();
              QTest::keyClick(Dialog->bbnCancel, Qt::Key_PageDown);
              QVERIFY(!Dialog->dbgAvail->hasFocus());
            });
}

void tst_DocPickBase::shouldTypeIntoTheFindBoxFromTheList() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              Dialog->dbgAvail->setFocus();
              QTest::keyClick(Dialog->dbgAvail, 'P');
              QVERIFY(Dialog->edFind->hasFocus());
              QTest::keyClicks(Dialog->edFind, "1");
              QCOMPARE(Dialog->edFind->text(), QStringLiteral("P1"));
              QCOMPARE(Dialog->qryList_->RecordCount(), 600);
              Dialog->gbFind->hide();
              Dialog->dbgAvail->setFocus();
              QTest::keyClick(Dialog->dbgAvail, 'x');
              QVERIFY(Dialog->dbgAvail->hasFocus());
              QCOMPARE(Dialog->edFind->text(), QStringLiteral("P1"));
            });
}

void tst_DocPickBase::shouldSayInTheListThatNothingWasFound() {
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->dbgAvail->EmptyText(), std::string());
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "is not to be found");
              QCOMPARE(Dialog->qryList_->RecordCount(), 0);
              QCOMPARE(Dialog->dbgAvail->EmptyText(), std::string("Nothing found"));
              QCOMPARE(Dialog->lblRows->text(), QStringLiteral("0 rows"));
              QCOMPARE(Dialog->lblRows->accessibleName(), QStringLiteral("Nothing found"));
              const QImage Told = Dialog->dbgAvail->viewport()->grab().toImage();
              Dialog->dbgAvail->SetEmptyText("");
              QVERIFY(Told != Dialog->dbgAvail->viewport()->grab().toImage());
              support::TypeFind(*Dialog, "p10000");
              QCOMPARE(Dialog->dbgAvail->EmptyText(), std::string());
              QCOMPARE(Dialog->lblRows->accessibleName(), Dialog->lblRows->text());
            });
}

void tst_DocPickBase::shouldReplaceTheTextOfTheLastSearch() {
  const auto Dialog = NewDialog();
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "33");
              QCOMPARE(Dialog->edFind->selectedText(), QStringLiteral("33"));
              QTest::keyClicks(Dialog->edFind, "44");
              QCOMPARE(Dialog->edFind->text(), QStringLiteral("44"));
              QTest::keyClick(Dialog->edFind, Qt::Key_Return);
              QTest::keyClick(Dialog->edFind, Qt::Key_Down);
              QTest::keyClick(Dialog->dbgAvail, '5');
              QCOMPARE(Dialog->edFind->text(), QStringLiteral("5"));
            });
}

void tst_DocPickBase::shouldConfirmByCtrlEnter() {
  const auto Dialog = NewDialog();
  QVERIFY(DrivePick([&] { return Dialog->ShowPick(); },
                    [&](TDocPickBase&) { QTest::keyClick(Dialog->edFind, Qt::Key_Enter, Qt::ControlModifier); }));
}

void tst_DocPickBase::shouldTakeNumbersAsTheUserWritesThem_data() {
  QTest::addColumn<QString>("Locale");
  QTest::addColumn<QString>("Typed");
  QTest::addColumn<QString>("Line");
  for (const char* Locale : {"de_DE", "fr_FR", "sv_SE", "hu_HU", "bg_BG"}) {
    QTest::addRow("%s, comma", Locale) << QString(Locale) << "64,410"
                                       << "AND Cost = 64.410";
    QTest::addRow("%s, point", Locale) << QString(Locale) << "064.410"
                                       << "AND Cost = 064.410";
  }
  QTest::newRow("ar") << "ar_EG" << QString::fromUtf8("٦٤٫٤١") << "AND Cost = 64.41";
  QTest::newRow("fa") << "fa_IR" << QString::fromUtf8("۶۴٫۴۱") << "AND Cost = 64.41";
}

void tst_DocPickBase::shouldTakeNumbersAsTheUserWritesThem() {
  QFETCH(QString, Locale);
  QFETCH(QString, Typed);
  QFETCH(QString, Line);
  const QLocale Before;
  const auto Dialog = NewDialog();
  QLocale::setDefault(QLocale(Locale));
  Dialog->rgFindBy->SetItemIndex(TPurchaseDialog::ByCost);
  Dialog->edFind->setText(Typed);
  Dialog->SetSQL();
  Dialog->edFind->setText("1.234,5");
  const bool Refused = !Refusal([&] { Dialog->CheckNumber(Dialog->edFind->text().toStdString()); }).empty();
  QLocale::setDefault(Before);
  QCOMPARE(SqlLines(*Dialog), SearchedBy(Line.toStdString()));
  QVERIFY(Refused);
}

void tst_DocPickBase::shouldKeepTheListWhenTheDateIsWrong() {
  const auto Dialog = NewDialog();
  TErrorBoxes Boxes;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "33");
              support::ChooseFindBy(*Dialog, TPurchaseDialog::ByDate);
              QTest::keyClick(Dialog->dbgAvail, Qt::Key_Down);
              const TLines Sql = SqlLines(*Dialog);
              support::TypeFind(*Dialog, "31/02/2026");
              QVERIFY(Dialog->isVisible());
              QCOMPARE(SqlLines(*Dialog), Sql);
              QCOMPARE(Dialog->edFind->text(), QStringLiteral("31/02/2026"));
              QCOMPARE(Dialog->qryList_->RecordCount(), 600);
              QCOMPARE(Dialog->qryList_->RecNo(), 2);
              QVERIFY(Dialog->bbnOK->isEnabled());
              support::TypeFind(*Dialog, "21/05/2023");
              QVERIFY(Dialog->qryList_->RecordCount() < 10);
            });
  QCOMPARE(Boxes.Messages(), TLines{"The find text is not a valid date. Please type it as DD/MM/YYYY."});
}

void tst_DocPickBase::shouldKeepTheListWhenTheNumberIsWrong_data() {
  QTest::addColumn<int>("FindBy");
  QTest::addColumn<QString>("Typed");
  QTest::newRow("number") << static_cast<int>(TPurchaseDialog::ByCost) << "12,5";
  QTest::newRow("typed number") << static_cast<int>(TPurchaseDialog::ByTypedCost) << "0 OR 1=1";
  QTest::newRow("typed integer") << static_cast<int>(TPurchaseDialog::ByTypedInteger) << "12.5";
}

void tst_DocPickBase::shouldKeepTheListWhenTheNumberIsWrong() {
  QFETCH(int, FindBy);
  QFETCH(QString, Typed);
  const auto Dialog = NewDialog();
  TErrorBoxes Boxes;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::ChooseFindBy(*Dialog, FindBy);
              support::TypeFind(*Dialog, Typed);
            });
  QCOMPARE(Boxes.Messages(), TLines{"The find text is not a valid number."});
  QCOMPARE(SqlLines(*Dialog), WholeList);
  QCOMPARE(Dialog->edFind->text(), Typed);
  QCOMPARE(Dialog->qryList_->RecordCount(), 600);
}

void tst_DocPickBase::shouldNotCheckATextThatTheChosenFindByDoesNotUse() {
  const auto Dialog = NewDialog();
  Dialog->edFind->setText("no date, no number");
  Dialog->SetSQL();
  QCOMPARE(SqlLines(*Dialog).size(), std::size_t{5});
  Dialog->edFind->setText("  ");
  Dialog->rgFindBy->OnClick = nullptr;
  Dialog->rgFindBy->SetItemIndex(TPurchaseDialog::ByDate);
  Dialog->SetSQL();
  QCOMPARE(SqlLines(*Dialog), WholeList);
}

void tst_DocPickBase::shouldShowTheWholeListWhenTheServerCannotSearch() {
  const auto Dialog = NewDialog();
  TErrorBoxes Boxes;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::ChooseFindBy(*Dialog, TPurchaseDialog::ByNoColumn);
              support::TypeFind(*Dialog, "anything");
              support::ClickBox(Dialog->ckbDesc);
              support::ClickBox(Dialog->ckbDesc);
            });
  QVERIFY(Boxes.Messages().empty());
  QCOMPARE(SqlLines(*Dialog), RebuiltList);
  QCOMPARE(Dialog->edFind->text(), QStringLiteral("anything"));
  QCOMPARE(Dialog->qryList_->RecordCount(), 600);
}

void tst_DocPickBase::shouldSayThatTheWholeListIsNotWhatWasFound() {
  const auto Dialog = NewDialog();
  const QString Failed = QStringLiteral("The search could not be done. All 600 rows");
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::ChooseFindBy(*Dialog, TPurchaseDialog::ByNoColumn);
              support::TypeFind(*Dialog, "anything");
              QCOMPARE(Dialog->lblRows->text(), Failed);
              QVERIFY(Dialog->lblRows->isVisible());
              QCOMPARE(Dialog->dbgAvail->accessibleDescription(), Failed);
              QCOMPARE(Dialog->dbgAvail->toolTip(), Failed);
              support::TypeFind(*Dialog, "");
              QCOMPARE(Dialog->lblRows->text(), QStringLiteral("600 rows"));
              QCOMPARE(Dialog->dbgAvail->accessibleDescription(), QStringLiteral("600 rows"));
            });
}

void tst_DocPickBase::shouldTellHowManyRowsThereAre() {
  const auto Dialog = NewDialog();
  QCOMPARE(Dialog->lblRows->text(), QStringLiteral("600 rows"));
  const std::pair<const char*, const char*> Expected[] = {{"P100590", "1 row"}, {"nowhere", "0 rows"}};
  for (const auto& [Typed, Rows] : Expected) {
    Dialog->edFind->setText(Typed);
    Dialog->CallSetSQL();
    QCOMPARE(Dialog->lblRows->text(), QString(Rows));
    QCOMPARE(Dialog->dbgAvail->accessibleDescription(), QString(Rows));
  }
  Dialog->qryList_->Close();
  QCOMPARE(Dialog->lblRows->text(), QString());
  const QRect Label(Dialog->lblRows->mapTo(Dialog.get(), QPoint()), Dialog->lblRows->size());
  const QRect Cancel(Dialog->bbnCancel->mapTo(Dialog.get(), QPoint()), Dialog->bbnCancel->size());
  QVERIFY(Dialog->rect().contains(Label));
  QVERIFY(!Label.intersects(Cancel));
}

// A connection that is closed cannot list the whole either: the list stays, and the box says why.
void tst_DocPickBase::shouldNotListTheWholeWithoutAConnection() {
  const auto Dialog = NewDialog();
  TErrorBoxes Boxes;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::TypeFind(*Dialog, "33");
              const int Found = Dialog->qryList_->RecordCount();
              QVERIFY(Found > 0 && Found < 600);
              QSqlDatabase Database = Company_->Database();
              Database.close();
              support::TypeFind(*Dialog, "34");
              QCOMPARE(Dialog->qryList_->RecordCount(), Found);
              QCOMPARE(Dialog->lblRows->text(), QString::number(Found) + " rows");
              QVERIFY(SqlLines(*Dialog) == SearchedBy("AND UPPER(Number) LIKE '%34%'"));
            });
  QCOMPARE(Boxes.Messages(), TLines{"The database connection is not open."});
}

void tst_DocPickBase::shouldRefuseAValueThatChangesTheQuery() {
  const auto Dialog = NewDialog();
  for (const char* Passed : {"' OR '1' = '1", "x' --", "', 'y", "' UNION SELECT Number, 1, 2, 3, 4 FROM IP --"}) {
    Dialog->PassedNumber = Passed;
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
    QCOMPARE(Dialog->qryList_->RecordCount(), 600);
  }
  Dialog->PassedNumber = "it''s -- ; /* nothing";
  Dialog->SetSQL();
  QCOMPARE(Dialog->qryList_->RecordCount(), 0);
}

void tst_DocPickBase::shouldKeepTheListWhenTheSecondTryFailsToo() {
  const auto Dialog = NewDialog();
  TErrorBoxes Boxes;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              QTest::keyClick(Dialog->dbgAvail, Qt::Key_Down);
              Company_->Execute("ALTER TABLE IP RENAME TO Elsewhere");
              support::TypeFind(*Dialog, "33");
              QVERIFY(Dialog->isVisible());
              QCOMPARE(Dialog->qryList_->RecordCount(), 600);
              QCOMPARE(Dialog->qryList_->RecNo(), 2);
              QVERIFY(Dialog->bbnOK->isEnabled());
              Company_->Execute("ALTER TABLE Elsewhere RENAME TO IP");
              QTest::keyClick(Dialog->edFind, Qt::Key_Return);
              QVERIFY(Dialog->qryList_->RecordCount() < 600);
            });
  QCOMPARE(Boxes.Messages(), TLines{"no such table: IP"});
}

void tst_DocPickBase::shouldTellAFailureOfAPlainQuery() {
  const auto Dialog = NewDialog();
  Dialog->Plainly = true;
  TErrorBoxes Boxes;
  DrivePick([&] { return Dialog->ShowPick(); },
            [&](TDocPickBase&) {
              support::ChooseFindBy(*Dialog, TPurchaseDialog::ByNoColumn);
              support::TypeFind(*Dialog, "anything");
            });
  QCOMPARE(Boxes.Messages(), TLines{"no such column: NoSuchColumn"});
  QCOMPARE(SqlLines(*Dialog), SearchedBy("AND UPPER(NoSuchColumn) LIKE '%ANYTHING%'"));
  QCOMPARE(Dialog->qryList_->RecordCount(), 600);
  QVERIFY(Dialog->actOK->isEnabled());
}

void tst_DocPickBase::shouldFreeTheWaitWindowWhenTheQueryFails() {
  const auto Dialog = NewDialog();
  Company_->Execute("DROP TABLE IP");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
  QVERIFY(Dialog->findChild<TZULPickPlsWait*>() == nullptr);
  QVERIFY(Dialog->actOK->isEnabled());
  QCOMPARE(Dialog->Queries, 2);
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
  QCOMPARE(Dialog->Queries, 3);
}

void tst_DocPickBase::shouldShowTheWaitWindowWhileItQueries() {
  const auto Dialog = NewDialog();
  const support::TNumberedTexts Texts;
  bool Shown = false;
  QString Message;
  Dialog->InSetSQL = [&] {
    const auto* Wait = Dialog->findChild<TZULPickPlsWait*>();
    Shown = Wait != nullptr && Wait->isVisible();
    if (Wait != nullptr) Message = Wait->lblStatus->text();
  };
  Dialog->CallSetSQL();
  QVERIFY(Shown);
  QCOMPARE(Message, QStringLiteral("T5000"));
  QVERIFY(Dialog->findChild<TZULPickPlsWait*>() == nullptr);
}

void tst_DocPickBase::shouldRunNothingThatIsTyped() {
  const auto Dialog = NewDialog();
  TErrorBoxes Boxes;
  for (const char* Typed : {"1; DELETE FROM IP", "1 UNION DELETE FROM IP", "1; DROP TABLE IP --"}) {
    DrivePick([&] { return Dialog->ShowPick(); },
              [&](TDocPickBase&) {
                support::ChooseFindBy(*Dialog, TPurchaseDialog::ByNoColumn);
                support::TypeFind(*Dialog, Typed);
              });
    QCOMPARE(Company_->Text("SELECT count(*) FROM IP"), std::string("600"));
    QCOMPARE(Dialog->qryList_->RecordCount(), 600);
  }
  QVERIFY(Boxes.Messages().empty());
}

void tst_DocPickBase::shouldWriteDatesAsTheQueryWantsThem() {
  QCOMPARE(uDocPickBase::SQL_DATE_FMT, std::string("YYYY-MM-DD"));
}

QTEST_MAIN(tst_DocPickBase)
#include "tst_DocPickBase.moc"
