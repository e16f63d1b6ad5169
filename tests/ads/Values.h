#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <stdexcept>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "ads/Query.h"

/// What a query in the dialogs' SQL gives in one of its columns, row by row, as texts; "(null)" for a null. It may call
/// `Functions` besides those of the dialogs.
inline QStringList Values(ads::TAdsConnection& Connection, const std::string& Sql, const std::string& Column = "X",
                          const std::vector<std::string>& Functions = {}) {
  ads::TAdsQuery Query(nullptr);
  Query.AllowFunctions(Functions);
  Query.SetConnection(&Connection);
  ads::TField* Field = Query.AddField(Column, ads::TFieldType::ftString, 250);
  Query.SQL()->Add(Sql);
  Query.Open();
  QStringList Result;
  for (; !Query.Eof(); Query.Next()) {
    Result += Field->IsNull() ? "(null)" : QString::fromStdString(Field->AsString());
  }
  return Result;
}

/// Runs a statement of the server's own SQL as it is; throws `std::runtime_error` with the server's message.
inline void Execute(const QSqlDatabase& Database, const QString& Sql) {
  QSqlQuery Query(Database);
  if (!Query.exec(Sql)) throw std::runtime_error(Query.lastError().text().toStdString());
}
