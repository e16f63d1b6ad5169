#include <algorithm>
#include <string>

#include "ads/sql/Dialect.h"
#include "ads/sql/SQLiteNames.h"
#include "zulcommon/Text.h"

namespace ads::sql {

namespace {

std::string Utf8(char32_t Character) {
  const auto Tail = [Character](int Shift) { return static_cast<char>(0x80U | (Character >> Shift & 0x3FU)); };
  if (Character < 0x800) return {static_cast<char>(0xC0U | Character >> 6), Tail(0)};
  if (Character < 0x10000) return {static_cast<char>(0xE0U | Character >> 12), Tail(6), Tail(0)};
  return {static_cast<char>(0xF0U | Character >> 18), Tail(12), Tail(6), Tail(0)};
}

bool IsOneCharacter(const std::string& Text) {
  std::size_t Starts = 0;
  for (const char Byte : Text) Starts += (static_cast<unsigned char>(Byte) & 0xC0U) != 0x80U ? 1 : 0;
  return Starts == 1;
}

// Small letters that lie near each other and their capitals, in the same order, and as the choices of a CASE the
// letters whose upper case are several characters.
struct TLetters {
  std::string First;
  std::string Last;
  std::string Small;
  std::string Capital;
  std::string Several;

  void Add(const std::string& Letter, const std::string& Upper) {
    if (First.empty()) First = Letter;
    Last = Letter;
    if (IsOneCharacter(Upper)) {
      Small += Letter;
      Capital += Upper;
    } else {
      Several += " WHEN '" + Letter + "' THEN '" + Upper + "'";
    }
  }

  // The choice of a CASE for a part that lies among these letters.
  std::string Choice() const {
    const std::string Place = "nullif(instr('" + Small + "', zul_part), 0)";
    const std::string Other = Several.empty() ? "zul_part" : "CASE zul_part" + Several + " ELSE zul_part END";
    return " WHEN zul_part BETWEEN '" + First + "' AND '" + Last + "' THEN coalesce(substr('" + Capital + "', " +
           Place + ", 1), " + Other + ")";
  }
};

// The upper case of a part that is ASCII or one letter. SQLite itself upper-cases but ASCII. The other letters are
// looked up in lists that are short enough to be gone through for every letter of a text.
std::string UpperOfPart() {
  constexpr char32_t End = 0x20000;  // there are no letters with two cases beyond
  constexpr char32_t Near = 0x200;
  std::string Choices;
  for (char32_t Block = 0; Block < End; Block += Near) {
    TLetters Letters;
    for (char32_t Character = std::max<char32_t>(Block, 0x80); Character < Block + Near; ++Character) {
      if (Character >= 0xD800 && Character <= 0xDFFF) continue;
      const std::string Letter = Utf8(Character);
      const std::string Upper = zulcommon::UpperCase(Letter);
      if (Upper != Letter) Letters.Add(Letter, Upper);
    }
    if (!Letters.First.empty()) Choices += Letters.Choice();
  }
  return "CASE" + Choices + " ELSE upper(zul_part) END";
}

// What stands before and behind the argument of UPPER. A text with letters beyond ASCII is halved until its parts are
// one letter or all ASCII, so that the time grows but little faster than the text: a place in a text is found by
// counting from its start. (Nested calls of REPLACE, one a letter, are more than SQLite's parser takes.)
struct TUpper {
  std::string Before;
  std::string Behind = " AS zul_text))";

