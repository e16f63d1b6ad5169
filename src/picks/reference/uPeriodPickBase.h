#pragma once

#include <string>

#include "pickbase/uDocPickBase.h"

namespace uPeriodPickBase {

/// What the picks of an accounting period have in common: the columns, which are the period's code, its first and its
/// last day, and their labels. A descendant sets captions and choices and says where the periods come from.
class ZULPICKLISTS_EXPORT TPeriodPickBase : public uDocPickBase::TDocPickBase {
  Q_OBJECT
 public:
  ~TPeriodPickBase() override;

  std::string GetPeriod() const;
  void SetUpColumns() override;

  ads::TField* qryList_Period;
  ads::TField* qryList_Start;
  ads::TField* qryList_End;

 protected:
  TPeriodPickBase();
};

}  // namespace uPeriodPickBase
