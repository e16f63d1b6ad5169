#include <QTest>
#include <algorithm>

#include "clusters/Companies.h"
#include "clusters/Host.h"
#include "clusters/ThrowawayPgBouncer.h"
#include "servers/Backends.h"
#include "servers/SameLists.h"

using support::NewName;
using support::TBackend;
using support::TBackendKind;

/// Every dialog lists the same however PostgreSQL is run: behind a pooler, on a standby, in partitions, over several
/// servers, behind views and policies, in a schema of any name.
class tst_ConformanceAtSize : public support::TSameLists {
  Q_OBJECT

  struct TWay {
    QString Name;
    std::unique_ptr<support::THost> Host;
  };

  std::unique_ptr<support::TBackends> All_;
  std::unique_ptr<TBackend> SQLite_;
  std::vector<std::unique_ptr<TBackend>> Companies_;
  std::unique_ptr<TThrowawayPostgreSQL> Standby_;
  std::unique_ptr<TThrowawayPostgreSQL> Far_;
  std::unique_ptr<TThrowawayPgBouncer> Session_;
  std::unique_ptr<TThrowawayPgBouncer> Transaction_;
  std::vector<TWay> Ways_;

  // A company's database that is made into another shape by its owner.
  QString NewCompany(const std::function<void(const QSqlDatabase&)>& Shape = nullptr) {
    Companies_.push_back(All_->Open(TBackendKind::PostgreSQL));
    if (Shape) Shape(Companies_.back()->Beside());
    Companies_.back()->ExecuteBeside("ANALYZE");
    return Companies_.back()->Database().databaseName();
  }

  void Add(const QString& Name, const QSqlDatabase& Database) {
    QVERIFY2(Database.isOpen(), qPrintable(Name + ": " + Database.lastError().text()));
    Ways_.push_back({Name, std::make_unique<support::THost>(Database)});
  }

  static QSqlDatabase ByODBC(const QString& Host, int Port, const QString& Name) {
    QSqlDatabase Database = QSqlDatabase::addDatabase("QODBC", NewName());
    Database.setDatabaseName(QStringLiteral("DRIVER={PostgreSQL Unicode};Servername=%1;Port=%2;Database=%3;Uid=tester")
                                 .arg(Host)
                                 .arg(Port)
                                 .arg(Name));
    Database.open();
    return Database;
  }

  static QSqlDatabase As(const QString& Account, const TBackend& Company) {
    QSqlDatabase Database = QSqlDatabase::cloneDatabase(Company.Database(), NewName());
    Database.setUserName(Account);
    Database.open();
    return Database;
  }

  void AddPoolers() {
    const TThrowawayPostgreSQL& Server = All_->Server();
    Session_ = std::make_unique<TThrowawayPgBouncer>(Server, TThrowawayPgBouncer::TMode::Session);
    Transaction_ = std::make_unique<TThrowawayPgBouncer>(Server, TThrowawayPgBouncer::TMode::Transaction);
    if (!Session_->IsRunning() || !Transaction_->IsRunning()) return qWarning("%s", qPrintable(Session_->Reason()));
    const QString Plain = NewCompany();
    Add("PgBouncer, a session each", Session_->Connect(NewName(), Plain));
    Add("PgBouncer, a transaction each", Transaction_->Connect(NewName(), Plain));
    if (!All_->Missing(TBackendKind::ODBCPostgreSQL).isEmpty()) return;
    Add("PgBouncer by ODBC", ByODBC(Session_->Host(), Session_->Port(), Plain));
  }

  void AddStandby() {
    const QString Plain = NewCompany();
    Standby_ = std::make_unique<TThrowawayPostgreSQL>(TThrowawayPostgreSQL::TOptions{{}, false, &All_->Server()});
    QVERIFY2(Standby_->IsRunning(), qPrintable(Standby_->Reason()));
    Add("a hot standby", Standby_->Connect(NewName(), Plain));
  }

  void AddShapes() {
    Far_ = std::make_unique<TThrowawayPostgreSQL>();
    support::CreateCompanyOn(*Far_);
    NewCompany(support::PartitionByRange);
    Add("partitions", As("tester", *Companies_.back()));
    NewCompany([this](const QSqlDatabase& Database) { support::PutShardsOn(Database, *Far_); });
    Add("shards", As("tester", *Companies_.back()));
    NewCompany(support::PutViewsInPlace);
    Add("views", As("tester", *Companies_.back()));
    NewCompany(support::ProtectRows);
    Add("row-level security", As("clerk", *Companies_.back()));
    NewCompany(support::MoveToOddSchema);
    Add("an odd schema", As("tester", *Companies_.back()));
  }

 private slots:
  void initTestCase() {
    All_ = std::make_unique<support::TBackends>();
    if (!All_->Server().IsRunning()) QSKIP(qPrintable(All_->Server().Reason()));
    SQLite_ = All_->Open(TBackendKind::SQLite);
    Over.push_back({"SQLite", SQLite_->Connection()});
    AddPoolers();
    AddStandby();
    AddShapes();
    for (const TWay& Way : Ways_) Over.push_back({Way.Name, Way.Host->Connection()});
  }

  void cleanupTestCase() {
    qInfo("%d lists compared", Comparisons());
    Ways_.clear();
    Companies_.clear();
  }

  void shouldCompareEveryWay() {
    if (!Session_->IsRunning()) QSKIP(qPrintable(Session_->Reason()));
    const QString Missing = All_->Missing(TBackendKind::ODBCPostgreSQL);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    QCOMPARE(Over.size(), std::size_t{10});
  }

  // What they would list the same as without a reason, if it were not so.
  void shouldFindEachWayToBeWhatItIsCalled() {
    const auto Of = [this](const char* Name, const char* Sql) {
      const auto Way = std::find_if(Ways_.begin(), Ways_.end(), [Name](const TWay& Each) { return Each.Name == Name; });
      return Way == Ways_.end() ? QString("none") : Way->Host->Value(Sql);
    };
    const char Kinds[] = "SELECT string_agg(DISTINCT relkind::text, '') FROM pg_class WHERE relname IN ('oe', 'area')";
    QCOMPARE(Of("partitions", Kinds), QString("pr"));
    QCOMPARE(Of("shards", Kinds), QString("fp"));
    QCOMPARE(Of("views",
                "SELECT string_agg(DISTINCT relkind::text, '') FROM pg_class WHERE relnamespace = "
                "'public'::regnamespace"),
             QString("mv"));
    for (const char* Way : {"partitions", "shards"}) {
      QVERIFY(Of(Way,
                 "SELECT least((SELECT COUNT(*) FROM oe_first), (SELECT COUNT(*) FROM oe_middle), (SELECT COUNT(*) "
                 "FROM oe_last))")
                  .toInt() > 100);
    }
    QCOMPARE(Of("a hot standby", "SELECT pg_is_in_recovery()"), QString("true"));
    QCOMPARE(Of("row-level security", "SELECT row_security_active('oe')"), QString("true"));
    QCOMPARE(Of("an odd schema", "SELECT current_schema()"), QString::fromUtf8(support::OddSchema));
  }
};

QTEST_MAIN(tst_ConformanceAtSize)
#include "tst_ConformanceAtSize.moc"
