#include "servers/EveryDialog.h"

#include "picks/accounts/uPickEftBatch.h"
#include "picks/accounts/uPickPostedBatch.h"
#include "picks/accounts/uPickPostedChequeBatch.h"
#include "picks/orders/uPickARInvoice.h"
#include "picks/orders/uPickBooking.h"
#include "picks/orders/uPickMultiOEDocs.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/orders/uPickOEJob.h"
#include "picks/orders/uPickOEMemberOfGroup.h"
#include "picks/parties/uPickCustContactEmails.h"
#include "picks/parties/uPickCustomer.h"
#include "picks/parties/uPickVendors.h"
#include "picks/parties/uPickVendorsEmails.h"
#include "picks/purchasing/uCustWithPO.h"
#include "picks/purchasing/uOEDocWithPO.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "picks/purchasing/uPickCustPO.h"
#include "picks/purchasing/uPickMultiPO.h"
#include "picks/purchasing/uPickMultiPOs.h"
#include "picks/purchasing/uPickPOExtras.h"
#include "picks/purchasing/uPickStockPO.h"
#include "picks/reference/uPickAPAgeHist.h"
#include "picks/reference/uPickCity.h"
#include "picks/reference/uPickCostCenter.h"
#include "picks/reference/uPickCutLocations.h"
#include "picks/reference/uPickDepartmentMulti.h"
#include "picks/reference/uPickEntity.h"
#include "picks/reference/uPickFinance.h"
#include "picks/reference/uPickGSTRate.h"
#include "picks/reference/uPickItemCategory.h"
#include "picks/reference/uPickItemClass.h"
#include "picks/reference/uPickItemFactorPreset.h"
#include "picks/reference/uPickItemHistPeriod.h"
#include "picks/reference/uPickItemPreset.h"
#include "picks/reference/uPickJob.h"
#include "picks/reference/uPickMultiDepartments.h"
#include "picks/reference/uPickMultiUsers.h"
#include "picks/reference/uPickPeriods.h"
#include "picks/reference/uPickSalesPerson.h"
#include "picks/reference/uPickState.h"
#include "picks/reference/uPickSuburb.h"
#include "picks/reference/uPickTerms.h"
#include "picks/reference/uPickUsedPeriodYear.h"
#include "picks/reference/uPickUserName.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "picks/stock/uPickItemCost.h"
#include "picks/stock/uPickItemLocation.h"
#include "picks/stock/uPickItemPresetDetail.h"
#include "picks/stock/uPickKitDetail.h"
#include "picks/stock/uPickLocation.h"

