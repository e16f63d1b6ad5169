#include <QDate>
#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

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
  TQSqlCursor(const QSqlDatabase& Database, const std::string& Sql) : Database_(Database), Query_(Database) {
    Query_.setForwardOnly(true);
    if (!Query_.exec(QString::fromStdString(Sql))) throw EDatabaseError(MessageOf(Query_.lastError()));
    if (!Query_.isSelect()) throw EDatabaseError("The query gives no rows.");
    Record_ = Query_.record();
    Texts_.resize(static_cast<std::size_t>(Record_.count()));
  }

  bool IsConnected() const override { return Database_.isOpen(); }
  int ColumnCount() const override { return Record_.count(); }
  std::string ColumnName(int Column) const override { return Record_.fieldName(Column).toStdString(); }
  bool Next() override {
    if (Query_.next()) return true;
    if (Query_.lastError().isValid()) throw EDatabaseError(MessageOf(Query_.lastError()));
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
  QSqlDatabase Database_;
  QSqlQuery Query_;
  QSqlRecord Record_;
  std::vector<std::string> Texts_;
};

}  // namespace

std::unique_ptr<TCursor> OpenQSqlCursor(const QSqlDatabase& Database, const std::string& Sql) {
  return std::make_unique<TQSqlCursor>(Database, Sql);
}

}  // namespace ads
