#include "sample/store/Schema.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace sample {

namespace {

/// The statements of a script without its comments, each without its semicolon.
std::vector<std::string> SplitStatements(std::string_view Sql) {
  std::vector<std::string> Result(1);
  for (std::size_t At = 0; At < Sql.size(); ++At) {
    if (Sql.substr(At, 2) == "--") {
      At = std::min(Sql.find('\n', At), Sql.size() - 1);
    }
    if (Sql[At] == ';') {
      Result.emplace_back();
    } else if (!Result.back().empty() || std::isspace(static_cast<unsigned char>(Sql[At])) == 0) {
      Result.back() += Sql[At];
    }
  }
  if (Result.back().empty()) {
    Result.pop_back();
  }
  return Result;
}

/// Walks over one statement word by word: a name, a quoted name, a number or one other character is a word.
class TStatement {
 public:
  explicit TStatement(std::string_view Sql) : Sql_(Sql) {}

  bool Accept(std::string_view Word) {
    const std::size_t Start = At_;
    if (Next() == Word) {
      return true;
    }
    At_ = Start;
    return false;
  }

  void Expect(std::string_view Word) {
    if (!Accept(Word)) {
      Fail(std::string(Word));
    }
  }

  std::string Name() {
    std::string Result = Next();
    if (Result.size() >= 2 && Result.front() == '"') {
      return Result.substr(1, Result.size() - 2);
    }
    if (Result.empty() || std::isalpha(static_cast<unsigned char>(Result.front())) == 0) {
      Fail("a name");
    }
    return Result;
  }

  std::size_t Number() {
    const std::string Word = Next();
    if (Word.empty() || !std::all_of(Word.begin(), Word.end(), [](unsigned char C) { return std::isdigit(C) != 0; })) {
      Fail("a number");
    }
    return std::stoul(Word);
  }

  void ExpectEnd() {
    if (!Next().empty()) {
      Fail("the end of the statement");
    }
  }

  [[noreturn]] void Fail(const std::string& Wanted) const {
    throw std::runtime_error("The schema cannot be read: " + Wanted + " expected in: " + std::string(Sql_));
  }

 private:
  std::string Next() {
    const auto IsWord = [](unsigned char C) { return std::isalnum(C) != 0 || C == '_'; };
    while (At_ < Sql_.size() && std::isspace(static_cast<unsigned char>(Sql_[At_])) != 0) {
      ++At_;
    }
    const std::size_t Start = At_;
    if (At_ < Sql_.size() && Sql_[At_] == '"') {
      At_ = std::min(Sql_.find('"', At_ + 1), Sql_.size() - 1) + 1;
    } else if (At_ < Sql_.size() && !IsWord(static_cast<unsigned char>(Sql_[At_]))) {
      ++At_;
    } else {
      while (At_ < Sql_.size() && IsWord(static_cast<unsigned char>(Sql_[At_]))) {
        ++At_;
      }
    }
    return std::string(Sql_.substr(Start, At_ - Start));
  }

  std::string_view Sql_;
  std::size_t At_ = 0;
};

void ReadType(TStatement& Statement, TColumn& Column) {
  static const std::vector<std::pair<std::string_view, TColumnType>> Types = {
      {"BOOLEAN", TColumnType::Boolean}, {"DATE", TColumnType::Date},         {"VARCHAR", TColumnType::Text},
      {"DOUBLE", TColumnType::Double},   {"SMALLINT", TColumnType::SmallInt}, {"INTEGER", TColumnType::Integer}};
  const auto Found =
      std::find_if(Types.begin(), Types.end(), [&](const auto& Type) { return Statement.Accept(Type.first); });
  if (Found == Types.end()) {
    Statement.Fail("a type of " + Column.Name);
  }
  Column.Type = Found->second;
  if (Column.Type == TColumnType::Text) {
    Statement.Expect("(");
    Column.Size = Statement.Number();
    Statement.Expect(")");
  }
}

TColumn ReadColumn(TStatement& Statement) {
  TColumn Column;
  Column.Name = Statement.Name();
  ReadType(Statement, Column);
  if (Statement.Accept("NOT")) {
    Statement.Expect("NULL");
    Column.Required = true;
  }
  if (Column.Type == TColumnType::Integer && Statement.Accept("PRIMARY")) {
    Statement.Expect("KEY");
    Column.Type = TColumnType::AutoNumber;
    Column.Required = true;
  }
  return Column;
}

TTable ReadTable(TStatement& Statement) {
  TTable Table;
  Table.Name = Statement.Name();
  Statement.Expect("(");
  do {
    Table.Columns.push_back(ReadColumn(Statement));
  } while (Statement.Accept(","));
  Statement.Expect(")");
  Statement.ExpectEnd();
  return Table;
}

TIndex ReadIndex(TStatement& Statement) {
  TIndex Index;
  Index.Unique = Statement.Accept("UNIQUE");
  Statement.Expect("INDEX");
  Index.Name = Statement.Name();
  Statement.Expect("ON");
  Index.Table = Statement.Name();
  Statement.Expect("(");
  do {
    Index.Columns.push_back(Statement.Name());
  } while (Statement.Accept(","));
  Statement.Expect(")");
  Statement.ExpectEnd();
  return Index;
}

}  // namespace

const TColumn* TTable::Find(std::string_view ColumnName) const {
  const auto Found =
      std::find_if(Columns.begin(), Columns.end(), [&](const TColumn& C) { return C.Name == ColumnName; });
  return Found == Columns.end() ? nullptr : &*Found;
}

const TTable& TSchema::Table(std::string_view Name) const {
  const auto Found = std::find_if(Tables.begin(), Tables.end(), [&](const TTable& T) { return T.Name == Name; });
  if (Found == Tables.end()) {
    throw std::runtime_error("The schema has no table " + std::string(Name) + ".");
  }
  return *Found;
}

TSchema ReadSchema(std::string_view Sql) {
  TSchema Result;
  for (const std::string& Text : SplitStatements(Sql)) {
    TStatement Statement(Text);
    Statement.Expect("CREATE");
    if (Statement.Accept("TABLE")) {
      Result.Tables.push_back(ReadTable(Statement));
      Result.Tables.back().Sql = Text;
    } else {
      Result.Indexes.push_back(ReadIndex(Statement));
      Result.Indexes.back().Sql = Text;
    }
  }
  return Result;
}

}  // namespace sample
