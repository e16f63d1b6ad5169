#include "ads/ThrowawayPostgreSQL.h"

#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <csignal>

namespace {

// The folder with the server's programs, which distributions do not put on the path; empty when there is none.
QString FindPrograms() {
  const QDir Root("/usr/lib/postgresql");
  QStringList Folders;
  for (const QString& Version : Root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    Folders.prepend(Root.filePath(Version + "/bin"));
  }
  QString Found = QStandardPaths::findExecutable("initdb", Folders);
  if (Found.isEmpty()) Found = QStandardPaths::findExecutable("initdb");
  return Found.isEmpty() ? QString() : QFileInfo(Found).canonicalPath();
}

// The server refuses to run as root: then it runs as the account that its package made, or as nobody.
const passwd* Account() {
  if (geteuid() != 0) return nullptr;
  const passwd* Owner = getpwnam("postgres");
  return Owner != nullptr ? Owner : getpwnam("nobody");
}

// Makes a program run under that account, and end with this process however this one ends.
void RunAsAccount(QProcess& Process) {
  const passwd* Owner = Account();
  const uid_t User = Owner != nullptr ? Owner->pw_uid : geteuid();
  const gid_t Group = Owner != nullptr ? Owner->pw_gid : getegid();
  const bool Switch = Owner != nullptr;
  Process.setChildProcessModifier([User, Group, Switch] {
    if (Switch && (setgroups(0, nullptr) != 0 || setgid(Group) != 0 || setuid(User) != 0)) _exit(126);
    prctl(PR_SET_PDEATHSIG, SIGQUIT);
  });
}

}  // namespace

TThrowawayPostgreSQL::TThrowawayPostgreSQL() : Programs_(FindPrograms()) {
  if (Programs_.isEmpty()) {
    Reason_ = "PostgreSQL's server is not installed";
  } else if (!QSqlDatabase::isDriverAvailable("QPSQL")) {
    Reason_ = "Qt's PostgreSQL driver is not installed";
  } else if (!CreateCluster()) {
    Reason_ = "PostgreSQL's initdb failed";
  } else if (!Start()) {
    Reason_ = "The PostgreSQL server does not answer";
  }
}

TThrowawayPostgreSQL::~TThrowawayPostgreSQL() {
  Stop();
}

std::string TThrowawayPostgreSQL::Address(const QString& DatabaseName) const {
  return "postgresql://tester@/" + DatabaseName.toStdString() + "?host=" + Host().toStdString();
}

bool TThrowawayPostgreSQL::Restart() {
  Stop();
  return Start();
}

void TThrowawayPostgreSQL::Stop() {
  if (Server_.state() == QProcess::NotRunning) return;
  kill(static_cast<pid_t>(Server_.processId()), SIGINT);  // a fast shutdown: it waits for no client
  if (!Server_.waitForFinished(10000)) Server_.kill();
}

bool TThrowawayPostgreSQL::CreateCluster() {
  const passwd* Owner = Account();
  if (Owner != nullptr && chown(QFile::encodeName(Folder_.path()).constData(), Owner->pw_uid, Owner->pw_gid) != 0) {
    return false;
  }
  QProcess Process;
  RunAsAccount(Process);
  Process.start(Programs_ + "/initdb", {"-D", Folder_.filePath("data"), "-E", "UTF8", "--locale=C.UTF-8", "-U",
                                        "tester", "--auth=trust", "--no-sync"});
  return Process.waitForFinished(60000) && Process.exitStatus() == QProcess::NormalExit && Process.exitCode() == 0;
}

bool TThrowawayPostgreSQL::Start() {
  RunAsAccount(Server_);
  Server_.setStandardOutputFile(QProcess::nullDevice());
  Server_.setStandardErrorFile(QProcess::nullDevice());
  Server_.start(Programs_ + "/postgres", {"-D", Folder_.filePath("data"), "-k", Folder_.path(), "-h", "", "-F"});
  QElapsedTimer Waiting;
  for (Waiting.start(); Waiting.elapsed() < 20000; QThread::msleep(50)) {
    const bool Answers = Connect("ThrowawayPostgreSQL").isOpen();
    QSqlDatabase::removeDatabase("ThrowawayPostgreSQL");
    if (Answers) return true;
  }
  return false;
}

QSqlDatabase TThrowawayPostgreSQL::Connect(const QString& ConnectionName, const QString& DatabaseName) const {
  QSqlDatabase Database = QSqlDatabase::addDatabase("QPSQL", ConnectionName);
  Database.setHostName(Folder_.path());
  Database.setDatabaseName(DatabaseName);
  Database.setUserName("tester");
  Database.open();
  return Database;
}
