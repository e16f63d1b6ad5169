#pragma once

#include <QProcess>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "ads/ThrowawayPostgreSQL.h"

/// A pooler of the test's own in front of a server, on a socket in a temporary folder; gone when the object is. Where
/// this machine has none, `IsRunning` is false and `Reason` says what is missing; a test then skips.
class TThrowawayPgBouncer {
 public:
  /// Whether a server's connection belongs to a client as long as that is connected, or for a transaction at a time.
  enum class TMode { Session, Transaction };

  /// `Settings` are lines of its file, as "name = value", and stand before its own. The server must live longer.
  TThrowawayPgBouncer(const TThrowawayPostgreSQL& Server, TMode Mode, QStringList Settings = {});
  ~TThrowawayPgBouncer();
  TThrowawayPgBouncer(const TThrowawayPgBouncer&) = delete;
  TThrowawayPgBouncer& operator=(const TThrowawayPgBouncer&) = delete;

  bool IsRunning() const { return Reason_.isEmpty(); }
  const QString& Reason() const { return Reason_; }

  /// The folder of its socket, which is its host name, and the port by which it is found there and on 127.0.0.1.
  QString Host() const { return Folder_.path(); }
  int Port() const { return Port_; }

  /// A new open connection through it, with the name under which QSqlDatabase knows it.
  QSqlDatabase Connect(const QString& ConnectionName, const QString& DatabaseName) const;

  /// What its console answers to a command: a line for each row, "name=value" for each of its columns.
  QStringList Ask(const QString& Command) const;

  /// What it has written about itself since it was started for the first time.
  QString Log() const;

  /// Ends it at once, whoever is connected, and starts it again; false when it does not come.
  void Stop();
  bool Restart();

 private:
  bool WriteSettings(const TThrowawayPostgreSQL& Server, TMode Mode, const QStringList& Settings) const;
  bool Start();
  QString LogName() const;

  QTemporaryDir Folder_;
  QString Program_;
  int Port_;
  QProcess Pooler_;
  QString Reason_;
};
