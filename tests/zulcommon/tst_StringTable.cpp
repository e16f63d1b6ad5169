#include <QFile>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLocale>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include "zulcommon/EZULException.h"
#include "zulcommon/StringTable.h"

using namespace zulcommon;

namespace {

constexpr int ChoiceWidth = 58;

QString Text(std::int32_t Number) {
  return QString::fromStdString(LoadZULResString(Number));
}

// The numbers of the table that is compiled in, as they stand there. Which ones the dialogs load is told by
// tst_NothingForgotten.
QList<std::int32_t> Numbers() {
  QFile Table(":/zul/strings/en.txt");
  if (!Table.open(QIODevice::ReadOnly)) qFatal("There is no table.");
  QList<std::int32_t> Result;
  while (!Table.atEnd()) {
    const QByteArray Line = Table.readLine();
    if (const qsizetype Tab = Line.indexOf('\t'); Tab > 0 && Line[0] != '#') Result << Line.left(Tab).toInt();
  }
  return Result;
}

// The message with which a table is refused; empty when it is taken.
QString Refusal(const QString& FileName) {
  try {
    LoadStringTable(FileName.toStdString());
  } catch (const EZULException& Error) {
    return QString::fromUtf8(Error.what());
  }
  return {};
}

}  // namespace

class tst_StringTable : public QObject {
  Q_OBJECT

 private slots:
  void cleanup();
  void shouldHaveATextForEveryNumber();
  void shouldGiveAPlaceholderForANumberWithoutText();
  void shouldHoldTheTextsThatAreFixed();
  void shouldHoldOnePlaceholderWhereATextIsFormatted();
  void shouldHoldEachNumberOnce();
  void shouldOfferShortAndDifferentChoices_data();
  void shouldOfferShortAndDifferentChoices();
  void shouldLayAHostsTableOverItsOwn();
  void shouldKeepWhatALaterTableDoesNotHold();
  void shouldReadTheFormsThatAFileMayHave();
  void shouldRefuseALineOfAnotherForm_data();
  void shouldRefuseALineOfAnotherForm();
  void shouldRefuseAFileThatCannotBeRead();
  void shouldNameFileAndLineOfAWrongLine_data();
  void shouldNameFileAndLineOfAWrongLine();
  void shouldSpeakEveryBuiltInLanguage();
  void shouldTakeALanguageByItsCode_data();
  void shouldTakeALanguageByItsCode();
  void shouldTakeTheFirstLanguageThatAUserReads();
  void shouldTakeALanguageInPlaceOfWhatWasLaidBefore();
  void shouldTranslateWhatADialogHoldsAsItsOwn();
  void shouldNotTranslateAnotherTextOfThatName();

 private:
  QString FileOf(const QByteArray& Content);

  QTemporaryDir Dir_;
};

QString tst_StringTable::FileOf(const QByteArray& Content) {
  const QString FileName = Dir_.filePath("texts.txt");
  QFile File(FileName);
  if (!File.open(QIODevice::WriteOnly) || File.write(Content) != Content.size()) qFatal("cannot write a test file");
  return FileName;
}

void tst_StringTable::cleanup() {
  ResetStringTable();
}

void tst_StringTable::shouldHaveATextForEveryNumber() {
  for (const std::int32_t Number : Numbers()) {
    const QString Used = Text(Number);
    QVERIFY2(!Used.isEmpty() && !Used.startsWith('#'), qPrintable(QString::number(Number)));
    QCOMPARE(Used, Used.trimmed());
  }
}

void tst_StringTable::shouldGiveAPlaceholderForANumberWithoutText() {
  QCOMPARE(LoadZULResString(1234), std::string("#1234"));
  QCOMPARE(LoadZULResString(0), std::string("#0"));
  QCOMPARE(LoadZULResString(-1), std::string("#-1"));
}

void tst_StringTable::shouldHoldTheTextsThatAreFixed() {
  QCOMPARE(Text(65520), QString("Please Wait"));
  QCOMPARE(Text(65521), QString("Select %s"));
  QCOMPARE(Text(65522), QString("Available %s"));
  QCOMPARE(Text(2000), QString("&OK"));
  QCOMPARE(Text(2001), QString("&Cancel"));
  QCOMPARE(Text(2007), QString("&Find"));
}

void tst_StringTable::shouldHoldOnePlaceholderWhereATextIsFormatted() {
  for (const std::int32_t Number : Numbers()) {
    const bool Formatted = Number == 6023 || Number == 65521 || Number == 65522;
    QCOMPARE(Text(Number).count("%s"), qsizetype{Formatted ? 1 : 0});
    QCOMPARE(Text(Number).count('%'), qsizetype{Formatted ? 1 : 0});
  }
}

