#include <QTest>

#include "clusters/ThrowawayGalera.h"
#include "sample/SampleCompany.h"
#include "servers/Backends.h"
#include "servers/SameLists.h"

using support::TBackend;

/// Every dialog lists the same on each node of a cluster, whichever the data were written on.
class tst_ConformanceGalera : public support::TSameLists {
  Q_OBJECT

  QTemporaryDir Folder_;
  std::unique_ptr<TThrowawayGalera> Cluster_;
  std::vector<std::unique_ptr<ads::TAdsConnection>> Connections_;

  void Compare(const char* Name, QSqlDatabase Database) {
    if (!Database.isOpen() && !Database.open()) qFatal("%s: %s", Name, qPrintable(Database.lastError().text()));
    Connections_.push_back(std::make_unique<ads::TAdsConnection>(Database));
    Over.push_back({Name, Connections_.back().get()});
  }

  static QSqlDatabase Connect(const char* Driver, const char* Name, const QString& DatabaseName) {
    QSqlDatabase Database = QSqlDatabase::addDatabase(Driver, Name);
    Database.setDatabaseName(DatabaseName);
    return Database;
  }

 private slots:
  void initTestCase() {
    Cluster_ = std::make_unique<TThrowawayGalera>();
    if (!Cluster_->IsRunning()) QSKIP(qPrintable(Cluster_->Reason()));
    const QString File = Folder_.filePath("company.db");
    sample::CreateCompany(File.toStdString());
    TBackend::Execute(Cluster_->Connect(0, "maker", "test"), "CREATE DATABASE company");
    QSqlDatabase::removeDatabase("maker");
    sample::CreateCompanyOnServer("mysql://tester@127.0.0.1:" + std::to_string(Cluster_->Node(0).Port()) + "/company");
    QVERIFY(Cluster_->WaitUntilSynced());
    Compare("SQLite", Connect("QSQLITE", "file", File));
    Compare("the node that was written", Cluster_->Connect(0, "written", "company"));
    Compare("another node", Cluster_->Connect(1, "another", "company"));
    Compare("the third by ODBC",
            Connect("QODBC", "by ODBC",
                    QStringLiteral("DRIVER={MariaDB Unicode};SERVER=127.0.0.1;PORT=%1;DATABASE=company;UID=tester")
                        .arg(Cluster_->Node(2).Port())));
  }
  void cleanupTestCase() {
    qInfo("%d lists compared", Comparisons());
    Over.clear();
    Connections_.clear();
    for (const char* Name : {"file", "written", "another", "by ODBC"}) QSqlDatabase::removeDatabase(Name);
    Cluster_.reset();
  }
};

QTEST_MAIN(tst_ConformanceGalera)
#include "tst_ConformanceGalera.moc"
