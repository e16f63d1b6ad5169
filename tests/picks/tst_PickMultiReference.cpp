#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <stdexcept>

#include "ads/EDatabaseError.h"
#include "picks/DialogFacts.h"
#include "picks/PickQueries.h"
#include "picks/reference/uPickDepartmentMulti.h"
#include "picks/reference/uPickMultiDepartments.h"
#include "picks/reference/uPickMultiUsers.h"
#include "support/TestCompany.h"

using namespace picks;
using namespace support;
using toolkit::TStringList;
using uDocPickMultiBase::TDocPickMultiBase;
using uPickDepartmentMulti::CallDepartmentsPick;
using uPickDepartmentMulti::TfrmPickDepartments;
using uPickMultiDepartments::CallMultiDepartmentsPick;
using uPickMultiDepartments::TfrmPickMultiDepartments;
using uPickMultiUsers::CallMultiUsersPick;
using uPickMultiUsers::TfrmPickMultiUsers;

namespace {

struct TSmallCompany : TTestCompany {
  TSmallCompany() : TTestCompany(TRows::None) {
    Execute(QStringLiteral("INSERT INTO Dept (Department) VALUES ('SALES'), ('ADMIN'), ('d''arcy'), ('STORE')"));
    Execute(
        QStringLiteral("INSERT INTO Names (UserName, DisplayNm, Inactive) VALUES ('ZOE', 'adele', 0), "
                       "('BOB', 'Carl', 1), ('AMY', 'Bea', NULL), ('GUEST', NULL, 0)"));
  }
};

const QString Long(3000, u'x');

using TMultiDrive = std::function<void(TDocPickMultiBase& Dialog)>;

bool DriveMulti(const std::function<bool()>& Call, const TMultiDrive& Drive) {
  return DrivePickAs<TDocPickMultiBase>(Call, Drive);
}

void PressSpaceOn(TDocPickBase& Dialog, int Row) {
  Dialog.dbgAvail->setFocus();
  QTest::keyClick(Dialog.dbgAvail, Qt::Key_Home);
  for (int Down = 0; Down < Row; ++Down) QTest::keyClick(Dialog.dbgAvail, Qt::Key_Down);
  QTest::keyClick(Dialog.dbgAvail, Qt::Key_Space);
}

void OpenMenu(TDocPickMultiBase& Dialog, QContextMenuEvent::Reason Reason) {
  const bool ByMouse = Reason == QContextMenuEvent::Mouse;
  QWidget* Receiver = ByMouse ? Dialog.dbgAvail->viewport() : static_cast<QWidget*>(Dialog.dbgAvail);
  const QPoint At(20, 20);
  QContextMenuEvent Event(Reason, At, Receiver->mapToGlobal(At));
  QApplication::sendEvent(Receiver, &Event);
}

void ChooseInMenu(TDocPickMultiBase& Dialog, QAction* Action) {
  OpenMenu(Dialog, QContextMenuEvent::Mouse);
  QVERIFY(QTest::qWaitForWindowExposed(Dialog.popAllNone));
  QTest::mouseClick(Dialog.popAllNone, Qt::LeftButton, {}, Dialog.popAllNone->actionGeometry(Action).center());
  QVERIFY(!Dialog.popAllNone->isVisible());
}

QString Ticks(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "Ticked"));
}

}  // namespace

class tst_PickMultiReference : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForUsers();
  void shouldAskForDepartments();
  void shouldAskForDepartmentsWhateverIsChosen();
  void shouldShowUsers();
  void shouldShowDepartments();
  void shouldDeclareTheFieldsAndTextsOfUsers();
  void shouldDeclareTheFieldsAndTextsOfDepartments();
  void shouldReturnTickedUsersInTheOrderShown();
  void shouldReturnThoseTickedAfterTheLastSearchOnly();
  void shouldDropTheTicksWithEveryRequery();
  void shouldTickByTheMenu();
  void shouldTickByTheMenuFromTheKeyboard();
  void shouldNotConfirmByDoubleClick();
  void shouldNeedATickForOK();
  void shouldFillAnEmptyListWhenNothingIsTicked();
  void shouldReturnTickedDepartments();
  void shouldKeepOnlyTheLastDepartmentInTheText();
  void shouldKeepTheListWhenCancelled();
  void shouldReplaceWhatTheListHeld();
  void shouldFailForUsersWithoutAList();
  void shouldReturnTrueForDepartmentsWithoutAList();
  void shouldFindAQuote();
  void shouldShowEveryRowWhenTheSearchFails();
  void shouldPassOnAFailureOfTheList();
  void shouldDoNothingInAnEmptyList();
};

