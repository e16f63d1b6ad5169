#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ads/sql/Statement.h"

namespace ads::sql {

/// What a dialect changes in a text, noted token by token; what is not touched goes through byte for byte. Texts that
/// two changes put at the same place nest: the later one stands outside. Comments become one blank each, because
/// servers disagree on where one ends.
class TRewriter {
 public:
  explicit TRewriter(std::string_view Sql);

  const TStatement& Statement() const { return Statement_; }

  void Replace(std::size_t Position, std::string Text);
  void InsertBefore(std::size_t Position, std::string_view Text);
  void InsertAfter(std::size_t Position, std::string_view Text);

  /// Takes a token away together with the blanks before it.
  void Remove(std::size_t Position);
  void RemoveBlanksBefore(std::size_t Position);

  /// What has become of a part of the text, to be put elsewhere or more than once.
  std::string TextOf(TStatement::TRange Range) const;

  /// Puts a text in the place of two tokens or more and of all that was changed between them; what was put before and
  /// behind them stays.
  void ReplaceAll(TStatement::TRange Range, std::string Text);

  /// Turns each `+` that joins texts into `||`.
  void JoinTexts();

  /// The changed text. Two words, or a word and a text, that would run together get a blank between them.
  std::string Text() const;

 private:
  struct TEdit {
    std::string Before;
    std::optional<std::string> Instead;
    std::string After;
    bool WithoutBlanks = false;
  };

  void AppendBlanks(std::string& Result, std::size_t Position) const;
  void AppendToken(std::string& Result, std::size_t Position) const;

  TStatement Statement_;
  std::vector<TEdit> Edits_;  // by position
};

}  // namespace ads::sql
