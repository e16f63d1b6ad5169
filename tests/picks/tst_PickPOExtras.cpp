// The pick of extras of a purchase order, by ticks.
#include <QGroupBox>
#include <QMenu>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/PurchaseOrders.h"
#include "picks/purchasing/uPickPOExtras.h"
#include "support/NumberedTexts.h"
#include "zulcommon/EZULException.h"

using namespace purchasing;
using ads::TFieldType;
using picks::Joined;
using picks::SqlFor;
using support::TTestCompany;
using toolkit::TAlignment;
using uPickPOExtras::CallPickPOExtras;
using uPickPOExtras::TfrmPickPOExtras;
using uZULPickLists::TIntegerList;

namespace {

constexpr TAlignment Left = TAlignment::taLeftJustify;
constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;

using TIDs = std::vector<std::int32_t>;

QString BaseLines(const std::string& Vendor) {
  return Joined({"FROM IPDetExtraMaster", "WHERE ((VendID IS NULL) OR (VendID = '" + Vendor + "'))"});
}

TIDs ValuesOf(const TIntegerList& List) {
  return {List.begin(), List.end()};
}

// Extras 1 to 12; 2 and 10 are V1's, 3 is V2's, 4 has an empty code, the others are everybody's.
void AddExtras(TTestCompany& Company) {
  AddParties(Company);
  for (int ID = 1; ID <= 12; ++ID) {
    const QVariant Vendor = ID == 2 || ID == 10 ? QVariant("V1")
                            : ID == 3           ? QVariant("V2")
                            : ID == 4           ? QVariant("")
                                                : QVariant();
    Company.Execute("INSERT INTO IPDetExtraMaster (ID, Descript, Cost, VendID) VALUES (?, ?, ?, ?)",
                    {ID, QString(QChar(ID % 2 == 0 ? 'A' : 'a')) + QString::number(100 - ID), ID * 1.5, Vendor});
  }
}

}  // namespace

class tst_PickPOExtras : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldNameTheVendorInTheCaption();
  void shouldDeclareTheFieldsInOrder();
  void shouldShowTheTicksLast();
  void shouldOfferTheSameChoicesInBothGroups();
  void shouldFormatTheCostAsPrice();
  void shouldBuildTheSqlLetterByLetter();
  void shouldPutTheVendorsCodeInAsItIs();
  void shouldTakeTheIdentifierAsTyped();
  void shouldRejectWhatIsNoIdentifier();
  void shouldListTheVendorsExtrasAndEverybodys();
  void shouldOrderIdentifiersAsNumbers();
  void shouldShowTheWholeListWhenTheSearchFails();
  void shouldNotShowAListWithoutRows();
  void shouldShowAListThatASearchHasEmptied();
  void shouldFillTheListInTheOrderOfTheRows();
  void shouldLeaveTheCursorAtTheEnd();
  void shouldClearTheListWhenNothingIsTicked();
  void shouldTouchNoListThatIsNull();
  void shouldLeaveTheListAloneWhenCancelled();
  void shouldRaiseTheServersErrorToTheCaller();
};

void tst_PickPOExtras::shouldNameTheVendorInTheCaption() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  Company.Execute("INSERT INTO Vend (ID, Company) VALUES ('O''N', 'O''Neil & 50%s')");
  const support::TNumberedTexts Texts;
  const auto Caption = [&](const char* Vendor) {
    const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), Vendor);
    if (Dialog->tblVend_->Active()) qFatal("The vendors are still open.");
    return Dialog->Caption();
  };
  QCOMPARE(Caption("V1"), std::string("Select T578 - Zenith"));
  QCOMPARE(Caption("V9"), std::string("Select T578"));
  QCOMPARE(Caption(""), std::string("Select T578"));
  QCOMPARE(Caption(" V1"), std::string("Select T578"));
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V2");
  QCOMPARE(Dialog->PickCaption, std::string("T578 - acme"));
  QCOMPARE(Dialog->gbList->title(), QStringLiteral("Available T579"));
  QCOMPARE(Dialog->tblVend_->TableName(), std::string("Vend"));
  QCOMPARE(Dialog->tblVend_->IndexName(), std::string("PK_ID"));
  QCOMPARE(Dialog->tblVend_ID->Size(), 6);
  QCOMPARE(Dialog->tblVend_Company->Size(), 35);
}

