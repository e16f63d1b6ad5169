#include "catalog/ChosenRows.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <sstream>

#include "apps/command/CommandLine.h"
#include "apps/command/Help.h"
#include "apps/command/ResultText.h"
#include "pickbase/PickCall.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

namespace {

using uDocPickBase::TDocPickBase;

// A pick that is called by its name and driven, with the rows that were chosen in it.
struct TDriven {
  catalog::TResult Result;
  std::vector<catalog::TShownRow> Rows;
};

TDriven Drive(support::TTestCompany& Company, const std::string& Name,
              const std::function<void(TDocPickBase&)>& UserDoes) {
  TDriven Driven;
  pickbase::TPickWatch Watch;
  Watch.OnChosen = [&](TDocPickBase& Dialog) { Driven.Rows = catalog::ChosenRows(Dialog); };
  const catalog::TPick& Pick = *catalog::FullCatalog().Find(Name);
  const catalog::TArgs Args(Pick.Args);
  support::DrivePick(
      [&] {
        Driven.Result = Pick.Call(Company.Connection(), Args);
        return Driven.Result.Chosen;
      },
      UserDoes);
  return Driven;
}

std::vector<std::string> Names(const catalog::TShownRow& Row) {
  std::vector<std::string> Result;
  for (const auto& [Name, Value] : Row) Result.push_back(Name);
  return Result;
}

QJsonObject Json(const TDriven& Driven) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(command::JsonText(Driven.Result, Driven.Rows))).object();
}

}  // namespace

class tst_ChosenRows : public QObject {
  Q_OBJECT
 private slots:
  void shouldGiveTheShownColumnsOfTheChosenRow();
  void shouldGiveEveryTickedRowInTheListsOrder();
  void shouldKeepNumbersDatesAndNothingApart();
  void shouldGiveNothingOfACancelledPick();
  void shouldNotShowADialogThatIsOnlyLookedAt();
  void shouldTellTheInnermostWatchAlone();
  void shouldGiveAnExampleThatListsSomething();
};

void tst_ChosenRows::shouldGiveTheShownColumnsOfTheChosenRow() {
  support::TTestCompany Company;
  std::vector<std::string> Columns;
  std::string Name;
  const TDriven Driven = Drive(Company, "entity", [&](TDocPickBase& Dialog) {
    Columns = support::ColumnNames(Dialog);
    Name = support::Column(Dialog, "Desc")[2];
    support::DoubleClickRow(Dialog, 2);
  });
  QCOMPARE(Driven.Rows.size(), std::size_t{1});
  QCOMPARE(Names(Driven.Rows[0]), Columns);
  const QJsonObject Row = Json(Driven)["rows"].toArray()[0].toObject();
  QCOMPARE(Row["Desc"].toString().toStdString(), Name);
  QCOMPARE(Row["Entity"].toString().toStdString(), Driven.Result.Keys[0]);
  QCOMPARE(Json(Driven)["keys"].toArray()[0].toString().toStdString(), Driven.Result.Keys[0]);
}

void tst_ChosenRows::shouldGiveEveryTickedRowInTheListsOrder() {
  support::TTestCompany Company;
  const TDriven Driven = Drive(Company, "users", [&](TDocPickBase& Dialog) {
    for (const int Row : {3, 0}) {
      Dialog.qryList_->SetRecNo(Row + 1);
      QTest::keyClick(Dialog.dbgAvail, Qt::Key_Space);
    }
    support::ClickOK(Dialog);
  });
  QCOMPARE(Driven.Result.Keys.size(), std::size_t{2});
  QCOMPARE(Driven.Rows.size(), std::size_t{2});
  const QJsonArray Rows = Json(Driven)["rows"].toArray();
  const std::vector<std::string> Users = Company.Texts("SELECT DisplayNm FROM Names ORDER BY UPPER(DisplayNm)");
  QCOMPARE(Rows[0].toObject()["DisplayNm"].toString().toStdString(), Users[0]);
  QCOMPARE(Rows[1].toObject()["DisplayNm"].toString().toStdString(), Users[3]);
  QVERIFY(!Rows[0].toObject().contains("Ticked"));
}

