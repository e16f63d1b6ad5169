#include <libpq-fe.h>
#include <malloc.h>

#include <QCoreApplication>
#include <QFile>
#include <QSqlError>
#include <algorithm>
#include <chrono>

#include "PickBench.h"
#include "ads/ThrowawayPostgreSQL.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/parties/uPickCustomer.h"
#include "sample/SampleCompany.h"

// The pick lists of a big company on a PostgreSQL server of their own, each against libpq reading the same result.

namespace {

using TClock = std::chrono::steady_clock;
using uPickCustomer::TfrmPickCustomer;
using uPickOEDoc::TfrmPickOEDoc;

double SecondsSince(TClock::time_point Start) {
  return std::chrono::duration<double>(TClock::now() - Start).count();
}

/// The server with the sample company at its scale of a thousand, made at its first use; that takes some minutes. The
/// environment variable ZUL_BENCH_SCALE asks for a smaller company.
class TServer {
 public:
  TServer() {
    if (!Server_.IsRunning()) return;
    sample::TOptions Options;
    bool Asked = false;
    const int Scale = qEnvironmentVariableIntValue("ZUL_BENCH_SCALE", &Asked);
    Options.Scale = Asked ? Scale : 1000;
    sample::CreateCompanyOnServer(Server_.Address(QStringLiteral("postgres")), Options);
    const QSqlDatabase Database = Server_.Connect(QStringLiteral("bench PostgreSQL"));
    if (!Database.isOpen()) qFatal("%s", qPrintable(Database.lastError().text()));
    Connection_ = std::make_unique<ads::TAdsConnection>(Database);
    Plain_ = PQconnectdb(Server_.Address(QStringLiteral("postgres")).c_str());
  }
  ~TServer() {
    if (!Connection_) return;
    PQfinish(Plain_);
    Connection_.reset();
    QSqlDatabase::removeDatabase(QStringLiteral("bench PostgreSQL"));
  }
  TServer(const TServer&) = delete;
  TServer& operator=(const TServer&) = delete;

  const QString& Missing() const { return Server_.Reason(); }
  ads::TAdsConnection* Connection() { return Connection_.get(); }
  PGconn* Plain() { return Plain_; }

 private:
  TThrowawayPostgreSQL Server_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
  PGconn* Plain_ = nullptr;
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

struct TMedian {
  std::vector<double> Values;

  double operator()() {
    std::sort(Values.begin(), Values.end());
    return Values[Values.size() / 2];
  }
};

// Opens the pick and paints it, alternating with the plain run of the query that it sends. `over_snapshot_mb` is the
// memory that opening takes at its most beyond the list that it keeps.
void OpenAgainstLibpq(benchmark::State& State, const bench::TCreate& Create, int Columns) {
  if (!Server().Missing().isEmpty()) {
    State.SkipWithError(qPrintable(Server().Missing()));
    return;
  }
  ForgetPeak();
  const double Before = StatusBytes("VmRSS");
  auto Dialog = Create();
  const auto Snapshot = static_cast<double>(Dialog->qryList_->SnapshotBytes());
  const double Over = StatusBytes("VmHWM") - Before - Snapshot;
  const std::string Sql = Server().Connection()->Dialect().Rewrite(Dialog->qryList_->SQL()->Text());
  Dialog.reset();
  TMedian Plain, Pick;
  bench::TPlainRun Run = RunPlainly(Sql, Columns);
  for ([[maybe_unused]] auto _ : State) {
    Run = RunPlainly(Sql, Columns);
    Plain.Values.push_back(Run.Seconds);
    const TClock::time_point Start = TClock::now();
    Dialog = Create();
    Dialog->show();
    QCoreApplication::processEvents();
    Pick.Values.push_back(SecondsSince(Start));
    State.SetIterationTime(Pick.Values.back());
    if (Dialog->qryList_->RecordCount() != Run.Rows) State.SkipWithError("The pick lists other rows than libpq reads.");
    Dialog.reset();
  }
  State.counters["rows"] = static_cast<double>(Run.Rows);
  State.counters["plain_ms"] = Plain() * 1000;
  State.counters["ratio"] = Pick() / Plain();
  State.counters["snapshot_of_allowed"] =
      Snapshot / (1.5 * static_cast<double>(Run.Bytes) + 16.0 * static_cast<double>(Run.Rows));
  State.counters["over_snapshot_mb"] = Over / 1'000'000;
}

void OpenCustomersOnPostgreSQL(benchmark::State& State) {
  OpenAgainstLibpq(
      State, [] { return TfrmPickCustomer::Create(Server().Connection(), false, "", true, false); }, 6);
}
BENCHMARK(OpenCustomersOnPostgreSQL)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void OpenDocumentsOnPostgreSQL(benchmark::State& State) {
  zulcommon::TDocTypes All;
  for (int Type = 0; Type < zulcommon::DocTypeCount; ++Type) All.Include(static_cast<zulcommon::TDocType>(Type));
  OpenAgainstLibpq(
      State, [&All] { return TfrmPickOEDoc::Create(Server().Connection(), "", All, {}, {}); }, 9);
}
BENCHMARK(OpenDocumentsOnPostgreSQL)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
