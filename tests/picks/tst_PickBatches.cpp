// The picks of a batch of electronic payments, of a posted ledger batch and of a posted cheque batch.
#include <QPushButton>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "picks/StockDialogs.h"
#include "picks/accounts/uPickEftBatch.h"
#include "picks/accounts/uPickPostedBatch.h"
#include "picks/accounts/uPickPostedChequeBatch.h"
#include "support/NumberedTexts.h"
#include "toolkit/Formats.h"
#include "zulcommon/EZULException.h"

using namespace picks;
using namespace support;
using ads::TFieldType;
using toolkit::TAlignment;
using uPickEftBatch::CallEFTBatchPick;
using uPickEftBatch::TfrmPickEFTBatch;
using uPickPostedBatch::CallPickPostedBatch;
using uPickPostedBatch::TfrmPickPostedBatch;
using uPickPostedChequeBatch::CallPickPostedChequeBatch;
using uPickPostedChequeBatch::TfrmPickPostedChequeBatch;

namespace {

constexpr TAlignment Left = TAlignment::taLeftJustify;
constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;

const char* const WrongDate = "The find text is not a valid date. Please type it as DD/MM/YYYY.";

// Batch 1 of three payments, 2 processed, 3 partly and not posted yet, c4 and 5 without electronic payments; 9 is paid
// but not posted at all. Payables payments are in 1, 2 (over two days) and c4; 5 are bills.
struct TCompanyWithBatches : TTestCompany {
  TCompanyWithBatches() : TTestCompany(TRows::None) {
    Execute(
        "INSERT INTO PstdGLBatch (Batch, Period, \"Desc\", Source, Total) VALUES ('1', '2601', 'b run', 'AP', 35.5), "
        "('2', '2602', 'A Run', 'AP', 1234.5), ('3', '2512', NULL, 'AP', NULL), ('c4', '2601', 'Cheques', 'AP', -7), "
        "('5', NULL, 'Bills', 'GL', 0)");
    Execute(
        "INSERT INTO EFTDetails (Batch, VendID, Posted, Amount, Processed) VALUES ('1', 'V1', '2025-08-01', 10, 0), "
        "('1', 'V2', '2025-08-01', 20, 0), ('1', 'V3', '2025-08-01', 5.5, 0), ('2', 'V1', '2025-07-31', 1234.5, 1), "
        "('3', 'V1', NULL, 1, 0), ('3', 'V2', NULL, 2, 1), ('9', 'V1', '2025-08-01', 99, 0)");
    Execute(
        "INSERT INTO GL (Batch, \"Date\", Period, Source, Amt) VALUES ('1', '2025-08-01', '2601', 'AP', 1), "
        "('1', '2025-08-01', '2601', 'AP', -1), ('2', '2025-07-31', '2602', 'AP', 1), ('2', '2025-08-01', '2602', "
        "'AP', 2), "
        "('c4', '2025-06-30', '2601', 'AP', 1), ('c4', '2025-06-30', '2601', 'AR', 1), ('5', '2025-08-01', '2601', "
        "'AP', 3)");
    Execute(
        "INSERT INTO AP (ID, Type, Batch, Amt) VALUES ('V1', 'PA', '1', 10), ('V2', 'PA', '1', 20), ('V1', 'PA', '2', "
        "1), "
        "('V1', 'PA', 'c4', 5), ('V1', 'IN', 'c4', 5), ('V1', 'IN', '5', 5), ('V1', 'PA', '9', 5)");
  }
};

const QString EftColumns = "SELECT e.Batch, p.[Desc], e.Posted, SUM(e.Amount) Total, e.Processed, ";
const QStringList EftSelects{EftColumns + "UPPER(e.Batch) SortFld", EftColumns + "UPPER(p.[Desc]) SortFld",
                             EftColumns + "e.Posted SortFld"};
const QString EftFrom = "FROM EFTDetails e INNER JOIN PstdGLBatch p ON e.Batch = p.Batch | WHERE 0=0";
const QString EftGroup = " | GROUP BY e.Batch, e.Posted, e.Processed, p.[Desc]";

const QString PostedColumns = "SELECT P.[Batch], P.Period, P.[Desc], P.Source, P.Total, ";
const QStringList PostedSelects{PostedColumns + "UPPER(P.[Batch]) SortFld", PostedColumns + "UPPER(P.[Period]) SortFld",
                                PostedColumns + "UPPER(P.[Desc]) SortFld", PostedColumns + "UPPER(P.[Source]) SortFld"};

const QString ChequeColumns = "SELECT p.Batch, g.[Date], g.Period, p.[Desc], p.Total, ";
const QStringList ChequeSelects{ChequeColumns + "UPPER(p.Batch) SortFld", ChequeColumns + "g.[Date] SortFld",
                                ChequeColumns + "UPPER(p.[Desc]) SortFld"};
const QString ChequeFrom =
    "FROM GL g | INNER JOIN AP a ON g.Batch = a.Batch |   INNER JOIN PstdGLBatch p ON g.Batch = p.Batch | "
    "WHERE g.Source = 'AP' | AND a.Type = 'PA'";
const QString ChequeGroup = " | GROUP BY p.Batch, g.[Date], g.Period, p.[Desc], p.Total";

// Compares the SQL for every order and direction, with and without each find line, with a line behind it.
void CompareGrouped(TDocPickBase& Dialog, const TSqlParts& Parts, const QString& Group) {
  for (int OrderBy = 0; OrderBy < Parts.Selects.size(); ++OrderBy) {
    for (const bool Descending : {false, true}) {
      const QString Start = Parts.Selects[OrderBy] + " | " + Parts.From;
      const QString End = Group + (Descending ? " | ORDER BY SortFld DESC" : " | ORDER BY SortFld");
      QCOMPARE(SqlFor(Dialog, OrderBy, Descending), Start + End);
      QCOMPARE(SqlFor(Dialog, OrderBy, Descending, 0, " \t"), Start + End);
      for (int FindBy = 0; FindBy < Parts.Finds.size(); ++FindBy) {
        QCOMPARE(SqlFor(Dialog, OrderBy, Descending, FindBy, Parts.Typed), Start + " | " + Parts.Finds[FindBy] + End);
      }
    }
  }
}

QString Batches(TDocPickBase& Dialog) {
  return Rows(Dialog, "Batch");
}

using TCall = std::function<bool(ads::TAdsConnection*, std::string&)>;

}  // namespace