  TUpper() {
    const std::string Beyond = " GLOB '*[^ -~]*'";
    const std::string Splits = "length(zul_part) > 1 AND zul_part" + Beyond;
    const std::string From = " FROM zul_parts WHERE ";
    Before = "(SELECT CASE WHEN zul_text" + Beyond +
             " THEN (WITH RECURSIVE zul_parts(zul_place, zul_part) AS (SELECT 1, zul_text UNION ALL SELECT zul_place, "
             "substr(zul_part, 1, length(zul_part) / 2)" +
             From + Splits +
             " UNION ALL SELECT zul_place + length(zul_part) / 2, substr(zul_part, length(zul_part) / 2 + 1)" + From +
             Splits + ") SELECT group_concat(" + UpperOfPart() + ", '') FROM (SELECT zul_part" + From + "NOT (" +
             Splits + ") ORDER BY zul_place)) ELSE upper(zul_text) END FROM (SELECT ";
  }
};

void RewriteUpper(TRewriter& Rewriter) {
  static const TUpper Upper;
  const TStatement& Statement = Rewriter.Statement();
  for (std::size_t Position = 0; Position < Statement.Count(); ++Position) {
    if (!Statement.IsCall(Position, "UPPER") || Statement.Arguments(Position).size() != 1) continue;
    Rewriter.Replace(Position, Upper.Before);
    Rewriter.RemoveBlanksBefore(Position + 1);
    Rewriter.Replace(Position + 1, {});
    Rewriter.Replace(Statement.Partner(Position + 1), Upper.Behind);
  }
}

std::string Literal(std::string_view Text) {
  std::string Result = "'";
  for (const char Byte : Text) Result.append(Byte == '\'' ? 2 : 1, Byte);
  return Result + '\'';
}

// GLOB compares in exact case; its wildcards are others, and a character in brackets is no wildcard.
std::string GlobPattern(std::string_view Like) {
  std::string Result;
  for (const char Byte : Like) {
    switch (Byte) {
      case '%':
        Result += '*';
        break;
      case '_':
        Result += '?';
        break;
      case '*':
      case '?':
      case '[':
        Result.append({'[', Byte, ']'});
        break;
      default:
        Result += Byte;
    }
  }
  return Result;
}

// The text between two `%`, if there is no other wildcard.
bool IsContains(std::string_view Like, std::string& Inside) {
  if (!Like.starts_with('%') || !Like.ends_with('%')) return false;
  Inside = Like.substr(1, Like.size() < 2 ? 0 : Like.size() - 2);
  return Inside.find_first_of("%_") == std::string::npos;
}

// INSTR has no limit for the length of what is looked for, as GLOB has.
void RewriteContains(TRewriter& Rewriter, const TStatement::TLike& Like, const std::string& Inside) {
  Rewriter.InsertBefore(Like.Text.First, Like.Not == TStatement::None ? "(instr(" : "(NOT instr(");
  if (Like.Not != TStatement::None) Rewriter.Remove(Like.Not);
  Rewriter.RemoveBlanksBefore(Like.Like);
  Rewriter.Replace(Like.Like, ",");
  Rewriter.Replace(Like.Pattern.First, Literal(Inside));
  Rewriter.InsertAfter(Like.Pattern.Last, ") > 0)");
}

void RewriteLikes(TRewriter& Rewriter) {
  const TStatement& Statement = Rewriter.Statement();
  for (const auto& Like : Statement.Likes()) {
    const TToken& First = Statement[Like.Pattern.First];
    const bool Known = Like.Pattern.First == Like.Pattern.Last && First.Kind == TTokenKind::Text;
    std::string Inside;
    if (Known && IsContains(TextOf(First), Inside)) {
      RewriteContains(Rewriter, Like, Inside);
      continue;
    }
    Rewriter.Replace(Like.Like, "GLOB");
    if (Known) {
      Rewriter.Replace(Like.Pattern.First, Literal(GlobPattern(TextOf(First))));
    } else {
      Rewriter.InsertBefore(Like.Pattern.First, "replace(replace(replace(replace(replace(");
      Rewriter.InsertAfter(Like.Pattern.Last, ", '[', '[[]'), '*', '[*]'), '?', '[?]'), '%', '*'), '_', '?')");
    }
  }
}

}  // namespace

const char* TPlainSQLiteDialect::Name() const {
  return "SQLite without functions";
}

std::string TPlainSQLiteDialect::Rewrite(std::string_view Sql) const {
  TRewriter Rewriter(Sql);
  RewriteSQLiteNames(Rewriter);
  RewriteUpper(Rewriter);
  Rewriter.JoinTexts();
  RewriteLikes(Rewriter);
  return Rewriter.Text();
}

}  // namespace ads::sql
