#include "ads/ServerFacts.h"

#include <QSqlDriver>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlRecord>
#include <algorithm>
#include <charconv>
#include <optional>

#include "ads/Cursor.h"
#include "ads/EDatabaseError.h"
#include "zulcommon/Ascii.h"
#include "zulcommon/Text.h"

namespace ads {

namespace {

using TRow = std::vector<std::string>;  // a null is an empty text

// The texts are the layer's own, so they pass no gate; the cursor sees to it that they change nothing.
std::vector<TRow> Rows(const TAdsConnection& Connection, const std::string& Sql) {
  const std::unique_ptr<TCursor> Cursor = Connection.NewCursor();
  Cursor->Begin(Sql);
  std::vector<TRow> Result;
  while (Cursor->Next()) {
    TRow& Row = Result.emplace_back();
    for (int Column = 0; Column < Cursor->ColumnCount(); ++Column) {
      const bool IsNull = Cursor->Kind(Column) == TValueKind::Null;
      Row.push_back(IsNull ? std::string() : std::string(Cursor->Text(Column)));
    }
  }
  return Result;
}

std::string Lower(const std::string& Text) {
  std::string Result;
  for (const char Byte : Text) Result += zulcommon::LowerAscii(Byte);
  return Result;
}

std::string Literal(const std::string& Text) {
  std::string Result = "'";
  for (const char Byte : Text) Result.append(Byte == '\'' ? 2 : 1, Byte);
  return Result + "'";
}

// For behind IN: never empty, which not every server takes.
std::string LowerLiterals(const std::vector<std::string>& Names) {
  std::string Result = "(''";
  for (const std::string& Name : Names) Result += ", " + Literal(Lower(Name));
  return Result + ")";
}

bool Has(const std::string& Text, std::initializer_list<const char*> Parts) {
  return std::any_of(Parts.begin(), Parts.end(), [&](const char* Part) { return Text.find(Part) != Text.npos; });
}

// The leading number of each part of a version, such as {3, 40} of "3.40.1".
bool IsOlder(const std::string& Version, int Major, int Minor) {
  int Parts[2] = {0, 0};
  const char* At = Version.data();
  const char* End = At + Version.size();
  for (int& Part : Parts) {
    At = std::from_chars(At, End, Part).ptr;
    if (At == End || *At++ != '.') break;
  }
  return Parts[0] != Major ? Parts[0] < Major : Parts[1] < Minor;
}

void RequireVersion(TServerFacts& Facts, int Major, int Minor) {
  if (!IsOlder(Facts.Version, Major, Minor)) return;
  const std::string Wanted = std::to_string(Major) + (Minor > 0 ? "." + std::to_string(Minor) : "");
  Facts.Shortcomings.push_back(
      {Facts.Server + " " + Facts.Version + " is older than " + Wanted + ", for which the dialogs' queries are made.",
       {},
       {}});
}

constexpr TColumnKinds Everything{TColumnKind::Text, TColumnKind::Number, TColumnKind::Boolean, TColumnKind::Date};

// By the declared type, as SQLite itself tells what a column prefers to hold; a date is a text there.
TColumnKinds ServesInSQLite(const std::string& Declared) {
  const std::string Type = Lower(Declared);
  if (Type.empty()) return Everything;
  if (Has(Type, {"bool"})) return {TColumnKind::Boolean, TColumnKind::Number};
  if (Has(Type, {"date", "time"})) return {TColumnKind::Date};
  if (Has(Type, {"int"})) return {TColumnKind::Number, TColumnKind::Boolean};
  if (Has(Type, {"char", "clob", "text"})) return {TColumnKind::Text, TColumnKind::Date};
  if (Has(Type, {"blob"})) return {};
  return {TColumnKind::Number, TColumnKind::Boolean};
}

void AddSQLiteIndexes(const TAdsConnection& Connection, TTableFacts& Table) {
  const std::string Sql = "SELECT l.name, i.name FROM pragma_index_list(" + Literal(Table.Name) +
                          ") l, pragma_index_info(l.name) i WHERE l.partial = 0 ORDER BY l.seq, i.seqno";
  for (const TRow& Row : Rows(Connection, Sql)) {
    if (Table.Indexes.empty() || Table.Indexes.back().Name != Row[0]) Table.Indexes.push_back({Row[0], {}});
    Table.Indexes.back().Columns.push_back(Row[1]);
  }
}

// A view over something that is gone has no columns that could be told.
void AddSQLiteColumns(const TAdsConnection& Connection, TTableFacts& Table) {
  std::string RowKey;
  int KeyColumns = 0;
  try {
    const std::string Sql = "SELECT name, type, pk FROM pragma_table_xinfo(" + Literal(Table.Name) + ")";
    for (const TRow& Row : Rows(Connection, Sql)) {
      Table.Columns.push_back({Row[0], Row[1], ServesInSQLite(Row[1]), true});
      if (Row[2] == "0") continue;
      ++KeyColumns;
      if (Lower(Row[1]) == "integer") RowKey = Row[0];
    }
  } catch (const EConnectionLost&) {
    throw;
  } catch (const EDatabaseError& Error) {
    Table.Failure = Error.what();
  }
  if (KeyColumns == 1 && !RowKey.empty()) Table.Indexes.push_back({"the table's key", {RowKey}});
}

void AddSQLite(const TAdsConnection& Connection, const std::vector<std::string>& Names, TServerFacts& Facts) {
  Facts.Server = "SQLite";
  Facts.Version = Rows(Connection, "SELECT sqlite_version()").at(0).at(0);
  RequireVersion(Facts, 3, 40);
  const std::string Sql =
      "SELECT name, type FROM (SELECT name, type FROM sqlite_master UNION ALL SELECT name, type "
      "FROM sqlite_temp_master) m WHERE type IN ('table', 'view') AND lower(name) IN " +
      LowerLiterals(Names) + " ORDER BY name";
  for (const TRow& Row : Rows(Connection, Sql)) {
    TTableFacts& Table = Facts.Tables.emplace_back();
    Table.Name = Row[0];
    Table.IsView = Row[1] == "view";
    AddSQLiteColumns(Connection, Table);
    if (!Table.IsView) AddSQLiteIndexes(Connection, Table);
  }
}

TColumnKinds ServesInPostgreSQL(const std::string& Type) {
  if (Type == "boolean") return {TColumnKind::Boolean};
  if (Type == "date" || Type.starts_with("timestamp")) return {TColumnKind::Date};
  for (const char* Number : {"smallint", "integer", "bigint", "real", "double precision", "numeric", "money"}) {
    if (Type == Number) return {TColumnKind::Number};
  }
  return {TColumnKind::Text};  // anything else is read as its text
}

// In its own columns, so that no driver has to know the catalog's types.
constexpr char PostgreSQLColumns[] =
    "SELECT CAST(c.relname AS text), CASE WHEN c.relkind IN ('v', 'm', 'f') THEN 1 ELSE 0 END, CAST(a.attname AS "
    "text), "
    "format_type(CASE WHEN t.typbasetype <> 0 THEN t.typbasetype ELSE a.atttypid END, NULL), "
    "CASE WHEN has_column_privilege(c.oid, a.attnum, 'SELECT') THEN 1 ELSE 0 END "
    "FROM pg_catalog.pg_class c INNER JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid "
    "INNER JOIN pg_catalog.pg_type t ON t.oid = a.atttypid "
    "WHERE c.relkind IN ('r', 'v', 'm', 'f', 'p') AND a.attnum > 0 AND NOT a.attisdropped "
    "AND pg_catalog.pg_table_is_visible(c.oid) AND c.relname IN ";
constexpr char PostgreSQLIndexes[] =
    "SELECT CAST(c.relname AS text), CAST(n.relname AS text), CAST(a.attname AS text) "
    "FROM pg_catalog.pg_index i INNER JOIN pg_catalog.pg_class c ON c.oid = i.indrelid "
    "INNER JOIN pg_catalog.pg_class n ON n.oid = i.indexrelid "
    "CROSS JOIN LATERAL unnest(CAST(i.indkey AS smallint[])) WITH ORDINALITY k (attnum, place) "
    "LEFT JOIN pg_catalog.pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = k.attnum "
    "WHERE i.indisvalid AND i.indpred IS NULL AND k.place <= i.indnkeyatts "
    "AND pg_catalog.pg_table_is_visible(c.oid) AND c.relname IN ";
// Of partitioned tables: the columns over which every partition of this server has an index, be it of its own. In two
// parts, between which the names belong.
constexpr char PostgreSQLPartitionIndexes[] =
    "WITH RECURSIVE part AS (SELECT c.oid AS parent, c.relname, c.oid AS relid, c.relkind FROM pg_catalog.pg_class c "
    "WHERE c.relkind = 'p' AND pg_catalog.pg_table_is_visible(c.oid) AND c.relname IN ";
constexpr char PostgreSQLPartitionIndexesRest[] =
    " UNION ALL SELECT p.parent, p.relname, h.inhrelid, l.relkind FROM part p "
    "INNER JOIN pg_catalog.pg_inherits h ON h.inhparent = p.relid "
    "INNER JOIN pg_catalog.pg_class l ON l.oid = h.inhrelid), "
    "leaf AS (SELECT * FROM part WHERE relkind = 'r'), "
    "keys AS (SELECT DISTINCT f.parent, f.relname, f.relid, (SELECT array_agg(coalesce(CAST(a.attname AS text), '') "
    "ORDER BY k.place) FROM unnest(CAST(i.indkey AS smallint[])) WITH ORDINALITY k (attnum, place) "
    "LEFT JOIN pg_catalog.pg_attribute a ON a.attrelid = i.indrelid AND a.attnum = k.attnum "
    "WHERE k.place <= i.indnkeyatts) AS names FROM leaf f "
    "INNER JOIN pg_catalog.pg_index i ON i.indrelid = f.relid WHERE i.indisvalid AND i.indpred IS NULL), "
    "everywhere AS (SELECT y.relname, y.names FROM keys y GROUP BY y.parent, y.relname, y.names "
    "HAVING COUNT(*) = (SELECT COUNT(*) FROM leaf f WHERE f.parent = y.parent)) "
    "SELECT CAST(e.relname AS text), CAST(e.names AS text), n.name FROM everywhere e "
    "CROSS JOIN LATERAL unnest(e.names) WITH ORDINALITY n (name, place) ORDER BY 1, 2, n.place";
constexpr char PostgreSQLOthers[] =
    "SELECT CAST(c.relname AS text), CAST(s.nspname AS text), "
    "CASE WHEN has_schema_privilege(s.oid, 'USAGE') THEN 1 ELSE 0 END "
    "FROM pg_catalog.pg_class c INNER JOIN pg_catalog.pg_namespace s ON s.oid = c.relnamespace "
    "WHERE c.relkind IN ('r', 'v', 'm', 'f', 'p') "
    "AND (NOT pg_catalog.pg_table_is_visible(c.oid) OR c.relname <> lower(c.relname)) "
    "AND s.nspname NOT IN ('pg_catalog', 'information_schema') AND lower(c.relname) IN ";

// Of rows with the table, the index and its next column.
void AddIndexes(const std::vector<TRow>& Columns, TServerFacts& Facts) {
  for (const TRow& Row : Columns) {
    const auto IsTable = [&Row](const TTableFacts& Table) { return Table.Name == Row[0]; };
    const auto Table = std::find_if(Facts.Tables.begin(), Facts.Tables.end(), IsTable);
    if (Table == Facts.Tables.end()) continue;
    if (Table->Indexes.empty() || Table->Indexes.back().Name != Row[1]) Table->Indexes.push_back({Row[1], {}});
    Table->Indexes.back().Columns.push_back(Row[2]);
  }
}

void AddPostgreSQLTables(const TAdsConnection& Connection, const std::string& Names, TServerFacts& Facts) {
  for (const TRow& Row : Rows(Connection, PostgreSQLColumns + Names + " ORDER BY c.relname, a.attnum")) {
    if (Facts.Tables.empty() || Facts.Tables.back().Name != Row[0]) {
      Facts.Tables.push_back({Row[0], Row[1] == "1", {}, {}, {}});
    }
    Facts.Tables.back().Columns.push_back({Row[2], Row[3], ServesInPostgreSQL(Row[3]), Row[4] == "1"});
  }
  AddIndexes(Rows(Connection, PostgreSQLIndexes + Names + " ORDER BY c.relname, n.relname, k.place"), Facts);
  AddIndexes(Rows(Connection, PostgreSQLPartitionIndexes + Names + PostgreSQLPartitionIndexesRest), Facts);
  for (const TRow& Row : Rows(Connection, PostgreSQLOthers + Names)) {
    const char* Why = Row[2] == "0"             ? ", a schema that the account may not use"
                      : Row[0] != Lower(Row[0]) ? "; names must be in lower case"
                                                : ", a schema that is not in the search path";
    Facts.Others.push_back({Lower(Row[0]), "\"" + Row[0] + "\" stands in \"" + Row[1] + "\"" + Why});
  }
}

// Those that the dialect names.
void RequireCollations(const TAdsConnection& Connection, TServerFacts& Facts) {
  constexpr char Sql[] =
      "SELECT 1 FROM pg_catalog.pg_collation WHERE collname = 'und-x-icu' AND collprovider = 'i' AND "
      "pg_catalog.pg_collation_is_visible(oid)";
  if (!Rows(Connection, Sql).empty()) return;
  Facts.Shortcomings.push_back(
      {"The ICU collation \"und-x-icu\" is missing, by which letters are turned into capitals.",
       "CREATE COLLATION \"und-x-icu\" (provider = icu, locale = 'und')", "\"und-x-icu\""});
}

void AddPostgreSQL(const TAdsConnection& Connection, const std::vector<std::string>& Names, TServerFacts& Facts) {
  const std::vector<TRow> Server =
      Rows(Connection, "SELECT current_setting('server_version'), CAST(current_user AS text)");
  Facts.Server = "PostgreSQL";
  Facts.Version = Server.at(0).at(0);
  Facts.Account = Server.at(0).at(1);
  RequireVersion(Facts, 12, 0);
  RequireCollations(Connection, Facts);
  AddPostgreSQLTables(Connection, LowerLiterals(Names), Facts);
}

TColumnKinds ServesInMariaDB(const std::string& Declared) {
  const std::string Type = Lower(Declared.substr(0, Declared.find_first_of("( ")));
  if (Type == "tinyint" || Type == "bit") return {TColumnKind::Boolean, TColumnKind::Number};
  if (Type == "date" || Type == "datetime" || Type == "timestamp") return {TColumnKind::Date};
  for (const char* Number : {"smallint", "mediumint", "int", "bigint", "decimal", "float", "double", "year"}) {
    if (Type == Number) return {TColumnKind::Number};
  }
  return {TColumnKind::Text};  // anything else is read as its text
}

// Of those that the account may see.
constexpr char MariaDBColumns[] =
    "SELECT t.table_name, CASE WHEN t.table_type LIKE '%VIEW' THEN 1 ELSE 0 END, c.column_name, c.column_type, "
    "CASE WHEN FIND_IN_SET('select', c.privileges) > 0 THEN 1 ELSE 0 END "
    "FROM information_schema.tables t LEFT JOIN information_schema.columns c "
    "ON c.table_schema = t.table_schema AND c.table_name = t.table_name "
    "WHERE t.table_schema = DATABASE() AND t.table_name IN ";
constexpr char MariaDBIndexes[] =
    "SELECT table_name, index_name, column_name FROM information_schema.statistics "
    "WHERE table_schema = DATABASE() AND table_name IN ";
constexpr char MariaDBOthers[] =
    "SELECT table_name, table_schema FROM information_schema.tables WHERE table_schema = DATABASE() "
    "AND BINARY table_name <> lower(table_name) AND lower(table_name) IN ";

// Names as their bytes, which are read in one way in every mode of the session.
std::string LowerNamesAsBytes(const std::vector<std::string>& Names) {
  constexpr char Digits[] = "0123456789ABCDEF";
  std::string Result = "(''";
  for (const std::string& Name : Names) {
    Result += ", _utf8mb4 X'";
    for (const char Byte : Lower(Name)) {
      const auto Value = static_cast<unsigned char>(Byte);
      Result += {Digits[Value >> 4], Digits[Value & 15]};
    }
    Result += '\'';
  }
  return Result + ")";
}

// A table that the account may do nothing with is one that the server does not speak of, unless it is asked for rows.
void AddHiddenTables(const TAdsConnection& Connection, const std::vector<std::string>& Names, TServerFacts& Facts) {
  for (const std::string& Name : Names) {
    if (Facts.Find(Name) != nullptr) continue;
    try {
      Connection.NewCursor()->Prepare(Connection.Dialect().Rewrite("SELECT 1 FROM [" + Name + "]"));
    } catch (const EConnectionLost&) {
      throw;
    } catch (const EDatabaseError& Error) {
      const std::string Message = Error.what();
      if (Message.find("denied") == Message.npos) continue;
      Facts.Others.push_back({Lower(Name), "Or the account may not read it: " + Message});
    }
  }
}

void AddMariaDB(const TAdsConnection& Connection, const std::vector<std::string>& TableNames, TServerFacts& Facts) {
  const std::vector<TRow> Server = Rows(Connection, "SELECT VERSION(), CURRENT_USER()");
  Facts.Server = "MariaDB";
  Facts.Version = Server.at(0).at(0);
  Facts.Account = Server.at(0).at(1);
  RequireVersion(Facts, 10, 11);
  const std::string Names = LowerNamesAsBytes(TableNames);
  for (const TRow& Row : Rows(Connection, MariaDBColumns + Names + " ORDER BY t.table_name, c.ordinal_position")) {
    if (Row[0] != Lower(Row[0])) continue;
    if (Facts.Tables.empty() || Facts.Tables.back().Name != Row[0]) {
      Facts.Tables.push_back({Row[0], Row[1] == "1", Row[2].empty() ? "The server tells no columns." : "", {}, {}});
    }
    if (Row[2].empty()) continue;
    Facts.Tables.back().Columns.push_back({Row[2], Row[3], ServesInMariaDB(Row[3]), Row[4] == "1"});
  }
  AddIndexes(Rows(Connection, MariaDBIndexes + Names + " ORDER BY table_name, index_name, seq_in_index"), Facts);
  for (const TRow& Row : Rows(Connection, MariaDBOthers + Names)) {
    Facts.Others.push_back(
        {Lower(Row[0]), "\"" + Row[0] + "\" stands in \"" + Row[1] + "\"; names must be in lower case"});
  }
  AddHiddenTables(Connection, TableNames, Facts);
}

TColumnKinds ServesAs(QMetaType Type) {
  switch (Type.id()) {
    case QMetaType::Bool:
      return {TColumnKind::Boolean};
    case QMetaType::QDate:
    case QMetaType::QDateTime:
      return {TColumnKind::Date};
    case QMetaType::QString:
      return {TColumnKind::Text, TColumnKind::Date};
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
      return {TColumnKind::Number, TColumnKind::Boolean};
    default:
      return Everything;
  }
}

// Of a server that nobody here knows: what Qt's driver tells, which knows no more of the indexes than the key.
void AddOther(const TAdsConnection& Connection, const std::vector<std::string>& Names, TServerFacts& Facts) {
  const QSqlDatabase& Database = Connection.Database();
  Facts.KnowsIndexes = false;
  if (void* Handle = ODBCHandle(Database)) {
    Facts.Server = ODBCServerName(Handle);
    Facts.Version = ODBCServerVersion(Handle);
  }
  for (const QString& Name : Database.tables(QSql::Tables) + Database.tables(QSql::Views)) {
    const auto IsAsked = [&Name](const std::string& Asked) { return zulcommon::SameText(Asked, Name.toStdString()); };
    if (std::none_of(Names.begin(), Names.end(), IsAsked)) continue;
    TTableFacts& Table = Facts.Tables.emplace_back();
    Table.Name = Name.toStdString();
    const QSqlRecord Record = Database.record(Name);
    for (int Column = 0; Column < Record.count(); ++Column) {
      const QMetaType Type = Record.field(Column).metaType();
      Table.Columns.push_back({Record.fieldName(Column).toStdString(), Type.name(), ServesAs(Type), true});
    }
    if (Table.Columns.empty()) Table.Failure = "The driver tells no columns.";
  }
}

enum class TServerKind { SQLite, PostgreSQL, MariaDB, Other };

TServerKind KindOf(const QSqlDatabase& Database) {
  if (SQLiteHandle(Database) != nullptr) return TServerKind::SQLite;
  if (PostgreSQLHandle(Database) != nullptr) return TServerKind::PostgreSQL;
  if (MariaDBHandle(Database) != nullptr) return TServerKind::MariaDB;
  void* Handle = ODBCHandle(Database);
  switch (Handle != nullptr ? ODBCServer(Handle) : TODBCServer::Other) {
    case TODBCServer::SQLite:
      return TServerKind::SQLite;
    case TODBCServer::PostgreSQL:
      return TServerKind::PostgreSQL;
    case TODBCServer::MariaDB:
      return TServerKind::MariaDB;
    default:
      return TServerKind::Other;
  }
}

using TAddFacts = void (*)(const TAdsConnection&, const std::vector<std::string>&, TServerFacts&);

TAddFacts AdderFor(TServerKind Kind) {
  switch (Kind) {
    case TServerKind::SQLite:
      return AddSQLite;
    case TServerKind::PostgreSQL:
      return AddPostgreSQL;
    case TServerKind::MariaDB:
      return AddMariaDB;
    default:
      return AddOther;
  }
}

std::string Quoted(const std::string& Name, char Quote) {
  std::string Result(1, Quote);
  for (const char Byte : Name) Result.append(Byte == Quote ? 2 : 1, Byte);
  return Result + Quote;
}

// A name of a table or column in a statement that is no query, which a dialect does not rewrite in every place.
std::string NameFor(const TAdsConnection& Connection, const std::string& Name) {
  if (KindOf(Connection.Database()) == TServerKind::MariaDB) return Quoted(Name, '`');
  return Connection.Dialect().Rewrite("[" + Name + "]");
}

std::string TableFor(const TAdsConnection& Connection, const std::string& Name) {
  const bool IsLower = KindOf(Connection.Database()) == TServerKind::MariaDB;
  return NameFor(Connection, IsLower ? Lower(Name) : Name);
}

std::string ColumnList(const TAdsConnection& Connection, const std::vector<std::string>& Columns) {
  std::string List;
  for (const std::string& Column : Columns) List += (List.empty() ? "(" : ", ") + NameFor(Connection, Column);
  return List + ")";
}

}  // namespace

const TColumnFacts* TTableFacts::Find(const std::string& ColumnName) const {
  const auto Found = std::find_if(Columns.begin(), Columns.end(), [&](const TColumnFacts& Column) {
    return zulcommon::SameText(Column.Name, ColumnName);
  });
  return Found == Columns.end() ? nullptr : &*Found;
}

const TTableFacts* TServerFacts::Find(const std::string& TableName) const {
  const auto Found = std::find_if(Tables.begin(), Tables.end(),
                                  [&](const TTableFacts& Table) { return zulcommon::SameText(Table.Name, TableName); });
  return Found == Tables.end() ? nullptr : &*Found;
}

TServerFacts ReadServerFacts(const TAdsConnection& Connection, const std::vector<std::string>& TableNames) {
  Connection.Dialect();  // throws on another thread than the connection's
  const QSqlDatabase& Database = Connection.Database();
  const TServerKind Kind = KindOf(Database);
  // A lost connection to a server may not be open either, but has more to say.
  if (Kind != TServerKind::PostgreSQL && Kind != TServerKind::MariaDB && !Database.isOpen()) {
    throw EConnectionLost("The database connection is not open.");
  }
  TServerFacts Facts;
  Facts.Driver = Database.driverName().toStdString();
  AdderFor(Kind)(Connection, TableNames, Facts);
  return Facts;
}

std::string CreateIndexText(const TAdsConnection& Connection, const std::string& Name, const std::string& Table,
                            const std::vector<std::string>& Columns) {
  return "CREATE INDEX " + NameFor(Connection, Name) + " ON " + TableFor(Connection, Table) + " " +
         ColumnList(Connection, Columns);
}

std::string InsertText(const TAdsConnection& Connection, const std::string& Table,
                       const std::vector<std::string>& Columns, const std::vector<std::string>& Values) {
  std::string List;
  for (const std::string& Value : Values) List += (List.empty() ? "" : ", ") + Connection.Dialect().Rewrite(Value);
  return "INSERT INTO " + TableFor(Connection, Table) + " " + ColumnList(Connection, Columns) + " VALUES (" + List +
         ")";
}

std::string GrantSelectText(const TAdsConnection& Connection, const std::string& Table, const std::string& Account) {
  const std::size_t At = Account.rfind('@');
  const bool HasHost = KindOf(Connection.Database()) == TServerKind::MariaDB && At != Account.npos;
  const std::string Grantee =
      HasHost ? Quoted(Account.substr(0, At), '`') + "@" + Quoted(Account.substr(At + 1), '`') : Quoted(Account, '"');
  return "GRANT SELECT ON " + TableFor(Connection, Table) + " TO " + Grantee;
}

}  // namespace ads
