// The dialogs over the tables of codes: what they show, what they offer and which SQL they build.
#include <sqlite3.h>

#include <QLineEdit>
#include <QSqlDriver>
#include <QTest>
#include <algorithm>

#include "ReferenceDialogs.h"
#include "ads/EDatabaseError.h"
#include "picks/reference/uPickCity.h"
#include "picks/reference/uPickCostCenter.h"
#include "picks/reference/uPickFinance.h"
#include "picks/reference/uPickGSTRate.h"
#include "picks/reference/uPickUsedPeriodYear.h"
#include "support/NumberedTexts.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"
#include "zulcommon/Text.h"

using reference::TChoiceFacts;
using reference::TColumnFacts;
using reference::TDialogFacts;
using support::SqlLines;
using support::TTestCompany;
using uDocPickBase::TDocPickBase;

namespace {

using TLines = std::vector<std::string>;

const TDialogFacts& Facts() {
  QFETCH(int, Index);
  return reference::Dialogs()[static_cast<std::size_t>(Index)];
}

void AddDialogs() {
  QTest::addColumn<int>("Index");
  int Index = 0;
  for (const TDialogFacts& Dialog : reference::Dialogs()) QTest::newRow(Dialog.Name.c_str()) << Index++;
}

std::string LabelOf(const TDialogFacts& Dialog, const std::string& Field) {
  const auto Found = std::find_if(Dialog.Columns.begin(), Dialog.Columns.end(),
                                  [&](const TColumnFacts& Column) { return Column.Field == Field; });
  return "T" + std::to_string(Found->Label);
}

// Sets the choices and the find text without a query.
void Set(TDocPickBase& Dialog, int OrderBy, int FindBy, bool Descending, const std::string& Typed) {
  const QSignalBlocker Blocker(Dialog.edFind);
  const QSignalBlocker NoDesc(Dialog.ckbDesc);
  Dialog.InSetup = true;
  Dialog.rgFindBy->SetItemIndex(FindBy);
  Dialog.rgOrderBy->SetItemIndex(OrderBy);
  Dialog.InSetup = false;
  Dialog.ckbDesc->setChecked(Descending);
  Dialog.edFind->setText(QString::fromStdString(Typed));
}

std::string OrderByLine(const TDialogFacts& Dialog, bool Descending) {
  return "ORDER BY " + Dialog.SortColumn + (Descending ? " DESC" : "");
}

TLines FilteredLines(const TDialogFacts& Dialog, int OrderBy, int FindBy, bool Descending, const std::string& InSql) {
  TLines Lines{Dialog.Choices[static_cast<std::size_t>(OrderBy)].Select};
  Lines.insert(Lines.end(), Dialog.Base.begin(), Dialog.Base.end());
  if (!InSql.empty()) Lines.push_back(Dialog.Choices[static_cast<std::size_t>(FindBy)].Find + InSql + "%'");
  Lines.push_back(OrderByLine(Dialog, Descending));
  return Lines;
}

// What is put back when the filtered query failed: the text before the find line as one entry.
TLines KeptLines(const TDialogFacts& Dialog, int OrderBy, bool Descending) {
  std::string Kept = Dialog.Choices[static_cast<std::size_t>(OrderBy)].Select;
  for (const std::string& Line : Dialog.Base) Kept += "\n" + Line;
  return {Kept, OrderByLine(Dialog, Descending)};
}

struct TTyped {
  std::string Typed;
  std::string InSql;  // empty: no find line
};
const std::vector<TTyped> TypedTexts{
    {"", ""},
    {"   ", ""},
    {"\t ", ""},
    {"ab", "AB"},
    {"  ab c ", "AB C"},
    {"'", "''"},
    {"o'neil", "O''NEIL"},
    {"''", "''''"},
    {"100%", "100%"},
    {"a_b", "A_B"},
    {"straße", "STRASSE"},
    {"café", "CAFÉ"},
    {"--;/*", "--;/*"},
    {"\\", "\\"},
    {"[x]\"", "[X]\""},
};

// Runs the test over every order x find x direction; `Check` gets the dialog's state.
void ForEveryChoice(const TDialogFacts& Dialog,
                    const std::function<void(int OrderBy, int FindBy, bool Descending)>& Check) {
  const int Count = static_cast<int>(Dialog.Choices.size());
  for (int OrderBy = 0; OrderBy < Count; ++OrderBy) {
    for (int FindBy = 0; FindBy < Count; ++FindBy) {
      for (const bool Descending : {false, true}) Check(OrderBy, FindBy, Descending);
    }
  }
}

// What SQLite has refused to run, with its message.
TLines& Refused() {
  static TLines Messages;
  return Messages;
}

sqlite3* Handle(const TTestCompany& Company) {
  return *static_cast<sqlite3* const*>(Company.Database().driver()->handle().constData());
}

}  // namespace

