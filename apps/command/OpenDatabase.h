#pragma once

#include <QSqlDatabase>
#include <memory>
#include <stdexcept>
#include <string>

#include "ads/Connection.h"

namespace command {

/// The message when there is no address.
inline constexpr const char* NoDatabase = "No database is given: use --db or the environment's ZUL_DB.";

/// A database cannot be opened; `what()` says which and why, ready to be shown. It never holds a password.
class EOpenError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A database that a program opens for itself, as a host would, and closes at the end.
///
/// An address is the name of a SQLite file, a postgresql:// or mysql:// address or "odbc:" with a data source. A file
/// that does not exist is not created, and one that may only be read is opened all the same. Needs the application
/// object.
class TDatabase {
 public:
  /// Throws `EOpenError`.
  explicit TDatabase(const std::string& Address);
  ~TDatabase();
  TDatabase(const TDatabase&) = delete;  // the connection is its own
  TDatabase& operator=(const TDatabase&) = delete;

  ads::TAdsConnection* Connection() { return Connection_.get(); }

  /// The address to be shown to somebody: without a password, a file's with its whole path.
  const std::string& ShownAddress() const { return ShownAddress_; }

 private:
  std::string ShownAddress_;
  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

}  // namespace command
