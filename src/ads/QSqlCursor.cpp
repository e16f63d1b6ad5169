#include <QDate>
#include <QDateTime>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"

namespace ads {

namespace {

std::string MessageOf(const QSqlError& Error) {
  const QString Text = Error.databaseText().isEmpty() ? Error.driverText() : Error.databaseText();
  return Text.trimmed().toStdString();
}

// As SQLite itself writes a floating number, for a column of texts that holds one.
std::string SQLiteText(double Value) {
  constexpr int Precision = 15;
  char Digits[40];
  std::string Text(Digits,
                   std::to_chars(Digits, Digits + sizeof Digits, Value, std::chars_format::general, Precision).ptr);
  if (std::isinf(Value)) return Value < 0 ? "-Inf" : "Inf";
  if (Text.find('.') == std::string::npos) Text.insert(std::min(Text.find('e'), Text.size()), ".0");
  return Text;
}

/// SQLite, which a driver may bring along, rests between two rows, so the host may use the connection meanwhile; no
/// other server is known to allow that.
class TQSqlCursor final : public TCursor {
 public:
  explicit TQSqlCursor(const QSqlDatabase& Database)
      : Database_(Database),
        SQLite_(SQLiteHandle(Database)),
        IsSQLite_(SQLite_ != nullptr || Database.driver()->dbmsType() == QSqlDriver::SQLite) {}

  bool IsConnected() const override { return Database_.isOpen() && SQLiteHandle(Database_) == SQLite_; }
  int ColumnCount() const override { return Record_.count(); }
  std::string ColumnName(int Column) const override { return Record_.fieldName(Column).toStdString(); }
  bool IsShareable() const override { return IsSQLite_; }

  // Qt tells the columns only of a statement that was executed.
  std::vector<std::string> Prepare(const std::string& Sql) override {
    QSqlQuery Query(Database_);
    if (!Query.prepare(QString::fromStdString(Sql))) throw EDatabaseError(MessageOf(Query.lastError()));
    return {};
  }

  // SQLite keeps its state of the data for as long as any statement is being read: there the one before ends behind
  // the start of this one.
  void Begin(const std::string& Sql) override {
    if (IsSQLite_) Before_ = std::move(Query_);
    Query_.reset();
    Sql_ = Sql;
  }

  // Qt's drivers give back only when the statement has been executed.
  bool GoOn(TTime Until, const TTakeRow& Take) override {
    if (!Sql_.empty()) {
      Execute(std::exchange(Sql_, {}));
    } else if (MindsChanges && IsSQLite_ && Changes() != Changes_) {
      Query_.reset();
      throw EDisturbed();
    }
    while (Query_->next()) {
      if (!Take() || IsTime(Until)) {
        Changes_ = Changes();
        return true;
      }
    }
    RequireNoError();
    Query_.reset();
    return false;
  }
  TValueKind Kind(int Column) override {
    if (Query_->isNull(Column)) return TValueKind::Null;
    switch (Query_->value(Column).typeId()) {
      case QMetaType::Bool:
      case QMetaType::Short:
      case QMetaType::Int:
      case QMetaType::UInt:
      case QMetaType::LongLong:
        return TValueKind::Integer;
      case QMetaType::Float:
      case QMetaType::Double:
        return TValueKind::Real;
      default:
        return TValueKind::Text;
    }
  }
  std::int64_t Integer(int Column) override { return Query_->value(Column).toLongLong(); }
  double Real(int Column) override { return Query_->value(Column).toDouble(); }
  std::string_view Text(int Column) override {
    const QVariant Value = Query_->value(Column);
    std::string& Text = Texts_[static_cast<std::size_t>(Column)];
    switch (Value.typeId()) {
      case QMetaType::QDate:
        Text = Value.toDate().toString(Qt::ISODate).toStdString();
        break;
      case QMetaType::QDateTime:
        Text = Value.toDateTime().date().toString(Qt::ISODate).toStdString();
        break;
      case QMetaType::Double:
        Text = IsSQLite_ ? SQLiteText(Value.toDouble()) : Value.toString().toStdString();
        break;
      case QMetaType::QByteArray:
        Text = Value.toByteArray().toStdString();
        break;
      default:
        Text = Value.toString().toStdString();
    }
    return Text;
  }

 private:
  void Execute(const std::string& Sql) {
    Query_.emplace(Database_);
    Query_->setForwardOnly(true);
    // Whatever the host has set: exact numbers as their digits, and SQLite's whole.
    Query_->setNumericalPrecisionPolicy(QSql::HighPrecision);
    const bool Done = Query_->exec(QString::fromStdString(Sql));
    Before_.reset();
    if (!Done) RequireNoError();
    if (!Query_->isSelect()) throw EDatabaseError("The query gives no rows.");
    Record_ = Query_->record();
    Texts_.resize(static_cast<std::size_t>(Record_.count()));
    Changes_ = Changes();
  }

  void RequireNoError() const {
    const QSqlError Error = Query_->lastError();
    if (!Error.isValid()) return;
    if (!IsSQLite_) throw EDatabaseError(MessageOf(Error));
    const QString Code = Error.nativeErrorCode();
    // The driver takes its statements away when it is closed, and has no code of SQLite's to tell then.
    const bool IsTakenAway = Code.isEmpty() && Error.type() == QSqlError::ConnectionError;
    if (IsTakenAway) throw EConnectionLost("The database connection was closed while rows were being read from it.");
    if (Code == QLatin1String("9")) throw EQueryEnded(MessageOf(Error));  // SQLITE_INTERRUPT
    throw EDatabaseError(MessageOf(Error));
  }

  // How many rows have been changed by all statements of the connection.
  QVariant Changes() const {
    if (!MindsChanges || !IsSQLite_) return {};
    QSqlQuery Query(QStringLiteral("SELECT total_changes()"), Database_);
    return Query.next() ? Query.value(0) : QVariant();
  }

  QSqlDatabase Database_;
  sqlite3* SQLite_;  // no more than an address, by which it is seen whether the connection is still the same
  bool IsSQLite_;
  std::string Sql_;  // to be executed
  std::optional<QSqlQuery> Query_;
  std::optional<QSqlQuery> Before_;  // the one before, which is ended later
  QSqlRecord Record_;
  std::vector<std::string> Texts_;
  QVariant Changes_;  // when this one was left last
};

}  // namespace

std::unique_ptr<TCursor> NewQSqlCursor(const QSqlDatabase& Database) {
  return std::make_unique<TQSqlCursor>(Database);
}

}  // namespace ads
