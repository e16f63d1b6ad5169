#include <QPushButton>
#include <QSet>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/DialogFacts.h"
#include "picks/PickQueries.h"
#include "picks/parties/uPickCustomer.h"
#include "support/TestCompany.h"

using namespace picks;
using namespace support;
using toolkit::TAlignment;
using uPickCustomer::CallCustomerPick;
using uPickCustomer::TfrmPickCustomer;

namespace {

struct TSmallCompany : TTestCompany {
  TSmallCompany() : TTestCompany(TRows::None) {
    Execute(
        QStringLiteral("INSERT INTO Cust (ID, FirstName, Company, Addr1, Zip, Phone, Entity, Inactive) VALUES "
                       "('C1', NULL, 'beta', '12 High St ', '4001', '555 10', 'MAIN', 0), "
                       "('C2', 'Zoë', 'Alpha', NULL, '3000', '555 20', 'NRTH', 0), "
                       "('C3', 'Al', 'Gamma', '5 Mill Rd', NULL, NULL, 'MAIN', 0), "
                       "('C4', NULL, 'O''Neil', NULL, NULL, '555 40', '', 0), "
                       "('C5', NULL, 'Gone', '1 End', '1', '555 50', 'MAIN', 1), "
                       "('C6', NULL, NULL, '', NULL, '555 60', NULL, 0), "
                       "('C7', NULL, 'Unset', NULL, '', NULL, 'MAIN', NULL)"));
    Execute(
        QStringLiteral("INSERT INTO CustBal (CustID, Balance, Credit) VALUES ('C1', 150, 20), ('C2', 1234.5, NULL), "
                       "('C3', NULL, 1234567.885), ('C6', NULL, NULL)"));
  }

  std::unique_ptr<TfrmPickCustomer> Dialog(bool AllowInactive = true, bool ShowBalances = false) {
    return TfrmPickCustomer::Create(Connection(), false, "", AllowInactive, ShowBalances);
  }

  /// Calls the pick with inactive customers allowed, as a host mostly does.
  bool Pick(const std::function<void(TfrmPickCustomer& Dialog)>& Drive) {
    std::string CustID;
    return DrivePickAs<TfrmPickCustomer>([&] { return CallCustomerPick(Connection(), CustID, false, "", true, false); },
                                         Drive);
  }
};

QString Customers(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "ID"));
}

// The statements that are run on a SQLite connection while it lives.
class TStatements {
 public:
  explicit TStatements(const QSqlDatabase& Database)
      : Handle_(*static_cast<sqlite3* const*>(Database.driver()->handle().constData())) {
    sqlite3_trace_v2(
        Handle_, SQLITE_TRACE_STMT,
        [](unsigned, void* Self, void*, void* Sql) {
          static_cast<TStatements*>(Self)->All_.append(QString::fromUtf8(static_cast<const char*>(Sql)));
          return 0;
        },
        this);
  }
  ~TStatements() { sqlite3_trace_v2(Handle_, 0, nullptr, nullptr); }
  TStatements(const TStatements&) = delete;
  TStatements& operator=(const TStatements&) = delete;

  /// The keys looked up in the balances.
  QStringList LookedUp() const { return All_.filter("CustBal").filter("WHERE"); }

 private:
  sqlite3* Handle_;
  QStringList All_;
};

void Repaint(TDocPickBase& Dialog) {
  Dialog.dbgAvail->viewport()->repaint();
  QCoreApplication::processEvents();
}

int VisibleRows(const TDocPickBase& Dialog) {
  return Dialog.dbgAvail->viewport()->height() / Dialog.dbgAvail->rowHeight(0) + 1;
}

}  // namespace

