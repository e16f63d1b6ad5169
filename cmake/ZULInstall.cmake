# The CMake package of the installed libraries: find_package(ZULPickLists) gives ZUL::PickLists and what is below it.
include(CMakePackageConfigHelpers)

set(ZUL_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ZULPickLists")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/ZULPickListsConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/ZULPickListsConfig.cmake" INSTALL_DESTINATION "${ZUL_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZULPickListsConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ZULPickListsConfig.cmake" "${PROJECT_BINARY_DIR}/ZULPickListsConfigVersion.cmake"
  DESTINATION "${ZUL_PACKAGE_DIR}")
install(EXPORT ZULPickListsTargets NAMESPACE ZUL:: DESTINATION "${ZUL_PACKAGE_DIR}")
