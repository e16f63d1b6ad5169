#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/DialogFacts.h"
#include "picks/PickQueries.h"
#include "picks/reference/uPickAPAgeHist.h"
#include "picks/reference/uPickItemHistPeriod.h"
#include "picks/reference/uPickPeriods.h"
#include "support/TestCompany.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

using namespace picks;
using namespace support;
using uPickAPAgeHist::CallAPAgeHistPeriodPick;
using uPickAPAgeHist::TfrmPickAPAgeHist;
using uPickItemHistPeriod::CallPickItemHistPeriod;
using uPickItemHistPeriod::TfrmPickItemHistPeriod;
using uPickPeriods::CallPickPeriod;
using uPickPeriods::TfrmPickPeriods;

namespace {

const char* const WrongDate = "The find text is not a valid date. Please type it as DD/MM/YYYY.";

// Four periods, the first of them closed, one without dates.
void AddPeriods(TTestCompany& Company) {
  Company.Execute(
      QStringLiteral("INSERT INTO Periods (Period, Start, \"End\", Closed) VALUES "
                     "('2512', '2025-06-01', '2025-06-30', '2025-07-20'), ('26a1', '2025-07-01', '2025-07-31', NULL), "
                     "('2602', '2025-08-01', '2025-08-31', NULL), ('2613', NULL, NULL, NULL)"));
}

struct TCompanyWithPeriods : TTestCompany {
  TCompanyWithPeriods() : TTestCompany(TRows::None) { AddPeriods(*this); }
};

QString Periods(TDocPickBase& Dialog) {
  return Joined(Column(Dialog, "Period"));
}

}  // namespace

class tst_PickPeriods : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase();
  void shouldAskForPeriods_data();
  void shouldAskForPeriods();
  void shouldAskForAgingPeriods();
  void shouldAskForItemHistoryPeriods();
  void shouldShowCodeAndDates();
  void shouldDeclareItsFieldsAndTexts();
  void shouldOpenWithTheLatestOpenPeriodFirst();
  void shouldListClosedPeriodsWhenAsked();
  void shouldSortByEachColumnWithMissingDatesFirst();
  void shouldFindACodeInAnyCase();
  void shouldFindThePeriodsOfAFirstOrALastDay();
  void shouldKeepTheListWhenTheDateIsWrong_data();
  void shouldKeepTheListWhenTheDateIsWrong();
  void shouldAcceptAnyTextForACode();
  void shouldReturnThePickedPeriod();
  void shouldEmptyThePeriodOfTheGeneralPick();
  void shouldKeepThePeriodOfTheAgingPick();
  void shouldListAnAgingPeriodOnce();
  void shouldListAgingPeriodsDescendingWhateverIsTicked();
  void shouldFindAgingPeriods();
  void shouldListHistoryPeriodsThatAreNoPeriodAnyMore();
  void shouldFailToOrderTheItemHistoryByStart();
  void shouldShowTheWholeItemHistoryForADate();
  void shouldShowAnEmptyList();
};

void tst_PickPeriods::initTestCase() {
  toolkit::SetShortDateFormat("dd/mm/yyyy");
}

void tst_PickPeriods::shouldAskForPeriods_data() {
  QTest::addColumn<bool>("IncludeClosed");
  QTest::addColumn<QString>("From");
  QTest::newRow("open ones") << false << "FROM Periods P | WHERE 0=0 | AND Closed IS NULL";
  QTest::newRow("all") << true << "FROM Periods P | WHERE 0=0";
}

void tst_PickPeriods::shouldAskForPeriods() {
  QFETCH(bool, IncludeClosed);
  QFETCH(QString, From);
  TCompanyWithPeriods Company;
  const auto Dialog = TfrmPickPeriods::Create(Company.Connection(), IncludeClosed);
  CompareSql(*Dialog,
             {{"SELECT P.Period, P.[Start], P.[End], UPPER(P.Period) SortFld",
               "SELECT P.Period, P.[Start], P.[End], P.[Start] SortFld",
               "SELECT P.Period, P.[Start], P.[End], P.[End] SortFld"},
              From,
              " 1/8/25 ",
              {"AND UPPER(P.Period) LIKE '%1/8/25%'", "AND P.[Start] = '2025-08-01'", "AND P.[End] = '2025-08-01'"}});
}

