#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QUuid>
#include <memory>
#include <utility>

#include "ads/Connection.h"
#include "servers/Backends.h"

namespace support {

/// A name that no connection has yet.
inline QString NewName() {
  return QUuid::createUuid().toString();
}

/// A host's connection that is open, and is closed and forgotten with the object.
class THost {
 public:
  explicit THost(QSqlDatabase Database)
      : Database_(std::move(Database)), Connection_(std::make_unique<ads::TAdsConnection>(Database_)) {
    if (!Database_.isOpen()) qFatal("%s", qPrintable(Database_.lastError().text()));
  }
  ~THost() {
    Connection_.reset();
    const QString Name = Database_.connectionName();
    Database_ = {};
    QSqlDatabase::removeDatabase(Name);
  }
  THost(const THost&) = delete;
  THost& operator=(const THost&) = delete;

  QSqlDatabase Database() const { return Database_; }
  ads::TAdsConnection* Connection() { return Connection_.get(); }

  void Execute(const QString& Sql) { TBackend::Execute(Database_, Sql); }
  QString Value(const QString& Sql) const { return TBackend::Value(Database_, Sql).toString(); }

  /// What a host does whose connection is lost.
  bool OpenAgain() {
    Database_.close();
    return Database_.open();
  }

 private:
  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

}  // namespace support
