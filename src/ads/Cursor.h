#pragma once

#include <QSqlDatabase>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ads/EDatabaseError.h"
#include "ads/zulads_export.h"

struct pg_conn;
struct sqlite3;
struct st_mysql;

namespace ads {

/// How a server hands over one value.
enum class TValueKind : std::uint8_t { Null, Integer, Real, Text };

/// The host has used the connection in a way that ended or spoiled a reading: it has to be done once more.
class EDisturbed : public EDatabaseError {
 public:
  EDisturbed();
  ~EDisturbed() override;
};

/// One run of a statement, read forward once and in portions: it is begun, asked to go on for a while as often as its
/// reader likes, and ended at any time by destroying it, which stops the server too and leaves nothing open in the
/// database. It does not touch what the host has closed meanwhile.
class ZULADS_EXPORT TCursor {
 public:
  using TTime = std::chrono::steady_clock::time_point;
  /// Waits for as long as it takes.
  static constexpr TTime Forever = TTime::max();
  /// Gets the row on which the cursor stands; false when no more are wanted for now.
  using TTakeRow = std::function<bool()>;

  virtual ~TCursor();

  /// Whether the connection is still the one on which the statement was run. To be asked whenever the host could have
  /// closed it; when it has, the cursor can only be destroyed.
  virtual bool IsConnected() const = 0;

  /// Throws what is wrong with a statement that will be begun later, where that can be known without running it.
  virtual void Check(const std::string&) {}

  /// Has the server prepare a statement without running it, and gives the names of the columns of its result where they
  /// are known then. For any number of statements, but not once one was begun; what it opens for them ends with the
  /// cursor, which is of no more use when one has failed. Throws `EDatabaseError`.
  virtual std::vector<std::string> Prepare(const std::string& Sql) = 0;

  /// Begins a statement, in the server's SQL. One that was begun before is ended, but both see one state of the data
  /// where the server can do that. Throws `EDatabaseError`.
  virtual void Begin(const std::string& Sql) = 0;

  /// Goes on until about `Until`, handing each row to `Take`; earlier when `Take` returns false, and then the cursor
  /// stays on that row. Whether there may be more: false behind the last row, when nothing is open any more. Throws
  /// `EDatabaseError`, and `EDisturbed` in particular, after which it has ended too; also what `Take` throws.
  virtual bool GoOn(TTime Until, const TTakeRow& Take) = 0;

  /// Whether the host may use the connection for itself while the cursor is being left.
  virtual bool IsShareable() const = 0;

  /// Goes to the next row, however long that takes; false behind the last.
  bool Next();

  // Known from the first row, or the end of the rows, on.
  virtual int ColumnCount() const = 0;
  virtual std::string ColumnName(int Column) const = 0;

  virtual TValueKind Kind(int Column) = 0;
  virtual std::int64_t Integer(int Column) = 0;  ///< only where Kind is Integer
  virtual double Real(int Column) = 0;           ///< only where Kind is Integer or Real

  /// The value as text, UTF-8 (a date as YYYY-MM-DD); valid until the next call for this column or the next row. Not
  /// for Null.
  virtual std::string_view Text(int Column) = 0;

  /// Called when another reading needs the connection, which this one cannot share: it must destroy the cursor. Without
  /// it the cursor takes the rest of its rows into memory.
  std::function<void()> OnMakeWay;

  /// Whether rows that the host changes by the same connection, while it is in the midst of its own, disturb it.
  bool MindsChanges = false;

 protected:
  /// To be asked after each row: whether `Until` is there. The clock is read for some of them only.
  bool IsTime(TTime Until) {
    constexpr unsigned RowsBetweenClockReads = 16;
    return ++Rows_ % RowsBetweenClockReads == 0 && std::chrono::steady_clock::now() >= Until;
  }

 private:
  unsigned Rows_ = 0;
};

/// Throws the `EConnectionLost` for a connection that has broken off; `Message` is what the driver says of it.
[[noreturn]] void RaiseConnectionLost(const std::string& Message);

/// The SQLite handle behind a connection; null when its driver is another one. It belongs to the driver's own SQLite
/// library, so it is no more than an address unless `IsOfOwnSQLite`.
sqlite3* SQLiteHandle(const QSqlDatabase& Database);

/// Whether a connection's SQLite library is the very one that this program uses, so that its C API may be called with
/// the handle. Qt's driver may bring a library of its own. Asks the open connection once.
bool IsOfOwnSQLite(const QSqlDatabase& Database);

/// Gives the connection the functions that the SQLite dialect calls, once for as long as it is open.
void RegisterSQLiteFunctions(sqlite3* Handle);

/// Reads through SQLite's C API; for a connection that is of our own SQLite.
std::unique_ptr<TCursor> NewSQLiteCursor(const QSqlDatabase& Database);

/// The libpq connection behind a connection of Qt's PostgreSQL driver; null when its driver is another one. In a build
/// without PostgreSQL such a connection throws `EDatabaseError`, which says so.
pg_conn* PostgreSQLHandle(const QSqlDatabase& Database);

/// Reads through libpq, where the server refuses every write and nothing stays behind. Another cursor that is being
/// read from the same connection makes way.
std::unique_ptr<TCursor> NewPostgreSQLCursor(const QSqlDatabase& Database);

/// The client library's connection behind an open connection of Qt's driver for MariaDB; null when its driver is
/// another one.
st_mysql* MariaDBHandle(const QSqlDatabase& Database);

/// Reads through the client library of MariaDB, where nothing stays behind, and the server refuses every write outside
/// of the host's transactions. Another cursor that is being read from the same connection makes way. Throws
/// `EDatabaseError` for a server that is another one, and where the library was built without MariaDB.
std::unique_ptr<TCursor> NewMariaDBCursor(const QSqlDatabase& Database);

/// The ODBC connection (a SQLHDBC) behind an open connection of Qt's ODBC driver; null when its driver is another one.
/// In a build without ODBC a connection of that driver throws `EDatabaseError`, which says so.
void* ODBCHandle(const QSqlDatabase& Database);

/// What the ODBC driver says that it talks to.
enum class TODBCServer : std::uint8_t { PostgreSQL, MariaDB, SQLite, Other };
TODBCServer ODBCServer(void* Handle);
/// The name and the version of what it talks to, as the ODBC driver tells them.
std::string ODBCServerName(void* Handle);
std::string ODBCServerVersion(void* Handle);

/// Reads through ODBC; on PostgreSQL and MariaDB as their own cursors do.
std::unique_ptr<TCursor> NewODBCCursor(const QSqlDatabase& Database);

/// Reads through Qt's generic result: any other server, and a SQLite library of the driver's own.
std::unique_ptr<TCursor> NewQSqlCursor(const QSqlDatabase& Database);

}  // namespace ads