void tst_PickPeriods::shouldAskForAgingPeriods() {
  TCompanyWithPeriods Company;
  const auto Dialog = TfrmPickAPAgeHist::Create(Company.Connection());
  const QStringList Selects{"SELECT P.Period, P.Start, P.[End], UPPER(P.Period) SortFld",
                            "SELECT P.Period, P.Start, P.[End], P.Start SortFld",
                            "SELECT P.Period, P.Start, P.[End], P.[End] SortFld"};
  const QStringList Finds{"AND UPPER(P.Period) LIKE '%01/08/2025%'", "AND P.Start = '2025-08-01'",
                          "AND P.[End] = '2025-08-01'"};
  const QString From = " | FROM Periods P INNER JOIN APAgeHist H ON P.Period = H.Period | WHERE 0=0";
  const QString End = " | GROUP BY P.Period, P.Start, P.[End] | ORDER BY SortFld DESC";
  for (int OrderBy = 0; OrderBy < 3; ++OrderBy) {
    for (const bool Descending : {false, true}) {
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending), Selects[OrderBy] + From + End);
      for (int FindBy = 0; FindBy < 3; ++FindBy) {
        QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, FindBy, "01/08/2025"),
                 Selects[OrderBy] + From + " | " + Finds[FindBy] + End);
      }
    }
  }
  // An order that there is not gives no SELECT line: what is asked for at last is the rebuilt query.
  Ask(*Dialog, -1, false, 0, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)),
           QString("FROM Periods P INNER JOIN APAgeHist H ON P.Period = H.Period\nWHERE 0=0" + End));
}

void tst_PickPeriods::shouldAskForItemHistoryPeriods() {
  TCompanyWithPeriods Company;
  const auto Dialog = TfrmPickItemHistPeriod::Create(Company.Connection());
  const QString From = "FROM IPHistParents I LEFT OUTER JOIN Periods P ON I.Period = P.Period";
  const QMap<int, QString> Selects{{0, "SELECT I.Period, P.Start, P.[End], UPPER(I.Period) SortFld"},
                                   {2, "SELECT I.Period, P.Start, P.[End], P.[End] SortFld"}};
  for (const int OrderBy : {0, 2}) {
    for (const bool Descending : {false, true}) {
      const QString End = Descending ? " | ORDER BY SortFld DESC" : " | ORDER BY SortFld";
      const QString Start = Selects[OrderBy] + " | " + From + " | WHERE 0=0";
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending), Start + End);
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, 0, "it's"), Start + " | AND UPPER(I.Period) LIKE '%IT''S%'" + End);
      // A date is looked for in the history, which has none: the list is asked for again without it.
      const QString Rebuilt = Selects[OrderBy] + "\n" + From + "\nWHERE 0=0" + End;
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, 1, "01/08/2025"), Rebuilt);
      QCOMPARE(SqlFor(*Dialog, OrderBy, Descending, 2, "01/08/2025"), Rebuilt);
    }
  }
}

