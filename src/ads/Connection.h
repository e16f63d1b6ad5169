#pragma once

#include <QSqlDatabase>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ads/sql/Dialect.h"
#include "ads/zulads_export.h"

namespace ads {

class TCursor;
class TTrial;

/// The statements of one list, in the server's SQL.
struct TListStatements {
  std::string Source;  ///< what the dialog asked for, in its own SQL
  std::string Whole;
  std::string Page;  ///< gives the first rows of the whole one; empty where that cannot be asked for
  std::vector<std::string> SortColumns;  ///< by which the rows are sorted, among those of the result
};

/// The host's database connection, borrowed.
///
/// Wraps a QSqlDatabase that the host has opened and keeps open for as long as this object lives; what a dataset reads
/// is what the host's own transaction sees. Never opens, closes, begins, commits or configures anything that the host
/// could notice: a SQLite connection is only given two SQL functions of its own (`zul_upper`, `zul_like`), which stay
/// with it until it is closed; not one whose driver has another SQLite library than this program. On PostgreSQL and
/// MariaDB, by their own drivers or by ODBC, a query runs in a reading transaction of its own while the host has none
/// open, and behind a savepoint within the host's; both are gone when its rows are read.
///
/// A connection that was lost is not opened again here, because what the host had set up in it would be missing:
/// reading fails until the host has opened it.
///
/// Use it on the thread of the connection, which for the dialogs is the user-interface thread: on another, `Dialect`
/// and reading throw `EDatabaseError`.
class ZULADS_EXPORT TAdsConnection {
 public:
  explicit TAdsConnection(QSqlDatabase Database);
  ~TAdsConnection();
  TAdsConnection(const TAdsConnection&) = delete;  // datasets point to it
  TAdsConnection& operator=(const TAdsConnection&) = delete;

  const QSqlDatabase& Database() const { return Database_; }

  /// How this connection's server speaks; chosen by the driver and, over ODBC, by what the driver says that it talks to
  /// (a connection that is not open cannot be asked).
  const sql::TDialect& Dialect() const;

  /// Takes one SELECT of the dialogs' SQL for this server; with a page of `PageRows` rows unless that is 0. Throws
  /// `EDatabaseError` for anything but a single reading statement (see `sql::RequireReadingOnly`, which gets
  /// `AllowedFunctions`), and `EConnectionLost` when the connection is not open.
  TListStatements Statements(const std::string& Sql, std::span<const std::string> AllowedFunctions, int PageRows) const;

  /// A cursor for statements that `Statements` gave.
  std::unique_ptr<TCursor> NewCursor() const;

  /// Begins one SELECT of the dialogs' SQL, to be read forward. What the server itself refuses is thrown while it is
  /// read.
  std::unique_ptr<TCursor> OpenCursor(const std::string& Sql, std::span<const std::string> AllowedFunctions = {}) const;

  /// The trial that is under way on this connection; null when there is none. It sets itself.
  TTrial* Trial() const { return Trial_; }
  void SetTrial(TTrial* Trial) { Trial_ = Trial; }

 private:
  void RequireOwnThread() const;
  bool IsOfOwnSQLite() const;
  std::unique_ptr<TCursor> NewPlainCursor() const;

  QSqlDatabase Database_;
  mutable std::optional<bool> IsOfOwnSQLite_;  // of the driver, once it was asked
  TTrial* Trial_ = nullptr;
};

}  // namespace ads
