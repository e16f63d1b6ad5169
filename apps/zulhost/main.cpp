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

int Print(const std::string& Text) {
  std::fputs(Text.c_str(), stdout);
  return 0;
}

int Start(const command::TCommandLine& CommandLine, char* Program) {
  for (const command::TCommonOption& Option : command::Options()) {
    if (Option.OnlyPick && CommandLine.Given.contains(Option.Text.Name)) {
      throw command::EUsage("The option --" + Option.Text.Name + " is zulpick's.");
    }
  }
  if (CommandLine.Version) return Print(manual::VersionText(command::HostManual()));
  if (CommandLine.Help) return Print(manual::HelpText(command::HostManual()));
  if (CommandLine.List) return Print(command::ListText(catalog::FullCatalog()));
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
