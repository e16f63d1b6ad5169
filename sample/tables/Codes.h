#pragma once

#include <cstdint>
#include <string>

namespace sample {

/// A code of a letter and five places, for `Number` from 1: C00001 to C99999, then CA0000 to CZ9999, CAA000 to
/// CZZ999 and so on, letters growing from the left. All different for some 19 million numbers; above that throws
/// `std::runtime_error`.
std::string LetterCode(char Letter, std::int64_t Number);

/// `Number` with leading zeros to `Digits` places.
std::string Padded(std::int64_t Number, std::size_t Digits);

}  // namespace sample