void tst_PickPeriods::shouldShowCodeAndDates() {
  TCompanyWithPeriods Company;
  const auto General = TfrmPickPeriods::Create(Company.Connection(), false);
  const auto Aging = TfrmPickAPAgeHist::Create(Company.Connection());
  const auto History = TfrmPickItemHistPeriod::Create(Company.Connection());
  for (TDocPickBase* Dialog : {static_cast<TDocPickBase*>(General.get()), static_cast<TDocPickBase*>(Aging.get()),
                               static_cast<TDocPickBase*>(History.get())}) {
    QCOMPARE(Joined(ColumnNames(*Dialog)), QString("Period | Start | End"));
    const auto& Columns = Dialog->dbgAvail->Columns();
    QCOMPARE(Columns[0]->Alignment(), toolkit::TAlignment::taLeftJustify);
    for (const int Date : {1, 2}) {
      QCOMPARE(Columns[Date]->Alignment(), toolkit::TAlignment::taCenter);
      QCOMPARE(Columns[Date]->TitleAlignment(), toolkit::TAlignment::taCenter);
      QCOMPARE(Columns[Date]->Field()->DataType(), ads::TFieldType::ftDate);
    }
    QCOMPARE(Joined(Items(*Dialog->rgFindBy)), QString("Period | Start | End"));
    QCOMPARE(Joined(Items(*Dialog->rgOrderBy)), QString("Period | Start | End"));
    QCOMPARE(Dialog->rgFindBy->ItemIndex(), 0);
    QCOMPARE(Dialog->rgOrderBy->ItemIndex(), 0);
    QVERIFY(Dialog->ShowIfEmpty);
    QCOMPARE(Dialog->ckbDesc->isChecked(), Dialog == General.get());
  }
  QCOMPARE(General->windowTitle(), QString("Select Period"));
  QCOMPARE(General->gbList->title(), QString("Available Periods"));
  QCOMPARE(Aging->windowTitle(), QString("Select Aging History Period"));
  QCOMPARE(Aging->gbList->title(), QString("Available Aging History Periods"));
  QCOMPARE(History->windowTitle(), QString("Select Period"));
  QCOMPARE(History->gbList->title(), QString("Available Periods"));
  QCOMPARE(Joined(ShownColumn(*General, "Start")), QString("01/07/2025 |  | 01/08/2025"));
}

void tst_PickPeriods::shouldDeclareItsFieldsAndTexts() {
  TCompanyWithPeriods Company;
  const TNumberedTexts Texts;
  TDeclared Declared{"Period string 4 | Start date | End date",
                     "Period T3054 left/left | Start T3055 centre/centre | End T3056 centre/centre", "T153", "T214",
                     "T3054 | T3055 | T3056"};
  CompareDeclared(*TfrmPickPeriods::Create(Company.Connection(), false), Declared);
  CompareDeclared(*TfrmPickItemHistPeriod::Create(Company.Connection()), Declared);
  Declared.Caption = "Aging History Period";
  Declared.Available = "Aging History Periods";
  CompareDeclared(*TfrmPickAPAgeHist::Create(Company.Connection()), Declared);
}

void tst_PickPeriods::shouldOpenWithTheLatestOpenPeriodFirst() {
  TCompanyWithPeriods Company;
  std::string Period;
  DrivePick([&] { return CallPickPeriod(Company.Connection(), false, Period); },
            [](TDocPickBase& Dialog) {
              QVERIFY(Dialog.ckbDesc->isChecked());
              QCOMPARE(Periods(Dialog), QString("26a1 | 2613 | 2602"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Periods(Dialog), QString("2602 | 2613 | 26a1"));
            });
}

void tst_PickPeriods::shouldListClosedPeriodsWhenAsked() {
  TCompanyWithPeriods Company;
  std::string Period;
  DrivePick([&] { return CallPickPeriod(Company.Connection(), true, Period); },
            [](TDocPickBase& Dialog) { QCOMPARE(Periods(Dialog), QString("26a1 | 2613 | 2602 | 2512")); });
}

void tst_PickPeriods::shouldSortByEachColumnWithMissingDatesFirst() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("UPDATE Periods SET \"End\" = '2025-12-31' WHERE Period = '26a1'"));
  std::string Period;
  DrivePick([&] { return CallPickPeriod(Company.Connection(), true, Period); },
            [](TDocPickBase& Dialog) {
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Periods(Dialog), QString("2602 | 26a1 | 2512 | 2613"));
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Periods(Dialog), QString("2613 | 2512 | 26a1 | 2602"));
              ChooseOrderBy(Dialog, 2);
              QCOMPARE(Periods(Dialog), QString("2613 | 2512 | 2602 | 26a1"));
            });
}

void tst_PickPeriods::shouldFindACodeInAnyCase() {
  TCompanyWithPeriods Company;
  std::string Period;
  DrivePick([&] { return CallPickPeriod(Company.Connection(), false, Period); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "6A");
              QCOMPARE(Periods(Dialog), QString("26a1"));
              TypeFind(Dialog, "2512");
              QCOMPARE(Periods(Dialog), QString());
              QVERIFY(!Dialog.bbnOK->isEnabled());
              TypeFind(Dialog, "");
              QCOMPARE(Periods(Dialog), QString("26a1 | 2613 | 2602"));
            });
}

