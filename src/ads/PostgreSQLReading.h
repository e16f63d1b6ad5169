#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>

namespace ads {

struct TPostgreSQLResultCloser {
  void operator()(PGresult* Result) const { PQclear(Result); }
};
using TPostgreSQLResult = std::unique_ptr<PGresult, TPostgreSQLResultCloser>;

/// What a query of the pick lists stands in, so that the server itself refuses every write and nothing of the query
/// stays behind: a transaction of its own, or inside the host's transaction a savepoint, to which it goes back in the
/// end. That takes back the locks, the settings and a failure alike.
class TPostgreSQLScope {
 public:
  /// `Settings` are statements that the scope is to begin with; it ends what they set. Throws `EDatabaseError`, and
  /// then there is no scope, when the connection is lost, when the rows of another query are still to be read from it,
  /// or with what the server says.
  TPostgreSQLScope(PGconn* Handle, const std::string& Settings);
  ~TPostgreSQLScope();

  /// The connection was closed, and the scope with it.
  void Abandon() { Handle_ = nullptr; }

  TPostgreSQLScope(const TPostgreSQLScope&) = delete;
  TPostgreSQLScope& operator=(const TPostgreSQLScope&) = delete;

 private:
  PGconn* Handle_;
  bool InHostsTransaction_;
};

/// One running query, row by row: no more than a row of its result is in memory. Destroying it ends the query, whatever
/// was read.
class TPostgreSQLAnswer {
 public:
  enum class TFormat : int { Text = 0, Binary = 1 };

  /// Sends a single statement. Throws `EDatabaseError`.
  TPostgreSQLAnswer(PGconn* Handle, const std::string& Sql, TFormat Format);
  ~TPostgreSQLAnswer();

  /// The connection was closed, and the query with it.
  void Abandon() { AtEnd_ = true; }

  TPostgreSQLAnswer(const TPostgreSQLAnswer&) = delete;
  TPostgreSQLAnswer& operator=(const TPostgreSQLAnswer&) = delete;

  /// Goes to the next row; false behind the last. Throws `EDatabaseError`.
  bool Next();

  /// The current row, or behind the last one a result without rows; it describes the columns in either case.
  const PGresult* Result() const { return Result_.get(); }

 private:
  [[noreturn]] void RaiseFailure();
  bool IsEndNear();
  void Cancel();

  PGconn* Handle_;
  TPostgreSQLResult Result_;
  bool AtEnd_ = false;  // the server has nothing more to say
};

/// The words of the server about a failure: its message and its detail where it gave one.
std::string PostgreSQLMessage(const PGresult* Result);

}  // namespace ads
