#include "servers/SentStatements.h"

#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

namespace support {

namespace {

constexpr int LongestWait = 10000;  // milliseconds

bool IsPartOfName(QChar Character) {
  return Character.isLetterOrNumber() || Character == u'_' || Character == u'$' || Character.unicode() >= 0x80;
}

// A text from its first quote; where it ends, or the end of the statement.
qsizetype TextEnd(const QString& Sql, qsizetype Start, bool Backslashes) {
  for (qsizetype At = Start + 1; At < Sql.size(); ++At) {
    if (Backslashes && Sql[At] == u'\\') {
      ++At;
    } else if (Sql[At] == u'\'') {
      if (At + 1 >= Sql.size() || Sql[At + 1] != u'\'') return At + 1;
      ++At;
    }
  }
  return Sql.size();
}

qsizetype DigitsEnd(QStringView Text, qsizetype At) {
  while (At < Text.size() && Text[At] >= u'0' && Text[At] <= u'9') ++At;
  return At;
}

bool IsSignAt(QStringView Text, qsizetype At) {
  return At < Text.size() && (Text[At] == u'-' || Text[At] == u'+');
}

// A number, with a sign where only a value can stand, or 0 characters.
qsizetype NumberLength(QStringView Rest, QChar Before) {
  const bool Signed = IsSignAt(Rest, 0);
  if (Signed ? Before != u'=' : IsPartOfName(Before) || Before == u'.') return 0;
  const qsizetype Start = Signed ? 1 : 0;
  qsizetype End = DigitsEnd(Rest, Start);
  qsizetype Digits = End - Start;
  if (End < Rest.size() && Rest[End] == u'.') {
    const qsizetype Fraction = DigitsEnd(Rest, End + 1);
    Digits += Fraction - End - 1;
    End = Fraction;
  }
  if (Digits == 0) return 0;
  if (End < Rest.size() && (Rest[End] == u'e' || Rest[End] == u'E')) {
    const qsizetype Exponent = IsSignAt(Rest, End + 1) ? End + 2 : End + 1;
    if (const qsizetype ExponentEnd = DigitsEnd(Rest, Exponent); ExponentEnd > Exponent) End = ExponentEnd;
  }
  return End < Rest.size() && IsPartOfName(Rest[End]) ? 0 : End;
}

// The places in memory after which psqlODBC names its savepoints and cursors.
QString WithoutPlaces(QString Statement) {
  if (!Statement.contains(QLatin1String("_svp_"), Qt::CaseInsensitive) &&
      !Statement.contains(QLatin1String("SQL_CUR"))) {
    return Statement;
  }
  static const QRegularExpression Places(QStringLiteral("(_EXEC_SVP_|_per_query_svp_|SQL_CUR)[0-9A-Fa-fx]*"));
  return Statement.replace(Places, QStringLiteral("\\1"));
}

// A text that MariaDB gets as its bytes, in the way in which it gets another one.
QString WithQuotedBytes(QString Statement) {
  return Statement.replace(QLatin1String("_utf8mb4 X'"), QLatin1String("'"));
}

}  // namespace

QString ShapeOf(const QString& Statement) {
  const QString Sql = WithQuotedBytes(WithoutPlaces(Statement));
  QString Result;
  Result.reserve(Sql.size());
  QChar Before = u' ';  // the last character that is no blank
  for (qsizetype At = 0; At < Sql.size();) {
    const QChar Character = Sql[At];
    const bool Escaped = (Character == u'E' || Character == u'e') && At + 1 < Sql.size() && Sql[At + 1] == u'\'' &&
                         (At == 0 || !IsPartOfName(Sql[At - 1]));
    if (Escaped || Character == u'\'') {
      At = TextEnd(Sql, At + (Escaped ? 1 : 0), Escaped);
      Result += u'#';
      Before = u'#';
      continue;
    }
    const qsizetype Length =
        NumberLength(QStringView(Sql).mid(At), At > 0 && !Sql[At - 1].isSpace() ? Sql[At - 1] : Before);
    if (Length > 0) {
      At += Length;
      Result += u'#';
      Before = u'#';
      continue;
    }
    Result += Character;
    if (!Character.isSpace()) Before = Character;
    ++At;
  }
  return Result;
}

void RecordStatements(TBackends& Backends) {
  Backends.RecordOnMariaDB();
  if (!Backends.Server().IsRunning()) return;
  {
    QSqlDatabase Database = Backends.Server().Connect(QStringLiteral("recording"));
    for (const char* Setting :
         {"logging_collector = on", "log_directory = 'log'", "log_filename = 'statements.log'", "log_statement = 'all'",
          "log_line_prefix = '@@%p@@'", "log_min_error_statement = 'error'", "log_rotation_age = 0",
          "log_rotation_size = 0", "log_checkpoints = off"}) {
      TBackend::Execute(Database, QLatin1String("ALTER SYSTEM SET ") + QLatin1String(Setting));
    }
  }
  QSqlDatabase::removeDatabase(QStringLiteral("recording"));
  if (!Backends.Server().Restart()) qFatal("The server does not come again.");
}

TSentStatements::TSentStatements(TBackend& Backend, TBackends& Backends) : Backend_(Backend) {
  switch (Backend.Kind()) {
    case TBackendKind::SQLite:
    case TBackendKind::OtherSQLite:
      Handle_ = SQLiteOf(Backend);
      sqlite3_trace_v2(Handle_, SQLITE_TRACE_STMT, Trace, this);
      break;
    case TBackendKind::ODBCSQLite:
      FileName_ = QFile::decodeName(qgetenv("ZUL_ODBC_RECORD"));
      break;
    case TBackendKind::MariaDB:
    case TBackendKind::ODBCMariaDB:
      Session_ = TBackend::Value(Backend.Database(), QStringLiteral("SELECT CONNECTION_ID()")).toString();
      break;
    default:
      FileName_ = Backends.Server().Host() + QLatin1String("/data/log/statements.log");
      Session_ = TBackend::Value(Backend.Database(), QStringLiteral("SELECT pg_backend_pid()")).toString();
      break;
  }
  Take();
}

TSentStatements::~TSentStatements() {
  if (Handle_ != nullptr) sqlite3_trace_v2(Handle_, 0, nullptr, nullptr);
}

int TSentStatements::Trace(unsigned, void* Self, void*, void* Text) {
  static_cast<TSentStatements*>(Self)->Traced_ << QString::fromUtf8(static_cast<const char*>(Text));
  return 0;
}

QStringList TSentStatements::Take() {
  if (Handle_ != nullptr) return std::exchange(Traced_, {});
  if (IsOnMariaDB(Backend_.Kind())) return TakeFromMariaDB();
  return Backend_.Kind() == TBackendKind::ODBCSQLite ? TakeFromDriver() : TakeFromServer();
}

QStringList TSentStatements::TakeFromDriver() {
  QFile File(FileName_);
  if (!File.open(QIODevice::ReadOnly) || !File.seek(Read_)) return {};
  const QByteArray Bytes = File.readAll();
  Read_ += Bytes.size();
  QStringList Result;
  for (const QByteArray& Text : Bytes.split('\0')) {
    if (!Text.isEmpty()) Result << QString::fromUtf8(Text);
  }
  return Result;
}

QStringList TSentStatements::TakeFromMariaDB() {
  QStringList Result;
  {
    QSqlQuery Query(Backend_.Beside());
    Query.setForwardOnly(true);
    if (!Query.exec(QStringLiteral("SELECT CONVERT(argument USING utf8mb4) FROM mysql.general_log WHERE thread_id = %1 "
                                   "AND command_type IN ('Query', 'Prepare', 'Execute')")
                        .arg(Session_))) {
      qFatal("The server does not write down its statements: %s", qPrintable(Query.lastError().text()));
    }
    while (Query.next()) Result << Query.value(0).toString();
  }
  Backend_.ExecuteBeside(QStringLiteral("TRUNCATE mysql.general_log"));
  return Result;
}

// A statement of another session tells that everything before it was written.
QStringList TSentStatements::TakeFromServer() {
  const QString Mark = QStringLiteral("mark %1 of %2").arg(++Marks_).arg(Session_);
  Backend_.ValueBeside(QStringLiteral("SELECT '%1'").arg(Mark));
  QString Text;
  QElapsedTimer Waiting;
  for (Waiting.start(); !Text.contains(Mark); QThread::msleep(1)) {
    if (Waiting.elapsed() > LongestWait) qFatal("The server does not write down its statements.");
    QFile File(FileName_);
    if (!File.open(QIODevice::ReadOnly) || !File.seek(Read_)) continue;
    const QByteArray Bytes = File.readAll();
    Text = QString::fromUtf8(Bytes);
    if (Text.contains(Mark)) Read_ += Bytes.size();
  }
  static const QRegularExpression Entry(QStringLiteral("(?:^|\n)@@([0-9]+)@@"));
  static const QRegularExpression Statement(QStringLiteral("^(?:LOG:  statement|LOG:  execute [^:]*|STATEMENT): +"));
  QStringList Result;
  QString Session;
  qsizetype From = -1;
  const auto Add = [&](qsizetype To) {
    if (From < 0 || Session != Session_) return;
    const QString Body = Text.mid(From, To - From).trimmed();
    const auto Start = Statement.match(Body);
    if (Start.hasMatch())
      Result << Body.mid(Start.capturedLength()).replace(QLatin1String("\n\t"), QLatin1String("\n"));
  };
  for (auto Entries = Entry.globalMatch(Text); Entries.hasNext();) {
    const QRegularExpressionMatch Next = Entries.next();
    Add(Next.capturedStart());
    Session = Next.captured(1);
    From = Next.capturedEnd();
  }
  Add(Text.size());
  return Result;
}

}  // namespace support
