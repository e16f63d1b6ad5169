#include "toolkit/Lists.h"

namespace toolkit {

EListError::EListError(int Index) : std::out_of_range("List index out of bounds (" + std::to_string(Index) + ")") {}
EListError::~EListError() = default;

TStringList::TStringList() = default;
TStringList::~TStringList() = default;
TStringList::TStringList(const TStringList&) = default;
TStringList& TStringList::operator=(const TStringList&) = default;

std::string TStringList::Text() const {
  std::string Result;
  for (const std::string& Line : *this) {
    Result += Line;
    Result += '\n';
  }
  return Result;
}

}  // namespace toolkit
