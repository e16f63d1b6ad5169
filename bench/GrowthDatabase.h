#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "PlainClient.h"
#include "ads/Connection.h"

namespace bench {

/// So many of its customers the databases are multiplied from; their numbers of rows are multiples of it.
inline constexpr std::int64_t GrowthStep = 10'000;

/// Where customers are listed from: one kind of database, with a database of each size.
class TGrowthServer {
 public:
  virtual ~TGrowthServer() = default;

  virtual std::string Name() const = 0;
  virtual std::string Reason() const { return {}; }  ///< why there is none; empty when there is
  /// The address of the database with so many customers, which is made first unless it was kept.
  virtual std::string Address(std::int64_t Rows) = 0;
  virtual std::unique_ptr<TPlainClient> Connect(const std::string& Address) const = 0;
  /// What a plain program sends instead of a pick's query, which may call functions of the library's own.
  virtual std::string PlainSql(std::string Sql) const { return Sql; }
  virtual double DatabaseBytes(const std::string& Address) const = 0;
  virtual double MemoryBytes() const = 0;  ///< of the server; 0 where there is none
};

/// By its name, such as "sqlite"; null for none of them.
std::unique_ptr<TGrowthServer> NewGrowthServer(const std::string& Name);

/// A text that few of so many customers have in their company's name, and one that many have.
std::string RareText(std::int64_t Rows);
inline constexpr const char* CommonText = "roofing";

}  // namespace bench