void tst_PickMultiReference::shouldAskForUsers() {
  TSmallCompany Company;
  const auto Dialog = TfrmPickMultiUsers::Create(Company.Connection());
  CompareSql(*Dialog, {{"SELECT n.UserName, n.DisplayNm, UPPER(n.UserName) SortFld",
                        "SELECT n.UserName, n.DisplayNm, UPPER(n.DisplayNm) SortFld"},
                       "FROM Names n",
                       " o'Ne ",
                       {"WHERE UPPER(n.UserName) LIKE '%O''NE%'", "WHERE UPPER(n.DisplayNm) LIKE '%O''NE%'"}});
  QCOMPARE(
      SqlFor(*Dialog, 1, true, -1, "x"),
      QString("SELECT n.UserName, n.DisplayNm, UPPER(n.DisplayNm) SortFld | FROM Names n | ORDER BY SortFld DESC"));
  Ask(*Dialog, -1, true);
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString("FROM Names n | ORDER BY SortFld DESC"));
}

void tst_PickMultiReference::shouldAskForDepartments() {
  TSmallCompany Company;
  CompareSql(*TfrmPickDepartments::Create(Company.Connection()), {{"SELECT Department, UPPER(Department) SortFld"},
                                                                  "FROM Dept",
                                                                  "o'ps",
                                                                  {"WHERE UPPER(Department) LIKE '%O''PS%'"}});
  CompareSql(*TfrmPickMultiDepartments::Create(Company.Connection()),
             {{"SELECT d.Department, UPPER(d.Department) SortFld"},
              "FROM Dept d",
              "o'ps",
              {"WHERE UPPER(d.Department) LIKE '%O''PS%'"}});
}

void tst_PickMultiReference::shouldAskForDepartmentsWhateverIsChosen() {
  TSmallCompany Company;
  const auto Departments = TfrmPickDepartments::Create(Company.Connection());
  QCOMPARE(SqlFor(*Departments, -1, false, -1, "x"),
           QString("SELECT Department, UPPER(Department) SortFld | FROM Dept | WHERE UPPER(Department) LIKE '%X%'"
                   " | ORDER BY SortFld"));
  // Its twin looks at the choices.
  const auto Twin = TfrmPickMultiDepartments::Create(Company.Connection());
  QCOMPARE(SqlFor(*Twin, 0, false, -1, "x"),
           QString("SELECT d.Department, UPPER(d.Department) SortFld | FROM Dept d | ORDER BY SortFld"));
  Ask(*Twin, -1, false);
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Twin->CallSetSQL());
}

void tst_PickMultiReference::shouldShowUsers() {
  TSmallCompany Company;
  const auto Dialog = TfrmPickMultiUsers::Create(Company.Connection());
  QCOMPARE(Dialog->windowTitle(), QString("Select Users"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Users"));
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("UserName | DisplayNm | Ticked"));
  QCOMPARE(Dialog->dbgAvail->Columns()[2]->Width(), 16);
  QCOMPARE(Dialog->dbgAvail->Columns()[2]->Alignment(), toolkit::TAlignment::taCenter);
  QCOMPARE(Dialog->dbgAvail->Columns()[2]->TitleAlignment(), toolkit::TAlignment::taCenter);
  QCOMPARE(Text(Dialog->dbgAvail->Columns()[2]->Title()), QString("T"));
  QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("User Name | Full Name"));
  QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("User Name | Full Name"));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  // All users, inactive ones too; those without a name come first.
  QCOMPARE(Joined(Column(*Dialog, "UserName")), QString("GUEST | ZOE | AMY | BOB"));
}

