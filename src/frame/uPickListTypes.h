#pragma once

#include <cstdint>
#include <string>

#include "toolkit/Set.h"

namespace uPickListTypes {

/// The states of a purchase order by which the purchase-order picks filter; the order is part of the interface.
enum class TPOState : std::uint8_t { poUnposted, poPosted, poReceipted, poClosed, poPaid, poCancelled };

using TPOStates = toolkit::TSet<TPOState>;

/// An order-entry document: the letter of its type and its number.
struct TOEDoc {
  std::string DocType;
  std::string DocNumber;
};

}  // namespace uPickListTypes
