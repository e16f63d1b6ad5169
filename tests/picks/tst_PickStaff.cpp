#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/DialogFacts.h"
#include "picks/PickQueries.h"
#include "picks/reference/uPickSalesPerson.h"
#include "picks/reference/uPickUserName.h"
#include "support/TestCompany.h"

using namespace picks;
using namespace support;
using uPickSalesPerson::CallPickSalesPerson;
using uPickSalesPerson::TfrmPickSalesPerson;
using uPickUserName::CallPickUser;
using uPickUserName::TfrmPickUserName;

namespace {

struct TSmallCompany : TTestCompany {
  explicit TSmallCompany(bool MultiAcct) : TTestCompany(TRows::None) {
    Execute(QStringLiteral("UPDATE Sys SET MultiAcct = ?"), {MultiAcct});
    Execute(
        QStringLiteral("INSERT INTO SalesMen (SalesMan, Department, Title, Entity, DiscontD) VALUES "
                       "('zoë', 'SALES', 'Buyer', 'MAIN', 0), ('Bob', NULL, 'Rep', 'NRTH', 0), "
                       "('Amy', 'STORE', NULL, NULL, 0), ('Gone', 'SALES', 'Rep', 'MAIN', 1), "
                       "('Unknown', 'SALES', 'Rep', 'MAIN', NULL)"));
    Execute(
        QStringLiteral("INSERT INTO Names (UserName, DisplayNm, Entity, Inactive) VALUES "
                       "('ZOE', 'adele', 'MAIN', 0), ('BOB', 'Carl', 'NRTH', 0), ('AMY', 'Bea', 'MAIN', 1), "
                       "('GUEST', NULL, NULL, 0), ('UNSET', 'Dan', 'MAIN', NULL)"));
  }
};

QString People(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "SalesMan"));
}
QString Users(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "UserName"));
}

}  // namespace

class tst_PickStaff : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForSalesPeople_data();
  void shouldAskForSalesPeople();
  void shouldAskForUsers_data();
  void shouldAskForUsers();
  void shouldShowSalesPeople();
  void shouldShowUsers();
  void shouldDeclareTheFieldsAndTextsOfSalesPeople();
  void shouldDeclareTheFieldsAndTextsOfUsers();
  void shouldListCurrentSalesPeopleByName();
  void shouldLookAtTheEntityOnlyWithSeveralAccounts();
  void shouldSortAndFindSalesPeople();
  void shouldListUsersOfAnEntityWhateverTheAccounts();
  void shouldListInactiveUsersWhenTicked();
  void shouldSortAndFindUsers();
  void shouldReturnThePickedPerson();
  void shouldEmptyTheTextWhenCancelled();
  void shouldTakeOneTextForEntityAndResult();
  void shouldFailForAnEntityWithAQuote();
  void shouldShowEveryRowWhenTheSearchFails();
  void shouldShowAnEmptyList();
};

void tst_PickStaff::shouldAskForSalesPeople_data() {
  QTest::addColumn<bool>("MultiAcct");
  QTest::addColumn<QString>("Entity");
  QTest::addColumn<QString>("From");
  const QString From = "FROM SalesMen | WHERE DiscontD = FALSE";
  QTest::newRow("one account") << false << "MAIN" << From;
  QTest::newRow("several accounts, no entity") << true << "" << From;
  QTest::newRow("several accounts") << true << "MAIN" << From + " | AND Entity = 'MAIN'";
  QTest::newRow("a blank entity") << true << " " << From + " | AND Entity = ' '";
}

void tst_PickStaff::shouldAskForSalesPeople() {
  QFETCH(bool, MultiAcct);
  QFETCH(QString, Entity);
  QFETCH(QString, From);
  TSmallCompany Company(MultiAcct);
  CompareSql(*TfrmPickSalesPerson::Create(Company.Connection(), Entity.toStdString()),
             {{"SELECT SalesMan, Department, Title, UPPER(SalesMan) SortFld",
               "SELECT SalesMan, Department, Title, UPPER(Department) SortFld",
               "SELECT SalesMan, Department, Title, UPPER(Title) SortFld"},
              From,
              " 5% d'é%s ",
              {"AND UPPER(SalesMan) LIKE '%5% D''É%S%'", "AND UPPER(Department) LIKE '%5% D''É%S%'",
               "AND UPPER(Title) LIKE '%5% D''É%S%'"}});
}

