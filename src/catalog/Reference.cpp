#include "catalog/Groups.h"
#include "catalog/Shapes.h"
#include "picks/reference/uPickCity.h"
#include "picks/reference/uPickCostCenter.h"
#include "picks/reference/uPickCutLocations.h"
#include "picks/reference/uPickEntity.h"
#include "picks/reference/uPickFinance.h"
#include "picks/reference/uPickGSTRate.h"
#include "picks/reference/uPickItemCategory.h"
#include "picks/reference/uPickItemClass.h"
#include "picks/reference/uPickItemFactorPreset.h"
#include "picks/reference/uPickItemPreset.h"
#include "picks/reference/uPickJob.h"
#include "picks/reference/uPickState.h"
#include "picks/reference/uPickSuburb.h"
#include "picks/reference/uPickTerms.h"
#include "picks/reference/uPickUsedPeriodYear.h"

namespace catalog {

void AddReference(TCatalog& Catalog) {
  Catalog.StartGroup("Codes and periods");
  Catalog.Add(TextPick("city", "uPickCity::CallPickCity", "A postcode", uPickCity::CallPickCity));
  Catalog.Add(TextPick("cost-center", "uPickCostCenter::CallPickCostCenter", "A cost centre",
                       uPickCostCenter::CallPickCostCenter));
  Catalog.Add(TextPick("cut-location", "uPickCutLocations::CallPickCutLoc", "A place where material is cut",
                       uPickCutLocations::CallPickCutLoc));
  Catalog.Add(TextPick("entity", "uPickEntity::CallPickEntity", "An accounting entity", uPickEntity::CallPickEntity));
  Catalog.Add(KeyPick("entity-key", "uPickEntity::CallPickEntity",
                      "An accounting entity, by the function that returns its code", uPickEntity::CallPickEntity));
  Catalog.Add(IntegerPick("finance-rate", "uPickFinance::CallPickFinanceRate", "A finance rate",
                          uPickFinance::CallPickFinanceRate));
  Catalog.Add(TextPick("gst-rate", "uPickGSTRate::CallPickGSTRate", "A tax rate", uPickGSTRate::CallPickGSTRate));
  Catalog.Add(TextPick("item-category", "uPickItemCategory::CallPickItemCat", "An item category",
                       uPickItemCategory::CallPickItemCat));
  Catalog.Add(
      TextPick("item-class", "uPickItemClass::CallPickItemClass", "An item class", uPickItemClass::CallPickItemClass));
  Catalog.Add(IntegerPick("item-factor", "uPickItemFactorPreset::CallPickItemFactor", "A preset of item factors",
                          uPickItemFactorPreset::CallPickItemFactor));
  Catalog.Add(IntegerPick("item-preset", "uPickItemPreset::CallPickItemPreset", "An item preset",
                          uPickItemPreset::CallPickItemPreset));
  Catalog.Add(TextPick("job", "uPickJob::CallPickJobNo", "A job", uPickJob::CallPickJobNo));
  Catalog.Add(TextPick("state", "uPickState::CallPickState", "A state", uPickState::CallPickState));
  Catalog.Add(TextPick("suburb", "uPickSuburb::CallPickSuburb", "A suburb", uPickSuburb::CallPickSuburb));
  Catalog.Add(TextPick("terms", "uPickTerms::CallPickTerms", "Terms of payment", uPickTerms::CallPickTerms));
  Catalog.Add(TextPick("used-year", "uPickUsedPeriodYear::CallPickUsedPeriodYear", "A year that has periods",
                       uPickUsedPeriodYear::CallPickUsedPeriodYear));
}

}  // namespace catalog
