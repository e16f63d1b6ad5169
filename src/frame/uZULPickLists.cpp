#include "frame/uZULPickLists.h"

#include <stdexcept>

namespace uZULPickLists {

TIntegerList::TIntegerList() = default;
TIntegerList::~TIntegerList() = default;
TIntegerList::TIntegerList(const TIntegerList&) = default;
TIntegerList& TIntegerList::operator=(const TIntegerList&) = default;

TCurrencyList::TCurrencyList() = default;
TCurrencyList::~TCurrencyList() = default;
TCurrencyList::TCurrencyList(const TCurrencyList&) = default;
TCurrencyList& TCurrencyList::operator=(const TCurrencyList&) = default;

TSimpleObj::TSimpleObj() = default;
TSimpleObj::~TSimpleObj() = default;

TSimpleObjList::TSimpleObjList() = default;
TSimpleObjList::~TSimpleObjList() = default;

TSimpleObj* TSimpleObjList::Add() {
  if (!ItemClass) throw std::logic_error("The list does not know what to create.");
  std::unique_ptr<TSimpleObj> Item = ItemClass();
  if (!Items_) Items_.emplace();
  Items_->push_back(std::move(Item));
  return Items_->back().get();
}

void TSimpleObjList::Clear() {
  Items_.reset();
}

int TSimpleObjList::GetCount() const {
  return Items_ ? static_cast<int>(Items_->size()) : 0;
}

TSimpleObj* TSimpleObjList::GetList(int Index) const {
  if (!Items_) return nullptr;
  if (Index < 0 || Index >= GetCount()) throw toolkit::EListError(Index);
  return (*Items_)[static_cast<std::size_t>(Index)].get();
}

}  // namespace uZULPickLists