class tst_PickBatches : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void initTestCase() { toolkit::SetShortDateFormat("dd/mm/yyyy"); }
  void shouldAskForElectronicPayments_data();
  void shouldAskForElectronicPayments();
  void shouldAskForPostedBatches();
  void shouldAskForChequeBatches();
  void shouldRepeatTheGroupingWhenTheSearchFails();
  void shouldKeepTheTextOfPostedBatchesWhenTheSearchFails();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldShowTheColumnsOfElectronicPayments();
  void shouldShowTheColumnsOfPostedBatches();
  void shouldShowTheColumnsOfChequeBatches();
  void shouldTakeTheTextsByNumber();
  void shouldPutTheProcessedBoxUnderTheDescendingOne();
  void shouldOpenWithoutProcessedBatches();
  void shouldListProcessedBatchesWhenTheBoxIsTicked();
  void shouldAddUpTheLinesOfABatch();
  void shouldSplitABatchThatIsPartlyProcessed();
  void shouldLeaveOutABatchThatIsNotPosted();
  void shouldFindElectronicPayments();
  void shouldSortElectronicPayments();
  void shouldOpenPostedBatchesWithTheHighestCodeFirst();
  void shouldFindAndSortPostedBatches();
  void shouldListBatchesOfPayablesPaymentsOnly();
  void shouldListAChequeBatchOnceADay();
  void shouldFindChequeBatches();
  void shouldKeepTheListWhenTheDateIsWrong_data();
  void shouldKeepTheListWhenTheDateIsWrong();
  void shouldShowTheSystemsDecimals();
  void shouldTickProcessedBatches();
  void shouldReturnTheBatch_data() { AddCalls(); }
  void shouldReturnTheBatch();
  void shouldEmptyTheBatchOnCancel_data() { AddCalls(); }
  void shouldEmptyTheBatchOnCancel();
  void shouldEmptyTheBatchWhenTheDatabaseFails_data() { AddCalls(); }
  void shouldEmptyTheBatchWhenTheDatabaseFails();
  void shouldShowAnEmptyList_data() { AddCalls(); }
  void shouldShowAnEmptyList();

 private:
  static void AddCalls();
  static TCall Call();
};

