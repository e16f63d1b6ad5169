#include "apps/manual/Manual.h"

#include <algorithm>
#include <cctype>

namespace manual {

namespace {

constexpr std::size_t HelpWidth = 100;
const std::string HelpIndent(8, ' ');

// The text in lines of at most `HelpWidth` characters, each indented.
std::string Wrapped(const std::string& Text) {
  std::string Result;
  std::string Line = HelpIndent;
  std::size_t Begin = 0;
  while (Begin < Text.size()) {
    const std::size_t End = std::min(Text.find(' ', Begin), Text.size());
    const std::string Word = Text.substr(Begin, End - Begin);
    if (Line.size() > HelpIndent.size() && Line.size() + 1 + Word.size() > HelpWidth) {
      Result += Line + "\n";
      Line = HelpIndent;
    }
    Line += (Line.size() > HelpIndent.size() ? " " : "") + Word;
    Begin = End + 1;
  }
  return Result + Line + "\n";
}

std::string InCapitals(std::string Text) {
  std::transform(Text.begin(), Text.end(), Text.begin(),
                 [](unsigned char Letter) { return static_cast<char>(std::toupper(Letter)); });
  return Text;
}

std::string Section(const std::string& Title, const std::string& Source) {
  return Source.empty() ? "" : ".SH " + Title + "\n" + Source;
}

std::string Synopsis(const TManual& Manual) {
  std::string Result;
  for (const std::string& Way : Manual.Synopsis) {
    if (!Result.empty()) Result += ".br\n";
    Result += ".B " + Escaped(Manual.Program) + "\n" + Escaped(Way) + "\n";
  }
  return Result;
}

}  // namespace

std::string OptionText(const TOption& Option) {
  return "--" + Option.Name + (Option.Value.empty() ? "" : " " + Option.Value);
}

std::string OptionHelp(const TOption& Option) {
  return "  " + OptionText(Option) + "\n" + Wrapped(Option.Help);
}

std::string HelpText(const TManual& Manual) {
  std::string Result;
  for (const std::string& Way : Manual.Synopsis) {
    Result += (Result.empty() ? "Usage: " : "       ") + Manual.Program + " " + Way + "\n";
  }
  Result += Manual.Description + "\n\n";
  for (const TOption& Option : Manual.Options) Result += OptionHelp(Option);
  std::string Codes;
  for (const TExitCode& Code : Manual.ExitCodes) {
    Codes += (Codes.empty() ? "\nExit codes: " : ", ") + std::to_string(Code.Code) + " " + Code.Meaning;
  }
  return Codes.empty() ? Result : Result + Codes + ".\n";
}

std::string VersionText(const TManual& Manual) {
  return Manual.Program + " " ZUL_VERSION "\n";
}

std::string Escaped(const std::string& Text) {
  std::string Result;
  for (const char Letter : Text) {
    if (Letter == '\\') {
      Result += "\\e";
    } else if (Letter == '-') {
      Result += "\\-";
    } else if ((Letter == '.' || Letter == '\'') && (Result.empty() || Result.back() == '\n')) {
      Result += std::string("\\&") + Letter;
    } else {
      Result += Letter;
    }
  }
  return Result;
}

std::string Heading(const std::string& Text) {
  return ".SS " + Escaped(Text) + "\n";
}

std::string Paragraph(const std::string& Text) {
  return ".PP\n" + Escaped(Text) + "\n";
}

std::string Item(const std::string& Term, const std::string& Text) {
  return ".TP\n.B " + Escaped(Term) + "\n" + Escaped(Text) + "\n";
}

std::string ManPage(const TManual& Manual, const std::vector<TSection>& More) {
  std::string Result = ".TH " + InCapitals(Manual.Program) + " 1 \"\" \"" ZUL_VERSION "\" \"Pick lists\"\n";
  Result += Section("NAME", Escaped(Manual.Program) + " \\- " + Escaped(Manual.Summary) + "\n");
  Result += Section("SYNOPSIS", Synopsis(Manual));
  Result += Section("DESCRIPTION", Escaped(Manual.Description) + "\n");
  std::string Options;
  for (const TOption& Option : Manual.Options) Options += Item(OptionText(Option), Option.Help);
  Result += Section("OPTIONS", Options);
  for (const TSection& Each : More) Result += Section(Each.Title, Each.Source);
  std::string Codes;
  for (const TExitCode& Code : Manual.ExitCodes) Codes += Item(std::to_string(Code.Code), Code.Meaning + ".");
  Result += Section("EXIT STATUS", Codes);
  std::string Variables;
  for (const TOption& Variable : Manual.Environment) Variables += Item(Variable.Name, Variable.Help);
  Result += Section("ENVIRONMENT", Variables);
  std::string Examples;
  for (const TExample& Example : Manual.Examples) Examples += Item(Example.Command, Example.Meaning);
  return Result + Section("EXAMPLES", Examples);
}

}  // namespace manual
