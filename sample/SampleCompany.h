#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

/// The sample company: a made-up Australian trade supplier with customers, documents, purchase orders, stock and
/// books, in the tables that the pick dialogs read. Besides the everyday it holds at least one row of each kind that
/// a dialog treats in its own way.
namespace sample {

struct TOptions {
  /// 1 is a company that opens at once (1,000 customers, 1,000 order-entry documents); 1,000 is one with a million
  /// of each. From 1 to `MaxScale`.
  std::int64_t Scale = 1;
  /// The same options give the same file, byte for byte.
  std::uint64_t Seed = 54;
  /// Whether a file, or tables on a server, that exist are replaced.
  bool Overwrite = false;
  /// Whether a file that is a sample company already is kept when it has this schema, and replaced when it has another.
  bool Refresh = false;
};

inline constexpr std::int64_t MaxScale = 2000;

/// The tables and indexes as SQL for SQLite.
const char* SchemaSql();

/// Which schema it is: a positive number that another text has not. A file's `PRAGMA user_version`, where its
/// `PRAGMA application_id` is `FileMark`.
std::int32_t SchemaVersion();
inline constexpr std::int32_t FileMark = 0x5A554C53;  // "ZULS"

/// Creates the tables and indexes, without rows, in an open database that has none of them yet. Throws
/// `std::runtime_error` with the database's message.
void CreateSchema(sqlite3* Handle);

/// Creates a SQLite file (its name in UTF-8) with the tables and indexes, without rows. Throws `std::runtime_error`
/// when the file exists (unless `Overwrite`) or cannot be written; nothing is left behind then.
void CreateSchema(const std::string& FileName, bool Overwrite = false);

/// Creates a SQLite file (its name in UTF-8) with the whole company. Throws `std::runtime_error` as `CreateSchema`
/// does, and for a scale out of range. The file appears under its name only when it is complete.
void CreateCompany(const std::string& FileName, const TOptions& Options = {});

/// Whether an address is one of a MariaDB server: mysql://… or mariadb://….
bool IsMariaDBAddress(std::string_view Address);

/// Creates the same company in a database of a server, given by its address (postgresql://… or mysql://…). Throws
/// `std::runtime_error` when one of its tables is there already (unless `Overwrite`, which replaces them) and for every
/// failure, which a build without PostgreSQL always is; the database is as it was then.
void CreateCompanyOnServer(const std::string& Address, const TOptions& Options = {});

}  // namespace sample
