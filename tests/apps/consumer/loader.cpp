// Loads the module at run time, several times over, without having been linked with it.
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

// What GetPackageInfoTable gives, as a loader knows it.
struct TInfo {
  const char* Name;
  const char* Description;
  std::int32_t RequiredCount;
  const char* const* Required;
  std::int32_t UnitCount;
  const char* const* Units;
  std::int32_t InitializedCount;
};

bool Check(bool Right, const char* What) {
  if (!Right) std::printf("loader: %s\n", What);
  return Right;
}

template <typename TFunction>
TFunction* Entry(void* Module, const char* Name) {
  return reinterpret_cast<TFunction*>(dlsym(Module, Name));
}

bool IsDescribed(const TInfo& Info) {
  return Check(std::strcmp(Info.Name, "ZULPickLists") == 0, "the name") &&
         Check(std::strcmp(Info.Description, "ZUL Picklists") == 0, "the description") &&
         Check(Info.RequiredCount == 3 && std::strcmp(Info.Required[0], "ZULCommon") == 0, "the required packages") &&
         Check(Info.UnitCount > 3, "the number of units") &&
         Check(std::strcmp(Info.Units[0], "uZULPickListsUtils") == 0, "the first unit") &&
         Check(std::strcmp(Info.Units[2], "uDocPickBase") == 0, "the third unit") &&
         Check(std::strncmp(Info.Units[Info.UnitCount - 1], "uPick", 5) == 0, "the last unit");
}

bool Round(const char* FileName) {
  void* Module = dlopen(FileName, RTLD_NOW | RTLD_LOCAL);
  if (Module == nullptr) return Check(false, dlerror());
  auto* Initialize = Entry<void()>(Module, "Initialize");
  auto* Finalize = Entry<void()>(Module, "Finalize");
  auto* GetPackageInfoTable = Entry<const TInfo*()>(Module, "GetPackageInfoTable");
  if (!Check(Initialize != nullptr && Finalize != nullptr && GetPackageInfoTable != nullptr, "the entries"))
    return false;
  const TInfo* Info = GetPackageInfoTable();
  bool Right = IsDescribed(*Info) && Check(Info->InitializedCount == 0, "initialized too early");
  Initialize();
  Right = Check(Info->InitializedCount == Info->UnitCount, "not initialized") && Right;
  Finalize();
  Right = Check(Info->InitializedCount == 0, "not finalized") && Right;
  return Check(dlclose(Module) == 0, "not closed") && Right;
}

}  // namespace

int main(int, char* ArgValues[]) {
  for (int Time = 0; Time < 5; ++Time) {
    if (!Round(ArgValues[1])) return 1;
  }
  std::puts("loader: five rounds");
  return 0;
}
