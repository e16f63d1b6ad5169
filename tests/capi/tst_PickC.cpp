// A host that knows the picks by the C interface alone, and users who choose and cancel.
#include <QPushButton>
#include <QSqlDatabase>
#include <QTest>
#include <new>
#include <stdexcept>
#include <thread>

#include "Caller.h"
#include "ads/EDatabaseError.h"
#include "capi/PickResult.h"
#include "catalog/Catalog.h"
#include "pickbase/PickCall.h"
#include "servers/Backends.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using namespace support;
using uDocPickBase::TDocPickBase;

namespace {

constexpr char NotUtf8[] = "caf\xE9";

std::string NameOf(const QSqlDatabase& Database) {
  return Database.connectionName().toStdString();
}

TPickResult Drive(const std::function<TPickResult()>& Call, const std::function<void(TDocPickBase& Dialog)>& User) {
  TPickResult Result;
  DrivePick(
      [&] {
        Result = Call();
        return Result.Code == ZUL_OK;
      },
      User);
  return Result;
}

std::string Joined(const std::vector<std::string>& Lines) {
  std::string Result;
  for (const std::string& Line : Lines) Result += (Result.empty() ? "" : "\n") + Line;
  return Result;
}

/// What comes of a pick in whose dialog that is thrown.
template <typename TThrown>
TPickResult CallThrowing(const std::string& Connection, TThrown Thrown) {
  pickbase::TPickWatch Watch;
  Watch.OnBuilt = [&](TDocPickBase&) -> bool { throw TThrown(Thrown); };
  return CallPick(Connection.c_str(), "city");
}

}  // namespace

class tst_PickC : public QObject {
  Q_OBJECT

  std::unique_ptr<TTestCompany> Company_;
  std::unique_ptr<TBackends> Backends_;
  std::string Connection_;

  TPickResult Pick(const char* Name, const TGivenArgs& Args = {}) { return CallPick(Connection_.c_str(), Name, Args); }

 private slots:
  void initTestCase() {
    Company_ = std::make_unique<TTestCompany>();
    Backends_ = std::make_unique<TBackends>();
    Connection_ = NameOf(Company_->Database());
  }
  void cleanupTestCase() {
    Company_.reset();
    Backends_.reset();
  }

  void shouldGiveTheChosenKey() {
    std::string Zip;
    const TPickResult Result = Drive([&] { return Pick("city"); },
                                     [&](TDocPickBase& Dialog) {
                                       TypeFind(Dialog, "20");
                                       Zip = Column(Dialog, "Zip").at(0);
                                       ClickOK(Dialog);
                                     });
    QCOMPARE(Result.Failure(), std::string("0: "));
    QVERIFY(!Zip.empty());
    QCOMPARE(Result.Text, Zip);
    QCOMPARE(Result.Keys, (std::vector<std::string>{Zip}));
  }

  void shouldGiveSeveralKeysALineEach() {
    std::vector<std::string> Users;
    const TPickResult Result =
        Drive([&] { return Pick("users"); },
              [&](TDocPickBase& Dialog) {
                Users = Column(Dialog, "UserName");
                Dialog.dbgAvail->setFocus();
                for (const Qt::Key Key : {Qt::Key_Home, Qt::Key_Space, Qt::Key_Down, Qt::Key_Down, Qt::Key_Space}) {
                  QTest::keyClick(Dialog.dbgAvail, Key);
                }
                ClickOK(Dialog);
              });
    QCOMPARE(Result.Failure(), std::string("0: "));
    QVERIFY(Users.size() > 3);
    QCOMPARE(Result.Keys, (std::vector<std::string>{Users[0], Users[2]}));
    QCOMPARE(Result.Text, Users[0] + "\n" + Users[2]);
  }

  void shouldGiveEveryPartOfAKey() {
    std::string Number;
    const TPickResult Result = Drive(
        [&] {
          return Pick("oe-doc", {{"types", "invoice"}});
        },
        [&](TDocPickBase& Dialog) {
          Number = Column(Dialog, "Number").at(0);
          ClickOK(Dialog);
        });
    QCOMPARE(Result.Failure(), std::string("0: "));
    QCOMPARE(Result.Keys, (std::vector<std::string>{Number, "I"}));
  }