void tst_StringTable::shouldHoldEachNumberOnce() {
  QSet<std::int32_t> Seen;
  for (const std::int32_t Number : Numbers()) {
    QVERIFY2(!Seen.contains(Number), qPrintable(QString::number(Number)));
    Seen.insert(Number);
  }
  QVERIFY(!Seen.isEmpty());
}

void tst_StringTable::shouldOfferShortAndDifferentChoices_data() {
  QTest::addColumn<QList<int>>("Choices");
  QTest::newRow("city") << QList<int>{3059};
  QTest::newRow("cost centre") << QList<int>{3004, 3007};
  QTest::newRow("cutting location") << QList<int>{3156};
  QTest::newRow("entity") << QList<int>{3006, 3007};
  QTest::newRow("finance rate") << QList<int>{3192};
  QTest::newRow("GST rate") << QList<int>{3127, 3128};
  QTest::newRow("item category") << QList<int>{3248, 3007};
  QTest::newRow("item class") << QList<int>{3145, 3007};
  QTest::newRow("job") << QList<int>{3000, 3001};
  QTest::newRow("state") << QList<int>{3223};
  QTest::newRow("suburb") << QList<int>{3200};
  QTest::newRow("period") << QList<int>{3054, 3055, 3056};
  QTest::newRow("departments") << QList<int>{3210};
  QTest::newRow("users") << QList<int>{3013, 3014};
  QTest::newRow("sales person") << QList<int>{3025, 3019, 3020};
  QTest::newRow("customer") << QList<int>{3026, 3028, 3027, 3043, 3045};
  QTest::newRow("vendor") << QList<int>{3015, 3016, 3017, 3041, 3165};
  QTest::newRow("contact e-mail") << QList<int>{3119, 3121, 3163};
  QTest::newRow("vendor e-mail") << QList<int>{3015, 3016, 3030};
  QTest::newRow("order-entry document") << QList<int>{3027, 3147, 3000, 3001, 3021, 3002};
  QTest::newRow("order-entry job") << QList<int>{3000, 3001, 3022, 3021};
  QTest::newRow("receivable invoice") << QList<int>{3036, 3079, 3002, 3007, 3003};
  QTest::newRow("booking") << QList<int>{3015, 3152, 3026, 3027, 32, 33, 3021, 3000};
  QTest::newRow("purchase order") << QList<int>{3035, 3002, 3069, 3021, 3147, 3000, 3027};
  QTest::newRow("customer purchase order") << QList<int>{3035, 3002, 3069, 3021, 3147, 3027};
  QTest::newRow("customer with purchase order") << QList<int>{3026, 3027, 3043, 3045};
  QTest::newRow("document with purchase order") << QList<int>{3026, 3027, 3021, 3022, 3025, 3002};
  QTest::newRow("stock purchase order") << QList<int>{3035, 3002, 3016};
  QTest::newRow("purchase-order extras") << QList<int>{3119, 3007};
  QTest::newRow("item and location") << QList<int>{3008, 3247, 3007, 3089, 3114, 3115};
  QTest::newRow("item location") << QList<int>{3247, 3115};
  QTest::newRow("location") << QList<int>{3119, 3131, 3247};
  QTest::newRow("item cost") << QList<int>{3131, 3002, 3087, 3234, 3233};
  QTest::newRow("kit detail") << QList<int>{3008, 3007};
  QTest::newRow("EFT batch") << QList<int>{3079, 3007, 3209};
  QTest::newRow("posted batch") << QList<int>{3079, 3054, 3007, 3139};
  QTest::newRow("posted cheque batch") << QList<int>{3079, 3002, 3007};
}

void tst_StringTable::shouldOfferShortAndDifferentChoices() {
  QFETCH(QList<int>, Choices);
  QFont Font("Arial");
  Font.setPixelSize(11);
  const QString Family = QFontInfo(Font).family();
  if (Family != "Arial" && Family != "Liberation Sans") QSKIP("no font with the widths of Arial is installed");

  QSet<QString> Seen;
  for (const int Number : Choices) {
    const QString Choice = Text(Number);
    QVERIFY2(!Seen.contains(Choice), qPrintable(Choice));
    Seen.insert(Choice);
    QVERIFY2(QFontMetrics(Font).horizontalAdvance(Choice) <= ChoiceWidth, qPrintable(Choice));
  }
}

void tst_StringTable::shouldLayAHostsTableOverItsOwn() {
  const QString Untouched = Text(2000);
  LoadStringTable(FileOf("# Swiss German\n2001\tAbbräche\n\n9001\tNeu\n").toStdString());
  QCOMPARE(Text(2001), QString("Abbräche"));
  QCOMPARE(Text(9001), QString("Neu"));
  QCOMPARE(Text(2000), Untouched);

  ResetStringTable();
  QCOMPARE(Text(2001), QString("&Cancel"));
  QCOMPARE(Text(9001), QString("#9001"));
}

