#pragma once

namespace ads::postgresql {

// The statements around a query of the pick lists, by whatever way the server is reached.

/// While the host has no transaction open. The first page of a list and the whole of it see one state of the data; a
/// transaction that only reads does not fail at this level for what others do meanwhile.
inline constexpr char Begin[] = "BEGIN ISOLATION LEVEL REPEATABLE READ, READ ONLY";

/// Inside the host's transaction. Going back takes the locks, the settings and a failure back alike.
inline constexpr char Savepoint[] = "SAVEPOINT zul_pick; SET TRANSACTION READ ONLY";
/// Where the host has done something of its own behind the savepoint, which is kept.
inline constexpr char KeepSavepoint[] = "RELEASE SAVEPOINT zul_pick";
inline constexpr char BackToSavepoint[] = "ROLLBACK TO SAVEPOINT zul_pick; RELEASE SAVEPOINT zul_pick";

/// What makes the server write texts of values that can be read without knowing the session's settings. For behind one
/// of the two above, with which they end.
inline constexpr char TextSettings[] =
    "SET LOCAL DateStyle = 'ISO'; SET LOCAL extra_float_digits = 3; SET LOCAL lc_monetary = 'C'";

}  // namespace ads::postgresql