void tst_PickBatches::AddCalls() {
  QTest::addColumn<int>("Which");
  QTest::addColumn<QString>("Second");
  QTest::newRow("electronic") << 0 << "1";
  QTest::newRow("posted") << 1 << "5";
  QTest::newRow("cheques") << 2 << "2";
}

TCall tst_PickBatches::Call() {
  QFETCH(int, Which);
  const TCall Calls[]{CallEFTBatchPick, CallPickPostedBatch, CallPickPostedChequeBatch};
  return Calls[Which];
}

void tst_PickBatches::shouldAskForElectronicPayments_data() {
  QTest::addColumn<bool>("Processed");
  QTest::newRow("not processed") << false;
  QTest::newRow("all") << true;
}

void tst_PickBatches::shouldAskForElectronicPayments() {
  QFETCH(bool, Processed);
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  Dialog->ckbProcessed->setChecked(Processed);
  CompareGrouped(
      *Dialog,
      {EftSelects,
       EftFrom + (Processed ? "" : " | AND e.Processed = FALSE"),
       " 1/8/25 ",
       {"AND UPPER(e.Batch) LIKE '%1/8/25%'", "AND UPPER(p.[Desc]) LIKE '%1/8/25%'", "AND e.Posted = '2025-08-01'"}},
      EftGroup);
  QCOMPARE(SqlFor(*Dialog, 0, false, 1, " o'é "),
           EftSelects[0] + " | " + EftFrom + (Processed ? "" : " | AND e.Processed = FALSE") +
               " | AND UPPER(p.[Desc]) LIKE '%O''É%'" + EftGroup + " | ORDER BY SortFld");
}

void tst_PickBatches::shouldAskForPostedBatches() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickPostedBatch::Create(Company.Connection());
  CompareSql(*Dialog, {PostedSelects,
                       "FROM PstdGLBatch P | WHERE 0=0",
                       " it's é ",
                       {"AND UPPER(P.Batch) LIKE '%IT''S É%'", "AND UPPER(P.Period) LIKE '%IT''S É%'",
                        "AND UPPER(P.[Desc]) LIKE '%IT''S É%'", "AND UPPER(P.Source) LIKE '%IT''S É%'"}});
}

void tst_PickBatches::shouldAskForChequeBatches() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickPostedChequeBatch::Create(Company.Connection());
  CompareGrouped(*Dialog,
                 {ChequeSelects,
                  ChequeFrom,
                  "01/08/2025",
                  {"AND UPPER(p.Batch) LIKE '%01/08/2025%'", "AND g.[Date] = '2025-08-01'",
                   "AND UPPER(p.[Desc]) LIKE '%01/08/2025%'"}},
                 ChequeGroup);
}

void tst_PickBatches::shouldRepeatTheGroupingWhenTheSearchFails() {
  TCompanyWithBatches Company;
  const auto Electronic = TfrmPickEFTBatch::Create(Company.Connection());
  const QString Kept = QString(EftFrom + " | AND e.Processed = FALSE").replace(" | ", "\n");
  CompareRebuilt(*Electronic, Company, EftSelects, 2, "\n", Kept + EftGroup);
  const auto Cheques = TfrmPickPostedChequeBatch::Create(Company.Connection());
  CompareRebuilt(*Cheques, Company, ChequeSelects, 1, "\n", QString(ChequeFrom).replace(" | ", "\n") + ChequeGroup);
}