void tst_StringTable::shouldKeepWhatALaterTableDoesNotHold() {
  LoadStringTable(FileOf("1\tone\n2\ttwo\n").toStdString());
  LoadStringTable(FileOf("2\tzwei\n").toStdString());
  QCOMPARE(Text(1), QString("one"));
  QCOMPARE(Text(2), QString("zwei"));
}

void tst_StringTable::shouldReadTheFormsThatAFileMayHave() {
  LoadStringTable(FileOf("\xEF\xBB\xBF"
                         "1\ta\\nb\\tc\\\\d\r\n#2\tno\r\n\r\n3\t two\ttabs \n4\tlast # line")
                      .toStdString());
  QCOMPARE(Text(1), QString("a\nb\tc\\d"));
  QVERIFY(Text(2) != "no");
  QCOMPARE(Text(3), QString(" two\ttabs "));
  QCOMPARE(Text(4), QString("last # line"));
  LoadStringTable(FileOf("").toStdString());
  QCOMPARE(Text(4), QString("last # line"));
}

void tst_StringTable::shouldRefuseALineOfAnotherForm_data() {
  QTest::addColumn<QByteArray>("Line");
  QTest::newRow("no tab") << QByteArray("2000 OK");
  QTest::newRow("no number") << QByteArray("\tOK");
  QTest::newRow("a word for a number") << QByteArray("OK\t2000");
  QTest::newRow("blank before the number") << QByteArray(" 2000\tOK");
  QTest::newRow("number of too many bits") << QByteArray("99999999999\tOK");
  QTest::newRow("number alone") << QByteArray("2000");
  QTest::newRow("no text") << QByteArray("2000\t");
  QTest::newRow("unknown escape") << QByteArray("2000\ta\\x");
  QTest::newRow("backslash at the end") << QByteArray("2000\ta\\");
  QTest::newRow("blank line that is not empty") << QByteArray(" ");
  QTest::newRow("Latin-1") << QByteArray("2000\t\xE9t\xE9");
  QTest::newRow("UTF-8 cut off") << QByteArray("2000\ta\xC3");
}

void tst_StringTable::shouldRefuseALineOfAnotherForm() {
  QFETCH(QByteArray, Line);
  const QString FileName = FileOf("2001\tNo\n# note\n" + Line + "\n2007\tSeek\n");
  const QString Message = Refusal(FileName);
  QVERIFY2(Message.contains(FileName), qPrintable(Message));
  QVERIFY2(Message.contains("line 3"), qPrintable(Message));
  QCOMPARE(Text(2000), QString("&OK"));
  QCOMPARE(Text(2001), QString("&Cancel"));
  QCOMPARE(Text(2007), QString("&Find"));
}

void tst_StringTable::shouldRefuseAFileThatCannotBeRead() {
  const QString Missing = Dir_.filePath("missing.txt");
  QVERIFY(Refusal(Missing).contains(Missing));
  QVERIFY(Refusal(Dir_.path()).contains(Dir_.path()));
  QVERIFY(!Refusal("").isEmpty());
  QCOMPARE(Text(2001), QString("&Cancel"));
}

void tst_StringTable::shouldNameFileAndLineOfAWrongLine_data() {
  QTest::addColumn<QByteArray>("Line");
  QTest::addColumn<QString>("Why");
  QTest::newRow("no tab") << QByteArray("2000 OK") << "there is no tab between a number or name and its text.";
  QTest::newRow("word") << QByteArray("OK\t2000")
                        << "\"OK\" is neither a number nor a name such as ckbInactive.Caption.";
  QTest::newRow("number and more") << QByteArray("20a.b\tOK")
                                   << "\"20a.b\" is neither a number nor a name such as ckbInactive.Caption.";
  QTest::newRow("point at the end") << QByteArray("ckbZero.\tOK")
                                    << "\"ckbZero.\" is neither a number nor a name such as ckbInactive.Caption.";
  QTest::newRow("no text") << QByteArray("ckbZero.Caption\t") << "the text is missing.";
  QTest::newRow("escape") << QByteArray("2000\ta\\x") << "a backslash stands before n, t or another backslash only.";
  QTest::newRow("Latin-1") << QByteArray("2000\t\xE9") << "that is not UTF-8.";
}

void tst_StringTable::shouldNameFileAndLineOfAWrongLine() {
  QFETCH(const QByteArray, Line);
  QFETCH(const QString, Why);
  const QString FileName = FileOf("ckbZero.Caption\tNil\n\n# note\n" + Line + "\n");
  QCOMPARE(Refusal(FileName), FileName + ", line 4: " + Why);
  QCOMPARE(Translated("frmPickPO.ckbZero.Caption", "Zero Onhand"), std::string("Zero Onhand"));
}

