#include <QApplication>
#include <QSqlDatabase>
#include <QTest>
#include <functional>
#include <stdexcept>
#include <thread>

#include "ads/Ads.h"
#include "catalog/Catalog.h"
#include "picks/reference/uPickCity.h"
#include "support/TestCompany.h"

namespace {

std::string MessageOf(const std::function<void()>& Body) {
  try {
    Body();
  } catch (const ads::EDatabaseError& Error) {
    return std::string("database: ") + Error.what();
  } catch (const std::logic_error& Error) {
    return std::string("logic: ") + Error.what();
  }
  return "nothing was thrown";
}

std::string MessageOnAnotherThread(const std::function<void()>& Body) {
  std::string Message;
  std::thread([&] { Message = MessageOf(Body); }).join();
  return Message;
}

void CallPick(ads::TAdsConnection& Connection) {
  std::string Zip = "before";
  uPickCity::CallPickCity(&Connection, Zip);
}

constexpr char NoApplication[] = "logic: A pick needs a QApplication.";
constexpr char OtherThread[] = "logic: A pick must be called on the thread of the user interface.";
constexpr char OtherConnection[] = "database: The database connection belongs to another thread.";

/// What a program that runs its user interface has.
class TApplication {
 public:
  TApplication() : Application_(Count_, Arguments_) {}

 private:
  int Count_ = 1;
  char Name_[5] = "test";
  char* Arguments_[2] = {Name_, nullptr};
  QApplication Application_;
};

}  // namespace

/// Picks and datasets called where they must not be: an exception, and the connection as it was.
class tst_WrongThread : public QObject {
  Q_OBJECT

 private slots:
  void shouldRefuseAPickWithoutAnApplication() {
    ads::TAdsConnection Connection{QSqlDatabase()};
    QCOMPARE(MessageOf([&] { CallPick(Connection); }), std::string(NoApplication));
    int Count = 1;
    char Name[] = "test";
    char* Arguments[] = {Name, nullptr};
    const QCoreApplication WithoutWidgets(Count, Arguments);
    QCOMPARE(MessageOf([&] { CallPick(Connection); }), std::string(NoApplication));
  }

  void shouldRefuseEveryPickOnAnotherThread() {
    const TApplication Application;
    support::TTestCompany Company;
    for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
      const std::string Message =
          MessageOnAnotherThread([&] { Pick.Call(Company.Connection(), catalog::TArgs(Pick.Args)); });
      QVERIFY2(Message == OtherThread, (Pick.Function + ": " + Message).c_str());
    }
    std::string Zip = "before";
    MessageOnAnotherThread([&] { uPickCity::CallPickCity(Company.Connection(), Zip); });
    QVERIFY2(Zip.empty(), "a pick that throws leaves no old key");
    QCOMPARE(Company.Text("SELECT COUNT(*) FROM Cust"), std::string("1000"));
  }

  void shouldRefuseAConnectionOfAnotherThread() {
    const TApplication Application;
    support::TTestCompany Company;
    // A thread that lives as long as its connection does.
    std::unique_ptr<ads::TAdsConnection> Connection;
    QThread Thread;
    QObject OnThread;
    OnThread.moveToThread(&Thread);
    Thread.start();
    const auto Run = [&](const std::function<void()>& Body) {
      QMetaObject::invokeMethod(&OnThread, Body, Qt::BlockingQueuedConnection);
    };
    Run([&] {
      QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE", "of another thread");
      Database.setDatabaseName(QString::fromStdString(Company.FileName()));
      Database.open();
      Connection = std::make_unique<ads::TAdsConnection>(Database);
    });
    QCOMPARE(MessageOf([&] { CallPick(*Connection); }), std::string(OtherConnection));
    std::string InItsOwnThread;
    Run([&] {
      InItsOwnThread = MessageOf([&] { Open(*Connection); });
      Connection.reset();
      QSqlDatabase::removeDatabase("of another thread");
      OnThread.moveToThread(Thread.thread());
    });
    QCOMPARE(InItsOwnThread, std::string("nothing was thrown"));
    Thread.quit();
    Thread.wait();
  }

  void shouldRefuseToReadOnAnotherThread_data() {
    QTest::addColumn<QString>("Driver");
    for (const char* Driver : {"QSQLITE", "QODBC"}) QTest::newRow(Driver) << QString(Driver);
  }
  void shouldRefuseToReadOnAnotherThread() {
    QFETCH(QString, Driver);
    const TApplication Application;
    support::TTestCompany Company;
    if (!QSqlDatabase::isDriverAvailable(Driver)) QSKIP("Qt's driver is not installed");
    QSqlDatabase Database = QSqlDatabase::addDatabase(Driver, "here");
    const QString File = QString::fromStdString(Company.FileName());
    Database.setDatabaseName(Driver == "QODBC" ? "DRIVER={SQLite3};Database=" + File : File);
    const bool Opened = Database.open();
    if (Opened) {
      ads::TAdsConnection Connection(Database);
      QCOMPARE(MessageOnAnotherThread([&] { Open(Connection); }), std::string(OtherConnection));
      QCOMPARE(MessageOnAnotherThread([&] { OpenTable(Connection); }), std::string(OtherConnection));
      QCOMPARE(MessageOnAnotherThread([&] { Connection.Dialect(); }), std::string(OtherConnection));
      QCOMPARE(MessageOf([&] { Open(Connection); }), std::string("nothing was thrown"));
      QCOMPARE(MessageOf([&] { OpenTable(Connection); }), std::string("nothing was thrown"));
    }
    Database = {};
    QSqlDatabase::removeDatabase("here");
    if (!Opened) QSKIP("The database behind the driver cannot be opened");
  }

 private:
  static void Open(ads::TAdsConnection& Connection) {
    ads::TAdsQuery Query(nullptr);
    Query.SetConnection(&Connection);
    Query.AddField("Zip", ads::TFieldType::ftString, 30);
    Query.SQL()->Add("SELECT Zip FROM Area");
    Query.Open();
    QVERIFY(!Query.IsEmpty());
  }
  static void OpenTable(ads::TAdsConnection& Connection) {
    ads::TAdsTable Table(nullptr);
    Table.SetConnection(&Connection);
    Table.SetTableName("Sys");
    Table.AddField("QtyDec", ads::TFieldType::ftSmallint);
    Table.Open();
    QVERIFY(!Table.IsEmpty());
  }
};

QTEST_APPLESS_MAIN(tst_WrongThread)
#include "tst_WrongThread.moc"
