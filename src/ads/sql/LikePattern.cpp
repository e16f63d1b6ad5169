#include "ads/sql/LikePattern.h"

#include <cstring>

namespace ads::sql {

namespace {

// The number of bytes of the character that starts at `At`; a stray byte counts as one character.
std::size_t CharacterLength(std::string_view Text, std::size_t At) {
  std::size_t End = At + 1;
  if ((static_cast<unsigned char>(Text[At]) & 0xC0) == 0xC0) {
    while (End < Text.size() && (static_cast<unsigned char>(Text[End]) & 0xC0) == 0x80) ++End;
  }
  return End - At;
}

}  // namespace

TLikePattern::TLikePattern(std::string_view Pattern) : Text_(Pattern) {
  const bool Before = Pattern.starts_with('%');
  if (Before) Pattern.remove_prefix(1);
  const bool Behind = Pattern.ends_with('%');
  if (Behind) Pattern.remove_suffix(1);
  if (Pattern.find_first_of("%_") != std::string_view::npos) return;
  Shape_ = Before ? (Behind ? TShape::Contains : TShape::Suffix) : (Behind ? TShape::Prefix : TShape::Whole);
  if (Before && Pattern.empty()) Shape_ = TShape::Contains;  // "%" alone
  Text_ = std::string(Pattern);
}

bool TLikePattern::Matches(std::string_view Text) const {
  switch (Shape_) {
    case TShape::Whole:
      return Text == Text_;
    case TShape::Prefix:
      return Text.starts_with(Text_);
    case TShape::Suffix:
      return Text.ends_with(Text_);
    case TShape::Contains:
      return Text_.empty() || memmem(Text.data(), Text.size(), Text_.data(), Text_.size()) != nullptr;
    case TShape::Wildcards:
      break;
  }
  return MatchesWildcards(Text);
}

// Greedy matching with one point to go back to: behind the last `%` seen. No pattern costs more than the product of the
// lengths.
bool TLikePattern::MatchesWildcards(std::string_view Text) const {
  const std::string_view Pattern = Text_;
  std::size_t T = 0;
  std::size_t P = 0;
  std::size_t BackPattern = std::string_view::npos;
  std::size_t BackText = 0;
  while (T < Text.size()) {
    if (P < Pattern.size() && Pattern[P] == '%') {
      BackPattern = ++P;
      BackText = T;
    } else if (P < Pattern.size() && Pattern[P] == '_') {
      T += CharacterLength(Text, T);
      ++P;
    } else if (P < Pattern.size() && Pattern[P] == Text[T]) {
      ++T;
      ++P;
    } else if (BackPattern != std::string_view::npos) {
      P = BackPattern;
      BackText += CharacterLength(Text, BackText);
      T = BackText;
    } else {
      return false;
    }
  }
  while (P < Pattern.size() && Pattern[P] == '%') ++P;
  return P == Pattern.size();
}

}  // namespace ads::sql
