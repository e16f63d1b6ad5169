#include "catalog/Catalog.h"

#include <QSqlDatabase>
#include <QTest>

#include "ads/EDatabaseError.h"
#include "catalog/Near.h"
#include "catalog/Shapes.h"

using catalog::EArgError;
using catalog::TArg;
using catalog::TArgs;
using catalog::TCatalog;
using catalog::TPick;
using catalog::TResult;

namespace {

TPick SomePick(const std::string& Name, std::vector<TArg> Args = {}) {
  TPick Pick;
  Pick.Name = Name;
  Pick.Function = "uPickSome::CallPickSome";
  Pick.Help = "Something";
  Pick.Args = std::move(Args);
  Pick.Call = [](ads::TAdsConnection*, const TArgs&) { return TResult{}; };
  return Pick;
}

enum class TColour { Red, Green, Blue };

const std::vector<std::string>& ColourNames() {
  static const std::vector<std::string> Names{"red", "green", "blue"};
  return Names;
}

const std::vector<TArg>& AllKinds() {
  static const std::vector<TArg> Args{
      catalog::TextArg("text", "A text", "as is"), catalog::BooleanArg("flag", "A switch"),
      catalog::IntegerArg("number", "A number", 7), catalog::ChoiceArg("colour", "A colour", ColourNames(), "green"),
      catalog::ChoicesArg("colours", "Colours", ColourNames(), "red,blue")};
  return Args;
}

QString MessageOf(const std::function<void()>& Body) {
  try {
    Body();
  } catch (const std::exception& Error) {
    return QString::fromUtf8(Error.what());
  }
  return {};
}

}  // namespace

class tst_Catalog : public QObject {
  Q_OBJECT
 private slots:
  void shouldFindWhatWasAdded();
  void shouldRefuseWhatCannotBeTold_data();
  void shouldRefuseWhatCannotBeTold();
  void shouldRefuseAPickOutsideAGroup();
  void shouldStandAtTheDefaults();
  void shouldReadEveryKind();
  void shouldTakeEveryWordForYesAndNo();
  void shouldRefuseABadValue_data();
  void shouldRefuseABadValue();
  void shouldRefuseAnUnknownArgumentAndOneGivenTwice();
  void shouldNotReadAnArgumentAsAnotherKind();
  void shouldDescribeWhatIsNotAtItsDefault();
  void shouldProposeNearNames();
  void shouldGiveTheOutputAfterTheCall();
  void shouldPassTheConnectionToEveryFunction();
  void shouldExplainEveryPickAndArgument();
};

void tst_Catalog::shouldFindWhatWasAdded() {
  TCatalog Catalog;
  Catalog.StartGroup("One");
  Catalog.Add(SomePick("first"));
  const TPick* First = Catalog.Find("first");
  Catalog.StartGroup("Two");
  for (int Index = 0; Index < 100; ++Index) Catalog.Add(SomePick("other-" + std::to_string(Index)));
  QCOMPARE(Catalog.All().size(), std::size_t(101));
  QCOMPARE(Catalog.Find("first"), First);
  QCOMPARE(First->Group, std::string("One"));
  QCOMPARE(Catalog.Find("other-99")->Group, std::string("Two"));
  QVERIFY(Catalog.Find("other-100") == nullptr);
  QVERIFY(Catalog.Find("") == nullptr);
}

void tst_Catalog::shouldRefuseWhatCannotBeTold_data() {
  QTest::addColumn<TPick>("Pick");
  QTest::addColumn<QString>("Message");
  QTest::newRow("a name given twice") << SomePick("first") << "the name is given twice";
  QTest::newRow("no name") << SomePick("") << "no name for a pick";
  QTest::newRow("upper case") << SomePick("First") << "no name for a pick";
  QTest::newRow("a hyphen in front") << SomePick("-city") << "no name for a pick";
  TPick NoCall = SomePick("none");
  NoCall.Call = nullptr;
  QTest::newRow("no call") << NoCall << "cannot be called";
  const TArg Twice = catalog::TextArg("entity", "");
  QTest::newRow("an argument given twice") << SomePick("a", {Twice, Twice}) << "entity is given twice";
  QTest::newRow("an option of the programs")
      << SomePick("a", {catalog::TextArg("db", "")}) << "--db is an option of the programs";
  QTest::newRow("an argument's bad name")
      << SomePick("a", {catalog::TextArg("two words", "")}) << "\"two words\" is no name";
  QTest::newRow("a default that is none")
      << SomePick("a", {catalog::ChoiceArg("colour", "", ColourNames(), "pink")}) << "\"pink\" is no value for colour";
}

