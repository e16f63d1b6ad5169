#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "LoadServer.h"
#include "LoadTimes.h"

/// Writers who change customers, balances and documents while this lives, each on a thread and a connection of its own
/// and each its own rows, and one who watches for whom they wait.
class TLoadWriters {
 public:
  TLoadWriters(const TLoadServer& Server, int Writers);
  ~TLoadWriters() { Stop(); }
  TLoadWriters(const TLoadWriters&) = delete;
  TLoadWriters& operator=(const TLoadWriters&) = delete;

  /// Ends them all, and waits for that.
  void Stop();

  // To be asked when they have ended.
  const TLoadTimes& Times() const { return Times_; }
  const QStringList& Errors() const { return Errors_; }
  /// The longest that a writer waited for a lock of somebody who is no writer, and of anybody, in milliseconds.
  double LongestWaitForReader() const { return LongestWaitForReader_; }
  double LongestWait() const { return LongestWait_; }
  /// How often it was looked, and the longest time between two looks in milliseconds.
  int Looks() const { return Looks_; }
  double LongestGap() const { return LongestGap_; }

 private:
  void Write(int Writer);
  void Watch();
  void Look(TLockView& View);
  bool Execute(const QSqlDatabase& Database, const QString& Operation, const QString& Sql);

  const TLoadServer& Server_;
  const int Writers_;
  std::atomic<bool> IsStopped_ = false;
  std::atomic<int> Connected_ = 0;
  std::mutex Mutex_;
  QSet<qint64> Sessions_;
  QStringList Errors_;
  TLoadTimes Times_;
  double LongestWaitForReader_ = 0;
  double LongestWait_ = 0;
  int Looks_ = 0;
  double LongestGap_ = 0;
  std::vector<std::thread> Threads_;
};
