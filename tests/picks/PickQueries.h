#pragma once

#include <sqlite3.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QStringList>
#include <QTest>
#include <QVariant>
#include <string>
#include <vector>

#include "support/PickDriver.h"

/// What the tests of single dialogs share: their queries in every state, letter by letter.
namespace picks {

using uDocPickBase::TDocPickBase;

/// The texts with " | " between them; line feeds inside of one stay.
inline QString Joined(const std::vector<std::string>& Texts) {
  QStringList All;
  for (const std::string& Text : Texts) All.append(QString::fromStdString(Text));
  return All.join(QStringLiteral(" | "));
}

inline QString Text(const std::string& Utf8) {
  return QString::fromStdString(Utf8);
}

/// Sets what a dialog, which is not shown, is asked for, without a query.
inline void Ask(TDocPickBase& Dialog, int OrderBy, bool Descending, int FindBy = 0, const QString& Find = {}) {
  Dialog.InSetup = true;
  Dialog.rgOrderBy->SetItemIndex(OrderBy);
  Dialog.ckbDesc->setChecked(Descending);
  Dialog.InSetup = false;
  const QSignalBlocker NoQuery(Dialog.edFind);
  // A change of find-by empties the box.
  Dialog.rgFindBy->SetItemIndex(FindBy);
  Dialog.edFind->setText(Find);
}

/// The entries of the SQL that a dialog asks with.
inline QString SqlFor(TDocPickBase& Dialog, int OrderBy, bool Descending, int FindBy = 0, const QString& Find = {}) {
  Ask(Dialog, OrderBy, Descending, FindBy, Find);
  Dialog.CallSetSQL();
  return Joined(support::SqlLines(Dialog));
}

/// What the SQL of a dialog is made of.
struct TSqlParts {
  QStringList Selects;  ///< by order-by
  QString From;         ///< all entries between the SELECT line and the find line
  QString Typed;        ///< a find text
  QStringList Finds;    ///< by find-by: the line for that text
};

/// Compares the SQL for every order, in both directions, without a find text and with one for every find-by.
inline void CompareSql(TDocPickBase& Dialog, const TSqlParts& Parts) {
  for (int OrderBy = 0; OrderBy < Parts.Selects.size(); ++OrderBy) {
    for (const bool Descending : {false, true}) {
      const QString Start = Parts.Selects[OrderBy] + QStringLiteral(" | ") + Parts.From;
      const QString End =
          Descending ? QStringLiteral(" | ORDER BY SortFld DESC") : QStringLiteral(" | ORDER BY SortFld");
      QCOMPARE(SqlFor(Dialog, OrderBy, Descending), Start + End);
      QCOMPARE(SqlFor(Dialog, OrderBy, Descending, 0, QStringLiteral("  ")), Start + End);
      for (int FindBy = 0; FindBy < Parts.Finds.size(); ++FindBy) {
        QCOMPARE(SqlFor(Dialog, OrderBy, Descending, FindBy, Parts.Typed),
                 Start + QStringLiteral(" | ") + Parts.Finds[FindBy] + End);
      }
    }
  }
  Ask(Dialog, 0, false);
}

/// While it lives, a SQLite connection takes no statement longer than `Bytes`, so that a long find text makes a search
/// fail.
class TShortStatements {
 public:
  TShortStatements(const QSqlDatabase& Database, int Bytes)
      : Handle_(*static_cast<sqlite3* const*>(Database.driver()->handle().constData())),
        Before_(sqlite3_limit(Handle_, SQLITE_LIMIT_SQL_LENGTH, Bytes)) {}
  ~TShortStatements() { sqlite3_limit(Handle_, SQLITE_LIMIT_SQL_LENGTH, Before_); }
  TShortStatements(const TShortStatements&) = delete;
  TShortStatements& operator=(const TShortStatements&) = delete;

 private:
  sqlite3* Handle_;
  int Before_;
};

}  // namespace picks
