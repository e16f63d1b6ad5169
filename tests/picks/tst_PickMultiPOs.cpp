// The pick of several purchase orders, by ticks.
#include <QGroupBox>
#include <QMenu>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/PurchaseOrders.h"
#include "picks/purchasing/uPickMultiPOs.h"
#include "support/NumberedTexts.h"
#include "support/Pictures.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

using namespace purchasing;
using ads::TFieldType;
using picks::Joined;
using picks::SqlFor;
using support::TTestCompany;
using toolkit::TAlignment;
using toolkit::TStringList;
using uPickMultiPOs::CallPickMutliPO;
using uPickMultiPOs::TfrmPickMultiPOs;

namespace {

constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;
constexpr ads::TFieldKind Calculated = ads::TFieldKind::fkCalculated;

const QString Select = QStringLiteral(
    "SELECT I.Number, I.[Date], V.Company VendCompany, I.PONumber, I.POType, C.Company CustCompany, I.Type, ");
const TLines From{"FROM (IP I INNER JOIN Vend V ON (I.ID = V.ID)) LEFT OUTER JOIN Cust C ON C.ID = I.CustID",
                  "WHERE 0=0"};

std::unique_ptr<TfrmPickMultiPOs> AllOrders(TTestCompany& Company) {
  return TfrmPickMultiPOs::Create(Company.Connection(), {}, {});
}

TLines LinesOf(const TStringList& List) {
  return {List.begin(), List.end()};
}

// Orders 1 to 5; the second is for a customer, the third for several documents.
void AddFiveOrders(TTestCompany& Company) {
  AddParties(Company);
  for (int Number = 1; Number <= 5; ++Number) {
    AddOrder(Company, {{"Number", QString::number(Number)},
                       {"Date", QStringLiteral("2024-01-0%1").arg(6 - Number)},
                       {"Type", Number == 2   ? QVariant("P")
                                : Number == 3 ? QVariant("M")
                                              : QVariant()},
                       {"Canceled", true},
                       {"Posted", Number % 2 == 1}});
  }
}

}  // namespace

class tst_PickMultiPOs : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase() { toolkit::SetShortDateFormat(DatePattern); }

  void shouldShowTheSameTextInBothCaptions();
  void shouldDeclareTheFieldsInOrder();
  void shouldShowTheTicksLast();
  void shouldOfferTheSameChoicesInBothGroups();
  void shouldBuildTheSqlLetterByLetter();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldListOnlyTheOrdersInTheStates();
  void shouldListOrdersWithoutACustomer();
  void shouldShowTheTypeWhateverTheFlags();
  void shouldPaintOneIcon();
  void shouldShowWhatAnOrderIsFor();
  void shouldFillTheListInTheOrderOfTheRows();
  void shouldReplaceWhatTheListHeld();
  void shouldStayOnTheCurrentRow();
  void shouldDropTheTicksWithANewOrder();
  void shouldGiveAnEmptyListWhenNothingIsTicked();
  void shouldTouchNoListThatIsNull();
  void shouldLeaveTheListAloneWhenCancelled();
  void shouldKeepListAndTicksWhenTheDateIsWrong();
  void shouldShowTheServersErrorOverTheUnchangedList();
  void shouldRaiseTheServersErrorToTheCaller();
};

void tst_PickMultiPOs::shouldShowTheSameTextInBothCaptions() {
  TTestCompany Company;
  const support::TNumberedTexts Texts;
  const auto Dialog = AllOrders(Company);
  QCOMPARE(Dialog->Caption(), std::string("Select T520"));
  QCOMPARE(Dialog->gbList->title(), QStringLiteral("Available T520"));
  QCOMPARE(Dialog->PickCaption, std::string("T520"));
  QCOMPARE(Dialog->AvailableCaption, std::string("T520"));
}

void tst_PickMultiPOs::shouldDeclareTheFieldsInOrder() {
  TTestCompany Company;
  CompareFields(*AllOrders(Company), {{"Ticked", TFieldType::ftBoolean, 0, Calculated},
                                      {"Number", TFieldType::ftString, 10},
                                      {"Date", TFieldType::ftDate},
                                      {"VendCompany", TFieldType::ftString, 35},
                                      {"PONumber", TFieldType::ftString, 8},
                                      {"POType", TFieldType::ftString, 1},
                                      {"CustCompany", TFieldType::ftString, 35},
                                      {"IMIndex", TFieldType::ftSmallint, 0, Calculated},
                                      {"Type", TFieldType::ftString, 1}});
}

