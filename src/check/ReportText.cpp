#include <algorithm>

#include "check/Check.h"
#include "check/Joined.h"

namespace check {

namespace {

constexpr std::size_t MostStates = 5;

std::string Counted(std::size_t Count, const std::string& One, const std::string& Many) {
  return Count == 1 ? "1 " + One : std::to_string(Count) + " " + Many;
}

// Every line of a text, set in.
std::string Indented(const std::string& Text) {
  std::string Result = "    ";
  for (const char Byte : Text) {
    Result += Byte;
    if (Byte == '\n') Result += "    ";
  }
  return Result + "\n";
}

std::string PicksText(const TReport& Report, const TFinding& Finding) {
  const bool IsAll = Report.Picks.size() > 1 && Finding.Picks.size() == Report.Picks.size();
  return "    Concerns " + (IsAll ? "every pick" : Joined(Finding.Picks)) + "\n";
}

std::string FindingText(const TReport& Report, const TFinding& Finding) {
  std::string Result = Finding.Text + "\n";
  if (!Finding.Picks.empty()) Result += PicksText(Report, Finding);
  const std::size_t Shown = std::min(Finding.States.size(), MostStates);
  for (std::size_t State = 0; State < Shown; ++State) Result += Indented("in " + Finding.States[State]);
  if (Finding.States.size() > Shown) {
    Result += Indented("and in " + std::to_string(Finding.States.size() - Shown) + " more states");
  }
  if (!Finding.Mend.empty()) Result += Indented(Finding.Mend + ";");
  return Result;
}

std::string FindingsText(const TReport& Report, TSeverity Severity, const std::string& Title) {
  std::string Result;
  for (const TFinding& Finding : Report.Findings) {
    if (Finding.Severity == Severity) Result += "\n" + FindingText(Report, Finding);
  }
  return Result.empty() ? Result : "\n" + Title + "\n" + Result;
}

std::string PickText(const TPickReport& Pick) {
  std::string Result = "  " + Pick.Name + (Pick.IsFit ? ": works" : ": DOES NOT WORK") + ", " +
                       Counted(static_cast<std::size_t>(Pick.Queries), "query", "queries") + "\n";
  for (const TNeed& Need : Pick.Needs) Result += "      " + Need.Table + " (" + Joined(Need.Columns) + ")\n";
  return Result;
}

}  // namespace

std::string TextOf(const TReport& Report) {
  std::string Result = "Server: " + (Report.Server.empty() ? "unknown" : Report.Server + " " + Report.Version) +
                       ", by the driver " + Report.Driver + (Report.Account.empty() ? "" : ", as " + Report.Account) +
                       "\n";
  Result += "Checked: " + Counted(Report.Picks.size(), "pick", "picks") + ", " +
            Counted(static_cast<std::size_t>(Report.Queries), "query", "queries") + " prepared\n";
  if (!Report.KnowsIndexes) Result += "This server cannot be asked for its indexes.\n";
  Result += FindingsText(Report, TSeverity::Breaks, "WHAT IS MISSING");
  Result += FindingsText(Report, TSeverity::Advice, "WORTH HAVING");
  Result += FindingsText(Report, TSeverity::DialogsOwn, "WHAT NO DATABASE TAKES");
  Result += "\nWHAT EACH PICK NEEDS\n\n";
  for (const TPickReport& Pick : Report.Picks) Result += PickText(Pick);
  const auto Fit = std::count_if(Report.Picks.begin(), Report.Picks.end(), [](const auto& Pick) { return Pick.IsFit; });
  Result +=
      "\n" +
      (Report.IsFit() ? std::string("The database is fit for ") + (Report.Picks.size() == 1 ? "it" : "all of them")
                      : std::to_string(Fit) + " of " + Counted(Report.Picks.size(), "pick", "picks") + " will work") +
      ".\n";
  return Result;
}

}  // namespace check
