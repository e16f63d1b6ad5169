#include "picks/stock/uPickItemCost.h"

#include "pickbase/PickCall.h"
#include "toolkit/Formats.h"
#include "zulcommon/StringTable.h"

namespace uPickItemCost {

using toolkit::TAlignment;
using uDocPickBase::OnDate;
using uDocPickBase::OnTypedNumber;
using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoice;
using uDocPickBase::TPickChoices;
using uDocPickBase::Whole;

TfrmPickItemCost::TfrmPickItemCost(std::string Item) : Item_(std::move(Item)) {
  qryList_Key = AutoIncField("Key");
  qryList_Date = DateField("Date");
  qryList_Qty = FloatField("Qty");
  qryList_UnitCost = FloatField("UnitCost");
  qryList_UnitBuff = FloatField("UnitBuff");
  qryList_ShortName = TextField("ShortName", 5);
  Column(qryList_ShortName);
  Column(qryList_Date).Align(TAlignment::taCenter);
  Column(qryList_Qty).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_UnitCost).SetTitleAlignment(TAlignment::taRightJustify);
  Column(qryList_UnitBuff).SetTitleAlignment(TAlignment::taRightJustify);
}

void TfrmPickItemCost::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Date, 3002},
             {qryList_Qty, 3087},
             {qryList_UnitCost, 3234},
             {qryList_UnitBuff, 3233},
             {qryList_ShortName, 3131}});
  qryList_Date->SetDisplayFormat(toolkit::ShortDateFormat());
  qryList_Qty->SetDisplayFormat(QtyFormat);
  qryList_UnitCost->SetDisplayFormat(PriceFormat);
  qryList_UnitBuff->SetDisplayFormat(PriceFormat);
  TPickChoices Choices{{qryList_Date, "I.[Date] SortFld", OnDate("AND I.[Date]")},
                       {qryList_Qty, "I.Qty SortFld", OnTypedNumber("AND I.Qty")},
                       {qryList_UnitCost, "I.UnitCost SortFld", OnTypedNumber("AND I.UnitCost")},
                       {qryList_UnitBuff, "I.UnitBuff SortFld", OnTypedNumber("AND I.UnitBuff")}};
  if (MultiLoc) {
    Choices.insert(Choices.begin(), {qryList_ShortName, "UPPER(l.ShortName) SortFld", Whole("AND UPPER(l.ShortName)")});
  }
  SetChoices(Choices, 0);
  SetAvailableCaption("Item Costs");
  SetPickCaption("Item Cost");
  if (!MultiLoc) RemoveColumn(qryList_ShortName, true);
}

void TfrmPickItemCost::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT I.[Key], I.[Date], I.Qty, I.UnitCost, I.UnitBuff, l.ShortName, ");
    Query.Add("FROM ItemCost I");
    Query.Add("  LEFT OUTER JOIN ItemLocations l ON i.ItemLoc=l.ID");
    Query.Add("WHERE Item = '" + Query.Passed(Item_) + "'");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::int32_t TfrmPickItemCost::GetKey() const {
  return qryList_Key->AsInteger();
}

bool CallPickItemCost(ads::TAdsConnection* Connection, const std::string& Item, std::int32_t& Key) {
  return pickbase::PickInteger(Key, &TfrmPickItemCost::GetKey, Connection, Item);
}

}  // namespace uPickItemCost
