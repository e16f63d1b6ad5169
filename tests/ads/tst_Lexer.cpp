#include <QElapsedTimer>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "ads/sql/Lexer.h"

using ads::sql::NameOf;
using ads::sql::TextOf;
using ads::sql::Tokenize;
using ads::sql::TToken;
using ads::sql::TTokenKind;

namespace {

// The kinds of all tokens, a letter each.
QByteArray Kinds(const QByteArray& Sql) {
  QByteArray Result;
  for (const TToken& Token : Tokenize(Sql.toStdString())) Result += "BWQTNS"[static_cast<int>(Token.Kind)];
  return Result;
}

QByteArray Joined(const std::vector<TToken>& Tokens) {
  QByteArray Result;
  for (const TToken& Token : Tokens)
    Result += QByteArray(Token.Source.data(), static_cast<qsizetype>(Token.Source.size()));
  return Result;
}

QByteArray Message(const std::string& Sql) {
  try {
    Tokenize(Sql);
  } catch (const ads::EDatabaseError& Error) {
    return Error.what();
  }
  return "accepted";
}

}  // namespace

class tst_Lexer : public QObject {
  Q_OBJECT

 private slots:
  void shouldTellTheKindsApart_data() {
    QTest::addColumn<QByteArray>("Sql");
    QTest::addColumn<QByteArray>("Expected");
    QTest::newRow("nothing") << QByteArray("") << QByteArray("");
    QTest::newRow("words and blanks") << QByteArray("SELECT \t\r\n\f x_1") << QByteArray("WBW");
    QTest::newRow("letters beyond ASCII") << QByteArray("Straße éàü") << QByteArray("WBW");
    QTest::newRow("a name in brackets") << QByteArray("[The \"Desc\"; --]") << QByteArray("Q");
    QTest::newRow("a name in quotes") << QByteArray("\"De]sc'\"") << QByteArray("Q");
    QTest::newRow("a qualified name") << QByteArray("I.[Key].x") << QByteArray("WSQSW");
    QTest::newRow("texts") << QByteArray("'' 'a' 'O''NEIL' 'a;--/*[' ''''") << QByteArray("TBTBTBTBT");
    QTest::newRow("a text over lines") << QByteArray("'a\r\nb'") << QByteArray("T");
    QTest::newRow("a text that ends in two quotes") << QByteArray("'a''','b'") << QByteArray("TST");
    QTest::newRow("numbers") << QByteArray("12 1.5 .5 1. 1e5 1E-3 2.5e+10") << QByteArray("NBNBNBNBNBNBN");
    QTest::newRow("a number with a sign") << QByteArray("-1.5") << QByteArray("SN");
    QTest::newRow("long symbols") << QByteArray("<= >= <> != ||") << QByteArray("SBSBSBSBS");
    QTest::newRow("short symbols") << QByteArray("+-*/%(),.;=<") << QByteArray("SSSSSSSSSSSS");
    QTest::newRow("symbols in a row") << QByteArray("a>=-1") << QByteArray("WSSN");
    QTest::newRow("a comment to the end") << QByteArray("a--b c") << QByteArray("WB");
    QTest::newRow("a comment with slashes") << QByteArray("a//b\nc") << QByteArray("WBBW");
    QTest::newRow("a comment between stars") << QByteArray("a/* ' [ \" */b") << QByteArray("WBW");
    QTest::newRow("an empty comment") << QByteArray("/**//***/") << QByteArray("BB");
  }
  void shouldTellTheKindsApart() {
    QFETCH(QByteArray, Sql);
    QFETCH(QByteArray, Expected);
    QCOMPARE(Kinds(Sql), Expected);
    const std::string Text = Sql.toStdString();
    QCOMPARE(Joined(Tokenize(Text)), Sql);
  }

  void shouldEndACommentAtACarriageReturnAlone() {
    const std::string Sql = "a -- b\rc // d\r\ne";
    const auto Tokens = Tokenize(Sql);
    QCOMPARE(Kinds(QByteArray::fromStdString(Sql)), QByteArray("WBBBWBBBW"));
    QVERIFY(Tokens[2].IsComment());
    QCOMPARE(QByteArray::fromStdString(std::string(Tokens[2].Source)), QByteArray("-- b"));
    QVERIFY(!Tokens[3].IsComment());
    QVERIFY(Tokens[4].IsWord("C"));
  }

  void shouldKnowAWordInAnyCase() {
    const auto Tokens = Tokenize("SeLeCt \"select\" 'SELECT' [SELECT]");
    QVERIFY(Tokens[0].IsWord("SELECT"));
    QVERIFY(!Tokens[0].IsWord("SELEC"));
    QVERIFY(!Tokens[0].IsWord("SELECTS"));
    QVERIFY(!Tokens[2].IsWord("SELECT"));
    QVERIFY(!Tokens[4].IsWord("SELECT"));
    QVERIFY(!Tokens[6].IsWord("SELECT"));
    QVERIFY(Tokenize("||")[0].IsSymbol("||"));
    QVERIFY(!Tokenize("'|'")[0].IsSymbol("|"));
  }

  void shouldFindAWordInASortedList() {
    constexpr std::string_view Words[] = {"ALPHA", "BETA", "DELTA"};
    QVERIFY(ads::sql::IsOneOf("alpha", Words));
    QVERIFY(ads::sql::IsOneOf("DELTA", Words));
    QVERIFY(!ads::sql::IsOneOf("GAMMA", Words));
    QVERIFY(!ads::sql::IsOneOf("BET", Words));
    QVERIFY(!ads::sql::IsOneOf("", Words));
    QVERIFY(!ads::sql::IsOneOf("é", Words));
  }

