#include <QCheckBox>
#include <QLabel>
#include <QTest>
#include <algorithm>

#include "ads/Ads.h"
#include "ads/Values.h"
#include "clusters/Companies.h"
#include "clusters/Host.h"
#include "picks/parties/uPickCustomer.h"
#include "servers/ListDialog.h"
#include "support/PickDriver.h"

using support::Quoted;
using support::TBackend;
using support::TBackendKind;
using support::THost;
using support::TListDialog;
using support::TListSource;
using support::TTickDialog;

namespace {

constexpr char CountCustomers[] = "SELECT COUNT(*) X FROM Cust";

}  // namespace

/// Picks where the server shows one account other rows than the next, and where one name stands for several tables.
class tst_PoliciesAndSchemas : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;
  std::unique_ptr<support::TErrorBoxes> Boxes_;

  static int Customers(THost& Host) { return Values(*Host.Connection(), CountCustomers).value(0).toInt(); }

  // The clerk sees a customer and its balance where this holds.
  void LetClerkSee(const QString& Customer, const QString& Balance) {
    Company_->ExecuteBeside("DO $$ BEGIN CREATE ROLE clerk LOGIN; EXCEPTION WHEN duplicate_object THEN NULL; END $$");
    Company_->ExecuteBeside("GRANT SELECT ON ALL TABLES IN SCHEMA public TO clerk");
    Company_->ExecuteBeside("ALTER TABLE cust ENABLE ROW LEVEL SECURITY");
    Company_->ExecuteBeside("ALTER TABLE custbal ENABLE ROW LEVEL SECURITY");
    Company_->ExecuteBeside("CREATE POLICY those ON cust FOR SELECT USING (" + Customer + ")");
    Company_->ExecuteBeside("CREATE POLICY those ON custbal FOR SELECT USING (" + Balance + ")");
  }
  std::unique_ptr<THost> Clerk() { return std::make_unique<THost>(Backends_->Connect(*Company_, "clerk")); }

  static std::string Balance(uPickCustomer::TfrmPickCustomer& Dialog, const std::string& Customer) {
    if (!Dialog.qryList_->Locate("ID", Customer)) return "no such customer";
    return Dialog.qryList_Balance->IsNull() ? "null" : "some";
  }

  // A second company's tables, with one customer each.
  void AddCompany(const QString& Schema, const QString& Customer) {
    Company_->ExecuteBeside("CREATE SCHEMA " + Schema);
    Company_->ExecuteBeside(QStringLiteral("CREATE TABLE %1.cust (LIKE public.cust)").arg(Schema));
    Company_->ExecuteBeside(QStringLiteral("INSERT INTO %1.cust (id) VALUES ('%2')").arg(Schema, Customer));
  }
  void Finds(TListDialog& Dialog, const QString& Text, const std::vector<std::string>& Expected) {
    support::TypeFind(Dialog, Text);
    QCOMPARE(support::Column(Dialog, "ID"), Expected);
    QVERIFY(Boxes_->Messages().empty());
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    if (!Backends_->Server().IsRunning()) QSKIP(qPrintable(Backends_->Server().Reason()));
  }
  void init() {
    Company_ = Backends_->Open(TBackendKind::PostgreSQL);
    Boxes_ = std::make_unique<support::TErrorBoxes>();
  }
  void cleanup() {
    Boxes_.reset();
    Company_.reset();
  }

  void shouldShowWhatThePolicyOfTheAccountAllows() {
    LetClerkSee("current_user = 'clerk' AND id < 'C00010'", "current_user = 'clerk' AND custid <> 'C00003'");
    const int WithBalances = Company_->ValueBeside("SELECT COUNT(*) FROM custbal WHERE custid = 'C00003'").toInt();
    QVERIFY(WithBalances > 0);
    const std::unique_ptr<THost> Host = Clerk();
    const auto Dialog = uPickCustomer::TfrmPickCustomer::Create(Host->Connection(), false, "", true, true);
    QCOMPARE(Dialog->qryList_->RecordCount(), 9);
    QCOMPARE(Balance(*Dialog, "C00002"), std::string("some"));
    QCOMPARE(Balance(*Dialog, "C00003"), std::string("null"));
    QCOMPARE(Balance(*Dialog, "C00010"), std::string("no such customer"));
    for (const char* Text : {"C0000", "c0001", "Z"}) {
      const std::unique_ptr<TListDialog> List = TListDialog::Create(Host->Connection(), {});
      support::TypeFind(*List, Text);
      QCOMPARE(List->qryList_->RecordCount(), Text[0] == 'C' ? 9 : 0);
      QVERIFY(!List->lblRows->text().contains("search"));
    }
    QCOMPARE(Customers(*Host), 9);
    THost Owner(Backends_->Connect(*Company_));
    QCOMPARE(Customers(Owner), 1000);
  }

  void shouldPickSeveralOfWhatAPolicyAllows() {
    LetClerkSee("id IN ('C00005', 'C00007', 'C00009')", "false");
    const std::unique_ptr<THost> Host = Clerk();
    const std::unique_ptr<TTickDialog> Dialog = TTickDialog::Create(Host->Connection(), {});
    for (const int Row : {1, 3}) {
      Dialog->qryList_->SetRecNo(Row);
      Dialog->dbgAvailDblClick();
    }
    QCOMPARE(std::vector<int>(Dialog->TickedRows.begin(), Dialog->TickedRows.end()), (std::vector<int>{1, 3}));
    QCOMPARE(support::Column(*Dialog, "ID"), (std::vector<std::string>{"C00005", "C00007", "C00009"}));
  }

  void shouldFollowTheSettingOfAPolicy() {
    LetClerkSee("id = current_setting('app.company')", "false");
    const std::unique_ptr<THost> Host = Clerk();
    Host->Execute("SET app.company = 'C00005'");
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00005"});
    Host->Execute("SET app.company = 'C00006'");
    Finds(*Dialog, "c0", {"C00006"});
    QVERIFY(Host->Database().transaction());
    Host->Execute("SET LOCAL app.company = 'C00007'");
    Finds(*Dialog, "c0", {"C00007"});
    QCOMPARE(Host->Value("SELECT current_setting('app.company')"), QString("C00007"));
    QVERIFY(Host->Database().rollback());
    Finds(*Dialog, "c0", {"C00006"});
  }

  void shouldKeepTheListWhenAPolicyThrows() {
    LetClerkSee("id = current_setting('app.company')", "false");
    const std::unique_ptr<THost> Host = Clerk();
    Host->Execute("SET app.company = 'C00005'");
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    Company_->ExecuteBeside(
        "CREATE FUNCTION refuse() RETURNS boolean LANGUAGE plpgsql AS 'BEGIN RAISE EXCEPTION ''The books are "
        "closed.''; "
        "END'");
    Company_->ExecuteBeside("ALTER POLICY those ON cust USING (refuse())");
    support::TypeFind(*Dialog, "c0");
    QCOMPARE(Boxes_->Messages(), std::vector<std::string>{"The books are closed."});
    QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00005"});
    Company_->ExecuteBeside("ALTER POLICY those ON cust USING (true)");
    support::TypeFind(*Dialog, "C00501");
    QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00501"});
  }

  // The functions of policies are the host's, and no text of a query names them; but they can only read as well.
  void shouldLetThePolicysFunctionsReadButNotWrite() {
    Company_->ExecuteBeside("CREATE TABLE allowed AS SELECT 'C00005'::text AS id");
    Company_->ExecuteBeside(
        "CREATE FUNCTION may_see(wanted text) RETURNS boolean LANGUAGE plpgsql SECURITY DEFINER AS 'BEGIN RETURN "
        "EXISTS "
        "(SELECT FROM allowed WHERE id = wanted); END'");
    LetClerkSee("may_see(id)", "false");
    const std::unique_ptr<THost> Host = Clerk();
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host->Connection(), {});
    QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00005"});
    Company_->ExecuteBeside(
        "CREATE OR REPLACE FUNCTION may_see(wanted text) RETURNS boolean LANGUAGE plpgsql SECURITY DEFINER AS 'BEGIN "
        "INSERT INTO allowed VALUES (wanted); RETURN TRUE; END'");
    support::TypeFind(*Dialog, "c0");
    QCOMPARE(Boxes_->Messages(), std::vector<std::string>{"cannot execute INSERT in a read-only transaction"});
    QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"C00005"});
  }

  void shouldSearchBehindASecurityBarrier() {
    Company_->ExecuteBeside("CREATE SCHEMA stored");
    Company_->ExecuteBeside("ALTER TABLE cust SET SCHEMA stored");
    Company_->ExecuteBeside(
        "CREATE VIEW cust WITH (security_barrier) AS SELECT * FROM stored.cust WHERE id LIKE 'C0050%'");
    THost Host(Backends_->Connect(*Company_));
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host.Connection(), {});
    QCOMPARE(Dialog->qryList_->RecordCount(), 10);
    Finds(*Dialog, "501", {"C00501"});
    Finds(*Dialog, "601", {});
  }

  void shouldReadTheFirstTableOfTheSearchPath() {
    AddCompany("second", "B00001");
    THost Host(Backends_->Connect(*Company_));
    QCOMPARE(Customers(Host), 1000);
    Host.Execute("SET search_path = second, public");
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host.Connection(), {});
    QCOMPARE(support::Column(*Dialog, "ID"), std::vector<std::string>{"B00001"});
    Finds(*Dialog, "c0", {});
    Host.Execute("SET search_path = public, second");
    Finds(*Dialog, "B0", {});
    Finds(*Dialog, "C00501", {"C00501"});
    Host.Execute("SET search_path = second, public");
    Finds(*Dialog, "b0", {"B00001"});
    QVERIFY(Host.Database().transaction());
    Host.Execute("SET LOCAL search_path = public");
    Finds(*Dialog, "C00501", {"C00501"});
    QVERIFY(Host.Database().commit());
    Finds(*Dialog, "b0", {"B00001"});
    QCOMPARE(Host.Value("SHOW search_path"), QString("second, public"));
  }

  void shouldReadSchemasOfAnyName_data() {
    QTest::addColumn<QString>("Name");
    for (const char* Name : {"Main", "select", "2nd company", "semi;colon", "quo\"te", "apo'strophe", "back\\slash",
                             "é 日本", "$user", "a.b", "--"}) {
      QTest::newRow(Name) << QString::fromUtf8(Name);
    }
  }
  void shouldReadSchemasOfAnyName() {
    QFETCH(const QString, Name);
    AddCompany(Quoted(Name), "B00001");
    THost Host(Backends_->Connect(*Company_));
    Host.Execute(QStringLiteral("SET search_path = %1, public").arg(Quoted(Name)));
    // The one name that stands for another: that of the account.
    const bool IsAccounts = Name == "$user";
    const std::unique_ptr<TListDialog> Dialog = TListDialog::Create(Host.Connection(), {});
    QCOMPARE(Dialog->qryList_->RecordCount(), IsAccounts ? 1000 : 1);
    Finds(*Dialog, IsAccounts ? "C00501" : "b0", {IsAccounts ? "C00501" : "B00001"});
  }

  // The options of a connection, an account's and a database's own setting.
  void shouldFollowASearchPathThatIsSetFromOutside_data() {
    QTest::addColumn<QString>("Way");
    for (const char* Way : {"options", "account", "database"}) QTest::newRow(Way) << QString(Way);
  }
  void shouldFollowASearchPathThatIsSetFromOutside() {
    QFETCH(const QString, Way);
    AddCompany("second", "B00001");
    const QString Name = Company_->Database().databaseName();
    if (Way == "account") {
      Company_->ExecuteBeside("DO $$ BEGIN DROP ROLE seconds; EXCEPTION WHEN undefined_object THEN NULL; END $$");
      Company_->ExecuteBeside("CREATE ROLE seconds SUPERUSER LOGIN");
      Company_->ExecuteBeside("ALTER ROLE seconds SET search_path = second, public");
    } else if (Way == "database") {
      Company_->ExecuteBeside("ALTER DATABASE " + Name + " SET search_path = second, public");
    }
    QSqlDatabase Database = QSqlDatabase::cloneDatabase(Company_->Database(), support::NewName());
    if (Way == "account") Database.setUserName("seconds");
    if (Way == "options") Database.setConnectOptions("options=-csearch_path=second,public");
    QVERIFY2(Database.open(), qPrintable(Database.lastError().text()));
    THost Host(std::exchange(Database, {}));
    QCOMPARE(Customers(Host), 1);
  }

  void shouldListViewsThatCompute() {
    Company_->ExecuteBeside("CREATE VIEW numbers AS SELECT 'N' || n AS id FROM generate_series(1, 3000) n");
    Company_->ExecuteBeside("CREATE MATERIALIZED VIEW frozen AS SELECT id FROM cust WHERE id < 'C00003'");
    THost Host(Backends_->Connect(*Company_));
    const std::unique_ptr<TListDialog> Dialog =
        TListDialog::Create(Host.Connection(), TListSource("A.ID", "Numbers A WHERE 0=0"));
    QCOMPARE(Dialog->qryList_->RecordCount(), 3000);
    Finds(*Dialog, "N2999", {"N2999"});
    Company_->ExecuteBeside("DELETE FROM cust");
    Dialog->Source = TListSource("A.ID", "Frozen A WHERE 0=0");
    Finds(*Dialog, "c0", {"C00001", "C00002"});
    Company_->ExecuteBeside("REFRESH MATERIALIZED VIEW frozen");
    Finds(*Dialog, "c0", {});
  }
};

QTEST_MAIN(tst_PoliciesAndSchemas)
#include "tst_PoliciesAndSchemas.moc"
