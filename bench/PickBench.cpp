#include "PickBench.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <algorithm>
#include <chrono>
#include <vector>

#include "sample/SampleCompany.h"

namespace bench {

namespace {

using TClock = std::chrono::steady_clock;

double SecondsSince(TClock::time_point Start) { return std::chrono::duration<double>(TClock::now() - Start).count(); }

void Execute(sqlite3* Handle, const char* Sql) {
  char* Message = nullptr;
  if (sqlite3_exec(Handle, Sql, nullptr, nullptr, &Message) != SQLITE_OK) qFatal("%s: %s", Sql, Message);
}

// A million rows in the tables that the lookups list. The texts are in no order, so that a sort has its work.
void Fill(sqlite3* Handle) {
  Execute(Handle, "BEGIN");
  Execute(Handle, "INSERT INTO Sys (QtyDec, PrcDec, MultiAcct, MultiLoc) VALUES (2, 2, 0, 0)");
  Execute(Handle,
          "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 1000000) "
          "INSERT INTO Jobs (JobNo, [Desc]) SELECT printf('%06d', I), "
          "printf('%s %s %d', CASE I * 7919 % 5 WHEN 0 THEN 'Kitchen' WHEN 1 THEN 'Garage' WHEN 2 THEN 'Café' "
          "WHEN 3 THEN 'Office' ELSE 'Warehouse' END, CASE I * 104729 % 3 WHEN 0 THEN 'refit' WHEN 1 THEN 'extension' "
          "ELSE 'repair' END, I * 7368787 % 1000003) FROM N");
  Execute(Handle,
          "INSERT INTO Suburb (Suburb) SELECT substr([Desc], 1, 8) || ' ' || (JobNo * 7368787 % 1000003) FROM Jobs");
  Execute(Handle,
          "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 100) "
          "INSERT INTO CstCtr (CstCtr, [Desc], [Default]) SELECT 'C' || I, 'Cost centre ' || (I * 37 % 101), I = 1 FROM N");
  Execute(Handle,
          "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 1000000) "
          "INSERT INTO Names (UserName, DisplayNm, Entity, Inactive) "
          "SELECT 'U' || I, 'User ' || (I * 7368787 % 1000003), 'MAIN', 0 FROM N");
  Execute(Handle, "COMMIT");
}

}  // namespace

std::string CompanyFile() {
  const QString Asked = qEnvironmentVariable("ZUL_BENCH_DB");
  const QString Name = Asked.isEmpty() ? QDir::temp().filePath(QStringLiteral("zul-bench-lookups.db")) : Asked;
  if (!QFile::exists(Name)) {
    sample::CreateSchema(Name.toStdString());
    sqlite3* Handle = nullptr;
    if (sqlite3_open(Name.toUtf8().constData(), &Handle) != SQLITE_OK) qFatal("%s", sqlite3_errmsg(Handle));
    Fill(Handle);
    sqlite3_close(Handle);
  }
  return Name.toStdString();
}

namespace {

std::unique_ptr<ads::TAdsConnection>& Opened() {
  static std::unique_ptr<ads::TAdsConnection> Connection;
  return Connection;
}

}  // namespace

ads::TAdsConnection* Company() {
  if (Opened()) return Opened().get();
  QSqlDatabase Database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench"));
  Database.setDatabaseName(QString::fromStdString(CompanyFile()));
  if (!Database.open()) qFatal("%s", qPrintable(Database.lastError().text()));
  Opened() = std::make_unique<ads::TAdsConnection>(Database);
  return Opened().get();
}

void CloseCompany() {
  Opened().reset();
  QSqlDatabase::removeDatabase(QStringLiteral("bench"));
}

TPlainRun RunPlainly(const std::string& Sql, int Columns) {
  sqlite3* Handle = nullptr;
  if (sqlite3_open(CompanyFile().c_str(), &Handle) != SQLITE_OK) qFatal("%s", sqlite3_errmsg(Handle));
  const TClock::time_point Start = TClock::now();
  sqlite3_stmt* Statement = nullptr;
  if (sqlite3_prepare_v2(Handle, Sql.c_str(), -1, &Statement, nullptr) != SQLITE_OK) qFatal("%s", sqlite3_errmsg(Handle));
  TPlainRun Run;
  std::size_t Sum = 0;
  while (sqlite3_step(Statement) == SQLITE_ROW) {
    ++Run.Rows;
    for (int Column = 0; Column < Columns; ++Column) {
      const unsigned char* Text = sqlite3_column_text(Statement, Column);
      Run.Bytes += sqlite3_column_bytes(Statement, Column);
      Sum += Text != nullptr ? Text[0] : 0;
    }
  }
  benchmark::DoNotOptimize(Sum);
  sqlite3_finalize(Statement);
  Run.Seconds = SecondsSince(Start);
  sqlite3_close(Handle);
  return Run;
}

void OpenAgainstPlain(benchmark::State& State, const std::string& PlainSql, int Columns, const TCreate& Create) {
  std::vector<double> Plain;
  std::vector<double> Picks;
  TPlainRun Run;
  std::size_t Snapshot = 0;
  RunPlainly(PlainSql, Columns);  // both find the file in the page cache
  for ([[maybe_unused]] auto _ : State) {
    Run = RunPlainly(PlainSql, Columns);
    Plain.push_back(Run.Seconds);
    const TClock::time_point Start = TClock::now();
    const auto Dialog = Create();
    Dialog->show();
    QCoreApplication::processEvents();
    Picks.push_back(SecondsSince(Start));
    State.SetIterationTime(Picks.back());
    Snapshot = Dialog->qryList_->SnapshotBytes();
    if (Dialog->qryList_->RecordCount() != Run.Rows) State.SkipWithError("The pick lists other rows than the plain loop.");
  }
  std::sort(Plain.begin(), Plain.end());
  std::sort(Picks.begin(), Picks.end());
  const double PlainMedian = Plain[Plain.size() / 2];
  const double PickMedian = Picks[Picks.size() / 2];
  State.counters["rows"] = static_cast<double>(Run.Rows);
  State.counters["plain_ms"] = PlainMedian * 1000;
  State.counters["pick_ms"] = PickMedian * 1000;
  State.counters["ratio"] = PickMedian / PlainMedian;
  State.counters["snapshot_of_allowed"] =
      static_cast<double>(Snapshot) / (1.5 * static_cast<double>(Run.Bytes) + 16.0 * static_cast<double>(Run.Rows));
}

}  // namespace bench