void tst_PickBatches::shouldKeepTheTextOfPostedBatchesWhenTheSearchFails() {
  TCompanyWithBatches Company;
  const auto Posted = TfrmPickPostedBatch::Create(Company.Connection());
  CompareRebuilt(*Posted, Company, PostedSelects, 4, "\n", "FROM PstdGLBatch P\nWHERE 0=0");
}

void tst_PickBatches::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  Ask(*Dialog, -1, true, -1, "x");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(Joined(SqlLines(*Dialog)), QString(EftFrom + " | AND e.Processed = FALSE").replace(" | ", "\n") + EftGroup +
                                          " | ORDER BY SortFld DESC");
}

void tst_PickBatches::shouldShowTheColumnsOfElectronicPayments() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  // The dates of Posted stand in the middle, its title stays at the left.
  CompareColumns(*Dialog, {{"Batch", "Batch", 0, Right, Right},
                           {"Desc", "Description", 150, Left, Left},
                           {"Posted", "Posted", 0, Centre, Left},
                           {"Total", "Total", 0, Right, Right},
                           {"Processed", "P", 16, Centre, Centre}});
  CompareFields(*Dialog, {{"Batch", TFieldType::ftString, 8},
                          {"Desc", TFieldType::ftString, 35},
                          {"Posted", TFieldType::ftDate, 0},
                          {"Total", TFieldType::ftFloat, 0},
                          {"Processed", TFieldType::ftBoolean, 0}});
  CompareChoices(*Dialog, "Batch | Description | Posted", 1);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QCOMPARE(Dialog->windowTitle(), QString("Select Batch"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Batches"));
}

void tst_PickBatches::shouldShowTheColumnsOfPostedBatches() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickPostedBatch::Create(Company.Connection());
  CompareColumns(*Dialog, {{"Batch", "Batch", 0, Right, Right},
                           {"Period", "Period", 0, Right, Right},
                           {"Desc", "Description", 150, Left, Left},
                           {"Source", "Source", 0, Left, Left},
                           {"Total", "Total", 0, Right, Right}});
  CompareFields(*Dialog, {{"Batch", TFieldType::ftString, 8},
                          {"Period", TFieldType::ftString, 4},
                          {"Desc", TFieldType::ftString, 35},
                          {"Source", TFieldType::ftString, 2},
                          {"Total", TFieldType::ftFloat, 0}});
  CompareChoices(*Dialog, "Batch | Period | Description | Source", 0);
  QVERIFY(Dialog->ckbDesc->isChecked());
  QCOMPARE(Dialog->windowTitle(), QString("Select Posted Batch"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Posted Batchs"));
}

void tst_PickBatches::shouldShowTheColumnsOfChequeBatches() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickPostedChequeBatch::Create(Company.Connection());
  CompareColumns(*Dialog, {{"Batch", "Batch", 0, Right, Right},
                           {"Date", "Date", 0, Centre, Centre},
                           {"Period", "Period", 0, Left, Left},
                           {"Desc", "Description", 120, Left, Left},
                           {"Total", "Total", 0, Right, Right}});
  CompareFields(*Dialog, {{"Batch", TFieldType::ftString, 8},
                          {"Date", TFieldType::ftDate, 0},
                          {"Period", TFieldType::ftString, 4},
                          {"Desc", TFieldType::ftString, 35},
                          {"Total", TFieldType::ftFloat, 0}});
  CompareChoices(*Dialog, "Batch | Date | Description", 2);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QCOMPARE(Dialog->windowTitle(), QString("Select Batch"));
  QCOMPARE(Dialog->gbList->title(), QString("Available Batches"));
}

void tst_PickBatches::shouldTakeTheTextsByNumber() {
  TCompanyWithBatches Company;
  const TNumberedTexts Texts;
  const auto Electronic = TfrmPickEFTBatch::Create(Company.Connection());
  CompareChoices(*Electronic, "T3079 | T3007 | T3209", 1);
  QCOMPARE(Electronic->qryList_Total->DisplayLabel(), std::string("T3023"));
  const auto Posted = TfrmPickPostedBatch::Create(Company.Connection());
  CompareChoices(*Posted, "T3079 | T3054 | T3007 | T3139", 0);
  QCOMPARE(Posted->qryList_Total->DisplayLabel(), std::string("T3023"));
  QCOMPARE(Posted->AvailableCaption, std::string("Posted Batchs"));
  QCOMPARE(Posted->PickCaption, std::string("Posted Batch"));
  const auto Cheques = TfrmPickPostedChequeBatch::Create(Company.Connection());
  CompareChoices(*Cheques, "T3079 | T3002 | T3007", 2);
  QCOMPARE(Cheques->qryList_Total->DisplayLabel(), std::string("T3023"));
  QCOMPARE(Cheques->qryList_Period->DisplayLabel(), std::string("T3054"));
  for (const TDocPickBase* Dialog :
       {static_cast<TDocPickBase*>(Electronic.get()), static_cast<TDocPickBase*>(Cheques.get())}) {
    QCOMPARE(Dialog->PickCaption, std::string("T215"));
    QCOMPARE(Dialog->AvailableCaption, std::string("T311"));
  }
}

void tst_PickBatches::shouldPutTheProcessedBoxUnderTheDescendingOne() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  const QCheckBox* Box = Dialog->ckbProcessed;
  QCOMPARE(Box->objectName(), QString("ckbProcessed"));
  QCOMPARE(Box->text(), QString("Processed"));
  QCOMPARE(Box->geometry(), QRect(Dialog->ckbDesc->pos() + QPoint(0, Dialog->ckbDesc->height()), QSize(75, 14)));
  QVERIFY(!Box->isChecked());
  QVERIFY(!Box->isHidden());
}