void tst_PickPOExtras::shouldDeclareTheFieldsInOrder() {
  TTestCompany Company;
  CompareFields(*TfrmPickPOExtras::Create(Company.Connection(), ""),
                {{"Ticked", TFieldType::ftBoolean, 0, ads::TFieldKind::fkCalculated},
                 {"ID", TFieldType::ftAutoInc},
                 {"Descript", TFieldType::ftString, 32},
                 {"Cost", TFieldType::ftFloat}});
}

void tst_PickPOExtras::shouldShowTheTicksLast() {
  TTestCompany Company;
  const support::TNumberedTexts Texts;
  CompareColumns(*TfrmPickPOExtras::Create(Company.Connection(), ""), {{"ID", "T3119", 0, Right, Right},
                                                                       {"Descript", "T3007", 150, Left, Left},
                                                                       {"Cost", "T3039", 0, Right, Right},
                                                                       {"Ticked", "T", 16, Centre, Centre}});
}

void tst_PickPOExtras::shouldOfferTheSameChoicesInBothGroups() {
  TTestCompany Company;
  const support::TNumberedTexts Texts;
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V00001");
  QCOMPARE(Joined(support::Items(*Dialog->rgFindBy)), QStringLiteral("T3119 | T3007"));
  QCOMPARE(Joined(support::Items(*Dialog->rgOrderBy)), QStringLiteral("T3119 | T3007"));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), 1);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 1);
  QCOMPARE(Joined(support::SqlLines(*Dialog)),
           "SELECT ID, Descript, Cost, UPPER(Descript) SortFld | " + BaseLines("V00001") + " | ORDER BY SortFld");
}

void tst_PickPOExtras::shouldFormatTheCostAsPrice() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  Company.Execute("UPDATE Sys SET PrcDec = 3");
  Company.Execute("UPDATE IPDetExtraMaster SET Cost = 1234.5");
  QCOMPARE(support::ShownColumn(*TfrmPickPOExtras::Create(Company.Connection(), "V2"), "Cost")[0],
           std::string("1,234.500"));
  Company.Execute("UPDATE Sys SET PrcDec = 0");
  QCOMPARE(support::ShownColumn(*TfrmPickPOExtras::Create(Company.Connection(), "V2"), "Cost")[0],
           std::string("1,235"));
}

void tst_PickPOExtras::shouldBuildTheSqlLetterByLetter() {
  TTestCompany Company(TTestCompany::TRows::None);
  for (const char* Vendor : {"", "V1", "V00007"}) {
    const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), Vendor);
    picks::CompareSql(*Dialog,
                      {{"SELECT ID, Descript, Cost, ID SortFld", "SELECT ID, Descript, Cost, UPPER(Descript) SortFld"},
                       BaseLines(Vendor),
                       "12",
                       {"AND ID = 12", "AND UPPER(Descript) LIKE '%12%'"}});
    SqlFor(*Dialog, 1, false, 1, " o'neil ");
    QCOMPARE(support::SqlLines(*Dialog)[3], std::string("AND UPPER(Descript) LIKE '%O''NEIL%'"));
    QCOMPARE(SqlFor(*Dialog, 1, true, -1, "x"),
             "SELECT ID, Descript, Cost, UPPER(Descript) SortFld | " + BaseLines(Vendor) + " | ORDER BY SortFld DESC");
  }
}

void tst_PickPOExtras::shouldPutTheVendorsCodeInAsItIs() {
  TTestCompany Company(TTestCompany::TRows::None);
  for (const char* Vendor : {" V1", "V1 ", "  ", "a''b", "v1", "ü"}) {
    const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), Vendor);
    QCOMPARE(support::SqlLines(*Dialog)[2], "WHERE ((VendID IS NULL) OR (VendID = '" + std::string(Vendor) + "'))");
  }
}

void tst_PickPOExtras::shouldTakeTheIdentifierAsTyped() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V1");
  for (const char* Typed : {"10", " 10 ", "+10", "0010"}) {
    SqlFor(*Dialog, 0, false, 0, Typed);
    QCOMPARE(support::SqlLines(*Dialog)[3], "AND ID = " + std::string(Typed));
    QCOMPARE(support::Column(*Dialog, "ID"), TLines{"10"});
  }
  SqlFor(*Dialog, 0, false, 0, "-10");
  QVERIFY(Dialog->qryList_->IsEmpty());
}

