#include <QProcess>
#include <QTest>
#include <algorithm>

#include "ads/Ads.h"
#include "sample/SampleCompany.h"
#include "sample/store/Schema.h"
#include "servers/Backends.h"

using support::TBackend;
using support::TBackendKind;

namespace {

ads::TFieldType FieldTypeOf(sample::TColumnType Type) {
  switch (Type) {
    case sample::TColumnType::Boolean:
      return ads::TFieldType::ftBoolean;
    case sample::TColumnType::Date:
      return ads::TFieldType::ftDate;
    case sample::TColumnType::Text:
      return ads::TFieldType::ftString;
    case sample::TColumnType::Double:
      return ads::TFieldType::ftFloat;
    case sample::TColumnType::SmallInt:
      return ads::TFieldType::ftSmallint;
    case sample::TColumnType::Integer:
      return ads::TFieldType::ftInteger;
    default:
      return ads::TFieldType::ftAutoInc;
  }
}

// A number with the fifteen digits that every driver gives, SQLite's for ODBC no more.
std::string TextOf(const ads::TField& Field) {
  if (Field.DataType() != ads::TFieldType::ftFloat) return Field.AsString();
  return QByteArray::number(Field.AsFloat(), 'g', 15).toStdString();
}

// Every row of a table as a text, sorted.
QStringList RowsOf(ads::TAdsConnection& Connection, const sample::TTable& Table) {
  ads::TAdsQuery Query(nullptr);
  Query.SetConnection(&Connection);
  std::string Columns;
  for (const sample::TColumn& Column : Table.Columns) {
    Query.AddField(Column.Name, FieldTypeOf(Column.Type), static_cast<int>(Column.Size));
    Columns += (Columns.empty() ? "[" : ", [") + Column.Name + "]";
  }
  Query.SQL()->Add("SELECT " + Columns);
  Query.SQL()->Add("FROM [" + Table.Name + "]");
  Query.Open();
  QStringList Result;
  for (; !Query.Eof(); Query.Next()) {
    std::string Row;
    for (const ads::TField* Field : Query.Fields()) Row += Field->IsNull() ? "|-" : "|=" + TextOf(*Field);
    Result += QString::fromStdString(Row);
  }
  std::sort(Result.begin(), Result.end());
  return Result;
}

}  // namespace

/// zulsample on a server, and the company that it writes over every kind of connection.
class tst_SampleOnServers : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  QByteArray Errors_;

  QString Address(const QString& Database) { return QString::fromStdString(Backends_->Server().Address(Database)); }

  int Run(const QStringList& Arguments) {
    QProcess Process;
    Process.start(ZULSAMPLE_PROGRAM, Arguments);
    if (!Process.waitForFinished(120'000) || Process.exitStatus() != QProcess::NormalExit) return -1;
    Errors_ = Process.readAllStandardError();
    return Process.exitCode();
  }

  QSqlDatabase NewDatabase(const QString& Name) {
    {
      const QSqlDatabase Server = Backends_->Server().Connect("server");
      TBackend::Execute(Server, "CREATE DATABASE " + Name);
    }
    QSqlDatabase::removeDatabase("server");
    return Backends_->Server().Connect(Name, Name);
  }

  void NeedsServer() {
    const QString Missing = Backends_->Missing(TBackendKind::PostgreSQL);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
  }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }

  void shouldGiveTheSameRowsOverEveryConnection_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::AllBackends) {
      if (Kind != TBackendKind::SQLite) QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldGiveTheSameRowsOverEveryConnection() {
    QFETCH(TBackendKind, Kind);
    const QString Missing = Backends_->Missing(Kind);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    const auto Plain = Backends_->Open(TBackendKind::SQLite);
    const auto Company = Backends_->Open(Kind);
    for (const sample::TTable& Table : sample::ReadSchema(sample::SchemaSql()).Tables) {
      const QStringList Expected = RowsOf(*Plain->Connection(), Table);
      QVERIFY2(!Expected.isEmpty(), Table.Name.c_str());
      QCOMPARE(RowsOf(*Company->Connection(), Table), Expected);
    }
  }

  void shouldWriteACompanyAndRefuseToDoItTwice() {
    NeedsServer();
    QSqlDatabase Database = NewDatabase("made");
    QVERIFY2(Run({"--db", Address("made")}) == 0, Errors_.constData());
    QCOMPARE(TBackend::Value(Database, "SELECT COUNT(*) FROM cust").toInt(), 1000);
    QVERIFY(TBackend::Value(Database, "SELECT COUNT(*) FROM pg_indexes WHERE indexname = 'pk_id_cust'").toInt() == 1);
    TBackend::Execute(Database, "INSERT INTO presets (descript) VALUES ('the next number')");
    TBackend::Execute(Database, "DELETE FROM cust");
    QCOMPARE(Run({"--db", Address("made")}), 1);
    QVERIFY2(Errors_.contains("already"), Errors_.constData());
    QCOMPARE(TBackend::Value(Database, "SELECT COUNT(*) FROM cust").toInt(), 0);
    QVERIFY2(Run({"--overwrite", "--scale", "2", "--db", Address("made")}) == 0, Errors_.constData());
    QCOMPARE(TBackend::Value(Database, "SELECT COUNT(*) FROM cust").toInt(), 2000);
    Database = {};
    QSqlDatabase::removeDatabase("made");
  }

  void shouldLeaveTheDatabaseAsItWasWhenItFails() {
    NeedsServer();
    QSqlDatabase Database = NewDatabase("half");
    TBackend::Execute(Database, "CREATE TABLE gl (a integer)");  // one of the last tables
    QCOMPARE(Run({"--db", Address("half")}), 1);
    QCOMPARE(TBackend::Value(Database, "SELECT COUNT(*) FROM pg_tables WHERE schemaname = 'public'").toInt(), 1);
    Database = {};
    QSqlDatabase::removeDatabase("half");
  }

  void shouldSayWhatIsWrongWithAnAddress() {
    NeedsServer();
    QCOMPARE(Run({"--db", "company.db"}), 2);
    QVERIFY2(Errors_.contains("postgresql://"), Errors_.constData());
    QCOMPARE(Run({"--db"}), 2);
    QCOMPARE(Run({"--db", Address("made"), "company.db"}), 2);
    const QString Wrong = "postgresql://tester:secret@/nowhere?host=" + Backends_->Server().Host();
    QCOMPARE(Run({"--db", Wrong}), 1);
    QVERIFY2(Errors_.contains("nowhere") && !Errors_.contains("secret"), Errors_.constData());
  }
};

QTEST_GUILESS_MAIN(tst_SampleOnServers)
#include "tst_SampleOnServers.moc"
