#include <QSqlDriver>
#include <QVariant>
#include <algorithm>
#include <cstring>
#include <exception>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "ads/Cursor.h"
#include "ads/PostgreSQLReading.h"
#include "ads/PostgreSQLStatements.h"
#include "ads/PostgreSQLValues.h"

namespace ads {

namespace {

using TFormat = TPostgreSQLAnswer::TFormat;

class TPostgreSQLCursor;

// The cursor that is being read from a connection, which can be no more than one.
struct TRunning {
  std::mutex Mutex;
  std::map<PGconn*, TPostgreSQLCursor*> Cursors;
};
TRunning& Running() {
  static TRunning Instance;
  return Instance;
}

TPostgreSQLCursor* RunningOn(PGconn* Handle) {
  const std::lock_guard Lock(Running().Mutex);
  const auto Found = Running().Cursors.find(Handle);
  return Found == Running().Cursors.end() ? nullptr : Found->second;
}

// The rows of a query that had to make way for another one.
class TKeptRows {
 public:
  void Add(const std::vector<std::string_view>& Values) {
    for (const std::string_view Value : Values) {
      const auto Length = Value.data() == nullptr ? Null : Value.size();
      Bytes_.append(reinterpret_cast<const char*>(&Length), sizeof Length);
      Bytes_.append(Value);
    }
  }
  bool Take(std::vector<std::string_view>& Values) {
    if (At_ == Bytes_.size()) return false;
    for (std::string_view& Value : Values) {
      std::size_t Length = 0;
      std::memcpy(&Length, Bytes_.data() + At_, sizeof Length);
      At_ += sizeof Length;
      Value = Length == Null ? std::string_view() : std::string_view(Bytes_.data() + At_, Length);
      At_ += Value.size();
    }
    return true;
  }

 private:
  static constexpr std::size_t Null = static_cast<std::size_t>(-1);
  std::string Bytes_;
  std::size_t At_ = 0;
};

/// Reads binary values, which no setting of the session touches; a result with a column of a type that cannot be read
/// so is asked for again as text.
class TPostgreSQLCursor final : public TCursor {
 public:
  TPostgreSQLCursor(const QSqlDatabase& Database, const std::string& Sql)
      : Database_(Database), Handle_(PostgreSQLHandle(Database)), Process_(PQbackendPID(Handle_)) {
    Start(Sql, TFormat::Binary);
    if (std::find(Shapes_.begin(), Shapes_.end(), TPostgreSQLShape::Unreadable) != Shapes_.end()) {
      Finish();
      Start(Sql, TFormat::Text);
    }
    const std::lock_guard Lock(Running().Mutex);
    Running().Cursors[Handle_] = this;
  }
  ~TPostgreSQLCursor() override { Finish(); }
  TPostgreSQLCursor(const TPostgreSQLCursor&) = delete;
  TPostgreSQLCursor& operator=(const TPostgreSQLCursor&) = delete;

  // A connection that was opened again may have the address of the one before, but another process on the server.
  bool IsConnected() const override {
    if (PostgreSQLHandle(Database_) != Handle_) return false;
    return PQstatus(Handle_) != CONNECTION_OK || PQbackendPID(Handle_) == Process_;
  }

  int ColumnCount() const override { return static_cast<int>(Names_.size()); }
  std::string ColumnName(int Column) const override { return Names_[static_cast<std::size_t>(Column)]; }

  bool Next() override {
    if (Answer_) return NextOfServer();
    if (Kept_.Take(Values_)) return true;
    if (Failure_) std::rethrow_exception(Failure_);
    return false;
  }

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

  /// Takes the rest of the rows into memory, which frees the connection for another query in the midst of this one. A
  /// failure is kept for the reader of the rows.
  void KeepTheRest() {
    const bool OnRow = OnRow_;
    if (OnRow) Kept_.Add(Values_);
    try {
      while (NextOfServer()) Kept_.Add(Values_);
    } catch (...) {
      Failure_ = std::current_exception();
      Finish();
    }
    if (OnRow) Kept_.Take(Values_);
  }