class tst_PickReference : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void shouldTakeTheCaptionsAndLabelsByNumber_data() { AddDialogs(); }
  void shouldTakeTheCaptionsAndLabelsByNumber();
  void shouldDeclareTheFieldsInOrder_data() { AddDialogs(); }
  void shouldDeclareTheFieldsInOrder();
  void shouldShowTheColumnsInOrder_data() { AddDialogs(); }
  void shouldShowTheColumnsInOrder();
  void shouldOfferTheSameChoicesInBothGroups_data() { AddDialogs(); }
  void shouldOfferTheSameChoicesInBothGroups();
  void shouldBuildTheSqlLetterByLetter_data() { AddDialogs(); }
  void shouldBuildTheSqlLetterByLetter();
  void shouldFindWhatContainsTheText_data() { AddDialogs(); }
  void shouldFindWhatContainsTheText();
  void shouldOrderByTheUpperCasedColumn_data() { AddDialogs(); }
  void shouldOrderByTheUpperCasedColumn();
  void shouldShowTheWholeListWhenTheSearchFails_data() { AddDialogs(); }
  void shouldShowTheWholeListWhenTheSearchFails();
  void shouldTryTheConditionThatNeverWorks_data();
  void shouldTryTheConditionThatNeverWorks();
  void shouldAddNoFindLineForAFindByThatThereIsNot();
  void shouldAddNoSelectLineForAnOrderThatThereIsNot();
  void shouldFormatTheRates();
  void shouldBeWithoutChoicesForTheUsedYears();
  void shouldListEachUsedYearOnceAscending();
  void shouldNotRebuildTheUsedYears();
};

void tst_PickReference::shouldTakeTheCaptionsAndLabelsByNumber() {
  TTestCompany Company;
  const support::TNumberedTexts Texts;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  QCOMPARE(Dialog->Caption(), "Select " + Expected.Caption);
  QCOMPARE(Dialog->PickCaption, Expected.Caption);
  QCOMPARE(Dialog->gbList->title().toStdString(), "Available " + Expected.Available);
  QCOMPARE(Dialog->AvailableCaption, Expected.Available);
  for (const TColumnFacts& Column : Expected.Columns) {
    QCOMPARE(Dialog->qryList_->FieldByName(Column.Field)->DisplayLabel(), LabelOf(Expected, Column.Field));
  }
  TLines Labels;
  for (const TChoiceFacts& Choice : Expected.Choices) Labels.push_back(LabelOf(Expected, Choice.Field));
  QCOMPARE(support::Items(*Dialog->rgFindBy), Labels);
}

void tst_PickReference::shouldDeclareTheFieldsInOrder() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  const auto& Fields = Dialog->qryList_->Fields();
  QCOMPARE(Fields.size(), Expected.Fields.size());
  for (std::size_t Index = 0; Index < Fields.size(); ++Index) {
    QCOMPARE(Fields[Index]->FieldName(), Expected.Fields[Index].Name);
    QCOMPARE(Fields[Index]->objectName().toStdString(), "qryList_" + Expected.Fields[Index].Name);
    QCOMPARE(Fields[Index]->DataType(), Expected.Fields[Index].Type);
    QCOMPARE(Fields[Index]->Size(), Expected.Fields[Index].Size);
    QCOMPARE(Fields[Index]->Kind(), ads::TFieldKind::fkData);
  }
}

