#include "apps/command/CheckCommand.h"

#include <QByteArray>

#include "apps/command/OpenDatabase.h"
#include "check/Check.h"

namespace command {

void NeedNoDisplay() {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
}

TCheckResult RunCheck(const TCommandLine& CommandLine) {
  if (CommandLine.Args && !CommandLine.Args->Describe().empty()) {
    throw EUsage("--check tries every argument by itself: it takes the name of a pick, but none of its options.");
  }
  TDatabase Database(CommandLine.Database);
  const check::TReport Report = CommandLine.Pick != nullptr ? check::Check(Database.Connection(), {CommandLine.Pick})
                                                            : check::Check(Database.Connection());
  return {Report.IsFit(), "Database: " + Database.ShownAddress() + "\n" + check::TextOf(Report)};
}

}  // namespace command