void tst_Catalog::shouldRefuseWhatCannotBeTold() {
  QFETCH(const TPick, Pick);
  QFETCH(const QString, Message);
  TCatalog Catalog;
  Catalog.StartGroup("One");
  Catalog.Add(SomePick("first"));
  QVERIFY_THROWS_EXCEPTION(std::invalid_argument, Catalog.Add(Pick));
  QVERIFY2(MessageOf([&] { Catalog.Add(Pick); }).contains(Message), qPrintable(Message));
  QCOMPARE(Catalog.All().size(), std::size_t(1));
}

void tst_Catalog::shouldRefuseAPickOutsideAGroup() {
  TCatalog Catalog;
  QVERIFY_THROWS_EXCEPTION(std::invalid_argument, Catalog.Add(SomePick("first")));
}

void tst_Catalog::shouldStandAtTheDefaults() {
  const TArgs Args(AllKinds());
  QCOMPARE(Args.Text("text"), std::string("as is"));
  QCOMPARE(Args.Boolean("flag"), false);
  QCOMPARE(Args.Integer("number"), 7);
  QCOMPARE(Args.Choice("colour"), 1);
  QCOMPARE(Args.Choices("colours"), (std::vector<int>{0, 2}));
}

void tst_Catalog::shouldReadEveryKind() {
  TArgs Args(AllKinds());
  Args.Set("text", " O'Neil, Zoë ");
  Args.Set("flag", "yes");
  Args.Set("number", "-2147483648");
  Args.Set("colour", "Blue");
  Args.Set("colours", " blue, GREEN,blue");
  QCOMPARE(Args.Text("text"), std::string(" O'Neil, Zoë "));
  QCOMPARE(Args.Boolean("flag"), true);
  QCOMPARE(Args.Integer("number"), std::numeric_limits<std::int32_t>::min());
  QVERIFY(Args.Enum<TColour>("colour") == TColour::Blue);
  QCOMPARE(Args.Choices("colours"), (std::vector<int>{1, 2}));
  QVERIFY((Args.EnumSet<TColour>("colours") == toolkit::TSet<TColour>{TColour::Green, TColour::Blue}));
  TArgs None(AllKinds());
  None.Set("colours", "");
  QVERIFY(None.EnumSet<TColour>("colours").IsEmpty());
}

void tst_Catalog::shouldTakeEveryWordForYesAndNo() {
  for (const char* Word : {"yes", "true", "on", "1", "YES"}) {
    TArgs Args(AllKinds());
    Args.Set("flag", Word);
    QVERIFY2(Args.Boolean("flag"), Word);
  }
  for (const char* Word : {"no", "false", "off", "0", "No"}) {
    TArgs Args(AllKinds());
    Args.Set("flag", Word);
    QVERIFY2(!Args.Boolean("flag"), Word);
  }
}

void tst_Catalog::shouldRefuseABadValue_data() {
  QTest::addColumn<QString>("Name");
  QTest::addColumn<QString>("Value");
  QTest::addColumn<QString>("Message");
  QTest::newRow("boolean") << "flag"
                           << "maybe"
                           << "\"maybe\" is no value for flag: it is yes or no.";
  QTest::newRow("integer") << "number"
                           << "1.5"
                           << "\"1.5\" is no value for number: it is a whole number of 32 bits.";
  QTest::newRow("too large") << "number"
                             << "2147483648"
                             << "\"2147483648\" is no value for number: it is a whole number of 32 bits.";
  QTest::newRow("choice") << "colour"
                          << "pink"
                          << "\"pink\" is no value for colour: it is one of red, green, blue.";
  QTest::newRow("choices") << "colours"
                           << "red,pink"
                           << "\"pink\" is no value for colours: it is any of red, green, blue.";
  QTest::newRow("an empty choice") << "colours"
                                   << "red,"
                                   << "\"\" is no value for colours: it is any of red, green, blue.";
}

void tst_Catalog::shouldRefuseABadValue() {
  QFETCH(const QString, Name);
  QFETCH(const QString, Value);
  QFETCH(const QString, Message);
  TArgs Args(AllKinds());
  const auto Set = [&] { Args.Set(Name.toStdString(), Value.toStdString()); };
  QVERIFY_THROWS_EXCEPTION(EArgError, Set());
  QCOMPARE(MessageOf(Set), Message);
}

