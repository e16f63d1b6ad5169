#include "picks/parties/uPickCustomer.h"

#include <QCheckBox>

#include "pickbase/PickCall.h"
#include "zulcommon/StringTable.h"

namespace uPickCustomer {

using ads::TFieldKind;
using ads::TFieldType;
using toolkit::TAlignment;
using uDocPickBase::Contains;
using uDocPickBase::TListQuery;
using zulcommon::LoadZULResString;

namespace {

constexpr int BalanceColumn = 4;

// What the Addr column shows, for sorting and searching: neither can name the column by its alias.
constexpr const char* UpperAddr =
    "UPPER(IIF((NOT C.Addr1 is null) AND (not c.Zip is null), Trim(C.Addr1) + ' - ' + c.Zip, "
    "IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1)))";

// Ordered by the address, the query has always had a second blank in its last condition.
constexpr const char* SelectByAddr =
    "SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), "
    "Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND  (not c.Zip is null), C.Zip, C.Addr1)) Addr, "
    "C.Phone, C.Inactive, ";

}  // namespace

TfrmPickCustomer::TfrmPickCustomer(TCustomerPickOptions Options) : Options_(std::move(Options)) {
  Column(qryList_ID = TextField("ID", 6)).Align(TAlignment::taRightJustify);
  Column(qryList_FirstName = TextField("FirstName", 35)).SetWidth(120);
  Column(qryList_Company = TextField("Company", 35)).SetWidth(150);
  Column(qryList_Addr = TextField("Addr", 52)).SetWidth(150);
  Column(qryList_Phone = TextField("Phone", 15)).Align(TAlignment::taLeftJustify);
  NarrowColumn(qryList_Inactive = BooleanField("Inactive"));
  CreateBalances();
  ckbBalance = AddCheckBox("ckbBalance", "Balances", [this] { ckbBalanceClick(); });
  ckbInactive = AddFilterBox("ckbInactive", "Inactive");
}

void TfrmPickCustomer::CreateBalances() {
  tblCustBal_ = new ads::TAdsTable(this);
  tblCustBal_->setObjectName(QStringLiteral("tblCustBal_"));
  tblCustBal_->SetTableName("CustBal");
  tblCustBal_->SetIndex("FK_CUSTID", "CustID");
  tblCustBal_CustID = tblCustBal_->AddField("CustID", TFieldType::ftString, 6);
  tblCustBal_Balance = tblCustBal_->AddField("Balance", TFieldType::ftFloat);
  tblCustBal_Credit = tblCustBal_->AddField("Credit", TFieldType::ftFloat);
  tblCustBal_Owed = tblCustBal_->AddField("Owed", TFieldType::ftFloat, 0, TFieldKind::fkCalculated);
  tblCustBal_->OnCalcFields = [this](ads::TDataSet&) { tblCustBal_CalcFields(); };
  qryList_Balance = qryList_->AddField("Balance", TFieldType::ftFloat, 0, TFieldKind::fkLookup);
  qryList_Balance->SetLookup(qryList_ID, tblCustBal_, tblCustBal_Owed);
}

void TfrmPickCustomer::tblCustBal_CalcFields() {
  tblCustBal_Owed->SetDifference(*tblCustBal_Balance, *tblCustBal_Credit);
}

void TfrmPickCustomer::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_ID, 3026},
             {qryList_FirstName, 3028},
             {qryList_Company, 3027},
             {qryList_Addr, 3043},
             {qryList_Phone, 3045},
             {qryList_Balance, 3076}});
  qryList_Inactive->SetDisplayLabel("I");
  qryList_Balance->SetDisplayFormat(",0.00");
  ckbInactive->setVisible(Options_.AllowInactive);
  ckbBalance->setChecked(Options_.ShowBalances);
  SetChoices(
      {{qryList_ID, "UPPER(C.ID) SortFld", Contains("AND UPPER(C.ID)")},
       {qryList_FirstName, "UPPER(C.FirstName) SortFld", Contains("AND UPPER(C.FirstName)")},
       {qryList_Company, "UPPER(C.Company) SortFld", Contains("AND UPPER(C.Company)")},
       {qryList_Addr, std::string(SelectByAddr) + UpperAddr + " SortFld", Contains(std::string("AND ") + UpperAddr)},
       {qryList_Phone, "UPPER(C.Phone) SortFld", Contains("AND UPPER(C.Phone)")}},
      2);
  SetPickCaption(LoadZULResString(27));
  SetAvailableCaption(LoadZULResString(52));
}

void TfrmPickCustomer::SetSQL() {
  OpenGuarded([this](TListQuery& Query) {
    Query.Select(
        "SELECT C.ID, C.FirstName, C.Company, IIF((NOT C.Addr1 is null) AND (not c.Zip is null), "
        "Trim(C.Addr1) + ' - ' + c.Zip, IIF((C.Addr1 is null) AND (not c.Zip is null), C.Zip, C.Addr1)) Addr, "
        "C.Phone, C.Inactive, ");
    Query.Add("FROM Cust C");
    Query.Add("WHERE 0=0");
    if (!ckbInactive->isChecked()) Query.Add("AND C.Inactive = False");
    if (Options_.FilterByEntity && !Options_.Entity.empty())
      Query.Add("AND C.Entity = '" + Query.Passed(Options_.Entity) + "'");
    Query.Keep();
    Query.Find();
    Query.OrderBy();
  });
}

void TfrmPickCustomer::ckbBalanceClick() {
  toolkit::TColumn& Column = *dbgAvail->Columns()[BalanceColumn];
  const int Width = Column.Width();
  if (ckbBalance->isChecked()) {
    Column.SetField(qryList_Balance).Align(TAlignment::taRightJustify);
  } else {
    Column.SetField(qryList_Phone).Align(TAlignment::taLeftJustify);
  }
  Column.SetWidth(Width);
}

std::string TfrmPickCustomer::GetCustID() const {
  return qryList_ID->AsString();
}

bool CallCustomerPick(ads::TAdsConnection* Connection, std::string& CustID, bool FilterByEntity,
                      const std::string& Entity, bool AllowInactive, bool /*ShowBalances*/) {
  return pickbase::PickTextInOut(CustID, &TfrmPickCustomer::GetCustID, Connection, FilterByEntity, Entity,
                                 AllowInactive, false);
}

}  // namespace uPickCustomer