void tst_PickPeriods::shouldFindThePeriodsOfAFirstOrALastDay() {
  TCompanyWithPeriods Company;
  std::string Period;
  const bool Chosen = DrivePick([&] { return CallPickPeriod(Company.Connection(), false, Period); },
                                [](TDocPickBase& Dialog) {
                                  ChooseFindBy(Dialog, 1);
                                  TypeFind(Dialog, "1/8/2025");
                                  QCOMPARE(Periods(Dialog), QString("2602"));
                                  TypeFind(Dialog, "2/8/2025");
                                  QCOMPARE(Periods(Dialog), QString());
                                  ChooseFindBy(Dialog, 2);
                                  QCOMPARE(Periods(Dialog), QString("26a1 | 2613 | 2602"));
                                  TypeFind(Dialog, "31/07/25");
                                  QCOMPARE(Periods(Dialog), QString("26a1"));
                                  ClickOK(Dialog);
                                });
  QVERIFY(Chosen);
  QCOMPARE(Period, std::string("26a1"));
}

void tst_PickPeriods::shouldKeepTheListWhenTheDateIsWrong_data() {
  QTest::addColumn<int>("FindBy");
  QTest::addColumn<QString>("Typed");
  QTest::newRow("no such day") << 1 << "31/02/2025";
  QTest::newRow("no date") << 1 << "July";
  QTest::newRow("the last day") << 2 << "32/1/2025";
  QTest::newRow("another order") << 2 << "2025-07-31";
}

void tst_PickPeriods::shouldKeepTheListWhenTheDateIsWrong() {
  QFETCH(int, FindBy);
  QFETCH(QString, Typed);
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO APAgeHist (Period, VendID) VALUES ('26a1', 'V1'), ('2602', 'V1')"));
  Company.Execute(QStringLiteral("INSERT INTO IPHistParents (Period) VALUES ('26a1'), ('2602')"));
  std::string Period;
  const std::vector<std::function<bool()>> Calls{
      [&] { return CallPickPeriod(Company.Connection(), false, Period); },
      [&] { return CallAPAgeHistPeriodPick(Company.Connection(), Period); },
      [&] { return CallPickItemHistPeriod(Company.Connection(), Period); },
  };
  for (const auto& Call : Calls) {
    const TErrorBoxes Boxes;
    DrivePick(Call, [&](TDocPickBase& Dialog) {
      const QString Before = Periods(Dialog);
      ChooseFindBy(Dialog, FindBy);
      const auto Sql = SqlLines(Dialog);
      Dialog.qryList_->Last();
      TypeFind(Dialog, Typed);
      QCOMPARE(Boxes.Messages(), std::vector<std::string>{WrongDate});
      QVERIFY(Dialog.isVisible());
      QCOMPARE(Periods(Dialog), Before);
      QCOMPARE(Dialog.qryList_->RecNo(), Dialog.qryList_->RecordCount());
      QCOMPARE(SqlLines(Dialog), Sql);
      QCOMPARE(Dialog.edFind->text(), Typed);
      // A host that asks by itself gets the failure.
      QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, Dialog.SetSQL());
      QCOMPARE(SqlLines(Dialog), Sql);
    });
  }
}

void tst_PickPeriods::shouldAcceptAnyTextForACode() {
  TCompanyWithPeriods Company;
  std::string Period;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickPeriod(Company.Connection(), false, Period); },
            [](TDocPickBase& Dialog) {
              for (const char* Typed : {"'", "''", "%", "_", "[", "\"", "--", ";", "é"}) {
                TypeFind(Dialog, QString::fromUtf8(Typed));
                QCOMPARE(Periods(Dialog), QString(*Typed == '%' || *Typed == '_' ? "26a1 | 2613 | 2602" : ""));
              }
            });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickPeriods::shouldReturnThePickedPeriod() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO APAgeHist (Period, VendID) VALUES ('26a1', 'V1'), ('2602', 'V1')"));
  Company.Execute(QStringLiteral("INSERT INTO IPHistParents (Period) VALUES ('26a1'), ('2602')"));
  const auto PickSecond = [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 1); };
  std::string Period = "old";
  QVERIFY(DrivePick([&] { return CallPickPeriod(Company.Connection(), true, Period); }, PickSecond));
  QCOMPARE(Period, std::string("2613"));
  QVERIFY(DrivePick([&] { return CallAPAgeHistPeriodPick(Company.Connection(), Period); }, PickSecond));
  QCOMPARE(Period, std::string("2602"));
  QVERIFY(DrivePick([&] { return CallPickItemHistPeriod(Company.Connection(), Period); }, PickSecond));
  QCOMPARE(Period, std::string("26a1"));
}

