#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "catalog/Catalog.h"
#include "catalog/zulcatalog_export.h"
#include "toolkit/Lists.h"

/// The usual shapes of a pick function, so that an entry of the catalog is one line. A function of another shape gets a
/// call of its own, made with `TextResult` and its fellows:
///
///   Catalog.Add({"user", "uPickUserName::CallPickUser", "A user", {TextArg("entity", "Only users of this entity")},
///                [](ads::TAdsConnection* Connection, const TArgs& Args) {
///                  return TextResult([&](std::string& User) {
///                    return uPickUserName::CallPickUser(Connection, User, Args.Text("entity"));
///                  });
///                }});
namespace catalog {

/// What an output text holds before a call: a function that empties it, as it must, gives an empty key when nothing is
/// chosen.
inline constexpr const char* LeftOver = "(left over)";

/// Calls with an output text.
template <typename TCallable>
TResult TextResult(TCallable Call) {
  std::string Key = LeftOver;
  const bool Chosen = Call(Key);
  return {Chosen, {Key}};
}

/// Calls with an in-out text, which holds `Text` before.
template <typename TCallable>
TResult InOutResult(std::string Text, TCallable Call) {
  const bool Chosen = Call(Text);
  return {Chosen, {Text}};
}

/// Calls with an output integer; 0 before.
template <typename TCallable>
TResult IntegerResult(TCallable Call) {
  std::int32_t Key = 0;
  const bool Chosen = Call(Key);
  return {Chosen, {std::to_string(Key)}};
}

/// Calls with a list of keys, texts (`toolkit::TStringList`) or integers (`uZULPickLists::TIntegerList`).
template <typename TKeyList, typename TCallable>
TResult ListResult(TCallable Call) {
  TKeyList List;
  TResult Result{Call(List), {}};
  for (const auto& Key : List) {
    if constexpr (std::is_same_v<std::decay_t<decltype(Key)>, std::string>) {
      Result.Keys.push_back(Key);
    } else {
      Result.Keys.push_back(std::to_string(Key));
    }
  }
  return Result;
}

/// Of a function that returns its key, empty when nothing was chosen.
ZULCATALOG_EXPORT TResult KeyResult(std::string Key);

// Functions that take nothing but the connection and their output.
ZULCATALOG_EXPORT TPick TextPick(std::string Name, std::string Function, std::string Help,
                                 bool (*Call)(ads::TAdsConnection*, std::string&));
ZULCATALOG_EXPORT TPick IntegerPick(std::string Name, std::string Function, std::string Help,
                                    bool (*Call)(ads::TAdsConnection*, std::int32_t&));
ZULCATALOG_EXPORT TPick KeyPick(std::string Name, std::string Function, std::string Help,
                                std::string (*Call)(ads::TAdsConnection*));
ZULCATALOG_EXPORT TPick ListPick(std::string Name, std::string Function, std::string Help,
                                 bool (*Call)(toolkit::TStringList*, ads::TAdsConnection*));

/// One whose text is in-out: the argument `Arg` gives it.
ZULCATALOG_EXPORT TPick InOutPick(std::string Name, std::string Function, std::string Help, TArg Arg,
                                  bool (*Call)(ads::TAdsConnection*, std::string&));

}  // namespace catalog
