#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/ThrowawayMariaDB.h"
#include "ads/Values.h"
#include "ads/sql/Dialect.h"
#include "zulcommon/Text.h"

namespace {

// The modes in which the server reads a text in another way.
constexpr const char* Modes[] = {"",
                                 "ANSI",
                                 "ANSI_QUOTES",
                                 "NO_BACKSLASH_ESCAPES",
                                 "ANSI_QUOTES,NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT,IGNORE_SPACE,HIGH_NOT_PRECEDENCE",
                                 "ORACLE",
                                 "MSSQL",
                                 "EMPTY_STRING_IS_NULL,PAD_CHAR_TO_FULL_LENGTH"};

}  // namespace

class tst_MariaDBDialect : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    Server_ = std::make_unique<TThrowawayMariaDB>();
    if (!Server_->IsRunning()) return;
    Database_ = Server_->Connect("tst_MariaDBDialect");
    QVERIFY(Database_.isOpen());
    Execute(Database_,
            "CREATE TABLE t (n integer, a varchar(20) CHARACTER SET latin1 COLLATE latin1_german1_ci, b varchar(20) "
            "CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci, `default` boolean, `end` date, c char(6))");
    Execute(Database_,
            "INSERT INTO t VALUES (1, 'éclair', 'x_y', true, '2024-06-30', 'ab'), (2, 'Zoo', 'A%B', false, NULL, "
            "NULL), (3, NULL, 'a\\\\b', NULL, NULL, NULL), (4, 'zinc', 'q', NULL, NULL, NULL)");
    Connection_ = std::make_unique<ads::TAdsConnection>(Database_);
  }

  void cleanupTestCase() {
    Connection_.reset();
    Database_ = {};
    QSqlDatabase::removeDatabase("tst_MariaDBDialect");
  }

  void shouldGiveTheServerItsOwnText_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Expected");
    const auto Row = [](const char* Name, const char* Sql, const char* Expected) {
      QTest::newRow(QByteArray(Name).simplified().constData()) << QString(Sql) << QString(Expected);
    };
    const auto Kept = [&Row](const char* Sql) { Row(Sql, Sql, Sql); };
    Kept("");
    Kept("SELECT  Zip,\to.SubTotal + o.FedTax\r\nFROM  t x\rWHERE x = TRUE ");
    Kept("SELECT p.End, p.Default, p.Desc, p.User FROM p GROUP BY p.End");
    Kept("SELECT x.UPPER(y), t.IIF FROM t");
    Kept("SELECT a FROM t ORDER BY a, t.c DESC, 3 ASC");
    Row("names", "SELECT [Desc], I.\"Date\", [A\"B], \"C\"\"D\", [E`F], [Éa]",
        "SELECT `Desc`, i.`Date`, `A\"B`, `C\"D`, `E``F`, `Éa`");
    Row("tables", "SELECT C.A, c.B FROM Cust C, [Vend] V LEFT OUTER JOIN OE AS O ON O.ID = C.ID WHERE ID = C.Number",
        "SELECT c.A, c.B FROM cust c, `vend` v LEFT OUTER JOIN oe AS o ON o.ID = c.ID WHERE ID = c.Number");
    Row("tables in parentheses",
        "SELECT A FROM (SELECT B FROM X WHERE Y IN (SELECT Z FROM U)) Q JOIN (V JOIN W ON 0=0) ON Q.A = W.B",
        "SELECT A FROM (SELECT B FROM x WHERE Y IN (SELECT Z FROM u)) q JOIN (v JOIN w ON 0=0) ON q.A = w.B");
    Row("words that are reserved", "SELECT Key, T.Key, Interval + 1 FROM Rows ORDER BY Key DESC",
        "SELECT `Key`, t.Key, `Interval` + 1 FROM `rows` ORDER BY `Key` DESC");
    Row("an alias", "SELECT a Total, b [Total], COUNT(*) Year, 'x' y, c AS Default FROM T",
        "SELECT a `Total`, b `Total`, COUNT(*) `Year`, 'x' `y`, c AS `Default` FROM t");
    Row("IIF", "SELECT IIF (a,'x', IIF( b, c , 1))Name", "SELECT IF(a,'x', IF( b, c , 1))`Name`");
    Row("a backslash", "SELECT 'a\\''b', 'c''d'", "SELECT _utf8mb4 X'615C2762', 'c''d'");
    Row("letters beyond ASCII", "SELECT 'é'", "SELECT _utf8mb4 X'C3A9'");
    Row("no text", "SELECT ''", "SELECT _utf8mb4 X''");
    Row("a sum of texts", "SELECT Trim (a) + ' - ' + b, a + b, a || b * 2",
        "SELECT mariadb_schema.CONCAT(mariadb_schema.Trim(a), ' - ', b), a + b, mariadb_schema.CONCAT(a, b * 2)");
    Row("LIKE", "WHERE a LIKE 'x' AND b NOT LIKE 'y' + c OR d",
        "WHERE CONVERT(a USING utf8mb4) COLLATE utf8mb4_nopad_bin LIKE 'x' ESCAPE _utf8mb4 X'00' AND CONVERT(b USING "
        "utf8mb4) COLLATE utf8mb4_nopad_bin NOT LIKE mariadb_schema.CONCAT('y', c) ESCAPE _utf8mb4 X'00' OR d");
    Row("NOT",
        "WHERE NOT a IS NULL AND (NOT b.c IN (1, 2)) OR NOT a BETWEEN 1 AND 2 AND NOT x OR NOT EXISTS (SELECT 1)",
        "WHERE NOT (a IS NULL) AND (NOT (b.c IN (1, 2))) OR NOT (a BETWEEN 1 AND 2) AND NOT x OR NOT (EXISTS (SELECT "
        "1))");
    Row("a text that sorts", "SELECT SubString(a, 1, 4) Year FROM T ORDER BY Year DESC",
        "SELECT CONVERT(mariadb_schema.SubString(a, 1, 4) USING utf8mb4) COLLATE utf8mb4_nopad_bin `Year` FROM t ORDER "
        "BY Year DESC");
    Row("both parts of a union", "SELECT a, Trim(b) s FROM T UNION ALL SELECT a, 'x' FROM U ORDER BY s",
        "SELECT a, CONVERT(mariadb_schema.Trim(b) USING utf8mb4) COLLATE utf8mb4_nopad_bin `s` FROM t UNION ALL SELECT "
        "a, CONVERT('x' USING utf8mb4) COLLATE utf8mb4_nopad_bin FROM u ORDER BY s");
    Row("a comment", "SELECT a--b\rFROM/*M! c*/T //d", "SELECT a \rFROM t  ");
  }
  void shouldGiveTheServerItsOwnText() {
    QFETCH(QString, Sql);
    QFETCH(QString, Expected);
    QCOMPARE(QString::fromStdString(ads::sql::TMariaDBDialect().Rewrite(Sql.toStdString())), Expected);
  }

  void shouldSayItsName() { QCOMPARE(QString(ads::sql::TMariaDBDialect().Name()), QString("MariaDB")); }

  void shouldRefuseACallInTheNotationOfAColumn() {
    const ads::sql::TMariaDBDialect Dialect;
    for (const char* Sql :
         {"SELECT S.NEXTVAL FROM T", "SELECT S.[NextVal]", "SELECT a.\"S\".nextval", "SELECT S.CurrVal"}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Dialect.RequireUnambiguous(Sql));
    }
    Dialect.RequireUnambiguous("SELECT NextVal, S.Next, 'S.NEXTVAL' FROM S");
  }

  void shouldMatchInExactCaseWithNothingButPercentAndUnderscoreSpecial_data() { AddModes(); }
  void shouldMatchInExactCaseWithNothingButPercentAndUnderscoreSpecial() {
    if (!SetMode()) return;
    QCOMPARE(Rows("SELECT N X FROM T WHERE A LIKE 'z%'"), QStringList("4"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE A NOT LIKE 'Z%' ORDER BY N"), QStringList({"1", "4"}));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '%\\%'"), QStringList("3"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE 'a\\b'"), QStringList("3"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE A LIKE '%é%'"), QStringList("1"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE A LIKE '%É%'"), QStringList());
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE '___' ORDER BY N"), QStringList({"1", "2", "3"}));
    QCOMPARE(Rows("SELECT N X FROM T WHERE B LIKE 'a' + '%b'"), QStringList("3"));
    QCOMPARE(Rows("SELECT '''\\' X"), QStringList("'\\"));
    QCOMPARE(Rows("SELECT '' X"), QStringList(""));
  }

  void shouldJoinAndChooseTexts_data() { AddModes(); }
  void shouldJoinAndChooseTexts() {
    if (!SetMode()) return;
    QCOMPARE(Rows("SELECT A + '-' + B X FROM T ORDER BY N"),
             QStringList({"éclair-x_y", "Zoo-A%B", "(null)", "zinc-q"}));
    QCOMPARE(Rows("SELECT A || B X FROM T WHERE N = 4"), QStringList("zincq"));
    QCOMPARE(Rows("SELECT Trim(' ') X"), QStringList(""));
    QCOMPARE(Rows("SELECT SubString('abc', 9, 1) X"), QStringList(""));
    QCOMPARE(Rows("SELECT IIF(T.[Default], 'yes', IIF(T.[Default] IS NULL, 'nothing', 'no')) X FROM T ORDER BY N"),
             QStringList({"yes", "no", "nothing", "nothing"}));
    QCOMPARE(Rows("SELECT N X FROM T WHERE NOT A IS NULL AND NOT N IN (1, 2)"), QStringList("4"));
    QCOMPARE(Rows("SELECT C X FROM T WHERE N = 1"), QStringList("ab"));
  }

  void shouldTakeNamesInBracketsAndQuotes_data() { AddModes(); }
  void shouldTakeNamesInBracketsAndQuotes() {
    if (!SetMode()) return;
    QCOMPARE(Rows("SELECT \"N\" X FROM [T] WHERE \"T\".[Default] = FALSE"), QStringList("2"));
    for (const char* Name : {"Nowhere", "[Nowhere]", "\"Nowhere\"", "T.[Nowhere]"}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows(std::string("SELECT ") + Name + " X FROM T"));
    }
    for (const char* Alias : {"Year", "Default", "Desc", "[End]", "User", "Name", "Key", "Interval", "Minus", "Body"}) {
      const QString Column = QString(Alias).remove('[').remove(']');
      QCOMPARE(Values(*Connection_, "SELECT N " + std::string(Alias) + " FROM T WHERE N = 2", Column.toStdString()),
               QStringList("2"));
    }
  }

  void shouldNotCountASequenceOn() {
    if (!SetMode("ORACLE")) return;
    Execute(Database_, "CREATE OR REPLACE SEQUENCE s");
    for (const char* Sql : {"SELECT S.NEXTVAL X FROM T", "SELECT s.[nextval] X", "SELECT \"s\".\"nextval\" X"}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows(Sql));
    }
    QCOMPARE(Rows("SELECT Next_Not_Cached_Value X FROM S"), QStringList("1"));
  }

  void shouldSortByTheCodeOfTheCharactersWithNullsFirst_data() { AddModes(); }
  void shouldSortByTheCodeOfTheCharactersWithNullsFirst() {
    if (!SetMode()) return;
    QCOMPARE(Rows("SELECT A X, UPPER(A) SortFld FROM T ORDER BY SortFld"),
             QStringList({"(null)", "zinc", "Zoo", "éclair"}));
    QCOMPARE(Rows("SELECT A X, UPPER(A) SortFld FROM T ORDER BY SortFld DESC"),
             QStringList({"éclair", "Zoo", "zinc", "(null)"}));
    QCOMPARE(Rows("SELECT DISTINCT SubString(A, 1, 1) X FROM T ORDER BY X"), QStringList({"(null)", "Z", "z", "é"}));
    QCOMPARE(Rows("SELECT A X, UPPER(A) S FROM T UNION ALL SELECT 'x', UPPER('') FROM T WHERE N = 1 ORDER BY S"),
             QStringList({"(null)", "x", "zinc", "Zoo", "éclair"}));
    QCOMPARE(Rows("SELECT 'a' + '' X FROM T WHERE N = 1 UNION ALL SELECT 'a ' FROM T WHERE N = 1 ORDER BY X DESC"),
             QStringList({"a ", "a"}));
  }

  void shouldUpperCaseEveryLetter() {
    if (!SetMode("")) return;
    Execute(Database_, "CREATE TABLE letters (n integer, l varchar(10))");
    QStringList Expected;
    QString Insert;
    for (char32_t Letter = 0x80; Letter < 0x20000; ++Letter) {
      const QString Text = QString::fromUcs4(&Letter, 1);
      if (QChar::isSurrogate(Letter) || Text.isEmpty()) continue;  // the byte order mark is no character to Qt
      Expected += QString::fromStdString(zulcommon::UpperCase(Text.toStdString()));
      Insert += QStringLiteral("%1(%2, CONVERT(0x%3 USING utf8mb4))")
                    .arg(Insert.isEmpty() ? "" : ",")
                    .arg(uint(Letter))
                    .arg(QString::fromLatin1(Text.toUtf8().toHex()));
      if (Letter % 0x1000 == 0xFFF) Execute(Database_, "INSERT INTO letters VALUES " + std::exchange(Insert, {}));
    }
    if (!Insert.isEmpty()) Execute(Database_, "INSERT INTO letters VALUES " + Insert);
    const QStringList Given = Rows("SELECT UPPER(L) X FROM Letters ORDER BY N");
    QCOMPARE(Given.size(), Expected.size());
    QStringList Wrong;
    for (qsizetype Row = 0; Row < Given.size(); ++Row) {
      if (Given[Row] != Expected[Row]) Wrong += Given[Row] + " for " + Expected[Row];
    }
    QCOMPARE(Wrong, QStringList());
  }

  void shouldUpperCaseWhatIsNoPlainText() {
    if (!SetMode("")) return;
    QCOMPARE(Rows("SELECT UPPER('straße éĳ') X"), QStringList("STRASSE ÉĲ"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE UPPER(T.End) LIKE '2024%'"), QStringList("1"));
    QCOMPARE(Rows("SELECT UPPER(C) + '.' X FROM T WHERE N = 1"), QStringList("AB."));
    QCOMPARE(Rows("SELECT UPPER(IIF(NOT A IS NULL, Trim(A) + ' - ' + b, 'none')) X FROM T WHERE N = 3"),
             QStringList("NONE"));
    QCOMPARE(Rows("SELECT N X FROM T WHERE UPPER('') LIKE '%A%'"), QStringList());
  }

 private:
  void AddModes() {
    QTest::addColumn<QString>("Mode");
    for (const char* Mode : Modes) QTest::newRow(*Mode == '\0' ? "none" : Mode) << QString(Mode);
  }
  bool SetMode() {
    QFETCH(QString, Mode);
    return SetMode(Mode);
  }
  bool SetMode(const QString& Mode) {
    if (!Server_->IsRunning()) {
      [this] { QSKIP(qPrintable(Server_->Reason())); }();
      return false;
    }
    Execute(Database_, "SET sql_mode='" + Mode + "'");
    return true;
  }
  QStringList Rows(const std::string& Sql) { return Values(*Connection_, Sql); }

  std::unique_ptr<TThrowawayMariaDB> Server_;
  QSqlDatabase Database_;
  std::unique_ptr<ads::TAdsConnection> Connection_;
};

QTEST_GUILESS_MAIN(tst_MariaDBDialect)
#include "tst_MariaDBDialect.moc"
