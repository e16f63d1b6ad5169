// In place of MariaDBCompany.cpp, in a build that was configured without MariaDB.
#include <stdexcept>

#include "sample/ServerCompanies.h"

namespace sample {

void CreateCompanyOnMariaDB(const std::string&, const TOptions&) {
  throw std::runtime_error("No company can be written there: this was built without MariaDB (ZUL_WITH_MARIADB).");
}

}  // namespace sample
