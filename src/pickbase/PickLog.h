#pragma once

#include <string>

namespace ads {
class TAdsConnection;
}
namespace uDocPickBase {
class TDocPickBase;
}

namespace pickbase {

// The logging category `zul.pick`: what becomes of a pick, by its dialog's object name. Silent unless the host asks for
// it. A message holds numbers of rows, times and a server's words about a failure; nothing that was typed, listed or
// chosen.

/// Tells of something that happens to a dialog.
void LogPick(const uDocPickBase::TDocPickBase& Dialog, const char* What, const std::string& Why = {});

/// Tells that a dialog is being built, and over which server.
void LogOpening(const uDocPickBase::TDocPickBase& Dialog, const ads::TAdsConnection& Connection);

/// Tells when the first rows of the query that begins now are there, and when all are.
void LogRows(uDocPickBase::TDocPickBase& Dialog);

}  // namespace pickbase
