#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/DialogFacts.h"
#include "picks/PickQueries.h"
#include "picks/parties/uPickCustContactEmails.h"
#include "picks/parties/uPickVendorsEmails.h"
#include "support/TestCompany.h"

using namespace picks;
using namespace support;
using toolkit::TAlignment;
using uPickCustContactEmails::CallPickCustomerEmailAddress;
using uPickCustContactEmails::CallPickProspectEmailAddress;
using uPickCustContactEmails::TfrmDocPickCustEmails;
using uPickVendorsEmails::CallVendorEmailsPick;
using uPickVendorsEmails::TfrmPickVendorsEmail;

namespace {

struct TSmallCompany : TTestCompany {
  TSmallCompany() : TTestCompany(TRows::None) {
    Execute(
        QStringLiteral("INSERT INTO Cust (ID, Company, Contact, Email) VALUES "
                       "('C1', 'beta', 'Mia', 'c1@x'), ('C2', 'Alpha', 'Bob', 'c2@x'), "
                       "('C3', 'Gamma', 'Cid', ''), ('C4', 'Delta', 'Dan', NULL)"));
    Execute(QStringLiteral(
        "INSERT INTO Prospect (ID, Company, Contact, Email) VALUES "
        "('P1', 'Zeta', 'Pat', 'p1@x'), ('P2', 'O''Brien', NULL, NULL), ('C1', 'Same code', 'Sam', '')"));
    Execute(
        QStringLiteral("INSERT INTO Contact (ID, ProspectID, Contact, Email) VALUES "
                       "('C1', NULL, 'Ann', 'ann@x'), ('C1', NULL, 'Zed', 'zed@x'), ('C1', NULL, 'Nil', NULL), "
                       "('C1', NULL, 'Blank', ''), ('C4', NULL, 'Eve', 'eve@x'), (NULL, 'P1', 'Kim', 'kim@x'), "
                       "(NULL, 'P2', 'Lee', 'lee@x'), (NULL, 'P2', 'Off', ''), (NULL, NULL, 'Fair', 'fair@x'), "
                       "('C9', NULL, 'Stray', 'stray@x')"));
    Execute(
        QStringLiteral("INSERT INTO Vend (ID, Company, Email, Contractor, InActive) VALUES "
                       "('V1', 'beta', 'm@x', 0, 0), ('V2', 'Alpha', 'z@x', 1, 0), ('V3', 'Gone', 'a@x', 0, 1), "
                       "('V4', 'No address', NULL, 0, 0), ('V5', 'Blank address', '', 1, 0)"));
  }
};

QString Emails(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "Email"));
}

