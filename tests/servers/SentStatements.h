#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>

#include "servers/Backends.h"

struct sqlite3;

namespace support {

/// A statement with a `#` for each text and each number in it: what of it is there whatever somebody looks for. Texts
/// are taken as the servers themselves take them, those of PostgreSQL with backslashes and those of MariaDB as bytes
/// among them.
QString ShapeOf(const QString& Statement);

/// Has the servers write down every statement that they get; for `TSentStatements`. Before any connection is open.
void RecordStatements(TBackends& Backends);

/// Every statement that reaches the database by way of a host's connection while this object lives: by what SQLite
/// tells, by what a server writes down, or, between a program and SQLite's ODBC driver, by a driver that records.
class TSentStatements {
 public:
  explicit TSentStatements(TBackend& Backend, TBackends& Backends);
  ~TSentStatements();
  TSentStatements(const TSentStatements&) = delete;
  TSentStatements& operator=(const TSentStatements&) = delete;

  /// Those that have come since the last time.
  QStringList Take();

 private:
  static int Trace(unsigned Kind, void* Self, void* Statement, void* Text);
  QStringList TakeFromServer();
  QStringList TakeFromMariaDB();
  QStringList TakeFromDriver();

  TBackend& Backend_;
  sqlite3* Handle_ = nullptr;
  QStringList Traced_;
  QString FileName_;
  QString Session_;
  qint64 Read_ = 0;
  int Marks_ = 0;
};

}  // namespace support
