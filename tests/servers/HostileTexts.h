#pragma once

#include <QString>
#include <QStringList>

namespace support {

/// What stands for something of the test's own in the texts below.
struct THostileNames {
  QString File;      ///< of a file that must never come to be
  QString Session;   ///< the number of a session of the server that must never be ended
  QString Host;      ///< of the server
  QString Database;  ///< on it
};

/// Expressions that act on one server or another, tell what is none of a list's business, or run for ever: in every
/// notation in which a server takes a function, a table or a value.
QStringList HostileExpressions(const THostileNames& Names);

/// Texts that are no expressions: further statements, lists of other tables, comments, quotes of every kind, numbers in
/// every notation, bytes that no text has.
QStringList HostileFragments(const THostileNames& Names);

/// All of these as somebody would type them who hopes that they stand in a query just as they are.
QStringList HostileTexts(const THostileNames& Names);

/// All of these as somebody would pass them who hopes that the quotes around them can be ended.
QStringList HostileCodes(const THostileNames& Names);

}  // namespace support
