#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/DialogFacts.h"
#include "picks/PickQueries.h"
#include "picks/parties/uPickVendors.h"
#include "support/TestCompany.h"

using namespace picks;
using namespace support;
using toolkit::TAlignment;
using uPickVendors::CallVendorPick;
using uPickVendors::TfrmPickVendors;
using uPickVendors::TVendorWhat;

namespace {

struct TSmallCompany : TTestCompany {
  TSmallCompany() : TTestCompany(TRows::None) {
    Execute(
        QStringLiteral("INSERT INTO Vend (ID, Company, Addr1, Zip, Phone, Contractor, Service, InActive) VALUES "
                       "('V1', 'beta', '9 Low St', '4001', '555 30', 0, 0, 0), "
                       "('V2', 'Alpha', '8 Low St', '2000', '555 20', 1, 0, 0), "
                       "('V3', 'Çelik', NULL, '3000', NULL, 0, 1, 0), "
                       "('V4', 'Gone', '7 Low St', NULL, '555 10', 0, 0, 1), "
                       "('V5', 'O''Hara', '6 Low St', '1000', '555 50', 1, 1, 0), "
                       "('V6', 'Gone too', NULL, NULL, NULL, 1, 0, 1), "
                       "('V7', 'Unset', NULL, NULL, NULL, NULL, NULL, 0)"));
  }

  bool Pick(const std::function<void(TfrmPickVendors& Dialog)>& Drive) {
    std::string VendID;
    return DrivePickAs<TfrmPickVendors>([&] { return CallVendorPick(Connection(), VendID, TVendorWhat::vwAll); },
                                        Drive);
  }
};

QString Vendors(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "ID"));
}

}  // namespace

class tst_PickVendors : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldAskForVendors_data();
  void shouldAskForVendors();
  void shouldAskForNothingByAnUnknownOrder();
  void shouldShowVendors();
  void shouldDeclareItsFieldsAndTexts();
  void shouldListVendorsOfAKind();
  void shouldListInactiveVendorsWhenTicked();
  void shouldSortByEachColumn();
  void shouldFindByEachColumn();
  void shouldReturnThePickedVendor();
  void shouldKeepTheVendorWhenNothingIsPicked();
  void shouldShowEveryRowWhenTheSearchFails();
  void shouldShowAnEmptyList();
};

void tst_PickVendors::shouldAskForVendors_data() {
  QTest::addColumn<int>("What");
  QTest::addColumn<bool>("Inactive");
  QTest::addColumn<QString>("From");
  const QString From = "FROM Vend V | WHERE 0=0";
  const QString Active = " | AND V.InActive = FALSE";
  QTest::newRow("all") << 0 << true << From;
  QTest::newRow("active ones") << 0 << false << From + Active;
  QTest::newRow("vendors") << 1 << true << From + " | AND V.Contractor = False";
  QTest::newRow("active vendors") << 1 << false << From + Active + " | AND V.Contractor = False";
  QTest::newRow("contractors") << 2 << true << From + " | AND V.Contractor = True";
  QTest::newRow("active contractors") << 2 << false << From + Active + " | AND V.Contractor = True";
  QTest::newRow("no service") << 3 << true << From + " | AND V.Contractor = False AND V.Service = False";
  QTest::newRow("active, no service") << 3 << false
                                      << From + Active + " | AND V.Contractor = False AND V.Service = False";
  QTest::newRow("an unknown kind") << 4 << false << From + Active;
  QTest::newRow("another unknown kind") << 255 << true << From;
}

void tst_PickVendors::shouldAskForVendors() {
  QFETCH(int, What);
  QFETCH(bool, Inactive);
  QFETCH(QString, From);
  TSmallCompany Company;
  const auto Dialog = TfrmPickVendors::Create(Company.Connection(), static_cast<TVendorWhat>(What));
  Dialog->ckbInactive->setChecked(Inactive);
  CompareSql(
      *Dialog,
      {{"SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.ID) SortFld",
        "SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.Company) SortFld",
        "SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.Addr1) SortFld",
        "SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.Zip) SortFld",
        "SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.Phone) SortFld"},
       From,
       "\to'h_ ",
       {"AND UPPER(V.ID) LIKE '%O''H_%'", "AND UPPER(V.Company) LIKE '%O''H_%'", "AND UPPER(V.Addr1) LIKE '%O''H_%'",
        "AND UPPER(V.Zip) LIKE '%O''H_%'", "AND UPPER(V.Phone) LIKE '%O''H_%'"}});
}

void tst_PickVendors::shouldAskForNothingByAnUnknownOrder() {
  TSmallCompany Company;
  const auto Dialog = TfrmPickVendors::Create(Company.Connection(), TVendorWhat::vwContractor);
  Ask(*Dialog, -1, true, -1, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->CallSetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString("FROM Vend V\nWHERE 0=0\nAND V.InActive = FALSE\n"
                                              "AND V.Contractor = True | ORDER BY SortFld DESC"));
}

