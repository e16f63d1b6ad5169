#include <QSqlDriver>
#include <QVariant>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <exception>
#include <utility>
#include <vector>

#include "ads/Cursor.h"
#include "ads/KeptRows.h"
#include "ads/PostgreSQLStatements.h"
#include "ads/PostgreSQLTalk.h"
#include "ads/PostgreSQLValues.h"
#include "ads/RunningCursors.h"
#include "ads/Stopping.h"

namespace ads {

namespace {

using TFormat = TPostgreSQLTalk::TFormat;

class TPostgreSQLCursor;

TRunningCursors<PGconn*, TPostgreSQLCursor>& Running() {
  static TRunningCursors<PGconn*, TPostgreSQLCursor> Instance;
  return Instance;
}

/// Reads binary values, which no setting of the session touches; a result with a column of a type that cannot be read
/// so is asked for again as text.
///
/// What a query stands in makes the server itself refuse every write, and lets nothing of the query stay behind: a
/// transaction of its own, or inside the host's transaction a savepoint, to which it goes back in the end. That takes
/// back the locks, the settings and a failure alike.
class TPostgreSQLCursor final : public TCursor {
 public:
  explicit TPostgreSQLCursor(const QSqlDatabase& Database)
      : Database_(Database), Talk_(PostgreSQLHandle(Database)), Process_(PQbackendPID(Talk_.Handle())) {
    if (Talk_.IsLost()) Talk_.RaiseLost();
  }
  ~TPostgreSQLCursor() override {
    if (IsConnected()) Abort();
    NoLongerRunning();
  }
  TPostgreSQLCursor(const TPostgreSQLCursor&) = delete;
  TPostgreSQLCursor& operator=(const TPostgreSQLCursor&) = delete;

  // A connection that was opened again may have the address of the one before, but another process on the server.
  bool IsConnected() const override {
    if (PostgreSQLHandle(Database_) != Talk_.Handle()) return false;
    return Talk_.IsLost() || PQbackendPID(Talk_.Handle()) == Process_;
  }

  bool IsShareable() const override { return false; }

  void Begin(const std::string& Sql) override {
    Sql_ = Sql;
    Format_ = TFormat::Binary;
    Names_.clear();
    if (Phase_ == TPhase::Reading) return EndQuery(TPhase::Asking);
    if (Phase_ != TPhase::Idle) return;
    Running().MakeWayFor(Talk_.Handle(), this);
    OpenScope();
  }

  // The statement without a name is gone with the next text that is sent, which is the end of what it stands in.
  std::vector<std::string> Prepare(const std::string& Sql) override {
    Running().MakeWayFor(Talk_.Handle(), this);
    OpenScope();
    PassTo(TPhase::Asking);
    std::vector<std::string> Names;
    if (Phase_ == TPhase::Asking) {
      TPostgreSQLResult Answer(PQprepare(Talk_.Handle(), "", Sql.c_str(), 0, nullptr));
      if (PQresultStatus(Answer.get()) == PGRES_COMMAND_OK) Answer.reset(PQdescribePrepared(Talk_.Handle(), ""));
      if (Talk_.IsLost()) Talk_.RaiseLost();
      if (PQresultStatus(Answer.get()) != PGRES_COMMAND_OK) FailAs(Answer.get());
      for (int Column = 0; Column < PQnfields(Answer.get()); ++Column) {
        Names.emplace_back(PQfname(Answer.get(), Column));
      }
      CloseScope();
      PassTo(TPhase::Idle);
    }
    if (Failure_) std::rethrow_exception(std::exchange(Failure_, nullptr));
    return Names;
  }

  bool GoOn(TTime Until, const TTakeRow& Take) override {
    if (Kept_.AreKept()) return Kept_.Give(Values_, Take);
    OnRow_ = false;
    while (Phase_ != TPhase::Idle) {
      if (!Talk_.Await(Until) || !Stopping_.IsSettled(Until)) return true;
      if (!TakeAnswer()) continue;
      OnRow_ = true;
      if (!Take() || IsTime(Until)) return true;
    }
    if (Failure_) std::rethrow_exception(std::exchange(Failure_, nullptr));
    return false;
  }

