#pragma once

#include <string>

#include "pickbase/uDocPickBase.h"
#include "picks/purchasing/POStates.h"

namespace uPOKindPickBase {

using uPickListTypes::TPOStates;

/// What the picks of purchase orders without a customer have in common: all but the kind of order that they list.
class ZULPICKLISTS_EXPORT TPOKindPickBase : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  ~TPOKindPickBase() override;

  std::string GetPurchaseOrder() const;
  void SetUpColumns() override;
  void SetSQL() override;

  ads::TField* qryList_Number;
  ads::TField* qryList_Date;
  ads::TField* qryList_Company;

 protected:
  /// `KindLine` is the line of the query that chooses the kind.
  TPOKindPickBase(TPOStates RequiredStates, TPOStates ExcludedStates, std::string KindLine);

 private:
  purchasing::TPOStateFilter States_;
  std::string KindLine_;
};

}  // namespace uPOKindPickBase