void tst_PickMultiReference::shouldShowDepartments() {
  TSmallCompany Company;
  const auto Departments = TfrmPickDepartments::Create(Company.Connection());
  const auto Twin = TfrmPickMultiDepartments::Create(Company.Connection());
  for (TDocPickBase* Dialog : {static_cast<TDocPickBase*>(Departments.get()), static_cast<TDocPickBase*>(Twin.get())}) {
    QCOMPARE(Dialog->windowTitle(), QString("Select Departments"));
    QCOMPARE(Dialog->gbList->title(), QString("Available Departments"));
    QCOMPARE(Joined(ColumnNames(*Dialog)), QString("Department | Ticked"));
    QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("Department"));
    QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("Department"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 0);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 0);
    QCOMPARE(Joined(Column(*Dialog, "Department")), QString("ADMIN | d'arcy | SALES | STORE"));
  }
  QCOMPARE(Departments->dbgAvail->Columns()[0]->Width(), 120);
  QVERIFY(Twin->dbgAvail->Columns()[0]->Width() != 120);
}

void tst_PickMultiReference::shouldDeclareTheFieldsAndTextsOfUsers() {
  TSmallCompany Company;
  const TNumberedTexts Texts;
  CompareDeclared(*TfrmPickMultiUsers::Create(Company.Connection()),
                  {"Ticked boolean calculated | UserName string 10 | DisplayNm string 30",
                   "UserName T3013 left/left | DisplayNm T3014 left/left | Ticked T centre/centre", "T454", "T454",
                   "T3013 | T3014"});
}

void tst_PickMultiReference::shouldDeclareTheFieldsAndTextsOfDepartments() {
  TSmallCompany Company;
  const TNumberedTexts Texts;
  const TDeclared Declared{"Ticked boolean calculated | Department string 10",
                           "Department T3210 left/left | Ticked T centre/centre", "T381", "T381", "T3210"};
  CompareDeclared(*TfrmPickDepartments::Create(Company.Connection()), Declared);
  CompareDeclared(*TfrmPickMultiDepartments::Create(Company.Connection()), Declared);
}

void tst_PickMultiReference::shouldReturnTickedUsersInTheOrderShown() {
  TTestCompany Company;
  TStringList Picked;
  QStringList Wanted;
  QVERIFY(DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
                     [&](TDocPickMultiBase& Dialog) {
                       const auto Names = Column(Dialog, "UserName");
                       QVERIFY(Names.size() > 20);
                       PressSpaceOn(Dialog, 7);
                       PressSpaceOn(Dialog, 2);
                       DoubleClickRow(Dialog, 4);
                       Wanted = {Text(Names[2]), Text(Names[4]), Text(Names[7])};
                       ClickOK(Dialog);
                     }));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), Wanted.join(" | "));
  // The other way round, by the user's own name.
  QVERIFY(DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
                     [&](TDocPickMultiBase& Dialog) {
                       ChooseOrderBy(Dialog, 0);
                       ClickBox(Dialog.ckbDesc);
                       const auto Names = Column(Dialog, "UserName");
                       QCOMPARE(Text(Names[0]), QString("ZMULLER"));
                       PressSpaceOn(Dialog, 1);
                       PressSpaceOn(Dialog, 0);
                       Wanted = {Text(Names[0]), Text(Names[1])};
                       ClickOK(Dialog);
                     }));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), Wanted.join(" | "));
}

void tst_PickMultiReference::shouldReturnThoseTickedAfterTheLastSearchOnly() {
  TSmallCompany Company;
  TStringList Picked;
  QVERIFY(DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
                     [&](TDocPickMultiBase& Dialog) {
                       PressSpaceOn(Dialog, 0);
                       PressSpaceOn(Dialog, 1);
                       TypeFind(Dialog, "E");
                       QCOMPARE(Joined(Column(Dialog, "UserName")), QString("ZOE | AMY"));
                       QCOMPARE(Ticks(Dialog), QString("False | False"));
                       PressSpaceOn(Dialog, 1);
                       ClickOK(Dialog);
                     }));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("AMY"));
}

void tst_PickMultiReference::shouldDropTheTicksWithEveryRequery() {
  TSmallCompany Company;
  TStringList Picked;
  const std::vector<std::function<void(TDocPickBase&)>> Requeries{
      [](TDocPickBase& Dialog) { ClickBox(Dialog.ckbDesc); }, [](TDocPickBase& Dialog) { ChooseOrderBy(Dialog, 0); },
      [](TDocPickBase& Dialog) { TypeFind(Dialog, "e"); },
      [](TDocPickBase& Dialog) { ChooseFindBy(Dialog, 0); },  // empties the find box
  };
  DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
             [&](TDocPickMultiBase& Dialog) {
               for (const auto& Requery : Requeries) {
                 PressSpaceOn(Dialog, 1);
                 QVERIFY(Dialog.bbnOK->isEnabled());
                 Requery(Dialog);
                 QCOMPARE(Dialog.TickedRows.Count(), 0);
                 QVERIFY(!Ticks(Dialog).contains("True"));
                 QVERIFY(!Dialog.bbnOK->isEnabled());
               }
             });
}

