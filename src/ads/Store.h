#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ads/Field.h"

namespace ads {

class TCursor;

/// The rows of an open dataset, packed: a snapshot that is filled from its beginning to its end and read in any order,
/// also while it is being filled.
///
/// A row is a bitmap of its nulls and the bytes of its values, behind one another; 256 rows share one page, allocated
/// to the byte. So a list costs little more than its bytes (five or six bytes a row and one a text), whatever its
/// length, and a row that is painted lies in one place.
class TStore {
 public:
  explicit TStore(std::vector<TFieldType> Columns);

  int ColumnCount() const { return static_cast<int>(Columns_.size()); }
  int RowCount() const { return RowCount_; }

  /// Appends the cursor's current row: column n of the store is column `Sources[n]` of the cursor. A value that cannot
  /// be read as its column's type becomes null.
  void AppendRow(TCursor& Cursor, const std::vector<int>& Sources);

  /// The bytes of a row; equal for rows of equal values.
  std::string_view RowBytes(int Row) const;

  /// Packs what was appended last; to be called once, behind the last row.
  void Finish();

  /// Forgets all rows but the first `RowCount`.
  void Truncate(int RowCount);

  bool IsNull(int Row, int Column) const;
  std::string_view Text(int Row, int Column) const;  ///< of a text column
  std::int32_t Integer(int Row, int Column) const;   ///< of a whole number, a Boolean (0 or 1), a date (its Julian day)
  double Real(int Row, int Column) const;            ///< of a floating column

  /// The bytes that the snapshot takes in memory.
  std::size_t ByteCount() const;

 private:
  static constexpr int PageRows = 256;

  const char* RowStart(int Row) const;
  const char* Find(const char* Row, int Column) const;
  bool AppendValue(TCursor& Cursor, int Source, TFieldType Type);
  void PackPage();
  void UnpackPage();

  std::vector<TFieldType> Columns_;
  std::size_t NullBytes_;
  int RowCount_ = 0;
  std::size_t PageBytes_ = 0;
  std::vector<std::unique_ptr<char[]>> Pages_;

  // The page that is being filled, or is full and still to be packed. Offsets count from the start of its bytes.
  std::vector<std::uint32_t> Offsets_;
  std::string Bytes_;
};

}  // namespace ads
