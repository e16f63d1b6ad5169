#pragma once

#include <cstddef>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ads {

/// The rows of a query that had to make way for another one, to be taken in their order. A value without an address is
/// a null.
class TKeptRows {
 public:
  using TValues = std::vector<std::string_view>;  // of a cursor's current row

  /// Whether the rows are to be had from here.
  bool AreKept() const { return AreKept_; }

  /// Takes the rest of a cursor's rows into memory, behind the one that it stands on if it does: `ReadOn` reads them
  /// and calls what it is given for each. A failure is kept for the reader of the rows.
  template <typename TReadOn>
  void Keep(TValues& Values, bool OnRow, TReadOn ReadOn) {
    if (OnRow) Add(Values);
    try {
      ReadOn([&] {
        Add(Values);
        return true;
      });
    } catch (...) {
      Failure_ = std::current_exception();
    }
    AreKept_ = true;
    if (OnRow) Next(Values);
  }

  /// Gives the next rows to `Take`, until that returns false; false when there are no more.
  template <typename TTakeRow>
  bool Give(TValues& Values, const TTakeRow& Take) {
    while (Next(Values)) {
      if (!Take()) return true;
    }
    if (Failure_) std::rethrow_exception(std::exchange(Failure_, nullptr));
    return false;
  }

 private:
  void Add(const TValues& Values) {
    for (const std::string_view Value : Values) {
      const auto Length = Value.data() == nullptr ? Null : Value.size();
      Bytes_.append(reinterpret_cast<const char*>(&Length), sizeof Length);
      Bytes_.append(Value);
    }
  }

  bool Next(TValues& Values) {
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

  static constexpr std::size_t Null = static_cast<std::size_t>(-1);
  std::string Bytes_;
  std::size_t At_ = 0;
  bool AreKept_ = false;
  std::exception_ptr Failure_;
};

}  // namespace ads