void tst_PickPeriods::shouldEmptyThePeriodOfTheGeneralPick() {
  TCompanyWithPeriods Company;
  std::string Period = "old";
  QVERIFY(!DrivePick([&] { return CallPickPeriod(Company.Connection(), false, Period); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Period, std::string());
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Period, std::string());
  Period = "old";
  QVERIFY(!DrivePick([&] { return CallPickItemHistPeriod(Company.Connection(), Period); }, ClickCancel));
  QCOMPARE(Period, std::string());
  Company.Execute(QStringLiteral("DROP TABLE Periods"));
  Period = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickPeriod(Company.Connection(), false, Period));
  QCOMPARE(Period, std::string());
  Period = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallPickItemHistPeriod(Company.Connection(), Period));
  QCOMPARE(Period, std::string());
}

void tst_PickPeriods::shouldKeepThePeriodOfTheAgingPick() {
  TCompanyWithPeriods Company;
  std::string Period = "old";
  QVERIFY(!DrivePick([&] { return CallAPAgeHistPeriodPick(Company.Connection(), Period); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Period, std::string("old"));
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Period, std::string("old"));
  Company.Execute(QStringLiteral("DROP TABLE APAgeHist"));
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, CallAPAgeHistPeriodPick(Company.Connection(), Period));
  QCOMPARE(Period, std::string("old"));
}

void tst_PickPeriods::shouldListAnAgingPeriodOnce() {
  TCompanyWithPeriods Company;
  Company.Execute(
      QStringLiteral("INSERT INTO APAgeHist (Period, VendID) VALUES ('2602', 'V1'), ('2602', 'V2'), "
                     "('2602', 'V3'), ('2512', 'V1'), ('9999', 'V1')"));
  // Closed periods are listed, one that is no period is not.
  QCOMPARE(Periods(*TfrmPickAPAgeHist::Create(Company.Connection())), QString("2602 | 2512"));
}

void tst_PickPeriods::shouldListAgingPeriodsDescendingWhateverIsTicked() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO APAgeHist (Period, VendID) VALUES ('2602', 'V1'), ('2512', 'V1')"));
  std::string Period;
  DrivePick([&] { return CallAPAgeHistPeriodPick(Company.Connection(), Period); },
            [&](TDocPickBase& Dialog) {
              QVERIFY(!Dialog.ckbDesc->isChecked());
              QCOMPARE(Periods(Dialog), QString("2602 | 2512"));
              // The box asks anew all the same.
              Company.Execute(QStringLiteral("INSERT INTO APAgeHist (Period, VendID) VALUES ('26a1', 'V1')"));
              ClickBox(Dialog.ckbDesc);
              QVERIFY(Dialog.ckbDesc->isChecked());
              QCOMPARE(Periods(Dialog), QString("26a1 | 2602 | 2512"));
              ClickBox(Dialog.ckbDesc);
              QVERIFY(!Dialog.ckbDesc->isChecked());
              QCOMPARE(Periods(Dialog), QString("26a1 | 2602 | 2512"));
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Periods(Dialog), QString("2602 | 26a1 | 2512"));
            });
}

void tst_PickPeriods::shouldFindAgingPeriods() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO APAgeHist (Period, VendID) VALUES ('2602', 'V1'), ('26a1', 'V1')"));
  std::string Period;
  DrivePick([&] { return CallAPAgeHistPeriodPick(Company.Connection(), Period); },
            [&](TDocPickBase& Dialog) {
              TypeFind(Dialog, "a");
              QCOMPARE(Periods(Dialog), QString("26a1"));
              ChooseFindBy(Dialog, 1);
              TypeFind(Dialog, "01/08/2025");
              QCOMPARE(Periods(Dialog), QString("2602"));
              ChooseFindBy(Dialog, 2);
              TypeFind(Dialog, "31/07/2025");
              QCOMPARE(Periods(Dialog), QString("26a1"));
            });
}

