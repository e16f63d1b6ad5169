#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zulcommon {

/// How many pixels the narrowest places have in which a text stands: written in the form's font, in the bold one of
/// column titles, and put into another text in the form's font.
struct TTextPlaces {
  std::optional<int> Plain;
  std::optional<int> Bold;
  std::map<std::int32_t, int> Within;  ///< by the number of the text that it is put into
};

/// One text of a string table, or what is wrong with its line.
struct TTableLine {
  int LineNo = 0;
  std::string Key;  ///< the number, in its shortest form, or the name
  std::string Text;
  std::string Error;  ///< what is wrong; empty for a good line
  TTextPlaces Places;
};

/// The lines of a table that hold texts. Throws `EZULException` for a file that cannot be read.
std::vector<TTableLine> ReadTableLines(const std::string& FileName);

/// Whether the key is a number.
bool IsNumber(std::string_view Key);

/// The names of the built-in tables: of English by number and of English by name.
constexpr const char* EnglishTable = ":/zul/strings/en.txt";
constexpr const char* EnglishNames = ":/zul/strings/en.names.txt";

}  // namespace zulcommon
