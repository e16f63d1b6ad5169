#include "ads/PostgreSQLValues.h"

#include <bit>
#include <charconv>
#include <chrono>
#include <limits>
#include <type_traits>

namespace ads {

namespace {

// Values come with their highest byte first.
template <typename T>
T Read(const char* Bytes) {
  using TBits = std::make_unsigned_t<T>;
  TBits Value = 0;
  for (std::size_t Index = 0; Index < sizeof(T); ++Index) {
    Value = static_cast<TBits>(Value << 8 | static_cast<unsigned char>(Bytes[Index]));
  }
  return static_cast<T>(Value);
}

void AppendDigits(std::string& Out, std::uint64_t Value, std::size_t Width) {
  const std::string Digits = std::to_string(Value);
  if (Digits.size() < Width) Out.append(Width - Digits.size(), '0');
  Out += Digits;
}

// A number in groups of four decimal digits; the first group has the weight 10000 ^ Weight.
void AppendNumeric(std::string& Out, const char* Bytes) {
  constexpr std::uint16_t Negative = 0x4000;
  constexpr std::uint16_t NoNumber = 0xC000;  // NaN and the two infinities
  const int Groups = Read<std::int16_t>(Bytes);
  const int Weight = Read<std::int16_t>(Bytes + 2);
  const auto Sign = Read<std::uint16_t>(Bytes + 4);
  const auto Scale = static_cast<std::size_t>(Read<std::int16_t>(Bytes + 6));
  if ((Sign & NoNumber) == NoNumber) {
    Out += "NaN";
    return;
  }
  const auto Group = [&](int Index) -> std::uint64_t {
    return Index >= 0 && Index < Groups ? Read<std::uint16_t>(Bytes + 8 + 2 * Index) : 0;
  };
  if (Sign == Negative) Out += '-';
  Out += std::to_string(Group(0) * (Weight >= 0 ? 1U : 0U));
  for (int Index = 1; Index <= Weight; ++Index) AppendDigits(Out, Group(Index), 4);
  if (Scale == 0) return;
  Out += '.';
  const std::size_t Point = Out.size();
  for (int Index = Weight + 1; Out.size() < Point + Scale; ++Index) AppendDigits(Out, Group(Index), 4);
  Out.resize(Point + Scale);
}

// Money is counted in hundredths.
void AppendMoney(std::string& Out, std::int64_t Value) {
  const auto Amount = Value < 0 ? 0 - static_cast<std::uint64_t>(Value) : static_cast<std::uint64_t>(Value);
  if (Value < 0) Out += '-';
  Out += std::to_string(Amount / 100) + '.';
  AppendDigits(Out, Amount % 100, 2);
}

// Days from 2000-01-01. What no calendar date of four digits says is left to be no date.
void AppendDate(std::string& Out, std::int64_t Days) {
  using std::chrono::days;
  using std::chrono::sys_days;
  constexpr sys_days Start = std::chrono::year{2000} / std::chrono::January / 1;
  constexpr sys_days First = std::chrono::year{1} / std::chrono::January / 1;
  constexpr sys_days Last = std::chrono::year{9999} / std::chrono::December / 31;
  if (Days < (First - Start).count() || Days > (Last - Start).count()) {
    Out += Days < 0 ? "-infinity" : "infinity";
    return;
  }
  const std::chrono::year_month_day Date(Start + days(Days));
  AppendDigits(Out, static_cast<std::uint64_t>(static_cast<int>(Date.year())), 4);
  Out += '-';
  AppendDigits(Out, static_cast<unsigned>(Date.month()), 2);
  Out += '-';
  AppendDigits(Out, static_cast<unsigned>(Date.day()), 2);
}

std::int64_t DayOfTimestamp(std::int64_t Microseconds) {
  constexpr std::int64_t Day = 86'400'000'000;
  return Microseconds / Day - (Microseconds % Day < 0 ? 1 : 0);
}

template <typename T>
void AppendNumber(std::string& Out, T Value) {
  char Digits[40];
  const auto Written = std::to_chars(Digits, Digits + sizeof Digits, Value);
  Out.append(Digits, Written.ptr);
}

std::string_view WithoutPadding(std::string_view Text) {
  while (Text.ends_with(' ')) Text.remove_suffix(1);
  return Text;
}

}  // namespace

TPostgreSQLShape PostgreSQLShape(unsigned Type) {
  switch (Type) {
    case 16:
      return TPostgreSQLShape::Boolean;
    case 21:
      return TPostgreSQLShape::Int2;
    case 23:
      return TPostgreSQLShape::Int4;
    case 20:
      return TPostgreSQLShape::Int8;
    case 26:
      return TPostgreSQLShape::Oid;
    case 700:
      return TPostgreSQLShape::Float4;
    case 701:
      return TPostgreSQLShape::Float8;
    case 1700:
      return TPostgreSQLShape::Numeric;
    case 790:
      return TPostgreSQLShape::Money;
    case 1082:
      return TPostgreSQLShape::Date;
    case 1114:
      return TPostgreSQLShape::Timestamp;
    case 1042:
      return TPostgreSQLShape::Padded;
    case 17:    // bytea: its bytes
    case 19:    // name
    case 25:    // text
    case 114:   // json
    case 142:   // xml
    case 705:   // unknown: a bare text or NULL
    case 1043:  // varchar
      return TPostgreSQLShape::Text;
    default:
      return TPostgreSQLShape::Unreadable;
  }
}

std::int64_t PostgreSQLInteger(TPostgreSQLShape Shape, const char* Bytes) {
  switch (Shape) {
    case TPostgreSQLShape::Boolean:
      return *Bytes != 0 ? 1 : 0;
    case TPostgreSQLShape::Int2:
      return Read<std::int16_t>(Bytes);
    case TPostgreSQLShape::Int8:
      return Read<std::int64_t>(Bytes);
    case TPostgreSQLShape::Oid:
      return Read<std::uint32_t>(Bytes);
    default:
      return Read<std::int32_t>(Bytes);
  }
}

double PostgreSQLReal(TPostgreSQLShape Shape, const char* Bytes) {
  static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<float>::is_iec559);
  if (Shape == TPostgreSQLShape::Float4) return static_cast<double>(std::bit_cast<float>(Read<std::uint32_t>(Bytes)));
  return std::bit_cast<double>(Read<std::uint64_t>(Bytes));
}

