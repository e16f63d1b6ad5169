#include <malloc.h>
#include <sys/resource.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "ads/ProcessMemory.h"
#include "apps/command/OpenDatabase.h"
#include "catalog/Catalog.h"
#include "support/PickDriver.h"

// One of many users: a host with one connection, which calls the picks and drives their dialogs until its time is up.
//
//   zulloaduser ADDRESS SEED LOOK      (looks at what it sees for so many milliseconds at the most)
//
// It says "ready" when it is connected, waits for a line with the seconds that it has, says "done" when they are over
// and keeps its connection until its input ends. In between it tells, each in a line:
//
//   time OPERATION MILLISECONDS
//   memory ROUND KIB               what it holds after a pick of its so-manieth round through all of them
//   cut                            its connection was lost, as it is when a server leaves a stop unanswered for most of
//   a
//                                  second; it has opened another
//   error TEXT

namespace {

using uDocPickBase::TDocPickBase;

struct TErrand {
  const char* Pick;
  std::vector<std::pair<const char*, const char*>> Args;
  std::vector<const char*> Finds;
};

// What a user of the sample company comes for.
const std::vector<TErrand>& Errands() {
  static const std::vector<TErrand> All{
      {"customer", {{"filter-by-entity", "no"}, {"allow-inactive", "yes"}}, {"roofing", "O'N", "smith", "zq"}},
      {"oe-doc", {{"types", "quote,order,invoice,credit"}, {"customer", "C00020"}}, {"1", "10"}},
      {"customer", {{"entity", "WEST"}}, {"kitchens", "& sons", "Café"}},
      {"vendor", {{"what", "all"}}, {"a", "timber"}},
      {"city", {}, {"br", "400"}},
      {"job", {}, {"refit", "kitchen"}},
  };
  return All;
}

void Tell(const std::string& Line) {
  std::puts(Line.c_str());
  std::fflush(stdout);
}

void TellTime(const char* Operation, const QElapsedTimer& Since) {
  Tell("time " + std::string(Operation) + ' ' + std::to_string(static_cast<double>(Since.nsecsElapsed()) / 1e6));
}

qint64 ResidentKiB() {
  malloc_trim(0);
  return ProcessKiB("self", "status", "VmRSS");
}

class TUser {
 public:
  TUser(const std::string& Address, unsigned Seed, int LongestLook)
      : Address_(Address), Random_(Seed), LongestLook_(LongestLook) {
    Database_.emplace(Address_);
  }

  void Work(double Seconds) {
    Until_ = QDeadlineTimer(static_cast<qint64>(Seconds * 1000));
    Look();  // so that not all come at once
    const std::size_t First = Random_() % Errands().size();
    for (std::size_t Place = 0; !Until_.hasExpired(); ++Place) {
      Pick(Errands()[(First + Place) % Errands().size()]);
      Tell("memory " + std::to_string(Place / Errands().size()) + ' ' + std::to_string(ResidentKiB()));
    }
    TellLeftovers();
  }

 private:
  int Below(int Bound) { return static_cast<int>(Random_() % static_cast<unsigned>(Bound)); }

  // Looks at what is there, while the rest of a list is read.
  void Look() { QTest::qWait(static_cast<int>(std::min<qint64>(Below(LongestLook_), Until_.remainingTime()))); }

  void Pick(const TErrand& Errand) {
    const catalog::TPick* Found = catalog::FullCatalog().Find(Errand.Pick);
    catalog::TArgs Args(Found->Args);
    for (const auto& [Name, Value] : Errand.Args) Args.Set(Name, Value);
    const support::TErrorBoxes Boxes;
    bool IsOK = false;
    bool Chosen = false;
    QStringList Failures;
    Clock_.start();
    try {
      Chosen = support::DrivePick([&] { return Found->Call(Database_->Connection(), Args).Chosen; },
                                  [&](TDocPickBase& Dialog) { IsOK = Use(Dialog, Errand); });
      TellTime("close", Clock_);
    } catch (const std::exception& Error) {
      Failures << QString::fromUtf8(Error.what());
    }
    for (const std::string& Message : Boxes.Messages()) Failures << QString::fromStdString(Message);
    if (Chosen != IsOK) Failures << QStringLiteral("OK and what it gave differ");
    TakeNote(Errand, Failures);
  }

