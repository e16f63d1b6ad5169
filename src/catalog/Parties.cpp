#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/parties/uPickCustContactEmails.h"
#include "picks/parties/uPickCustomer.h"
#include "picks/parties/uPickVendors.h"
#include "picks/parties/uPickVendorsEmails.h"

namespace catalog {

namespace {

TPick CustomerPick() {
  return {"customer",
          "uPickCustomer::CallCustomerPick",
          "A customer",
          {InOutArg("customer", "The customer so far"),
           BooleanArg("filter-by-entity", "Whether --entity is looked at", true),
           TextArg("entity", "Only customers of this entity, such as MAIN; of all when it is empty"),
           BooleanArg("allow-inactive", "Offer a box that lists inactive customers, too"),
           BooleanArg("show-balances", "Passed on, but without effect: the list starts with phone numbers")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return InOutResult(Args.Text("customer"), [&](std::string& CustID) {
              return uPickCustomer::CallCustomerPick(Connection, CustID, Args.Boolean("filter-by-entity"),
                                                     Args.Text("entity"), Args.Boolean("allow-inactive"),
                                                     Args.Boolean("show-balances"));
            });
          },
          {}};
}

TPick VendorPick() {
  return {"vendor",
          "uPickVendors::CallVendorPick",
          "A vendor",
          {InOutArg("vendor", "The vendor so far"),
           ChoiceArg("what",
                     "Which vendors: all, those who are no contractors, contractors only, those who are neither "
                     "contractors nor service vendors",
                     {"all", "vendor", "contractor", "vendor-no-service"}, "all")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return InOutResult(Args.Text("vendor"), [&](std::string& VendID) {
              return uPickVendors::CallVendorPick(Connection, VendID, Args.Enum<uPickVendors::TVendorWhat>("what"));
            });
          },
          {}};
}

}  // namespace

void AddParties(TCatalog& Catalog) {
  Catalog.StartGroup("Customers and vendors");
  Catalog.Add(CustomerPick());
  Catalog.Add(VendorPick());
  Catalog.Add(TextPick("customer-email", "uPickCustContactEmails::CallPickCustomerEmailAddress",
                       "An e-mail address of a customer or a contact there",
                       uPickCustContactEmails::CallPickCustomerEmailAddress));
  Catalog.Add(TextPick("prospect-email", "uPickCustContactEmails::CallPickProspectEmailAddress",
                       "An e-mail address of a prospect or a contact there",
                       uPickCustContactEmails::CallPickProspectEmailAddress));
  Catalog.Add(InOutPick("vendor-email", "uPickVendorsEmails::CallVendorEmailsPick", "An e-mail address of a vendor",
                        InOutArg("email", "The address so far"), uPickVendorsEmails::CallVendorEmailsPick));
}

}  // namespace catalog
