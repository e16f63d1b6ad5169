#pragma once

#include "sample/SampleCompany.h"

namespace sample {

// `CreateCompanyOnServer` for each server. In a build that was configured without one, they say so.
void CreateCompanyOnPostgreSQL(const std::string& Address, const TOptions& Options);
void CreateCompanyOnMariaDB(const std::string& Address, const TOptions& Options);

}  // namespace sample
