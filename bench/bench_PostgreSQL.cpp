#include <libpq-fe.h>
#include <malloc.h>

#include <QCoreApplication>
#include <QFile>
#include <chrono>

#include "ListBench.h"
#include "ads/ThrowawayPostgreSQL.h"
#include "apps/command/OpenDatabase.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/parties/uPickCustomer.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "picks/reference/uPickJob.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "sample/SampleCompany.h"

// The pick lists of a big company on a PostgreSQL server of their own, each against libpq reading the same result.

namespace {

using TClock = std::chrono::steady_clock;
using uPickCustomer::TfrmPickCustomer;
using uPickOEDoc::TfrmPickOEDoc;

double SecondsSince(TClock::time_point Start) {
  return std::chrono::duration<double>(TClock::now() - Start).count();
}

void Execute(PGconn* Handle, const std::string& Sql) {
  PGresult* Result = PQexec(Handle, Sql.c_str());
  if (PQresultStatus(Result) != PGRES_COMMAND_OK) qFatal("%s", PQresultErrorMessage(Result));
  PQclear(Result);
}

// What the company has less than a thousand of for each step of its scale, and one parent item with so much stock.
void TopUp(PGconn* Handle, int Scale) {
  const std::string Most = std::to_string(1000 * static_cast<std::int64_t>(Scale));
  Execute(Handle,
          "INSERT INTO IP SELECT 'X' || lpad(row_number() OVER ()::text, 9, '0'), \"date\", ID, CustID, PONumber, "
          "POType, Type, Posted, Closed, POReceipt, Canceled, APDocket, RMA, Cost, FedTax FROM IP LIMIT greatest(0, " +
              Most + " - (SELECT COUNT(*) FROM IP))");
  Execute(Handle,
          "INSERT INTO Jobs SELECT 'Z' || lpad(to_hex(N), 5, '0'), 'Refit ' || N * 7919 % 1000003 FROM "
          "generate_series(1, " +
              Most + " - (SELECT COUNT(*) FROM Jobs)) N");
  Execute(Handle,
          "INSERT INTO Item SELECT 'BENCH-' || N, 'Panel ' || N * 7919 % 250007, N % 7, 'BENCH', 'LOT' || N % 91, "
          "'REF' || N % 997 FROM generate_series(1, " +
              Most + " / 4) N");
  Execute(Handle,
          "INSERT INTO ItemDet SELECT I.Item, L.ID, 1 + (I.Type + L.ID) % 50, 'BIN' || I.Type FROM Item I, "
          "(SELECT ID FROM ItemLocations ORDER BY ID LIMIT 4) L WHERE I.ParentItem = 'BENCH'");
  Execute(Handle, "ANALYZE");
}

/// The server with the sample company at its scale of a thousand. It is a server of the benchmark's own, for which the
/// company is made anew each time, which takes some minutes; or the database at the address in the environment variable
/// ZUL_BENCH_SERVER, where the company is kept. ZUL_BENCH_SCALE asks for a smaller company.
class TServer {
 public:
  TServer() {
    std::string Address = qEnvironmentVariable("ZUL_BENCH_SERVER").toStdString();
    if (Address.empty()) {
      Own_ = std::make_unique<TThrowawayPostgreSQL>();
      Missing_ = Own_->Reason();
      if (!Own_->IsRunning()) return;
      Address = Own_->Address(QStringLiteral("postgres"));
    }
    Plain_ = PQconnectdb(Address.c_str());
    if (PQstatus(Plain_) != CONNECTION_OK) qFatal("%s", PQerrorMessage(Plain_));
    if (!HasCompany()) MakeCompany(Address);
    Database_ = std::make_unique<command::TDatabase>(Address);
  }
  ~TServer() { PQfinish(Plain_); }
  TServer(const TServer&) = delete;
  TServer& operator=(const TServer&) = delete;

  const QString& Missing() const { return Missing_; }
  ads::TAdsConnection* Connection() { return Database_->Connection(); }
  PGconn* Plain() { return Plain_; }

 private:
  bool HasCompany() {
    PGresult* Result = PQexec(Plain_, "SELECT 1 FROM Item WHERE ParentItem = 'BENCH' LIMIT 1");
    const bool IsThere = PQntuples(Result) > 0;
    PQclear(Result);
    return IsThere;
  }

  void MakeCompany(const std::string& Address) {
    bool Asked = false;
    const int Scale = qEnvironmentVariableIntValue("ZUL_BENCH_SCALE", &Asked);
    sample::TOptions Options;
    Options.Scale = Asked ? Scale : 1000;
    Options.Overwrite = true;
    sample::CreateCompanyOnServer(Address, Options);
    TopUp(Plain_, static_cast<int>(Options.Scale));
  }

