#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zulcommon/Set.h"
#include "zulcommon/zulcommon_export.h"

namespace zulcommon {

/// The types of an order-entry document. Their order is part of the interface: sets of them are stored by ordinal.
enum class TDocType : std::uint8_t {
  dtQuote,        // Q
  dtOrder,        // O
  dtInvoice,      // I
  dtCredit,       // C
  dtReturn,       // R
  dtService,      // S
  dtTemplate,     // T
  dtGroup,        // G: a quote group, the parent of members
  dtGroupMember,  // M: a member of a group
};
inline constexpr int DocTypeCount = 9;

using TDocTypes = TSet<TDocType>;

/// The letter under which a type is stored in the order-entry tables, such as 'Q'. Here and in `DocTypeName` a value
/// that is none of the nine throws `std::out_of_range`.
ZULCOMMON_EXPORT char DocTypeLetter(TDocType Type);

/// What a type is called in English, such as "Group member".
ZULCOMMON_EXPORT const char* DocTypeName(TDocType Type);

/// The type that is stored as `Letter`, blanks around it and its case ignored. A text that stands for no type throws
/// `EZULException`.
ZULCOMMON_EXPORT TDocType GetDocType(std::string_view Letter);

/// The letters of a set as an SQL value list to stand between "IN (" and ")", in the order of the types: "'Q', 'O'". An
/// empty set gives "NULL": a list that matches nothing.
ZULCOMMON_EXPORT std::string GetDocTypeList(const TDocTypes& Types);

/// The types of a stock item, by which its picture is chosen.
enum class TItemType : std::uint8_t {
  itStock,
  itNonStock,
  itService,
  itLabour,
  itKit,
  itPreset,
  itComment,
  itUnknown,  // a code that stands for none of the others
};

/// The type behind the code that an item row stores (0 to 6 in the order above); any other code gives `itUnknown`.
ZULCOMMON_EXPORT TItemType GetItemType(std::int16_t Code);

}  // namespace zulcommon
