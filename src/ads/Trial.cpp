#include "ads/Trial.h"

#include <algorithm>
#include <memory>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "zulcommon/Text.h"

namespace ads {

TTrial::TTrial(TAdsConnection& Connection) : Connection_(Connection) {
  if (Connection.Trial() != nullptr) throw EDatabaseError("A trial of this connection is under way already.");
  Connection.SetTrial(this);
}

TTrial::~TTrial() {
  Connection_.SetTrial(nullptr);
}

void TTrial::MakeWay() {
  Cursor_.reset();
}

const TTriedStatement& TTrial::Prepare(const std::string& Source, const std::string& Sent) {
  const auto Found = Known_.find(Sent);
  if (Found != Known_.end()) return Found->second;
  TTriedStatement Fresh{Source, Sent, {}, {}};
  try {
    if (Cursor_ == nullptr) Cursor_ = Connection_.NewCursor();
    Fresh.Columns = Cursor_->Prepare(Sent);
  } catch (const EConnectionLost&) {
    throw;
  } catch (const EQueryEnded&) {
    throw;
  } catch (const EDatabaseError& Error) {
    Fresh.Failure = Error.what();
    MakeWay();
  }
  return Known_.emplace(Sent, std::move(Fresh)).first->second;
}

void TTrial::Try(const TListStatements& Statements, const std::vector<std::string>& Fields) {
  TTriedStatement Tried = Prepare(Statements.Source, Statements.Whole);
  if (Tried.Failure.empty() && !Statements.Page.empty()) {
    Tried.Failure = Prepare(Statements.Source, Statements.Page).Failure;
  }
  for (const std::string& Field : Fields) {
    const auto IsField = [&Field](const std::string& Column) { return zulcommon::SameText(Column, Field); };
    if (!Tried.Failure.empty() || Tried.Columns.empty()) break;
    if (std::none_of(Tried.Columns.begin(), Tried.Columns.end(), IsField)) {
      Tried.Failure = "Field '" + Field + "' not found in the query's result.";
    }
  }
  if (OnTried) OnTried(Tried);
}

void TTrial::TellRead(const TListStatements& Statements, int Rows) const {
  const TTriedStatement Read{Statements.Source, Statements.Whole, {}, {}};
  if (OnTried) OnTried(Read);
  if (OnRead) OnRead(Read, Rows);
}

void TTrial::TellFailed(const TListStatements& Statements, const std::string& Message) const {
  if (OnTried) OnTried({Statements.Source, Statements.Whole, {}, Message});
}

}  // namespace ads
