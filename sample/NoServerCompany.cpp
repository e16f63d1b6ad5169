// In place of ServerCompany.cpp, in a build that was configured without PostgreSQL.
#include <stdexcept>

#include "sample/SampleCompany.h"

namespace sample {

void CreateCompanyOnServer(const std::string&, const TOptions&) {
  throw std::runtime_error("Only a file can be written: this was built without PostgreSQL (ZUL_WITH_POSTGRESQL).");
}

}  // namespace sample
