#include "support/TestCompany.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include "sample/SampleCompany.h"

namespace support {

namespace {

// The file that a test's company is a copy of, made once a program.
const QString& Original(TTestCompany::TRows Rows) {
  static const QTemporaryDir Folder;
  static const auto Make = [](const char* Name, auto Create) {
    QString FileName = Folder.filePath(QLatin1String(Name));
    Create(FileName.toStdString());
    return FileName;
  };
  if (Rows == TTestCompany::TRows::None) {
    static const QString Empty = Make("empty.db", [](const std::string& Name) { sample::CreateSchema(Name); });
    return Empty;
  }
  static const QString Company = Make("company.db", [](const std::string& Name) { sample::CreateCompany(Name, {}); });
  return Company;
}

}  // namespace

TTestCompany::TTestCompany(TRows Rows) : FileName_(Folder_.filePath(QStringLiteral("company.db"))) {
  if (!QFile::copy(Original(Rows), FileName_)) qFatal("The sample company cannot be copied.");
  const QString Name = QUuid::createUuid().toString();
  Database_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), Name);
  Database_.setDatabaseName(FileName_);
  if (!Database_.open()) qFatal("The sample company cannot be opened.");
  // The file is gone with the test, so it need not survive a power cut.
  Execute(QStringLiteral("PRAGMA synchronous = OFF"));
  if (Rows == TRows::None) {
    Execute(QStringLiteral("INSERT INTO Sys (QtyDec, PrcDec, MultiAcct, MultiLoc) VALUES (2, 2, 0, 0)"));
  }
  Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
}

TTestCompany::~TTestCompany() {
  Connection_.reset();
  const QString Name = Database_.connectionName();
  Database_ = {};
  QSqlDatabase::removeDatabase(Name);
}

void TTestCompany::Execute(const QString& Sql, const QVariantList& Values) {
  QSqlQuery Query(Database_);
  Query.prepare(Sql);
  for (const QVariant& Value : Values) Query.addBindValue(Value);
  if (!Query.exec()) qFatal("%s: %s", qPrintable(Sql), qPrintable(Query.lastError().text()));
}

std::vector<std::string> TTestCompany::Texts(const QString& Sql) {
  QSqlQuery Query(Database_);
  if (!Query.exec(Sql)) qFatal("%s: %s", qPrintable(Sql), qPrintable(Query.lastError().text()));
  std::vector<std::string> Result;
  while (Query.next()) Result.push_back(Query.value(0).toString().toStdString());
  return Result;
}

std::string TTestCompany::Text(const QString& Sql) {
  const std::vector<std::string> All = Texts(Sql);
  return All.empty() ? std::string() : All.front();
}

}  // namespace support
