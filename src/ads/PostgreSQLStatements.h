#pragma once

namespace ads::postgresql {

// The statements around a query of the pick lists, by whatever way the server is reached.

/// While the host has no transaction open. A single statement sees one state of the data at any level of isolation; the
/// lowest never fails for what others do meanwhile.
inline constexpr char Begin[] = "BEGIN ISOLATION LEVEL READ COMMITTED, READ ONLY";

/// Inside the host's transaction. Going back takes the locks, the settings and a failure back alike.
inline constexpr char Savepoint[] = "SAVEPOINT zul_pick; SET TRANSACTION READ ONLY";
inline constexpr char BackToSavepoint[] = "ROLLBACK TO SAVEPOINT zul_pick; RELEASE SAVEPOINT zul_pick";

/// What makes the server write texts of values that can be read without knowing the session's settings. For behind one
/// of the two above, with which they end.
inline constexpr char TextSettings[] =
    "SET LOCAL DateStyle = 'ISO'; SET LOCAL extra_float_digits = 3; SET LOCAL lc_monetary = 'C'";

}  // namespace ads::postgresql
