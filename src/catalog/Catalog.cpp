#include "catalog/Catalog.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "catalog/Groups.h"

namespace catalog {

namespace {

bool IsName(const std::string& Name) {
  return !Name.empty() && Name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-") == std::string::npos &&
         Name.front() != '-' && Name.back() != '-';
}

[[noreturn]] void Refuse(const TPick& Pick, const std::string& Why) {
  throw std::invalid_argument("Pick " + Pick.Name + ": " + Why);
}

void CheckArgs(TPick& Pick) {
  TArgs Defaults(Pick.Args);
  for (TArg& Arg : Pick.Args) {
    if (!IsName(Arg.Name)) Refuse(Pick, "\"" + Arg.Name + "\" is no name for an argument.");
    const std::vector<std::string>& Common = CommonOptions();
    if (std::find(Common.begin(), Common.end(), Arg.Name) != Common.end()) {
      Refuse(Pick, "--" + Arg.Name + " is an option of the programs.");
    }
    try {
      Defaults.Set(Arg.Name, Arg.Default);
      Arg.Default = CheckedValue(Arg, Arg.Default);
      if (!Arg.Example.empty()) Arg.Example = CheckedValue(Arg, Arg.Example);
    } catch (const EArgError& Error) {
      Refuse(Pick, Error.what());
    }
  }
}

}  // namespace

void TCatalog::StartGroup(std::string Title) {
  Group_ = std::move(Title);
}

void TCatalog::Add(TPick Pick) {
  if (!IsName(Pick.Name)) Refuse(Pick, "that is no name for a pick.");
  if (Find(Pick.Name) != nullptr) Refuse(Pick, "the name is given twice.");
  if (Group_.empty()) Refuse(Pick, "it belongs to no group.");
  if (!Pick.Call) Refuse(Pick, "it cannot be called.");
  CheckArgs(Pick);
  Pick.Group = Group_;
  Picks_.push_back(std::move(Pick));
}

const TPick* TCatalog::Find(const std::string& Name) const {
  const auto Found = std::find_if(Picks_.begin(), Picks_.end(), [&](const TPick& Pick) { return Pick.Name == Name; });
  return Found == Picks_.end() ? nullptr : &*Found;
}

const std::vector<std::string>& CommonOptions() {
  static const std::vector<std::string> Names{"db",      "strings", "language", "date-format", "format",
                                              "version", "list",    "help",     "check",       "check-texts"};
  return Names;
}

const TCatalog& FullCatalog() {
  static const TCatalog Full = [] {
    TCatalog Catalog;
    AddReference(Catalog);
    AddPeriodsAndStaff(Catalog);
    AddParties(Catalog);
    AddOrders(Catalog);
    AddPurchasing(Catalog);
    AddStock(Catalog);
    AddAccounts(Catalog);
    return Catalog;
  }();
  return Full;
}

}  // namespace catalog
