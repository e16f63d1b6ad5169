#pragma once

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ads/Trial.h"
#include "catalog/Catalog.h"
#include "check/DialogStates.h"

namespace check {

/// A table or, with a column, a column of it; as the schema writes them.
struct TPlace {
  std::string Table;
  std::string Column;
  auto operator<=>(const TPlace&) const = default;  // NOLINT(modernize-use-nullptr): none is written
};
using TPlaces = std::set<TPlace>;

/// A query, or a whole dialog, that did not come about.
struct TFailure {
  std::string Message;
  std::string State;
  std::string Source;               // the query, in the dialogs' SQL; empty where none was sent
  std::string Sent;                 // and in the server's
  const TPlaces* Places = nullptr;  // that it names; null where there is none
};

/// What one pick was seen to need.
struct TSurveyedPick {
  const catalog::TPick* Pick;
  TPlaces Places;
  std::unordered_set<std::string> Sent;
  std::unordered_set<std::string> Walked;  // first queries, apart from values, of dialogs that were walked through
  std::vector<TFailure> Failures;
};

/// Calls picks with every argument, walks their dialogs and notes what these ask the server.
class TSurvey {
 public:
  TSurvey(ads::TAdsConnection* Connection, const std::vector<const catalog::TPick*>& Picks);

  const std::vector<TSurveyedPick>& Picks() const { return Picks_; }
  int Prepared() const { return Prepared_; }
  /// Tables of settings that have no row.
  const std::set<std::string>& Empty() const { return Empty_; }

 private:
  void Call(const TCall& Call);
  bool IsToBeWalked(const TCall& Call, const uDocPickBase::TDocPickBase& Dialog);
  void Note(const ads::TTriedStatement& Statement);
  void NoteFailure(TFailure Failure);
  const TPlaces& PlacesOf(const std::string& Source);

  ads::TAdsConnection* Connection_;
  std::vector<TSurveyedPick> Picks_;
  std::unordered_map<std::string, TPlaces> Places_;  // by query; where they lie does not change
  std::set<std::string> Empty_;
  int Prepared_ = 0;
  std::string Arguments_;  // of the call that is under way
  std::string State_;      // of its dialog
};

}  // namespace check
