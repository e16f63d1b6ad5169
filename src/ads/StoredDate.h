#pragma once

#include <QDate>
#include <string_view>

namespace ads {

/// A date as servers hand it over as text: YYYY-MM-DD from year 1 to 9999, blanks around it allowed, and a time of day
/// behind it (a blank or a T, then HH:MM[:SS[.fraction]], then Z or an offset) that is read past. Invalid for all else.
QDate ReadStoredDate(std::string_view Text);

}  // namespace ads
