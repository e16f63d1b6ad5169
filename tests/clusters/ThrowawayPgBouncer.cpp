#include "clusters/ThrowawayPgBouncer.h"

#include <libpq-fe.h>

#include <QFile>
#include <QStandardPaths>
#include <chrono>
#include <memory>

#include "ads/Await.h"
#include "ads/ServerProcess.h"

namespace {

const passwd* Account() {
  return ServerAccount({"postgres", "nobody"});
}

// Distributions do not put it on every account's path.
QString FindProgram() {
  const QString Found = QStandardPaths::findExecutable("pgbouncer");
  return Found.isEmpty() ? QStandardPaths::findExecutable("pgbouncer", {"/usr/sbin", "/usr/local/sbin"}) : Found;
}

bool Write(const QString& FileName, const QString& Text) {
  QFile File(FileName);
  return File.open(QIODevice::WriteOnly) && File.write(Text.toUtf8()) >= 0 && GiveTo(Account(), FileName);
}

using TConnection = std::unique_ptr<PGconn, decltype(&PQfinish)>;
using TResult = std::unique_ptr<PGresult, decltype(&PQclear)>;

}  // namespace

TThrowawayPgBouncer::TThrowawayPgBouncer(const TThrowawayPostgreSQL& Server, TMode Mode, QStringList Settings)
    : Program_(FindProgram()), Port_(FreeLoopbackPort()) {
  if (Program_.isEmpty()) {
    Reason_ = "PgBouncer is not installed";
  } else if (!Server.IsRunning()) {
    Reason_ = Server.Reason();
  } else if (!WriteSettings(Server, Mode, Settings)) {
    Reason_ = "PgBouncer's settings cannot be written";
  } else if (!Start()) {
    Reason_ = "PgBouncer does not answer";
  }
}

TThrowawayPgBouncer::~TThrowawayPgBouncer() {
  Stop();
}

bool TThrowawayPgBouncer::WriteSettings(const TThrowawayPostgreSQL& Server, TMode Mode,
                                        const QStringList& Settings) const {
  const QString Accounts = Folder_.filePath("accounts");
  const QStringList Lines{"[databases]", QStringLiteral("* = host=%1 port=%2").arg(Server.Host()).arg(Server.Port()),
                          // Of two lines for one setting the later one counts.
                          "[pgbouncer]", "default_pool_size = 5", Settings.join('\n'),
                          QStringLiteral("pool_mode = %1").arg(Mode == TMode::Session ? "session" : "transaction"),
                          "unix_socket_dir = " + Folder_.path(), "listen_addr = 127.0.0.1",
                          QStringLiteral("listen_port = %1").arg(Port_),
                          // It must know the accounts that it lets in, but asks none for a password.
                          "auth_type = trust", "auth_file = " + Accounts, "admin_users = tester",
                          "ignore_startup_parameters = extra_float_digits"};  // psqlODBC's
  return GiveTo(Account(), Folder_.path()) && Write(Accounts, "\"tester\" \"\"\n\"clerk\" \"\"\n\"auditor\" \"\"\n") &&
         Write(Folder_.filePath("pgbouncer.ini"), Lines.join('\n') + '\n');
}

bool TThrowawayPgBouncer::Start() {
  RunAs(Pooler_, Account(), SIGQUIT);
  Pooler_.setStandardOutputFile(QProcess::nullDevice());
  Pooler_.setStandardErrorFile(LogName(), QIODevice::Append);
  Pooler_.start(Program_, {Folder_.filePath("pgbouncer.ini")});
  return support::Await([this] { return !Ask("SHOW VERSION").isEmpty(); }, std::chrono::seconds(10));
}

void TThrowawayPgBouncer::Stop() {
  if (Pooler_.state() == QProcess::NotRunning) return;
  Pooler_.terminate();
  if (!Pooler_.waitForFinished(5000)) Pooler_.kill();
  Pooler_.waitForFinished();
}

QString TThrowawayPgBouncer::LogName() const {
  return Folder_.filePath("log");
}

QString TThrowawayPgBouncer::Log() const {
  QFile File(LogName());
  return File.open(QIODevice::ReadOnly) ? QString::fromUtf8(File.readAll()) : QString();
}

bool TThrowawayPgBouncer::Restart() {
  Stop();
  return Start();
}

QSqlDatabase TThrowawayPgBouncer::Connect(const QString& ConnectionName, const QString& DatabaseName) const {
  QSqlDatabase Database = QSqlDatabase::addDatabase("QPSQL", ConnectionName);
  Database.setHostName(Host());
  Database.setPort(Port_);
  Database.setDatabaseName(DatabaseName);
  Database.setUserName("tester");
  Database.open();
  return Database;
}

// Qt's driver asks its own questions on opening, which the console does not know.
QStringList TThrowawayPgBouncer::Ask(const QString& Command) const {
  const QByteArray Target =
      QStringLiteral("host=%1 port=%2 dbname=pgbouncer user=tester").arg(Host(), QString::number(Port_)).toUtf8();
  const TConnection Console(PQconnectdb(Target.constData()), &PQfinish);
  if (PQstatus(Console.get()) != CONNECTION_OK) return {};
  const TResult Answer(PQexec(Console.get(), Command.toUtf8().constData()), &PQclear);
  QStringList Result;
  for (int Row = 0; Row < PQntuples(Answer.get()); ++Row) {
    QStringList Values;
    for (int Column = 0; Column < PQnfields(Answer.get()); ++Column) {
      Values << QString::fromUtf8(PQfname(Answer.get(), Column)) + '=' + PQgetvalue(Answer.get(), Row, Column);
    }
    Result << Values.join(' ');
  }
  return Result;
}
