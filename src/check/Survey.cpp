#include "check/Survey.h"

#include <algorithm>

#include "ads/EDatabaseError.h"
#include "ads/sql/Lexer.h"
#include "ads/sql/References.h"
#include "check/DialogStates.h"
#include "check/ExpectedSchema.h"
#include "pickbase/PickCall.h"

namespace check {

namespace {

std::string SchemaName(const std::string& Table) {
  const TExpectedTable* Expected = ExpectedTable(Table);
  return Expected != nullptr ? Expected->Name : Table;
}

// The one of the tables to which a column belongs; empty for what is no column of any, such as the name of a result.
TPlace PlaceOf(const ads::sql::TColumnReference& Column) {
  for (const std::string& Table : Column.Tables) {
    const TExpectedTable* Expected = ExpectedTable(Table);
    if (Expected == nullptr) continue;
    if (const TExpectedColumn* Known = Expected->Find(Column.Name)) return {Expected->Name, Known->Name};
  }
  if (Column.Tables.size() > 1 || ExpectedTable(Column.Tables.front()) != nullptr) return {};
  return {Column.Tables.front(), Column.Name};
}

std::string ShapeOf(const std::string& Sql) {
  std::string Shape;
  for (const ads::sql::TToken& Token : ads::sql::Tokenize(Sql)) {
    const bool IsValue = Token.Kind == ads::sql::TTokenKind::Text || Token.Kind == ads::sql::TTokenKind::Number;
    Shape += IsValue ? std::string_view("#") : Token.Source;
  }
  return Shape;
}

}  // namespace

TSurvey::TSurvey(ads::TAdsConnection* Connection, const std::vector<const catalog::TPick*>& Picks)
    : Connection_(Connection) {
  ads::TTrial Trial(*Connection);
  Trial.OnTried = [this](const ads::TTriedStatement& Statement) { Note(Statement); };
  Trial.OnRead = [this](const ads::TTriedStatement& Statement, int Rows) {
    if (Rows > 0) return;
    for (const TPlace& Place : PlacesOf(Statement.Source)) Empty_.insert(Place.Table);
  };
  for (const catalog::TPick* Pick : Picks) {
    Picks_.push_back({Pick, {}, {}, {}, {}});
    for (const TCall& Each : CallsOf(*Pick)) Call(Each);
  }
  Prepared_ = Trial.Prepared();
}

// What is thrown before the dialog is there, but for a connection that is of no use any more, is a finding.
void TSurvey::Call(const TCall& Call) {
  Arguments_ = Call.Args.Describe();
  State_ = "on opening";
  TStateWalk Walk;
  Walk.Enter = [this](const std::string& State) { State_ = State; };
  Walk.Failed = [this](const std::string& Message) { NoteFailure({Message, {}, {}, {}, nullptr}); };
  pickbase::TPickWatch Watch;
  Watch.OnBuilt = [&](uDocPickBase::TDocPickBase& Dialog) {
    if (IsToBeWalked(Call, Dialog)) Walk.Through(Dialog);
    return false;
  };
  try {
    Picks_.back().Pick->Call(Connection_, Call.Args);
  } catch (const ads::EConnectionLost&) {
    throw;
  } catch (const ads::EQueryEnded&) {
    throw;
  } catch (const std::logic_error&) {
    throw;
  } catch (const std::exception& Error) {
    NoteFailure({Error.what(), {}, {}, {}, nullptr});
  }
}

void TSurvey::Note(const ads::TTriedStatement& Statement) {
  TSurveyedPick& Pick = Picks_.back();
  if (!Pick.Sent.insert(Statement.Sent).second) return;
  const TPlaces& Places = PlacesOf(Statement.Source);
  Pick.Places.insert(Places.begin(), Places.end());
  if (!Statement.Failure.empty()) NoteFailure({Statement.Failure, {}, Statement.Source, Statement.Sent, &Places});
}

// Of many calls those are walked through that change one argument, unless the query is one of another call but for its
// values: arguments add conditions, states columns and orders, and a server that takes each with each of the other kind
// takes more of them together.
bool TSurvey::IsToBeWalked(const TCall& Call, const uDocPickBase::TDocPickBase& Dialog) {
  if (!Call.IsOneOfMany) return true;
  return Call.Changed <= 1 && Picks_.back().Walked.insert(ShapeOf(Dialog.qryList_->SQL()->Text())).second;
}

void TSurvey::NoteFailure(TFailure Failure) {
  std::string State = Picks_.back().Pick->Name;
  if (!Arguments_.empty()) State += " " + Arguments_;
  if (!State_.empty()) State += ": " + State_;
  Failure.State = std::move(State);
  Picks_.back().Failures.push_back(std::move(Failure));
}

const TPlaces& TSurvey::PlacesOf(const std::string& Source) {
  const auto Found = Places_.find(Source);
  if (Found != Places_.end()) return Found->second;
  TPlaces Places;
  const ads::sql::TReferences References = ads::sql::ReferencesOf(Source);
  for (const std::string& Table : References.Tables) Places.insert({SchemaName(Table), {}});
  for (const ads::sql::TColumnReference& Column : References.Columns) {
    const TPlace Place = PlaceOf(Column);
    if (!Place.Table.empty()) Places.insert(Place);
  }
  return Places_.emplace(Source, std::move(Places)).first->second;
}

}  // namespace check
