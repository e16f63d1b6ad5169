// What the documents take for granted in the application that calls the library.
#pragma once

#include <QLineEdit>
#include <QSqlDatabase>
#include <QString>
#include <string>

namespace ads {
class TAdsQuery;
}

// Each fragment of a document is a function of it.
struct THost {
  explicit THost(const QString& FileName);

  QSqlDatabase Database;
  QLineEdit* edPostcode = new QLineEdit;
  ads::TAdsQuery* qryList_ = nullptr;

#include "Fragments.inc"
};

class TOrderForm {
 public:
  explicit TOrderForm(THost& Host) : Database_(Host.Database) {}
  void ChooseCustomer();

 private:
  std::string CurrentCustomer() const { return ""; }
  void SetCustomer(const std::string& Customer);

  QSqlDatabase Database_;
};

void RunFragments(THost& Host);
