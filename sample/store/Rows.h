#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "sample/store/RowSink.h"

namespace sample {

/// The rows of one table while they are written. Holds every row against the schema, so that no sink is ever given a
/// value that only a lenient database would take.
class TRows {
 public:
  TRows(TRowSink& Sink, const TTable& Table, std::vector<const TColumn*> Columns);

  /// One value for each column, in their order. Throws `std::runtime_error` when a value does not fit its column.
  void Add(std::initializer_list<TValue> Values);

 private:
  void Check(const TColumn& Column, const TValue& Value) const;

  TRowSink& Sink_;
  const TTable& Table_;
  std::vector<const TColumn*> Columns_;
};

/// Writes tables row by row: names the table and its columns once, in the order in which the rows state them.
///   Filler.Fill("State", {"State"}, [](TRows& Rows) { Rows.Add({"QLD"}); });
class TFiller {
 public:
  TFiller(TRowSink& Sink, const TSchema& Schema) : Sink_(Sink), Schema_(Schema) {}

  /// `Columns` may leave out only the columns that number themselves. A name that the table does not have throws
  /// `std::runtime_error`.
  void Fill(std::string_view Table, std::initializer_list<std::string_view> Columns,
            const std::function<void(TRows&)>& Write);

 private:
  TRowSink& Sink_;
  const TSchema& Schema_;
};

}  // namespace sample