namespace support {

namespace {

using uPickListTypes::TPOState;
using uPickListTypes::TPOStates;
using zulcommon::TDocType;
using zulcommon::TDocTypes;

using TDialogs = std::vector<TSampleDialog>;

template <typename TDialog, typename... TArgs>
TSampleDialog Dialog(std::string Name, TArgs... Args) {
  return {std::move(Name), [=](ads::TAdsConnection* Connection) { return TDialog::Create(Connection, Args...); }};
}

std::string Code(const char* Text) {
  return Text;
}

void AddReference(TDialogs& All) {
  All.push_back(Dialog<uPickCity::TfrmPickCity>("City"));
  All.push_back(Dialog<uPickCostCenter::TfrmPickCostCenter>("CostCenter"));
  All.push_back(Dialog<uPickCutLocations::TfrmPickCutLocations>("CutLocations"));
  All.push_back(Dialog<uPickEntity::TfrmPickEntity>("Entity"));
  All.push_back(Dialog<uPickFinance::TfrmPickFinance>("Finance"));
  All.push_back(Dialog<uPickGSTRate::TfrmPickGSTRate>("GSTRate"));
  All.push_back(Dialog<uPickItemCategory::TfrmPickItemCat>("ItemCategory"));
  All.push_back(Dialog<uPickItemClass::TfrmPickItemClass>("ItemClass"));
  All.push_back(Dialog<uPickItemFactorPreset::TfrmPickItemFactorPreset>("ItemFactorPreset"));
  All.push_back(Dialog<uPickItemPreset::TfrmPickItemPreset>("ItemPreset"));
  All.push_back(Dialog<uPickJob::TfrmPickJob>("Job"));
  All.push_back(Dialog<uPickState::TfrmPickState>("State"));
  All.push_back(Dialog<uPickSuburb::TfrmPickSuburb>("Suburb"));
  All.push_back(Dialog<uPickTerms::TfrmPickTerms>("Terms"));
}

void AddPeriodsAndStaff(TDialogs& All) {
  All.push_back(Dialog<uPickAPAgeHist::TfrmPickAPAgeHist>("APAgeHist"));
  All.push_back(Dialog<uPickItemHistPeriod::TfrmPickItemHistPeriod>("ItemHistPeriod"));
  All.push_back(Dialog<uPickPeriods::TfrmPickPeriods>("Periods", false));
  All.push_back(Dialog<uPickPeriods::TfrmPickPeriods>("Periods, closed ones too", true));
  All.push_back(Dialog<uPickUsedPeriodYear::TfrmPickUsedPeriod>("UsedPeriodYear"));
  All.push_back(Dialog<uPickDepartmentMulti::TfrmPickDepartments>("DepartmentMulti"));
  All.push_back(Dialog<uPickMultiDepartments::TfrmPickMultiDepartments>("MultiDepartments"));
  All.push_back(Dialog<uPickMultiUsers::TfrmPickMultiUsers>("MultiUsers"));
  All.push_back(Dialog<uPickSalesPerson::TfrmPickSalesPerson>("SalesPerson", Code("")));
  All.push_back(Dialog<uPickSalesPerson::TfrmPickSalesPerson>("SalesPerson of an entity", Code("MAIN")));
  All.push_back(Dialog<uPickUserName::TfrmPickUserName>("UserName", Code("")));
  All.push_back(Dialog<uPickUserName::TfrmPickUserName>("UserName of an accented entity", Code("CAFÉ")));
}

void AddParties(TDialogs& All) {
  using uPickVendors::TVendorWhat;
  All.push_back(Dialog<uPickCustomer::TfrmPickCustomer>("Customer", false, Code(""), true, true));
  All.push_back(Dialog<uPickCustomer::TfrmPickCustomer>("Customer of an entity", true, Code("MAIN"), false, false));
  All.push_back(Dialog<uPickVendors::TfrmPickVendors>("Vendors", TVendorWhat::vwAll));
  All.push_back(Dialog<uPickVendors::TfrmPickVendors>("Vendors that are contractors", TVendorWhat::vwContractor));
  All.push_back(Dialog<uPickVendors::TfrmPickVendors>("Vendors of goods", TVendorWhat::vwVendNoSerice));
  All.push_back(Dialog<uPickCustContactEmails::TfrmDocPickCustEmails>("Emails of customers", true));
  All.push_back(Dialog<uPickCustContactEmails::TfrmDocPickCustEmails>("Emails of prospects", false));
  All.push_back(Dialog<uPickVendorsEmails::TfrmPickVendorsEmail>("Emails of vendors"));
}

void AddOrders(TDialogs& All) {
  using uPickARInvoice::TARInvoiceOp;
  using uPickBooking::TBookingPickOp;
  const TDocTypes Sales{TDocType::dtQuote, TDocType::dtOrder, TDocType::dtInvoice, TDocType::dtCredit};
  const uPickOEDoc::TOEDocOptions Any;
  const uPickMultiOEDocs::TOEDocOptions AnyOfMany;
  All.push_back(Dialog<uPickOEDoc::TfrmPickOEDoc>("OEDoc", Code(""), Sales, Any, Any));
  All.push_back(Dialog<uPickOEDoc::TfrmPickOEDoc>("OEDoc of a customer", Code("C00020"), Sales, Any, Any));
  All.push_back(Dialog<uPickOEDoc::TfrmPickOEDoc>("OEDoc that is not posted", Code(""), Sales, Any,
                                                  uPickOEDoc::TOEDocOptions{uPickOEDoc::TOEDocOption::ooPosted}));
  All.push_back(
      Dialog<uPickMultiOEDocs::TfrmPickMultiOEDocs>("MultiOEDocs", Code(""), TDocType::dtOrder, AnyOfMany, AnyOfMany));
  All.push_back(Dialog<uPickOEJob::TfrmPickOEJob>("OEJob"));
  All.push_back(
      Dialog<uPickOEMemberOfGroup::TfrmPickOEMemberOfGroup>("OEMemberOfGroup", Code("C00003"), Code("1000401")));
  All.push_back(Dialog<uPickARInvoice::TfrmPickARInvoice>("ARInvoice", uPickARInvoice::TARInvoiceOps{}, Code("C00003"),
                                                          Code("")));
  All.push_back(Dialog<uPickARInvoice::TfrmPickARInvoice>(
      "ARInvoice, all there are", uPickARInvoice::TARInvoiceOps{TARInvoiceOp::aoIncZeroBal, TARInvoiceOp::aoIncCredits},
      Code("C00004"), Code("")));
  All.push_back(Dialog<uPickBooking::TfrmPickBooking>("Booking", uPickBooking::TBookingPickOps{}, Code("")));
  All.push_back(Dialog<uPickBooking::TfrmPickBooking>(
      "Booking of a vendor", uPickBooking::TBookingPickOps{TBookingPickOp::boHidePaid, TBookingPickOp::boNotInAPBatch},
      Code("V00010")));
}

void AddPurchasing(TDialogs& All) {
  const TPOStates Any;
  const TPOStates Cancelled{TPOState::poCancelled};
  All.push_back(Dialog<uPickAnyPO::TfrmPickPO>("AnyPO", Any, Any, Code("")));
  All.push_back(
      Dialog<uPickAnyPO::TfrmPickPO>("AnyPO that is posted", TPOStates{TPOState::poPosted}, Cancelled, Code("")));
  All.push_back(Dialog<uPickCustPO::TfrmPickCustPO>("CustPO", Any, Any, Code(""), Code(""), Code("")));
  All.push_back(
      Dialog<uPickCustPO::TfrmPickCustPO>("CustPO of a document", Any, Any, Code(""), Code("1000023"), Code("O")));
  All.push_back(Dialog<uPickStockPO::TfrmPickStockPO>("StockPO", Any, Cancelled));
  All.push_back(Dialog<uPickMultiPO::TfrmPickMultiPO>("MultiPO", Any, Any));
  All.push_back(Dialog<uPickMultiPOs::TfrmPickMultiPOs>("MultiPOs", Any, Any));
  All.push_back(Dialog<uCustWithPO::TfrmPickCustWithPO>("CustWithPO", Any, Any));
  All.push_back(Dialog<uOEDocWithPO::TfrmPickOEDocWithPO>("OEDocWithPO", Any, Any, Code("")));
  All.push_back(Dialog<uPickPOExtras::TfrmPickPOExtras>("POExtras", Code("V00001")));
}

void AddStock(TDialogs& All) {
  All.push_back({"ItemAndLocation", [](ads::TAdsConnection* Connection) {
                   return uPickItemAndLocation::TfrmPickItemAndLocation::Create("FIT-000231", Connection);
                 }});
  All.push_back({"ItemLocation", [](ads::TAdsConnection* Connection) {
                   return uPickItemLocation::TfrmPickItemLocation::Create("BRD-000054", Connection, true);
                 }});
  All.push_back(Dialog<uPickLocation::TfrmPickLocation>("Location", Code("")));
  All.push_back(Dialog<uPickLocation::TfrmPickLocation>("Location of an item", Code("BRD-000054")));
  All.push_back(Dialog<uPickItemCost::TfrmPickItemCost>("ItemCost", Code("PIP-000001")));
  All.push_back(Dialog<uPickKitDetail::TfrmPickKitDetail>("KitDetail", 3));
  All.push_back(Dialog<uPickItemPresetDetail::TfrmPickItemPresetDetail>("ItemPresetDetail", 1));
}

void AddAccounts(TDialogs& All) {
  All.push_back(Dialog<uPickEftBatch::TfrmPickEFTBatch>("EftBatch"));
  All.push_back(Dialog<uPickPostedBatch::TfrmPickPostedBatch>("PostedBatch"));
  All.push_back(Dialog<uPickPostedChequeBatch::TfrmPickPostedChequeBatch>("PostedChequeBatch"));
}

}  // namespace

const std::vector<TSampleDialog>& EveryDialog() {
  static const TDialogs Dialogs = [] {
    TDialogs All;
    AddReference(All);
    AddPeriodsAndStaff(All);
    AddParties(All);
    AddOrders(All);
    AddPurchasing(All);
    AddStock(All);
    AddAccounts(All);
    return All;
  }();
  return Dialogs;
}

}  // namespace support
