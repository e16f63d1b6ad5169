#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>
#include <vector>

#include "sample/store/RowSink.h"

namespace sample {

struct TPostgreSQLCloser {
  void operator()(PGconn* Handle) const { PQfinish(Handle); }
  void operator()(PGresult* Result) const { PQclear(Result); }
};
using TPostgreSQLHandle = std::unique_ptr<PGconn, TPostgreSQLCloser>;

/// Opens a server's database by its address (postgresql://…, as libpq reads it). Throws `std::runtime_error` with the
/// server's or libpq's message, which never holds the password.
TPostgreSQLHandle OpenServer(const std::string& Address);

/// Writes into a PostgreSQL database, all in one transaction: until `Finish` nobody sees anything of it, and without it
/// the database stays as it was. The names of tables, columns and indexes are in lower case, as the server keeps those
/// that are written without quotes.
class TPostgreSQLSink : public TRowSink {
 public:
  enum class TExisting { Refuse, Replace };

  /// Borrows the handle, which must outlive the sink. `Existing` says what happens to tables of a company that are
  /// there already.
  TPostgreSQLSink(PGconn* Handle, TExisting Existing);
  ~TPostgreSQLSink() override;

  void CreateTable(const TTable& Table) override;
  void BeginRows(const TTable& Table, const std::vector<std::string>& Columns) override;
  void AddRow(std::span<const TValue> Values) override;
  void EndRows() override;
  void CreateIndex(const TIndex& Index) override;
  void Finish() override;

 private:
  void Execute(const std::string& Sql);
  void RefuseExisting(const std::string& Table);
  void Send();

  PGconn* Handle_;
  TExisting Existing_;
  std::string Rows_;  // not sent yet
};

}  // namespace sample
