#include "frame/PackageEntry.h"

#include <array>

#include "pickbase/uDocPickBase.h"

namespace {

struct TUnit {
  const char* Name;
  void (*Start)() = nullptr;
  void (*End)() = nullptr;
};

// In the order in which the module starts them. Only a unit with a value of its own has something to do.
constexpr std::array Units{
    TUnit{"uZULPickListsUtils"},
    TUnit{"uZULPickPlsWait"},
    TUnit{"uDocPickBase", uDocPickBase::StartUnit, uDocPickBase::EndUnit},
    TUnit{"uZULPickLists"},
    TUnit{"uDocPickMultiBase"},
    TUnit{"uPickListTypes"},
    TUnit{"uCustWithPO"},
    TUnit{"uOEDocWithPO"},
    TUnit{"uPickAnyPO"},
    TUnit{"uPickARInvoice"},
    TUnit{"uPickBooking"},
    TUnit{"uPickCity"},
    TUnit{"uPickCostCenter"},
    TUnit{"uPickCustContactEmails"},
    TUnit{"uPickCustomer"},
    TUnit{"uPickCustPO"},
    TUnit{"uPickCutLocations"},
    TUnit{"uPickDepartmentMulti"},
    TUnit{"uPickEftBatch"},
    TUnit{"uPickEntity"},
    TUnit{"uPickFinance"},
    TUnit{"uPickGSTRate"},
    TUnit{"uPickItemAndLocation"},
    TUnit{"uPickItemCategory"},
    TUnit{"uPickItemClass"},
    TUnit{"uPickItemCost"},
    TUnit{"uPickItemFactorPreset"},
    TUnit{"uPickItemHistPeriod"},
    TUnit{"uPickItemLocation"},
    TUnit{"uPickItemPreset"},
    TUnit{"uPickItemPresetDetail"},
    TUnit{"uPickJob"},
    TUnit{"uPickKitDetail"},
    TUnit{"uPickLocation"},
    TUnit{"uPickMultiDepartments"},
    TUnit{"uPickMultiOEDocs"},
    TUnit{"uPickMultiPO"},
    TUnit{"uPickMultiPOs"},
    TUnit{"uPickMultiUsers"},
    TUnit{"uPickOEDoc"},
    TUnit{"uPickOEJob"},
    TUnit{"uPickOEMemberOfGroup"},
    TUnit{"uPickPeriods"},
    TUnit{"uPickPOExtras"},
    TUnit{"uPickPostedBatch"},
    TUnit{"uPickPostedChequeBatch"},
    TUnit{"uPickStockPO"},
    TUnit{"uPickPurchaseOrders"},
    TUnit{"uPickSalesPerson"},
    TUnit{"uPickState"},
    TUnit{"uPickSuburb"},
    TUnit{"uPickTerms"},
    TUnit{"uPickUsedPeriodYear"},
    TUnit{"uPickUserName"},
    TUnit{"uPickVendors"},
    TUnit{"uPickVendorsEmails"},
    TUnit{"uPickAPAgeHist"},
};

constexpr auto UnitNames = [] {
  std::array<const char*, Units.size()> Names{};
  for (std::size_t Unit = 0; Unit < Units.size(); ++Unit) Names[Unit] = Units[Unit].Name;
  return Names;
}();

constexpr std::array Required{"ZULCommon", "ZULAds", "ZULToolkit"};

TPackageInfoTable Table{"ZULPickLists",
                        "ZUL Picklists",
                        static_cast<std::int32_t>(Required.size()),
                        Required.data(),
                        static_cast<std::int32_t>(UnitNames.size()),
                        UnitNames.data(),
                        0};

}  // namespace

void Initialize() {
  for (; Table.InitializedCount < Table.UnitCount; ++Table.InitializedCount) {
    const TUnit& Unit = Units[static_cast<std::size_t>(Table.InitializedCount)];
    if (Unit.Start != nullptr) Unit.Start();
  }
}

void Finalize() {
  while (Table.InitializedCount > 0) {
    const TUnit& Unit = Units[static_cast<std::size_t>(--Table.InitializedCount)];
    if (Unit.End != nullptr) Unit.End();
  }
}

const TPackageInfoTable* GetPackageInfoTable() {
  return &Table;
}
