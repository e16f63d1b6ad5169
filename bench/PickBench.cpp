#include "PickBench.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include "sample/SampleCompany.h"

namespace bench {

namespace {

void Execute(sqlite3* Handle, const char* Sql) {
  char* Message = nullptr;
  if (sqlite3_exec(Handle, Sql, nullptr, nullptr, &Message) != SQLITE_OK) qFatal("%s: %s", Sql, Message);
}

// A million rows in the tables that the lookups list. The texts are in no order, so that a sort has its work.
void Fill(sqlite3* Handle) {
  Execute(Handle, "INSERT INTO Sys (QtyDec, PrcDec, MultiAcct, MultiLoc) VALUES (2, 2, 0, 0)");
  Execute(Handle,
          "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 1000000) "
          "INSERT INTO Jobs (JobNo, [Desc]) SELECT printf('%06d', I), "
          "printf('%s %s %d', CASE I * 7919 % 5 WHEN 0 THEN 'Kitchen' WHEN 1 THEN 'Garage' WHEN 2 THEN 'Café' "
          "WHEN 3 THEN 'Office' ELSE 'Warehouse' END, CASE I * 104729 % 3 WHEN 0 THEN 'refit' WHEN 1 THEN 'extension' "
          "ELSE 'repair' END, I * 7368787 % 1000003) FROM N");
  Execute(Handle,
          "INSERT INTO Suburb (Suburb) SELECT substr([Desc], 1, 8) || ' ' || (JobNo * 7368787 % 1000003) FROM Jobs");
  Execute(
      Handle,
      "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 100) "
      "INSERT INTO CstCtr (CstCtr, [Desc], [Default]) SELECT 'C' || I, 'Cost centre ' || (I * 37 % 101), I = 1 FROM N");
  Execute(Handle,
          "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 1000000) "
          "INSERT INTO Names (UserName, DisplayNm, Entity, Inactive) "
          "SELECT 'U' || I, 'User ' || (I * 7368787 % 1000003), 'MAIN', 0 FROM N");
}

// Opens the file outside of Qt and runs `Fill` on it.
template <typename TFill>
void FillFile(const std::string& FileName, TFill Fill) {
  sqlite3* Handle = nullptr;
  if (sqlite3_open(FileName.c_str(), &Handle) != SQLITE_OK) qFatal("%s", sqlite3_errmsg(Handle));
  Execute(Handle, "PRAGMA synchronous = OFF");
  Execute(Handle, "BEGIN");
  Fill(Handle);
  Execute(Handle, "COMMIT");
  sqlite3_close(Handle);
}

// What the sample company at its scale of a thousand has less than a million of.
void TopUp(sqlite3* Handle) {
  Execute(Handle,
          "INSERT INTO IP SELECT 'X' || substr('000000000' || rowid, -9), \"Date\", ID, CustID, PONumber, POType, "
          "Type, Posted, "
          "Closed, POReceipt, Canceled, APDocket, RMA, Cost, FedTax FROM IP LIMIT 1000000 - (SELECT COUNT(*) FROM IP)");
  Execute(Handle,
          "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 250000) "
          "INSERT INTO Item SELECT 'BENCH-' || I, 'Panel ' || (I * 7919 % 250007), I % 7, 'BENCH', 'LOT' || I % 91, "
          "'REF' || I % 997 FROM N");
  Execute(Handle,
          "INSERT INTO ItemDet SELECT I.Item, L.ID, 1 + (I.rowid + L.ID) % 50, 'BIN' || I.rowid % 500 FROM Item I, "
          "(SELECT ID FROM ItemLocations ORDER BY ID LIMIT 4) L WHERE I.ParentItem = 'BENCH'");
  Execute(
      Handle,
      "WITH RECURSIVE N(I) AS (SELECT COUNT(*) + 1 FROM EFTDetails UNION ALL SELECT I + 1 FROM N WHERE I < 1000000) "
      "INSERT INTO EFTDetails SELECT B.Batch, 'V00001', '2026-01-15', N.I % 900 + 0.5, 0 FROM N JOIN "
      "(SELECT Batch, ROW_NUMBER() OVER (ORDER BY Batch) Place FROM PstdGLBatch) B "
      "ON B.Place = 1 + N.I % (SELECT COUNT(*) FROM PstdGLBatch)");
}

void MakeLookups(const std::string& FileName) {
  sample::CreateSchema(FileName);
  FillFile(FileName, Fill);
}

void MakeCompany(const std::string& FileName) {
  sample::TOptions Options;
  Options.Scale = 1000;
  sample::CreateCompany(FileName, Options);
  FillFile(FileName, TopUp);
}

}  // namespace

QDir KeptFolder() {
  const QString Asked = qEnvironmentVariable("ZUL_BENCH_FOLDER");
  return Asked.isEmpty() ? QDir::temp() : QDir(Asked);
}

TBenchDatabase::~TBenchDatabase() = default;

std::string TBenchDatabase::FileName() {
  const QString File = KeptFolder().filePath(QStringLiteral("zul-bench-%1.db").arg(QLatin1String(Name_)));
  if (!QFile::exists(File)) {
    const QString Unfinished = File + QStringLiteral(".new");
    QFile::remove(Unfinished);
    Make_(Unfinished.toStdString());
    QFile::rename(Unfinished, File);
  }
  return File.toStdString();
}

ads::TAdsConnection* TBenchDatabase::Connection() {
  if (Connection_) return Connection_.get();
  QSqlDatabase Database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QLatin1String(Name_));
  Database.setDatabaseName(QString::fromStdString(FileName()));
  if (!Database.open()) qFatal("%s", qPrintable(Database.lastError().text()));
  Connection_ = std::make_unique<ads::TAdsConnection>(Database);
  return Connection_.get();
}

void TBenchDatabase::Close() {
  if (!Connection_) return;
  Connection_.reset();
  QSqlDatabase::removeDatabase(QLatin1String(Name_));
}

TBenchDatabase& Lookups() {
  static TBenchDatabase Database("lookups", MakeLookups);
  return Database;
}

TBenchDatabase& Company() {
  static TBenchDatabase Database("company", MakeCompany);
  return Database;
}

TPlainRun RunPlainly(TBenchDatabase& Database, const std::string& Sql, int Columns) {
  return PlainSQLite(Database.FileName())->Run(Sql, Columns);
}

}  // namespace bench