  int ColumnCount() const override { return static_cast<int>(Names_.size()); }
  std::string ColumnName(int Column) const override { return Names_[static_cast<std::size_t>(Column)]; }

  TValueKind Kind(int Column) override {
    if (Value(Column).data() == nullptr) return TValueKind::Null;
    if (Format_ == TFormat::Text || Shape(Column) > TPostgreSQLShape::Float8) return TValueKind::Text;
    return Shape(Column) <= TPostgreSQLShape::Oid ? TValueKind::Integer : TValueKind::Real;
  }
  std::int64_t Integer(int Column) override { return PostgreSQLInteger(Shape(Column), Value(Column).data()); }
  double Real(int Column) override {
    if (Shape(Column) <= TPostgreSQLShape::Oid) return static_cast<double>(Integer(Column));
    return PostgreSQLReal(Shape(Column), Value(Column).data());
  }
  std::string_view Text(int Column) override {
    const auto TextOf = Format_ == TFormat::Binary ? PostgreSQLText : PostgreSQLTextOfText;
    return TextOf(Shape(Column), Value(Column), Texts_[static_cast<std::size_t>(Column)]);
  }

  // Frees the connection for another query in the midst of this one.
  void KeepTheRest() {
    Kept_.Keep(Values_, OnRow_, [this](const TTakeRow& Take) { GoOn(Forever, Take); });
  }

 private:
  enum class TPhase {
    Idle,     // nothing is open
    Opening,  // the transaction or savepoint is being begun
    Ending,   // what is left of a query is being waited for
    Setting,  // the texts are being set up for a query that cannot be read otherwise
    Asking,   // the query is to be sent
    Reading,  // its rows come
    Closing,  // the transaction or savepoint is being ended
  };

  TPostgreSQLShape Shape(int Column) const { return Shapes_[static_cast<std::size_t>(Column)]; }
  std::string_view Value(int Column) const { return Values_[static_cast<std::size_t>(Column)]; }

  void OpenScope() {
    const PGTransactionStatusType Status = Talk_.TakeStatus();
    if (Status == PQTRANS_ACTIVE) {
      throw EDatabaseError("The rows of another query are still being read from this connection.");
    }
    InHostsTransaction_ = Status != PQTRANS_IDLE;
    HadFailed_ = Status == PQTRANS_INERROR;
    std::string Sql = InHostsTransaction_ ? postgresql::Savepoint : postgresql::Begin;
    const char* Encoding = PQparameterStatus(Talk_.Handle(), "client_encoding");
    if (Encoding != nullptr && std::strcmp(Encoding, "UTF8") != 0) Sql += "; SET LOCAL client_encoding = 'UTF8'";
    Talk_.Send(Sql);
    Phase_ = TPhase::Opening;
    IsDisturbed_ = false;
    Running().Set(Talk_.Handle(), this);
  }

  void NoLongerRunning() { Running().Forget(Talk_.Handle(), this); }

  // Takes answers until a phase is there, or none is to come because it failed.
  void PassTo(TPhase Wanted) {
    while (Phase_ != Wanted && Phase_ != TPhase::Idle) {
      Talk_.Await(Forever);
      TakeAnswer();
    }
  }

  // Takes the next answer of the server and does what follows from it; whether it is a row.
  bool TakeAnswer() {
    switch (Phase_) {
      case TPhase::Asking:
        Talk_.SendQuery(Sql_, Format_);
        Phase_ = TPhase::Reading;
        return false;
      case TPhase::Reading:
        return TakeRow();
      default:
        TakeDone();
        return false;
    }
  }

