#include "picks/parties/uPickCustContactEmails.h"

#include "pickbase/PickCall.h"

namespace uPickCustContactEmails {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoices;

TfrmDocPickCustEmails::TfrmDocPickCustEmails(bool ForCustomers) : ForCustomers_(ForCustomers) {
  Column(qryList_ID = TextField("ID", 6)).Align(TAlignment::taRightJustify);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(150);
  Column(qryList_Contact = TextField("Contact", 30)).SetWidth(150);
  Column(qryList_Email = TextField("Email", 40)).SetWidth(200);
}

void TfrmDocPickCustEmails::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_ID, 3119}, {qryList_Company, 3121}, {qryList_Contact, 3163}, {qryList_Email, 3029}});
  SetChoices({{qryList_ID, "UPPER(C.ID) SortFld", Contains("AND UPPER(C.ID)")},
              {qryList_Company, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")},
              {qryList_Contact, "UPPER(C.Contact) SortFld", Contains("AND UPPER(C.Contact)")}},
             1);
  SetPickCaption(ForCustomers_ ? "Customer Email Address" : OwnText("ProspectPickCaption", "Prospect Email Address"));
  SetAvailableCaption(ForCustomers_ ? "Customer Email Addresses"
                                    : OwnText("ProspectAvailableCaption", "Prospect Email Addresses"));
}

TPickChoices TfrmDocPickCustEmails::ContactChoices() const {
  const std::string ID = ForCustomers_ ? "UPPER(T.ID)" : "UPPER(T.ProspectID)";
  return {{qryList_ID, ID + " SortFld", Contains("AND " + ID)},
          {qryList_Company, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")},
          {qryList_Contact, "UPPER(T.Contact) SortFld", Contains("AND UPPER(T.Contact)")}};
}

void TfrmDocPickCustEmails::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select("SELECT C.ID, C.Company, C.Contact, C.Email, ");
    Query.Add(ForCustomers_ ? "FROM Cust C" : "FROM Prospect C");
    Query.Add("WHERE 0=0");
    Query.Add("AND C.Email <> ''");
    Query.Find();
    Query.Add("UNION ALL");
    const TPickChoices Contacts = ContactChoices();
    Query.Select(ForCustomers_ ? "SELECT T.ID, C.Company, T.Contact, T.Email, "
                               : "SELECT T.ProspectID, C.Company, T.Contact, T.Email, ",
                 Contacts);
    Query.Add(ForCustomers_ ? "FROM Contact T INNER JOIN Cust C ON T.ID = C.ID"
                            : "FROM Contact T INNER JOIN Prospect C ON T.ProspectID = C.ID");
    Query.Add("WHERE 0=0");
    Query.Add("AND T.Email <> ''");
    Query.Add(ForCustomers_ ? "AND T.ID IS NOT NULL" : "AND T.ProspectID IS NOT NULL");
    Query.Find(Contacts);
    Query.OrderBy();
  });
}

std::string TfrmDocPickCustEmails::GetEmailAddress() const {
  return qryList_Email->AsString();
}

bool CallPickCustomerEmailAddress(ads::TAdsConnection* Connection, std::string& Email) {
  return pickbase::PickText(Email, &TfrmDocPickCustEmails::GetEmailAddress, Connection, true);
}

bool CallPickProspectEmailAddress(ads::TAdsConnection* Connection, std::string& Email) {
  return pickbase::PickText(Email, &TfrmDocPickCustEmails::GetEmailAddress, Connection, false);
}

}  // namespace uPickCustContactEmails
