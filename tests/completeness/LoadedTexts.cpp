#include "completeness/LoadedTexts.h"

#include <dlfcn.h>

#include <QtGlobal>

#include "zulcommon/StringTable.h"

namespace {

std::set<std::int32_t>& Loaded() {
  static std::set<std::int32_t> Numbers;
  return Numbers;
}

}  // namespace

const std::set<std::int32_t>& LoadedTexts() {
  return Loaded();
}

std::string zulcommon::LoadZULResString(std::int32_t Number) {
  using TLoad = std::string (*)(std::int32_t);
  static const auto Load = reinterpret_cast<TLoad>(dlsym(RTLD_NEXT, "_ZN9zulcommon16LoadZULResStringB5cxx11Ei"));
  if (Load == nullptr) qFatal("The library does not load texts.");
  Loaded().insert(Number);
  return Load(Number);
}