void tst_PickStaff::shouldAskForUsers_data() {
  QTest::addColumn<bool>("MultiAcct");
  QTest::addColumn<QString>("Entity");
  QTest::addColumn<bool>("Inactive");
  QTest::addColumn<QString>("From");
  const QString From = "FROM Names | WHERE 0=0";
  QTest::newRow("all") << false << "" << true << From;
  QTest::newRow("active ones") << true << "" << false << From + " | AND InActive = FALSE";
  QTest::newRow("of an entity") << false << "MAIN" << true << From + " | AND Entity = 'MAIN'";
  QTest::newRow("active ones of an entity")
      << true << "MAIN" << false << From + " | AND Entity = 'MAIN' | AND InActive = FALSE";
}

void tst_PickStaff::shouldAskForUsers() {
  QFETCH(bool, MultiAcct);
  QFETCH(QString, Entity);
  QFETCH(bool, Inactive);
  QFETCH(QString, From);
  TSmallCompany Company(MultiAcct);
  const auto Dialog = TfrmPickUserName::Create(Company.Connection(), Entity.toStdString());
  Dialog->ckbInactive->setChecked(Inactive);
  CompareSql(*Dialog, {{"SELECT UserName, DisplayNM, Inactive, UPPER(UserName) SortFld",
                        "SELECT UserName, DisplayNM, Inactive, UPPER(DisplayNM) SortFld"},
                       From,
                       "o'n",
                       {"AND UPPER(UserName) LIKE '%O''N%'", "AND UPPER(DisplayNM) LIKE '%O''N%'"}});
}

void tst_PickStaff::shouldShowSalesPeople() {
  TSmallCompany Company(false);
  const auto Dialog = TfrmPickSalesPerson::Create(Company.Connection(), "");
  QCOMPARE(Dialog->windowTitle(), QString("Select Sales Person"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Sales People"));
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("SalesMan | Department | Title"));
  for (const toolkit::TColumn* Column : Dialog->dbgAvail->Columns()) QCOMPARE(Column->Width(), 120);
  QCOMPARE(Text(Dialog->qryList_SalesMan->DisplayLabel()), QString("Sales Person"));
  QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("Sales Rep | Department | Title"));
  QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("Sales Rep | Department | Title"));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 0);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 0);
  QVERIFY(!Dialog->ckbDesc->isChecked());
}

void tst_PickStaff::shouldShowUsers() {
  TSmallCompany Company(false);
  const auto Dialog = TfrmPickUserName::Create(Company.Connection(), "");
  QCOMPARE(Dialog->windowTitle(), QString("Select User"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Users"));
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("UserName | DisplayNM | Inactive"));
  const auto& Columns = Dialog->dbgAvail->Columns();
  QCOMPARE(Columns[1]->Width(), 150);
  QCOMPARE(Columns[2]->Width(), 16);
  QCOMPARE(Columns[2]->Alignment(), toolkit::TAlignment::taCenter);
  QCOMPARE(Columns[2]->TitleAlignment(), toolkit::TAlignment::taCenter);
  QCOMPARE(Text(Columns[2]->Title()), QString("I"));
  QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("User Name | Full Name"));
  QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("User Name | Full Name"));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
  QCOMPARE(Dialog->ckbInactive->text(), QString("Inactive"));
  QCOMPARE(Dialog->ckbInactive->size(), QSize(75, 14));
  QCOMPARE(Dialog->ckbInactive->pos(), Dialog->ckbDesc->pos() + QPoint(0, Dialog->ckbDesc->height()));
  QVERIFY(!Dialog->ckbInactive->isHidden());
  QVERIFY(!Dialog->ckbInactive->isChecked());
}

void tst_PickStaff::shouldDeclareTheFieldsAndTextsOfSalesPeople() {
  TSmallCompany Company(false);
  const TNumberedTexts Texts;
  CompareDeclared(*TfrmPickSalesPerson::Create(Company.Connection(), ""),
                  {"SalesMan string 30 | Department string 10 | Title string 35",
                   "SalesMan T3018 left/left | Department T3019 left/left | Title T3020 left/left", "T344", "T59",
                   "T3025 | T3019 | T3020"});
}

void tst_PickStaff::shouldDeclareTheFieldsAndTextsOfUsers() {
  TSmallCompany Company(false);
  const TNumberedTexts Texts;
  CompareDeclared(*TfrmPickUserName::Create(Company.Connection(), ""),
                  {"UserName string 10 | DisplayNM string 30 | Inactive boolean",
                   "UserName T3013 left/left | DisplayNM T3014 left/left | Inactive I centre/centre", "T572", "T454",
                   "T3013 | T3014"});
}

