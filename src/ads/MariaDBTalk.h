#pragma once

#include <mysql.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>

namespace ads {

/// Statements and rows on a borrowed connection of the MariaDB client library, of which none holds up its caller for
/// longer than it likes. While something is under way, the library refuses every other use of the connection, which
/// would take the answer for its own.
class TMariaDBTalk {
 public:
  using TTime = std::chrono::steady_clock::time_point;

  explicit TMariaDBTalk(MYSQL* Handle);
  ~TMariaDBTalk();
  TMariaDBTalk(const TMariaDBTalk&) = delete;
  TMariaDBTalk& operator=(const TMariaDBTalk&) = delete;

  MYSQL* Handle() const { return Handle_; }
  bool IsLost() const;
  /// Whether somebody else is in the midst of a result.
  bool IsBusy() const;

  /// Begins a statement; to be called when nothing is under way.
  void Send(std::string Sql);
  /// Begins to read the next row of the result.
  void AskRow();
  bool IsDone() const { return Wait_ == 0; }
  /// Whether what was begun is done; waits for it until `Until`.
  bool Await(TTime Until);

  /// The number of the error with which it has failed, 0 when it has not. With the server's or the library's words.
  unsigned Failure() const { return mysql_errno(Handle_); }
  std::string Message() const;

  /// Takes the result of a statement that has not failed; null when it gives no rows. It belongs to the talk.
  MYSQL_RES* TakeResult();
  MYSQL_RES* Result() const { return Result_.get(); }
  /// Null behind the last row, and for a failure.
  MYSQL_ROW Row() const { return Row_; }
  /// Also when there was none: nothing is under way any more.
  void DropResult();

  /// Asks the server by another connection to end the statement that this one is at, without waiting for that. Whether
  /// it has heard it is what comes.
  std::shared_future<bool> Cancel() const;
  /// Reads the rows that are still to come, until `Until` at most; false when they did not come.
  bool Drain(TTime Until);
  /// Cuts the connection, to a server that does not answer: every later use of it says that it is lost.
  void Cut();

  /// The connection was closed: nothing of it may be touched any more.
  void Abandon();

 private:
  struct TFree {
    void operator()(MYSQL_RES* Result) const { mysql_free_result(Result); }
  };

  void ForbidWaiting();
  void LetWait();
  void Note(int Wait);
  void Resume(int Events);

  MYSQL* Handle_;
  my_bool Reconnects_ = 0;  // as the host has set it
  std::string Sql_;         // must stay as long as it is being sent
  std::unique_ptr<MYSQL_RES, TFree> Result_;
  MYSQL_ROW Row_ = nullptr;
  bool IsUnblocked_ = false;  // the socket, for the time of an answer
  bool IsRow_ = false;        // what is under way, or was last
  int Code_ = 0;
  int Wait_ = 0;  // what the library waits for; 0 when nothing is under way
  TTime TimesOut_;
  mysql_status Status_ = MYSQL_STATUS_READY;  // the connection's own, while it is kept from others
};

}  // namespace ads
