#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ads/zulads_export.h"

namespace ads::sql {

enum class TTokenKind {
  Blank,       // a run of white space, or one comment (-- to the end of the line, // likewise, /* to */)
  Word,        // a keyword or a bare name; letters beyond ASCII belong to it
  QuotedName,  // [name] or "name"
  Text,        // 'text'
  Number,      // 12, 1.5, .5, 1e-3
  Symbol,      // one operator or punctuation: + - * / % ( ) , . ; = < > <= >= <> != ||
};

/// One token of a SQL text. `Source` is its very characters; it views the text that was given to `Tokenize`, which must
/// outlive it. The sources of all tokens, joined, are the text.
struct ZULADS_EXPORT TToken {
  TTokenKind Kind;
  std::string_view Source;

  /// Whether this is the bare word `Upper` (given in upper case), in any case.
  bool IsWord(std::string_view Upper) const;
  bool IsSymbol(std::string_view Symbol) const;
  bool IsComment() const;
};

/// The tokens of a text in Advantage's SQL. A carriage return alone ends a line just as a line feed does.
///
/// What servers could read in different ways throws `EDatabaseError` with the place, so that no server ever sees
/// another text than the one that was checked: an unterminated text, name or comment, a comment in a comment, a
/// character that no SQL has outside its texts, a word that runs into a text (`E'…'`), a number that runs into a word,
/// an empty name, and a NUL anywhere.
ZULADS_EXPORT std::vector<TToken> Tokenize(std::string_view Sql);

/// The name in a `Word` or `QuotedName` token, without its brackets or quotes; a doubled quote in quotes is one.
ZULADS_EXPORT std::string NameOf(const TToken& Token);

/// The characters of a `Text` token, without its quotes and with each doubled quote taken as one.
ZULADS_EXPORT std::string TextOf(const TToken& Token);

/// Whether two words are the same without regard to the case of their ASCII letters, `Upper` being in upper case.
ZULADS_EXPORT bool IsSameWord(std::string_view Word, std::string_view Upper);

/// Whether a word, in any case, is one of a sorted list of words in upper case.
ZULADS_EXPORT bool IsOneOf(std::string_view Word, std::span<const std::string_view> SortedUpperWords);

}  // namespace ads::sql
