#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"
#include "toolkit/Set.h"

namespace uPickARInvoice {

/// What is listed besides the invoices that are still owed: those without a balance, and credits. The order is part of
/// the interface.
enum class TARInvoiceOp : std::uint8_t { aoIncZeroBal, aoIncCredits };

using TARInvoiceOps = toolkit::TSet<TARInvoiceOp>;

/// Lists the receivable invoices of one customer.
class ZULPICKLISTS_EXPORT TfrmPickARInvoice : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickARInvoice> Create(ads::TAdsConnection* Connection, TARInvoiceOps Options,
                                                   const std::string& CustomerID, const std::string& Entity) {
    return Construct<TfrmPickARInvoice>(Connection, Options, CustomerID, Entity);
  }
  std::string GetInvNo() const;
  /// The letter of the order-entry document's type.
  std::string GetDocType() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_InvNo;
  ads::TField* qryList_Date;
  ads::TField* qryList_Desc;
  ads::TField* qryList_Bal;
  ads::TField* qryList_Amt;
  ads::TField* qryList_OEDt;
  ads::TField* qryList_Due;
  ads::TField* qryList_Batch;
  ads::TField* qryList_Entity;

 private:
  friend class TDocPickBase;
  TfrmPickARInvoice(TARInvoiceOps Options, const std::string& CustomerID, const std::string& Entity);

  const TARInvoiceOps Options_;
  const std::string CustomerID_;
  const std::string Entity_;
};

/// Lets the user pick an invoice of the customer: of one accounting entity, or of all when `Entity` is empty. Its
/// number goes to `InvNo`, its document type's letter to `DocType`; both are empty when none was picked. The codes
/// stand in the query as they are; in a system with a single entity `Entity` is not asked for.
ZULPICKLISTS_EXPORT bool CallARInvoicePick(ads::TAdsConnection* Connection, const TARInvoiceOps& Options,
                                           const std::string& CustomerID, const std::string& Entity, std::string& InvNo,
                                           std::string& DocType);

}  // namespace uPickARInvoice
