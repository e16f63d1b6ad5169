#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "ads/ServerFacts.h"
#include "check/Check.h"
#include "check/EmptyCompany.h"
#include "check/Survey.h"

namespace check {

/// What a database lacks of what picks were seen to need.
class TFindings {
 public:
  TFindings(const ads::TAdsConnection& Connection, const TSurvey& Survey, const ads::TServerFacts& Facts);

  std::vector<TFinding> Take() { return std::move(Findings_); }

 private:
  void AddServer();
  void AddTables();
  void AddTable(const std::string& Name);
  void AddMissingTable(const std::string& Name);
  void AddColumns(const ads::TTableFacts& Table, const std::string& Name);
  void AddRights(const ads::TTableFacts& Table, const std::string& Name);
  void AddEmpty();
  void AddFailures();
  void AddFailure(const std::string& Pick, const TFailure& Failure);
  void AddIndexes();
  void AddIndexes(const ads::TTableFacts& Table, const std::string& Name);

  std::vector<std::string> ColumnsOf(const std::string& Table) const;
  std::vector<std::string> PicksWith(const std::function<bool(const TPlace&)>& IsMeant) const;
  std::vector<std::string> PicksWith(const TPlace& Wanted) const;
  void Broken(TFindingKind Kind, const TPlace& Place, const std::string& Text, std::string Mend = {});
  bool IsExplained(const TFailure& Failure) const;
  bool IsDialogsOwn(const TFailure& Failure);

  const ads::TAdsConnection& Connection_;
  const TSurvey& Survey_;
  const ads::TServerFacts& Facts_;
  TPlaces Needed_;  // by any pick
  TPlaces Broken_;  // over which queries may fail
  TEmptyCompany Company_;
  std::vector<TFinding> Findings_;
};

}  // namespace check
