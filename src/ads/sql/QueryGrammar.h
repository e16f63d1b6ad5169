#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "ads/sql/Statement.h"

namespace ads::sql {

/// The language of the pick lists' queries: what a statement may consist of, so that all else is refused without having
/// to be known.
///
///     query   SELECT … { UNION [ALL] SELECT … } [ORDER BY …] [LIMIT number]
///     SELECT  [DISTINCT] [TOP number] columns [FROM tables] [WHERE …] [GROUP BY …] [HAVING …]
///     tables  names and queries in parentheses, with an alias or without, joined by commas and JOIN … ON
///     values  texts, numbers, columns, CASE, calls of the allowed functions, queries in parentheses,
///             joined by + - * / % || = <> != < > <= >= AND OR NOT LIKE IN BETWEEN IS EXISTS
///
/// A function is called by its bare name before a parenthesis and in no other way. Servers know others: PostgreSQL
/// calls `f(x)` for `(x).f` and for `f 'x'`, and every server has functions without parentheses (`CURRENT_USER`). None
/// of them is in the language.
class TQueryGrammar {
 public:
  /// `AllowedFunctions` are allowed besides those of the dialogs, their names in any case; each also where a table may
  /// stand. Both arguments must outlive the object.
  TQueryGrammar(const TStatement& Statement, std::span<const std::string> AllowedFunctions);

  /// Throws `EDatabaseError` with the place of the first token that the language has no place for.
  void Check();

 private:
  [[noreturn]] void Refuse(const std::string& What = {}) const;
  [[noreturn]] void RefuseTable() const;

  bool LooksAt(std::string_view Symbol) const { return Statement_.IsSymbol(At_, Symbol); }
  bool LooksAtWord(std::string_view Upper) const { return Statement_.IsKeyword(At_, Upper); }
  bool LooksAtName() const;
  bool LooksAtQuery() const;
  bool Take(std::string_view Symbol);
  bool TakeWord(std::string_view Upper);
  void Require(std::string_view Symbol);
  void RequireWord(std::string_view Upper);
  void RequireNumber();

  void Query();
  void Select();
  void SelectItem();
  void Tables();
  void JoinedTables();
  bool TakeJoin();
  void Table();
  void TableName();
  void Alias();
  void ColumnAlias();
  void SortItems();

  void Expression();
  void ExpressionList();
  void Operand();
  bool TakeOperator();
  bool TakeNegatable();
  void Parenthesis();
  void Case();
  void ColumnOrCall();
  void Call();
  void TypeName();

  bool IsAllowedFunction(const TToken& Name) const;
  bool IsAllowedByHost(const TToken& Name) const;
  bool TouchesNext() const;

  const TStatement& Statement_;
  std::span<const std::string> AllowedFunctions_;
  std::size_t At_ = 0;
};

}  // namespace ads::sql
