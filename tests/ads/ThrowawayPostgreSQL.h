#pragma once

#include <QProcess>
#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>
#include <string>

#include "ads/ServerProcess.h"

/// A PostgreSQL server of the test's own, on a socket in a temporary folder, with one empty database; both are gone
/// when the object is. Where this machine has no PostgreSQL, `IsRunning` is false and `Reason` says what is missing;
/// a test then skips.
class TThrowawayPostgreSQL {
 public:
  explicit TThrowawayPostgreSQL(TServerOptions Options = {});
  ~TThrowawayPostgreSQL();
  TThrowawayPostgreSQL(const TThrowawayPostgreSQL&) = delete;
  TThrowawayPostgreSQL& operator=(const TThrowawayPostgreSQL&) = delete;

  bool IsRunning() const { return Reason_.isEmpty(); }
  const QString& Reason() const { return Reason_; }

  /// A new open connection, with the name under which QSqlDatabase knows it.
  QSqlDatabase Connect(const QString& ConnectionName, const QString& DatabaseName = QStringLiteral("postgres")) const;

  /// The folder of its socket, which is its host name.
  QString Host() const { return Folder_.path(); }

  /// Of the server's first process, whose children the others are.
  qint64 ProcessId() const { return Server_.processId(); }

  /// The address of one of its databases, as libpq reads it.
  std::string Address(const QString& DatabaseName) const;

  /// Ends the server at once, whoever is connected, and starts it again over the same data; false when it does not
  /// come.
  void Stop();
  bool Restart();

 private:
  bool CreateCluster();
  bool Start();

  QString DataFolder() const;

  TServerOptions Options_;
  QTemporaryDir Folder_;
  QString Programs_;
  QProcess Server_;
  QString Reason_;
};
