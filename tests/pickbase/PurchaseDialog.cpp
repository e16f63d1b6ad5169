#include "PurchaseDialog.h"

using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::OnNumber;
using uDocPickBase::OnTypedInteger;
using uDocPickBase::OnTypedNumber;
using uDocPickBase::TListQuery;

TPurchaseDialog::TPurchaseDialog(TGroups Groups) : Groups_(Groups) {
  Column(qryList_Number = TextField("Number", 10)).SetWidth(70);
  Column(qryList_Date = DateField("Date")).SetWidth(60);
  Column(qryList_Cost = FloatField("Cost")).SetWidth(80);
  NarrowColumn(qryList_Posted = BooleanField("Posted"));
  tblCust_ = new ads::TAdsTable(this);
  tblCust_->setObjectName("tblCust_");
}

void TPurchaseDialog::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  const int Before = Queries;
  SetPickCaption("Order");
  SetAvailableCaption("Orders");
  SetLabels({{qryList_Date, 3002}, {qryList_Cost, 3011}});
  SetChoices({{qryList_Number, "UPPER(Number) SortFld", Contains("AND UPPER(Number)")},
              {qryList_Date, "[Date] SortFld", OnDate("AND [Date]")},
              {qryList_Cost, "Cost SortFld", OnNumber("AND Cost")},
              {"Cost typed", "Cost SortFld", OnTypedNumber("AND Cost")},
              {"Cost whole", "Cost SortFld", OnTypedInteger("AND Cost")},
              {"Nowhere", "Cost SortFld", Contains("AND UPPER(NoSuchColumn)")}},
             ByNumber);
  if (Groups_ == TGroups::OrderOnly || Groups_ == TGroups::None) rgFindBy->Items().Clear();
  if (Groups_ == TGroups::FindOnly || Groups_ == TGroups::None) rgOrderBy->Items().Clear();
  rgOrderBy->SetItemIndex(ByDate);
  ckbDesc->setChecked(true);
  ckbDesc->setChecked(false);
  rgOrderBy->SetItemIndex(ByNumber);
  QueriesInSetup = Queries - Before;
}

void TPurchaseDialog::SetSQL() {
  ++Queries;
  // A copy: it may take itself away.
  if (const auto Call = InSetSQL) Call();
  const auto Recipe = [this](TListQuery& Query) {
    if (rgOrderBy->Items().Count() > 0) {
      Query.Select("SELECT " + NumberColumn + ", [Date], Cost, Posted, ");
    } else {
      Query.Add("SELECT " + NumberColumn + ", [Date], Cost, Posted, 0 SortFld");
    }
    Query.Add("FROM IP");
    Query.Add("WHERE 0=0");
    if (!PassedNumber.empty()) Query.Add("AND Number = '" + Query.Passed(PassedNumber) + "'");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  };
  if (Plainly) {
    OpenPlainly(Recipe);
  } else {
    OpenGuarded(Recipe);
  }
}
