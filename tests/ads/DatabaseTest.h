#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>
#include <memory>

#include "ads/Ads.h"

/// A SQLite database of its own in a temporary file, open on the host's side.
class TTestDatabase {
 public:
  TTestDatabase() : FileName(Folder_.filePath(QStringLiteral("test.db"))), Database(Open(FileName)) {
    Connection = std::make_unique<ads::TAdsConnection>(Database);
  }
  ~TTestDatabase() {
    Connection.reset();
    Close(Database);
  }
  TTestDatabase(const TTestDatabase&) = delete;
  TTestDatabase& operator=(const TTestDatabase&) = delete;

  void Execute(const QString& Sql) const {
    QSqlQuery Query(Database);
    if (!Query.exec(Sql)) qFatal("%s: %s", qPrintable(Sql), qPrintable(Query.lastError().text()));
  }

  static QSqlDatabase Open(const QString& FileName, const QString& Options = {}) {
    QSqlDatabase Result = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QUuid::createUuid().toString());
    Result.setDatabaseName(FileName);
    Result.setConnectOptions(Options);
    if (!Result.open()) qFatal("%s", qPrintable(Result.lastError().text()));
    return Result;
  }
  static void Close(QSqlDatabase& Database) {
    const QString Name = Database.connectionName();
    Database = {};
    QSqlDatabase::removeDatabase(Name);
  }

 private:
  QTemporaryDir Folder_;

 public:
  QString FileName;
  QSqlDatabase Database;
  std::unique_ptr<ads::TAdsConnection> Connection;
};
