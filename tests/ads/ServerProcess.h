#pragma once

#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
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

/// Makes a folder, if it is not there, and gives it to the account.
inline bool GiveFolder(const QString& Folder, const passwd* Owner) {
  if (!QDir().mkpath(Folder)) return false;
  return Owner == nullptr || chown(QFile::encodeName(Folder).constData(), Owner->pw_uid, Owner->pw_gid) == 0;
}
