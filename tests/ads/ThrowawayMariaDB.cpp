#include "ads/ThrowawayMariaDB.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <utility>

namespace {

const passwd* Account() {
  return ServerAccount({"mysql"});
}

}  // namespace

TThrowawayMariaDB::TThrowawayMariaDB(TServerOptions Options) : TThrowawayMariaDB(std::move(Options), TData::Made) {
  if (IsRunning() && !Start()) Reason_ = "The MariaDB server does not answer";
}

TThrowawayMariaDB::TThrowawayMariaDB(TServerOptions Options, TData Data) : Options_(std::move(Options)) {
#ifdef ZUL_WITHOUT_MARIADB
  Reason_ = "The libraries were built without MariaDB";
  return;
#endif
  if (Find("mariadbd").isEmpty() || Find("mariadb-install-db").isEmpty()) {
    Reason_ = "MariaDB's server is not installed";
  } else if (!QSqlDatabase::isDriverAvailable("QMYSQL")) {
    Reason_ = "Qt's MariaDB driver is not installed";
  } else if (!MakeFolders() || (Data == TData::Made && !CreateData())) {
    Reason_ = "MariaDB's mariadb-install-db failed";
  }
}

TThrowawayMariaDB::~TThrowawayMariaDB() {
  Stop();
}

std::string TThrowawayMariaDB::Address(const QString& DatabaseName) const {
  return "mysql://tester@/" + DatabaseName.toStdString() + "?unix_socket=" + Socket().toStdString();
}

void TThrowawayMariaDB::Stop() {
  if (Server_.state() == QProcess::NotRunning) return;
  Server_.terminate();
  if (!Server_.waitForFinished(20000)) Kill();
}

void TThrowawayMariaDB::Kill() {
  Server_.kill();
  Server_.waitForFinished(5000);
}

// Distributions do not put the server on every account's path.
QString TThrowawayMariaDB::Find(const QString& Program) {
  const QString Found = QStandardPaths::findExecutable(Program);
  return Found.isEmpty() ? QStandardPaths::findExecutable(Program, {"/usr/sbin", "/usr/libexec"}) : Found;
}

QString TThrowawayMariaDB::DataFolder() const {
  return Options_.Folder.isEmpty() ? Folder_.filePath("data") : Options_.Folder;
}

bool TThrowawayMariaDB::MakeFolders() {
  return GiveTo(Account(), Folder_.path()) && GiveFolder(Account(), DataFolder());
}

bool TThrowawayMariaDB::CreateData() {
  if (QFile::exists(DataFolder() + "/ibdata1")) return true;
  QFile Accounts(Folder_.filePath("accounts.sql"));
  if (!Accounts.open(QFile::WriteOnly)) return false;
  Accounts.write(
      "FLUSH PRIVILEGES;\nCREATE DATABASE test CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;\n"
      "CREATE USER tester@'%';\nGRANT ALL ON *.* TO tester@'%' WITH GRANT OPTION;\n");
  Accounts.setPermissions(Accounts.permissions() | QFile::ReadOther);
  Accounts.close();
  QProcess Process;
  RunAs(Process, Account(), SIGKILL);
  Process.start(Find("mariadb-install-db"),
                {"--no-defaults", "--datadir=" + DataFolder(), "--auth-root-authentication-method=normal",
                 "--skip-test-db", "--skip-name-resolve", "--extra-file=" + Accounts.fileName()});
  if (Process.waitForFinished(60000) && Process.exitStatus() == QProcess::NormalExit && Process.exitCode() == 0) {
    return true;
  }
  qWarning("mariadb-install-db: %s%s", Process.readAllStandardOutput().constData(),
           Process.readAllStandardError().constData());
  return false;
}

bool TThrowawayMariaDB::Start(const QStringList& More) {
  constexpr int Patience = 60000;
  RunAs(Server_, Account(), SIGKILL);
  Server_.setStandardOutputFile(QProcess::nullDevice());
  Server_.setStandardErrorFile(Folder_.filePath("log"));
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
  for (const QString& Setting : Options_.Settings + More) Arguments << "--" + Setting;
  Server_.start(Find("mariadbd"), Arguments);
  QElapsedTimer Waiting;
  for (Waiting.start(); Waiting.elapsed() < Patience && Server_.state() != QProcess::NotRunning;) {
    if (Answers()) return true;
    Server_.waitForFinished(50);
  }
  return false;
}

bool TThrowawayMariaDB::Restart() {
  Stop();
  return Start();
}

bool TThrowawayMariaDB::Answers() const {
  const bool Opens = Connect("ThrowawayMariaDB").isOpen();
  QSqlDatabase::removeDatabase("ThrowawayMariaDB");
  return Opens;
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
