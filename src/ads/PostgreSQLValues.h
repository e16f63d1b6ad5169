#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ads {

/// How a value of PostgreSQL stands in a binary result. `Unreadable` is every type that is not read so.
enum class TPostgreSQLShape : std::uint8_t {
  Boolean,
  Int2,
  Int4,
  Int8,
  Oid,
  Float4,
  Float8,
  Numeric,
  Money,
  Date,
  Timestamp,
  Padded,  // CHAR(n), which the server fills up with blanks
  Text,
  Unreadable
};

/// The shape of a type by its number in pg_type.
TPostgreSQLShape PostgreSQLShape(unsigned Type);

// The parts of binary values. The bytes must be as many as the shape has; the server's are.

std::int64_t PostgreSQLInteger(TPostgreSQLShape Shape, const char* Bytes);  ///< Boolean to Oid
double PostgreSQLReal(TPostgreSQLShape Shape, const char* Bytes);           ///< Float4 and Float8

/// Writes a value of any shape but `Unreadable` as text: a number in full and with a point, whatever the session's
/// settings are, a Boolean as 1 or 0, a date or the date of a time stamp as YYYY-MM-DD, a text without its padding.
/// `Out` is used where the text does not stand in the bytes already.
std::string_view PostgreSQLText(TPostgreSQLShape Shape, std::string_view Bytes, std::string& Out);

/// The same for a value that the server wrote as text under `postgresql::TextSettings`.
std::string_view PostgreSQLTextOfText(TPostgreSQLShape Shape, std::string_view Text, std::string& Out);

}  // namespace ads
