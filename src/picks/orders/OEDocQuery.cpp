#include "picks/orders/OEDocQuery.h"

#include <array>

#include "toolkit/Formats.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

namespace OEDocQuery {

using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::OnDate;
using uDocPickBase::TListQuery;
using uDocPickBase::TPickChoices;
using zulcommon::LoadZULResString;

namespace {

// The columns behind the document options, by bit.
constexpr std::array<const char*, 4> OptionColumns = {"O.StockReturned", "O.Internal", "O.StockTrans", "o.Posted"};

void AddOptions(TListQuery& Query, std::uint32_t Options, const std::string& Wanted) {
  for (std::size_t Bit = 0; Bit < OptionColumns.size(); ++Bit) {
    if ((Options >> Bit & 1) != 0) Query.Add(std::string("AND ") + OptionColumns[Bit] + " = " + Wanted);
  }
}

}  // namespace

template <typename TBase>
TOEDocPick<TBase>::TOEDocPick(TOEDocFilter Filter) : Filter_(std::move(Filter)) {
  this->Column(qryList_Type = this->TextField("Type", 1)).Align(TAlignment::taCenter);
  this->Column(qryList_ID = this->TextField("ID", 6));
  this->Column(qryList_Company = this->TextField("Company", 35));
  this->Column(qryList_JobNo = this->TextField("JobNo", 6)).Align(TAlignment::taRightJustify);
  this->Column(qryList_Desc = this->TextField("Desc", 25));
  this->Column(qryList_Number = this->TextField("Number", 8)).Align(TAlignment::taRightJustify);
  this->Column(qryList_Total = this->FloatField("Total")).SetTitleAlignment(TAlignment::taRightJustify);
  this->Column(qryList_Date = this->DateField("Date")).Align(TAlignment::taCenter);
  this->NarrowColumn(qryList_Posted = this->BooleanField("Posted"));
}

template <typename TBase>
bool TOEDocPick<TBase>::HasCustomer() const {
  return !zulcommon::Trim(Filter_.CustomerID).empty();
}

template <typename TBase>
TPickChoices TOEDocPick<TBase>::AllChoices() const {
  return {{qryList_Company, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")},
          {qryList_Type, "UPPER(O.Type) SortFld", Contains("AND UPPER(O.Type)")},
          {qryList_JobNo, "UPPER(O.JobNo) SortFld", Contains("AND UPPER(O.JobNo)")},
          {qryList_Desc, "UPPER(J.[Desc]) SortFld", Contains("AND UPPER(J.[Desc])")},
          {qryList_Number, "UPPER(O.Number) SortFld", Contains("AND UPPER(O.Number)")},
          {qryList_Date, "O.[Date] SortFld", OnDate("AND O.[Date]")}};
}

template <typename TBase>
void TOEDocPick<TBase>::SetUpColumns() {
  TBase::SetUpColumns();
  this->SetAvailableCaption(LoadZULResString(94));
  this->SetPickCaption(LoadZULResString(575));
  this->SetLabels({{qryList_Type, 3147},
                   {qryList_ID, 3026},
                   {qryList_Company, 3027},
                   {qryList_JobNo, 3000},
                   {qryList_Desc, 3001},
                   {qryList_Number, 3021},
                   {qryList_Total, 3023},
                   {qryList_Date, 3002},
                   {qryList_Posted, 3072}});
  qryList_Total->SetDisplayFormat(this->PriceFormat);
  qryList_Date->SetDisplayFormat(toolkit::ShortDateFormat());

  TPickChoices Offered = AllChoices();
  if (HasCustomer()) Offered.erase(Offered.begin());
  const int Number = static_cast<int>(Offered.size()) - 2;
  this->SetChoices(std::move(Offered), Number);
  // A code of blanks chooses no customer, but it takes the columns away.
  if (CustomerID().empty()) return;
  this->RemoveColumn(qryList_ID, false);
  this->RemoveColumn(qryList_Company, true);
}

template <typename TBase>
void TOEDocPick<TBase>::SetSQL() {
  this->OpenGuarded([this](TListQuery& Query) {
    Query.Select(Columns);
    Query.Add(Tables);
    Query.Add("WHERE 0=0");
    AddFilter(Query);
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

template <typename TBase>
void TOEDocPick<TBase>::AddFilter(TListQuery& Query) const {
  Query.Add("AND O.Type IN (" + zulcommon::GetDocTypeList(Filter_.DocTypes) + ")");
  if (HasCustomer()) Query.Add("AND o.ID = '" + Query.Passed(CustomerID()) + "'");
  AddOptions(Query, Filter_.Required, "TRUE");
  AddOptions(Query, Filter_.Excluded, "FALSE");
}

template class TOEDocPick<uDocPickBase::TDocPickBase>;
template class TOEDocPick<uDocPickMultiBase::TDocPickMultiBase>;

}  // namespace OEDocQuery
