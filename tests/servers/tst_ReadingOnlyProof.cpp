#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "ads/Ads.h"
#include "ads/Values.h"
#include "picks/parties/uPickCustomer.h"
#include "servers/Backends.h"
#include "servers/OpenOrSkip.h"
#include "servers/Watch.h"

using support::Contents;
using support::TBackend;
using support::TBackendKind;
using uPickCustomer::TfrmPickCustomer;

namespace {

// Texts with which somebody might try to do more than search.
constexpr const char* Attempts[] = {"x'; DELETE FROM Cust; --",
                                    "x' OR 1=1; DROP TABLE Area; --",
                                    "x'); DELETE FROM Cust; SELECT ('",
                                    "\\'; DELETE FROM Cust; --",
                                    "\\' OR 1=1; DELETE FROM Cust; --",
                                    "x' UNION SELECT * FROM (DELETE FROM Cust RETURNING *) D; --",
                                    "x'\r\n;\rDELETE FROM Cust--",
                                    "x' /*; */; DELETE FROM Cust; --",
                                    "$$; DELETE FROM Cust; $$",
                                    "%' ; UPDATE Cust SET Inactive = TRUE; --",
                                    "?; DELETE FROM Cust",
                                    "{fn DELETE FROM Cust}"};

}  // namespace

