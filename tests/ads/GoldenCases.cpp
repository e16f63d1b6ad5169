#include "ads/GoldenCases.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

constexpr std::string_view TitleMark = "=== ";
constexpr std::string_view SQLiteMark = "--- SQLite";
constexpr std::string_view PostgreSQLMark = "--- PostgreSQL";
constexpr std::string_view MariaDBMark = "--- MariaDB";
constexpr std::string_view UpperStart = "UPPER⟨";
constexpr std::string_view UpperEnd = "⟩";
constexpr std::string_view Unchanged = "(as it is)";
constexpr std::string_view CarriageReturnSign = "␍";

void AppendLine(std::string& Text, std::string Line) {
  for (auto At = Line.find(CarriageReturnSign); At != Line.npos; At = Line.find(CarriageReturnSign)) {
    Line.replace(At, CarriageReturnSign.size(), "\r");
  }
  if (!Text.empty()) Text += '\n';
  Text += Line;
}

// What stands for UPPER on MariaDB, which is too long to be written out in every case.
std::string MariaDBUpper(const std::string& Argument) {
  static const std::string Form = [] {
    std::ifstream Stream(std::filesystem::path(ZUL_GOLDEN_FOLDER).parent_path() / "mariadb_upper.txt");
    std::string Line;
    while (std::getline(Stream, Line) && Line.starts_with('#')) continue;
    return Line;
  }();
  std::string Result = Form;
  for (auto At = Result.find("⟨⟩"); At != Result.npos; At = Result.find("⟨⟩", At)) {
    Result.replace(At, std::string_view("⟨⟩").size(), Argument);
    At += Argument.size();
  }
  return Result;
}

void WriteOutUpper(std::string& Text) {
  for (auto At = Text.find(UpperStart); At != Text.npos; At = Text.find(UpperStart, At)) {
    const auto End = Text.find(UpperEnd, At);
    const auto Argument = At + UpperStart.size();
    if (End == Text.npos) throw std::runtime_error("UPPER⟨ without its end: " + Text);
    Text.replace(At, End + UpperEnd.size() - At, MariaDBUpper(Text.substr(Argument, End - Argument)));
  }
}

void Finish(TGoldenCase& Case) {
  if (Case.Dialog.empty() || Case.SQLite.empty() || Case.PostgreSQL.empty() || Case.MariaDB.empty()) {
    throw std::runtime_error("A golden case without its four texts: " + Case.Title);
  }
  if (Case.SQLite == Unchanged) Case.SQLite = Case.Dialog;
  if (Case.PostgreSQL == Unchanged) Case.PostgreSQL = Case.Dialog;
  if (Case.MariaDB == Unchanged) Case.MariaDB = Case.Dialog;
  WriteOutUpper(Case.MariaDB);
}

void ReadFile(const std::filesystem::path& File, std::vector<TGoldenCase>& Cases) {
  const std::string Stem = File.stem().string();
  const std::size_t First = Cases.size();
  std::ifstream Stream(File);
  std::string* Text = nullptr;
  for (std::string Line; std::getline(Stream, Line);) {
    if (Line.starts_with(TitleMark)) {
      Cases.push_back({Stem + ": " + Line.substr(TitleMark.size()), {}, {}, {}, {}, Stem == "failing"});
      Text = &Cases.back().Dialog;
    } else if (Text == nullptr || Line.empty()) {
      if (Text != nullptr || Line.starts_with('#') || Line.empty()) continue;
      throw std::runtime_error("A line before the first case of " + File.string());
    } else if (Line == SQLiteMark) {
      Text = &Cases.back().SQLite;
    } else if (Line == PostgreSQLMark) {
      Text = &Cases.back().PostgreSQL;
    } else if (Line == MariaDBMark) {
      Text = &Cases.back().MariaDB;
    } else {
      AppendLine(*Text, Line);
    }
  }
  if (Cases.size() == First) throw std::runtime_error("No golden case in " + File.string());
}

}  // namespace

std::vector<TGoldenCase> ReadGoldenCases() {
  const std::filesystem::directory_iterator Folder(ZUL_GOLDEN_FOLDER);
  std::vector<std::filesystem::path> Files(begin(Folder), end(Folder));
  std::sort(Files.begin(), Files.end());
  std::vector<TGoldenCase> Cases;
  for (const std::filesystem::path& File : Files) ReadFile(File, Cases);
  for (TGoldenCase& Case : Cases) Finish(Case);
  return Cases;
}