class tst_PickCustomer : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForCustomers_data();
  void shouldAskForCustomers();
  void shouldAskForNothingByAnUnknownOrder();
  void shouldShowCustomers();
  void shouldDeclareItsFieldsAndTexts();
  void shouldListActiveCustomersByCompany();
  void shouldPutTheAddressTogether();
  void shouldSortByEachColumn();
  void shouldFindByEachColumn();
  void shouldHideInactiveCustomersUnlessAllowed();
  void shouldListInactiveCustomersWhenTicked();
  void shouldFilterByEntity();
  void shouldFailForAnEntityWithAQuote();
  void shouldReturnThePickedCustomer();
  void shouldKeepTheCustomerWhenNothingIsPicked();
  void shouldStartWithoutBalancesWhateverTheCallSays();
  void shouldStartWithBalancesWhenCreatedSo();
  void shouldSwapPhonesAndBalances();
  void shouldShowWhatCustomersOwe();
  void shouldKeepOwedMoneyExact();
  void shouldShowNoWrongMoneyWhenItDoesNotFit_data();
  void shouldShowNoWrongMoneyWhenItDoesNotFit();
  void shouldNotAskAgainToShowBalances();
  void shouldLookUpEachBalanceOnceWhenItIsShown();
  void shouldRememberBalancesWhileTheListIsOpen();
  void shouldTellOnceWhenThereAreNoBalances();
  void shouldShowEveryRowWhenTheSearchFails();
  void shouldShowAnEmptyList();
};

void tst_PickCustomer::shouldAskForCustomers_data() {
  QTest::addColumn<bool>("FilterByEntity");
  QTest::addColumn<QString>("Entity");
  QTest::addColumn<bool>("Inactive");
  QTest::addColumn<QString>("From");
  const QString From = "FROM Cust C | WHERE 0=0";
  const QString Active = " | AND C.Inactive = False";
  QTest::newRow("all") << false << "" << true << From;
  QTest::newRow("active ones") << false << "" << false << From + Active;
  QTest::newRow("entity not asked for") << false << "MAIN" << true << From;
  QTest::newRow("no entity given") << true << "" << false << From + Active;
  QTest::newRow("of an entity") << true << "MAIN" << true << From + " | AND C.Entity = 'MAIN'";
  QTest::newRow("active ones of an entity") << true << " M " << false << From + Active + " | AND C.Entity = ' M '";
}

void tst_PickCustomer::shouldAskForCustomers() {
  QFETCH(bool, FilterByEntity);
  QFETCH(QString, Entity);
  QFETCH(bool, Inactive);
  QFETCH(QString, From);
  TSmallCompany Company;
  const auto Dialog = TfrmPickCustomer::Create(Company.Connection(), FilterByEntity, Entity.toStdString(), true, false);
  Dialog->ckbInactive->setChecked(Inactive);
  // clang-format off
  CompareSql(*Dialog, {
      {"SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1)) Addr, C.Phone, C.Inactive, UPPER(C.ID) SortFld",
       "SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1)) Addr, C.Phone, C.Inactive, UPPER(C.FirstName) SortFld",
       "SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1)) Addr, C.Phone, C.Inactive, UPPER(C.Company) SortFld",
       "SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND  (not c.Zip is null), C.Zip, C.Addr1)) Addr, C.Phone, C.Inactive, UPPER(IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1))) SortFld",
       "SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1)) Addr, C.Phone, C.Inactive, UPPER(C.Phone) SortFld"},
      From,
      " o'né ",
      {"AND UPPER(C.ID) LIKE '%O''NÉ%'",
       "AND UPPER(C.FirstName) LIKE '%O''NÉ%'",
       "AND UPPER(C.Company) LIKE '%O''NÉ%'",
       "AND UPPER(IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1))) LIKE '%O''NÉ%'",
       "AND UPPER(C.Phone) LIKE '%O''NÉ%'"}});
  // clang-format on
}

void tst_PickCustomer::shouldAskForNothingByAnUnknownOrder() {
  TSmallCompany Company;
  const auto Dialog = Company.Dialog();
  Ask(*Dialog, -1, false, -1, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString("FROM Cust C\nWHERE 0=0\nAND C.Inactive = False | ORDER BY SortFld"));
  QCOMPARE(Customers(*Dialog), QString("C6 | C2 | C1 | C3 | C4"));
}