  std::unique_ptr<TThrowawayPostgreSQL> Own_;
  QString Missing_;
  PGconn* Plain_ = nullptr;
  std::unique_ptr<command::TDatabase> Database_;
};

// Goes with the application, because a process of Qt's does not outlive it.
TServer& Server() {
  static TServer* const Instance = [] {
    auto* Made = new TServer;
    QObject::connect(qApp, &QCoreApplication::destroyed, [Made] { delete Made; });
    return Made;
  }();
  return *Instance;
}

// What a plain C program does with a query: send it, read every column of each row.
bench::TPlainRun RunPlainly(const std::string& Sql, int Columns) {
  const TClock::time_point Start = TClock::now();
  PGresult* Result = PQexec(Server().Plain(), Sql.c_str());
  if (PQresultStatus(Result) != PGRES_TUPLES_OK) qFatal("%s", PQresultErrorMessage(Result));
  bench::TPlainRun Run;
  Run.Rows = PQntuples(Result);
  std::size_t Sum = 0;
  for (int Row = 0; Row < PQntuples(Result); ++Row) {
    for (int Column = 0; Column < Columns; ++Column) {
      Sum += static_cast<unsigned char>(*PQgetvalue(Result, Row, Column));
      Run.Bytes += PQgetlength(Result, Row, Column);
    }
  }
  benchmark::DoNotOptimize(Sum);
  PQclear(Result);
  Run.Seconds = SecondsSince(Start);
  return Run;
}

// A figure of /proc/self/status, in bytes.
double StatusBytes(const QByteArray& Name) {
  QFile File(QStringLiteral("/proc/self/status"));
  if (!File.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& Line : File.readAll().split('\n')) {
    if (Line.startsWith(Name + ':')) return Line.simplified().split(' ').value(1).toDouble() * 1024;
  }
  return 0;
}

void ForgetPeak() {
  malloc_trim(0);
  QFile File(QStringLiteral("/proc/self/clear_refs"));
  if (File.open(QIODevice::WriteOnly)) File.write("5");
}

// `over_snapshot_mb` is the memory that reading the list takes at its most beyond the list that is kept.
void MeasureOnServer(benchmark::State& State, const bench::TCreate& Create, int Columns) {
  if (!Server().Missing().isEmpty()) {
    State.SkipWithError(qPrintable(Server().Missing()));
    return;
  }
  ForgetPeak();
  const double Before = StatusBytes("VmRSS");
  auto Dialog = Create();
  Dialog->qryList_->RecordCount();
  const auto Snapshot = static_cast<double>(Dialog->qryList_->SnapshotBytes());
  const double Over = StatusBytes("VmHWM") - Before - Snapshot;
  const std::string Sql = Server().Connection()->Dialect().Rewrite(Dialog->qryList_->SQL()->Text());
  Dialog.reset();
  bench::MeasureList(
      State, [&] { return RunPlainly(Sql, Columns); }, Create);
  State.counters["over_snapshot_mb"] = Over / 1'000'000;
}

void OpenCustomersOnPostgreSQL(benchmark::State& State) {
  MeasureOnServer(
      State, [] { return TfrmPickCustomer::Create(Server().Connection(), false, "", true, false); }, 6);
}
BENCHMARK(OpenCustomersOnPostgreSQL)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void OpenJobsOnPostgreSQL(benchmark::State& State) {
  MeasureOnServer(
      State, [] { return uPickJob::TfrmPickJob::Create(Server().Connection()); }, 2);
}
BENCHMARK(OpenJobsOnPostgreSQL)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void OpenDocumentsOnPostgreSQL(benchmark::State& State) {
  zulcommon::TDocTypes All;
  for (int Type = 0; Type < zulcommon::DocTypeCount; ++Type) All.Include(static_cast<zulcommon::TDocType>(Type));
  MeasureOnServer(
      State, [&All] { return TfrmPickOEDoc::Create(Server().Connection(), "", All, {}, {}); }, 9);
}
BENCHMARK(OpenDocumentsOnPostgreSQL)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

void OpenPurchaseOrdersOnPostgreSQL(benchmark::State& State) {
  MeasureOnServer(
      State, [] { return uPickAnyPO::TfrmPickPO::Create(Server().Connection(), {}, {}, ""); }, 15);
}
BENCHMARK(OpenPurchaseOrdersOnPostgreSQL)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

void OpenStockOnPostgreSQL(benchmark::State& State) {
  MeasureOnServer(
      State, [] { return uPickItemAndLocation::TfrmPickItemAndLocation::Create("BENCH", Server().Connection()); }, 8);
}
BENCHMARK(OpenStockOnPostgreSQL)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
