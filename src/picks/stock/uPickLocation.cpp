#include "picks/stock/uPickLocation.h"

#include <QLineEdit>

#include "pickbase/PickCall.h"
#include "toolkit/EventGuard.h"
#include "toolkit/Formats.h"
#include "zulcommon/StringTable.h"

namespace uPickLocation {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnTypedInteger;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

namespace {

constexpr int FindByID = 0;
constexpr int NoNumberText = 6097;

}  // namespace

TfrmPickLocation::TfrmPickLocation(std::string Item) : Item_(std::move(Item)) {
  Column(qryList_ID = AutoIncField("ID")).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_ShortName = TextField("ShortName", 5)).SetWidth(50);
  Column(qryList_FullName = TextField("FullName", 50)).SetWidth(120);
}

void TfrmPickLocation::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_ID, 3119}, {qryList_ShortName, 3131}, {qryList_FullName, 3247}});
  SetChoices({{qryList_ID, "l.ID SortFld", OnTypedInteger("AND l.ID")},
              {qryList_ShortName, "UPPER(l.ShortName) SortFld", Contains("AND UPPER(l.ShortName)")},
              {qryList_FullName, "UPPER(l.FullName) SortFld", Contains("AND UPPER(l.FullName)")}},
             2);
  SetPickCaption(LoadZULResString(516));
  SetAvailableCaption(LoadZULResString(517));
}

// A text that is no whole number is told of and never searched for: the whole list comes up.
void TfrmPickLocation::SetSQL() {
  const auto Recipe = [this](TListQuery& Query) {
    Query.Select("SELECT l.ID, l.ShortName, l.FullName, ");
    Query.Add("FROM ItemLocations l");
    if (Item_.empty()) {
      Query.Add("WHERE 0=0");
    } else {
      Query.Add(" INNER JOIN ItemDet d ON l.ID = d.ItemLoc");
      Query.Add("WHERE d.Item = '" + Query.Passed(Item_) + "'");
    }
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  };
  if (!IsWrongNumber()) return OpenGuarded(Recipe);
  TellOfWrongNumber();
  OpenWithoutFind(Recipe, LoadZULResString(NoNumberText));
}

bool TfrmPickLocation::IsWrongNumber() const {
  return HasFindText() && rgFindBy->ItemIndex() == FindByID && !toolkit::ReadInteger(toolkit::PlainNumber(TypedText()));
}

void TfrmPickLocation::TellOfWrongNumber() {
  toolkit::ShowError(this, LoadZULResString(NoNumberText));
  edFind->selectAll();
  edFind->setFocus();
}

std::int32_t TfrmPickLocation::GetLocation() const {
  return qryList_ID->AsInteger();
}

bool CallPickLocation(ads::TAdsConnection* Connection, std::int32_t& Location, const std::string& Item) {
  return pickbase::PickInteger(Location, &TfrmPickLocation::GetLocation, Connection, Item);
}

}  // namespace uPickLocation