  void shouldGiveNoKeysWhenNothingWasChosen() {
    for (const char* Name : {"city", "users", "oe-doc", "item-factor", "entity-key"}) {
      const TPickResult Result = Drive([&] { return Pick(Name); }, ClickCancel);
      QVERIFY2(Result.Failure() == "1: ", (Name + Result.Failure()).c_str());
      QCOMPARE(Result.Text, std::string());
      QVERIFY(Result.Keys.empty());
    }
  }

  void shouldGiveBackTheInOutTextWhenNothingWasChosen() {
    const TPickResult Given = Drive([&] { return Pick("customer", {{"customer", "Zoë's"}}); }, ClickCancel);
    QCOMPARE(Given.Failure(), std::string("1: "));
    QCOMPARE(Given.Text, std::string("Zoë's"));
    QCOMPARE(Given.Keys, (std::vector<std::string>{"Zoë's"}));
    const TPickResult NotGiven = Drive([&] { return Pick("customer"); }, ClickCancel);
    QCOMPARE(NotGiven.Keys, (std::vector<std::string>{""}));
  }

  void shouldPassEveryArgument() {
    const std::string Main = Company_->Text("SELECT COUNT(*) FROM Cust WHERE Entity = 'MAIN' AND Inactive = 0");
    const std::string All = Company_->Text("SELECT COUNT(*) FROM Cust");
    const auto Count = [&](const TGivenArgs& Args, bool TickInactive) {
      std::string Rows;
      Drive([&] { return Pick("customer", Args); },
            [&](TDocPickBase& Dialog) {
              if (TickInactive) ClickBox(Dialog.findChild<QCheckBox*>("ckbInactive"));
              Rows = std::to_string(Column(Dialog, "ID").size());
            });
      return Rows;
    };
    QVERIFY(Main != All);
    QCOMPARE(Count({{"entity", "MAIN"}}, false), Main);
    QCOMPARE(Count({{"allow-inactive", "yes"}, {"entity", ""}, {"filter-by-entity", "no"}}, true), All);
  }

  void shouldTakeTheDefaultConnection() {
    QCOMPARE(CallPick(nullptr, "city").Failure(), std::string("30: Qt has no default database connection."));
    {
      QSqlDatabase Default = QSqlDatabase::addDatabase("QSQLITE");
      Default.setDatabaseName(QString::fromStdString(Company_->FileName()));
      QVERIFY(Default.open());
      const TPickResult Result = Drive([&] { return CallPick(nullptr, "city"); }, ClickOK);
      QCOMPARE(Result.Failure(), std::string("0: "));
      QCOMPARE(Result.Keys.size(), std::size_t(1));
    }
    QSqlDatabase::removeDatabase(QLatin1String(QSqlDatabase::defaultConnection));
  }

  void shouldServeAHostInC() {
    char Key[100];
    char Message[500];
    std::string Customer;
    int Code = -1;
    DrivePick(
        [&] {
          Code = CallerPicksCustomer(Connection_.c_str(), "MAIN", Key, Message, sizeof Key);
          return Code == ZUL_OK;
        },
        [&](TDocPickBase& Dialog) {
          Customer = Column(Dialog, "ID").at(0);
          ClickOK(Dialog);
        });
    QCOMPARE(Code, int{ZUL_OK});
    QCOMPARE(std::string(Key), Customer);
    QCOMPARE(std::string(Message), std::string());
    QCOMPARE(CallerPicksCustomer("nobody's", "MAIN", Key, Message, sizeof Key), int{ZUL_ERROR_CONNECTION});
    QCOMPARE(std::string(Message), std::string("Qt has no database connection \"nobody's\"."));
    QCOMPARE(std::string(Key), std::string());

    std::size_t Arguments = 0;
    for (const catalog::TPick& Each : catalog::FullCatalog().All()) Arguments += Each.Args.size();
    QCOMPARE(CallerCountsArguments(), Arguments);
  }

