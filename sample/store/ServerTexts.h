#pragma once

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "sample/store/Schema.h"

namespace sample {

/// What the statements of two servers share that make a company's tables.
class TServerTexts {
 public:
  /// The sign that stands around a name, and the types that are called differently.
  struct TWords {
    char Quote;
    std::string_view Double;
    std::string_view AutoNumber;
  };

  explicit constexpr TServerTexts(TWords Words) : Words_(Words) {}

  /// A name in lower case, and in quotes.
  static std::string Lower(std::string_view Name);
  std::string Quoted(std::string_view Name) const;
  std::string QuotedList(const std::vector<std::string>& Names) const;

  /// The columns of a table as they are declared, without parentheses.
  std::string Columns(const TTable& Table) const;
  std::string CreateIndex(const TIndex& Index, std::string_view QuotedTable) const;

 private:
  std::string TypeOf(const TColumn& Column) const;

  TWords Words_;
};

template <typename T>
void AppendNumber(std::string& Out, T Value) {
  char Digits[40];
  Out.append(Digits, std::to_chars(Digits, Digits + sizeof Digits, Value).ptr);
}

}  // namespace sample
