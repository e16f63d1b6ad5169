#pragma once

#include <charconv>
#include <string>
#include <string_view>

#include "ads/EDatabaseError.h"

namespace ads::mariadb {

// The statements around a query of the pick lists, by whatever way the server is reached.

/// Asks how the session stands: whether the host has a transaction open, at which level it would begin one, and in
/// which character sets it writes and reads.
inline constexpr char Look[] =
    "SELECT @@in_transaction, @@tx_isolation, @@character_set_client, @@character_set_results";

/// While the host has no transaction open. The first page of a list and the whole of it see one state of the data at
/// the level `OneState`, which is set for the next transaction only, where the session has another.
inline constexpr char OneState[] = "REPEATABLE-READ";
inline constexpr char SetOneState[] = "SET TRANSACTION ISOLATION LEVEL REPEATABLE READ";
inline constexpr char Begin[] = "START TRANSACTION READ ONLY";
/// Says what a setting of the session could make of it otherwise.
inline constexpr char End[] = "ROLLBACK AND NO CHAIN NO RELEASE";

/// Inside the host's transaction. A savepoint of the same name would be replaced, not covered, so the name is one that
/// no host has.
inline constexpr char Savepoint[] = "SAVEPOINT zul_pick_c4f1a90e";
inline constexpr char BackToSavepoint[] = "ROLLBACK TO SAVEPOINT zul_pick_c4f1a90e";
inline constexpr char DropSavepoint[] = "RELEASE SAVEPOINT zul_pick_c4f1a90e";
/// The number of the error where there can be none: the host has used a table of the engine Aria in its transaction. A
/// query is read without one then; it changes nothing that would have to be taken back.
inline constexpr unsigned NoSavepoints = 1178;

/// A node that its cluster has lost ends nothing that was begun, unless the session allows itself to read what may be
/// out of date; where that was allowed already, the node has not refused.
inline constexpr char AllowOutdated[] = "SET SESSION wsrep_dirty_reads = 1";
inline constexpr char ForbidOutdated[] = "SET SESSION wsrep_dirty_reads = 0";
inline constexpr unsigned NodeNotReady = 1047;

/// Whether an error has ended a statement from outside, with which nothing is wrong: it was killed, has taken or waited
/// too long, its transaction has made way for another one, or its node may not answer. To try again would be to wait
/// again, or no longer to stand in the host's transaction.
constexpr bool IsEndedFromOutside(unsigned Number) {
  constexpr unsigned Interrupted = 1317, OutOfTime = 1969, LockWait = 1205, Deadlock = 1213;
  return Number == Interrupted || Number == OutOfTime || Number == LockWait || Number == Deadlock ||
         Number == NodeNotReady;
}

/// Before a query, whose values then come in UTF-8; for this one statement.
inline constexpr char InUtf8[] = "SET STATEMENT character_set_results=utf8mb4 FOR ";

/// The first release that has what the dialect needs, as the client library counts them.
inline constexpr unsigned long FirstVersion = 101106;

/// How the client library counts the release of a text such as "10.11.6-MariaDB" or "10.11.000006".
inline unsigned long ReleaseOf(std::string_view Version) {
  unsigned long Result = 0;
  const char* At = Version.data();
  const char* const Last = At + Version.size();
  for (int Part = 0; Part < 3; ++Part) {
    unsigned long Number = 0;
    At = std::from_chars(At, Last, Number).ptr;
    Result = Result * 100 + Number;
    if (At != Last && *At == '.') ++At;
  }
  return Result;
}

/// Throws `EDatabaseError` for a release that is too old, with the server's own name for it.
inline void RequireRelease(unsigned long Release, const std::string& Name) {
  if (Release >= FirstVersion) return;
  throw EDatabaseError("The server is " + Name + "; lists can be read from MariaDB 10.11.6 or later.");
}

}  // namespace ads::mariadb
