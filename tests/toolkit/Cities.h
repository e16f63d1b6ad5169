#pragma once

#include <QSqlDatabase>
#include <memory>

#include "ads/Connection.h"
#include "ads/Query.h"

/// A query over a table of places in a SQLite database in memory: Zip "0001" and on, City "City 1" and on, People ten
/// times the number, Capital true in every fifth row.
class TCities {
 public:
  explicit TCities(int Rows);
  ~TCities();
  TCities(const TCities&) = delete;
  TCities& operator=(const TCities&) = delete;

  void Execute(const QString& Sql) const;

 private:
  QString Name_;
  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;

 public:
  std::unique_ptr<ads::TAdsQuery> Query;
  ads::TField* Zip;
  ads::TField* City;
  ads::TField* People;
  ads::TField* Capital;
};
