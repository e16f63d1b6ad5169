#include "picks/purchasing/uOEDocWithPO.h"

#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

namespace uOEDocWithPO {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoices;
using zulcommon::LoadZULResString;

TfrmPickOEDocWithPO::TfrmPickOEDocWithPO(TPOStates RequiredStates, TPOStates ExcludedStates, std::string CustID)
    : States_(RequiredStates, ExcludedStates), CustID_(std::move(CustID)) {
  Column(qryList_ID = TextField("ID", 6)).SetWidth(45).Align(TAlignment::taRightJustify);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(150);
  Column(qryList_Number = TextField("Number", 8)).SetWidth(60).Align(TAlignment::taRightJustify);
  Column(qryList_Type = TextField("Type", 1)).SetWidth(18).Align(TAlignment::taCenter);
  Column(qryList_SalesMan = TextField("SalesMan", 30)).SetWidth(150);
  Column(qryList_Date = DateField("Date")).Align(TAlignment::taCenter);
  SetCaption("Select Order Entry Document");
  SetAvailableCaption("Order Entry Documents");
}

void TfrmPickOEDocWithPO::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_ID, 3026},
             {qryList_Company, 3027},
             {qryList_Number, 3021},
             {qryList_Type, 3147},
             {qryList_SalesMan, 3082},
             {qryList_Date, 3002}});
  TPickChoices Choices;
  const bool ForCustomer = !zulcommon::Trim(CustID_).empty();
  if (ForCustomer) {
    RemoveColumn(qryList_ID, false);
    RemoveColumn(qryList_Company, false);
  } else {
    Choices.emplace_back(qryList_ID, "UPPER(O.ID) SortFld", Contains("AND UPPER(O.ID)"));
    Choices.emplace_back(qryList_Company, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)"));
  }
  Choices.emplace_back(qryList_Number, "UPPER(O.Number) SortFld", Contains("AND UPPER(O.Number)"));
  Choices.emplace_back(qryList_Type, LoadZULResString(3022), "UPPER(O.Type) SortFld", Contains("AND UPPER(O.Type)"));
  Choices.emplace_back(qryList_SalesMan, LoadZULResString(3025), "UPPER(O.SalesMan) SortFld",
                       Contains("AND UPPER(O.SalesMan)"));
  Choices.emplace_back(qryList_Date, R"(O."Date" SortFld)", OnDate(R"(AND O."Date")"));
  SetChoices(std::move(Choices), ForCustomer ? 0 : 1);
}

void TfrmPickOEDocWithPO::SetSQL() {
  OpenPlainly([this](TListQuery& Query) {
    Query.Select(R"(SELECT DISTINCT O.ID, C.Company, O.Number, O.Type, O.SalesMan, O."Date", )");
    Query.Add("FROM OE O INNER JOIN IP I ON O.Number = I.PONumber INNER JOIN Cust C ON O.ID = C.ID");
    Query.Add("WHERE O.Type IN ('I', 'O')");
    Query.Add("AND I.Type = 'P'");
    States_.AddTo(Query);
    Query.Find();
    Query.OrderBy();
  });
}

TOEDoc TfrmPickOEDocWithPO::GetOEDoc() const {
  return {qryList_Type->AsString(), qryList_Number->AsString()};
}

}  // namespace uOEDocWithPO
