#pragma once

#include <string>

#include "frame/uPickListTypes.h"
#include "pickbase/ListQuery.h"

/// What the purchase-order picks have in common.
namespace purchasing {

/// Limits a list of purchase orders to those that are in every required state and in none of the excluded ones.
/// Required states that exclude each other, and a state that is required and excluded, leave no order.
class ZULPICKLISTS_EXPORT TPOStateFilter {
 public:
  TPOStateFilter(uPickListTypes::TPOStates Required, uPickListTypes::TPOStates Excluded)
      : Required_(Required), Excluded_(Excluded) {}

  /// Adds the conditions, a line each, to a query that calls the table of purchase orders I: the required states first,
  /// then the excluded ones.
  void AddTo(uDocPickBase::TListQuery& Query) const;

 private:
  uPickListTypes::TPOStates Required_;
  uPickListTypes::TPOStates Excluded_;
};

/// The flags of a purchase order.
struct TPOFlags {
  bool Posted = false;
  bool Closed = false;
  bool Receipted = false;
  bool Cancelled = false;
  bool Paid = false;
};

/// The number of the picture for how far a purchase order has come: unposted 0, posted 1, receipted and closed 2, paid
/// 3, cancelled 4, receipted and still open 5.
ZULPICKLISTS_EXPORT int StatePicture(const TPOFlags& Flags);

/// The number of the picture for a purchase order's type: 1 for a customer's order ("P"), 2 for one for several
/// documents
/// ("M"), 0 for stock and anything else.
ZULPICKLISTS_EXPORT int TypePicture(const std::string& Type);

}  // namespace purchasing