void tst_PickPeriods::shouldListHistoryPeriodsThatAreNoPeriodAnyMore() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO IPHistParents (Period) VALUES ('2602'), ('1903'), ('26a1')"));
  const auto Dialog = TfrmPickItemHistPeriod::Create(Company.Connection());
  QCOMPARE(Periods(*Dialog), QString("1903 | 2602 | 26a1"));
  QCOMPARE(Joined(ShownColumn(*Dialog, "End")), QString(" | 31/08/2025 | 31/07/2025"));
  SqlFor(*Dialog, 2, true);
  QCOMPARE(Periods(*Dialog), QString("2602 | 26a1 | 1903"));
  SqlFor(*Dialog, 0, false, 0, "a1");
  QCOMPARE(Periods(*Dialog), QString("26a1"));
}

void tst_PickPeriods::shouldFailToOrderTheItemHistoryByStart() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO IPHistParents (Period) VALUES ('2602'), ('26a1')"));
  std::string Period;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickItemHistPeriod(Company.Connection(), Period); },
            [&](TDocPickBase& Dialog) {
              Dialog.qryList_->Last();
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Boxes.Messages().size(), std::size_t{1});
              QVERIFY(Text(Boxes.Messages()[0]).contains("SortFld"));
              QVERIFY(Dialog.isVisible());
              QCOMPARE(Periods(Dialog), QString("2602 | 26a1"));
              QCOMPARE(Dialog.qryList_->RecNo(), 2);
              QVERIFY(Dialog.bbnOK->isEnabled());
              QCOMPARE(Joined(SqlLines(Dialog)),
                       QString("SELECT I.Period, P.Start, P.[End], P.Start, SortFld\n"
                               "FROM IPHistParents I LEFT OUTER JOIN Periods P ON I.Period = P.Period\nWHERE 0=0"
                               " | ORDER BY SortFld"));
              QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog.SetSQL());
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Boxes.Messages().size(), std::size_t{2});
              QCOMPARE(Periods(Dialog), QString("2602 | 26a1"));
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Boxes.Messages().size(), std::size_t{2});
              QCOMPARE(Periods(Dialog), QString("26a1 | 2602"));
            });
}

void tst_PickPeriods::shouldShowTheWholeItemHistoryForADate() {
  TCompanyWithPeriods Company;
  Company.Execute(QStringLiteral("INSERT INTO IPHistParents (Period) VALUES ('2602'), ('26a1')"));
  std::string Period;
  const TErrorBoxes Boxes;
  DrivePick([&] { return CallPickItemHistPeriod(Company.Connection(), Period); },
            [&](TDocPickBase& Dialog) {
              for (const int FindBy : {1, 2}) {
                ChooseFindBy(Dialog, FindBy);
                TypeFind(Dialog, "01/08/2025");
                QCOMPARE(Periods(Dialog), QString("2602 | 26a1"));
                QCOMPARE(Dialog.edFind->text(), QString("01/08/2025"));
              }
            });
  QVERIFY(Boxes.Messages().empty());
}

void tst_PickPeriods::shouldShowAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  std::string Period;
  const std::vector<std::function<bool()>> Calls{
      [&] { return CallPickPeriod(Company.Connection(), true, Period); },
      [&] { return CallAPAgeHistPeriodPick(Company.Connection(), Period); },
      [&] { return CallPickItemHistPeriod(Company.Connection(), Period); },
  };
  for (const auto& Call : Calls) {
    QVERIFY(!DrivePick(Call, [](TDocPickBase& Dialog) {
      QVERIFY(Dialog.isVisible());
      QVERIFY(!Dialog.bbnOK->isEnabled());
      QTest::keyClick(Dialog.dbgAvail, Qt::Key_Return);
      QVERIFY(Dialog.isVisible());
      QTest::keyClick(&Dialog, Qt::Key_Escape);
      QVERIFY(!Dialog.isVisible());
    }));
  }
}

QTEST_MAIN(tst_PickPeriods)
#include "tst_PickPeriods.moc"
