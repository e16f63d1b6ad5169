#include "ads/sql/Lexer.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "ads/sql/SQLError.h"
#include "zulcommon/Ascii.h"

namespace ads::sql {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 5> LongSymbols = {"<=", ">=", "<>", "!=", "||"};
constexpr std::string_view ShortSymbols = "+-*/%(),.;=<>";

bool IsDigit(char Byte) {
  return Byte >= '0' && Byte <= '9';
}

bool StartsWord(char Byte) {
  return (Byte >= 'a' && Byte <= 'z') || (Byte >= 'A' && Byte <= 'Z') || Byte == '_' ||
         static_cast<unsigned char>(Byte) >= 0x80;
}

bool GoesOnWord(char Byte) {
  return StartsWord(Byte) || IsDigit(Byte);
}

// No vertical tab: servers do not agree on it.
bool IsWhite(char Byte) {
  return Byte == ' ' || Byte == '\t' || Byte == '\n' || Byte == '\r' || Byte == '\f';
}

// `Quoted` without its first and last byte, each doubled `Quote` in it taken as one.
std::string Unquoted(std::string_view Quoted, char Quote) {
  std::string Result;
  for (std::size_t I = 1; I + 1 < Quoted.size(); ++I) {
    Result += Quoted[I];
    if (Quoted[I] == Quote) ++I;
  }
  return Result;
}

class TLexer {
 public:
  explicit TLexer(std::string_view Sql) : Sql_(Sql) {}

  std::vector<TToken> Run() {
    if (const auto Nul = Sql_.find('\0'); Nul != Sql_.npos) RaiseAt(Sql_, Nul, "A NUL character");
    std::vector<TToken> Tokens;
    while (At_ < Sql_.size()) {
      const std::size_t Start = At_;
      const TTokenKind Kind = Scan();
      Tokens.push_back({Kind, Sql_.substr(Start, At_ - Start)});
    }
    return Tokens;
  }

 private:
  // Moves past one token.
  TTokenKind Scan() {
    const char First = Sql_[At_];
    if (IsWhite(First)) return ScanWhile(IsWhite, TTokenKind::Blank);
    if (LooksAt("--") || LooksAt("//")) return ScanLineComment();
    if (LooksAt("/*")) return ScanBlockComment();
    if (StartsWord(First)) return ScanWord();
    if (IsDigit(First) || (First == '.' && At_ + 1 < Sql_.size() && IsDigit(Sql_[At_ + 1]))) return ScanNumber();
    if (First == '\'') return ScanQuoted('\'', TTokenKind::Text, "An unterminated text");
    if (First == '"') return ScanQuoted('"', TTokenKind::QuotedName, "An unterminated name");
    if (First == '[') return ScanBracketed();
    return ScanSymbol();
  }

  TTokenKind ScanWhile(bool (*Belongs)(char), TTokenKind Kind) {
    while (At_ < Sql_.size() && Belongs(Sql_[At_])) ++At_;
    return Kind;
  }

  TTokenKind ScanLineComment() {
    At_ = std::min(Sql_.find_first_of("\r\n", At_), Sql_.size());
    return TTokenKind::Blank;
  }

  // Some servers nest comments and others run what stands in "/*!": neither is let through.
  TTokenKind ScanBlockComment() {
    const std::size_t Start = At_;
    const std::size_t End = Sql_.find("*/", Start + 2);
    if (End == Sql_.npos) RaiseAt(Sql_, Start, "An unterminated comment");
    const std::string_view Inside = Sql_.substr(Start + 2, End - Start - 2);
    if (Inside.starts_with('!') || Inside.find("/*") != Inside.npos) RaiseAt(Sql_, Start, "A comment in a comment");
    At_ = End + 2;
    return TTokenKind::Blank;
  }

  TTokenKind ScanWord() {
    const std::size_t Start = At_;
    if (LooksAt(ByteOrderMark)) RaiseAt(Sql_, Start, "A byte order mark");
    ScanWhile(GoesOnWord, TTokenKind::Word);
    if (LooksAt("'")) RaiseAt(Sql_, Start, "A word that runs into a text");
    return TTokenKind::Word;
  }

