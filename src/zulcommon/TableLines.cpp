#include "zulcommon/TableLines.h"

#include <QFile>
#include <algorithm>
#include <charconv>
#include <system_error>

#include "zulcommon/EZULException.h"
#include "zulcommon/Text.h"

namespace zulcommon {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view PlacesMark = "# pixels: ";

std::optional<char> Unescaped(char Escape) {
  switch (Escape) {
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case '\\':
      return '\\';
    default:
      return std::nullopt;
  }
}

std::optional<std::string> Unescape(std::string_view Text) {
  std::string Result;
  for (std::size_t Index = 0; Index < Text.size(); ++Index) {
    if (Text[Index] != '\\') {
      Result += Text[Index];
      continue;
    }
    ++Index;
    const std::optional<char> C = Index < Text.size() ? Unescaped(Text[Index]) : std::nullopt;
    if (!C) return std::nullopt;
    Result += *C;
  }
  return Result;
}

template <typename TNumber>
std::optional<TNumber> ReadWhole(std::string_view Text) {
  TNumber Number = 0;
  const char* const End = Text.data() + Text.size();
  const auto [Stop, Error] = std::from_chars(Text.data(), End, Number);
  if (Error != std::errc{} || Stop != End) return std::nullopt;
  return Number;
}

bool IsLetter(char C) {
  return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z');
}

bool IsNameCharacter(char C) {
  return IsLetter(C) || (C >= '0' && C <= '9') || C == '_' || C == '.';
}

// A component's name and a property's, with a point between them: a word alone is rather a text without its number.
bool IsName(std::string_view Key) {
  return !Key.empty() && IsLetter(Key.front()) && Key.back() != '.' && Key.find('.') != std::string_view::npos &&
         Key.find("..") == std::string_view::npos && std::all_of(Key.begin(), Key.end(), IsNameCharacter);
}

void ReadText(TTableLine& Line, std::string_view Whole) {
  if (!IsUtf8(Whole)) {
    Line.Error = "that is not UTF-8.";
    return;
  }
  const std::size_t Tab = Whole.find('\t');
  if (Tab == std::string_view::npos) {
    Line.Error = "there is no tab between a number or name and its text.";
    return;
  }
  const std::string_view Key = Whole.substr(0, Tab);
  const std::optional<std::int32_t> Number = ReadWhole<std::int32_t>(Key);
  const std::optional<std::string> Text = Unescape(Whole.substr(Tab + 1));
  if (!Number && !IsName(Key)) {
    Line.Error = "\"" + std::string(Key) + "\" is neither a number nor a name such as ckbInactive.Caption.";
  } else if (!Text) {
    Line.Error = "a backslash stands before n, t or another backslash only.";
  } else if (Text->empty()) {
    Line.Error = "the text is missing.";
  } else {
    Line.Key = Number ? std::to_string(*Number) : std::string(Key);
    Line.Text = *Text;
  }
}

// "75", "bold 46" or "in 65522 181".
void ReadPlace(TTextPlaces& Places, std::string_view Item) {
  const std::size_t Blank = Item.rfind(' ');
  const std::optional<int> Pixels = ReadWhole<int>(Blank == std::string_view::npos ? Item : Item.substr(Blank + 1));
  if (Blank == std::string_view::npos) {
    Places.Plain = Pixels;
  } else if (Item.starts_with("bold ")) {
    Places.Bold = Pixels;
  } else if (Item.starts_with("in ")) {
    const std::optional<std::int32_t> Number = ReadWhole<std::int32_t>(Item.substr(3, Blank - 3));
    if (Number && Pixels) Places.Within[*Number] = *Pixels;
  }
}

TTextPlaces ReadPlaces(std::string_view Items) {
  TTextPlaces Places;
  while (!Items.empty()) {
    const std::string_view Item = Items.substr(0, Items.find("; "));
    ReadPlace(Places, Item);
    Items.remove_prefix(std::min(Item.size() + 2, Items.size()));
  }
  return Places;
}

std::string ReadFile(const std::string& FileName) {
  QFile File(QString::fromStdString(FileName));
  if (!File.open(QIODevice::ReadOnly)) {
    throw EZULException("The text file %s cannot be read: %s", {FileName, File.errorString().toStdString()});
  }
  return File.readAll().toStdString();
}

std::string_view TakeLine(std::string_view& Rest) {
  std::string_view Line = Rest.substr(0, Rest.find('\n'));
  Rest.remove_prefix(std::min(Line.size() + 1, Rest.size()));
  if (Line.ends_with('\r')) Line.remove_suffix(1);
  return Line;
}

}  // namespace

std::vector<TTableLine> ReadTableLines(const std::string& FileName) {
  const std::string Content = ReadFile(FileName);
  std::string_view Rest = Content;
  if (Rest.starts_with(ByteOrderMark)) Rest.remove_prefix(ByteOrderMark.size());

  std::vector<TTableLine> Lines;
  TTextPlaces Places;
  for (int LineNo = 1; !Rest.empty(); ++LineNo) {
    const std::string_view Whole = TakeLine(Rest);
    if (Whole.empty()) Places = {};
    if (Whole.starts_with(PlacesMark)) Places = ReadPlaces(Whole.substr(PlacesMark.size()));
    if (Whole.empty() || Whole.starts_with('#')) continue;
    TTableLine& Line = Lines.emplace_back();
    Line.LineNo = LineNo;
    Line.Places = Places;
    ReadText(Line, Whole);
  }
  return Lines;
}

bool IsNumber(std::string_view Key) {
  return ReadWhole<std::int32_t>(Key).has_value();
}

}  // namespace zulcommon
