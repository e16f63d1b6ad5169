#pragma once

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

#include "LoadTimes.h"

/// Users who work at the same time, each a process with a connection (LoadUser.cpp), because dialogs belong to one
/// thread of a process. They end with this.
class TLoadUsers {
 public:
  /// Each looks at what it sees for so many milliseconds at the most.
  TLoadUsers(const std::string& Address, int Count, int LongestLook);
  ~TLoadUsers();
  TLoadUsers(const TLoadUsers&) = delete;
  TLoadUsers& operator=(const TLoadUsers&) = delete;

  // Each waits until all have done so; false when they do not in the time that there is for it.
  bool Connect();
  bool Work(double Seconds);
  bool Leave();

  const TLoadTimes& Times() const { return Times_; }
  const QStringList& Errors() const { return Errors_; }
  /// How often one of them lost the connection, and opened another.
  int Cuts() const { return Cuts_; }

  /// By how much those who came to a third round of all picks held more then, or later, than in their second, at the
  /// most and in KiB; and how many they are.
  struct TGrowth {
    int Users = 0;
    qint64 MostKiB = 0;
  };
  TGrowth Growth() const;

 private:
  struct TUser {
    QProcess Process;
    QByteArray State;
    QMap<int, qint64> Memory;  // the most in each round
  };

  void Read(TUser& User);
  void Take(TUser& User, const QByteArray& Line);
  bool Await(const QByteArray& State, int Milliseconds);

  std::vector<std::unique_ptr<TUser>> Users_;
  TLoadTimes Times_;
  QStringList Errors_;
  int Cuts_ = 0;
};
