#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "toolkit/EListError.h"
#include "toolkit/zultoolkit_export.h"

namespace toolkit {

/// A growing list of values with checked indexes, from 0: what the list classes of the system have in common.
/// A bad index throws `EListError`.
template <typename TValue>
class TList {
 public:
  virtual ~TList() = default;

  int Count() const { return static_cast<int>(Values_.size()); }

  /// Appends; returns the new index.
  virtual int Add(TValue Value) {
    Values_.push_back(std::move(Value));
    return Count() - 1;
  }
  /// Puts the value in front of the one at `Index`; an index of Count() appends.
  virtual void Insert(int Index, TValue Value) {
    if (Index < 0 || Index > Count()) throw EListError(Index);
    Values_.insert(Values_.begin() + Index, std::move(Value));
  }
  const TValue& Get(int Index) const { return Values_[Checked(Index)]; }
  virtual void Put(int Index, TValue Value) { Values_[Checked(Index)] = std::move(Value); }
  const TValue& operator[](int Index) const { return Get(Index); }

  /// The first index that holds an equal value, -1 when none does.
  virtual int IndexOf(const TValue& Value) const {
    const auto Found = std::find(Values_.begin(), Values_.end(), Value);
    return Found == Values_.end() ? -1 : static_cast<int>(Found - Values_.begin());
  }
  virtual void Delete(int Index) { Values_.erase(Values_.begin() + static_cast<std::ptrdiff_t>(Checked(Index))); }
  virtual void Clear() { Values_.clear(); }

  auto begin() const { return Values_.begin(); }
  auto end() const { return Values_.end(); }

 protected:
  TList() = default;
  TList(const TList&) = default;
  TList& operator=(const TList&) = default;

 private:
  std::size_t Checked(int Index) const {
    if (Index < 0 || Index >= Count()) throw EListError(Index);
    return static_cast<std::size_t>(Index);
  }

  std::vector<TValue> Values_;
};

/// Texts in the order in which they were added, such as the keys that a user ticked.
class ZULTOOLKIT_EXPORT TStringList : public TList<std::string> {
 public:
  TStringList();
  ~TStringList() override;
  TStringList(const TStringList&);
  TStringList& operator=(const TStringList&);

  /// All lines, each ended by a line feed.
  std::string Text() const;
};

}  // namespace toolkit
