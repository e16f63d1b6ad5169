#include <QLocale>
#include <QTest>
#include <atomic>
#include <thread>

#include "zulcommon/Text.h"

using namespace zulcommon;

namespace {

constexpr char32_t LastChar = 0x10FFFF;

bool IsSurrogate(char32_t Char) {
  return Char >= 0xD800 && Char <= 0xDFFF;
}

std::string Utf8(char32_t Char) {
  return QString::fromUcs4(&Char, 1).toStdString();
}

// Upper case by another way: the whole text through Qt.
std::string ByQt(const std::string& Text) {
  return QString::fromStdString(Text).toUpper().toStdString();
}

}  // namespace

class tst_Text : public QObject {
  Q_OBJECT

 private slots:
  void cleanup();
  void shouldUpperCaseAsciiOfEveryLength();
  void shouldUpperCaseEveryCharacterByUnicode();
  void shouldUpperCaseByTheFullMapping_data();
  void shouldUpperCaseByTheFullMapping();
  void shouldKeepBytesThatAreNoUtf8_data();
  void shouldKeepBytesThatAreNoUtf8();
  void shouldTellBytesThatAreNoUtf8_data();
  void shouldTellBytesThatAreNoUtf8();
  void shouldTakeEveryCharacterForUtf8();
  void shouldUpperCaseJoinedTextsLikeThePieces();
  void shouldGrowToThreeTimesTheLength();
  void shouldUpperCaseTheSameInEveryLocale();
  void shouldUpperCaseInSeveralThreads();
  void shouldAppendToWhatIsThere();
  void shouldTrimBlanksAndControlCharacters_data();
  void shouldTrimBlanksAndControlCharacters();
  void shouldCompareIdentifiersWithoutCase();
  void shouldFormatText_data();
  void shouldFormatText();
};

void tst_Text::cleanup() {
  QLocale::setDefault(QLocale::system());
}

void tst_Text::shouldUpperCaseAsciiOfEveryLength() {
  std::string Text;
  std::string Expected;
  for (int Length = 0; Length < 300; ++Length) {
    QCOMPARE(UpperCase(Text), Expected);
    const char C = static_cast<char>(Length % 128);
    Text += C;
    Expected += C >= 'a' && C <= 'z' ? static_cast<char>(C - 32) : C;
  }
}

void tst_Text::shouldUpperCaseEveryCharacterByUnicode() {
  for (char32_t Char = 0; Char <= LastChar; ++Char) {
    if (IsSurrogate(Char)) continue;
    const std::string Text = Utf8(Char);
    if (UpperCase(Text) != ByQt(Text)) QFAIL(qPrintable(QString("U+%1").arg(static_cast<uint>(Char), 0, 16)));
  }
}

void tst_Text::shouldUpperCaseByTheFullMapping_data() {
  QTest::addColumn<QString>("Text");
  QTest::addColumn<QString>("Upper");
  QTest::newRow("empty") << ""
                         << "";
  QTest::newRow("accented") << "Café Zürich"
                            << "CAFÉ ZÜRICH";
  QTest::newRow("sharp s") << "Straße"
                           << "STRASSE";
  QTest::newRow("ligature") << "ﬁx"
                            << "FIX";
  QTest::newRow("Greek") << "Οδυσσεύς"
                         << "ΟΔΥΣΣΕΎΣ";
  QTest::newRow("two bytes that become six") << "\u0390"
                                             << "\u0399\u0308\u0301";
  QTest::newRow("two bytes that become one") << "ıſ"
                                             << "IS";
  QTest::newRow("Cyrillic") << "мир"
                            << "МИР";
  QTest::newRow("beyond 16 bits") << "𐐨"
                                  << "𐐀";
  QTest::newRow("no case") << "東京 ١٢٣ 👍"
                           << "東京 ١٢٣ 👍";
  QTest::newRow("upper already") << "ÄÖÜ ABC"
                                 << "ÄÖÜ ABC";
}