  void shouldRefuseWhatCannotBeTaken_data() {
    QTest::addColumn<TGivenArgs>("Args");
    QTest::addColumn<QString>("Failure");
    const auto Row = [](const char* Name, const TGivenArgs& Args, const char* Failure) {
      QTest::newRow(Name) << Args << QString::fromUtf8(Failure);
    };
    Row("an unknown argument", {{"entitty", "MAIN"}},
        "13: The pick customer has no argument \"entitty\". Did you mean entity?");
    Row("an argument without a name", {{"", "MAIN"}}, "13: The pick customer has no argument \"\".");
    Row("a name with hyphens", {{"--entity", "MAIN"}},
        "13: The pick customer has no argument \"--entity\". Did you mean entity?");
    Row("an argument twice", {{"entity", "MAIN"}, {"entity", "MAIN"}}, "14: The argument entity is given twice.");
    Row("one argument too many",
        {{"customer", ""},
         {"filter-by-entity", "yes"},
         {"entity", ""},
         {"allow-inactive", "no"},
         {"show-balances", "no"},
         {"extra", ""}},
        "13: The pick customer has no argument \"extra\".");
    Row("a wrong value", {{"allow-inactive", "maybe"}},
        "15: \"maybe\" is no value for allow-inactive: it is yes or no.");
    Row("an empty value", {{"allow-inactive", ""}}, "15: \"\" is no value for allow-inactive: it is yes or no.");
    Row("a null name", {{"entity", "MAIN"}, {nullptr, "x"}}, "10: The name of argument 2 is null.");
    Row("a null value", {{"entity", nullptr}}, "10: The value of entity is null.");
    Row("a name that is not UTF-8", {{NotUtf8, "x"}}, "11: The name of argument 1 is not UTF-8.");
    Row("a value that is not UTF-8", {{"entity", NotUtf8}}, "11: The value of entity is not UTF-8.");
  }
  void shouldRefuseWhatCannotBeTaken() {
    QFETCH(TGivenArgs, Args);
    QFETCH(QString, Failure);
    const TPickResult Result = Pick("customer", Args);
    QCOMPARE(QString::fromStdString(Result.Failure()), Failure);
    QVERIFY(Result.Keys.empty());
    QCOMPARE(Result.Text, std::string());
  }

  void shouldRefuseArraysThatAreNull() {
    const char* const Texts[] = {"entity"};
    const char* Connection = Connection_.c_str();
    QCOMPARE(TPickResult(zul_pick(Connection, "customer", nullptr, Texts, 1)).Failure(),
             std::string("10: The array of the arguments' names is null."));
    QCOMPARE(TPickResult(zul_pick(Connection, "customer", Texts, nullptr, 1)).Failure(),
             std::string("10: The array of the arguments' values is null."));
    const TPickResult None =
        Drive([&] { return TPickResult(zul_pick(Connection, "city", nullptr, nullptr, 0)); }, ClickOK);
    QCOMPARE(None.Failure(), std::string("0: "));
  }

  void shouldRefuseAPickThatThereIsNot() {
    QCOMPARE(Pick("custommer").Failure(), std::string("12: There is no pick \"custommer\". Did you mean customer?"));
    QCOMPARE(Pick("uPickCity::CallPickCity").Failure(),
             std::string("12: There is no pick \"uPickCity::CallPickCity\"."));
    QCOMPARE(Pick("").Failure(), std::string("12: There is no pick \"\"."));
    QCOMPARE(Pick(nullptr).Failure(), std::string("10: The pick's name is null."));
    QCOMPARE(Pick(NotUtf8).Failure(), std::string("11: The pick's name is not UTF-8."));
    const auto Arguments = [](const char* Name) { return TPickResult(zul_list_arguments(Name)).Failure(); };
    QCOMPARE(Arguments("citty"), std::string("12: There is no pick \"citty\". Did you mean city?"));
    QCOMPARE(Arguments(nullptr), std::string("10: The pick's name is null."));
    QCOMPARE(Arguments(NotUtf8), std::string("11: The pick's name is not UTF-8."));
  }

  void shouldRefuseAConnectionThatThereIsNot() {
    QCOMPARE(CallPick("other", "city").Failure(), std::string("30: Qt has no database connection \"other\"."));
    QCOMPARE(CallPick("", "city").Failure(), std::string("30: Qt has no database connection \"\"."));
    QCOMPARE(CallPick(NotUtf8, "city").Failure(), std::string("11: The connection's name is not UTF-8."));
  }

  void shouldRefuseAConnectionThatIsNotOpen() {
    {
      const QSqlDatabase Closed = QSqlDatabase::addDatabase("QSQLITE", "geschloßen");
      QCOMPARE(CallPick("geschloßen", "city").Failure(), std::string("31: The database connection is not open."));
      QVERIFY(!Closed.isOpen());
      QTest::ignoreMessage(QtWarningMsg, QRegularExpression("driver not loaded"));
      QTest::ignoreMessage(QtWarningMsg, QRegularExpression("available drivers"));
      const QSqlDatabase NoDriver = QSqlDatabase::addDatabase("NOSUCHDRIVER", "without a driver");
      QCOMPARE(CallPick("without a driver", "city").Failure(), std::string("31: The database connection is not open."));
    }
    QSqlDatabase::removeDatabase("geschloßen");
    QSqlDatabase::removeDatabase("without a driver");
  }

