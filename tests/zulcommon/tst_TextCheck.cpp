#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "zulcommon/EZULException.h"
#include "zulcommon/TextCheck.h"

namespace {

// Ten pixels a character, twelve in bold.
int WidthOf(const std::string& Text, bool Bold) {
  return static_cast<int>(QString::fromStdString(Text).size()) * (Bold ? 12 : 10);
}

QByteArray WholeEnglish() {
  QByteArray All;
  for (const char* Name : {":/zul/strings/en.txt", ":/zul/strings/en.names.txt"}) {
    QFile File(Name);
    if (!File.open(QIODevice::ReadOnly)) qFatal("no English texts");
    All += File.readAll();
  }
  return All;
}

}  // namespace

class tst_TextCheck : public QObject {
  Q_OBJECT

  QTemporaryDir Dir_;

  // The findings, each as "12: what".
  QStringList Findings(const QByteArray& Content) {
    const QString FileName = Dir_.filePath("texts.txt");
    QFile File(FileName);
    if (!File.open(QIODevice::WriteOnly) || File.write(Content) != Content.size()) qFatal("cannot write a test file");
    File.close();
    QStringList Result;
    for (const zulcommon::TTextFinding& Each : zulcommon::CheckTexts(FileName.toStdString(), WidthOf)) {
      Result += QString::number(Each.Line) + ": " + QString::fromStdString(Each.Message);
    }
    return Result;
  }

 private slots:
  void shouldFindNothingInEnglish();
  void shouldTellWhatIsMissing();
  void shouldTellWhatIsWrongInALine_data();
  void shouldTellWhatIsWrongInALine();
  void shouldTakeMarkedLettersThatDiffer();
  void shouldTellALetterThatIsMarkedTwice();
  void shouldMeasureATextWhereItStands();
  void shouldKnowADialogsOwnText();
  void shouldRefuseAFileThatCannotBeRead();
};

void tst_TextCheck::shouldFindNothingInEnglish() {
  QCOMPARE(Findings(WholeEnglish()), QStringList());
}

void tst_TextCheck::shouldTellWhatIsMissing() {
  const QByteArray All = WholeEnglish();
  QCOMPARE(Findings(QByteArray(All).replace("\n2000\t&OK\n", "\n").replace("mniAll.Caption\tAll\n", "")),
           (QStringList{"0: 2000 (\"&OK\") is missing.", "0: mniAll.Caption (\"All\") is missing."}));
  const QStringList None = Findings("");
  QCOMPARE(None.size(), All.count('\t'));
  QVERIFY(None.contains("0: 27 (\"Customer\") is missing."));
}

void tst_TextCheck::shouldTellWhatIsWrongInALine_data() {
  QTest::addColumn<QByteArray>("Line");
  QTest::addColumn<QString>("Finding");
  QTest::newRow("form") << QByteArray("Customer") << "there is no tab between a number or name and its text.";
  QTest::newRow("number") << QByteArray("9999\tNew") << "there is no text of the number 9999.";
  QTest::newRow("name") << QByteArray("ckbNew.Caption\tNew") << "there is no text called ckbNew.Caption.";
  QTest::newRow("twice") << QByteArray("6097\tNo number.") << "6097 stands in line 1 already.";
  QTest::newRow("no format mark") << QByteArray("6023\tNo date.")
                                  << "\"No date.\" has no mark where English has \"%s\".";
  QTest::newRow("other format mark") << QByteArray("65521\t%d") << "\"%d\" has \"%d\" where English has \"%s\".";
  QTest::newRow("too many of them") << QByteArray("lblRows.Rows\t%s of %s")
                                    << "\"%s of %s\" has \"%s %s\" where English has \"%s\".";
  QTest::newRow("no letter") << QByteArray("2000\tOK") << "\"OK\" must have one letter marked by \"&\", as \"&OK\".";
  QTest::newRow("two letters") << QByteArray("2000\t&O&K")
                               << "\"&O&K\" must have one letter marked by \"&\", as \"&OK\".";
  QTest::newRow("a letter too many") << QByteArray("27\t&Guest")
                                     << "\"&Guest\" must have no letter marked by \"&\", as \"Customer\".";
}

void tst_TextCheck::shouldTellWhatIsWrongInALine() {
  QFETCH(const QByteArray, Line);
  QFETCH(const QString, Finding);
  QStringList All = Findings("6097\tNo number.\n# note\n" + Line + "\n");
  All.removeIf([](const QString& Each) { return Each.startsWith("0: "); });
  QCOMPARE(All, QStringList{"3: " + Finding});
}

void tst_TextCheck::shouldTakeMarkedLettersThatDiffer() {
  const QStringList All = Findings("2000\tO&K\n2001\t&\xC3\x84. && a\n27\tKunden && mehr\n3194\t100 % d. S.\n");
  for (const QString& Each : All) QVERIFY2(Each.startsWith("0: "), qPrintable(Each));
}

void tst_TextCheck::shouldTellALetterThatIsMarkedTwice() {
  QVERIFY(Findings("2000\t&OK\n5034\tm&ore\n")
              .contains("2: the letter O of \"m&ore\" is marked in 2000 too, which stands in the same dialogs."));
}

// Each with the widths of the English table: 60 pixels for a choice, a title in bold, a caption around a subject.
void tst_TextCheck::shouldMeasureATextWhereItStands() {
  QStringList All = Findings("3003\tseven77\n3021\tfive5fiv\n65522\t%s to be had\n366\tCi\n");
  All.removeIf([](const QString& Each) { return Each.startsWith("0: "); });
  QCOMPARE(All, (QStringList{"1: \"seven77\" takes 70 pixels, there are 60."}));
  All = Findings("65522\t%s to be had in the whole country\n366\tCities\n");
  QVERIFY2(All.first().startsWith("2: \"Cities to be had in the whole country\" takes 370 pixels, there are "),
           qPrintable(All.first()));
}

void tst_TextCheck::shouldKnowADialogsOwnText() {
  const QStringList All = Findings("frmPickPO.ckbInactive.Caption\tfar too long for it\n");
  QVERIFY2(All.first().startsWith("1: \"far too long for it\" takes 190 pixels, there are "), qPrintable(All.first()));
}

void tst_TextCheck::shouldRefuseAFileThatCannotBeRead() {
  QVERIFY_THROWS_EXCEPTION(zulcommon::EZULException, zulcommon::CheckTexts("/nowhere/texts.txt", WidthOf));
}

QTEST_MAIN(tst_TextCheck)
#include "tst_TextCheck.moc"