void tst_PickMultiPOs::shouldShowTheTicksLast() {
  TTestCompany Company;
  const support::TNumberedTexts Texts;
  CompareColumns(*AllOrders(Company), {{"Number", "T3035", 0, Right, Right},
                                       {"IMIndex", " ", 16, Centre, Centre},
                                       {"Date", "T3002", 0, Centre, Centre},
                                       {"VendCompany", "T3069", 120},
                                       {"PONumber", "T3021", 0, Right, Right},
                                       {"POType", "T3147", 0, Centre, Centre},
                                       {"CustCompany", "T3027", 120},
                                       {"Ticked", "T", 16, Centre, Centre}});
}

void tst_PickMultiPOs::shouldOfferTheSameChoicesInBothGroups() {
  TTestCompany Company;
  const support::TNumberedTexts Texts;
  const auto Dialog = AllOrders(Company);
  QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QStringLiteral("T3035 | T3002 | T3069 | T3021 | T3147 | T3027"));
  QCOMPARE(support::Items(*Dialog->rgOrderBy), support::Items(*Dialog->rgFindBy));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 0);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 0);
  QVERIFY(!Dialog->ckbDesc->isChecked());
}

void tst_PickMultiPOs::shouldBuildTheSqlLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  CompareSqlInStates(
      [&](const TStatePair& States) {
        return TfrmPickMultiPOs::Create(Company.Connection(), States.Required, States.Excluded);
      },
      [](const TStatePair& States) -> picks::TSqlParts {
        return {{Select + "UPPER(I.Number) SortFld", Select + "I.[Date] SortFld", Select + "UPPER(V.Company) SortFld",
                 Select + "UPPER(I.PONumber) SortFld", Select + "UPPER(I.POType) SortFld",
                 Select + "UPPER(C.Company) SortFld"},
                FromLines(From, States),
                TypedDate,
                {"AND UPPER(I.Number) LIKE '%12/03/2024%'", "AND I.[Date] = '2024-03-12'",
                 "AND UPPER(V.Company) LIKE '%12/03/2024%'", "AND UPPER(I.PONumber) LIKE '%12/03/2024%'",
                 "AND UPPER(I.POType) LIKE '%12/03/2024%'", "AND UPPER(C.Company) LIKE '%12/03/2024%'"}};
      });
}

void tst_PickMultiPOs::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TTestCompany Company;
  const auto Dialog = AllOrders(Company);
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, SqlFor(*Dialog, -1, false, 2, "o'neil"));
  QCOMPARE(Joined(support::SqlLines(*Dialog)),
           Joined(From) + " | AND UPPER(V.Company) LIKE '%O''NEIL%' | ORDER BY SortFld");
}

void tst_PickMultiPOs::shouldListOnlyTheOrdersInTheStates() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddFiveOrders(Company);
  const auto Numbers = [&](TPOStates Required, TPOStates Excluded) {
    return support::Column(*TfrmPickMultiPOs::Create(Company.Connection(), Required, Excluded), "Number");
  };
  QCOMPARE(Numbers({}, {}), (TLines{"1", "2", "3", "4", "5"}));
  QCOMPARE(Numbers({TPOState::poPosted}, {}), (TLines{"1", "3", "5"}));
  QCOMPARE(Numbers({TPOState::poCancelled}, {TPOState::poPosted}), (TLines{"2", "4"}));
  QCOMPARE(Numbers({}, {TPOState::poCancelled}), TLines{});
  // No value is neither true nor false to the server.
  QCOMPARE(Numbers({}, {TPOState::poPaid}), TLines{});
}

void tst_PickMultiPOs::shouldListOrdersWithoutACustomer() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  AddOrder(Company, {{"Number", "1"}, {"CustID", "C2"}});
  AddOrder(Company, {{"Number", "2"}});
  AddOrder(Company, {{"Number", "3"}, {"ID", "V9"}});
  const auto Dialog = AllOrders(Company);
  QCOMPARE(support::Column(*Dialog, "Number"), (TLines{"1", "2"}));
  QCOMPARE(support::Column(*Dialog, "CustCompany"), (TLines{"O'Neil", ""}));
}

void tst_PickMultiPOs::shouldShowTheTypeWhateverTheFlags() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  int Number = 100;
  TLines Expected;
  for (const QVariant& Type : {QVariant("P"), QVariant("M"), QVariant(), QVariant(""), QVariant("X"), QVariant("p")}) {
    for (unsigned Flags = 0; Flags < 4; ++Flags) {
      AddOrder(Company, {{"Number", QString::number(++Number)},
                         {"Type", Type},
                         {"Posted", (Flags & 1U) != 0},
                         {"Canceled", (Flags & 2U) != 0}});
      Expected.push_back(Type == "P" ? "1" : Type == "M" ? "2" : "0");
    }
  }
  QCOMPARE(support::Column(*AllOrders(Company), "IMIndex"), Expected);
}

