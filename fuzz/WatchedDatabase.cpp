#include "fuzz/WatchedDatabase.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"

namespace fuzz {

namespace {

constexpr int MostRows = 100;
constexpr int MostSteps = 50;  // each of a thousand instructions
constexpr int LongestValue = 1'000'000;

// What SQLite is asked to call for the functions and operators of the dialogs' queries, LIKE among them.
constexpr auto Functions = std::to_array<std::string_view>(
    {"coalesce", "count", "iif", "ltrim", "substr", "substring", "sum", "trim", "zul_like", "zul_upper"});

constexpr auto Tables = std::to_array<std::string_view>({"ItemCost", "ItemDet", "ItemLocations"});

template <typename TNames>
bool IsAmong(const TNames& Names, const char* Name) {
  return Name != nullptr && std::any_of(Names.begin(), Names.end(), [Name](std::string_view Each) {
           return sqlite3_stricmp(Each.data(), Name) == 0;
         });
}

}  // namespace

void Fail(const char* What, const std::string& Sql) {
  std::fprintf(stderr, "%s:\n%s\n", What, Sql.c_str());
  std::abort();
}

TWatchedDatabase::TWatchedDatabase()
    : Database_(Filled()),
      Connection_(Database_),
      Handle_(*static_cast<sqlite3* const*>(Database_.driver()->handle().constData())),
      Before_(Content()) {
  // SQLite's own tables declare themselves when they are first read, which the authorizer would take for an action.
  for (const char* Own :
       {"json_each", "json_tree", "dbstat", "sqlite_dbpage", "sqlite_stmt", "bytecode", "tables_used"}) {
    QSqlQuery(QStringLiteral("SELECT * FROM %1 LIMIT 0").arg(QLatin1String(Own)), Database_);
  }
  Connection_.OpenCursor("SELECT 1 X");  // the library, too, looks around when it first uses a connection
  sqlite3_set_authorizer(Handle_, Authorize, this);
  sqlite3_progress_handler(Handle_, 1000, Progress, this);
  sqlite3_limit(Handle_, SQLITE_LIMIT_LENGTH, LongestValue);
}

void TWatchedDatabase::Try(ads::TAdsQuery& Query, const std::string& Sql) {
  Acted_.clear();
  Steps_ = 0;
  const sqlite3_int64 Changes = sqlite3_total_changes64(Handle_);
  Query.SetConnection(&Connection_);
  Query.SQL()->Clear();
  Query.SQL()->Add(Sql);
  try {
    Query.Open();
  } catch (const ads::EDatabaseError&) {
    // Refused by the gate, or by the server.
  }
  if (!Acted_.empty()) Fail(("Did something else than reading, " + Acted_).c_str(), Sql);
  if (sqlite3_total_changes64(Handle_) != Changes) Fail("Changed rows", Sql);
  if (sqlite3_get_autocommit(Handle_) == 0) Fail("Left a transaction", Sql);
  if (sqlite3_next_stmt(Handle_, nullptr) != nullptr) Fail("Left a statement", Sql);
  Read(Query);
  Query.Close();
}

void TWatchedDatabase::CheckContent(const std::string& Sql) {
  Watching_ = false;
  if (Content() != Before_) Fail("Changed the database", Sql);
  Watching_ = true;
}

void TWatchedDatabase::Execute(const QSqlDatabase& Database, const char* Sql) {
  QSqlQuery Query(Database);
  if (!Query.exec(QString::fromUtf8(Sql))) Fail(qPrintable(Query.lastError().text()), Sql);
}

void TWatchedDatabase::Read(ads::TAdsQuery& Query) {
  for (int Row = 0; Row < std::min(Query.RecordCount(), MostRows); ++Row) {
    const ads::TRowScope Scope(Query, Row);
    for (const ads::TField* Field : Query.Fields()) {
      if (Field->IsNull() && !Field->AsString().empty()) Fail("Has a value where there is none", Field->FieldName());
      (void)Field->AsInteger();
      (void)Field->AsFloat();
      (void)Field->DisplayText();
    }
  }
}

// What SQLite asks before it compiles a statement, also one that another one runs. A subquery that is read has no name.
int TWatchedDatabase::Authorize(void* Self, int Action, const char* First, const char* Second, const char*,
                                const char*) {
  auto& Database = *static_cast<TWatchedDatabase*>(Self);
  const bool Reading = Action == SQLITE_SELECT ||
                       (Action == SQLITE_READ && (First == nullptr || IsAmong(Tables, First))) ||
                       (Action == SQLITE_FUNCTION && IsAmong(Functions, Second));
  if (Database.Watching_ && !Reading) {
    Database.Acted_ += "action " + std::to_string(Action) + ' ' + (First != nullptr ? First : "") + ' ' +
                       (Second != nullptr ? Second : "") + ' ';
  }
  return SQLITE_OK;
}

// A query may take its time; what it asks for is the same after a while as at first.
int TWatchedDatabase::Progress(void* Self) {
  auto& Database = *static_cast<TWatchedDatabase*>(Self);
  return Database.Watching_ && ++Database.Steps_ > MostSteps ? 1 : 0;
}

QString TWatchedDatabase::Content() const {
  QString Result;
  for (const char* Sql :
       {"SELECT name || sql FROM sqlite_master", "SELECT ID || ShortName || FullName FROM ItemLocations",
        "SELECT Item || ItemLoc || OnHand FROM ItemDet", "SELECT \"Key\" || Item || UnitCost FROM ItemCost"}) {
    QSqlQuery Query(QString::fromUtf8(Sql), Database_);
    while (Query.next()) Result += Query.value(0).toString() + u'\n';
  }
  return Result;
}

QSqlDatabase TWatchedDatabase::Filled() {
  QSqlDatabase Database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("fuzz"));
  Database.setDatabaseName(QStringLiteral(":memory:"));
  if (!Database.open()) Fail("The database cannot be opened", {});
  for (const char* Sql :
       {"CREATE TABLE ItemLocations (ID INTEGER PRIMARY KEY, ShortName VARCHAR(5), FullName VARCHAR(50))",
        "CREATE TABLE ItemDet (Item VARCHAR(15), ItemLoc INTEGER, OnHand DOUBLE)",
        "CREATE TABLE ItemCost (\"Key\" INTEGER PRIMARY KEY, Item VARCHAR(15), ItemLoc INTEGER, \"Date\" DATE, "
        "Qty DOUBLE, UnitCost DOUBLE, UnitBuff DOUBLE)",
        "CREATE INDEX FK_ITEM ON ItemDet (Item, ItemLoc)", "CREATE INDEX FK_COST ON ItemCost (Item)",
        "INSERT INTO ItemLocations VALUES (1, 'MAIN', 'Main Warehouse'), (2, 'VAN', 'Fitter''s Van')",
        "INSERT INTO ItemDet VALUES ('A', 1, 5), ('A', 2, 0), ('B', 1, 7)",
        "INSERT INTO ItemCost VALUES (1, 'A', 1, '2025-01-02', 3, 12.5, 0.5), (2, 'A', 2, '2025-02-03', 1, 13, "
        "NULL)"}) {
    Execute(Database, Sql);
  }
  return Database;
}

TWatchedDatabase& Database() {
  static int Count = 1;
  static char Name[] = "fuzz";
  static char* Args[] = {Name, nullptr};
  static const QCoreApplication Application(Count, Args);
  static TWatchedDatabase Instance;
  return Instance;
}

}  // namespace fuzz
