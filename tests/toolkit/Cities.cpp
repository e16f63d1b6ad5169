#include "toolkit/Cities.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <stdexcept>

TCities::TCities(int Rows)
    : Name_(QUuid::createUuid().toString()), Database_(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), Name_)) {
  Database_.setDatabaseName(QStringLiteral(":memory:"));
  Database_.open();
  Execute(QStringLiteral("CREATE TABLE Area (Zip VARCHAR(10), City VARCHAR(30), People INTEGER, Capital BOOLEAN)"));
  Execute(
      QStringLiteral("WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < %1) "
                     "INSERT INTO Area SELECT printf('%04d', I), 'City ' || I, I * 10, I % 5 = 0 FROM N WHERE I <= %1")
          .arg(Rows));
  Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
  Query = std::make_unique<ads::TAdsQuery>(nullptr);
  Query->setObjectName(QStringLiteral("qryList_"));
  Query->SetConnection(Connection_.get());
  Zip = Query->AddField("Zip", ads::TFieldType::ftString, 10);
  City = Query->AddField("City", ads::TFieldType::ftString, 30);
  People = Query->AddField("People", ads::TFieldType::ftInteger);
  Capital = Query->AddField("Capital", ads::TFieldType::ftBoolean);
  Query->SQL()->Add("SELECT Zip, City, People, Capital FROM Area");
}

TCities::~TCities() {
  Query.reset();
  Connection_.reset();
  Database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(Name_);
}

void TCities::Execute(const QString& Sql) const {
  QSqlQuery Statement(Database_);
  if (!Statement.exec(Sql)) throw std::runtime_error(Statement.lastError().text().toStdString());
}
