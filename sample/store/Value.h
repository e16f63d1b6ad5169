#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "sample/store/Dates.h"

namespace sample {

/// One value of a row on its way into a table. A text is only referred to: it must live until the row is written, as
/// every argument of one call of `TRows::Add` does.
class TValue {
 public:
  using TContent = std::variant<std::monostate, bool, std::int64_t, double, std::string_view, TDate>;

  TValue(std::nullopt_t) {}
  template <std::same_as<bool> T>
  TValue(T Value) : Content_(Value) {}
  template <std::integral T>
  requires(!std::same_as<T, bool> && !std::same_as<T, char>) TValue(T Value)
      : Content_(static_cast<std::int64_t>(Value)) {}
  TValue(double Value) : Content_(Value) {}
  TValue(std::string_view Value) : Content_(Value) {}
  TValue(const std::string& Value) : Content_(std::string_view(Value)) {}
  TValue(const char* Value) : Content_(std::string_view(Value)) {}
  TValue(TDate Value) : Content_(Value) {}
  template <typename T>
  TValue(const std::optional<T>& Value) {
    if (Value) {
      *this = TValue(*Value);
    }
  }
  /// A letter is written as a text of one character; say so with a string_view.
  TValue(char) = delete;

  bool IsNull() const { return std::holds_alternative<std::monostate>(Content_); }
  const TContent& Content() const { return Content_; }

 private:
  TContent Content_;
};

}  // namespace sample
