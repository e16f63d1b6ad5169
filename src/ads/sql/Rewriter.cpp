#include "ads/sql/Rewriter.h"

#include <utility>

namespace ads::sql {

namespace {

bool IsInWord(char Byte) {
  return (Byte >= 'a' && Byte <= 'z') || (Byte >= 'A' && Byte <= 'Z') || (Byte >= '0' && Byte <= '9') || Byte == '_' ||
         static_cast<unsigned char>(Byte) >= 0x80;
}

// A word must not become a part of the next one, nor the prefix of a text.
void AppendPiece(std::string& Result, std::string_view Piece) {
  const bool AfterWord = !Result.empty() && IsInWord(Result.back());
  if (AfterWord && !Piece.empty() && (IsInWord(Piece.front()) || Piece.front() == '\'')) Result += ' ';
  Result += Piece;
}

}  // namespace

TRewriter::TRewriter(std::string_view Sql) : Statement_(Sql), Edits_(Statement_.Count()) {}

void TRewriter::Replace(std::size_t Position, std::string Text) {
  Edits_[Position].Instead = std::move(Text);
}

void TRewriter::InsertBefore(std::size_t Position, std::string_view Text) {
  Edits_[Position].Before.insert(0, Text);
}

void TRewriter::InsertAfter(std::size_t Position, std::string_view Text) {
  Edits_[Position].After += Text;
}

void TRewriter::Remove(std::size_t Position) {
  Replace(Position, {});
  RemoveBlanksBefore(Position);
}

void TRewriter::RemoveBlanksBefore(std::size_t Position) {
  Edits_[Position].WithoutBlanks = true;
}

void TRewriter::JoinTexts() {
  for (std::size_t Plus : Statement_.TextJoins()) Replace(Plus, "||");
}

void TRewriter::AppendBlanks(std::string& Result, std::size_t Position) const {
  for (const TToken& Blank : Statement_.BlanksBefore(Position)) {
    Result += Blank.IsComment() ? std::string_view(" ") : Blank.Source;
  }
}

void TRewriter::ReplaceAll(TStatement::TRange Range, std::string Text) {
  for (std::size_t Position = Range.First; Position <= Range.Last; ++Position) {
    TEdit& Edit = Edits_[Position];
    Edit.Instead.emplace();
    if (Position != Range.First) Edit.Before.clear();
    if (Position != Range.First) Edit.WithoutBlanks = true;
    if (Position != Range.Last) Edit.After.clear();
  }
  Edits_[Range.First].Instead = std::move(Text);
}

void TRewriter::AppendToken(std::string& Result, std::size_t Position) const {
  const TEdit& Edit = Edits_[Position];
  AppendPiece(Result, Edit.Before);
  AppendPiece(Result, Edit.Instead ? std::string_view(*Edit.Instead) : Statement_[Position].Source);
  AppendPiece(Result, Edit.After);
}

std::string TRewriter::TextOf(TStatement::TRange Range) const {
  std::string Result;
  for (std::size_t Position = Range.First; Position <= Range.Last; ++Position) {
    if (Position != Range.First && !Edits_[Position].WithoutBlanks) AppendBlanks(Result, Position);
    AppendToken(Result, Position);
  }
  return Result;
}

std::string TRewriter::Text() const {
  std::string Result;
  for (std::size_t Position = 0; Position < Statement_.Count(); ++Position) {
    if (!Edits_[Position].WithoutBlanks) AppendBlanks(Result, Position);
    AppendToken(Result, Position);
  }
  AppendBlanks(Result, Statement_.Count());
  return Result;
}

}  // namespace ads::sql