void tst_ChosenRows::shouldKeepNumbersDatesAndNothingApart() {
  const catalog::TShownRow Row{
      {"Text", std::string("a \"b\"")}, {"Number", 1.25}, {"Whole", 7}, {"Yes", true}, {"Nothing", {}}};
  const std::string Text = command::JsonText({true, {"7"}}, {Row});
  const QJsonObject Object = QJsonDocument::fromJson(QByteArray::fromStdString(Text))["rows"][0].toObject();
  QCOMPARE(Object["Text"].toString(), QStringLiteral("a \"b\""));
  QCOMPARE(Object["Number"].toDouble(), 1.25);
  QVERIFY(Object["Whole"].isDouble() && Object["Yes"].isBool() && Object["Nothing"].isNull());
  QVERIFY(Text.ends_with("}\n"));
  QCOMPARE(command::KeyLines({true, {"a", "b"}}), std::string("a\nb\n"));
}

void tst_ChosenRows::shouldGiveNothingOfACancelledPick() {
  support::TTestCompany Company;
  const TDriven Driven = Drive(Company, "city", [](TDocPickBase& Dialog) { support::ClickCancel(Dialog); });
  QVERIFY(!Driven.Result.Chosen);
  QVERIFY(Driven.Rows.empty());
}

void tst_ChosenRows::shouldNotShowADialogThatIsOnlyLookedAt() {
  support::TTestCompany Company;
  int Looked = 0;
  pickbase::TPickWatch Watch;
  Watch.OnBuilt = [&](TDocPickBase& Dialog) {
    ++Looked;
    return Dialog.isVisible();
  };
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
    catalog::TArgs Args(Pick.Args);
    for (const catalog::TArg& Arg : Pick.Args) {
      if (!Arg.Example.empty()) Args.Set(Arg.Name, Arg.Example);
    }
    QVERIFY2(!Pick.Call(Company.Connection(), Args).Chosen, Pick.Name.c_str());
  }
  QCOMPARE(static_cast<std::size_t>(Looked), catalog::FullCatalog().All().size());
}

void tst_ChosenRows::shouldTellTheInnermostWatchAlone() {
  support::TTestCompany Company;
  const catalog::TPick& Pick = *catalog::FullCatalog().Find("city");
  const catalog::TArgs Args(Pick.Args);
  QStringList Told;
  const auto Tell = [&](const char* Who) {
    return [&Told, Who](TDocPickBase&) {
      Told.append(QLatin1String(Who));
      return false;
    };
  };
  pickbase::TPickWatch Outer;
  Outer.OnBuilt = Tell("outer");
  {
    pickbase::TPickWatch Inner;
    Inner.OnBuilt = Tell("inner");
    Pick.Call(Company.Connection(), Args);
  }
  Pick.Call(Company.Connection(), Args);
  QCOMPARE(Told, (QStringList{"inner", "outer"}));
}

void tst_ChosenRows::shouldGiveAnExampleThatListsSomething() {
  support::TTestCompany Company;
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
    std::istringstream Words(command::ExampleCommand(Pick));
    const std::vector<std::string> All{std::istream_iterator<std::string>(Words), {}};
    QCOMPARE(All.front(), std::string("zulpick"));
    const command::TCommandLine Line = command::ReadCommandLine(catalog::FullCatalog(), {All.begin() + 1, All.end()});
    QCOMPARE(Line.Pick, &Pick);
    QCOMPARE(Line.Database, std::string("company.db"));
    int Rows = 0;
    pickbase::TPickWatch Watch;
    Watch.OnBuilt = [&](TDocPickBase& Dialog) {
      Rows = Dialog.qryList_->RecordCount();
      return false;
    };
    Pick.Call(Company.Connection(), *Line.Args);
    QVERIFY2(Rows > 0, (Pick.Name + " lists nothing").c_str());
  }
}

QTEST_MAIN(tst_ChosenRows)
#include "tst_ChosenRows.moc"
