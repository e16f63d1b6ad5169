#include "support/EveryDialog.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "pickbase/PickCall.h"
#include "picks/parties/uPickCustomer.h"

namespace support {

namespace {

using uDocPickBase::TDocPickBase;

/// The arguments that are not at their defaults, as they would be typed.
using TArguments = std::map<std::string, std::string>;

// The pick's name and its arguments, a line for each state that is worth being looked at. Where a pick has one line or
// more, it is not looked at by its defaults, unless one of the lines is empty.
const std::multimap<std::string, TArguments>& Samples() {
  static const std::multimap<std::string, TArguments> All{
      {"period", {}},
      {"period", {{"include-closed", "yes"}}},
      {"salesperson", {}},
      {"salesperson", {{"entity", "MAIN"}}},
      {"user", {}},
      {"user", {{"entity", "CAFÉ"}}},

      {"customer", {{"filter-by-entity", "no"}, {"allow-inactive", "yes"}}},
      {"customer", {{"entity", "MAIN"}}},
      {"vendor", {{"what", "all"}}},
      {"vendor", {{"what", "contractor"}}},
      {"vendor", {{"what", "vendor-no-service"}}},

      {"oe-doc", {{"types", "quote,order,invoice,credit"}}},
      {"oe-doc", {{"types", "quote,order,invoice,credit"}, {"customer", "C00020"}}},
      {"oe-doc", {{"types", "quote,order,invoice,credit"}, {"exclude", "posted"}}},
      {"oe-member", {{"customer", "C00003"}, {"group", "1000401"}}},
      {"ar-invoice", {{"customer", "C00003"}}},
      {"ar-invoice", {{"customer", "C00004"}, {"include", "zero-balance,credits"}}},
      {"booking", {}},
      {"booking", {{"vendor", "V00010"}, {"leave-out", "paid,in-batch"}}},

      {"po", {}},
      {"po", {{"require", "posted"}, {"exclude", "cancelled"}}},
      {"customer-po", {}},
      {"customer-po", {{"document", "1000023"}, {"document-type", "O"}}},
      {"stock-po", {{"exclude", "cancelled"}}},
      {"po-extras", {{"vendor", "V00001"}}},

      {"item-at-location", {{"parent", "FIT-000231"}}},
      {"item-location", {{"item", "BRD-000054"}, {"include-zero", "yes"}}},
      {"location", {}},
      {"location", {{"item", "BRD-000054"}}},
      {"item-cost", {{"item", "PIP-000001"}}},
      {"kit-option", {{"kit", "3"}}},
      {"preset-option", {{"line", "1"}}},
  };
  return All;
}

TSampleDialog Sample(const catalog::TPick& Pick, const TArguments& Arguments) {
  catalog::TArgs Args(Pick.Args);
  for (const auto& [Name, Value] : Arguments) Args.Set(Name, Value);
  const std::string Options = Args.Describe();
  return {Options.empty() ? Pick.Name : Pick.Name + " " + Options,
          [&Pick, Args](ads::TAdsConnection* Connection) { return DialogOf(Pick, Args, Connection); }, &Pick};
}

// Its function shows it with phone numbers first, whatever it is asked for.
TSampleDialog CustomersWithBalances() {
  return {"customer with balances", [](ads::TAdsConnection* Connection) {
            return uPickCustomer::TfrmPickCustomer::Create(Connection, false, std::string(), true, true);
          }};
}

}  // namespace

std::unique_ptr<TDocPickBase> DialogOf(const catalog::TPick& Pick, const catalog::TArgs& Args,
                                       ads::TAdsConnection* Connection) {
  std::unique_ptr<TDocPickBase> Result;
  pickbase::TPickWatch Watch;
  Watch.OnBuilt = [](TDocPickBase&) { return false; };
  Watch.OnNotChosen = [&](std::unique_ptr<TDocPickBase> Dialog) { Result = std::move(Dialog); };
  Pick.Call(Connection, Args);
  if (Result == nullptr) throw std::logic_error("No dialog comes of it.");
  return Result;
}

const std::vector<TSampleDialog>& EveryDialog() {
  static const std::vector<TSampleDialog> Dialogs = [] {
    std::vector<TSampleDialog> All;
    for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
      const auto [First, Last] = Samples().equal_range(Pick.Name);
      if (First == Last) All.push_back(Sample(Pick, {}));
      for (auto Each = First; Each != Last; ++Each) All.push_back(Sample(Pick, Each->second));
    }
    All.push_back(CustomersWithBalances());
    return All;
  }();
  return Dialogs;
}

const TSampleDialog& SampleDialog(const std::string& Name) {
  const auto Found = std::find_if(EveryDialog().begin(), EveryDialog().end(),
                                  [&](const TSampleDialog& Each) { return Each.Name == Name; });
  if (Found == EveryDialog().end()) throw std::logic_error("There is no sample dialog " + Name);
  return *Found;
}

std::vector<std::string> SamplesOfNoPick() {
  std::vector<std::string> Names;
  for (const auto& [Name, Arguments] : Samples()) {
    if (catalog::FullCatalog().Find(Name) == nullptr) Names.push_back(Name);
  }
  return Names;
}

}  // namespace support
