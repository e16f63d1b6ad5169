#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ads/Connection.h"
#include "ads/zulads_export.h"
#include "zulcommon/Set.h"

namespace ads {

/// What a column can hold for a dialog.
enum class TColumnKind : std::uint8_t { Text, Number, Boolean, Date };
using TColumnKinds = zulcommon::TSet<TColumnKind>;

struct TColumnFacts {
  std::string Name;
  std::string Type;        ///< as the server calls it; empty where it tells none
  TColumnKinds Serves;     ///< what a dialog can use it for
  bool IsReadable = true;  ///< whether the account may read it
};

struct TIndexFacts {
  std::string Name;
  std::vector<std::string> Columns;  ///< an empty text for what is no plain column
};

struct ZULADS_EXPORT TTableFacts {
  std::string Name;
  bool IsView = false;  ///< or a table of another server: it has no indexes here
  std::string Failure;  ///< why its columns are not known; empty when they are
  std::vector<TColumnFacts> Columns;
  std::vector<TIndexFacts> Indexes;  ///< over all its rows, the key of the table among them

  /// In any case; null when there is none.
  const TColumnFacts* Find(const std::string& ColumnName) const;
};

/// A table of the name that is asked for, but not as the connection would find it.
struct TOtherTable {
  std::string Asked;
  std::string Where;
};

/// Something that the server as a whole lacks for the dialogs.
struct TShortcoming {
  std::string Text;
  std::string Mend;  ///< the statement that mends it, if there is one
  std::string Sign;  ///< what stands in each statement that fails over it; empty when none does
};

/// What a server and a database are, as far as it matters to the dialogs.
struct ZULADS_EXPORT TServerFacts {
  std::string Driver;  ///< Qt's
  std::string Server;  ///< its name
  std::string Version;
  std::string Account;  ///< empty where there are none
  std::vector<TShortcoming> Shortcomings;
  std::vector<TTableFacts> Tables;  ///< those that were asked for and are there
  std::vector<TOtherTable> Others;
  bool KnowsIndexes = true;

  /// In any case; null when there is none.
  const TTableFacts* Find(const std::string& TableName) const;
};

/// Asks the server, reading only and in the way in which cursors read: a transaction of the host's is as it was then.
/// Throws `EDatabaseError`.
ZULADS_EXPORT TServerFacts ReadServerFacts(const TAdsConnection& Connection,
                                           const std::vector<std::string>& TableNames);

/// Statements that mend something, in the server's SQL and in the way in which it writes names.
ZULADS_EXPORT std::string CreateIndexText(const TAdsConnection& Connection, const std::string& Name,
                                          const std::string& Table, const std::vector<std::string>& Columns);
/// `Values` are literals of the dialogs' SQL, one for each column.
ZULADS_EXPORT std::string InsertText(const TAdsConnection& Connection, const std::string& Table,
                                     const std::vector<std::string>& Columns, const std::vector<std::string>& Values);
ZULADS_EXPORT std::string GrantSelectText(const TAdsConnection& Connection, const std::string& Table,
                                          const std::string& Account);

}  // namespace ads
