#include "ServerLists.h"

#include <QCoreApplication>
#include <functional>

#include "ListBench.h"
#include "apps/command/OpenDatabase.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/parties/uPickCustomer.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "picks/reference/uPickJob.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "sample/SampleCompany.h"

namespace bench {

namespace {

using uPickCustomer::TfrmPickCustomer;
using uPickItemAndLocation::TfrmPickItemAndLocation;
using uPickOEDoc::TfrmPickOEDoc;

class TServer {
 public:
  explicit TServer(const TServerKind& Kind) : Kind_(Kind) {
    std::string Address = qEnvironmentVariable(Kind.AddressVariable).toStdString();
    if (Address.empty()) {
      Own_ = Kind.Start({});
      if (!Own_.Reason.isEmpty()) return;
      Address = Own_.Address(QLatin1String(Kind.Database));
    }
    if (!HasCompany(Address)) MakeCompany(Address);
    Plain_ = Kind.Connect(Address);
    Database_ = std::make_unique<command::TDatabase>(Address);
  }

  const QString& Missing() const { return Own_.Reason; }
  ads::TAdsConnection* Connection() { return Database_->Connection(); }
  TPlainClient& Plain() { return *Plain_; }

 private:
  bool HasCompany(const std::string& Address) const {
    const auto Plain = Kind_.Connect(Address);
    return Plain->Number("SELECT COUNT(*) FROM information_schema.tables WHERE table_name = 'itemdet'") > 0 &&
           Plain->Number("SELECT COUNT(*) FROM item WHERE parentitem = 'BENCH'") > 0;
  }

  void MakeCompany(const std::string& Address) const {
    bool Asked = false;
    const int Scale = qEnvironmentVariableIntValue("ZUL_BENCH_SCALE", &Asked);
    sample::TOptions Options;
    Options.Scale = Asked ? Scale : 1000;
    Options.Overwrite = true;
    sample::CreateCompanyOnServer(Address, Options);
    TopUp(*Kind_.Connect(Address), 1000 * Options.Scale);
  }

  // What the company has less of than `Most`, and one parent item with so much stock.
  void TopUp(TPlainClient& Plain, std::int64_t Most) const {
    const std::string Series = "(" + Kind_.Series(Most) + ") S";
    const auto Rest = [Most](const std::string& Table) {
      return " WHERE N <= " + std::to_string(Most) + " - (SELECT COUNT(*) FROM " + Table + ")";
    };
    Plain.Execute(
        "INSERT INTO ip SELECT 'X' || LPAD('' || N, 9, '0'), date, id, custid, ponumber, potype, type, posted, closed, "
        "poreceipt, canceled, apdocket, rma, cost, fedtax FROM (SELECT ip.*, ROW_NUMBER() OVER () AS N FROM ip) S" +
        Rest("ip"));
    Plain.Execute("INSERT INTO jobs SELECT 'Z' || LPAD(" + std::string(Kind_.Hex) +
                  "(N), 5, '0'), 'Refit ' || N * 7919 % 1000003 FROM " + Series + Rest("jobs"));
    Plain.Execute(
        "INSERT INTO item SELECT 'BENCH-' || N, 'Panel ' || N * 7919 % 250007, N % 7, 'BENCH', 'LOT' || N % 91, 'REF' "
        "|| N % 997 FROM (" +
        Kind_.Series(Most / 4) + ") S");
    Plain.Execute(
        "INSERT INTO itemdet SELECT I.item, L.id, 1 + (I.type + L.id) % 50, 'BIN' || I.type FROM item I, (SELECT id "
        "FROM itemlocations ORDER BY id LIMIT 4) L WHERE I.parentitem = 'BENCH'");
    for (const std::string& Statement : Kind_.Analyze) Plain.Execute(Statement);
  }

  const TServerKind& Kind_;
  TOwnServer Own_;
  std::unique_ptr<TPlainClient> Plain_;
  std::unique_ptr<command::TDatabase> Database_;
};

// Made when the first of its benchmarks runs. Goes with the application, because a process of Qt's does not outlive it.
class TServerOnDemand {
 public:
  explicit TServerOnDemand(const TServerKind& Kind) : Kind_(Kind) {}

  TServer& operator()() {
    if (Instance_ == nullptr) {
      Instance_ = std::make_unique<TServer>(Kind_);
      QObject::connect(qApp, &QCoreApplication::destroyed, [this] { Instance_.reset(); });
    }
    return *Instance_;
  }

 private:
  const TServerKind& Kind_;
  std::unique_ptr<TServer> Instance_;
};

using TDialogOn = std::function<std::unique_ptr<uDocPickBase::TDocPickBase>(ads::TAdsConnection*)>;

// `over_snapshot_mb` is the memory that reading the list takes at its most beyond the list that is kept.
void MeasureOnServer(benchmark::State& State, TServerOnDemand& Server, const TDialogOn& DialogOn, int Columns) {
  if (!Server().Missing().isEmpty()) {
    State.SkipWithError(qPrintable(Server().Missing()));
    return;
  }
  const TCreate Create = [&] { return DialogOn(Server().Connection()); };
  const TListMemory Memory = MeasureMemory(Create);
  const std::string Sql = Server().Connection()->Dialect().Rewrite(Create()->qryList_->SQL()->Text());
  MeasureList(
      State, [&] { return Server().Plain().Run(Sql, Columns); }, Create);
  State.counters["over_snapshot_mb"] = (Memory.Peak - Memory.Snapshot) / 1'000'000;
}

struct TList {
  const char* Name;
  int Iterations;
  int Columns;
  TDialogOn DialogOn;
};

zulcommon::TDocTypes AllTypes() {
  zulcommon::TDocTypes All;
  for (int Type = 0; Type < zulcommon::DocTypeCount; ++Type) All.Include(static_cast<zulcommon::TDocType>(Type));
  return All;
}

const std::vector<TList>& Lists() {
  using ads::TAdsConnection;
  static const std::vector<TList> All{
      {"OpenCustomers", 5, 6, [](TAdsConnection* On) { return TfrmPickCustomer::Create(On, false, "", true, false); }},
      {"OpenJobs", 5, 2, [](TAdsConnection* On) { return uPickJob::TfrmPickJob::Create(On); }},
      {"OpenDocuments", 3, 9, [](TAdsConnection* On) { return TfrmPickOEDoc::Create(On, "", AllTypes(), {}, {}); }},
      {"OpenPurchaseOrders", 3, 15, [](TAdsConnection* On) { return uPickAnyPO::TfrmPickPO::Create(On, {}, {}, ""); }},
      {"OpenStock", 5, 8, [](TAdsConnection* On) { return TfrmPickItemAndLocation::Create("BENCH", On); }},
  };
  return All;
}

}  // namespace

bool RegisterServerLists(const TServerKind& Kind) {
  const auto Server = std::make_shared<TServerOnDemand>(Kind);
  for (const TList& List : Lists()) {
    const std::string Name = std::string(List.Name) + "On" + Kind.Name;
    benchmark::RegisterBenchmark(
        Name.c_str(),
        [Server, &List](benchmark::State& State) { MeasureOnServer(State, *Server, List.DialogOn, List.Columns); })
        ->UseManualTime()
        ->Iterations(List.Iterations)
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}

}  // namespace bench
