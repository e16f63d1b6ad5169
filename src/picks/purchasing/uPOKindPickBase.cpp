#include "picks/purchasing/uPOKindPickBase.h"

namespace uPOKindPickBase {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;

TPOKindPickBase::TPOKindPickBase(TPOStates RequiredStates, TPOStates ExcludedStates, std::string KindLine)
    : States_(RequiredStates, ExcludedStates), KindLine_(std::move(KindLine)) {
  Column(qryList_Number = TextField("Number", 10)).SetWidth(55).Align(TAlignment::taRightJustify);
  Column(qryList_Date = DateField("Date")).Align(TAlignment::taCenter);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(150);
}

TPOKindPickBase::~TPOKindPickBase() = default;

void TPOKindPickBase::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Number, 3035}, {qryList_Date, 3002}, {qryList_Company, 3016}});
  SetChoices({{qryList_Number, "UPPER(I.Number) SortFld", Contains("AND UPPER(I.Number)")},
              {qryList_Date, R"(I."Date" SortFld)", OnDate(R"(AND I."Date")")},
              {qryList_Company, "UPPER(V.Company) SortFld", Contains("AND UPPER(V.Company)")}},
             2);
}

void TPOKindPickBase::SetSQL() {
  OpenPlainly([this](TListQuery& Query) {
    Query.Select(R"(SELECT I.Number, I."Date", V.Company, )");
    Query.Add("FROM IP I INNER JOIN Vend V ON (I.ID = V.ID)");
    Query.Add(KindLine_);
    States_.AddTo(Query);
    Query.Find();
    Query.OrderBy();
  });
}

std::string TPOKindPickBase::GetPurchaseOrder() const {
  return qryList_Number->AsString();
}

}  // namespace uPOKindPickBase
