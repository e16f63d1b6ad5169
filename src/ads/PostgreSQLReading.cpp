#include "ads/PostgreSQLReading.h"

#include <poll.h>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/PostgreSQLStatements.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

std::string ConnectionMessage(PGconn* Handle) {
  return std::string(zulcommon::Trim(PQerrorMessage(Handle)));
}

// The state of the host's transaction. The end of a query of the host's whose rows were all read may have arrived
// without having been taken note of.
PGTransactionStatusType TakeStatus(PGconn* Handle) {
  if (PQstatus(Handle) != CONNECTION_OK) RaiseConnectionLost(ConnectionMessage(Handle));
  if (PQpipelineStatus(Handle) != PQ_PIPELINE_OFF) return PQTRANS_ACTIVE;
  if (PQtransactionStatus(Handle) == PQTRANS_ACTIVE && PQconsumeInput(Handle) != 0) PQisBusy(Handle);
  return PQtransactionStatus(Handle);
}

TPostgreSQLResult Execute(PGconn* Handle, const std::string& Sql) {
  return TPostgreSQLResult(PQexec(Handle, Sql.c_str()));
}

}  // namespace

std::string PostgreSQLMessage(const PGresult* Result) {
  const char* Primary = PQresultErrorField(Result, PG_DIAG_MESSAGE_PRIMARY);
  if (Primary == nullptr) return std::string(zulcommon::Trim(PQresultErrorMessage(Result)));
  const char* Detail = PQresultErrorField(Result, PG_DIAG_MESSAGE_DETAIL);
  return Detail == nullptr ? Primary : std::string(Primary) + "\n" + Detail;
}

TPostgreSQLScope::TPostgreSQLScope(PGconn* Handle, const std::string& Settings) : Handle_(Handle) {
  const PGTransactionStatusType Status = TakeStatus(Handle);
  if (Status == PQTRANS_ACTIVE) {
    throw EDatabaseError("The rows of another query are still being read from this connection.");
  }
  InHostsTransaction_ = Status != PQTRANS_IDLE;
  std::string Sql = InHostsTransaction_ ? postgresql::Savepoint : postgresql::Begin;
  if (!Settings.empty()) Sql += "; " + Settings;
  const TPostgreSQLResult Result = Execute(Handle, Sql);
  if (PQresultStatus(Result.get()) == PGRES_COMMAND_OK) return;
  if (PQstatus(Handle) != CONNECTION_OK) RaiseConnectionLost(ConnectionMessage(Handle));
  const std::string Message = PostgreSQLMessage(Result.get());
  if (Status != PQTRANS_INERROR) Execute(Handle, InHostsTransaction_ ? postgresql::BackToSavepoint : "ROLLBACK");
  throw EDatabaseError(Message);
}

TPostgreSQLScope::~TPostgreSQLScope() {
  if (Handle_ == nullptr) return;
  switch (PQtransactionStatus(Handle_)) {
    case PQTRANS_INTRANS:
    case PQTRANS_INERROR:
      Execute(Handle_, InHostsTransaction_ ? postgresql::BackToSavepoint : "ROLLBACK");
      break;
    default:
      break;  // the connection is lost
  }
}

TPostgreSQLAnswer::TPostgreSQLAnswer(PGconn* Handle, const std::string& Sql, TFormat Format) : Handle_(Handle) {
  // Sent so, a text can hold but one statement.
  const int Sent =
      PQsendQueryParams(Handle, Sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, static_cast<int>(Format));
  if (Sent == 0) throw EDatabaseError(ConnectionMessage(Handle));
  PQsetSingleRowMode(Handle);
}

bool TPostgreSQLAnswer::Next() {
  if (AtEnd_) return false;
  Result_.reset(PQgetResult(Handle_));
  if (Result_ == nullptr) {
    AtEnd_ = true;
    throw EDatabaseError("The connection was used for something else while the rows of a list were read from it.");
  }
  switch (PQresultStatus(Result_.get())) {
    case PGRES_SINGLE_TUPLE:
      return true;
    case PGRES_TUPLES_OK:
      TPostgreSQLResult(PQgetResult(Handle_));
      AtEnd_ = true;
      return false;
    case PGRES_COMMAND_OK:
    case PGRES_EMPTY_QUERY:
      throw EDatabaseError("The query gives no rows.");
    default:
      RaiseFailure();
  }
}

void TPostgreSQLAnswer::RaiseFailure() {
  const std::string Message = PostgreSQLMessage(Result_.get());
  while (TPostgreSQLResult(PQgetResult(Handle_)) != nullptr) continue;
  AtEnd_ = true;
  if (PQstatus(Handle_) != CONNECTION_OK) RaiseConnectionLost(Message);
  throw EDatabaseError(Message);
}

// Whether what the server has still to say arrives within a moment: the end of a query that was read to its last row.
bool TPostgreSQLAnswer::IsEndNear() {
  constexpr int Moment = 20;  // milliseconds
  while (PQconsumeInput(Handle_) != 0) {
    if (PQisBusy(Handle_) == 0) return true;
    pollfd Socket{PQsocket(Handle_), POLLIN, 0};
    if (poll(&Socket, 1, Moment) != 1) return false;
  }
  return true;  // the connection is lost, which ends the query as well
}

void TPostgreSQLAnswer::Cancel() {
  char Ignored[256];
  PGcancel* Request = PQgetCancel(Handle_);
  PQcancel(Request, Ignored, sizeof Ignored);
  PQfreeCancel(Request);
}

TPostgreSQLAnswer::~TPostgreSQLAnswer() {
  constexpr int FewRows = 2;
  bool Cancelled = false;
  for (int Rows = 0; !AtEnd_; ++Rows) {
    if (!Cancelled && (Rows == FewRows || !IsEndNear())) {
      Cancel();
      Cancelled = true;
    }
    Result_.reset(PQgetResult(Handle_));
    AtEnd_ = Result_ == nullptr;
  }
}

}  // namespace ads
