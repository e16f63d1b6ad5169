#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>
#include <memory>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "ads/ThrowawayMariaDB.h"
#include "ads/ThrowawayPostgreSQL.h"

struct sqlite3;

namespace support {

/// The kinds of connection over which a pick must give the same.
enum class TBackendKind { SQLite, PostgreSQL, ODBCSQLite, ODBCPostgreSQL, OtherSQLite, MariaDB, ODBCMariaDB };

inline constexpr TBackendKind AllBackends[] = {TBackendKind::SQLite,         TBackendKind::PostgreSQL,
                                               TBackendKind::MariaDB,        TBackendKind::ODBCSQLite,
                                               TBackendKind::ODBCPostgreSQL, TBackendKind::ODBCMariaDB};

/// The same, and Qt's own driver with a SQLite library that says of itself that it is another build than this
/// program's.
inline constexpr TBackendKind EveryBackend[] = {
    TBackendKind::SQLite,         TBackendKind::PostgreSQL,  TBackendKind::MariaDB,    TBackendKind::ODBCSQLite,
    TBackendKind::ODBCPostgreSQL, TBackendKind::ODBCMariaDB, TBackendKind::OtherSQLite};

/// To name a test's row after.
const char* NameOf(TBackendKind Kind);

/// Whether the data lie on the PostgreSQL server.
bool IsOnPostgreSQL(TBackendKind Kind);

bool IsOnMariaDB(TBackendKind Kind);

/// Whether the data are reached by ODBC.
bool IsByODBC(TBackendKind Kind);

/// A sample company of its own behind one kind of connection, open as a host would have it, for a test to pick from and
/// to change.
class TBackend {
 public:
  ~TBackend();
  TBackend(const TBackend&) = delete;
  TBackend& operator=(const TBackend&) = delete;

  TBackendKind Kind() const { return Kind_; }

  /// The host's connection.
  QSqlDatabase Database() const { return Database_; }
  ads::TAdsConnection* Connection() { return Connection_.get(); }

  /// Another connection to the same data by Qt's own driver (QSQLITE, QPSQL or QMYSQL), for watching what the host's
  /// leaves behind.
  QSqlDatabase Beside() const { return Beside_; }

  /// Run a statement of the server's own SQL; the test program ends when it fails.
  void Execute(const QString& Sql) { Execute(Database_, Sql); }
  void ExecuteBeside(const QString& Sql) { Execute(Beside_, Sql); }
  static void Execute(const QSqlDatabase& Database, const QString& Sql);

  /// The first value of a query of the server's own SQL, asked beside the host's connection.
  QVariant ValueBeside(const QString& Sql) const { return Value(Beside_, Sql); }
  static QVariant Value(const QSqlDatabase& Database, const QString& Sql);

 private:
  friend class TBackends;
  TBackend(TBackendKind Kind, QSqlDatabase Database, QSqlDatabase Beside, std::unique_ptr<QTemporaryDir> Folder);

  TBackendKind Kind_;
  std::unique_ptr<QTemporaryDir> Folder_;
  QSqlDatabase Database_;
  QSqlDatabase Beside_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

/// The handle of the host's connection where Qt's own driver for SQLite reaches it; null for every other kind.
sqlite3* SQLiteOf(const TBackend& Backend);

/// The kinds of connection, with a PostgreSQL server and, once it is asked for, a MariaDB server of the test program's
/// own; one of these a program. The company is generated once a server and copied for each backend.
class TBackends {
 public:
  TBackends();
  ~TBackends();

  /// Why a kind is not to be had on this machine, for QSKIP; empty when it is.
  QString Missing(TBackendKind Kind);

  /// A backend of a kind that is there. `Options` are added to the connection text of ODBC, or to the options of the
  /// driver for MariaDB.
  std::unique_ptr<TBackend> Open(TBackendKind Kind, const QString& Options = {});

  /// A new open connection to a backend's data as the host's, or under another account of the server.
  QSqlDatabase Connect(const TBackend& Backend, const QString& User = {});

  TThrowawayPostgreSQL& Server() { return *Server_; }

  /// The MariaDB server.
  TThrowawayMariaDB& MariaDB();

  /// Has the MariaDB server, as soon as it runs, write every statement that it gets to its own table for that.
  void RecordOnMariaDB() { RecordsOnMariaDB_ = true; }

  /// From here on SQLite is reached by ODBC through another driver, which is SQLite's in the end; named by its file.
  void UseSQLiteDriver(const QString& FileName) { SQLiteDriver_ = FileName; }

 private:
  QString CompanyFile();
  QString NewServerDatabase();
  QString NewMariaDBDatabase();
  QSqlDatabase Connect(TBackendKind Kind, const QString& Name, const QString& User, const QString& Options);

  QTemporaryDir Folder_;
  std::unique_ptr<TThrowawayPostgreSQL> Server_;
  std::unique_ptr<TThrowawayMariaDB> MariaDB_;
  QString SQLiteDriver_ = QStringLiteral("{SQLite3}");  // as its package registers it
  bool HasMariaDBCompany_ = false;
  bool RecordsOnMariaDB_ = false;
  int Databases_ = 0;
};

}  // namespace support
