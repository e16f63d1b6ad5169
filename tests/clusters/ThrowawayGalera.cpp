#include "clusters/ThrowawayGalera.h"

#include <QFile>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QUuid>
#include <chrono>
#include <utility>

#include "ads/Await.h"

namespace {

constexpr std::chrono::seconds Patience(60);

QString Provider() {
  for (const char* Folder : {"/usr/lib/galera", "/usr/lib64/galera-4", "/usr/lib64/galera"}) {
    const QString Name = QLatin1String(Folder) + QLatin1String("/libgalera_smm.so");
    if (QFile::exists(Name)) return Name;
  }
  return {};
}

QString Local(int Port) {
  return QStringLiteral("127.0.0.1:%1").arg(Port);
}

// Where the nodes talk to each other.
struct TPlaces {
  int Group = FreeLoopbackPort();
  int Increments = FreeLoopbackPort();
  int Copies = FreeLoopbackPort();
};

QStringList NodeSettings(const TPlaces& Own, const QStringList& Members, int Index) {
  return {"wsrep-on=ON",
          "wsrep-provider=" + Provider(),
          "binlog-format=ROW",
          "innodb-autoinc-lock-mode=2",
          "wsrep-cluster-name=throwaway",
          "wsrep-cluster-address=gcomm://" + Members.join(','),
          "wsrep-node-name=" + QString::number(Index),
          "wsrep-node-address=" + Local(Own.Group),
          "wsrep-provider-options=base_port=" + QString::number(Own.Group) + ";gmcast.listen_addr=tcp://" +
              Local(Own.Group) + ";ist.recv_addr=" + Local(Own.Increments) + ";gcache.size=32M;gcs.fc_limit=64",
          "wsrep-sst-method=rsync",
          "wsrep-sst-receive-address=" + Local(Own.Copies),
          "innodb-log-file-size=48M"};
}

QString Ask(const QSqlDatabase& Database, const QString& Sql) {
  if (!Database.isOpen()) return {};
  QSqlQuery Query(Database);
  return Query.exec(Sql) && Query.next() ? Query.value(Query.record().count() - 1).toString() : QString();
}

// What a node says of itself, by a connection that needs none of its data.
QString StatusOf(const TThrowawayMariaDB& Node, const QString& Name) {
  const QString ConnectionName = QUuid::createUuid().toString();
  const QString Status = Ask(Node.Connect(ConnectionName, {}), QStringLiteral("SHOW STATUS LIKE '%1'").arg(Name));
  QSqlDatabase::removeDatabase(ConnectionName);
  return Status;
}

bool Tell(const TThrowawayMariaDB& Node, const QString& Sql) {
  const QString ConnectionName = QUuid::createUuid().toString();
  bool Done = false;
  {
    const QSqlDatabase Database = Node.Connect(ConnectionName, {});
    Done = Database.isOpen() && QSqlQuery(Database).exec(Sql);
  }
  QSqlDatabase::removeDatabase(ConnectionName);
  return Done;
}

}  // namespace

/// A server that does not answer before it has its data from the others.
class TThrowawayGalera::TNode final : public TThrowawayMariaDB {
 public:
  TNode(QStringList Settings, bool IsFirst)
      : TThrowawayMariaDB(TServerOptions{std::move(Settings), {}}, IsFirst ? TData::Made : TData::Given) {}

  bool IsSynced() const { return StatusOf(*this, "wsrep_local_state_comment") == QLatin1String("Synced"); }

 protected:
  bool Answers() const override { return IsSynced(); }
};

TThrowawayGalera::TThrowawayGalera() {
  if (Provider().isEmpty() || TThrowawayMariaDB::Find("wsrep_sst_rsync").isEmpty()) {
    Reason_ = "Galera is not installed";
    return;
  }
  if (QStandardPaths::findExecutable("rsync").isEmpty()) {
    Reason_ = "rsync is not installed";
    return;
  }
  std::array<TPlaces, Count> Places;
  QStringList Members;
  for (const TPlaces& Each : Places) Members << Local(Each.Group);
  for (int Index = 0; Index < Count && IsRunning(); ++Index) {
    auto& Node = Nodes_[static_cast<std::size_t>(Index)];
    Node = std::make_unique<TNode>(NodeSettings(Places[static_cast<std::size_t>(Index)], Members, Index), Index == 0);
    Reason_ = Node->Reason();
    if (!IsRunning()) return;
    if (!Node->Start(Index == 0 ? QStringList("wsrep-new-cluster") : QStringList())) {
      Reason_ = QStringLiteral("Node %1 of the cluster does not come").arg(Index);
    }
  }
  if (IsRunning() && !WaitUntilSynced()) Reason_ = "The cluster does not come together";
}

TThrowawayGalera::~TThrowawayGalera() {
  // One after the other they would tell each other.
  for (const auto& Node : Nodes_) {
    if (Node != nullptr) Node->Kill();
  }
}

TThrowawayMariaDB& TThrowawayGalera::Node(int Index) {
  return *Nodes_[static_cast<std::size_t>(Index)];
}

QSqlDatabase TThrowawayGalera::Connect(int Index, const QString& ConnectionName, const QString& DatabaseName) const {
  QSqlDatabase Database = QSqlDatabase::addDatabase("QMYSQL", ConnectionName);
  Database.setHostName("127.0.0.1");
  Database.setPort(Nodes_[static_cast<std::size_t>(Index)]->Port());
  Database.setUserName("tester");
  Database.setDatabaseName(DatabaseName);
  Database.open();
  return Database;
}

bool TThrowawayGalera::Isolate(int Index) {
  return Tell(Node(Index), "SET GLOBAL wsrep_provider_options = 'gmcast.isolate=1'") &&
         support::Await([&] { return StatusOf(Node(Index), "wsrep_ready") == QLatin1String("OFF"); }, Patience);
}

bool TThrowawayGalera::Rejoin(int Index) {
  if (!Node(Index).IsStarted()) {
    if (!Node(Index).Start()) return false;
  } else if (!Tell(Node(Index), "SET GLOBAL wsrep_provider_options = 'gmcast.isolate=0'")) {
    return false;
  }
  int Members = 0;
  for (const auto& Each : Nodes_) Members += Each->IsStarted() ? 1 : 0;
  return WaitUntilSynced(Members);
}

bool TThrowawayGalera::IsSynced(int Index, int Members) const {
  const TNode& Node = *Nodes_[static_cast<std::size_t>(Index)];
  return StatusOf(Node, "wsrep_cluster_size").toInt() == Members && Node.IsSynced() &&
         Tell(Node, "SET STATEMENT wsrep_sync_wait=15 FOR SELECT 1");
}

bool TThrowawayGalera::WaitUntilSynced(int Members) const {
  const auto AreSynced = [&] {
    for (int Index = 0; Index < Count; ++Index) {
      if (Nodes_[static_cast<std::size_t>(Index)]->IsStarted() && !IsSynced(Index, Members)) return false;
    }
    return true;
  };
  return support::Await(AreSynced, Patience);
}
