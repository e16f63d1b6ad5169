#pragma once

#include <QSqlDatabase>
#include <QTemporaryDir>
#include <QVariantList>
#include <memory>
#include <string>
#include <vector>

#include "ads/Connection.h"

namespace support {

/// A sample company of its own in a temporary file, open, for one test to pick from and to change.
class TTestCompany {
 public:
  /// A copy of the sample company at scale 1, or its tables without rows (Sys excepted).
  enum class TRows { Sample, None };

  explicit TTestCompany(TRows Rows = TRows::Sample);
  ~TTestCompany();
  TTestCompany(const TTestCompany&) = delete;
  TTestCompany& operator=(const TTestCompany&) = delete;

  ads::TAdsConnection* Connection() { return Connection_.get(); }
  QSqlDatabase Database() const { return Database_; }
  std::string FileName() const { return FileName_.toStdString(); }

  /// Runs a statement on the host's side of the connection; fails the test program when it does not run.
  void Execute(const QString& Sql, const QVariantList& Values = {});

  /// The first column of a query's rows, as text.
  std::vector<std::string> Texts(const QString& Sql);
  /// The first value of a query, as text.
  std::string Text(const QString& Sql);

 private:
  QTemporaryDir Folder_;
  QString FileName_;
  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

}  // namespace support
