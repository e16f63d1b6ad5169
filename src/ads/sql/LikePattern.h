#pragma once

#include <string>
#include <string_view>

namespace ads::sql {

/// A LIKE pattern, read once and matched against many texts: exact case, `%` for any run of characters, `_` for one
/// character of UTF-8, nothing else special.
class TLikePattern {
 public:
  explicit TLikePattern(std::string_view Pattern);
  bool Matches(std::string_view Text) const;

 private:
  bool MatchesWildcards(std::string_view Text) const;

  // Nearly every pattern of the dialogs is a plain text with a wildcard at one end or both, which needs no more than a
  // search for that text.
  enum class TShape { Whole, Prefix, Suffix, Contains, Wildcards };
  TShape Shape_ = TShape::Wildcards;
  std::string Text_;
};

}  // namespace ads::sql