  // An answer to statements without rows.
  void TakeDone() {
    const TPostgreSQLResult Answer = Talk_.Take();
    if (Answer != nullptr) {
      const ExecStatusType Status = PQresultStatus(Answer.get());
      if (Status != PGRES_FATAL_ERROR) return;
      Talk_.RequireNotLost(Answer.get());
      if (Phase_ != TPhase::Ending && !Failure_) FailAs(Answer.get());
      return;
    }
    switch (Phase_) {
      case TPhase::Opening:
        if (Failure_) return CloseScope();
        Phase_ = TPhase::Asking;
        return;
      case TPhase::Setting:
        Phase_ = TPhase::Asking;
        return;
      case TPhase::Ending:
        if (AfterEnding_ == TPhase::Closing) return CloseScope();
        Phase_ = AfterEnding_;
        if (Phase_ == TPhase::Setting) Talk_.Send(postgresql::TextSettings);
        return;
      default:
        Phase_ = TPhase::Idle;
        NoLongerRunning();
    }
  }

  // What the host sends meanwhile throws away what was still to come.
  bool TakeRow() {
    Result_ = Talk_.Take();
    if (Result_ == nullptr) {
      IsDisturbed_ = true;
      Failure_ = std::make_exception_ptr(EDisturbed());
      CloseScope();
      return false;
    }
    switch (PQresultStatus(Result_.get())) {
      case PGRES_SINGLE_TUPLE:
      case PGRES_TUPLES_OK:
        break;
      case PGRES_COMMAND_OK:
      case PGRES_EMPTY_QUERY:
        Fail("The query gives no rows.");
        EndQuery(TPhase::Closing);
        return false;
      default:
        Talk_.RequireNotLost(Result_.get());
        FailAs(Result_.get());
        EndQuery(TPhase::Closing);
        return false;
    }
    if (Names_.empty() && !Describe()) return false;
    if (PQresultStatus(Result_.get()) == PGRES_TUPLES_OK) {
      EndQuery(TPhase::Closing);
      return false;
    }
    ReadValues();
    return true;
  }

  void Fail(const std::string& Message) { Failure_ = std::make_exception_ptr(EDatabaseError(Message)); }

  void FailAs(const PGresult* Answer) {
    constexpr std::string_view InFailedTransaction = "25P02";
    const char* State = PQresultErrorField(Answer, PG_DIAG_SQLSTATE);
    if (State != nullptr && State == InFailedTransaction && !HadFailed_) {
      // What has failed before is nothing of the library's, which goes no further then.
      IsDisturbed_ = true;
      Failure_ = std::make_exception_ptr(EDisturbed());
      return;
    }
    if (State == nullptr || !IsEndedByOthers(State)) return Fail(PostgreSQLMessage(Answer));
    Failure_ = std::make_exception_ptr(EQueryEnded(PostgreSQLMessage(Answer)));
  }

  // Waits for the end of the answers to a query, and goes on with `After` then.
  void EndQuery(TPhase After) {
    Phase_ = TPhase::Ending;
    AfterEnding_ = After;
  }

  // False when the query has to be asked once more, as text.
  bool Describe() {
    Shapes_.clear();
    for (int Column = 0; Column < PQnfields(Result_.get()); ++Column) {
      Names_.emplace_back(PQfname(Result_.get(), Column));
      Shapes_.push_back(PostgreSQLShape(PQftype(Result_.get(), Column)));
    }
    Values_.resize(Names_.size());
    Texts_.resize(Names_.size());
    if (Format_ == TFormat::Text ||
        std::find(Shapes_.begin(), Shapes_.end(), TPostgreSQLShape::Unreadable) == Shapes_.end()) {
      return true;
    }
    if (PQresultStatus(Result_.get()) == PGRES_SINGLE_TUPLE) Stopping_.Ask();
    Format_ = TFormat::Text;
    Names_.clear();
    EndQuery(TPhase::Setting);
    return false;
  }