void tst_PickVendors::shouldShowVendors() {
  TSmallCompany Company;
  const auto Dialog = TfrmPickVendors::Create(Company.Connection(), TVendorWhat::vwAll);
  QCOMPARE(Dialog->windowTitle(), QString("Select Vendor"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Vendors"));
  QCOMPARE(Joined(ColumnNames(*Dialog)), QString("ID | Company | Addr1 | Zip | Phone | Contractor | Inactive"));
  const auto& Columns = Dialog->dbgAvail->Columns();
  QCOMPARE(Columns[0]->Alignment(), TAlignment::taRightJustify);
  QCOMPARE(Columns[0]->TitleAlignment(), TAlignment::taRightJustify);
  QCOMPARE(Columns[1]->Width(), 150);
  QCOMPARE(Columns[2]->Width(), 150);
  for (const int Flag : {5, 6}) {
    QCOMPARE(Columns[Flag]->Width(), 16);
    QCOMPARE(Columns[Flag]->Alignment(), TAlignment::taCenter);
    QCOMPARE(Columns[Flag]->TitleAlignment(), TAlignment::taCenter);
  }
  QCOMPARE(Text(Columns[5]->Title()), QString("C"));
  QCOMPARE(Text(Columns[6]->Title()), QString("I"));
  const QString Choices = "Vend. ID | Company | Address | Postcode | Phone";
  QCOMPARE(Joined(Items(*Dialog->rgFindBy)), Choices);
  QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), Choices);
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QVERIFY(Dialog->ShowIfEmpty);
  QCOMPARE(Dialog->ckbInactive->text(), QString("Inactive"));
  QCOMPARE(Dialog->ckbInactive->size(), QSize(75, 14));
  QCOMPARE(Dialog->ckbInactive->pos(), Dialog->ckbDesc->pos() + QPoint(0, Dialog->ckbDesc->height()));
  QVERIFY(!Dialog->ckbInactive->isHidden());
  QVERIFY(!Dialog->ckbInactive->isChecked());
}

void tst_PickVendors::shouldDeclareItsFieldsAndTexts() {
  TSmallCompany Company;
  const TNumberedTexts Texts;
  for (const TVendorWhat What : {TVendorWhat::vwAll, TVendorWhat::vwContractor}) {
    CompareDeclared(*TfrmPickVendors::Create(Company.Connection(), What),
                    {"ID string 6 | Company string 35 | Addr1 string 35 | Zip string 30 | Phone string 15 | "
                     "Contractor boolean | Inactive boolean",
                     "ID T3015 right/right | Company T3016 left/left | Addr1 T3017 left/left | Zip T3041 left/left | "
                     "Phone T3165 left/left | Contractor C centre/centre | Inactive I centre/centre",
                     "T29", "T155", "T3015 | T3016 | T3017 | T3041 | T3165"});
  }
}

void tst_PickVendors::shouldListVendorsOfAKind() {
  TSmallCompany Company;
  const auto Listed = [&](TVendorWhat What) { return Vendors(*TfrmPickVendors::Create(Company.Connection(), What)); };
  QCOMPARE(Listed(TVendorWhat::vwAll), QString("V2 | V1 | V5 | V7 | V3"));
  QCOMPARE(Listed(TVendorWhat::vwVend), QString("V1 | V3"));
  QCOMPARE(Listed(TVendorWhat::vwContractor), QString("V2 | V5"));
  QCOMPARE(Listed(TVendorWhat::vwVendNoSerice), QString("V1"));
  QCOMPARE(Listed(static_cast<TVendorWhat>(9)), QString("V2 | V1 | V5 | V7 | V3"));
}

void tst_PickVendors::shouldListInactiveVendorsWhenTicked() {
  TSmallCompany Company;
  std::string VendID;
  DrivePickAs<TfrmPickVendors>([&] { return CallVendorPick(Company.Connection(), VendID, TVendorWhat::vwVend); },
                               [](TfrmPickVendors& Dialog) {
                                 QCOMPARE(Vendors(Dialog), QString("V1 | V3"));
                                 ClickBox(Dialog.ckbInactive);
                                 QCOMPARE(Vendors(Dialog), QString("V1 | V4 | V3"));
                                 QCOMPARE(Joined(Column(Dialog, "Inactive")), QString("False | True | False"));
                                 QCOMPARE(Joined(Column(Dialog, "Contractor")), QString("False | False | False"));
                                 ClickBox(Dialog.ckbInactive);
                                 QCOMPARE(Vendors(Dialog), QString("V1 | V3"));
                               });
}

