#include "ads/PostgreSQLTalk.h"

#include <poll.h>
#include <sys/socket.h>

#include <cstring>
#include <thread>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/SQLLog.h"
#include "ads/Waiting.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

std::string ConnectionMessage(PGconn* Handle) {
  return std::string(zulcommon::Trim(PQerrorMessage(Handle)));
}

bool RequestCancel(PGcancel* Request) {
  char Ignored[256];
  const bool IsHeard = PQcancel(Request, Ignored, sizeof Ignored) == 1;
  PQfreeCancel(Request);
  return IsHeard;
}

}  // namespace

std::string PostgreSQLMessage(const PGresult* Result) {
  const char* Primary = PQresultErrorField(Result, PG_DIAG_MESSAGE_PRIMARY);
  if (Primary == nullptr) return std::string(zulcommon::Trim(PQresultErrorMessage(Result)));
  const char* Detail = PQresultErrorField(Result, PG_DIAG_MESSAGE_DETAIL);
  return Detail == nullptr ? Primary : std::string(Primary) + "\n" + Detail;
}

bool IsEndedByOthers(std::string_view State) {
  for (const char* Class : {"08", "40", "57"}) {  // connections of the server's own, transaction rollback, operators
    if (State.starts_with(Class)) return true;
  }
  return false;
}

// The end of a query of the host's whose rows were all read may have arrived without having been taken note of.
PGTransactionStatusType TPostgreSQLTalk::TakeStatus() const {
  if (IsLost()) RaiseLost();
  if (PQpipelineStatus(Handle_) != PQ_PIPELINE_OFF) return PQTRANS_ACTIVE;
  if (PQtransactionStatus(Handle_) == PQTRANS_ACTIVE && PQconsumeInput(Handle_) != 0) PQisBusy(Handle_);
  return PQtransactionStatus(Handle_);
}

void TPostgreSQLTalk::RaiseLost() const {
  RaiseConnectionLost(ConnectionMessage(Handle_));
}

// The server closes the connection behind its last words, which libpq does not know before it has read that.
void TPostgreSQLTalk::RequireNotLost(const PGresult* Answer) const {
  const char* Severity = PQresultErrorField(Answer, PG_DIAG_SEVERITY_NONLOCALIZED);
  const bool IsLast =
      Severity != nullptr && (std::strcmp(Severity, "FATAL") == 0 || std::strcmp(Severity, "PANIC") == 0);
  if (!IsLast && !IsLost()) return;
  if (!IsLost()) Cut();
  RaiseConnectionLost(PostgreSQLMessage(Answer));
}

void TPostgreSQLTalk::Send(const std::string& Statements) {
  LogOwn(Statements);
  if (PQsendQuery(Handle_, Statements.c_str()) != 0) return;
  if (IsLost()) RaiseLost();
  throw EDatabaseError(ConnectionMessage(Handle_));
}

void TPostgreSQLTalk::SendQuery(const std::string& Sql, TFormat Format) {
  if (Format == TFormat::Text) LogOwn(Sql);  // it was asked before, and told of by the reader of its rows
  // Sent so, a text can hold but one statement.
  if (PQsendQueryParams(Handle_, Sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, static_cast<int>(Format)) == 0) {
    if (IsLost()) RaiseLost();
    throw EDatabaseError(ConnectionMessage(Handle_));
  }
  PQsetSingleRowMode(Handle_);
}

bool TPostgreSQLTalk::Await(TTime Until) const {
  while (PQisBusy(Handle_) != 0) {
    pollfd Socket{PQsocket(Handle_), POLLIN, 0};
    const int Ready = poll(&Socket, 1, MillisecondsUntil(Until));
    if (Ready == 0) return false;
    if (Ready > 0 && PQconsumeInput(Handle_) == 0) RaiseLost();
  }
  return true;
}

// libpq waits until the server has heard it, which one that has gone silent never does; so it waits on a thread, which
// touches nothing but the request.
std::shared_future<bool> TPostgreSQLTalk::Cancel() const {
  std::promise<bool> Heard;
  std::shared_future<bool> Result = Heard.get_future().share();
  PGcancel* Request = PQgetCancel(Handle_);
  const auto Ask = [Request](std::promise<bool> Done) { Done.set_value(RequestCancel(Request)); };
  if (Request == nullptr) {
    Heard.set_value(false);
  } else {
    std::thread(Ask, std::move(Heard)).detach();
  }
  return Result;
}

bool TPostgreSQLTalk::Drain(TTime Until) const {
  while (Await(Until)) {
    if (Take() == nullptr) return true;
  }
  return false;
}

void TPostgreSQLTalk::Cut() const {
  shutdown(PQsocket(Handle_), SHUT_RDWR);
  PQconsumeInput(Handle_);
}

}  // namespace ads
