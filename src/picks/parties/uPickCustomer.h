#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickCustomer {

/// What a customer pick lists and how it starts.
struct TCustomerPickOptions {
  bool FilterByEntity = false;  ///< only the customers of `Entity`, unless that is empty
  std::string Entity;           ///< goes into the query as it is
  bool AllowInactive = false;   ///< whether the user may have inactive customers listed
  bool ShowBalances = false;    ///< whether the list starts with the balances
};

/// Lists the customers. A box shows what each of them owes in place of the phone number.
class ZULPICKLISTS_EXPORT TfrmPickCustomer : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  static std::unique_ptr<TfrmPickCustomer> Create(ads::TAdsConnection* Connection, bool FilterByEntity,
                                                  const std::string& Entity, bool AllowInactive, bool ShowBalances) {
    return Construct<TfrmPickCustomer>(Connection,
                                       TCustomerPickOptions{FilterByEntity, Entity, AllowInactive, ShowBalances});
  }
  std::string GetCustID() const;
  void SetUpColumns() override;
  void SetSQL() override;

  /// Shows the balance or the phone number in the fifth column, as the box says. The query stays as it is.
  void ckbBalanceClick();
  void tblCustBal_CalcFields();

  ads::TField* qryList_ID;
  ads::TField* qryList_FirstName;
  ads::TField* qryList_Company;
  ads::TField* qryList_Addr;
  ads::TField* qryList_Phone;
  ads::TField* qryList_Inactive;
  ads::TField* qryList_Balance;
  ads::TAdsTable* tblCustBal_;
  ads::TField* tblCustBal_CustID;
  ads::TField* tblCustBal_Balance;
  ads::TField* tblCustBal_Credit;
  ads::TField* tblCustBal_Owed;
  QCheckBox* ckbBalance;
  QCheckBox* ckbInactive;

 private:
  friend class TDocPickBase;
  explicit TfrmPickCustomer(TCustomerPickOptions Options);
  void CreateBalances();

  TCustomerPickOptions Options_;
};

/// Lets the user pick a customer; the code goes to `CustID`, which stays as it is when none was picked.
///
/// With `FilterByEntity` only the customers of `Entity` are listed, unless that is empty; with `AllowInactive` the user
/// may have inactive ones listed, too. The list always starts without balances: the last argument is there for hosts
/// that pass one.
ZULPICKLISTS_EXPORT bool CallCustomerPick(ads::TAdsConnection* Connection, std::string& CustID, bool FilterByEntity,
                                          const std::string& Entity, bool AllowInactive, bool ShowBalances);

}  // namespace uPickCustomer
