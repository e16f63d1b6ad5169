#include "zulcommon/DocTypes.h"

#include <array>

#include "zulcommon/EZULException.h"
#include "zulcommon/Text.h"

namespace zulcommon {

namespace {

struct TDocTypeText {
  char Letter;
  const char* Name;
};

// By ordinal.
constexpr std::array<TDocTypeText, DocTypeCount> DocTypeTexts = {{
    {'Q', "Quote"},
    {'O', "Order"},
    {'I', "Invoice"},
    {'C', "Credit"},
    {'R', "Return"},
    {'S', "Service"},
    {'T', "Template"},
    {'G', "Group"},
    {'M', "Group member"},
}};

const TDocTypeText& TextsOf(TDocType Type) {
  return DocTypeTexts.at(static_cast<std::size_t>(Type));
}

}  // namespace

char DocTypeLetter(TDocType Type) {
  return TextsOf(Type).Letter;
}

const char* DocTypeName(TDocType Type) {
  return TextsOf(Type).Name;
}

TDocType GetDocType(std::string_view Letter) {
  const std::string Wanted = UpperCase(Trim(Letter));
  for (std::size_t Ordinal = 0; Ordinal < DocTypeTexts.size(); ++Ordinal) {
    if (Wanted.size() == 1 && Wanted[0] == DocTypeTexts[Ordinal].Letter) return static_cast<TDocType>(Ordinal);
  }
  throw EZULException("\"%s\" is not a document type.", std::vector<std::string>{std::string(Letter)});
}

std::string GetDocTypeList(const TDocTypes& Types) {
  std::string List;
  for (std::size_t Ordinal = 0; Ordinal < DocTypeTexts.size(); ++Ordinal) {
    if (!Types.Contains(static_cast<TDocType>(Ordinal))) continue;
    if (!List.empty()) List += ", ";
    List += {'\'', DocTypeTexts[Ordinal].Letter, '\''};
  }
  return List.empty() ? "NULL" : List;
}

TItemType GetItemType(std::int16_t Code) {
  const bool Known = Code >= 0 && Code < static_cast<std::int16_t>(TItemType::itUnknown);
  return Known ? static_cast<TItemType>(Code) : TItemType::itUnknown;
}

}  // namespace zulcommon
