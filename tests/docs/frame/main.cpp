// Runs the fragments of one document over the sample company, with a user who takes the first record of every pick.
//   application DATABASE_FILE
#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <exception>

#include "Host.h"
#include "ads/Ads.h"

namespace {

constexpr int PressesEachMilliseconds = 50;

void PressOK() {
  const QWidget* Dialog = QApplication::activeModalWidget();
  auto* Button = Dialog != nullptr ? Dialog->findChild<QPushButton*>("bbnOK") : nullptr;
  if (Button != nullptr && Button->isVisible()) Button->click();
}

int Run(const QString& FileName) {
  THost Host(FileName);
  ads::TAdsConnection Connection(Host.Database);
  ads::TAdsQuery Query(nullptr);
  Query.SetConnection(&Connection);
  Host.qryList_ = &Query;
  RunFragments(Host);
  if (!Host.edPostcode->text().isEmpty()) std::printf("postcode %s\n", qPrintable(Host.edPostcode->text()));
  return 0;
}

}  // namespace

THost::THost(const QString& FileName) : Database(QSqlDatabase::addDatabase("QSQLITE")) {
  Database.setDatabaseName(FileName);
  if (!Database.open()) throw ads::EDatabaseError("The sample company cannot be opened.");
}

void TOrderForm::SetCustomer(const std::string& Customer) {
  std::printf("customer %s\n", Customer.c_str());
}

int main(int ArgCount, char* ArgValues[]) {
  const QApplication Application(ArgCount, ArgValues);
  QTimer User;
  QObject::connect(&User, &QTimer::timeout, PressOK);
  User.start(PressesEachMilliseconds);
  try {
    return Run(ArgCount > 1 ? ArgValues[1] : "");
  } catch (const std::exception& Error) {
    std::fprintf(stderr, "%s\n", Error.what());
    return 1;
  }
}