void tst_PickReference::shouldShowTheColumnsInOrder() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  const auto& Columns = Dialog->dbgAvail->Columns();
  QCOMPARE(Columns.Count(), static_cast<int>(Expected.Columns.size()));
  toolkit::TDBGrid Plain;
  for (int Index = 0; Index < Columns.Count(); ++Index) {
    const TColumnFacts& Column = Expected.Columns[static_cast<std::size_t>(Index)];
    QCOMPARE(Columns[Index]->Field()->FieldName(), Column.Field);
    const int Default = Plain.AddColumn(Columns[Index]->Field()).Width();
    QCOMPARE(Columns[Index]->Width(), Column.Width > 0 ? Column.Width : Default);
    QCOMPARE(Columns[Index]->Alignment(), Column.Cell);
    QCOMPARE(Columns[Index]->TitleAlignment(), Column.Title);
  }
}

void tst_PickReference::shouldOfferTheSameChoicesInBothGroups() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  QCOMPARE(Dialog->rgFindBy->Items().Count(), static_cast<int>(Expected.Choices.size()));
  QCOMPARE(support::Items(*Dialog->rgOrderBy), support::Items(*Dialog->rgFindBy));
  QCOMPARE(Dialog->rgFindBy->ItemIndex(), Expected.Default);
  QCOMPARE(Dialog->rgOrderBy->ItemIndex(), Expected.Default);
  QVERIFY(!Dialog->ckbDesc->isChecked());
  QVERIFY(Dialog->edFind->text().isEmpty());
  QVERIFY(!Dialog->gbFind->isHidden() && !Dialog->ckbDesc->isHidden());
  QCOMPARE(SqlLines(*Dialog), FilteredLines(Expected, Expected.Default, Expected.Default, false, ""));
  QVERIFY(!Dialog->qryList_->IsEmpty());
}

void tst_PickReference::shouldBuildTheSqlLetterByLetter() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  ForEveryChoice(Expected, [&](int OrderBy, int FindBy, bool Descending) {
    for (const TTyped& Text : TypedTexts) {
      Set(*Dialog, OrderBy, FindBy, Descending, Text.Typed);
      Dialog->SetSQL();
      const bool Fails = !Expected.Narrows && !Text.InSql.empty();
      QCOMPARE(SqlLines(*Dialog), Fails ? KeptLines(Expected, OrderBy, Descending)
                                        : FilteredLines(Expected, OrderBy, FindBy, Descending, Text.InSql));
      QVERIFY(Dialog->qryList_->Active());
    }
  });
}

void tst_PickReference::shouldFindWhatContainsTheText() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  bool Narrowed = false;
  for (int FindBy = 0; FindBy < static_cast<int>(Expected.Choices.size()); ++FindBy) {
    const std::string& Field = Expected.Choices[static_cast<std::size_t>(FindBy)].Field;
    for (const std::string Typed : {"a", "O'", "e", "1", "ß", "É", "no row has this"}) {
      Set(*Dialog, Expected.Default, FindBy, false, "");
      Dialog->SetSQL();
      TLines Rows = support::Column(*Dialog, Field);
      const std::size_t All = Rows.size();
      if (Expected.Narrows) {
        std::erase_if(Rows, [&](const std::string& Row) {
          return zulcommon::UpperCase(Row).find(zulcommon::UpperCase(Typed)) == std::string::npos;
        });
      }
      Set(*Dialog, Expected.Default, FindBy, false, " " + Typed + " ");
      Dialog->SetSQL();
      QCOMPARE(support::Column(*Dialog, Field), Rows);
      Narrowed = Narrowed || (!Rows.empty() && Rows.size() < All);
    }
  }
  QCOMPARE(Narrowed, Expected.Narrows);
}

void tst_PickReference::shouldOrderByTheUpperCasedColumn() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  ForEveryChoice(Expected, [&](int OrderBy, int FindBy, bool Descending) {
    Set(*Dialog, OrderBy, FindBy, Descending, "");
    Dialog->SetSQL();
    const TLines Rows = support::Column(*Dialog, Expected.Choices[static_cast<std::size_t>(OrderBy)].Field);
    TLines Upper;
    for (const std::string& Row : Rows) Upper.push_back(zulcommon::UpperCase(Row));
    if (Descending) std::reverse(Upper.begin(), Upper.end());
    QVERIFY(Rows.size() > 1);
    QVERIFY(std::is_sorted(Upper.begin(), Upper.end()));
  });
}