void tst_PickStaff::shouldListCurrentSalesPeopleByName() {
  TSmallCompany Company(false);
  QCOMPARE(People(*TfrmPickSalesPerson::Create(Company.Connection(), "")), QString("Amy | Bob | zoë"));
}

void tst_PickStaff::shouldLookAtTheEntityOnlyWithSeveralAccounts() {
  TSmallCompany One(false);
  QCOMPARE(People(*TfrmPickSalesPerson::Create(One.Connection(), "MAIN")), QString("Amy | Bob | zoë"));
  TSmallCompany Several(true);
  QCOMPARE(People(*TfrmPickSalesPerson::Create(Several.Connection(), "MAIN")), QString("zoë"));
  QCOMPARE(People(*TfrmPickSalesPerson::Create(Several.Connection(), "main")), QString());
  QCOMPARE(People(*TfrmPickSalesPerson::Create(Several.Connection(), "")), QString("Amy | Bob | zoë"));
}

void tst_PickStaff::shouldSortAndFindSalesPeople() {
  TSmallCompany Company(false);
  std::string Person;
  DrivePick([&] { return CallPickSalesPerson(Company.Connection(), Person, ""); },
            [](TDocPickBase& Dialog) {
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(People(Dialog), QString("Bob | zoë | Amy"));
              ChooseOrderBy(Dialog, 2);
              QCOMPARE(People(Dialog), QString("Amy | zoë | Bob"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(People(Dialog), QString("Bob | zoë | Amy"));
              TypeFind(Dialog, "OË");
              QCOMPARE(People(Dialog), QString("zoë"));
              ChooseFindBy(Dialog, 1);
              QCOMPARE(People(Dialog), QString("Bob | zoë | Amy"));
              TypeFind(Dialog, "sto");
              QCOMPARE(People(Dialog), QString("Amy"));
              ChooseFindBy(Dialog, 2);
              TypeFind(Dialog, "e");
              QCOMPARE(People(Dialog), QString("Bob | zoë"));
            });
}

void tst_PickStaff::shouldListUsersOfAnEntityWhateverTheAccounts() {
  for (const bool MultiAcct : {false, true}) {
    TSmallCompany Company(MultiAcct);
    QCOMPARE(Users(*TfrmPickUserName::Create(Company.Connection(), "MAIN")), QString("ZOE"));
    QCOMPARE(Users(*TfrmPickUserName::Create(Company.Connection(), "")), QString("GUEST | ZOE | BOB"));
  }
}

void tst_PickStaff::shouldListInactiveUsersWhenTicked() {
  TSmallCompany Company(false);
  std::string User;
  DrivePickAs<TfrmPickUserName>([&] { return CallPickUser(Company.Connection(), User, "MAIN"); },
                                [](TfrmPickUserName& Dialog) {
                                  QCOMPARE(Users(Dialog), QString("ZOE"));
                                  ClickBox(Dialog.ckbInactive);
                                  QCOMPARE(Users(Dialog), QString("ZOE | AMY | UNSET"));
                                  QCOMPARE(Joined(Column(Dialog, "Inactive")), QString("False | True | "));
                                  ClickBox(Dialog.ckbInactive);
                                  QCOMPARE(Users(Dialog), QString("ZOE"));
                                });
}

void tst_PickStaff::shouldSortAndFindUsers() {
  TSmallCompany Company(false);
  std::string User;
  DrivePick([&] { return CallPickUser(Company.Connection(), User, ""); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "ADEL");
              QCOMPARE(Users(Dialog), QString("ZOE"));
              ChooseFindBy(Dialog, 0);
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Users(Dialog), QString("BOB | GUEST | ZOE"));
              TypeFind(Dialog, "o");
              QCOMPARE(Users(Dialog), QString("BOB | ZOE"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Users(Dialog), QString("ZOE | BOB"));
            });
}

void tst_PickStaff::shouldReturnThePickedPerson() {
  TTestCompany Company;
  std::string Person = "old";
  std::string Wanted;
  const auto PickFourth = [&](TDocPickBase& Dialog) {
    Wanted = Column(Dialog, Dialog.qryList_->Fields()[0]->FieldName())[3];
    DoubleClickRow(Dialog, 3);
  };
  QVERIFY(DrivePick([&] { return CallPickSalesPerson(Company.Connection(), Person, ""); }, PickFourth));
  QVERIFY(!Wanted.empty());
  QCOMPARE(Person, Wanted);
  QVERIFY(DrivePick([&] { return CallPickUser(Company.Connection(), Person, ""); }, PickFourth));
  QCOMPARE(Person, Wanted);
}

void tst_PickStaff::shouldEmptyTheTextWhenCancelled() {
  TTestCompany Company;
  std::string Key = "old";
  QVERIFY(!DrivePick([&] { return CallPickSalesPerson(Company.Connection(), Key, ""); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Key, std::string());
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Key, std::string());
  Key = "old";
  QVERIFY(!DrivePick([&] { return CallPickUser(Company.Connection(), Key, ""); }, ClickCancel));
  QCOMPARE(Key, std::string());
}

void tst_PickStaff::shouldTakeOneTextForEntityAndResult() {
  TSmallCompany Company(true);
  std::string Key = "NRTH";
  DrivePick([&] { return CallPickUser(Company.Connection(), Key, Key); },
            [](TDocPickBase& Dialog) { QCOMPARE(Users(Dialog), QString("BOB")); });
  Key = "NRTH";
  DrivePick([&] { return CallPickSalesPerson(Company.Connection(), Key, Key); },
            [](TDocPickBase& Dialog) { QCOMPARE(People(Dialog), QString("Bob")); });
}

void tst_PickStaff::shouldFailForAnEntityWithAQuote() {
  TSmallCompany Company(true);
  std::string Key = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickUser(Company.Connection(), Key, "O'H"));
  QCOMPARE(Key, std::string());
  Key = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickSalesPerson(Company.Connection(), Key, "O'H"));
  QCOMPARE(Key, std::string());
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickUser(Company.Connection(), Key, "x'; DELETE FROM Names; --"));
  QCOMPARE(Company.Text(QStringLiteral("SELECT COUNT(*) FROM Names")), std::string("5"));
  // A pair of quotes would be another query for the server.
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickUser(Company.Connection(), Key, "' OR Entity = 'NRTH"));
  QCOMPARE(Users(*TfrmPickUserName::Create(Company.Connection(), "'' OR Entity = ''NRTH")), QString());
}

