#pragma once

#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalog/Catalog.h"

namespace command {

/// What the two programs are told when they are started:
///
///   [--db ADDRESS] [--language CODE] [--strings FILE] [--date-format PATTERN] [--format text|json] [--list]
///   [--help] [--version] [--check] [--check-texts FILE] [NAME [options of the pick NAME]]
///
/// The common options may stand anywhere, those of a pick behind its name. A value stands in the next word or behind an
/// equals sign; a Boolean option takes one only behind an equals sign.
struct TCommandLine {
  bool List = false;
  bool Help = false;
  bool Version = false;
  bool Check = false;
  const catalog::TPick* Pick = nullptr;
  std::optional<catalog::TArgs> Args;  ///< whenever there is a pick
  std::string Database;                ///< the environment's ZUL_DB when the option is not given
  std::string Language;
  std::string StringTable;
  std::string CheckTexts;  ///< a table to check, in place of a pick
  std::string DateFormat;
  bool Json = false;
  std::set<std::string> Given;  ///< the names of the options that stand there
};

/// The command line is wrong; `what()` says how, ready to be shown.
class EUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws `EUsage`. The catalog must live as long as the result.
TCommandLine ReadCommandLine(const catalog::TCatalog& Catalog, const std::vector<std::string>& Words);

/// The words of main's arguments without the program's own name.
std::vector<std::string> Words(int ArgCount, char* ArgValues[]);

/// Takes the language's texts, lays the string table over them and sets the date pattern, as given. Throws `EUsage`.
void ApplyTexts(const TCommandLine& CommandLine);

/// What is wrong with a string table, a line a finding; empty when nothing is. Throws `zulcommon::EZULException` for a
/// file that cannot be read. Needs a QGuiApplication, because it measures.
std::string TextFindings(const std::string& FileName);

}  // namespace command
