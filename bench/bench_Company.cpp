#include <QCheckBox>
#include <QLineEdit>

#include "ListBench.h"
#include "picks/accounts/uPickEftBatch.h"
#include "picks/orders/uPickMultiOEDocs.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/parties/uPickCustomer.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "zulcommon/DocTypes.h"

// The pick lists of a big company, each against the plain run of the query that it sends, in SQLite's own words.

namespace {

using bench::Company;
using uPickCustomer::TfrmPickCustomer;
using uPickOEDoc::TfrmPickOEDoc;

const std::string Address =
    "IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) || ' - ' || c.Zip, "
    "IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1))";

std::unique_ptr<TfrmPickCustomer> Customers() {
  return TfrmPickCustomer::Create(Company().Connection(), false, "", false, false);
}

std::string CustomerSql(const std::string& Sort, const std::string& Condition = {}) {
  return "SELECT C.ID, C.FirstName, C.Company, " + Address + " Addr, C.Phone, C.Inactive, UPPER(" + Sort +
         ") SortFld FROM Cust C WHERE 0=0 AND C.Inactive = False " + Condition + " ORDER BY SortFld";
}

// A dialog that opens with another order than its own: what is measured is that one requery, not the opening before it.
template <typename TDialog>
std::unique_ptr<TDialog> Reordered(std::unique_ptr<TDialog> Dialog, int OrderBy) {
  Dialog->rgOrderBy->SetItemIndex(OrderBy);
  return Dialog;
}

bench::TRunPlainly Plainly(const std::string& Sql, int Columns) {
  return [Sql, Columns] { return bench::RunPlainly(Company(), Sql, Columns); };
}

void OpenCustomersByCompany(benchmark::State& State) {
  bench::MeasureList(State, Plainly(CustomerSql("C.Company"), 6), Customers);
}
BENCHMARK(OpenCustomersByCompany)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void CustomersByAddress(benchmark::State& State) {
  const auto Dialog = Reordered(Customers(), 3);
  bench::MeasureRequery(State, Plainly(CustomerSql(Address), 6), *Dialog);
}
BENCHMARK(CustomersByAddress)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

void CustomersWithAFindText(benchmark::State& State) {
  const auto Dialog = Customers();
  Dialog->edFind->setText("smith");
  bench::MeasureRequery(State, Plainly(CustomerSql("C.Company", "AND UPPER(C.Company) LIKE '%SMITH%'"), 6), *Dialog);
}
BENCHMARK(CustomersWithAFindText)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

zulcommon::TDocTypes AllTypes() {
  zulcommon::TDocTypes Types;
  for (int Type = 0; Type < zulcommon::DocTypeCount; ++Type) Types.Include(static_cast<zulcommon::TDocType>(Type));
  return Types;
}

const std::vector<std::string> DocumentSorts{"UPPER(C.Company)", "UPPER(O.Type)",   "UPPER(O.JobNo)",
                                             "UPPER(J.[Desc])",  "UPPER(O.Number)", "O.[Date]"};

std::unique_ptr<TfrmPickOEDoc> Documents() {
  return TfrmPickOEDoc::Create(Company().Connection(), "", AllTypes(), {}, {});
}

bench::TRunPlainly DocumentsPlainly(std::size_t OrderBy) {
  return Plainly(
      "SELECT O.Type, O.ID, C.Company, O.JobNo, J.[Desc], O.Number, O.SubTotal + O.FedTax Total, O.[Date], "
      "O.Posted, " +
          DocumentSorts[OrderBy] +
          " SortFld FROM OE O INNER JOIN Cust C ON O.ID = C.ID "
          "INNER JOIN Jobs J ON O.JobNo = J.JobNo WHERE 0=0 AND O.Type IN (" +
          zulcommon::GetDocTypeList(AllTypes()) + ") ORDER BY SortFld",
      9);
}

void OpenDocuments(benchmark::State& State) {
  constexpr std::size_t OwnOrder = 4;
  bench::MeasureList(State, DocumentsPlainly(OwnOrder), Documents);
}
BENCHMARK(OpenDocuments)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);