 private:
  TPostgreSQLShape Shape(int Column) const { return Shapes_[static_cast<std::size_t>(Column)]; }
  std::string_view Value(int Column) const { return Values_[static_cast<std::size_t>(Column)]; }

  void Start(const std::string& Sql, TFormat Format) {
    Format_ = Format;
    std::string Settings = Format == TFormat::Text ? postgresql::TextSettings : "";
    const char* Encoding = PQparameterStatus(Handle_, "client_encoding");
    if (Encoding != nullptr && std::strcmp(Encoding, "UTF8") != 0) {
      Settings += Settings.empty() ? "" : "; ";
      Settings += "SET LOCAL client_encoding = 'UTF8'";
    }
    Scope_.emplace(Handle_, Settings);
    Answer_.emplace(Handle_, Sql, Format);
    HasFirst_ = Answer_->Next();
    Describe(Answer_->Result());
  }

  void Describe(const PGresult* Result) {
    Names_.clear();
    Shapes_.clear();
    for (int Column = 0; Column < PQnfields(Result); ++Column) {
      Names_.emplace_back(PQfname(Result, Column));
      Shapes_.push_back(PostgreSQLShape(PQftype(Result, Column)));
    }
    Values_.resize(Names_.size());
    Texts_.resize(Names_.size());
  }

  bool NextOfServer() {
    OnRow_ = HasFirst_ || Answer_->Next();
    HasFirst_ = false;
    if (!OnRow_) {
      Finish();
      return false;
    }
    const PGresult* Row = Answer_->Result();
    for (int Column = 0; Column < ColumnCount(); ++Column) {
      std::string_view& Value = Values_[static_cast<std::size_t>(Column)];
      Value = {};
      if (PQgetisnull(Row, 0, Column) != 0) continue;
      Value = {PQgetvalue(Row, 0, Column), static_cast<std::size_t>(PQgetlength(Row, 0, Column))};
    }
    return true;
  }

  void Finish() {
    if (!IsConnected()) {
      if (Answer_) Answer_->Abandon();
      if (Scope_) Scope_->Abandon();
    }
    Answer_.reset();
    Scope_.reset();
    const std::lock_guard Lock(Running().Mutex);
    const auto Found = Running().Cursors.find(Handle_);
    if (Found != Running().Cursors.end() && Found->second == this) Running().Cursors.erase(Found);
  }

  QSqlDatabase Database_;
  PGconn* Handle_;
  int Process_;  // the server's
  TFormat Format_ = TFormat::Binary;
  std::optional<TPostgreSQLScope> Scope_;
  std::optional<TPostgreSQLAnswer> Answer_;
  bool HasFirst_ = false;  // a row was read to know the columns and is still to be given
  bool OnRow_ = false;
  std::vector<std::string> Names_;
  std::vector<TPostgreSQLShape> Shapes_;
  std::vector<std::string_view> Values_;  // of the current row; without an address for a null
  std::vector<std::string> Texts_;
  TKeptRows Kept_;
  std::exception_ptr Failure_;
};

}  // namespace

pg_conn* PostgreSQLHandle(const QSqlDatabase& Database) {
  if (Database.driver() == nullptr) return nullptr;
  const QVariant Handle = Database.driver()->handle();
  const std::string_view Type = Handle.isValid() ? Handle.typeName() : "";
  if (Type != "pg_conn*" && Type != "PGconn*") return nullptr;  // the one name or the other, by the release of Qt
  return *static_cast<PGconn* const*>(Handle.constData());
}

std::unique_ptr<TCursor> OpenPostgreSQLCursor(const QSqlDatabase& Database, const std::string& Sql) {
  TPostgreSQLCursor* Before = RunningOn(PostgreSQLHandle(Database));
  if (Before != nullptr && Before->IsConnected()) Before->KeepTheRest();
  return std::make_unique<TPostgreSQLCursor>(Database, Sql);
}

}  // namespace ads
