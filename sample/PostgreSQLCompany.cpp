#include "sample/ServerCompanies.h"
#include "sample/store/PostgreSQLSink.h"
#include "sample/tables/Company.h"

namespace sample {

void CreateCompanyOnPostgreSQL(const std::string& Address, const TOptions& Options) {
  using TExisting = TPostgreSQLSink::TExisting;
  const TPostgreSQLHandle Handle = OpenServer(Address);
  TPostgreSQLSink Sink(Handle.get(), Options.Overwrite ? TExisting::Replace : TExisting::Refuse);
  WriteCompany(Sink, Options);
}

}  // namespace sample
