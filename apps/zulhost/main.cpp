// zulhost: a host's window with every pick, to try them out.
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <string>

#include "apps/command/CommandLine.h"
#include "apps/command/Help.h"
#include "apps/zulhost/HostWindow.h"
#include "pickbase/PickIcon.h"

namespace {

constexpr int WrongUsage = 2;

const std::string Usage =
    "Usage: zulhost [options] [NAME [options of the pick NAME]]\n"
    "Shows a window with every pick, its arguments and what each call returned.\n"
    "\n" +
    command::CommonHelp();

void OpenGiven(zulhost::THostWindow& Window, const std::string& Address) {
  if (Address.empty()) return;
  try {
    Window.OpenDatabase(Address);
  } catch (const command::EOpenError& Error) {
    Window.ShowNoDatabase(Error.what());
  }
}

int Run(const command::TCommandLine& CommandLine, char* Program) {
  int ArgCount = 1;
  char* ArgValues[] = {Program, nullptr};
  const QApplication Application(ArgCount, ArgValues);
  QApplication::setWindowIcon(pickbase::PickIcon());
  // The file dialog would write down the folders that were visited.
  const QTemporaryDir Settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, Settings.path());
  command::ApplyTexts(CommandLine);
  zulhost::THostWindow Window(catalog::FullCatalog());
  OpenGiven(Window, CommandLine.Database);
  if (CommandLine.Pick != nullptr) Window.Choose(*CommandLine.Pick, *CommandLine.Args);
  Window.show();
  return QApplication::exec();
}

int Start(const command::TCommandLine& CommandLine, char* Program) {
  if (CommandLine.Help || CommandLine.List) {
    std::fputs((CommandLine.Help ? Usage : command::ListText(catalog::FullCatalog())).c_str(), stdout);
    return 0;
  }
  return Run(CommandLine, Program);
}

}  // namespace

int main(int ArgCount, char* ArgValues[]) {
  try {
    return Start(command::ReadCommandLine(catalog::FullCatalog(), command::Words(ArgCount, ArgValues)), ArgValues[0]);
  } catch (const command::EUsage& Error) {
    std::fprintf(stderr, "zulhost: %s\n", Error.what());
    return WrongUsage;
  }
}
