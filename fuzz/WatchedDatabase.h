#pragma once

#include <QSqlDatabase>
#include <QString>
#include <string>

#include "ads/Connection.h"
#include "ads/Query.h"

struct sqlite3;

namespace fuzz {

/// Ends the program, which is how a fuzz target says that something is wrong.
[[noreturn]] void Fail(const char* What, const std::string& Sql);

/// A small SQLite database that tells when anything else is asked of it than to read its tables by the functions that
/// the dialogs' queries call.
class TWatchedDatabase {
 public:
  TWatchedDatabase();

  /// Opens the query as a dialog does, and reads its rows.
  void Try(ads::TAdsQuery& Query, const std::string& Sql);

  /// Compares all that is in the database with what was in it at first.
  void CheckContent(const std::string& Sql);

 private:
  static QSqlDatabase Filled();
  static void Execute(const QSqlDatabase& Database, const char* Sql);
  static void Read(ads::TAdsQuery& Query);
  static int Authorize(void* Self, int Action, const char* First, const char* Second, const char*, const char*);
  static int Progress(void* Self);
  QString Content() const;

  QSqlDatabase Database_;
  ads::TAdsConnection Connection_;
  sqlite3* Handle_;
  QString Before_;
  bool Watching_ = true;
  std::string Acted_;  // what was asked for besides
  int Steps_ = 0;
};

/// The one database of a program.
TWatchedDatabase& Database();

}  // namespace fuzz
