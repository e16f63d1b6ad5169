#include "zulcommon/StringTable.h"

#include <QFile>
#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "zulcommon/EZULException.h"
#include "zulcommon/Text.h"

namespace zulcommon {

namespace {

constexpr const char* CompiledIn = ":/zul/strings/en.txt";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

using TTexts = std::unordered_map<std::int32_t, std::string>;

struct TEntry {
  std::int32_t Number = 0;
  std::string Text;
};

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

// Nothing when the line is not a number, a tab and a text.
std::optional<TEntry> ReadEntry(std::string_view Line) {
  TEntry Entry;
  const char* const End = Line.data() + Line.size();
  const auto [Stop, Error] = std::from_chars(Line.data(), End, Entry.Number);
  if (Error != std::errc{} || Stop == End || *Stop != '\t') return std::nullopt;

  const std::string_view Escaped(Stop + 1, static_cast<std::size_t>(End - Stop) - 1);
  const std::optional<std::string> Text = Unescape(Escaped);
  if (!Text || Text->empty() || !IsUtf8(Line)) return std::nullopt;
  Entry.Text = *Text;
  return Entry;
}

std::string ReadWhole(const std::string& FileName) {
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

std::vector<TEntry> ReadTable(const std::string& FileName) {
  const std::string Content = ReadWhole(FileName);
  std::string_view Rest = Content;
  if (Rest.starts_with(ByteOrderMark)) Rest.remove_prefix(ByteOrderMark.size());

  std::vector<TEntry> Entries;
  for (int LineNo = 1; !Rest.empty(); ++LineNo) {
    const std::string_view Line = TakeLine(Rest);
    if (Line.empty() || Line.starts_with('#')) continue;
    std::optional<TEntry> Entry = ReadEntry(Line);
    if (!Entry) {
      throw EZULException("The text file %s has no number, tab and text in line %s.",
                          {FileName, std::to_string(LineNo)});
    }
    Entries.push_back(std::move(*Entry));
  }
  return Entries;
}

void Merge(TTexts& Texts, std::vector<TEntry> Entries) {
  for (TEntry& Entry : Entries) Texts[Entry.Number] = std::move(Entry.Text);
}

TTexts CompiledInTexts() {
  TTexts Texts;
  Merge(Texts, ReadTable(CompiledIn));
  return Texts;
}

TTexts& CurrentTexts() {
  static TTexts Texts = CompiledInTexts();
  return Texts;
}

}  // namespace

std::string LoadZULResString(std::int32_t Number) {
  const TTexts& Texts = CurrentTexts();
  const auto Found = Texts.find(Number);
  return Found != Texts.end() ? Found->second : FormatText("#%s", {std::to_string(Number)});
}

void LoadStringTable(const std::string& FileName) {
  Merge(CurrentTexts(), ReadTable(FileName));
}

void ResetStringTable() {
  CurrentTexts() = CompiledInTexts();
}

}  // namespace zulcommon