void tst_PickMultiPOs::shouldPaintOneIcon() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddFiveOrders(Company);
  AddOrder(Company, {{"Number", " "}, {"Type", "P"}});
  TStringList List;
  TStringList* Picked = &List;
  support::DrivePickAs<TfrmPickMultiPOs>(
      [&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
      [](TfrmPickMultiPOs& Dialog) {
        const std::vector<std::vector<int>> Pictures{{}, {0}, {1}, {2}};
        for (int Row = 0; Row < 4; ++Row) {
          QImage Expected(16, 17, QImage::Format_RGB32);
          Expected.fill(Dialog.dbgAvail->palette().color(Row == 0 ? QPalette::Highlight : QPalette::Base));
          QPainter Painter(&Expected);
          Painter.setClipRect(0, 2, 15, 15);
          for (const int Picture : Pictures[static_cast<std::size_t>(Row)]) Dialog.imIcons.Draw(Painter, 0, 2, Picture);
          QCOMPARE(CellImage(Dialog, Row, Dialog.qryList_IMIndex), Expected);
        }
      });
}

void tst_PickMultiPOs::shouldShowWhatAnOrderIsFor() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddFiveOrders(Company);
  TStringList List;
  TStringList* Picked = &List;
  support::DrivePickAs<TfrmPickMultiPOs>(
      [&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
      [](TfrmPickMultiPOs& Dialog) {
        const QColor Behind = Dialog.dbgAvail->palette().color(QPalette::Base);
        const QStringList Expected{"type-customer", "type-several-documents", "type-stock"};
        for (int Row = 1; Row <= 3; ++Row) {
          const QImage Icon = CellImage(Dialog, Row, Dialog.qryList_IMIndex).copy(0, 2, 15, 15);
          const QString& Name = Expected[Row - 1];
          QVERIFY2(support::LooksLike(Icon, support::KeptPictures({Name}, Behind)), qPrintable(Name));
        }
      });
}

void tst_PickMultiPOs::shouldFillTheListInTheOrderOfTheRows() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddFiveOrders(Company);
  TStringList List;
  TStringList* Picked = &List;
  QVERIFY(support::DrivePickAs<TfrmPickMultiPOs>([&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
                                                 [](TfrmPickMultiPOs& Dialog) {
                                                   QVERIFY(!Dialog.bbnOK->isEnabled());
                                                   support::ClickBox(Dialog.ckbDesc);
                                                   // Ticked from the last to the first.
                                                   support::DoubleClickRow(Dialog, 4);
                                                   Dialog.dbgAvail->setFocus();
                                                   QTest::keyClick(Dialog.dbgAvail, Qt::Key_Home);
                                                   QTest::keyClick(Dialog.dbgAvail, Qt::Key_Down);
                                                   QTest::keyClick(Dialog.dbgAvail, Qt::Key_Space);
                                                   QVERIFY(Dialog.bbnOK->isEnabled());
                                                   SaveShot(Dialog, "pos-own");
                                                   support::ClickOK(Dialog);
                                                 }));
  QCOMPARE(LinesOf(List), (TLines{"4", "1"}));
  QCOMPARE(Picked, &List);
}

void tst_PickMultiPOs::shouldReplaceWhatTheListHeld() {
  TTestCompany Company;
  TStringList List;
  List.Add("P100099");
  List.Add("left over");
  TStringList* Picked = &List;
  TLines All;
  QVERIFY(support::DrivePickAs<TfrmPickMultiPOs>(
      [&] { return CallPickMutliPO(Company.Connection(), {TPOState::poReceipted}, {TPOState::poClosed}, Picked); },
      [&](TfrmPickMultiPOs& Dialog) {
        All = support::Column(Dialog, "Number");
        Dialog.mniAll->trigger();
        SaveShot(Dialog, "pos");
        support::ClickOK(Dialog);
      }));
  QVERIFY(All.size() > 10);
  QCOMPARE(LinesOf(List), All);
}

void tst_PickMultiPOs::shouldStayOnTheCurrentRow() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddFiveOrders(Company);
  const auto Dialog = AllOrders(Company);
  Dialog->mniAllClick();
  Dialog->qryList_->SetRecNo(4);
  TStringList List;
  Dialog->GetSelected(&List);
  QCOMPARE(List.Count(), 5);
  QCOMPARE(Dialog->qryList_->RecNo(), 4);
  QCOMPARE(Dialog->qryList_Number->AsString(), std::string("4"));
  QCOMPARE(Dialog->dbgAvail->currentIndex().row(), 3);
  // A list without rows has no row to stay on.
  Company.Execute("DELETE FROM IP");
  Dialog->CallSetSQL();
  Dialog->GetSelected(&List);
  QCOMPARE(List.Count(), 0);
}

