#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace bench {

/// What a plain C program did with a query: send it, read the first `Columns` columns of each row. The seconds that it
/// took, those of the processor (0 where a server has a part in it), and the bytes of the values that it read.
struct TPlainRun {
  double Seconds = 0;
  double ProcessorSeconds = 0;
  std::int64_t Rows = 0;
  std::int64_t Bytes = 0;
};

/// A database by its own client library alone. A failure ends the program.
class TPlainClient {
 public:
  virtual ~TPlainClient() = default;

  virtual void Execute(const std::string& Sql) = 0;
  virtual TPlainRun Run(const std::string& Sql, int Columns) = 0;

  /// The first number of a query.
  virtual std::int64_t Number(const std::string& Sql) = 0;
};

std::unique_ptr<TPlainClient> PlainSQLite(const std::string& FileName);
/// By an address, as sample::CreateCompanyOnServer takes it.
std::unique_ptr<TPlainClient> PlainPostgreSQL(const std::string& Address);
std::unique_ptr<TPlainClient> PlainMariaDB(const std::string& Address);

}  // namespace bench
