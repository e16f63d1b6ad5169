#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ads/zulads_export.h"

namespace ads::sql {

/// Rewrites a text of the dialogs' SQL, Advantage's, into what one kind of server needs to give it the same meaning:
///
/// - names in square brackets or double quotes, in any case; an unknown name is an error, never a text;
/// - `+` joins texts and adds numbers; `IIF`; `SubString`; `TRUE` and `FALSE`; an alias without AS;
/// - LIKE compares in exact case, with `%` and `_` as wildcards and nothing else special;
/// - `UPPER` agrees with `zulcommon::UpperCase`;
/// - texts sort by the code of their characters, nulls before values (after them in a descending order);
/// - lines may be joined by a carriage return alone.
///
/// What a dialect need not touch passes through byte for byte; comments become a blank each. Rewriting is a pure
/// function of the text alone, so `+` is taken for a joining one only where a text stands among its operands or a call
/// whose result is one: two columns are added. An instance holds no state and may be shared.
class ZULADS_EXPORT TDialect {
 public:
  virtual ~TDialect();
  virtual const char* Name() const = 0;

  /// The text for the server. One that cannot be taken apart (see `Tokenize`; parentheses that do not pair up) throws
  /// `EDatabaseError`, except where every text passes as it is.
  virtual std::string Rewrite(std::string_view Sql) const = 0;

  /// Throws `EDatabaseError` for a text that the server might read in another way than `Tokenize` does, with the place.
  virtual void RequireUnambiguous(std::string_view Sql) const;

  /// A plain `SELECT … FROM …` of one table, with or without a condition, made to give no more than one row, so that
  /// the server need not send the others; still in the dialogs' SQL.
  virtual std::string FirstRowOnly(std::string_view Select) const;

  /// A rewritten text that ends with its order, made to give no more than the first `Count` rows; empty where the
  /// server's SQL cannot say that of every text.
  virtual std::string FirstRows(std::string_view Rewritten, int Count) const;
};

/// Advantage itself: every text as it is. Also for every server that is not known, so a backslash right before a quote
/// within quotes is refused: some servers take the two for one character of the text, which would end elsewhere then.
class ZULADS_EXPORT TAdvantageDialect : public TDialect {
 public:
  const char* Name() const override;
  std::string Rewrite(std::string_view Sql) const override;
  void RequireUnambiguous(std::string_view Sql) const override;
  std::string FirstRowOnly(std::string_view Select) const override;
  std::string FirstRows(std::string_view Rewritten, int Count) const override;
};

/// SQLite 3.40 or later. `UPPER` becomes `zul_upper` and LIKE `zul_like(text, pattern)`, the functions that
/// `TAdsConnection` gives to a SQLite connection. Quoted names stand in brackets, because SQLite takes an unknown one
/// in double quotes for a text.
class ZULADS_EXPORT TSQLiteDialect : public TDialect {
 public:
  const char* Name() const override;
  std::string Rewrite(std::string_view Sql) const override;
};

/// SQLite 3.40 or later that is reached through a driver and has none but its own functions. `UPPER` becomes a
/// subquery that knows every letter, so its argument must not be an aggregate such as `MAX`; LIKE becomes INSTR or
/// GLOB. The rest is as with `TSQLiteDialect`.
class ZULADS_EXPORT TPlainSQLiteDialect : public TDialect {
 public:
  const char* Name() const override;
  std::string Rewrite(std::string_view Sql) const override;
};

/// PostgreSQL 12 or later, with the ICU collations. Tables and columns are expected under lower-case names, as the
/// server keeps a name that was created without quotes; so are the names of the columns that a query gives.
class ZULADS_EXPORT TPostgreSQLDialect : public TDialect {
 public:
  const char* Name() const override;
  std::string Rewrite(std::string_view Sql) const override;
};

/// MariaDB 10.11.6 or later, in whatever `sql_mode` and character set the session is: the text is ASCII but for names
/// that are not. Tables are expected under lower-case names, because on most systems the server keeps those that differ
/// by case apart; columns are found in any case. Texts are compared for equality as their columns say, which is exact
/// under the collation `utf8mb4_nopad_bin`.
class ZULADS_EXPORT TMariaDBDialect : public TDialect {
 public:
  const char* Name() const override;
  std::string Rewrite(std::string_view Sql) const override;

  /// Refuses `S.NextVal` in any quotes, which one of the server's modes takes for a call that counts a sequence on.
  void RequireUnambiguous(std::string_view Sql) const override;
};

}  // namespace ads::sql