void DocumentsInEveryOrder(benchmark::State& State) {
  const auto OrderBy = static_cast<std::size_t>(State.range(0));
  const auto Dialog = Reordered(Documents(), static_cast<int>(OrderBy));
  bench::MeasureRequery(State, DocumentsPlainly(OrderBy), *Dialog);
}
BENCHMARK(DocumentsInEveryOrder)->DenseRange(0, 5)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void TickAllInvoicesAndCollect(benchmark::State& State) {
  const auto Dialog =
      uPickMultiOEDocs::TfrmPickMultiOEDocs::Create(Company().Connection(), "", zulcommon::TDocType::dtInvoice, {}, {});
  for ([[maybe_unused]] auto _ : State) {
    toolkit::TStringList Numbers;
    Dialog->mniAllClick();
    Dialog->DocNumbers(&Numbers);
    if (Numbers.Count() != Dialog->qryList_->RecordCount()) State.SkipWithError("Ticks were lost.");
  }
  State.counters["rows"] = Dialog->qryList_->RecordCount();
}
BENCHMARK(TickAllInvoicesAndCollect)->Unit(benchmark::kMillisecond);

std::unique_ptr<uDocPickBase::TDocPickBase> PurchaseOrders() {
  return uPickAnyPO::TfrmPickPO::Create(Company().Connection(), {}, {}, "");
}

void OpenPurchaseOrders(benchmark::State& State) {
  bench::MeasureList(
      State,
      Plainly("SELECT I.Number, I.[Date], V.Company VendCompany, I.PONumber, I.POType, C.Company "
              "CustCompany, I.Type, I.Posted, "
              "I.Closed, I.POReceipt, I.Canceled, I.APDocket, I.Cost, I.FedTax, O.JobNo, UPPER(I.Number) "
              "SortFld FROM (IP I INNER JOIN "
              "Vend V ON (I.ID = V.ID)) LEFT OUTER JOIN Cust C ON C.ID = I.CustID LEFT OUTER JOIN OE O ON "
              "I.PONumber = O.Number AND "
              "I.POType = O.Type WHERE 0=0 ORDER BY SortFld",
              15),
      PurchaseOrders);
}
BENCHMARK(OpenPurchaseOrders)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);

// A page further, its icon column painted.
void PageThroughPurchaseOrders(benchmark::State& State) {
  const auto Dialog = PurchaseOrders();
  Dialog->show();
  for ([[maybe_unused]] auto _ : State) {
    Dialog->qryList_->SetRecNo(Dialog->qryList_->RecNo() + 16);
    Dialog->dbgAvail->viewport()->repaint();
  }
}
BENCHMARK(PageThroughPurchaseOrders)->Unit(benchmark::kMillisecond);

void OpenAMillionStockRows(benchmark::State& State) {
  bench::MeasureList(
      State,
      Plainly("SELECT I.Item, D.OnHand, L.FullName, I.\"desc\", I.SupplyLot, I.LocalRefNo, D.BinLocation, D.ItemLoc, "
              "UPPER(I.\"Desc\") SORTFLD FROM Item I, ItemLocations L, ItemDet D WHERE I.Item = D.Item AND "
              "D.ItemLoc = L.ID AND I.ParentItem = 'BENCH' AND D.OnHand > 0 ORDER BY SortFld",
              8),
      [] { return uPickItemAndLocation::TfrmPickItemAndLocation::Create("BENCH", Company().Connection()); });
}
BENCHMARK(OpenAMillionStockRows)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);

void SumAMillionPayments(benchmark::State& State) {
  bench::MeasureList(
      State,
      Plainly("SELECT e.Batch, p.[Desc], e.Posted, SUM(e.Amount) Total, e.Processed, UPPER(p.[Desc]) SortFld FROM "
              "EFTDetails e INNER JOIN PstdGLBatch p ON e.Batch = p.Batch WHERE 0=0 AND e.Processed = FALSE "
              "GROUP BY e.Batch, e.Posted, e.Processed, p.[Desc] ORDER BY SortFld",
              5),
      [] { return uPickEftBatch::TfrmPickEFTBatch::Create(Company().Connection()); });
}
BENCHMARK(SumAMillionPayments)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
