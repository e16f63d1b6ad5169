#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "capi/zulpick.h"

/// What a call gave, read and freed.
struct TPickResult {
  int Code = 0;
  std::string Message;
  std::string Text;
  std::vector<std::string> Keys;

  TPickResult() = default;
  explicit TPickResult(zul_result* Result)
      : Code(zul_result_code(Result)), Message(zul_result_message(Result)), Text(zul_result_text(Result)) {
    for (std::size_t Row = 0; Row < zul_result_count(Result); ++Row) {
      const char* Key = zul_result_value(Result, Row, "key");
      if (Key == nullptr) Key = zul_result_value(Result, Row, "name");
      Keys.emplace_back(Key);
    }
    zul_result_free(Result);
  }

  /// "code: message", to be compared at once.
  std::string Failure() const { return std::to_string(Code) + ": " + Message; }
};

using TGivenArgs = std::vector<std::pair<const char*, const char*>>;

/// Calls a pick and frees what came.
inline TPickResult CallPick(const char* Connection, const char* Pick, const TGivenArgs& Args = {}) {
  std::vector<const char*> Names;
  std::vector<const char*> Values;
  for (const auto& [Name, Value] : Args) {
    Names.push_back(Name);
    Values.push_back(Value);
  }
  return TPickResult(zul_pick(Connection, Pick, Names.data(), Values.data(), Names.size()));
}
