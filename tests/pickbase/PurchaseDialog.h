#pragma once

#include <functional>
#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

/// A dialog over the purchase orders that has one choice of each kind which the base dialog checks, and tells what
/// happens in it.
class TPurchaseDialog : public uDocPickBase::TDocPickBase {
 public:
  enum class TGroups { Both, FindOnly, OrderOnly, None };

  static std::unique_ptr<TPurchaseDialog> Create(ads::TAdsConnection* Connection, TGroups Groups = TGroups::Both) {
    return Construct<TPurchaseDialog>(Connection, Groups);
  }
  explicit TPurchaseDialog(TGroups Groups);
  void SetUpColumns() override;
  void SetSQL() override;

  using TDocPickBase::AddCheckBox;
  using TDocPickBase::AddFilterBox;
  using TDocPickBase::SetChoices;

  // The choices, by position.
  enum { ByNumber, ByDate, ByCost, ByTypedCost, ByTypedInteger, ByNoColumn };

  ads::TField* qryList_Number;
  ads::TField* qryList_Date;
  ads::TField* qryList_Cost;
  ads::TField* qryList_Posted;
  /// A table of its own, closed.
  ads::TAdsTable* tblCust_;

  int Queries = 0;                      ///< how often `SetSQL` was called
  int QueriesInSetup = 0;               ///< of these, while `SetUpColumns` ran
  int QueriesWhenCreated = 0;           ///< when the closing steps of its creation ran
  bool Plainly = false;                 ///< opens without the second try
  std::string NumberColumn = "Number";  ///< what the query gives as the number
  std::string PassedNumber;             ///< a number that the query asks for as a caller passed it, unless it is empty
  std::function<void()> InSetSQL;       ///< called first in `SetSQL`

 protected:
  void AfterCreate() override { QueriesWhenCreated = Queries; }

 private:
  TGroups Groups_;
};
