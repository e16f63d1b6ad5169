#pragma once

#include <QDate>
#include <string>
#include <string_view>

#include "zulcommon/Currency.h"
#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// `Value` by a number format: "0" stands for a digit that is always shown, a comma in the whole part asks for
/// groups, the digits behind the point say the decimals (",0.00" gives 1,234.50; "0.00"; ",0"). Digits, signs, decimal
/// point and groups are those of the user's locale (`QLocale()`); a value that rounds to zero has no sign.
///
/// Halves are rounded away from zero, and what counts is the number that a user reads: the double nearest to 1.005
/// shows as 1.01 with two decimals, although it lies a little below. Money is rounded from its exact value.
///
/// An empty format gives the shortest text that reads back as the same number, with an exponent only below 0.00001
/// and from 10^15 on. Not-a-number gives an empty text, an infinity "inf" or "-inf".
ZULCOMMON_EXPORT std::string FormatNumber(std::string_view Format, double Value);
ZULCOMMON_EXPORT std::string FormatNumber(std::string_view Format, TCurrency Value);

/// `Date` by the user's short date pattern, in the digits of the user's locale; empty for an invalid date.
ZULCOMMON_EXPORT std::string FormatShortDate(QDate Date);

/// `Date` by a pattern of y, m and d in any case ("YYYY-MM-DD", "d/m/yy"; other characters stand for themselves);
/// empty for an invalid date.
ZULCOMMON_EXPORT std::string FormatDate(std::string_view Pattern, QDate Date);

/// The same in the digits of the user's locale, to be shown and not stored.
ZULCOMMON_EXPORT std::string FormatShownDate(std::string_view Pattern, QDate Date);

/// Minutes after midnight as "HH:NN", two digits each: 605 gives "10:05". Out of a day's range the hours go on
/// counting; a negative value has its sign in front.
ZULCOMMON_EXPORT std::string FormatMinutes(int MinutesAfterMidnight);

/// The pattern in which the user's dates are shown and typed: that of `SetShortDateFormat`, else the short pattern of
/// the user's locale (`QLocale()`) when it is made of numbers alone, else "yyyy-mm-dd". In lower case.
ZULCOMMON_EXPORT std::string ShortDateFormat();

/// Sets the pattern for this process; an empty one goes back to the locale's. A pattern must name each of day,
/// month and year once and have a separator between them ("dd/mm/yyyy", "m-d-yy"); any other throws `EZULException`
/// and changes nothing. Days and months are named by one letter or two, years by two or four; separators are blanks
/// and ASCII punctuation other than quotation marks.
///
/// To be called while no other thread formats or reads dates.
ZULCOMMON_EXPORT void SetShortDateFormat(std::string_view Pattern);

}  // namespace zulcommon
