#pragma once

#include <libpq-fe.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <string_view>

namespace ads {

struct TPostgreSQLResultCloser {
  void operator()(PGresult* Result) const { PQclear(Result); }
};
using TPostgreSQLResult = std::unique_ptr<PGresult, TPostgreSQLResultCloser>;

/// The words of the server about a failure: its message and its detail where it gave one.
std::string PostgreSQLMessage(const PGresult* Result);

/// Whether a statement failed for something that no other statement would change: it was cancelled, the server gave its
/// transaction up to let others go on (a deadlock, a standby that follows its primary), or a server behind it is gone.
bool IsEndedByOthers(std::string_view State);

/// Statements and answers on a borrowed libpq connection, of which none holds up its caller for longer than it likes.
class TPostgreSQLTalk {
 public:
  using TTime = std::chrono::steady_clock::time_point;
  enum class TFormat : int { Text = 0, Binary = 1 };

  explicit TPostgreSQLTalk(PGconn* Handle) : Handle_(Handle) {}

  PGconn* Handle() const { return Handle_; }

  /// How the host's transaction stands, `PQTRANS_ACTIVE` while rows of the host's own are still to be read. Throws
  /// `EConnectionLost`.
  PGTransactionStatusType TakeStatus() const;
  bool IsLost() const { return PQstatus(Handle_) != CONNECTION_OK; }
  [[noreturn]] void RaiseLost() const;
  /// Throws `EConnectionLost` when an answer is the last one, with which the server has ended the session.
  void RequireNotLost(const PGresult* Answer) const;

  /// Sends statements that give no rows, separated by semicolons. Throws `EDatabaseError`.
  void Send(const std::string& Statements);
  /// Sends a single query, whose rows come one by one. Throws `EDatabaseError`.
  void SendQuery(const std::string& Sql, TFormat Format);

  /// Whether the next answer is there; waits for it until `Until`. Throws `EConnectionLost`.
  bool Await(TTime Until) const;
  /// The next answer, or null behind the last; to be called when it is there.
  TPostgreSQLResult Take() const { return TPostgreSQLResult(PQgetResult(Handle_)); }

  /// Asks the server to end what it is doing, without waiting for that. Whether it has heard it is what comes; what is
  /// sent before that may be ended as well.
  std::shared_future<bool> Cancel() const;

  /// Reads all answers that are still to come, until `Until` at most; false when they did not come.
  bool Drain(TTime Until) const;

  /// Cuts the connection, to a server that does not answer: every later use of it says that it is lost.
  void Cut() const;

 private:
  PGconn* Handle_;
};

}  // namespace ads