void tst_PickMultiPOs::shouldDropTheTicksWithANewOrder() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddFiveOrders(Company);
  const auto Dialog = AllOrders(Company);
  Dialog->mniAllClick();
  Dialog->rgOrderBy->SetItemIndex(1);
  TStringList List;
  Dialog->GetSelected(&List);
  QCOMPARE(List.Count(), 0);
  QCOMPARE(support::Column(*Dialog, "Number"), (TLines{"5", "4", "3", "2", "1"}));
}

void tst_PickMultiPOs::shouldGiveAnEmptyListWhenNothingIsTicked() {
  TTestCompany Company;
  TStringList List;
  List.Add("left over");
  TStringList* Picked = &List;
  QVERIFY(support::DrivePickAs<TfrmPickMultiPOs>([&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
                                                 [](TfrmPickMultiPOs& Dialog) { Dialog.actOKExecute(); }));
  QCOMPARE(List.Count(), 0);
}

void tst_PickMultiPOs::shouldTouchNoListThatIsNull() {
  TTestCompany Company;
  TStringList* Picked = nullptr;
  QVERIFY(support::DrivePickAs<TfrmPickMultiPOs>([&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
                                                 [](TfrmPickMultiPOs& Dialog) {
                                                   Dialog.mniAll->trigger();
                                                   support::ClickOK(Dialog);
                                                 }));
  QCOMPARE(Picked, nullptr);
}

void tst_PickMultiPOs::shouldLeaveTheListAloneWhenCancelled() {
  TTestCompany Company;
  TStringList List;
  List.Add("left over");
  TStringList* Picked = &List;
  QVERIFY(!support::DrivePickAs<TfrmPickMultiPOs>([&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
                                                  [](TfrmPickMultiPOs& Dialog) {
                                                    Dialog.mniAll->trigger();
                                                    support::ClickCancel(Dialog);
                                                  }));
  QCOMPARE(LinesOf(List), TLines{"left over"});
}

void tst_PickMultiPOs::shouldKeepListAndTicksWhenTheDateIsWrong() {
  TTestCompany Company;
  const support::TErrorBoxes Boxes;
  TStringList* Picked = nullptr;
  support::DrivePickAs<TfrmPickMultiPOs>([&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
                                         [](TfrmPickMultiPOs& Dialog) {
                                           const TLines Sql = support::SqlLines(Dialog);
                                           support::ChooseFindBy(Dialog, 1);
                                           Dialog.mniAll->trigger();
                                           support::TypeFind(Dialog, "soon");
                                           QCOMPARE(support::SqlLines(Dialog), Sql);
                                           QCOMPARE(Dialog.TickedRows.Count(), Dialog.qryList_->RecordCount());
                                           QVERIFY(Dialog.bbnOK->isEnabled());
                                         });
  QCOMPARE(Boxes.Messages(), TLines{"The find text is not a valid date. Please type it as DD/MM/YYYY."});
  const auto Dialog = AllOrders(Company);
  QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, SqlFor(*Dialog, 0, false, 1, "soon"));
}

void tst_PickMultiPOs::shouldShowTheServersErrorOverTheUnchangedList() {
  TTestCompany Company;
  const support::TErrorBoxes Boxes;
  TStringList* Picked = nullptr;
  support::DrivePickAs<TfrmPickMultiPOs>([&] { return CallPickMutliPO(Company.Connection(), {}, {}, Picked); },
                                         [&](TfrmPickMultiPOs& Dialog) {
                                           const TLines Numbers = support::Column(Dialog, "Number");
                                           Dialog.mniAll->trigger();
                                           Company.Execute("DROP TABLE Vend");
                                           support::TypeFind(Dialog, "x");
                                           QCOMPARE(support::Column(Dialog, "Number"), Numbers);
                                           QCOMPARE(Dialog.TickedRows.Count(), static_cast<int>(Numbers.size()));
                                         });
  QCOMPARE(Boxes.Messages().size(), std::size_t{1});
  QVERIFY(Boxes.Messages()[0].find("Vend") != std::string::npos);
}

void tst_PickMultiPOs::shouldRaiseTheServersErrorToTheCaller() {
  TTestCompany Company;
  Company.Execute("DROP TABLE IP");
  TStringList List;
  List.Add("left over");
  TStringList* Picked = &List;
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickMutliPO(Company.Connection(), {}, {}, Picked));
  QCOMPARE(LinesOf(List), TLines{"left over"});
}

QTEST_MAIN(tst_PickMultiPOs)
#include "tst_PickMultiPOs.moc"