void tst_PickBatches::shouldOpenWithoutProcessedBatches() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  QCOMPARE(Batches(*Dialog), QString("3 | 1"));
  QCOMPARE(Rows(*Dialog, "Desc"), QString(" | b run"));
}

void tst_PickBatches::shouldListProcessedBatchesWhenTheBoxIsTicked() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePickAs<TfrmPickEFTBatch>([&] { return CallEFTBatchPick(Company.Connection(), Batch); },
                                [](TfrmPickEFTBatch& Dialog) {
                                  ClickBox(Dialog.ckbProcessed);
                                  QCOMPARE(Batches(Dialog), QString("3 | 3 | 2 | 1"));
                                  TypeFind(Dialog, "run");
                                  ClickBox(Dialog.ckbProcessed);
                                  QCOMPARE(Batches(Dialog), QString("1"));
                                });
}

void tst_PickBatches::shouldAddUpTheLinesOfABatch() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  QVERIFY(Dialog->qryList_->Locate("Batch", "1"));
  QCOMPARE(Dialog->qryList_Total->DisplayText(), std::string("35.50"));
  QCOMPARE(Dialog->qryList_Posted->DisplayText(), std::string("01/08/2025"));
}

void tst_PickBatches::shouldSplitABatchThatIsPartlyProcessed() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickEFTBatch::Create(Company.Connection());
  Dialog->ckbProcessed->setChecked(true);
  QVERIFY(Dialog->qryList_->Locate("Batch", "3"));
  QCOMPARE(Dialog->qryList_->RecordCount(), 4);
  QCOMPARE(ShownRows(*Dialog, "Total"), QString("1.00 | 2.00 | 1,234.50 | 35.50"));
  QCOMPARE(Rows(*Dialog, "Processed"), QString("False | True | True | False"));
}

