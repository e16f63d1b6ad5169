#pragma once

#include <cstdint>

#include "frame/zulpicklists_export.h"

extern "C" {

/// What the module says of itself to a host that loads it at run time. Every pointer stays valid while the module is
/// loaded.
struct TPackageInfoTable {
  const char* Name;
  const char* Description;
  std::int32_t RequiredCount;
  const char* const* Required;  ///< the packages to be loaded before
  std::int32_t UnitCount;
  const char* const* Units;       ///< in the order in which they are initialized
  std::int32_t InitializedCount;  ///< the units that are initialized now, from the first
};

/// Starts every unit of the module, in the order of the table. To be called once after the module was loaded; more
/// calls do nothing.
ZULPICKLISTS_EXPORT void Initialize();

/// Ends every unit, in the reverse order. To be called once before the module is unloaded; more calls do nothing.
ZULPICKLISTS_EXPORT void Finalize();

/// The module's description; owned by the module.
ZULPICKLISTS_EXPORT const TPackageInfoTable* GetPackageInfoTable();

}  // extern "C"
