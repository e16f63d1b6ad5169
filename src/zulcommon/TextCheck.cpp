#include "zulcommon/TextCheck.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "zulcommon/StringTable.h"
#include "zulcommon/TableLines.h"
#include "zulcommon/Text.h"

namespace zulcommon {

namespace {

using TLines = std::map<std::string, const TTableLine*>;  // by number or name

// "%s" and "%%", one behind the other.
std::string FormatMarks(std::string_view Text) {
  std::string Marks;
  for (std::size_t At = Text.find('%'); At != std::string_view::npos && At + 1 < Text.size();
       At = Text.find('%', At + 2)) {
    const char C = Text[At + 1];
    if (C != '%' && (C < 'a' || C > 'z')) continue;
    Marks += Marks.empty() ? "" : " ";
    Marks += Text.substr(At, 2);
  }
  return Marks;
}

// The letters that are marked by "&", in upper case; "&&" is a plain "&".
std::vector<std::string> MarkedLetters(std::string_view Text) {
  std::vector<std::string> Letters;
  for (std::size_t At = Text.find('&'); At != std::string_view::npos; At = Text.find('&', At + 2)) {
    if (At + 1 >= Text.size() || Text[At + 1] == '&') continue;
    std::size_t End = At + 2;
    while (End < Text.size() && (static_cast<unsigned char>(Text[End]) & 0xC0U) == 0x80U) ++End;
    Letters.push_back(UpperCase(Text.substr(At + 1, End - At - 1)));
  }
  return Letters;
}

// A caption as it is read.
std::string WithoutMarks(std::string_view Text) {
  std::string Result;
  for (std::size_t At = 0; At < Text.size(); ++At) {
    if (Text[At] == '&' && ++At == Text.size()) break;
    Result += Text[At];
  }
  return Result;
}

std::string Quoted(const std::string& Text) {
  return "\"" + Text + "\"";
}

class TChecker {
 public:
  TChecker(const std::string& FileName, const TTextWidth& WidthOf)
      : WidthOf_(WidthOf), Lines_(ReadTableLines(FileName)) {
    for (const char* File : {EnglishTable, EnglishNames}) {
      for (TTableLine& Line : ReadTableLines(File)) English_.push_back(std::move(Line));
    }
    for (const TTableLine& Line : English_) EnglishByKey_[Line.Key] = &Line;
  }

  std::vector<TTextFinding> Check() {
    for (const TTableLine& Line : Lines_) {
      if (Line.Error.empty()) Given_.emplace(Line.Key, &Line);
    }
    for (const TTableLine& Line : Lines_) CheckLine(Line);
    for (const TTableLine& Line : English_) {
      if (!Given_.contains(Line.Key)) Tell(0, Line.Key + " (" + Quoted(Line.Text) + ") is missing.");
    }
    return std::move(Findings_);
  }

 private:
  void Tell(int Line, std::string Message) { Findings_.push_back({Line, std::move(Message)}); }

  // What stands in English for this line. A name with a dialog's in front is for that dialog alone.
  const TTableLine* EnglishOf(const std::string& Key) const {
    auto Found = EnglishByKey_.find(Key);
    if (Found == EnglishByKey_.end() && !IsNumber(Key)) Found = EnglishByKey_.find(Key.substr(Key.find('.') + 1));
    return Found != EnglishByKey_.end() ? Found->second : nullptr;
  }

  void CheckLine(const TTableLine& Line) {
    if (!Line.Error.empty()) return Tell(Line.LineNo, Line.Error);
    const TTableLine* First = Given_.at(Line.Key);
    if (First != &Line) Tell(Line.LineNo, Line.Key + " stands in line " + std::to_string(First->LineNo) + " already.");
    const TTableLine* English = EnglishOf(Line.Key);
    if (English == nullptr) {
      return Tell(Line.LineNo, "there is no text " + std::string(IsNumber(Line.Key) ? "of the number " : "called ") +
                                   Line.Key + ".");
    }
    CheckMarks(Line, *English);
    CheckWidth(Line, *English);
  }

  void CheckMarks(const TTableLine& Line, const TTableLine& English) {
    const std::string Wanted = FormatMarks(English.Text);
    const std::string Marks = FormatMarks(Line.Text);
    if (Marks != Wanted) {
      const auto Named = [](const std::string& Which) { return Which.empty() ? "no mark" : Quoted(Which); };
      Tell(Line.LineNo, Quoted(Line.Text) + " has " + Named(Marks) + " where English has " + Named(Wanted) + ".");
    }
    const std::vector<std::string> Letters = MarkedLetters(Line.Text);
    const std::size_t WantedLetters = MarkedLetters(English.Text).size();
    if (Letters.size() != WantedLetters) {
      Tell(Line.LineNo, Quoted(Line.Text) + " must have " + (WantedLetters == 0 ? "no" : "one") +
                            " letter marked by \"&\", as " + Quoted(English.Text) + ".");
    }
    for (const std::string& Letter : Letters) {
      const auto [Owner, IsNew] = Marked_.emplace(Letter, Line.Key);
      if (!IsNew && Owner->second != Line.Key) {
        Tell(Line.LineNo, "the letter " + Letter + " of " + Quoted(Line.Text) + " is marked in " + Owner->second +
                              " too, which stands in the same dialogs.");
      }
    }
  }

  void CheckWidth(const TTableLine& Line, const TTableLine& English) {
    const std::string Read = MarkedLetters(English.Text).empty() ? Line.Text : WithoutMarks(Line.Text);
    const std::string InEnglish = MarkedLetters(English.Text).empty() ? English.Text : WithoutMarks(English.Text);
    if (English.Places.Plain) CheckPlace(Line, Read, InEnglish, false, *English.Places.Plain);
    if (English.Places.Bold) CheckPlace(Line, Read, InEnglish, true, *English.Places.Bold);
    for (const auto& [Number, Pixels] : English.Places.Within) {
      const std::string Around = TextAround(Number);
      CheckPlace(Line, FormatText(Around, {Read}),
                 FormatText(EnglishByKey_.at(std::to_string(Number))->Text, {InEnglish}), false, Pixels);
    }
  }

  // Where English itself is cut off, no other text need be shorter.
  void CheckPlace(const TTableLine& Line, const std::string& Text, const std::string& English, bool Bold, int Pixels) {
    const int Width = WidthOf_(Text, Bold);
    if (Width <= std::max(Pixels, WidthOf_(English, Bold))) return;
    Tell(Line.LineNo, Quoted(Text) + " takes " + std::to_string(Width) + " pixels" + (Bold ? " in bold" : "") +
                          ", there are " + std::to_string(Pixels) + ".");
  }

  // The text that others are put into: the table's own, else the English one.
  std::string TextAround(std::int32_t Number) const {
    const std::string Key = std::to_string(Number);
    const auto Own = Given_.find(Key);
    if (Own != Given_.end()) return Own->second->Text;
    return EnglishByKey_.at(Key)->Text;
  }

  const TTextWidth& WidthOf_;
  std::vector<TTableLine> Lines_;
  std::vector<TTableLine> English_;
  TLines EnglishByKey_;
  TLines Given_;
  std::map<std::string, std::string> Marked_;  // the letters, and whose each is
  std::vector<TTextFinding> Findings_;
};

}  // namespace

std::vector<TTextFinding> CheckTexts(const std::string& FileName, const TTextWidth& WidthOf) {
  return TChecker(FileName, WidthOf).Check();
}

}  // namespace zulcommon