void tst_StringTable::shouldSpeakEveryBuiltInLanguage() {
  QCOMPARE(BuiltInLanguages(), (std::vector<std::string>{"de", "en"}));
  QVERIFY(UseLanguage("de"));
  for (const std::int32_t Number : Numbers()) {
    QVERIFY2(!Text(Number).startsWith('#'), qPrintable(QString::number(Number)));
    QCOMPARE(Text(Number), Text(Number).trimmed());
  }
  QCOMPARE(Text(27), QString("Kunde"));
  QCOMPARE(Text(2001), QString("&Abbrechen"));
  QCOMPARE(Translated("frmPickPO.ckbZero.Caption", "Zero Onhand"), std::string("Nullbestand"));
  QVERIFY(UseLanguage("en"));
  QCOMPARE(Text(27), QString("Customer"));
  QCOMPARE(Translated("frmPickPO.ckbZero.Caption", "Zero Onhand"), std::string("Zero Onhand"));
}

void tst_StringTable::shouldTakeALanguageByItsCode_data() {
  QTest::addColumn<QString>("Code");
  QTest::addColumn<bool>("IsKnown");
  for (const char* Code : {"de", "DE", "de-AT", "de_CH", "de_DE.UTF-8", "de@euro"}) QTest::newRow(Code) << Code << true;
  for (const char* Code : {"", "fr", "d", "deu", "../en", "system", "-de"}) {
    QTest::addRow("\"%s\"", Code) << Code << false;
  }
}

void tst_StringTable::shouldTakeALanguageByItsCode() {
  QFETCH(const QString, Code);
  QFETCH(const bool, IsKnown);
  QCOMPARE(UseLanguage(Code.toStdString()), IsKnown);
  QCOMPARE(Text(27), QString(IsKnown ? "Kunde" : "Customer"));
}

void tst_StringTable::shouldTakeTheFirstLanguageThatAUserReads() {
  QVERIFY(UseLanguageOf(QLocale(QLocale::German, QLocale::Austria)));
  QCOMPARE(Text(27), QString("Kunde"));
  QVERIFY(!UseLanguageOf(QLocale(QLocale::French, QLocale::France)));
  QCOMPARE(Text(27), QString("Kunde"));
  QVERIFY(UseLanguageOf(QLocale(QLocale::English, QLocale::Australia)));
  QCOMPARE(Text(27), QString("Customer"));
  QVERIFY(!UseLanguageOf(QLocale::c()));
}

void tst_StringTable::shouldTakeALanguageInPlaceOfWhatWasLaidBefore() {
  LoadStringTable(FileOf("27\tGuest\n9001\tNew\nckbNew.Caption\tOwn\n").toStdString());
  QCOMPARE(Translated("frmPickPO.ckbNew.Caption", "Of ours"), std::string("Own"));
  QVERIFY(UseLanguage("de"));
  QCOMPARE(Text(27), QString("Kunde"));
  QCOMPARE(Text(9001), QString("#9001"));
  QCOMPARE(Translated("frmPickPO.ckbNew.Caption", "Of ours"), std::string("Of ours"));
  LoadStringTable(FileOf("27\tGast\n").toStdString());
  QCOMPARE(Text(27), QString("Gast"));
  QCOMPARE(Text(29), QString("Lieferant"));
}

void tst_StringTable::shouldTranslateWhatADialogHoldsAsItsOwn() {
  QCOMPARE(Translated("frmPickPO.ckbNew.Caption", "Of ours"), std::string("Of ours"));
  LoadStringTable(FileOf("ckbNew.Caption\tAll\nfrmPickPO.ckbNew.Caption\tOne\\nonly\n").toStdString());
  QCOMPARE(Translated("frmPickCity.ckbNew.Caption", "Of ours"), std::string("All"));
  QCOMPARE(Translated("frmPickPO.ckbNew.Caption", "Of ours"), std::string("One\nonly"));
  QCOMPARE(Translated("ckbNew.Caption", "Of ours"), std::string("All"));
  QCOMPARE(Translated("ckbOther.Caption", "Of ours"), std::string("Of ours"));
  QCOMPARE(Translated("", "Of ours"), std::string("Of ours"));
}

void tst_StringTable::shouldNotTranslateAnotherTextOfThatName() {
  QVERIFY(UseLanguage("de"));
  QCOMPARE(Translated("frmPickPO.ckbInactive.Caption", "Inactive"), std::string("Inaktive"));
  QCOMPARE(Translated("frmPickPO.ckbInactive.Caption", "Sleeping"), std::string("Sleeping"));
}

QTEST_MAIN(tst_StringTable)
#include "tst_StringTable.moc"
