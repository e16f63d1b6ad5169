#include "check/Findings.h"

#include <algorithm>

#include "check/ExpectedSchema.h"
#include "check/Joined.h"
#include "zulcommon/Text.h"

namespace check {

namespace {

const char* NameOf(ads::TColumnKind Kind) {
  switch (Kind) {
    case ads::TColumnKind::Text:
      return "a text";
    case ads::TColumnKind::Number:
      return "a number";
    case ads::TColumnKind::Boolean:
      return "a yes or no";
    case ads::TColumnKind::Date:
      return "a date";
  }
  return "";
}

bool Leads(const std::vector<std::string>& Wanted, const std::vector<std::string>& Columns) {
  return Wanted.size() <= Columns.size() &&
         std::equal(Wanted.begin(), Wanted.end(), Columns.begin(),
                    [](const std::string& A, const std::string& B) { return zulcommon::SameText(A, B); });
}

}  // namespace

TFindings::TFindings(const ads::TAdsConnection& Connection, const TSurvey& Survey, const ads::TServerFacts& Facts)
    : Connection_(Connection), Survey_(Survey), Facts_(Facts) {
  for (const TSurveyedPick& Pick : Survey.Picks()) Needed_.insert(Pick.Places.begin(), Pick.Places.end());
  AddServer();
  AddTables();
  AddEmpty();
  AddFailures();
  AddIndexes();
}

std::vector<std::string> TFindings::PicksWith(const std::function<bool(const TPlace&)>& IsMeant) const {
  std::vector<std::string> Names;
  for (const TSurveyedPick& Pick : Survey_.Picks()) {
    if (std::any_of(Pick.Places.begin(), Pick.Places.end(), IsMeant)) Names.push_back(Pick.Pick->Name);
  }
  return Names;
}

std::vector<std::string> TFindings::PicksWith(const TPlace& Wanted) const {
  return PicksWith([&Wanted](const TPlace& Place) { return Place == Wanted; });
}

void TFindings::Broken(TFindingKind Kind, const TPlace& Place, const std::string& Text, std::string Mend) {
  Broken_.insert(Place);
  Findings_.push_back({Kind, TSeverity::Breaks, Text, PicksWith(Place), {}, std::move(Mend)});
}

void TFindings::AddServer() {
  const std::vector<std::string> All = PicksWith([](const TPlace&) { return true; });
  for (const ads::TShortcoming& Each : Facts_.Shortcomings) {
    Findings_.push_back({TFindingKind::Server, TSeverity::Breaks, Each.Text, All, {}, Each.Mend});
  }
}

void TFindings::AddTables() {
  for (const TPlace& Place : Needed_) {
    if (Place.Column.empty()) AddTable(Place.Table);
  }
}

void TFindings::AddTable(const std::string& Name) {
  const ads::TTableFacts* Table = Facts_.Find(Name);
  if (Table == nullptr) return AddMissingTable(Name);
  if (!Table->Failure.empty()) return;
  AddColumns(*Table, Name);
  AddRights(*Table, Name);
}

void TFindings::AddMissingTable(const std::string& Name) {
  std::string Text = "Table " + Name + " is missing, with the columns " + Joined(ColumnsOf(Name)) + ".";
  for (const ads::TOtherTable& Other : Facts_.Others) {
    if (zulcommon::SameText(Other.Asked, Name)) Text += " (" + Other.Where + ".)";
  }
  Broken(TFindingKind::MissingTable, {Name, {}}, Text);
}

std::vector<std::string> TFindings::ColumnsOf(const std::string& Table) const {
  std::vector<std::string> Columns;
  for (const TPlace& Place : Needed_) {
    if (Place.Table == Table && !Place.Column.empty()) Columns.push_back(Place.Column);
  }
  return Columns;
}

void TFindings::AddColumns(const ads::TTableFacts& Table, const std::string& Name) {
  const TExpectedTable* Expected = ExpectedTable(Name);
  for (const std::string& Wanted : ColumnsOf(Name)) {
    const TPlace Place{Name, Wanted};
    const ads::TColumnFacts* Column = Table.Find(Wanted);
    const TExpectedColumn* Known = Expected != nullptr ? Expected->Find(Wanted) : nullptr;
    if (Column == nullptr) {
      Broken(TFindingKind::MissingColumn, Place,
             "Column " + Name + "." + Wanted + " is missing" +
                 (Known != nullptr ? ", " + std::string(NameOf(Known->Kind)) + "." : "."));
    } else if (Known != nullptr && !Column->Serves.Contains(Known->Kind)) {
      Broken(TFindingKind::UnfitType, Place,
             "Column " + Name + "." + Wanted + " is of the type " + Column->Type + ", but has to be " +
                 NameOf(Known->Kind) + ".");
    }
  }
}

void TFindings::AddRights(const ads::TTableFacts& Table, const std::string& Name) {
  std::vector<std::string> Hidden;
  for (const std::string& Wanted : ColumnsOf(Name)) {
    const ads::TColumnFacts* Column = Table.Find(Wanted);
    if (Column != nullptr && !Column->IsReadable) Hidden.push_back(Wanted);
  }
  if (Hidden.empty()) return;
  const bool IsAll = std::none_of(Table.Columns.begin(), Table.Columns.end(),
                                  [](const ads::TColumnFacts& Column) { return Column.IsReadable; });
  const std::string What = IsAll ? "table " + Name : "the columns " + Joined(Hidden) + " of table " + Name;
  for (const std::string& Column : Hidden) Broken_.insert({Name, Column});
  const auto IsHidden = [&](const TPlace& Place) {
    return Place.Table == Name && std::find(Hidden.begin(), Hidden.end(), Place.Column) != Hidden.end();
  };
  Findings_.push_back({TFindingKind::MissingRight,
                       TSeverity::Breaks,
                       "The account " + Facts_.Account + " may not read " + What + ".",
                       PicksWith(IsHidden),
                       {},
                       GrantSelectText(Connection_, Name, Facts_.Account)});
}

void TFindings::AddEmpty() {
  for (const std::string& Name : Survey_.Empty()) {
    std::string Mend;
    if (const TExpectedTable* Expected = ExpectedTable(Name)) {
      std::vector<std::string> Columns, Values;
      for (const TExpectedColumn& Column : Expected->Columns) {
        Columns.push_back(Column.Name);
        Values.emplace_back(Column.Kind == ads::TColumnKind::Boolean ? "FALSE" : "2");
      }
      Mend = InsertText(Connection_, Name, Columns, Values);
    }
    Broken(TFindingKind::EmptySettings, {Name, {}}, "Table " + Name + " has no row, and so no setting.", Mend);
  }
}

bool TFindings::IsExplained(const TFailure& Failure) const {
  const auto IsIn = [&Failure](const ads::TShortcoming& Each) {
    return !Each.Sign.empty() && Failure.Sent.find(Each.Sign) != Failure.Sent.npos;
  };
  if (std::any_of(Facts_.Shortcomings.begin(), Facts_.Shortcomings.end(), IsIn)) return true;
  return Failure.Places != nullptr && std::any_of(Failure.Places->begin(), Failure.Places->end(),
                                                  [this](const TPlace& Place) { return Broken_.contains(Place); });
}

void TFindings::AddFailures() {
  for (const TSurveyedPick& Pick : Survey_.Picks()) {
    for (const TFailure& Failure : Pick.Failures) {
      if (!IsExplained(Failure)) AddFailure(Pick.Pick->Name, Failure);
    }
  }
}

// What never reaches a server is refused over every database.
bool TFindings::IsDialogsOwn(const TFailure& Failure) {
  return Failure.Source.empty() || Company_.Refuses(Failure.Source);
}

// One finding for each pick and message, with all states that have it.
void TFindings::AddFailure(const std::string& Pick, const TFailure& Failure) {
  const std::string Text = "A query of " + Pick + " fails: " + Failure.Message;
  const TSeverity Severity = IsDialogsOwn(Failure) ? TSeverity::DialogsOwn : TSeverity::Breaks;
  const auto IsSame = [&](const TFinding& Finding) { return Finding.Text == Text && Finding.Severity == Severity; };
  auto Found = std::find_if(Findings_.begin(), Findings_.end(), IsSame);
  if (Found == Findings_.end()) {
    Findings_.push_back({TFindingKind::FailingQuery, Severity, Text, {Pick}, {}, {}});
    Found = std::prev(Findings_.end());
  }
  Found->States.push_back(Failure.State);
}

void TFindings::AddIndexes() {
  if (!Facts_.KnowsIndexes) return;
  for (const TPlace& Place : Needed_) {
    const ads::TTableFacts* Table = Place.Column.empty() ? Facts_.Find(Place.Table) : nullptr;
    if (Table != nullptr && !Table->IsView) AddIndexes(*Table, Place.Table);
  }
}

// Only what the picks ask for, and over columns that are there.
void TFindings::AddIndexes(const ads::TTableFacts& Table, const std::string& Name) {
  const TExpectedTable* Expected = ExpectedTable(Name);
  if (Expected == nullptr) return;
  std::vector<TExpectedIndex> Told;
  for (const TExpectedIndex& Index : Expected->Indexes) {
    const auto Serves = [&Index](const auto& Other) { return Leads(Index.Columns, Other.Columns); };
    const bool IsThere = std::any_of(Table.Indexes.begin(), Table.Indexes.end(), Serves) ||
                         std::any_of(Told.begin(), Told.end(), Serves);
    const bool HasColumns = std::all_of(Index.Columns.begin(), Index.Columns.end(),
                                        [&](const std::string& Column) { return Table.Find(Column) != nullptr; });
    const std::vector<std::string> Picks = PicksWith({Name, Index.Columns.front()});
    if (IsThere || !HasColumns || Picks.empty()) continue;
    Told.push_back(Index);
    Findings_.push_back({TFindingKind::MissingIndex,
                         TSeverity::Advice,
                         "No index of table " + Name + " begins with " + Joined(Index.Columns) + ".",
                         Picks,
                         {},
                         CreateIndexText(Connection_, Index.Name, Table.Name, Index.Columns)});
  }
}

}  // namespace check