void tst_PickCustomer::shouldShowCustomers() {
  TSmallCompany Company;
  const auto Dialog = Company.Dialog();
  QCOMPARE(Dialog->windowTitle(), QString("Select Customer"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Customers"));
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("ID | FirstName | Company | Addr | Phone | Inactive"));
  const auto& Columns = Dialog->dbgAvail->Columns();
  QCOMPARE(Columns[0]->Alignment(), TAlignment::taRightJustify);
  QCOMPARE(Columns[0]->TitleAlignment(), TAlignment::taRightJustify);
  QCOMPARE(Columns[1]->Width(), 120);
  QCOMPARE(Columns[2]->Width(), 150);
  QCOMPARE(Columns[3]->Width(), 150);
  QCOMPARE(Columns[4]->Alignment(), TAlignment::taLeftJustify);
  QCOMPARE(Columns[5]->Width(), 16);
  QCOMPARE(Columns[5]->Alignment(), TAlignment::taCenter);
  QCOMPARE(Columns[5]->TitleAlignment(), TAlignment::taCenter);
  QCOMPARE(Text(Columns[5]->Title()), QString("I"));
  const QString Choices = "Cust. ID | First Name | Company | Address | Phone";
  QCOMPARE(Joined(Items(*Dialog->rgFindBy)), Choices);
  QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), Choices);
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 2);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 2);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QVERIFY(Dialog->ShowIfEmpty);
  QCOMPARE(Dialog->ckbBalance->text(), QString("Balances"));
  QCOMPARE(Dialog->ckbInactive->text(), QString("Inactive"));
  QCOMPARE(Dialog->ckbBalance->size(), QSize(75, 14));
  QCOMPARE(Dialog->ckbInactive->size(), QSize(75, 14));
  QCOMPARE(Dialog->ckbBalance->pos(), Dialog->ckbDesc->pos() + QPoint(0, Dialog->ckbDesc->height()));
  QCOMPARE(Dialog->ckbInactive->pos(), Dialog->ckbBalance->pos() + QPoint(0, Dialog->ckbBalance->height()));
}

void tst_PickCustomer::shouldDeclareItsFieldsAndTexts() {
  TSmallCompany Company;
  const TNumberedTexts Texts;
  const QString Start = "ID T3026 right/right | FirstName T3028 left/left | Company T3027 left/left | ";
  const QString End = " | Inactive I centre/centre";
  TDeclared Declared{
      "ID string 6 | FirstName string 35 | Company string 35 | Addr string 52 | Phone string 15 | Inactive boolean | "
      "Balance float lookup",
      Start + "Addr T3043 left/left | Phone T3045 left/left" + End, "T27", "T52",
      "T3026 | T3028 | T3027 | T3043 | T3045"};
  const auto Phones = Company.Dialog();
  CompareDeclared(*Phones, Declared);
  QCOMPARE(Fields(*Phones->tblCustBal_),
           QString("CustID string 6 | Balance float | Credit float | Owed float calculated"));
  Declared.Columns = Start + "Addr T3043 left/left | Balance T3076 right/right" + End;
  CompareDeclared(*Company.Dialog(true, true), Declared);
}

void tst_PickCustomer::shouldListActiveCustomersByCompany() {
  TSmallCompany Company;
  QCOMPARE(Customers(*Company.Dialog()), QString("C6 | C2 | C1 | C3 | C4"));
}

void tst_PickCustomer::shouldPutTheAddressTogether() {
  TSmallCompany Company;
  const auto Dialog = Company.Dialog();
  Dialog->ckbInactive->setChecked(true);
  SqlFor(*Dialog, 0, false);
  QCOMPARE(Joined(Column(*Dialog, "Addr")), QString("12 High St - 4001 | 3000 | 5 Mill Rd |  | 1 End - 1 |  | "));
  Dialog->qryList_->SetRecNo(4);
  QVERIFY(Dialog->qryList_Addr->IsNull());
  Dialog->qryList_->SetRecNo(6);
  QVERIFY(!Dialog->qryList_Addr->IsNull());
}