void tst_PickMultiReference::shouldTickByTheMenu() {
  TSmallCompany Company;
  TStringList Picked;
  QVERIFY(DriveMulti([&] { return CallDepartmentsPick(&Picked, Company.Connection()); },
                     [&](TDocPickMultiBase& Dialog) {
                       DoubleClickRow(Dialog, 2);
                       ChooseInMenu(Dialog, Dialog.mniAll);
                       QCOMPARE(Ticks(Dialog), QString("True | True | True | True"));
                       QCOMPARE(Dialog.qryList_->RecNo(), 3);
                       ChooseInMenu(Dialog, Dialog.mniNone);
                       QCOMPARE(Ticks(Dialog), QString("False | False | False | False"));
                       QCOMPARE(Dialog.qryList_->RecNo(), 3);
                       QVERIFY(!Dialog.bbnOK->isEnabled());
                       ChooseInMenu(Dialog, Dialog.mniAll);
                       PressSpaceOn(Dialog, 1);
                       ClickOK(Dialog);
                     }));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("ADMIN | SALES | STORE"));
}

void tst_PickMultiReference::shouldTickByTheMenuFromTheKeyboard() {
  TSmallCompany Company;
  TStringList Picked;
  DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); },
             [&](TDocPickMultiBase& Dialog) {
               Dialog.dbgAvail->setFocus();
               OpenMenu(Dialog, QContextMenuEvent::Keyboard);
               QVERIFY(QTest::qWaitForWindowExposed(Dialog.popAllNone));
               QTest::keyClick(Dialog.popAllNone, Qt::Key_Down);
               QTest::keyClick(Dialog.popAllNone, Qt::Key_Return);
               QCOMPARE(Ticks(Dialog), QString("True | True | True | True"));
               OpenMenu(Dialog, QContextMenuEvent::Keyboard);
               QTest::keyClick(Dialog.popAllNone, Qt::Key_Up);
               QTest::keyClick(Dialog.popAllNone, Qt::Key_Return);
               QCOMPARE(Ticks(Dialog), QString("False | False | False | False"));
               OpenMenu(Dialog, QContextMenuEvent::Keyboard);
               QTest::keyClick(Dialog.popAllNone, Qt::Key_Escape);
               QVERIFY(Dialog.isVisible());
             });
}

void tst_PickMultiReference::shouldNotConfirmByDoubleClick() {
  TSmallCompany Company;
  TStringList Picked;
  QVERIFY(!DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); },
                      [&](TDocPickMultiBase& Dialog) {
                        DoubleClickRow(Dialog, 1);
                        QVERIFY(Dialog.isVisible());
                        QCOMPARE(Ticks(Dialog), QString("False | True | False | False"));
                        DoubleClickRow(Dialog, 1);
                        QVERIFY(Dialog.isVisible());
                        QCOMPARE(Ticks(Dialog), QString("False | False | False | False"));
                      }));
}

void tst_PickMultiReference::shouldNeedATickForOK() {
  TSmallCompany Company;
  TStringList Picked;
  DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
             [&](TDocPickMultiBase& Dialog) {
               QVERIFY(!Dialog.bbnOK->isEnabled());
               PressSpaceOn(Dialog, 3);
               QVERIFY(Dialog.bbnOK->isEnabled());
               PressSpaceOn(Dialog, 3);
               QVERIFY(!Dialog.bbnOK->isEnabled());
             });
}

void tst_PickMultiReference::shouldFillAnEmptyListWhenNothingIsTicked() {
  TSmallCompany Company;
  TStringList Picked;
  Picked.Add("old");
  const auto Confirm = [](TDocPickMultiBase& Dialog) { Dialog.accept(); };
  QVERIFY(DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); }, Confirm));
  QCOMPARE(Picked.Count(), 0);
  Picked.Add("old");
  QVERIFY(DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); }, Confirm));
  QCOMPARE(Picked.Count(), 0);
  Picked.Add("old");
  QVERIFY(DriveMulti([&] { return CallDepartmentsPick(&Picked, Company.Connection()); }, Confirm));
  QCOMPARE(Picked.Count(), 0);
  std::string Departments = "old";
  QVERIFY(DriveMulti([&] { return CallDepartmentsPick(Departments, Company.Connection()); }, Confirm));
  QCOMPARE(Departments, std::string());
}

