#include <mysql.h>

#include <QCheckBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QTest>
#include <algorithm>
#include <csignal>
#include <limits>
#include <map>

#include "ads/Ads.h"
#include "ads/MessageOf.h"
#include "ads/ProcessMemory.h"
#include "ads/Values.h"
#include "pickbase/PickCall.h"
#include "picks/parties/uPickCustomer.h"
#include "servers/Backends.h"
#include "servers/HostileTexts.h"
#include "servers/ListDialog.h"
#include "servers/OpenOrSkip.h"
#include "servers/StopQuery.h"
#include "support/PickDriver.h"

using support::DrivePickAs;
using support::TBackend;
using support::TBackendKind;
using support::TListDialog;
using support::TListSource;
using uPickCustomer::TfrmPickCustomer;

namespace {

// A stop is answered at once; this is what a busy machine may take.
constexpr qint64 Moment = 3000;

const TListSource Slow(
    "UPPER(A.ID)",
    "Cust A, Cust B, Cust C WHERE UPPER(A.Company + '-' + B.Company + '-' + C.Company) LIKE '%NOWHERE%'");
const TListSource SlowSort("UPPER(C.Company + '-' + B.Company + '-' + A.Company)", "Cust A, Cust B, Cust C WHERE 0=0",
                           "A.ID + '-' + B.ID + '-' + C.ID ID");

// How a session may have been set up by its host.
constexpr const char* Settings[] = {"DO 0",
                                    "SET sql_mode = 'ANSI_QUOTES'",
                                    "SET sql_mode = 'NO_BACKSLASH_ESCAPES'",
                                    "SET sql_mode = 'ORACLE'",
                                    "SET sql_mode = 'EMPTY_STRING_IS_NULL,PAD_CHAR_TO_FULL_LENGTH,HIGH_NOT_PRECEDENCE'",
                                    "SET NAMES latin1",
                                    "SET NAMES gbk",
                                    "SET NAMES sjis",
                                    "SET NAMES big5",
                                    "SET character_set_results = NULL",
                                    "SET collation_connection = ucs2_general_ci",
                                    "SET autocommit = 0",
                                    "SET completion_type = CHAIN",
                                    "SET completion_type = 'RELEASE'",
                                    "SET tx_isolation = 'SERIALIZABLE'"};

std::string MessageOf(const std::function<void()>& Body) {
  try {
    Body();
  } catch (const ads::EConnectionLost& Error) {
    return std::string("lost: ") + Error.what();
  } catch (const ads::EQueryEnded& Error) {
    return std::string("ended: ") + Error.what();
  } catch (const ads::EDatabaseError& Error) {
    return Error.what();
  }
  return "nothing was thrown";
}

qint64 ResidentBytes() {
  return ProcessKiB("self", "status", "VmRSS") * 1024;
}

QStringList AllRows(const QSqlDatabase& Database, const QString& Sql) {
  QSqlQuery Query(Database);
  if (!Query.exec(Sql)) qFatal("%s: %s", qPrintable(Sql), qPrintable(Query.lastError().text()));
  QStringList Result;
  while (Query.next()) {
    QStringList Row;
    for (int Column = 0; Column < Query.record().count(); ++Column) Row << Query.value(Column).toString();
    Result << Row.join('|');
  }
  return Result;
}

}  // namespace