std::string_view PostgreSQLText(TPostgreSQLShape Shape, std::string_view Bytes, std::string& Out) {
  Out.clear();
  switch (Shape) {
    case TPostgreSQLShape::Text:
    case TPostgreSQLShape::Unreadable:
      return Bytes;
    case TPostgreSQLShape::Padded:
      return WithoutPadding(Bytes);
    case TPostgreSQLShape::Date:
      AppendDate(Out, Read<std::int32_t>(Bytes.data()));
      break;
    case TPostgreSQLShape::Timestamp:
      AppendDate(Out, DayOfTimestamp(Read<std::int64_t>(Bytes.data())));
      break;
    case TPostgreSQLShape::Numeric:
      AppendNumeric(Out, Bytes.data());
      break;
    case TPostgreSQLShape::Money:
      AppendMoney(Out, Read<std::int64_t>(Bytes.data()));
      break;
    case TPostgreSQLShape::Float4:
      AppendNumber(Out, std::bit_cast<float>(Read<std::uint32_t>(Bytes.data())));
      break;
    case TPostgreSQLShape::Float8:
      AppendNumber(Out, PostgreSQLReal(Shape, Bytes.data()));
      break;
    default:
      AppendNumber(Out, PostgreSQLInteger(Shape, Bytes.data()));
  }
  return Out;
}

std::string_view PostgreSQLTextOfText(TPostgreSQLShape Shape, std::string_view Text, std::string& Out) {
  Out.clear();
  switch (Shape) {
    case TPostgreSQLShape::Boolean:
      return Text.starts_with('t') ? "1" : "0";
    case TPostgreSQLShape::Padded:
      return WithoutPadding(Text);
    case TPostgreSQLShape::Money:
      for (const char Byte : Text) {
        if (Byte != '$' && Byte != ',') Out += Byte;
      }
      return Out;
    case TPostgreSQLShape::Timestamp:
      return Text.substr(0, Text.find(' '));
    default:
      return Text;
  }
}

}  // namespace ads
