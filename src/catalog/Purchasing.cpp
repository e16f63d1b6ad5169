#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "picks/purchasing/uPickMultiPOs.h"
#include "picks/purchasing/uPickPOExtras.h"
#include "picks/purchasing/uPickPurchaseOrders.h"

namespace catalog {

namespace {

using uPickListTypes::TPOState;
using uPickListTypes::TPOStates;

const std::vector<std::string>& StateNames() {
  static const std::vector<std::string> Names{"unposted", "posted", "receipted", "closed", "paid", "cancelled"};
  return Names;
}

// The arguments by which all of these picks choose purchase orders, and those of the pick's own.
std::vector<TArg> StateArgs(std::vector<TArg> Own = {}) {
  std::vector<TArg> Args{
      ChoicesArg("require", "Only purchase orders that are in every one of these states", StateNames()),
      ChoicesArg("exclude", "No purchase orders that are in any of these states", StateNames())};
  for (TArg& Arg : Own) Args.push_back(std::move(Arg));
  return Args;
}

TPOStates Required(const TArgs& Args) {
  return Args.EnumSet<TPOState>("require");
}
TPOStates Excluded(const TArgs& Args) {
  return Args.EnumSet<TPOState>("exclude");
}

TPick POPick() {
  return {
      "po",
      "uPickAnyPO::CallPickPO",
      "A purchase order of any kind",
      StateArgs({TextArg("vendor", "Only purchase orders of this vendor, such as V00007; of all when it is blank")}),
      [](ads::TAdsConnection* Connection, const TArgs& Args) {
        return TextResult([&](std::string& Number) {
          return uPickAnyPO::CallPickPO(Connection, Required(Args), Excluded(Args), Number, Args.Text("vendor"));
        });
      },
      {}};
}

TPick CustomerPOPick() {
  return {"customer-po",
          "uPickPurchaseOrders::CallPickCustPO",
          "A purchase order that was raised for a customer",
          StateArgs({TextArg("customer", "Only purchase orders for this customer; for all when it is blank"),
                     TextArg("document",
                             "Only purchase orders for the document with this number and --document-type; the "
                             "document's columns are not shown then"),
                     TextArg("document-type",
                             "The type of the document, I for an invoice or O for an order; without it the document "
                             "limits nothing")}),
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return KeyResult(uPickPurchaseOrders::CallPickCustPO(Connection, Required(Args), Excluded(Args),
                                                                 Args.Text("customer"), Args.Text("document"),
                                                                 Args.Text("document-type")));
          },
          {}};
}

// A pick that takes the states alone and returns its key.
TPick StatesPick(std::string Name, std::string Function, std::string Help,
                 std::string (*Call)(ads::TAdsConnection*, TPOStates, TPOStates)) {
  return {std::move(Name),
          std::move(Function),
          std::move(Help),
          StateArgs(),
          [Call](ads::TAdsConnection* Connection, const TArgs& Args) {
            return KeyResult(Call(Connection, Required(Args), Excluded(Args)));
          },
          {}};
}

TPick DocumentPick() {
  return {"po-document",
          "uPickPurchaseOrders::CallOEDocWithPOPick",
          "An order-entry document that has customer purchase orders, as its number and its type",
          StateArgs({TextArg("customer",
                             "The customer that is known already: the customer's columns are not shown, the documents "
                             "of all customers are listed nevertheless")}),
          [](ads::TAdsConnection* Connection, const TArgs& Args) -> TResult {
            const uPickListTypes::TOEDoc Doc = uPickPurchaseOrders::CallOEDocWithPOPick(
                Connection, Required(Args), Excluded(Args), Args.Text("customer"));
            return {!Doc.DocNumber.empty(), {Doc.DocNumber, Doc.DocType}};
          },
          {}};
}

TPick POsPick() {
  return {"pos",
          "uPickMultiPOs::CallPickMutliPO",
          "Any number of purchase orders",
          StateArgs(),
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return ListResult<toolkit::TStringList>([&](toolkit::TStringList& List) {
              toolkit::TStringList* Numbers = &List;
              return uPickMultiPOs::CallPickMutliPO(Connection, Required(Args), Excluded(Args), Numbers);
            });
          },
          {}};
}

TPick ExtrasPick() {
  return {"po-extras",
          "uPickPOExtras::CallPickPOExtras",
          "Any number of extras of a purchase order; nothing is shown when there are none",
          {TextArg("vendor", "List this vendor's extras, such as V00001, besides those of every vendor")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return ListResult<uZULPickLists::TIntegerList>([&](uZULPickLists::TIntegerList& List) {
              return uPickPOExtras::CallPickPOExtras(Connection, Args.Text("vendor"), &List);
            });
          },
          {}};
}

}  // namespace

void AddPurchasing(TCatalog& Catalog) {
  Catalog.StartGroup("Purchase orders");
  Catalog.Add(POPick());
  Catalog.Add(CustomerPOPick());
  Catalog.Add(StatesPick("stock-po", "uPickPurchaseOrders::CallPickStockPO",
                         "A purchase order that was raised for stock", uPickPurchaseOrders::CallPickStockPO));
  Catalog.Add(StatesPick("po-customer", "uPickPurchaseOrders::CallPickCust",
                         "A customer who has customer purchase orders", uPickPurchaseOrders::CallPickCust));
  Catalog.Add(DocumentPick());
  Catalog.Add(StatesPick("multi-po", "uPickPurchaseOrders::CallPickMultiPO",
                         "A purchase order that was raised for several documents",
                         uPickPurchaseOrders::CallPickMultiPO));
  Catalog.Add(POsPick());
  Catalog.Add(ExtrasPick());
}

}  // namespace catalog