void tst_PickBatches::shouldLeaveOutABatchThatIsNotPosted() {
  TCompanyWithBatches Company;
  const auto Electronic = TfrmPickEFTBatch::Create(Company.Connection());
  QVERIFY(!Electronic->qryList_->Locate("Batch", "9"));
  const auto Cheques = TfrmPickPostedChequeBatch::Create(Company.Connection());
  QVERIFY(!Cheques->qryList_->Locate("Batch", "9"));
}

void tst_PickBatches::shouldFindElectronicPayments() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePickAs<TfrmPickEFTBatch>([&] { return CallEFTBatchPick(Company.Connection(), Batch); },
                                [](TfrmPickEFTBatch& Dialog) {
                                  ClickBox(Dialog.ckbProcessed);
                                  TypeFind(Dialog, " A rUN");
                                  QCOMPARE(Batches(Dialog), QString("2"));
                                  ChooseFindBy(Dialog, 2);
                                  QCOMPARE(Dialog.qryList_->RecordCount(), 4);
                                  TypeFind(Dialog, "1/8/2025");
                                  QCOMPARE(Batches(Dialog), QString("1"));
                                  TypeFind(Dialog, "2/8/2025");
                                  QVERIFY(Dialog.qryList_->IsEmpty());
                                  QVERIFY(!Dialog.bbnOK->isEnabled());
                                  ChooseFindBy(Dialog, 0);
                                  TypeFind(Dialog, "3");
                                  QCOMPARE(Batches(Dialog), QString("3 | 3"));
                                });
}

void tst_PickBatches::shouldSortElectronicPayments() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePickAs<TfrmPickEFTBatch>([&] { return CallEFTBatchPick(Company.Connection(), Batch); },
                                [](TfrmPickEFTBatch& Dialog) {
                                  ClickBox(Dialog.ckbProcessed);
                                  ChooseOrderBy(Dialog, 2);
                                  QCOMPARE(Batches(Dialog), QString("3 | 3 | 2 | 1"));
                                  ClickBox(Dialog.ckbDesc);
                                  QCOMPARE(Batches(Dialog).left(5), QString("1 | 2"));
                                  ChooseOrderBy(Dialog, 0);
                                  QCOMPARE(Batches(Dialog), QString("3 | 3 | 2 | 1"));
                                });
}

void tst_PickBatches::shouldOpenPostedBatchesWithTheHighestCodeFirst() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickPostedBatch::Create(Company.Connection());
  QCOMPARE(Batches(*Dialog), QString("c4 | 5 | 3 | 2 | 1"));
}

void tst_PickBatches::shouldFindAndSortPostedBatches() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePick([&] { return CallPickPostedBatch(Company.Connection(), Batch); },
            [](TDocPickBase& Dialog) {
              TypeFind(Dialog, "C");
              QCOMPARE(Batches(Dialog), QString("c4"));
              ChooseFindBy(Dialog, 1);
              TypeFind(Dialog, "26");
              QCOMPARE(Batches(Dialog), QString("c4 | 2 | 1"));
              ChooseFindBy(Dialog, 2);
              TypeFind(Dialog, "RUN");
              QCOMPARE(Batches(Dialog), QString("2 | 1"));
              ChooseFindBy(Dialog, 3);
              TypeFind(Dialog, "gl");
              QCOMPARE(Batches(Dialog), QString("5"));
              TypeFind(Dialog, "");
              ClickBox(Dialog.ckbDesc);
              QCOMPARE(Batches(Dialog), QString("1 | 2 | 3 | 5 | c4"));
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Rows(Dialog, "Period"), QString(" | 2512 | 2601 | 2601 | 2602"));
              ChooseOrderBy(Dialog, 2);
              QCOMPARE(Rows(Dialog, "Desc"), QString(" | A Run | b run | Bills | Cheques"));
              ChooseOrderBy(Dialog, 3);
              QCOMPARE(Rows(Dialog, "Source"), QString("AP | AP | AP | AP | GL"));
            });
}