// The SQL of both halves for an order and, where `FindBy` is not -1, a search for O'B.
QString WantedSql(bool ForCustomers, int OrderBy, int FindBy, bool Descending) {
  const QStringList First{"SELECT C.ID, C.Company, C.Contact, C.Email, UPPER(C.ID) SortFld",
                          "SELECT C.ID, C.Company, C.Contact, C.Email, UPPER(C.Company) SortFld",
                          "SELECT C.ID, C.Company, C.Contact, C.Email, UPPER(C.Contact) SortFld"};
  const QStringList FirstFind{"AND UPPER(C.ID) LIKE '%O''B%'", "AND UPPER(C.Company) LIKE '%O''B%'",
                              "AND UPPER(C.Contact) LIKE '%O''B%'"};
  const QStringList OfCustomers{"SELECT T.ID, C.Company, T.Contact, T.Email, UPPER(T.ID) SortFld",
                                "SELECT T.ID, C.Company, T.Contact, T.Email, UPPER(C.Company) SortFld",
                                "SELECT T.ID, C.Company, T.Contact, T.Email, UPPER(T.Contact) SortFld"};
  const QStringList OfProspects{"SELECT T.ProspectID, C.Company, T.Contact, T.Email, UPPER(T.ProspectID) SortFld",
                                "SELECT T.ProspectID, C.Company, T.Contact, T.Email, UPPER(C.Company) SortFld",
                                "SELECT T.ProspectID, C.Company, T.Contact, T.Email, UPPER(T.Contact) SortFld"};
  const QStringList SecondFind{ForCustomers ? "AND UPPER(T.ID) LIKE '%O''B%'" : "AND UPPER(T.ProspectID) LIKE '%O''B%'",
                               "AND UPPER(C.Company) LIKE '%O''B%'", "AND UPPER(T.Contact) LIKE '%O''B%'"};
  QStringList Lines{First[OrderBy], ForCustomers ? "FROM Cust C" : "FROM Prospect C", "WHERE 0=0", "AND C.Email <> ''"};
  if (FindBy >= 0) Lines << FirstFind[FindBy];
  Lines << "UNION ALL" << (ForCustomers ? OfCustomers : OfProspects)[OrderBy]
        << (ForCustomers ? "FROM Contact T INNER JOIN Cust C ON T.ID = C.ID"
                         : "FROM Contact T INNER JOIN Prospect C ON T.ProspectID = C.ID")
        << "WHERE 0=0"
        << "AND T.Email <> ''" << (ForCustomers ? "AND T.ID IS NOT NULL" : "AND T.ProspectID IS NOT NULL");
  if (FindBy >= 0) Lines << SecondFind[FindBy];
  Lines << (Descending ? "ORDER BY SortFld DESC" : "ORDER BY SortFld");
  return Lines.join(" | ");
}

}  // namespace

class tst_PickEmails : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForCustomersAndContacts_data();
  void shouldAskForCustomersAndContacts();
  void shouldAskForNothingByAnUnknownOrder();
  void shouldAskForVendors();
  void shouldShowAddresses();
  void shouldShowVendors();
  void shouldDeclareTheFieldsAndTextsOfAddresses();
  void shouldDeclareTheFieldsAndTextsOfVendors();
  void shouldListEveryAddressOfACustomer();
  void shouldSortAcrossCustomersAndContacts();
  void shouldFindInBothHalves();
  void shouldListProspectsAndTheirContactsOnly();
  void shouldFindProspects();
  void shouldListAnAddressThatTwoHave();
  void shouldListVendorsOfEveryKind();
  void shouldSortAndFindVendors();
  void shouldReturnThePickedAddress();
  void shouldEmptyTheAddressOfTheContactPicks();
  void shouldKeepTheAddressOfTheVendorPick();
  void shouldBuildEveryLineAgainWhenTheSearchFails();
  void shouldShowAnEmptyList();
};

void tst_PickEmails::shouldAskForCustomersAndContacts_data() {
  QTest::addColumn<bool>("ForCustomers");
  QTest::newRow("customers") << true;
  QTest::newRow("prospects") << false;
}

void tst_PickEmails::shouldAskForCustomersAndContacts() {
  QFETCH(bool, ForCustomers);
  TSmallCompany Company;
  const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), ForCustomers);
  QCOMPARE(Joined(SqlLines(*Dialog)), WantedSql(ForCustomers, 1, -1, false));
  for (int OrderBy = 0; OrderBy < 3; ++OrderBy) {
    for (const bool Descending : {false, true}) {
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending), WantedSql(ForCustomers, OrderBy, -1, Descending));
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, 0, " \t"), WantedSql(ForCustomers, OrderBy, -1, Descending));
      for (int FindBy = -1; FindBy < 3; ++FindBy) {
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, FindBy, " o'b "),
                 WantedSql(ForCustomers, OrderBy, FindBy, Descending));
      }
    }
  }
}

void tst_PickEmails::shouldAskForNothingByAnUnknownOrder() {
  TSmallCompany Company;
  const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), true);
  Ask(*Dialog, -1, false);
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)),
           QString("FROM Cust C | WHERE 0=0 | AND C.Email <> '' | UNION ALL | FROM Contact T INNER JOIN Cust C ON "
                   "T.ID = C.ID | WHERE 0=0 | AND T.Email <> '' | AND T.ID IS NOT NULL | ORDER BY SortFld"));
}