void tst_Text::shouldUpperCaseByTheFullMapping() {
  QFETCH(QString, Text);
  QFETCH(QString, Upper);
  QCOMPARE(QString::fromStdString(UpperCase(Text.toStdString())), Upper);
}

void tst_Text::shouldKeepBytesThatAreNoUtf8_data() {
  QTest::addColumn<QByteArray>("Bytes");
  QTest::newRow("lonely continuation") << QByteArray("\x80");
  QTest::newRow("lead without the rest") << QByteArray("\xC3");
  QTest::newRow("three-byte lead cut off") << QByteArray("\xE2\x82");
  QTest::newRow("four-byte lead cut off") << QByteArray("\xF0\x90\x90");
  QTest::newRow("Latin-1") << QByteArray("\xE9\xFC\xDF");
  QTest::newRow("overlong a in two") << QByteArray("\xC1\xA1");
  QTest::newRow("overlong a in three") << QByteArray("\xE0\x81\xA1");
  QTest::newRow("overlong e acute in three") << QByteArray("\xE0\x83\xA9");
  QTest::newRow("overlong a in four") << QByteArray("\xF0\x80\x81\xA1");
  QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80");
  QTest::newRow("above the last character") << QByteArray("\xF4\x90\x80\x80");
  QTest::newRow("never a lead") << QByteArray("\xF8\xFE\xFF");
}

void tst_Text::shouldKeepBytesThatAreNoUtf8() {
  QFETCH(QByteArray, Bytes);
  const std::string Kept = Bytes.toStdString();
  QCOMPARE(UpperCase(Kept), Kept);
  QCOMPARE(UpperCase("ab" + Kept + "éz"), "AB" + Kept + "ÉZ");
}

void tst_Text::shouldTellBytesThatAreNoUtf8_data() {
  shouldKeepBytesThatAreNoUtf8_data();
}

void tst_Text::shouldTellBytesThatAreNoUtf8() {
  QFETCH(QByteArray, Bytes);
  const std::string Text = Bytes.toStdString();
  QVERIFY(!IsUtf8(Text));
  QVERIFY(!IsUtf8("ab\xC3\xA9" + Text));
  QVERIFY(!IsUtf8(Text + "ab"));
}

void tst_Text::shouldTakeEveryCharacterForUtf8() {
  QVERIFY(IsUtf8(""));
  for (char32_t Char = 0; Char <= LastChar; ++Char) {
    if (!IsSurrogate(Char)) QVERIFY2(IsUtf8("a" + Utf8(Char) + "b"), qPrintable(QString::number(Char, 16)));
  }
}

void tst_Text::shouldUpperCaseJoinedTextsLikeThePieces() {
  const std::vector<std::string> Pieces = {"",  "a",      "ß", "é", "e\u0301", "\u0301", "\u0345", "ς",  "σ",
                                           "ﬁ", "\u0390", "i", "İ", "ŉ",       "ᾷ",      "ა",      "東", "𐐨"};
  for (const std::string& First : Pieces) {
    for (const std::string& Second : Pieces) QCOMPARE(UpperCase(First + Second), UpperCase(First) + UpperCase(Second));
  }
}

void tst_Text::shouldGrowToThreeTimesTheLength() {
  std::string Text;
  std::string Expected;
  for (int Count = 0; Count < 1000; ++Count) {
    Text += "\u0390";
    Expected += "\u0399\u0308\u0301";
  }
  QCOMPARE(Expected.size(), 3 * Text.size());
  QCOMPARE(UpperCase(Text), Expected);
}

void tst_Text::shouldUpperCaseTheSameInEveryLocale() {
  for (const char* const Name : {"tr_TR", "az_AZ", "lt_LT", "el_GR", "nl_NL", "C"}) {
    QLocale::setDefault(QLocale(Name));
    QCOMPARE(UpperCase("iıß i\u0307"), std::string("IISS I\u0307"));
  }
}

