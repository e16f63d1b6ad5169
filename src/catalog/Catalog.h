#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "catalog/Args.h"
#include "catalog/zulcatalog_export.h"

namespace catalog {

/// What a pick function gave back.
struct TResult {
  bool Chosen = false;
  /// The chosen keys. When nothing was chosen: what the output arguments hold all the same, such as an emptied text.
  std::vector<std::string> Keys;
};

using TCall = std::function<TResult(ads::TAdsConnection* Connection, const TArgs& Args)>;

/// One exported pick function: what it is called, what it takes and how it is called.
struct TPick {
  std::string Name;      ///< such as "city"
  std::string Function;  ///< such as "uPickCity::CallPickCity"
  std::string Help;      ///< what is picked, in a few words
  std::vector<TArg> Args;
  TCall Call;
  std::string Group = {};  ///< set by the catalog
};

/// The exported pick functions, in the order in which they were added.
class ZULCATALOG_EXPORT TCatalog {
 public:
  /// What is added from here on belongs to this group.
  void StartGroup(std::string Title);

  /// Throws `std::invalid_argument` for a name that is not of lower-case letters, digits and hyphens, one that is given
  /// twice (of a pick or of one of its arguments), an option that is the programs' own, a default that is no value of
  /// its argument, and a pick without a group or a call.
  void Add(TPick Pick);

  /// Null when there is none of that name. The catalog owns the picks and never moves them.
  const TPick* Find(const std::string& Name) const;
  const std::deque<TPick>& All() const { return Picks_; }

 private:
  std::string Group_;
  std::deque<TPick> Picks_;
};

/// Names that no argument may have, because each is an option of the programs.
ZULCATALOG_EXPORT const std::vector<std::string>& CommonOptions();

/// All exported pick functions.
ZULCATALOG_EXPORT const TCatalog& FullCatalog();

}  // namespace catalog
