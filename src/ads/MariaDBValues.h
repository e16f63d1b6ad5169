#pragma once

#include <mysql.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "ads/Cursor.h"

namespace ads {

/// How a value of MariaDB is written in a result, which is text for all of them.
enum class TMariaDBShape : std::uint8_t {
  Integer,
  Bits,  // the bytes of a number, the highest first
  Real,
  Day,     // a date, or a date with a time of day
  Padded,  // CHAR(n), which one mode of the server fills up with blanks
  Text     // all else, exact decimals among it
};

TMariaDBShape MariaDBShape(const MYSQL_FIELD& Field);

// A value without an address is a null; so is the date 0000-00-00, which is none.

TValueKind MariaDBKind(TMariaDBShape Shape, std::string_view Value);
std::int64_t MariaDBInteger(TMariaDBShape Shape, std::string_view Value);  ///< of Integer and Bits
double MariaDBReal(std::string_view Value);

/// The value as text: a number with a point, a date or the date of a time stamp as YYYY-MM-DD, a text without its
/// padding. `Out` is used where the text does not stand in the value already.
std::string_view MariaDBText(TMariaDBShape Shape, std::string_view Value, std::string& Out);

}  // namespace ads
