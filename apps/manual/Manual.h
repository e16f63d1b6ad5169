#pragma once

#include <string>
#include <vector>

/// What a program says of itself, held once: its --help, its manual page and the shell's completion are made from it.
namespace manual {

struct TOption {
  std::string Name;   ///< without its hyphens
  std::string Value;  ///< what it takes, such as "FILE" or "text|json"; empty for a switch
  std::string Help;   ///< sentences
};

struct TExitCode {
  int Code = 0;
  std::string Meaning;
};

struct TExample {
  std::string Command;
  std::string Meaning;
};

struct TManual {
  std::string Program;
  std::string Summary;                ///< behind the program's name, in lower case, without a full stop
  std::vector<std::string> Synopsis;  ///< each a way to call it, without the program's name
  std::string Description;            ///< sentences
  std::vector<TOption> Options;
  std::vector<TExitCode> ExitCodes;
  std::vector<TOption> Environment;  ///< variables; their values are not used
  std::vector<TExample> Examples;
};

/// "--name" or "--name VALUE".
std::string OptionText(const TOption& Option);

/// An option as --help shows it: a line for its name, below it what it means.
std::string OptionHelp(const TOption& Option);

/// What --help prints.
std::string HelpText(const TManual& Manual);

/// What --version prints.
std::string VersionText(const TManual& Manual);

/// A part of a manual page of a program's own.
struct TSection {
  std::string Title;
  std::string Source;  ///< in troff, such as `Paragraph` and `Item` make
};

/// A text as troff must be given it to be shown as it is.
std::string Escaped(const std::string& Text);
std::string Heading(const std::string& Text);  ///< below a section's title
std::string Paragraph(const std::string& Text);
std::string Item(const std::string& Term, const std::string& Text);  ///< a term in bold, below it what it means

/// The manual page, in troff: `More` stands behind the options.
std::string ManPage(const TManual& Manual, const std::vector<TSection>& More = {});

}  // namespace manual
