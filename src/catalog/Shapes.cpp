#include "catalog/Shapes.h"

#include <utility>

namespace catalog {

TResult KeyResult(std::string Key) {
  const bool Chosen = !Key.empty();
  return {Chosen, {std::move(Key)}};
}

TPick TextPick(std::string Name, std::string Function, std::string Help,
               bool (*Call)(ads::TAdsConnection*, std::string&)) {
  return {
      std::move(Name), std::move(Function), std::move(Help), {}, [Call](ads::TAdsConnection* Connection, const TArgs&) {
        return TextResult([&](std::string& Key) { return Call(Connection, Key); });
      }};
}

TPick IntegerPick(std::string Name, std::string Function, std::string Help,
                  bool (*Call)(ads::TAdsConnection*, std::int32_t&)) {
  return {
      std::move(Name), std::move(Function), std::move(Help), {}, [Call](ads::TAdsConnection* Connection, const TArgs&) {
        return IntegerResult([&](std::int32_t& Key) { return Call(Connection, Key); });
      }};
}

TPick KeyPick(std::string Name, std::string Function, std::string Help, std::string (*Call)(ads::TAdsConnection*)) {
  return {
      std::move(Name), std::move(Function), std::move(Help), {}, [Call](ads::TAdsConnection* Connection, const TArgs&) {
        return KeyResult(Call(Connection));
      }};
}

TPick ListPick(std::string Name, std::string Function, std::string Help,
               bool (*Call)(toolkit::TStringList*, ads::TAdsConnection*)) {
  return {
      std::move(Name), std::move(Function), std::move(Help), {}, [Call](ads::TAdsConnection* Connection, const TArgs&) {
        return ListResult<toolkit::TStringList>([&](toolkit::TStringList& List) { return Call(&List, Connection); });
      }};
}

TPick InOutPick(std::string Name, std::string Function, std::string Help, TArg Arg,
                bool (*Call)(ads::TAdsConnection*, std::string&)) {
  const std::string Option = Arg.Name;
  return {std::move(Name),
          std::move(Function),
          std::move(Help),
          {std::move(Arg)},
          [Call, Option](ads::TAdsConnection* Connection, const TArgs& Args) {
            return InOutResult(Args.Text(Option), [&](std::string& Key) { return Call(Connection, Key); });
          }};
}

}  // namespace catalog
