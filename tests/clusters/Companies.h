#pragma once

#include <QSqlDatabase>

#include "ads/ThrowawayPostgreSQL.h"

namespace support {

/// Creates the sample company on a server, in a database of the name "company".
void CreateCompanyOn(const TThrowawayPostgreSQL& Server);

// What a sample company's database on a PostgreSQL server is made into: the dialogs see the same tables, which lie in
// other ways. Each takes a connection to that database as its owner.

/// The big tables become partitioned ones, each with three ranges of a date or key and a default partition.
void PartitionByRange(const QSqlDatabase& Database);

/// The same, but the middle one of the ranges lies on the other server, and so do some tables as a whole.
void PutShardsOn(const QSqlDatabase& Database, const TThrowawayPostgreSQL& Other);

/// All tables become views over those of a schema which the search path does not have; one of them a materialized one,
/// one over a function that returns rows.
void PutViewsInPlace(const QSqlDatabase& Database);

/// Row-level security for the account `clerk`, which is made where it is missing and may read: it sees the rows of all
/// tables unless the setting `app.company` says something else than "main".
void ProtectRows(const QSqlDatabase& Database);

/// The tables lie in a schema with an odd name, which the search path of new connections has before one in which
/// tables of the same names are empty.
inline constexpr char OddSchema[] = "Main \"Company\", 2nd; é";
void MoveToOddSchema(const QSqlDatabase& Database);

/// A name as PostgreSQL takes any.
QString Quoted(const QString& Name);

}  // namespace support
