#include "picks/reference/uPeriodPickBase.h"

namespace uPeriodPickBase {

using toolkit::TAlignment;

TPeriodPickBase::TPeriodPickBase() {
  Column(qryList_Period = TextField("Period", 4));
  Column(qryList_Start = DateField("Start")).Align(TAlignment::taCenter);
  Column(qryList_End = DateField("End")).Align(TAlignment::taCenter);
}

TPeriodPickBase::~TPeriodPickBase() = default;

void TPeriodPickBase::SetUpColumns() {
  TDocPickBase::SetUpColumns();
  SetLabels({{qryList_Period, 3054}, {qryList_Start, 3055}, {qryList_End, 3056}});
}

std::string TPeriodPickBase::GetPeriod() const {
  return qryList_Period->AsString();
}

}  // namespace uPeriodPickBase
