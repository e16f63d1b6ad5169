#pragma once

#include <arpa/inet.h>
#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>
#include <csignal>
#include <cstdint>
#include <initializer_list>

/// How a throwaway server is to be run.
struct TServerOptions {
  QStringList Settings;  ///< of the server's own, "name=value", over those that it has otherwise
  QString Folder;        ///< where its data are kept for the next time; empty: they go with the server
};

/// Servers refuse to run as root: then they run as the first of these accounts that there is. Null for anybody else.
inline const passwd* ServerAccount(std::initializer_list<const char*> Names) {
  if (geteuid() != 0) return nullptr;
  for (const char* Name : Names) {
    if (const passwd* Found = getpwnam(Name)) return Found;
  }
  return nullptr;
}

/// Makes a program run under the account, and end by the signal with this process however this one ends. The account is
/// changed first, because a change takes the signal back.
inline void RunAs(QProcess& Process, const passwd* Owner, int EndSignal) {
  const bool Switch = Owner != nullptr;
  const uid_t User = Switch ? Owner->pw_uid : geteuid();
  const gid_t Group = Switch ? Owner->pw_gid : getegid();
  Process.setChildProcessModifier([Switch, User, Group, EndSignal] {
    if (Switch && (setgroups(0, nullptr) != 0 || setgid(Group) != 0 || setuid(User) != 0)) _exit(126);
    prctl(PR_SET_PDEATHSIG, EndSignal);
  });
}

/// Gives a file or folder to the account.
inline bool GiveTo(const passwd* Owner, const QString& Path) {
  return Owner == nullptr || chown(QFile::encodeName(Path).constData(), Owner->pw_uid, Owner->pw_gid) == 0;
}

/// Makes a folder, if it is not there, and gives it to the account.
inline bool GiveFolder(const passwd* Owner, const QString& Folder) {
  return QDir().mkpath(Folder) && GiveTo(Owner, Folder);
}

/// Whether nobody listens on a port of the loopback address.
inline bool IsFreeLoopbackPort(int Port) {
  const int Probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in Place = {};
  Place.sin_family = AF_INET;
  Place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Place.sin_port = htons(static_cast<std::uint16_t>(Port));
  const bool Found = bind(Probe, reinterpret_cast<sockaddr*>(&Place), sizeof Place) == 0;
  close(Probe);
  return Found;
}

/// A port of the loopback address that nobody listens on; 0 when there is none. From below those that the system gives
/// to connections, and from another place in each program, because several run at a time.
inline int FreeLoopbackPort() {
  constexpr int First = 12000, Count = 20000, Attempts = 200;
  static int Next = QRandomGenerator::global()->bounded(Count);
  for (int Attempt = 0; Attempt < Attempts; ++Attempt) {
    const int Port = First + Next++ % Count;
    if (IsFreeLoopbackPort(Port)) return Port;
  }
  return 0;
}
