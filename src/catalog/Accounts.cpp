#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/accounts/uPickEftBatch.h"
#include "picks/accounts/uPickPostedBatch.h"
#include "picks/accounts/uPickPostedChequeBatch.h"

namespace catalog {

void AddAccounts(TCatalog& Catalog) {
  Catalog.StartGroup("Accounting batches");
  Catalog.Add(TextPick("eft-batch", "uPickEftBatch::CallEFTBatchPick",
                       "A batch of electronic payments, at first of those that are not processed yet",
                       uPickEftBatch::CallEFTBatchPick));
  Catalog.Add(TextPick("posted-batch", "uPickPostedBatch::CallPickPostedBatch", "A posted ledger batch",
                       uPickPostedBatch::CallPickPostedBatch));
  Catalog.Add(TextPick("cheque-batch", "uPickPostedChequeBatch::CallPickPostedChequeBatch",
                       "A posted batch of payments to vendors", uPickPostedChequeBatch::CallPickPostedChequeBatch));
}

}  // namespace catalog