void tst_PickCustomer::shouldSortByEachColumn() {
  TSmallCompany Company;
  Company.Pick([](TfrmPickCustomer& Dialog) {
    ChooseOrderBy(Dialog, 0);
    QCOMPARE(Customers(Dialog), QString("C1 | C2 | C3 | C4 | C6"));
    ClickBox(Dialog.ckbDesc);
    QCOMPARE(Customers(Dialog), QString("C6 | C4 | C3 | C2 | C1"));
    ChooseOrderBy(Dialog, 1);
    QVERIFY(Customers(Dialog).startsWith("C2 | C3 | "));
    ChooseOrderBy(Dialog, 3);
    QCOMPARE(Customers(Dialog), QString("C3 | C2 | C1 | C6 | C4"));
    ClickBox(Dialog.ckbDesc);
    QCOMPARE(Customers(Dialog), QString("C4 | C6 | C1 | C2 | C3"));
    ChooseOrderBy(Dialog, 4);
    QCOMPARE(Customers(Dialog), QString("C3 | C1 | C2 | C4 | C6"));
  });
}

void tst_PickCustomer::shouldFindByEachColumn() {
  TSmallCompany Company;
  Company.Pick([](TfrmPickCustomer& Dialog) {
    TypeFind(Dialog, "o'n");
    QCOMPARE(Customers(Dialog), QString("C4"));
    ChooseFindBy(Dialog, 0);
    TypeFind(Dialog, "c3");
    QCOMPARE(Customers(Dialog), QString("C3"));
    ChooseFindBy(Dialog, 1);
    TypeFind(Dialog, "OË");
    QCOMPARE(Customers(Dialog), QString("C2"));
    ChooseFindBy(Dialog, 3);
    TypeFind(Dialog, "st - 40");
    QCOMPARE(Customers(Dialog), QString("C1"));
    TypeFind(Dialog, "3000");
    QCOMPARE(Customers(Dialog), QString("C2"));
    ChooseFindBy(Dialog, 4);
    TypeFind(Dialog, "60");
    QCOMPARE(Customers(Dialog), QString("C6"));
    TypeFind(Dialog, "nobody");
    QCOMPARE(Customers(Dialog), QString());
    QVERIFY(!Dialog.bbnOK->isEnabled());
  });
}

void tst_PickCustomer::shouldHideInactiveCustomersUnlessAllowed() {
  TSmallCompany Company;
  std::string CustID;
  DrivePickAs<TfrmPickCustomer>([&] { return CallCustomerPick(Company.Connection(), CustID, false, "", false, false); },
                                [](TfrmPickCustomer& Dialog) {
                                  QVERIFY(!Dialog.ckbInactive->isVisible());
                                  QVERIFY(Dialog.ckbBalance->isVisible());
                                  // It has its place all the same.
                                  QCOMPARE(Dialog.ckbInactive->y(),
                                           Dialog.ckbBalance->y() + Dialog.ckbBalance->height());
                                  QVERIFY(!Customers(Dialog).contains("C5"));
                                });
}

void tst_PickCustomer::shouldListInactiveCustomersWhenTicked() {
  TSmallCompany Company;
  Company.Pick([](TfrmPickCustomer& Dialog) {
    QVERIFY(Dialog.ckbInactive->isVisible());
    ClickBox(Dialog.ckbInactive);
    QCOMPARE(Customers(Dialog), QString("C6 | C2 | C1 | C3 | C5 | C4 | C7"));
    QCOMPARE(Joined(Column(Dialog, "Inactive")), QString("False | False | False | False | True | False | "));
    ClickBox(Dialog.ckbInactive);
    QCOMPARE(Customers(Dialog), QString("C6 | C2 | C1 | C3 | C4"));
  });
}

