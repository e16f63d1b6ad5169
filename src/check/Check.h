#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "catalog/Catalog.h"
#include "check/zulcheck_export.h"

/// Whether a host's own database is fit for the picks, and what it lacks.
namespace check {

enum class TFindingKind : std::uint8_t {
  Server,  // the server as a whole: its version, a collation
  MissingTable,
  MissingColumn,
  UnfitType,      // a column is of a type that the dialogs cannot use
  MissingRight,   // the account may not read a table or a column
  EmptySettings,  // a table of settings, Sys, has no row
  FailingQuery,   // the server does not take a query, and none of the above tells why
  MissingIndex,
};

enum class TSeverity : std::uint8_t {
  Breaks,      // picks do not work
  Advice,      // they could work better
  DialogsOwn,  // a query that no database takes: the dialog says so in that state, and works in the others
};

struct TFinding {
  TFindingKind Kind;
  TSeverity Severity;
  std::string Text;                 ///< a sentence or two
  std::vector<std::string> Picks;   ///< the names of those concerned, in the catalog's order
  std::vector<std::string> States;  ///< of a failing query: the calls and choices that send it
  std::string Mend;                 ///< the statement that mends it, in the server's SQL; empty when there is none
};

/// A table that a pick reads, and the columns of it.
struct TNeed {
  std::string Table;
  std::vector<std::string> Columns;
};

struct TPickReport {
  std::string Name;
  bool IsFit = true;  ///< nothing that breaks it was found
  int Queries = 0;    ///< different ones that its dialog can send
  std::vector<TNeed> Needs;
};

struct ZULCHECK_EXPORT TReport {
  std::string Driver;  ///< Qt's
  std::string Server;  ///< what answers, such as "PostgreSQL"
  std::string Version;
  std::string Account;       ///< on a server that has them
  int Queries = 0;           ///< so many different texts the server was asked to prepare
  bool KnowsIndexes = true;  ///< whether it could be asked for its indexes
  std::vector<TPickReport> Picks;
  std::vector<TFinding> Findings;

  /// Whether nothing was found that breaks a pick.
  bool IsFit() const;
};

/// Builds the dialog of each pick with every argument and in every state, and has the server prepare every query that
/// it would send. Only the settings (`Sys`) are read; no row of the host's is, and nothing is written or shown. A
/// transaction of the host's stays as it is.
///
/// A query that fails is asked of an empty database of the dialogs' own schema as well, in memory, to tell whose fault
/// it is; without Qt's driver QSQLITE it passes for the database's.
///
/// Takes seconds, on the thread of the user interface. Throws `ads::EDatabaseError` when the database cannot be asked
/// at all, and `std::logic_error` as a pick does.
ZULCHECK_EXPORT TReport Check(ads::TAdsConnection* Connection, const std::vector<const catalog::TPick*>& Picks);

/// The same for all picks there are.
ZULCHECK_EXPORT TReport Check(ads::TAdsConnection* Connection);

/// The report to be read, by lines.
ZULCHECK_EXPORT std::string TextOf(const TReport& Report);

}  // namespace check
