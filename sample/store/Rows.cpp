#include "sample/store/Rows.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace sample {

namespace {

std::size_t CharacterCount(std::string_view Text) {
  return static_cast<std::size_t>(
      std::count_if(Text.begin(), Text.end(), [](char C) { return (static_cast<unsigned char>(C) & 0xC0U) != 0x80U; }));
}

bool Fits(const TColumn& Column, const TValue& Value) {
  switch (Column.Type) {
    case TColumnType::Boolean:
      return std::holds_alternative<bool>(Value.Content());
    case TColumnType::Date:
      return std::holds_alternative<TDate>(Value.Content());
    case TColumnType::Double:
      return std::holds_alternative<double>(Value.Content());
    case TColumnType::Text: {
      const auto* Text = std::get_if<std::string_view>(&Value.Content());
      return Text != nullptr && (Text->size() <= Column.Size || CharacterCount(*Text) <= Column.Size);
    }
    case TColumnType::SmallInt: {
      const auto* Number = std::get_if<std::int64_t>(&Value.Content());
      return Number != nullptr && *Number >= INT16_MIN && *Number <= INT16_MAX;
    }
    case TColumnType::Integer:
    case TColumnType::AutoNumber: {
      const auto* Number = std::get_if<std::int64_t>(&Value.Content());
      return Number != nullptr && *Number >= INT32_MIN && *Number <= INT32_MAX;
    }
  }
  return false;
}

std::vector<const TColumn*> ColumnsOf(const TTable& Table, std::initializer_list<std::string_view> Names) {
  std::vector<const TColumn*> Result;
  for (const std::string_view Name : Names) {
    Result.push_back(Table.Find(Name));
    if (Result.back() == nullptr) {
      throw std::runtime_error("The table " + Table.Name + " has no column " + std::string(Name) + ".");
    }
  }
  for (const TColumn& Column : Table.Columns) {
    if (Column.Type != TColumnType::AutoNumber && std::find(Result.begin(), Result.end(), &Column) == Result.end()) {
      throw std::runtime_error("The rows of " + Table.Name + " lack the column " + Column.Name + ".");
    }
  }
  return Result;
}

}  // namespace

TRows::TRows(TRowSink& Sink, const TTable& Table, std::vector<const TColumn*> Columns)
    : Sink_(Sink), Table_(Table), Columns_(std::move(Columns)) {}

void TRows::Add(std::initializer_list<TValue> Values) {
  if (Values.size() != Columns_.size()) {
    throw std::runtime_error("A row of " + Table_.Name + " has " + std::to_string(Values.size()) + " values for " +
                             std::to_string(Columns_.size()) + " columns.");
  }
  std::size_t Position = 0;
  for (const TValue& Value : Values) {
    Check(*Columns_[Position++], Value);
  }
  Sink_.AddRow({Values.begin(), Values.size()});
}

void TRows::Check(const TColumn& Column, const TValue& Value) const {
  if (Value.IsNull() ? !Column.Required : Fits(Column, Value)) {
    return;
  }
  const auto* Text = std::get_if<std::string_view>(&Value.Content());
  throw std::runtime_error("A value does not fit the column " + Column.Name + " of " + Table_.Name +
                           (Text != nullptr ? ": " + std::string(*Text) : std::string(".")));
}

void TFiller::Fill(std::string_view Table, std::initializer_list<std::string_view> Columns,
                   const std::function<void(TRows&)>& Write) {
  const TTable& Target = Schema_.Table(Table);
  TRows Rows(Sink_, Target, ColumnsOf(Target, Columns));
  Sink_.BeginRows(Target, {Columns.begin(), Columns.end()});
  Write(Rows);
  Sink_.EndRows();
}

}  // namespace sample
