#include "catalog/Args.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "zulcommon/Text.h"
#include "zulcommon/TypedValues.h"

namespace catalog {

namespace {

constexpr const char* Yes = "yes";
constexpr const char* No = "no";

std::string Joined(const std::vector<std::string>& Texts, const char* Between) {
  std::string Result;
  for (const std::string& Text : Texts) Result += (Result.empty() ? "" : Between) + Text;
  return Result;
}

// The parts of "one,other"; none of an empty text.
std::vector<std::string> Parts(const std::string& List) {
  std::vector<std::string> Result;
  if (zulcommon::Trim(List).empty()) return Result;
  for (std::size_t Start = 0; Start <= List.size();) {
    const std::size_t End = std::min(List.find(',', Start), List.size());
    Result.emplace_back(zulcommon::Trim(std::string_view(List).substr(Start, End - Start)));
    Start = End + 1;
  }
  return Result;
}

std::optional<std::size_t> IndexOf(const std::vector<std::string>& Values, const std::string& Value) {
  const auto Found = std::find_if(Values.begin(), Values.end(),
                                  [&](const std::string& Each) { return zulcommon::SameText(Each, Value); });
  if (Found == Values.end()) return std::nullopt;
  return static_cast<std::size_t>(Found - Values.begin());
}

[[noreturn]] void Refuse(const TArg& Arg, const std::string& Value, const std::string& Wanted) {
  throw EArgError("\"" + Value + "\" is no value for " + Arg.Name + ": " + Wanted + ".");
}

std::string BooleanValue(const TArg& Arg, const std::string& Value) {
  if (IndexOf({Yes, "true", "on", "1"}, Value)) return Yes;
  if (IndexOf({No, "false", "off", "0"}, Value)) return No;
  Refuse(Arg, Value, "it is yes or no");
}

std::string IntegerValue(const TArg& Arg, const std::string& Value) {
  const std::optional<std::int32_t> Number = zulcommon::ReadInteger(Value);
  if (!Number) Refuse(Arg, Value, "it is a whole number of 32 bits");
  return std::to_string(*Number);
}

std::string ChoiceValue(const TArg& Arg, const std::string& Value) {
  const std::optional<std::size_t> Index = IndexOf(Arg.Values, Value);
  if (!Index) Refuse(Arg, Value, "it is one of " + Joined(Arg.Values, ", "));
  return Arg.Values[*Index];
}

std::string ChoicesValue(const TArg& Arg, const std::string& Value) {
  const std::vector<std::string> Given = Parts(Value);
  for (const std::string& Part : Given) {
    if (!IndexOf(Arg.Values, Part)) Refuse(Arg, Part, "it is any of " + Joined(Arg.Values, ", "));
  }
  std::vector<std::string> Result;
  for (const std::string& Each : Arg.Values) {
    if (IndexOf(Given, Each)) Result.push_back(Each);
  }
  return Joined(Result, ",");
}

}  // namespace

TArg TextArg(std::string Name, std::string Help, std::string Default) {
  return {std::move(Name), TArgKind::Text, std::move(Help), {}, std::move(Default), false, {}};
}

TArg InOutArg(std::string Name, std::string Help) {
  return {std::move(Name), TArgKind::Text, std::move(Help), {}, {}, true, {}};
}

TArg BooleanArg(std::string Name, std::string Help, bool Default) {
  return {std::move(Name), TArgKind::Boolean, std::move(Help), {}, Default ? Yes : No, false, {}};
}

TArg IntegerArg(std::string Name, std::string Help, std::int32_t Default) {
  return {std::move(Name), TArgKind::Integer, std::move(Help), {}, std::to_string(Default), false, {}};
}

TArg ChoiceArg(std::string Name, std::string Help, std::vector<std::string> Values, std::string Default) {
  return {std::move(Name), TArgKind::Choice, std::move(Help), std::move(Values), std::move(Default), false, {}};
}

TArg ChoicesArg(std::string Name, std::string Help, std::vector<std::string> Values, std::string Default) {
  return {std::move(Name), TArgKind::Choices, std::move(Help), std::move(Values), std::move(Default), false, {}};
}

TArg Such(TArg Arg, std::string Example) {
  Arg.Example = std::move(Example);
  return Arg;
}

std::string CheckedValue(const TArg& Arg, const std::string& Value) {
  switch (Arg.Kind) {
    case TArgKind::Boolean:
      return BooleanValue(Arg, Value);
    case TArgKind::Integer:
      return IntegerValue(Arg, Value);
    case TArgKind::Choice:
      return ChoiceValue(Arg, Value);
    case TArgKind::Choices:
      return ChoicesValue(Arg, Value);
    case TArgKind::Text:
      break;
  }
  return Value;
}

TArgs::TArgs(const std::vector<TArg>& Definitions) : Definitions_(Definitions) {}

void TArgs::Set(const std::string& Name, const std::string& Value) {
  const TArg* Arg = Find(Name);
  if (Arg == nullptr) throw EUnknownArg("There is no argument " + Name + ".");
  if (Set_.contains(Name)) throw EArgGivenTwice("The argument " + Name + " is given twice.");
  Set_.emplace(Name, CheckedValue(*Arg, Value));
}

const TArg* TArgs::Find(const std::string& Name) const {
  const auto Found =
      std::find_if(Definitions_.begin(), Definitions_.end(), [&](const TArg& Arg) { return Arg.Name == Name; });
  return Found == Definitions_.end() ? nullptr : &*Found;
}

const std::string& TArgs::Value(const std::string& Name, TArgKind Kind) const {
  const TArg* Arg = Find(Name);
  if (Arg == nullptr) throw std::logic_error("There is no argument " + Name + ".");
  if (Arg->Kind != Kind) throw std::logic_error("The argument " + Name + " is of another kind.");
  const auto Given = Set_.find(Name);
  return Given == Set_.end() ? Arg->Default : Given->second;
}

const std::string& TArgs::Text(const std::string& Name) const {
  return Value(Name, TArgKind::Text);
}

bool TArgs::Boolean(const std::string& Name) const {
  return Value(Name, TArgKind::Boolean) == Yes;
}

std::int32_t TArgs::Integer(const std::string& Name) const {
  return zulcommon::ReadInteger(Value(Name, TArgKind::Integer)).value();
}

int TArgs::Choice(const std::string& Name) const {
  const std::string& Chosen = Value(Name, TArgKind::Choice);
  return static_cast<int>(IndexOf(Find(Name)->Values, Chosen).value());
}

std::vector<int> TArgs::Choices(const std::string& Name) const {
  std::vector<int> Result;
  for (const std::string& Part : Parts(Value(Name, TArgKind::Choices))) {
    Result.push_back(static_cast<int>(IndexOf(Find(Name)->Values, Part).value()));
  }
  std::sort(Result.begin(), Result.end());
  return Result;
}

std::string TArgs::Describe() const {
  std::vector<std::string> Texts;
  for (const TArg& Arg : Definitions_) {
    const std::string& Given = Value(Arg.Name, Arg.Kind);
    if (Given == Arg.Default) continue;
    if (Arg.Kind == TArgKind::Boolean && Given == Yes) {
      Texts.push_back("--" + Arg.Name);
    } else {
      Texts.push_back("--" + Arg.Name + "=" + (Arg.Kind == TArgKind::Text ? "\"" + Given + "\"" : Given));
    }
  }
  return Joined(Texts, " ");
}

}  // namespace catalog