  void ReadValues() {
    for (int Column = 0; Column < ColumnCount(); ++Column) {
      std::string_view& Value = Values_[static_cast<std::size_t>(Column)];
      Value = {};
      if (PQgetisnull(Result_.get(), 0, Column) != 0) continue;
      Value = {PQgetvalue(Result_.get(), 0, Column), static_cast<std::size_t>(PQgetlength(Result_.get(), 0, Column))};
    }
  }

  // Where the host has done something of its own in it, its work is kept. Nothing is left to be ended where the host,
  // or the loss of the connection, has ended it.
  void CloseScope() {
    const PGTransactionStatusType Status = PQtransactionStatus(Talk_.Handle());
    const bool IsOpen = Status == PQTRANS_INTRANS || Status == PQTRANS_INERROR;
    if (!IsOpen || (HadFailed_ && InHostsTransaction_)) {
      Phase_ = TPhase::Idle;
      return NoLongerRunning();
    }
    const bool Keep = IsDisturbed_ && Status == PQTRANS_INTRANS;
    Talk_.Send(!InHostsTransaction_ ? "ROLLBACK" : Keep ? postgresql::KeepSavepoint : postgresql::BackToSavepoint);
    Phase_ = TPhase::Closing;
  }

  // Ends what is open, within a moment; a server that does not answer for so long is taken for lost.
  void Abort() {
    constexpr std::chrono::milliseconds EndIsNear(20);
    try {
      Stopping_.Begin();
      if (Phase_ != TPhase::Idle && Phase_ != TPhase::Closing) {
        // A query whose rows have been read to the last one ends by itself.
        if (!DrainFew(std::chrono::steady_clock::now() + EndIsNear) && !Stopping_.EndQuery()) return Talk_.Cut();
        if (!Talk_.Drain(Stopping_.End()) || !Stopping_.IsSettled(Stopping_.End())) return Talk_.Cut();
        CloseScope();
      }
      if (Phase_ == TPhase::Closing && !Talk_.Drain(Stopping_.End())) Talk_.Cut();
    } catch (const std::exception&) {
      // The connection is lost, and what was open with it.
    }
    Phase_ = TPhase::Idle;
  }

  // Whether the query has ended after a few more answers at most.
  bool DrainFew(TTime Until) {
    constexpr int Few = 3;
    for (int Answers = 0; Answers < Few; ++Answers) {
      if (!Talk_.Await(Until)) return false;
      if (Talk_.Take() == nullptr) return true;
    }
    return false;
  }

  QSqlDatabase Database_;
  TPostgreSQLTalk Talk_;
  TStopping<TPostgreSQLTalk> Stopping_{Talk_};
  int Process_;  // the server's
  TPhase Phase_ = TPhase::Idle;
  TPhase AfterEnding_ = TPhase::Idle;
  std::string Sql_;
  TFormat Format_ = TFormat::Binary;
  bool InHostsTransaction_ = false;
  bool HadFailed_ = false;    // the host's transaction had, before
  bool IsDisturbed_ = false;  // by something of the host's
  bool OnRow_ = false;
  TPostgreSQLResult Result_;  // the current row
  std::vector<std::string> Names_;
  std::vector<TPostgreSQLShape> Shapes_;
  std::vector<std::string_view> Values_;  // of the current row; without an address for a null
  std::vector<std::string> Texts_;
  std::exception_ptr Failure_;  // raised when everything is closed
  TKeptRows Kept_;
};

}  // namespace

pg_conn* PostgreSQLHandle(const QSqlDatabase& Database) {
  if (Database.driver() == nullptr) return nullptr;
  const QVariant Handle = Database.driver()->handle();
  const std::string_view Type = Handle.isValid() ? Handle.typeName() : "";
  if (Type != "pg_conn*" && Type != "PGconn*") return nullptr;  // the one name or the other, by the release of Qt
  return *static_cast<PGconn* const*>(Handle.constData());
}

std::unique_ptr<TCursor> NewPostgreSQLCursor(const QSqlDatabase& Database) {
  return std::make_unique<TPostgreSQLCursor>(Database);
}

}  // namespace ads
