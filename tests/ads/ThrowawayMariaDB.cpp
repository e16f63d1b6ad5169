#include "ads/ThrowawayMariaDB.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QThread>
#include <csignal>
#include <utility>

namespace {

// Distributions do not put the server on every account's path.
QString Find(const QString& Program) {
  const QString Found = QStandardPaths::findExecutable(Program);
  return Found.isEmpty() ? QStandardPaths::findExecutable(Program, {"/usr/sbin", "/usr/libexec"}) : Found;
}

const passwd* Account() {
  return ServerAccount({"mysql"});
}

int FreePort() {
  const int Probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in Place = {};
  Place.sin_family = AF_INET;
  Place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t Size = sizeof Place;
  auto* Any = reinterpret_cast<sockaddr*>(&Place);
  const bool Found = bind(Probe, Any, Size) == 0 && getsockname(Probe, Any, &Size) == 0;
  close(Probe);
  return Found ? ntohs(Place.sin_port) : 0;
}

}  // namespace

TThrowawayMariaDB::TThrowawayMariaDB(TServerOptions Options) : Options_(std::move(Options)) {
#ifdef ZUL_WITHOUT_MARIADB
  Reason_ = "The libraries were built without MariaDB";
  return;
#endif
  if (Find("mariadbd").isEmpty() || Find("mariadb-install-db").isEmpty()) {
    Reason_ = "MariaDB's server is not installed";
  } else if (!QSqlDatabase::isDriverAvailable("QMYSQL")) {
    Reason_ = "Qt's MariaDB driver is not installed";
  } else if (!CreateData()) {
    Reason_ = "MariaDB's mariadb-install-db failed";
  } else if (!Start()) {
    Reason_ = "The MariaDB server does not answer";
  }
}

TThrowawayMariaDB::~TThrowawayMariaDB() {
  Stop();
}

std::string TThrowawayMariaDB::Address(const QString& DatabaseName) const {
  return "mysql://tester@/" + DatabaseName.toStdString() + "?unix_socket=" + Socket().toStdString();
}

bool TThrowawayMariaDB::Restart() {
  Stop();
  return Start();
}

void TThrowawayMariaDB::Stop() {
  if (Server_.state() == QProcess::NotRunning) return;
  kill(static_cast<pid_t>(Server_.processId()), SIGTERM);
  if (Server_.waitForFinished(10000)) return;
  Server_.kill();
  Server_.waitForFinished(5000);
}

QString TThrowawayMariaDB::DataFolder() const {
  return Options_.Folder.isEmpty() ? Folder_.filePath("data") : Options_.Folder;
}

bool TThrowawayMariaDB::CreateData() {
  if (!GiveFolder(Folder_.path(), Account()) || !GiveFolder(DataFolder(), Account())) return false;
  if (QFile::exists(DataFolder() + "/ibdata1")) return true;
  QFile Accounts(Folder_.filePath("accounts.sql"));
  if (!Accounts.open(QFile::WriteOnly)) return false;
  Accounts.write(
      "FLUSH PRIVILEGES;\nCREATE DATABASE test CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;\n"
      "CREATE USER tester@'%';\nGRANT ALL ON *.* TO tester@'%' WITH GRANT OPTION;\n");
  Accounts.setPermissions(Accounts.permissions() | QFile::ReadOther);
  Accounts.close();
  QProcess Process;
  RunAs(Process, Account(), SIGTERM);
  Process.start(Find("mariadb-install-db"),
                {"--no-defaults", "--datadir=" + DataFolder(), "--auth-root-authentication-method=normal",
                 "--skip-test-db", "--skip-name-resolve", "--extra-file=" + Accounts.fileName()});
  return Process.waitForFinished(60000) && Process.exitStatus() == QProcess::NormalExit && Process.exitCode() == 0;
}

bool TThrowawayMariaDB::Start() {
  Port_ = FreePort();
  RunAs(Server_, Account(), SIGTERM);
  Server_.setStandardOutputFile(QProcess::nullDevice());
  Server_.setStandardErrorFile(QProcess::nullDevice());
  QStringList Arguments{"--no-defaults",
                        "--datadir=" + DataFolder(),
                        "--tmpdir=" + Folder_.path(),
                        "--socket=" + Socket(),
                        "--pid-file=" + Folder_.filePath("pid"),
                        "--bind-address=127.0.0.1",
                        "--port=" + QString::number(Port_),
                        "--innodb-flush-log-at-trx-commit=0",
                        "--debug-no-sync",
                        "--skip-innodb-doublewrite",
                        "--innodb-buffer-pool-size=256M",
                        "--skip-log-bin",
                        "--character-set-server=utf8mb4",
                        "--collation-server=utf8mb4_nopad_bin"};
  for (const QString& Setting : Options_.Settings) Arguments << "--" + Setting;
  Server_.start(Find("mariadbd"), Arguments);
  QElapsedTimer Waiting;
  for (Waiting.start(); Waiting.elapsed() < 30000; QThread::msleep(50)) {
    const bool Answers = Connect("ThrowawayMariaDB").isOpen();
    QSqlDatabase::removeDatabase("ThrowawayMariaDB");
    if (Answers) return true;
  }
  return false;
}

QSqlDatabase TThrowawayMariaDB::Connect(const QString& ConnectionName, const QString& DatabaseName, const QString& User,
                                        const QString& Password, const QString& Options) const {
  QSqlDatabase Database = QSqlDatabase::addDatabase("QMYSQL", ConnectionName);
  Database.setDatabaseName(DatabaseName);
  Database.setUserName(User);
  Database.setPassword(Password);
  const QString Socket = "UNIX_SOCKET=" + this->Socket();
  Database.setConnectOptions(Options.isEmpty() ? Socket : Socket + ';' + Options);
  Database.open();
  return Database;
}
