#pragma once

#include <span>
#include <string>
#include <vector>

#include "sample/store/Schema.h"
#include "sample/store/Value.h"

namespace sample {

/// Where a company is written to: one database product each. The calls come in this order: every table, then rows
/// table by table, then the indexes, then `Finish`. A sink that is destroyed before `Finish` leaves nothing that
/// could be taken for a company. Failures throw `std::runtime_error` with the database's own message.
class TRowSink {
 public:
  TRowSink() = default;
  TRowSink(const TRowSink&) = delete;
  TRowSink& operator=(const TRowSink&) = delete;
  virtual ~TRowSink() = default;

  virtual void CreateTable(const TTable& Table) = 0;

  /// The rows that follow have values for `Columns`, in this order. One table at a time.
  virtual void BeginRows(const TTable& Table, const std::vector<std::string>& Columns) = 0;
  virtual void AddRow(std::span<const TValue> Values) = 0;
  virtual void EndRows() = 0;

  virtual void CreateIndex(const TIndex& Index) = 0;

  /// Makes everything permanent.
  virtual void Finish() = 0;
};

}  // namespace sample
