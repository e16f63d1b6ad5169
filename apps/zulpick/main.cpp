// zulpick: opens one pick dialog and prints the chosen key.
#include <fcntl.h>

#include <QApplication>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string>

#include "apps/command/CheckCommand.h"
#include "apps/command/CommandLine.h"
#include "apps/command/Help.h"
#include "apps/command/OpenDatabase.h"
#include "apps/command/ResultText.h"
#include "pickbase/PickCall.h"
#include "pickbase/PickIcon.h"
#include "zulcommon/EZULException.h"

namespace {

constexpr int Chosen = 0;
constexpr int NothingChosen = 1;
constexpr int Unfit = 1;
constexpr int WrongUsage = 2;
constexpr int Failed = 3;

constexpr int TextsAreFine = 0;
constexpr int TextsAreWrong = 1;

int Complain(int Code, const std::string& Message) {
  std::fprintf(stderr, "zulpick: %s\n", Message.c_str());
  return Code;
}

int Print(int Code, const std::string& Text) {
  const bool Written = std::fwrite(Text.data(), 1, Text.size(), stdout) == Text.size();
  if (std::fflush(stdout) == 0 && Written) return Code;
  return Complain(Failed, std::string("The result cannot be written: ") + std::strerror(errno) + ".");
}

// Standard files that the caller has closed would be the numbers of the next files opened, such as the database or the
// connection to the display, and the result would be written there. A full pipe's end that is gone is an error like any
// other.
void SettleOutput() {
  for (const int File : {0, 1, 2}) {
    if (::fcntl(File, F_GETFD) != -1) continue;
    // The lowest free number is taken; what is printed to one that can only be read fails, as it must.
    if (::open("/dev/null", File == 2 ? O_WRONLY : O_RDONLY) == -1) std::_Exit(Failed);
  }
  std::signal(SIGPIPE, SIG_IGN);
}

// Qt ends a program that finds no display by abort(): that is no way to tell a shell script what is wrong.
void ShowMessage(QtMsgType Type, const QMessageLogContext& Context, const QString& Message) {
  // The platform without a display tells of each window what it cannot do.
  if (Message.startsWith(QLatin1String("This plugin does not support "))) return;
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(Type, Context, Message)));
  if (Type != QtFatalMsg) return;
  std::fflush(stderr);
  std::_Exit(Complain(Failed,
                      "A dialog cannot be opened here. There is no display that can be reached (DISPLAY, "
                      "WAYLAND_DISPLAY)."));
}

int Run(const command::TCommandLine& CommandLine) {
  command::TDatabase Database(CommandLine.Database);
  std::vector<catalog::TShownRow> Rows;
  pickbase::TPickWatch Watch;
  if (CommandLine.Json) {
    Watch.OnChosen = [&](uDocPickBase::TDocPickBase& Dialog) { Rows = catalog::ChosenRows(Dialog); };
  }
  const catalog::TResult Result = CommandLine.Pick->Call(Database.Connection(), *CommandLine.Args);
  if (!Result.Chosen) return NothingChosen;
  return Print(Chosen, CommandLine.Json ? command::JsonText(Result, Rows) : command::KeyLines(Result));
}

int Check(const command::TCommandLine& CommandLine) {
  const command::TCheckResult Result = command::RunCheck(CommandLine);
  return Print(Result.IsFit ? Chosen : Unfit, Result.Text);
}

// On no display: the fonts are only measured.
int CheckTexts(const std::string& FileName, char* Program) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int ArgCount = 1;
  char* ArgValues[] = {Program, nullptr};
  const QGuiApplication Application(ArgCount, ArgValues);
  try {
    const std::string Findings = command::TextFindings(FileName);
    return Print(Findings.empty() ? TextsAreFine : TextsAreWrong, Findings);
  } catch (const zulcommon::EZULException& Error) {
    return Complain(Failed, Error.what());
  }
}

int Open(const command::TCommandLine& CommandLine, char* Program) {
  if (CommandLine.Pick == nullptr && !CommandLine.Check) {
    return Complain(WrongUsage, "The name of a pick is missing.\n\n" + manual::HelpText(command::PickManual()));
  }
  command::ApplyTexts(CommandLine);
  if (CommandLine.Database.empty()) throw command::EUsage(command::NoDatabase);
  if (CommandLine.Check) command::NeedNoDisplay();
  qInstallMessageHandler(ShowMessage);
  int ArgCount = 1;
  char* ArgValues[] = {Program, nullptr};
  const QApplication Application(ArgCount, ArgValues);
  QApplication::setWindowIcon(pickbase::PickIcon());
  try {
    return CommandLine.Check ? Check(CommandLine) : Run(CommandLine);
  } catch (const command::EUsage&) {
    throw;
  } catch (const std::exception& Error) {
    return Complain(Failed, Error.what());
  }
}

int Start(const command::TCommandLine& CommandLine, char* Program) {
  const manual::TManual& Manual = command::PickManual();
  if (CommandLine.Version) return Print(Chosen, manual::VersionText(Manual));
  if (CommandLine.Help) {
    return Print(Chosen, CommandLine.Pick != nullptr ? command::PickHelp(*CommandLine.Pick) : manual::HelpText(Manual));
  }
  if (CommandLine.List) return Print(Chosen, command::ListText(catalog::FullCatalog()));
  if (CommandLine.CheckTexts.empty()) return Open(CommandLine, Program);
  if (CommandLine.Pick != nullptr) return Complain(WrongUsage, "A table of texts is checked without a pick.");
  return CheckTexts(CommandLine.CheckTexts, Program);
}

}  // namespace

int main(int ArgCount, char* ArgValues[]) {
  SettleOutput();
  try {
    return Start(command::ReadCommandLine(catalog::FullCatalog(), command::Words(ArgCount, ArgValues)), ArgValues[0]);
  } catch (const command::EUsage& Error) {
    return Complain(WrongUsage, std::string(Error.what()) + "\nzulpick --help tells how it is used.");
  }
}
