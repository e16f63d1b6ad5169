#pragma once

#include <QProcess>
#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

/// A PostgreSQL server of the test's own, on a socket in a temporary folder, with one empty database; both are gone
/// when the object is. Where this machine has no PostgreSQL, `IsRunning` is false and `Reason` says what is missing;
/// a test then skips.
class TThrowawayPostgreSQL {
 public:
  TThrowawayPostgreSQL();
  ~TThrowawayPostgreSQL();
  TThrowawayPostgreSQL(const TThrowawayPostgreSQL&) = delete;
  TThrowawayPostgreSQL& operator=(const TThrowawayPostgreSQL&) = delete;

  bool IsRunning() const { return Reason_.isEmpty(); }
  const QString& Reason() const { return Reason_; }

  /// A new open connection, with the name under which QSqlDatabase knows it.
  QSqlDatabase Connect(const QString& ConnectionName) const;

 private:
  bool CreateCluster(const QString& Programs);
  bool Start(const QString& Programs);

  QTemporaryDir Folder_;
  QProcess Server_;
  QString Reason_;
};
