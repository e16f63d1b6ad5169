#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "ads/EDatabaseError.h"

namespace ads::sql {

/// Throws `EDatabaseError` that says what is wrong at a byte of a SQL text, with its line and its column (in
/// characters), both counted from 1. A carriage return, a line feed and the two together end a line.
[[noreturn]] inline void RaiseAt(std::string_view Sql, std::size_t Offset, const std::string& What) {
  const std::string_view Before = Sql.substr(0, Offset);
  std::size_t Line = 1;
  std::size_t LineStart = 0;
  for (std::size_t I = 0; I < Before.size(); ++I) {
    const bool PairGoesOn = Before[I] == '\r' && I + 1 < Sql.size() && Sql[I + 1] == '\n';
    if (PairGoesOn || (Before[I] != '\r' && Before[I] != '\n')) continue;
    ++Line;
    LineStart = I + 1;
  }
  const auto StartsCharacter = [](char Byte) { return (static_cast<unsigned char>(Byte) & 0xC0U) != 0x80U; };
  const auto Columns =
      std::count_if(Before.begin() + static_cast<std::ptrdiff_t>(LineStart), Before.end(), StartsCharacter);
  throw EDatabaseError(What + " at line " + std::to_string(Line) + ", column " + std::to_string(Columns + 1) +
                       " of the SQL text.");
}

}  // namespace ads::sql
