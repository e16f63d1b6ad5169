#include "LoadWriters.h"

#include <QElapsedTimer>
#include <QSqlError>
#include <QSqlQuery>
#include <algorithm>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds BetweenWrites(10);
constexpr std::chrono::milliseconds BetweenLooks(4);
constexpr int KnownCustomers = 1000;  // that any company has

struct TWrite {
  const char* Operation;
  QString Sql;
};

// A writer's round: rows of its own come, change and go, and rows that all read change.
std::vector<TWrite> Round(int Writer, int Writers, int Place) {
  const QString Own = QStringLiteral("W%1%2").arg(Writer).arg(Place % 1000, 4, 10, QLatin1Char('0'));
  const int Known = 1 + (Place * Writers + Writer) % KnownCustomers;
  const QString Customer = QStringLiteral("C%1").arg(Known, 5, 10, QLatin1Char('0'));
  return {
      {"insert a customer",
       QStringLiteral("INSERT INTO cust (id, company, entity, inactive) VALUES ('%1', 'Roofing %1', 'WEST', FALSE)")
           .arg(Own)},
      {"update a customer",
       QStringLiteral("UPDATE cust SET contact = 'Written %1' WHERE id = '%2'").arg(Own, Customer)},
      {"update a balance",
       QStringLiteral("UPDATE custbal SET balance = coalesce(balance, 0) + 1 WHERE custid = '%1'").arg(Customer)},
      {"insert a document",
       QStringLiteral("INSERT INTO oe (type, number, id, subtotal, posted) VALUES ('O', '%1', 'C00020', 1, FALSE)")
           .arg(Own)},
      {"update a document",
       QStringLiteral("UPDATE oe SET subtotal = subtotal + 1 WHERE number = '%1' AND type = 'O'").arg(Own)},
      {"delete a document", QStringLiteral("DELETE FROM oe WHERE number = '%1' AND type = 'O'").arg(Own)},
      {"delete a customer", QStringLiteral("DELETE FROM cust WHERE id = '%1'").arg(Own)},
  };
}

// A connection for the thread that it is made on.
class TThreadConnection {
 public:
  TThreadConnection(const TLoadServer& Server, const QString& Name) : Name_(Name), Database_(Server.Connect(Name)) {
    if (!Database_.isOpen()) qFatal("%s", qPrintable(Database_.lastError().text()));
  }
  ~TThreadConnection() {
    Database_ = {};
    QSqlDatabase::removeDatabase(Name_);
  }
  TThreadConnection(const TThreadConnection&) = delete;
  TThreadConnection& operator=(const TThreadConnection&) = delete;

  const QSqlDatabase& Database() const { return Database_; }

 private:
  QString Name_;
  QSqlDatabase Database_;
};

}  // namespace

TLoadWriters::TLoadWriters(const TLoadServer& Server, int Writers) : Server_(Server), Writers_(Writers) {
  for (int Writer = 0; Writer < Writers; ++Writer) {
    Threads_.emplace_back([this, Writer] { Write(Writer); });
  }
  Threads_.emplace_back([this] { Watch(); });
}

void TLoadWriters::Stop() {
  IsStopped_ = true;
  for (std::thread& Thread : Threads_) Thread.join();
  Threads_.clear();
}

void TLoadWriters::Write(int Writer) {
  const TThreadConnection Connection(Server_, QStringLiteral("writer %1").arg(Writer));
  {
    QSqlQuery Session(Server_.SessionSql(), Connection.Database());
    if (!Session.next()) qFatal("%s", qPrintable(Session.lastError().text()));
    const std::lock_guard Lock(Mutex_);
    Sessions_.insert(Session.value(0).toLongLong());
  }
  ++Connected_;
  for (int Place = 0; !IsStopped_; ++Place) {
    for (const TWrite& Each : Round(Writer, Writers_, Place)) {
      if (!Execute(Connection.Database(), QLatin1String(Each.Operation), Each.Sql)) return;
      std::this_thread::sleep_for(BetweenWrites);
    }
  }
}

bool TLoadWriters::Execute(const QSqlDatabase& Database, const QString& Operation, const QString& Sql) {
  QElapsedTimer Passed;
  Passed.start();
  QSqlQuery Query(Database);
  const bool IsWritten = Query.exec(Sql);
  Times_.Note(Operation, static_cast<double>(Passed.nsecsElapsed()) / 1e6);
  if (!IsWritten) {
    const std::lock_guard Lock(Mutex_);
    Errors_ << Operation + ": " + Query.lastError().text();
  }
  return IsWritten;
}

void TLoadWriters::Watch() {
  const TThreadConnection Connection(Server_, QStringLiteral("watch"));
  const std::unique_ptr<TLockView> View = Server_.LockView(Connection.Database());
  while (Connected_ < Writers_) std::this_thread::sleep_for(BetweenLooks);
  QElapsedTimer Gap;
  for (Gap.start(); !IsStopped_; std::this_thread::sleep_for(BetweenLooks)) {
    Look(*View);
    ++Looks_;
    LongestGap_ = std::max(LongestGap_, static_cast<double>(Gap.nsecsElapsed()) / 1e6);
    Gap.restart();
  }
}

void TLoadWriters::Look(TLockView& View) {
  for (const TLockWait& Wait : View.Waits()) {
    if (!Sessions_.contains(Wait.Waiting)) continue;
    LongestWait_ = std::max(LongestWait_, Wait.Milliseconds);
    if (!Sessions_.contains(Wait.Blocking)) LongestWaitForReader_ = std::max(LongestWaitForReader_, Wait.Milliseconds);
  }
}
