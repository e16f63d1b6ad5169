#pragma once

namespace catalog {

class TCatalog;

// Each adds the picks of one family, in a source of its name.
void AddReference(TCatalog& Catalog);
void AddPeriodsAndStaff(TCatalog& Catalog);
void AddParties(TCatalog& Catalog);
void AddOrders(TCatalog& Catalog);
void AddPurchasing(TCatalog& Catalog);
void AddStock(TCatalog& Catalog);
void AddAccounts(TCatalog& Catalog);

}  // namespace catalog
