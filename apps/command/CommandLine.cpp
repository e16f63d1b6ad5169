#include "apps/command/CommandLine.h"

#include <QLocale>
#include <algorithm>
#include <cstdlib>

#include "catalog/Near.h"
#include "toolkit/WholeText.h"
#include "zulcommon/DisplayFormats.h"
#include "zulcommon/EZULException.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/TextCheck.h"

namespace command {

namespace {

class TReader {
 public:
  TReader(const catalog::TCatalog& Catalog, const std::vector<std::string>& Words) : Catalog_(Catalog), Words_(Words) {}

  TCommandLine Read() {
    while (Next_ < Words_.size()) {
      const std::string& Word = Words_[Next_++];
      if (Word.starts_with("-") && Word != "-") {
        ReadOption(Word);
      } else {
        ReadName(Word);
      }
    }
    if (!Result_.Given.contains("db")) {
      if (const char* Address = std::getenv("ZUL_DB")) Result_.Database = Address;
    }
    if (Format_ != "text" && Format_ != "json") {
      throw EUsage("There is no format \"" + Format_ + "\": it is text or json.");
    }
    Result_.Json = Format_ == "json";
    return std::move(Result_);
  }

 private:
  void ReadName(const std::string& Name) {
    if (Result_.Pick != nullptr) throw EUsage("Nothing is known to do with \"" + Name + "\": one pick at a time.");
    Result_.Pick = Catalog_.Find(Name);
    if (Result_.Pick == nullptr) throw EUsage(catalog::NoSuchPick(Catalog_, Name));
    Result_.Args.emplace(Result_.Pick->Args);
  }

  void ReadOption(const std::string& Word) {
    const std::size_t Equals = Word.find('=');
    const std::string Option = Word.substr(0, Equals);
    std::optional<std::string> Value;
    if (Equals != std::string::npos) Value = Word.substr(Equals + 1);
    const std::string Name = Option == "-h" ? "help" : Option.starts_with("--") ? Option.substr(2) : "";
    if (std::string* Common = CommonText(Name)) {
      Once(Name);
      *Common = ValueOf(Option, Value);
    } else if (bool* Switch = CommonSwitch(Name)) {
      if (Value) throw EUsage("The option " + Option + " takes no value.");
      *Switch = true;
      Result_.Given.insert(Name);
    } else {
      ReadPickOption(Option, Name, Value);
    }
  }

  void ReadPickOption(const std::string& Option, const std::string& Name, std::optional<std::string> Value) {
    const catalog::TArg* Arg = FindArg(Name);
    if (Arg == nullptr)
      throw EUsage("There is no option " + Option + Whose() + "." + catalog::DidYouMean(NearOptions(Name)));
    Once(Name);
    if (Arg->Kind == catalog::TArgKind::Boolean && !Value) Value = "yes";
    try {
      Result_.Args->Set(Name, ValueOf(Option, Value));
    } catch (const catalog::EArgError& Error) {
      throw EUsage(Error.what());
    }
  }

  std::string* CommonText(const std::string& Name) {
    if (Name == "db") return &Result_.Database;
    if (Name == "strings") return &Result_.StringTable;
    if (Name == "language") return &Result_.Language;
    if (Name == "check-texts") return &Result_.CheckTexts;
    if (Name == "date-format") return &Result_.DateFormat;
    if (Name == "format") return &Format_;
    return nullptr;
  }

  bool* CommonSwitch(const std::string& Name) {
    if (Name == "list") return &Result_.List;
    if (Name == "help") return &Result_.Help;
    if (Name == "version") return &Result_.Version;
    if (Name == "check") return &Result_.Check;
    return nullptr;
  }

  void Once(const std::string& Name) {
    if (!Result_.Given.insert(Name).second) throw EUsage("The option --" + Name + " is given twice.");
  }

  // The value behind the equals sign, else the next word; a word that is an option itself was rather forgotten to be
  // given a value.
  std::string ValueOf(const std::string& Option, const std::optional<std::string>& Value) {
    if (Value) return *Value;
    if (Next_ < Words_.size() && !Words_[Next_].starts_with("--")) return Words_[Next_++];
    throw EUsage("The option " + Option + " needs a value: " + Option + "=VALUE.");
  }

  const catalog::TArg* FindArg(const std::string& Name) const {
    if (Result_.Pick == nullptr) return nullptr;
    const std::vector<catalog::TArg>& Args = Result_.Pick->Args;
    const auto Found =
        std::find_if(Args.begin(), Args.end(), [&](const catalog::TArg& Arg) { return Arg.Name == Name; });
    return Found == Args.end() ? nullptr : &*Found;
  }

  std::string Whose() const {
    return Result_.Pick != nullptr ? " of the pick " + Result_.Pick->Name : " in front of a pick's name";
  }

  std::vector<std::string> NearOptions(const std::string& Name) const {
    std::vector<std::string> Names = catalog::CommonOptions();
    if (Result_.Pick != nullptr) {
      for (const catalog::TArg& Arg : Result_.Pick->Args) Names.push_back(Arg.Name);
    }
    std::vector<std::string> Near = catalog::NearNames(Name, Names);
    for (std::string& Each : Near) Each.insert(0, "--");
    return Near;
  }

  const catalog::TCatalog& Catalog_;
  const std::vector<std::string>& Words_;
  std::size_t Next_ = 0;
  std::string Format_ = "text";
  TCommandLine Result_;
};

}  // namespace

TCommandLine ReadCommandLine(const catalog::TCatalog& Catalog, const std::vector<std::string>& Words) {
  return TReader(Catalog, Words).Read();
}

std::vector<std::string> Words(int ArgCount, char* ArgValues[]) {
  return {ArgValues + std::min(ArgCount, 1), ArgValues + ArgCount};
}

namespace {

void ApplyLanguage(const std::string& Language) {
  if (Language.empty()) return;
  if (Language == "system") {
    zulcommon::UseLanguageOf(QLocale());
  } else if (!zulcommon::UseLanguage(Language)) {
    std::string Known;
    for (const std::string& Code : zulcommon::BuiltInLanguages()) Known += Code + ", ";
    throw EUsage("There are no texts in the language \"" + Language + "\": it is " + Known + "or system.");
  }
}

}  // namespace

void ApplyTexts(const TCommandLine& CommandLine) {
  try {
    ApplyLanguage(CommandLine.Language);
    if (!CommandLine.StringTable.empty()) zulcommon::LoadStringTable(CommandLine.StringTable);
    if (!CommandLine.DateFormat.empty()) zulcommon::SetShortDateFormat(CommandLine.DateFormat);
  } catch (const zulcommon::EZULException& Error) {
    throw EUsage(Error.what());
  }
}

std::string TextFindings(const std::string& FileName) {
  const auto WidthOf = [](const std::string& Text, bool Bold) {
    return toolkit::TextWidth(QString::fromStdString(Text), Bold);
  };
  std::string Lines;
  for (const zulcommon::TTextFinding& Finding : zulcommon::CheckTexts(FileName, WidthOf)) {
    Lines +=
        FileName + (Finding.Line > 0 ? ", line " + std::to_string(Finding.Line) : "") + ": " + Finding.Message + "\n";
  }
  return Lines;
}

}  // namespace command
