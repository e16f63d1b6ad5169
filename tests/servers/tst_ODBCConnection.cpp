#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <clocale>

#include "ads/Ads.h"
#include "ads/MessageOf.h"
#include "ads/Values.h"
#include "servers/Backends.h"
#include "zulcommon/Text.h"

using support::MessageOf;
using support::TBackend;
using support::TBackendKind;

namespace {

#ifdef ZUL_RECORDING_ODBC
constexpr char RecordingDriver[] = ZUL_RECORDING_ODBC;
#else
constexpr char RecordingDriver[] = "";
#endif

/// A SQLite database behind a driver that says it is another server and records what it is given.
class TRecorded {
 public:
  explicit TRecorded(const QByteArray& Server) {
    qputenv("ZUL_ODBC_SERVER", Server);
    qputenv("ZUL_ODBC_RECORD", QFile::encodeName(Record_));
    Database_ = QSqlDatabase::addDatabase("QODBC", "recorded");
    Database_.setDatabaseName(QString("DRIVER=%1;Database=%2").arg(RecordingDriver, Folder_.filePath("test.db")));
    if (!Database_.open()) qFatal("%s", qPrintable(Database_.lastError().text()));
    TBackend::Execute(Database_, "CREATE TABLE T (N INTEGER, A VARCHAR(20))");
    TBackend::Execute(Database_, "INSERT INTO T VALUES (1, 'x'), (2, 'y')");
    QFile::remove(Record_);
    Connection = std::make_unique<ads::TAdsConnection>(Database_);
  }
  ~TRecorded() {
    Connection.reset();
    Database_ = {};
    QSqlDatabase::removeDatabase("recorded");
  }
  TRecorded(const TRecorded&) = delete;
  TRecorded& operator=(const TRecorded&) = delete;

  /// The texts that have reached the driver.
  QList<QByteArray> Texts() const {
    QFile File(Record_);
    if (!File.open(QIODevice::ReadOnly)) return {};
    QList<QByteArray> Result = File.readAll().split('\0');
    Result.removeLast();
    return Result;
  }

 private:
  QTemporaryDir Folder_;
  QString Record_ = Folder_.filePath("record");
  QSqlDatabase Database_;

 public:
  std::unique_ptr<ads::TAdsConnection> Connection;
};

}  // namespace