void tst_PickMultiReference::shouldReturnTickedDepartments() {
  TSmallCompany Company;
  const auto TickTwo = [](TDocPickMultiBase& Dialog) {
    PressSpaceOn(Dialog, 2);
    PressSpaceOn(Dialog, 1);
    ClickOK(Dialog);
  };
  TStringList Picked;
  QVERIFY(DriveMulti([&] { return CallDepartmentsPick(&Picked, Company.Connection()); }, TickTwo));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("d'arcy | SALES"));
  Picked.Clear();
  QVERIFY(DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); }, TickTwo));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("d'arcy | SALES"));
}

void tst_PickMultiReference::shouldKeepOnlyTheLastDepartmentInTheText() {
  TSmallCompany Company;
  std::string Departments = "old";
  const auto Call = [&] { return CallDepartmentsPick(Departments, Company.Connection()); };
  QVERIFY(DriveMulti(Call, [](TDocPickMultiBase& Dialog) {
    PressSpaceOn(Dialog, 2);
    PressSpaceOn(Dialog, 0);
    ClickOK(Dialog);
  }));
  QCOMPARE(Departments, std::string(", 'SALES'"));
  QVERIFY(DriveMulti(Call, [](TDocPickMultiBase& Dialog) {
    PressSpaceOn(Dialog, 0);
    ClickOK(Dialog);
  }));
  QCOMPARE(Departments, std::string("'ADMIN'"));
  QVERIFY(DriveMulti(Call, [](TDocPickMultiBase& Dialog) {
    Dialog.mniAllClick();
    ClickOK(Dialog);
  }));
  QCOMPARE(Departments, std::string(", 'STORE'"));
  QVERIFY(!DriveMulti(Call, [&](TDocPickMultiBase& Dialog) {
    QCOMPARE(Departments, std::string());
    PressSpaceOn(Dialog, 0);
    ClickCancel(Dialog);
  }));
  QCOMPARE(Departments, std::string());
}

void tst_PickMultiReference::shouldKeepTheListWhenCancelled() {
  TSmallCompany Company;
  TStringList Picked;
  Picked.Add("old");
  const auto Cancel = [](TDocPickMultiBase& Dialog) {
    PressSpaceOn(Dialog, 0);
    ClickCancel(Dialog);
  };
  QVERIFY(!DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); }, Cancel));
  QVERIFY(!DriveMulti([&] { return CallDepartmentsPick(&Picked, Company.Connection()); }, Cancel));
  QVERIFY(!DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); }, Cancel));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("old"));
}

void tst_PickMultiReference::shouldReplaceWhatTheListHeld() {
  TSmallCompany Company;
  TStringList Picked;
  Picked.Add("old");
  QVERIFY(DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
                     [](TDocPickMultiBase& Dialog) {
                       PressSpaceOn(Dialog, 0);
                       ClickOK(Dialog);
                     }));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("GUEST"));
}

void tst_PickMultiReference::shouldFailForUsersWithoutAList() {
  TSmallCompany Company;
  const auto Call = [&] { return CallMultiUsersPick(nullptr, Company.Connection()); };
  QVERIFY_THROWS_EXCEPTION(std::invalid_argument, DriveMulti(Call, [](TDocPickMultiBase& Dialog) {
                             PressSpaceOn(Dialog, 0);
                             ClickOK(Dialog);
                           }));
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  // Cancelled, it needs none.
  QVERIFY(!DriveMulti(Call, [](TDocPickMultiBase& Dialog) { ClickCancel(Dialog); }));
}

void tst_PickMultiReference::shouldReturnTrueForDepartmentsWithoutAList() {
  TSmallCompany Company;
  const auto TickAndConfirm = [](TDocPickMultiBase& Dialog) {
    PressSpaceOn(Dialog, 0);
    ClickOK(Dialog);
  };
  TStringList* const NoList = nullptr;
  QVERIFY(DriveMulti([&] { return CallDepartmentsPick(NoList, Company.Connection()); }, TickAndConfirm));
  QVERIFY(DriveMulti([&] { return CallMultiDepartmentsPick(NoList, Company.Connection()); }, TickAndConfirm));
}

