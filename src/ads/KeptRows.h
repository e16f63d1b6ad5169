#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace ads {

/// The rows of a query that had to make way for another one, to be taken in their order. A value without an address is
/// a null.
class TKeptRows {
 public:
  void Add(const std::vector<std::string_view>& Values) {
    for (const std::string_view Value : Values) {
      const auto Length = Value.data() == nullptr ? Null : Value.size();
      Bytes_.append(reinterpret_cast<const char*>(&Length), sizeof Length);
      Bytes_.append(Value);
    }
  }
  bool Take(std::vector<std::string_view>& Values) {
    if (At_ == Bytes_.size()) return false;
    for (std::string_view& Value : Values) {
      std::size_t Length = 0;
      std::memcpy(&Length, Bytes_.data() + At_, sizeof Length);
      At_ += sizeof Length;
      Value = Length == Null ? std::string_view() : std::string_view(Bytes_.data() + At_, Length);
      At_ += Value.size();
    }
    return true;
  }

 private:
  static constexpr std::size_t Null = static_cast<std::size_t>(-1);
  std::string Bytes_;
  std::size_t At_ = 0;
};

}  // namespace ads