  void shouldRefuseOtherThreads() {
    TPickResult Result;
    std::thread([&] { Result = Pick("city"); }).join();
    QCOMPARE(Result.Failure(), std::string("21: A pick must be called on the thread of the user interface."));
    std::thread([&] { QSqlDatabase::addDatabase("QSQLITE", "elsewhere"); }).join();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("does not belong to the calling thread"));
    QCOMPARE(CallPick("elsewhere", "city").Failure(),
             std::string("21: The database connection \"elsewhere\" belongs to another thread."));
    QSqlDatabase::removeDatabase("elsewhere");
  }

  void shouldListOnAnyThread() {
    std::vector<std::thread> Threads;
    std::vector<TPickResult> Results(8);
    for (TPickResult& Result : Results) {
      Threads.emplace_back([&] {
        for (int Time = 0; Time < 20; ++Time) Result = TPickResult(zul_list_picks());
      });
    }
    for (std::thread& Thread : Threads) Thread.join();
    for (const TPickResult& Result : Results) QCOMPARE(Result.Keys.size(), catalog::FullCatalog().All().size());
  }

  void shouldTellWhatTheDatabaseRefuses() {
    QCOMPARE(Pick("customer", {{"entity", "O'Neil"}}).Code, int{ZUL_ERROR_DATABASE});
    TTestCompany Damaged(TTestCompany::TRows::None);
    Damaged.Execute("DROP TABLE Sys");
    const TPickResult Result = CallPick(NameOf(Damaged.Database()).c_str(), "city");
    QCOMPARE(Result.Code, int{ZUL_ERROR_DATABASE});
    QVERIFY2(Result.Message.find("no such table: Sys") != std::string::npos, Result.Message.c_str());
    QVERIFY(Result.Keys.empty());
    QVERIFY(Damaged.Database().isOpen());
  }

  void shouldTellAKeyThatIsNotUtf8() {
    TTestCompany Company(TTestCompany::TRows::None);
    Company.Execute("INSERT INTO Area (Zip) VALUES (CAST(x'636166E9' AS TEXT))");
    const std::string Name = NameOf(Company.Database());
    const TPickResult Result = Drive([&] { return CallPick(Name.c_str(), "city"); }, ClickOK);
    QCOMPARE(Result.Failure(), std::string("11: The key that was chosen is not UTF-8."));
    QVERIFY(Result.Keys.empty());
  }

  void shouldTellThatTheConnectionWasLostAndThatAQueryWasEnded() {
    const QString Missing = Backends_->Missing(TBackendKind::PostgreSQL);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    const auto Backend = Backends_->Open(TBackendKind::PostgreSQL);
    const std::string Name = NameOf(Backend->Database());

    Backend->Execute("SET statement_timeout = '200ms'");
    Backend->ExecuteBeside("BEGIN");
    Backend->ExecuteBeside("LOCK TABLE Area IN ACCESS EXCLUSIVE MODE");
    const TPickResult Ended = CallPick(Name.c_str(), "city");
    QCOMPARE(Ended.Code, int{ZUL_ERROR_QUERY_ENDED});
    QVERIFY2(Ended.Message.find("statement timeout") != std::string::npos, Ended.Message.c_str());
    Backend->ExecuteBeside("ROLLBACK");
    QCOMPARE(Drive([&] { return CallPick(Name.c_str(), "city"); }, ClickOK).Failure(), std::string("0: "));

    const QString Process = TBackend::Value(Backend->Database(), "SELECT pg_backend_pid()").toString();
    Backend->ExecuteBeside("SELECT pg_terminate_backend(" + Process + ")");
    QTRY_COMPARE(Backend->ValueBeside("SELECT COUNT(*) FROM pg_stat_activity WHERE pid = " + Process).toInt(), 0);
    const TPickResult Lost = CallPick(Name.c_str(), "city");
    QVERIFY2(Lost.Code == ZUL_ERROR_LOST, Lost.Failure().c_str());
    QVERIFY(!Lost.Message.empty());
    const TPickResult NotOpen = CallPick(Name.c_str(), "city");
    QVERIFY2(NotOpen.Code == ZUL_ERROR_NOT_OPEN, NotOpen.Failure().c_str());
    QVERIFY(!NotOpen.Message.empty());
  }

  void shouldLetNothingThrough() {
    QCOMPARE(CallThrowing(Connection_, std::runtime_error("grün")).Failure(), std::string("41: grün"));
    QCOMPARE(CallThrowing(Connection_, std::runtime_error(NotUtf8)).Failure(), std::string("41: caf\uFFFD"));
    QCOMPARE(CallThrowing(Connection_, 42).Failure(),
             std::string("41: Something was thrown that is no std::exception."));
    QCOMPARE(CallThrowing(Connection_, std::bad_alloc()).Failure(), std::string("40: Out of memory."));
    QCOMPARE(CallThrowing(Connection_, ads::EQueryEnded("by whom?")).Failure(), std::string("33: by whom?"));
    QCOMPARE(CallThrowing(Connection_, ads::EConnectionLost("gone")).Failure(), std::string("32: gone"));
  }

  void shouldListEveryPickAndArgument() {
    zul_result* Picks = zul_list_picks();
    const auto& All = catalog::FullCatalog().All();
    QCOMPARE(zul_result_code(Picks), int{ZUL_OK});
    QCOMPARE(zul_result_count(Picks), All.size());
    std::vector<std::string> Names;
    for (std::size_t Row = 0; Row < All.size(); ++Row) {
      const catalog::TPick& Pick = All[Row];
      Names.push_back(Pick.Name);
      QCOMPARE(std::string(zul_result_value(Picks, Row, "name")), Pick.Name);
      QCOMPARE(std::string(zul_result_value(Picks, Row, "group")), Pick.Group);
      QCOMPARE(std::string(zul_result_value(Picks, Row, "help")), Pick.Help);
      zul_result* Arguments = zul_list_arguments(Pick.Name.c_str());
      QCOMPARE(zul_result_count(Arguments), Pick.Args.size());
      for (std::size_t Arg = 0; Arg < Pick.Args.size(); ++Arg) {
        QCOMPARE(std::string(zul_result_value(Arguments, Arg, "name")), Pick.Args[Arg].Name);
        QCOMPARE(std::string(zul_result_value(Arguments, Arg, "help")), Pick.Args[Arg].Help);
        QCOMPARE(std::string(zul_result_value(Arguments, Arg, "default")), Pick.Args[Arg].Default);
      }
      zul_result_free(Arguments);
    }
    QCOMPARE(std::string(zul_result_text(Picks)), Joined(Names));
    zul_result_free(Picks);
  }

  void shouldDescribeArguments_data() {
    QTest::addColumn<QString>("Pick");
    QTest::addColumn<QString>("Argument");
    QTest::addColumn<QString>("Kind");
    QTest::addColumn<QString>("Values");
    QTest::addColumn<QString>("Default");
    QTest::addColumn<QString>("InOut");
    const auto Row = [](const char* Pick, const char* Argument, const char* Kind, const char* Values,
                        const char* Default, const char* InOut) {
      QTest::addRow("%s %s", Pick, Argument) << QString(Pick) << QString(Argument) << QString(Kind) << QString(Values)
                                             << QString(Default) << QString(InOut);
    };
    Row("customer", "customer", "text", "", "", "yes");
    Row("customer", "filter-by-entity", "boolean", "yes\nno", "yes", "no");
    Row("vendor", "what", "choice", "all\nvendor\ncontractor\nvendor-no-service", "all", "no");
    Row("oe-doc", "require", "choices", "wastage-posted\ninternal\nstock-trans\nposted", "", "no");
  }
  void shouldDescribeArguments() {
    QFETCH(QString, Pick);
    QFETCH(QString, Argument);
    zul_result* Arguments = zul_list_arguments(Pick.toUtf8().constData());
    const QStringList Names = QString::fromUtf8(zul_result_text(Arguments)).split('\n');
    const auto Row = static_cast<std::size_t>(Names.indexOf(Argument));
    const auto Value = [&](const char* Name) { return QString::fromUtf8(zul_result_value(Arguments, Row, Name)); };
    QTEST(Value("kind"), "Kind");
    QTEST(Value("values"), "Values");
    QTEST(Value("default"), "Default");
    QTEST(Value("in-out"), "InOut");
    zul_result_free(Arguments);
  }
};

QTEST_MAIN(tst_PickC)
#include "tst_PickC.moc"