/// Nothing that is typed, passed or written in the database makes a pick change data.
class tst_ReadingOnlyProof : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TBackend> Company_;

  void AddBackends(bool OnlyPostgreSQL = false) {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) {
      if (!OnlyPostgreSQL || support::IsOnPostgreSQL(Kind)) QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  bool Open() {
    const TBackendKind Kind = *static_cast<TBackendKind*>(QTest::qData("Kind", qMetaTypeId<TBackendKind>()));
    Company_ = support::OpenOrSkip(*Backends_, Kind);
    if (Company_ == nullptr) return false;
    return true;
  }
  QStringList Rows(const std::string& Sql) { return Values(*Company_->Connection(), Sql); }

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::TBackends>(); }
  void cleanup() { Company_.reset(); }

  void shouldRefuseEveryTextThatIsNoQuery_data() { AddBackends(); }
  void shouldRefuseEveryTextThatIsNoQuery() {
    if (!Open()) return;
    const QString Before = Contents(*Company_);
    for (const char* Sql : {"DELETE FROM Area",
                            "SELECT Zip X FROM Area; DELETE FROM Area",
                            "SELECT Zip X FROM Area;DELETE FROM Area --",
                            "WITH D AS (DELETE FROM Area RETURNING Zip) SELECT Zip X FROM D",
                            "SELECT Zip X FROM (WITH D AS (DELETE FROM Area RETURNING Zip) SELECT Zip FROM D) Y",
                            "SELECT Zip X INTO Stolen FROM Area",
                            "SELECT Zip X FROM Area FOR UPDATE",
                            "SELECT nextval('presets_presetid_seq') X",
                            "SELECT setval('presets_presetid_seq', 99) X",
                            "SELECT pg_terminate_backend(1) X",
                            "SELECT lo_creat(-1) X",
                            "SELECT load_extension('x') X",
                            "SELECT \"pg_advisory_lock\"(1) X",
                            "SELECT set_config('a.b', 'c', FALSE) X",
                            "SELECT query_to_xml('DELETE FROM area', TRUE, FALSE, '') X",
                            "SELECT E'\\'; DELETE FROM Area; --' X",
                            "SELECT $$a$$ X",
                            "SELECT 1 X /*! ; DELETE FROM Area */",
                            "BEGIN",
                            "COMMIT",
                            "VACUUM",
                            "PRAGMA user_version = 7",
                            "SELECT 1 X \\; DELETE FROM Area",
                            "TABLE Area",
                            "VALUES (1)",
                            "EXPLAIN ANALYZE DELETE FROM Area"}) {
      QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Rows(Sql));
    }
    QCOMPARE(Contents(*Company_), Before);
  }

  void shouldTakeATypedTextForATextToFind_data() { AddBackends(); }
  void shouldTakeATypedTextForATextToFind() {
    if (!Open()) return;
    if (Company_->Kind() == TBackendKind::PostgreSQL) Company_->Execute("SET standard_conforming_strings = off");
    const QString Before = Contents(*Company_);
    const auto Dialog = TfrmPickCustomer::Create(Company_->Connection(), false, "", true, true);
    const int All = Dialog->qryList_->RecordCount();
    QVERIFY(All > 500);
    for (const char* Attempt : Attempts) {
      for (int FindBy = 0; FindBy < Dialog->rgFindBy->Items().Count(); ++FindBy) {
        Dialog->rgFindBy->SetItemIndex(FindBy);
        Dialog->edFind->setText(QString::fromUtf8(Attempt));
        Dialog->CallSetSQL();
        QCOMPARE(Dialog->qryList_->RecordCount(), 0);  // it was looked for, in vain, and the query did not fail
      }
    }
    QCOMPARE(Contents(*Company_), Before);
  }

  void shouldChangeNothingWhateverIsPassed_data() { AddBackends(); }
  void shouldChangeNothingWhateverIsPassed() {
    if (!Open()) return;
    const QString Before = Contents(*Company_);
    for (const char* Attempt : Attempts) {
      try {
        TfrmPickCustomer::Create(Company_->Connection(), true, Attempt, true, false);
      } catch (const ads::EDatabaseError&) {
      }
    }
    QCOMPARE(Contents(*Company_), Before);
  }

  void shouldHaveTheServerRefuseWhatAFunctionWrites_data() { AddBackends(true); }
  void shouldHaveTheServerRefuseWhatAFunctionWrites() {
    if (!Open()) return;
    Company_->ExecuteBeside(
        "CREATE FUNCTION writing() RETURNS integer LANGUAGE plpgsql AS $$ BEGIN "
        "INSERT INTO area VALUES ('written'); RETURN 1; END $$");
    Company_->ExecuteBeside(
        "CREATE FUNCTION counting() RETURNS bigint LANGUAGE sql AS "
        "$$ SELECT nextval('presets_presetid_seq') $$");
    Company_->ExecuteBeside(
        "CREATE FUNCTION unlocking() RETURNS integer LANGUAGE plpgsql AS $$ BEGIN "
        "PERFORM set_config('transaction_read_only', 'off', true); "
        "INSERT INTO area VALUES ('written'); RETURN 1; END $$");
    Company_->ExecuteBeside(
        "CREATE FUNCTION creating() RETURNS integer SECURITY DEFINER LANGUAGE plpgsql AS $$ BEGIN "
        "EXECUTE 'CREATE TABLE created (a integer)'; RETURN 1; END $$");
    Company_->ExecuteBeside("CREATE VIEW innocent AS SELECT writing() AS zip");
    const QString Before = Contents(*Company_);
    const auto TryAll = [this] {
      for (const char* Sql :
           {"SELECT writing() X", "SELECT Zip X FROM Area WHERE writing() > 0", "SELECT Zip X FROM Innocent",
            "SELECT counting() X", "SELECT unlocking() X", "SELECT creating() X"}) {
        QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError, Values(*Company_->Connection(), Sql, "X",
                                                             {"writing", "counting", "unlocking", "creating"}));
      }
      for (const char* Entity :
           {"x' OR writing() > 0 OR C.Entity = 'x", "x' OR C.ID IN (SELECT Zip FROM Innocent) OR ID='"}) {
        QVERIFY_THROWS_EXCEPTION(ads::EDatabaseError,
                                 TfrmPickCustomer::Create(Company_->Connection(), true, Entity, true, false));
      }
    };
    TryAll();
    QVERIFY(Company_->Database().transaction());
    Company_->Execute("INSERT INTO area (zip) VALUES ('hosts')");
    TryAll();
    Company_->Execute("DELETE FROM area WHERE zip = 'hosts'");
    QVERIFY(Company_->Database().commit());
    QCOMPARE(Contents(*Company_), Before);
  }

  void shouldNeedNoMoreThanTheRightToRead_data() { AddBackends(true); }
  void shouldNeedNoMoreThanTheRightToRead() {
    if (!Open()) return;
    QSqlQuery(Company_->Beside()).exec("CREATE ROLE picker LOGIN");  // of the server, so it is there the second time
    const QString Name = Company_->ValueBeside("SELECT current_database()").toString();
    Company_->ExecuteBeside("REVOKE ALL ON DATABASE " + Name + " FROM PUBLIC");
    Company_->ExecuteBeside("REVOKE ALL ON SCHEMA public FROM PUBLIC");
    Company_->ExecuteBeside("GRANT CONNECT ON DATABASE " + Name + " TO picker");
    Company_->ExecuteBeside("GRANT USAGE ON SCHEMA public TO picker");
    Company_->ExecuteBeside("GRANT SELECT ON ALL TABLES IN SCHEMA public TO picker");
    QSqlDatabase Database = Backends_->Connect(*Company_, "picker");
    QVERIFY2(Database.isOpen(), qPrintable(Database.lastError().text()));
    {
      ads::TAdsConnection Connection(Database);
      for (const bool InTransaction : {false, true}) {
        if (InTransaction) QVERIFY(Database.transaction());
        const auto Dialog = TfrmPickCustomer::Create(&Connection, false, "", true, true);
        QVERIFY(Dialog->qryList_->RecordCount() > 500);
        QVERIFY(!Dialog->qryList_Balance->DisplayText().empty() || Dialog->qryList_Balance->IsNull());
        QVERIFY(Dialog->tblCustBal_->Active());
        if (InTransaction) QVERIFY(Database.commit());
      }
      QSqlQuery Query(Database);
      QVERIFY(!Query.exec("INSERT INTO area (zip) VALUES ('x')"));
    }
    const QString ConnectionName = Database.connectionName();
    Database = {};
    QSqlDatabase::removeDatabase(ConnectionName);
  }
};

QTEST_MAIN(tst_ReadingOnlyProof)
#include "tst_ReadingOnlyProof.moc"