void tst_PickCustomer::shouldFilterByEntity() {
  TSmallCompany Company;
  const auto Listed = [&](bool FilterByEntity, const char* Entity) {
    return Customers(*TfrmPickCustomer::Create(Company.Connection(), FilterByEntity, Entity, false, false));
  };
  const QString All = "C6 | C2 | C1 | C3 | C4";
  QCOMPARE(Listed(true, "MAIN"), QString("C1 | C3"));
  QCOMPARE(Listed(true, "main"), QString());
  QCOMPARE(Listed(true, ""), All);
  QCOMPARE(Listed(false, "MAIN"), All);
}

void tst_PickCustomer::shouldFailForAnEntityWithAQuote() {
  TSmallCompany Company;
  for (const char* Entity : {"O'H", "'", "x'; DELETE FROM Cust; --"}) {
    std::string CustID = "old";
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                             CallCustomerPick(Company.Connection(), CustID, true, Entity, true, false));
    QCOMPARE(CustID, std::string("old"));
  }
  QCOMPARE(Company.Text(QStringLiteral("SELECT COUNT(*) FROM Cust")), std::string("7"));
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  // Unless the entity is asked for, it is not looked at.
  QCOMPARE(Customers(*TfrmPickCustomer::Create(Company.Connection(), false, "O'H", false, false)),
           QString("C6 | C2 | C1 | C3 | C4"));
}

void tst_PickCustomer::shouldReturnThePickedCustomer() {
  TTestCompany Company;
  std::string CustID = "old";
  std::string Wanted;
  QVERIFY(DrivePick([&] { return CallCustomerPick(Company.Connection(), CustID, true, "MAIN", true, false); },
                    [&](TDocPickBase& Dialog) {
                      QVERIFY(Dialog.qryList_->RecordCount() > 100);
                      Wanted = Column(Dialog, "ID")[5];
                      DoubleClickRow(Dialog, 5);
                    }));
  QCOMPARE(CustID, Wanted);
  QCOMPARE(Company.Text(QStringLiteral("SELECT Entity FROM Cust WHERE ID = '%1'").arg(Text(CustID))),
           std::string("MAIN"));
}