void tst_PickMultiReference::shouldFindAQuote() {
  TSmallCompany Company;
  TStringList Picked;
  const auto FindIt = [](TDocPickMultiBase& Dialog) {
    TypeFind(Dialog, "D'A");
    QCOMPARE(Joined(Column(Dialog, "Department")), QString("d'arcy"));
    TypeFind(Dialog, "'");
    QCOMPARE(Joined(Column(Dialog, "Department")), QString("d'arcy"));
  };
  DriveMulti([&] { return CallDepartmentsPick(&Picked, Company.Connection()); }, FindIt);
  DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); }, FindIt);
}

void tst_PickMultiReference::shouldShowEveryRowWhenTheSearchFails() {
  TSmallCompany Company;
  TStringList Picked;
  const TShortStatements Short(Company.Database(), 1000);
  const auto SearchFor = [&](const std::function<bool()>& Call, const QString& Rebuilt) {
    const TErrorBoxes Boxes;
    DriveMulti(Call, [&](TDocPickMultiBase& Dialog) {
      ClickBox(Dialog.ckbDesc);
      PressSpaceOn(Dialog, 0);
      TypeFind(Dialog, Long);
      QCOMPARE(Joined(SqlLines(Dialog)), Rebuilt);
      QCOMPARE(Dialog.qryList_->RecordCount(), 4);
      QCOMPARE(Dialog.edFind->text(), Long);
      QCOMPARE(Dialog.TickedRows.Count(), 0);
    });
    QVERIFY(Boxes.Messages().empty());
  };
  SearchFor([&] { return CallDepartmentsPick(&Picked, Company.Connection()); },
            "SELECT Department, UPPER(Department) SortFld | FROM Dept | ORDER BY SortFld DESC");
  SearchFor([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); },
            "SELECT d.Department, UPPER(d.Department) SortFld\nFROM Dept d | ORDER BY SortFld DESC");
  SearchFor([&] { return CallMultiUsersPick(&Picked, Company.Connection()); },
            "SELECT n.UserName, n.DisplayNm, UPPER(n.DisplayNm) SortFld\nFROM Names n | ORDER BY SortFld DESC");
}

void tst_PickMultiReference::shouldPassOnAFailureOfTheList() {
  TSmallCompany Company;
  Company.Execute(QStringLiteral("DROP TABLE Dept"));
  Company.Execute(QStringLiteral("DROP TABLE Names"));
  TStringList Picked;
  Picked.Add("old");
  std::string Departments = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallDepartmentsPick(&Picked, Company.Connection()));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallMultiDepartmentsPick(&Picked, Company.Connection()));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallMultiUsersPick(&Picked, Company.Connection()));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallDepartmentsPick(Departments, Company.Connection()));
  QCOMPARE(Joined({Picked.begin(), Picked.end()}), QString("old"));
  QCOMPARE(Departments, std::string());
}

void tst_PickMultiReference::shouldDoNothingInAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  TStringList Picked;
  const auto TryAll = [](TDocPickMultiBase& Dialog) {
    QVERIFY(!Dialog.bbnOK->isEnabled());
    Dialog.dbgAvail->setFocus();
    QTest::keyClick(Dialog.dbgAvail, Qt::Key_Space);
    QTest::mouseDClick(Dialog.dbgAvail->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    ChooseInMenu(Dialog, Dialog.mniAll);
    ChooseInMenu(Dialog, Dialog.mniNone);
    QCOMPARE(Dialog.TickedRows.Count(), 0);
    QVERIFY(!Dialog.bbnOK->isEnabled());
  };
  QVERIFY(!DriveMulti([&] { return CallDepartmentsPick(&Picked, Company.Connection()); }, TryAll));
  QVERIFY(!DriveMulti([&] { return CallMultiDepartmentsPick(&Picked, Company.Connection()); }, TryAll));
  QVERIFY(!DriveMulti([&] { return CallMultiUsersPick(&Picked, Company.Connection()); }, TryAll));
}

QTEST_MAIN(tst_PickMultiReference)
#include "tst_PickMultiReference.moc"
