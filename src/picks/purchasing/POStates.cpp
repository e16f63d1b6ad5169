#include "picks/purchasing/POStates.h"

#include <array>

namespace purchasing {

using uPickListTypes::TPOState;
using uPickListTypes::TPOStates;

namespace {

struct TStateFlag {
  TPOState State;
  const char* Column;
  bool Value;
};

constexpr std::array StateFlags{
    TStateFlag{TPOState::poUnposted, "I.Posted", false},    TStateFlag{TPOState::poPosted, "I.Posted", true},
    TStateFlag{TPOState::poReceipted, "I.POReceipt", true}, TStateFlag{TPOState::poClosed, "I.Closed", true},
    TStateFlag{TPOState::poPaid, "I.APDocket", true},       TStateFlag{TPOState::poCancelled, "I.Canceled", true},
};

void AddConditions(uDocPickBase::TListQuery& Query, TPOStates States, bool InState) {
  for (const TStateFlag& Flag : StateFlags) {
    if (!States.Contains(Flag.State)) continue;
    Query.Add(std::string("AND ") + Flag.Column + (Flag.Value == InState ? " = True" : " = False"));
  }
}

}  // namespace

void TPOStateFilter::AddTo(uDocPickBase::TListQuery& Query) const {
  AddConditions(Query, Required_, true);
  AddConditions(Query, Excluded_, false);
}

int StatePicture(const TPOFlags& Flags) {
  if (Flags.Cancelled) return 4;
  if (Flags.Paid) return 3;
  if (Flags.Receipted) return Flags.Closed ? 2 : 5;
  return Flags.Posted ? 1 : 0;
}

int TypePicture(const std::string& Type) {
  if (Type == "P") return 1;
  if (Type == "M") return 2;
  return 0;
}

}  // namespace purchasing