void tst_PickEmails::shouldAskForVendors() {
  TSmallCompany Company;
  const auto Dialog = TfrmPickVendorsEmail::Create(Company.Connection());
  for (const bool Inactive : {false, true}) {
    Dialog->ckbInactive->setChecked(Inactive);
    CompareSql(*Dialog, {{"SELECT V.ID, V.Company, V.Email, V.Contractor, V.InActive, UPPER(V.ID) SortFld",
                          "SELECT V.ID, V.Company, V.Email, V.Contractor, V.InActive, UPPER(V.Company) SortFld",
                          "SELECT V.ID, V.Company, V.Email, V.Contractor, V.InActive, UPPER(V.Email) SortFld"},
                         Inactive ? "FROM Vend V | WHERE 0=0 | AND V.Email <> ''"
                                  : "FROM Vend V | WHERE 0=0 | AND V.InActive = FALSE | AND V.Email <> ''",
                         "o'b@",
                         {"AND UPPER(V.ID) LIKE '%O''B@%'", "AND UPPER(V.Company) LIKE '%O''B@%'",
                          "AND UPPER(V.Email) LIKE '%O''B@%'"}});
  }
}

void tst_PickEmails::shouldShowAddresses() {
  TSmallCompany Company;
  for (const bool ForCustomers : {true, false}) {
    const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), ForCustomers);
    QCOMPARE(Dialog->windowTitle(),
             QString(ForCustomers ? "Select Customer Email Address" : "Select Prospect Email Address"));
    QCOMPARE(Dialog->gbList->title(),
             QString(ForCustomers ? "Available Customer Email Addresses" : "Available Prospect Email Addresses"));
    QCOMPARE(Joined(ColumnNames(*Dialog)), QString("ID | Company | Contact | Email"));
    const auto& Columns = Dialog->dbgAvail->Columns();
    QCOMPARE(Columns[0]->Alignment(), TAlignment::taRightJustify);
    QCOMPARE(Columns[0]->TitleAlignment(), TAlignment::taRightJustify);
    QCOMPARE(Columns[1]->Width(), 150);
    QCOMPARE(Columns[2]->Width(), 150);
    QCOMPARE(Columns[3]->Width(), 200);
    QCOMPARE(Text(Columns[3]->Title()), QString("Email Address"));
    QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("ID | Company | Contact"));
    QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("ID | Company | Contact"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
    QVERIFY(!Dialog->ckbDesc->isChecked());
  }
}

void tst_PickEmails::shouldShowVendors() {
  TSmallCompany Company;
  const auto Dialog = TfrmPickVendorsEmail::Create(Company.Connection());
  QCOMPARE(Dialog->windowTitle(), QString("Select Vendor"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Vendors"));
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("ID | Company | Email | Contractor | Inactive"));
  const auto& Columns = Dialog->dbgAvail->Columns();
  QCOMPARE(Columns[0]->Alignment(), TAlignment::taRightJustify);
  QCOMPARE(Columns[0]->TitleAlignment(), TAlignment::taRightJustify);
  QCOMPARE(Columns[1]->Width(), 150);
  QCOMPARE(Columns[2]->Width(), 150);
  for (const int Flag : {3, 4}) {
    QCOMPARE(Columns[Flag]->Width(), 16);
    QCOMPARE(Columns[Flag]->Alignment(), TAlignment::taCenter);
    QCOMPARE(Columns[Flag]->TitleAlignment(), TAlignment::taCenter);
  }
  QCOMPARE(Text(Columns[3]->Title()), QString("C"));
  QCOMPARE(Text(Columns[4]->Title()), QString("I"));
  QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("Vend. ID | Company | Email"));
  QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("Vend. ID | Company | Email"));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
  QCOMPARE(Dialog->ckbInactive->text(), QString("Inactive"));
  QCOMPARE(Dialog->ckbInactive->size(), QSize(75, 14));
  QCOMPARE(Dialog->ckbInactive->pos(), Dialog->ckbDesc->pos() + QPoint(0, Dialog->ckbDesc->height()));
  QVERIFY(!Dialog->ckbInactive->isHidden());
  QVERIFY(!Dialog->ckbInactive->isChecked());
}

