#pragma once

#include <memory>
#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPickSalesPerson {

/// Lists the current sales people.
class ZULPICKLISTS_EXPORT TfrmPickSalesPerson : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  /// Where the system keeps several accounts, only the sales people of `Entity` are listed, unless it is empty. It goes
  /// into the query as it is.
  static std::unique_ptr<TfrmPickSalesPerson> Create(ads::TAdsConnection* Connection, const std::string& Entity) {
    return Construct<TfrmPickSalesPerson>(Connection, Entity);
  }
  std::string GetSalesPerson() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_SalesMan;
  ads::TField* qryList_Department;
  ads::TField* qryList_Title;

 private:
  friend class TDocPickBase;
  explicit TfrmPickSalesPerson(std::string Entity);

  std::string Entity_;
};

/// Lets the user pick a sales person (of an entity: see `TfrmPickSalesPerson::Create`); the name goes to `SalesPerson`,
/// which is empty when none was picked.
ZULPICKLISTS_EXPORT bool CallPickSalesPerson(ads::TAdsConnection* Connection, std::string& SalesPerson,
                                             const std::string& Entity);

}  // namespace uPickSalesPerson
