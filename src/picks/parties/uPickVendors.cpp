#include "picks/parties/uPickVendors.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickVendors {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickVendors::TfrmPickVendors(TVendorWhat What) : What_(What) {
  Column(qryList_ID = TextField("ID", 6)).Align(TAlignment::taRightJustify);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(150);
  Column(qryList_Addr1 = TextField("Addr1", 35)).SetWidth(150);
  Column(qryList_Zip = TextField("Zip", 30));
  Column(qryList_Phone = TextField("Phone", 15));
  NarrowColumn(qryList_Contractor = BooleanField("Contractor"));
  NarrowColumn(qryList_Inactive = BooleanField("Inactive"));
  qryList_Contractor->SetDisplayLabel("C");
  qryList_Inactive->SetDisplayLabel("I");
  ckbInactive = AddFilterBox("ckbInactive", "Inactive");
}

void TfrmPickVendors::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels(
      {{qryList_ID, 3015}, {qryList_Company, 3016}, {qryList_Addr1, 3017}, {qryList_Zip, 3041}, {qryList_Phone, 3165}});
  SetChoices({{qryList_ID, "UPPER(V.ID) SortFld", Contains("AND UPPER(V.ID)")},
              {qryList_Company, "UPPER(V.Company) SortFld", Contains("AND UPPER(V.Company)")},
              {qryList_Addr1, "UPPER(V.Addr1) SortFld", Contains("AND UPPER(V.Addr1)")},
              {qryList_Zip, "UPPER(V.Zip) SortFld", Contains("AND UPPER(V.Zip)")},
              {qryList_Phone, "UPPER(V.Phone) SortFld", Contains("AND UPPER(V.Phone)")}},
             1);
  SetPickCaption(LoadZULResString(29));
  SetAvailableCaption(LoadZULResString(155));
}

void TfrmPickVendors::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT V.ID, V.Company, V.Addr1, V.Zip, V.Phone, V.Contractor, V.InActive, ");
    Query.Add("FROM Vend V");
    Query.Add("WHERE 0=0");
    if (!ckbInactive->isChecked()) Query.Add("AND V.InActive = FALSE");
    if (What_ == TVendorWhat::vwVend) Query.Add("AND V.Contractor = False");
    if (What_ == TVendorWhat::vwContractor) Query.Add("AND V.Contractor = True");
    if (What_ == TVendorWhat::vwVendNoSerice) Query.Add("AND V.Contractor = False AND V.Service = False");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickVendors::GetVendID() const {
  return qryList_ID->AsString();
}

bool CallVendorPick(ads::TAdsConnection* Connection, std::string& VendID, TVendorWhat What) {
  return pickbase::PickTextInOut(VendID, &TfrmPickVendors::GetVendID, Connection, What);
}

}  // namespace uPickVendors
