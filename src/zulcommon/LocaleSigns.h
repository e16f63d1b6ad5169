#pragma once

#include <string>
#include <string_view>

namespace zulcommon {

/// A text of ASCII digits with those of the user's locale (`QLocale()`) in their place.
std::string WithLocaleDigits(std::string_view Text);
/// The same, with its point and minus as well.
std::string WithLocaleSigns(std::string_view Number);

/// The other way round: ASCII digits in the place of the locale's. Whatever else there is stays.
std::string WithPlainDigits(std::string_view Text);

}  // namespace zulcommon