void tst_PickEmails::shouldDeclareTheFieldsAndTextsOfAddresses() {
  TSmallCompany Company;
  const TNumberedTexts Texts;
  for (const bool ForCustomers : {true, false}) {
    const QString Whose = ForCustomers ? "Customer" : "Prospect";
    CompareDeclared(*TfrmDocPickCustEmails::Create(Company.Connection(), ForCustomers),
                    {"ID string 6 | Company string 35 | Contact string 30 | Email string 40",
                     "ID T3119 right/right | Company T3121 left/left | Contact T3163 left/left | Email T3029 left/left",
                     Whose + " Email Address", Whose + " Email Addresses", "T3119 | T3121 | T3163"});
  }
}

void tst_PickEmails::shouldDeclareTheFieldsAndTextsOfVendors() {
  TSmallCompany Company;
  const TNumberedTexts Texts;
  CompareDeclared(*TfrmPickVendorsEmail::Create(Company.Connection()),
                  {"ID string 6 | Company string 35 | Email string 40 | Contractor boolean | Inactive boolean",
                   "ID T3015 right/right | Company T3016 left/left | Email T3030 left/left | "
                   "Contractor C centre/centre | Inactive I centre/centre",
                   "T29", "T155", "T3015 | T3016 | T3030"});
}

void tst_PickEmails::shouldListEveryAddressOfACustomer() {
  TSmallCompany Company;
  const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), true);
  SqlFor(*Dialog, 2, false, 0, "c1");
  QCOMPARE(Emails(*Dialog), QString("ann@x | c1@x | zed@x"));
  QCOMPARE(Joined(Column(*Dialog, "ID")), QString("C1 | C1 | C1"));
  QCOMPARE(Joined(Column(*Dialog, "Company")), QString("beta | beta | beta"));
  QCOMPARE(Joined(Column(*Dialog, "Contact")), QString("Ann | Mia | Zed"));
}

void tst_PickEmails::shouldSortAcrossCustomersAndContacts() {
  TSmallCompany Company;
  std::string Email;
  DrivePick([&] { return CallPickCustomerEmailAddress(Company.Connection(), Email); },
            [](TDocPickBase& Dialog) {
              QCOMPARE(Joined(Column(Dialog, "Company")), QString("Alpha | beta | beta | beta | Delta"));
              ChooseOrderBy(Dialog, 2);
              QCOMPARE(Emails(Dialog), QString("ann@x | c2@x | eve@x | c1@x | zed@x"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Emails(Dialog), QString("zed@x | c1@x | eve@x | c2@x | ann@x"));
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Joined(Column(Dialog, "ID")), QString("C4 | C2 | C1 | C1 | C1"));
            });
}

void tst_PickEmails::shouldFindInBothHalves() {
  TSmallCompany Company;
  std::string Email;
  DrivePick([&] { return CallPickCustomerEmailAddress(Company.Connection(), Email); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "BET");
              QCOMPARE(Dialog.qryList_->RecordCount(), 3);
              QCOMPARE(Joined(Column(Dialog, "Company")), QString("beta | beta | beta"));
              TypeFind(Dialog, "delta");
              QCOMPARE(Emails(Dialog), QString("eve@x"));
              ChooseFindBy(Dialog, 2);
              TypeFind(Dialog, "b");
              QCOMPARE(Emails(Dialog), QString("c2@x"));
              TypeFind(Dialog, "zed");
              QCOMPARE(Emails(Dialog), QString("zed@x"));
              ChooseFindBy(Dialog, 0);
              TypeFind(Dialog, "c4");
              QCOMPARE(Emails(Dialog), QString("eve@x"));
            });
}