void tst_Text::shouldUpperCaseInSeveralThreads() {
  std::atomic<int> Right = 0;
  std::vector<std::thread> Threads;
  for (int Count = 0; Count < 8; ++Count) {
    Threads.emplace_back([&Right] { Right += UpperCase("öäü") == "ÖÄÜ" ? 1 : 0; });
  }
  for (std::thread& Thread : Threads) Thread.join();
  QCOMPARE(Right.load(), 8);
}

void tst_Text::shouldAppendToWhatIsThere() {
  std::string Out = "kept ";
  AppendUpperCase(Out, "one ");
  AppendUpperCase(Out, "straße ");
  AppendUpperCase(Out, "");
  AppendUpperCase(Out, "two");
  QCOMPARE(Out, std::string("kept ONE STRASSE TWO"));
}

void tst_Text::shouldTrimBlanksAndControlCharacters_data() {
  QTest::addColumn<QString>("Text");
  QTest::addColumn<QString>("Trimmed");
  QTest::newRow("empty") << ""
                         << "";
  QTest::newRow("blanks only") << " \t\r\n "
                               << "";
  QTest::newRow("both ends") << "  a b \t"
                             << "a b";
  QTest::newRow("control characters") << "\x01\x1F"
                                         "a\x02"
                                      << "a";
  QTest::newRow("nothing to do") << "a"
                                 << "a";
  QTest::newRow("letters beyond ASCII") << " é "
                                        << "é";
  QTest::newRow("no-break space is no blank") << "\u00A0a"
                                              << "\u00A0a";
}

void tst_Text::shouldTrimBlanksAndControlCharacters() {
  QFETCH(QString, Text);
  QFETCH(QString, Trimmed);
  const std::string Utf8Text = Text.toStdString();
  QCOMPARE(QString::fromStdString(std::string(Trim(Utf8Text))), Trimmed);
}

void tst_Text::shouldCompareIdentifiersWithoutCase() {
  QVERIFY(SameText("SortFld", "SORTFLD"));
  QVERIFY(SameText("", ""));
  QVERIFY(!SameText("a", "ab"));
  QVERIFY(!SameText("ab", "a"));
  QVERIFY(!SameText("a@[`{", "a`{@["));
  QVERIFY(SameText("é1", "é1"));
  QVERIFY(!SameText("é", "É"));
}

void tst_Text::shouldFormatText_data() {
  QTest::addColumn<QString>("Format");
  QTest::addColumn<QStringList>("Args");
  QTest::addColumn<QString>("Text");
  QTest::newRow("one") << "Select %s" << QStringList{"City"} << "Select City";
  QTest::newRow("two in order") << " for %s - %s" << QStringList{"A", "B"} << " for A - B";
  QTest::newRow("percent signs") << "LIKE '%%%s%%'" << QStringList{"AB"} << "LIKE '%AB%'";
  QTest::newRow("percent before s") << "100 %%s" << QStringList{"x"} << "100 %s";
  QTest::newRow("too few") << "%s and %s" << QStringList{"one"} << "one and %s";
  QTest::newRow("too many") << "%s" << QStringList{"one", "two"} << "one";
  QTest::newRow("placeholder in an argument") << "%s%s" << QStringList{"%s", "%%"} << "%s%%";
  QTest::newRow("other letters") << "%d %" << QStringList{"x"} << "%d %";
  QTest::newRow("empty") << "" << QStringList{"x"} << "";
}

void tst_Text::shouldFormatText() {
  QFETCH(QString, Format);
  QFETCH(QStringList, Args);
  QFETCH(QString, Text);
  std::vector<std::string> Utf8Args;
  for (const QString& Arg : Args) Utf8Args.push_back(Arg.toStdString());
  QCOMPARE(QString::fromStdString(FormatText(Format.toStdString(), Utf8Args)), Text);
}

QTEST_GUILESS_MAIN(tst_Text)
#include "tst_Text.moc"