void tst_PickStaff::shouldShowEveryRowWhenTheSearchFails() {
  TSmallCompany Company(true);
  const TShortStatements Short(Company.Database(), 1000);
  const QString Long(3000, u'x');
  const TErrorBoxes Boxes;
  std::string Key;
  DrivePick([&] { return CallPickSalesPerson(Company.Connection(), Key, "MAIN"); },
            [&](TDocPickBase& Dialog) {
              TypeFind(Dialog, Long);
              QCOMPARE(Joined(SqlLines(Dialog)),
                       QString("SELECT SalesMan, Department, Title, UPPER(SalesMan) SortFld\nFROM SalesMen\n"
                               "WHERE DiscontD = FALSE\nAND Entity = 'MAIN' | ORDER BY SortFld"));
              QCOMPARE(People(Dialog), QString("zoë"));
              QCOMPARE(Dialog.edFind->text(), Long);
            });
  DrivePick([&] { return CallPickUser(Company.Connection(), Key, "MAIN"); },
            [&](TDocPickBase& Dialog) {
              ClickBox(Dialog.ckbDesc);
              TypeFind(Dialog, Long);
              QCOMPARE(Joined(SqlLines(Dialog)),
                       QString("SELECT UserName, DisplayNM, Inactive, UPPER(DisplayNM) SortFld\nFROM Names\nWHERE 0=0\n"
                               "AND Entity = 'MAIN'\nAND InActive = FALSE | ORDER BY SortFld DESC"));
              QCOMPARE(Users(Dialog), QString("ZOE"));
            });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickStaff::shouldShowAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  std::string Key;
  const auto LookAndCancel = [](TDocPickBase& Dialog) {
    QVERIFY(!Dialog.bbnOK->isEnabled());
    QTest::mouseDClick(Dialog.dbgAvail->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QVERIFY(Dialog.isVisible());
    ClickCancel(Dialog);
  };
  QVERIFY(!DrivePick([&] { return CallPickSalesPerson(Company.Connection(), Key, ""); }, LookAndCancel));
  QVERIFY(!DrivePick([&] { return CallPickUser(Company.Connection(), Key, ""); }, LookAndCancel));
}

QTEST_MAIN(tst_PickStaff)
#include "tst_PickStaff.moc"