void tst_Catalog::shouldRefuseAnUnknownArgumentAndOneGivenTwice() {
  TArgs Args(AllKinds());
  QCOMPARE(MessageOf([&] { Args.Set("shade", "dark"); }), QStringLiteral("There is no argument shade."));
  Args.Set("text", "");
  QCOMPARE(MessageOf([&] { Args.Set("text", ""); }), QStringLiteral("The argument text is given twice."));
  QVERIFY_THROWS_EXCEPTION(catalog::EUnknownArg, Args.Set("shade", "dark"));
  QVERIFY_THROWS_EXCEPTION(catalog::EArgGivenTwice, Args.Set("text", ""));
}

void tst_Catalog::shouldNotReadAnArgumentAsAnotherKind() {
  const TArgs Args(AllKinds());
  QVERIFY_THROWS_EXCEPTION(std::logic_error, Args.Text("flag"));
  QVERIFY_THROWS_EXCEPTION(std::logic_error, Args.Choice("colours"));
  QVERIFY_THROWS_EXCEPTION(std::logic_error, Args.Integer("missing"));
}

void tst_Catalog::shouldDescribeWhatIsNotAtItsDefault() {
  TArgs Args(AllKinds());
  QCOMPARE(Args.Describe(), std::string());
  Args.Set("number", "07");
  QCOMPARE(Args.Describe(), std::string());
  Args.Set("text", "x y");
  Args.Set("flag", "on");
  Args.Set("colours", "blue,green");
  QCOMPARE(Args.Describe(), std::string("--text=\"x y\" --flag --colours=green,blue"));
}

void tst_Catalog::shouldProposeNearNames() {
  const std::vector<std::string> Names{"city", "customer", "customer-email", "item-cost", "state"};
  QCOMPARE(catalog::NearNames("citty", Names), (std::vector<std::string>{"city"}));
  QCOMPARE(catalog::NearNames("cust", Names), (std::vector<std::string>{"customer", "customer-email"}));
  QCOMPARE(catalog::NearNames("xyz", Names), (std::vector<std::string>{}));
  QCOMPARE(catalog::NearNames("", Names), (std::vector<std::string>{}));
  QCOMPARE(catalog::DidYouMean({"a", "b", "c"}), std::string(" Did you mean a, b or c?"));
}

void tst_Catalog::shouldGiveTheOutputAfterTheCall() {
  const TResult Text = catalog::TextResult([](std::string& Key) {
    Key.clear();
    return false;
  });
  QVERIFY(!Text.Chosen);
  QCOMPARE(Text.Keys, (std::vector<std::string>{""}));
  const TResult InOut = catalog::InOutResult("C1", [](std::string&) { return false; });
  QCOMPARE(InOut.Keys, (std::vector<std::string>{"C1"}));
  const TResult Integer = catalog::IntegerResult([](std::int32_t& Key) {
    Key = -5;
    return true;
  });
  QVERIFY(Integer.Chosen);
  QCOMPARE(Integer.Keys, (std::vector<std::string>{"-5"}));
  const TResult List = catalog::ListResult<toolkit::TStringList>([](toolkit::TStringList& Keys) {
    Keys.Add("A");
    Keys.Add("B");
    return true;
  });
  QCOMPARE(List.Keys, (std::vector<std::string>{"A", "B"}));
  QVERIFY(!catalog::KeyResult("").Chosen);
  QVERIFY(catalog::KeyResult("E").Chosen);
}

void tst_Catalog::shouldPassTheConnectionToEveryFunction() {
  // Over a connection that is not open each function ends with an error before a dialog comes up.
  ads::TAdsConnection Closed{QSqlDatabase()};
  for (const TPick& Pick : catalog::FullCatalog().All()) {
    const TArgs Args(Pick.Args);
    const QString Message = MessageOf([&] { Pick.Call(&Closed, Args); });
    QVERIFY2(Message == QLatin1String("The database connection is not open."),
             (Pick.Name + ": " + Message.toStdString()).c_str());
    QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Pick.Call(nullptr, Args));
  }
}

void tst_Catalog::shouldExplainEveryPickAndArgument() {
  for (const TPick& Pick : catalog::FullCatalog().All()) {
    QVERIFY2(!Pick.Help.empty() && Pick.Help.find('\n') == std::string::npos, Pick.Name.c_str());
    for (const TArg& Arg : Pick.Args) {
      QVERIFY2(!Arg.Help.empty() && Arg.Help.find('\n') == std::string::npos, (Pick.Name + " " + Arg.Name).c_str());
    }
  }
}

QTEST_MAIN(tst_Catalog)
#include "tst_Catalog.moc"