void tst_PickVendors::shouldSortByEachColumn() {
  TSmallCompany Company;
  Company.Execute(QStringLiteral("DELETE FROM Vend WHERE ID = 'V7'"));
  Company.Pick([](TfrmPickVendors& Dialog) {
    QCOMPARE(Vendors(Dialog), QString("V2 | V1 | V5 | V3"));
    ChooseOrderBy(Dialog, 0);
    QCOMPARE(Vendors(Dialog), QString("V1 | V2 | V3 | V5"));
    ChooseOrderBy(Dialog, 2);
    QCOMPARE(Vendors(Dialog), QString("V3 | V5 | V2 | V1"));
    ChooseOrderBy(Dialog, 3);
    QCOMPARE(Vendors(Dialog), QString("V5 | V2 | V3 | V1"));
    ChooseOrderBy(Dialog, 4);
    QCOMPARE(Vendors(Dialog), QString("V3 | V2 | V1 | V5"));
    ClickBox(Dialog.ckbDesc);
    QCOMPARE(Vendors(Dialog), QString("V5 | V1 | V2 | V3"));
  });
}

void tst_PickVendors::shouldFindByEachColumn() {
  TSmallCompany Company;
  Company.Pick([](TfrmPickVendors& Dialog) {
    TypeFind(Dialog, "çe");
    QCOMPARE(Vendors(Dialog), QString("V3"));
    TypeFind(Dialog, "O'H");
    QCOMPARE(Vendors(Dialog), QString("V5"));
    ChooseFindBy(Dialog, 0);
    TypeFind(Dialog, "v2");
    QCOMPARE(Vendors(Dialog), QString("V2"));
    ChooseFindBy(Dialog, 2);
    TypeFind(Dialog, "9 low");
    QCOMPARE(Vendors(Dialog), QString("V1"));
    ChooseFindBy(Dialog, 3);
    TypeFind(Dialog, "300");
    QCOMPARE(Vendors(Dialog), QString("V3"));
    ChooseFindBy(Dialog, 4);
    TypeFind(Dialog, "20");
    QCOMPARE(Vendors(Dialog), QString("V2"));
  });
}

void tst_PickVendors::shouldReturnThePickedVendor() {
  TTestCompany Company;
  std::string VendID = "old";
  std::string Wanted;
  QVERIFY(DrivePick([&] { return CallVendorPick(Company.Connection(), VendID, TVendorWhat::vwContractor); },
                    [&](TDocPickBase& Dialog) {
                      QVERIFY(Dialog.qryList_->RecordCount() > 10);
                      Wanted = Column(Dialog, "ID")[2];
                      DoubleClickRow(Dialog, 2);
                    }));
  QCOMPARE(VendID, Wanted);
  QCOMPARE(Company.Text(QStringLiteral("SELECT Contractor FROM Vend WHERE ID = '%1'").arg(Text(VendID))),
           std::string("1"));
}

void tst_PickVendors::shouldKeepTheVendorWhenNothingIsPicked() {
  TSmallCompany Company;
  std::string VendID = "old";
  QVERIFY(!DrivePick([&] { return CallVendorPick(Company.Connection(), VendID, TVendorWhat::vwAll); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(VendID, std::string("old"));
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(VendID, std::string("old"));
  Company.Execute(QStringLiteral("DROP TABLE Vend"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallVendorPick(Company.Connection(), VendID, TVendorWhat::vwAll));
  QCOMPARE(VendID, std::string("old"));
}

void tst_PickVendors::shouldShowEveryRowWhenTheSearchFails() {
  TSmallCompany Company;
  const TErrorBoxes Boxes;
  std::string VendID;
  DrivePickAs<TfrmPickVendors>(
      [&] { return CallVendorPick(Company.Connection(), VendID, TVendorWhat::vwVendNoSerice); },
      [&](TfrmPickVendors& Dialog) {
        const TShortStatements Short(Company.Database(), 1000);
        const QString Long(3000, u'x');
        ClickBox(Dialog.ckbInactive);
        TypeFind(Dialog, Long);
        QCOMPARE(Joined(SqlLines(Dialog)),
                 QString("SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, UPPER(V.Company) "
                         "SortFld\nFROM Vend V\nWHERE 0=0\nAND V.Contractor = False AND V.Service = False"
                         " | ORDER BY SortFld"));
        QCOMPARE(Vendors(Dialog), QString("V1 | V4"));
        QCOMPARE(Dialog.edFind->text(), Long);
      });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickVendors::shouldShowAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  std::string VendID = "old";
  QVERIFY(!DrivePickAs<TfrmPickVendors>(
      [&] { return CallVendorPick(Company.Connection(), VendID, TVendorWhat::vwContractor); },
      [](TfrmPickVendors& Dialog) {
        QVERIFY(!Dialog.bbnOK->isEnabled());
        ClickBox(Dialog.ckbInactive);
        QVERIFY(!Dialog.bbnOK->isEnabled());
      }));
  QCOMPARE(VendID, std::string("old"));
}

QTEST_MAIN(tst_PickVendors)
#include "tst_PickVendors.moc"
