#pragma once

#include <QProcess>
#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>
#include <string>

#include "ads/ServerProcess.h"

/// A MariaDB server of the test's own, on a socket in a temporary folder and on a port of this machine alone, with one
/// empty database `test`; all are gone when the object is. Its account `tester` may do everything, without a password.
/// Where this machine has no MariaDB, `IsRunning` is false and `Reason` says what is missing; a test then skips.
class TThrowawayMariaDB {
 public:
  explicit TThrowawayMariaDB(TServerOptions Options = {});
  ~TThrowawayMariaDB();
  TThrowawayMariaDB(const TThrowawayMariaDB&) = delete;
  TThrowawayMariaDB& operator=(const TThrowawayMariaDB&) = delete;

  bool IsRunning() const { return Reason_.isEmpty(); }
  const QString& Reason() const { return Reason_; }

  /// A new connection by the socket, with the name under which QSqlDatabase knows it; open unless the server refused
  /// it.
  QSqlDatabase Connect(const QString& ConnectionName, const QString& DatabaseName = QStringLiteral("test"),
                       const QString& User = QStringLiteral("tester"), const QString& Password = {},
                       const QString& Options = {}) const;

  qint64 ProcessId() const { return Server_.processId(); }
  QString Socket() const { return Folder_.filePath("socket"); }
  /// On 127.0.0.1.
  int Port() const { return Port_; }

  /// The address of one of its databases, by the socket.
  std::string Address(const QString& DatabaseName) const;

  /// Ends the server at once, whoever is connected, and starts it again over the same data; false when it does not
  /// come.
  void Stop();
  bool Restart();

 private:
  bool CreateData();
  bool Start();

  QString DataFolder() const;

  TServerOptions Options_;
  QTemporaryDir Folder_;
  QProcess Server_;
  int Port_ = 0;
  QString Reason_;
};
