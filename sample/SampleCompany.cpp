#include "sample/SampleCompany.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <system_error>

#include "sample/SchemaSql.h"
#include "sample/ServerCompanies.h"
#include "sample/store/SQLiteSink.h"
#include "sample/tables/Company.h"

namespace sample {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& FileName) {
  return fs::path(std::u8string(FileName.begin(), FileName.end()));
}

/// Throws when a new file cannot stand under the name.
void CheckName(const std::string& FileName, bool Overwrite) {
  const fs::path Path = PathOf(FileName);
  std::error_code Ignored;
  if (FileName.empty()) {
    throw std::runtime_error("The file has no name.");
  }
  if (fs::is_directory(Path, Ignored)) {
    throw std::runtime_error(FileName + " is a folder.");
  }
  if (fs::exists(Path, Ignored) && !Overwrite) {
    throw std::runtime_error(FileName + " exists already.");
  }
  if (Path.has_parent_path() && !fs::is_directory(Path.parent_path(), Ignored)) {
    throw std::runtime_error("There is no folder for " + FileName + ".");
  }
}

void Remove(const fs::path& Path, const char* Ending) {
  std::error_code Ignored;
  fs::remove(fs::path(Path) += Ending, Ignored);
}

std::int32_t ReadPragma(sqlite3* Handle, const char* Name) {
  sqlite3_stmt* Raw = nullptr;
  const int Code = sqlite3_prepare_v2(Handle, (std::string("PRAGMA ") + Name).c_str(), -1, &Raw, nullptr);
  const TSQLiteStatement Statement(Raw);
  if (Code != SQLITE_OK || sqlite3_step(Raw) != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(Handle));
  return sqlite3_column_int(Raw, 0);
}

/// Whether a file is a sample company of this schema. Throws when it is something else.
bool IsCurrent(const std::string& FileName) {
  sqlite3* Raw = nullptr;
  const int Code = sqlite3_open_v2(FileName.c_str(), &Raw, SQLITE_OPEN_READONLY, nullptr);
  const TSQLiteHandle Handle(Raw);
  if (Code != SQLITE_OK) throw std::runtime_error(FileName + " cannot be read: " + sqlite3_errstr(Code) + ".");
  if (ReadPragma(Raw, "application_id") != FileMark) {
    throw std::runtime_error(FileName + " is no sample company: it is kept as it is.");
  }
  return ReadPragma(Raw, "user_version") == SchemaVersion();
}

/// Builds a database beside the file and gives it the file's name only when it is complete.
void BuildFile(const std::string& FileName, bool Overwrite, const std::function<void(sqlite3*)>& Build) {
  CheckName(FileName, Overwrite);
  const std::string PartName = FileName + ".part";
  const fs::path Part = PathOf(PartName);
  Remove(Part, "");
  try {
    const TSQLiteHandle Handle = OpenNewFile(PartName);
    Build(Handle.get());
  } catch (...) {
    Remove(Part, "");
    throw;
  }
  // What belongs to a replaced database must not be taken for a part of the new one.
  for (const char* const Ending : {"-journal", "-wal", "-shm"}) {
    Remove(PathOf(FileName), Ending);
  }
  std::error_code Failure;
  fs::rename(Part, PathOf(FileName), Failure);
  if (Failure) {
    Remove(Part, "");
    throw std::runtime_error("Cannot create " + FileName + ": " + Failure.message() + ".");
  }
}

}  // namespace

bool IsMariaDBAddress(std::string_view Address) {
  return Address.starts_with("mysql://") || Address.starts_with("mariadb://");
}

const char* SchemaSql() {
  return SchemaText;
}

std::int32_t SchemaVersion() {
  std::uint32_t Hash = 2166136261U;  // FNV-1a
  for (const char Letter : std::string_view(SchemaText)) {
    Hash = (Hash ^ static_cast<unsigned char>(Letter)) * 16777619U;
  }
  return static_cast<std::int32_t>(Hash & 0x7FFFFFFFU) | 1;
}

void CreateSchema(sqlite3* Handle) {
  Execute(Handle, SchemaSql());
}

void CreateSchema(const std::string& FileName, bool Overwrite) {
  BuildFile(FileName, Overwrite, [](sqlite3* Handle) { CreateSchema(Handle); });
}

void CreateCompany(const std::string& FileName, const TOptions& Options) {
  static_cast<void>(TPlan(Options));  // refuses a bad scale before a file is touched
  std::error_code Ignored;
  const bool Exists = Options.Refresh && fs::is_regular_file(PathOf(FileName), Ignored);
  if (Exists && IsCurrent(FileName)) return;
  BuildFile(FileName, Options.Overwrite || Exists, [&](sqlite3* Handle) {
    Execute(Handle, "PRAGMA application_id = " + std::to_string(FileMark) +
                        "; PRAGMA user_version = " + std::to_string(SchemaVersion()));
    TSQLiteSink Sink(Handle);
    WriteCompany(Sink, Options);
  });
}

void CreateCompanyOnServer(const std::string& Address, const TOptions& Options) {
  if (IsMariaDBAddress(Address)) return CreateCompanyOnMariaDB(Address, Options);
  CreateCompanyOnPostgreSQL(Address, Options);
}

}  // namespace sample
