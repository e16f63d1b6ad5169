#include "apps/command/OpenDatabase.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>

namespace command {

namespace {

// A way of opening that the address asks for.
struct TTarget {
  QString Driver;
  QString Plugin;  // the Debian package that brings the driver
  QString Shown;
  QString Name;
  QString Host;
  int Port = -1;
  QString User;
  QString Password;
  QString Options;
};

[[noreturn]] void Fail(const QString& Message) {
  throw EOpenError(Message.toStdString());
}

TTarget FileTarget(const QString& FileName) {
  const QFileInfo File(FileName);
  if (!File.exists()) Fail(QStringLiteral("There is no database file %1.").arg(FileName));
  if (File.isDir()) Fail(QStringLiteral("%1 is a folder, not a database file.").arg(FileName));
  if (!File.isReadable()) Fail(QStringLiteral("The database file %1 may not be read.").arg(FileName));
  TTarget Target;
  Target.Driver = QStringLiteral("QSQLITE");
  Target.Plugin = QStringLiteral("libqt6sql6-sqlite");
  Target.Shown = File.absoluteFilePath();
  // As an address, because only there can it be said that no file is to be created.
  QUrl Url = QUrl::fromLocalFile(Target.Shown);
  Url.setQuery(QStringLiteral("mode=rw"));
  Target.Name = Url.toString(QUrl::FullyEncoded);
  Target.Options = QStringLiteral("QSQLITE_OPEN_URI");
  return Target;
}

// The address holds a password perhaps, and where it cannot be taken apart nobody knows which of its parts: the message
// shows none.
[[noreturn]] void RefuseServerAddress(const QString& Scheme = QStringLiteral("postgresql")) {
  Fail(QStringLiteral(
           "The %1 address cannot be read. It has the form %1://user:password@host:port/database; "
           "in a user's name or a password / is to be written as %2F, @ as %40, : as %3A, ? as %3F, # as %23 and "
           "% as %25.")
           .replace(QLatin1String("%1"), Scheme));
}

QString ServerOption(const QString& Name, QString Value) {
  static const QRegularExpression IsName(QStringLiteral("^[a-z_]+$"));
  // The driver takes its options apart at semicolons.
  if (!IsName.match(Name).hasMatch() || Value.contains(QLatin1Char(';'))) RefuseServerAddress();
  Value.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
  return Name + QLatin1String("='") + Value + QLatin1Char('\'');
}

TTarget ServerTarget(const QString& Address) {
  const QUrl Url(Address, QUrl::StrictMode);
  const QString Path = Url.path(QUrl::FullyDecoded);
  if (!Url.isValid() || Url.hasFragment() || Path.indexOf(QLatin1Char('/'), 1) >= 0 ||
      Path.contains(QLatin1Char('@'))) {
    RefuseServerAddress();
  }
  TTarget Target;
  Target.Driver = QStringLiteral("QPSQL");
  Target.Plugin = QStringLiteral("libqt6sql6-psql");
  Target.Name = Path.mid(1);
  Target.Host = Url.host();
  Target.Port = Url.port();
  Target.User = Url.userName(QUrl::FullyDecoded);
  Target.Password = Url.password(QUrl::FullyDecoded);
  QStringList Options{QStringLiteral("connect_timeout=10")};  // a later one of the same name holds
  for (const auto& [Name, Value] : QUrlQuery(Url).queryItems(QUrl::FullyDecoded)) {
    if (Name == QLatin1String("password")) {
      Target.Password = Value;
    } else {
      Options.append(ServerOption(Name, Value));
    }
  }
  Target.Options = Options.join(QLatin1Char(';'));
  Target.Shown = Url.toString(QUrl::RemovePassword | QUrl::RemoveQuery);
  return Target;
}

// What stands behind the question mark is given to the driver as it takes its options: unix_socket=FILE, ssl_ca=FILE ….
TTarget MariaDBTarget(const QString& Address) {
  const QUrl Url(Address, QUrl::StrictMode);
  const QString Path = Url.path(QUrl::FullyDecoded);
  const bool HasPath = Path.size() > 1 && Path.indexOf(QLatin1Char('/'), 1) < 0 && !Path.contains(QLatin1Char('@'));
  if (!Url.isValid() || Url.hasFragment() || !HasPath) RefuseServerAddress(QStringLiteral("mysql"));
  TTarget Target;
  Target.Driver = QStringLiteral("QMYSQL");
  Target.Plugin = QStringLiteral("libqt6sql6-mysql");
  Target.Name = Path.mid(1);
  Target.Host = Url.host();
  Target.Port = Url.port();
  Target.User = Url.userName(QUrl::FullyDecoded);
  Target.Password = Url.password(QUrl::FullyDecoded);
  QStringList Options{QStringLiteral("MYSQL_OPT_CONNECT_TIMEOUT=10")};
  for (const auto& [Name, Value] : QUrlQuery(Url).queryItems(QUrl::FullyDecoded)) {
    static const QRegularExpression IsName(QStringLiteral("^[A-Za-z_]+$"));
    if (Name == QLatin1String("password")) {
      Target.Password = Value;
      continue;
    }
    if (!IsName.match(Name).hasMatch() || Value.contains(QLatin1Char(';')))
      RefuseServerAddress(QStringLiteral("mysql"));
    Options.append(Name.toUpper() + QLatin1Char('=') + Value);
  }
  Target.Options = Options.join(QLatin1Char(';'));
  Target.Shown = Url.toString(QUrl::RemovePassword | QUrl::RemoveQuery);
  return Target;
}

TTarget SourceTarget(const QString& Source) {
  TTarget Target;
  Target.Driver = QStringLiteral("QODBC");
  Target.Plugin = QStringLiteral("libqt6sql6-odbc");
  Target.Name = Source;
  // A whole connection text may hold a password anywhere.
  const bool JustName = !Source.contains(QLatin1Char('='));
  Target.Shown = JustName ? QLatin1String("odbc:") + Source : QStringLiteral("odbc: with a connection text");
  return Target;
}

TTarget ReadAddress(const QString& Address) {
  constexpr QLatin1String Source("odbc:");
  if (Address.isEmpty()) {
    Fail(QLatin1String(NoDatabase));
  }
  if (Address.startsWith(QLatin1String("postgresql://")) || Address.startsWith(QLatin1String("postgres://"))) {
    return ServerTarget(Address);
  }
  if (Address.startsWith(QLatin1String("mysql://")) || Address.startsWith(QLatin1String("mariadb://"))) {
    return MariaDBTarget(Address);
  }
  if (Address.startsWith(Source)) return SourceTarget(Address.mid(Source.size()));
  return FileTarget(Address);
}

QString Reason(const QSqlError& Error) {
  const QString Text = Error.databaseText().trimmed();
  return Text.isEmpty() ? Error.driverText().trimmed() : Text;
}

void Open(QSqlDatabase& Database, const TTarget& Target) {
  Database.setDatabaseName(Target.Name);
  Database.setHostName(Target.Host);
  if (Target.Port >= 0) Database.setPort(Target.Port);
  Database.setUserName(Target.User);
  Database.setPassword(Target.Password);
  Database.setConnectOptions(Target.Options);
  if (!Database.open()) {
    Fail(QStringLiteral("The database %1 cannot be opened: %2").arg(Target.Shown, Reason(Database.lastError())));
  }
  // SQLite looks into a file only when it is asked for something.
  QSqlQuery Query(Database);
  if (Target.Driver == QLatin1String("QSQLITE") && !Query.exec(QStringLiteral("PRAGMA schema_version"))) {
    Fail(QStringLiteral("%1 cannot be read as a SQLite database: %2").arg(Target.Shown, Reason(Query.lastError())));
  }
}

void Remove(QSqlDatabase& Database) {
  const QString Name = Database.connectionName();
  Database.close();
  Database = {};
  QSqlDatabase::removeDatabase(Name);
}

}  // namespace

TDatabase::TDatabase(const std::string& Address) {
  const TTarget Target = ReadAddress(QString::fromStdString(Address));
  ShownAddress_ = Target.Shown.toStdString();
  const bool Known = QSqlDatabase::isDriverAvailable(Target.Driver);
  if (Known) Database_ = QSqlDatabase::addDatabase(Target.Driver, QUuid::createUuid().toString());
  if (!Database_.isValid()) {
    if (Known) Remove(Database_);
    Fail(QStringLiteral("The database %1 needs Qt's driver %2, which is not installed (Debian's package %3).")
             .arg(Target.Shown, Target.Driver, Target.Plugin));
  }
  try {
    Open(Database_, Target);
  } catch (...) {
    Remove(Database_);
    throw;
  }
  Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
}

TDatabase::~TDatabase() {
  Connection_.reset();
  Remove(Database_);
}

}  // namespace command
