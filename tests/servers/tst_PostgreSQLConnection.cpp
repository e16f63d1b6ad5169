#include <QSqlDriver>
#include <QTest>

#include "ads/Ads.h"
#include "ads/MessageOf.h"
#include "ads/ProcessMemory.h"
#include "ads/Values.h"
#include "servers/Backends.h"

using support::MessageOf;
using support::TBackend;
using support::TBackendKind;

namespace {

// The memory of this process that is in use, in bytes.
qint64 ResidentBytes() {
  return ProcessKiB("self", "status", "VmRSS") * 1024;
}

}  // namespace

/// Reading through Qt's PostgreSQL driver, over a real server.
class tst_PostgreSQLConnection : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;

  void Execute(const char* Sql) { Company_->Execute(QString::fromUtf8(Sql)); }
  QStringList Rows(const std::string& Sql) { return Values(*Company_->Connection(), Sql, "X", {"CAST"}); }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    const QString Missing = Backends_->Missing(TBackendKind::PostgreSQL);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
  }
  void init() { Company_ = Backends_->Open(TBackendKind::PostgreSQL); }
  void cleanup() { Company_.reset(); }

  void shouldReadEachTypeWhateverTheSessionIsSetTo_data() {
    QTest::addColumn<QString>("Setting");
    for (const char* Setting :
         {"SELECT 1", "SET DateStyle = 'German'", "SET DateStyle = 'SQL, MDY'", "SET extra_float_digits = -15",
          "SET client_encoding = 'LATIN1'", "SET bytea_output = 'escape'", "SET standard_conforming_strings = off",
          "SET TimeZone = 'Asia/Tokyo'", "SET default_transaction_isolation = 'serializable'"}) {
      QTest::newRow(Setting) << QString(Setting);
    }
  }
  void shouldReadEachTypeWhateverTheSessionIsSetTo() {
    QFETCH(QString, Setting);
    Execute(
        "CREATE TABLE t (bo boolean, i2 smallint, i4 integer, i8 bigint, f4 real, f8 double precision, "
        "nu numeric(30,12), mo money, da date, ts timestamp, ch char(8), vc varchar(20), tx text, nm name)");
    Execute(
        "INSERT INTO t VALUES (true, -7, 2147483647, -9007199254740993, 0.1, 0.1::float8 + 0.2, "
        "-123456789012345678.123456789012, '-1234.56', '2024-06-30', '1999-12-31 23:59:59.5', 'ab', 'é \\ x', "
        "'long', 'n')");
    Execute("INSERT INTO t (bo) VALUES (NULL)");
    Company_->Execute(Setting);
    const std::map<std::string, QStringList> Expected = {{"bo", {"1", "(null)"}},
                                                         {"i2", {"-7", "(null)"}},
                                                         {"i4", {"2147483647", "(null)"}},
                                                         {"i8", {"-9007199254740993", "(null)"}},
                                                         {"f4", {"0.1", "(null)"}},
                                                         {"f8", {"0.30000000000000004", "(null)"}},
                                                         {"nu", {"-123456789012345678.123456789012", "(null)"}},
                                                         {"mo", {"-1234.56", "(null)"}},
                                                         {"da", {"2024-06-30", "(null)"}},
                                                         {"ts", {"1999-12-31", "(null)"}},
                                                         {"ch", {"ab", "(null)"}},
                                                         {"vc", {"é \\ x", "(null)"}},
                                                         {"tx", {"long", "(null)"}},
                                                         {"nm", {"n", "(null)"}}};
    for (const auto& [Column, Texts] : Expected) {
      QCOMPARE(Values(*Company_->Connection(), "SELECT * FROM T", Column), Texts);
    }
    QCOMPARE(Rows("SELECT Vc X FROM T WHERE Vc LIKE 'é%\\%'"), QStringList("é \\ x"));
  }

  void shouldReadTypedFields() {
    Execute("CREATE TABLE t (bo boolean, i8 bigint, f4 real, nu numeric(12,4), mo money, da date, ts timestamp)");
    Execute("INSERT INTO t VALUES (true, 12, 0.5, 1234.5678, '99.95', '2024-06-30', '1969-12-31 23:00')");
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    const ads::TField* Flag = Query.AddField("Bo", ads::TFieldType::ftBoolean);
    const ads::TField* Whole = Query.AddField("I8", ads::TFieldType::ftInteger);
    const ads::TField* Single = Query.AddField("F4", ads::TFieldType::ftFloat);
    const ads::TField* Exact = Query.AddField("Nu", ads::TFieldType::ftFloat);
    const ads::TField* Money = Query.AddField("Mo", ads::TFieldType::ftFloat);
    const ads::TField* Day = Query.AddField("Da", ads::TFieldType::ftDate);
    const ads::TField* Moment = Query.AddField("Ts", ads::TFieldType::ftDate);
    Query.SQL()->Add("SELECT * FROM T");
    Query.Open();
    QVERIFY(Flag->AsBoolean());
    QCOMPARE(Whole->AsInteger(), 12);
    QCOMPARE(Single->AsFloat(), 0.5);
    QCOMPARE(Exact->AsFloat(), 1234.5678);
    QCOMPARE(Money->AsFloat(), 99.95);
    QCOMPARE(Day->AsDate(), QDate(2024, 6, 30));
    QCOMPARE(Moment->AsDate(), QDate(1969, 12, 31));
  }

  void shouldWriteANumericAsTheServerDoes() {
    QStringList Written;
    for (const char* Value :
         {"0", "0.00", "0.0001", "-0.5", "1", "10000", "10000.0001", "123456789012345678901234567890", "100000000.00",
          "0.000000000000000001", "-99999999.9999", "1e20", "NaN"}) {
      Written += Value;
    }
    for (const QString& Value : Written) {
      const std::string Expression = "CAST('" + Value.toStdString() + "' AS NUMERIC)";
      QCOMPARE(Rows("SELECT " + Expression + " X"), Rows("SELECT CAST(" + Expression + " AS VARCHAR(80)) X"));
    }
  }

  void shouldReadTheDaysOfTheCalendarAndNoOthers() {
    const auto Read = [this](const char* Day) {
      ads::TAdsQuery Query(nullptr);
      Query.SetConnection(Company_->Connection());
      const ads::TField* Field = Query.AddField("X", ads::TFieldType::ftDate);
      Query.AllowFunctions({"CAST"});
      Query.SQL()->Add(std::string("SELECT CAST('") + Day + "' AS DATE) X");
      Query.Open();
      return Field->AsDate();
    };
    QCOMPARE(Read("0001-01-01"), QDate(1, 1, 1));
    QCOMPARE(Read("9999-12-31"), QDate(9999, 12, 31));
    QCOMPARE(Read("2000-02-29"), QDate(2000, 2, 29));
    for (const char* Other : {"infinity", "-infinity", "10000-01-01", "0044-03-15 BC"}) QVERIFY(!Read(Other).isValid());
  }

  void shouldReadATypeThatItDoesNotKnowAsItsText() {
    Execute("CREATE TYPE mood AS ENUM ('fine')");
    Execute("CREATE DOMAIN code AS varchar(5)");
    Execute(
        "CREATE TABLE t (ts timestamptz, iv interval, id uuid, mo mood, co code, ar integer[], js jsonb, mn money, "
        "bo boolean, ch char(4))");
    Execute(
        "INSERT INTO t VALUES ('2024-06-30 10:00+00', '1 day', '00000000-0000-0000-0000-00000000000a', 'fine', "
        "'AB', '{1,2}', '{\"a\": 1}', '1234567.89', false, 'x')");
    Execute("SET DateStyle = 'German'");
    Execute("SET TimeZone = 'UTC'");
    const std::map<std::string, QString> Expected = {{"ts", "2024-06-30 10:00:00+00"},
                                                     {"iv", "1 day"},
                                                     {"id", "00000000-0000-0000-0000-00000000000a"},
                                                     {"mo", "fine"},
                                                     {"co", "AB"},
                                                     {"ar", "{1,2}"},
                                                     {"js", "{\"a\": 1}"},
                                                     {"mn", "1234567.89"},
                                                     {"bo", "0"},
                                                     {"ch", "x"}};
    for (const auto& [Column, Text] : Expected) {
      QCOMPARE(Values(*Company_->Connection(), "SELECT * FROM T", Column), QStringList(Text));
    }
    QCOMPARE(TBackend::Value(Company_->Database(), "SHOW DateStyle").toString(), QString("German, DMY"));
  }

  void shouldGiveTheServersOwnMessage() {
    QCOMPARE(MessageOf([this] { Rows("SELECT Nowhere X FROM Area"); }),
             std::string("column \"nowhere\" does not exist"));
    QCOMPARE(MessageOf([this] { Rows("SELECT CAST('x' + Zip AS DATE) X FROM Area"); }).substr(0, 38),
             std::string("invalid input syntax for type date: \"x"));
  }

  void shouldNotDisturbTheHostInTheMidstOfItsOwnRows() {
    QSqlQuery Host(Company_->Database());
    Host.setForwardOnly(true);
    QVERIFY(Host.exec("SELECT id FROM cust ORDER BY id"));
    QVERIFY(Host.next());
    QCOMPARE(MessageOf([this] { Rows("SELECT Zip X FROM Area"); }),
             std::string("The rows of another query are still being read from this connection."));
    int Left = 0;
    while (Host.next()) ++Left;
    QCOMPARE(Left, 999);
    QVERIFY2(!Host.lastError().isValid(), qPrintable(Host.lastError().text()));
    QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
  }

  void shouldReadWhenTheHostHasReadItsOwnRowsToTheEnd() {
    QSqlQuery Host(Company_->Database());
    Host.setForwardOnly(true);
    QVERIFY(Host.exec("SELECT id FROM cust ORDER BY id"));
    while (Host.next()) continue;
    QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
  }

  void shouldReadInTheMidstOfAnotherListOfItsOwn() {
    ads::TAdsQuery Outer(nullptr);
    Outer.SetConnection(Company_->Connection());
    const ads::TField* Number = Outer.AddField("N", ads::TFieldType::ftInteger);
    const ads::TField* Name = Outer.AddField("T", ads::TFieldType::ftString, 20);
    Outer.AllowFunctions({"generate_series", "repeat"});
    Outer.SQL()->Add(
        "SELECT n, CASE WHEN n % 3 = 0 THEN NULL ELSE 'row ' || n END T FROM generate_series(1, 400000) n");
    int Inner = 0;
    Outer.OnProgress = [&] {
      if (++Inner <= 3) QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
    };
    Outer.Open();
    QVERIFY2(Inner >= 1, "the list was read too fast to be interrupted");
    QCOMPARE(Outer.RecordCount(), 400000);
    for (const int Row : {1, 2, 3, 199999, 400000}) {
      Outer.SetRecNo(Row);
      QCOMPARE(Number->AsInteger(), Row);
      QCOMPARE(Name->AsString(), Row % 3 == 0 ? std::string() : "row " + std::to_string(Row));
    }
  }

  void shouldTellTheReaderOfAFailureThatCameUpInTheMidst() {
    ads::TAdsQuery Outer(nullptr);
    Outer.SetConnection(Company_->Connection());
    Outer.AddField("N", ads::TFieldType::ftInteger);
    Outer.AllowFunctions({"generate_series", "repeat"});
    Outer.SQL()->Add("SELECT 1000 / (700000 - n) N FROM generate_series(1, 800000) n");
    int Inner = 0;
    Outer.OnProgress = [&] {
      if (++Inner == 1) QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
    };
    QCOMPARE(MessageOf([&] { Outer.Open(); }), std::string("division by zero"));
    QVERIFY(Inner >= 1);
    QVERIFY(!Outer.Active());
  }

  void shouldFailWhenTheHostTakesTheConnectionAwayWhileItReads() {
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    Query.AddField("N", ads::TFieldType::ftInteger);
    Query.AllowFunctions({"generate_series", "repeat"});
    Query.SQL()->Add("SELECT n FROM generate_series(1, 2000000) n");
    bool Asked = false;
    Query.OnProgress = [&] {
      if (!Asked) TBackend::Value(Company_->Database(), "SELECT 1");
      Asked = true;
    };
    const std::string Message = MessageOf([&] { Query.Open(); });
    QVERIFY2(Message.starts_with("The connection was used for something else"), Message.c_str());
    QVERIFY(!Query.Active());
    QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
  }

  void shouldStopAQueryOfWhichNoMoreIsWanted() {
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    Query.AddField("ID", ads::TFieldType::ftString, 6);
    Query.SQL()->Add("SELECT A.ID FROM Cust A, Cust B, Cust C");
    Query.OnProgress = [] { throw std::runtime_error("no more"); };
    QElapsedTimer Timer;
    Timer.start();
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Query.Open());
    QVERIFY2(Timer.elapsed() < 20000, qPrintable(QString::number(Timer.elapsed())));
    QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
  }

  void shouldHoldNoMoreThanTheSnapshotInMemory() {
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    Query.AddField("N", ads::TFieldType::ftInteger);
    Query.AllowFunctions({"generate_series", "repeat"});
    Query.SQL()->Add("SELECT n, repeat('x', 1000) Wide FROM generate_series(1, 300000) n");
    const qint64 Before = ResidentBytes();
    qint64 Most = 0;
    Query.OnProgress = [&Most] { Most = std::max(Most, ResidentBytes()); };
    Query.Open();
    QCOMPARE(Query.RecordCount(), 300000);
    QVERIFY(Most > 0);
    QVERIFY2(Most - Before < 30'000'000, qPrintable(QString::number(Most - Before)));  // of 300 MB that were sent
  }

  void shouldAskForOneRowOfATableOnly() {
    Execute("CREATE TABLE big AS SELECT n AS id, 'row ' || n AS name FROM generate_series(1, 50000) n");
    ads::TAdsTable Table(nullptr);
    Table.SetConnection(Company_->Connection());
    Table.SetTableName("Big");
    Table.SetIndex("PK_ID", "ID");
    const ads::TField* Name = Table.AddField("Name", ads::TFieldType::ftString, 20);
    Table.Open();
    QCOMPARE(Table.RecordCount(), 1);
    TBackend::Value(Company_->Database(), "SELECT pg_stat_force_next_flush()");
    const int Read =
        Company_->ValueBeside("SELECT seq_tup_read FROM pg_stat_user_tables WHERE relname = 'big'").toInt();
    QVERIFY2(Read > 0 && Read < 1000, qPrintable(QString::number(Read)));
    QVERIFY(Table.FindKey(31000));
    QCOMPARE(Name->AsString(), std::string("row 31000"));
    QVERIFY(!Table.FindKey(0));
  }

  void shouldReadFromADatabaseOfAnotherEncoding() {
    TBackend::Execute(Company_->Beside(), "CREATE DATABASE latin ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0");
    QSqlDatabase Latin = Backends_->Server().Connect("latin", "latin");
    TBackend::Execute(Latin, "CREATE TABLE t (a varchar(10))");
    TBackend::Execute(Latin, "INSERT INTO t VALUES ('café')");
    {
      ads::TAdsConnection Connection(Latin);
      QCOMPARE(Values(Connection, "SELECT UPPER(A) X FROM T WHERE UPPER(A) LIKE '%FÉ'"), QStringList("CAFÉ"));
    }
    Latin = {};
    QSqlDatabase::removeDatabase("latin");
  }
};

QTEST_GUILESS_MAIN(tst_PostgreSQLConnection)
#include "tst_PostgreSQLConnection.moc"