void tst_PickBatches::shouldListBatchesOfPayablesPaymentsOnly() {
  TCompanyWithBatches Company;
  const auto Dialog = TfrmPickPostedChequeBatch::Create(Company.Connection());
  QVERIFY(!Dialog->qryList_->Locate("Batch", "5"));
  QVERIFY(!Dialog->qryList_->Locate("Batch", "3"));
  Company.Execute("UPDATE GL SET Source = 'GL' WHERE Batch = '1'");
  Dialog->CallSetSQL();
  QVERIFY(!Dialog->qryList_->Locate("Batch", "1"));
}

void tst_PickBatches::shouldListAChequeBatchOnceADay() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePick([&] { return CallPickPostedChequeBatch(Company.Connection(), Batch); },
            [](TDocPickBase& Dialog) {
              ChooseOrderBy(Dialog, 1);
              QCOMPARE(Batches(Dialog).left(2), QString("c4"));
              QCOMPARE(Rows(Dialog, "Date"), QString("2025-06-30 | 2025-07-31 | 2025-08-01 | 2025-08-01"));
              ChooseOrderBy(Dialog, 0);
              QCOMPARE(Batches(Dialog), QString("1 | 2 | 2 | c4"));
              QCOMPARE(ShownRows(Dialog, "Total"), QString("35.50 | 1,234.50 | 1,234.50 | -7.00"));
            });
}

void tst_PickBatches::shouldFindChequeBatches() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePick([&] { return CallPickPostedChequeBatch(Company.Connection(), Batch); },
            [](TDocPickBase& Dialog) {
              QCOMPARE(Rows(Dialog, "Desc"), QString("A Run | A Run | b run | Cheques"));
              TypeFind(Dialog, "chEQ");
              QCOMPARE(Batches(Dialog), QString("c4"));
              ChooseFindBy(Dialog, 1);
              TypeFind(Dialog, "31/7/2025");
              QCOMPARE(Batches(Dialog), QString("2"));
              ChooseFindBy(Dialog, 0);
              TypeFind(Dialog, "C");
              QCOMPARE(Batches(Dialog), QString("c4"));
            });
}

void tst_PickBatches::shouldKeepTheListWhenTheDateIsWrong_data() {
  QTest::addColumn<bool>("Electronic");
  QTest::addColumn<int>("FindBy");
  QTest::addColumn<QString>("Typed");
  for (const char* Typed : {"32/1/2025", "yesterday", "2025-08-01"}) {
    QTest::addRow("electronic, %s", Typed) << true << 2 << QString(Typed);
    QTest::addRow("cheques, %s", Typed) << false << 1 << QString(Typed);
  }
}

void tst_PickBatches::shouldKeepTheListWhenTheDateIsWrong() {
  QFETCH(bool, Electronic);
  QFETCH(int, FindBy);
  QFETCH(QString, Typed);
  TCompanyWithBatches Company;
  std::string Batch;
  const TErrorBoxes Boxes;
  DrivePick(
      [&] {
        return Electronic ? CallEFTBatchPick(Company.Connection(), Batch)
                          : CallPickPostedChequeBatch(Company.Connection(), Batch);
      },
      [&](TDocPickBase& Dialog) {
        ChooseFindBy(Dialog, FindBy);
        const QString Before = Batches(Dialog);
        const auto Sql = SqlLines(Dialog);
        Dialog.qryList_->Last();
        TypeFind(Dialog, Typed);
        QCOMPARE(Boxes.Messages(), std::vector<std::string>{WrongDate});
        QCOMPARE(Batches(Dialog), Before);
        QCOMPARE(SqlLines(Dialog), Sql);
        QCOMPARE(Dialog.qryList_->RecNo(), Dialog.qryList_->RecordCount());
        QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, Dialog.SetSQL());
      });
}