void tst_PickReference::shouldShowTheWholeListWhenTheSearchFails() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  const int All = Dialog->qryList_->RecordCount();
  // A statement as long as this one becomes is too long for this server; the one without the find line is not.
  sqlite3_limit(Handle(Company), SQLITE_LIMIT_SQL_LENGTH, 1000);
  ForEveryChoice(Expected, [&](int OrderBy, int FindBy, bool Descending) {
    Set(*Dialog, OrderBy, FindBy, Descending, std::string(2000, 'x'));
    Dialog->SetSQL();
    QCOMPARE(SqlLines(*Dialog), KeptLines(Expected, OrderBy, Descending));
    QCOMPARE(Dialog->qryList_->RecordCount(), All);
    QVERIFY(!Dialog->edFind->text().isEmpty());
  });
}

void tst_PickReference::shouldTryTheConditionThatNeverWorks_data() {
  QTest::addColumn<int>("Index");
  for (int Index = 0; Index < static_cast<int>(reference::Dialogs().size()); ++Index) {
    const TDialogFacts& Dialog = reference::Dialogs()[static_cast<std::size_t>(Index)];
    if (!Dialog.Narrows) QTest::newRow(Dialog.Name.c_str()) << Index;
  }
}

void tst_PickReference::shouldTryTheConditionThatNeverWorks() {
  TTestCompany Company;
  const TDialogFacts& Expected = Facts();
  const auto Dialog = Expected.Create(Company.Connection());
  Refused().clear();
  Set(*Dialog, 0, 0, false, "o'neil");
  Dialog->SetSQL();
  ads::TSQLLines Tried;
  for (const std::string& Line : FilteredLines(Expected, 0, 0, false, "O''NEIL")) Tried.Add(Line);
  const std::string Sent = Company.Connection()->Dialect().Rewrite(Tried.Text());
  QCOMPARE(Refused(), TLines{"near \"AND\": syntax error in \"" + Sent + "\""});
}

void tst_PickReference::shouldAddNoFindLineForAFindByThatThereIsNot() {
  TTestCompany Company;
  const auto CostCenter = uPickCostCenter::TfrmPickCostCenter::Create(Company.Connection());
  Set(*CostCenter, 0, -1, false, "ab");
  CostCenter->SetSQL();
  QCOMPARE(SqlLines(*CostCenter), (TLines{"SELECT CstCtr, [Desc], [Default], UPPER(CstCtr) SortFld", "FROM CstCtr",
                                          "WHERE 0=0", "ORDER BY SortFld"}));
  const auto City = uPickCity::TfrmPickCity::Create(Company.Connection());
  Set(*City, 0, -1, false, "40");
  City->SetSQL();
  QCOMPARE(SqlLines(*City),
           (TLines{"SELECT Zip, UPPER(Zip) SortFld", "FROM Area", "WHERE UPPER(Zip) LIKE '%40%'", "ORDER BY SortFld"}));
}

void tst_PickReference::shouldAddNoSelectLineForAnOrderThatThereIsNot() {
  TTestCompany Company;
  const auto Dialog = uPickCostCenter::TfrmPickCostCenter::Create(Company.Connection());
  const TLines Before = support::Column(*Dialog, "CstCtr");
  Set(*Dialog, -1, 1, true, "ab");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(SqlLines(*Dialog), (TLines{"FROM CstCtr\nWHERE 0=0", "ORDER BY SortFld DESC"}));
  QCOMPARE(support::Column(*Dialog, "CstCtr"), Before);
}

