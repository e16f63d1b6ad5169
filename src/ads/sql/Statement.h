#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ads/sql/Lexer.h"

namespace ads::sql {

/// A SQL text taken apart: its tokens without the blanks between them, by position, and what belongs together in
/// them. All that the gate and the dialects need to find in a text is found here.
///
/// Positions count from 0; `None` stands for one that does not exist, and every question about it, or about a
/// position past the end, is answered with false or `None`. The text must outlive the object.
class TStatement {
 public:
  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  /// The tokens from `First` to `Last`, both included.
  struct TRange {
    std::size_t First = None;
    std::size_t Last = None;
  };

  /// One expression of a select list. `Alias` is the position of the name it is given, or `None`.
  struct TSelectItem {
    TRange Expression;
    std::size_t Alias = None;
    bool AliasWithoutAs = false;
  };

  /// One expression of an ORDER BY, without what says its direction. `Last` is the item's last token.
  struct TSortItem {
    TRange Expression;
    std::size_t Last = None;
    bool Descending = false;
    bool SaysNulls = false;
  };

  /// The items after one SELECT or one ORDER BY. `Within` is the parenthesis that it stands in, or `None`: two of the
  /// same one belong to one query, as the parts of a UNION and the order of the whole do.
  template <typename TItem>
  struct TList {
    std::size_t Within = None;
    std::vector<TItem> Items;
  };

  /// `Text LIKE Pattern` or `Text NOT LIKE Pattern`; `Not` is the position of that NOT, or `None`.
  struct TLike {
    TRange Text;
    std::size_t Not = None;
    std::size_t Like = None;
    TRange Pattern;
  };

  /// What `Tokenize` refuses, a parenthesis without its other one, and parentheses more than `DeepestNesting` deep
  /// throw `EDatabaseError` with the place.
  explicit TStatement(std::string_view Sql);

  static constexpr std::size_t DeepestNesting = 200;

  std::size_t Count() const { return Solid_.size(); }
  const TToken& operator[](std::size_t Position) const { return Tokens_[Solid_[Position]]; }

  /// White space and comments before a token; before the position `Count()`, those at the end of the text.
  std::span<const TToken> BlanksBefore(std::size_t Position) const;

  /// Throws `EDatabaseError` that says what is wrong at a token.
  [[noreturn]] void Refuse(std::size_t Position, const std::string& What) const;

  bool IsSymbol(std::size_t Position, std::string_view Symbol) const;

  /// Whether `Upper` (given in upper case) stands there as a word of its own, not as a part of a qualified name.
  bool IsKeyword(std::size_t Position, std::string_view Upper) const;

  /// Whether a name stands there: a quoted one, one after a point, or a bare word that is no keyword of an expression.
  bool IsName(std::size_t Position) const;

  /// Whether the name there is directly after a point.
  bool IsQualified(std::size_t Position) const;

  /// Whether a function of this name (given in upper case) is called there.
  bool IsCall(std::size_t Position, std::string_view Upper) const;

  /// The other end of a parenthesis, or of CASE and END.
  std::size_t Partner(std::size_t Position) const;

  /// The arguments of the call whose name stands there; one that is left out has `None` for its ends.
  std::vector<TRange> Arguments(std::size_t Name) const;

  /// The last token of the operand that starts there: a text, a number, a name with all that qualifies it, a call, a
  /// CASE, or anything in parentheses.
  std::size_t OperandEnd(std::size_t First) const;

  /// The first token of the operand that ends there.
  std::size_t OperandBegin(std::size_t Last) const;

  /// The same with all operands that arithmetic operators join to it on that side.
  std::size_t SumEnd(std::size_t First) const;
  std::size_t SumBegin(std::size_t Last) const;

  /// Whether an expression is a text as far as its own words tell: a text, a call whose result is one, or a sum that
  /// has one in it. Of a column it cannot be known.
  bool IsText(TRange Expression) const;

  /// Texts joined by `+` or `||`, and the positions of these; what other arithmetic operators join to one of them
  /// belongs to it.
  struct TTextSum {
    TRange All;
    std::vector<std::size_t> Joins;
  };
  std::vector<TTextSum> TextSums() const;

  /// The positions of each `+` that joins texts.
  std::vector<std::size_t> TextJoins() const;

  /// What is denied by the NOT that stands there before an operand: a whole comparison. Without ends for every other
  /// word, a NOT in the midst of a comparison among them.
  TRange Denied(std::size_t Not) const;

  std::vector<TLike> Likes() const;
  std::vector<TList<TSelectItem>> SelectLists() const;
  std::vector<TList<TSortItem>> SortLists() const;

 private:
  void PairUp();
  void Close(std::vector<std::size_t>& Open, std::size_t Parenthesis);
  std::size_t NameBegin(std::size_t Last) const;
  bool IsArithmetic(std::size_t Position) const;
  bool IsJoin(std::size_t Position) const;
  bool IsTextOperand(TRange Operand) const;
  bool IsNegatable(std::size_t Position) const;
  bool IsComparison(std::size_t Position) const;
  std::size_t FactorEnd(std::size_t First) const;
  std::size_t FactorBegin(std::size_t Last) const;
  std::size_t ComparisonEnd(std::size_t First) const;
  bool EndsList(std::size_t Position) const;
  std::size_t ListEnd(std::size_t First) const;
  std::vector<TRange> Split(std::size_t First, std::size_t End) const;
  TSelectItem SelectItem(TRange Range) const;
  TSortItem SortItem(TRange Range) const;

  std::string_view Sql_;
  std::vector<TToken> Tokens_;
  std::vector<std::size_t> Solid_;      // by position: the index in Tokens_
  std::vector<std::size_t> Partners_;   // by position
  std::vector<std::size_t> Enclosing_;  // by position: the innermost parenthesis open around it
};

}  // namespace ads::sql
