#include "apps/command/CommandLine.h"

#include <QLocale>
#include <QTest>
#include <functional>

#include "apps/command/Help.h"
#include "zulcommon/DisplayFormats.h"
#include "zulcommon/StringTable.h"

using catalog::TArg;
using catalog::TArgs;
using catalog::TCatalog;
using command::ApplyTexts;
using command::EUsage;
using command::ReadCommandLine;
using command::TCommandLine;

namespace {

catalog::TPick Pick(const std::string& Name, std::vector<TArg> Args) {
  return {Name, "uPick::CallPick", "Something", std::move(Args),
          [](ads::TAdsConnection*, const TArgs&) { return catalog::TResult{}; }};
}

const TCatalog& Catalog() {
  static const TCatalog Result = [] {
    TCatalog Picks;
    Picks.StartGroup("Group");
    Picks.Add(Pick("city", {}));
    Picks.Add(Pick("customer", {catalog::InOutArg("customer", "The customer so far"),
                                catalog::BooleanArg("inactive", "Inactive ones too", true),
                                catalog::ChoicesArg("states", "Which", {"open", "posted"})}));
    return Picks;
  }();
  return Result;
}

TCommandLine Read(const std::vector<std::string>& Words) {
  return ReadCommandLine(Catalog(), Words);
}

}  // namespace

class tst_CommandLine : public QObject {
  Q_OBJECT
 private slots:
  void init() { qunsetenv("ZUL_DB"); }
  void shouldReadCommonOptionsAnywhere();
  void shouldReadTheOptionsOfAPick();
  void shouldTakeTheEnvironmentsDatabaseUnlessOneIsGiven();
  void shouldExplainWhatIsWrong_data();
  void shouldExplainWhatIsWrong();
  void shouldSetTheDatePattern();
  void shouldRefuseATextTableThatIsNotThere();
  void shouldTakeTheLanguage();
  void shouldListEveryOption();
};

void tst_CommandLine::shouldReadCommonOptionsAnywhere() {
  const TCommandLine Line = Read({"--db", "a b.db", "city", "--strings=de.txt", "--date-format", "dd/mm/yyyy"});
  QCOMPARE(Line.Database, std::string("a b.db"));
  QCOMPARE(Line.StringTable, std::string("de.txt"));
  QCOMPARE(Line.DateFormat, std::string("dd/mm/yyyy"));
  QCOMPARE(Line.Pick, Catalog().Find("city"));
  QVERIFY(!Line.List && !Line.Help);
  QVERIFY(Read({"--list"}).List);
  QVERIFY(Read({"city", "-h"}).Help);
  QVERIFY(Read({}).Pick == nullptr);
}

void tst_CommandLine::shouldReadTheOptionsOfAPick() {
  const TCommandLine Line = Read({"customer", "--customer=--odd", "--inactive=no", "--states", "posted,open"});
  QCOMPARE(Line.Args->Text("customer"), std::string("--odd"));
  QCOMPARE(Line.Args->Boolean("inactive"), false);
  QCOMPARE(Line.Args->Choices("states"), (std::vector<int>{0, 1}));
  QCOMPARE(Read({"customer", "--customer", "-"}).Args->Text("customer"), std::string("-"));
  QCOMPARE(Read({"customer", "--customer="}).Args->Text("customer"), std::string());
  QVERIFY(Read({"customer", "--inactive"}).Args->Boolean("inactive"));
}

void tst_CommandLine::shouldTakeTheEnvironmentsDatabaseUnlessOneIsGiven() {
  qputenv("ZUL_DB", "from the environment");
  QCOMPARE(Read({"city"}).Database, std::string("from the environment"));
  QCOMPARE(Read({"city", "--db=given"}).Database, std::string("given"));
}

