#include <QTest>
#include <algorithm>

#include "check/Check.h"
#include "clusters/Companies.h"
#include "clusters/Host.h"

using check::TFinding;
using check::TFindingKind;
using check::TReport;
using check::TSeverity;
using support::TBackend;
using support::TBackendKind;
using support::THost;

/// The check of databases whose tables lie elsewhere, in parts, behind views or policies: what is told is so, and what
/// is advised can be done.
class tst_CheckAtSize : public QObject {
  Q_OBJECT

  std::unique_ptr<support::TBackends> Backends_;
  std::unique_ptr<TThrowawayPostgreSQL> Far_;
  std::unique_ptr<TBackend> Company_;

  // Of picks that read the tables that are of many kinds here.
  static TReport Check(THost& Host) {
    std::vector<const catalog::TPick*> Picks;
    for (const char* Name : {"city", "customer", "vendor"}) {
      Picks.push_back(catalog::FullCatalog().Find(Name));
    }
    return check::Check(Host.Connection(), Picks);
  }
  TReport CheckAs(const QString& Account = {}) {
    THost Host(Backends_->Connect(*Company_, Account));
    return Check(Host);
  }
  static std::vector<TFinding> Advice(const TReport& Report) {
    std::vector<TFinding> Result;
    for (const TFinding& Finding : Report.Findings) {
      if (Finding.Severity == TSeverity::Advice) Result.push_back(Finding);
    }
    return Result;
  }
  static bool Names(const TReport& Report, const std::string& Part) {
    return check::TextOf(Report).find(Part) != std::string::npos;
  }
  // It is fit, and when what it advises is done, it has nothing more to say.
  void BecomesPerfect(std::size_t AtLeast) {
    const TReport Before = CheckAs();
    QVERIFY2(Before.IsFit(), check::TextOf(Before).c_str());
    QVERIFY2(Advice(Before).size() >= AtLeast, check::TextOf(Before).c_str());
    for (const TFinding& Finding : Advice(Before)) {
      QSqlQuery Mend(Company_->Beside());
      QVERIFY2(Mend.exec(QString::fromStdString(Finding.Mend)), qPrintable(Mend.lastError().text()));
    }
    const TReport After = CheckAs();
    QVERIFY2(After.IsFit() && Advice(After).empty(), check::TextOf(After).c_str());
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::TBackends>();
    if (!Backends_->Server().IsRunning()) QSKIP(qPrintable(Backends_->Server().Reason()));
  }
  void init() { Company_ = Backends_->Open(TBackendKind::PostgreSQL); }
  void cleanup() { Company_.reset(); }

  void shouldAdviseIndexesOfPartitionedTables() {
    support::PartitionByRange(Company_->Beside());
    BecomesPerfect(3);
  }

  void shouldKnowIndexesThatEachPartitionHasOfItsOwn() {
    support::PartitionByRange(Company_->Beside());
    for (const char* Part : {"first", "middle", "last", "rest"}) {
      Company_->ExecuteBeside(QStringLiteral("CREATE INDEX ON custbal_%1 (custid)").arg(Part));
      if (Part != std::string("rest"))
        Company_->ExecuteBeside(QStringLiteral("CREATE INDEX ON vend_%1 (id)").arg(Part));
    }
    const TReport Report = CheckAs();
    QVERIFY2(!Names(Report, "No index of table CustBal"), check::TextOf(Report).c_str());
    QVERIFY2(Names(Report, "No index of table Vend"), check::TextOf(Report).c_str());  // one has none
  }

  void shouldAdviseNoIndexOfAnotherServersTables() {
    Far_ = std::make_unique<TThrowawayPostgreSQL>();
    QVERIFY2(Far_->IsRunning(), qPrintable(Far_->Reason()));
    support::CreateCompanyOn(*Far_);
    support::PutShardsOn(Company_->Beside(), *Far_);
    QVERIFY(!Names(CheckAs(), "No index of table Area"));
    BecomesPerfect(3);
    Far_->Stop();
    QVERIFY(CheckAs().IsFit());  // nothing is read
    Far_.reset();
  }

  void shouldTakeViewsForTables() {
    support::PutViewsInPlace(Company_->Beside());
    const TReport Report = CheckAs();
    QVERIFY2(Report.IsFit() && Advice(Report).empty(), check::TextOf(Report).c_str());
    Company_->ExecuteBeside("DROP VIEW cust");
    Company_->ExecuteBeside("CREATE VIEW cust AS SELECT id, company FROM stored.cust");
    const TReport Less = CheckAs();
    QVERIFY(!Less.IsFit());
    QVERIFY2(Names(Less, "Column Cust.Phone is missing"), check::TextOf(Less).c_str());
  }

  void shouldFollowTheSearchPath() {
    support::MoveToOddSchema(Company_->Beside());
    const TReport Report = CheckAs();
    QVERIFY2(Report.IsFit() && Advice(Report).empty(), check::TextOf(Report).c_str());
    THost Host(Backends_->Connect(*Company_));
    Host.Execute("SET search_path = public");
    const TReport Other = Check(Host);
    QVERIFY2(Names(Other, "Table Sys has no row"), check::TextOf(Other).c_str());
    QVERIFY2(!Advice(Other).empty(), check::TextOf(Other).c_str());  // the empty ones have no indexes
    Company_->ExecuteBeside("DROP TABLE public.cust");
    const TReport Missing = Check(Host);
    QVERIFY2(Names(Missing, "Table Cust is missing"), check::TextOf(Missing).c_str());
    QVERIFY2(Names(Missing, support::OddSchema), check::TextOf(Missing).c_str());
  }

  void shouldTellARightThatIsMissingBehindPolicies() {
    support::ProtectRows(Company_->Beside());
    const TReport Report = CheckAs("clerk");
    QVERIFY2(Report.IsFit() && Advice(Report).empty(), check::TextOf(Report).c_str());
    QCOMPARE(Report.Account, std::string("clerk"));
    Company_->ExecuteBeside("REVOKE SELECT ON vend FROM clerk");
    const TReport Without = CheckAs("clerk");
    QVERIFY(!Without.IsFit());
    QVERIFY2(Names(Without, "The account clerk may not read table Vend"), check::TextOf(Without).c_str());
  }

  // The rights to a partitioned table are those to its name, whoever may read its partitions.
  void shouldTellARightThatIsMissingToAPartitionedTable() {
    support::PartitionByRange(Company_->Beside());
    support::ProtectRows(Company_->Beside());
    Company_->ExecuteBeside("REVOKE SELECT ON cust_first FROM clerk");
    QVERIFY(CheckAs("clerk").IsFit());
    Company_->ExecuteBeside("REVOKE SELECT ON cust FROM clerk");
    const TReport Without = CheckAs("clerk");
    QVERIFY2(Names(Without, "The account clerk may not read table Cust"), check::TextOf(Without).c_str());
  }
};

QTEST_MAIN(tst_CheckAtSize)
#include "tst_CheckAtSize.moc"
