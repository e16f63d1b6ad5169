#pragma once

#include <QSqlDatabase>
#include <map>
#include <memory>
#include <string>

#include "ads/Connection.h"

namespace check {

/// A database in memory that has all that the dialogs are made for, to tell a query that fails over the host's database
/// from one that fails over any: some dialogs have states in which their query is no SQL, or names what no table has.
class TEmptyCompany {
 public:
  TEmptyCompany();
  ~TEmptyCompany();
  TEmptyCompany(const TEmptyCompany&) = delete;
  TEmptyCompany& operator=(const TEmptyCompany&) = delete;

  /// Whether a query of the dialogs' SQL fails here, too; false where Qt has no driver for such a database.
  bool Refuses(const std::string& Source);

 private:
  bool Try(const std::string& Source);

  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
  std::map<std::string, bool> Known_;
};

}  // namespace check