  void shouldReadANameWithoutWhatIsAroundIt_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Expected");
    QTest::newRow("bare") << "Desc"
                          << "Desc";
    QTest::newRow("brackets") << "[Desc]"
                              << "Desc";
    QTest::newRow("quotes in brackets") << "[a\"\"b]"
                                        << "a\"\"b";
    QTest::newRow("quotes") << "\"Desc\""
                            << "Desc";
    QTest::newRow("doubled quotes") << "\"a\"\"b\"\"\""
                                    << "a\"b\"";
  }
  void shouldReadANameWithoutWhatIsAroundIt() {
    QFETCH(QString, Sql);
    QFETCH(QString, Expected);
    const std::string Text = Sql.toStdString();
    QCOMPARE(QString::fromStdString(NameOf(Tokenize(Text).at(0))), Expected);
  }

  void shouldReadATextWithItsDoubledQuotesTakenAsOne_data() {
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Expected");
    QTest::newRow("empty") << "''"
                           << "";
    QTest::newRow("plain") << "'100%'"
                           << "100%";
    QTest::newRow("a quote inside") << "'O''NEIL'"
                                    << "O'NEIL";
    QTest::newRow("a quote alone") << "''''"
                                   << "'";
    QTest::newRow("a backslash is a character") << "'a\\'"
                                                << "a\\";
  }
  void shouldReadATextWithItsDoubledQuotesTakenAsOne() {
    QFETCH(QString, Sql);
    QFETCH(QString, Expected);
    const std::string Text = Sql.toStdString();
    QCOMPARE(QString::fromStdString(TextOf(Tokenize(Text).at(0))), Expected);
  }

  void shouldRefuseWhatServersCouldReadDifferently_data() {
    QTest::addColumn<QByteArray>("Sql");
    QTest::addColumn<QByteArray>("Expected");
    const auto Row = [](const char* Name, const QByteArray& Sql, const QByteArray& Expected) {
      QTest::newRow(Name) << Sql << Expected + " of the SQL text.";
    };
    Row("an open text", "a 'b", "An unterminated text at line 1, column 3");
    Row("an open text after a doubled quote", "'b''", "An unterminated text at line 1, column 1");
    Row("an open name in brackets", "a\n[b", "An unterminated name at line 2, column 1");
    Row("an open name in quotes", "\"b\"\"", "An unterminated name at line 1, column 1");
    Row("an open comment", "a /* b", "An unterminated comment at line 1, column 3");
    Row("a comment that only seems to end", "/*/", "An unterminated comment at line 1, column 1");
    Row("a comment in a comment", "a /* b /* c */ d */", "A comment in a comment at line 1, column 3");
    Row("a comment that some servers run", "/*! DROP */", "A comment in a comment at line 1, column 1");
    Row("an empty name in brackets", "[]", "An empty name at line 1, column 1");
    Row("an empty name in quotes", "\"\"", "An empty name at line 1, column 1");
    Row("a text with escapes", "E'a\\'b'", "A word that runs into a text at line 1, column 1");
    Row("a national text", "a, n'b'", "A word that runs into a text at line 1, column 4");
    Row("a text of bytes", "x'00'", "A word that runs into a text at line 1, column 1");
    Row("a text in Unicode's own form", "U&'d'", "The character & at line 1, column 2");
    Row("a text in dollars", "$$a$$", "The character $ at line 1, column 1");
    Row("a closing bracket alone", "[a]]", "The character ] at line 1, column 4");
    Row("a number in a word", "a = 12abc", "A malformed number at line 1, column 5");
    Row("a hexadecimal number", "0x10", "A malformed number at line 1, column 1");
    Row("a number with two points", "1.2.3", "A malformed number at line 1, column 1");
    Row("a number without its exponent", "1e+", "A malformed number at line 1, column 1");
    Row("a byte order mark", "\xEF\xBB\xBFSELECT", "A byte order mark at line 1, column 1");
    Row("a vertical tab", "a\vb", "A control character at line 1, column 2");
    Row("a delete character", "a\x7F", "A control character at line 1, column 2");
    Row("a NUL", QByteArray("a\0b", 3), "A NUL character at line 1, column 2");
    Row("a NUL in a text", QByteArray("'a\0b'", 5), "A NUL character at line 1, column 3");
    Row("the column counts characters", "'é' 'ü' #", "The character # at line 1, column 9");
    Row("the line ends at CR, LF and both", "a\rb\nc\r\n  #", "The character # at line 4, column 3");
  }
  void shouldRefuseWhatServersCouldReadDifferently() {
    QFETCH(QByteArray, Sql);
    QFETCH(QByteArray, Expected);
    QCOMPARE(Message(Sql.toStdString()), Expected);
  }

  void shouldRefuseEachCharacterThatNoSqlHas() {
    for (const char Byte : QByteArray("`\\#@?:~^&|!$]{}\x01\x1B\v")) {
      const QByteArray Outside = Message(std::string("SELECT a ") + Byte);
      QVERIFY2(Outside.contains("column 10"), Outside.constData());
      QCOMPARE(Message(std::string("SELECT 'a ") + Byte + "'"), QByteArray("accepted"));
    }
  }

  void shouldTakeTimeInProportionToTheText() {
    std::string Sql = "SELECT '" + std::string(5'000'000, 'x') + "'";
    for (int I = 0; I < 500'000; ++I) Sql += ", a";
    QElapsedTimer Timer;
    Timer.start();
    QCOMPARE(Tokenize(Sql).size(), std::size_t{3 + 3 * 500'000});
    QVERIFY2(Timer.elapsed() < 5000, qPrintable(QString::number(Timer.elapsed())));
  }
};

QTEST_GUILESS_MAIN(tst_Lexer)
#include "tst_Lexer.moc"
