// zulpages: writes what is installed with the programs and made from what they say of themselves: their manual pages,
// bash's completion, the icon of zulhost. Run by the build.
#include <QGuiApplication>
#include <QImage>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "apps/command/Completion.h"
#include "apps/command/Help.h"
#include "apps/zulsample/Manual.h"
#include "pickbase/PickIcon.h"

namespace {

void Write(const std::string& FileName, const std::string& Text) {
  std::ofstream File(FileName, std::ios::binary | std::ios::trunc);
  File << Text;
  File.close();
  if (!File) throw std::runtime_error(FileName + " cannot be written.");
}

void WriteIcon(const std::string& FileName, int Side) {
  if (!pickbase::PickIcon().pixmap(Side, Side).toImage().save(QString::fromStdString(FileName), "PNG")) {
    throw std::runtime_error(FileName + " cannot be written.");
  }
}

void WriteAll(const std::string& Folder) {
  const catalog::TCatalog& Catalog = catalog::FullCatalog();
  Write(Folder + "/zulpick.1", command::PickPage(Catalog));
  Write(Folder + "/zulhost.1", manual::ManPage(command::HostManual()));
  Write(Folder + "/zulsample.1", manual::ManPage(zulsample::Manual()));
  Write(Folder + "/zulpick", command::PickCompletion(Catalog));
  Write(Folder + "/zulsample", command::OptionCompletion(zulsample::Manual()));
  for (const int Side : {16, 32, 48, 128, 256}) WriteIcon(Folder + "/zulhost-" + std::to_string(Side) + ".png", Side);
}

}  // namespace

int main(int ArgCount, char* ArgValues[]) {
  const QGuiApplication Application(ArgCount, ArgValues);
  try {
    if (ArgCount != 2) throw std::runtime_error("zulpages FOLDER");
    WriteAll(ArgValues[1]);
    return 0;
  } catch (const std::exception& Error) {
    std::fprintf(stderr, "zulpages: %s\n", Error.what());
    return 1;
  }
}