void tst_PickReference::shouldFormatTheRates() {
  TTestCompany Company(TTestCompany::TRows::None);
  Company.Execute("INSERT INTO FinanceRates VALUES (1, 'A', 1234.5)");
  Company.Execute("INSERT INTO FinanceRates VALUES (2, 'B', 0.125)");
  Company.Execute("INSERT INTO FinanceRates VALUES (3, 'C', NULL)");
  Company.Execute("INSERT INTO GSTRates VALUES ('A', 'A', 1234.5)");
  Company.Execute("UPDATE Sys SET PrcDec = 3");
  const auto Finance = uPickFinance::TfrmPickFinance::Create(Company.Connection());
  QCOMPARE(Finance->qryList_Percent->DisplayFormat(), std::string("0.00"));
  QCOMPARE(support::ShownColumn(*Finance, "Percent"), (TLines{"1234.50", "0.13", ""}));
  const auto Rates = uPickGSTRate::TfrmPickGSTRate::Create(Company.Connection());
  QCOMPARE(Rates->qryList_Rate->DisplayFormat(), std::string(",0.000"));
  QCOMPARE(support::ShownColumn(*Rates, "Rate"), (TLines{"1,234.500"}));
}

void tst_PickReference::shouldBeWithoutChoicesForTheUsedYears() {
  TTestCompany Company;
  const auto Dialog = uPickUsedPeriodYear::TfrmPickUsedPeriod::Create(Company.Connection());
  QCOMPARE(Dialog->Caption(), std::string("Select Year"));
  QCOMPARE(Dialog->gbList->title(), QStringLiteral("Available Years"));
  QCOMPARE(Dialog->qryList_->Fields().size(), std::size_t{1});
  QCOMPARE(Dialog->qryList_Year->DataType(), ads::TFieldType::ftString);
  QCOMPARE(Dialog->qryList_Year->Size(), 4);
  QCOMPARE(Dialog->qryList_Year->DisplayLabel(), std::string("Year"));
  QCOMPARE(Dialog->dbgAvail->Columns().Count(), 1);
  const toolkit::TColumn* Column = Dialog->dbgAvail->Columns()[0];
  QCOMPARE(Column->Width(), 80);
  QCOMPARE(Column->Alignment(), toolkit::TAlignment::taRightJustify);
  QCOMPARE(Column->TitleAlignment(), toolkit::TAlignment::taRightJustify);
  for (const QWidget* Hidden : {static_cast<QWidget*>(Dialog->gbFind), static_cast<QWidget*>(Dialog->rgFindBy),
                                static_cast<QWidget*>(Dialog->rgOrderBy), static_cast<QWidget*>(Dialog->ckbDesc)}) {
    QVERIFY2(Hidden->isHidden(), qPrintable(Hidden->objectName()));
  }
}

void tst_PickReference::shouldListEachUsedYearOnceAscending() {
  TTestCompany Company(TTestCompany::TRows::None);
  for (const char* Month : {"202612", "202407", "202601", "202408", "202512", "2024"}) {
    Company.Execute("INSERT INTO Periods (Period, RealPeriod) VALUES (?, ?)",
                    {QString::fromLatin1(Month).right(4), Month});
  }
  const auto Dialog = uPickUsedPeriodYear::TfrmPickUsedPeriod::Create(Company.Connection());
  QCOMPARE(SqlLines(*Dialog),
           (TLines{"SELECT DISTINCT SubString(RealPeriod, 1, 4) Year", "FROM Periods", "ORDER BY Year"}));
  QCOMPARE(support::Column(*Dialog, "Year"), (TLines{"2024", "2025", "2026"}));
}

void tst_PickReference::shouldNotRebuildTheUsedYears() {
  TTestCompany Company;
  const auto Dialog = uPickUsedPeriodYear::TfrmPickUsedPeriod::Create(Company.Connection());
  const TLines Before = support::Column(*Dialog, "Year");
  QVERIFY(!Before.empty());
  Company.Execute("DROP TABLE Periods");
  QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialog->SetSQL());
  QCOMPARE(Dialog->qryList_->SQL()->Count(), 3);
  QCOMPARE(support::Column(*Dialog, "Year"), Before);
}

int main(int Count, char** Arguments) {
  sqlite3_config(
      SQLITE_CONFIG_LOG, +[](void*, int, const char* Message) { Refused().push_back(Message); }, nullptr);
  QApplication Application(Count, Arguments);
  tst_PickReference Test;
  return QTest::qExec(&Test, Count, Arguments);
}

#include "tst_PickReference.moc"
