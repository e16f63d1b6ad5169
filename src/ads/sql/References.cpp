#include "ads/sql/References.h"

#include <algorithm>
#include <map>

#include "ads/sql/Statement.h"
#include "zulcommon/Ascii.h"

namespace ads::sql {

namespace {

// Bare words that are neither a column nor a table's other name, in order.
constexpr std::string_view ClauseWords[] = {"ALL",   "ASC",    "BY",     "CROSS", "DESC",  "DISTINCT", "FROM", "FULL",
                                            "GROUP", "HAVING", "INNER",  "JOIN",  "LEFT",  "LIMIT",    "ON",   "ORDER",
                                            "OUTER", "RIGHT",  "SELECT", "TOP",   "UNION", "WHERE"};

constexpr std::size_t None = TStatement::None;

std::string Folded(const std::string& Name) {
  std::string Result;
  for (const char Byte : Name) Result += zulcommon::LowerAscii(Byte);
  return Result;
}

void AddOnce(std::vector<std::string>& Names, const std::string& Name) {
  const auto IsSame = [&Name](const std::string& Other) { return Folded(Other) == Folded(Name); };
  if (std::none_of(Names.begin(), Names.end(), IsSame)) Names.push_back(Name);
}

class TReferenceReader {
 public:
  explicit TReferenceReader(std::string_view Sql)
      : Statement_(Sql), PartOf_(Statement_.Count(), None), Depth_(Statement_.Count()), IsTaken_(Statement_.Count()) {}

  TReferences Read() {
    FindParts();
    FindTables();
    FindColumns();
    return std::move(Result_);
  }

 private:
  // One SELECT up to its end or the next part of a UNION.
  struct TPart {
    std::size_t Outer = None;                    // the part in which it stands
    std::size_t TablesDepth = None;              // of parentheses, while its tables are being named
    std::map<std::string, std::string> Sources;  // tables by the name that they have here; empty for a query
  };

  void FindParts() {
    std::vector<std::size_t> Open;
    std::size_t Current = None;
    for (std::size_t Position = 0; Position < Statement_.Count(); ++Position) {
      if (Statement_.IsSymbol(Position, "(")) Open.push_back(Current);
      if (Statement_.IsKeyword(Position, "SELECT")) {
        Parts_.push_back({Open.empty() ? None : Open.back(), None, {}});
        Current = Parts_.size() - 1;
      }
      if (Statement_.IsSymbol(Position, ")")) {
        Current = Open.back();
        Open.pop_back();
      }
      PartOf_[Position] = Current;
      Depth_[Position] = Open.size();
    }
  }

  void FindTables() {
    for (std::size_t Position = 0; Position < Statement_.Count(); ++Position) {
      if (PartOf_[Position] == None) continue;
      TPart& Part = Parts_[PartOf_[Position]];
      if (Statement_.IsKeyword(Position, "FROM")) {
        Part.TablesDepth = Depth_[Position];
        TakeTable(Position + 1, Part);
      } else if (Statement_.IsKeyword(Position, "JOIN")) {
        TakeTable(Position + 1, Part);
      } else if (Depth_[Position] == Part.TablesDepth) {
        if (Statement_.IsSymbol(Position, ",")) TakeTable(Position + 1, Part);
        for (const char* End : {"WHERE", "GROUP", "HAVING", "ORDER", "UNION"}) {
          if (Statement_.IsKeyword(Position, End)) Part.TablesDepth = None;
        }
      }
    }
  }

  void TakeTable(std::size_t Position, TPart& Part) {
    std::string Table;
    if (Statement_.IsSymbol(Position, "(")) {
      if (!Statement_.IsKeyword(Position + 1, "SELECT")) return TakeTable(Position + 1, Part);
      Position = Statement_.Partner(Position);
    } else {
      if (!Statement_.IsName(Position)) return;
      while (Statement_.IsSymbol(Position + 1, ".")) Position += 2;
      Table = NameOf(Statement_[Position]);
      IsTaken_[Position] = true;
      AddOnce(Result_.Tables, Table);
    }
    ++Position;
    if (Statement_.IsKeyword(Position, "AS")) ++Position;
    std::string Alias = Table;
    if (IsFreeName(Position)) {
      Alias = NameOf(Statement_[Position]);
      IsTaken_[Position] = true;
    }
    Part.Sources[Folded(Alias)] = Table;
  }

  bool IsFreeName(std::size_t Position) const {
    if (!Statement_.IsName(Position)) return false;
    const TToken& Token = Statement_[Position];
    return Token.Kind == TTokenKind::QuotedName || Statement_.IsQualified(Position) ||
           !IsOneOf(Token.Source, ClauseWords);
  }

  void FindColumns() {
    for (const auto& List : Statement_.SelectLists()) {
      for (const auto& Item : List.Items) {
        if (Item.Alias != None) IsTaken_[Item.Alias] = true;
      }
    }
    for (std::size_t Position = 0; Position < Statement_.Count(); ++Position) {
      const bool IsColumn = IsFreeName(Position) && !IsTaken_[Position] && PartOf_[Position] != None &&
                            !Statement_.IsSymbol(Position + 1, "(") && !Statement_.IsSymbol(Position + 1, ".");
      if (IsColumn) TakeColumn(Position);
    }
  }

  void TakeColumn(std::size_t Position) {
    TColumnReference Fresh{NameOf(Statement_[Position]), {}};
    const bool Qualified = Statement_.IsQualified(Position);
    const std::string Qualifier = Qualified ? Folded(NameOf(Statement_[Position - 2])) : std::string();
    for (std::size_t At = PartOf_[Position]; At != None; At = Parts_[At].Outer) {
      const auto& Sources = Parts_[At].Sources;
      if (Qualified) {
        const auto Found = Sources.find(Qualifier);
        if (Found == Sources.end()) continue;
        if (!Found->second.empty()) Fresh.Tables.push_back(Found->second);
        break;
      }
      for (const auto& [Alias, Table] : Sources) {
        if (!Table.empty()) AddOnce(Fresh.Tables, Table);
      }
    }
    if (!Fresh.Tables.empty()) AddOnceColumn(std::move(Fresh));
  }

  void AddOnceColumn(TColumnReference Fresh) {
    const auto IsSame = [&Fresh](const TColumnReference& Other) {
      return Folded(Other.Name) == Folded(Fresh.Name) && Other.Tables == Fresh.Tables;
    };
    if (std::none_of(Result_.Columns.begin(), Result_.Columns.end(), IsSame)) {
      Result_.Columns.push_back(std::move(Fresh));
    }
  }

  const TStatement Statement_;
  std::vector<TPart> Parts_;
  std::vector<std::size_t> PartOf_;  // by position
  std::vector<std::size_t> Depth_;   // by position
  std::vector<bool> IsTaken_;        // by position: a table's name or one that is given to something
  TReferences Result_;
};

}  // namespace

TReferences ReferencesOf(std::string_view Sql) {
  return TReferenceReader(Sql).Read();
}

}  // namespace ads::sql
