// In place of PostgreSQLCompany.cpp, in a build that was configured without PostgreSQL.
#include <stdexcept>

#include "sample/ServerCompanies.h"

namespace sample {

void CreateCompanyOnPostgreSQL(const std::string&, const TOptions&) {
  throw std::runtime_error("No company can be written there: this was built without PostgreSQL (ZUL_WITH_POSTGRESQL).");
}

}  // namespace sample
