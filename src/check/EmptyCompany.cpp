#include "check/EmptyCompany.h"

#include <QSqlQuery>
#include <QUuid>

#include "ads/EDatabaseError.h"
#include "ads/Query.h"
#include "ads/Trial.h"
#include "check/ExpectedSchema.h"

namespace check {

TEmptyCompany::TEmptyCompany() {
  const QString Driver = QStringLiteral("QSQLITE");
  if (!QSqlDatabase::isDriverAvailable(Driver)) return;
  Database_ = QSqlDatabase::addDatabase(Driver, QUuid::createUuid().toString());
  Database_.setDatabaseName(QStringLiteral(":memory:"));
  if (!Database_.open()) return;
  QSqlQuery Query(Database_);
  for (const TExpectedTable& Table : ExpectedTables()) Query.exec(QString::fromStdString(Table.Sql));
  Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
}

TEmptyCompany::~TEmptyCompany() {
  Connection_.reset();
  const QString Name = Database_.connectionName();
  Database_ = {};
  if (!Name.isEmpty()) QSqlDatabase::removeDatabase(Name);
}

bool TEmptyCompany::Refuses(const std::string& Source) {
  const auto Found = Known_.find(Source);
  if (Found != Known_.end()) return Found->second;
  return Known_.emplace(Source, Connection_ != nullptr && !Try(Source)).first->second;
}

bool TEmptyCompany::Try(const std::string& Source) {
  bool Taken = true;
  ads::TTrial Trial(*Connection_);
  Trial.OnTried = [&Taken](const ads::TTriedStatement& Statement) { Taken = Statement.Failure.empty(); };
  ads::TAdsQuery Query(nullptr);
  Query.SetConnection(Connection_.get());
  Query.SQL()->Add(Source);
  try {
    Query.Open();
  } catch (const ads::EDatabaseError&) {
    return false;
  }
  return Taken;
}

}  // namespace check