void tst_PickPOExtras::shouldRejectWhatIsNoIdentifier() {
  TTestCompany Company;
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V00001");
  const QString Before = SqlFor(*Dialog, 1, false);
  for (const char* Typed : {"x", "1.5", "1 OR 1=1", "99999999999", "1e2", "'1'"}) {
    QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, SqlFor(*Dialog, 1, false, 0, Typed));
    QCOMPARE(Joined(support::SqlLines(*Dialog)), Before);
  }
  QCOMPARE(SqlFor(*Dialog, 1, false, 0, "  "), Before);

  const support::TErrorBoxes Boxes;
  TIntegerList List;
  support::DrivePickAs<TfrmPickPOExtras>([&] { return CallPickPOExtras(Company.Connection(), "V00001", &List); },
                                         [](TfrmPickPOExtras& Shown) {
                                           const TLines Rows = support::Column(Shown, "ID");
                                           support::ChooseFindBy(Shown, 0);
                                           support::TypeFind(Shown, "ten");
                                           QCOMPARE(support::Column(Shown, "ID"), Rows);
                                           QCOMPARE(Shown.edFind->text(), QStringLiteral("ten"));
                                         });
  QCOMPARE(Boxes.Messages(), TLines{"The find text is not a valid number."});
}

void tst_PickPOExtras::shouldListTheVendorsExtrasAndEverybodys() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  const auto IDs = [&](const char* Vendor) {
    const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), Vendor);
    SqlFor(*Dialog, 0, false);
    return Joined(support::Column(*Dialog, "ID"));
  };
  QCOMPARE(IDs("V1"), QStringLiteral("1 | 2 | 5 | 6 | 7 | 8 | 9 | 10 | 11 | 12"));
  QCOMPARE(IDs("V2"), QStringLiteral("1 | 3 | 5 | 6 | 7 | 8 | 9 | 11 | 12"));
  QCOMPARE(IDs("V9"), QStringLiteral("1 | 5 | 6 | 7 | 8 | 9 | 11 | 12"));
  QCOMPARE(IDs(" V1"), QStringLiteral("1 | 5 | 6 | 7 | 8 | 9 | 11 | 12"));
  // A blank code means the extras whose code is empty.
  QCOMPARE(IDs(""), QStringLiteral("1 | 4 | 5 | 6 | 7 | 8 | 9 | 11 | 12"));
}

void tst_PickPOExtras::shouldOrderIdentifiersAsNumbers() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V1");
  QCOMPARE(support::Column(*Dialog, "Descript").front(), std::string("A88"));
  SqlFor(*Dialog, 1, true);
  QCOMPARE(support::Column(*Dialog, "Descript").front(), std::string("a99"));
  SqlFor(*Dialog, 0, true);
  QCOMPARE(support::Column(*Dialog, "ID").front(), std::string("12"));
  QCOMPARE(support::Column(*Dialog, "ID").back(), std::string("1"));
}

void tst_PickPOExtras::shouldShowTheWholeListWhenTheSearchFails() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V1");
  // A statement as long as this one becomes is too long for this server; the one without the find line is not.
  const picks::TShortStatements Short(Company.Database(), 1000);
  for (const bool Descending : {false, true}) {
    SqlFor(*Dialog, 0, Descending, 1, QString(2000, 'x'));
    QCOMPARE(support::SqlLines(*Dialog),
             (TLines{"SELECT ID, Descript, Cost, ID SortFld\nFROM IPDetExtraMaster\nWHERE ((VendID IS NULL) OR (VendID "
                     "= 'V1'))",
                     Descending ? "ORDER BY SortFld DESC" : "ORDER BY SortFld"}));
    QCOMPARE(Dialog->qryList_->RecordCount(), 10);
  }
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, SqlFor(*Dialog, -1, false, 1, "x"));
  QCOMPARE(support::SqlLines(*Dialog).size(), std::size_t{2});
}

void tst_PickPOExtras::shouldNotShowAListWithoutRows() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddParties(Company);
  Company.Execute("INSERT INTO IPDetExtraMaster (Descript, Cost, VendID) VALUES ('Freight', 1, 'V2')");
  TIntegerList List;
  List.Add(7);
  bool Shown = false;
  QTimer Watch;
  QObject::connect(&Watch, &QTimer::timeout, [&] {
    if (QWidget* Dialog = QApplication::activeModalWidget()) {
      Shown = true;
      Dialog->close();
    }
  });
  Watch.start(1);
  QVERIFY(!CallPickPOExtras(Company.Connection(), "V1", &List));
  QVERIFY(!CallPickPOExtras(Company.Connection(), "V1", nullptr));
  QCOMPARE(ValuesOf(List), TIDs{7});
  QTest::qWait(30);
  QVERIFY(!Shown);
}