void tst_PickCustomer::shouldKeepTheCustomerWhenNothingIsPicked() {
  TSmallCompany Company;
  std::string CustID = "old";
  QVERIFY(!DrivePick([&] { return CallCustomerPick(Company.Connection(), CustID, false, "", true, false); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(CustID, std::string("old"));
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(CustID, std::string("old"));
  Company.Execute(QStringLiteral("DROP TABLE Cust"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallCustomerPick(Company.Connection(), CustID, false, "", true, false));
  QCOMPARE(CustID, std::string("old"));
}

void tst_PickCustomer::shouldStartWithoutBalancesWhateverTheCallSays() {
  TSmallCompany Company;
  for (const bool ShowBalances : {false, true}) {
    std::string CustID;
    DrivePickAs<TfrmPickCustomer>(
        [&] { return CallCustomerPick(Company.Connection(), CustID, false, "", false, ShowBalances); },
        [](TfrmPickCustomer& Dialog) {
          QVERIFY(!Dialog.ckbBalance->isChecked());
          QCOMPARE(Joined(ColumnNames(Dialog)), QString("ID | FirstName | Company | Addr | Phone | Inactive"));
        });
  }
}

void tst_PickCustomer::shouldStartWithBalancesWhenCreatedSo() {
  TSmallCompany Company;
  const auto Phones = Company.Dialog(true, false);
  const auto Balances = Company.Dialog(true, true);
  QVERIFY(Balances->ckbBalance->isChecked());
  QCOMPARE(Joined(ColumnNames(*Balances)), QString("ID | FirstName | Company | Addr | Balance | Inactive"));
  QCOMPARE(Balances->dbgAvail->Columns()[4]->Alignment(), TAlignment::taRightJustify);
  QCOMPARE(Balances->dbgAvail->Columns()[4]->Width(), Phones->dbgAvail->Columns()[4]->Width());
  QCOMPARE(Balances->width(), Phones->width());
}

void tst_PickCustomer::shouldSwapPhonesAndBalances() {
  TSmallCompany Company;
  Company.Pick([](TfrmPickCustomer& Dialog) {
    const toolkit::TColumn& Fifth = *Dialog.dbgAvail->Columns()[4];
    const int Width = Fifth.Width();
    const int FormWidth = Dialog.width();
    for (int Time = 0; Time < 2; ++Time) {
      ClickBox(Dialog.ckbBalance);
      QCOMPARE(Fifth.Field(), Dialog.qryList_Balance);
      QCOMPARE(Text(Fifth.Title()), QString("Balance"));
      QCOMPARE(Fifth.Alignment(), TAlignment::taRightJustify);
      QCOMPARE(Fifth.TitleAlignment(), TAlignment::taRightJustify);
      QCOMPARE(Fifth.Width(), Width);
      ClickBox(Dialog.ckbBalance);
      QCOMPARE(Fifth.Field(), Dialog.qryList_Phone);
      QCOMPARE(Text(Fifth.Title()), QString("Phone"));
      QCOMPARE(Fifth.Alignment(), TAlignment::taLeftJustify);
      QCOMPARE(Fifth.TitleAlignment(), TAlignment::taLeftJustify);
      QCOMPARE(Fifth.Width(), Width);
    }
    QCOMPARE(Dialog.width(), FormWidth);
  });
}

void tst_PickCustomer::shouldShowWhatCustomersOwe() {
  TSmallCompany Company;
  const auto Dialog = Company.Dialog(true, true);
  SqlFor(*Dialog, 0, false);
  QCOMPARE(Customers(*Dialog), QString("C1 | C2 | C3 | C4 | C6"));
  // A customer without a row shows nothing, one with an empty row owes nothing.
  QCOMPARE(Joined(ShownColumn(*Dialog, "Balance")), QString("130.00 | 1,234.50 | -1,234,567.89 |  | 0.00"));
  Dialog->qryList_->SetRecNo(4);
  QVERIFY(Dialog->qryList_Balance->IsNull());
}

void tst_PickCustomer::shouldKeepOwedMoneyExact() {
  TSmallCompany Company;
  // A cent of a sum whose neighbours among the floating numbers are an eighth away, and tenths that they only come
  // near.
  Company.Execute(QStringLiteral("UPDATE CustBal SET Balance = 900000000000000.0, Credit = 0.01 WHERE CustID = 'C1'"));
  Company.Execute(QStringLiteral("UPDATE CustBal SET Balance = 0.3, Credit = 0.1 WHERE CustID = 'C2'"));
  Company.Execute(QStringLiteral("UPDATE CustBal SET Balance = 1.00005, Credit = 0 WHERE CustID = 'C3'"));
  const auto Dialog = Company.Dialog(true, true);
  SqlFor(*Dialog, 0, false);
  QCOMPARE(Text(Dialog->qryList_Balance->DisplayText()), QString("899,999,999,999,999.99"));
  QCOMPARE(Dialog->qryList_Balance->AsCurrency().Scaled(), std::int64_t{8'999'999'999'999'999'900});
  Dialog->qryList_->Next();
  QCOMPARE(Dialog->qryList_Balance->AsCurrency().Scaled(), std::int64_t{2000});
  Dialog->qryList_->Next();
  QCOMPARE(Dialog->qryList_Balance->AsCurrency(), zulcommon::TCurrency::FromDouble(1.00005));
}

void tst_PickCustomer::shouldShowNoWrongMoneyWhenItDoesNotFit_data() {
  QTest::addColumn<double>("Balance");
  QTest::addColumn<double>("Credit");
  QTest::addColumn<QString>("Owed");
  QTest::newRow("the difference") << 900000000000000.0 << -900000000000000.0 << "1,800,000,000,000,000.00";
  QTest::newRow("the difference, negative") << -900000000000000.0 << 900000000000000.0 << "-1,800,000,000,000,000.00";
  QTest::newRow("a quarter too much") << 922337203685477.5 << -0.25 << "922,337,203,685,477.80";
  QTest::newRow("the balance") << 1e15 << 1.0 << "999,999,999,999,999.00";
  QTest::newRow("the credit") << 1.0 << 1e15 << "-999,999,999,999,999.00";
  QTest::newRow("both") << 3e15 << 1e15 << "2,000,000,000,000,000.00";
  QTest::newRow("both, nothing owed") << 3e15 << 3e15 << "0.00";
  QTest::newRow("no number at all") << 1e308 << -1e308 << "";
}

void tst_PickCustomer::shouldShowNoWrongMoneyWhenItDoesNotFit() {
  QFETCH(double, Balance);
  QFETCH(double, Credit);
  QFETCH(QString, Owed);
  TSmallCompany Company;
  Company.Execute(QStringLiteral("UPDATE CustBal SET Balance = ?, Credit = ? WHERE CustID = 'C1'"), {Balance, Credit});
  const auto Dialog = Company.Dialog(true, true);
  SqlFor(*Dialog, 0, false);
  QCOMPARE(Text(Dialog->qryList_Balance->DisplayText()), Owed);
  QCOMPARE(Dialog->qryList_Balance->IsNull(), Owed.isEmpty());
}

void tst_PickCustomer::shouldNotAskAgainToShowBalances() {
  TSmallCompany Company;
  Company.Pick([&](TfrmPickCustomer& Dialog) {
    Dialog.qryList_->SetRecNo(3);
    Company.Execute(QStringLiteral("DELETE FROM Cust WHERE ID = 'C1'"));
    const auto Sql = SqlLines(Dialog);
    ClickBox(Dialog.ckbBalance);
    QCOMPARE(Customers(Dialog), QString("C6 | C2 | C1 | C3 | C4"));
    QCOMPARE(Dialog.qryList_->RecNo(), 3);
    QCOMPARE(SqlLines(Dialog), Sql);
  });
}

void tst_PickCustomer::shouldLookUpEachBalanceOnceWhenItIsShown() {
  TTestCompany Company;
  std::string CustID;
  DrivePickAs<TfrmPickCustomer>([&] { return CallCustomerPick(Company.Connection(), CustID, false, "", true, false); },
                                [&](TfrmPickCustomer& Dialog) {
                                  const TStatements Statements(Company.Database());
                                  Repaint(Dialog);
                                  QCOMPARE(Statements.LookedUp().size(), 0);
                                  ClickBox(Dialog.ckbBalance);
                                  Repaint(Dialog);
                                  const auto First = Statements.LookedUp().size();
                                  QVERIFY(First > 5);
                                  QVERIFY(First <= VisibleRows(Dialog));
                                  Repaint(Dialog);
                                  QCOMPARE(Statements.LookedUp().size(), First);
                                  // The next page: its rows, and no others.
                                  Dialog.dbgAvail->setFocus();
                                  QTest::keyClick(Dialog.dbgAvail, Qt::Key_PageDown);
                                  Repaint(Dialog);
                                  QTest::keyClick(Dialog.dbgAvail, Qt::Key_PageDown);
                                  Repaint(Dialog);
                                  const auto Second = Statements.LookedUp().size();
                                  QVERIFY(Second > First);
                                  QVERIFY(Second <= 3 * VisibleRows(Dialog));
                                  QTest::keyClick(Dialog.dbgAvail, Qt::Key_Home);
                                  Repaint(Dialog);
                                  QCOMPARE(Statements.LookedUp().size(), Second);
                                  const QStringList All = Statements.LookedUp();
                                  QCOMPARE(QSet<QString>(All.begin(), All.end()).size(), All.size());
                                  // Phones and balances again: nothing is forgotten.
                                  ClickBox(Dialog.ckbBalance);
                                  ClickBox(Dialog.ckbBalance);
                                  Repaint(Dialog);
                                  QCOMPARE(Statements.LookedUp().size(), Second);
                                });
}

void tst_PickCustomer::shouldRememberBalancesWhileTheListIsOpen() {
  TSmallCompany Company;
  Company.Pick([&](TfrmPickCustomer& Dialog) {
    ChooseOrderBy(Dialog, 0);
    ClickBox(Dialog.ckbBalance);
    Repaint(Dialog);
    QCOMPARE(Joined(ShownColumn(Dialog, "Balance")), QString("130.00 | 1,234.50 | -1,234,567.89 |  | 0.00"));
    Company.Execute(QStringLiteral("UPDATE CustBal SET Balance = 999 WHERE CustID = 'C1'"));
    Company.Execute(QStringLiteral("INSERT INTO CustBal (CustID, Balance, Credit) VALUES ('C4', 7, 0)"));
    Repaint(Dialog);
    QCOMPARE(Joined(ShownColumn(Dialog, "Balance")), QString("130.00 | 1,234.50 | -1,234,567.89 |  | 0.00"));
    // Another list has today's balances.
    ClickBox(Dialog.ckbDesc);
    Repaint(Dialog);
    QCOMPARE(Joined(ShownColumn(Dialog, "Balance")), QString("0.00 | 7.00 | -1,234,567.89 | 1,234.50 | 979.00"));
  });
}

void tst_PickCustomer::shouldTellOnceWhenThereAreNoBalances() {
  TSmallCompany Company;
  Company.Execute(QStringLiteral("DROP TABLE CustBal"));
  const TErrorBoxes Boxes;
  const bool Chosen = Company.Pick([&](TfrmPickCustomer& Dialog) {
    ClickBox(Dialog.ckbBalance);
    Repaint(Dialog);
    QTRY_COMPARE(Boxes.Messages().size(), std::size_t{1});
    Repaint(Dialog);
    QTest::qWait(20);
    QCOMPARE(Boxes.Messages().size(), std::size_t{1});
    QVERIFY(Text(Boxes.Messages()[0]).contains("CustBal"));
    ClickBox(Dialog.ckbBalance);
    Repaint(Dialog);
    QVERIFY(Dialog.isVisible());
    ClickOK(Dialog);
  });
  QVERIFY(Chosen);
  QCOMPARE(Boxes.Messages().size(), std::size_t{1});
}

void tst_PickCustomer::shouldShowEveryRowWhenTheSearchFails() {
  TSmallCompany Company;
  const TErrorBoxes Boxes;
  std::string CustID;
  DrivePickAs<TfrmPickCustomer>(
      [&] { return CallCustomerPick(Company.Connection(), CustID, true, "MAIN", true, false); },
      [&](TfrmPickCustomer& Dialog) {
        const TShortStatements Short(Company.Database(), 2000);
        const QString Long(3000, u'x');
        ClickBox(Dialog.ckbDesc);
        ChooseOrderBy(Dialog, 0);
        TypeFind(Dialog, Long);
        QCOMPARE(Joined(SqlLines(Dialog)),
                 QString("SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), "
                         "Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, "
                         "C.Addr1)) Addr, C.Phone, C.Inactive, UPPER(C.ID) SortFld\nFROM Cust C\nWHERE 0=0\n"
                         "AND C.Inactive = False\nAND C.Entity = 'MAIN' | ORDER BY SortFld DESC"));
        QCOMPARE(Customers(Dialog), QString("C3 | C1"));
        QCOMPARE(Dialog.edFind->text(), Long);
      });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickCustomer::shouldShowAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  std::string CustID = "old";
  const TErrorBoxes Boxes;
  QVERIFY(!DrivePickAs<TfrmPickCustomer>(
      [&] { return CallCustomerPick(Company.Connection(), CustID, false, "", true, false); },
      [](TfrmPickCustomer& Dialog) {
        QVERIFY(!Dialog.bbnOK->isEnabled());
        ClickBox(Dialog.ckbBalance);
        ClickBox(Dialog.ckbInactive);
        Repaint(Dialog);
        QVERIFY(!Dialog.bbnOK->isEnabled());
        ClickCancel(Dialog);
      }));
  QCOMPARE(CustID, std::string("old"));
  QVERIFY(Boxes.Messages().empty());
}

QTEST_MAIN(tst_PickCustomer)
#include "tst_PickCustomer.moc"
