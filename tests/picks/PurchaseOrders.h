#pragma once

#include <QVariantMap>
#include <array>
#include <string>
#include <vector>

#include "frame/uPickListTypes.h"
#include "picks/PickQueries.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

/// What the tests of the purchase-order picks share.
namespace purchasing {

using uPickListTypes::TPOState;
using uPickListTypes::TPOStates;
using TLines = std::vector<std::string>;

inline constexpr std::array AllStates{TPOState::poUnposted, TPOState::poPosted, TPOState::poReceipted,
                                      TPOState::poClosed,   TPOState::poPaid,   TPOState::poCancelled};

/// The set whose bits are given: bit n stands for the state with ordinal n.
inline TPOStates StatesOf(unsigned Bits) {
  TPOStates Result;
  for (const TPOState State : AllStates) {
    if ((Bits >> static_cast<unsigned>(State)) & 1U) Result.Include(State);
  }
  return Result;
}

/// The lines that two sets of states add to a query.
inline TLines StateLines(TPOStates Required, TPOStates Excluded) {
  static const TLines WhenRequired{"AND I.Posted = False", "AND I.Posted = True",   "AND I.POReceipt = True",
                                   "AND I.Closed = True",  "AND I.APDocket = True", "AND I.Canceled = True"};
  static const TLines WhenExcluded{"AND I.Posted = True",  "AND I.Posted = False",   "AND I.POReceipt = False",
                                   "AND I.Closed = False", "AND I.APDocket = False", "AND I.Canceled = False"};
  TLines Lines;
  for (const TPOState State : AllStates) {
    if (Required.Contains(State)) Lines.push_back(WhenRequired[static_cast<std::size_t>(State)]);
  }
  for (const TPOState State : AllStates) {
    if (Excluded.Contains(State)) Lines.push_back(WhenExcluded[static_cast<std::size_t>(State)]);
  }
  return Lines;
}

struct TStatePair {
  TPOStates Required;
  TPOStates Excluded;
};

/// Every state alone on either side, all of them, none, and some that a host asks for.
inline std::vector<TStatePair> StatePairs() {
  std::vector<TStatePair> Pairs{{}, {StatesOf(63), {}}, {{}, StatesOf(63)}, {StatesOf(63), StatesOf(63)}};
  for (const TPOState State : AllStates) {
    Pairs.push_back({{State}, {}});
    Pairs.push_back({{}, {State}});
    Pairs.push_back({{State}, {State}});
  }
  Pairs.push_back({{TPOState::poReceipted}, {TPOState::poClosed}});
  Pairs.push_back({{TPOState::poPosted, TPOState::poReceipted}, {TPOState::poClosed, TPOState::poCancelled}});
  Pairs.push_back({{TPOState::poUnposted, TPOState::poPosted}, {}});
  return Pairs;
}

/// The entries between SELECT line and find line: some, the state lines, some more.
inline QString FromLines(TLines Lines, const TStatePair& States, const TLines& More = {}) {
  for (const std::string& Line : StateLines(States.Required, States.Excluded)) Lines.push_back(Line);
  Lines.insert(Lines.end(), More.begin(), More.end());
  return picks::Joined(Lines);
}

/// Compares the SQL of a dialog for every pair of sets of states, and for two of them in every order and search.
/// `Create` makes the dialog for a pair, `Expected` tells what its SQL is made of.
inline void CompareSqlInStates(
    const std::function<std::unique_ptr<uDocPickBase::TDocPickBase>(const TStatePair& States)>& Create,
    const std::function<picks::TSqlParts(const TStatePair& States)>& Expected) {
  for (const TStatePair& States : StatePairs()) {
    const auto Dialog = Create(States);
    const picks::TSqlParts Parts = Expected(States);
    QCOMPARE(picks::SqlFor(*Dialog, 0, true), Parts.Selects[0] + " | " + Parts.From + " | ORDER BY SortFld DESC");
  }
  for (const TStatePair& States : {TStatePair{}, TStatePair{{TPOState::poReceipted}, {TPOState::poClosed}}}) {
    picks::CompareSql(*Create(States), Expected(States));
  }
}

/// With this pattern for dates, a text that is a date and that any other column can be searched for, too.
inline constexpr const char* DatePattern = "dd/mm/yyyy";
inline const QString TypedDate = QStringLiteral("12/03/2024");

/// Vendors V1 "Zenith" and V2 "acme", customers C1 "Bright" and C2 "O'Neil", in tables without other rows.
inline void AddParties(support::TTestCompany& Company) {
  // These rows need not outlive the test, so nothing waits for the disk.
  Company.Execute("PRAGMA synchronous = OFF");
  Company.Execute("INSERT INTO Vend (ID, Company) VALUES ('V1', 'Zenith'), ('V2', 'acme')");
  Company.Execute(
      "INSERT INTO Cust (ID, Company, Addr1, Phone) VALUES ('C1', 'Bright', '1 High St', '111'), "
      "('C2', 'O''Neil', '2 Low St', '222')");
}

/// A purchase order by its columns; vendor V1 unless another is given.
inline void AddOrder(support::TTestCompany& Company, QVariantMap Columns) {
  if (!Columns.contains("ID")) Columns["ID"] = "V1";
  QStringList Names;
  QStringList Marks;
  for (const QString& Name : Columns.keys()) {
    Names.append('"' + Name + '"');
    Marks.append("?");
  }
  Company.Execute(QStringLiteral("INSERT INTO IP (%1) VALUES (%2)").arg(Names.join(", "), Marks.join(", ")),
                  Columns.values());
}

struct TFieldFacts {
  std::string Name;
  ads::TFieldType Type;
  int Size = 0;
  ads::TFieldKind Kind = ads::TFieldKind::fkData;
};

inline void CompareFields(const uDocPickBase::TDocPickBase& Dialog, const std::vector<TFieldFacts>& Expected) {
  const auto& Fields = Dialog.qryList_->Fields();
  QCOMPARE(Fields.size(), Expected.size());
  for (std::size_t Index = 0; Index < Fields.size(); ++Index) {
    QCOMPARE(Fields[Index]->FieldName(), Expected[Index].Name);
    QCOMPARE(Fields[Index]->objectName().toStdString(), "qryList_" + Expected[Index].Name);
    QCOMPARE(Fields[Index]->DataType(), Expected[Index].Type);
    QCOMPARE(Fields[Index]->Size(), Expected[Index].Size);
    QCOMPARE(Fields[Index]->Kind(), Expected[Index].Kind);
  }
}

struct TColumnFacts {
  std::string Field;
  std::string Title;
  int Width;  ///< 0 for the grid's own
  toolkit::TAlignment Cell = toolkit::TAlignment::taLeftJustify;
  toolkit::TAlignment TitleAlignment = toolkit::TAlignment::taLeftJustify;
};

inline void CompareColumns(const uDocPickBase::TDocPickBase& Dialog, const std::vector<TColumnFacts>& Expected) {
  const auto& Columns = Dialog.dbgAvail->Columns();
  QCOMPARE(Columns.Count(), static_cast<int>(Expected.size()));
  toolkit::TDBGrid Plain;
  for (int Index = 0; Index < Columns.Count(); ++Index) {
    const TColumnFacts& Column = Expected[static_cast<std::size_t>(Index)];
    QCOMPARE(Columns[Index]->Field()->FieldName(), Column.Field);
    QCOMPARE(Columns[Index]->Title(), Column.Title);
    const int Own = Plain.AddColumn(Columns[Index]->Field()).Width();
    QCOMPARE(Columns[Index]->Width(), Column.Width > 0 ? Column.Width : Own);
    QCOMPARE(Columns[Index]->Alignment(), Column.Cell);
    QCOMPARE(Columns[Index]->TitleAlignment(), Column.TitleAlignment);
  }
}

/// What a cell of the shown grid looks like.
inline QImage CellImage(uDocPickBase::TDocPickBase& Dialog, int Row, const ads::TField* Field) {
  toolkit::TDBGrid& Grid = *Dialog.dbgAvail;
  int Column = 0;
  while (Grid.Columns()[Column]->Field() != Field) ++Column;
  const QRect Rect = Grid.visualRect(Grid.model()->index(Row, Column));
  return Grid.viewport()->grab(Rect).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Saves a picture of the dialog where the environment asks for pictures to be looked at.
inline void SaveShot(uDocPickBase::TDocPickBase& Dialog, const QString& Name) {
  const QString Folder = qEnvironmentVariable("ZUL_SHOTS");
  if (!Folder.isEmpty()) Dialog.grab().save(Folder + "/" + Name + ".png");
}

}  // namespace purchasing
