#include "ReferenceDialogs.h"

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

namespace reference {

namespace {

using ads::TFieldType;
using toolkit::TAlignment;

constexpr TAlignment Left = TAlignment::taLeftJustify;
constexpr TAlignment Right = TAlignment::taRightJustify;
constexpr TAlignment Centre = TAlignment::taCenter;

TFieldFacts Text(std::string Name, int Size) {
  return {std::move(Name), TFieldType::ftString, Size};
}
TFieldFacts Boolean(std::string Name) {
  return {std::move(Name), TFieldType::ftBoolean, 0};
}
TFieldFacts Float(std::string Name) {
  return {std::move(Name), TFieldType::ftFloat, 0};
}
TFieldFacts AutoInc(std::string Name) {
  return {std::move(Name), TFieldType::ftAutoInc, 0};
}

TColumnFacts Plain(std::string Field, int Label, int Width = 0) {
  return {std::move(Field), Label, Width, Left, Left};
}
TColumnFacts Tick(std::string Field, int Label) {
  return {std::move(Field), Label, 16, Centre, Centre};
}
TColumnFacts Number(std::string Field, int Label) {
  return {std::move(Field), Label, 0, Right, Right};
}

TDialogFacts City() {
  return {"city",
          uPickCity::TfrmPickCity::Create,
          "T97",
          "T366",
          {Text("Zip", 30)},
          {Plain("Zip", 3059, 120)},
          {{"Zip", "SELECT Zip, UPPER(Zip) SortFld", "WHERE UPPER(Zip) LIKE '%"}},
          0,
          {"FROM Area"}};
}

TDialogFacts CostCenter() {
  return {"cost centre",
          uPickCostCenter::TfrmPickCostCenter::Create,
          "T2",
          "T80",
          {Text("CstCtr", 9), Text("Desc", 50), Boolean("Default")},
          {Plain("CstCtr", 3004), Plain("Desc", 3007, 150), Tick("Default", 3195)},
          {{"CstCtr", "SELECT CstCtr, [Desc], [Default], UPPER(CstCtr) SortFld", "AND UPPER(CstCtr) LIKE '%"},
           {"Desc", "SELECT CstCtr, [Desc], [Default], UPPER([Desc]) SortFld", "AND UPPER([Desc]) LIKE '%"}},
          1,
          {"FROM CstCtr", "WHERE 0=0"}};
}

TDialogFacts CutLocations() {
  return {"cutting location",
          uPickCutLocations::TfrmPickCutLocations::Create,
          "T392",
          "T446",
          {Text("Desc", 30)},
          {Plain("Desc", 3156, 150)},
          {{"Desc", "SELECT [Desc], UPPER([Desc]) SortFld", "WHERE UPPER([Desc]) LIKE '%"}},
          0,
          {"FROM Location"}};
}

TDialogFacts Entity() {
  return {"entity",
          uPickEntity::TfrmPickEntity::Create,
          "T90",
          "T81",
          {Text("Entity", 4), Text("Desc", 50), Boolean("OEDefault")},
          {Plain("Entity", 3006), Plain("Desc", 3007, 150), Tick("OEDefault", 3195)},
          {{"Entity", "SELECT E.Entity, E.[Desc], E.OEDefault, UPPER(E.Entity) SortFld", "AND UPPER(E.Entity) LIKE '%"},
           {"Desc", "SELECT E.Entity, E.[Desc], E.OEDefault, UPPER(E.[Desc]) SortFld", "AND UPPER(E.[Desc]) LIKE '%"}},
          1,
          {"FROM Entity E", "WHERE 0=0"}};
}

TDialogFacts Finance() {
  return {"finance rate",
          uPickFinance::TfrmPickFinance::Create,
          "T406",
          "T407",
          {Float("Key"), Text("Name", 50), Float("Percent")},
          {Plain("Name", 3192, 150), Number("Percent", 3194)},
          {{"Name", "SELECT [Key], Name, Percent, UPPER(Name) SortFld", "AND UPPER(Name) LIKE '%"}},
          0,
          {"FROM FinanceRates"},
          "SortFld",
          false};
}

TDialogFacts GSTRate() {
  return {"GST rate",
          uPickGSTRate::TfrmPickGSTRate::Create,
          "T258",
          "T260",
          {Text("ID", 3), Text("TaxDesc", 15), Float("Rate")},
          {Plain("ID", 3127), Plain("TaxDesc", 3128), Number("Rate", 3129)},
          {{"ID", "SELECT g.ID, g.TaxDesc, g.Rate, UPPER(g.ID) SortFld", "AND UPPER(g.ID) LIKE '%"},
           {"TaxDesc", "SELECT g.ID, g.TaxDesc, g.Rate, UPPER(g.TaxDesc) SortFld", "AND UPPER(g.TaxDesc) LIKE '%"}},
          1,
          {"FROM GSTRates G", "WHERE 0=0"}};
}

TDialogFacts ItemCategory() {
  return {"item category",
          uPickItemCategory::TfrmPickItemCat::Create,
          "T518",
          "T519",
          {Text("CatID", 3), Text("Descript", 50)},
          {Plain("CatID", 3248), Plain("Descript", 3007, 124)},
          {{"CatID", "SELECT CatID, Descript, UPPER(CatID) SortFld", "AND UPPER(CatID) LIKE '%"},
           {"Descript", "SELECT CatID, Descript, UPPER(Descript) SortFld", "AND UPPER(Descript) LIKE '%"}},
          0,
          {"FROM ItemCat", "WHERE 0=0"}};
}

TDialogFacts ItemClass() {
  return {"item class",
          uPickItemClass::TfrmPickItemClass::Create,
          "T57",
          "T140",
          {Text("Class", 3), Text("ClassDesc", 20)},
          {Plain("Class", 3145), Plain("ClassDesc", 3007)},
          {{"Class", "SELECT Class, ClassDesc, UPPER(Class) SortFld", "AND UPPER(Class) LIKE '%"},
           {"ClassDesc", "SELECT Class, ClassDesc, UPPER(ClassDesc) SortFld", "AND UPPER(ClassDesc) LIKE '%"}},
          0,
          {"FROM ItemClass", "WHERE 0=0"}};
}

TDialogFacts ItemFactorPreset() {
  return {"item factor preset",
          uPickItemFactorPreset::TfrmPickItemFactorPreset::Create,
          "T523",
          "T524",
          {AutoInc("ID"), Text("Description", 50)},
          {Plain("Description", 3007)},
          {{"Description", "SELECT ID, Description, UPPER(Description) SortFLD", "AND UPPER(Description) LIKE '%"}},
          0,
          {"FROM ItemFactorPresets", "WHERE 0=0"},
          "SortFLD"};
}

TDialogFacts ItemPreset() {
  return {"item preset",
          uPickItemPreset::TfrmPickItemPreset::Create,
          "Item Preset",
          "Item Presets",
          {AutoInc("PresetID"), Text("Descript", 35)},
          {Plain("Descript", 3007)},
          {{"Descript", "SELECT PresetID, Descript, UPPER(Descript) SortFLD", "AND UPPER(Descript) LIKE '%"}},
          0,
          {"FROM Presets", "WHERE 0=0"}};
}

TDialogFacts Job() {
  return {"job",
          uPickJob::TfrmPickJob::Create,
          "T152",
          "T426",
          {Text("JobNo", 6), Text("Desc", 25)},
          {Number("JobNo", 3000), Plain("Desc", 3001, 150)},
          {{"JobNo", "SELECT j.JobNo, j.[Desc], UPPER(j.JobNo) SortFld", "WHERE UPPER(j.JobNo) LIKE '%"},
           {"Desc", "SELECT j.JobNo, j.[Desc], UPPER(j.[Desc]) SortFld", "WHERE UPPER(j.[Desc]) LIKE '%"}},
          1,
          {"FROM Jobs j"}};
}

TDialogFacts State() {
  return {"state",
          uPickState::TfrmPickState::Create,
          "T448",
          "T449",
          {Text("State", 5)},
          {Plain("State", 3223, 50)},
          {{"State", "SELECT State, UPPER(State) SortFld", "WHERE UPPER(State) LIKE '%"}},
          0,
          {"FROM State"}};
}

TDialogFacts Suburb() {
  return {"suburb",
          uPickSuburb::TfrmPickSuburb::Create,
          "T96",
          "T364",
          {Text("Suburb", 30)},
          {Plain("Suburb", 3200, 150)},
          {{"Suburb", "SELECT Suburb, UPPER(Suburb) SortFld", "WHERE UPPER(Suburb) LIKE '%"}},
          0,
          {"FROM Suburb"}};
}

TDialogFacts Terms() {
  return {"terms",
          uPickTerms::TfrmPickTerms::Create,
          "T67",
          "T67",
          {Text("Desc", 35), Boolean("Default")},
          {Plain("Desc", 3007, 150), Tick("Default", 3195)},
          {{"Desc", "SELECT [Desc], [Default], UPPER([Desc]) SortFld", "AND UPPER([Desc]) LIKE '%"}},
          0,
          {"FROM Terms"},
          "SortFld",
          false};
}

}  // namespace

const std::vector<TDialogFacts>& Dialogs() {
  static const std::vector<TDialogFacts> All{
      City(),      CostCenter(),       CutLocations(), Entity(), Finance(), GSTRate(), ItemCategory(),
      ItemClass(), ItemFactorPreset(), ItemPreset(),   Job(),    State(),   Suburb(),  Terms()};
  return All;
}

}  // namespace reference