  TTokenKind ScanNumber() {
    const std::size_t Start = At_;
    ScanWhile(IsDigit, TTokenKind::Number);
    if (LooksAt(".")) ++At_;
    ScanWhile(IsDigit, TTokenKind::Number);
    ScanExponent();
    if (At_ < Sql_.size() && (GoesOnWord(Sql_[At_]) || Sql_[At_] == '.')) RaiseAt(Sql_, Start, "A malformed number");
    return TTokenKind::Number;
  }

  void ScanExponent() {
    if (!LooksAt("e") && !LooksAt("E")) return;
    std::size_t Digits = At_ + 1;
    if (Digits < Sql_.size() && (Sql_[Digits] == '+' || Sql_[Digits] == '-')) ++Digits;
    if (Digits >= Sql_.size() || !IsDigit(Sql_[Digits])) return;
    At_ = Digits;
    ScanWhile(IsDigit, TTokenKind::Number);
  }

  TTokenKind ScanQuoted(char Quote, TTokenKind Kind, const char* Unterminated) {
    const std::size_t Start = At_;
    std::size_t End = Start;
    do {
      End = Sql_.find(Quote, End + 1);
      if (End == Sql_.npos) RaiseAt(Sql_, Start, Unterminated);
      ++End;
    } while (End < Sql_.size() && Sql_[End] == Quote);
    if (Kind == TTokenKind::QuotedName && End - Start == 2) RaiseAt(Sql_, Start, "An empty name");
    At_ = End;
    return Kind;
  }

  TTokenKind ScanBracketed() {
    const std::size_t End = Sql_.find(']', At_);
    if (End == Sql_.npos) RaiseAt(Sql_, At_, "An unterminated name");
    if (End == At_ + 1) RaiseAt(Sql_, At_, "An empty name");
    At_ = End + 1;
    return TTokenKind::QuotedName;
  }

  TTokenKind ScanSymbol() {
    for (std::string_view Symbol : LongSymbols) {
      if (!LooksAt(Symbol)) continue;
      At_ += Symbol.size();
      return TTokenKind::Symbol;
    }
    const char Byte = Sql_[At_];
    if (ShortSymbols.find(Byte) == ShortSymbols.npos) {
      const bool Visible = Byte > ' ' && Byte < '\x7F';
      RaiseAt(Sql_, At_, Visible ? std::string("The character ") + Byte : "A control character");
    }
    ++At_;
    return TTokenKind::Symbol;
  }

  bool LooksAt(std::string_view Text) const { return Sql_.substr(At_, Text.size()) == Text; }

  std::string_view Sql_;
  std::size_t At_ = 0;
};

}  // namespace

bool IsSameWord(std::string_view Word, std::string_view Upper) {
  return std::equal(Word.begin(), Word.end(), Upper.begin(), Upper.end(),
                    [](char A, char B) { return zulcommon::UpperAscii(A) == B; });
}

bool IsOneOf(std::string_view Word, std::span<const std::string_view> SortedUpperWords) {
  const auto IsBefore = [](std::string_view Upper, std::string_view Any) {
    return std::lexicographical_compare(Upper.begin(), Upper.end(), Any.begin(), Any.end(), [](char A, char B) {
      return zulcommon::UpperAscii(A) < zulcommon::UpperAscii(B);
    });
  };
  const auto Found = std::lower_bound(SortedUpperWords.begin(), SortedUpperWords.end(), Word, IsBefore);
  return Found != SortedUpperWords.end() && IsSameWord(Word, *Found);
}

bool TToken::IsWord(std::string_view Upper) const {
  return Kind == TTokenKind::Word && IsSameWord(Source, Upper);
}

bool TToken::IsSymbol(std::string_view Symbol) const {
  return Kind == TTokenKind::Symbol && Source == Symbol;
}

bool TToken::IsComment() const {
  return Kind == TTokenKind::Blank && (Source.starts_with('-') || Source.starts_with('/'));
}

std::vector<TToken> Tokenize(std::string_view Sql) {
  return TLexer(Sql).Run();
}

std::string NameOf(const TToken& Token) {
  if (Token.Kind != TTokenKind::QuotedName) return std::string(Token.Source);
  if (Token.Source.starts_with('[')) return std::string(Token.Source.substr(1, Token.Source.size() - 2));
  return Unquoted(Token.Source, '"');
}

std::string TextOf(const TToken& Token) {
  return Unquoted(Token.Source, '\'');
}

}  // namespace ads::sql
