#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace sample {

/// The parts one after the other. The parts are made in the order in which they stand, which `+` does not promise:
/// where chance makes them, only this keeps a text the same under every compiler.
std::string Concat(std::initializer_list<std::string_view> Parts);

/// The first `Size` characters of a UTF-8 text, without a blank at the end: what an entry field of that size keeps.
std::string Fitted(std::string_view Text, std::size_t Size);

/// `Text` as part of a network address: its letters and digits in lower case, accents taken off, at most `Size`
/// characters, the rest left out.
std::string AddressPart(std::string_view Text, std::size_t Size);

}  // namespace sample