/// Reading through Qt's ODBC driver, over the real drivers of SQLite and PostgreSQL.
class tst_ODBCConnection : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;

  // Opens a backend of a kind, or skips the test.
  bool Open(TBackendKind Kind, const QString& Options = {}) {
    const QString Missing = Backends_->Missing(Kind);
    if (Missing.isEmpty())
      Company_ = Backends_->Open(Kind, Options);
    else
      [this, &Missing] { QSKIP(qPrintable(Missing)); }();
    return Missing.isEmpty();
  }
  QStringList Rows(const std::string& Sql, const std::string& Column = "X") {
    return Values(*Company_->Connection(), Sql, Column);
  }

 private slots:
  void initTestCase() {
    std::setlocale(LC_ALL, "C.UTF-8");
    Backends_ = std::make_unique<support::TBackends>();
  }
  void cleanup() {
    Company_.reset();
    std::setlocale(LC_ALL, "C.UTF-8");
  }

  void shouldChooseTheDialectByWhatTheDriverTalksTo() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    QCOMPARE(Company_->Connection()->Dialect().Name(), "SQLite without functions");
    if (!Open(TBackendKind::ODBCPostgreSQL)) return;
    QCOMPARE(Company_->Connection()->Dialect().Name(), "PostgreSQL");
  }

  void shouldPassEveryTextToAdvantageByteForByte_data() {
    QTest::addColumn<QByteArray>("Server");
    for (const char* Server : {"Advantage", "Advantage Database Server", "Some other server"}) {
      QTest::newRow(Server) << QByteArray(Server);
    }
  }
  void shouldPassEveryTextToAdvantageByteForByte() {
    if (*RecordingDriver == '\0') QSKIP("SQLite's ODBC driver was not there when the tests were built");
    if (!QSqlDatabase::isDriverAvailable("QODBC")) QSKIP("Qt's driver QODBC is not installed");
    QFETCH(QByteArray, Server);
    TRecorded Recorded(Server);
    QCOMPARE(Recorded.Connection->Dialect().Name(), "Advantage");
    const std::string Text =
        "SELECT  N X, UPPER([A]) SortFld,\t'é ''\\ %_'  Y\rFROM T -- a remark\n/* another */WHERE \"A\" LIKE '%x%'\r\n"
        "ORDER BY SortFld DESC";
    QCOMPARE(Values(*Recorded.Connection, Text), QStringList("1"));
    QCOMPARE(Recorded.Texts(), QList<QByteArray>{QByteArray::fromStdString(Text)});
  }

  // Some servers take the two for a quote of the text, which goes on then.
  void shouldSendNoBackslashBeforeAQuoteToAServerThatIsNotKnown() {
    if (*RecordingDriver == '\0') QSKIP("SQLite's ODBC driver was not there when the tests were built");
    if (!QSqlDatabase::isDriverAvailable("QODBC")) QSKIP("Qt's driver QODBC is not installed");
    TRecorded Recorded("Some other server");
    for (const char* Text : {R"(SELECT N X FROM T WHERE A = 'a\')", R"(SELECT N X FROM T WHERE A = 'a\'' OR 1 = 1 --')",
                             R"(SELECT N X FROM T WHERE A LIKE '%\''%' AND A = 'b')", R"(SELECT "N\" X FROM T)",
                             R"(SELECT N [X\] FROM T)"}) {
      const std::string Message = MessageOf([&] { Values(*Recorded.Connection, Text); });
      QVERIFY2(Message.starts_with("A backslash before a quote at line 1, column "), Message.c_str());
    }
    QCOMPARE(Recorded.Texts(), QList<QByteArray>());
    Values(*Recorded.Connection, R"(SELECT N X FROM T WHERE A LIKE '%\%')");
    QCOMPARE(Recorded.Texts().size(), 1);
  }

  void shouldAskAdvantageForTheFirstRowOnly() {
    if (*RecordingDriver == '\0') QSKIP("SQLite's ODBC driver was not there when the tests were built");
    if (!QSqlDatabase::isDriverAvailable("QODBC")) QSKIP("Qt's driver QODBC is not installed");
    TRecorded Recorded("Advantage");
    ads::TAdsTable Table(nullptr);
    Table.SetConnection(Recorded.Connection.get());
    Table.SetTableName("T");
    Table.AddField("N", ads::TFieldType::ftInteger);
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Table.Open());  // SQLite does not know TOP
    QCOMPARE(Recorded.Texts(), QList<QByteArray>{"SELECT TOP 1 [N] FROM [T]"});
  }

  void shouldReadEachTypeOfSQLite() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    Company_->Execute(
        "CREATE TABLE T (I INTEGER, S SMALLINT, B BOOLEAN, D DATE, F DOUBLE, V VARCHAR(4), C CHAR(6), L TEXT)");
    Company_->ExecuteBeside(
        "INSERT INTO T VALUES (-2147483648, 7, 1, '2024-06-30', 0.1, 'longer than four', 'ab', 'é ✓ 𝄞')");
    Company_->Execute("INSERT INTO T VALUES ('x', 1.5, 'yes', '', 'abc', 12, NULL, '')");
    Company_->Execute("INSERT INTO T (I) VALUES (NULL)");
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    const ads::TField* Whole = Query.AddField("I", ads::TFieldType::ftInteger);
    const ads::TField* Small = Query.AddField("S", ads::TFieldType::ftSmallint);
    const ads::TField* Flag = Query.AddField("B", ads::TFieldType::ftBoolean);
    const ads::TField* Day = Query.AddField("D", ads::TFieldType::ftDate);
    const ads::TField* Number = Query.AddField("F", ads::TFieldType::ftFloat);
    const ads::TField* Text = Query.AddField("V", ads::TFieldType::ftString, 20);
    const ads::TField* Long = Query.AddField("L", ads::TFieldType::ftString, 20);
    Query.SQL()->Add("SELECT * FROM T");
    Query.Open();
    QCOMPARE(Query.RecordCount(), 3);
    QCOMPARE(Whole->AsInteger(), std::numeric_limits<std::int32_t>::min());
    QCOMPARE(Small->AsInteger(), 7);
    QVERIFY(Flag->AsBoolean());
    QCOMPARE(Day->AsDate(), QDate(2024, 6, 30));
    QCOMPARE(Number->AsFloat(), 0.1);
    QCOMPARE(Text->AsString(), std::string("longer than four"));
    QCOMPARE(Long->AsString(), std::string("é ✓ 𝄞"));
    Query.Next();  // what does not fit its column is converted or null, and never stops the list
    QVERIFY(Whole->IsNull() && Small->IsNull() && Day->IsNull() && Number->IsNull());
    QVERIFY(Flag->AsBoolean());
    QCOMPARE(Text->AsString(), std::string("12"));
    QVERIFY(!Long->IsNull());
    Query.Next();
    for (const ads::TField* Field : Query.Fields()) QVERIFY(Field->IsNull());
  }

  void shouldReadTheTypesOfExpressionsOfSQLite() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    QCOMPARE(Rows("SELECT SUM(Balance) X FROM CustBal WHERE 1 = 0"), QStringList("(null)"));
    QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
    QCOMPARE(Rows("SELECT 1.25 + 2 X"), QStringList("3.25"));
    QCOMPARE(Rows("SELECT CASE WHEN 1 = 1 THEN 'yes' END X"), QStringList("yes"));
    QCOMPARE(Rows("SELECT 'a' X UNION ALL SELECT 'a text that is longer than the first' ORDER BY X DESC"),
             QStringList({"a text that is longer than the first", "a"}));
  }

  void shouldUpperCaseEveryLetterOnAPlainSQLite() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    Company_->Execute("CREATE TABLE Letters (Code INTEGER, A VARCHAR(10))");
    Company_->ExecuteBeside(
        "WITH RECURSIVE N(I) AS (SELECT 32 UNION ALL SELECT I + 1 FROM N WHERE I < 131071) "
        "INSERT INTO Letters SELECT I, 'x' || char(I) || 'y' FROM N WHERE I NOT BETWEEN 55296 AND 57343");
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    const ads::TField* Code = Query.AddField("Code", ads::TFieldType::ftInteger);
    const ads::TField* Letter = Query.AddField("A", ads::TFieldType::ftString, 10);
    const ads::TField* Upper = Query.AddField("U", ads::TFieldType::ftString, 10);
    Query.SQL()->Add("SELECT Code, A, UPPER(A) U FROM Letters");
    Query.Open();
    QVERIFY(Query.RecordCount() > 128000);
    for (; !Query.Eof(); Query.Next()) {
      if (Upper->AsString() != zulcommon::UpperCase(Letter->AsString())) {
        QFAIL(qPrintable(QString("U+%1 gives %2").arg(Code->AsInteger(), 4, 16).arg(Upper->AsString().c_str())));
      }
    }
  }

  // The time bounds are far from what a loaded machine needs, and farther from a time that grows with the square.
  void shouldUpperCaseInProportionToTheText() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    Company_->Execute("CREATE TABLE T (A VARCHAR(20))");
    Company_->ExecuteBeside(
        "WITH RECURSIVE N(I) AS (SELECT 32 UNION ALL SELECT I + 1 FROM N WHERE I < 131071) "
        "INSERT INTO T SELECT group_concat(char(I), '') FROM N WHERE I NOT BETWEEN 55296 AND 57343");
    QElapsedTimer Timer;
    Timer.start();
    const QStringList Upper = Rows("SELECT UPPER(A) X FROM T");
    QVERIFY2(Timer.elapsed() < 10'000, qPrintable(QString::number(Timer.elapsed())));
    const QStringList Text = Rows("SELECT A X FROM T");
    QVERIFY(Text.size() == 1 && Text[0].size() > 128'000);
    QVERIFY(Upper.size() == 1 && Upper[0].toStdString() == zulcommon::UpperCase(Text[0].toStdString()));
  }

  void shouldUpperCaseWhateverStandsInAColumn() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    Company_->ExecuteBeside("CREATE TABLE T (N INTEGER, A VARCHAR(20))");
    Company_->ExecuteBeside(
        "INSERT INTO T VALUES (1, ''), (2, NULL), (3, 'it''s é''s'), (4, 'ß'), (5, 'ﬃ-ß-ŉ x'), (6, '漢字 é'), "
        "(7, 12.5), (8, 'É'), (9, 'a' || char(10) || 'b' || char(9) || 'é'), (10, '\\é%_*?[]')");
    QCOMPARE(Rows("SELECT UPPER(A) X FROM T ORDER BY N"), QStringList({"", "(null)", "IT'S É'S", "SS", "FFI-SS-ʼN X",
                                                                       "漢字 É", "12.5", "É", "A\nB\tÉ", "\\É%_*?[]"}));
    QCOMPARE(Rows("SELECT UPPER(N) X FROM T WHERE N = 7"), QStringList("7"));
  }

  void shouldReadInProportionToTheText_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::ODBCSQLite, TBackendKind::ODBCPostgreSQL}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldReadInProportionToTheText() {
    QFETCH(TBackendKind, Kind);
    if (!Open(Kind, Kind == TBackendKind::ODBCPostgreSQL ? "MaxLongVarcharSize=10" : "")) return;
    // Long texts among short ones, of lengths about those of a piece, with letters of one to four bytes.
    QStringList Texts;
    const QString Letters = QStringLiteral("aé✓𝄞 0123456789");
    for (const int Length : {0, 1, 1021, 1022, 1023, 1024, 1025, 2046, 2047, 2048, 2049, 5'000'000, 3}) {
      Texts += QString(Length / Letters.size() + 1, QChar()).replace(QChar(), Letters).left(Length);
      if (!Texts.back().isEmpty() && Texts.back().back().isHighSurrogate()) Texts.back().back() = QChar('x');
      Company_->ExecuteBeside(Texts.size() == 1 ? "CREATE TABLE t (n integer, a text)" : "SELECT 1");
      Company_->ExecuteBeside(QString("INSERT INTO t VALUES (%1, '%2')").arg(Texts.size()).arg(Texts.back()));
    }
    QElapsedTimer Timer;
    Timer.start();
    const QStringList Read = Rows("SELECT A X FROM T ORDER BY N");
    QVERIFY2(Timer.elapsed() < 10'000, qPrintable(QString::number(Timer.elapsed())));
    QCOMPARE(Read.size(), Texts.size());
    for (int Row = 0; Row < Texts.size(); ++Row) QVERIFY2(Read[Row] == Texts[Row], qPrintable(QString::number(Row)));
  }

  void shouldMatchOnAPlainSQLiteAsEverywhere() {
    if (!Open(TBackendKind::ODBCSQLite)) return;
    Company_->Execute("CREATE TABLE T (N INTEGER, A VARCHAR(20))");
    Company_->ExecuteBeside(
        "INSERT INTO T VALUES (1, 'éclair'), (2, 'Zoo*'), (3, NULL), (4, 'a\\b?[c]'), (5, 'x%y_z'), "
        "(6, '50'), (7, 'it''s')");
    const auto Found = [this](const std::string& Condition) {
      return Rows("SELECT N X FROM T WHERE " + Condition + " ORDER BY N");
    };
    QCOMPARE(Found("A LIKE 'Z%'"), QStringList("2"));
    QCOMPARE(Found("A LIKE 'z%'"), QStringList());
    QCOMPARE(Found("A LIKE '%O%'"), QStringList());
    QCOMPARE(Found("A LIKE '%*%'"), QStringList("2"));
    QCOMPARE(Found("A LIKE '%?[c%'"), QStringList("4"));
    QCOMPARE(Found("A LIKE '_\\b?[c]'"), QStringList("4"));
    QCOMPARE(Found("A LIKE '%\\%'"), QStringList("4"));
    QCOMPARE(Found("A LIKE '_clair'"), QStringList("1"));
    QCOMPARE(Found("UPPER(A) LIKE '%ÉC%'"), QStringList("1"));
    QCOMPARE(Found("A LIKE '%''%'"), QStringList("7"));
    QCOMPARE(Found("A LIKE '50'"), QStringList("6"));
    QCOMPARE(Found("A LIKE '%'").size(), 6);
    QCOMPARE(Found("A LIKE '%%'").size(), 6);
    QCOMPARE(Found("A LIKE ''"), QStringList());
    QCOMPARE(Found("A NOT LIKE '%o%' AND NOT A LIKE '%5%'"), QStringList({"1", "4", "5", "7"}));
    QCOMPARE(Found("A LIKE '%' + SubString('o*', 1, 2)"), QStringList("2"));
    QCOMPARE(Found("'a[b' LIKE '_[' + SubString('bcd', 1, 1)").size(), 7);
    QCOMPARE(Found("A LIKE '%" + std::string(60'000, 'x') + "%'"), QStringList());
    QCOMPARE(Found("UPPER(UPPER(UPPER(A))) LIKE '%ÉC%'"), QStringList("1"));
  }

  void shouldUnderstandLettersInALocaleWithoutThem() {
    std::setlocale(LC_ALL, "C");
    if (!Open(TBackendKind::ODBCSQLite)) return;
    Company_->ExecuteBeside("CREATE TABLE T (A VARCHAR(20))");
    Company_->ExecuteBeside("INSERT INTO T VALUES ('éclair')");
    QCOMPARE(Rows("SELECT UPPER(A) X FROM T WHERE UPPER(A) LIKE '%ÉC%'"), QStringList("ÉCLAIR"));
    if (!Open(TBackendKind::ODBCPostgreSQL)) return;
    Company_->ExecuteBeside("CREATE TABLE t (a varchar(20))");
    Company_->ExecuteBeside("INSERT INTO t VALUES ('éclair')");
    QCOMPARE(Rows("SELECT UPPER(A) X FROM T WHERE UPPER(A) LIKE '%ÉC%'"), QStringList("ÉCLAIR"));
  }

  void shouldReadEachTypeOfPostgreSQL_data() {
    QTest::addColumn<QString>("Options");
    QTest::addColumn<QString>("Setting");
    QTest::newRow("as it comes") << QString() << QString("SELECT 1");
    QTest::newRow("Booleans as such") << QString("BoolsAsChar=0") << QString("SELECT 1");
    QTest::newRow("texts as long ones") << QString("TextAsLongVarchar=1;UnknownsAsLongVarchar=1;MaxLongVarcharSize=10")
                                        << QString("SELECT 1");
    QTest::newRow("rows in portions") << QString("UseDeclareFetch=1;Fetch=2") << QString("SELECT 1");
    QTest::newRow("prepared in the driver") << QString("UseServerSidePrepare=0") << QString("SELECT 1");
    QTest::newRow("German dates") << QString() << QString("SET DateStyle = 'German'");
    QTest::newRow("few digits") << QString() << QString("SET extra_float_digits = -15");
  }
  void shouldReadEachTypeOfPostgreSQL() {
    QFETCH(QString, Options);
    QFETCH(QString, Setting);
    if (!Open(TBackendKind::ODBCPostgreSQL, Options)) return;
    Company_->ExecuteBeside(
        "CREATE TABLE t (bo boolean, i2 smallint, i8 bigint, f4 real, f8 double precision, "
        "nu numeric(30,12), mo money, da date, ts timestamp, ch char(8), vc varchar(20), tx text)");
    Company_->ExecuteBeside(
        "INSERT INTO t VALUES (true, -7, -9007199254740993, 0.5, 0.1::float8 + 0.2, "
        "-123456789012345678.123456789012, '-1234.56', '2024-06-30', '1999-12-31 23:59:59.5', "
        "'ab', 'é \\ x', repeat('✓', 9000))");
    Company_->ExecuteBeside("INSERT INTO t (bo) VALUES (NULL)");
    Company_->Execute(Setting);
    const std::map<std::string, QStringList> Expected = {{"bo", {"1", "(null)"}},
                                                         {"i2", {"-7", "(null)"}},
                                                         {"i8", {"-9007199254740993", "(null)"}},
                                                         {"f4", {"0.5", "(null)"}},
                                                         {"f8", {"0.30000000000000004", "(null)"}},
                                                         {"nu", {"-123456789012345678.123456789012", "(null)"}},
                                                         {"mo", {"-1234.56", "(null)"}},
                                                         {"da", {"2024-06-30", "(null)"}},
                                                         {"ch", {"ab", "(null)"}},
                                                         {"vc", {"é \\ x", "(null)"}},
                                                         {"tx", {QString(9000, QChar(0x2713)), "(null)"}}};
    for (const auto& [Column, Texts] : Expected) QCOMPARE(Rows("SELECT * FROM T", Column), Texts);
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    const ads::TField* Moment = Query.AddField("Ts", ads::TFieldType::ftDate);
    const ads::TField* Flag = Query.AddField("Bo", ads::TFieldType::ftBoolean);
    Query.SQL()->Add("SELECT * FROM T");
    Query.Open();
    QCOMPARE(Moment->AsDate(), QDate(1999, 12, 31));
    QVERIFY(Flag->AsBoolean());
  }

  void shouldReadThroughTheDriverWithoutWideCharacters() {
    if (!Open(TBackendKind::ODBCPostgreSQL)) return;
    const QString Name = Company_->Database().databaseName().replace("PostgreSQL Unicode", "PostgreSQL ANSI");
    QSqlDatabase Narrow = QSqlDatabase::addDatabase("QODBC", "narrow");
    Narrow.setDatabaseName(Name);
    if (!Narrow.open()) QSKIP("PostgreSQL's ODBC driver without wide characters is not installed");
    {
      ads::TAdsConnection Connection(Narrow);
      QCOMPARE(Values(Connection, "SELECT UPPER('é') X"), QStringList("É"));
      QCOMPARE(Values(Connection, "SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
    }
    Narrow = {};
    QSqlDatabase::removeDatabase("narrow");
  }

  void shouldGiveTheServersOwnMessage() {
    if (!Open(TBackendKind::ODBCPostgreSQL)) return;
    QCOMPARE(MessageOf([this] { Rows("SELECT Nowhere X FROM Area"); }),
             std::string("ERROR: column \"nowhere\" does not exist"));
    if (!Open(TBackendKind::ODBCSQLite)) return;
    QCOMPARE(MessageOf([this] { Rows("SELECT Nowhere X FROM Area"); }), std::string("no such column: Nowhere (1)"));
  }

  void shouldReadInTheMidstOfAnotherListOfItsOwn_data() {
    QTest::addColumn<QString>("Options");
    QTest::newRow("as it comes") << QString();
    QTest::newRow("rows in portions") << QString("UseDeclareFetch=1");
  }
  void shouldReadInTheMidstOfAnotherListOfItsOwn() {
    QFETCH(QString, Options);
    for (const TBackendKind Kind : {TBackendKind::ODBCSQLite, TBackendKind::ODBCPostgreSQL}) {
      if (!Open(Kind, Kind == TBackendKind::ODBCPostgreSQL ? Options : QString())) return;
      ads::TAdsQuery Outer(nullptr);
      Outer.SetConnection(Company_->Connection());
      Outer.AddField("ID", ads::TFieldType::ftString, 6);
      Outer.SQL()->Add("SELECT A.ID FROM Cust A, Cust B WHERE B.ID LIKE 'C00%'");
      int Inner = 0;
      Outer.OnProgress = [&] {
        if (++Inner <= 3) QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
      };
      Outer.Open();
      QVERIFY(Inner >= 1);
      QVERIFY(Outer.RecordCount() > 0 && Outer.RecordCount() % 1000 == 0);
    }
  }
};

QTEST_GUILESS_MAIN(tst_ODBCConnection)
#include "tst_ODBCConnection.moc"