  // A host whose connection is lost opens another.
  void TakeNote(const TErrand& Errand, const QStringList& Failures) {
    const QStringList Lost = Failures.filter(QStringLiteral("The connection to the database is lost"));
    for (const QString& Failure : Failures) {
      if (!Lost.contains(Failure)) Tell(std::string("error ") + Errand.Pick + ": " + Failure.toStdString());
    }
    if (!Lost.isEmpty()) Reconnect();
  }

  // Whether the dialog was closed by OK.
  bool Use(TDocPickBase& Dialog, const TErrand& Errand) {
    TellTime("open", Clock_);
    Dialog.dbgAvail->viewport()->repaint();
    TellTime("first page", Clock_);
    if (Dialog.qryList_->IsEmpty()) Tell(std::string("error ") + Errand.Pick + ": lists nothing");
    Look();
    if (!Until_.hasExpired()) Find(Dialog, Errand);
    Clock_.start();
    if (Below(2) == 0 && Dialog.bbnOK->isEnabled() && !Dialog.qryList_->IsEmpty()) {
      support::ClickOK(Dialog);
      return !Dialog.isVisible();
    }
    QTest::keyClick(&Dialog, Qt::Key_Escape);
    return false;
  }

  void Find(TDocPickBase& Dialog, const TErrand& Errand) {
    const char* Text = Errand.Finds[static_cast<std::size_t>(Below(static_cast<int>(Errand.Finds.size())))];
    Time("find", Dialog, [&] { support::TypeFind(Dialog, QString::fromUtf8(Text)); });
    Look();
    if (Below(4) == 0) Time("to the end", Dialog, [&] { QTest::keyClick(Dialog.dbgAvail, Qt::Key_End); });
    const QString Rows = Dialog.lblRows->text();
    if (Rows.contains(SearchFailed_)) Tell("error " + std::string(Errand.Pick) + ": " + Rows.toStdString());
  }

  template <typename TDo>
  void Time(const char* Operation, TDocPickBase& Dialog, TDo Do) {
    Clock_.start();
    Do();
    Dialog.dbgAvail->viewport()->repaint();
    TellTime(Operation, Clock_);
  }

  // What the host's own session can tell of what the picks have left in it.
  void TellLeftovers() {
    if (!QSqlQuery(Database_->Connection()->Database()).exec(QStringLiteral("SELECT 1"))) return Reconnect();
    QSqlQuery Query(Database_->Connection()->Database());
    if (Database_->Connection()->Database().driverName() != QLatin1String("QPSQL")) return;
    const bool Asked = Query.exec(QStringLiteral(
        "SELECT (SELECT count(*) FROM pg_prepared_statements) + (SELECT count(*) FROM pg_cursors WHERE name <> '') + "
        "(SELECT count(*) FROM pg_listening_channels())"));
    if (!Asked || !Query.next()) {
      Tell("error at the end: " + Query.lastError().text().toStdString());
    } else if (Query.value(0).toInt() != 0) {
      Tell("error at the end: statements, cursors or channels are left in the session");
    }
  }

  void Reconnect() {
    Tell("cut");
    Database_.reset();
    Database_.emplace(Address_);
  }

  std::string Address_;
  std::optional<command::TDatabase> Database_;
  QDeadlineTimer Until_;
  std::mt19937 Random_;
  int LongestLook_;
  QElapsedTimer Clock_;
  const QString SearchFailed_ = QStringLiteral("could not be done");
};

}  // namespace

int main(int Count, char* Values[]) {
  // The users stand for as many machines: whoever measures them goes first.
  setpriority(PRIO_PROCESS, 0, 5);
  QApplication Application(Count, Values);
  if (Count != 4) return 2;
  try {
    TUser User(Values[1], static_cast<unsigned>(std::stoul(Values[2])), std::stoi(Values[3]));
    Tell("ready");
    double Seconds = 0;
    if (std::cin >> Seconds) User.Work(Seconds);
    Tell("done");
    while (std::cin.ignore(1)) {
    }
  } catch (const std::exception& Error) {
    Tell(std::string("error ") + Error.what());
    return 1;
  }
  return 0;
}
