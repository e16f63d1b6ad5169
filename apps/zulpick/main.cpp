// zulpick: opens one pick dialog and prints the chosen key.
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "apps/command/CommandLine.h"
#include "apps/command/Help.h"
#include "apps/command/OpenDatabase.h"
#include "pickbase/PickIcon.h"

namespace {

constexpr int Chosen = 0;
constexpr int NothingChosen = 1;
constexpr int WrongUsage = 2;
constexpr int DatabaseError = 3;

const std::string Usage =
    "Usage: zulpick NAME [options]\n"
    "Opens the pick dialog NAME over a database and prints the chosen key, one on a line when there are several.\n"
    "\n" +
    command::CommonHelp() +
    "\n"
    "Exit codes: 0 chosen, 1 nothing chosen, 2 wrong usage, 3 database error.\n";

int Complain(int Code, const std::string& Message) {
  std::fprintf(stderr, "zulpick: %s\n", Message.c_str());
  return Code;
}

int Print(int Code, const std::string& Text) {
  std::fputs(Text.c_str(), stdout);
  return std::fflush(stdout) == 0 ? Code : Complain(DatabaseError, "The result cannot be written.");
}

// Qt ends a program that finds no display by abort(): that is no way to tell a shell script what is wrong.
void ShowMessage(QtMsgType Type, const QMessageLogContext&, const QString& Message) {
  std::fprintf(stderr, "%s\n", qPrintable(Message));
  if (Type != QtFatalMsg) return;
  std::fflush(stderr);
  std::_Exit(Complain(WrongUsage, "A dialog cannot be opened here."));
}

int Run(const command::TCommandLine& CommandLine) {
  command::TDatabase Database(CommandLine.Database);
  const catalog::TResult Result = CommandLine.Pick->Call(Database.Connection(), *CommandLine.Args);
  if (!Result.Chosen) return NothingChosen;
  std::string Lines;
  for (const std::string& Key : Result.Keys) Lines += Key + "\n";
  return Print(Chosen, Lines);
}

int Start(const command::TCommandLine& CommandLine, char* Program) {
  if (CommandLine.Pick != nullptr && CommandLine.Help) return Print(Chosen, command::PickHelp(*CommandLine.Pick));
  if (CommandLine.Help) return Print(Chosen, Usage);
  if (CommandLine.List) return Print(Chosen, command::ListText(catalog::FullCatalog()));
  if (CommandLine.Pick == nullptr) return Complain(WrongUsage, "The name of a pick is missing.\n\n" + Usage);
  qInstallMessageHandler(ShowMessage);
  int ArgCount = 1;
  char* ArgValues[] = {Program, nullptr};
  const QApplication Application(ArgCount, ArgValues);
  QApplication::setWindowIcon(pickbase::PickIcon());
  command::ApplyTexts(CommandLine);
  try {
    return Run(CommandLine);
  } catch (const std::exception& Error) {
    return Complain(DatabaseError, Error.what());
  }
}

}  // namespace

int main(int ArgCount, char* ArgValues[]) {
  try {
    return Start(command::ReadCommandLine(catalog::FullCatalog(), command::Words(ArgCount, ArgValues)), ArgValues[0]);
  } catch (const command::EUsage& Error) {
    return Complain(WrongUsage, std::string(Error.what()) + "\nzulpick --help tells how it is used.");
  }
}
