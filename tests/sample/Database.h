#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <QFile>
#include <stdexcept>
#include <string>

#include "sample/store/SQLiteSink.h"

/// A database file, read as SQLite's own command line would read it.
class TDatabase {
 public:
  explicit TDatabase(const std::string& FileName) {
    sqlite3* Raw = nullptr;
    const int Code = sqlite3_open_v2(FileName.c_str(), &Raw, SQLITE_OPEN_READWRITE, nullptr);
    Handle_.reset(Raw);
    if (Code != SQLITE_OK) {
      throw std::runtime_error("cannot open " + FileName);
    }
  }

  /// An empty database in memory.
  TDatabase() : TDatabase(":memory:") {}

  sqlite3* Handle() const { return Handle_.get(); }

  /// The first column of the first row, as text; "" when there is no row or it is null.
  QByteArray Text(const std::string& Sql) const {
    sqlite3_stmt* Raw = nullptr;
    if (sqlite3_prepare_v2(Handle_.get(), Sql.c_str(), -1, &Raw, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(Handle_.get()));
    }
    const sample::TSQLiteStatement Statement(Raw);
    return sqlite3_step(Raw) == SQLITE_ROW ? QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(Raw, 0)))
                                           : QByteArray();
  }
  qint64 Number(const std::string& Sql) const { return Text(Sql).toLongLong(); }

  /// What the database has against a statement; "" when it can be run.
  QByteArray Complaint(const std::string& Sql) const {
    sqlite3_stmt* Raw = nullptr;
    const int Code = sqlite3_prepare_v2(Handle_.get(), Sql.c_str(), -1, &Raw, nullptr);
    const sample::TSQLiteStatement Statement(Raw);
    return Code == SQLITE_OK ? QByteArray() : QByteArray(sqlite3_errmsg(Handle_.get()));
  }

 private:
  sample::TSQLiteHandle Handle_;
};

inline QByteArray Contents(const QString& FileName) {
  QFile File(FileName);
  return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}
