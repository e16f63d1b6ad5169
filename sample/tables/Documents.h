#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sample/store/Dates.h"
#include "sample/tables/Plan.h"

namespace sample {

/// The letters under which order-entry documents are stored.
namespace letters {
inline constexpr std::string_view Quote = "Q";
inline constexpr std::string_view Order = "O";
inline constexpr std::string_view Invoice = "I";
inline constexpr std::string_view Credit = "C";
inline constexpr std::string_view Return = "R";
inline constexpr std::string_view Service = "S";
inline constexpr std::string_view Template = "T";
inline constexpr std::string_view Group = "G";
inline constexpr std::string_view Member = "M";
}  // namespace letters

/// What other tables refer to of an order-entry document.
struct TDocumentHead {
  std::string_view Type;
  std::string Number;
  std::int64_t Customer = 0;  // a number from 1
  std::optional<std::string> JobNo;
  std::optional<TDate> Date;
  std::optional<double> SubTotal;
  std::optional<double> Tax;
};

/// The document of a position from 0 to `TPlan::Documents` - 1. Documents come in rounds of fifty, each round with a
/// group and its members, quotes, orders, the invoices of some of the orders (under the order's number), credits,
/// returns, service calls and templates.
TDocumentHead DocumentAt(const TPlan& Plan, std::int64_t Position);

/// The position of some order or invoice.
std::int64_t AnySale(TRandom& Random, const TPlan& Plan);

/// A number that no document has.
inline constexpr std::string_view NoDocument = "99999999";

/// The number of a job from 1.
std::string JobNo(std::int64_t Number);

}  // namespace sample
