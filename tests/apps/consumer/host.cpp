// Calls a pick over a database without tables: the error must come here as an exception, with its message.
#include <QApplication>
#include <QSqlDatabase>
#include <cstdio>
#include <string>

#include "ads/Ads.h"
#include "picks/reference/uPickCity.h"

namespace {

int CallPick(ads::TAdsConnection& Connection) {
  std::string Zip = "before";
  try {
    uPickCity::CallPickCity(&Connection, Zip);
  } catch (const ads::EDatabaseError& Error) {
    const bool Named = std::string(Error.what()).find("Sys") != std::string::npos;
    std::printf("host: %s\n", Error.what());
    return Named && Zip.empty() ? 0 : 1;
  }
  std::puts("host: no error came");
  return 1;
}

}  // namespace

int main(int ArgCount, char* ArgValues[]) {
  const QApplication Application(ArgCount, ArgValues);
  QSqlDatabase Database = QSqlDatabase::addDatabase("QSQLITE");
  Database.setDatabaseName(":memory:");
  if (!Database.open()) return 1;
  ads::TAdsConnection Connection(Database);
  return CallPick(Connection);
}
