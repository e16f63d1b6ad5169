#pragma once

#include <QProcess>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <string>

#include "ads/ServerProcess.h"

/// A MariaDB server of the test's own, on a socket in a temporary folder and on a port of this machine alone, with one
/// empty database `test`; all are gone when the object is, or when the test program has ended in whatever way. Its
/// account `tester` may do everything, without a password. Where this machine has no MariaDB, `IsRunning` is false and
/// `Reason` says what is missing; a test then skips.
class TThrowawayMariaDB {
 public:
  explicit TThrowawayMariaDB(TServerOptions Options = {});
  virtual ~TThrowawayMariaDB();
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
  QString Folder() const { return Folder_.path(); }
  QString Socket() const { return Folder_.filePath("socket"); }
  /// On 127.0.0.1; the same one as long as the object lives.
  int Port() const { return Port_; }

  /// The address of one of its databases, by the socket.
  std::string Address(const QString& DatabaseName) const;

  /// Whether its process runs; it may answer or not.
  bool IsStarted() const { return Server_.state() != QProcess::NotRunning; }
  /// Ends the server, whoever is connected: in order, or by killing it.
  void Stop();
  void Kill();
  /// Starts it over the same data, with more settings for this time alone; false when it does not come.
  bool Start(const QStringList& More = {});
  bool Restart();

  /// A program of MariaDB's packages; empty when it is not installed.
  static QString Find(const QString& Program);

 protected:
  /// Where the data come from: made at once, or given by other servers when this one joins them.
  enum class TData { Made, Given };
  TThrowawayMariaDB(TServerOptions Options, TData Data);
  /// Whether somebody can work with a server that runs.
  virtual bool Answers() const;

 private:
  bool MakeFolders();
  bool CreateData();
  QString DataFolder() const;

  TServerOptions Options_;
  QTemporaryDir Folder_;
  QProcess Server_;
  int Port_ = FreeLoopbackPort();
  QString Reason_;
};