/// Reading through Qt's MariaDB driver and by ODBC, over a real server: types, the host's transaction, stops, bad days,
/// and texts that somebody hopes will act.
class tst_MariaDBConnection : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  void Execute(const QString& Sql) { Company_->Execute(Sql); }
  QStringList Rows(const std::string& Sql, const std::vector<std::string>& Functions = {}) {
    return Values(*Company_->Connection(), Sql, "X", Functions);
  }
  QVariant Value(const QString& Sql) const { return TBackend::Value(Company_->Database(), Sql); }
  QString Session() const { return Value("SELECT CONNECTION_ID()").toString(); }

  // All that the company's database holds, and what is on the server besides.
  QString Contents() const {
    const QSqlDatabase Beside = Company_->Beside();
    const QStringList Tables =
        AllRows(Beside,
                "SELECT table_name FROM information_schema.tables WHERE table_schema = DATABASE() AND table_type = "
                "'BASE TABLE' ORDER BY 1");
    return AllRows(Beside, "CHECKSUM TABLE `" + Tables.join("`, `") + '`').join(' ') +
           AllRows(Beside,
                   "SELECT COUNT(*) FROM information_schema.tables UNION ALL SELECT COUNT(*) FROM "
                   "information_schema.routines UNION ALL SELECT COUNT(*) FROM mysql.user UNION ALL SELECT "
                   "COUNT(*) FROM information_schema.processlist UNION ALL SELECT md5(group_concat(variable_name, "
                   "variable_value ORDER BY 1)) FROM information_schema.global_variables WHERE variable_name NOT "
                   "LIKE '%gtid%'")
               .join(' ');
  }
  // What the session has become, but for what only counts statements.
  QString Setup() const {
    return AllRows(Company_->Database(),
                   "SHOW SESSION VARIABLES WHERE variable_name NOT IN ('timestamp', "
                   "'rand_seed1', 'rand_seed2', 'last_insert_id', 'identity', 'warning_count', "
                   "'error_count')")
        .join(' ');
  }
  int Transactions() const {
    return Company_->ValueBeside("SELECT COUNT(*) FROM information_schema.innodb_trx").toInt();
  }
  // Nobody holds a table that lists have read.
  void AltersTables() {
    Company_->ExecuteBeside("SET lock_wait_timeout = 2");
    Company_->ExecuteBeside("ALTER TABLE area ADD COLUMN extra INTEGER");
    Company_->ExecuteBeside("ALTER TABLE area DROP COLUMN extra");
  }
  void ReadInEveryWay() {
    QVERIFY(Rows("SELECT Zip X FROM Area WHERE UPPER(Zip) LIKE '%4%'").size() > 0);
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows("SELECT Nowhere X FROM Area"));
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows("SELECT Zip X FROM Nowhere"));
    ads::TAdsTable Table(nullptr);
    Table.SetConnection(Company_->Connection());
    Table.SetTableName("Cust");
    Table.SetIndex("PK_ID", "ID");
    Table.AddField("Company", ads::TFieldType::ftString, 35);
    Table.Open();
    QVERIFY(Table.FindKey(std::string("C00500")));
    const auto Dialog = TfrmPickCustomer::Create(Company_->Connection(), false, "", true, true);
    QVERIFY(Dialog->qryList_->RecordCount() > 500);
  }

  void AddKinds() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::newRow("MariaDB") << TBackendKind::MariaDB;
    QTest::newRow("MariaDB by ODBC") << TBackendKind::ODBCMariaDB;
  }
  bool Open() { return Open(*static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()))); }
  bool Open(TBackendKind Kind) {
    Company_ = support::OpenOrSkip(*Backends_, Kind);
    return Company_ != nullptr;
  }

  void Lengthen(int Count) {
    Company_->ExecuteBeside("CREATE TABLE longlist (txt VARCHAR(20), tens INTEGER) COLLATE utf8mb4_nopad_bin");
    Company_->ExecuteBeside(
        QStringLiteral("INSERT INTO longlist SELECT concat('row ', 1000000 + seq * 7919 % 1000003), "
                       "seq DIV 10 FROM seq_1_to_%1")
            .arg(Count));
  }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void init() { Boxes_ = std::make_unique<support::TErrorBoxes>(); }
  void cleanup() {
    Boxes_.reset();
    Company_.reset();
  }

  void shouldReadEachTypeHoweverTheSessionIsSetUp_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Setting");
    for (const char* Setting : Settings) QTest::newRow(Setting) << TBackendKind::MariaDB << QString(Setting);
    QTest::newRow("by ODBC") << TBackendKind::ODBCMariaDB << "DO 0";
  }
  void shouldReadEachTypeHoweverTheSessionIsSetUp() {
    if (!Open()) return;
    QFETCH(const QString, Setting);
    Company_->ExecuteBeside("SET sql_mode = 'ALLOW_INVALID_DATES'");
    Company_->ExecuteBeside(
        "CREATE TABLE t (bo boolean, bi bit(9), i1 tinyint unsigned, i8 bigint, u8 bigint unsigned, f8 double, nu "
        "decimal(40,12), da date, dt datetime(3), ts timestamp NULL, ch char(8), vc varchar(20) CHARACTER SET latin1, "
        "gb "
        "varchar(20) CHARACTER SET gbk, em varchar(20) CHARACTER SET utf8mb4, tx text, bl blob, en enum('fine','x'), "
        "ye "
        "year, tm time)");
    Company_->ExecuteBeside(
        "INSERT INTO t VALUES (true, b'101', 255, -9007199254740993, 18446744073709551615, 0.1 + 0.2e0, "
        "-1234567890123456789012345678.123456789012, '2024-06-30', '1999-12-31 23:59:59.5', '2001-02-03 04:05:06', "
        "'ab', "
        "'é \\\\ x', '中', '😀 ü', 'long', 'bytes', 'fine', 2024, '10:11:12')");
    Company_->ExecuteBeside("INSERT INTO t (bo, da, dt) VALUES (NULL, '0000-00-00', '0000-00-00 00:00:00')");
    Execute(Setting);
    const std::map<std::string, QString> Expected = {{"bo", "1"},
                                                     {"i1", "255"},
                                                     {"i8", "-9007199254740993"},
                                                     {"u8", "18446744073709551615"},
                                                     {"f8", "0.30000000000000004"},
                                                     {"nu", "-1234567890123456789012345678.123456789012"},
                                                     {"da", "2024-06-30"},
                                                     {"dt", "1999-12-31"},
                                                     {"ts", "2001-02-03"},
                                                     {"ch", "ab"},
                                                     {"vc", "é \\ x"},
                                                     {"gb", "中"},
                                                     {"em", "😀 ü"},
                                                     {"tx", "long"},
                                                     {"en", "fine"},
                                                     {"ye", "2024"},
                                                     {"tm", "10:11:12"}};
    const bool ByODBC = Company_->Kind() == TBackendKind::ODBCMariaDB;
    for (const auto& [Column, Text] : Expected) {
      const QStringList Given = Values(*Company_->Connection(), "SELECT * FROM T", Column);
      QCOMPARE(Given.value(0).left(ByODBC && (Column == "dt" || Column == "ts") ? 10 : 99), Text);
      if (!ByODBC || (Column != "da" && Column != "dt")) QCOMPARE(Given.value(1), QString("(null)"));
    }
    if (!ByODBC) QCOMPARE(Values(*Company_->Connection(), "SELECT * FROM T", "bi"), QStringList({"5", "(null)"}));
    QCOMPARE(Rows("SELECT Vc X FROM T WHERE Vc LIKE 'é%\\%'"), QStringList("é \\ x"));
    QCOMPARE(Rows("SELECT UPPER(Em) X FROM T WHERE UPPER(Em) LIKE '%Ü'"), QStringList("😀 Ü"));
    QCOMPARE(Rows("SELECT Gb X FROM T WHERE Gb = '中'"), QStringList("中"));
  }

  void shouldReadADateThatIsNoneAsEmpty_data() { AddKinds(); }
  void shouldReadADateThatIsNoneAsEmpty() {
    if (!Open()) return;
    Company_->ExecuteBeside("SET sql_mode = 'ALLOW_INVALID_DATES'");
    Company_->ExecuteBeside("CREATE TABLE t (n integer, x date)");
    Company_->ExecuteBeside("INSERT INTO t VALUES (1, '0000-00-00'), (2, '2024-02-31'), (3, '2024-02-29')");
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    const ads::TField* Day = Query.AddField("X", ads::TFieldType::ftDate);
    Query.SQL()->Add("SELECT X FROM T ORDER BY N");
    Query.Open();
    QVERIFY(Day->IsNull());
    Query.Next();
    QVERIFY2(Day->IsNull(), qPrintable(Day->AsDate().toString()));
    Query.Next();
    QCOMPARE(Day->AsDate(), QDate(2024, 2, 29));
  }

  void shouldTakeTypedTextsForTextsHoweverTheSessionIsSetUp_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Setting");
    QTest::addColumn<bool>("InTransaction");
    for (const char* Setting : Settings) {
      QTest::addRow("%s, outside", Setting) << TBackendKind::MariaDB << QString(Setting) << false;
      QTest::addRow("%s, in a transaction", Setting) << TBackendKind::MariaDB << QString(Setting) << true;
    }
    QTest::newRow("by ODBC") << TBackendKind::ODBCMariaDB << "DO 0" << true;
  }
  void shouldTakeTypedTextsForTextsHoweverTheSessionIsSetUp() {
    if (!Open()) return;
    QFETCH(const QString, Setting);
    QFETCH(const bool, InTransaction);
    Execute(Setting);
    if (InTransaction) Execute("START TRANSACTION");
    const QString Before = Contents();
    const auto Dialog = TfrmPickCustomer::Create(Company_->Connection(), false, "", true, true);
    const int All = Dialog->qryList_->RecordCount();
    QVERIFY(All > 500);
    QStringList Texts = support::HostileTexts({"/nowhere/acted", "1", "localhost", "company"});
    // A byte before a backslash or a quote that makes one character of the two in some character set, and what UTF-8
    // has of the kind.
    for (const char* Byte :
         {"", "\xc2\xbf", "\xe8\xa1\xa8", "\xe5\x8a\x9f", "\xe8\xa8\xb1", "\xc2\x81", "\xe3\x82\xbd"}) {
      for (const char* Rest : {"\\'; DELETE FROM cust; -- ", "\\' OR SLEEP(5) -- ", "' OR 1=1 # ", "\\\\' OR 1=1 -- ",
                               "\" OR 1=1 -- ", "` OR 1=1 -- ", "\\"}) {
        Texts << QString::fromUtf8(Byte) + QString::fromUtf8(Rest);
      }
    }
    QElapsedTimer Clock;
    Clock.start();
    int Tried = 0;
    for (const QString& Text : Texts) {
      if (Tried++ % 5 != 0 && Tried < Texts.size() - 60) continue;  // the last ones are this server's own
      Dialog->rgFindBy->SetItemIndex(Tried % Dialog->rgFindBy->Items().Count());
      Dialog->edFind->setText(Text);
      Dialog->CallSetSQL();
      const int Found = Dialog->qryList_->RecordCount();
      const bool IsPlain = Text.size() < 3 || Text.trimmed().isEmpty();
      QVERIFY2(Found == 0 || IsPlain || !Text.contains('\''), qPrintable(Text + ": " + QString::number(Found)));
    }
    qInfo("%lld ms for %lld texts", Clock.elapsed(), qint64(Texts.size()));
    QCOMPARE(Contents(), Before);
    if (InTransaction) Execute("ROLLBACK");
  }

  void shouldRefuseWhatActs_data() { AddKinds(); }
  void shouldRefuseWhatActs() {
    if (!Open()) return;
    Company_->ExecuteBeside("CREATE SEQUENCE counted");
    for (const bool InTransaction : {false, true}) {
      if (InTransaction) Execute("START TRANSACTION");
      const QString Before = Contents();
      for (const char* Sql : {"SELECT SLEEP(9) X",
                              "SELECT BENCHMARK(99999999, UPPER('a')) X",
                              "SELECT LOAD_FILE('/etc/passwd') X",
                              "SELECT GET_LOCK('a', 1) X",
                              "SELECT RELEASE_ALL_LOCKS() X",
                              "SELECT NEXTVAL(counted) X",
                              "SELECT NEXT VALUE FOR counted X",
                              "SELECT counted.NEXTVAL X",
                              "SELECT counted.[nextval] X FROM Area",
                              "SELECT SETVAL(counted, 9) X",
                              "SELECT LAST_INSERT_ID(7) X",
                              "SELECT @a := 1 X",
                              "SELECT @@version X",
                              "SELECT Zip X INTO OUTFILE '/nowhere/acted' FROM Area",
                              "SELECT Zip X FROM Area INTO @a",
                              "SELECT Zip X FROM Area FOR UPDATE",
                              "SELECT Zip X FROM Area LOCK IN SHARE MODE",
                              "SELECT Zip X FROM Area PROCEDURE ANALYSE()",
                              "SELECT 1 X /*! ; DELETE FROM Area */",
                              "SELECT 1 X; DELETE FROM Area",
                              "SELECT 1 X # ",
                              "SELECT _latin1'a' X",
                              "SELECT X'41' X",
                              "SELECT 0x41 X",
                              "SELECT N'a' X",
                              "SELECT b'1' X",
                              "SELECT `Zip` X FROM Area",
                              "SELECT CURRENT_USER X",
                              "SELECT DATABASE() X",
                              "SELECT User X FROM mysql.user",
                              "SELECT SQL_CALC_FOUND_ROWS Zip X FROM Area",
                              "SELECT HIGH_PRIORITY Zip X FROM Area",
                              "SELECT Zip X FROM Area USE INDEX (PK_ZIP)",
                              "SELECT Zip X FROM Area PARTITION (p)",
                              "HANDLER Area OPEN",
                              "DO SLEEP(9)",
                              "CALL p()",
                              "SET STATEMENT max_statement_time=1 FOR SELECT 1",
                              "SELECT Zip DIV 2 X FROM Area",
                              "SELECT BINARY Zip X FROM Area",
                              "SELECT Zip X FROM Area WHERE Zip RLIKE 'a'",
                              "WITH a AS (SELECT 1) SELECT 1 X"}) {
        QElapsedTimer Clock;
        Clock.start();
        QVERIFY2(MessageOf([&] { Rows(Sql); }) != "nothing was thrown", Sql);
        QVERIFY2(Clock.elapsed() < 2000, Sql);
      }
      QCOMPARE(Contents(), Before);
      if (InTransaction) Execute("ROLLBACK");
    }
  }

  void shouldHaveTheServerRefuseWhatAFunctionWrites_data() { AddKinds(); }
  void shouldHaveTheServerRefuseWhatAFunctionWrites() {
    if (!Open()) return;
    Company_->ExecuteBeside(
        "CREATE FUNCTION writing() RETURNS INTEGER MODIFIES SQL DATA BEGIN INSERT INTO area VALUES ('written'); RETURN "
        "1; "
        "END");
    Company_->ExecuteBeside("CREATE VIEW innocent AS SELECT writing() AS zip");
    const QString Before = Contents();
    for (const char* Sql : {"SELECT writing() X", "SELECT Zip X FROM Innocent"}) {
      VERIFY_CONTAINS(MessageOf([&] { Rows(Sql, {"writing"}); }), "READ ONLY transaction");
    }
    QCOMPARE(Contents(), Before);
    Execute("START TRANSACTION");
    QCOMPARE(Rows("SELECT Zip X FROM Innocent"), QStringList("1"));
    QCOMPARE(Value("SELECT COUNT(*) FROM area WHERE zip = 'written'").toInt(), 0);  // taken back with the savepoint
    Execute("COMMIT");
    QCOMPARE(Contents(), Before);
  }

  void shouldLeaveNothingBehind_data() {
    QTest::addColumn<TBackendKind>("Kind");
    QTest::addColumn<QString>("Setting");
    for (const char* Setting : Settings) QTest::newRow(Setting) << TBackendKind::MariaDB << QString(Setting);
    QTest::newRow("by ODBC") << TBackendKind::ODBCMariaDB << "DO 0";
  }
  void shouldLeaveNothingBehind() {
    if (!Open()) return;
    QFETCH(const QString, Setting);
    Execute(Setting);
    const QString Before = Setup();
    ReadInEveryWay();
    QCOMPARE(Setup(), Before);
    QCOMPARE(Value("SELECT @@in_transaction").toInt(), 0);
    QCOMPARE(Transactions(), 0);
    AltersTables();
    Execute("INSERT INTO area (zip) VALUES ('mine')");
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'mine'").toInt(),
             Setting.contains("autocommit") ? 0 : 1);
  }

  void shouldLeaveTheHostsTransactionAsItWas_data() { shouldLeaveNothingBehind_data(); }
  void shouldLeaveTheHostsTransactionAsItWas() {
    if (!Open()) return;
    QFETCH(const QString, Setting);
    Execute(Setting);
    const QString Before = Setup();
    const int Areas = Company_->ValueBeside("SELECT COUNT(*) FROM area").toInt();
    Execute("START TRANSACTION");
    Execute("INSERT INTO area (zip) VALUES ('first')");
    ReadInEveryWay();
    QCOMPARE(Rows("SELECT COUNT(*) X FROM Area"), QStringList(QString::number(Areas + 1)));
    QCOMPARE(Value("SELECT @@in_transaction").toInt(), 1);
    Execute("INSERT INTO area (zip) VALUES ('second')");
    QSqlQuery Query(Company_->Database());
    QVERIFY(!Query.exec("RELEASE SAVEPOINT zul_pick"));  // there is none
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area").toInt(), Areas);
    Execute("COMMIT AND NO CHAIN NO RELEASE");
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area").toInt(), Areas + 2);
    QCOMPARE(Setup(), Before);
  }

  // The client library is told of a transaction by answers, and an error is none.
  // One in which a table of the engine Aria has been used has no savepoints.
  void shouldReadInATransactionThatCanHaveNoSavepoint_data() { AddKinds(); }
  void shouldReadInATransactionThatCanHaveNoSavepoint() {
    if (!Open()) return;
    Company_->ExecuteBeside("CREATE TABLE notes (note VARCHAR(20)) ENGINE=Aria");
    Execute("START TRANSACTION");
    QCOMPARE(Value("SELECT COUNT(*) FROM notes").toInt(), 0);
    Execute("INSERT INTO area (zip) VALUES ('before')");
    QVERIFY(!QSqlQuery(Company_->Database()).exec("SAVEPOINT mine"));
    for (int Round = 0; Round < 2; ++Round) {
      QCOMPARE(Rows("SELECT Zip X FROM Area WHERE Zip = 'before'"), QStringList("before"));
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows("SELECT Nowhere X FROM Area"));
    }
    Execute("INSERT INTO area (zip) VALUES ('after')");
    Execute("COMMIT");
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip IN ('before', 'after')").toInt(), 2);
    QCOMPARE(Rows("SELECT Zip X FROM Area WHERE Zip = 'after'"), QStringList("after"));
  }

  void shouldSeeATransactionThatBeganInAFailingStatement_data() { AddKinds(); }
  void shouldSeeATransactionThatBeganInAFailingStatement() {
    if (!Open()) return;
    Company_->ExecuteBeside(
        "CREATE PROCEDURE half() BEGIN INSERT INTO area VALUES ('half'); SIGNAL SQLSTATE '45000'; END");
    Execute("SET autocommit = 0");
    QSqlQuery Query(Company_->Database());
    QVERIFY(!Query.exec("CALL half()"));
    QCOMPARE(Rows("SELECT COUNT(*) X FROM Area WHERE Zip = 'half'"), QStringList("1"));
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'half'").toInt(), 0);
    Execute("ROLLBACK");
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'half'").toInt(), 0);
  }

  void shouldShowTheFirstPageAndThenTheWhole_data() { AddKinds(); }
  void shouldShowTheFirstPageAndThenTheWhole() {
    if (!Open()) return;
    constexpr int Many = 300000;
    Lengthen(Many);
    for (const bool InTransaction : {false, true}) {
      if (InTransaction) Execute("START TRANSACTION");
      for (const char* Sort : {"A.Txt", "A.Tens"}) {
        QElapsedTimer Clock;
        Clock.start();
        const auto Dialog = TListDialog::Create(Company_->Connection(), {Sort, "Longlist A WHERE 0=0", "A.Txt ID"});
        qInfo("The first page by %s took %lld ms.", Sort, Clock.elapsed());
        QVERIFY(!Dialog->qryList_->IsComplete());
        const int Shown = Dialog->qryList_->KnownRows();
        QVERIFY(Shown >= 990 && Shown < Many);
        bool IsReplaced = false;
        connect(Dialog->qryList_, &ads::TDataSet::Replaced, this, [&] { IsReplaced = true; });
        QCOMPARE(Dialog->qryList_->RecordCount(), Many);
        qInfo("The whole took %lld ms.", Clock.elapsed());
        QVERIFY(!IsReplaced);
        std::vector<std::string> Texts = support::Column(*Dialog, "ID");
        if (Sort[2] == 'T' && Sort[3] == 'x') QVERIFY(std::is_sorted(Texts.begin(), Texts.end()));
        std::sort(Texts.begin(), Texts.end());
        QVERIFY(std::adjacent_find(Texts.begin(), Texts.end()) == Texts.end());
      }
      if (InTransaction) Execute("ROLLBACK");
    }
    QCOMPARE(Transactions(), 0);
  }

  void shouldSeeOneStateOfTheData() {
    if (!Open(TBackendKind::MariaDB)) return;
    Lengthen(200000);
    for (const char* Level : {"REPEATABLE-READ", "READ-COMMITTED", "SERIALIZABLE"}) {
      Execute(QStringLiteral("SET tx_isolation = '%1'").arg(Level));
      const pickbase::TPickCall Call;  // without one a dialog lets go of the data once it is created
      const auto Dialog = TListDialog::Create(Company_->Connection(), {"A.Txt", "Longlist A WHERE 0=0", "A.Txt ID"});
      QVERIFY(!Dialog->qryList_->IsComplete());
      Company_->ExecuteBeside("SET innodb_lock_wait_timeout = 2");
      Company_->ExecuteBeside("UPDATE longlist SET txt = concat(txt, '!') WHERE tens < 100");
      bool IsReplaced = false;
      connect(Dialog->qryList_, &ads::TDataSet::Replaced, this, [&] { IsReplaced = true; });
      QCOMPARE(Dialog->qryList_->RecordCount(), 200000);
      QVERIFY2(!IsReplaced, Level);
    }
  }

  void shouldStopAQueryAndLiveOn_data() {
    QTest::addColumn<TListSource>("Source");
    QTest::addColumn<bool>("InTransaction");
    for (const bool InTransaction : {false, true}) {
      QTest::addRow("before the first row, %d", InTransaction) << Slow << InTransaction;
      QTest::addRow("in the sort, %d", InTransaction) << SlowSort << InTransaction;
    }
  }
  void shouldStopAQueryAndLiveOn() {
    if (!Open(TBackendKind::MariaDB)) return;
    QFETCH(const TListSource, Source);
    QFETCH(const bool, InTransaction);
    const QString Mine = Session();
    if (InTransaction) Execute("START TRANSACTION");
    if (InTransaction) Execute("INSERT INTO area (zip) VALUES ('before')");
    const auto Dialog = TListDialog::Create(Company_->Connection(), {});
    QVERIFY(!DrivePickAs<TListDialog>(
        [&] { return Dialog->ShowPick(); },
        [&](TListDialog&) {
          for (int Round = 0; Round < 10; ++Round) {
            const qint64 Took = support::StopQuery(*Dialog, Source, Round == 0 ? 200 : Round * 7);
            if (Round == 0) qInfo("The stop took %lld ms.", Took);
            QVERIFY(Took < Moment && (Took >= 0 || Round > 0));
            QVERIFY(Dialog->isVisible());
            QCOMPARE(Dialog->qryList_->RecordCount(), 1000);
          }
          const QString Doing =
              "SELECT COUNT(*) FROM information_schema.processlist WHERE command = 'Query' AND id = " + Mine;
          QTRY_COMPARE_WITH_TIMEOUT(Company_->ValueBeside(Doing).toInt(), 0, int(Moment));
          QTest::keyClick(Dialog->edFind, Qt::Key_Escape);
          QVERIFY(!Dialog->isVisible());
        }));
    QCOMPARE(Session(), Mine);  // the same connection
    QCOMPARE(Value("SELECT @@in_transaction").toInt(), InTransaction ? 1 : 0);
    if (InTransaction) Execute("COMMIT");
    QCOMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM area WHERE zip = 'before'").toInt(), InTransaction ? 1 : 0);
    QTRY_COMPARE(Company_->ValueBeside("SELECT COUNT(*) FROM information_schema.processlist").toInt(), 2);
    QCOMPARE(Boxes_->Messages(), std::vector<std::string>());
  }

  void shouldCutTheConnectionWhereNoSecondOneIsToBeHad() {
    if (!Open(TBackendKind::MariaDB)) return;
    Company_->ExecuteBeside("CREATE OR REPLACE USER alone@localhost WITH MAX_USER_CONNECTIONS 1");
    Company_->ExecuteBeside("GRANT SELECT ON *.* TO alone@localhost");
    QSqlDatabase Database = Backends_->Connect(*Company_, "alone");
    QVERIFY2(Database.isOpen(), qPrintable(Database.lastError().text()));
    {
      ads::TAdsConnection Connection(Database);
      ads::TAdsQuery Query(nullptr);
      Query.SetConnection(&Connection);
      Query.AddField("ID", ads::TFieldType::ftString, 6);
      Query.SQL()->Add("SELECT A.ID FROM Cust A, Cust B, Cust C WHERE A.ID + B.ID + C.ID = 'x'");
      QElapsedTimer Clock;
      Query.OnProgress = [&] {
        Clock.start();
        throw std::runtime_error("no more");
      };
      QVERIFY_THROWS_EXCEPTION(std::runtime_error, Query.Open());
      QVERIFY(Clock.elapsed() < Moment);
      VERIFY_CONTAINS(MessageOf([&] { Values(Connection, "SELECT Zip X FROM Area"); }), "lost: The connection");
    }
    Company_->ExecuteBeside("KILL USER alone@localhost");  // the server has not noticed yet
    Database.close();
    QTRY_VERIFY(Database.open());
    {
      ads::TAdsConnection Connection(Database);
      QVERIFY(!Values(Connection, "SELECT Zip X FROM Area").isEmpty());
    }
    const QString Name = Database.connectionName();
    Database = {};
    QSqlDatabase::removeDatabase(Name);
  }

  void shouldLeaveAServerThatHasGoneSilent() {
    if (!Open(TBackendKind::MariaDB)) return;
    QFile File(Value("SELECT @@pid_file").toString());
    QVERIFY(File.open(QFile::ReadOnly));
    const pid_t Server = File.readAll().trimmed().toInt();
    QVERIFY(Server > 1);
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    Query.AddField("ID", ads::TFieldType::ftString, 6);
    Query.SQL()->Add("SELECT A.ID FROM Cust A, Cust B, Cust C WHERE A.ID + B.ID + C.ID = 'x'");
    QElapsedTimer Clock;
    Query.OnProgress = [&] {
      kill(Server, SIGSTOP);
      Clock.start();
      throw std::runtime_error("no more");
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Query.Open());
    const qint64 Took = Clock.elapsed();
    kill(Server, SIGCONT);
    QVERIFY2(Took < Moment, qPrintable(QString::number(Took)));
    VERIFY_CONTAINS(MessageOf([&] { Rows("SELECT Zip X FROM Area"); }), "lost: The connection");
  }

  void shouldReadInTheMidstOfAnotherListOfItsOwn() {
    if (!Open(TBackendKind::MariaDB)) return;
    Lengthen(300000);
    ads::TAdsQuery Outer(nullptr);
    Outer.SetConnection(Company_->Connection());
    Outer.AddField("Txt", ads::TFieldType::ftString, 20);
    const ads::TField* Void = Outer.AddField("Void", ads::TFieldType::ftInteger);
    Outer.SQL()->Add("SELECT Txt, IIF(Tens = 7, NULL, Tens) Void FROM Longlist");
    int Inner = 0;
    Outer.OnProgress = [&] {
      if (++Inner <= 3) QCOMPARE(Rows("SELECT COUNT(*) X FROM Cust"), QStringList("1000"));
    };
    Outer.Open();
    QVERIFY2(Inner >= 1, "the list was read too fast to be interrupted");
    QCOMPARE(Outer.RecordCount(), 300000);
    QVERIFY(!Void->IsNull());
    Outer.SetRecNo(70);
    QVERIFY(Void->IsNull());
    QCOMPARE(Transactions(), 0);
  }

  void shouldNotDisturbTheHostInTheMidstOfItsOwnRows() {
    if (!Open(TBackendKind::MariaDB)) return;
    // Qt's driver reads all rows at once; a host may use the client library itself.
    MYSQL* Handle = *static_cast<MYSQL* const*>(Company_->Database().driver()->handle().constData());
    QCOMPARE(mysql_query(Handle, "SELECT id FROM cust ORDER BY id"), 0);
    MYSQL_RES* Result = mysql_use_result(Handle);
    QVERIFY(mysql_fetch_row(Result) != nullptr);
    VERIFY_CONTAINS(MessageOf([this] { Rows("SELECT Zip X FROM Area"); }),
                    "The rows of another query are still being read from this connection.");
    int Left = 0;
    while (mysql_fetch_row(Result) != nullptr) ++Left;
    QCOMPARE(Left, 999);
    QCOMPARE(mysql_errno(Handle), 0U);
    mysql_free_result(Result);
    QSqlQuery Host(Company_->Database());
    Host.setForwardOnly(true);
    QVERIFY(Host.exec("SELECT id FROM cust ORDER BY id"));
    QVERIFY(Host.next());
    QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
    for (Left = 0; Host.next();) ++Left;
    QCOMPARE(Left, 999);
    QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
  }

  void shouldNotMixUpItsRowsWithAStatementOfTheHosts() {
    if (!Open(TBackendKind::MariaDB)) return;
    Lengthen(200000);
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    Query.AddField("Txt", ads::TFieldType::ftString, 20);
    Query.SQL()->Add("SELECT Txt FROM Longlist ORDER BY Txt");
    int Refused = 0;
    Query.OnProgress = [&] {
      QSqlQuery Host(Company_->Database());
      if (!Host.exec("SELECT 1") && Host.lastError().text().contains("out of sync")) ++Refused;
    };
    Query.Open();
    QCOMPARE(Query.RecordCount(), 200000);
    QVERIFY(Refused > 0);
    QCOMPARE(Value("SELECT 7").toInt(), 7);
  }

  void shouldHoldNoMoreThanTheSnapshotInMemory() {
    if (!Open(TBackendKind::MariaDB)) return;
    Company_->ExecuteBeside("CREATE TABLE wide AS SELECT seq n, repeat('x', 1000) wide FROM seq_1_to_200000");
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(Company_->Connection());
    Query.AddField("N", ads::TFieldType::ftInteger);
    Query.SQL()->Add("SELECT n, wide FROM Wide");
    const qint64 Before = ResidentBytes();
    qint64 Most = 0;
    Query.OnProgress = [&Most] { Most = std::max(Most, ResidentBytes()); };
    Query.Open();
    QCOMPARE(Query.RecordCount(), 200000);
    QVERIFY(Most > 0);
    QVERIFY2(Most - Before < 20'000'000, qPrintable(QString::number(Most - Before)));  // of 200 MB that were sent
  }

  // The measure is the client library's own loop over the same query; the bound is wide, for a busy machine.
  void shouldCostLittleMoreThanTheClientLibrary() {
    if (!Open(TBackendKind::MariaDB)) return;
    Lengthen(400000);
    MYSQL* Handle = *static_cast<MYSQL* const*>(Company_->Database().driver()->handle().constData());
    const std::string Asked = "SELECT Txt, Tens, UPPER(Txt) SortFld FROM Longlist ORDER BY SortFld";
    const std::string Sent = ads::sql::TMariaDBDialect().Rewrite(Asked);
    qint64 Loop = std::numeric_limits<qint64>::max(), List = Loop;
    for (int Round = 0; Round < 3; ++Round) {
      QElapsedTimer Clock;
      Clock.start();
      QCOMPARE(mysql_real_query(Handle, Sent.data(), Sent.size()), 0);
      MYSQL_RES* Result = mysql_use_result(Handle);
      std::size_t Bytes = 0;
      while (mysql_fetch_row(Result) != nullptr) Bytes += mysql_fetch_lengths(Result)[0];
      mysql_free_result(Result);
      QVERIFY(Bytes > 0);
      Loop = std::min(Loop, Clock.restart());
      ads::TAdsQuery Query(nullptr);
      Query.SetConnection(Company_->Connection());
      Query.AddField("Txt", ads::TFieldType::ftString, 20);
      Query.AddField("Tens", ads::TFieldType::ftInteger);
      Query.SQL()->Add(Asked);
      Query.Open();
      QCOMPARE(Query.RecordCount(), 400000);
      List = std::min(List, Clock.elapsed());
    }
    qInfo("The library's loop took %lld ms, the list %lld ms.", Loop, List);
    QVERIFY(List < 2 * Loop);
  }

  void shouldSayThatTheConnectionIsLostInEveryPhase() {
    if (!Open(TBackendKind::MariaDB)) return;
    Lengthen(100000);
    const char* const Queries[] = {"SELECT A.ID X FROM Cust A, Cust B, Cust C WHERE A.ID + B.ID + C.ID = 'x'",
                                   "SELECT A.Txt X FROM Longlist A, Longlist B"};
    for (const char* Sql : Queries) {
      for (const int Call : {1, 2, 3}) {
        const QString Mine = Session();
        ads::TAdsQuery Query(nullptr);
        Query.SetConnection(Company_->Connection());
        Query.AddField("X", ads::TFieldType::ftString, 20);
        Query.SQL()->Add(Sql);
        int Calls = 0;
        Query.OnProgress = [&] {
          if (++Calls == Call) Company_->ExecuteBeside("KILL " + Mine);
        };
        VERIFY_CONTAINS(MessageOf([&] { Query.Open(); }), "lost: The connection");
        VERIFY_CONTAINS(MessageOf([&] { Rows("SELECT Zip X FROM Area"); }), "lost: The connection");
        Company_->Database().close();
        QVERIFY(Company_->Database().open());
        QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
      }
    }
    const QString Mine = Session();
    Company_->ExecuteBeside("KILL " + Mine);
    VERIFY_CONTAINS(MessageOf([&] { Rows("SELECT Zip X FROM Area"); }), "lost: The connection");
  }

  void shouldNotOpenALostConnectionAgain() {
    if (!Open(TBackendKind::MariaDB)) return;
    QSqlDatabase Database = Company_->Database();
    Database.close();
    Database.setConnectOptions(Database.connectOptions() + ";MYSQL_OPT_RECONNECT=1");
    QVERIFY(Database.open());
    Company_->ExecuteBeside("KILL " + Session());
    VERIFY_CONTAINS(MessageOf([&] { Rows("SELECT Zip X FROM Area"); }), "lost: The connection");
  }

  void shouldSayThatTheHostClosedTheConnectionInTheMidstOfTheRows_data() {
    QTest::addColumn<bool>("ReopensAtOnce");
    QTest::newRow("closed") << false;
    QTest::newRow("and opened again") << true;
  }
  void shouldSayThatTheHostClosedTheConnectionInTheMidstOfTheRows() {
    if (!Open(TBackendKind::MariaDB)) return;
    QFETCH(const bool, ReopensAtOnce);
    for (const char* Sql : {"SELECT A.ID FROM Cust A, Cust B",
                            "SELECT A.ID FROM Cust A, Cust B, Cust C WHERE A.ID + B.ID + C.ID = 'x'"}) {
      ads::TAdsQuery Long(nullptr);
      Long.SetConnection(Company_->Connection());
      Long.AddField("ID", ads::TFieldType::ftString, 6);
      Long.SQL()->Add(Sql);
      bool Done = false;
      Long.OnProgress = [&] {
        if (std::exchange(Done, true)) return;
        Company_->Database().close();
        if (ReopensAtOnce) QVERIFY(Company_->Database().open());
      };
      VERIFY_CONTAINS(MessageOf([&] { Long.Open(); }), "closed while rows were being read");
      if (!ReopensAtOnce) QVERIFY(Company_->Database().open());
      QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
    }
  }

  void shouldGiveTheServersMessage_data() { AddKinds(); }
  void shouldGiveTheServersMessage() {
    if (!Open()) return;
    VERIFY_CONTAINS(MessageOf([this] { Rows("SELECT Nowhere X FROM Area"); }), "Unknown column 'Nowhere'");
    VERIFY_CONTAINS(MessageOf([this] { Rows("SELECT Zip X FROM Nowhere"); }), "nowhere' doesn't exist");
    Execute("SET max_statement_time = 0.2");
    const std::string Ended =
        MessageOf([this] { Rows("SELECT A.ID X FROM Cust A, Cust B, Cust C WHERE A.ID + B.ID + C.ID = 'x'"); });
    VERIFY_CONTAINS(Ended, "max_statement_time exceeded");
    if (Company_->Kind() == TBackendKind::MariaDB) QVERIFY(Ended.starts_with("ended: "));
    Execute("SET max_statement_time = 0");
    Execute("SET lock_wait_timeout = 1");
    Company_->ExecuteBeside("LOCK TABLES area WRITE");
    VERIFY_CONTAINS(MessageOf([this] { Rows("SELECT Zip X FROM Area"); }), "Lock wait timeout exceeded");
    Company_->ExecuteBeside("UNLOCK TABLES");
    QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
  }

  void shouldNeedNoMoreThanTheRightToRead_data() { AddKinds(); }
  void shouldNeedNoMoreThanTheRightToRead() {
    if (!Open()) return;
    const QString Name = Company_->ValueBeside("SELECT DATABASE()").toString();
    Company_->ExecuteBeside("CREATE OR REPLACE USER picker@localhost");
    for (const QString& Table : AllRows(Company_->Beside(),
                                        "SELECT table_name FROM information_schema.tables WHERE "
                                        "table_schema = DATABASE() AND table_name <> 'vend'")) {
      Company_->ExecuteBeside("GRANT SELECT ON `" + Name + "`.`" + Table + "` TO picker@localhost");
    }
    QSqlDatabase Database = Backends_->Connect(*Company_, "picker");
    QVERIFY2(Database.isOpen(), qPrintable(Database.lastError().text()));
    {
      ads::TAdsConnection Connection(Database);
      const auto Dialog = TfrmPickCustomer::Create(&Connection, false, "", true, true);
      QVERIFY(Dialog->qryList_->RecordCount() > 500);
      VERIFY_CONTAINS(MessageOf([&] { Values(Connection, "SELECT ID X FROM Vend"); }), "command denied to user");
    }
    const QString ConnectionName = Database.connectionName();
    Database = {};
    QSqlDatabase::removeDatabase(ConnectionName);
  }

  void shouldRefuseANameThatTheSessionCannotWrite() {
    if (!Open(TBackendKind::MariaDB)) return;
    Company_->ExecuteBeside("CREATE TABLE t (`é` integer)");
    Company_->ExecuteBeside("INSERT INTO t VALUES (7)");
    QCOMPARE(Rows("SELECT [é] X FROM T"), QStringList("7"));
    Execute("SET NAMES gbk");
    VERIFY_CONTAINS(MessageOf([this] { Rows("SELECT [é] X FROM T"); }), "beyond ASCII");
    QCOMPARE(Transactions(), 0);
  }

  void shouldReadByTheNetworkAsBySocket() {
    if (!Open(TBackendKind::MariaDB)) return;
    QSqlDatabase Database = QSqlDatabase::addDatabase("QMYSQL", "by the network");
    Database.setHostName("127.0.0.1");
    Database.setPort(Backends_->MariaDB().Port());
    Database.setUserName("tester");
    Database.setDatabaseName(Company_->ValueBeside("SELECT DATABASE()").toString());
    QVERIFY2(Database.open(), qPrintable(Database.lastError().text()));
    {
      ads::TAdsConnection Connection(Database);
      const QString Mine = TBackend::Value(Database, "SELECT CONNECTION_ID()").toString();
      const auto Dialog = TListDialog::Create(&Connection, {});
      QVERIFY(!DrivePickAs<TListDialog>([&] { return Dialog->ShowPick(); },
                                        [&](TListDialog&) {
                                          QVERIFY(support::StopQuery(*Dialog, Slow, 200) >= 0);
                                          QTest::keyClick(Dialog->edFind, Qt::Key_Escape);
                                        }));
      QCOMPARE(TBackend::Value(Database, "SELECT CONNECTION_ID()").toString(), Mine);
    }
    Database = {};
    QSqlDatabase::removeDatabase("by the network");
  }

  // The last one: it ends the server.
  void shouldSayThatTheServerIsGone() {
    if (!Open(TBackendKind::MariaDB)) return;
    QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
    Backends_->MariaDB().Stop();
    VERIFY_CONTAINS(MessageOf([&] { Rows("SELECT Zip X FROM Area"); }), "lost: The connection");
    QVERIFY(Backends_->MariaDB().Restart());
    VERIFY_CONTAINS(MessageOf([&] { Rows("SELECT Zip X FROM Area"); }), "lost: The connection");
    Company_->Database().close();
    QVERIFY(Company_->Database().open());
    QVERIFY(!Rows("SELECT Zip X FROM Area").isEmpty());
  }
};

QTEST_MAIN(tst_MariaDBConnection)
#include "tst_MariaDBConnection.moc"
