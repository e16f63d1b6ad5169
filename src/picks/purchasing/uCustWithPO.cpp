#include "picks/purchasing/uCustWithPO.h"

namespace uCustWithPO {

using uDocPickBase::Contains;
using uDocPickBase::TListQuery;

TfrmPickCustWithPO::TfrmPickCustWithPO(TPOStates RequiredStates, TPOStates ExcludedStates)
    : States_(RequiredStates, ExcludedStates) {
  Column(qryList_CustID = TextField("CustID", 6)).SetWidth(45).Align(toolkit::TAlignment::taRightJustify);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(130);
  Column(qryList_Addr1 = TextField("Addr1", 35)).SetWidth(130);
  Column(qryList_Phone = TextField("Phone", 15)).SetWidth(91);
  SetCaption("Select Customer");
  SetAvailableCaption("Customers");
}

void TfrmPickCustWithPO::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_CustID, 3026}, {qryList_Company, 3027}, {qryList_Addr1, 3043}, {qryList_Phone, 3045}});
  SetChoices({{qryList_CustID, "UPPER(I.CustID) SortFld", Contains("AND UPPER(I.CustID)")},
              {qryList_Company, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")},
              {qryList_Addr1, "UPPER(C.Addr1) SortFld", Contains("AND UPPER(C.Addr1)")},
              {qryList_Phone, "UPPER(C.Phone) SortFld", Contains("AND UPPER(C.Phone)")}},
             1);
}

void TfrmPickCustWithPO::SetSQL() {
  OpenPlainly([this](TListQuery& Query) {
    Query.Select("SELECT DISTINCT I.CustID, C.Company, C.Addr1, C.Phone, ");
    Query.Add("FROM IP I INNER JOIN Cust C ON (I.CustID = C.ID)");
    Query.Add("WHERE I.Type = 'P'");
    States_.AddTo(Query);
    Query.Find();
    Query.OrderBy();
  });
}

std::string TfrmPickCustWithPO::GetCustomerNo() const {
  return qryList_CustID->AsString();
}

}  // namespace uCustWithPO
