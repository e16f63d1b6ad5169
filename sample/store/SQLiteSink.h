#pragma once

#include <sqlite3.h>

#include <memory>

#include "sample/store/RowSink.h"

namespace sample {

struct TSQLiteCloser {
  void operator()(sqlite3* Handle) const { sqlite3_close(Handle); }
  void operator()(sqlite3_stmt* Statement) const { sqlite3_finalize(Statement); }
};
using TSQLiteHandle = std::unique_ptr<sqlite3, TSQLiteCloser>;
using TSQLiteStatement = std::unique_ptr<sqlite3_stmt, TSQLiteCloser>;

/// Opens a new database file (UTF-8) for writing. Throws `std::runtime_error` when that is not possible.
TSQLiteHandle OpenNewFile(const std::string& FileName);

/// Runs statements that give no rows. Throws `std::runtime_error` with the database's message.
void Execute(sqlite3* Handle, const std::string& Sql);

/// Writes into a new SQLite database, all in one transaction and without a journal: until `Finish` has returned, the
/// file is worth nothing, and a power cut may spoil it. For a file that nobody else has open, and no other.
class TSQLiteSink : public TRowSink {
 public:
  /// Borrows the handle, which must outlive the sink.
  explicit TSQLiteSink(sqlite3* Handle);

  void CreateTable(const TTable& Table) override;
  void BeginRows(const TTable& Table, const std::vector<std::string>& Columns) override;
  void AddRow(std::span<const TValue> Values) override;
  void EndRows() override;
  void CreateIndex(const TIndex& Index) override;
  void Finish() override;

 private:
  void Bind(int Position, const TValue& Value);

  sqlite3* Handle_;
  TSQLiteStatement Insert_;
};

}  // namespace sample
