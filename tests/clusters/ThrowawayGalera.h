#pragma once

#include <QSqlDatabase>
#include <QString>
#include <array>
#include <memory>
#include <string>

#include "ads/ThrowawayMariaDB.h"

/// A Galera cluster of the test's own: three MariaDB servers on this machine that hold the same data, each of which
/// takes reads and writes. Its nodes are numbered from 0. Where this machine has no Galera, `IsRunning` is false and
/// `Reason` says what is missing; a test then skips.
class TThrowawayGalera {
 public:
  static constexpr int Count = 3;

  TThrowawayGalera();
  ~TThrowawayGalera();
  TThrowawayGalera(const TThrowawayGalera&) = delete;
  TThrowawayGalera& operator=(const TThrowawayGalera&) = delete;

  bool IsRunning() const { return Reason_.isEmpty(); }
  const QString& Reason() const { return Reason_; }

  /// One of the servers; its own Stop leaves the cluster in order, its Kill does not.
  TThrowawayMariaDB& Node(int Index);

  /// A new connection to a node by its host name and port, as hosts have it, with the name under which QSqlDatabase
  /// knows it; open unless the server refused it.
  QSqlDatabase Connect(int Index, const QString& ConnectionName, const QString& DatabaseName) const;

  /// Has a node hear nothing of the others any more, and waits until it answers no queries for that.
  bool Isolate(int Index);
  /// Brings a node back that was stopped, killed or isolated, and waits until it has what the others have.
  bool Rejoin(int Index);
  /// Waits until all nodes that run belong to one cluster of so many and have what was committed on any of them.
  bool WaitUntilSynced(int Members = Count) const;

 private:
  class TNode;

  bool IsSynced(int Index, int Members) const;

  std::array<std::unique_ptr<TNode>, Count> Nodes_;
  QString Reason_;
};
