#pragma once

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>

#include "servers/Backends.h"
#include "servers/HostileTexts.h"

namespace support {

/// Everything that is stored and committed in a backend's database, as a text that changes with it.
QString Contents(const TBackend& Backend);

/// Watches everything that a text could change by way of a host's connection: the data, as the host and as others see
/// them, the session's settings, locks and transaction, its cursors, prepared statements, temporary tables and
/// listening, other sessions of the server, the server's own state, notifications, large objects and files.
class TWatch : public QObject {
  Q_OBJECT
 public:
  /// From here on nothing is to change. Every other connection that a test needs must be open already. The backend must
  /// live longer.
  TWatch(TBackends& Backends, TBackend& Backend);
  ~TWatch() override;

  /// What the hostile texts are to call what is watched.
  const THostileNames& Names() const { return Names_; }

  /// What has changed since the last time: "what: before, now after" for each.
  QStringList Changes();

 private:
  using TState = QMap<QString, QString>;

  TState State();
  void AddServer(TState& State) const;
  void AddSession(TState& State) const;
  void AddMariaDB(TState& State) const;
  void AddSQLite(TState& State) const;
  QString ContentsForHost() const;

  TBackend& Backend_;
  QSqlDatabase Bystander_;  // a session that nobody else needs, for those that end sessions
  QTemporaryDir Folder_;
  THostileNames Names_;
  QStringList Notifications_;
  TState Before_;
};

}  // namespace support