void tst_PickEmails::shouldListProspectsAndTheirContactsOnly() {
  TSmallCompany Company;
  const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), false);
  SqlFor(*Dialog, 2, false);
  QCOMPARE(Emails(*Dialog), QString("kim@x | lee@x | p1@x"));
  QCOMPARE(Joined(Column(*Dialog, "ID")), QString("P1 | P2 | P1"));
  QCOMPARE(Joined(Column(*Dialog, "Company")), QString("Zeta | O'Brien | Zeta"));
}

void tst_PickEmails::shouldFindProspects() {
  TSmallCompany Company;
  const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), false);
  SqlFor(*Dialog, 1, false, 0, "p2");
  QCOMPARE(Emails(*Dialog), QString("lee@x"));
  SqlFor(*Dialog, 1, false, 1, "o'b");
  QCOMPARE(Emails(*Dialog), QString("lee@x"));
  SqlFor(*Dialog, 1, false, 2, "i");
  QCOMPARE(Emails(*Dialog), QString("kim@x"));
}

void tst_PickEmails::shouldListAnAddressThatTwoHave() {
  TSmallCompany Company;
  Company.Execute(QStringLiteral("INSERT INTO Contact (ID, Contact, Email) VALUES ('C2', 'Bob', 'c2@x')"));
  const auto Dialog = TfrmDocPickCustEmails::Create(Company.Connection(), true);
  SqlFor(*Dialog, 0, false, 0, "c2");
  QCOMPARE(Emails(*Dialog), QString("c2@x | c2@x"));
}

void tst_PickEmails::shouldListVendorsOfEveryKind() {
  TSmallCompany Company;
  std::string Email;
  DrivePickAs<TfrmPickVendorsEmail>([&] { return CallVendorEmailsPick(Company.Connection(), Email); },
                                    [](TfrmPickVendorsEmail& Dialog) {
                                      QCOMPARE(Emails(Dialog), QString("z@x | m@x"));
                                      QCOMPARE(Joined(Column(Dialog, "Contractor")), QString("True | False"));
                                      ClickBox(Dialog.ckbInactive);
                                      QCOMPARE(Emails(Dialog), QString("z@x | m@x | a@x"));
                                      QCOMPARE(Joined(Column(Dialog, "Inactive")), QString("False | False | True"));
                                      ClickBox(Dialog.ckbInactive);
                                      QCOMPARE(Emails(Dialog), QString("z@x | m@x"));
                                    });
}

void tst_PickEmails::shouldSortAndFindVendors() {
  TSmallCompany Company;
  std::string Email;
  DrivePick([&] { return CallVendorEmailsPick(Company.Connection(), Email); },
            [](TDocPickBase& Dialog) {
              ChooseOrderBy(Dialog, 2);
              QCOMPARE(Emails(Dialog), QString("m@x | z@x"));
              ChooseOrderBy(Dialog, 0);
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Emails(Dialog), QString("z@x | m@x"));
              TypeFind(Dialog, "BETA");
              QCOMPARE(Emails(Dialog), QString("m@x"));
              ChooseFindBy(Dialog, 2);
              TypeFind(Dialog, "Z@");
              QCOMPARE(Emails(Dialog), QString("z@x"));
              ChooseFindBy(Dialog, 0);
              TypeFind(Dialog, "v1");
              QCOMPARE(Emails(Dialog), QString("m@x"));
            });
}

void tst_PickEmails::shouldReturnThePickedAddress() {
  TTestCompany Company;
  std::string Email = "old";
  std::string Wanted;
  const auto PickFourth = [&](TDocPickBase& Dialog) {
    Wanted = Column(Dialog, "Email")[3];
    DoubleClickRow(Dialog, 3);
  };
  QVERIFY(DrivePick([&] { return CallPickCustomerEmailAddress(Company.Connection(), Email); }, PickFourth));
  QVERIFY(Text(Wanted).contains('@'));
  QCOMPARE(Email, Wanted);
  QVERIFY(DrivePick([&] { return CallPickProspectEmailAddress(Company.Connection(), Email); }, PickFourth));
  QVERIFY(Text(Wanted).contains('@'));
  QCOMPARE(Email, Wanted);
  QVERIFY(DrivePick([&] { return CallVendorEmailsPick(Company.Connection(), Email); }, PickFourth));
  QVERIFY(Text(Wanted).contains('@'));
  QCOMPARE(Email, Wanted);
}

