#include "sample/SampleCompany.h"

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <system_error>

#include "sample/SchemaSql.h"
#include "sample/store/PostgreSQLSink.h"
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

const char* SchemaSql() {
  return SchemaText;
}

void CreateSchema(sqlite3* Handle) {
  Execute(Handle, SchemaSql());
}

void CreateSchema(const std::string& FileName, bool Overwrite) {
  BuildFile(FileName, Overwrite, [](sqlite3* Handle) { CreateSchema(Handle); });
}

void CreateCompany(const std::string& FileName, const TOptions& Options) {
  static_cast<void>(TPlan(Options));  // refuses a bad scale before a file is touched
  BuildFile(FileName, Options.Overwrite, [&](sqlite3* Handle) {
    TSQLiteSink Sink(Handle);
    WriteCompany(Sink, Options);
  });
}

void CreateCompanyOnServer(const std::string& Address, const TOptions& Options) {
  using TExisting = TPostgreSQLSink::TExisting;
  const TPostgreSQLHandle Handle = OpenServer(Address);
  TPostgreSQLSink Sink(Handle.get(), Options.Overwrite ? TExisting::Replace : TExisting::Refuse);
  WriteCompany(Sink, Options);
}

}  // namespace sample
