#include "ads/Store.h"

#include <QDate>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "ads/StoredDate.h"
#include "zulcommon/Text.h"
#include "zulcommon/TypedValues.h"

namespace ads {

namespace {

template <typename T>
void AppendBytes(std::string& Out, T Value) {
  char Bytes[sizeof Value];
  std::memcpy(Bytes, &Value, sizeof Value);
  Out.append(Bytes, sizeof Value);
}

template <typename T>
T ReadBytes(const char* At) {
  T Value;
  std::memcpy(&Value, At, sizeof Value);
  return Value;
}

// A length takes seven bits a byte, the lowest first: one byte for nearly every text.
void AppendLength(std::string& Out, std::size_t Length) {
  while (Length >= 0x80) {
    Out += static_cast<char>(Length | 0x80);
    Length >>= 7;
  }
  Out += static_cast<char>(Length);
}

std::size_t ReadLength(const char*& At) {
  std::size_t Length = 0;
  for (int Shift = 0;; Shift += 7) {
    const auto Byte = static_cast<unsigned char>(*At++);
    Length |= static_cast<std::size_t>(Byte & 0x7F) << Shift;
    if (Byte < 0x80) return Length;
  }
}

std::optional<double> RealOf(TCursor& Cursor, int Source) {
  if (Cursor.Kind(Source) != TValueKind::Text) return Cursor.Real(Source);
  return zulcommon::ReadNumber(Cursor.Text(Source));
}

std::optional<std::int32_t> IntegerOf(TCursor& Cursor, int Source) {
  if (Cursor.Kind(Source) == TValueKind::Integer) {
    const std::int64_t Value = Cursor.Integer(Source);
    if (!std::in_range<std::int32_t>(Value)) return std::nullopt;
    return static_cast<std::int32_t>(Value);
  }
  const std::optional<double> Value = RealOf(Cursor, Source);
  using TLimits = std::numeric_limits<std::int32_t>;
  if (!Value || *Value != std::floor(*Value) || *Value < TLimits::min() || *Value > TLimits::max()) return std::nullopt;
  return static_cast<std::int32_t>(*Value);
}

std::optional<std::int32_t> BooleanOf(TCursor& Cursor, int Source) {
  if (Cursor.Kind(Source) == TValueKind::Text) {
    const std::string_view Text = zulcommon::Trim(Cursor.Text(Source));
    for (const char* True : {"true", "t", "yes", "y"}) {
      if (zulcommon::SameText(Text, True)) return 1;
    }
    for (const char* False : {"false", "f", "no", "n"}) {
      if (zulcommon::SameText(Text, False)) return 0;
    }
  }
  const std::optional<double> Value = RealOf(Cursor, Source);
  if (!Value) return std::nullopt;
  return *Value != 0 ? 1 : 0;
}

// The Julian day.
std::optional<std::int32_t> DateOf(TCursor& Cursor, int Source) {
  if (Cursor.Kind(Source) != TValueKind::Text) return std::nullopt;
  const QDate Date = ReadStoredDate(Cursor.Text(Source));
  if (!Date.isValid()) return std::nullopt;
  return static_cast<std::int32_t>(Date.toJulianDay());
}

}  // namespace

TStore::TStore(std::vector<TFieldType> Columns) : Columns_(std::move(Columns)), NullBytes_((Columns_.size() + 7) / 8) {}

void TStore::AppendRow(TCursor& Cursor, const std::vector<int>& Sources) {
  if (RowCount_ == std::numeric_limits<int>::max()) throw EDatabaseError("The list has too many rows.");
  if (Offsets_.size() == PageRows) PackPage();
  const std::size_t Start = Bytes_.size();
  if (Start > std::numeric_limits<std::uint32_t>::max()) throw EDatabaseError("The list's rows are too long.");
  Offsets_.push_back(static_cast<std::uint32_t>(Start));
  Bytes_.append(NullBytes_, '\0');
  for (std::size_t Column = 0; Column < Columns_.size(); ++Column) {
    if (!AppendValue(Cursor, Sources[Column], Columns_[Column])) {
      char& Byte = Bytes_[Start + Column / 8];
      Byte = static_cast<char>(static_cast<unsigned char>(Byte) | (1U << (Column % 8)));
    }
  }
  ++RowCount_;
}

bool TStore::AppendValue(TCursor& Cursor, int Source, TFieldType Type) {
  if (Cursor.Kind(Source) == TValueKind::Null) return false;
  if (Type == TFieldType::ftString) {
    const std::string_view Text = Cursor.Text(Source);
    AppendLength(Bytes_, Text.size());
    Bytes_.append(Text);
    return true;
  }
  if (Type == TFieldType::ftFloat) {
    const std::optional<double> Value = RealOf(Cursor, Source);
    if (Value) AppendBytes(Bytes_, *Value);
    return Value.has_value();
  }
  if (Type == TFieldType::ftBoolean) {
    const auto Value = BooleanOf(Cursor, Source);
    if (Value) Bytes_ += static_cast<char>(*Value);
    return Value.has_value();
  }
  const auto Value = Type == TFieldType::ftDate ? DateOf(Cursor, Source) : IntegerOf(Cursor, Source);
  if (Value) AppendBytes(Bytes_, *Value);
  return Value.has_value();
}

void TStore::PackPage() {
  const std::size_t IndexBytes = Offsets_.size() * sizeof(std::uint32_t);
  auto Page = std::make_unique_for_overwrite<char[]>(IndexBytes + Bytes_.size());
  for (std::uint32_t& Offset : Offsets_) Offset += static_cast<std::uint32_t>(IndexBytes);
  std::memcpy(Page.get(), Offsets_.data(), IndexBytes);
  std::memcpy(Page.get() + IndexBytes, Bytes_.data(), Bytes_.size());
  PageBytes_ += IndexBytes + Bytes_.size();
  Pages_.push_back(std::move(Page));
  Offsets_.clear();
  Bytes_.clear();
}

// Makes the last packed page the one that is being filled again.
void TStore::UnpackPage() {
  const std::unique_ptr<char[]> Page = std::move(Pages_.back());
  Pages_.pop_back();
  constexpr std::size_t IndexBytes = PageRows * sizeof(std::uint32_t);
  Offsets_.resize(PageRows);
  std::memcpy(Offsets_.data(), Page.get(), IndexBytes);
  for (std::uint32_t& Offset : Offsets_) Offset -= static_cast<std::uint32_t>(IndexBytes);
  const char* const First = Page.get() + IndexBytes;
  Bytes_.assign(First, Find(First + Offsets_.back(), ColumnCount()));
  PageBytes_ -= IndexBytes + Bytes_.size();
}

void TStore::Truncate(int RowCount) {
  if (RowCount >= RowCount_) return;
  RowCount_ = RowCount;
  const auto Full = static_cast<std::size_t>(RowCount / PageRows);
  const auto Left = static_cast<std::size_t>(RowCount % PageRows);
  while (Pages_.size() > Full) UnpackPage();
  if (Left < Offsets_.size()) {
    Bytes_.resize(Offsets_[Left]);
    Offsets_.resize(Left);
  }
}

void TStore::Finish() {
  if (!Offsets_.empty()) PackPage();
  std::string().swap(Bytes_);
  std::vector<std::uint32_t>().swap(Offsets_);
  Pages_.shrink_to_fit();
}

const char* TStore::RowStart(int Row) const {
  const auto Number = static_cast<std::size_t>(Row / PageRows);
  const auto Place = static_cast<std::size_t>(Row % PageRows);
  if (Number == Pages_.size()) return Bytes_.data() + Offsets_[Place];
  const char* Page = Pages_[Number].get();
  return Page + ReadBytes<std::uint32_t>(Page + Place * sizeof(std::uint32_t));
}

std::string_view TStore::RowBytes(int Row) const {
  const char* const Start = RowStart(Row);
  return {Start, static_cast<std::size_t>(Find(Start, ColumnCount()) - Start)};
}

bool TStore::IsNull(int Row, int Column) const {
  const auto Byte = static_cast<unsigned char>(RowStart(Row)[Column / 8]);
  return (Byte >> (Column % 8) & 1U) != 0;
}

// Where the value of a column starts: behind those of the columns before it. Behind the last column: where the row
// ends.
const char* TStore::Find(const char* Nulls, int Column) const {
  const char* At = Nulls + NullBytes_;
  for (int Before = 0; Before < Column; ++Before) {
    if ((static_cast<unsigned char>(Nulls[Before / 8]) >> (Before % 8) & 1U) != 0) continue;
    switch (Columns_[static_cast<std::size_t>(Before)]) {
      case TFieldType::ftString: {
        const std::size_t Length = ReadLength(At);
        At += Length;
        break;
      }
      case TFieldType::ftFloat:
        At += sizeof(double);
        break;
      case TFieldType::ftBoolean:
        ++At;
        break;
      default:
        At += sizeof(std::int32_t);
    }
  }
  return At;
}

std::string_view TStore::Text(int Row, int Column) const {
  const char* At = Find(RowStart(Row), Column);
  const std::size_t Length = ReadLength(At);
  return {At, Length};
}

std::int32_t TStore::Integer(int Row, int Column) const {
  const char* At = Find(RowStart(Row), Column);
  return Columns_[static_cast<std::size_t>(Column)] == TFieldType::ftBoolean ? *At : ReadBytes<std::int32_t>(At);
}

double TStore::Real(int Row, int Column) const {
  return ReadBytes<double>(Find(RowStart(Row), Column));
}

std::size_t TStore::ByteCount() const {
  return PageBytes_ + Pages_.capacity() * sizeof(Pages_[0]) + Bytes_.capacity() +
         Offsets_.capacity() * sizeof(Offsets_[0]);
}

}  // namespace ads
