#pragma once

#include <QDate>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// A date as the user types it, by the order and separator of `ShortDateFormat()`: day and month of one or two digits,
/// a year of two digits (taken within fifty years around today) or of four, the year left out (with its separator)
/// for this year; blanks around the text are ignored. Anything else, and a day that no calendar has, gives nothing.
///
/// A two-digit year lies from 49 years before this one to 50 years after it. Blanks beside another separator
/// ("d. m. yyyy") and what the pattern has behind its last number need not be typed. Blanks are spaces and tabs, here
/// and below.
ZULCOMMON_EXPORT std::optional<QDate> ReadDate(std::string_view Typed);

/// The same as if `Today` were the current day.
ZULCOMMON_EXPORT std::optional<QDate> ReadDate(std::string_view Typed, QDate Today);

/// A number as the user types it, spelled as the readers below and a query take it: the digits, the decimal sign and
/// the signs of the user's locale (`QLocale()`) become plain ones, and everything else, a point too, stays as it is.
/// What is no number is none afterwards: thousands separators are no part of a typed number.
ZULCOMMON_EXPORT std::string PlainNumber(std::string_view Typed);

/// A whole number of 32 bits: an optional sign and decimal digits, blanks around it ignored.
ZULCOMMON_EXPORT std::optional<std::int32_t> ReadInteger(std::string_view Typed);

/// A number: an optional sign, digits with or without a decimal point, an optional exponent, blanks around it ignored.
/// No thousands separators, no hexadecimal, no infinity. The decimal sign is a point in every locale, because a stored
/// number and one in a query have one: `PlainNumber` comes first for what a user typed. A number too large for a double
/// gives nothing, one too small gives zero.
ZULCOMMON_EXPORT std::optional<double> ReadNumber(std::string_view Typed);

}  // namespace zulcommon
