#include <QDate>
#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <utility>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"

namespace ads {

namespace {

std::string MessageOf(const QSqlError& Error) {
  const QString Text = Error.databaseText().isEmpty() ? Error.driverText() : Error.databaseText();
  return Text.trimmed().toStdString();
}

class TQSqlCursor final : public TCursor {
 public:
  explicit TQSqlCursor(const QSqlDatabase& Database) : Database_(Database), Query_(Database) {
    Query_.setForwardOnly(true);
  }

  bool IsConnected() const override { return Database_.isOpen(); }
  int ColumnCount() const override { return Record_.count(); }
  std::string ColumnName(int Column) const override { return Record_.fieldName(Column).toStdString(); }
  bool IsShareable() const override { return false; }

  void Begin(const std::string& Sql) override { Sql_ = Sql; }

  // Qt's drivers give back only when the statement has been executed.
  bool GoOn(TTime Until, const TTakeRow& Take) override {
    if (!Sql_.empty()) Execute(std::exchange(Sql_, {}));
    while (Query_.next()) {
      if (!Take() || IsTime(Until)) return true;
    }
    if (Query_.lastError().isValid()) throw EDatabaseError(MessageOf(Query_.lastError()));
    Query_.finish();
    return false;
  }
  TValueKind Kind(int Column) override {
    if (Query_.isNull(Column)) return TValueKind::Null;
    switch (Query_.value(Column).typeId()) {
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
  std::int64_t Integer(int Column) override { return Query_.value(Column).toLongLong(); }
  double Real(int Column) override { return Query_.value(Column).toDouble(); }
  std::string_view Text(int Column) override {
    const QVariant Value = Query_.value(Column);
    std::string& Text = Texts_[static_cast<std::size_t>(Column)];
    switch (Value.typeId()) {
      case QMetaType::QDate:
        Text = Value.toDate().toString(Qt::ISODate).toStdString();
        break;
      case QMetaType::QDateTime:
        Text = Value.toDateTime().date().toString(Qt::ISODate).toStdString();
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
    if (!Query_.exec(QString::fromStdString(Sql))) throw EDatabaseError(MessageOf(Query_.lastError()));
    if (!Query_.isSelect()) throw EDatabaseError("The query gives no rows.");
    Record_ = Query_.record();
    Texts_.resize(static_cast<std::size_t>(Record_.count()));
  }

  QSqlDatabase Database_;
  std::string Sql_;  // to be executed
  QSqlQuery Query_;
  QSqlRecord Record_;
  std::vector<std::string> Texts_;
};

}  // namespace

std::unique_ptr<TCursor> NewQSqlCursor(const QSqlDatabase& Database) {
  return std::make_unique<TQSqlCursor>(Database);
}

}  // namespace ads
