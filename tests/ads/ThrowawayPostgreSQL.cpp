#include "ads/ThrowawayPostgreSQL.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>
#include <utility>

#include "ads/Await.h"

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
    : TThrowawayPostgreSQL(TOptions{std::move(Options)}) {}

TThrowawayPostgreSQL::TThrowawayPostgreSQL(TOptions Options) : Options_(std::move(Options)), Programs_(FindPrograms()) {
  if (Options_.OnLoopback) Port_ = FreeLoopbackPort();
  if (Programs_.isEmpty()) {
    Reason_ = "PostgreSQL's server is not installed";
  } else if (!QSqlDatabase::isDriverAvailable("QPSQL")) {
    Reason_ = "Qt's PostgreSQL driver is not installed";
  } else if (Options_.Primary != nullptr && !Options_.Primary->IsRunning()) {
    Reason_ = Options_.Primary->Reason();
  } else if (!CreateCluster()) {
    Reason_ = Options_.Primary != nullptr ? "PostgreSQL's pg_basebackup failed" : "PostgreSQL's initdb failed";
  } else if (!Start()) {
    Reason_ = "The PostgreSQL server does not answer";
  }
}

TThrowawayPostgreSQL::~TThrowawayPostgreSQL() {
  Stop();
}

std::string TThrowawayPostgreSQL::Address(const QString& DatabaseName) const {
  return "postgresql://tester@/" + DatabaseName.toStdString() + "?host=" + Host().toStdString() +
         "&port=" + std::to_string(Port_);
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

bool TThrowawayPostgreSQL::Run(const QString& Program, const QStringList& Arguments) const {
  QProcess Process;
  RunAs(Process, Account(), SIGQUIT);
  Process.start(Programs_ + Program, Arguments);
  return Process.waitForFinished(60000) && Process.exitStatus() == QProcess::NormalExit && Process.exitCode() == 0;
}

bool TThrowawayPostgreSQL::CreateCluster() {
  if (!GiveTo(Account(), Folder_.path())) return false;
  if (Options_.Primary != nullptr) {
    return Run("/pg_basebackup", {"-D", DataFolder(), "-R", "-c", "fast", "--no-sync", "-U", "tester", "-h",
                                  Options_.Primary->Host(), "-p", QString::number(Options_.Primary->Port())});
  }
  if (!GiveFolder(Account(), DataFolder())) return false;
  if (QFile::exists(DataFolder() + "/PG_VERSION")) return true;
  return Run("/initdb",
             {"-D", DataFolder(), "-E", "UTF8", "--locale=C.UTF-8", "-U", "tester", "--auth=trust", "--no-sync"});
}

bool TThrowawayPostgreSQL::Start() {
  RunAs(Server_, Account(), SIGQUIT);
  Server_.setStandardOutputFile(QProcess::nullDevice());
  Server_.setStandardErrorFile(QProcess::nullDevice());
  QStringList Arguments{"-D", DataFolder(),           "-k", Folder_.path(),
                        "-p", QString::number(Port_), "-h", Options_.OnLoopback ? "127.0.0.1" : "",
                        "-F"};
  for (const QString& Setting : Options_.Settings) Arguments << "-c" << Setting;
  Server_.start(Programs_ + "/postgres", Arguments);
  const QString Probe = QUuid::createUuid().toString();
  return support::Await([&] {
    const bool Answers = Connect(Probe).isOpen();
    QSqlDatabase::removeDatabase(Probe);
    return Answers;
  });
}

QSqlDatabase TThrowawayPostgreSQL::Connect(const QString& ConnectionName, const QString& DatabaseName) const {
  QSqlDatabase Database = QSqlDatabase::addDatabase("QPSQL", ConnectionName);
  Database.setHostName(Folder_.path());
  Database.setPort(Port_);
  Database.setDatabaseName(DatabaseName);
  Database.setUserName("tester");
  Database.open();
  return Database;
}
