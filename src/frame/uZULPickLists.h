#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "frame/zulpicklists_export.h"
#include "toolkit/Lists.h"
#include "zulcommon/Currency.h"

namespace uZULPickLists {

/// What the integer and the currency list have in common. A bad index throws `toolkit::EListError`.
template <typename TValue>
class TValueList : public toolkit::TList<TValue> {
 public:
  TValue First() const { return this->Get(0); }
  TValue Last() const { return this->Get(this->Count() - 1); }

  /// Deletes the first equal value; the index where it stood, -1 when there is none.
  int Remove(TValue Value) {
    const int Index = this->IndexOf(Value);
    if (Index >= 0) this->Delete(Index);
    return Index;
  }

  /// Deletes the first equal value and returns it. Zero when there is none, so that a zero tells nothing: callers that
  /// must know ask `IndexOf` first.
  TValue Extract(TValue Value) { return Remove(Value) >= 0 ? Value : TValue{}; }
};

/// 32-bit integers, such as the keys of ticked rows.
class ZULPICKLISTS_EXPORT TIntegerList : public TValueList<std::int32_t> {
 public:
  TIntegerList();
  ~TIntegerList() override;
  TIntegerList(const TIntegerList&);
  TIntegerList& operator=(const TIntegerList&);
};

/// Amounts of money; they are equal when their ten-thousandths are.
class ZULPICKLISTS_EXPORT TCurrencyList : public TValueList<zulcommon::TCurrency> {
 public:
  TCurrencyList();
  ~TCurrencyList() override;
  TCurrencyList(const TCurrencyList&);
  TCurrencyList& operator=(const TCurrencyList&);
};

/// What a `TSimpleObjList` owns: a base for a host's own classes.
class ZULPICKLISTS_EXPORT TSimpleObj {
 public:
  TSimpleObj();
  virtual ~TSimpleObj();
  TSimpleObj(const TSimpleObj&) = delete;  // owned by one list
  TSimpleObj& operator=(const TSimpleObj&) = delete;
};

/// An owning list of objects that it creates itself. A descendant says which class, by passing what creates one.
class ZULPICKLISTS_EXPORT TSimpleObjList : public TSimpleObj {
 public:
  using TCreateItem = std::function<std::unique_ptr<TSimpleObj>()>;

  TSimpleObjList();
  ~TSimpleObjList() override;

  /// Creates an item, appends it and returns it; the list owns it. Throws `std::logic_error` in a list that was never
  /// told what to create.
  virtual TSimpleObj* Add();
  /// Frees every item.
  virtual void Clear();

  int GetCount() const;
  /// Null while nothing was added since the creation or `Clear`; throws `toolkit::EListError` for a bad index
  /// otherwise.
  TSimpleObj* GetList(int Index) const;

 protected:
  TCreateItem ItemClass;

 private:
  std::optional<std::vector<std::unique_ptr<TSimpleObj>>> Items_;
};

}  // namespace uZULPickLists