void tst_CommandLine::shouldExplainWhatIsWrong_data() {
  QTest::addColumn<QStringList>("Words");
  QTest::addColumn<QString>("Message");
  const auto Row = [](const QStringList& Words, const char* Message) {
    QTest::newRow(qPrintable(Words.join(' '))) << Words << QString::fromLatin1(Message);
  };
  Row({"sity"}, "There is no pick \"sity\". Did you mean city?");
  Row({"xxxxxx"}, "There is no pick \"xxxxxx\".");
  Row({"city", "state"}, "Nothing is known to do with \"state\": one pick at a time.");
  Row({"city", "--inactive"}, "There is no option --inactive of the pick city.");
  Row({"customer", "--inactiv"}, "There is no option --inactiv of the pick customer. Did you mean --inactive?");
  Row({"customer", "-i"}, "There is no option -i of the pick customer.");
  Row({"--inactive", "customer"}, "There is no option --inactive in front of a pick's name.");
  Row({"city", "--db"}, "The option --db needs a value: --db=VALUE.");
  Row({"customer", "--customer", "--inactive"}, "The option --customer needs a value: --customer=VALUE.");
  Row({"--db=a", "city", "--db=b"}, "The option --db is given twice.");
  Row({"customer", "--inactive", "--inactive=no"}, "The option --inactive is given twice.");
  Row({"customer", "--inactive=maybe"}, "\"maybe\" is no value for inactive: it is yes or no.");
  Row({"customer", "--states=shut"}, "\"shut\" is no value for states: it is any of open, posted.");
  Row({"--list=yes"}, "The option --list takes no value.");
}

void tst_CommandLine::shouldExplainWhatIsWrong() {
  QFETCH(const QStringList, Words);
  QFETCH(const QString, Message);
  std::vector<std::string> Given;
  for (const QString& Word : Words) Given.push_back(Word.toStdString());
  try {
    Read(Given);
    QFAIL("nothing is found to be wrong");
  } catch (const EUsage& Error) {
    QCOMPARE(QString::fromUtf8(Error.what()), Message);
  }
}

void tst_CommandLine::shouldSetTheDatePattern() {
  ApplyTexts(Read({"--date-format=d.m.yyyy"}));
  QCOMPARE(zulcommon::ShortDateFormat(), std::string("d.m.yyyy"));
  QVERIFY_THROWS_EXCEPTION(EUsage, ApplyTexts(Read({"--date-format=today"})));
  QCOMPARE(zulcommon::ShortDateFormat(), std::string("d.m.yyyy"));
  zulcommon::SetShortDateFormat("");
}

void tst_CommandLine::shouldRefuseATextTableThatIsNotThere() {
  QVERIFY_THROWS_EXCEPTION(EUsage, ApplyTexts(Read({"--strings=/nowhere/strings.txt"})));
}

void tst_CommandLine::shouldTakeTheLanguage() {
  const QLocale Before;
  ApplyTexts(Read({"--language", "de"}));
  QCOMPARE(zulcommon::LoadZULResString(27), std::string("Kunde"));
  QLocale::setDefault(QLocale(QLocale::English, QLocale::Australia));
  ApplyTexts(Read({"--language=system"}));
  QCOMPARE(zulcommon::LoadZULResString(27), std::string("Customer"));
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  ApplyTexts(Read({}));
  QCOMPARE(zulcommon::LoadZULResString(27), std::string("Customer"));
  ApplyTexts(Read({"--language=system"}));
  QCOMPARE(zulcommon::LoadZULResString(27), std::string("Kunde"));
  QVERIFY_THROWS_EXCEPTION(EUsage, ApplyTexts(Read({"--language=tlh"})));
  QLocale::setDefault(Before);
  zulcommon::ResetStringTable();
}

void tst_CommandLine::shouldListEveryOption() {
  QCOMPARE(QString::fromStdString(command::ListText(Catalog())), QStringLiteral("Group\n"
                                                                                "  city                  Something\n"
                                                                                "  customer              Something\n"
                                                                                "      --customer TEXT\n"
                                                                                "      --inactive\n"
                                                                                "      --states open|posted[,...]\n"));
  const QString Help = QString::fromStdString(command::PickHelp(*Catalog().Find("customer")));
  QVERIFY(Help.contains("Inactive ones too (default: yes; --inactive=no)"));
  QVERIFY(Help.contains("keeps this text when nothing is chosen"));
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