void tst_PickPOExtras::shouldShowAListThatASearchHasEmptied() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  TIntegerList List;
  support::DrivePickAs<TfrmPickPOExtras>([&] { return CallPickPOExtras(Company.Connection(), "V1", &List); },
                                         [](TfrmPickPOExtras& Dialog) {
                                           support::TypeFind(Dialog, "nothing is called this");
                                           QVERIFY(Dialog.isVisible());
                                           QVERIFY(Dialog.qryList_->IsEmpty());
                                           QVERIFY(!Dialog.bbnOK->isEnabled());
                                           support::TypeFind(Dialog, "");
                                           QCOMPARE(Dialog.qryList_->RecordCount(), 10);
                                         });
}

void tst_PickPOExtras::shouldFillTheListInTheOrderOfTheRows() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  TIntegerList List;
  List.Add(7);
  QVERIFY(support::DrivePickAs<TfrmPickPOExtras>([&] { return CallPickPOExtras(Company.Connection(), "V1", &List); },
                                                 [](TfrmPickPOExtras& Dialog) {
                                                   support::ChooseOrderBy(Dialog, 0);
                                                   support::DoubleClickRow(Dialog, 7);
                                                   support::DoubleClickRow(Dialog, 1);
                                                   support::DoubleClickRow(Dialog, 0);
                                                   support::DoubleClickRow(Dialog, 0);
                                                   support::ClickOK(Dialog);
                                                 }));
  QCOMPARE(ValuesOf(List), (TIDs{2, 10}));
}

void tst_PickPOExtras::shouldLeaveTheCursorAtTheEnd() {
  TTestCompany Company(TTestCompany::TRows::None);
  AddExtras(Company);
  const auto Dialog = TfrmPickPOExtras::Create(Company.Connection(), "V1");
  Dialog->mniAllClick();
  TIntegerList List;
  Dialog->GetIDs(&List);
  QCOMPARE(List.Count(), 10);
  QVERIFY(Dialog->qryList_->Eof());
  QCOMPARE(Dialog->qryList_->RecNo(), 10);
}

void tst_PickPOExtras::shouldClearTheListWhenNothingIsTicked() {
  TTestCompany Company;
  TIntegerList List;
  List.Add(7);
  QVERIFY(
      support::DrivePickAs<TfrmPickPOExtras>([&] { return CallPickPOExtras(Company.Connection(), "V00001", &List); },
                                             [](TfrmPickPOExtras& Dialog) {
                                               SaveShot(Dialog, "po-extras");
                                               QVERIFY(!Dialog.bbnOK->isEnabled());
                                               Dialog.actOKExecute();
                                             }));
  QCOMPARE(List.Count(), 0);
}

void tst_PickPOExtras::shouldTouchNoListThatIsNull() {
  TTestCompany Company;
  QVERIFY(
      support::DrivePickAs<TfrmPickPOExtras>([&] { return CallPickPOExtras(Company.Connection(), "V00001", nullptr); },
                                             [](TfrmPickPOExtras& Dialog) {
                                               Dialog.mniAll->trigger();
                                               support::ClickOK(Dialog);
                                             }));
}

void tst_PickPOExtras::shouldLeaveTheListAloneWhenCancelled() {
  TTestCompany Company;
  TIntegerList List;
  List.Add(7);
  QVERIFY(
      !support::DrivePickAs<TfrmPickPOExtras>([&] { return CallPickPOExtras(Company.Connection(), "V00001", &List); },
                                              [](TfrmPickPOExtras& Dialog) {
                                                Dialog.mniAll->trigger();
                                                support::ClickCancel(Dialog);
                                              }));
  QCOMPARE(ValuesOf(List), TIDs{7});
}

void tst_PickPOExtras::shouldRaiseTheServersErrorToTheCaller() {
  TTestCompany Company;
  TIntegerList List;
  List.Add(7);
  for (const char* Vendor : {"V'1", "'", "O'N"}) {
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickPOExtras(Company.Connection(), Vendor, &List));
  }
  QCOMPARE(ValuesOf(List), TIDs{7});
}

QTEST_MAIN(tst_PickPOExtras)
#include "tst_PickPOExtras.moc"
