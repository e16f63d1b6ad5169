#include "sample/ServerCompanies.h"
#include "sample/store/MariaDBSink.h"
#include "sample/tables/Company.h"

namespace sample {

void CreateCompanyOnMariaDB(const std::string& Address, const TOptions& Options) {
  using TExisting = TMariaDBSink::TExisting;
  const TMariaDBHandle Handle = OpenMariaDB(Address);
  TMariaDBSink Sink(Handle.get(), Options.Overwrite ? TExisting::Replace : TExisting::Refuse);
  WriteCompany(Sink, Options);
}

}  // namespace sample
