#pragma once

#include <QString>
#include <QStringList>
#include <QTest>
#include <map>

#include "PickQueries.h"
#include "support/NumberedTexts.h"

/// What a dialog declares, as texts that a test can spell out.
namespace picks {

/// A dataset's fields in their order: "Number string 8 | Total float | Ticked boolean calculated".
inline QString Fields(const ads::TDataSet& DataSet) {
  static const std::map<ads::TFieldType, QString> Types = {
      {ads::TFieldType::ftString, "string"},   {ads::TFieldType::ftSmallint, "smallint"},
      {ads::TFieldType::ftInteger, "integer"}, {ads::TFieldType::ftAutoInc, "autoinc"},
      {ads::TFieldType::ftBoolean, "boolean"}, {ads::TFieldType::ftFloat, "float"},
      {ads::TFieldType::ftDate, "date"}};
  QStringList All;
  for (const ads::TField* Field : DataSet.Fields()) {
    QString Facts = Text(Field->FieldName()) + " " + Types.at(Field->DataType());
    if (Field->Size() > 0) Facts += " " + QString::number(Field->Size());
    if (Field->Kind() == ads::TFieldKind::fkCalculated) Facts += " calculated";
    if (Field->Kind() == ads::TFieldKind::fkLookup) Facts += " lookup";
    All.append(Facts);
  }
  return All.join(" | ");
}

/// Those of a dialog's list.
inline QString Fields(const TDocPickBase& Dialog) {
  return Fields(*Dialog.qryList_);
}

/// The grid's columns in their order, with title and the alignment of cell and title: "Number T3021 right/right".
inline QString Columns(const TDocPickBase& Dialog) {
  const auto Name = [](toolkit::TAlignment Alignment) {
    return Alignment == toolkit::TAlignment::taCenter         ? QString("centre")
           : Alignment == toolkit::TAlignment::taRightJustify ? QString("right")
                                                              : QString("left");
  };
  QStringList All;
  for (const toolkit::TColumn* Column : Dialog.dbgAvail->Columns()) {
    All.append(Text(Column->Field()->FieldName() + " " + Column->Title()) + " " + Name(Column->Alignment()) + "/" +
               Name(Column->TitleAlignment()));
  }
  return All.join(" | ");
}

/// What a dialog declares while `TNumberedTexts` live.
struct TDeclared {
  QString Fields;
  QString Columns;
  QString Caption;    ///< the subject in the form's caption
  QString Available;  ///< the subject in the list's caption
  QString Choices;    ///< of find-by and order-by alike
};

inline void CompareDeclared(const TDocPickBase& Dialog, const TDeclared& Declared) {
  QCOMPARE(Fields(Dialog), Declared.Fields);
  QCOMPARE(Columns(Dialog), Declared.Columns);
  QCOMPARE(Dialog.windowTitle(), "Select " + Declared.Caption);
  QCOMPARE(Dialog.gbList->title(), "Available " + Declared.Available);
  QCOMPARE(Joined(support::Items(*Dialog.rgFindBy)), Declared.Choices);
  QCOMPARE(Joined(support::Items(*Dialog.rgOrderBy)), Declared.Choices);
}

}  // namespace picks
