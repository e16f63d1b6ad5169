#include "ads/sql/Statement.h"

#include <algorithm>
#include <array>

#include "ads/sql/SQLError.h"

namespace ads::sql {

namespace {

// Words that stand between the operands of a query and are no operand themselves. NULL, TRUE and FALSE are operands;
// LEFT and RIGHT are left out because they are functions, too.
constexpr auto ExpressionWords = std::to_array<std::string_view>(
    {"ALL",    "AND",    "AS",     "BETWEEN", "BY",   "CASE",   "COLLATE", "CROSS", "DISTINCT", "ELSE",
     "ESCAPE", "EXCEPT", "EXISTS", "FROM",    "FULL", "GROUP",  "HAVING",  "IN",    "INNER",    "INTERSECT",
     "IS",     "JOIN",   "LIKE",   "LIMIT",   "NOT",  "OFFSET", "ON",      "OR",    "ORDER",    "OUTER",
     "SELECT", "THEN",   "UNION",  "USING",   "WHEN", "WHERE",  "WITH"});
static_assert(std::is_sorted(ExpressionWords.begin(), ExpressionWords.end()));

constexpr auto ClauseWords = std::to_array<std::string_view>(
    {"EXCEPT", "FETCH", "FROM", "HAVING", "INTERSECT", "INTO", "LIMIT", "OFFSET", "UNION", "WHERE"});
static_assert(std::is_sorted(ClauseWords.begin(), ClauseWords.end()));

// Functions whose result is a text.
constexpr auto TextFunctions =
    std::to_array<std::string_view>({"CHAR", "CONCAT", "LCASE", "LEFT", "LOWER", "LTRIM", "REPEAT", "REPLACE", "RIGHT",
                                     "RTRIM", "SPACE", "SUBSTR", "SUBSTRING", "TRIM", "UCASE", "UPPER"});
static_assert(std::is_sorted(TextFunctions.begin(), TextFunctions.end()));

// Functions whose result is one of their arguments.
constexpr auto ChoosingFunctions =
    std::to_array<std::string_view>({"COALESCE", "IFNULL", "IIF", "ISNULL", "MAX", "MIN", "NULLIF"});
static_assert(std::is_sorted(ChoosingFunctions.begin(), ChoosingFunctions.end()));

}  // namespace

TStatement::TStatement(std::string_view Sql) : Sql_(Sql), Tokens_(Tokenize(Sql)) {
  for (std::size_t Index = 0; Index < Tokens_.size(); ++Index) {
    if (Tokens_[Index].Kind != TTokenKind::Blank) Solid_.push_back(Index);
  }
  PairUp();
}

void TStatement::PairUp() {
  Partners_.assign(Count(), None);
  Enclosing_.assign(Count(), None);
  std::vector<std::size_t> Open;  // parentheses and CASEs
  for (std::size_t Position = 0; Position < Count(); ++Position) {
    if (IsSymbol(Position, ")")) Close(Open, Position);
    const auto Around = std::find_if(Open.rbegin(), Open.rend(), [this](auto At) { return IsSymbol(At, "("); });
    if (Around != Open.rend()) Enclosing_[Position] = *Around;
    if (IsKeyword(Position, "END") && !Open.empty() && IsKeyword(Open.back(), "CASE")) {
      Partners_[Position] = Open.back();
      Partners_[Open.back()] = Position;
      Open.pop_back();
    }
    if (IsSymbol(Position, "(") || IsKeyword(Position, "CASE")) Open.push_back(Position);
    if (Open.size() > DeepestNesting) Refuse(Position, "Too deep a nesting");
  }
  const auto Left = std::find_if(Open.begin(), Open.end(), [this](auto At) { return IsSymbol(At, "("); });
  if (Left != Open.end()) Refuse(*Left, "A parenthesis that is not closed");
}

void TStatement::Close(std::vector<std::size_t>& Open, std::size_t Parenthesis) {
  while (!Open.empty() && !IsSymbol(Open.back(), "(")) Open.pop_back();  // a CASE without END
  if (Open.empty()) Refuse(Parenthesis, "A parenthesis that was not opened");
  Partners_[Parenthesis] = Open.back();
  Partners_[Open.back()] = Parenthesis;
  Open.pop_back();
}

std::span<const TToken> TStatement::BlanksBefore(std::size_t Position) const {
  const std::size_t Begin = Position == 0 ? 0 : Solid_[Position - 1] + 1;
  const std::size_t End = Position < Count() ? Solid_[Position] : Tokens_.size();
  return std::span(Tokens_).subspan(Begin, End - Begin);
}

void TStatement::Refuse(std::size_t Position, const std::string& What) const {
  RaiseAt(Sql_, static_cast<std::size_t>((*this)[Position].Source.data() - Sql_.data()), What);
}

bool TStatement::IsSymbol(std::size_t Position, std::string_view Symbol) const {
  return Position < Count() && (*this)[Position].IsSymbol(Symbol);
}

bool TStatement::IsKeyword(std::size_t Position, std::string_view Upper) const {
  return Position < Count() && (*this)[Position].IsWord(Upper) && !IsQualified(Position);
}

bool TStatement::IsName(std::size_t Position) const {
  if (Position >= Count()) return false;
  const TToken& Token = (*this)[Position];
  if (Token.Kind == TTokenKind::QuotedName) return true;
  if (Token.Kind != TTokenKind::Word) return false;
  return IsQualified(Position) || (Partner(Position) == None && !IsOneOf(Token.Source, ExpressionWords));
}

bool TStatement::IsQualified(std::size_t Position) const {
  return Position > 0 && IsSymbol(Position - 1, ".");
}

bool TStatement::IsCall(std::size_t Position, std::string_view Upper) const {
  return IsKeyword(Position, Upper) && IsSymbol(Position + 1, "(");
}

std::size_t TStatement::Partner(std::size_t Position) const {
  return Position < Count() ? Partners_[Position] : None;
}

std::vector<TStatement::TRange> TStatement::Arguments(std::size_t Name) const {
  const std::size_t Close = Partner(Name + 1);
  if (Close == None || Close == Name + 2) return {};
  return Split(Name + 2, Close);
}

std::size_t TStatement::OperandEnd(std::size_t First) const {
  while (IsSymbol(First, "+") || IsSymbol(First, "-")) ++First;
  if (First >= Count()) return None;
  const TTokenKind Kind = (*this)[First].Kind;
  if (Kind == TTokenKind::Text || Kind == TTokenKind::Number) return First;
  if (IsSymbol(First, "(") || IsKeyword(First, "CASE")) return Partner(First);
  if (!IsName(First)) return None;
  while (IsSymbol(First + 1, ".") && IsName(First + 2)) First += 2;
  return IsSymbol(First + 1, "(") ? Partner(First + 1) : First;
}

std::size_t TStatement::OperandBegin(std::size_t Last) const {
  if (Last >= Count()) return None;
  const TTokenKind Kind = (*this)[Last].Kind;
  if (Kind == TTokenKind::Text || Kind == TTokenKind::Number) return Last;
  if (IsKeyword(Last, "END") && Partner(Last) != None) return Partner(Last);
  if (IsName(Last)) return NameBegin(Last);
  if (!IsSymbol(Last, ")")) return None;
  const std::size_t Open = Partner(Last);
  return Open > 0 && IsName(Open - 1) ? NameBegin(Open - 1) : Open;
}

std::size_t TStatement::NameBegin(std::size_t Last) const {
  while (Last >= 2 && IsSymbol(Last - 1, ".") && IsName(Last - 2)) Last -= 2;
  return Last;
}

bool TStatement::IsJoin(std::size_t Position) const {
  return IsSymbol(Position, "+") || IsSymbol(Position, "||");
}

bool TStatement::IsArithmetic(std::size_t Position) const {
  return IsJoin(Position) || IsSymbol(Position, "-") || IsSymbol(Position, "*") || IsSymbol(Position, "/") ||
         IsSymbol(Position, "%");
}

std::size_t TStatement::SumEnd(std::size_t First) const {
  std::size_t End = OperandEnd(First);
  while (End != None && IsArithmetic(End + 1)) {
    const std::size_t Next = OperandEnd(End + 2);
    if (Next == None) return None;
    End = Next;
  }
  return End;
}

std::size_t TStatement::SumBegin(std::size_t Last) const {
  std::size_t Begin = OperandBegin(Last);
  while (Begin != None && Begin >= 2 && IsArithmetic(Begin - 1)) {
    const std::size_t Before = OperandBegin(Begin - 2);
    if (Before == None) break;
    Begin = Before;
  }
  return Begin;
}

bool TStatement::IsText(TRange Expression) const {
  bool Found = false;
  std::size_t First = Expression.First;
  while (First <= Expression.Last) {
    const std::size_t End = OperandEnd(First);
    if (End == None || End > Expression.Last) return false;
    Found = Found || IsTextOperand({First, End});
    if (End == Expression.Last) return Found;
    if (!IsJoin(End + 1)) return false;
    Found = Found || IsSymbol(End + 1, "||");
    First = End + 2;
  }
  return false;
}

bool TStatement::IsTextOperand(TRange Operand) const {
  const std::size_t First = Operand.First;
  if ((*this)[First].Kind == TTokenKind::Text) return true;
  if (IsSymbol(First, "(")) return IsText({First + 1, Operand.Last - 1});
  if ((*this)[First].Kind != TTokenKind::Word || !IsSymbol(First + 1, "(")) return false;
  if (IsOneOf((*this)[First].Source, TextFunctions)) return true;
  if (!IsOneOf((*this)[First].Source, ChoosingFunctions)) return false;
  const auto Choices = Arguments(First);
  return std::any_of(Choices.begin(), Choices.end(), [this](TRange Choice) { return IsText(Choice); });
}

// The end of what stands between two joins.
std::size_t TStatement::FactorEnd(std::size_t First) const {
  std::size_t End = OperandEnd(First);
  while (End != None && IsArithmetic(End + 1) && !IsJoin(End + 1)) End = OperandEnd(End + 2);
  return End;
}

std::size_t TStatement::FactorBegin(std::size_t Last) const {
  std::size_t Begin = OperandBegin(Last);
  while (Begin != None && Begin >= 2 && IsArithmetic(Begin - 1) && !IsJoin(Begin - 1)) {
    const std::size_t Before = OperandBegin(Begin - 2);
    if (Before == None) break;
    Begin = Before;
  }
  return Begin;
}

std::vector<TStatement::TTextSum> TStatement::TextSums() const {
  std::vector<TTextSum> Result;
  std::vector<bool> Seen(Count());
  for (std::size_t Position = 1; Position < Count(); ++Position) {
    if (Seen[Position] || !IsJoin(Position)) continue;
    TTextSum Sum;
    Sum.All = {FactorBegin(Position - 1), Position - 1};
    if (Sum.All.First == None) continue;
    bool Found = IsTextOperand({OperandBegin(Position - 1), Position - 1});
    while (IsJoin(Sum.All.Last + 1) && FactorEnd(Sum.All.Last + 2) != None) {
      const std::size_t Join = Sum.All.Last + 1;
      Seen[Join] = true;
      Found = Found || IsSymbol(Join, "||") || IsTextOperand({Join + 1, OperandEnd(Join + 1)});
      Sum.Joins.push_back(Join);
      Sum.All.Last = FactorEnd(Join + 1);
    }
    if (Found && !Sum.Joins.empty()) Result.push_back(std::move(Sum));
  }
  return Result;
}

std::vector<std::size_t> TStatement::TextJoins() const {
  std::vector<std::size_t> Result;
  for (const TTextSum& Sum : TextSums()) {
    for (const std::size_t Join : Sum.Joins) {
      if (IsSymbol(Join, "+")) Result.push_back(Join);
    }
  }
  return Result;
}

bool TStatement::IsNegatable(std::size_t Position) const {
  return IsKeyword(Position, "LIKE") || IsKeyword(Position, "IN") || IsKeyword(Position, "BETWEEN");
}

bool TStatement::IsComparison(std::size_t Position) const {
  constexpr auto Signs = std::to_array<std::string_view>({"=", "<>", "!=", "<", ">", "<=", ">="});
  return std::any_of(Signs.begin(), Signs.end(), [&](std::string_view Sign) { return IsSymbol(Position, Sign); });
}

TStatement::TRange TStatement::Denied(std::size_t Not) const {
  if (!IsKeyword(Not, "NOT") || IsKeyword(Not - 1, "IS") || IsNegatable(Not + 1)) return {};
  const std::size_t End = ComparisonEnd(Not + 1);
  return End == None ? TRange{} : TRange{Not + 1, End};
}

std::size_t TStatement::ComparisonEnd(std::size_t First) const {
  while (IsKeyword(First, "NOT") || IsKeyword(First, "EXISTS")) ++First;
  std::size_t End = SumEnd(First);
  while (End != None) {
    std::size_t Next = End + 1;
    if (IsKeyword(Next, "IS")) {
      End = Next + (IsKeyword(Next + 1, "NOT") ? 2 : 1);
      continue;
    }
    if (IsKeyword(Next, "NOT")) ++Next;
    if (IsKeyword(Next, "BETWEEN")) {
      const std::size_t Low = SumEnd(Next + 1);
      if (Low == None || !IsKeyword(Low + 1, "AND")) return None;
      Next = Low + 1;
    } else if (!IsNegatable(Next) && !IsComparison(Next)) {
      return End;
    }
    End = SumEnd(Next + 1);
  }
  return None;
}

std::vector<TStatement::TLike> TStatement::Likes() const {
  std::vector<TLike> Result;
  for (std::size_t Position = 1; Position < Count(); ++Position) {
    if (!IsKeyword(Position, "LIKE")) continue;
    TLike Like;
    Like.Like = Position;
    if (IsKeyword(Position - 1, "NOT")) Like.Not = Position - 1;
    Like.Text.Last = (Like.Not == None ? Position : Like.Not) - 1;
    Like.Text.First = SumBegin(Like.Text.Last);
    Like.Pattern = {Position + 1, SumEnd(Position + 1)};
    if (Like.Text.First != None && Like.Pattern.Last != None) Result.push_back(Like);
  }
  return Result;
}

bool TStatement::EndsList(std::size_t Position) const {
  if (Position >= Count() || IsSymbol(Position, ")")) return true;
  if (IsKeyword(Position, "GROUP") || IsKeyword(Position, "ORDER")) return IsKeyword(Position + 1, "BY");
  const TToken& Token = (*this)[Position];
  return Token.Kind == TTokenKind::Word && !IsQualified(Position) && IsOneOf(Token.Source, ClauseWords);
}

std::size_t TStatement::ListEnd(std::size_t First) const {
  while (!EndsList(First)) First = IsSymbol(First, "(") ? Partner(First) + 1 : First + 1;
  return std::min(First, Count());
}

std::vector<TStatement::TRange> TStatement::Split(std::size_t First, std::size_t End) const {
  std::vector<TRange> Result;
  std::size_t Start = First;
  const auto Add = [&Result, &Start](std::size_t Stop) {
    Result.push_back(Start < Stop ? TRange{Start, Stop - 1} : TRange{});
    Start = Stop + 1;
  };
  for (std::size_t Position = First; Position < End; ++Position) {
    if (IsSymbol(Position, "(")) Position = Partner(Position);
    if (IsSymbol(Position, ",")) Add(Position);
  }
  Add(End);
  return Result;
}

std::vector<TStatement::TList<TStatement::TSelectItem>> TStatement::SelectLists() const {
  std::vector<TList<TSelectItem>> Result;
  for (std::size_t Position = 0; Position < Count(); ++Position) {
    if (!IsKeyword(Position, "SELECT")) continue;
    const bool Quantified = IsKeyword(Position + 1, "DISTINCT") || IsKeyword(Position + 1, "ALL");
    const std::size_t First = Position + (Quantified ? 2 : 1);
    TList<TSelectItem> List{Enclosing_[Position], {}};
    for (TRange Range : Split(First, ListEnd(First))) List.Items.push_back(SelectItem(Range));
    Result.push_back(std::move(List));
  }
  return Result;
}

TStatement::TSelectItem TStatement::SelectItem(TRange Range) const {
  TSelectItem Item{Range, None, false};
  const std::size_t Last = Range.Last;
  if (Range.First == None || Last == Range.First || IsQualified(Last)) return Item;
  const TTokenKind Kind = (*this)[Last].Kind;
  if (Kind != TTokenKind::Word && Kind != TTokenKind::QuotedName) return Item;
  const bool AfterAs = Last >= Range.First + 2 && IsKeyword(Last - 1, "AS");
  if (!AfterAs && (!IsName(Last) || OperandBegin(Last - 1) == None)) return Item;
  Item.Alias = Last;
  Item.AliasWithoutAs = !AfterAs;
  Item.Expression.Last = Last - (AfterAs ? 2 : 1);
  return Item;
}

std::vector<TStatement::TList<TStatement::TSortItem>> TStatement::SortLists() const {
  std::vector<TList<TSortItem>> Result;
  for (std::size_t Position = 0; Position < Count(); ++Position) {
    if (!IsKeyword(Position, "ORDER") || !IsKeyword(Position + 1, "BY")) continue;
    TList<TSortItem> List{Enclosing_[Position], {}};
    for (TRange Range : Split(Position + 2, ListEnd(Position + 2))) {
      if (Range.First != None) List.Items.push_back(SortItem(Range));
    }
    Result.push_back(std::move(List));
  }
  return Result;
}

TStatement::TSortItem TStatement::SortItem(TRange Range) const {
  TSortItem Item{Range, Range.Last, false, false};
  std::size_t& Last = Item.Expression.Last;
  if (Last >= Range.First + 2 && IsKeyword(Last - 1, "NULLS")) {
    Item.SaysNulls = true;
    Last -= 2;
  }
  if (Last > Range.First && (IsKeyword(Last, "DESC") || IsKeyword(Last, "ASC"))) {
    Item.Descending = IsKeyword(Last, "DESC");
    --Last;
  }
  return Item;
}

}  // namespace ads::sql