void tst_PickEmails::shouldEmptyTheAddressOfTheContactPicks() {
  TSmallCompany Company;
  std::string Email = "old";
  const auto LookAndCancel = [&](TDocPickBase& Dialog) {
    QCOMPARE(Email, std::string());
    ClickCancel(Dialog);
  };
  QVERIFY(!DrivePick([&] { return CallPickCustomerEmailAddress(Company.Connection(), Email); }, LookAndCancel));
  QCOMPARE(Email, std::string());
  Email = "old";
  QVERIFY(!DrivePick([&] { return CallPickProspectEmailAddress(Company.Connection(), Email); }, LookAndCancel));
  QCOMPARE(Email, std::string());
  Company.Execute(QStringLiteral("DROP TABLE Contact"));
  Email = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickCustomerEmailAddress(Company.Connection(), Email));
  QCOMPARE(Email, std::string());
  Email = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickProspectEmailAddress(Company.Connection(), Email));
  QCOMPARE(Email, std::string());
}

void tst_PickEmails::shouldKeepTheAddressOfTheVendorPick() {
  TSmallCompany Company;
  std::string Email = "old";
  QVERIFY(!DrivePick([&] { return CallVendorEmailsPick(Company.Connection(), Email); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Email, std::string("old"));
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Email, std::string("old"));
  Company.Execute(QStringLiteral("DROP TABLE Vend"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallVendorEmailsPick(Company.Connection(), Email));
  QCOMPARE(Email, std::string("old"));
}

void tst_PickEmails::shouldBuildEveryLineAgainWhenTheSearchFails() {
  TSmallCompany Company;
  const QString Long(3000, u'x');
  const TErrorBoxes Boxes;
  std::string Email;
  const TShortStatements Short(Company.Database(), 1500);
  for (const bool ForCustomers : {true, false}) {
    DrivePick(
        [&] {
          return ForCustomers ? CallPickCustomerEmailAddress(Company.Connection(), Email)
                              : CallPickProspectEmailAddress(Company.Connection(), Email);
        },
        [&](TDocPickBase& Dialog) {
          const QString Before = Emails(Dialog);
          TypeFind(Dialog, Long);
          QCOMPARE(Joined(SqlLines(Dialog)), WantedSql(ForCustomers, 1, -1, false));
          QCOMPARE(Emails(Dialog), Before);
          QCOMPARE(Dialog.edFind->text(), Long);
        });
  }
  DrivePick([&] { return CallVendorEmailsPick(Company.Connection(), Email); },
            [&](TDocPickBase& Dialog) {
              TypeFind(Dialog, Long);
              QCOMPARE(Joined(SqlLines(Dialog)),
                       QString("SELECT V.ID, V.Company, V.Email, V.Contractor, V.InActive, UPPER(V.Company) SortFld\n"
                               "FROM Vend V\nWHERE 0=0\nAND V.InActive = FALSE\nAND V.Email <> '' | ORDER BY SortFld"));
              QCOMPARE(Emails(Dialog), QString("z@x | m@x"));
            });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickEmails::shouldShowAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  std::string Email;
  const auto LookAndCancel = [](TDocPickBase& Dialog) {
    QVERIFY(!Dialog.bbnOK->isEnabled());
    ClickCancel(Dialog);
  };
  QVERIFY(!DrivePick([&] { return CallPickCustomerEmailAddress(Company.Connection(), Email); }, LookAndCancel));
  QVERIFY(!DrivePick([&] { return CallPickProspectEmailAddress(Company.Connection(), Email); }, LookAndCancel));
  QVERIFY(!DrivePick([&] { return CallVendorEmailsPick(Company.Connection(), Email); }, LookAndCancel));
}

QTEST_MAIN(tst_PickEmails)
#include "tst_PickEmails.moc"
