#include "ads/MariaDBValues.h"

#include <charconv>
#include <system_error>

namespace ads {

namespace {

constexpr unsigned BinaryCharacterSet = 63;
constexpr std::string_view NoDate = "0000-00-00";

template <typename T>
bool Read(std::string_view Text, T& Value) {
  return std::from_chars(Text.data(), Text.data() + Text.size(), Value).ec == std::errc();
}

}  // namespace

TMariaDBShape MariaDBShape(const MYSQL_FIELD& Field) {
  switch (Field.type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_YEAR:
      return TMariaDBShape::Integer;
    case MYSQL_TYPE_BIT:
      return TMariaDBShape::Bits;
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
      return TMariaDBShape::Real;
    case MYSQL_TYPE_DATE:
    case MYSQL_TYPE_NEWDATE:
    case MYSQL_TYPE_DATETIME:
    case MYSQL_TYPE_TIMESTAMP:
      return TMariaDBShape::Day;
    case MYSQL_TYPE_STRING:
      return Field.charsetnr == BinaryCharacterSet ? TMariaDBShape::Text : TMariaDBShape::Padded;
    default:
      return TMariaDBShape::Text;
  }
}

TValueKind MariaDBKind(TMariaDBShape Shape, std::string_view Value) {
  if (Value.data() == nullptr) return TValueKind::Null;
  switch (Shape) {
    case TMariaDBShape::Integer: {
      constexpr std::size_t Always = 18;  // so many digits are a number of 64 bits
      std::int64_t Ignored = 0;
      return Value.size() <= Always || Read(Value, Ignored) ? TValueKind::Integer : TValueKind::Text;
    }
    case TMariaDBShape::Bits:
      return TValueKind::Integer;
    case TMariaDBShape::Real:
      return TValueKind::Real;
    case TMariaDBShape::Day:
      return Value.starts_with(NoDate) ? TValueKind::Null : TValueKind::Text;
    default:
      return TValueKind::Text;
  }
}

std::int64_t MariaDBInteger(TMariaDBShape Shape, std::string_view Value) {
  std::int64_t Result = 0;
  if (Shape == TMariaDBShape::Integer) {
    Read(Value, Result);
    return Result;
  }
  std::uint64_t Bits = 0;
  for (const char Byte : Value) Bits = Bits << 8 | static_cast<unsigned char>(Byte);
  return static_cast<std::int64_t>(Bits);
}

double MariaDBReal(std::string_view Value) {
  double Result = 0;
  Read(Value, Result);
  return Result;
}

std::string_view MariaDBText(TMariaDBShape Shape, std::string_view Value, std::string& Out) {
  switch (Shape) {
    case TMariaDBShape::Real: {
      char Digits[40];
      Out.assign(Digits, std::to_chars(Digits, Digits + sizeof Digits, MariaDBReal(Value)).ptr);
      return Out;
    }
    case TMariaDBShape::Bits:
      Out = std::to_string(MariaDBInteger(Shape, Value));
      return Out;
    case TMariaDBShape::Day:
      return Value.substr(0, Value.find(' '));
    case TMariaDBShape::Padded:
      while (Value.ends_with(' ')) Value.remove_suffix(1);
      return Value;
    default:
      return Value;
  }
}

}  // namespace ads
