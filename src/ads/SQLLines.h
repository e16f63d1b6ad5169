#pragma once

#include <string>
#include <vector>

namespace ads {

/// The lines of a query's SQL, in the order in which they were added.
class TSQLLines {
 public:
  void Add(std::string Line) { Lines_.push_back(std::move(Line)); }
  void Clear() { Lines_.clear(); }
  int Count() const { return static_cast<int>(Lines_.size()); }

  /// Throws `std::out_of_range` for an index outside 0 to Count() - 1.
  const std::string& operator[](int Index) const { return Lines_.at(static_cast<std::size_t>(Index)); }

  /// All lines, joined by a line feed; none behind the last.
  std::string Text() const {
    std::string Result;
    for (const std::string& Line : Lines_) {
      if (&Line != &Lines_.front()) Result += '\n';
      Result += Line;
    }
    return Result;
  }

  auto begin() const { return Lines_.begin(); }
  auto end() const { return Lines_.end(); }

 private:
  std::vector<std::string> Lines_;
};

}  // namespace ads
