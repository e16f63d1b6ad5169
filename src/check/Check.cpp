#include "check/Check.h"

#include <algorithm>

#include "ads/EDatabaseError.h"
#include "ads/ServerFacts.h"
#include "check/Findings.h"
#include "check/Survey.h"

namespace check {

namespace {

std::vector<TNeed> NeedsOf(const TSurveyedPick& Pick) {
  std::vector<TNeed> Needs;
  for (const TPlace& Place : Pick.Places) {  // a table stands before its columns
    if (Place.Column.empty()) {
      Needs.push_back({Place.Table, {}});
    } else {
      Needs.back().Columns.push_back(Place.Column);
    }
  }
  return Needs;
}

std::vector<std::string> TablesOf(const TSurvey& Survey) {
  std::vector<std::string> Names;
  for (const TSurveyedPick& Pick : Survey.Picks()) {
    for (const TPlace& Place : Pick.Places) {
      if (Place.Column.empty()) Names.push_back(Place.Table);
    }
  }
  std::sort(Names.begin(), Names.end());
  Names.erase(std::unique(Names.begin(), Names.end()), Names.end());
  return Names;
}

bool Concerns(const TFinding& Finding, const std::string& Pick) {
  return Finding.Severity == TSeverity::Breaks &&
         std::find(Finding.Picks.begin(), Finding.Picks.end(), Pick) != Finding.Picks.end();
}

void AddPicks(TReport& Report, const TSurvey& Survey) {
  for (const TSurveyedPick& Pick : Survey.Picks()) {
    TPickReport& Fresh = Report.Picks.emplace_back();
    Fresh.Name = Pick.Pick->Name;
    Fresh.Queries = static_cast<int>(Pick.Sent.size());
    Fresh.Needs = NeedsOf(Pick);
    Fresh.IsFit = std::none_of(Report.Findings.begin(), Report.Findings.end(),
                               [&Fresh](const TFinding& Finding) { return Concerns(Finding, Fresh.Name); });
  }
}

}  // namespace

bool TReport::IsFit() const {
  return std::none_of(Findings.begin(), Findings.end(),
                      [](const TFinding& Finding) { return Finding.Severity == TSeverity::Breaks; });
}

TReport Check(ads::TAdsConnection* Connection, const std::vector<const catalog::TPick*>& Picks) {
  if (Connection == nullptr) throw ads::EDatabaseError("A check needs a database connection.");
  ReadServerFacts(*Connection, {});  // one that cannot be asked is found out before anything else
  const TSurvey Survey(Connection, Picks);
  const ads::TServerFacts Facts = ReadServerFacts(*Connection, TablesOf(Survey));
  TReport Report;
  Report.Driver = Facts.Driver;
  Report.Server = Facts.Server;
  Report.Version = Facts.Version;
  Report.Account = Facts.Account;
  Report.KnowsIndexes = Facts.KnowsIndexes;
  Report.Queries = Survey.Prepared();
  Report.Findings = TFindings(*Connection, Survey, Facts).Take();
  AddPicks(Report, Survey);
  return Report;
}

TReport Check(ads::TAdsConnection* Connection) {
  std::vector<const catalog::TPick*> Picks;
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) Picks.push_back(&Pick);
  return Check(Connection, Picks);
}

}  // namespace check