void tst_PickBatches::shouldShowTheSystemsDecimals() {
  TCompanyWithBatches Company;
  Company.Execute("UPDATE Sys SET PrcDec = 0, QtyDec = 4");
  QCOMPARE(ShownRows(*TfrmPickEFTBatch::Create(Company.Connection()), "Total").section(" | ", 0, 0), QString("1"));
  QCOMPARE(ShownRows(*TfrmPickPostedBatch::Create(Company.Connection()), "Total").section(" | ", 0, 0), QString("-7"));
  Company.Execute("UPDATE Sys SET PrcDec = 3");
  QCOMPARE(ShownRows(*TfrmPickPostedChequeBatch::Create(Company.Connection()), "Total").section(" | ", 0, 0),
           QString("1,234.500"));
}

// The column shows a tick, not a text.
void tst_PickBatches::shouldTickProcessedBatches() {
  TCompanyWithBatches Company;
  std::string Batch;
  DrivePickAs<TfrmPickEFTBatch>(
      [&] { return CallEFTBatchPick(Company.Connection(), Batch); },
      [](TfrmPickEFTBatch& Dialog) {
        ClickBox(Dialog.ckbProcessed);
        const auto BlackPixels = [&Dialog](int Row) {
          const QRect Cell =
              Dialog.dbgAvail->visualRect(Dialog.dbgAvail->model()->index(Row, 4)).adjusted(0, 0, -1, -1);
          const QImage Shown = Dialog.dbgAvail->viewport()->grab().toImage().copy(Cell);
          int Count = 0;
          for (int Y = 0; Y < Shown.height(); ++Y) {
            for (int X = 0; X < Shown.width(); ++X) Count += Shown.pixelColor(X, Y) == QColor(Qt::black) ? 1 : 0;
          }
          return Count;
        };
        // The first row is selected.
        QCOMPARE(Rows(Dialog, "Processed"), QString("False | True | True | False"));
        QVERIFY(BlackPixels(1) > 5);
        QCOMPARE(BlackPixels(2), BlackPixels(1));
        QCOMPARE(BlackPixels(3), 0);
      });
}

void tst_PickBatches::shouldReturnTheBatch() {
  QFETCH(QString, Second);
  TCompanyWithBatches Company;
  std::string Batch = "old";
  QVERIFY(DrivePick([&] { return Call()(Company.Connection(), Batch); },
                    [](TDocPickBase& Dialog) { DoubleClickRow(Dialog, 1); }));
  QCOMPARE(Text(Batch), Second);
}

void tst_PickBatches::shouldEmptyTheBatchOnCancel() {
  TCompanyWithBatches Company;
  std::string Batch = "old";
  QVERIFY(!DrivePick([&] { return Call()(Company.Connection(), Batch); },
                     [&](TDocPickBase& Dialog) {
                       QCOMPARE(Batch, std::string());
                       ClickCancel(Dialog);
                     }));
  QCOMPARE(Batch, std::string());
}

void tst_PickBatches::shouldEmptyTheBatchWhenTheDatabaseFails() {
  TCompanyWithBatches Company;
  Company.Execute("DROP TABLE PstdGLBatch");
  std::string Batch = "old";
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Call()(Company.Connection(), Batch));
  QCOMPARE(Batch, std::string());
}

void tst_PickBatches::shouldShowAnEmptyList() {
  TTestCompany Company(TTestCompany::TRows::None);
  std::string Batch = "old";
  QVERIFY(!DrivePick([&] { return Call()(Company.Connection(), Batch); },
                     [](TDocPickBase& Dialog) {
                       QVERIFY(Dialog.qryList_->IsEmpty());
                       QVERIFY(!Dialog.bbnOK->isEnabled());
                       ClickOK(Dialog);
                       QVERIFY(Dialog.isVisible());
                     }));
  QCOMPARE(Batch, std::string());
}

QTEST_MAIN(tst_PickBatches)
#include "tst_PickBatches.moc"
