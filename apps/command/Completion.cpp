#include "apps/command/Completion.h"

#include <algorithm>

#include "apps/command/Help.h"

namespace command {

namespace {

// The words that a value may be, between single quotes; none of them holds one.
std::string Words(const std::vector<std::string>& All) {
  std::string Result;
  for (const std::string& Word : All) Result += (Result.empty() ? "" : " ") + Word;
  return "'" + Result + "'";
}

std::string OptionWord(const std::string& Name) {
  return "--" + Name;
}

std::vector<std::string> OptionWords(const std::vector<manual::TOption>& Options) {
  std::vector<std::string> Result;
  Result.reserve(Options.size());
  for (const manual::TOption& Option : Options) Result.push_back(OptionWord(Option.Name));
  return Result;
}

// The same, to be written behind others.
std::vector<std::string> Behind(std::vector<std::string> All) {
  if (!All.empty()) All.front().insert(0, " ");
  return All;
}

// What offers the value of an option: files, the words of "text|json", or nothing where only the user knows.
std::string ValueRule(const manual::TOption& Option) {
  if (Option.Value == "FILE" || Option.Value == "ADDRESS") return "files=1";
  if (Option.Value.find('|') == std::string::npos) return "words=''";
  std::string Values = Option.Value;
  std::replace(Values.begin(), Values.end(), '|', ' ');
  return "words='" + Values + "'";
}

std::string ValueRules(const std::vector<manual::TOption>& Options, const std::string& Indent) {
  std::string Result;
  for (const manual::TOption& Option : Options) {
    if (!Option.Value.empty()) {
      Result += Indent + OptionWord(Option.Name) + ") " + ValueRule(Option) + "; return 0 ;;\n";
    }
  }
  return Result;
}

std::string ArgRule(const catalog::TArg& Arg) {
  switch (Arg.Kind) {
    case catalog::TArgKind::Choice:
      return "words=" + Words(Arg.Values);
    case catalog::TArgKind::Choices:
      return "list=1; words=" + Words(Arg.Values);
    case catalog::TArgKind::Boolean:
      return "words='yes no'";
    case catalog::TArgKind::Integer:
    case catalog::TArgKind::Text:
      break;
  }
  return "words=''";
}

// A Boolean takes a value behind an equals sign alone.
std::string PickRules(const catalog::TPick& Pick) {
  std::string Result;
  for (const catalog::TArg& Arg : Pick.Args) {
    const std::string Equals = Arg.Kind == catalog::TArgKind::Boolean ? "=" : "";
    Result += "    " + Pick.Name + OptionWord(Arg.Name) + Equals + ") " + ArgRule(Arg) + "; return 0 ;;\n";
  }
  return Result;
}

std::string PickOptions(const catalog::TPick& Pick) {
  std::vector<std::string> Names;
  Names.reserve(Pick.Args.size());
  for (const catalog::TArg& Arg : Pick.Args) Names.push_back(OptionWord(Arg.Name));
  return "    " + Pick.Name + ") words=" + Words(Names) + " ;;\n";
}

// The end of each completion: the word so far, told from an option in front of an equals sign, and the answers. Bash
// takes an equals sign for a word of its own, and so does it with a value behind it.
constexpr const char* Frame = R"BASH(
  local current=${COMP_WORDS[COMP_CWORD]} before= equals=
  ((COMP_CWORD == 0)) || before=${COMP_WORDS[COMP_CWORD-1]}
  if [[ $current == = ]]; then
    current= equals==
  elif [[ $before == = ]]; then
    equals==
    ((COMP_CWORD < 2)) || before=${COMP_WORDS[COMP_CWORD-2]}
  fi
)BASH";

constexpr const char* Answers = R"BASH(
  local word
  COMPREPLY=()
  if [[ -n $files ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current" | sort)
    return
  fi
  local done=
  [[ -z $list || $current != *,* ]] || done=${current%,*},
  for word in $words; do
    [[ $done$word != "$current"* ]] || COMPREPLY+=("$done$word")
  done
)BASH";

}  // namespace

std::string PickCompletion(const catalog::TCatalog& Catalog) {
  std::vector<std::string> Names;
  std::string Options;
  std::string Rules;
  for (const catalog::TPick& Pick : Catalog.All()) {
    Names.push_back(Pick.Name);
    if (Pick.Args.empty()) continue;
    Options += PickOptions(Pick);
    Rules += PickRules(Pick);
  }
  std::string Result = "# Completion for zulpick and zulhost in bash.\n\n_zulpick_value() {\n  case $1 in\n";
  Result += ValueRules(PickManual().Options, "    ");
  Result += "  esac\n  case $2$1$3 in\n" + Rules + "  esac\n  return 1\n}\n\n";
  Result += "_zulpick_options() {\n  case $1 in\n" + Options + "  esac\n}\n\n_zulpick() {";
  Result += Frame;
  Result += "  local picks=" + Words(Names) + " pick= each words= files= list=\n";
  Result += "  for each in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n";
  Result += "    [[ \" $picks \" != *\" $each \"* ]] || { pick=$each; break; }\n  done\n";
  Result += "  if ! _zulpick_value \"$before\" \"$pick\" \"$equals\" &&\n";
  Result += "    { [[ -z $equals ]] || ! _zulpick_value \"$before\" \"$pick\" ''; }; then\n";
  Result += "    [[ -z $equals ]] || return\n    _zulpick_options \"$pick\"\n";
  Result += "    if [[ ${COMP_WORDS[0]##*/} == zulhost ]]; then\n";
  Result += "      words+=" + Words(Behind(OptionWords(HostManual().Options))) + "\n    else\n";
  Result += "      words+=" + Words(Behind(OptionWords(PickManual().Options))) + "\n    fi\n";
  Result += "    [[ -n $pick || $current == -* ]] || words=$picks\n  fi";
  Result += Answers;
  return Result + "}\n\ncomplete -F _zulpick zulpick zulhost\n";
}

std::string OptionCompletion(const manual::TManual& Manual) {
  const std::string Function = "_" + Manual.Program;
  std::string Result = "# Completion for " + Manual.Program + " in bash.\n\n" + Function + "_value() {\n  case $1 in\n";
  Result += ValueRules(Manual.Options, "    ") + "  esac\n  return 1\n}\n\n" + Function + "() {";
  Result += Frame;
  Result += "  local words= files= list=\n  if ! " + Function + "_value \"$before\"; then\n";
  Result += "    [[ -z $equals ]] || return\n    files=1\n";
  Result += "    [[ $current != -* ]] || { files=; words=" + Words(OptionWords(Manual.Options)) + "; }\n  fi";
  Result += Answers;
  return Result + "}\n\ncomplete -F " + Function + " " + Manual.Program + "\n";
}

}  // namespace command
