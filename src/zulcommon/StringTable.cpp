#include "zulcommon/StringTable.h"

#include <QDir>
#include <QLocale>
#include <algorithm>
#include <unordered_map>
#include <utility>

#include "zulcommon/EZULException.h"
#include "zulcommon/TableLines.h"
#include "zulcommon/Text.h"

namespace zulcommon {

namespace {

using TTexts = std::unordered_map<std::string, std::string>;  // by number or name

std::vector<TTableLine> ReadTable(const std::string& FileName) {
  std::vector<TTableLine> Lines = ReadTableLines(FileName);
  for (const TTableLine& Line : Lines) {
    if (!Line.Error.empty()) {
      throw EZULException("%s, line %s: %s", {FileName, std::to_string(Line.LineNo), Line.Error});
    }
  }
  return Lines;
}

void Merge(TTexts& Texts, std::vector<TTableLine> Lines) {
  for (TTableLine& Line : Lines) Texts[Line.Key] = std::move(Line.Text);
}

TTexts TextsOf(const std::string& FileName) {
  TTexts Texts;
  Merge(Texts, ReadTable(FileName));
  return Texts;
}

TTexts& CurrentTexts() {
  static TTexts Texts = TextsOf(EnglishTable);
  return Texts;
}

// English stands in the dialogs; here is what the names mean.
const TTexts& NamedInEnglish() {
  static const TTexts Texts = TextsOf(EnglishNames);
  return Texts;
}

const std::string* Find(const TTexts& Texts, const std::string& Key) {
  const auto Found = Texts.find(Key);
  return Found != Texts.end() ? &Found->second : nullptr;
}

// What the table has for the name, where it stands for this text.
const std::string* FindNamed(const std::string& Name, const std::string& Default) {
  const std::string* English = Find(NamedInEnglish(), Name);
  return English == nullptr || *English == Default ? Find(CurrentTexts(), Name) : nullptr;
}

// "de" of "de-AT", "de_AT.UTF-8" and "DE".
std::string LanguageOf(const std::string& Code) {
  return QString::fromStdString(Code.substr(0, Code.find_first_of("-_.@"))).toLower().toStdString();
}

}  // namespace

std::string LoadZULResString(std::int32_t Number) {
  const std::string* Found = Find(CurrentTexts(), std::to_string(Number));
  return Found != nullptr ? *Found : FormatText("#%s", {std::to_string(Number)});
}

std::string Translated(const std::string& Name, const std::string& Default) {
  if (const std::string* OfDialog = FindNamed(Name, Default)) return *OfDialog;
  const std::string* OfAll = FindNamed(Name.substr(Name.find('.') + 1), Default);
  return OfAll != nullptr ? *OfAll : Default;
}

void LoadStringTable(const std::string& FileName) {
  Merge(CurrentTexts(), ReadTable(FileName));
}

bool UseLanguage(const std::string& Language) {
  const std::string Code = LanguageOf(Language);
  const std::vector<std::string> Known = BuiltInLanguages();
  if (std::find(Known.begin(), Known.end(), Code) == Known.end()) return false;
  ResetStringTable();
  Merge(CurrentTexts(), ReadTable(":/zul/strings/" + Code + ".txt"));
  return true;
}

bool UseLanguageOf(const QLocale& Locale) {
  const QStringList Languages = Locale.uiLanguages();
  return std::any_of(Languages.begin(), Languages.end(),
                     [](const QString& Language) { return UseLanguage(Language.toStdString()); });
}

std::vector<std::string> BuiltInLanguages() {
  std::vector<std::string> Codes;
  for (const QString& File : QDir(QStringLiteral(":/zul/strings")).entryList(QDir::Files, QDir::Name)) {
    if (File.count(u'.') == 1) Codes.push_back(File.section(u'.', 0, 0).toStdString());
  }
  return Codes;
}

void ResetStringTable() {
  CurrentTexts() = TextsOf(EnglishTable);
}

}  // namespace zulcommon
