#pragma once

#include <QSet>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

/// Somebody who waits for a lock that another session has, as the server tells it.
struct TLockWait {
  qint64 Waiting = 0;
  qint64 Blocking = 0;  ///< 0 when the server does not tell who it is
  double Milliseconds = 0;
};

/// Reads the lock waits of a server, as often as it is asked to, on a connection of its own; on one thread.
class TLockView {
 public:
  virtual ~TLockView() = default;
  virtual std::vector<TLockWait> Waits() = 0;
};

/// A server of the load test's own, with the sample company, and what a server knows of those who use it.
class TLoadServer {
 public:
  virtual ~TLoadServer() = default;

  virtual QString Reason() const = 0;  ///< why there is none, for QSKIP
  virtual QString Name() const = 0;
  virtual std::string Address() const = 0;
  /// May be called on any thread; the connection belongs to it.
  virtual QSqlDatabase Connect(const QString& ConnectionName) const = 0;
  virtual QString SessionSql() const = 0;      ///< the number of the session that asks
  virtual QString ConnectionsSql() const = 0;  ///< how many clients are connected
  /// What nobody who is just connected has: open transactions, locks, prepared statements, temporary files. A line
  /// each, with their number.
  virtual QStringList Leftovers(const QSqlDatabase& Watching) const = 0;
  /// Over a connection of the thread that asks.
  virtual std::unique_ptr<TLockView> LockView(const QSqlDatabase& Watching) const = 0;
  /// What it holds in memory that no cache of a fixed size explains.
  virtual qint64 MemoryKiB(const QSqlDatabase& Watching) const = 0;
  /// So much more may it hold after the same load a second time.
  virtual qint64 AllowedGrowthKiB() const = 0;

  /// Makes the company with so many customers.
  void MakeCompany(int Customers);
};

std::unique_ptr<TLoadServer> NewPostgreSQLLoadServer(int Connections);
std::unique_ptr<TLoadServer> NewMariaDBLoadServer(int Connections);
