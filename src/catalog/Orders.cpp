#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/orders/uPickARInvoice.h"
#include "picks/orders/uPickBooking.h"
#include "picks/orders/uPickMultiOEDocs.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/orders/uPickOEJob.h"
#include "picks/orders/uPickOEMemberOfGroup.h"

namespace catalog {

namespace {

using zulcommon::TDocType;

// In the order of the types and of the options.
const std::vector<std::string> TypeNames = {"quote",   "order",    "invoice", "credit", "return",
                                            "service", "template", "group",   "member"};
const std::vector<std::string> OptionNames = {"wastage-posted", "internal", "stock-trans", "posted"};

TArg CustomerArg() {
  return TextArg("customer", "Only documents of this customer, such as C00012; of all when it is empty");
}
TArg TypesArg() {
  return ChoicesArg("types", "Which types of documents", TypeNames,
                    "quote,order,invoice,credit,return,service,template,group,member");
}
TArg TypeArg() {
  return ChoiceArg("type", "Which type of document", TypeNames, "order");
}
TArg RequireArg() {
  return ChoicesArg("require", "What a document must be", OptionNames);
}
TArg ExcludeArg() {
  return ChoicesArg("exclude", "What a document must not be; what is required, too, leaves no document", OptionNames);
}

/// Calls with a document's number and type: two keys, such as "1000123" and "O".
template <typename TCallable>
TResult DocumentResult(TCallable Call) {
  std::string Number = LeftOver;
  TDocType Type = TDocType::dtQuote;
  const bool Chosen = Call(Number, Type);
  return {Chosen, {Number, std::string(1, zulcommon::DocTypeLetter(Type))}};
}

TResult CallOEDoc(ads::TAdsConnection* Connection, const TArgs& Args) {
  using uPickOEDoc::TOEDocOption;
  return DocumentResult([&](std::string& DocNo, TDocType& DocType) {
    return uPickOEDoc::CallPickOEDoc(Connection, Args.Text("customer"), Args.EnumSet<TDocType>("types"),
                                     Args.EnumSet<TOEDocOption>("require"), Args.EnumSet<TOEDocOption>("exclude"),
                                     DocNo, DocType);
  });
}

TResult CallOEDocAll(ads::TAdsConnection* Connection, const TArgs& Args) {
  using uPickOEDoc::TOEDocOption;
  return DocumentResult([&](std::string& DocNo, TDocType& DocType) {
    return uPickOEDoc::CallPickOEDoc(Connection, Args.EnumSet<TDocType>("types"), Args.EnumSet<TOEDocOption>("require"),
                                     Args.EnumSet<TOEDocOption>("exclude"), DocNo, DocType);
  });
}

TResult CallOEDocs(ads::TAdsConnection* Connection, const TArgs& Args) {
  using uPickMultiOEDocs::TOEDocOption;
  return ListResult<toolkit::TStringList>([&](toolkit::TStringList& DocNumbers) {
    return uPickMultiOEDocs::CallPickMultiOEDocs(Connection, Args.Text("customer"), Args.Enum<TDocType>("type"),
                                                 Args.EnumSet<TOEDocOption>("require"),
                                                 Args.EnumSet<TOEDocOption>("exclude"), &DocNumbers);
  });
}

TResult CallOEDocsAll(ads::TAdsConnection* Connection, const TArgs& Args) {
  using uPickMultiOEDocs::TOEDocOption;
  return ListResult<toolkit::TStringList>([&](toolkit::TStringList& DocNumbers) {
    return uPickMultiOEDocs::CallPickMultiOEDocs(Connection, Args.Enum<TDocType>("type"),
                                                 Args.EnumSet<TOEDocOption>("require"),
                                                 Args.EnumSet<TOEDocOption>("exclude"), &DocNumbers);
  });
}

TPick MemberPick() {
  return {"oe-member",
          "uPickOEMemberOfGroup::CallPickOEMemberOfGroup",
          "A member of a group document of one customer",
          {Such(TextArg("customer", "The customer, such as C00012; must be given"), "C00003"),
           Such(TextArg("group", "The number of the group document"), "1000401")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return TextResult([&](std::string& DocNo) {
              return uPickOEMemberOfGroup::CallPickOEMemberOfGroup(Connection, Args.Text("customer"),
                                                                   Args.Text("group"), DocNo);
            });
          },
          {}};
}

TPick InvoicePick() {
  return {"ar-invoice",
          "uPickARInvoice::CallARInvoicePick",
          "A receivable invoice of one customer: its number and the type letter of its document",
          {ChoicesArg("include", "What to list besides invoices that are still owed", {"zero-balance", "credits"}),
           Such(TextArg("customer", "The customer, such as C00012; without one the list is empty"), "C00003"),
           TextArg("entity",
                   "Only invoices of this entity, such as MAIN, where the system has several; of all when it "
                   "is empty")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            std::string InvNo = LeftOver;
            std::string DocType = LeftOver;
            const bool Chosen =
                uPickARInvoice::CallARInvoicePick(Connection, Args.EnumSet<uPickARInvoice::TARInvoiceOp>("include"),
                                                  Args.Text("customer"), Args.Text("entity"), InvNo, DocType);
            return TResult{Chosen, {InvNo, DocType}};
          },
          {}};
}

TPick BookingPick() {
  return {"booking",
          "uPickBooking::CallPickBooking",
          "A booking of a vendor for a customer or a prospect",
          {ChoicesArg("leave-out", "Bookings not to list: those paid for, those that a payables batch refers to",
                      {"paid", "in-batch"}),
           TextArg("vendor", "Only bookings of this vendor, such as V00005; of all when it is empty")},
          [](ads::TAdsConnection* Connection, const TArgs& Args) {
            return TextResult([&](std::string& BookingID) {
              return uPickBooking::CallPickBooking(Connection, Args.EnumSet<uPickBooking::TBookingPickOp>("leave-out"),
                                                   Args.Text("vendor"), BookingID);
            });
          },
          {}};
}

}  // namespace

void AddOrders(TCatalog& Catalog) {
  Catalog.StartGroup("Order-entry documents");
  Catalog.Add({"oe-doc",
               "uPickOEDoc::CallPickOEDoc",
               "An order-entry document: its number and its type letter",
               {CustomerArg(), TypesArg(), RequireArg(), ExcludeArg()},
               CallOEDoc,
               {}});
  Catalog.Add({"oe-doc-all",
               "uPickOEDoc::CallPickOEDoc",
               "An order-entry document of any customer, by the function that takes none",
               {TypesArg(), RequireArg(), ExcludeArg()},
               CallOEDocAll,
               {}});
  Catalog.Add({"oe-docs",
               "uPickMultiOEDocs::CallPickMultiOEDocs",
               "Order-entry documents of one type",
               {CustomerArg(), TypeArg(), RequireArg(), ExcludeArg()},
               CallOEDocs,
               {}});
  Catalog.Add({"oe-docs-all",
               "uPickMultiOEDocs::CallPickMultiOEDocs",
               "Order-entry documents of one type and any customer, by the function that takes none",
               {TypeArg(), RequireArg(), ExcludeArg()},
               CallOEDocsAll,
               {}});
  Catalog.Add(
      TextPick("oe-job", "uPickOEJob::CallPickOEJob", "A job, listed with its documents", uPickOEJob::CallPickOEJob));
  Catalog.Add(MemberPick());
  Catalog.Add(InvoicePick());
  Catalog.Add(BookingPick());
}

}  // namespace catalog
