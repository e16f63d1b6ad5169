#pragma once

#include "picks/PickQueries.h"
#include "support/TestCompany.h"

/// What the tests of the stock and batch dialogs share.
namespace picks {

using support::TTestCompany;

inline const char* const WrongNumber = "The find text is not a valid number.";

/// One field's texts in all rows.
inline QString Rows(TDocPickBase& Dialog, const std::string& Field) {
  return Joined(support::Column(Dialog, Field));
}
inline QString ShownRows(TDocPickBase& Dialog, const std::string& Field) {
  return Joined(support::ShownColumn(Dialog, Field));
}

/// What a column has to be; a width of 0 is the grid's own.
struct TExpectedColumn {
  const char* Field;
  const char* Title;
  int Width;
  toolkit::TAlignment Cell;
  toolkit::TAlignment TitleAlignment;
};

inline void CompareColumns(TDocPickBase& Dialog, const std::vector<TExpectedColumn>& Expected) {
  const auto& Columns = Dialog.dbgAvail->Columns();
  QCOMPARE(Columns.Count(), static_cast<int>(Expected.size()));
  for (int Index = 0; Index < Columns.Count(); ++Index) {
    const TExpectedColumn& Column = Expected[static_cast<std::size_t>(Index)];
    QCOMPARE(Columns[Index]->Field()->FieldName(), std::string(Column.Field));
    QCOMPARE(Columns[Index]->Title(), std::string(Column.Title));
    if (Column.Width > 0) QCOMPARE(Columns[Index]->Width(), Column.Width);
    QCOMPARE(Columns[Index]->Alignment(), Column.Cell);
    QCOMPARE(Columns[Index]->TitleAlignment(), Column.TitleAlignment);
  }
}

struct TExpectedField {
  const char* Name;
  ads::TFieldType Type;
  int Size;
};

inline void CompareFields(const TDocPickBase& Dialog, const std::vector<TExpectedField>& Expected) {
  const auto& Fields = Dialog.qryList_->Fields();
  QCOMPARE(Fields.size(), Expected.size());
  for (std::size_t Index = 0; Index < Fields.size(); ++Index) {
    QCOMPARE(Fields[Index]->FieldName(), std::string(Expected[Index].Name));
    QCOMPARE(Fields[Index]->objectName(), QStringLiteral("qryList_") + Expected[Index].Name);
    QCOMPARE(Fields[Index]->DataType(), Expected[Index].Type);
    QCOMPARE(Fields[Index]->Size(), Expected[Index].Size);
  }
}

/// Whether both groups offer these items and have chosen this one.
inline void CompareChoices(const TDocPickBase& Dialog, const QString& Items, int Chosen) {
  for (const toolkit::TRadioGroup* Group : {Dialog.rgFindBy, Dialog.rgOrderBy}) {
    QCOMPARE(Joined(support::Items(*Group)), Items);
    QCOMPARE(Group->ItemIndex(), Chosen);
  }
}

/// Compares the SQL that a search which the server refuses ends with, for every choice: `Kept` is what stands between
/// the SELECT line and the ORDER BY line. `Glue` joins the SELECT line to it.
inline void CompareRebuilt(TDocPickBase& Dialog, TTestCompany& Company, const QStringList& Selects, int FindBys,
                           const QString& Glue, const QString& Kept) {
  Ask(Dialog, 0, false);
  Dialog.CallSetSQL();
  const int All = Dialog.qryList_->RecordCount();
  const TShortStatements TooLong(Company.Database(), 1000);
  const QString Typed(2000, u'x');
  for (int OrderBy = 0; OrderBy < Selects.size(); ++OrderBy) {
    for (int FindBy = 0; FindBy < FindBys; ++FindBy) {
      const bool Descending = FindBy % 2 == 1;
      QCOMPARE(SqlFor(Dialog, OrderBy, Descending, FindBy, Typed),
               Selects[OrderBy] + Glue + Kept + " | ORDER BY SortFld" + (Descending ? " DESC" : ""));
      QCOMPARE(Dialog.qryList_->RecordCount(), All);
      QCOMPARE(Dialog.edFind->text(), Typed);
    }
  }
}

/// Everything in the tables that the stock dialogs read, and what tables there are.
inline QString StockContent(TTestCompany& Company) {
  std::vector<std::string> All = Company.Texts(QStringLiteral("SELECT name || COALESCE(sql, '') FROM sqlite_master"));
  for (const char* Sql : {"SELECT ID || '|' || ShortName || '|' || FullName FROM ItemLocations",
                          "SELECT Item || '|' || ItemLoc || '|' || COALESCE(OnHand, 'null') FROM ItemDet",
                          "SELECT \"Key\" || '|' || Item || '|' || COALESCE(UnitCost, 'null') FROM ItemCost"}) {
    const std::vector<std::string> Some = Company.Texts(QLatin1String(Sql));
    All.insert(All.end(), Some.begin(), Some.end());
  }
  return Joined(All);
}

/// Texts that nobody should type.
inline QStringList NastyTexts() {
  QStringList Texts{"'",
                    "''",
                    "\"",
                    "[",
                    "]",
                    "`",
                    "\\",
                    ";",
                    "1;",
                    "1; DROP TABLE ItemDet",
                    "1; DELETE FROM ItemLocations; --",
                    "--",
                    "1 --",
                    "1 -- \nOR 1=1",
                    "/*",
                    "1 /* */ OR 1=1",
                    "1 //",
                    "(",
                    ")",
                    "1) OR (1=1",
                    "((((((((",
                    "1 OR 1=1",
                    "1 UNION SELECT 1, 'x', 'y', 'z'",
                    "1 UNION SELECT name, sql, type, 1 FROM sqlite_master",
                    "1 UNION ALL SELECT 1, 2, 3, 4, 5, 6, 7",
                    "(SELECT MAX(ID) FROM ItemLocations)",
                    "1 OR EXISTS (SELECT 1 FROM pragma_optimize)",
                    "1 OR load_extension('x') = 1",
                    "1 IN (DELETE FROM ItemDet RETURNING 1)",
                    "1 INTO Copied",
                    "?",
                    ":x",
                    "@x",
                    "$1",
                    "0x10",
                    "1e400",
                    "1,000",
                    "½",
                    "١",
                    "😀",
                    QString(QChar(0xFEFF)) + "1",
                    QString(QChar(0xA0)) + "1",
                    "1\r OR 1=1",
                    "1\v",
                    "\x01\x02\x1b\x7f",
                    QString::fromUtf8("1\0; DROP TABLE ItemDet", 22)};
  for (const char Repeated : {'9', '(', '\'', ';', '[', '-', 'x', '%'}) Texts.append(QString(100'000, Repeated));
  return Texts;
}

}  // namespace picks
