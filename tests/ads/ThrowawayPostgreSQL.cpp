#include "ads/ThrowawayPostgreSQL.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>
#include <csignal>
#include <utility>

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

const passwd* Account() {
  return ServerAccount({"postgres", "nobody"});
}

}  // namespace

TThrowawayPostgreSQL::TThrowawayPostgreSQL(TServerOptions Options)
    : Options_(std::move(Options)), Programs_(FindPrograms()) {
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

QString TThrowawayPostgreSQL::DataFolder() const {
  return Options_.Folder.isEmpty() ? Folder_.filePath("data") : Options_.Folder;
}

bool TThrowawayPostgreSQL::CreateCluster() {
  if (!GiveFolder(Folder_.path(), Account()) || !GiveFolder(DataFolder(), Account())) return false;
  if (QFile::exists(DataFolder() + "/PG_VERSION")) return true;
  QProcess Process;
  RunAs(Process, Account(), SIGQUIT);
  Process.start(Programs_ + "/initdb",
                {"-D", DataFolder(), "-E", "UTF8", "--locale=C.UTF-8", "-U", "tester", "--auth=trust", "--no-sync"});
  return Process.waitForFinished(60000) && Process.exitStatus() == QProcess::NormalExit && Process.exitCode() == 0;
}

bool TThrowawayPostgreSQL::Start() {
  RunAs(Server_, Account(), SIGQUIT);
  Server_.setStandardOutputFile(QProcess::nullDevice());
  Server_.setStandardErrorFile(QProcess::nullDevice());
  QStringList Arguments{"-D", DataFolder(), "-k", Folder_.path(), "-h", "", "-F"};
  for (const QString& Setting : Options_.Settings) Arguments << "-c" << Setting;
  Server_.start(Programs_ + "/postgres", Arguments);
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
