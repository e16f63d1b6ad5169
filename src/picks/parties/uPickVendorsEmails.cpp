#include "picks/parties/uPickVendorsEmails.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickVendorsEmails {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

TfrmPickVendorsEmail::TfrmPickVendorsEmail() {
  Column(qryList_ID = TextField("ID", 6)).Align(TAlignment::taRightJustify);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(150);
  Column(qryList_Email = TextField("Email", 40)).SetWidth(150);
  NarrowColumn(qryList_Contractor = BooleanField("Contractor"));
  NarrowColumn(qryList_Inactive = BooleanField("Inactive"));
  qryList_Contractor->SetDisplayLabel("C");
  qryList_Inactive->SetDisplayLabel("I");
  ckbInactive = AddFilterBox("ckbInactive", "Inactive");
}

void TfrmPickVendorsEmail::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_ID, 3015}, {qryList_Company, 3016}, {qryList_Email, 3030}});
  SetChoices({{qryList_ID, "UPPER(V.ID) SortFld", Contains("AND UPPER(V.ID)")},
              {qryList_Company, "UPPER(V.Company) SortFld", Contains("AND UPPER(V.Company)")},
              {qryList_Email, "UPPER(V.Email) SortFld", Contains("AND UPPER(V.Email)")}},
             1);
  SetPickCaption(LoadZULResString(29));
  SetAvailableCaption(LoadZULResString(155));
}

void TfrmPickVendorsEmail::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT V.ID, V.Company, V.Email, V.Contractor, V.InActive, ");
    Query.Add("FROM Vend V");
    Query.Add("WHERE 0=0");
    if (!ckbInactive->isChecked()) Query.Add("AND V.InActive = FALSE");
    Query.Add("AND V.Email <> ''");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickVendorsEmail::GetEmailAddress() const {
  return qryList_Email->AsString();
}

bool CallVendorEmailsPick(ads::TAdsConnection* Connection, std::string& Email) {
  return pickbase::PickTextInOut(Email, &TfrmPickVendorsEmail::GetEmailAddress, Connection);
}

}  // namespace uPickVendorsEmails
