#pragma once

#include <QProcess>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <string>

#include "ads/ServerProcess.h"

/// A PostgreSQL server of the test's own, on a socket in a temporary folder, with one empty database; both are gone
/// when the object is. Where this machine has no PostgreSQL, `IsRunning` is false and `Reason` says what is missing;
/// a test then skips. There can be several at a time.
class TThrowawayPostgreSQL {
 public:
  struct TOptions : TServerOptions {
    bool OnLoopback = false;                        ///< listens on 127.0.0.1, too
    const TThrowawayPostgreSQL* Primary = nullptr;  ///< that it is a hot standby of, from now on
  };

  explicit TThrowawayPostgreSQL(TServerOptions Options = {});
  explicit TThrowawayPostgreSQL(TOptions Options);
  ~TThrowawayPostgreSQL();
  TThrowawayPostgreSQL(const TThrowawayPostgreSQL&) = delete;
  TThrowawayPostgreSQL& operator=(const TThrowawayPostgreSQL&) = delete;

  bool IsRunning() const { return Reason_.isEmpty(); }
  const QString& Reason() const { return Reason_; }

  /// A new open connection, with the name under which QSqlDatabase knows it.
  QSqlDatabase Connect(const QString& ConnectionName, const QString& DatabaseName = QStringLiteral("postgres")) const;

  /// The folder of its socket, which is its host name.
  QString Host() const { return Folder_.path(); }
  int Port() const { return Port_; }

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
  bool Run(const QString& Program, const QStringList& Arguments) const;
  bool Start();

  QString DataFolder() const;

  TOptions Options_;
  QTemporaryDir Folder_;
  QString Programs_;
  int Port_ = 5432;  // of the socket in a folder of its own, unless others can come by it
  QProcess Server_;
  QString Reason_;
};
