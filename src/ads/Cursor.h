#pragma once

#include <QSqlDatabase>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ads/zulads_export.h"

struct pg_conn;
struct sqlite3;

namespace ads {

/// How a server hands over one value.
enum class TValueKind : std::uint8_t { Null, Integer, Real, Text };

/// The rows of one running statement, read forward once. Destroying it ends the statement, whatever was read, and does
/// not touch what the host has closed meanwhile.
class ZULADS_EXPORT TCursor {
 public:
  virtual ~TCursor();

  /// Whether the connection is still the one on which the statement was run. To be asked whenever the host could have
  /// closed it; when it has, the cursor can only be destroyed.
  virtual bool IsConnected() const = 0;

  virtual int ColumnCount() const = 0;
  virtual std::string ColumnName(int Column) const = 0;

  /// Goes to the next row; false behind the last. Throws `EDatabaseError`.
  virtual bool Next() = 0;

  virtual TValueKind Kind(int Column) = 0;
  virtual std::int64_t Integer(int Column) = 0;  ///< only where Kind is Integer
  virtual double Real(int Column) = 0;           ///< only where Kind is Integer or Real

  /// The value as text, UTF-8 (a date as YYYY-MM-DD); valid until the next call for this column or `Next`. Not for Null.
  virtual std::string_view Text(int Column) = 0;
};

/// Throws the `EConnectionLost` for a connection that has broken off; `Message` is what the driver says of it.
[[noreturn]] void RaiseConnectionLost(const std::string& Message);

/// The SQLite handle behind a connection; null when its driver is another one.
sqlite3* SQLiteHandle(const QSqlDatabase& Database);

/// Gives the connection the functions that the SQLite dialect calls, once for as long as it is open.
void RegisterSQLiteFunctions(sqlite3* Handle);

/// Runs a rewritten statement through SQLite's C API.
std::unique_ptr<TCursor> OpenSQLiteCursor(const QSqlDatabase& Database, const std::string& Sql);

/// The libpq connection behind a connection of Qt's PostgreSQL driver; null when its driver is another one.
pg_conn* PostgreSQLHandle(const QSqlDatabase& Database);

/// Runs a rewritten statement through libpq, where the server refuses every write and nothing stays behind. A cursor that
/// is still being read from the same connection first takes the rest of its rows into memory.
std::unique_ptr<TCursor> OpenPostgreSQLCursor(const QSqlDatabase& Database, const std::string& Sql);

/// The ODBC connection (a SQLHDBC) behind an open connection of Qt's ODBC driver; null when its driver is another one.
void* ODBCHandle(const QSqlDatabase& Database);

/// What the ODBC driver says that it talks to.
enum class TODBCServer : std::uint8_t { PostgreSQL, SQLite, Other };
TODBCServer ODBCServer(void* Handle);

/// Runs a rewritten statement through ODBC; on PostgreSQL as `OpenPostgreSQLCursor` does.
std::unique_ptr<TCursor> OpenODBCCursor(const QSqlDatabase& Database, const std::string& Sql);

/// Runs a rewritten statement through Qt's generic result.
std::unique_ptr<TCursor> OpenQSqlCursor(const QSqlDatabase& Database, const std::string& Sql);

}  // namespace ads
